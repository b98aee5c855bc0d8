// File descriptors that travel in parcels.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <string>

#include "tests/platform/TestObjects.h"
#include "tests/platform/TestService.h"

namespace accessory::test {
namespace {

using namespace android;  // NOLINT(google-build-using-namespace): the tests' vocabulary

/// As many descriptors as travel with one call.
constexpr int kMost = 253;

/// A pipe with a text in it.
class FilledPipe {
  public:
    explicit FilledPipe(const std::string& text = "") {
        EXPECT_EQ(0, pipe2(mEnds.data(), O_CLOEXEC));
        EXPECT_EQ(static_cast<ssize_t>(text.size()), write(mEnds[1], text.data(), text.size()));
    }
    ~FilledPipe() {
        close(mEnds[0]);
        close(mEnds[1]);
    }
    FilledPipe(const FilledPipe&) = delete;
    FilledPipe& operator=(const FilledPipe&) = delete;

    int readEnd() const { return mEnds[0]; }
    int writeEnd() const { return mEnds[1]; }

  private:
    std::array<int, 2> mEnds{};
};

/// The number of a descriptor that is not open, and so high that it stays like that.
int closedDescriptor() {
    constexpr int kHigh = 500;
    const int fd = fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, kHigh);
    close(fd);
    return fd;
}

std::string contentOf(int fd) {
    std::array<char, 64> text{};
    const ssize_t length = read(fd, text.data(), text.size());
    return {text.data(), length > 0 ? static_cast<size_t>(length) : 0};
}

testing::AssertionResult hasNoMoreDescriptorsThan(int count, const ServiceProcess& service) {
    return eventually([&] { return ask(service.object(), kDescriptors) <= count; });
}

TEST(Descriptor, IsTheSameFileInTheServiceAndCloseOnExec) {
    const ServiceProcess service;
    const FilledPipe pipe("hello");
    Call call(service.object(), kReadAll);
    call.request.writeFileDescriptor(pipe.readEnd());
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(1, call.reply.readInt32());
    EXPECT_EQ(String8("hello"), call.reply.readString8());
}

TEST(Descriptor, ComesBackInAReplyAndIsCloseOnExec) {
    const ServiceProcess service;
    Call call(service.object(), kPipes);
    call << 2;
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_TRUE(call.reply.hasFileDescriptors());
    for (int i = 0; i < 2; ++i) {
        const int fd = call.reply.readFileDescriptor();
        EXPECT_NE(0, fcntl(fd, F_GETFD) & FD_CLOEXEC);
        EXPECT_EQ("pipe", contentOf(fd));
    }
}

TEST(Descriptor, IsNotLeakedOnEitherSide) {
    const ServiceProcess service;
    const FilledPipe pipe;
    const auto exchange = [&] {
        Call call(service.object(), kEcho);
        call.request.writeFileDescriptor(pipe.readEnd());
        call.request.writeDupFileDescriptor(pipe.writeEnd());
        EXPECT_EQ(NO_ERROR, call.run());
        EXPECT_EQ(NO_ERROR, service.object()->transact(kEcho, call.request, nullptr));
        EXPECT_EQ(UNKNOWN_TRANSACTION, service.object()->transact(999, call.request, nullptr));
    };
    exchange();
    const int there = ask(service.object(), kDescriptors);
    const int here = openDescriptors();
    for (int i = 0; i < 100; ++i)
        exchange();
    EXPECT_EQ(here, openDescriptors());
    EXPECT_EQ(there, ask(service.object(), kDescriptors));
}

TEST(Descriptor, IsNotLeakedByOnewayCalls) {
    const ServiceProcess service;
    const FilledPipe pipe;
    const auto send = [&] {
        Call call(service.object(), kEcho);
        call.request.writeFileDescriptor(pipe.readEnd());
        EXPECT_EQ(NO_ERROR, call.send());
    };
    send();
    const int there = ask(service.object(), kDescriptors);
    const int here = openDescriptors();
    for (int i = 0; i < 100; ++i)
        send();
    EXPECT_EQ(here, openDescriptors());
    EXPECT_TRUE(hasNoMoreDescriptorsThan(there, service));
}

TEST(Descriptors, TravelTwoHundredAndFiftyThreeAtOnce) {
    const ServiceProcess service;
    const FilledPipe pipe;
    Call call(service.object(), kEcho);
    for (int i = 0; i < kMost; ++i)
        call.request.writeFileDescriptor(pipe.writeEnd());
    ASSERT_EQ(NO_ERROR, call.run());
    EXPECT_EQ(size_t{kMost}, call.reply.objectsCount());
    for (int i = 0; i < kMost; ++i)
        ASSERT_EQ(1, write(call.reply.readFileDescriptor(), "x", 1)) << i;
    std::array<char, kMost + 1> received{};
    EXPECT_EQ(kMost, read(pipe.readEnd(), received.data(), received.size()));
}

TEST(Descriptors, OfMoreThanThatAreRefusedAndTheConnectionLivesOn) {
    const ServiceProcess service;
    const FilledPipe pipe;
    Call call(service.object(), kEcho);
    for (int i = 0; i < kMost + 1; ++i)
        call.request.writeFileDescriptor(pipe.writeEnd());
    EXPECT_EQ(FAILED_TRANSACTION, call.run());
    EXPECT_EQ(5, ask(service.object(), kEcho, 5));
}

TEST(Descriptors, OfMoreThanThatAreRefusedInAReplyToo) {
    const ServiceProcess service;
    const int there = ask(service.object(), kDescriptors);
    Call call(service.object(), kPipes);
    call << kMost + 1;
    EXPECT_EQ(FAILED_TRANSACTION, call.run());
    EXPECT_EQ(there, ask(service.object(), kDescriptors));
}

TEST(Descriptors, TravelBesideALargeParcelAndObjects) {
    const ServiceProcess service;
    const FilledPipe pipe("late");
    const sp<IBinder> mine = new BBinder;
    Call call(service.object(), kEcho);
    call.request.setDataSize(900'000);
    call.request.setDataPosition(900'000);
    call << mine;
    call.request.writeFileDescriptor(pipe.readEnd());
    call << mine;
    ASSERT_EQ(NO_ERROR, call.run());
    call.reply.setDataPosition(900'000);
    EXPECT_EQ(mine, call.reply.readStrongBinder());
    EXPECT_EQ("late", contentOf(call.reply.readFileDescriptor()));
    EXPECT_EQ(mine, call.reply.readStrongBinder());
}

TEST(Descriptor, ThatWasClosedTooEarlyFailsThatCallOnly) {
    const ServiceProcess service;
    Call call(service.object(), kReadAll);
    call.request.writeFileDescriptor(closedDescriptor());
    EXPECT_EQ(FAILED_TRANSACTION, call.run());
    EXPECT_TRUE(service.object()->isBinderAlive());
    EXPECT_EQ(5, ask(service.object(), kEcho, 5));
}

TEST(Dump, WritesToADescriptorOfTheCaller) {
    const ServiceProcess service;
    const FilledPipe pipe;
    Vector<String16> args;
    args.add(String16("-v"));
    args.add(String16("all"));
    EXPECT_EQ(NO_ERROR, service.object()->dump(pipe.writeEnd(), args));
    EXPECT_EQ("dump -v all", contentOf(pipe.readEnd()));
}

TEST(Dump, ToADescriptorThatIsNotOpenFailsAndTheServiceGoesOn) {
    const ServiceProcess service;
    EXPECT_NE(NO_ERROR, service.object()->dump(-1, {}));
    EXPECT_NE(NO_ERROR, service.object()->dump(closedDescriptor(), {}));
    EXPECT_EQ(NO_ERROR, service.object()->pingBinder());
}

}  // namespace
}  // namespace accessory::test
