#include "standard/section_class.h"

#include "clauses/classify.h"
#include "clauses/plate_buckling.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kestrum::standard {

namespace {

using namespace clauses;

// Stress ratios of a wall bent in its plane beside NEd.
struct Bent {
    double alpha, psi;
};

double Squash(const StandardSection& q)
{
    return q.a * q.fy;
}

// Plastic axis of plates with unequal flanges, n = N over the squash force: compressed share of
// the web, counted from the flange that the moment compresses. D165: the program refers it to the
// clear web height.
double CompressedShare(const StandardSection& q, double n, bool sagging, const Basis& basis)
{
    const Flange& flange = sagging ? q.top : q.bottom;
    const double webs = q.webs * q.tw;
    const double pressed = (1 + n) / 2 * q.a - flange.b * flange.t;
    const double by_clear = std::clamp(pressed / (webs * q.hw), 0.0, 1.0);
    const double by_straight = std::clamp((pressed - webs * q.r) / (webs * q.d), 0.0, 1.0);
    return basis.pick(Dev::d165, by_clear, by_straight);
}

Bent WebBetweenUnequalFlanges(const StandardSection& q, const Wall& wall, double n, bool sagging,
                              const Basis& basis)
{
    const double share = n / Squash(q);
    const double compressed = sagging ? wall.z1 : -wall.z0;
    const double stretched = sagging ? wall.z0 : -wall.z1;
    return {CompressedShare(q, std::clamp(share, -1.0, 1.0), sagging, basis),
            share + (1 - share) * stretched / compressed};
}

// The part on which N acts when the plate yields: the standard has its straight part, both webs of
// a closed section together. D165: the program takes the clear height of the web, D168: of one.
double YieldingPart(const StandardSection& q, const Wall& wall, double shared_by,
                    const Basis& basis)
{
    const double part = shared_by * wall.Width() * wall.t;
    if (!wall.Upright()) {
        return part;
    }
    const double clear = q.hw * q.tw;
    return q.Closed() ? basis.pick(Dev::d168, clear, part) : basis.pick(Dev::d165, clear, part);
}

// 5.5.2 (5).
Bent BentInPlane(const StandardSection& q, const Wall& wall, double n, double shared_by,
                 const Basis& basis)
{
    const double psi = 2 * n / Squash(q) - 1;
    if (n == 0) {
        return {0.5, psi};
    }
    const double part = YieldingPart(q, wall, shared_by, basis);
    return {std::clamp((1 + n / (part * q.fy)) / 2, 0.0, 1.0), psi};
}

// The deviation of a limit that is not included: closed sections, plates, others.
Dev LimitDeviation(const StandardSection& q)
{
    if (q.OfStrips() || q.kind == Kind::i_single) {
        return Dev::d187;
    }
    return q.Closed() ? Dev::d166 : Dev::d156;
}

constexpr double kHair = 1 - 1e-9;  // of a limit that is not included

// Class 3 or 4 by the program's limits: D155 and D166 have one formula for every stress ratio, D188
// another one.
int ElasticClass(const StandardSection& q, const Wall& wall, double psi, int cls,
                 const Basis& basis)
{
    const double ratio = wall.Width() / (wall.t * q.eps);
    if (q.UnequalFlanges()) {
        return psi > -1 ? basis.pick(Dev::d188, ratio <= 126 / (2 + psi) ? 3 : 4, cls) : cls;
    }
    if (psi <= -1) {
        const double divisor = 0.67 + 0.33 * psi;
        const int program = divisor > 0 && ratio <= 42 / divisor ? 3 : 4;
        return basis.pick(q.Closed() ? Dev::d166 : Dev::d155, program, cls);
    }
    return cls;
}

int ClassBent(const StandardSection& q, const Wall& wall, const Bent& bent, bool single,
              const Basis& basis)
{
    const int cls = ClassOfInternal(wall.Width(), wall.t, q.eps, bent.alpha, bent.psi);
    if (single) {  // compression or bending alone
        const int below =
            ClassOfInternal(wall.Width(), wall.t, q.eps * kHair, bent.alpha, bent.psi);
        return basis.pick(LimitDeviation(q), below, cls);
    }
    return cls >= 3 ? ElasticClass(q, wall, bent.psi, cls, basis) : cls;
}

int ClassCompressed(const StandardSection& q, const Wall& wall, const Basis& basis)
{
    return ClassBent(q, wall, {1, 1}, true, basis);
}

int ClassOfUprightWall(const StandardSection& q, const Wall& wall, const ActingForces& f,
                       const Basis& basis)
{
    const bool my = f.sagging || f.hogging;
    int cls = 1;
    if (my && q.UnequalFlanges()) {
        for (const bool sagging : {true, false}) {
            if (sagging ? f.sagging : f.hogging) {
                const Bent bent = WebBetweenUnequalFlanges(q, wall, f.n, sagging, basis);
                cls = std::max(cls, ClassBent(q, wall, bent, false, basis));
            }
        }
    } else if (my) {
        const Bent bent = BentInPlane(q, wall, f.n, q.webs, basis);
        cls = ClassBent(q, wall, bent, f.n == 0, basis);
    } else if (f.n > 0) {
        cls = ClassCompressed(q, wall, basis);
    }
    if (!f.mz || wall.y0 == 0) {  // a web on the axis stays unstressed by Mz
        return cls;
    }
    const int flange = std::max(cls, ClassCompressed(q, wall, basis));
    return q.kind == Kind::channel ? basis.pick(Dev::d34, cls, flange) : flange;
}

int ClassOfLyingWall(const StandardSection& q, const Wall& wall, const ActingForces& f,
                     const Basis& basis)
{
    const bool my = wall.z0 > 0 ? f.sagging : f.hogging;
    int cls = my || (f.n > 0 && !f.mz) ? ClassCompressed(q, wall, basis) : 1;
    if (f.mz) {
        const Bent bent = BentInPlane(q, wall, f.n, 2, basis);
        cls = std::max(cls, ClassBent(q, wall, bent, f.n == 0, basis));
    }
    return cls;
}

int ClassOfOutstandWall(const StandardSection& q, const Wall& wall, const ActingForces& f,
                        const Basis& basis)
{
    const bool my = wall.z0 > 0 ? f.sagging : f.hogging;
    const bool uniform = my || (f.n > 0 && !f.mz);
    if (!uniform && !f.mz) {
        return 1;
    }
    double psi = 1;
    if (!uniform) {
        const double n = f.n / Squash(q);
        const double to_root = n + (1 - n) * wall.y0 / wall.y1;
        psi = f.n != 0 ? basis.pick(Dev::d157, 2 * n - 1, to_root) : to_root;
    }
    const double limit = OutstandElasticLimit(BucklingFactorOutstand(1, psi));
    const int cls = ClassOfOutstand(wall.Width(), wall.t, q.eps, limit);
    const int below = ClassOfOutstand(wall.Width(), wall.t, q.eps * kHair, limit);
    return basis.pick(LimitDeviation(q), below, cls);
}

// The stem below a flange or plate, tip downwards, under N and My of one sign: share of it that is
// compressed when the section is plastic, from the flange (sagging) or from the tip.
double CompressedStem(const StandardSection& q, const Wall& wall, double n, bool sagging)
{
    const double flange = sagging ? q.top.b * q.top.t + q.tw * q.r : 0;
    return std::clamp(((1 + n) / 2 * q.a - flange) / (wall.t * wall.Width()), 0.0, 1.0);
}

int ClassOfStemUnder(const StandardSection& q, const Wall& wall, double n, bool sagging)
{
    const double share = std::clamp(n / Squash(q), -1.0, 1.0);
    const double alpha = CompressedStem(q, wall, share, sagging);
    // Elastic stresses, 1 at the compressed edge.
    const double edge = sagging ? q.above : -q.below;
    const double root = share + (1 - share) * wall.z0 / edge;
    const double tip = share + (1 - share) * wall.z1 / edge;
    const double elastic = std::max(root, tip) > 0
                               ? 21 * std::sqrt(BucklingFactorOutstand(tip, root))
                               : std::numeric_limits<double>::infinity();
    const bool tip_compressed = !sagging || alpha == 1;
    return ClassOfOutstandBent(wall.Width(), wall.t, q.eps, alpha, tip_compressed,
                               tip_compressed ? std::max(14.0, elastic) : elastic);
}

int ClassOfStem(const StandardSection& q, const Wall& wall, const ActingForces& f)
{
    int cls = 1;
    if (!f.sagging && !f.hogging) {
        return f.n > 0 ? ClassOfOutstand(wall.Width(), wall.t, q.eps) : 1;
    }
    for (const bool sagging : {true, false}) {
        if (sagging ? f.sagging : f.hogging) {
            cls = std::max(cls, ClassOfStemUnder(q, wall, f.n, sagging));
        }
    }
    return cls;
}

// D192: the program has 10, 11, 15 eps.
int ClassOfTeePart(const StandardSection& q, const Wall& wall, const ActingForces& f,
                   const Basis& basis)
{
    const bool stem = wall.Upright();
    const int cls = stem ? ClassOfStem(q, wall, f) : ClassOfOutstandWall(q, wall, f, basis);
    const bool pressed = f.n > 0 || (stem ? f.hogging : f.sagging);
    const double ratio = wall.Width() / (wall.t * q.eps);
    const int program = !pressed ? 1 : ratio <= 10 ? 1 : ratio <= 11 ? 2 : ratio <= 15 ? 3 : 4;
    return basis.pick(Dev::d192, program, cls);
}

int ClassOfWall(const StandardSection& q, const Wall& wall, const ActingForces& f,
                const Basis& basis)
{
    if (wall.outstand && q.kind == Kind::tee) {
        return ClassOfTeePart(q, wall, f, basis);
    }
    if (wall.outstand && wall.Upright()) {
        return ClassOfStem(q, wall, f);
    }
    if (wall.outstand) {
        const int cls = ClassOfOutstandWall(q, wall, f, basis);
        // D184: the program does not class what reaches beyond the webs of a hat beam.
        return q.kind == Kind::hat ? basis.pick(Dev::d184, 1, cls) : cls;
    }
    return wall.Upright() ? ClassOfUprightWall(q, wall, f, basis)
                          : ClassOfLyingWall(q, wall, f, basis);
}

// The worst of the classes entered for the forces that act.
// D173: the program does not read that of N.
int EnteredClass(const StandardSection& q, const ActingForces& f, const Basis& basis)
{
    const bool moments = f.sagging || f.hogging || f.mz;
    int cls = f.n > 0 ? q.entered.n : 1;
    cls = moments ? basis.pick(Dev::d173, 1, cls) : cls;
    cls = f.sagging || f.hogging ? std::max(cls, q.entered.my) : cls;
    return f.mz ? std::max(cls, q.entered.mz) : cls;
}

}  // namespace

