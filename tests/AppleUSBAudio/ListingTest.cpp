// The dump: the list of clients or the service's own, never both, and each step's failure.
#include <cerrno>
#include <cstring>

#include "tests/AccessoryManager/FailingCalls.h"
#include "tests/AppleUSBAudio/AudioFixture.h"
#include "tests/AppleiAP2/manager/registry/DumpOutput.h"
#include "tests/AppleiAP2/manager/registry/FailingLists.h"

namespace accessory::test {
namespace {

using android::String16;
using android::String8;

const std::string kHeader = "-[accessory.AppleUSBAudioManager]-\n";
const std::string kWriteFailed = "write data to dump buffer error:";

class AudioListing : public AudioFixture {
  protected:
    void SetUp() override {
        registry->addNotifier(300, third.notifier);
        registry->addNotifier(100, first.notifier);
        registry->addNotifier(200, second.notifier);
        log.clear();
    }

    /// The text of a dump with those arguments.
    std::string dumped(std::initializer_list<const char*> args) {
        EXPECT_EQ(stub->dump(output.in(), dumpArguments(args)), 0);
        return output.only();
    }

    const LocalAudioClient first{};
    const LocalAudioClient second{};
    const LocalAudioClient third{};
    const DumpOutput output;
    const Line appendFailed = check("dump", "!result.append(buffer)");
    const std::string list = "notifier size[3]\n" + entryOf(first.notifier, 100) +
                             entryOf(second.notifier, 200) + entryOf(third.notifier, 300);
};

TEST_F(AudioListing, ShowsTheClientsInTheOrderOfTheirProcessesAndNotTheService) {
    EXPECT_EQ(dumped({"notifier"}), kHeader + list);
    EXPECT_EQ(service->told(), "");
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

TEST_F(AudioListing, LooksAtTheFirstArgumentOnly) {
    EXPECT_EQ(dumped({"notifier", "-a"}), kHeader + list);
    EXPECT_EQ(dumped({"-a", "notifier"}), kHeader + "audio\n");
    ASSERT_EQ(service->dumpArgs.size(), 2u);
    EXPECT_EQ(service->dumpArgs[1], String16("notifier"));
}

TEST_F(AudioListing, ShowsTheServiceForEveryOtherArgumentAndForNone) {
    EXPECT_EQ(dumped({}), kHeader + "audio\n");
    for (const char* word : {"", "notifie", "notifiers", "Notifier", "-notifier"})
        EXPECT_EQ(dumped({word}), kHeader + "audio\n") << word;
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

TEST_F(AudioListing, EndsAtANullNotifierAndIsWrittenSoFar) {
    registry->addNotifier(150, nullptr);
    log.clear();
    EXPECT_EQ(dumped({"notifier"}), kHeader + "notifier size[4]\n" + entryOf(first.notifier, 100));
    EXPECT_THAT(log.lines(),
                are({check("dump", "notifier.get()"), check("dump", "!mNotifier->dump(args, result)")}));
}

TEST_F(AudioListing, OfTheRegistryAloneEndsWithMinusOneAtANullNotifier) {
    registry->addNotifier(150, nullptr);
    String8 text("before\n");
    EXPECT_EQ(registry->dump({}, text), -1);
    EXPECT_STREQ(text.string(), ("before\nnotifier size[4]\n" + entryOf(first.notifier, 100)).c_str());
}

TEST_F(AudioListing, LogsAServiceThatFailsAndWritesWhatThereIs) {
    for (const int status : {-1, 5}) {
        service->dumpStatus = status;
        EXPECT_EQ(dumped({}), kHeader + "audio\n");
        EXPECT_THAT(logged(), are({check("dump", "!mImpl->dump(args, result)")}));
    }
}

TEST_F(AudioListing, LogsEveryAppendThatFailsAndTheWriteOfNothing) {
    const auto args = dumpArguments({"notifier"});
    const FullPipe pipe(64);
    {
        const FailingCalls outOfMemory;
        EXPECT_EQ(stub->dump(pipe.in(), args), 0);
    }
    const std::vector<LogLine> lines = log.lines();
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_THAT(std::vector<LogLine>(lines.begin(), lines.end() - 1),
                are({appendFailed, appendFailed, appendFailed, appendFailed, appendFailed}));
    EXPECT_EQ(lines.back().priority, 6);
    EXPECT_EQ(lines.back().text.rfind(kWriteFailed, 0), 0u);
}

TEST_F(AudioListing, SaysNothingOfAnEntryThatCannotBeFormatted) {
    {
        const FailingFormat format;
        EXPECT_EQ(stub->dump(output.in(), dumpArguments({"notifier"})), 0);
    }
    EXPECT_EQ(output.only(), kHeader + "notifier size[3]\n???");
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

TEST_F(AudioListing, LogsAWriteToAClosedDescriptorAndReturnsZero) {
    EXPECT_EQ(stub->dump(-1, dumpArguments({"notifier"})), 0);
    EXPECT_EQ(stub->dump(-1, {}), 0);
    EXPECT_THAT(log.lines(), are({error(kWriteFailed + std::strerror(EBADF)),
                                  error(kWriteFailed + std::strerror(EBADF))}));
}

TEST_F(AudioListing, LogsAWriteThatAFullPipeRefuses) {
    const FullPipe pipe(0);
    EXPECT_EQ(stub->dump(pipe.in(), dumpArguments({"notifier"})), 0);
    EXPECT_THAT(log.lines(), are({error(kWriteFailed + std::strerror(EAGAIN))}));
}

TEST_F(AudioListing, SaysNothingOfAShortWrite) {
    int ends[2]{-1, -1};
    ASSERT_EQ(pipe2(ends, O_NONBLOCK | O_CLOEXEC), 0);
    const auto room = static_cast<size_t>(fcntl(ends[0], F_GETPIPE_SZ));
    for (int pid = 1000; pid < 1000 + static_cast<int>(room / 16); ++pid)
        registry->addNotifier(pid, first.notifier);
    log.clear();
    EXPECT_EQ(stub->dump(ends[1], dumpArguments({"notifier"})), 0);
    EXPECT_THAT(log.lines(), testing::IsEmpty());
    std::string content(2 * room, '\0');
    EXPECT_EQ(read(ends[0], content.data(), content.size()), static_cast<ssize_t>(room));
    close(ends[0]);
    close(ends[1]);
}

}  // namespace
}  // namespace accessory::test
