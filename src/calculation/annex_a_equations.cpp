#include "calculation/annex_a_equations.h"

#include <cmath>

namespace kestrum {

namespace {

constexpr const char* kA1 = "Table A.1";

class AnnexA {
public:
    AnnexA(const AnnexAValues& values, Document& d) : v_(values), d_(d) {}
    void Write();

private:
    Expr Add(const char* symbol, const Expr& formula, double& value, Line remark = {})
    {
        if (std::isnan(value)) {
            value = Evaluate(formula);
        }
        d_.Add(symbol, formula, value, "", kA1, std::move(remark));
        return Sym(symbol, value);
    }
    // NEd over the critical force.
    Expr Share(const char* critical, double ncr) const
    {
        return Sym("N_Ed", v_.ned) / Sym(critical, ncr);
    }
    // (1 - N/Ncr,z)(1 - N/Ncr,T); the second factor is 1 where torsion takes no part.
    Expr Free(const char* torsional, double ncr) const
    {
        const Expr z = 1 - Share("N_cr,z", v_.ncrz);
        return std::isfinite(ncr) ? z * (1 - Share(torsional, ncr)) : z;
    }
    void Equivalent();
    void Plasticity();

    AnnexAValues v_;
    Document& d_;
    Expr alt_{}, lam0_{}, cmy_{}, cmz_{}, wy_{}, wz_{};
    Expr cyy_{}, cyz_{}, czy_{}, czz_{};
};

void AnnexA::Equivalent()
{
    alt_ = Add("a_LT", Largest({Num(0), 1 - Sym("I_T", v_.it) / Sym("I_y", v_.iy)}), v_.alt);
    lam0_ = Sym("~λ_0", v_.lam0);
    const Expr limit = 0.2 * Root(Sym("C_1", v_.c1)) * Root(Root(Free("N_cr,TF", v_.ncrtf)));
    double most = AnnexAValues::kUnknown;
    Add("~λ_0,lim", limit, most);
    const Expr cmy0 = Sym("C_my,0", v_.cmy0);
    if (!v_.twists || v_.lam0 <= most) {
        Add("C_my", cmy0, v_.cmy);
        d_.Add("C_mLT", v_.cmlt, "", kA1,
               v_.twists ? Line(Symbol("~λ_0")) + Line(" is within its limit")
                         : Line("does not twist"));
    } else {
        Expr weight = Num(0);
        if (v_.ned != 0) {
            const Expr eps = Add("ε_y",
                                 Sym("M_y,Ed", v_.my) * Sym("A", v_.a_eps) /
                                     (Sym("N_Ed", v_.ned) * Sym("W_y", v_.w_eps)) * Ten(3),
                                 v_.epsy);
            weight = Root(eps) * alt_;
        }
        Add("C_my", cmy0 + (1 - cmy0) * weight / (1 + weight), v_.cmy);
        Add("C_mLT",
            Largest({Num(1), Square(Sym("C_my", v_.cmy)) * alt_ / Root(Free("N_cr,T", v_.ncrt))}),
            v_.cmlt);
    }
    cmy_ = Sym("C_my", v_.cmy);
    cmz_ = Add("C_mz", Sym("C_mz,0", v_.cmz0), v_.cmz);
}

void AnnexA::Plasticity()
{
    const Expr wely = Sym("W_el,y", v_.wely), wply = Sym("W_pl,y", v_.wply);
    const Expr welz = Sym("W_el,z", v_.welz), wplz = Sym("W_pl,z", v_.wplz);
    wy_ = Add("w_y", Least({Num(1.5), wply / wely}), v_.wy);
    wz_ = Add("w_z", Least({Num(1.5), wplz / welz}), v_.wz);
    const Expr npl =
        Add("n_pl", Sym("N_Ed", v_.ned) / Sym("N_Rd", v_.resistance), v_.npl, v_.npl_remark);
    const Expr lamz = Sym("~λ_z", v_.lamz);
    const Expr lam = Add("~λ_max", Largest({Sym("~λ_y", v_.lamy), lamz}), v_.lammax);
    const Expr strength = Sym("f_y", v_.fy) / Sym(v_.gamma_symbol, v_.gamma) * Ten(-6);
    d_.Add("M_pl,y,Rd", wply * strength, v_.mply, "kNm", kA1);
    d_.Add("M_pl,z,Rd", wplz * strength, v_.mplz, "kNm", kA1);
    const Expr my = Sym("M_y,Ed", v_.my) / (Sym(v_.lateral, v_.chilt) * Sym("M_pl,y,Rd", v_.mply));
    const Expr mz = Sym("M_z,Ed", v_.mz) / Sym("M_pl,z,Rd", v_.mplz);
    const Expr four = Power(lamz, Num(4)), five = Num(5);
    const Expr blt = Add("b_LT", 0.5 * alt_ * Square(lam0_) * my * mz, v_.blt);
    const Expr clt = Add("c_LT", 10 * alt_ * Square(lam0_) / (5 + four) * (my / cmy_), v_.clt);
    const Expr dlt =
        Add("d_LT", 2 * alt_ * lam0_ / (0.1 + four) * (my / cmy_) * (mz / cmz_), v_.dlt);
    const Expr elt = Add("e_LT", 1.7 * alt_ * lam0_ / (0.1 + four) * (my / cmy_), v_.elt);
    const auto both = [&](const Expr& cm, const Expr& w) {
        return 2 - 1.6 / w * Square(cm) * (lam + Square(lam));
    };
    const auto cross = [&](const Expr& cm, const Expr& w) {
        return 2 - 14 * Square(cm) * Square(lam) / Power(w, five);
    };
    cyy_ = Add("C_yy", Largest({1 + (wy_ - Num(1)) * (both(cmy_, wy_) * npl - blt), wely / wply}),
               v_.cyy);
    cyz_ = Add("C_yz",
               Largest({1 + (wz_ - Num(1)) * (cross(cmz_, wz_) * npl - clt),
                        0.6 * Root(wz_ / wy_) * (welz / wplz)}),
               v_.cyz);
    czy_ = Add("C_zy",
               Largest({1 + (wy_ - Num(1)) * (cross(cmy_, wy_) * npl - dlt),
                        0.6 * Root(wy_ / wz_) * (wely / wply)}),
               v_.czy);
    czz_ = Add("C_zz", Largest({1 + (wz_ - Num(1)) * (both(cmz_, wz_) - elt) * npl, welz / wplz}),
               v_.czz);
}

void AnnexA::Write()
{
    Equivalent();
    const Expr ny = Share("N_cr,y", v_.ncry), nz = Share("N_cr,z", v_.ncrz);
    const Expr muy = Add("μ_y", (1 - ny) / (1 - Sym("χ_y", v_.chiy) * ny), v_.muy);
    const Expr muz = Add("μ_z", (1 - nz) / (1 - Sym("χ_z", v_.chiz) * nz), v_.muz);
    if (v_.plastic_y || v_.plastic_z) {
        Plasticity();
    }
    const Expr cmy = cmy_ * Sym("C_mLT", v_.cmlt);
    const Expr kyy = cmy * (muy / (1 - ny)), kzy = cmy * (muz / (1 - ny));
    const Expr kyz = cmz_ * (muy / (1 - nz)), kzz = cmz_ * (muz / (1 - nz));
    Add("k_yy", v_.plastic_y ? kyy / cyy_ : kyy, v_.kyy);
    Add("k_yz", v_.plastic_z ? kyz / cyz_ * 0.6 * Root(wz_ / wy_) : kyz, v_.kyz);
    Add("k_zy", v_.plastic_y ? kzy / czy_ * 0.6 * Root(wy_ / wz_) : kzy, v_.kzy);
    Add("k_zz", v_.plastic_z ? kzz / czz_ : kzz, v_.kzz);
}

}  // namespace

void AddAnnexAFactors(const AnnexAValues& values, Document& d)
{
    AnnexA(values, d).Write();
}

}  // namespace kestrum
