#include "stability/lateral_torsional.h"

#include "core/arithmetic_trap.h"
#include "core/member_choices.h"
#include "design/stiffened_plate_section.h"
#include "sections/families.h"
#include "stability/constants.h"
#include "stability/lt_factors.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace kestrum {
namespace {

// The single-symmetric I, with a resistance and a curve for each sign of the moment.
bool IsSingle(const Inputs& in)
{
    return Is(in, Kind::i_single);
}

double Quotient(double a, double b)
{
    return a / b;
}

// zload and zg, mm; positive above the centroid and the shear centre.
// Deviation D213: the sign follows the level only. Under uplift a load on the bottom flange
// destabilises, and is taken as stabilising here.
void SetLoadLevel(const Inputs& in, const SectionRecord& section, Stability& stability)
{
    stability.zload = 0.0;
    stability.zg = 0.0;
    if (Is(in, Kind::plate, Kind::general)) {
        return;
    }
    const double h = section.h;
    const bool single = IsSingle(in);
    switch (in.loadlevel) {
    case 1:
        stability.zload = single ? h - section.zcog : h / 2.0;
        break;
    case 3:
        stability.zload = single ? -static_cast<double>(section.zcog) : -h / 2.0;
        break;
    case 4:
        stability.zload = in.za;
        break;
    default:
        break;
    }
    stability.zg = single ? stability.zload - section.zshear : stability.zload;
}

// Nmm; lever = C2 zg - C3 zj in mm, length in mm.
double CriticalMoment(const Inputs& in, const SectionRecord& section, double c1, double lever,
                      double length)
{
    if (Is(in, Kind::plate)) {
        return PlateMcr(in, section, length);
    }
    const double e = in.e;
    const double iz = section.iz;
    const double euler = kStabilityPi * kStabilityPi * e * iz;
    const double squared = length * length;
    const double torsion = squared * (e / kShearRatio) * section.it / euler;
    return c1 * euler / squared * (std::sqrt(torsion + section.iw / iz + lever * lever) - lever);
}

// C3 zj, mm: asymmetry of the single-symmetric I.
double Asymmetry(const Inputs& in, const SectionRecord& section, double c3, bool top)
{
    if (!IsSingle(in)) {
        return 0.0;
    }
    return c3 * (top ? section.zjtop : section.zjbot);
}

double SideResistance(const Inputs& in, const Resistances& resistances, bool top)
{
    if (!Is(in, Kind::i_single, Kind::plate)) {
        return resistances.myrdm1;
    }
    return top ? resistances.mytoprd : resistances.mybotrd;
}

// lambda_LT, Eq (6.56).
float Slenderness(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                  double mcr, bool top)
{
    double w = resistances.wyused;
    if (IsSingle(in)) {
        w = top ? section.wytop : section.wybot;
    } else if (Is(in, Kind::plate)) {
        w = section.wybot;
    }
    return F32(std::sqrt(w * in.fyk / mcr));
}

double HeightOverWidth(const Inputs& in, const SectionRecord& section, bool top)
{
    if (IsSingle(in)) {
        return Quotient(section.h, top ? section.btop : section.bbot);
    }
    if (Is(in, Kind::plate)) {
        return Quotient(section.hw, section.bbot);
    }
    return Quotient(section.h, section.b);
}

constexpr double kA = 0.21;
constexpr double kB = 0.34;
constexpr double kC = 0.49;
constexpr double kD = 0.76;

// Table 6.4.
double AlphaGeneral(const Inputs& in, const SectionRecord& section, bool top)
{
    const LateralCurves curves = Traits(in).design.lateral_curves;
    if (curves == LateralCurves::rolled) {
        return HeightOverWidth(in, section, top) <= 2.0 ? kA : kB;
    }
    return curves == LateralCurves::welded && HeightOverWidth(in, section, top) <= 2.0 ? kC : kD;
}

// Table 6.5.
// Deviation D239: in every annex; that of the United Kingdom, to 6.3.2.3 (1), gives rolled sections
// with h/b above 3.1 curve d.
double AlphaRolled(const Inputs& in, const SectionRecord& section, bool top)
{
    const bool stocky = HeightOverWidth(in, section, top) <= 2.0;
    if (Traits(in).design.lateral_curves == LateralCurves::rolled) {
        return stocky ? kB : kC;
    }
    return stocky ? kC : kD;
}

// 6.3.2.2 and not 6.3.2.3.
bool GeneralCurve(const Inputs& in)
{
    return Is(in, Kind::plate) || in.ltbcurve != LtbCurve::rolled;
}

LtReduction Curve(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                  const Stability& stability, double mcr, float kc, bool top)
{
    if (GeneralCurve(in)) {
        return LtCurveGeneral(in, section, resistances, mcr, top);
    }
    return LtCurveRolled(in, section, resistances, stability, mcr, kc, top);
}

// A piece of the member with everything that belongs to its check.
struct Piece {
    i16 number;    // 1 .. restraints + 1; 0 the whole member
    float moment;  // kNm
    double c1, c2, c3, mcr;
    float kc;
    LtReduction reduction;
    double resistance;  // kNm
};

// Deviation D235: kc follows C1 in every annex; 6.3.2.3 (2) recommends Table 6.6, which has 0.90
// for fixed ends under uniform load where C1 gives 0.62.
void Complete(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
              const Stability& stability, Piece& piece, bool top)
{
    piece.kc = F32(1.0 / std::sqrt(piece.c1));
    piece.reduction = Curve(in, section, resistances, stability, piece.mcr, piece.kc, top);
    piece.resistance = SideResistance(in, resistances, top);
}

void Keep(const Piece& piece, Stability& stability, Carry& carry)
{
    carry.beampart = piece.number;
    stability.mydesignf = piece.moment;
    stability.mltrd = piece.resistance;
    stability.ltc1 = piece.c1;
    stability.ltc2 = piece.c2;
    stability.ltc3 = piece.c3;
    stability.mcr = piece.mcr;
    stability.kc = piece.kc;
    stability.lamlt = piece.reduction.lamlt;
    stability.xlt0 = piece.reduction.xlt0;
    stability.xlt = piece.reduction.xlt;
    stability.ffactor = piece.reduction.ffactor;
}

void WholeMember(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                 const Forces& forces, Stability& stability, Carry& carry)
{
    const CFactors c = LtCFactors(in, forces);
    const bool top = stability.mydesignf > 0;
    carry.lt = F32(static_cast<double>(in.ltbk) * in.l);
    Piece piece{0, stability.mydesignf, c.c1, c.c2, c.c3, 0, 0, {}, 0};
    piece.mcr =
        CriticalMoment(in, section, c.c1, c.c2 * stability.zg - Asymmetry(in, section, c.c3, top),
                       carry.lt * 1000.0);
    Complete(in, section, resistances, stability, piece, top);
    Keep(piece, stability, carry);
}

// The diagram point nearest to restraint i of n + 1 equal parts.
std::size_t PointAt(int i, int parts)
{
    return CheckedIndex(ToI16(50.0 * i / parts), kDiagramPoints);
}

Piece Segment(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
              const Forces& forces, Stability& stability, const Carry& carry, int number,
              double& ratio)
{
    const int parts = in.restraints + 1;
    const float first = forces.mydiag[PointAt(number - 1, parts)];
    const float second = forces.mydiag[PointAt(number, parts)];
    const bool from_first = std::abs(first) >= std::abs(second);
    const double big = from_first ? first : second;
    const double small = from_first ? second : first;
    const double r = big == 0 ? 0.0 : small / big;
    const double mean = (static_cast<double>(first) + second) / 2.0;
    const bool top = mean > 0;
    const double k = in.ltbk;

    Piece piece{static_cast<i16>(number), from_first ? first : second, 0, 0, 0, 0, 0, {}, 0};
    piece.c1 = SegmentC1(r, k);
    piece.c3 = SegmentC3(r, k, top ? section.psiftop : section.psifbot);
    piece.mcr = CriticalMoment(in, section, piece.c1, -Asymmetry(in, section, piece.c3, top),
                               carry.lt * 1000.0);
    Complete(in, section, resistances, stability, piece, top);
    ratio = std::abs(big / (piece.reduction.xlt * piece.resistance));

    const std::size_t index = CheckedIndex(number, kSegments);
    stability.segc1[index] = piece.c1;
    stability.segc3[index] = piece.c3;
    stability.segmcr[index] = piece.mcr;
    return piece;
}

// Deviation D201: a segment is checked for the moments at its ends. A larger moment between them,
// as under a load inside the segment, is not seen; 6.3.2.1 (1) takes the design moment of the
// segment.
// Deviation D233: C1 and C3 are those of a straight moment line between the ends of the segment,
// and the load level does not count (C2 = 0), whatever loads act there; 6.3.2.2 (2) takes the
// loading conditions and the real moment distribution.
void Segments(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
              const Forces& forces, Stability& stability, Carry& carry)
{
    const auto restraints = static_cast<int>(CheckedIndex(in.restraints, kSegments - 1));
    carry.lt = F32(static_cast<double>(in.ltbk) * in.l / (restraints + 1));
    double highest = 0.0;
    for (int number = 1; number <= restraints + 1; ++number) {
        double ratio = 0.0;
        const Piece piece =
            Segment(in, section, resistances, forces, stability, carry, number, ratio);
        if (ratio >= highest) {  // the last of equal ratios
            highest = ratio;
            Keep(piece, stability, carry);
        }
    }
}

}  // namespace

