#include "core/parse_num.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace kestrum {
namespace {

struct TypedCase {
    const char* text;
    std::optional<float> point, comma;  // by the platform's decimal separator
};

TEST(ParseNum, ReadsTypedTextByThePlatform)
{
    const TypedCase cases[] = {
        {"", 0.0f, 0.0f},
        {"   ", 0.0f, 0.0f},
        {"1.5", 1.5f, 1.5f},
        {"1,5", 1.5f, 1.5f},
        {"  1.5", 1.5f, 1.5f},
        {"1.5  ", 1.5f, 1.5f},
        {"\t2", 2.0f, 2.0f},
        {"-3", -3.0f, -3.0f},
        {"+3", 3.0f, 3.0f},
        {".5", 0.5f, 0.5f},
        {"-,5", -0.5f, -0.5f},
        {"5.", 5.0f, 5.0f},
        {"1e3", 1000.0f, 1000.0f},
        {"1E-3", 0.001f, 0.001f},
        {"1d2", 100.0f, 100.0f},
        {"1D+2", 100.0f, 100.0f},
        {"0,85", 0.85f, 0.85f},
        {"1e-60", 0.0f, 0.0f},
        {"1e-999", 0.0f, 0.0f},
        {"0e999", 0.0f, 0.0f},
        // What a comma platform refuses, a point platform reads as far as it goes.
        {"abc", 0.0f, std::nullopt},
        {"12 mm", 12.0f, std::nullopt},
        {"12mm", 12.0f, std::nullopt},
        {"1e2mm", 100.0f, std::nullopt},
        {"1 000", 1000.0f, std::nullopt},
        {"1.2.3", 1.2f, std::nullopt},
        {"1,234.5", 1.234f, std::nullopt},
        {"1e", 1.0f, std::nullopt},
        {"1e+", 1.0f, std::nullopt},
        {"-", 0.0f, std::nullopt},
        {".", 0.0f, std::nullopt},
        {"--5", 0.0f, std::nullopt},
        {"nan", 0.0f, std::nullopt},
        {"inf", 0.0f, std::nullopt},
        {"0x10", 0.0f, std::nullopt},
        {"5-3", 5.0f, std::nullopt},
        // Beyond single precision on both.
        {"1e39", std::nullopt, std::nullopt},
        {"-1e39", std::nullopt, std::nullopt},
        {"1e999", std::nullopt, std::nullopt},
        {"1e99999999999999999999", std::nullopt, std::nullopt},
    };
    for (const TypedCase& c : cases) {
        EXPECT_EQ(ParseNum(c.text, false), c.point) << '"' << c.text << "\", point";
        EXPECT_EQ(ParseNum(c.text, true), c.comma) << '"' << c.text << "\", comma";
    }
}

TEST(ParseNum, TellsTooLargeFromTooSmallWhateverTheSpelling)
{
    const std::string zeros(400, '0');
    EXPECT_EQ(ParseNum("1" + zeros, false), std::nullopt);
    EXPECT_EQ(ParseNum("1" + zeros + "e-10", false), std::nullopt);
    EXPECT_EQ(ParseNum("0." + zeros + "1", false), 0.0f);
    EXPECT_EQ(ParseNum("0." + zeros + "1e10", false), 0.0f);
    EXPECT_EQ(ParseNum("1" + zeros + "e-400", false), 1.0f);
    EXPECT_EQ(ParseNum("1e-99999999999999999999", false), 0.0f);
}

TEST(ParseNum, TakesTextsOfAnyLength)
{
    EXPECT_EQ(ParseNum(std::string(1000000, '9'), false), std::nullopt);
    EXPECT_EQ(ParseNum("0." + std::string(1000000, '3'), true), 1.0f / 3.0f);
    EXPECT_EQ(ParseNum(std::string(1000000, ' '), true), 0.0f);
    EXPECT_EQ(ParseNum(std::string("7\0 9", 4), false), 7.0f);
}

TEST(WidenNum, GivesTheNumberAsTyped)
{
    for (const double typed : {1.05, 0.1, 0.3, -2.675, 0.0, 210000.0, 1e-7, 3.4e38, 11.5}) {
        EXPECT_EQ(WidenNum(static_cast<float>(typed)), typed);
    }
    EXPECT_NE(static_cast<double>(1.05f), 1.05);  // what it is for
}

TEST(WholeNum, RoundsHalvesToTheEvenNumber)
{
    EXPECT_EQ(WholeNum(0.5), i16{0});
    EXPECT_EQ(WholeNum(1.5), i16{2});
    EXPECT_EQ(WholeNum(2.5), i16{2});
    EXPECT_EQ(WholeNum(-0.5), i16{0});
    EXPECT_EQ(WholeNum(-1.5), i16{-2});
    EXPECT_EQ(WholeNum(300), i16{300});
    EXPECT_EQ(WholeNum(300.49), i16{300});
}

TEST(WholeNum, RefusesWhatSixteenBitsDoNotHold)
{
    EXPECT_EQ(WholeNum(32767.4), i16{32767});
    EXPECT_EQ(WholeNum(32767.5), std::nullopt);
    EXPECT_EQ(WholeNum(-32768.5), i16{-32768});
    EXPECT_EQ(WholeNum(-32768.6), std::nullopt);
    EXPECT_EQ(WholeNum(1e30), std::nullopt);
    EXPECT_EQ(WholeNum(std::nan("")), std::nullopt);
    EXPECT_EQ(WholeNum(-HUGE_VAL), std::nullopt);
}

}  // namespace
}  // namespace kestrum
