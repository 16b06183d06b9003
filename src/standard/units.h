#pragma once

// The standard's checks are in N and mm; lines of forces are in kN and m.

namespace kestrum::standard {

constexpr double kN = 1e3;    // N in a kN
constexpr double kNmm = 1e6;  // Nmm in a kNm
constexpr double kMm = 1e3;   // mm in a m

}  // namespace kestrum::standard
