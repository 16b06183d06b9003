#include "standard/effective.h"

#include "clauses/classify.h"
#include "clauses/plate_buckling.h"
#include "standard/plates.h"

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
// the web, counted from the flange that the moment compresses.
double CompressedShare(const StandardSection& q, double n, bool sagging)
{
    const Flange& flange = sagging ? q.top : q.bottom;
    const double webs = q.webs * q.tw;
    const double compressed = (1 + n) / 2 * q.a - flange.b * flange.t - webs * q.r;
    return std::clamp(compressed / (webs * q.d), 0.0, 1.0);
}

Bent WebBetweenUnequalFlanges(const StandardSection& q, const Wall& wall, double n, bool sagging)
{
    const double share = n / Squash(q);
    const double compressed = sagging ? wall.z1 : -wall.z0;
    const double stretched = sagging ? wall.z0 : -wall.z1;
    return {CompressedShare(q, std::clamp(share, -1.0, 1.0), sagging),
            share + (1 - share) * stretched / compressed};
}

// 5.5.2 (5) with both webs of a closed section sharing N.
Bent BentInPlane(const StandardSection& q, const Wall& wall, double n, double shared_by)
{
    return {std::clamp((1 + n / (shared_by * wall.Width() * wall.t * q.fy)) / 2, 0.0, 1.0),
            2 * n / Squash(q) - 1};
}

int ClassBent(const StandardSection& q, const Wall& wall, const Bent& bent)
{
    return ClassOfInternal(wall.Width(), wall.t, q.eps, bent.alpha, bent.psi);
}

int ClassCompressed(const StandardSection& q, const Wall& wall)
{
    return ClassBent(q, wall, {1, 1});
}

int ClassOfUprightWall(const StandardSection& q, const Wall& wall, const ActingForces& f)
{
    const bool my = f.sagging || f.hogging;
    int cls = 1;
    if (my && q.UnequalFlanges()) {
        for (const bool sagging : {true, false}) {
            if (sagging ? f.sagging : f.hogging) {
                const Bent bent = WebBetweenUnequalFlanges(q, wall, f.n, sagging);
                cls = std::max(cls, ClassBent(q, wall, bent));
            }
        }
    } else if (my) {
        cls = ClassBent(q, wall, BentInPlane(q, wall, f.n, q.webs));
    } else if (f.n > 0) {
        cls = ClassCompressed(q, wall);
    }
    const bool as_flange = f.mz && wall.y0 != 0;  // a web on the axis stays unstressed by Mz
    return as_flange ? std::max(cls, ClassCompressed(q, wall)) : cls;
}

int ClassOfLyingWall(const StandardSection& q, const Wall& wall, const ActingForces& f)
{
    const bool my = wall.z0 > 0 ? f.sagging : f.hogging;
    int cls = my || (f.n > 0 && !f.mz) ? ClassCompressed(q, wall) : 1;
    if (f.mz) {
        cls = std::max(cls, ClassBent(q, wall, BentInPlane(q, wall, f.n, 2)));
    }
    return cls;
}

