// What the tests of the USB audio family share: a service and a client that note down what they are told,
// requests made by hand, and a stub with the registry that it made.
#pragma once

#include <accessory/IAppleUSBAudioManager.h>
#include <binder/Parcel.h>
#include <unistd.h>

#include <atomic>
#include <functional>
#include <iosfwd>
#include <mutex>
#include <string>
#include <vector>

#include "tests/AccessoryManager/Bytes.h"
#include "tests/AppleUSBAudio/AudioLines.h"
#include "tests/AppleiAP2/manager/registry/MortalRemote.h"

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
    std::function<void()> meanwhile;  ///< runs in every call, before it is noted

    std::string told();

    int attach(unsigned int accessoryId) override { return note("attach", accessoryId); }
    int detach(unsigned int accessoryId) override { return note("detach", accessoryId); }

  private:
    int note(const std::string& operation, unsigned int accessoryId);

    std::mutex mLock;
    std::string mTold;
};

/// Stubs whose dispatch a test may call, as the runtime does.
class OpenAudioStub : public BnAppleUSBAudioManager {
  public:
    using BnAppleUSBAudioManager::BnAppleUSBAudioManager;
    using BnAppleUSBAudioManager::onTransact;
};
class OpenAudioNotifierStub : public BnAppleUSBAudioManagerNotifier {
  public:
    using BnAppleUSBAudioManagerNotifier::BnAppleUSBAudioManagerNotifier;
    using BnAppleUSBAudioManagerNotifier::onTransact;
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
android::sp<OpenAudioStub> keptStub(const android::sp<AppleUSBAudioManagerImplItf>& service);

/// A client whose notifier is an object of this process.
struct LocalAudioClient {
    android::sp<AudioListener> listener{new AudioListener};
    android::sp<IAppleUSBAudioManagerNotifier> notifier{new BnAppleUSBAudioManagerNotifier(listener)};
};

/// A client whose notifier is a proxy.
struct RemoteAudioClient {
    android::sp<MortalRemote> remote{new MortalRemote};
    android::sp<IAppleUSBAudioManagerNotifier> notifier{IAppleUSBAudioManagerNotifier::asInterface(remote)};
};

class AudioFixture : public testing::Test {
  protected:
    AudioFixture() { log.clear(); }

    const android::sp<AudioService> service{new AudioService};
    const android::sp<OpenAudioStub> stub{keptStub(service)};
    const android::sp<AppleUSBAudioManagerNotifierItf> broadcaster{service->broadcasters.at(0)};
    const android::sp<AppleUSBAudioManagerNotifier> registry{
        dynamic_cast<AppleUSBAudioManagerNotifier*>(broadcaster.get())};
    const int own = getpid();
    const unsigned int user = getuid();
    LogCatcher log;

    /// What was logged under the manager's tag since the last time.
    std::vector<LogLine> logged();

    /// The registry's listing.
    std::string listing();
};

/// The line of a listing that names a client.
std::string entryOf(const android::sp<IAppleUSBAudioManagerNotifier>& notifier, int pid);

}  // namespace accessory::test
