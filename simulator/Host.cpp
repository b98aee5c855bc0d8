#include "simulator/Host.h"

#include <accessory/IAppleiAP2Manager.h>
#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>

#include "simulator/faults/FaultyStub.h"
#include "simulator/service/OtherServices.h"
#include "simulator/service/iAP2Service.h"

namespace accessory::simulator {

namespace {

/// Registrations are the stubs' own, so they are reported and forced to fail here. The world is not locked:
/// the register waits for a round of events, in which clients may make requests.
template <typename Stub, typename Notifier>
class RegisteringStub : public FaultyStub<Stub> {
  public:
    template <typename Implementation>
    RegisteringStub(const android::sp<Implementation>& implementation, const HostedInterface& hosted,
                    FaultInjector& faults, FaultReport reportFault, World& world, Report& report)
        : FaultyStub<Stub>(implementation, hosted, faults, std::move(reportFault)),
          mWorld(world),
          mReport(report) {}

    int setNotifier(const android::sp<Notifier>& notifier) override {
        return run("setNotifier", [&] { return Stub::setNotifier(notifier); });
    }
    int clearNotifier() override {
        return run("clearNotifier", [&] { return Stub::clearNotifier(); });
    }

  private:
    template <typename Action>
    int run(const char* name, const Action& action) {
        const int32_t* const forced = ForcedStatus::current();
        const int status = forced != nullptr ? *forced : action();
        const int pid = android::IPCThreadState::self()->getCallingPid();
        mReport.tell(
            Report::Kind::kRequest, mWorld.now(),
            std::string(name) + "() from process " + std::to_string(pid) + " = " + std::to_string(status));
        return status;
    }

    World& mWorld;
    Report& mReport;
};

using iAP2Stub = RegisteringStub<BnAppleiAP2Manager, IAppleiAP2ManagerNotifier>;
using USBAudioStub = RegisteringStub<BnAppleUSBAudioManager, IAppleUSBAudioManagerNotifier>;

}  // namespace

Host::Host(World& world, Report& report, FaultInjector& faults) {
    const FaultReport tell = [&](const std::string& line) {
        report.tell(Report::Kind::kFault, world.now(), line);
    };
    const android::sp<AccessoryManagerImplItf> accessories = new AccessoryService(world, report);
    const android::sp<AppleiAP2ManagerImplItf> iAP2 = new iAP2Service(world, report, faults);
    const android::sp<AppleUSBAudioManagerImplItf> usbAudio = new USBAudioService(world, report);
    mAccessoryManager =
        new FaultyStub<BnAccessoryManager>(accessories, accessoryManagerInterface(), faults, tell);
    mAP2Manager = new iAP2Stub(iAP2, iAP2ManagerInterface(), faults, tell, world, report);
    mUSBAudioManager = new USBAudioStub(usbAudio, usbAudioManagerInterface(), faults, tell, world, report);
}

android::status_t Host::publish(std::string* name) {
    const std::pair<const HostedInterface&, android::sp<android::IBinder>> all[] = {
        {accessoryManagerInterface(), mAccessoryManager},
        {iAP2ManagerInterface(), mAP2Manager},
        {usbAudioManagerInterface(), mUSBAudioManager}};
    for (const auto& [hosted, stub] : all) {
        *name = hosted.descriptor;
        const android::status_t status =
            android::defaultServiceManager()->addService(android::String16(hosted.descriptor), stub);
        if (status != android::NO_ERROR) return status;
    }
    return android::NO_ERROR;
}

}  // namespace accessory::simulator
