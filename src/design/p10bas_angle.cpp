#include "design/p10bas_angle.h"

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

bool Equal(const ProjectState& s)
{
    return Traits(s).shape.equal;
}

// rho of a leg whose straight part is c.
double LegRho(const ProjectState& s, double c)
{
    return s.checkflangebuck == kTrue ? 1.0
                                      : RhoOutstand(PlateSlenderness(c, s.tw, s.eps, kOutstand));
}

// classn and aeff. EN 1993-1-1, Table 5.2, sheet 3; EN 1993-1-5, 4.4.
//
// Deviation D181: legs of class 4 are reduced by their straight parts, b - t - r, where EN
// 1993-1-5, 4.4 (2) takes b; the area only is reduced, neither the moduli nor, for unequal legs, by
// the shift of the centroid, 6.2.9.3 (2). The limit h/t of unequal legs is not tested.
void ClassifyAngle(ProjectState& s)
{
    const double h = s.h, b = s.b, t = s.tw, eps = s.eps;
    const bool legs = !Equal(s) || h / t <= 15 * eps;
    s.classn = legs && (b + h) / (2 * t) <= 11.5 * eps ? 3 : 4;
    s.aeff = s.a;
    if (s.classn == 4) {
        const double lostb = s.cb * (1 - LegRho(s, s.cb)) * t;  // mm2
        const double losth = s.ch * (1 - LegRho(s, s.ch)) * t;
        s.aeff = F32(s.a - lostb - losth);
    }
    s.classmy = s.classmz = 3;
    s.classflange = s.classweb = s.classn;
}

void SetMoments(ProjectState& s)
{
    s.mry1 = MomentResistance(s, s.wy1);
    s.mry2 = MomentResistance(s, s.wy2);
    s.mrz1 = MomentResistance(s, s.wz1);
    s.mrz2 = MomentResistance(s, s.wz2);
    for (std::size_t i = 1; i <= 3; ++i) {
        s.mru[i] = MomentResistance(s, s.wu[i]);
        s.mrv[i] = MomentResistance(s, s.wv[i]);
    }
    s.wyused = s.wely;
    s.wzused = s.welz;
    s.mrely = MomentResistance(s, s.wely);
    s.mrelz = MomentResistance(s, s.welz);
    s.myrd = s.mplyrd = s.melyrd = s.meffyrd = s.mrely;
    s.mzrd = s.mplzrd = s.melzrd = s.meffzrd = s.mrelz;
}

// Elastic, of the parabola over a leg, EN 1993-1-1, 6.2.6 (4).
//
// Deviation D167: vcyrd of unequal legs, the resistance shown, is that of the leg h; the ratio of
// Vy takes the leg b.
void SetShear(ProjectState& s)
{
    s.avz = (1.0 * s.h - s.tw) * s.tw;
    s.avy = (1.0 * s.b - s.tw) * s.tw;
    s.vzrd = 1 / 1.5 * ShearResistance(s, s.avz);
    s.vyrd = 1 / 1.5 * ShearResistance(s, s.avy);
    s.vplzrd = s.vbrd = s.vcyrd = s.vzrd;
    s.shearnote = ")";
}

// A moment with the resistance of a point, kNm; sign: +1 or -1, as its stress counts there.
struct PointMoment {
    double m, sign, r;
    double Ratio() const { return sign * (m / r); }
};

