#include "calculation/chapters.h"
#include "calculation/parts.h"

#include "core/member_choices.h"
#include "report/stages.h"
#include "sections/families.h"
#include "stability/buckling_resistance.h"
#include "stability/interaction_annex_a.h"

#include <cmath>

namespace kestrum {

namespace {

constexpr std::string_view kA1 = "Table A.1", kA2 = "Table A.2", kB1 = "Table B.1",
                           kB3 = "Table B.3";

struct Factors {
    const ProjectState& s;
    Document& d;

    void Add(std::string_view symbol, const Expr& formula, double value, std::string_view clause,
             Line remark = {}) const
    {
        d.Add(symbol, formula, value, "", std::string(clause), std::move(remark));
    }

    // NEd over the critical force.
    Expr Share(std::string_view of, double ncr) const
    {
        return Sym("N_Ed", s.ned) / Sym("N_cr," + std::string(of), ncr);
    }
};

// --- Annex A -------------------------------------------------------------------------------------

// Cm,0 of one axis. D217.
void AddCm0(const Factors& f, bool y)
{
    const ProjectState& s = f.s;
    const std::string axis = y ? "y" : "z";
    const MomentShape shape = y ? ShapeY(s) : ShapeZ(s);
    const double cm0 = y ? s.cmy0 : s.cmz0;
    const Expr n = f.Share(axis, y ? s.ncry : s.ncrz);
    const Expr psi = Sym("ψ_" + axis, shape.psi);
    f.d.Add("ψ_" + axis, shape.psi, "", std::string(kA2),
            Line("end moments ") + NumberLine(shape.first) + Line(" and ") +
                NumberLine(shape.last) + Line(" kNm"));
    const Expr straight = 0.79 + 0.21 * psi + 0.36 * (psi - Num(0.33)) * n;
    const bool loads = s.loadmode == 1;
    Expr formula = straight;
    if (loads && shape.first == 0 && shape.last == 0) {
        formula = shape.curved ? 1 + 0.03 * n : 1 - 0.18 * n;
    } else if (loads && !shape.linear) {
        const Expr stiffness = Square(Pi()) * Sym("E", s.e) * Sym("I_" + axis, y ? s.iy : s.iz);
        const Expr ratio = stiffness * Sym(y ? "δ_z" : "δ_y", shape.deflection) /
                           (Square(Sym("L", s.l)) * Sym("M_" + axis + ",Ed", shape.moment)) *
                           Ten(-12);
        formula = 1 + (ratio - Num(1)) * n;
    }
    f.Add("C_m" + axis + ",0", formula, cm0, kA2);
}

// (1 - N/Ncr,z)(1 - N/Ncr,TF); the second factor is 1 where torsion is not coupled.
Expr FreeZ(const Factors& f)
{
    const Expr z = 1 - f.Share("z", f.s.ncrz);
    return f.s.ncrtf < kNeverGoverns ? z * (1 - f.Share("TF", f.s.ncrtf)) : z;
}

void AddEquivalent(const Factors& f)
{
    const ProjectState& s = f.s;
    AddCm0(f, true);
    AddCm0(f, false);
    const double c1 = 1 / (static_cast<double>(s.kc) * s.kc);
    f.Add("a_LT", Largest({Num(0), 1 - Sym("I_T", s.it) / Sym("I_y", s.iy)}), s.alt, kA1);
    const double twists = (1 - s.ned / s.ncrz) * (1 - s.ned / s.ncrtf);
    const double limit = 0.2 * std::sqrt(c1) * std::sqrt(std::sqrt(twists));
    const Expr lam0 = Sym("~λ_0", s.lam0);
    f.d.Add("~λ_0", s.lam0, "", std::string(kA1), "under uniform moment");
    f.Add("~λ_0,lim", 0.2 * Root(Sym("C_1", c1)) * Root(Root(FreeZ(f))), limit, kA1);
    if (s.lam0 <= limit) {
        f.Add("C_my", Sym("C_my,0", s.cmy0), s.cmy, kA1);
        f.d.Add("C_mLT", s.cmlt, "", std::string(kA1));
    } else {
        const Expr weight = Root(Sym("ε_y", s.epsy)) * Sym("a_LT", s.alt);
        if (s.ned != 0) {
            f.Add("ε_y",
                  Size(Sym("M_y,Ed", s.mydesign)) * Sym("A", s.a) /
                      (Sym("N_Ed", s.ned) * Sym(s.classmy <= 3 ? "W_el,y" : "W_eff,y",
                                                s.classmy <= 3 ? s.wely : s.weffy)) *
                      Ten(3),
                  s.epsy, kA1);
        }
        f.Add("C_my", Sym("C_my,0", s.cmy0) + (1 - Sym("C_my,0", s.cmy0)) * weight / (1 + weight),
              s.cmy, kA1);
        f.Add("C_mLT",
              Largest({Num(1), Square(Sym("C_my", s.cmy)) * Sym("a_LT", s.alt) / Root(FreeZ(f))}),
              s.cmlt, kA1);
    }
    f.Add("C_mz", Sym("C_mz,0", s.cmz0), s.cmz, kA1);
}

void AddPlasticFactors(const Factors& f)
{
    const ProjectState& s = f.s;
    const Expr wy = Sym("w_y", s.wy), wz = Sym("w_z", s.wz), npl = Sym("n_pl", s.npl);
    const Expr lam = Sym("~λ_max", s.lammax), lamz = Sym("~λ_z", s.lamz);
    const Expr lam0 = Sym("~λ_0", s.lam0), alt = Sym("a_LT", s.alt);
    const Expr wely = Sym("W_el,y", s.wely), wply = Sym("W_pl,y", s.wply);
    const Expr welz = Sym("W_el,z", s.welz), wplz = Sym("W_pl,z", s.wplz);
    f.Add("w_y", Least({Num(1.5), wply / wely}), s.wy, kA1);
    f.Add("w_z", Least({Num(1.5), wplz / welz}), s.wz, kA1);
    f.Add("n_pl", Sym("N_Ed", s.ned) / Sym("N_c,Rd", s.ncrd), s.npl, kA1, "D219");
    f.Add("~λ_max", Largest({Sym("~λ_y", s.lamy), lamz}), s.lammax, kA1);
    const double factor = s.gammam0 / s.gammam1;
    const Expr mply = Sym("M_pl,y,Rd", s.mplyrd * factor),
               mplz = Sym("M_pl,z,Rd", s.mplzrd * factor);
    const Expr my = Size(Sym("M_y,Ed", s.mydesign)) / (Sym("χ_LT,mod", s.xlt) * mply);
    const Expr mz = Sym("M_z,Ed", s.mzdesign) / mplz;
    const Expr cmy = Sym("C_my", s.cmy), cmz = Sym("C_mz", s.cmz);
    const Expr four = Power(lamz, Num(4)), five = Num(5);
    f.Add("b_LT", 0.5 * alt * Square(lam0) * my * mz, s.blt, kA1);
    f.Add("c_LT", 10 * alt * Square(lam0) / (5 + four) * (my / cmy), s.clt, kA1);
    f.Add("d_LT", 2 * alt * lam0 / (0.1 + four) * (my / cmy) * (mz / cmz), s.dlt, kA1);
    f.Add("e_LT", 1.7 * alt * lam0 / (0.1 + four) * (my / cmy), s.elt, kA1);
    const auto both = [&](const Expr& cm, const Expr& w) {
        return 2 - 1.6 / w * Square(cm) * (lam + Square(lam));
    };
    const auto cross = [&](const Expr& cm, const Expr& w) {
        return 2 - 14 * Square(cm) * Square(lam) / Power(w, five);
    };
    f.Add("C_yy",
          Largest({1 + (wy - Num(1)) * (both(cmy, wy) * npl - Sym("b_LT", s.blt)), wely / wply}),
          s.cyy, kA1);
    f.Add("C_yz",
          Largest({1 + (wz - Num(1)) * (cross(cmz, wz) * npl - Sym("c_LT", s.clt)),
                   0.6 * Root(wz / wy) * (welz / wplz)}),
          s.cyz, kA1);
    f.Add("C_zy",
          Largest({1 + (wy - Num(1)) * (cross(cmy, wy) * npl - Sym("d_LT", s.dlt)),
                   0.6 * Root(wy / wz) * (wely / wply)}),
          s.czy, kA1);
    f.Add("C_zz",
          Largest({1 + (wz - Num(1)) * (both(cmz, wz) - Sym("e_LT", s.elt)) * npl, welz / wplz}),
          s.czz, kA1);
}

void AddAnnexA(const Factors& f)
{
    const ProjectState& s = f.s;
    AddEquivalent(f);
    const Expr ny = f.Share("y", s.ncry), nz = f.Share("z", s.ncrz);
    const Expr muy = Sym("μ_y", s.muy), muz = Sym("μ_z", s.muz);
    f.Add("μ_y", (1 - ny) / (1 - Sym("χ_y", s.chiy) * ny), s.muy, kA1);
    f.Add("μ_z", (1 - nz) / (1 - Sym("χ_z", s.chiz) * nz), s.muz, kA1);
    AddPlasticFactors(f);
    const Expr cmy = Sym("C_my", s.cmy) * Sym("C_mLT", s.cmlt), cmz = Sym("C_mz", s.cmz);
    const Expr wy = Sym("w_y", s.wy), wz = Sym("w_z", s.wz);
    const bool plastic_y = !(s.classmy > 2), plastic_z = !(s.classmz > 2);
    const Expr kyy = cmy * (muy / (1 - ny)), kzy = cmy * (muz / (1 - ny));
    const Expr kyz = cmz * (muy / (1 - nz)), kzz = cmz * (muz / (1 - nz));
    f.Add("k_yy", plastic_y ? kyy / Sym("C_yy", s.cyy) : kyy, s.kyy, kA1);
    f.Add("k_yz", plastic_z ? kyz / Sym("C_yz", s.cyz) * 0.6 * Root(wz / wy) : kyz, s.kyz, kA1);
    f.Add("k_zy", plastic_y ? kzy / Sym("C_zy", s.czy) * 0.6 * Root(wy / wz) : kzy, s.kzy, kA1);
    f.Add("k_zz", plastic_z ? kzz / Sym("C_zz", s.czz) : kzz, s.kzz, kA1);
}

// --- Annex B -------------------------------------------------------------------------------------

// The moment line of one axis as Table B.3 asks about it.
struct LineOfB {
    double first, mid, last, psi, end, peak;
    bool curved, linear;

