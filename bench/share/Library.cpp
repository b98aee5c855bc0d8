// The library: proxy, parcel, stub, implementation.
#include <accessory/IAppleiAP2Manager.h>

#include "bench/share/Places.h"
#include "bench/support/IdleManager.h"

namespace accessory::bench {
namespace {

using android::IBinder;
using android::sp;

class Answering : public IdleManager {
  public:
    int AcceptCall(unsigned int, int, const char* text) override {
        return static_cast<int>(answerTo(text, claimedSize(text)));
    }
};

sp<IBinder> makeStub() { return new BnAppleiAP2Manager(new Answering); }

/// A proxy in any case: a local object's interface would be the stub itself.
class LibraryCaller : public Caller {
  public:
    static constexpr char kName[] = "share.library";

    explicit LibraryCaller(const sp<IBinder>& object) : mManager(new BpAppleiAP2Manager(object)) {}

    uint32_t call(const Payload& payload) override {
        return static_cast<uint32_t>(mManager->AcceptCall(kAccessory, 0, payload.data()));
    }

  private:
    const sp<IAppleiAP2Manager> mManager;
};

using Library = Places<LibraryCaller, makeStub>;
const ContenderRegistration kAcross({kLibraryAcross, 0, Library::connectAcross, Library::serve});
const ContenderRegistration kWithin({kLibraryWithin, 10, Library::connectWithin, serveNothing});

}  // namespace
}  // namespace accessory::bench