// Utilisation at one point.
struct PointRatio {
    int point;
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

void TakePoint(ProjectState& s, int row, const PointRatio& point, Literal label, double x)
{
    if (!(point.ir() > RowRatio(s, row))) {
        return;
    }
    ResultRow& taken = TakeRow(s, row, point.ir());
    taken.label[0] = label;
    // Behind the terms the signs with which they add up to the ratio, for the reader.
    const double side = point.Sum() < 0 ? -1 : 1;
    const PointMoment &one = point.first, &two = point.second;
    if (point.single) {
        taken.calculation[0] = "{F}/{F}+{F}/{F} = ";
        taken.number = {s.ned, s.nrdint, two.m, two.r, -side, side * two.sign};
    } else {
        taken.calculation[0] = "{F}/{F}+{F}/{F}+{F}/{F} = ";
        taken.number = {s.ned, s.nrdint, one.m,           one.r,          two.m,
                        two.r, -side,    side * one.sign, side * two.sign};
    }
    taken.limit[0] = " ({r}L, point: {i}, Ch 6.2.1)";
    taken.place = {x, static_cast<double>(point.point)};
}

// Row 1.
//
// Deviation D182: an angle bent about y also bends about z, which this sum leaves out, and its
// signs take My the other way round than row 2. It stands beside the sum about the principal axes,
// which is that of the standard, and can only raise the result.
void ControlGeometricAxes(ProjectState& s, double n, double x)
{
    const double my = s.myed, mz = s.mzed;
    const std::array<PointRatio, 3> points{{
        {1, n, {my, 1, s.mry1}, {mz, -1, s.mrz1}, false},
        {2, n, {my, -1, s.mry2}, {mz, -1, s.mrz1}, false},
        {3, n, {my, -1, s.mry2}, {mz, 1, s.mrz2}, false},
    }};
    TakePoint(s, 1, Governing(points), "IR = NEd/NRd+My,Ed/My,Rd+Mz,Ed/Mz,Rd = ", x);
}

// Row 2, 6.2.1 (5).
void ControlPrincipalAxes(ProjectState& s, double n, double x)
{
    const double alfa = s.alfa * std::numbers::pi / 180;
    const double mu = s.myed * std::cos(alfa) + s.mzed * std::sin(alfa);
    const double mv = -s.myed * std::sin(alfa) + s.mzed * std::cos(alfa);
    const bool heel = Equal(s);  // the heel of equal legs lies on the u axis
    const std::array<PointRatio, 3> points{{
        {1, n, {mu, -1, s.mru[1]}, {mv, 1, s.mrv[1]}, false},
        {2, n, {mu, 1, s.mru[2]}, {mv, -1, s.mrv[2]}, heel},
        {3, n, {mu, 1, s.mru[3]}, {mv, 1, s.mrv[3]}, false},
    }};
    TakePoint(s, 2, Governing(points), "IR = NEd/NRd+Mu,Ed/Mu,Rd+Mv,Ed/Mv,Rd = ", x);
}

void TakeShear(ProjectState& s, Literal label, double v, double resistance, double x)
{
    const double ir = v / resistance;
    if (!(ir > s.irrow3)) {
        return;
    }
    ResultRow& row = TakeRow(s, 3, ir);
    row.label[0] = label;
    row.calculation[0] = "{F}/{F} = ";
    row.number = {v, resistance};
    row.limit[0] = " ({r}L; Ch 6.2.6)";
    row.place[0] = x;
}

}  // namespace

// EN 1993-1-1, 6.2.3 to 6.2.6.
//   in   family, section record; fyk [MPa]; gammam0, gammam1 [-]; checkflangebuck
//   out  classes; aeff [mm2]; nplrd, ncrd, vzrd .. vcyrd [kN]; mry1 .. mrv, mplyrd .. mzrd [kNm]
void CalcResistanceAngle(ProjectState& s)
{
    ClassifyAngle(s);
    s.nplrd = AxialResistance(s, s.a);
    s.ncrd = s.classn == 4 ? AxialResistance(s, s.aeff) : s.nplrd;
    SetMoments(s);
    SetStabilityResistances(s);
    SetShear(s);
}

// EN 1993-1-1, 6.2.
//
// Deviation D179: shear does not reduce the moments; the standard reduces them beyond half the
// shear resistance, 6.2.8 (2).
void ControlAngle(ProjectState& s)
{
    ClearSectionRows(s);
    s.nrdint = s.ned > 0 ? s.ncrd : s.nplrd;
    ControlAxial(s, true);
    const double n = -s.ned / s.nrdint;
    for (int k = 0; k <= s.npts; ++k) {
        const std::size_t index = CheckedIndex(k, s.xi.size());
        const double x = s.xi[index];
        s.myed = s.mysigned = s.mysec[index];  // these two keep their signs
        s.mzed = s.mzsec[index];
        s.vzed = std::abs(s.vzsec[index]);
        s.vyed = std::abs(s.vysec[index]);
        ControlGeometricAxes(s, n, x);
        ControlPrincipalAxes(s, n, x);
        TakeShear(s, "IR = Vz,Ed/Vz,Rd = ", s.vzed, s.vzrd, x);
        TakeShear(s, "IR = Vy,Ed/Vy,Rd = ", s.vyed, s.vyrd, x);
    }
    CloseSectionRows(s);
}

}  // namespace kestrum
