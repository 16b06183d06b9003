#include "core/failure.h"

#include <gtest/gtest.h>

#include <limits>

namespace kestrum {
namespace {

TEST(FailureText, SaysWhereAndWhy)
{
    EXPECT_EQ(FailureText({}), "");
    EXPECT_EQ(FailureText({.stage = Stage::forces, .cause = Cause::overflow}),
              "internal forces: overflow");
    EXPECT_EQ(FailureText({.cause = Cause::division_by_zero}), "division by zero");
    EXPECT_EQ(FailureText({.cause = Cause::not_finite, .quantity = "chiy"}),
              "not a finite number, chiy");
    EXPECT_EQ(
        FailureText({.stage = Stage::section, .cause = Cause::index, .quantity = "fy40", .row = 3}),
        "section: index beyond the table, fy40[3]");
    EXPECT_EQ(FailureText({.stage = Stage::section,
                           .cause = Cause::impossible_section,
                           .quantity = "hw",
                           .value = -2.5,
                           .unit = "mm"}),
              "section: impossible section, hw = -2.5 mm");
    EXPECT_EQ(FailureText({.stage = Stage::input,
                           .cause = Cause::out_of_range,
                           .quantity = "psi2",
                           .value = 7,
                           .allowed = "0 to 5"}),
              "input: psi2 = 7, allowed: 0 to 5");
    EXPECT_EQ(FailureText({.stage = Stage::buckling_control,
                           .cause = Cause::critical_force,
                           .quantity = "Ncr,z",
                           .value = 512,
                           .limit = 347.62,
                           .unit = "kN"}),
              "buckling control: NEd 512 kN, Ncr,z 347.6 kN");
}

// What is no number has no unit.
TEST(FailureText, ANumberThatIsNone)
{
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    Failure failure{.cause = Cause::no_resistance, .quantity = "A", .unit = "mm2"};
    const std::pair<double, const char*> cases[] = {
        {std::numeric_limits<double>::quiet_NaN(), "no resistance, A = not a number"},
        {kInfinite, "no resistance, A = infinite"},
        {-kInfinite, "no resistance, A = minus infinite"}};
    for (const auto& [value, text] : cases) {
        failure.value = value;
        EXPECT_EQ(FailureText(failure), text);
    }
}

TEST(ShortNumber, HasFourDigitsAndTheWholePart)
{
    const std::pair<double, const char*> cases[] = {
        {0, "0"},         {348, "348"},       {347.649, "347.6"},   {-0.123456, "-0.1235"},
        {9999.4, "9999"}, {12345.6, "12346"}, {-210000, "-210000"}, {1e9, "1e+09"}};
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(ShortNumber(value), text);
    }
}

}  // namespace
}  // namespace kestrum
