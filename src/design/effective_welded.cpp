#include "design/effective_welded.h"

#include "core/arithmetic_trap.h"
#include "design/local_buckling.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

double LostWidth(const Inputs& in, const SectionRecord& section, double c, double t, double k)
{
    if (in.checkflangebuck == kTrue) {
        return 0;
    }
    const double lambda = PlateSlenderness(c, t, section.eps, k);
    return (1 - (k == kInternal ? RhoInternal(lambda) : RhoOutstand(lambda))) * c;
}

// What is left of the section after the losses, by its second moment about the compressed edge.
struct Rest {
    double area;   // mm2
    double edge;   // second moment about the compressed edge, mm4
    double first;  // first moment about it, mm3
};

// Gross section less the flange's loss.
Rest LessFlange(const SectionRecord& section, const WeldedSide& side, double loss)
{
    const double a = section.a, t = side.t;
    return {a - loss, section.iy + a * side.edge * side.edge - loss * (t * t / 12 + t * t / 4),
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
double FlangeLoss(const Inputs& in, const SectionRecord& section, const Flange& flange)
{
    const double t = flange.t;
    const double width = LostWidth(in, section, flange.inner, t, kInternal) +
                         LostWidth(in, section, flange.left, t, kOutstand) +
                         LostWidth(in, section, flange.right, t, kOutstand);
    return width * t;
}

double WebLoss(const Inputs& in, const SectionRecord& section)
{
    if (in.checkwebbuck == kTrue) {
        return 0;
    }
    const double rho = RhoInternal(PlateSlenderness(section.d, section.tw, section.eps, kInternal));
    return Webs(in) * (1 - rho) * section.d * section.tw;
}

// EN 1993-1-5, 4.4 (3) and Table 4.1. The stress ratio of the web is that of the section without
// the flange's loss; a neutral axis in the flange leaves 1 mm of compressed web.
EffectiveModuli EffectiveBending(const Inputs& in, const SectionRecord& section,
                                 const WeldedSide& side, const Flange& flange,
                                 const EffectiveScheme& scheme)
{
    Rest rest = LessFlange(section, side, FlangeLoss(in, section, flange));
    const double gross = rest.area;
    const double z1 = rest.first / rest.area;

    if (scheme.webbuckles && in.checkwebbuck != kTrue) {
        double hc = z1 - side.t - scheme.leg;  // compressed part of the web
        if (!(hc > 0)) {
            hc = 1;
        }
        const double psi = StressRatio(-(section.d - hc) / hc);
        const double rho = RhoInternal(
            PlateSlenderness(section.d, section.tw, section.eps, KSigmaInternal(psi)), psi);
        const double w = (1 - rho) * hc;
        TakeStrip(rest, 1.0 * Webs(in) * section.tw, w, z1 - 0.6 * rho * hc - w / 2);
    }
    return ModuliAbout(rest, side, rest.first / (scheme.netcentroid ? rest.area : gross));
}

// The compressed tip loses (1 - rho) of the compressed part, down from the tip.
EffectiveModuli EffectiveTip(const Inputs& in, const SectionRecord& section, const WeldedSide& side)
{
    Rest rest = LessFlange(section, side, 0);
    if (in.checkwebbuck != kTrue) {
        const double hc = side.edge;
        const double psi = -(section.hw - hc) / hc;
        const double lambda =
            PlateSlenderness(section.d, section.tw, section.eps, KSigmaOutstand(psi));
        const double w = (1 - RhoOutstand(lambda)) * hc;
        TakeStrip(rest, section.tw, w, w / 2);
    }
    return ModuliAbout(rest, side, rest.first / rest.area);
}

void StoreEffective(SectionRecord& section, const EffectiveModuli& top,
                    const EffectiveModuli& bottom)
{
    section.weffytop1 = F32(top.compressed);
    section.weffytop2 = F32(top.opposite);
    section.weffybot1 = F32(bottom.compressed);
    section.weffybot2 = F32(bottom.opposite);
    section.weffy =
        std::min({section.weffytop1, section.weffytop2, section.weffybot1, section.weffybot2});
}

void CalcEffectiveTwoWebs(const Inputs& in, SectionRecord& section)
{
    const Flange top = TopFlange(in, section), bottom = BottomFlange(in, section);
    const EffectiveScheme scheme{.leg = section.r, .webbuckles = true, .netcentroid = true};
    section.aeff = F32(section.a - FlangeLoss(in, section, top) - FlangeLoss(in, section, bottom) -
                       WebLoss(in, section));
    StoreEffective(section, EffectiveBending(in, section, TopSide(in, section), top, scheme),
                   EffectiveBending(in, section, BottomSide(in, section), bottom, scheme));
}

}  // namespace kestrum
