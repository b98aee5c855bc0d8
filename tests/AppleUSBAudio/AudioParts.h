// What stands behind the stubs of the USB audio family in tests and fuzzers: a service and a client that note
// down what they are told, stubs whose dispatch may be called, and requests made by hand.
#pragma once

#include <accessory/IAppleUSBAudioManager.h>
#include <binder/Parcel.h>

#include <atomic>
#include <iosfwd>
#include <mutex>
#include <string>
#include <vector>

#include "tests/AccessoryManager/Bytes.h"
#include "tests/support/Meanwhile.h"

namespace accessory::test {

/// Notes down every call, "operation(arguments)". For calls from any threads.
class AudioService : public AppleUSBAudioManagerImplItf {
  public:
    std::atomic<int> answer{0};                   ///< of every operation
    int addStatus = 0;                            ///< of addNotifier()
    int dumpStatus = 0;                           ///< of dump()
    std::vector<unsigned int> roomGiven;          ///< what getIds() found in its array and count
    android::Vector<android::String16> dumpArgs;  ///< of the latest dump()
    std::vector<android::sp<AppleUSBAudioManagerNotifierItf>> broadcasters;

    /// Lets getIds() store @p ids, ten at most, and report @p count.
    void setIds(std::vector<unsigned int> ids, unsigned int count);

    /// What was told since the last time, with '|' behind each call.
    std::string told();

    int startup() override { return note("startup()"); }
    int shutdown() override { return note("shutdown()"); }
    int addNotifier(const android::sp<AppleUSBAudioManagerNotifierItf>& notifier) override;
    int getIds(unsigned int* array, unsigned int* countOut) override;
    int start(unsigned int value) override { return note("start", value); }
    int stop(unsigned int value) override { return note("stop", value); }
    int setSampleRate(unsigned int value1, unsigned int value2) override {
        return note("setSampleRate", value1, value2);
    }
    int setVolume(unsigned int value1, unsigned int value2) override {
        return note("setVolume", value1, value2);
    }
    int play(unsigned int value) override { return note("play", value); }
    int pause(unsigned int value) override { return note("pause", value); }
    int dump(const android::Vector<android::String16>& args, android::String8& result) override;

  private:
    int note(const std::string& call);
    int note(const std::string& operation, unsigned int value);
    int note(const std::string& operation, unsigned int value1, unsigned int value2);

    std::mutex mLock;
    std::string mTold;
    std::vector<unsigned int> mIds;
    unsigned int mCount = 0;
};

/// A client's implementation, likewise.
class AudioListener : public AppleUSBAudioManagerNotifierImplItf {
  public:
    std::atomic<int> answer{0};
    Meanwhile meanwhile;  ///< runs in every call, before it is noted

    std::string told();

    int attach(unsigned int accessoryId) override { return note("attach", accessoryId); }
    int detach(unsigned int accessoryId) override { return note("detach", accessoryId); }

  private:
    int note(const std::string& operation, unsigned int accessoryId);

    std::mutex mLock;
    std::string mTold;
};

/// How a request ended.
struct Answer {
    android::status_t status;
    Bytes reply;
};
bool operator==(const Answer& left, const Answer& right);
void PrintTo(const Answer& answer, std::ostream* out);

/// Hands a stub a request of those bytes, with flags 0.
template <typename Stub>
Answer ask(Stub& stub, uint32_t code, const Bytes& request) {
    android::Parcel data;
    android::Parcel reply;
    fill(&data, request);
    const android::status_t status = stub.onTransact(code, data, &reply, 0);
    return {status, bytesOf(reply)};
}

inline constexpr char16_t kAudioName[] = u"accessory.AppleUSBAudioManager";
inline constexpr char16_t kAudioNotifierName[] = u"accessory.AppleUSBAudioManagerNotifier";

/// Requests: the token, then @p arguments.
inline Bytes audioRequest(const Bytes& arguments = {}) { return parcel({token(kAudioName), arguments}); }
inline Bytes audioEvent(const Bytes& arguments = {}) {
    return parcel({token(kAudioNotifierName), arguments});
}

/// Stubs, their registries and recipients hold each other for good. Here they stay reachable, as they do in a
/// service, which keeps its stub.
android::sp<BnAppleUSBAudioManager> keptStub(const android::sp<AppleUSBAudioManagerImplItf>& service);

}  // namespace accessory::test
