#include "calculation/standard_member.h"

#include "calculation/annex_a_equations.h"
#include "calculation/quantities.h"

#include <cmath>

namespace kestrum {

namespace {

using standard::MemberTerms;
using standard::StandardSection;

constexpr double kNewton = 1e3, kNmm = 1e6;
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
    Expr MomentY();
    Expr MomentZ();
    void AnnexA();
    void AnnexB();

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
        d_.Add("~λ_" + n, Root(Squash(t_.column) / Sym("N_cr," + n, ncr / kNewton)), lam, "",
               angle && q_.angle.two_bolts ? "BB.1.2 (2)" : "6.3.1.2 (1)");
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
        d_.Add(symbol, chi, "", "6.3.1.2 (4)");
    }
    return N() / Resistance(("N_b," + n + ",Rd").c_str(), symbol.c_str(), chi, t_.column);
}

Expr OfMember::Torsional()
{
    d_.Add("N_cr,T", t_.ncr.t / kNewton, "kN", "6.3.1.4; EN 1993-1-3, 6.2.3 (5)");
    if (std::isfinite(t_.ncr.tf)) {
        d_.Add("N_cr,TF", t_.ncr.tf / kNewton, "kN", "6.3.1.4; EN 1993-1-3, 6.2.3 (7)");
    }
    const double least = t_.ncr.Torsional();
    d_.Add("~λ_T", Root(Squash(t_.column) / Sym("N_cr", least / kNewton)), t_.column.lamt, "",
           "6.3.1.4 (2), Eq (6.52)");
    const Expr lam = Sym("~λ_T", t_.column.lamt), alpha = Sym("α_z", t_.curves.z);
    if (t_.column.lamt > 0.2) {
        const Expr phi =
            Step(d_, "Φ_T", 0.5 * (1 + alpha * (lam - Num(0.2)) + Square(lam)), "", "6.3.1.2 (1)");
        d_.Add("χ_T", Least({Num(1), 1 / (phi + Root(Square(phi) - Square(lam)))}), t_.column.chit,
               "", "6.3.1.2 (1), Eq (6.49)");
    }
    return N() / Resistance("N_b,T,Rd", "χ_T", t_.column.chit, t_.column);
}

Expr OfMember::Lateral()
{
    AddStandardLateral(t_.lateral, q_.gammam1, d_);
    return Sym("M_y,Ed", t_.lateral.checked) / Sym("M_b,Rd", t_.lateral.resistance);
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

void OfMember::AnnexA()
{
    const clauses::AnnexAInputs& a = t_.a;
    const clauses::AnnexAFactors& f = t_.found_a;
    d_.Add("C_my,0", a.cmy0, "", "Table A.2");
    d_.Add("C_mz,0", a.cmz0, "", "Table A.2");
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

void OfMember::AnnexB()
{
    const clauses::AnnexBInputs& b = t_.b;
    const auto value = [&](const char* symbol, double x) {
        d_.Add(symbol, x, "", "Table B.3");
        return Sym(symbol, x);
    };
    const Expr cmy = value("C_my", b.cmy), cmz = value("C_mz", b.cmz);
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
    const Expr factor = Num(b.plastic ? 0.1 : 0.05) / (value("C_mLT", b.cmlt) - Num(0.25)) * nz;
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
        const Expr chi = Sym("χ_LT", t_.lateral.chi);
        d_.Add("χ_LT", t_.lateral.chi, "", std::string(t_.lateral.clause));
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
        if (extra > 0) {
            d_.Add(shift, extra / kNmm, "kNm", "6.2.9.3 (2)", "from the shift of the centroid");
            acting = acting + Sym(shift, extra / kNmm);
        }
        sum = sum + k * acting * gamma / resistance;
    };
    if (t_.my > 0 || t_.shift_y > 0) {
        d_.Add("χ_LT", t_.lateral.chi, "", std::string(t_.lateral.clause));
        add("k_yy", "χ_y", r.chiy, "N_cr,y", t_.ncr.y, "M_y,Ed", t_.my, "ΔM_y", t_.shift_y,
            Sym("χ_LT", t_.lateral.chi) * MomentY());
    }
    if (t_.mz > 0 || t_.shift_z > 0) {
        add("k_zz", "χ_z", r.chiz, "N_cr,z", t_.ncr.z, "M_z,Ed", t_.mz, "ΔM_z", t_.shift_z,
            MomentZ());
    }
    return sum;
}

Expr OfMember::Above()
{
    return N() / Resistance("N_b,Rd", "χ", t_.interaction.Least(t_.twists), t_.interaction);
}

// 6.3.2.2 and 6.3.2.3: chi from its slenderness.
void AddLateralReduction(const standard::LateralResult& r, Document& d)
{
    const std::string clause(r.clause);
    const Expr lam = Sym("~λ_LT", r.lam);
    if (r.lam <= r.plateau) {
        d.Add("χ_LT", r.chi, "", clause + " (4)",
              Line("slenderness of ") + NumberLine(r.plateau) + Line(" or less"));
        return;
    }
    const Expr bent = r.rolled ? Sym("β", r.beta) * Square(lam) : Square(lam);
    const Expr from = r.rolled ? Sym("~λ_LT,0", r.plateau) : Num(0.2);
    const Expr phi = Step(d, "Φ_LT", 0.5 * (1 + Sym("α_LT", r.alpha) * (lam - from) + bent), "",
                          r.rolled ? "6.3.2.3 (1), Table 6.5" : "6.3.2.2 (1), Table 6.4");
    const Expr curve = 1 / (phi + Root(Square(phi) - bent));
    if (!r.rolled) {
        d.Add("χ_LT", Least({Num(1), curve}), r.chi, "", "6.3.2.2 (1), Eq (6.56)");
        return;
    }
    const Expr cap = 1 / Square(lam);
    const Expr chi = Step(d, "χ_LT,0", Least({Num(1), cap, curve}), "", "6.3.2.3 (1), Eq (6.57)");
    d.Add("C_1", r.c1, "", "", "of the piece that holds the largest moment");
    const Expr kc = Sym("k_c", r.kc);
    d.Add("k_c", Least({Num(1), 1 / Root(Sym("C_1", r.c1))}), r.kc, "", "6.3.2.3 (2), Table 6.6");
    const Expr f =
        Step(d, "f", Least({Num(1), 1 - 0.5 * (1 - kc) * (1 - 2 * Square(lam - Num(0.8)))}), "",
             "6.3.2.3 (2)");
    d.Add("χ_LT", Least({Num(1), cap, chi / f}), r.chi, "", "6.3.2.3 (2), Eq (6.58)");
}

}  // namespace

void AddStandardLateral(const standard::LateralResult& r, double gammam1, Document& d)
{
    if (!(r.mcr > 0) || !(r.chi > 0)) {
        return;
    }
    const double characteristic = r.resistance * gammam1 / r.chi;
    d.Add("M_cr", r.mcr, "kNm", "6.3.2.2 (2)");
    d.Add("M_Rk", characteristic, "kNm", "", "of the compressed side");
    d.Add("~λ_LT", Root(Sym("M_Rk", characteristic) / Sym("M_cr", r.mcr)), r.lam, "",
          "6.3.2.2 (1)");
    AddLateralReduction(r, d);
    d.Add("M_b,Rd", Sym("χ_LT", r.chi) * Sym("M_Rk", characteristic) / Sym("γ_M1", gammam1),
          r.resistance, "kNm", "6.3.2.1 (3), Eq (6.55)");
}

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
