#include "core/arithmetic_trap.h"

#include <cfenv>
#include <cmath>

namespace kestrum {

void ArmTrap()
{
    std::feclearexcept(FE_ALL_EXCEPT);
}

void CheckTrap()
{
    if (std::fetestexcept(FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID) != 0) {
        throw CalculationStop{};
    }
}

std::size_t CheckedIndex(long index, std::size_t count)
{
    if (index < 0 || static_cast<std::size_t>(index) >= count) {
        throw CalculationStop{};
    }
    return static_cast<std::size_t>(index);
}

std::int16_t ToI16(double value)
{
    const double whole = std::nearbyint(value);  // round half to even is the default mode
    if (!(whole >= -32768.0 && whole <= 32767.0)) {
        throw CalculationStop{};
    }
    return static_cast<std::int16_t>(whole);
}

}  // namespace kestrum