double LtImperfection(const Inputs& in, const SectionRecord& section, bool top)
{
    return GeneralCurve(in) ? AlphaGeneral(in, section, top) : AlphaRolled(in, section, top);
}

// Eq (6.56), Table 6.4. There is neither a plateau nor a factor f.
// Deviation D214: a reduction acts from a slenderness of 0.2 on; 6.3.2.2 (4) allows to leave it out
// up to lamLT0.
LtReduction LtCurveGeneral(const Inputs& in, const SectionRecord& section,
                           const Resistances& resistances, double mcr, bool top)
{
    const float lamlt = Slenderness(in, section, resistances, mcr, top);
    const double lam = lamlt;
    const double phi = 0.5 * (1.0 + AlphaGeneral(in, section, top) * (lam - 0.2) + lam * lam);
    const double root = std::sqrt(std::max(0.0, phi * phi - lam * lam));
    const double xlt = std::min(1.0, 1.0 / (phi + root));
    return {lamlt, xlt, xlt, 1.0f};
}

// Eq (6.57), (6.58), Table 6.5. Families without this curve get no reduction.
//   in   wyused or the modulus of the side [mm3], fyk [MPa], h, b or btop, bbot [mm], lamdalt0,
//   beta,
//        lamdalt0w, betaw, kc
//
// Deviation D215: the double-symmetric welded I (21) and the general profile (41) take the
// parameters of rolled sections; National Annexes may give welded ones a lower plateau. Deviation
// D216: kc above 1, as C1 below 1 gives it, makes f fall below 1 at lamlt above 1.507 and even
// negative beyond 3; kc of Table 6.6 is never above 1, and f stays 1.
LtReduction LtCurveRolled(const Inputs& in, const SectionRecord& section,
                          const Resistances& resistances, const Stability& stability, double mcr,
                          float kc, bool top)
{
    if (!Traits(in).design.rolled_case) {
        return {stability.lamlt, 1.0, 1.0, 1.0f};
    }
    const float lamlt = Slenderness(in, section, resistances, mcr, top);
    const double lam = lamlt;
    const bool single = IsSingle(in);
    const double plateau = single ? in.lamdalt0w : in.lamdalt0;
    const double beta = single ? in.betaw : in.beta;
    const double cap = 1.0 / (lam * lam);

    const double phi =
        0.5 * (1.0 + AlphaRolled(in, section, top) * (lam - plateau) + beta * lam * lam);
    const double root = std::sqrt(std::max(0.0, phi * phi - beta * lam * lam));
    double xlt0 = std::min(1.0, 1.0 / (phi + root));
    if (!single) {
        xlt0 = std::min(xlt0, cap);
    }
    const double bow = (lam - 0.8) * (lam - 0.8);
    const float f = F32(std::min(1.0, 1.0 - 0.5 * (1.0 - kc) * (1.0 - 2.0 * bow)));
    return {lamlt, xlt0, std::min({xlt0 / f, cap, 1.0}), f};
}

