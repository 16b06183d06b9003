#include "calculation/standard_member.h"

#include "calculation/annex_a_equations.h"
#include "calculation/quantities.h"
#include "calculation/standard_lateral.h"

#include <cmath>

namespace kestrum {

namespace {

using standard::MemberTerms;
using standard::StandardSection;

constexpr double kNewton = 1e3, kNmm = 1e6;
constexpr double kNoMoment = 1;  // Nmm: a rounding of none
constexpr int kToKn = -3, kToKnm = -6;
constexpr const char* kB1 = "Table B.1";

class OfMember {
public:
    OfMember(const ProjectState& input, const standard::CheckStudy& study, Document& d)
        : in_(input), t_(*study.of_member), q_(study.section), d_(d)
    {
    }
    Expr Column(bool y);
    Expr Torsional();
    Expr Lateral();
    Expr Interaction(bool y);
    Expr Outside();
    Expr Above();

private:
    Expr N() const { return Sym("N_Ed", t_.n / kNewton); }
    Expr Squash(const standard::Reductions& r) const { return Sym("N_Rk", r.squash / kNewton); }
    Expr Resistance(const char* symbol, const char* chi, double reduction,
                    const standard::Reductions& r);
    Expr LateralReduction();
    Expr MomentY();
    Expr MomentZ();
    void AnnexA();
    void AnnexB();
    void AddTorsionalForces();
    void UniformSlenderness();
    Expr CmA(bool y, double ncr);
    Expr CmB(const char* symbol, const standard::CmTerms& terms, double cm);

