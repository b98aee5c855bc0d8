#include "tests/tools/Services.h"

#include <accessory/AppleiAP2ManagerNotifier.h>
#include <accessory/IAccessoryManager.h>
#include <accessory/testing/MockAppleUSBAudioManager.h>
#include <binder/IServiceManager.h>
#include <binder/Parcel.h>
#include <binder/ProcessState.h>

#include <condition_variable>
#include <map>
#include <mutex>
#include <sstream>

#include "tests/AppleiAP2/manager/ManagerRecorder.h"

namespace accessory::test {

using android::sp;
using android::String16;
using android::String8;

namespace {

class Manager : public ManagerRecorder {
  public:
    /// Never answers for one accessory, and ends the process for another.
    int stop(unsigned int accId) override {
        if (accId == Services::kSilent) wait();
        if (accId == Services::kDeadly) _exit(0);
        return ManagerRecorder::stop(accId);
    }
    int dump(const android::Vector<String16>& /*args*/, String8& result) override {
        result.append("all is well\n");
        return 0;
    }

  private:
    static void wait() {
        std::mutex never;
        std::unique_lock lock(never);
        std::condition_variable().wait(lock, [] { return false; });
    }
};

class Accessories : public AccessoryManagerImplItf {
  public:
    int32_t getDeviceCount() override { return 3; }
    int32_t getFeature(unsigned int accessoryId) override { return static_cast<int32_t>(accessoryId); }
    String8 getPath(unsigned int accessoryId) override { return String8::format("/dev/%u", accessoryId); }
    int32_t getAccessoryId(const String8& /*path*/) override { return -1; }
    int dump(const android::Vector<String16>& /*args*/, String8& /*result*/) override { return 0; }
};

class Audio : public testing::NiceMock<testkit::MockAppleUSBAudioManagerImpl> {
  public:
    int getIds(unsigned int* ids, unsigned int* count) override {
        ids[0] = 4;
        ids[1] = 9;
        *count = 2;
        return 0;
    }
};

/// All that the role serves; kept until the process ends.
struct Served {
    sp<Manager> manager = new Manager;
    sp<Audio> audio = new Audio;
    sp<BnAppleiAP2Manager> managerStub = new BnAppleiAP2Manager(manager);
    sp<BnAppleUSBAudioManager> audioStub = new BnAppleUSBAudioManager(audio);
    sp<BnAccessoryManager> accessoryStub = new BnAccessoryManager(new Accessories);
};

void sendPower(Served& served, int level) {
    const sp<IiAP2PowerUpdate> power = new IiAP2PowerUpdate;
    power->setChargeLevel(level).setPowerMode(2);
    served.manager->broadcaster->powerUpdate(7, power);
}

/// An event whose bytes no receiver can take: a link key of 2 GiB.
void sendGarbled(Served& served, int pid) {
    const auto& notifiers = dynamic_cast<AppleiAP2ManagerNotifier&>(*served.manager->broadcaster);
    android::Parcel request;
    android::Parcel reply;
    request.writeInterfaceToken(IAppleiAP2ManagerNotifier::descriptor);
    request.writeInt32(7);
    request.writeInt32(0x7fffffff);
    constexpr uint32_t kOOBBTPLinkKeyInfo = 30;
    android::IInterface::asBinder(notifiers.find(pid))->transact(kOOBBTPLinkKeyInfo, request, &reply);
}

void flood(Served& served, int count) {
    const std::string info(1000, 'x');
    for (int i = 0; i < count; ++i)
        served.manager->broadcaster->deviceInfoUpdate(static_cast<unsigned int>(i), info.c_str());
}

const std::map<std::string, void (*)(Served&, int)>& deeds() {
    static const std::map<std::string, void (*)(Served&, int)> all = {
        {"attach",
         [](Served& served, int id) { served.manager->broadcaster->attach(static_cast<unsigned int>(id)); }},
        {"detach",
         [](Served& served, int id) { served.manager->broadcaster->detach(static_cast<unsigned int>(id)); }},
        {"audio",
         [](Served& served, int id) { served.audio->broadcaster->attach(static_cast<unsigned int>(id)); }},
        {"power", sendPower},
        {"garbled", sendGarbled},
        {"flood", flood},
    };
    return all;
}

CHILD_ROLE(toolServices) {
    auto* const served = new Served;
    const sp<android::IServiceManager> names = android::defaultServiceManager();
    names->addService(IAppleiAP2Manager::descriptor, served->managerStub);
    names->addService(IAppleUSBAudioManager::descriptor, served->audioStub);
    names->addService(IAccessoryManager::descriptor, served->accessoryStub);
    android::ProcessState::self()->startThreadPool();
    parent.send("ready");
    while (true) {
        std::istringstream words(parent.expectLine(std::chrono::minutes(2)));
        std::string deed;
        int number = 0;
        words >> deed >> number;
        if (deed == "told") {
            const auto told = served->manager->takeTold();
            parent.send(told.empty() ? "nothing" : told.back());
            continue;
        }
        deeds().at(deed)(*served, number);
        parent.send("done");
    }
}

}  // namespace

}  // namespace accessory::test
