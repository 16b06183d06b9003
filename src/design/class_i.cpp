#include "design/class_i.h"

#include "design/class_limits.h"
#include "design/local_buckling.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

// Stresses at the two edges, MPa, compression negative; edge 1 is compressed by the moment.
struct Edges {
    double sigma1;
    double psi;  // sigma2/sigma1, 0 when sigma1 is 0
};

// z: distance of the edge from the centroid, mm; i: second moment, mm4.
Edges EdgeStresses(const SectionRecord& section, double n, double m, double z, double i)
{
    const double bending = std::abs(z * m * 1e6 / i);
    const double axial = n * 1000 / section.a;
    const double sigma1 = -bending - axial;
    return {sigma1, sigma1 == 0 ? 0.0 : (bending - axial) / sigma1};
}

i16 WebInCompression(const SectionRecord& section)
{
    const double eps = section.eps;
    return ClassBelow(1.0 * section.d / section.tw, 33 * eps, 38 * eps, 42 * eps);
}

i16 FlangeInCompression(double slenderness, double eps)
{
    return ClassBelow(slenderness, 9 * eps, 10 * eps, 14 * eps);
}

// Classes 3 and 4 of a web with the stress ratio psi.
//
// Deviation D42: psi is the ratio of the stresses that act; Table 5.2 is meant for the distribution
// at yield, psi = 2 NEd/(A fy) - 1, which is lower as long as N and My do not reach it. What
// tension keeps from compression altogether has class 1 here, and its class by the standard basis.
// Deviation D155: one formula for every psi; the standard takes 62 eps (1 - psi) sqrt(-psi) from
// psi = -1 down.
bool ElasticWeb(double slenderness, double eps, double psi)
{
    const double divisor = 0.67 + 0.33 * psi;
    return divisor > 0 && slenderness <= 42 * eps / divisor;
}

// Deviation D165: the part of the web that yields under n is measured against the clear web height
// hw; the standard's alpha refers to the straight part d, so that ours is a little nearer to 0.5.
i16 WebCompressionBending(const Inputs& in, const SectionRecord& section, double n, double psi)
{
    const double eps = section.eps, slenderness = 1.0 * section.d / section.tw;
    const double nn = std::min(1.0, n * 1000 / (1.0 * section.hw * section.tw * in.fyk));
    const double alpha = 0.5 * (1 + nn);
    if (slenderness <= 396 * eps / (13 * alpha - 1)) {
        return 1;
    }
    if (slenderness <= 456 * eps / (13 * alpha - 1)) {
        return 2;
    }
    return ElasticWeb(slenderness, eps, psi) ? i16{3} : i16{4};
}

i16 WebTensionBending(const Inputs& in, const SectionRecord& section, double n, Edges edges)
{
    const double eps = section.eps, slenderness = 1.0 * section.d / section.tw;
    const double nn = -n * 1000 / (1.0 * section.hw * section.tw * in.fyk);
    if (nn >= 1) {
        return 1;  // nothing of the web is compressed
    }
    const double alpha = 1 - 0.5 * (1 + nn);
    if (slenderness <= 36 * eps / alpha) {
        return 1;
    }
    if (slenderness <= 41.5 * eps / alpha) {
        return 2;
    }
    if (edges.sigma1 == 0) {
        return 1;
    }
    return ElasticWeb(slenderness, eps, edges.psi) ? i16{3} : i16{4};
}

i16 Larger(const SectionRecord& section)
{
    return std::max(section.classflange, section.classweb);
}

// Classes 3 and 4 of a flange bent in its plane.
//
// Deviation D157: psi is the ratio of the stresses at the two tips of the flange; the standard's is
// that of the outstand, from its tip to the web.
i16 ElasticFlange(double slenderness, double eps, Edges edges)
{
    const bool elastic = slenderness <= 21 * eps * std::sqrt(KSigmaOutstand(edges.psi));
    return elastic || edges.sigma1 == 0 ? i16{3} : i16{4};
}

}  // namespace

// Table 5.2. Stress distribution of classes 1 and 2 plastic, of class 3 elastic.
//
// Deviation D156: the limits of classes 1 to 3 are not included for compression and for bending
// alone; the standard includes them.
i16 CalcClassY(const Inputs& in, SectionRecord& section, const SectionChecks&, float n, float m)
{
    section.classflange = 1;
    section.classweb = 1;
    if (m == 0 && n <= 0) {
        return 1;
    }
    const double eps = section.eps;
    const Edges edges = EdgeStresses(section, n, m, section.h / 2.0 - section.tf, section.iy);
    if (m == 0) {
        section.classweb = WebInCompression(section);
    } else if (n == 0 && m > 0) {
        section.classweb = ClassBelow(1.0 * section.d / section.tw, 72 * eps, 83 * eps, 124 * eps);
    } else if (n >= 0) {
        section.classweb = WebCompressionBending(in, section, n, edges.psi);
    } else {
        section.classweb = WebTensionBending(in, section, n, edges);
    }
    if (edges.sigma1 < 0) {
        section.classflange = FlangeInCompression(1.0 * section.cflange / section.tf, eps);
    }
    return Larger(section);
}

// Deviation D34: Mz alone, or with a tension, leaves the web in class 1; that of a channel is
// compressed all over when Mz opens the toes, and the standard classes it so.
i16 CalcClassZ(const Inputs& in, SectionRecord& section, const SectionChecks&, float n, float m)
{
    return CalcClassZ(in, section, n, m, section.cflange, section.tf, section.b);
}

i16 CalcClassZ(const Inputs& in, SectionRecord& section, float n, float m, double c, double t,
               double b)
{
    section.classflange = 1;
    section.classweb = 1;
    if (m == 0 && n <= 0) {
        return 1;
    }
    const double eps = section.eps, slenderness = c / t;
    if (m == 0) {
        section.classflange = FlangeInCompression(slenderness, eps);
        section.classweb = WebInCompression(section);
        return Larger(section);
    }
    if (n == 0) {
        const double limit3 = 21 * eps * std::sqrt(kOutstandBending);
        section.classflange = ClassBelow(slenderness, 9 * eps, 10 * eps, limit3);
        if (slenderness == limit3) {
            section.classflange = 3;  // this limit is included
        }
        return Larger(section);
    }

    // Share of the outstand that is compressed in the plastic state; all of it unless the tension
    // exceeds what the web takes.
    double alpha = 1;
    if (n < 0) {
        const double x = -1000.0 * n - 1.0 * section.hw * in.fyk * section.tw;  // N
        if (x > 1) {
            alpha = std::min(1.0, (b / 2 - x / (t * in.fyk * 4)) / c);
        }
    } else {
        section.classweb = WebInCompression(section);
    }
    if (alpha > 0 && slenderness < 9 * eps / alpha) {
        section.classflange = 1;
    } else if (alpha > 0 && slenderness < 10 * eps / alpha) {
        section.classflange = 2;
    } else {
        section.classflange =
            ElasticFlange(slenderness, eps, EdgeStresses(section, n, m, b / 2, section.iz));
    }
    return Larger(section);
}

}  // namespace kestrum
