#include "bench/scale/ScaleService.h"

#include "bench/support/IdleManager.h"
#include "bench/support/ManagerService.h"
#include "bench/support/Payload.h"

namespace accessory::bench {
namespace {

class Answering : public IdleManager {
  public:
    int AcceptCall(unsigned int, int, const char* text) override {
        return static_cast<int>(answerTo(text, claimedSize(text)));
    }
};

void playService(Channel& conductor, const Arguments& /*arguments*/) {
    serveManager(new Answering, kScaleService, [&] { conductor.send({}); });
}

const RoleRegistration kService("scale service", playService);

}  // namespace

std::unique_ptr<Child> startScaleService() {
    auto service = std::make_unique<Child>("scale service");
    service->answer();
    return service;
}

}  // namespace accessory::bench
