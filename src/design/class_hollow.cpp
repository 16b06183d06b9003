#include "design/class_hollow.h"

#include "design/class_limits.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

// The part that the moment bends.
struct BentPart {
    double slenderness;  // c/t
    double squash;       // N at which it yields all over, N
    double sigma1;       // at the edge compressed by the moment, MPa, compression negative
    double psi;          // ratio of the stress at the other edge to it, 0 when it is 0
};

// c: straight length of the part; area of the part that n is measured against, mm2; i: second
// moment, mm4.
BentPart Bent(const Inputs& in, const SectionRecord& section, double n, double m, double c,
              double t, double area, double i)
{
    const double bending = std::abs(m * 1e6 * (c / 2) / i);
    const double axial = n * 1000 / section.a;
    const double sigma1 = -bending - axial;
    const double psi = sigma1 == 0 ? 0.0 : (bending - axial) / sigma1;
    return {c / t, area * in.fyk, sigma1, psi};
}

i16 InCompression(double slenderness, double eps)
{
    return ClassBelow(slenderness, 33 * eps, 38 * eps, 42 * eps);
}

// Class 3 or 4.
i16 Elastic(const BentPart& part, double eps)
{
    const double divisor = 0.67 + 0.33 * part.psi;
    return divisor > 0 && part.slenderness <= 42 * eps / divisor ? i16{3} : i16{4};
}

i16 CompressionBending(const BentPart& part, double n, double eps)
{
    const double alpha = 0.5 * (1 + std::min(1.0, n * 1000 / part.squash));
    if (part.slenderness <= 396 * eps / (13 * alpha - 1)) {
        return 1;
    }
    if (part.slenderness <= 456 * eps / (13 * alpha - 1)) {
        return 2;
    }
    return Elastic(part, eps);
}

i16 TensionBending(const BentPart& part, double n, double eps)
{
    const double nn = -n * 1000 / part.squash;
    if (nn >= 1) {
        return 1;  // nothing of the part is compressed
    }
    const double alpha = 1 - 0.5 * (1 + nn);
    if (part.slenderness <= 36 * eps / alpha) {
        return 1;
    }
    if (part.slenderness <= 41.5 * eps / alpha) {
        return 2;
    }
    return part.sigma1 == 0 ? i16{1} : Elastic(part, eps);
}

// Classes of the bent part and of the compressed one beside it, of slenderness `beside`.
struct Classes {
    i16 bent = 1;
    i16 beside = 1;
};

Classes Classify(const BentPart& part, double beside, double n, double m, double eps)
{
    Classes classes;
    if (m == 0 && n <= 0) {
        return classes;
    }
    if (m == 0) {
        classes.bent = InCompression(part.slenderness, eps);
    } else if (n == 0 && m > 0) {
        classes.bent = ClassBelow(part.slenderness, 72 * eps, 83 * eps, 124 * eps);
    } else if (n >= 0) {
        classes.bent = CompressionBending(part, n, eps);
    } else {
        classes.bent = TensionBending(part, n, eps);
    }
    if (part.sigma1 < 0) {
        classes.beside = InCompression(beside, eps);
    }
    return classes;
}

}  // namespace

// Deviation D166: the limits of compression and of bending alone are not included, and the limit of
// class 3 takes 42 eps/(0.67 + 0.33 psi) for every psi; the standard includes its limits and takes
// 62 eps (1 - psi) sqrt(-psi) from psi = -1 down. A class 3 that this yields under tension cannot
// raise a moment resistance, which never exceeds the one of the moment alone.
//
// Deviation D168: N is measured against the clear height of one web, hw tw, although both webs
// carry it, so that compression makes the class worse than by Table 5.2, and tension better.
i16 CalcClassHollowY(const Inputs& in, SectionRecord& section, const SectionChecks&, float n,
                     float m)
{
    const BentPart web =
        Bent(in, section, n, m, section.d, section.tw, 1.0 * section.hw * section.tw, section.iy);
    const Classes classes = Classify(web, 1.0 * section.cflange / section.tf, n, m, section.eps);
    section.classweb = classes.bent;
    section.classflange = classes.beside;
    return std::max(section.classflange, section.classweb);
}

// Deviation D166 (limits).
//
// Deviation D169: of a box the flange beyond the webs has no class; the standard classes it as an
// outstand.
i16 CalcClassHollowZ(const Inputs& in, SectionRecord& section, const SectionChecks&, float n,
                     float m)
{
    const BentPart flange = Bent(in, section, n, m, section.cflange, section.tf,
                                 2.0 * section.tf * section.bw, section.iz);
    const Classes classes = Classify(flange, 1.0 * section.d / section.tw, n, m, section.eps);
    section.classflange = classes.bent;
    section.classweb = classes.beside;
    return std::max(section.classflange, section.classweb);
}

}  // namespace kestrum
