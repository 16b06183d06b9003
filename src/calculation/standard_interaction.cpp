#include "calculation/annex_a_equations.h"
#include "calculation/member_equations.h"
#include "calculation/standard_lateral.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr double kNoMoment = 1;  // Nmm: a rounding of none
constexpr const char* kB1 = "Table B.1";

Expr Capped(const Expr& cm, const Expr& slope, double most, const Expr& n)
{
    return Least({cm * (1 + slope * n), cm * (1 + Num(most) * n)});
}

}  // namespace

// Angles bend about u and v; their symbols are those of y and z with these letters.
std::string MemberEquations::About(std::string_view symbol) const
{
    std::string name(symbol);
    if (q_.Angle()) {
        std::replace(name.begin(), name.end(), 'y', 'u');
        std::replace(name.begin(), name.end(), 'z', 'v');
    }
    return name;
}

// The modulus of the class by its name in the chapters before.
Expr MemberEquations::Modulus(bool y)
{
    const double w = y ? t_.wy : t_.wz;
    if (q_.Angle()) {
        const Basis standard = Basis::Standard();
        const standard::AngleSection angle = t_.cls == 4 ? standard::EffectiveAngle(q_, standard)
                                                         : standard::WholeAngle(q_, standard);
        const double inertia = y ? angle.iu : angle.iv;
        const std::string symbol = std::string(y ? "I_u" : "I_v") + (angle.Shifted() ? ",eff" : "");
        const char* const modulus = y ? "W_u" : "W_v";
        d_.Add(modulus, Sym(symbol, inertia) / Sym("e_max", inertia / w), w, "mm3", "6.2.1 (5)",
               "of the furthest corner");
        return Sym(modulus, w);
    }
    const bool plastic = w == (y ? q_.wply : q_.wplz);
    const bool elastic = y ? w == q_.Wely(true) || w == q_.Wely(false) : w == q_.LeastWelz();
    const std::string kind = plastic ? "pl," : elastic ? "el," : t_.cls == 4 ? "eff," : "";
    const bool sides = elastic && y && q_.above != q_.below;
    return Sym("W_" + kind + (y ? "y" : "z") +
                   (!sides               ? ""
                    : w == q_.Wely(true) ? ",top"
                                         : ",bot"),
               w);
}

// M_Rk of the class, kNm.
Expr MemberEquations::Moment(bool y)
{
    return Step(d_, About(y ? "M_y,Rk" : "M_z,Rk"), Modulus(y) * Sym("f_y", q_.fy) * Ten(kToKnm),
                "kNm", "6.3.3, Table 6.7");
}

// Table A.2; null without a moment.
Expr MemberEquations::CmA(bool y, double ncr)
{
    const standard::CmTerms& terms = y ? t_.cm_y : t_.cm_z;
    const std::string axis = y ? "y" : "z";
    if (terms.moment == 0 || !std::isfinite(ncr)) {
        return nullptr;
    }
    const Expr n = N() / Sym("N_cr," + axis, ncr / kNewton);
    if (terms.span.straight) {
        d_.Add("ψ_" + axis, Sym("M_2", terms.span.psi * terms.span.mh) / Sym("M_1", terms.span.mh),
               terms.span.psi, "", "Table A.2", "of the end moments");
        const Expr psi = Sym("ψ_" + axis, terms.span.psi);
        return 0.79 + 0.21 * psi + 0.36 * (psi - Num(0.33)) * n;
    }
    const Expr stiffness = Square(Pi()) * Sym("E", q_.e) * Sym("I_" + axis, y ? q_.iy : q_.iz);
    const Expr ratio =
        stiffness * Sym(y ? "δ_z" : "δ_y", std::abs(terms.deflection)) /
        (Square(Sym("L", in_.l)) * Sym("M_" + axis + ",Ed", std::abs(terms.moment))) * Ten(-12);
    const Expr formula = 1 + (ratio - Num(1)) * n;
    return formula;
}

// Slenderness under uniform moment, Annex A.
void MemberEquations::UniformSlenderness()
{
    const standard::UniformMomentTerms& u = t_.uniform;
    const Expr length = Sym("L_0", u.length);
    const Expr eiz =
        Sym("E", q_.e) * Sym(q_.Angle() ? "I_v" : "I_z", q_.Angle() ? q_.angle.iv : q_.iz);
    Expr torsion = Sym("E", q_.e) / Num(2.6) * Sym("I_T", q_.it);
    if (u.eiw > 0) {
        torsion = torsion + Square(Pi() / length) * Sym("E", q_.e) * Sym("I_w", u.eiw / q_.e);
    }
    d_.Add("M_cr,0", Pi() / length * Root(eiz * torsion) * Ten(kToKnm), u.mcr, "kNm", "Table A.1",
           "uniform moment, between the restraints");
    d_.Add(
        "~λ_0",
        Root(Sym("W_y,c", t_.compressed) * Sym("f_y", q_.fy) * Ten(kToKnm) / Sym("M_cr,0", u.mcr)),
        t_.a.lam0, "", "Table A.1", "under uniform moment");
}

