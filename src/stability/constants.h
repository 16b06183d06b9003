#pragma once

// Constants of the member stability checks.

namespace kestrum {

// Deviation D202: pi with the digits of single precision, 3e-8 above the true value, in all elastic
// critical forces and moments.
constexpr double kStabilityPi = 3.1415927410125732;

constexpr double kShearRatio = 2.6;  // E/G

}  // namespace kestrum
