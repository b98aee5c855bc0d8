// The tests of the tests' own tools: the log catcher, child processes, deadlines.
#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utils/Printer.h>

#include <cstdlib>
#include <filesystem>
#include <thread>

#include "tests/support/ChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::ExitedWithCode;
using testing::IsEmpty;
using testing::KilledBySignal;
using testing::Not;

constexpr milliseconds kShort{50};

/// Where this process looks for services; empty when nobody set it.
std::string runtimeDirectory() {
    const char* path = std::getenv("BINDER_RUNTIME_DIR");
    return path != nullptr ? path : "";
}

CHILD_ROLE(echo) {
    for (std::string line = parent.expectLine(); line != "bye"; line = parent.expectLine())
        parent.send(line);
    return 7;
}

CHILD_ROLE(describeYourself) {
    parent.send(std::to_string(getpid()));
    parent.send(runtimeDirectory());
    for (const std::string& argument : args)
        parent.send(argument);
    return 0;
}

CHILD_ROLE(serve) {
    parent.send("ready");
    parent.awaitHangUp();
    return 3;
}

CHILD_ROLE(expectTheImpossible) {
    EXPECT_TRUE(args.empty()) << "only to fail";
    return 0;
}

CHILD_ROLE(startAnother) {
    ChildProcess grandchild("serve");
    EXPECT_EQ(grandchild.expectLine(), "ready");
    parent.send(std::to_string(grandchild.pid()));
    parent.awaitHangUp();
    return 0;
}

/// Whether that process is there and is not a zombie, which has no program any more.
bool runs(pid_t pid) {
    char program = 0;
    return readlink(("/proc/" + std::to_string(pid) + "/exe").c_str(), &program, 1) > 0;
}

TEST(LogCatcher, RecordsPriorityTagAndFormattedText) {
    const LogCatcher log;
    __android_log_print(ANDROID_LOG_WARN, "Tag", "%s is %d", "seven", 7);
    __android_log_write(ANDROID_LOG_INFO, "Other", "plain %s");
    EXPECT_THAT(log.lines(), ElementsAre(Logged(ANDROID_LOG_WARN, "Tag", "seven is 7"),
                                         Logged(ANDROID_LOG_INFO, "Other", "plain %s")));
}

TEST(LogCatcher, RecordsWhatAnotherLibraryOfTheProcessLogs) {
    const LogCatcher log;
    android::LogPrinter("libutils", ANDROID_LOG_ERROR).printLine("from the shared library");
    EXPECT_THAT(log.lines(), ElementsAre(Logged(ANDROID_LOG_ERROR, "libutils", "from the shared library")));
}

TEST(LogCatcher, KeepsATextThatIsLongerThanThePlatformsLimit) {
    const LogCatcher log;
    const std::string text(5000, 'x');
    __android_log_print(ANDROID_LOG_INFO, "Tag", "%s", text.c_str());
    EXPECT_EQ(log.lines().at(0).text, text);
}

