#pragma once

// Arithmetic failure ends a pass in one place. The formulas test nothing: division by zero,
// overflow and invalid operations leave their mark in the floating-point status flags, which are
// cleared before and read after each step of the driver. Where a value is needed at once (an index,
// a conversion to a whole number) a checked helper stops the pass directly. Both leave through
// `CalculationStop`, which only the driver catches.

#include "core/failure.h"

#include <cstddef>
#include <cstdint>

namespace kestrum {

// What is known where the pass stops; the driver adds the stage.
struct CalculationStop {
    Failure failure{};
};

// Clears the status flags.
void ArmTrap();

// Throws CalculationStop when a division by zero, an overflow or an invalid operation has happened
// since ArmTrap.
void CheckTrap();

// The single-precision store. An overflow marks the flags.
inline float F32(double value)
{
    return static_cast<float>(value);
}

// The index if it lies in 0..count-1; stops the pass otherwise.
std::size_t CheckedIndex(long index, std::size_t count);

// Nearest whole number, halves to the even one; stops the pass outside the 16-bit range.
std::int16_t ToI16(double value);

}  // namespace kestrum