    const ProjectState& in_;
    const MemberTerms& t_;
    const StandardSection& q_;
    Document& d_;
};

Expr OfMember::Resistance(const char* symbol, const char* chi, double reduction,
                          const standard::Reductions& r)
{
    return Step(d_, symbol, Sym(chi, reduction) * Squash(r) / Sym("γ_M1", q_.gammam1), "kN",
                "6.3.1.1 (3)");
}

// 6.3.1; angles buckle about v in place of z.
Expr OfMember::Column(bool y)
{
    const bool angle = q_.Angle();
    const std::string n = y ? "y" : angle ? "v" : "z";
    const double ncr = y ? t_.ncr.y : t_.ncr.z, lam = y ? t_.column.lamy : t_.column.lamz;
    const double chi = y ? t_.column.chiy : t_.column.chiz;
    const double factor = y ? in_.ly : in_.lz;
    const double inertia = y ? q_.iy : angle ? q_.angle.iv : q_.iz;
    d_.Add("N_Rk",
           Sym("f_y", q_.fy) *
               Sym(t_.column.squash == q_.a * q_.fy ? "A" : "A_eff", t_.column.squash / q_.fy) *
               Ten(kToKn),
           t_.column.squash / kNewton, "kN", "6.3.1.1 (3)");
    if (std::isfinite(ncr)) {
        const Expr length =
            Step(d_, "L_cr," + n, Sym("k_cr," + n, factor) * Sym("L", in_.l), "m", "6.3.1.3");
        d_.Add("N_cr," + n,
               Square(Pi()) * Sym("E", q_.e) * Sym("I_" + n, inertia) / Square(length) * Ten(-9),
               ncr / kNewton, "kN", "6.3.1.2 (1)");
        const Expr slenderness = Root(Squash(t_.column) / Sym("N_cr," + n, ncr / kNewton));
        if (!angle || !q_.angle.two_bolts) {
            d_.Add("~λ_" + n, slenderness, lam, "", "6.3.1.2 (1)");
        } else if (y) {
            d_.Add("~λ_y", 0.5 + 0.7 * slenderness, lam, "", "BB.1.2 (2)");
        } else {
            const Expr about_z = slenderness * Root(Sym("I_v", inertia) / Sym("I_z", q_.iz));
            d_.Add("~λ_v", Largest({0.5 + 0.7 * about_z, 0.35 + 0.7 * slenderness}), lam, "",
                   "BB.1.2 (2)");
        }
    }
    const std::string symbol = "χ_" + n;
    if (lam > 0.2) {
        const Expr slenderness = Sym("~λ_" + n, lam),
                   alpha = Sym("α", y ? t_.curves.y : t_.curves.z);
        const Expr phi =
            Step(d_, "Φ_" + n, 0.5 * (1 + alpha * (slenderness - Num(0.2)) + Square(slenderness)),
                 "", "6.3.1.2 (1)");
        d_.Add(symbol, Least({Num(1), 1 / (phi + Root(Square(phi) - Square(slenderness)))}), chi,
               "", "6.3.1.2 (1), Eq (6.49)");
    } else {
        d_.Add(symbol, chi, "", "6.3.1.2 (4)",
               WithNumbers(std::isfinite(ncr) ? "slenderness of 0.2 or less"
                                              : "does not buckle about this axis"));
    }
    return N() / Resistance(("N_b," + n + ",Rd").c_str(), symbol.c_str(), chi, t_.column);
}

// Ncr,T, and Ncr,TF where the shear centre is not the centroid.
void OfMember::AddTorsionalForces()
{
    const standard::TorsionTerms& at = t_.torsion;
    const bool angle = q_.Angle();
    const Expr ip2 = (Sym("I_y", q_.iy) + Sym("I_z", q_.iz)) / Sym("A", q_.a);
    const Expr y0 = Sym(angle ? "u_0" : "y_0", std::abs(at.y));
    const Expr z0 = Sym(angle ? "v_0" : "z_0", std::abs(at.z));
    Expr polar = ip2;
    if (at.y != 0) {
        polar = polar + Square(y0);
    }
    if (at.z != 0) {
        polar = polar + Square(z0);
    }
    const Expr i0 = Step(d_, "i_0", Root(polar), "mm", "EN 1993-1-3, 6.2.3 (5)",
                         at.y != 0 || at.z != 0 ? "with the distance of the shear centre" : "");
    Expr stiffness = Sym("E", q_.e) / Num(2.6) * Sym("I_T", q_.it);
    if (at.iw > 0) {
        stiffness = stiffness + Square(Pi()) * Sym("E", q_.e) * Sym("I_w", at.iw) /
                                    Square(Sym("L_T", at.length));
    }
    d_.Add("N_cr,T", stiffness / Square(i0) * Ten(kToKn), t_.ncr.t / kNewton, "kN",
           "6.3.1.4; EN 1993-1-3, 6.2.3 (5)");
    if (!std::isfinite(t_.ncr.tf) || (at.y == 0 && at.z == 0)) {
        return;
    }
    const Expr torsion = Sym("N_cr,T", t_.ncr.t / kNewton);
    const Expr about_y = Sym(angle ? "N_cr,u" : "N_cr,y", at.about_y / kNewton);
    const Expr about_z = Sym(angle ? "N_cr,v" : "N_cr,z", t_.ncr.z / kNewton);
    const Expr result = Sym("N_cr,TF", t_.ncr.tf / kNewton);
    Expr formula, remark_of;
    if (at.y == 0 || at.z == 0) {  // the axis of symmetry couples
        const Expr flexural = at.y == 0 ? about_z : about_y;
        const Expr beta =
            Step(d_, "β", 1 - Square((at.y == 0 ? z0 : y0) / i0), "", "EN 1993-1-3, 6.2.3 (7)");
        const Expr sum = flexural + torsion;
        formula =
            2 * flexural * torsion / (sum + Root(Square(sum) - 4 * beta * flexural * torsion));
    } else {
        const auto part = [&](const Expr& distance, const Expr& flexural, double ncr) {
            return std::isfinite(ncr) ? Square(distance) / (flexural - result) : nullptr;
        };
        const Expr of_y = part(y0, about_y, at.about_y), of_z = part(z0, about_z, t_.ncr.z);
        const Expr coupled = of_y == nullptr ? of_z : of_z == nullptr ? of_y : of_y + of_z;
        formula = coupled == nullptr ? nullptr : torsion - Square(result / i0) * coupled;
    }
    d_.Add("N_cr,TF", formula, t_.ncr.tf / kNewton, "kN", "6.3.1.4; EN 1993-1-3, 6.2.3 (7)",
           at.y == 0 || at.z == 0 ? "" : "smallest root of this equation");
}

Expr OfMember::Torsional()
{
    AddTorsionalForces();
    const double least = t_.ncr.Torsional();
    d_.Add("~λ_T", Root(Squash(t_.column) / Sym("N_cr", least / kNewton)), t_.column.lamt, "",
           "6.3.1.4 (2), Eq (6.52)");
    const Expr lam = Sym("~λ_T", t_.column.lamt), alpha = Sym("α_z", t_.curves.z);
    if (t_.column.lamt > 0.2) {
        const Expr phi =
            Step(d_, "Φ_T", 0.5 * (1 + alpha * (lam - Num(0.2)) + Square(lam)), "", "6.3.1.2 (1)");
        d_.Add("χ_T", Least({Num(1), 1 / (phi + Root(Square(phi) - Square(lam)))}), t_.column.chit,
               "", "6.3.1.2 (1), Eq (6.49)");
    } else {
        d_.Add("χ_T", t_.column.chit, "", "6.3.1.2 (4)", WithNumbers("slenderness of 0.2 or less"));
    }
    return N() / Resistance("N_b,T,Rd", "χ_T", t_.column.chit, t_.column);
}

Expr OfMember::Lateral()
{
    AddStandardLateral(in_, t_.lateral, t_.numerical ? &*t_.numerical : nullptr, q_, d_);
    return Sym("M_y,Ed", t_.lateral.checked) / Sym("M_b,Rd", t_.lateral.resistance);
}

// What leads to chi_LT, and chi_LT; 1 where the member cannot twist or has no moment about y.
Expr OfMember::LateralReduction()
{
    if (t_.lateral.mcr > 0) {
        AddStandardLateral(in_, t_.lateral, t_.numerical ? &*t_.numerical : nullptr, q_, d_);
    } else {
        d_.Add("χ_LT", t_.lateral.chi, "", "6.3.2.1 (2)", "no lateral torsional buckling");
    }
    return Sym("χ_LT", t_.lateral.chi);
}

// M_y,Rk of the class over the partial factor, kNm.
Expr OfMember::MomentY()
{
    return Step(d_, "M_y,Rk", Sym("W_y", t_.wy) * Sym("f_y", q_.fy) * Ten(kToKnm), "kNm",
                "6.3.3, Table 6.7");
}

Expr OfMember::MomentZ()
{
    return Step(d_, "M_z,Rk", Sym("W_z", t_.wz) * Sym("f_y", q_.fy) * Ten(kToKnm), "kNm",
                "6.3.3, Table 6.7");
}

// Table A.2; null without a moment.
Expr OfMember::CmA(bool y, double ncr)
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
void OfMember::UniformSlenderness()
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

void OfMember::AnnexA()
{
    const clauses::AnnexAInputs& a = t_.a;
    const clauses::AnnexAFactors& f = t_.found_a;
    d_.Add("C_my,0", CmA(true, a.ncry), a.cmy0, "", "Table A.2",
           t_.my > 0 ? "" : "no moment about this axis");
    d_.Add("C_mz,0", CmA(false, a.ncrz), a.cmz0, "", "Table A.2",
           t_.mz > 0 ? "" : "no moment about this axis");
    if (a.twists) {
        UniformSlenderness();
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

Expr Capped(const Expr& cm, const Expr& slope, double most, const Expr& n)
{
    return Least({cm * (1 + slope * n), cm * (1 + Num(most) * n)});
}

// Table B.3: the column of line loads, that of point loads, or the larger of both.
Expr OfMember::CmB(const char* symbol, const standard::CmTerms& terms, double cm)
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

void OfMember::AnnexB()
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
Expr OfMember::Interaction(bool y)
{
    const standard::Reductions& r = t_.interaction;
    Expr sum;
    const auto add = [&](const Expr& part) { sum = sum == nullptr ? part : sum + part; };
    if (t_.n > 0) {
        add(N() / (y ? Resistance("N_b,y,Rd", "χ_y", r.chiy, r)
                     : Resistance("N_b,z,Rd", "χ_z", r.chiz, r)));
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
        add(k * Sym("M_y,Ed", t_.my / kNmm) * gamma / (chi * MomentY()));
    }
    if (t_.mz > 0) {
        const Expr k = y ? Sym("k_yz", t_.k.kyz) : Sym("k_zz", t_.k.kzz);
        add(k * Sym("M_z,Ed", t_.mz / kNmm) * gamma / MomentZ());
    }
    return sum;
}

// Sections that 6.3.3 (1) leaves out: a linear sum with amplified moments.
Expr OfMember::Outside()
{
    const standard::Reductions& r = t_.interaction;
    const Expr gamma = Sym("γ_M1", q_.gammam1);
    Expr sum = N() / Resistance("N_b,Rd", "χ", r.Least(t_.twists), r);
    const auto add = [&](const char* factor, const char* chi, double reduction,
                         const char* critical, double ncr, const char* moment, double m,
                         const char* shift, double extra, const Expr& resistance) {
        const Expr k =
            Step(d_, factor, 1 / (1 - Sym(chi, reduction) * N() / Sym(critical, ncr / kNewton)), "",
                 "6.3.3 (1)");
        Expr acting = Sym(moment, m / kNmm);
        if (extra > kNoMoment) {
            const bool y = shift == std::string_view("ΔM_y");
            const double e = extra / t_.n;
            d_.Add(shift, N() * Sym(y ? "e_N,y" : "e_N,z", e) * Ten(-3), extra / kNmm, "kNm",
                   "6.2.9.3 (2)", "from the shift of the centroid");
            acting = acting + Sym(shift, extra / kNmm);
        }
        sum = sum + k * acting * gamma / resistance;
    };
    if (t_.my > kNoMoment || t_.shift_y > kNoMoment) {
        const Expr chi = LateralReduction();
        add("k_yy", "χ_y", r.chiy, "N_cr,y", t_.ncr.y, "M_y,Ed", t_.my, "ΔM_y", t_.shift_y,
            chi * MomentY());
    }
    if (t_.mz > kNoMoment || t_.shift_z > kNoMoment) {
        add("k_zz", "χ_z", r.chiz, "N_cr,z", t_.ncr.z, "M_z,Ed", t_.mz, "ΔM_z", t_.shift_z,
            MomentZ());
    }
    return sum;
}

Expr OfMember::Above()
{
    return N() / Resistance("N_b,Rd", "χ", t_.interaction.Least(t_.twists), t_.interaction);
}

}  // namespace

Expr StandardMemberRatio(const ProjectState& input, const standard::CheckStudy& study,
                         standard::CheckId id, Document& d)
{
    OfMember member(input, study, d);
    switch (id) {
    case standard::CheckId::flexural_y:
        return member.Column(true);
    case standard::CheckId::flexural_z:
        return member.Column(false);
    case standard::CheckId::torsional:
        return member.Torsional();
    case standard::CheckId::ltb:
        return member.Lateral();
    case standard::CheckId::eq661:
        return member.Interaction(true);
    case standard::CheckId::eq662:
        return member.Interaction(false);
    case standard::CheckId::interaction_outside:
        return member.Outside();
    case standard::CheckId::n_above_ncr:
        return member.Above();
    default:
        return nullptr;
    }
}

}  // namespace kestrum
