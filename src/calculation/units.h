#pragma once

// From N and mm, in which the sections are calculated, to what the report prints.

namespace kestrum {

constexpr double kNewton = 1e3;         // N in a kN
constexpr double kNmm = 1e6;            // Nmm in a kNm
constexpr int kToKn = -3, kToKnm = -6;  // as powers of ten

}  // namespace kestrum
