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
    const int raised = std::fetestexcept(FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID);
    if (raised != 0) {
        throw CalculationStop{{.cause = (raised & FE_DIVBYZERO) != 0 ? Cause::division_by_zero
                                        : (raised & FE_INVALID) != 0 ? Cause::invalid
                                                                     : Cause::overflow}};
    }
}

std::size_t CheckedIndex(long index, std::size_t count)
{
    if (index < 0 || static_cast<std::size_t>(index) >= count) {
        throw CalculationStop{{.cause = Cause::index}};
    }
    return static_cast<std::size_t>(index);
}

std::int16_t ToI16(double value)
{
    const double whole = std::nearbyint(value);  // round half to even is the default mode
    if (!(whole >= -32768.0 && whole <= 32767.0)) {
        throw CalculationStop{{.cause = Cause::conversion}};
    }
    return static_cast<std::int16_t>(whole);
}

}  // namespace kestrum
