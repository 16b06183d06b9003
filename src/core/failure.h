#pragma once

// Why a pass could not finish: where it was, what stopped it, and the numbers. A plain value of the
// record; filling it costs nothing, its text is made when somebody reads it.

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrum {

// The step of the driver.
enum class Stage : std::uint8_t {
    none,
    input,
    section,
    forces,
    section_control,
    buckling_control,
    deflection,
    modal
};

enum class Cause : std::uint8_t {
    none,
    out_of_range,        // an input that cannot be calculated
    impossible_section,  // parts that overlap, a clear width that is not positive
    no_resistance,       // a resistance that a force needs is not positive
    critical_force,      // NEd above an elastic critical force
    division_by_zero,
    overflow,
    invalid,     // square root of a negative number and the like
    not_finite,  // a value that a step hands on
    index,       // beyond a table
    conversion   // too large for a whole number
};

struct Failure {
    Stage stage = Stage::none;
    Cause cause = Cause::none;
    std::string_view quantity{};  // "Ncr,z", "hw", "loadcomb"; a text that lasts
    int row = -1;                 // of an input with rows
    double value = 0;             // of the quantity; NEd of a critical force
    double limit = 0;             // the critical force
    std::string_view unit{};
    std::string_view allowed{};  // of an input: "0 to 5"

    bool operator==(const Failure&) const = default;
    bool any() const { return cause != Cause::none; }
};

std::string_view StageName(Stage stage);  // "buckling control"
std::string_view CauseName(Cause cause);  // "axial force above critical force"

// "buckling control: NEd 512 kN, Ncr,z 347.6 kN"; empty without a failure.
std::string FailureText(const Failure& failure);

// "348", "347.6": four significant digits, the whole part in full.
std::string ShortNumber(double value);

}  // namespace kestrum