int ClassOf(const StandardSection& q, const ActingForces& forces, const Basis& basis)
{
    if (q.kind == Kind::tube) {
        return ClassOfTube(q.h, q.tw, q.eps);
    }
    if (q.kind == Kind::general) {
        return EnteredClass(q, forces, basis);
    }
    if (q.Angle()) {
        const bool compressed = forces.n > 0 || forces.sagging || forces.hogging || forces.mz;
        if (!compressed) {
            return 3;
        }
        const int cls = ClassOfAngle(std::max(q.h, q.b), std::min(q.h, q.b), q.tw, q.eps);
        if (q.angle.equal) {
            return cls;
        }
        const int program = (q.h + q.b) / (2 * q.tw) <= 11.5 * q.eps ? 3 : 4;  // D181
        return basis.pick(Dev::d181, program, cls);
    }
    int cls = 1;
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        cls = std::max(cls, ClassOfWall(q, q.walls[i], forces, basis));
    }
    return cls;
}

int ClassInCompression(const StandardSection& q, const Basis& basis)
{
    return ClassOf(q, {1, false, false, false}, basis);
}

int ClassOfPressedFlange(const StandardSection& q, bool sagging, const Basis& basis)
{
    int cls = 1;
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        if (!q.walls[i].Upright()) {
            cls = std::max(cls, ClassOfWall(q, q.walls[i], {0, sagging, !sagging, false}, basis));
        }
    }
    return cls;
}

}  // namespace kestrum::standard
