#pragma once

// Natural frequencies and vortex shedding by the standards as written: EN 1990, A1.4.4, and EN
// 1991-1-4, Annexes E and F. Bending about y.

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace kestrum {
struct Library;
struct ProjectState;
}  // namespace kestrum

namespace kestrum::standard {

constexpr std::size_t kModes = 3;

struct Vibration {
    double mass;                      // section, G and psi Q over the length, kg/m
    std::array<double, kModes> freq;  // Hz
};

// After the section step. Masses are the sizes of all loads in the table, whatever their direction;
// Q with the psi entered for it. Every mode by Rayleigh's quotient of the shape without point
// masses: exact for even mass, else high. None for springs.
std::optional<Vibration> VibrationOf(const ProjectState& s);

// What the modes of VibrationOf move.
struct MovedLoad {
    bool point;
    double x1, x2;                     // m
    double factor;                     // 1 of G, psi of Q
    double size;                       // without sign, kN
    std::array<double, kModes> share;  // of its mass that moves: mean of phi^2 on the load
};
struct VibrationStudy {
    std::array<double, kModes> root;   // of the frequency equation
    std::array<double, kModes> moved;  // mass of each mode, kg
    std::vector<MovedLoad> loads{};    // without the self-weight
};
// `project` as read. Nothing where VibrationOf has nothing.
std::optional<VibrationStudy> VibrationStudyOf(const Library& library, const ProjectState& project);

struct VortexShedding {
    double freq;       // Hz
    double z0;         // of the terrain, m
    double vcrit, vm;  // m/s
    bool accepted;     // vcrit > 1.25 vm, E.1.2 (2)
};

// After the section step and the program's own control, whose width and Strouhal number hold
// (D257). The support is that of the member, springs as pins; a truss keeps its own constant.
std::optional<VortexShedding> VortexSheddingOf(const ProjectState& s);
// Of its frequency, in the first mode.
std::optional<VibrationStudy> VortexStudyOf(const ProjectState& s);

}  // namespace kestrum::standard
