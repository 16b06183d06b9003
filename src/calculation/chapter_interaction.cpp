#include "calculation/annex_a_equations.h"
#include "calculation/chapters.h"
#include "calculation/parts.h"
#include "calculation/quantities.h"

#include "core/member_choices.h"
#include "report/stages.h"
#include "sections/families.h"
#include "stability/buckling_resistance.h"
#include "stability/constants.h"
#include "stability/interaction_annex_a.h"

#include <cmath>
#include <limits>

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

// The smaller over the larger of two end moments; null without any.
Expr RatioOfEnds(double first, double last, double psi)
{
    const bool from_first = std::abs(first) >= std::abs(last);
    const double large = from_first ? first : last, small = from_first ? last : first;
    const bool turned = large != 0 && std::abs(small / large - psi) > 1e-6;
    return large == 0 ? nullptr
                      : Sym(turned ? "M_1" : "M_2", turned ? large : small) /
                            Sym(turned ? "M_2" : "M_1", turned ? small : large);
}

// --- Annex A -------------------------------------------------------------------------------------

// Cm of Table A.2 by the moments about y or z, of buckling about the axis `about`. D217.
void AddCm(const Factors& f, bool y, const std::string& symbol, const std::string& about,
           double inertia, double ncr, double cm)
{
    const ProjectState& s = f.s;
    const std::string axis = y ? "y" : "z";
    const MomentShape shape = y ? ShapeY(s) : ShapeZ(s);
    const Expr n = f.Share(about, ncr);
    const Expr psi = Sym("ψ_" + axis, shape.psi);
    const Expr straight = 0.79 + 0.21 * psi + 0.36 * (psi - Num(0.33)) * n;
    const bool loads = s.loadmode == 1;
    Expr formula = straight;
    if (loads && shape.first == 0 && shape.last == 0) {
        formula = shape.curved ? 1 + 0.03 * n : 1 - 0.18 * n;
    } else if (loads && !shape.linear) {
        const Expr stiffness = Square(Pi()) * Sym("E", s.e) * Sym("I_" + about, inertia);
        const Expr ratio = stiffness * Sym(y ? "δ_z" : "δ_y", shape.deflection) /
                           (Square(Sym("L", s.l)) * Sym("M_" + axis + ",Ed", shape.moment)) *
                           Ten(-12);
        formula = 1 + (ratio - Num(1)) * n;
    }
    f.Add(symbol, formula, cm, kA2);
}

void AddEndMoments(const Factors& f, bool y)
{
    const MomentShape shape = y ? ShapeY(f.s) : ShapeZ(f.s);
    f.d.Add(y ? "ψ_y" : "ψ_z", RatioOfEnds(shape.first, shape.last, shape.psi), shape.psi, "",
            std::string(kA2),
            Line("end moments ") + NumberLine(shape.first) + Line(" and ") +
                NumberLine(shape.last) + Line(" kNm"));
}

void AddCm0(const Factors& f, bool y)
{
    const ProjectState& s = f.s;
    AddEndMoments(f, y);
    AddCm(f, y, y ? "C_my,0" : "C_mz,0", y ? "y" : "z", y ? s.iy : s.iz, y ? s.ncry : s.ncrz,
          y ? s.cmy0 : s.cmz0);
}

// Slenderness under uniform moment, with C1 from 1 to 1.05 by the factor of the length.
void AddUniformSlenderness(const Factors& f)
{
    const ProjectState& s = f.s;
    if (s.ltb != 1 || s.mcr0 == 0 || s.openprofile == kFalse || Is(s, Kind::angle, Kind::plate)) {
        f.d.Add("~λ_0", s.lam0, "", std::string(kA1),
                Is(s, Kind::angle) ? "D226" : "does not twist");
        return;
    }
    const Expr k = Sym("k", s.ltbk), e = Sym("E", s.e), iz = Sym("I_z", s.iz);
    const double factor = (static_cast<double>(s.ltbk) - 0.5) / 0.5;
    const Expr euler = Square(Pi()) * e * iz / Square(Sym("L_LT", s.lt)) * Ten(-6);
    Expr arm = e / Num(kShearRatio) * Sym("I_T", s.it) / euler + Sym("I_w", s.iw) / iz;
    if (Is(s, Kind::i_single)) {
        const double zj = s.mymid > 0 ? s.zjtop : s.zjbot;
        const Expr lever =
            Step(f.d, "e_0", Sym("C_3,0", 1.019 + factor * (1 - 1.019)) * Sym("z_j", zj), "mm",
                 std::string(kA1));
        arm = Root(arm + Square(lever)) + lever;
    } else {
        arm = Root(arm);
    }
    const Expr c1 = Step(f.d, "C_1,0", 1.05 - 0.05 * (k - Num(0.5)) / Num(0.5), "",
                         std::string(kA1), "uniform moment");
    const double mcr0 = s.mcr0 / 1e6;
    f.d.Add("M_cr,0", c1 * euler * arm * Ten(-6), mcr0, "kNm", std::string(kA1), "uniform moment");
    f.Add("~λ_0", Root(Sym("γ_M1", s.gammam1) * Sym("M_y,Rd,1", s.myrdm1) / Sym("M_cr,0", mcr0)),
          s.lam0, kA1, Line(Symbol("M_y,Rd,1")) + Line(" with ") + Line(Symbol("γ_M1")));
}

