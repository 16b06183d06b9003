#include "core/arithmetic_trap.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kestrum {
namespace {

// Values that the compiler cannot know.
double Hidden(double value)
{
    volatile double hidden = value;
    return hidden;
}

// On every platform the functions of <cmath> must report what they cannot answer, C, annex F.
TEST(ArithmeticTrap, SeesWhatTheMathematicsLibraryCannotAnswer)
{
    struct Case {
        const char* what;
        double (*run)();
    };
    const Case cases[] = {
        {"root of -1", [] { return std::sqrt(Hidden(-1)); }},
        {"-1 to the power of a half", [] { return std::pow(Hidden(-1), Hidden(0.5)); }},
        {"0 to the power of -1", [] { return std::pow(Hidden(0), Hidden(-1)); }},
        {"overflow of a power", [] { return std::pow(Hidden(1e200), Hidden(2)); }},
        {"logarithm of -1", [] { return std::log(Hidden(-1)); }},
        {"logarithm of 0", [] { return std::log(Hidden(0)); }},
        {"division by 0", [] { return 1 / Hidden(0); }},
        {"0 over 0", [] { return Hidden(0) / Hidden(0); }},
        {"overflow of single precision",
         [] { return static_cast<double>(static_cast<float>(Hidden(1e300))); }},
    };
    for (const Case& c : cases) {
        ArmTrap();
        volatile double result = c.run();
        static_cast<void>(result);
        EXPECT_THROW(CheckTrap(), CalculationStop) << c.what;
    }
    ArmTrap();
}

TEST(ArithmeticTrap, LetsSoundArithmeticPass)
{
    ArmTrap();
    volatile double result = std::pow(Hidden(2), Hidden(0.5)) + std::log(Hidden(2)) +
                             std::sqrt(Hidden(0)) + std::pow(Hidden(-2), Hidden(2)) + 1e25 / 3;
    EXPECT_GT(result, 1e24);
    EXPECT_NO_THROW(CheckTrap());
}

// Halves go to the even number, so that 32767.5 is beyond 16 bits and -32768.5 is not.
TEST(ArithmeticTrap, StopsWhereAWholeNumberEnds)
{
    const double none = std::nan("");
    EXPECT_EQ(ToI16(32767.4), 32767);
    EXPECT_EQ(ToI16(-32768.5), -32768);
    EXPECT_EQ(ToI16(2.5), 2);
    for (const double beyond : {32767.5, -32768.6, 1e300, none}) {
        EXPECT_THROW(ToI16(beyond), CalculationStop) << beyond;
    }
    EXPECT_EQ(CheckedIndex(2, 3), 2U);
    EXPECT_THROW(CheckedIndex(3, 3), CalculationStop);
    EXPECT_THROW(CheckedIndex(-1, 3), CalculationStop);
}

}  // namespace
}  // namespace kestrum
