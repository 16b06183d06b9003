#include "design/effective_welded.h"

#include "core/arithmetic_trap.h"
#include "design/local_buckling.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

double LostWidth(const ProjectState& s, double c, double t, double k)
{
    if (s.checkflangebuck == kTrue) {
        return 0;
    }
    const double lambda = PlateSlenderness(c, t, s.eps, k);
    return (1 - (k == kInternal ? RhoInternal(lambda) : RhoOutstand(lambda))) * c;
}

// What is left of the section after the losses, by its second moment about the compressed edge.
struct Rest {
    double area;   // mm2
    double edge;   // second moment about the compressed edge, mm4
    double first;  // first moment about it, mm3
};

// Gross section less the flange's loss.
Rest LessFlange(const ProjectState& s, const WeldedSide& side, double loss)
{
    const double a = s.a, t = side.t;
    return {a - loss, s.iy + a * side.edge * side.edge - loss * (t * t / 12 + t * t / 4),
            side.edge * a - loss * t / 2};
}

// A strip of height w of all webs, its centre zw from the compressed edge.
void TakeStrip(Rest& rest, double width, double w, double zw)
{
    const double area = width * w;
    rest.area -= area;
    rest.edge -= width * w * w * w / 12 + area * zw * zw;
    rest.first -= area * zw;
}

// Moduli with the neutral axis z from the compressed edge.
EffectiveModuli ModuliAbout(const Rest& rest, const WeldedSide& side, double z)
{
    const double i = rest.edge - rest.area * z * z;
    return {i / z, i / (side.edge + side.opposite - z)};
}

}  // namespace

// EN 1993-1-5, 4.4 (2), Table 4.1 (psi = 1) and 4.2 (psi = 1).
double FlangeLoss(const ProjectState& s, const Flange& flange)
{
    const double t = flange.t;
    const double width = LostWidth(s, flange.inner, t, kInternal) +
                         LostWidth(s, flange.left, t, kOutstand) +
                         LostWidth(s, flange.right, t, kOutstand);
    return width * t;
}

double WebLoss(const ProjectState& s)
{
    if (s.checkwebbuck == kTrue) {
        return 0;
    }
    const double rho = RhoInternal(PlateSlenderness(s.d, s.tw, s.eps, kInternal));
    return Webs(s) * (1 - rho) * s.d * s.tw;
}

// EN 1993-1-5, 4.4 (3) and Table 4.1. The stress ratio of the web is that of the section without
// the flange's loss; a neutral axis in the flange leaves 1 mm of compressed web.
EffectiveModuli EffectiveBending(const ProjectState& s, const WeldedSide& side,
                                 const Flange& flange, const EffectiveScheme& scheme)
{
    Rest rest = LessFlange(s, side, FlangeLoss(s, flange));
    const double gross = rest.area;
    const double z1 = rest.first / rest.area;

    if (scheme.webbuckles && s.checkwebbuck != kTrue) {
        double hc = z1 - side.t - scheme.leg;  // compressed part of the web
        if (!(hc > 0)) {
            hc = 1;
        }
        const double psi = StressRatio(-(s.d - hc) / hc);
        const double rho =
            RhoInternal(PlateSlenderness(s.d, s.tw, s.eps, KSigmaInternal(psi)), psi);
        const double w = (1 - rho) * hc;
        TakeStrip(rest, 1.0 * Webs(s) * s.tw, w, z1 - 0.6 * rho * hc - w / 2);
    }
    return ModuliAbout(rest, side, rest.first / (scheme.netcentroid ? rest.area : gross));
}

// The compressed tip loses (1 - rho) of the compressed part, down from the tip.
EffectiveModuli EffectiveTip(const ProjectState& s, const WeldedSide& side)
{
    Rest rest = LessFlange(s, side, 0);
    if (s.checkwebbuck != kTrue) {
        const double hc = side.edge;
        const double psi = -(s.hw - hc) / hc;
        const double lambda = PlateSlenderness(s.d, s.tw, s.eps, KSigmaOutstand(psi));
        const double w = (1 - RhoOutstand(lambda)) * hc;
        TakeStrip(rest, s.tw, w, w / 2);
    }
    return ModuliAbout(rest, side, rest.first / rest.area);
}

void StoreEffective(ProjectState& s, const EffectiveModuli& top, const EffectiveModuli& bottom)
{
    s.weffytop1 = F32(top.compressed);
    s.weffytop2 = F32(top.opposite);
    s.weffybot1 = F32(bottom.compressed);
    s.weffybot2 = F32(bottom.opposite);
    s.weffy = std::min({s.weffytop1, s.weffytop2, s.weffybot1, s.weffybot2});
}

void CalcEffectiveTwoWebs(ProjectState& s)
{
    const Flange top = TopFlange(s), bottom = BottomFlange(s);
    const EffectiveScheme scheme{.leg = s.r, .webbuckles = true, .netcentroid = true};
    s.aeff = F32(s.a - FlangeLoss(s, top) - FlangeLoss(s, bottom) - WebLoss(s));
    StoreEffective(s, EffectiveBending(s, TopSide(s), top, scheme),
                   EffectiveBending(s, BottomSide(s), bottom, scheme));
}

}  // namespace kestrum
