#include "design/shear.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

double ShearReduction(double v, double vrd)
{
    if (!(v > 0.5 * vrd)) {
        return 0.0;
    }
    const double excess = 2.0 * v / vrd - 1.0;
    return std::min(1.0, excess * excess);
}

// Deviation D46: 72 eps/eta with stiffeners too; EN 1993-1-5, 5.1 (2) has 31 eps sqrt(k_tau)/eta
// for webs with stiffeners.
bool StockyInShear(const Inputs& in, const SectionRecord& section, double hw, double t)
{
    return hw / t < 72.0 * section.eps / in.neta;
}

double WebSlenderness(const SectionRecord& section, double hw, double t)
{
    return hw / (86.4 * section.eps * t);
}

double WebSlendernessStiffened(const Inputs& in, const SectionRecord& section, double hw, double t)
{
    if (in.webstiff == 0) {
        return WebSlenderness(section, hw, t);
    }
    const double a = in.webstiffa;
    const double squared = (hw / a) * (hw / a);
    const double ktau = a / hw >= 1.0 ? 5.34 + 4.0 * squared : 4.0 + 5.34 * squared;
    return hw / (37.4 * section.eps * t * std::sqrt(ktau));
}

double ChiWeb(const Inputs& in, double lambda)
{
    return lambda < 0.83 / in.neta ? in.neta : 0.83 / lambda;
}

double ChiWebEndPost(const Inputs& in, double lambda)
{
    if (in.endstiff == 0 || lambda < 1.08) {
        return ChiWeb(in, lambda);
    }
    return 1.37 / (0.7 + lambda);
}

// Deviation D159: the panel length is webstiffa also without stiffeners (webstiff 0); the
// standard's a is then the distance of the stiffeners at the supports.
//
// Deviation D30: the whole width of the flange counts; the standard takes no more than 15 eps tf on
// each side of the web.
double FlangeShear(const Inputs& in, const Resistances& resistances, const SectionChecks& checks,
                   double hw, double tw, double b, double tf)
{
    if (!(checks.myed < resistances.mfrd)) {
        return 0.0;
    }
    // The yield strengths of flange and web are equal and leave the quotient.
    const double c = in.webstiffa * (0.25 + 1.6 * b * tf * tf / (hw * hw * tw));  // mm
    const double used = checks.myed / resistances.mfrd;
    return b * tf * tf * in.fyk / (c * in.gammam1) * (1 - used * used) / 1000;
}

}  // namespace kestrum
