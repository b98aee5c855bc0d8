// IAPAutoTrace: the two lines it logs, when, and what of its arguments it keeps.
#include <accessory/IAPAutoTrace.h>
#include <gmock/gmock.h>

#include <stdexcept>
#include <string>

#include "tests/support/LogCatcher.h"

namespace accessory::test {
namespace {

using testing::ElementsAre;

constexpr char kTracedTag[] = "IAppleiAP2Manager";
constexpr char kFile[] = "AppleiAP2/IAppleiAP2Manager.cpp";

auto debugLine(const std::string& text) { return Logged(3, kTracedTag, text); }

int leavesEarly(bool early) {
    const IAPAutoTrace trace(kTracedTag, kFile, "leavesEarly");
    if (early) return 1;
    __android_log_write(ANDROID_LOG_INFO, kTracedTag, "body");
    return 2;
}

void throws() {
    const IAPAutoTrace trace(kTracedTag, kFile, "throws");
    throw std::runtime_error("out");
}

TEST(IAPAutoTrace, LogsTheEntryWhenItIsMade) {
    const LogCatcher log;
    const IAPAutoTrace trace(kTracedTag, kFile, "setNotifier");
    EXPECT_THAT(log.lines(),
                ElementsAre(debugLine("[AppleiAP2/IAppleiAP2Manager.cpp][setNotifier] [--IN--]")));
}

TEST(IAPAutoTrace, LogsTheExitAfterTheBody) {
    const LogCatcher log;
    EXPECT_EQ(leavesEarly(false), 2);
    EXPECT_THAT(log.lines(),
                ElementsAre(debugLine("[AppleiAP2/IAppleiAP2Manager.cpp][leavesEarly] [--IN--]"),
                            Logged(4, kTracedTag, "body"),
                            debugLine("[AppleiAP2/IAppleiAP2Manager.cpp][leavesEarly] [--OUT--]")));
}

TEST(IAPAutoTrace, LogsTheExitOfAFunctionThatReturnsEarly) {
    const LogCatcher log;
    EXPECT_EQ(leavesEarly(true), 1);
    EXPECT_THAT(log.lines(),
                ElementsAre(debugLine("[AppleiAP2/IAppleiAP2Manager.cpp][leavesEarly] [--IN--]"),
                            debugLine("[AppleiAP2/IAppleiAP2Manager.cpp][leavesEarly] [--OUT--]")));
}

TEST(IAPAutoTrace, LogsTheExitOfAFunctionThatThrows) {
    const LogCatcher log;
    EXPECT_THROW(throws(), std::runtime_error);
    EXPECT_THAT(log.lines(), ElementsAre(debugLine("[AppleiAP2/IAppleiAP2Manager.cpp][throws] [--IN--]"),
                                         debugLine("[AppleiAP2/IAppleiAP2Manager.cpp][throws] [--OUT--]")));
}

TEST(IAPAutoTrace, NestsLikeTheFunctionsItBrackets) {
    const LogCatcher log;
    {
        const IAPAutoTrace outer(kTracedTag, "f", "outer");
        const IAPAutoTrace inner(kTracedTag, "f", "inner");
    }
    EXPECT_THAT(log.lines(),
                ElementsAre(debugLine("[f][outer] [--IN--]"), debugLine("[f][inner] [--IN--]"),
                            debugLine("[f][inner] [--OUT--]"), debugLine("[f][outer] [--OUT--]")));
}

TEST(IAPAutoTrace, KeepsItsOwnCopiesOfFileAndFunction) {
    const LogCatcher log;
    {
        std::string file = "a/long/enough/path/to/live/on/the/heap.cpp";
        std::string function = "aFunctionNameThatDoesNotFitInAShortString";
        const IAPAutoTrace trace(kTracedTag, file, function);
        file.replace(0, 1, "X");
        function.replace(0, 1, "X");
    }
    EXPECT_THAT(log.lines().at(1), debugLine("[a/long/enough/path/to/live/on/the/heap.cpp]"
                                             "[aFunctionNameThatDoesNotFitInAShortString] [--OUT--]"));
}

TEST(IAPAutoTrace, ReadsTheTagThatItWasGivenEachTime) {
    const LogCatcher log;
    char tag[] = "A";
    {
        const IAPAutoTrace trace(tag, "f", "g");
        tag[0] = 'B';
    }
    EXPECT_THAT(log.lines(),
                ElementsAre(Logged(3, "A", "[f][g] [--IN--]"), Logged(3, "B", "[f][g] [--OUT--]")));
}

TEST(IAPAutoTrace, TakesItsTextsAsTheyAre) {
    const LogCatcher log;
    { const IAPAutoTrace trace(kTracedTag, "100%s", ""); }
    EXPECT_THAT(log.lines(), ElementsAre(debugLine("[100%s][] [--IN--]"), debugLine("[100%s][] [--OUT--]")));
}

TEST(IAPAutoTrace, HoldsThePointerAndTheTwoStringsAndNothingElse) {
    EXPECT_EQ(sizeof(IAPAutoTrace), sizeof(const char*) + 2 * sizeof(std::string));
}

}  // namespace
}  // namespace accessory::test
