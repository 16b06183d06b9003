#pragma once

// Resistances of the section for one combination, EN 1993-1-1, 6.2. N and Nmm.

#include "standard/angle.h"
#include "standard/effective.h"

#include <optional>

namespace kestrum::standard {

// The section with all that depends on it alone; made once for a member.
struct PreparedSection {
    StandardSection q;
    EffectiveValues effective;
    int class_n;
    AngleSection whole_angle, effective_angle;  // of angles, about u and v
    double stocky_area;                         // in compression up to class 3, mm2
    Flange pressed_top, pressed_bottom;         // as they count where they are compressed

    const AngleSection& AngleOf(int cls) const { return cls == 4 ? effective_angle : whole_angle; }
};
PreparedSection Prepare(const StandardSection& q, const Basis& basis);

// Of a class: plastic, elastic, effective. Angles: about u and v.
double ModulusY(const PreparedSection& p, int cls, bool sagging);
double ModulusYCompressed(const PreparedSection& p, int cls, bool sagging);  // 6.3.2.2 (1)
double ModulusZ(const PreparedSection& p, int cls);
double CompressedArea(const PreparedSection& p, int cls);

// Share of the yield strength that shear takes from the parts that carry it, 6.2.8.
struct ShearShares {
    double z = 0, y = 0;
};

// Resistances of a section whose shear areas have the strength (1 - rho) fy.
struct ReducedResistance {
    double n, my, mz;
};
// Deviations D151, D161.
ReducedResistance ResistanceBeside(const PreparedSection& p, int cls, const ShearShares& rho,
                                   bool compressed, bool sagging, const Basis& basis);

// EN 1993-1-1, 6.2.6 and EN 1993-1-5, 5.2.
struct ShearInputs {
    double entered;   // spacing of transverse stiffeners, mm
    double supports;  // distance of the supports, mm
    bool stiffened, rigid_end_post;

    double Spacing() const { return stiffened ? entered : supports; }
};
struct ShearResistance {
    double total;  // of the utilisation
    double web;    // Vbw,Rd of slender webs, else that of 6.2.6
    bool slender;  // EN 1993-1-5, 5.1 (2)
};
// What stands behind the resistance of a web that buckles, EN 1993-1-5, 5.2 to 5.4. N, mm.
struct ShearTerms {
    double k, lam, factor;  // k_tau, slenderness and chi_w
    double web;             // Vbw,Rd
    Flange flange;          // the weaker one, as it counts
    double spacing, mf;     // of the stiffeners; Mf,Rd
    double flanges;         // Vbf,Rd
    double limit;           // of both parts together, Eq (5.1)
};
// Nothing where the web is stocky or carries no shear by itself. Deviations D30, D31, D154, D159,
// D190, D199.
std::optional<ShearTerms> ShearTermsAlongZ(const PreparedSection& p, const ShearInputs& in,
                                           double n, double my, const Basis& basis);

// Along z; n and my (sizes) enter the part of the flanges.
// Deviations D30, D31, D45 to D47, D152, D154, D158, D159, D172, D190, D199.
ShearResistance ShearAlongZ(const PreparedSection& p, const ShearInputs& in, double n, double my,
                            const Basis& basis);
ShearResistance ShearAlongY(const PreparedSection& p, const ShearInputs& in, const Basis& basis);

// Areas of both flanges beside N and My: a compressed one counts with its effective area.
struct FlangeAreas {
    double top, bottom;
};
FlangeAreas FlangeAreasUnder(const PreparedSection& p, double n, double my);

// EN 1993-1-5, 7.1: moment of the flanges, reduced by N, and of flanges and whole web. A flange
// that is compressed counts with its effective area, a stretched one as a whole.
double FlangeMoment(const PreparedSection& p, double n, double my, const Basis& basis);
double FlangeAndWebMoment(const PreparedSection& p, double n, double my);

}  // namespace kestrum::standard
