#pragma once

// The section as the rules of EN 1993-1-1 see it: gross properties, thin straight walls for class
// and effective widths, material and partial factors of the standard. Units N, mm, MPa.
//
// Axes: y to the right, z upwards from the centroid of the gross section; channels have their web
// on the left. Stresses are positive in compression; a positive My compresses the upper side, a
// positive Mz the right side.

#include "core/basis.h"
#include "core/library.h"
#include "sections/families.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string_view>

namespace kestrum {
struct ProjectState;
}

namespace kestrum::standard {

// Straight part of a plate between roots or welds; an outstand runs from its root to its tip.
struct Wall {
    double y0, z0, y1, z1;
    double t;
    bool outstand;

    bool Upright() const { return y0 == y1; }
    double Width() const { return Upright() ? std::abs(z1 - z0) : std::abs(y1 - y0); }
};
constexpr std::size_t kMaxWalls = 8;

// Whole rectangle of a section of plates, from its lower left to its upper right corner.
struct Strip {
    double y0, z0, y1, z1;
    bool web;  // carries Vz; else Vy

    double Area() const { return (y1 - y0) * (z1 - z0); }
};
constexpr std::size_t kMaxStrips = 4;

struct Flange {
    double b, t;
};

// A rectangle of a plate of class 4 that does not count, by its middle from the centroid of the
// gross section, and the plate that loses it.
struct LostPart {
    double y, z, wide, high;
    double c, t;
    double psi, k_sigma;  // stress ratio of its edges, buckling factor
    double lam, rho;

    double Area() const { return wide * high; }
};

struct StandardSection {
    Kind kind;
    double fy, eps, e, eta;
    double gammam0, gammam1;
    bool elastic;                    // the user designs classes 1 and 2 elastically
    bool linear;                     // the user asks for the sum of the ratios, 6.2.1 (7)
    bool whole_flanges, whole_webs;  // the user leaves out their buckling
    double h, b, tw, hw, d, r;
    double webs;                       // number of them
    Flange top, bottom;                // of channels and doubly symmetric sections alike
    double above, below, left, right;  // edges from the centroid, sizes
    double a, iy, iz, it, iw;
    double wply, wplz;
    double printed_wely, printed_welz;  // of tables that have them; else 0
    double avz, avy;                    // shear areas, 6.2.6 (3)
    double centre_y, centre_z;          // shear centre from the centroid, sizes with sign
    double zj;                          // z upwards; under hogging moments it counts as -zj_hogging
    double zj_hogging;                  // zj, but by the formula of the program (D57)
    std::array<Wall, kMaxWalls> walls;
    std::size_t wall_count;
    std::array<Strip, kMaxStrips> strips;  // T, hat beams, unequal boxes, stiffened plates
    std::size_t strip_count;
    bool upgrade;  // hat beams: webs of class 3 count as class 2, 6.2.2.4 (1)
    struct EnteredClasses {
        int n, my, mz;
    } entered;  // general profile
    struct Legs {
        double iu, iv, alfa;  // mm4, radians from y to u
        bool equal;
        bool two_bolts;  // in one leg at the ends, BB.1.2
        double to_v;     // from the heel to the v axis, by the table
    } angle;

    bool Closed() const
    {
        return kind == Kind::hollow || kind == Kind::box || kind == Kind::tube ||
               kind == Kind::hat || kind == Kind::box_unequal;
    }
    bool ISection() const { return kind == Kind::i_rolled || kind == Kind::i_welded; }
    bool Angle() const { return kind == Kind::angle; }
    // T and angles have no warping to speak of, and none is counted.
    bool Warps() const { return kind != Kind::flat && kind != Kind::angle; }
    bool OfStrips() const { return strip_count > 0; }
    // A web whose stresses depend on the plastic axis of the section, 5.5.2.
    bool UnequalFlanges() const
    {
        return kind == Kind::i_single || kind == Kind::hat || kind == Kind::box_unequal ||
               kind == Kind::plate;
    }
    // Sections that 6.3.3 (1) covers.
    bool DoublySymmetric() const
    {
        return ISection() || kind == Kind::hollow || kind == Kind::box || kind == Kind::tube ||
               kind == Kind::flat || kind == Kind::general;
    }
    double Wely(bool sagging) const
    {
        return printed_wely > 0 ? printed_wely : iy / (sagging ? above : below);
    }
    double LeastWely() const { return Wely(above > below); }
    double LeastWelz() const
    {
        return printed_welz > 0 ? printed_welz : iz / (left > right ? left : right);
    }
    double PolarSquared() const
    {
        return (iy + iz) / a + centre_y * centre_y + centre_z * centre_z;
    }
};

// Whether the rules of the standard cover the kind here.
bool Covered(const ProjectState& s);

// After the program's section step (the record, fyk, gammam0). The reason where the standard gives
// no value: Table 3.1 ends at 80 mm and, for MH and MLH grades, at 40 mm.
// Deviations D21, D22, D175.
std::string_view NoSectionReason(const Library& library, const ProjectState& s, const Basis& basis);
// Deviations D20, D21, D24, D29, D43, D51, D53, D54, D57, D169, D186.
StandardSection SectionOf(const Library& library, const ProjectState& s, const Basis& basis);

}  // namespace kestrum::standard