TEST(LogCatcher, StartsEmptyAndStaysEmptyOfWhatCameBetweenTwoCatchers) {
    {
        const LogCatcher earlier;
        __android_log_write(ANDROID_LOG_INFO, "Tag", "earlier");
    }
    __android_log_write(ANDROID_LOG_INFO, "Tag", "between");
    const LogCatcher log;
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(LogCatcher, SelectsTheLinesOfOneTag) {
    const LogCatcher log;
    __android_log_write(ANDROID_LOG_INFO, "A", "one");
    __android_log_write(ANDROID_LOG_INFO, "B", "two");
    __android_log_write(ANDROID_LOG_INFO, "A", "three");
    EXPECT_THAT(log.linesWith("A"),
                ElementsAre(Logged(ANDROID_LOG_INFO, "A", "one"), Logged(ANDROID_LOG_INFO, "A", "three")));
}

TEST(LogCatcher, ForgetsOnRequest) {
    LogCatcher log;
    __android_log_write(ANDROID_LOG_INFO, "A", "one");
    log.clear();
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(LogCatcher, WaitsForALineOfAnotherThread) {
    const LogCatcher log;
    std::thread writer([] { __android_log_print(ANDROID_LOG_DEBUG, "Thread", "line %d", 1); });
    EXPECT_TRUE(log.arrives(Logged(ANDROID_LOG_DEBUG, "Thread", "line 1")));
    writer.join();
}

TEST(LogCatcher, ShowsWhatWasLoggedWhenTheAwaitedLineDoesNotCome) {
    const LogCatcher log;
    __android_log_write(ANDROID_LOG_ERROR, "Tag", "something else");
    const auto arrival = log.arrives(Logged(ANDROID_LOG_ERROR, "Tag", "the line"), kShort);
    EXPECT_FALSE(arrival);
    EXPECT_THAT(arrival.message(), testing::HasSubstr("reads as \"the line\""));
    EXPECT_THAT(arrival.message(), testing::HasSubstr("E/Tag: something else"));
}

TEST(LoggedMatchers, AcceptAnyLineNumberInACheckLine) {
    const LogCatcher log;
    __android_log_print(ANDROID_LOG_ERROR, "T", "[%s][%d] check '%s' failed", "getPath", 123, "!reply.x()");
    __android_log_print(ANDROID_LOG_ERROR, "T", "%s %d:check return value failed", "startup", 45);
    EXPECT_THAT(log.lines(),
                ElementsAre(LoggedCheck("T", "getPath", "!reply.x()"), LoggedStatusCheck("T", "startup")));
}

TEST(LoggedMatchers, RejectAnotherPriorityTagOrText) {
    const LogLine line{ANDROID_LOG_ERROR, "T", "[getPath][123] check 'a' failed"};
    EXPECT_THAT(line, LoggedCheck("T", "getPath", "a"));
    EXPECT_THAT(line, Not(LoggedCheck("U", "getPath", "a")));
    EXPECT_THAT(line, Not(LoggedCheck("T", "getPaths", "a")));
    EXPECT_THAT(line, Not(LoggedCheck("T", "getPath", "b")));
    EXPECT_THAT(line, Not(Logged(ANDROID_LOG_WARN, "T", "[getPath][#] check 'a' failed")));
}

TEST(LoggedMatchers, WantADecimalNumberForThePlaceholder) {
    EXPECT_TRUE(readsAs("[f][#] end", "[f][1] end"));
    EXPECT_TRUE(readsAs("#", "4711"));
    EXPECT_FALSE(readsAs("[f][#] end", "[f][] end"));
    EXPECT_FALSE(readsAs("[f][#] end", "[f][-1] end"));
    EXPECT_FALSE(readsAs("[f][#] end", "[f][x] end"));
    EXPECT_FALSE(readsAs("#", ""));
    EXPECT_FALSE(readsAs("#", "12 "));
    EXPECT_FALSE(readsAs("12 ", "12"));
}

TEST(ChildProcess, ExchangesLinesAndEndsWithTheStatusOfItsRole) {
    ChildProcess child("echo");
    child.send("one");
    child.send("two words");
    EXPECT_EQ(child.expectLine(), "one");
    EXPECT_EQ(child.expectLine(), "two words");
    child.send("bye");
    EXPECT_PRED1(ExitedWithCode(7), child.wait());
    EXPECT_PRED1(ExitedWithCode(7), child.wait());
}

TEST(ChildProcess, CarriesALineThatIsLongerThanOneRead) {
    ChildProcess child("echo");
    const std::string line(100'000, 'l');
    child.send(line);
    EXPECT_EQ(child.expectLine(), line);
}

TEST(ChildProcess, IsAnotherProcessWithItsArgumentsInTheSameRuntimeDirectory) {
    ChildProcess child("describeYourself", {"first", "--second", ""});
    EXPECT_EQ(child.expectLine(), std::to_string(child.pid()));
    EXPECT_EQ(child.expectLine(), runtimeDirectory());
    EXPECT_EQ(child.expectLine(), "first");
    EXPECT_EQ(child.expectLine(), "--second");
    EXPECT_EQ(child.expectLine(), "");
    EXPECT_NE(child.pid(), getpid());
}

TEST(ChildProcess, ServesUntilTheTestHangsUp) {
    ChildProcess child("serve");
    EXPECT_EQ(child.expectLine(), "ready");
    child.hangUp();
    EXPECT_PRED1(ExitedWithCode(3), child.wait());
}

TEST(ChildProcess, DiesByTheSignalItIsSent) {
    ChildProcess child("serve");
    EXPECT_EQ(child.expectLine(), "ready");
    child.kill(SIGKILL);
    EXPECT_PRED1(KilledBySignal(SIGKILL), child.wait());
}

TEST(ChildProcess, IsGoneWhenItsObjectIs) {
    pid_t pid = 0;
    {
        ChildProcess child("serve");
        EXPECT_EQ(child.expectLine(), "ready");
        pid = child.pid();
    }
    EXPECT_FALSE(runs(pid));
}

TEST(ChildProcess, DoesNotOutliveTheProcessThatStartedIt) {
    ChildProcess child("startAnother");
    const pid_t grandchild = std::stoi(child.expectLine());
    EXPECT_TRUE(runs(grandchild));
    child.kill(SIGKILL);
    child.wait();
    EXPECT_TRUE(eventually([&] { return !runs(grandchild); }));
}

TEST(ChildProcess, FailsTheTestWhenALineDoesNotComeInTime) {
    ChildProcess child("echo");
    EXPECT_NONFATAL_FAILURE(child.expectLine(kShort), "in role echo sent no line within 50 ms");
}

TEST(ChildProcess, FailsTheTestWhenTheChildEndsInsteadOfSpeaking) {
    ChildProcess child("echo");
    child.send("bye");
    EXPECT_NONFATAL_FAILURE(child.expectLine(), "in role echo hung up");
}

TEST(ChildProcess, FailsTheTestAndKillsTheChildWhenItDoesNotEndInTime) {
    ChildProcess child("serve");
    int status = 0;
    EXPECT_NONFATAL_FAILURE(status = child.wait(kShort), "in role serve did not end within 50 ms");
    EXPECT_PRED1(KilledBySignal(SIGKILL), status);
}

TEST(ChildProcess, ReportsARoleThatDoesNotExist) {
    EXPECT_PRED1(ExitedWithCode(kUnknownRole), ChildProcess("noSuchRole").wait());
}

TEST(ChildProcess, ReportsAFailedExpectationOfTheChild) {
    EXPECT_PRED1(ExitedWithCode(kFailedExpectation),
                 ChildProcess("expectTheImpossible", {"an argument"}).wait());
    EXPECT_PRED1(ExitedWithCode(0), ChildProcess("expectTheImpossible").wait());
}

TEST(ChildProcess, EndsWhenTheTestHangsUpInTheMiddleOfTheConversation) {
    ChildProcess child("echo");
    child.hangUp();
    EXPECT_PRED1(ExitedWithCode(kLostParent), child.wait());
}

TEST(RuntimeDirectory, IsEmptyPrivateAndNamedInTheEnvironment) {
    const std::filesystem::path directory = runtimeDirectory();
    EXPECT_TRUE(std::filesystem::is_empty(directory));
    EXPECT_EQ(std::filesystem::status(directory).permissions(), std::filesystem::perms::owner_all);
}

TEST(RuntimeDirectoryDeathTest, IsTheSameInADeathTestThatStartsTheProgramOver) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const std::string directory = runtimeDirectory();
    EXPECT_EXIT(std::exit(std::filesystem::exists(directory) ? 0 : 1), ExitedWithCode(0), "");
    EXPECT_TRUE(std::filesystem::exists(directory));
}

TEST(Eventually, WaitsUntilTheConditionHolds) {
    int calls = 0;
    EXPECT_TRUE(eventually([&] { return ++calls == 3; }));
    EXPECT_EQ(calls, 3);
}

TEST(Eventually, GivesUpAtTheDeadlineAndSaysSo) {
    const auto result = eventually([] { return false; }, kShort);
    EXPECT_FALSE(result);
    EXPECT_STREQ(result.message(), "not within 50 ms");
}

}  // namespace
}  // namespace accessory::test