void MemberEquations::AnnexA()
{
    const clauses::AnnexAInputs& a = t_.a;
    const clauses::AnnexAFactors& f = t_.found_a;
    d_.Add("C_my,0", CmA(true, a.ncry), a.cmy0, "", "Table A.2",
           t_.my > 0 ? "" : "no moment about this axis");
    d_.Add("C_mz,0", CmA(false, a.ncrz), a.cmz0, "", "Table A.2",
           t_.mz > 0 ? "" : "no moment about this axis");
    if (a.twists) {
        UniformSlenderness();
        if (t_.lateral.mcr > 0) {
            AddC1(t_.lateral.piece, q_, d_);
        }
    }
    AddAnnexAFactors({.ned = a.ned / kNewton,
                      .ncry = a.ncry / kNewton,
                      .ncrz = a.ncrz / kNewton,
                      .ncrt = a.ncrt / kNewton,
                      .ncrtf = a.ncrtf / kNewton,
                      .my = a.my / kNmm,
                      .mz = a.mz / kNmm,
                      .a = a.a,
                      .it = a.it,
                      .iy = a.iy,
                      .wely = a.wely,
                      .wply = a.wply,
                      .welz = a.welz,
                      .wplz = a.wplz,
                      .a_eps = a.a_epsy,
                      .w_eps = a.w_elastic_y,
                      .resistance = a.nrk / kNewton,
                      .mply = a.mply / kNmm,
                      .mplz = a.mplz / kNmm,
                      .fy = q_.fy,
                      .gamma = q_.gammam0,
                      .gamma_symbol = "γ_M0",
                      .chiy = a.chiy,
                      .chiz = a.chiz,
                      .chilt = a.chilt,
                      .lamy = a.lamy,
                      .lamz = a.lamz,
                      .lam0 = a.lam0,
                      .c1 = a.c1,
                      .cmy0 = a.cmy0,
                      .cmz0 = a.cmz0,
                      .cmy = f.cmy,
                      .cmz = f.cmz,
                      .cmlt = f.cmlt,
                      .twists = a.twists,
                      .plastic_y = a.plastic,
                      .plastic_z = a.plastic,
                      .kyy = t_.k.kyy,
                      .kyz = t_.k.kyz,
                      .kzy = t_.k.kzy,
                      .kzz = t_.k.kzz},
                     d_);
}

// Table B.3: the column of line loads, that of point loads, or the larger of both.
Expr MemberEquations::CmB(const char* symbol, const standard::CmTerms& terms, double cm)
{
    const standard::SpanMoments& span = terms.span;
    Expr formula;
    Line remark;
    if (terms.sway && cm == 0.9) {
        remark = Line("buckles in a sway mode");
    } else if (span.mh == 0 && span.ms == 0) {
        remark = Line("no moment about this axis");
    } else {
        const Expr psi = Sym("ψ", span.psi), mh = Sym("M_h", span.mh), ms = Sym("M_s", span.ms);
        remark = Line("ψ = ") + NumberLine(span.psi, 4) + Line(" of the end moments");
        const bool ends = std::abs(span.mh) >= std::abs(span.ms);
        const auto column = [&](bool point) {
            if (!ends) {
                const Expr part = Num(point ? 0.1 : 0.05) * (mh / ms);
                const bool turned = span.mh / span.ms < 0 && span.psi < 0;
                return Num(point ? 0.9 : 0.95) + (turned ? part * (1 + 2 * psi) : part);
            }
            const Expr share = ms / mh;
            if (span.ms / span.mh >= 0) {
                return 0.2 + 0.8 * share;
            }
            if (span.psi >= 0) {
                return point ? Num(0) - 0.8 * share : 0.1 - 0.8 * share;
            }
            return (point ? Num(-0.2) * psi : 0.1 * (1 - psi)) - 0.8 * share;
        };
        std::vector<Expr> of{Num(0.4)};
        if (span.straight) {
            of.push_back(0.6 + 0.4 * psi);
        } else {
            for (const bool point : {true, false}) {
                if (point ? terms.points : terms.lines) {
                    of.push_back(column(point));
                }
            }
        }
        formula = Largest(of);
    }
    d_.Add(symbol, formula, cm, "", "Table B.3", std::move(remark));
    return Sym(symbol, cm);
}

