#include "design/angle_section.h"

#include "core/arithmetic_trap.h"
#include "design/local_buckling.h"
#include "design/resistance.h"
#include "design/section_control.h"
#include "sections/families.h"

#include <array>
#include <cmath>
#include <numbers>

namespace kestrum {

namespace {

bool Equal(const Inputs& in)
{
    return Traits(in).shape.equal;
}

// rho of a leg whose straight part is c.
double LegRho(const Inputs& in, const SectionRecord& section, double c)
{
    return in.checkflangebuck == kTrue
               ? 1.0
               : RhoOutstand(PlateSlenderness(c, section.tw, section.eps, kOutstand));
}

// classn and aeff. EN 1993-1-1, Table 5.2, sheet 3; EN 1993-1-5, 4.4.
//
// Deviation D181: legs of class 4 are reduced by their straight parts, b - t - r, where EN
// 1993-1-5, 4.4 (2) takes b; the area only is reduced, neither the moduli nor, for unequal legs, by
// the shift of the centroid, 6.2.9.3 (2). The limit h/t of unequal legs is not tested.
void ClassifyAngle(const Inputs& in, SectionRecord& section)
{
    const double h = section.h, b = section.b, t = section.tw, eps = section.eps;
    const bool legs = !Equal(in) || h / t <= 15 * eps;
    section.classn = legs && (b + h) / (2 * t) <= 11.5 * eps ? 3 : 4;
    section.aeff = section.a;
    if (section.classn == 4) {
        const double lostb = section.cb * (1 - LegRho(in, section, section.cb)) * t;  // mm2
        const double losth = section.ch * (1 - LegRho(in, section, section.ch)) * t;
        section.aeff = F32(section.a - lostb - losth);
    }
    section.classmy = section.classmz = 3;
    section.classflange = section.classweb = section.classn;
}

void SetMoments(const Inputs& in, const SectionRecord& section, Resistances& resistances)
{
    resistances.mry1 = MomentResistance(in, section.wy1);
    resistances.mry2 = MomentResistance(in, section.wy2);
    resistances.mrz1 = MomentResistance(in, section.wz1);
    resistances.mrz2 = MomentResistance(in, section.wz2);
    for (std::size_t i = 1; i <= 3; ++i) {
        resistances.mru[i] = MomentResistance(in, section.wu[i]);
        resistances.mrv[i] = MomentResistance(in, section.wv[i]);
    }
    resistances.wyused = section.wely;
    resistances.wzused = section.welz;
    resistances.mrely = MomentResistance(in, section.wely);
    resistances.mrelz = MomentResistance(in, section.welz);
    resistances.myrd = resistances.mplyrd = resistances.melyrd = resistances.meffyrd =
        resistances.mrely;
    resistances.mzrd = resistances.mplzrd = resistances.melzrd = resistances.meffzrd =
        resistances.mrelz;
}

// Elastic, of the parabola over a leg, EN 1993-1-1, 6.2.6 (4).
//
// Deviation D167: vcyrd of unequal legs, the resistance shown, is that of the leg h; the ratio of
// Vy takes the leg b.
void SetShear(const Inputs& in, const SectionRecord& section, Resistances& resistances,
              SectionChecks& checks)
{
    resistances.avz = (1.0 * section.h - section.tw) * section.tw;
    resistances.avy = (1.0 * section.b - section.tw) * section.tw;
    resistances.vzrd = 1 / 1.5 * ShearResistance(in, resistances.avz);
    resistances.vyrd = 1 / 1.5 * ShearResistance(in, resistances.avy);
    resistances.vplzrd = resistances.vbrd = resistances.vcyrd = resistances.vzrd;
    checks.shearnote = ")";
}

// A moment with the resistance of a point, kNm; sign: +1 or -1, as its stress counts there.
struct PointMoment {
    double m, sign, r;
    double Ratio() const { return sign * (m / r); }
};

// Utilisation at one point.
struct PointRatio {
    i16 point;
    double n;                   // -NEd/NRd
    PointMoment first, second;  // about y or u, about z or v
    bool single;  // the point lies on the first axis, so that only the second moment stresses it

