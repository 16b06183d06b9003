#pragma once

// Members for the stability tests: section values as printed in the usual tables, resistances by
// area or modulus times fy, no driver and no section routine in between.

#include "stability/buckling_curves.h"
#include "stability/buckling_resistance.h"
#include "support/members.h"
#include "support/rows.h"

#include <algorithm>
#include <cfenv>
#include <cmath>
#include <cstddef>
#include <string>

namespace kestrum::members {

// Curves and resistances of flexural buckling.
inline void ResistBuckling(ProjectState& s)
{
    BucklingCurves(s, s, s);
    BucklingResistance(s, s, s, s, s);
}

struct Section {
    double h, b, tw, tf;
    double a, iy, iz, it, iw;
    double wely, wply, welz, wplz;
};

// A member of this section, all of class 1, bent about y by loads in the shear centre.
inline Member Of(int family, float fyk, const Section& p)
{
    Member s = Member::Bare(family).Steel(fyk);
    s.ltbcurve = 3;
    s.loadlevel = 2;
    s.method = 2;
    s.lopt = 1;
    s.classn = s.classmy = s.classmz = 1;
    s.openprofile = s.hasyloads = s.mycurved = s.mzcurved = kTrue;
    s.h = static_cast<float>(p.h);
    s.b = static_cast<float>(p.b);
    s.tw = static_cast<float>(p.tw);
    s.tf = static_cast<float>(p.tf);
    s.tmax = std::max(s.tw, s.tf);
    s.a = s.aeff = static_cast<float>(p.a);
    s.iy = static_cast<float>(p.iy);
    s.iz = static_cast<float>(p.iz);
    s.it = static_cast<float>(p.it);
    s.iw = static_cast<float>(p.iw);
    s.wely = s.weffy = static_cast<float>(p.wely);
    s.wply = static_cast<float>(p.wply);
    s.welz = s.weffz = static_cast<float>(p.welz);
    s.wplz = static_cast<float>(p.wplz);
    s.wyused = p.wply;
    s.wzused = p.wplz;
    s.nplrd = s.ncrd = s.nrdm1 = p.a * s.fyk / 1000.0;
    s.mplyrd = s.myrd = s.myrdm1 = p.wply * s.fyk / 1e6;
    s.mplzrd = s.mzrd = s.mzrdm1 = p.wplz * s.fyk / 1e6;
    return s;
}

constexpr Section kHeb200{200,   200,     9,      15,     7810,   56.96e6, 20.03e6,
                          593e3, 171.1e9, 569600, 642500, 200300, 305800};
constexpr Section kShs150{150,    150, 6.3,    6.3,    3580,   12.23e6, 12.23e6,
                          19.1e6, 0,   163000, 192000, 163000, 192000};
constexpr Section kUpe300{300,   100,    9.5,    15,     5660,  78.2e6, 5.68e6,
                          315e3, 72.7e9, 522000, 613000, 75600, 136000};
constexpr Section kTube244{244.5,    244.5, 10,     10,     7367,   50.731e6, 50.731e6,
                           1.0146e8, 0,     414980, 550240, 414980, 550240};

inline Member Heb200()
{
    return Of(2, 355, kHeb200);
}

inline Member Shs150()
{
    Member s = Of(6, 355, kShs150);
    s.openprofile = kFalse;
    return s;
}

inline Member Upe300()
{
    Member s = Of(5, 355, kUpe300);
    s.ecg = 28.9f;
    s.ys = 36.2f;
    s.ltbcurve = 2;
    return s;
}

// Welded double-symmetric I 600x300x12x20.
inline Member Welded600()
{
    Member s = Of(21, 355,
                  {600, 300, 12, 20, 18720, 1.185e9, 9.008e7, 1.923e6, 7.569e12, 3.951e6, 4.421e6,
                   600500, 920200});
    return s;
}

// Single-symmetric I 600, top 200x20, bottom 400x20, web 560x12: class 3 about y for both signs.
// A 18720; zcog (8000 10 + 6720 300 + 4000 590)/18720 = 238.03; Iy 1.113e9, Iz 1.2008e8;
// Itop 20 200^3/12 = 1.3333e7, Ibot 1.0667e8, betaf 1/9, hs 580, zshear 580/9 + 10 - 238.03 =
// -163.6; psif (Itop - Ibot)/(Itop + Ibot) = -7/9; zjtop (2/9 - 1) 0.5 580 = -225.6, zjbot (16/9 -
// 1) 0.4 580 = 180.4; Iw 1.3333e7 1.0667e8/1.2e8 580^2 = 3.987e12; Wel 3.076e6 (top), 4.677e6
// (bottom).
inline Member Single600()
{
    Member s = Of(22, 355,
                  {600, 300, 12, 20, 18720, 1.1134e9, 1.2008e8, 1.923e6, 3.9872e12, 3.0758e6,
                   4.087e6, 600400, 1.02016e6});
    s.btop = 200;
    s.ttop = 20;
    s.bbot = 400;
    s.tbot = 20;
    s.zcog = 238.03f;
    s.zshear = static_cast<float>(580.0 / 9 + 10 - 238.03);
    s.psiftop = static_cast<float>(-7.0 / 9);
    s.psifbot = static_cast<float>(7.0 / 9);
    s.zjtop = static_cast<float>(-7.0 / 9 * 0.5 * 580);
    s.zjbot = static_cast<float>(7.0 / 9 * 0.4 * 580);
    s.wytop = s.wely;
    s.wybot = s.wely;
    s.wyused = s.wely;
    s.mytoprd = s.mybotrd = s.myrd = s.myrdm1 = s.wely * 355.0 / 1e6;
    s.classmy = s.classmytop = s.classmybot = 3;
    s.weffytop1 = 3.0e6f;
    s.weffytop2 = 4.6e6f;
    s.weffybot1 = 4.5e6f;
    s.weffybot2 = 2.9e6f;
    return s;
}

// L 100x100x10: A 1915, Iy = Iz 176.7e4, Iu 280.3e4, Iv 73.0e4, e 28.22.
inline Member Angle100()
{
    Member s =
        Of(10, 355,
           {100, 100, 10, 10, 1915, 1.767e6, 1.767e6, 63330, 5.556e7, 24620, 24620, 24620, 24620});
    s.iu = 2.803e6f;
    s.iv = 0.730e6f;
    s.ey = s.ez = 28.22f;
    s.alfa = 45.0f;
    s.classn = s.classmy = s.classmz = 3;
    s.mry1 = 8.739;
    s.mry2 = 22.23;
    s.mrz1 = 22.23;
    s.mrz2 = 8.739;
    s.mru = {0, 14.81, 0, 14.81};
    s.mrv = {0, 7.551, 6.493, 7.551};
    s.l = 2.0f;
    return s;
}

// Flat bar 150x12, S235: A 1800, Iy 12 150^3/12, Iz 150 12^3/12 = 21600, It 150 12^3/3 = 86400.
inline Member FlatBar150()
{
    Member s =
        Of(28, 355, {150, 12, 12, 0, 1800, 3.375e6, 21600, 86400, 0, 45000, 67500, 3600, 5400});
    s.ltbcurve = 2;
    s.l = 1.0f;
    return s;
}

// Uniform load in z on a pinned member: qL^2/8 at the middle.
inline void UniformLoad(ProjectState& s, double q)
{
    const double length = s.l;
    for (std::size_t j = 0; j < s.mydiag.size(); ++j) {
        const double x = static_cast<double>(j) / 50.0;
        s.mydiag[j] = static_cast<float>(q * length * length / 2.0 * x * (1.0 - x));
    }
    const double m = q * length * length / 8.0;
    s.mydesign = s.mymid = m;
    s.mymaxabs = std::abs(m);
    s.mymax = std::max(m, 0.0);
    s.mymin = std::min(m, 0.0);
    s.mycurved = kTrue;
    s.mydesignf = static_cast<float>(m);
}

// Given end moments about y.
inline void EndMoments(ProjectState& s, double first, double last)
{
    s.loadmode = 0;
    for (std::size_t j = 0; j < s.mydiag.size(); ++j) {
        s.mydiag[j] = static_cast<float>(first + (last - first) * static_cast<double>(j) / 50.0);
    }
    s.my0 = first;
    s.myl = last;
    s.mymid = (first + last) / 2.0;
    s.mymax = std::max({first, last, 0.0});
    s.mymin = std::min({first, last, 0.0});
    s.mydesign = std::abs(s.mymax) > std::abs(s.mymin) ? s.mymax : s.mymin;
    s.mydesignf = static_cast<float>(s.mydesign);
    const double big = std::abs(last) > std::abs(first) ? last : first;
    s.psiy = big == 0 ? 0 : (big == last ? first : last) / big;
    s.mylinear = kTrue;
}

inline void MomentZ(ProjectState& s, double mz)
{
    s.mzdesign = static_cast<float>(mz);
    s.mzmaxabs = mz;
    s.mzmid = mz;
}

constexpr i16 kMethods[] = {1, 2};
constexpr int kFailures = FE_DIVBYZERO | FE_INVALID | FE_OVERFLOW;

// HEB 200, S355, L 5, pinned, q 10 on the top flange, N 100.
inline Member BeamColumn(i16 method)
{
    Member s = Heb200();
    UniformLoad(s, 10);
    s.ned = 100;
    s.ltb = 1;
    s.loadlevel = 1;
    s.method = method;
    return s;
}

}  // namespace kestrum::members