// EN 1993-1-1, 6.3.2.
//   in   loadmode, restraints, ltbk, l [m], ltbcurve, loadlevel, za [mm], section and resistances,
//        mydesignf [kNm], mydiag [kNm]
//   out  beampart, mydesignf, mltrd [kNm], ltc1..3, kc, lt [m], zg, zload [mm], mcr [Nmm], lamlt,
//        xlt0, xlt, ffactor, segc1, segc3, segmcr
// Deviations D201, D213, D233, D235: see above. More than five restraints stop the pass.
void LateralTorsionalBuckling(const Inputs& in, const SectionRecord& section,
                              const Resistances& resistances, const Forces& forces,
                              Stability& stability, Carry& carry)
{
    SetLoadLevel(in, section, stability);
    if (in.loadmode == 1 && in.restraints == 0) {
        WholeMember(in, section, resistances, forces, stability, carry);
    } else {
        Segments(in, section, resistances, forces, stability, carry);
    }
}

// EN 1993-1-1, Annex A: lambda_0 of the uniform moment, with C1 from 1 (k = 1) to 1.05 (k = 0.5).
// Deviation D244: over the effective length for k below 1; Table A.1 has the uniform moment of the
// member. Deviation D245: also where lateral torsional buckling is not controlled; members that
// cannot twist have lambda_0 = 0.
//   in   ltbk, l [m], restraints, section, myrdm1 [kNm], gammam1, mymid [kNm]
//   out  lt [m], mcr0 [Nmm], lam0
void LtUniformMcr(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                  const Forces& forces, Stability& stability, Carry& carry)
{
    const double k = (in.ltbk - 0.5) / 0.5;
    const double c1 = 1.05 + k * (1.0 - 1.05);
    const double c3 = 1.019 + k * (1.0 - 1.019);
    carry.lt = F32(static_cast<double>(in.ltbk) * in.l / (in.restraints + 1));
    stability.mcr0 = CriticalMoment(in, section, c1, -Asymmetry(in, section, c3, forces.mymid > 0),
                                    carry.lt * 1000.0);
    stability.lam0 = F32(std::sqrt(in.gammam1 * resistances.myrdm1 / stability.mcr0 * 1e6));
}

}  // namespace kestrum
