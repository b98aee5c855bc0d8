// The dump: the list of clients or the service's own, never both, and each step's failure.
#include <cerrno>
#include <cstring>

#include "tests/AccessoryManager/FailingCalls.h"
#include "tests/AppleiAP2/manager/registry/DumpOutput.h"
#include "tests/AppleiAP2/manager/registry/FailingLists.h"
#include "tests/AppleiAP2/manager/registry/RegistryFixture.h"

namespace accessory::test {
namespace {

using android::String16;
using android::String8;

const std::string kHeader = "-[accessory.AppleiAP2Manager]-\n";
const std::string kWriteFailed = "write dump info to the file error:";

class Listing : public RegistryFixture {
  protected:
    Listing() {
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

    const LocalClient first{};
    const LocalClient second{};
    const LocalClient third{};
    const DumpOutput output;
    const std::string list = "notifier size[3]\n" + entryOf(first.notifier, 100) +
                             entryOf(second.notifier, 200) + entryOf(third.notifier, 300);
};

TEST_F(Listing, ShowsTheClientsInTheOrderOfTheirProcessesAndNotTheService) {
    EXPECT_EQ(dumped({"notifier"}), kHeader + list);
    EXPECT_EQ(service->dumps, 0);
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

TEST_F(Listing, LooksAtTheFirstArgumentOnly) {
    EXPECT_EQ(dumped({"notifier", "-a"}), kHeader + list);
    EXPECT_EQ(dumped({"-a", "notifier"}), kHeader + "quiet\n");
    EXPECT_EQ(service->dumps, 1);
    ASSERT_EQ(service->dumpArgs.size(), 2u);
    EXPECT_EQ(service->dumpArgs[1], String16("notifier"));
}

TEST_F(Listing, ShowsTheServiceForEveryOtherArgumentAndForNone) {
    EXPECT_EQ(dumped({}), kHeader + "quiet\n");
    for (const char* word : {"", "notifie", "notifiers", "Notifier", "-notifier"})
        EXPECT_EQ(dumped({word}), kHeader + "quiet\n") << word;
    EXPECT_EQ(service->dumps, 6);
    EXPECT_THAT(log.lines(), testing::IsEmpty());
}

TEST_F(Listing, ComparesTheWordAsThePlatformDoesAlsoBehindANul) {
    android::Vector<String16> args;
    args.add(String16(u"notifier\0x", 10));  // equal to "notifier" for strzcmp16()
    EXPECT_EQ(stub->dump(output.in(), args), 0);
    EXPECT_EQ(output.only(), kHeader + list);
}

TEST_F(Listing, OfNobodyIsTheSizeLine) {
    for (const int pid : {100, 200, 300})
        registry->removeNotifier(pid);
    EXPECT_EQ(dumped({"notifier"}), kHeader + "notifier size[0]\n");
}

TEST_F(Listing, EndsAtANullNotifierAndIsWrittenSoFar) {
    registry->addNotifier(150, nullptr);
    log.clear();
    EXPECT_EQ(dumped({"notifier"}), kHeader + "notifier size[4]\n" + entryOf(first.notifier, 100));
    EXPECT_THAT(log.lines(), are({check("dump", "notifier.get()"), statusCheck("dump")}));
}

TEST_F(Listing, OfTheRegistryAloneEndsWithMinusOneAtANullNotifier) {
    registry->addNotifier(150, nullptr);
    log.clear();
    String8 text("before\n");
    EXPECT_EQ(registry->dump({}, text), -1);
    EXPECT_STREQ(text.string(), ("before\nnotifier size[4]\n" + entryOf(first.notifier, 100)).c_str());
    EXPECT_THAT(log.lines(), are({check("dump", "notifier.get()")}));
}

TEST_F(Listing, LogsAServiceThatFailsAndWritesWhatThereIs) {
    for (const int status : {-1, 5}) {
        service->dumpStatus = status;
        EXPECT_EQ(dumped({}), kHeader + "quiet\n");
        EXPECT_THAT(logged(), are({statusCheck("dump")}));
    }
}

TEST_F(Listing, LogsEveryAppendThatFails) {
    const auto args = dumpArguments({"notifier"});
    {
        const FailingCalls outOfMemory;
        EXPECT_EQ(stub->dump(output.in(), args), 0);
    }
    EXPECT_THAT(log.lines(), are({statusCheck("dump"), statusCheck("dump"), statusCheck("dump"),
                                  statusCheck("dump"), statusCheck("dump")}));
}

TEST_F(Listing, LogsAnEntryThatCannotBeFormattedAndAppendsTheBuffer) {
    {
        const FailingFormat format;
        EXPECT_EQ(stub->dump(output.in(), dumpArguments({"notifier"})), 0);
    }
    EXPECT_EQ(output.only(), kHeader + "notifier size[3]\n???");
    EXPECT_THAT(log.lines(), are({error("sprintf notifier pid:100 to the buffer failed,ret:-7"),
                                  error("sprintf notifier pid:200 to the buffer failed,ret:-7"),
                                  error("sprintf notifier pid:300 to the buffer failed,ret:-7")}));
}

TEST_F(Listing, LogsAWriteToAClosedDescriptorAndReturnsZero) {
    const int closed = dup(output.in());
    close(closed);
    EXPECT_EQ(stub->dump(closed, dumpArguments({"notifier"})), 0);
    EXPECT_EQ(stub->dump(-1, {}), 0);
    EXPECT_THAT(log.lines(), are({error(kWriteFailed + std::strerror(EBADF)),
                                  error(kWriteFailed + std::strerror(EBADF))}));
}

TEST_F(Listing, LogsAWriteThatAFullPipeRefuses) {
    const FullPipe pipe(0);
    EXPECT_EQ(stub->dump(pipe.in(), dumpArguments({"notifier"})), 0);
    EXPECT_THAT(log.lines(), are({error(kWriteFailed + std::strerror(EAGAIN))}));
}

TEST_F(Listing, LogsAShortWriteAndDoesNotContinueIt) {
    // A packet that the receiver's end has no room for is refused whole; a stream takes a part of it.
    registry->removeNotifier(300);
    int ends[2]{-1, -1};
    ASSERT_EQ(pipe2(ends, O_NONBLOCK | O_CLOEXEC), 0);
    const auto room = static_cast<size_t>(fcntl(ends[0], F_GETPIPE_SZ));
    for (int pid = 1000; pid < 1000 + static_cast<int>(room / 16); ++pid)
        registry->addNotifier(pid, first.notifier);
    log.clear();
    EXPECT_EQ(stub->dump(ends[1], dumpArguments({"notifier"})), 0);
    const std::vector<LogLine> lines = log.lines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].priority, 6);
    EXPECT_EQ(lines[0].text.rfind(kWriteFailed, 0), 0u) << lines[0].text;
    std::string content(2 * room, '\0');
    EXPECT_EQ(read(ends[0], content.data(), content.size()), static_cast<ssize_t>(room));
    close(ends[0]);
    close(ends[1]);
}

TEST_F(Listing, LeavesTheDescriptorOpen) {
    dumped({"notifier"});
    EXPECT_NE(fcntl(output.in(), F_GETFD), -1);
}

}  // namespace
}  // namespace accessory::test
