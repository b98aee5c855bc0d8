// QuietService: an implementation of the iAP2 service that keeps the broadcaster and answers 0 to everything.
#pragma once

#include <accessory/testing/MockAppleiAP2Manager.h>

#include <atomic>
#include <vector>

namespace accessory::test {

/// What is not told here is what a mock without expectations does: it answers 0 or null.
class QuietService : public testing::NiceMock<testkit::MockAppleiAP2ManagerImpl> {
  public:
    int addStatus = 0;                            ///< of addNotifier()
    int dumpStatus = 0;                           ///< of dump()
    std::atomic<int> dumps{0};                    ///< how often dump() was called
    android::Vector<android::String16> dumpArgs;  ///< of the latest dump()

    /// All that addNotifier() was given.
    std::vector<android::sp<AppleiAP2ManagerNotifierItf>> broadcasters;

    QuietService();
    ~QuietService() override;

    int addNotifier(const android::sp<AppleiAP2ManagerNotifierItf>& notifier) override;
    int dump(const android::Vector<android::String16>& args, android::String8& result) override;
};

}  // namespace accessory::test
