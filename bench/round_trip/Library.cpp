// This library, on the bundled runtime: a request through proxy and stub. AcceptCall carries the bytes as a
// string, updateLocation as a buffer.
#include <accessory/IAppleiAP2Manager.h>

#include "bench/support/Contender.h"
#include "bench/support/IdleManager.h"
#include "bench/support/ManagerService.h"

namespace accessory::bench {
namespace {

using android::sp;

constexpr unsigned int kAccessory = 1;

class Answering : public IdleManager {
  public:
    int AcceptCall(unsigned int, int, const char* text) override {
        const size_t size = claimedSize(text);
        return text[size] == '\0' ? static_cast<int>(answerTo(text, size)) : 0;
    }
    int updateLocation(unsigned int, const unsigned char* data, int size) override {
        return static_cast<int>(answerTo(reinterpret_cast<const char*>(data), static_cast<size_t>(size)));
    }
};

void serve(const std::string& /*folder*/, const Ready& ready) { serveManager(new Answering, "echo", ready); }

class AcceptCall : public Caller {
  public:
    uint32_t call(const Payload& payload) override {
        return static_cast<uint32_t>(mManager->AcceptCall(kAccessory, 0, payload.data()));
    }

  private:
    const sp<IAppleiAP2Manager> mManager = managerNamed("echo");
};

class UpdateLocation : public Caller {
  public:
    uint32_t call(const Payload& payload) override {
        const auto* const bytes = reinterpret_cast<const unsigned char*>(payload.data());
        return static_cast<uint32_t>(
            mManager->updateLocation(kAccessory, bytes, static_cast<int>(payload.size())));
    }

  private:
    const sp<IAppleiAP2Manager> mManager = managerNamed("location");
};

void serveLocation(const std::string& /*folder*/, const Ready& ready) {
    serveManager(new Answering, "location", ready);
}

template <typename Kind>
std::unique_ptr<Caller> connect(const std::string& /*folder*/) {
    return std::make_unique<Kind>();
}

const ContenderRegistration kAcceptCall({"AcceptCall", 0, connect<AcceptCall>, serve});
const ContenderRegistration kUpdateLocation({"updateLocation", 1, connect<UpdateLocation>, serveLocation});

}  // namespace
}  // namespace accessory::bench
