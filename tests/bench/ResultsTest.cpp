#include "bench/support/Results.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

using namespace accessory::bench;  // NOLINT(google-build-using-namespace): the tests' vocabulary

namespace {

const Results kResults = {{"pinned", "16 B", "ours", "p50", "us", 6.75},
                          {"pinned", "1 KiB", "theirs", "p50", "us", 12.5},
                          {"unpinned", "16 B", "ours", "p50", "us", 7}};

TEST(Results, AreWrittenOneToALine) {
    const std::string file = testing::TempDir() + "results.json";
    writeJson(file, "round_trip", {kResults[0], kResults[2]});
    std::stringstream written;
    written << std::ifstream(file).rdbuf();
    EXPECT_EQ(
        "[\n"
        "{\"subject\": \"round_trip\", \"setting\": \"pinned\", \"what\": \"16 B\", \"contender\": \"ours\", "
        "\"measure\": \"p50\", \"unit\": \"us\", \"value\": 6.75},\n"
        "{\"subject\": \"round_trip\", \"setting\": \"unpinned\", \"what\": \"16 B\", \"contender\": "
        "\"ours\", "
        "\"measure\": \"p50\", \"unit\": \"us\", \"value\": 7}\n"
        "]\n",
        written.str());
}

TEST(Results, StandInATableOfOneSettingWithADashWhereOneIsMissing) {
    testing::internal::CaptureStdout();
    printTable("Medians", kResults, "pinned", "p50", 1);
    EXPECT_EQ(
        "\n"
        "Medians\n"
        "              16 B    1 KiB\n"
        "ours           6.8        -\n"
        "theirs           -     12.5\n",
        testing::internal::GetCapturedStdout());
}

TEST(Results, MakeNoTableWhenNoneFits) {
    testing::internal::CaptureStdout();
    printTable("Medians", kResults, "pinned", "p99", 1);
    EXPECT_EQ("", testing::internal::GetCapturedStdout());
}

}  // namespace
