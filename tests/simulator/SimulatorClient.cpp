#include "tests/simulator/SimulatorClient.h"

#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

#include "tests/support/Eventually.h"

namespace accessory::simulator::test {

namespace {

template <typename Interface>
android::sp<Interface> find(const char* name) {
    android::ProcessState::self()->startThreadPool();
    const android::sp<Interface> proxy =
        Interface::asInterface(android::defaultServiceManager()->getService(android::String16(name)));
    EXPECT_NE(proxy, nullptr) << name;
    return proxy;
}

}  // namespace

SimulatorClient::SimulatorClient()
    : mManager(find<IAppleiAP2Manager>("accessory.AppleiAP2Manager")),
      mAudio(find<IAppleUSBAudioManager>("accessory.AppleUSBAudioManager")),
      mAccessories(find<IAccessoryManager>("accessory.AccessoryManager")),
      mRecorder(new Recorder),
      mNotifier(new BnAppleiAP2ManagerNotifier(mRecorder)) {
    EXPECT_EQ(mManager->setNotifier(mNotifier), 0);
}

SimulatorClient::~SimulatorClient() { mManager->clearNotifier(); }

testing::AssertionResult SimulatorClient::hears(const testing::Matcher<const std::string&>& event) {
    auto found = mHeard.end();
    const testing::AssertionResult result = accessory::test::eventually([&] {
        heard();
        found =
            std::find_if(mHeard.begin(), mHeard.end(), [&](const auto& each) { return event.Matches(each); });
        return found != mHeard.end();
    });
    if (!result) return testing::AssertionFailure() << "heard only " << testing::PrintToString(mHeard);
    mHeard.erase(mHeard.begin(), found + 1);
    return result;
}

const std::vector<std::string>& SimulatorClient::heard() {
    for (std::string& event : mRecorder->takeTold())
        mHeard.push_back(std::move(event));
    return mHeard;
}

std::string SimulatorClient::dump() {
    const int file = memfd_create("dump", MFD_CLOEXEC);
    EXPECT_EQ(android::IInterface::asBinder(mManager.get())->dump(file, {}), 0);
    std::string text(static_cast<size_t>(lseek(file, 0, SEEK_END)), '\0');
    EXPECT_EQ(pread(file, text.data(), text.size(), 0), static_cast<ssize_t>(text.size()));
    close(file);
    return text;
}

void QuietSimulator::attach() {
    ASSERT_EQ(manager.startup(kTransportUSBHost), kDone);
    ASSERT_TRUE(client.hears("CarPlayAvailability(5, {true \"usb-5\"}, {false null})"));
}

}  // namespace accessory::simulator::test
