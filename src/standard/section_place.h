#pragma once

// The checks of one cross-section under all forces there, EN 1993-1-1, 6.2. Each puts its ratio
// into the place; a source for each group of clauses.

#include "standard/section_checks.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace kestrum::standard {

struct Ratio {
    double ir = -1;  // below 0: no such check here
    std::string_view clause{};
};
using Ratios = std::array<Ratio, kSectionChecks>;

struct ForcesAt {
    double x;  // m
    double n, my, mz, vz, vy;
};

struct SectionPlace {
    const SectionMember& member;
    const PreparedSection& p;
    const StandardSection& q;
    const Classes& classes;
    int cls;  // of all forces
    ForcesAt f;
    const Basis& basis;
    SectionTerms* told;  // takes what stands behind the ratios, where somebody asks
    ShearResistance along_z{}, along_y{};
    ShearShares rho{};
    Ratios ratios{};

    Ratio& Of(CheckId id) { return ratios[static_cast<std::size_t>(id)]; }
};

// Without a force nothing is used, even of a resistance that shear has taken away.
double Used(double force, double resistance);

// A tube bends about the axis of the resultant. D176: the program takes both moments apart, each
// beside its own shear force.
bool BendsAboutOneAxis(const SectionPlace& at);

// standard/single_forces.cpp: 6.2.3 and 6.2.4, 6.2.6 with EN 1993-1-5, 5, then 6.2.5 and 6.2.8,
// which take the shares of the shear.
void CheckAxial(SectionPlace& at);
void CheckShear(SectionPlace& at);
void CheckMoments(SectionPlace& at);

// standard/bending_axial.cpp: 6.2.9, or the linear sum of 6.2.1 (7); and 6.2.1 (5) for the lower
// flange of a hat beam that its load bends across.
void CheckBendingAndAxial(SectionPlace& at);
void CheckLoadedFlange(SectionPlace& at);

// standard/plastic_bending_axial.cpp: 6.2.9.1 beside the share n of the axial resistance.
void PlasticBendingAndAxial(SectionPlace& at, const ReducedResistance& r, double n);

// standard/web_bending.cpp: EN 1993-1-5, 7.1 (1), (2), (4), (5); the length of the member in m.
void CheckWebBending(SectionPlace& at, double length);

// standard/angle_stresses.cpp: stresses of the corners about the principal axes, 6.2.1 (5).
void CheckAngleStresses(SectionPlace& at);

}  // namespace kestrum::standard