    double Sum() const { return n + (single ? 0.0 : first.Ratio()) + second.Ratio(); }
    double ir() const { return std::abs(Sum()); }
};

// The first of the points with the largest ratio.
PointRatio Governing(const std::array<PointRatio, 3>& points)
{
    PointRatio most = points[0];
    for (const PointRatio& point : points) {
        if (point.ir() > most.ir()) {
            most = point;
        }
    }
    return most;
}

void TakePoint(const Inputs& in, const Forces& forces, SectionChecks& checks, CheckId id,
               CheckForm form, const PointRatio& point, double x)
{
    Check* const check = TakeCheck(in, checks, id, point.ir());
    if (check == nullptr) {
        return;
    }
    // Behind the terms the signs with which they add up to the ratio, for the reader.
    const double side = point.Sum() < 0 ? -1 : 1;
    const PointMoment &one = point.first, &two = point.second;
    if (point.single) {
        FillAtSection(*check, CheckForm::heel,
                      {forces.ned, checks.nrdint, two.m, two.r, -side, side * two.sign}, x);
    } else {
        FillAtSection(*check, form,
                      {forces.ned, checks.nrdint, one.m, one.r, two.m, two.r, -side,
                       side * one.sign, side * two.sign},
                      x);
    }
    check->place.kind = CheckPlace::Kind::point;
    check->place.number = point.point;
}

// Row 1.
//
// Deviation D182: an angle bent about y also bends about z, which this sum leaves out, and its
// signs take My the other way round than row 2. It stands beside the sum about the principal axes,
// which is that of the standard, and can only raise the result.
void ControlGeometricAxes(const Inputs& in, const Resistances& resistances, const Forces& forces,
                          SectionChecks& checks, double n, double x)
{
    const double my = checks.myed, mz = checks.mzed;
    const std::array<PointRatio, 3> points{{
        {1, n, {my, 1, resistances.mry1}, {mz, -1, resistances.mrz1}, false},
        {2, n, {my, -1, resistances.mry2}, {mz, -1, resistances.mrz1}, false},
        {3, n, {my, -1, resistances.mry2}, {mz, 1, resistances.mrz2}, false},
    }};
    TakePoint(in, forces, checks, CheckId::leg_axes, CheckForm::leg_axes, Governing(points), x);
}

// Row 2, 6.2.1 (5).
void ControlPrincipalAxes(const Inputs& in, const SectionRecord& section,
                          const Resistances& resistances, const Forces& forces,
                          SectionChecks& checks, double n, double x)
{
    const double alfa = section.alfa * std::numbers::pi / 180;
    const double mu = checks.myed * std::cos(alfa) + checks.mzed * std::sin(alfa);
    const double mv = -checks.myed * std::sin(alfa) + checks.mzed * std::cos(alfa);
    const bool heel = Equal(in);  // the heel of equal legs lies on the u axis
    const std::array<PointRatio, 3> points{{
        {1, n, {mu, -1, resistances.mru[1]}, {mv, 1, resistances.mrv[1]}, false},
        {2, n, {mu, 1, resistances.mru[2]}, {mv, -1, resistances.mrv[2]}, heel},
        {3, n, {mu, 1, resistances.mru[3]}, {mv, 1, resistances.mrv[3]}, false},
    }};
    TakePoint(in, forces, checks, CheckId::principal_axes, CheckForm::principal_axes,
              Governing(points), x);
}

void TakeShear(const Inputs& in, SectionChecks& checks, CheckId id, CheckForm form, double v,
               double resistance, double x)
{
    if (Check* const check = TakeCheck(in, checks, id, v / resistance)) {
        FillAtSection(*check, form, {v, resistance}, x);
    }
}

}  // namespace

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   family, section record; fyk [MPa]; gammam0, gammam1 [-]; checkflangebuck
//   out  classes; aeff [mm2]; nplrd, ncrd, vzrd .. vcyrd [kN]; mry1 .. mrv, mplyrd .. mzrd [kNm]
void CalcResistanceAngle(const Inputs& in, SectionRecord& section, Resistances& resistances,
                         SectionChecks& checks)
{
    ClassifyAngle(in, section);
    resistances.nplrd = AxialResistance(in, section.a);
    resistances.ncrd = section.classn == 4 ? AxialResistance(in, section.aeff) : resistances.nplrd;
    SetMoments(in, section, resistances);
    SetStabilityResistances(in, resistances);
    SetShear(in, section, resistances, checks);
}

// EN 1993-1-1, 6.2.
//
// Deviation D179: shear does not reduce the moments; the standard reduces them beyond half the
// shear resistance, 6.2.8 (2).
void ControlAngle(const Inputs& in, SectionRecord& section, Resistances& resistances,
                  const Forces& forces, SectionChecks& checks, PassOutcome&)
{
    ClearSectionRows(checks);
    checks.nrdint = forces.ned > 0 ? resistances.ncrd : resistances.nplrd;
    ControlAxial(in, resistances, forces, checks, true);
    const double n = -forces.ned / checks.nrdint;
    for (int k = 0; k <= forces.npts; ++k) {
        const std::size_t index = CheckedIndex(k, forces.xi.size());
        const double x = forces.xi[index];
        checks.myed = checks.mysigned = forces.mysec[index];  // these two keep their signs
        checks.mzed = forces.mzsec[index];
        checks.vzed = std::abs(forces.vzsec[index]);
        checks.vyed = std::abs(forces.vysec[index]);
        ControlGeometricAxes(in, resistances, forces, checks, n, x);
        ControlPrincipalAxes(in, section, resistances, forces, checks, n, x);
        TakeShear(in, checks, CheckId::vz, CheckForm::vz, checks.vzed, resistances.vzrd, x);
        TakeShear(in, checks, CheckId::vy, CheckForm::vy, checks.vyed, resistances.vyrd, x);
    }
    CloseSectionRows(checks);
}

}  // namespace kestrum
