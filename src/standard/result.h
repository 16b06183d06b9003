#pragma once

// The result of the standard basis: for each check the largest ratio of all combinations and
// places.

#include "core/load_cases.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

namespace kestrum::standard {

enum class CheckId : std::uint8_t {
    section_n,
    section_my,
    section_mz,
    section_vz,
    section_vy,
    section_nm,  // all forces, 6.2.9
    section_mv,  // EN 1993-1-5, 7.1
    flexural_y,
    flexural_z,
    torsional,
    ltb,
    eq661,
    eq662,
    interaction_outside,  // sections that 6.3.3 (1) leaves out
    n_above_ncr,
    deflection_z,
    deflection_y
};
constexpr std::size_t kCheckIds = 17;
constexpr std::size_t kSectionChecks = 7;

std::string_view NameOf(CheckId id);
inline bool IsDeflection(CheckId id)
{
    return id >= CheckId::deflection_z;
}

constexpr double kWholeMember = std::numeric_limits<double>::quiet_NaN();

// A ratio that has no value is one that fails.
inline double OrInfinite(double ir)
{
    return std::isnan(ir) ? std::numeric_limits<double>::infinity() : ir;
}

struct Check {
    bool present = false;
    double ir = 0;
    std::string_view clause{};
    double place = kWholeMember;  // x/L
    LoadCase load_case{};
};

struct Checks {
    std::array<Check, kCheckIds> best{};

    void Keep(CheckId id, double ir, std::string_view clause, double place, const LoadCase& from)
    {
        Check& check = best[static_cast<std::size_t>(id)];
        const double size = OrInfinite(ir);
        if (!check.present || size > check.ir) {
            check = {true, size, clause, place, from};
        }
    }
    const Check& operator[](CheckId id) const { return best[static_cast<std::size_t>(id)]; }
};

// The checks of a stage of the calculation stand together.
struct Stage {
    std::size_t first, end;
};
constexpr Stage kSectionStage{0, kSectionChecks};
constexpr Stage kBucklingStage{kSectionChecks, static_cast<std::size_t>(CheckId::deflection_z)};
constexpr Stage kServiceStage{kBucklingStage.end, kCheckIds};

}  // namespace kestrum::standard