int ClassOfOutstandWall(const StandardSection& q, const Wall& wall, const ActingForces& f)
{
    const bool my = wall.z0 > 0 ? f.sagging : f.hogging;
    const bool uniform = my || (f.n > 0 && !f.mz);
    if (!uniform && !f.mz) {
        return 1;
    }
    double psi = 1;
    if (!uniform) {
        const double n = f.n / Squash(q);
        psi = n + (1 - n) * wall.y0 / wall.y1;
    }
    const double k = BucklingFactorOutstand(1, psi);
    return ClassOfOutstand(wall.Width(), wall.t, q.eps, OutstandElasticLimit(k));
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

int ClassOfWall(const StandardSection& q, const Wall& wall, const ActingForces& f)
{
    if (wall.outstand && wall.Upright()) {
        return ClassOfStem(q, wall, f);
    }
    if (wall.outstand) {
        return ClassOfOutstandWall(q, wall, f);
    }
    return wall.Upright() ? ClassOfUprightWall(q, wall, f) : ClassOfLyingWall(q, wall, f);
}

// The worst of the classes entered for the forces that act.
int EnteredClass(const StandardSection& q, const ActingForces& f)
{
    int cls = f.n > 0 ? q.entered.n : 1;
    cls = f.sagging || f.hogging ? std::max(cls, q.entered.my) : cls;
    return f.mz ? std::max(cls, q.entered.mz) : cls;
}

// Gross section less strips.
class Reduced {
public:
    explicit Reduced(const StandardSection& q) : a_(q.a), iy_(q.iy), iz_(q.iz) {}

    void Lose(double y, double z, double wide, double high)
    {
        const double strip = wide * high;
        a_ -= strip;
        sy_ -= strip * z;
        sz_ -= strip * y;
        iy_ -= strip * (z * z + high * high / 12);
        iz_ -= strip * (y * y + wide * wide / 12);
    }
    double Zc() const { return sy_ / a_; }
    double Yc() const { return sz_ / a_; }
    EffectiveSection Result() const
    {
        return {a_, Yc(), Zc(), iy_ - a_ * Zc() * Zc(), iz_ - a_ * Yc() * Yc()};
    }

private:
    double a_, iy_, iz_;
    double sy_ = 0, sz_ = 0;
};

// Loses the part of a wall from `from` to `to`, shares of its width from its start.
void LosePart(Reduced& reduced, const Wall& wall, double from, double to)
{
    const double middle = (from + to) / 2;
    const double y = wall.y0 + middle * (wall.y1 - wall.y0);
    const double z = wall.z0 + middle * (wall.z1 - wall.z0);
    const double length = (to - from) * wall.Width();
    reduced.Lose(y, z, wall.Upright() ? wall.t : length, wall.Upright() ? length : wall.t);
}

// Stresses at the start and at the end, the larger above 0.
void ReduceInternal(const StandardSection& q, const Wall& wall, double start, double end,
                    Reduced& reduced)
{
    const bool from_start = start >= end;
    const double psi = from_start ? end / start : start / end;
    const double c = wall.Width();
    const double lam = PlateSlenderness(c, wall.t, q.eps, BucklingFactorInternal(psi));
    const EffectiveInternal w = EffectiveWidths(c, psi, RhoInternal(lam, psi));
    if (w.hole <= 0) {
        return;
    }
    const double from = w.near / c;
    const double to = (w.near + w.hole) / c;
    if (from_start) {
        LosePart(reduced, wall, from, to);
    } else {
        LosePart(reduced, wall, 1 - to, 1 - from);
    }
}

// The lost part of an outstand lies at its tip, or before the axis where the root is compressed.
void ReduceOutstand(const StandardSection& q, const Wall& wall, double root, double tip,
                    Reduced& reduced)
{
    const double c = wall.Width();
    const double lam = PlateSlenderness(c, wall.t, q.eps, BucklingFactorOutstand(tip, root));
    const double rho = RhoOutstand(lam);
    if (rho >= 1) {
        return;
    }
    const double low = std::min(root, tip);
    const double compressed = low >= 0 ? 1 : std::max(root, tip) / (std::max(root, tip) - low);
    const double lost = (1 - rho) * compressed;
    if (tip >= root) {
        LosePart(reduced, wall, 1 - lost, 1);
    } else {
        LosePart(reduced, wall, compressed - lost, compressed);
    }
}

void ReduceWall(const StandardSection& q, const Wall& wall, double start, double end,
                Reduced& reduced)
{
    const bool whole = wall.Upright() ? q.whole_webs : q.whole_flanges;
    if (whole || std::max(start, end) <= 0) {
        return;
    }
    if (wall.outstand) {
        ReduceOutstand(q, wall, start, end, reduced);
    } else {
        ReduceInternal(q, wall, start, end, reduced);
    }
}

}  // namespace

int ClassOf(const StandardSection& q, const ActingForces& forces)
{
    if (q.kind == Kind::tube) {
        return ClassOfTube(q.h, q.tw, q.eps);
    }
    if (q.kind == Kind::general) {
        return EnteredClass(q, forces);
    }
    if (q.Angle()) {
        const bool compressed = forces.n > 0 || forces.sagging || forces.hogging || forces.mz;
        return compressed ? ClassOfAngle(std::max(q.h, q.b), std::min(q.h, q.b), q.tw, q.eps) : 3;
    }
    int cls = 1;
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        cls = std::max(cls, ClassOfWall(q, q.walls[i], forces));
    }
    return cls;
}

