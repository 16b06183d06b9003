#include "design/p31bas_tube.h"

#include "design/class_limits.h"
#include "design/p01bas_rolled_i.h"
#include "design/resistance.h"
#include "design/section_control.h"
#include "design/shear.h"

#include <cmath>
#include <numbers>

namespace kestrum {

namespace {

// One class for all forces.
i16 Class(ProjectState& s, float, float)
{
    return s.classn;
}

// EN 1993-1-1, 6.2.8 (3), the strength of the whole tube reduced. The class plays no part.
void ReduceMyTube(ProjectState& s)
{
    s.myrdv = s.myrd * (1 - ShearReduction(s.vzed, s.vzrd));
}

void ReduceMzTube(ProjectState& s)
{
    s.mzrdv = s.mzrd * (1 - ShearReduction(s.vyed, s.vyrd));
}

// 1 - n^1.7, the interaction of the plastic tube; EN 1993-1-1:2005 has no formula for it.
double AxialShare(const ProjectState& s)
{
    return 1 - std::pow(std::abs(s.ned / s.nplrd), 1.7);
}

void CalcMNyTube(ProjectState& s)
{
    s.mnyrd = s.myrdv * AxialShare(s);
}

void CalcMNzTube(ProjectState& s)
{
    s.mnzrd = s.mzrdv * AxialShare(s);
}

// EN 1993-1-1, 6.2.9.1 (6).
void Exponents(ProjectState& s)
{
    s.alfaexp = 2;
    s.betaexp = 2;
}

}  // namespace

// EN 1993-1-1, Table 5.2 and 6.2.3 to 6.2.6.
//   in   d, tw [mm]; a [mm2]; wely, wply [mm3]; fyk [MPa]; gammam0, gammam1 [-]; checkelastic
//   out  classes; nplrd, ncrd, vzrd .. vcyrd [kN]; mplyrd .. mzrd [kNm]; avz, avy [mm2]; shearnote
//
// Deviation D175: a tube of class 4 keeps the gross area and the elastic modulus; the standard
// sends it to EN 1993-1-6.
void CalcResistanceTube(ProjectState& s)
{
    const double eps2 = 1.0 * s.eps * s.eps;
    s.classn = ClassAtMost(1.0 * s.d / s.tw, 50 * eps2, 70 * eps2, 90 * eps2);
    s.classmy = s.classmz = s.classn;
    s.classflange = s.classweb = s.classn;

    s.nplrd = AxialResistance(s, s.a);
    s.ncrd = s.nplrd;
    s.mplyrd = s.mplzrd = MomentResistance(s, s.wply);
    s.melyrd = s.melzrd = MomentResistance(s, s.wely);
    s.meffyrd = s.meffzrd = s.melyrd;
    s.wyused = s.wzused = ModulusByClass(s, s.classmy, s.wply, s.wely, s.wely);
    s.myrd = s.mzrd = MomentResistance(s, s.wyused);
    SetStabilityResistances(s);

    s.avz = s.avy = 2 * s.a / std::numbers::pi;
    s.vzrd = ShearResistance(s, s.avz);
    s.vplzrd = s.vplyrd = s.vyrd = s.vbrd = s.vcyrd = s.vzrd;
    s.shearnote = ")";
}

// EN 1993-1-1, 6.2.
//
// Deviation D176: the shear forces of the two directions act each for itself, in the shear ratio as
// in the reduction of the moments; on a tube the standard's resistance is that of their resultant.
void ControlTube(ProjectState& s)
{
    constexpr SectionRoutines kRoutines{
        .class_y = Class,
        .class_z = Class,
        .reduce_my = ReduceMyTube,
        .reduce_mz = ReduceMzTube,
        .reduce_mny = CalcMNyTube,
        .reduce_mnz = CalcMNzTube,
        .shear = nullptr,
        .exponents = Exponents,
        .enter = nullptr,
        .placed_axial = true,
        .shear_labels = true,
        .y_only = false,
        .tube_exponents = true,
    };
    ControlSection(s, kRoutines);
}

}  // namespace kestrum
