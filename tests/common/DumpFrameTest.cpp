// The parts of a manager's dump: header, the "notifier" argument, the one write.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>

#include "common/Dump.h"

namespace accessory::test {
namespace {

using android::String16;
using android::String8;
using Arguments = android::Vector<String16>;

Arguments arguments(std::initializer_list<const char*> texts) {
    Arguments args;
    for (const char* text : texts)
        args.add(String16(text));
    return args;
}

std::string header(const std::string& descriptor) {
    String8 result;
    EXPECT_EQ(appendDumpHeader(String16(descriptor.c_str()), &result), android::NO_ERROR);
    return std::string(result.string(), result.size());
}

TEST(DumpHeader, IsTheDescriptorInBracketsOnALine) {
    EXPECT_EQ(header("accessory.AccessoryManager"), "-[accessory.AccessoryManager]-\n");
    EXPECT_EQ(header(""), "-[]-\n");
}

TEST(DumpHeader, IsAppendedToWhatIsThere) {
    String8 result("before ");
    EXPECT_EQ(appendDumpHeader(String16("d"), &result), android::NO_ERROR);
    EXPECT_STREQ(result.string(), "before -[d]-\n");
}

TEST(DumpHeader, FitsABufferOf256Bytes) {
    const std::string longest(250, 'x');
    EXPECT_EQ(header(longest), "-[" + longest + "]-\n");
    EXPECT_EQ(header(longest + "y"), "-[" + longest + "y]-");
    EXPECT_EQ(header(std::string(300, 'x')), "-[" + std::string(253, 'x'));
}

TEST(DumpArguments, AskForTheNotifiersWithTheirFirstWordOnly) {
    EXPECT_TRUE(asksForNotifiers(arguments({"notifier"})));
    EXPECT_TRUE(asksForNotifiers(arguments({"notifier", "more"})));
    EXPECT_FALSE(asksForNotifiers(arguments({})));
    EXPECT_FALSE(asksForNotifiers(arguments({"more", "notifier"})));
}

TEST(DumpArguments, MustSpellTheWordExactly) {
    for (const char* word : {"", "notifie", "notifiers", "Notifier", "otifier", " notifier", "-notifier"})
        EXPECT_FALSE(asksForNotifiers(arguments({word}))) << word;
}

TEST(DumpArguments, AreComparedByThePlatformWhichOverlooksANulAtTheEnd) {
    Arguments args;
    args.add(String16(u"notifier\0", 9));
    EXPECT_EQ(strzcmp16(u"notifier\0", 9, u"notifier", 8), 0);
    EXPECT_TRUE(asksForNotifiers(args));
}

TEST(DumpWrite, IsOneWriteOfTheTextWithoutItsNul) {
    int ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK, 0, ends), 0);
    EXPECT_EQ(writeDump(ends[0], String8("-[x]-\nstate\n")), 12);
    char message[64];
    EXPECT_EQ(read(ends[1], message, sizeof message), 12);
    EXPECT_EQ(std::string(message, 12), "-[x]-\nstate\n");
    EXPECT_EQ(read(ends[1], message, sizeof message), -1);
    close(ends[0]);
    close(ends[1]);
}

TEST(DumpWrite, ToAClosedDescriptorGivesMinusOne) { EXPECT_EQ(writeDump(-1, String8("x")), -1); }

}  // namespace
}  // namespace accessory::test