    bool SpanGoverns() const
    {
        return std::abs(mid) > std::abs(first) && std::abs(mid) > std::abs(last);
    }
};

LineOfB LineOf(const ProjectState& s, bool y)
{
    return y ? LineOfB{s.my0,
                       s.mymid,
                       s.myl,
                       s.psiy,
                       s.myendratio,
                       s.mypeakratio,
                       s.mycurved == kTrue,
                       s.mylinear == kTrue}
             : LineOfB{s.mz0,
                       s.mzmid,
                       s.mzl,
                       s.psiz,
                       s.mzendratio,
                       s.mzpeakratio,
                       s.mzcurved == kTrue,
                       s.mzlinear == kTrue};
}

// Table B.3; the line with its psi and alpha before it.
void AddCmB(const Factors& f, bool y)
{
    const ProjectState& s = f.s;
    const std::string axis = y ? "y" : "z";
    const double cm = y ? s.cmy : s.cmz;
    if (s.loadmode != 1) {
        f.d.Add("C_m" + axis, cm, "", std::string(kB3), "given end forces; D222");
        return;
    }
    const LineOfB line = LineOf(s, y), other = LineOf(s, !y);
    const bool loaded = (y ? s.hasyloads : s.haszloads) != kFalse;
    const bool span = loaded ? line.SpanGoverns() : other.SpanGoverns();
    const auto value = [&](const std::string& name, double x, const Line& remark) {
        f.d.Add(name + axis, x, "", std::string(kB3), remark);
        return Sym(name + axis, x);
    };
    const Expr psi =
        value("ψ_", line.psi,
              Line("moments ") + NumberLine(line.first) + Line(", ") + NumberLine(line.mid) +
                  Line(" in the middle, ") + NumberLine(line.last) + Line(" kNm"));
    Expr formula;
    if (line.linear) {
        formula = Largest({Num(0.4), 0.6 + 0.4 * psi});
    } else if (span) {
        const Expr end = value("α_h,", line.end, "end moment over that in the middle");
        const Expr part = line.curved ? 0.05 * end : 0.1 * end;
        const Expr turned = line.end < 0 && line.psi < 0 ? part * (1 + 2 * psi) : part;
        formula = (line.curved ? 0.95 : 0.9) + turned;
    } else {
        const Expr peak = value("α_s,", line.peak, "moment in the middle over an end moment; D221");
        if (line.peak >= 0) {
            formula = Largest({Num(0.4), 0.2 + 0.8 * peak});
        } else if (line.psi >= 0) {
            formula = Largest({Num(0.4), (line.curved ? 0.1 : 0.0) - 0.8 * peak});
        } else if (line.curved) {
            formula = Largest({Num(0.4), 0.1 * (1 - psi) - 0.8 * peak});
        } else {
            formula = Largest({Num(0.4), -0.2 * psi - 0.8 * peak});
        }
    }
    f.Add("C_m" + axis, formula, cm, kB3);
}

Expr Capped(const Expr& cm, const Expr& slope, double most, const Expr& n)
{
    return Least({cm * (1 + slope * n), cm * (1 + Num(most) * n)});
}

void AddAnnexB(const Factors& f)
{
    const ProjectState& s = f.s;
    AddCmB(f, true);
    AddCmB(f, false);
    const bool turns = s.cmlt != 1 || s.openprofile == kTrue;
    f.Add("C_mLT", turns ? Sym("C_my", s.cmy) : nullptr, s.cmlt, kB3);
    const Expr ny = Sym("N_Ed", s.ned) / Sym("N_b,y,Rd", s.nbyrd);
    const Expr nz = Sym("N_Ed", s.ned) / Sym("N_b,z,Rd", s.nbzrd);
    const Expr lamy = Sym("~λ_y", s.lamy), lamz = Sym("~λ_z", s.lamz);
    const Expr cmy = Sym("C_my", s.cmy), cmz = Sym("C_mz", s.cmz);
    const bool plastic = !(s.classmy > 2);
    f.Add("k_yy",
          plastic ? Capped(cmy, lamy - Num(0.2), 0.8, ny) : Capped(cmy, 0.6 * lamy, 0.6, ny), s.kyy,
          kB1);
    const InteractionColumn column = Traits(s).design.interaction;
    Expr kzz;
    if (!plastic) {
        kzz = Capped(cmz, 0.6 * lamz, 0.6, nz);
    } else if (column == InteractionColumn::i_section) {
        kzz = Capped(cmz, 2 * lamz - Num(0.6), 1.4, nz);
    } else if (column == InteractionColumn::hollow) {
        kzz = Capped(cmz, lamz - Num(0.2), 0.8, nz);
    }
    f.Add("k_zz", kzz, s.kzz, kB1);
    f.Add("k_yz", plastic ? 0.6 * Sym("k_zz", s.kzz) : Sym("k_zz", s.kzz), s.kyz, kB1);
    if (s.ltb == 1) {
        const Expr factor = Num(plastic ? 0.1 : 0.05) / (Sym("C_mLT", s.cmlt) - Num(0.25)) * nz;
        f.Add("k_zy", Largest({1 - factor * lamz, 1 - factor}), s.kzy, "Table B.2");
    } else {
        f.Add("k_zy", Num(plastic ? 0.6 : 0.8) * Sym("k_yy", s.kyy), s.kzy, kB1);
    }
}

// --- Angles --------------------------------------------------------------------------------------

void AddAngleFactors(const Factors& f)
{
    const ProjectState& s = f.s;
    if (s.method == Method::annex_a) {
        const Expr nv = f.Share("v", s.ncrv), nu = f.Share("u", s.ncru);
        f.d.Add("C_mv", s.cmv, "", std::string(kA2));
        f.d.Add("C_mu", s.cmu, "", std::string(kA2));
        f.Add("k_vv", Sym("C_mv", s.cmv) / (1 - Sym("χ_v", s.chiv) * nv), s.kvv, kA1);
        f.Add("k_vu", Sym("C_mu", s.cmu) * Sym("μ_z", s.muz) / (1 - nu), s.kvu, kA1);
        return;
    }
    const Expr nv = Sym("N_Ed", s.ned) / Sym("N_b,v,Rd", s.nbvrd);
    f.d.Add("C_mv", s.cmv, "", std::string(kB3));
    f.Add("k_vv", Capped(Sym("C_mv", s.cmv), 0.6 * Sym("~λ_v", s.lamv), 0.6, nv), s.kvv, kB1);
    f.Add("k_vu", Sym("k_vv", s.kvv), s.kvu, kB1, "D227");
}

}  // namespace

void AddInteractionFactors(const ProjectState& s, Document& d)
{
    const Factors f{s, d};
    if (s.method == Method::annex_a) {
        AddAnnexA(f);
    } else {
        AddAnnexB(f);
    }
    if (Is(s, Kind::angle)) {
        AddAngleFactors(f);
    }
}

void AddInteraction(const CalculatedMember& m, Document& d)
{
    if (m.stages.interaction && m.outcome.designed()) {
        d.Chapter(m.s.method == Method::annex_a ? "Interaction factors, Annex A"
                                                : "Interaction factors, Annex B");
        AddInteractionFactors(m.s, d);
    }
}

}  // namespace kestrum
