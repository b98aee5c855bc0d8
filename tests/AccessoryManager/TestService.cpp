#include "tests/AccessoryManager/TestService.h"

#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <sstream>

#include "tests/support/LogCatcher.h"

namespace accessory::test {

using android::sp;
using android::String16;
using android::String8;

namespace {

class Accessories : public AccessoryManagerImplItf {
  public:
    explicit Accessories(ChildSide& parent) : mParent(parent) {}

    int32_t getDeviceCount() override { return 3; }

    int32_t getFeature(unsigned int accessoryId) override {
        if (accessoryId == RunningService::kWaitForever) wait();
        return static_cast<int32_t>(~accessoryId);
    }

    String8 getPath(unsigned int accessoryId) override {
        const std::string path = pathOfLength(accessoryId);
        return String8(path.data(), path.size());
    }

    int32_t getAccessoryId(const String8& path) override {
        return identifierOf(std::string(path.string(), path.size()));
    }

    int dump(const android::Vector<String16>& args, String8& result) override {
        result.append("arguments:");
        for (const String16& arg : args)
            result.appendFormat(" [%s]", String8(arg).string());
        return 0;
    }

  private:
    void wait() {
        mParent.send("waiting");
        std::mutex never;
        std::unique_lock lock(never);
        std::condition_variable().wait(lock, [] { return false; });
    }

    ChildSide& mParent;
};

class FlagKeeper : public BnAccessoryManager {
  public:
    using BnAccessoryManager::BnAccessoryManager;
    std::atomic<uint32_t> flags{0xffffffff};

  protected:
    android::status_t onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply,
                                 uint32_t callFlags) override {
        flags = callFlags;
        return BnAccessoryManager::onTransact(code, data, reply, callFlags);
    }
};

std::string linesOf(LogCatcher& log) {
    std::ostringstream text;
    for (const LogLine& line : log.linesWith("IAccessoryManager"))
        text << line.priority << ' ' << line.text << '|';
    log.clear();
    return text.str();
}

CHILD_ROLE(accessoryService) {
    LogCatcher log;
    const sp<FlagKeeper> stub = new FlagKeeper(new Accessories(parent));
    if (android::defaultServiceManager()->addService(String16(args.at(0).c_str()), stub) != 0) return 1;
    android::ProcessState::self()->startThreadPool();
    parent.send("ready");
    for (std::string question = parent.expectLine(); question != "bye"; question = parent.expectLine())
        parent.send(question == "log" ? linesOf(log) : std::to_string(stub->flags));
    return 0;
}

/// No two services of one test run share a name.
std::string freshName() {
    static int count = 0;
    return "accessory" + std::to_string(++count);
}

}  // namespace

RunningService::RunningService() : RunningService(freshName()) {}

RunningService::RunningService(const std::string& name) : process("accessoryService", {name}) {
    EXPECT_EQ(process.expectLine(), "ready");
    mBinder = android::defaultServiceManager()->getService(String16(name.c_str()));
    EXPECT_NE(mBinder, nullptr);
}

std::string RunningService::log() {
    process.send("log");
    return process.expectLine();
}

std::string RunningService::flags() {
    process.send("flags");
    return process.expectLine();
}

std::string pathOfLength(size_t length) {
    std::string path(length, '\0');
    for (size_t i = 0; i < length; ++i)
        path[i] = "xyz"[i % 3];
    return path;
}

int32_t identifierOf(const std::string& path) {
    uint32_t sum = 0;
    uint32_t place = 0;
    for (const char c : path)
        sum += static_cast<unsigned char>(c) * ++place;
    return static_cast<int32_t>(sum);
}

}  // namespace accessory::test
