// The dump: header, implementation or nothing, one write, and each step's failure.
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <optional>
#include <string>

#include "tests/AccessoryManager/FailingCalls.h"
#include "tests/AccessoryManager/StubFixture.h"

namespace accessory::test {
namespace {

using android::String16;
using android::String8;
using testing::ElementsAre;
using testing::IsEmpty;

using Arguments = android::Vector<String16>;

const std::string kHeader = "-[accessory.AccessoryManager]-\n";

Arguments arguments(std::initializer_list<const char*> texts) {
    Arguments args;
    for (const char* text : texts)
        args.add(String16(text));
    return args;
}

auto error(const std::string& text) { return Logged(6, kTag, text); }

/// An implementation's dump that appends @p text and ends with @p status.
auto appends(const std::string& text, int status = 0) {
    return [text, status](const Arguments& /*args*/, String8& result) {
        result.append(text.c_str());
        return status;
    };
}

/// Two descriptors that keep each write apart from the next; reading never waits.
class Writes {
  public:
    Writes() { EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK, 0, mEnds), 0); }
    ~Writes() {
        close(mEnds[0]);
        close(mEnds[1]);
    }
    Writes(const Writes&) = delete;
    Writes& operator=(const Writes&) = delete;

    int in() const { return mEnds[0]; }

    /// What the next write wrote; none when there was none.
    std::optional<std::string> next() const {
        std::string text(4096, '\0');
        const ssize_t length = read(mEnds[1], text.data(), text.size());
        if (length < 0) return std::nullopt;
        text.resize(static_cast<size_t>(length));
        return text;
    }

  private:
    int mEnds[2]{-1, -1};
};

/// A pipe that takes what fits and refuses the rest.
class SmallPipe {
  public:
    SmallPipe() {
        EXPECT_EQ(pipe2(mEnds, O_NONBLOCK), 0);
        mRoom = static_cast<size_t>(fcntl(mEnds[0], F_GETPIPE_SZ));
    }
    ~SmallPipe() {
        close(mEnds[0]);
        close(mEnds[1]);
    }
    SmallPipe(const SmallPipe&) = delete;
    SmallPipe& operator=(const SmallPipe&) = delete;

    int in() const { return mEnds[1]; }
    size_t room() const { return mRoom; }

    std::string content() const {
        std::string text(2 * mRoom, '\0');
        text.resize(static_cast<size_t>(read(mEnds[0], text.data(), text.size())));
        return text;
    }

  private:
    int mEnds[2]{-1, -1};
    size_t mRoom = 0;
};

class Dump : public StubFixture {
  protected:
    /// The only write of a dump with those arguments.
    std::string dumped(const Arguments& args) {
        EXPECT_EQ(stub->dump(writes.in(), args), 0);
        std::string text = writes.next().value_or("nothing written");
        EXPECT_EQ(writes.next(), std::nullopt) << "a second write";
        return text;
    }

    const Writes writes;
};

