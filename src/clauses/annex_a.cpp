#include "clauses/annex_a.h"

#include <algorithm>
#include <cmath>

namespace kestrum::clauses {

namespace {

struct Plasticity {
    double cyy, cyz, czy, czz;
};

// Table A.1: Cyy to Czz.
Plasticity PlasticityOf(const AnnexAInputs& in, double wy, double wz, double cmy, double cmz,
                        double alt)
{
    const double npl = in.ned / in.nrk;
    const double lam = std::max(in.lamy, in.lamz);
    const double both = lam + lam * lam;
    const double lamz4 = std::pow(in.lamz, 4);
    const double my = in.my / (in.chilt * in.mply);
    const double mz = in.mz / in.mplz;
    const double lam02 = in.lam0 * in.lam0;
    const double blt = 0.5 * alt * lam02 * my * mz;
    const double clt = 10 * alt * lam02 / (5 + lamz4) * my / cmy;
    const double dlt = 2 * alt * in.lam0 / (0.1 + lamz4) * my / cmy * mz / cmz;
    const double elt = 1.7 * alt * in.lam0 / (0.1 + lamz4) * my / cmy;
    Plasticity c{};
    c.cyy = 1 + (wy - 1) * ((2 - 1.6 / wy * cmy * cmy * both) * npl - blt);
    c.cyz = 1 + (wz - 1) * ((2 - 14 * cmz * cmz * lam * lam / std::pow(wz, 5)) * npl - clt);
    c.czy = 1 + (wy - 1) * ((2 - 14 * cmy * cmy * lam * lam / std::pow(wy, 5)) * npl - dlt);
    c.czz = 1 + (wz - 1) * (2 - 1.6 / wz * cmz * cmz * both - elt) * npl;
    c.cyy = std::max(c.cyy, in.wely / in.wply);
    c.cyz = std::max(c.cyz, 0.6 * std::sqrt(wz / wy) * in.welz / in.wplz);
    c.czy = std::max(c.czy, 0.6 * std::sqrt(wy / wz) * in.wely / in.wply);
    c.czz = std::max(c.czz, in.welz / in.wplz);
    return c;
}

}  // namespace

double CmStraight(double psi, double n)
{
    return 0.79 + 0.21 * psi + 0.36 * (psi - 0.33) * n;
}

double CmUniformLoad(double n)
{
    return 1 + 0.03 * n;
}

double CmPointLoad(double n)
{
    return 1 - 0.18 * n;
}

double CmGeneral(double euler, double delta, double moment, double n)
{
    return 1 + (euler * std::abs(delta) / std::abs(moment) - 1) * n;
}

AnnexAFactors FactorsOfAnnexA(const AnnexAInputs& in)
{
    const double ny = in.ned / in.ncry;
    const double nz = in.ned / in.ncrz;
    const double alt = std::max(0.0, 1 - in.it / in.iy);
    const double twisting = (1 - nz) * (1 - in.ned / in.ncrtf);
    const double limit = 0.2 * std::sqrt(in.c1) * std::sqrt(std::sqrt(std::max(0.0, twisting)));
    AnnexAFactors f{};
    f.cmy = in.cmy0;
    f.cmz = in.cmz0;
    f.cmlt = 1;
    if (in.twists && in.lam0 > limit) {
        const double epsy = in.ned > 0 ? in.my / in.ned * in.a_epsy / in.w_elastic_y : 0;
        const double root = std::sqrt(epsy) * alt;
        f.cmy = in.cmy0 + (1 - in.cmy0) * root / (1 + root);
        if (in.bends_only && alt > 0) {  // the limit of the fraction
            f.cmy = 1;
        }
        f.cmlt = std::max(1.0, f.cmy * f.cmy * alt / std::sqrt((1 - nz) * (1 - in.ned / in.ncrt)));
    }
    const double muy = (1 - ny) / (1 - in.chiy * ny);
    const double muz = (1 - nz) / (1 - in.chiz * nz);
    f.k.kyy = f.cmy * f.cmlt * muy / (1 - ny);
    f.k.kyz = f.cmz * muy / (1 - nz);
    f.k.kzy = f.cmy * f.cmlt * muz / (1 - ny);
    f.k.kzz = f.cmz * muz / (1 - nz);
    if (!in.plastic) {
        return f;
    }
    const double wy = std::min(1.5, in.wply / in.wely);
    const double wz = std::min(1.5, in.wplz / in.welz);
    const Plasticity c = PlasticityOf(in, wy, wz, f.cmy, f.cmz, in.twists ? alt : 0);
    f.k.kyy /= c.cyy;
    f.k.kyz *= 0.6 * std::sqrt(wz / wy) / c.cyz;
    f.k.kzy *= 0.6 * std::sqrt(wy / wz) / c.czy;
    f.k.kzz /= c.czz;
    return f;
}

}  // namespace kestrum::clauses
