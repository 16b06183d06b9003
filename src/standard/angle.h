#pragma once

// Angles by their principal axes, EN 1993-1-1, 6.2.1 (5): heel on the lower left, leg h upright,
// leg b lying. Moments about y and z as the program has them: a positive My compresses the upper
// edge, a positive Mz the left one. N, mm, MPa.

#include "standard/section.h"

#include <array>
#include <vector>

namespace kestrum::standard {

void SetAngle(const ProjectState& s, StandardSection& q);

// An outermost corner of the legs, whose toes are not rounded.
struct AngleCorner {
    double s, w;          // along the u axis and from it
    bool upright, lying;  // part of the leg h, of the leg b
};

// Whole, or with effective legs.
struct AngleSection {
    double a;
    double yc, zc;        // centroid from that of the gross section
    double iu, iv, alfa;  // u turned by alfa from y towards z, radians
    double cosine, sine;
    std::array<AngleCorner, 5> corners;

    bool Shifted() const { return yc != 0 || zc != 0; }
};
// Deviation D55: the program has the tips at mid-thickness.
AngleSection WholeAngle(const StandardSection& q, const Basis& basis);
// EN 1993-1-5, 4.4 (2): each leg by its whole length, in uniform compression. Deviation D181: the
// program reduces the straight parts of the legs, and the area only.
// `lost`, where it is asked for, takes the parts that do not count.
AngleSection EffectiveAngle(const StandardSection& q, const Basis& basis,
                            std::vector<LostPart>* lost = nullptr);

// Of a pair of moments about y and z.
struct PrincipalMoments {
    double u, v;
};
// The curvature about y or z of an angle that is free to move sideways, as that of a moment about
// the axis alone: `own` times the moment about it and `other` times that about the other axis.
struct Coupling {
    double own, other;
};
Coupling CouplingOf(const AngleSection& angle, double inertia, bool about_y);

PrincipalMoments TurnMoments(const AngleSection& angle, double my, double mz);

// Forces at a section; what shear takes of the strength of the leg h (Vz) and of the leg b (Vy).
struct AngleForces {
    double n, my, mz;
    double rho_z, rho_y;
};
// Largest stress of the corners as share of the strength fy/gammaM0. Where the legs are not whole,
// a compressive N acts beside the centroid, in the unfavourable sense (6.2.9.3 (2)).
// `worst`, where it is asked for, takes what stands behind it.
struct CornerTerms {
    double n, my, mz;  // N, Nmm, with their signs
    double ey, ez;     // of n beside the centroid, in the sense that is unfavourable
    double mu, mv;     // of all of them
    double a, iu, iv, alfa;
    double w, s;  // of the corner
    double rho;
};
double AngleUse(const StandardSection& q, const AngleSection& angle, const AngleForces& f,
                CornerTerms* worst = nullptr);

// Sum about y and z that the program has beside it (D182); n as share of its resistance.
double AngleSumByAxes(const StandardSection& q, double n, double my, double mz);

// Elastic moduli: of the edge that Mu compresses, of the furthest edge about v.
double CompressedModulusU(const AngleSection& angle, bool positive);
double LeastModulusV(const AngleSection& angle);

// zj of bending about u, by the middles of the legs; positive where a positive Mu compresses the
// larger part.
double AsymmetryOfAngle(const StandardSection& q);

}  // namespace kestrum::standard