void MemberEquations::AnnexB()
{
    const clauses::AnnexBInputs& b = t_.b;
    const Expr cmy = CmB("C_my", t_.cm_y, b.cmy), cmz = CmB("C_mz", t_.cm_z, b.cmz);
    const Expr ny = Sym("n_y", b.ny), nz = Sym("n_z", b.nz);
    const Expr lamy = Sym("~λ_y", b.lamy), lamz = Sym("~λ_z", b.lamz);
    d_.Add("k_yy",
           b.plastic ? Capped(cmy, lamy - Num(0.2), 0.8, ny) : Capped(cmy, 0.6 * lamy, 0.6, ny),
           t_.k.kyy, "", kB1);
    d_.Add("k_zz",
           !b.plastic ? Capped(cmz, 0.6 * lamz, 0.6, nz)
           : b.hollow ? Capped(cmz, lamz - Num(0.2), 0.8, nz)
                      : Capped(cmz, 2 * lamz - Num(0.6), 1.4, nz),
           t_.k.kzz, "", kB1);
    const Expr kzz = Sym("k_zz", t_.k.kzz), kyy = Sym("k_yy", t_.k.kyy);
    d_.Add("k_yz", b.plastic ? 0.6 * kzz : kzz, t_.k.kyz, "", kB1);
    if (!b.twists) {
        d_.Add("k_zy", Num(b.plastic ? 0.6 : 0.8) * kyy, t_.k.kzy, "", kB1);
        return;
    }
    const Expr factor =
        Num(b.plastic ? 0.1 : 0.05) / (CmB("C_mLT", t_.cm_lt, b.cmlt) - Num(0.25)) * nz;
    const bool low = b.plastic && b.lamz < 0.4;
    d_.Add("k_zy",
           low ? Least({0.6 + lamz, 1 - factor * lamz}) : Largest({1 - factor * lamz, 1 - factor}),
           t_.k.kzy, "", "Table B.2");
}

// Eq (6.61), (6.62).
Expr MemberEquations::Interaction(bool y)
{
    const standard::Reductions& r = t_.interaction;
    Expr sum;
    const auto add = [&](const Expr& part) { sum = sum == nullptr ? part : sum + part; };
    if (t_.n > 0) {
        add(N() / Resistance(y ? "N_b,y,Rd" : "N_b,z,Rd", Reduction(y, r), r));
    }
    if (t_.annex_a) {
        AnnexA();
    } else {
        AnnexB();
    }
    const Expr gamma = Sym("γ_M1", q_.gammam1);
    if (t_.my > 0) {
        const Expr chi = LateralReduction();
        const Expr k = y ? Sym("k_yy", t_.k.kyy) : Sym("k_zy", t_.k.kzy);
        add(k * Sym("M_y,Ed", t_.my / kNmm) * gamma / (chi * Moment(true)));
    }
    if (t_.mz > 0) {
        const Expr k = y ? Sym("k_yz", t_.k.kyz) : Sym("k_zz", t_.k.kzz);
        add(k * Sym("M_z,Ed", t_.mz / kNmm) * gamma / Moment(false));
    }
    return sum;
}

// One moment of the sum outside 6.3.3, amplified by the axial force.
Expr MemberEquations::Amplified(bool y, const Expr& resistance)
{
    const standard::Reductions& r = t_.interaction;
    const double shift = y ? t_.shift_y : t_.shift_z;
    Expr acting = Sym(About(y ? "M_y,Ed" : "M_z,Ed"), (y ? t_.my : t_.mz) / kNmm);
    if (shift > kNoMoment) {
        const Expr distance = Sym(About(y ? "e_N,y" : "e_N,z"), shift / t_.n);
        acting = acting + Step(d_, About(y ? "ΔM_y" : "ΔM_z"), N() * distance * Ten(-3), "kNm",
                               "6.2.9.3 (2)", "from the shift of the centroid");
    }
    const Expr share = acting * Sym("γ_M1", q_.gammam1) / resistance;
    if (t_.n == 0) {
        return share;
    }
    // The critical force of angles about y is below that about u.
    const Expr chi = y ? Sym("χ_y", r.chiy) : Sym(About("χ_z"), r.chiz);
    const Expr critical =
        y ? Sym("N_cr,y", t_.ncr.y / kNewton) : Sym(About("N_cr,z"), t_.ncr.z / kNewton);
    const Expr k = Step(d_, About(y ? "k_yy" : "k_zz"), 1 / (1 - chi * N() / critical), "",
                        "6.3.3 (1)", y && q_.Angle() ? "buckling about y, safe for u" : "");
    return k * share;
}

// Sections that 6.3.3 (1) leaves out: a linear sum with amplified moments.
Expr MemberEquations::Outside()
{
    if (q_.Angle()) {
        d_.Say(Line("Moments about the principal axes u and v, each the largest size along the "
                    "member whatever its sign."),
               Paragraph::Kind::remark);
    }
    Expr sum;
    const auto add = [&](const Expr& part) { sum = sum == nullptr ? part : sum + part; };
    if (t_.n > 0) {
        add(N() / LeastResistance());
    }
    if (t_.my > kNoMoment || t_.shift_y > kNoMoment) {
        const Expr chi = LateralReduction();
        add(Amplified(true, chi * Moment(true)));
    }
    if (t_.mz > kNoMoment || t_.shift_z > kNoMoment) {
        add(Amplified(false, Moment(false)));
    }
    return sum;
}

}  // namespace kestrum
