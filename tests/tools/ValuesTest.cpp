// Plain values from JSON and from texts.
#include "tools/rows/Values.h"

#include <gtest/gtest.h>

#include "tests/tools/Rows.h"

namespace accessory::test {
namespace {

using tools::ArgumentError;
using tools::Scalar;

template <typename T>
std::string refused(const Json::Value& value) {
    try {
        Scalar<T>::fromJson(value, "field");
    } catch (const ArgumentError& error) {
        return error.what();
    }
    return "taken";
}

TEST(Values, TakesNumbersOfTheWidthOfTheirType) {
    EXPECT_EQ(Scalar<uint8_t>::fromJson(255, "field"), 255);
    EXPECT_EQ(Scalar<int8_t>::fromJson("-128", "field"), -128);
    EXPECT_EQ(Scalar<uint16_t>::fromJson("0xFFff", "field"), 65535);
    EXPECT_EQ(Scalar<uint64_t>::fromJson("18446744073709551615", "field"), ~0ULL);
    EXPECT_EQ(Scalar<int64_t>::fromJson("-9223372036854775808", "field"), INT64_MIN);
    EXPECT_EQ(refused<uint8_t>(256), "field expects a number from 0 to 255, got 256");
    EXPECT_EQ(refused<uint8_t>(-1), "field expects a number from 0 to 255, got -1");
    EXPECT_EQ(refused<int8_t>("128"), "field expects a number from -128 to 127, got '128'");
    EXPECT_EQ(refused<uint64_t>("18446744073709551616"),
              "field expects a number from 0 to 18446744073709551615, got '18446744073709551616'");
    EXPECT_EQ(refused<int>(1.5), "field expects a number from -2147483648 to 2147483647, got 1.5");
    for (const char* text : {"", "-", "0x", "1x", " 1", "1e3", "+1"})
        EXPECT_NE(refused<int>(text), "taken") << text;
    EXPECT_NE(refused<int>(Json::Value()), "taken");
    EXPECT_NE(refused<int>(true), "taken");
}

TEST(Values, TakesTruthValues) {
    for (const char* word : {"true", "1", "yes", "on"})
        EXPECT_TRUE(tools::truth(word, "field")) << word;
    for (const char* word : {"false", "0", "no", "off"})
        EXPECT_FALSE(tools::truth(word, "field")) << word;
    EXPECT_TRUE(tools::truth(1, "field"));
    EXPECT_EQ(refused<bool>("2"), "field expects true or false, got '2'");
}

TEST(Values, TakesTextsWithoutNuls) {
    EXPECT_EQ(tools::text("a\xc3\xa4", "field"), "a\xc3\xa4");
    EXPECT_EQ(tools::text(json(R"({"hex":"ff41"})"), "field"), "\xff\x41");
    EXPECT_THROW(tools::text(Json::Value(std::string("a\0b", 3)), "field"), ArgumentError);
    EXPECT_THROW(tools::text(json(R"({"hex":"00"})"), "field"), ArgumentError);
    EXPECT_THROW(tools::text(7, "field"), ArgumentError);
    EXPECT_THROW(tools::text(Json::Value(), "field"), ArgumentError);
}

TEST(Values, ShowsTextThatIsNotUtf8AsBytes) {
    EXPECT_EQ(tools::textToJson("a\xc3\xa4\xf0\x9f\x98\x80"), Json::Value("a\xc3\xa4\xf0\x9f\x98\x80"));
    EXPECT_EQ(tools::textToJson(nullptr), Json::Value());
    for (const char* wrong :
         {"\x80", "\xc3", "\xc0\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xe0\x80\x80", "\xff"})
        EXPECT_TRUE(tools::textToJson(wrong).isMember("hex")) << wrong;
}

TEST(Values, TakesBytesAsHexDigits) {
    const tools::Bytes expected = {0x0a, 0x1b, 0xff};
    EXPECT_EQ(tools::bytes("0a1bFF", "field"), expected);
    EXPECT_EQ(tools::bytes("0a:1b:ff", "field"), expected);
    EXPECT_EQ(tools::bytes(json(R"({"hex":"0a1bff"})"), "field", 3), expected);
    EXPECT_EQ(tools::bytes("", "field"), tools::Bytes());
    for (const char* wrong : {"0", "0g", "0a1", "0 a"})
        EXPECT_THROW(tools::bytes(wrong, "field"), ArgumentError) << wrong;
    EXPECT_THROW(tools::bytes("0a1b", "field", 3), ArgumentError);
}

TEST(Values, CutsListsAtCommas) {
    EXPECT_EQ(tools::list("1,2", "field", "a list"), json(R"(["1","2"])"));
    EXPECT_EQ(tools::list("a,", "field", "a list"), json(R"(["a",""])"));
    EXPECT_EQ(tools::list("", "field", "a list"), json("[]"));
    EXPECT_EQ(tools::list("[1, 2]", "field", "a list"), json("[1,2]"));
    EXPECT_THROW(tools::list("[1", "field", "a list"), ArgumentError);
    EXPECT_THROW(tools::list(7, "field", "a list"), ArgumentError);
}

TEST(Values, RefusesJsonThatIsNestedTooDeeply) {
    Json::Value value;
    EXPECT_FALSE(tools::parseJson(std::string(100000, '['), &value));
}

}  // namespace
}  // namespace accessory::test
