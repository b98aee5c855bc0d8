#include "bench/support/Options.h"

#include <gtest/gtest.h>

#include <vector>

using namespace accessory::bench;  // NOLINT(google-build-using-namespace): the tests' vocabulary

namespace {

Options parsed(std::vector<std::string> texts) {
    texts.insert(texts.begin(), "bench_x");
    std::vector<char*> pointers;
    pointers.reserve(texts.size());
    for (std::string& text : texts)
        pointers.push_back(text.data());
    return parseOptions(static_cast<int>(pointers.size()), pointers.data());
}

TEST(Options, WantEverythingInFullUnlessTold) {
    const Options options = parsed({});
    EXPECT_EQ(3, options.pick(3, 2, 1));
    EXPECT_TRUE(options.wants("anything"));
    EXPECT_EQ("", options.json);
}

TEST(Options, PickByEffort) {
    EXPECT_EQ(2, parsed({"--quick"}).pick(3, 2, 1));
    EXPECT_EQ(1, parsed({"--smoke"}).pick(3, 2, 1));
}

TEST(Options, TakeAFileAndAPattern) {
    const Options options = parsed({"--json", "a.json", "--only", "^sd-bus"});
    EXPECT_EQ("a.json", options.json);
    EXPECT_TRUE(options.wants("sd-bus, direct"));
    EXPECT_FALSE(options.wants("the sd-bus"));
}

TEST(OptionsDeathTest, EndTheProgramWhenTheyAreNotUnderstood) {
    EXPECT_EXIT(parsed({"--fast"}), testing::ExitedWithCode(2), "'--fast' is unknown");
    EXPECT_EXIT(parsed({"--json"}), testing::ExitedWithCode(2), "--json needs a value");
    EXPECT_EXIT(parsed({"--only", "("}), testing::ExitedWithCode(2), "not a regular expression");
}

}  // namespace