AnnexAValues AnnexAOf(const ProjectState& s)
{
    constexpr double kNone = std::numeric_limits<double>::infinity();
    const double factor = s.gammam0 / s.gammam1;
    const double torsional = s.ncrtf < kNeverGoverns ? s.ncrtf : kNone;
    const bool elastic = s.classmy <= 3;
    return {.ned = s.ned,
            .ncry = s.ncry,
            .ncrz = s.ncrz,
            .ncrt = torsional,
            .ncrtf = torsional,
            .my = std::abs(s.mydesign),
            .mz = std::abs(s.mzdesign),
            .a = s.a,
            .it = s.it,
            .iy = s.iy,
            .wely = s.wely,
            .wply = s.wply,
            .welz = s.welz,
            .wplz = s.wplz,
            .a_eps = s.a,
            .w_eps = elastic ? s.wely : s.weffy,
            .resistance = s.ncrd,
            .mply = s.mplyrd * factor,
            .mplz = s.mplzrd * factor,
            .fy = s.fyk,
            .gamma = s.gammam1,
            .gamma_symbol = "γ_M1",
            .chiy = s.chiy,
            .chiz = s.chiz,
            .chilt = s.xlt,
            .lamy = s.lamy,
            .lamz = s.lamz,
            .lam0 = s.lam0,
            .c1 = 1 / (static_cast<double>(s.kc) * s.kc),
            .cmy0 = s.cmy0,
            .cmz0 = s.cmz0,
            .cmy = s.cmy,
            .cmz = s.cmz,
            .cmlt = Is(s, Kind::angle) ? AnnexAValues::kUnknown : s.cmlt,  // that of y and z
            .twists = true,
            .plastic_y = !(s.classmy > 2),
            .plastic_z = !(s.classmz > 2),
            .kyy = s.kyy,
            .kyz = s.kyz,
            .kzy = s.kzy,
            .kzz = s.kzz,
            .npl_remark = "D219",
            .lateral = LateralSymbol(s),
            .alt = s.alt,
            .epsy = s.epsy,
            .muy = s.muy,
            .muz = s.muz,
            .wy = s.wy,
            .wz = s.wz,
            .npl = s.npl,
            .lammax = s.lammax,
            .blt = s.blt,
            .clt = s.clt,
            .dlt = s.dlt,
            .elt = s.elt,
            .cyy = s.cyy,
            .cyz = s.cyz,
            .czy = s.czy,
            .czz = s.czz};
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
    const auto value = [&](const std::string& name, const Expr& formula_of, double x,
                           const Line& remark) {
        f.d.Add(name + axis, formula_of, x, "", std::string(kB3), remark);
        return Sym(name + axis, x);
    };
    const auto quotient = [](double above, double below) {
        return above == 0 || !std::isfinite(below) ? nullptr
                                                   : Sym("M_a", above) / Sym("M_b", below);
    };
    const Expr psi =
        value("ψ_", RatioOfEnds(line.first, line.last, line.psi), line.psi,
              Line("moments ") + NumberLine(line.first) + Line(", ") + NumberLine(line.mid) +
                  Line(" in the middle, ") + NumberLine(line.last) + Line(" kNm"));
    Expr formula;
    if (line.linear) {
        formula = Largest({Num(0.4), 0.6 + 0.4 * psi});
    } else if (span) {
        const Expr end = value("α_h,", quotient(line.end * line.mid, line.mid), line.end,
                               "end moment over that in the middle");
        const Expr part = line.curved ? 0.05 * end : 0.1 * end;
        const Expr turned = line.end < 0 && line.psi < 0 ? part * (1 + 2 * psi) : part;
        formula = (line.curved ? 0.95 : 0.9) + turned;
    } else {
        const Expr peak = value("α_s,", quotient(line.mid, line.mid / line.peak), line.peak,
                                "moment in the middle over an end moment; D221");
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
    f.Add("C_mLT", turns ? Sym("C_my", s.cmy) : nullptr, s.cmlt, kB3,
          turns ? "" : "does not twist");
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
    const bool annex_a = s.method == Method::annex_a;
    if (!annex_a) {  // of Annex A here too
        AddEndMoments(f, false);
    }
    AddCm(f, false, "C_mv", "v", s.iv, s.ncrv, s.cmv);
    if (annex_a) {
        const Expr nv = f.Share("v", s.ncrv), nu = f.Share("u", s.ncru);
        AddCm(f, true, "C_mu", "u", s.iu, s.ncru, s.cmu);
        f.Add("k_vv", Sym("C_mv", s.cmv) / (1 - Sym("χ_v", s.chiv) * nv), s.kvv, kA1);
        f.Add("k_vu", Sym("C_mu", s.cmu) * Sym("μ_z", s.muz) / (1 - nu), s.kvu, kA1,
              Line(Symbol("μ_z")) + Line(" of the axis z, not below that of v; ") +
                  Line(Symbol("C_mLT")) + Line(" = 1, D226"));
        return;
    }
    const Expr nv = Sym("N_Ed", s.ned) / Sym("N_b,v,Rd", s.nbvrd);
    f.Add("k_vv", Capped(Sym("C_mv", s.cmv), 0.6 * Sym("~λ_v", s.lamv), 0.6, nv), s.kvv, kB1);
    f.Add("k_vu", Sym("k_vv", s.kvv), s.kvu, kB1, "D227");
}

}  // namespace

void AddInteractionFactors(const ProjectState& s, Document& d)
{
    const Factors f{s, d};
    if (s.method == Method::annex_a) {
        AddCm0(f, true);
        AddCm0(f, false);
        AddUniformSlenderness(f);
        const AnnexAValues values = AnnexAOf(s);
        if (!StagesOf(s).lateral) {
            const char* const why = "no lateral torsional buckling";
            d.Add("C_1", values.c1, "", std::string(kA1), why);
            d.Add(std::string(values.lateral), values.chilt, "", "6.3.2.1 (2)", why);
        }
        AddAnnexAFactors(values, d);
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
