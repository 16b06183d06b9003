#pragma once

// What the slices of the state are made of.
//
// Units, unless a field says otherwise: member lengths and positions m, section dimensions mm,
// areas mm2, second moments mm4, moduli mm3, warping constants mm6, stresses MPa, forces kN,
// moments kNm, line loads kN/m, deflections mm. N is positive in compression, a sagging moment and
// a downward load are positive. Booleans are 0 and -1; switches and options that are stored as
// numbers say so. Index conventions: `Rows<T, N>` is used from 1 to N (slot 0 stays empty unless
// the field says otherwise).

#include <array>
#include <cstddef>
#include <cstdint>

namespace kestrum {

using i16 = std::int16_t;

template <class T, std::size_t N> using Rows = std::array<T, N + 1>;

constexpr i16 kFalse = 0;
constexpr i16 kTrue = -1;

constexpr int kDiagramPoints = 51;  // x = j L/50
constexpr int kCheckSections = 41;  // capacity; npts is the last one used
constexpr int kSegments = 7;  // capacity of the lateral torsional buckling segments, used from 1

// Profile tables, one entry per file, in the order in which they are read.
#define TABLE(name, ...) name,
enum class Table : std::uint8_t {
#include "core/profile_tables.inc"
};
#undef TABLE

#define TABLE(...) +1
constexpr std::size_t kTables = 0
#include "core/profile_tables.inc"
    ;
#undef TABLE

}  // namespace kestrum