TEST_F(Dump, IsTheHeaderAndTheImplementationsText) {
    EXPECT_CALL(*accessories, dump).WillOnce(appends("two accessories\n"));
    EXPECT_EQ(dumped({}), "-[accessory.AccessoryManager]-\ntwo accessories\n");
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(Dump, HandsTheImplementationTheArguments) {
    EXPECT_CALL(*accessories, dump).WillOnce([](const Arguments& args, String8& /*result*/) {
        EXPECT_EQ(args.size(), 2u);
        EXPECT_EQ(args[0], String16("-a"));
        EXPECT_EQ(args[1], String16("notifier"));
        return 0;
    });
    EXPECT_EQ(dumped(arguments({"-a", "notifier"})), kHeader);
}

TEST_F(Dump, LetsTheImplementationWriteIntoTheResultThatHoldsTheHeader) {
    EXPECT_CALL(*accessories, dump).WillOnce([](const Arguments& /*args*/, String8& result) {
        EXPECT_STREQ(result.string(), "-[accessory.AccessoryManager]-\n");
        result.setTo("all its own");
        return 0;
    });
    EXPECT_EQ(dumped({}), "all its own");
}

TEST_F(Dump, WritesOnlyTheHeaderWhenAskedForTheNotifiers) {
    EXPECT_EQ(dumped(arguments({"notifier"})), kHeader);
    EXPECT_EQ(dumped(arguments({"notifier", "-a"})), kHeader);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(Dump, TakesNoOtherWordForTheNotifiers) {
    for (const char* word : {"", "notifie", "notifiers", "Notifier", "-notifier"}) {
        EXPECT_CALL(*accessories, dump).WillOnce(appends("state"));
        EXPECT_EQ(dumped(arguments({word})), kHeader + "state") << word;
    }
}

TEST_F(Dump, LogsAFailureOfTheImplementationAndWritesWhatThereIs) {
    for (const int status : {-1, 1, -22}) {
        log.clear();
        EXPECT_CALL(*accessories, dump).WillOnce(appends("half", status));
        EXPECT_EQ(dumped({}), kHeader + "half");
        EXPECT_THAT(log.lines(),
                    ElementsAre(error("the accessory manager implement dump has some error!!!")));
    }
}

TEST_F(Dump, LogsAWriteToAClosedDescriptorAndReturnsZero) {
    EXPECT_CALL(*accessories, dump).WillOnce(appends("lost"));
    const int closed = dup(writes.in());
    close(closed);
    EXPECT_EQ(stub->dump(closed, {}), 0);
    EXPECT_EQ(stub->dump(-1, arguments({"notifier"})), 0);
    EXPECT_THAT(log.lines(), ElementsAre(error("write data to the dump fd failed!!!"),
                                         error("write data to the dump fd failed!!!")));
}

TEST_F(Dump, LogsBothFailuresInTheirOrder) {
    EXPECT_CALL(*accessories, dump).WillOnce(appends("", -1));
    EXPECT_EQ(stub->dump(-1, {}), 0);
    EXPECT_THAT(log.lines(), ElementsAre(error("the accessory manager implement dump has some error!!!"),
                                         error("write data to the dump fd failed!!!")));
}

TEST_F(Dump, NeitherContinuesAShortWriteNorLogsIt) {
    const SmallPipe pipe;
    EXPECT_CALL(*accessories, dump).WillOnce(appends(std::string(pipe.room(), 'x')));
    EXPECT_EQ(stub->dump(pipe.in(), {}), 0);
    EXPECT_EQ(pipe.content(), kHeader + std::string(pipe.room() - kHeader.size(), 'x'));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(Dump, LogsAWriteThatAFullPipeRefuses) {
    const SmallPipe pipe;
    ASSERT_EQ(write(pipe.in(), std::string(pipe.room(), 'x').data(), pipe.room()),
              static_cast<ssize_t>(pipe.room()));
    EXPECT_EQ(stub->dump(pipe.in(), arguments({"notifier"})), 0);
    EXPECT_THAT(log.lines(), ElementsAre(error("write data to the dump fd failed!!!")));
}

TEST_F(Dump, TakesAWriteOfNothingForASuccess) {
    const SmallPipe pipe;
    EXPECT_CALL(*accessories, dump).WillOnce([](const Arguments& /*args*/, String8& result) {
        result.clear();
        return 0;
    });
    EXPECT_EQ(stub->dump(pipe.in(), {}), 0);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(Dump, LogsAHeaderThatCannotBeAppendedAndGoesOn) {
    const Arguments args = arguments({"notifier"});
    const SmallPipe pipe;
    const FailingCalls outOfMemory;
    EXPECT_EQ(stub->dump(pipe.in(), args), 0);
    EXPECT_THAT(log.lines(), ElementsAre(error("append the bufff to result failed!!!")));
}

TEST_F(Dump, LeavesTheDescriptorOpen) {
    EXPECT_EQ(stub->dump(writes.in(), arguments({"notifier"})), 0);
    EXPECT_NE(fcntl(writes.in(), F_GETFD), -1);
}

TEST(DumpWithoutAnImplementation, IsTheHeaderAndAFailedCheck) {
    const LogCatcher log;
    const Writes writes;
    const android::sp<BnAccessoryManager> stub = new BnAccessoryManager(nullptr);
    for (const Arguments& args : {Arguments(), arguments({"-a"})}) {
        EXPECT_EQ(stub->dump(writes.in(), args), 0);
        EXPECT_EQ(writes.next(), kHeader);
        EXPECT_EQ(writes.next(), std::nullopt);
    }
    EXPECT_THAT(log.lines(), ElementsAre(LoggedCheck(kTag, "dump", "mImpl.get()"),
                                         LoggedCheck(kTag, "dump", "mImpl.get()")));
}

TEST(DumpWithoutAnImplementation, OfTheNotifiersIsTheHeader) {
    const LogCatcher log;
    const Writes writes;
    const android::sp<BnAccessoryManager> stub = new BnAccessoryManager(nullptr);
    EXPECT_EQ(stub->dump(writes.in(), arguments({"notifier"})), 0);
    EXPECT_EQ(writes.next(), kHeader);
    EXPECT_THAT(log.lines(), IsEmpty());
}

}  // namespace
}  // namespace accessory::test
