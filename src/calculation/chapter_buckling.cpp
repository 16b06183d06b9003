#include "calculation/chapters.h"
#include "calculation/parts.h"
#include "calculation/quantities.h"

#include "core/member_choices.h"
#include "sections/families.h"
#include "stability/buckling_rows.h"

#include <cmath>

namespace kestrum {

namespace {

struct Axis {
    std::string name;
    double factor, inertia, ncr, lam, chi, nbrd, alpha;
    Literal curve;
    double offset;  // of angles with two bolts, BB.1.2
};

// Squash load of the slenderness in kN.
Expr Squash(const ProjectState& s, const Quantities& q, bool gross)
{
    return (gross || s.classn < 4 ? q.a : Sym("A_eff", s.aeff)) * q.fy;
}

void AddAxis(const ProjectState& s, const Quantities& q, const Axis& axis, bool gross, Document& d)
{
    const std::string& n = axis.name;
    const double length = axis.factor * 1.0 * s.l;
    d.Add("L_cr," + n, Sym("k_cr," + n, axis.factor) * q.length, length, "m", "6.3.1.3");
    const Expr ncr = Sym("N_cr," + n, axis.ncr), lam = Sym("~λ_" + n, axis.lam);
    d.Add("N_cr," + n,
          Square(Pi()) * q.e * Sym("I_" + n, axis.inertia) / Square(Sym("L_cr," + n, length)) *
              Ten(-9),
          axis.ncr, "kN", "6.3.1.2 (1)");
    const Expr slenderness = Root(Squash(s, q, gross) / (ncr * Ten(3)));
    const bool bolts = Is(s, Kind::angle) && s.lopt == 2;
    d.Add("~λ_" + n, bolts ? axis.offset + 0.7 * slenderness : slenderness, axis.lam, "",
          bolts ? "BB.1.2 (2)" : "6.3.1.2 (1)");
    if (!(axis.lam > 0.2)) {
        d.Add("χ_" + n, axis.chi, "", "6.3.1.2 (4)", WithNumbers("slenderness of 0.2 or less"));
    } else {
        const Expr alpha = Sym("α", axis.alpha);
        const double phi = 0.5 * (1 + axis.alpha * (axis.lam - 0.2) + axis.lam * axis.lam);
        d.Add("Φ_" + n, 0.5 * (1 + alpha * (lam - 0.2) + Square(lam)), phi, "", "6.3.1.2 (1)",
              axis.curve.text().empty()
                  ? "no curve for this family, α = 0; D205"
                  : "curve " + std::string(axis.curve.text()) + ", Table 6.2");
        const Expr f = Sym("Φ_" + n, phi);
        d.Add("χ_" + n, Least({Num(1), 1 / (f + Root(Square(f) - Square(lam)))}), axis.chi, "",
              "6.3.1.2 (1), Eq (6.49)");
    }
    d.Add("N_b," + n + ",Rd", Sym("χ_" + n, axis.chi) * Sym("N_c,Rd", s.ncrd) * q.gm0 / q.gm1,
          axis.nbrd, "kN", "6.3.1.1 (3)");
}

void AddTorsion(const ProjectState& s, Document& d)
{
    if (!Traits(s).design.open || s.ncrt == 0) {
        return;
    }
    d.Part("Torsional buckling");
    const Quantities q(s);
    // Distance of centroid and shear centre.
    const double t = s.tw / 2.0;
    const double y0 = Is(s, Kind::channel)    ? static_cast<double>(s.ecg) + s.ys
                      : Is(s, Kind::angle)    ? std::hypot(s.ey - t, s.ez - t)
                      : Is(s, Kind::i_single) ? static_cast<double>(s.zshear)
                      : Is(s, Kind::tee)      ? s.zcog - s.tf / 2.0
                                              : 0.0;
    const std::string_view offset = Is(s, Kind::i_single) || Is(s, Kind::tee) ? "z_0" : "y_0";
    const Expr ip2 =
        Square(Step(d, "i_p", Root((Sym("I_y", s.iy) + Sym("I_z", s.iz)) / q.a), "mm", ""));
    const Expr i02 =
        y0 == 0 ? ip2 : Square(Step(d, "i_0", Root(ip2 + Square(Sym(offset, y0))), "mm", ""));
    const Expr twist = q.e / Num(2.6) * Sym("I_T", s.it);
    const Expr warping = Square(Pi()) * q.e * Sym("I_w", s.iw) / Square(Sym("L_T", s.lt)) * Ten(-6);
    const Expr torsion = s.iw > 0 ? twist + warping : twist;
    d.Add("N_cr,T", torsion / i02 * Ten(-3), s.ncrt, "kN", "6.3.1.4; EN 1993-1-3, 6.2.3 (5)",
          "D207: no resistance is formed from it");
    if (s.ncrtf != 0 && s.ncrtf < 9e24) {
        const bool tee = Is(s, Kind::tee);
        const Expr flexural = Sym(tee ? "N_cr,z" : "N_cr,y", tee ? s.ncrz : s.ncry);
        const Expr sum = flexural + Sym("N_cr,T", s.ncrt);
        d.Add("N_cr,TF",
              i02 / (2 * ip2) *
                  (sum - Root(Square(sum) - 4 * (ip2 / i02) * flexural * Sym("N_cr,T", s.ncrt))),
              s.ncrtf, "kN", "6.3.1.4; EN 1993-1-3, 6.2.3 (7)", tee ? "" : "D209");
    }
}

}  // namespace

void AddFlexuralBuckling(const ProjectState& s, char axis, Document& d)
{
    const Quantities q(s);
    switch (axis) {
    case 'y':
        AddAxis(s, q, {"y", s.ly, s.iy, s.ncry, s.lamy, s.chiy, s.nbyrd, s.alphay, s.curvey, 0.5},
                false, d);
        return;
    case 'z':
        AddAxis(s, q, {"z", s.lz, s.iz, s.ncrz, s.lamz, s.chiz, s.nbzrd, s.alphaz, s.curvez, 0.5},
                false, d);
        return;
    case 'u':
        AddAxis(s, q, {"u", s.ly, s.iu, s.ncru, s.lamu, s.chiu, s.nburd, s.alphaz, s.curvez, 0.35},
                true, d);
        return;
    default:
        AddAxis(s, q, {"v", s.lz, s.iv, s.ncrv, s.lamv, s.chiv, s.nbvrd, s.alphaz, s.curvez, 0.35},
                true, d);
    }
}

void AddFlexuralBuckling(const CalculatedMember& m, Document& d)
{
    const ProjectState& s = m.s;
    if (!m.stages.axial || !m.outcome.designed()) {
        return;
    }
    d.Chapter("Flexural buckling");
    const std::string_view axes = Is(s, Kind::angle) ? "yzuv" : "yz";
    for (const char axis : axes) {
        const bool about_y = axis == 'y' || axis == 'u';
        if (about_y ? BucklesAboutY(s) : BucklesAboutZ(s)) {
            d.Part(std::string("Buckling about ") + axis);
            AddFlexuralBuckling(s, axis, d);
        }
    }
    AddTorsion(s, d);
}

}  // namespace kestrum
