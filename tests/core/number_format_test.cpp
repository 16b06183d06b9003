#include "core/number_format.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace kestrum {
namespace {

struct FormatCase {
    double value;
    const char* pattern;
    const char* text;
};

// What a pattern means, digit by digit: 0 is forced, # is written where it counts.
TEST(FormatNum, FollowsThePattern)
{
    const FormatCase cases[] = {
        {0.5, "#0.00", "0.50"},
        {0, "#0.00", "0.00"},
        {12.3456, "#0.00", "12.35"},
        {-12.3456, "#0.00", "-12.35"},
        {0.85, "#.00", ".85"},
        {-0.85, "#.00", "-.85"},
        {1, "#.00", "1.00"},
        {0, "#.00", ".00"},
        {0.999, "#.00", "1.00"},
        {0.5, "##.0", ".5"},
        {0, "##.0", ".0"},
        {355, "##.0", "355.0"},
        {5, "#00.0", "05.0"},
        {0, "#00.0", "00.0"},
        {123.45, "#00.0", "123.5"},
        {5, "00", "05"},
        {123, "00", "123"},
        {5, "#00", "05"},
        {50, "#000", "050"},
        {355, "#000", "355"},
        {1355, "#000", "1355"},
        {0, "##0", "0"},
        {0, "#0", "0"},
        {1234, "##0", "1234"},
        {0, "#", ""},
        {0.4, "#", ""},
        {0.5, "#", "1"},
        {7, "#", "7"},
        {0, "###", ""},
        {12345, "###", "12345"},
        {1, "0.0#", "1.0"},
        {0.83, "0.0#", "0.83"},
        {0.835, "0.0#", "0.84"},
        {0, "0.0#", "0.0"},
        {0.85, "0.0##", "0.85"},
        {1, "0.0##", "1.0"},
        {1.2345, "0.0##", "1.235"},
        {1.2004, "0.0##", "1.2"},
        {300, "0", "300"},
        {9.96, "0.0", "10.0"},
        {99.96, "#0.0", "100.0"},
        {5, "0#", "05"},
    };
    for (const FormatCase& c : cases) {
        EXPECT_EQ(FormatNum(c.value, c.pattern), c.text) << c.value << " in " << c.pattern;
        EXPECT_EQ(FormatNum(static_cast<float>(c.value), c.pattern), c.text)
            << c.value << " in " << c.pattern << ", single precision";
    }
}

TEST(FormatNum, WritesExponentsWithSignAndWithoutPadding)
{
    const FormatCase cases[] = {
        {210000, "0.000E+0", "2.100E+5"},   {0, "0.000E+0", "0.000E+0"},
        {0.00123, "0.000E+0", "1.230E-3"},  {1, "0.000E+0", "1.000E+0"},
        {9.9994, "0.000E+0", "9.999E+0"},   {9.9996, "0.000E+0", "1.000E+1"},
        {999960, "0.000E+0", "1.000E+6"},   {-12345, "0.000E+0", "-1.235E+4"},
        {1e25, "0.000E+0", "1.000E+25"},    {1e-10, "0.000E+0", "1.000E-10"},
        {36920000, "0.000E+0", "3.692E+7"}, {210000, "0.00E+0", "2.10E+5"},
        {0.0999, "0.00E+0", "9.99E-2"},     {0.09999, "0.00E+0", "1.00E-1"},
    };
    for (const FormatCase& c : cases) {
        EXPECT_EQ(FormatNum(c.value, c.pattern), c.text) << c.value;
        EXPECT_EQ(FormatNum(static_cast<float>(c.value), c.pattern), c.text) << c.value;
    }
}

TEST(FormatNum, KeepsTheTextAroundTheNumber)
{
    const FormatCase cases[] = {
        {12.34, "0.0 kNm", "12.3 kNm"},
        {5, "0.000 m", "5.000 m"},
        {5, "##0 mm", "5 mm"},
        {7, "#0 ", "7 "},
        {7, "0.0 ", "7.0 "},
        {0, "# kN", " kN"},
        {-3, "L/#0", "L/-3"},
    };
    for (const FormatCase& c : cases) {
        EXPECT_EQ(FormatNum(c.value, c.pattern), c.text);
    }
}

// The nearest binary value of each lies below the half (2.675 is 2.67499..); the decimal counts.
TEST(FormatNum, RoundsHalvesOfTheDecimalAwayFromZero)
{
    const FormatCase cases[] = {
        {0.125, "0.00", "0.13"},  {0.375, "0.00", "0.38"},
        {2.675, "0.00", "2.68"},  {-2.675, "0.00", "-2.68"},
        {0.045, "0.00", "0.05"},  {1.005, "0.00", "1.01"},
        {0.285, "0.00", "0.29"},  {0.5, "0", "1"},
        {1.5, "0", "2"},          {2.5, "0", "3"},
        {-2.5, "0", "-3"},        {0.05, "0.0", "0.1"},
        {0.995, "#0.00", "1.00"}, {0.0005, "0.000", "0.001"},
    };
    for (const FormatCase& c : cases) {
        EXPECT_EQ(FormatNum(c.value, c.pattern), c.text) << c.value;
        EXPECT_EQ(FormatNum(static_cast<float>(c.value), c.pattern), c.text) << c.value;
    }
}

TEST(FormatNum, RoundsSinglePrecisionToSevenDigitsFirst)
{
    EXPECT_EQ(FormatNum(16777216.0f, "#0"), "16777220");
    EXPECT_EQ(FormatNum(16777216.0, "#0"), "16777216");
    EXPECT_EQ(FormatNum(0.99999994f, "0.0######"), "0.9999999");
    EXPECT_EQ(FormatNum(0.1f, "0.0########"), "0.1");
    EXPECT_EQ(FormatNum(static_cast<double>(0.1f), "0.0########"), "0.100000001");
    // Halves of the seventh digit itself, exact in binary: away from zero too.
    EXPECT_EQ(FormatNum(100000.25f, "0.00"), "100000.30");
    EXPECT_EQ(FormatNum(100000.75f, "0.00"), "100000.80");
    EXPECT_EQ(FormatNum(1234567.5f, "0.0"), "1234568.0");
}

TEST(FormatNum, RoundsDoublePrecisionToFifteenDigitsFirst)
{
    EXPECT_EQ(FormatNum(0.1 + 0.2, "0.0################"), "0.3");
    EXPECT_EQ(FormatNum(123456789012345678.0, "0"), "123456789012346000");
    EXPECT_EQ(FormatNum(0.4999999999999999, "0"), "1");  // 16 digits: 0.5 at 15
    EXPECT_EQ(FormatNum(0.499999999999999, "0"), "0");
}

TEST(FormatNum, WritesNoSignOnZero)
{
    for (const double value : {-0.0, -1e-7, -0.004, -0.00499}) {
        EXPECT_EQ(FormatNum(value, "0.00"), "0.00") << value;
        EXPECT_EQ(FormatNum(static_cast<float>(value), "0.00"), "0.00") << value;
    }
    EXPECT_EQ(FormatNum(-0.005, "0.00"), "-0.01");
    EXPECT_EQ(FormatNum(-0.0, "0.000E+0"), "0.000E+0");
    EXPECT_EQ(FormatNum(-0.2, "#"), "");
}

TEST(FormatNum, WritesVerySmallAndVeryLargeValues)
{
    EXPECT_EQ(FormatNum(1e-7, "0.00"), "0.00");
    EXPECT_EQ(FormatNum(1e-300, "0.00"), "0.00");
    EXPECT_EQ(FormatNum(1e25, "#0.0"), "10000000000000000000000000.0");
    EXPECT_EQ(FormatNum(std::numeric_limits<double>::max(), "0").size(), 309U);
    EXPECT_EQ(FormatNum(std::numeric_limits<double>::denorm_min(), "0.000E+0"), "4.941E-324");
    EXPECT_EQ(FormatNum(std::numeric_limits<float>::denorm_min(), "0.000E+0"), "1.401E-45");
}

TEST(FormatNum, WritesNothingForWhatIsNoNumber)
{
    EXPECT_EQ(FormatNum(std::nan(""), "#0.00"), "");
    EXPECT_EQ(FormatNum(HUGE_VAL, "#0.00 kN"), "");
    EXPECT_EQ(FormatNum(-HUGE_VALF, "#0.00"), "");
}

// Any written number lies within half a unit of its last place, and half a unit of the 15th digit
// for the first rounding, and is the same with both signs.
TEST(FormatNum, StaysWithinHalfAUnitOfTheLastPlace)
{
    std::mt19937 random(20260101);
    std::uniform_real_distribution<double> exponent(-3, 9);
    for (int i = 0; i < 20000; ++i) {
        const double value = std::pow(10.0, exponent(random));
        const std::string text = FormatNum(value, "#0.000");
        double back = -1;
        std::from_chars(text.data(), text.data() + text.size(), back);
        ASSERT_NEAR(back, value, 0.0005 + 5e-15 * value) << text;
        ASSERT_EQ(text[text.size() - 4], '.') << text;
        if (back != 0) {
            ASSERT_EQ(FormatNum(-value, "#0.000"), "-" + text);
        }
    }
}

}  // namespace
}  // namespace kestrum
