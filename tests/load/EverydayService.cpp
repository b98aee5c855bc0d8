#include "tests/load/EverydayService.h"

#include <accessory/AppleiAP2ManagerNotifier.h>
#include <accessory/IAccessoryManager.h>
#include <accessory/testing/MockAppleUSBAudioManager.h>
#include <binder/ProcessState.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "tests/AppleiAP2/manager/registry/Announcer.h"
#include "tests/AppleiAP2/manager/registry/QuietService.h"
#include "tests/load/Load.h"
#include "tests/support/ChildRole.h"

namespace accessory::load {
namespace {

using android::sp;
using android::String8;
using Arguments = android::Vector<android::String16>;

class Accessories : public AccessoryManagerImplItf {
    int32_t getDeviceCount() override { return 3; }
    int32_t getFeature(unsigned int accessoryId) override { return static_cast<int32_t>(accessoryId) + 1; }
    String8 getPath(unsigned int accessoryId) override {
        return String8(std::string(accessoryId, 'x').c_str());
    }
    int32_t getAccessoryId(const String8& path) override { return static_cast<int32_t>(path.size()); }
    int dump(const Arguments& /*args*/, String8& /*result*/) override { return 0; }
};

class Audio : public testing::NiceMock<testkit::MockAppleUSBAudioManagerImpl> {
  public:
    int getIds(unsigned int* ids, unsigned int* count) override {
        ids[0] = 5;
        *count = 1;
        return 0;
    }
};

/// How many clients a listing names, told in its first line.
template <typename Registry, typename Broadcaster>
std::string countIn(Broadcaster& broadcaster) {
    String8 text;
    EXPECT_EQ(dynamic_cast<Registry&>(broadcaster).dump({}, text), 0);
    const std::string listing = text.string();
    const size_t begin = listing.find('[') + 1;
    return listing.substr(begin, listing.find(']') - begin);
}

class EverydayService {
  public:
    explicit EverydayService(const std::string& prefix) {
        publish<BnAccessoryManager>(prefix, sp<AccessoryManagerImplItf>(new Accessories));
        mStub = publish<BnAppleiAP2Manager>(prefix, sp<AppleiAP2ManagerImplItf>(mService));
        publish<BnAppleUSBAudioManager>(prefix, sp<AppleUSBAudioManagerImplItf>(mAudio));
        android::ProcessState::self()->startThreadPool();
    }

    std::string loud() {
        mIsLoud = true;
        mRaising = std::thread([this] {
            while (mIsLoud)
                raiseAll();
        });
        return std::to_string(mRounds);
    }

    std::string quiet() {
        mIsLoud = false;
        mRaising.join();
        raiseAll();
        return std::to_string(mRounds);
    }

    std::string clients() const {
        return countIn<AppleiAP2ManagerNotifier>(*mService->broadcasters.at(0)) + ' ' +
               countIn<AppleUSBAudioManagerNotifier>(*mAudio->broadcaster) + ' ' +
               std::to_string(mStub->getStrongCount());
    }

  private:
    template <typename Stub, typename Service>
    static sp<Stub> publish(const std::string& prefix, const sp<Service>& service) {
        const sp<Stub> stub = new Stub(service);
        const android::String16 name = everydayName(prefix, Stub::descriptor);
        EXPECT_EQ(android::defaultServiceManager()->addService(name, stub), android::NO_ERROR);
        return stub;
    }

    /// One event of each kind, with the records that belong to them. The round's own numbers come once.
    void raiseAll() {
        AppleiAP2ManagerNotifierItf& broadcaster = *mService->broadcasters.at(0);
        broadcaster.attach(kFirstRound + mRounds);
        mAudio->broadcaster->attach(kFirstRound + mRounds);
        ++mRounds;
        for (const test::Event& event : test::allEvents())
            test::raise(event, mService->broadcasters.at(0));
        mAudio->broadcaster->detach(1);
        rest(std::chrono::milliseconds(1));
    }

    const sp<test::QuietService> mService{new test::QuietService};
    const sp<Audio> mAudio{new Audio};
    sp<BnAppleiAP2Manager> mStub;
    std::atomic<bool> mIsLoud{false};
    std::atomic<unsigned int> mRounds{0};
    std::thread mRaising;
};

CHILD_ROLE(everydayService) {
    EverydayService service(args.at(0));
    parent.send("ready");
    for (std::string order = parent.expectLine(untilTheEnd());; order = parent.expectLine(untilTheEnd())) {
        if (order == "loud") parent.send(service.loud());
        if (order == "quiet") parent.send(service.quiet());
        if (order == "clients") parent.send(service.clients());
    }
}

}  // namespace
}  // namespace accessory::load