int ClassInCompression(const StandardSection& q)
{
    return ClassOf(q, {1, false, false, false});
}

EffectiveSection EffectiveInCompression(const StandardSection& q)
{
    Reduced reduced(q);
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        ReduceWall(q, q.walls[i], 1, 1, reduced);
    }
    return reduced.Result();
}

EffectiveSection EffectiveAboutY(const StandardSection& q, bool sagging)
{
    const double sign = sagging ? 1 : -1;
    Reduced reduced(q);
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        if (!q.walls[i].Upright() && q.walls[i].z0 * sign > 0) {
            ReduceWall(q, q.walls[i], 1, 1, reduced);
        }
    }
    const double zc = reduced.Zc();  // 4.4 (3): of the section with the reduced flanges
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        const Wall& wall = q.walls[i];
        if (wall.Upright()) {
            ReduceWall(q, wall, sign * (wall.z0 - zc), sign * (wall.z1 - zc), reduced);
        }
    }
    return reduced.Result();
}

EffectiveSection EffectiveAboutZ(const StandardSection& q, bool right_compressed)
{
    const double sign = right_compressed ? 1 : -1;
    Reduced reduced(q);
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        if (q.walls[i].Upright() && q.walls[i].y0 * sign > 0) {
            ReduceWall(q, q.walls[i], 1, 1, reduced);
        }
    }
    const double yc = reduced.Yc();
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        const Wall& wall = q.walls[i];
        if (!wall.Upright()) {
            ReduceWall(q, wall, sign * (wall.y0 - yc), sign * (wall.y1 - yc), reduced);
        }
    }
    return reduced.Result();
}

Flange EffectiveFlange(const StandardSection& q, bool top)
{
    Flange flange = top ? q.top : q.bottom;
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        const Wall& wall = q.walls[i];
        if (wall.Upright() || (wall.z0 > 0) != top) {
            continue;
        }
        Reduced reduced(q);
        ReduceWall(q, wall, 1, 1, reduced);
        flange.b -= (q.a - reduced.Result().a) / wall.t;
    }
    return flange;
}

int ClassOfPressedFlange(const StandardSection& q, bool sagging)
{
    int cls = 1;
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        if (!q.walls[i].Upright()) {
            cls = std::max(cls, ClassOfWall(q, q.walls[i], {0, sagging, !sagging, false}));
        }
    }
    return cls;
}

EffectiveValues EffectiveValuesOf(const StandardSection& q)
{
    EffectiveValues v{};
    const EffectiveSection n = EffectiveInCompression(q);
    const bool shifts = !q.DoublySymmetric();
    v.a = n.a;
    v.eny = shifts ? std::abs(n.zc) : 0;
    v.enz = shifts ? std::abs(n.yc) : 0;
    const EffectiveSection sag = EffectiveAboutY(q, true);
    const EffectiveSection hog = EffectiveAboutY(q, false);
    v.wy_sagging = sag.iy / std::max(q.above - sag.zc, q.below + sag.zc);
    v.wy_hogging = hog.iy / std::max(q.above - hog.zc, q.below + hog.zc);
    v.wy_compressed_sagging = sag.iy / (q.above - sag.zc);
    v.wy_compressed_hogging = hog.iy / (q.below + hog.zc);
    for (const bool sagging : {true, false}) {
        const bool upgraded = q.upgrade && ClassOfPressedFlange(q, sagging) <= 2;
        (sagging ? v.wy3_sagging : v.wy3_hogging) =
            upgraded ? std::max(q.LeastWely(), UpgradedModulus(q, sagging)) : q.LeastWely();
    }
    for (const bool right : {true, false}) {
        const EffectiveSection z = EffectiveAboutZ(q, right);
        const double w = z.iz / std::max(q.right - z.yc, q.left + z.yc);
        v.wz = right ? w : std::min(v.wz, w);
    }
    return v;
}

}  // namespace kestrum::standard
