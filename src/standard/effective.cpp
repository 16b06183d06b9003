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

// Gross section less strips.
class Reduced {
public:
    explicit Reduced(const StandardSection& q, std::vector<LostPart>* lost = nullptr)
        : a_(q.a), iy_(q.iy), iz_(q.iz), lost_(lost)
    {
    }

    void Lose(const LostPart& part)
    {
        const double strip = part.Area();
        a_ -= strip;
        sy_ -= strip * part.z;
        sz_ -= strip * part.y;
        iy_ -= strip * (part.z * part.z + part.high * part.high / 12);
        iz_ -= strip * (part.y * part.y + part.wide * part.wide / 12);
        if (lost_ != nullptr) {
            lost_->push_back(part);
        }
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
    std::vector<LostPart>* lost_;
};

// A wall as it buckles.
struct Buckled {
    double psi, k_sigma, lam, rho;
};

// Loses the part of a wall from `from` to `to`, shares of its width from its start.
void LosePart(Reduced& reduced, const Wall& wall, const Buckled& by, double from, double to)
{
    const double middle = (from + to) / 2;
    const double y = wall.y0 + middle * (wall.y1 - wall.y0);
    const double z = wall.z0 + middle * (wall.z1 - wall.z0);
    const double length = (to - from) * wall.Width();
    reduced.Lose({y, z, wall.Upright() ? wall.t : length, wall.Upright() ? length : wall.t,
                  wall.Width(), wall.t, by.psi, by.k_sigma, by.lam, by.rho});
}

// Stresses at the start and at the end, the larger above 0.
void ReduceInternal(const StandardSection& q, const Wall& wall, double start, double end,
                    Reduced& reduced)
{
    const bool from_start = start >= end;
    const double psi = from_start ? end / start : start / end;
    const double c = wall.Width();
    const double k = BucklingFactorInternal(psi);
    const double lam = PlateSlenderness(c, wall.t, q.eps, k);
    const Buckled by{psi, k, lam, RhoInternal(lam, psi)};
    const EffectiveInternal w = EffectiveWidths(c, psi, by.rho);
    if (w.hole <= 0) {
        return;
    }
    const double from = w.near / c;
    const double to = (w.near + w.hole) / c;
    if (from_start) {
        LosePart(reduced, wall, by, from, to);
    } else {
        LosePart(reduced, wall, by, 1 - to, 1 - from);
    }
}

// The lost part of an outstand lies at its tip, or before the axis where the root is compressed.
void ReduceOutstand(const StandardSection& q, const Wall& wall, double root, double tip,
                    Reduced& reduced)
{
    const double c = wall.Width();
    const double k = BucklingFactorOutstand(tip, root);
    const double lam = PlateSlenderness(c, wall.t, q.eps, k);
    const double rho = RhoOutstand(lam);
    if (rho >= 1) {
        return;
    }
    const double low = std::min(root, tip), high = std::max(root, tip);
    const double compressed = low >= 0 ? 1 : high / (high - low);
    const Buckled by{low / high, k, lam, rho};
    const double lost = (1 - rho) * compressed;
    if (tip >= root) {
        LosePart(reduced, wall, by, 1 - lost, 1);
    } else {
        LosePart(reduced, wall, by, compressed - lost, compressed);
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

// D183: the program's centroid divides by the area less the loss of the flanges only, and the
// second moment refers to it.
EffectiveSection WithCentroid(const StandardSection& q, const EffectiveSection& whole, bool sagging,
                              double flanges_reduced, const Basis& basis)
{
    const double sign = sagging ? 1 : -1;
    const double edge = sagging ? q.above : q.below;
    const double own = edge - sign * whole.zc;
    const double z = basis.pick(Dev::d183, own * whole.a / flanges_reduced, own);
    EffectiveSection section = whole;
    if (z != own) {
        section.zc = sign * (edge - z);
        section.iy += whole.a * (own * own - z * z);
    }
    return section;
}

// D200: the flanges of an unequal I alone, each with what bending about z leaves of its width.
double ModulusOfFlangesZ(const StandardSection& q)
{
    const auto width = [&](const Flange& flange) {
        if (q.whole_flanges) {
            return flange.b;
        }
        const double c = (flange.b - q.tw) / 2 - q.r;
        const double lam = PlateSlenderness(c, flange.t, q.eps, BucklingFactorOutstand(1, 0));
        return flange.b - (1 - RhoOutstand(lam)) * c;
    };
    const double top = width(q.top);
    const double bottom = width(q.bottom);
    const double i = (q.top.t * std::pow(top, 3) + q.bottom.t * std::pow(bottom, 3)) / 12;
    return i / (std::max(top, bottom) / 2);
}

// 6.2.5 (2): the edge furthest from the axis. D160: the program takes the stretched one of I
// sections, D162: nothing off a channel.
double EffectiveModulusZ(const StandardSection& q, const EffectiveSection& z, bool right_compressed,
                         const Basis& basis)
{
    const double right = q.right - z.yc;
    const double left = q.left + z.yc;
    const double furthest = z.iz / std::max(right, left);
    if (q.ISection()) {
        return basis.pick(Dev::d160, z.iz / (right_compressed ? left : right), furthest);
    }
    if (q.kind == Kind::channel) {
        return basis.pick(Dev::d162, q.LeastWelz(), furthest);
    }
    return q.kind == Kind::i_single ? basis.pick(Dev::d200, ModulusOfFlangesZ(q), furthest)
                                    : furthest;
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

EffectiveSection EffectiveInCompression(const StandardSection& q, std::vector<LostPart>* lost)
{
    Reduced reduced(q, lost);
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        ReduceWall(q, q.walls[i], 1, 1, reduced);
    }
    return reduced.Result();
}

namespace {

// D195: the compressed part of the web of a stiffened plate counts from the flange in the program,
// with the slenderness between the welds.
double WeldOfPlate(const StandardSection& q, const Wall& wall, const Basis& basis)
{
    const bool slender = wall.Width() / wall.t > 42 * q.eps;  // less never loses a part
    return q.kind == Kind::plate && !wall.outstand && slender ? basis.pick(Dev::d195, q.r, 0.0)
                                                              : 0.0;
}

}  // namespace

EffectiveSection EffectiveAboutY(const StandardSection& q, bool sagging, const Basis& basis,
                                 std::vector<LostPart>* lost)
{
    const double sign = sagging ? 1 : -1;
    Reduced reduced(q, lost);
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        if (!q.walls[i].Upright() && q.walls[i].z0 * sign > 0) {
            ReduceWall(q, q.walls[i], 1, 1, reduced);
        }
    }
    const double flanges_reduced = reduced.Result().a;
    const double zc = reduced.Zc();  // 4.4 (3): of the section with the reduced flanges
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        const Wall& wall = q.walls[i];
        if (wall.Upright()) {
            const double weld = WeldOfPlate(q, wall, basis);
            ReduceWall(q, wall, sign * (wall.z0 - weld - zc), sign * (wall.z1 + weld - zc),
                       reduced);
        }
    }
    const EffectiveSection whole = reduced.Result();
    return q.kind == Kind::i_single ? WithCentroid(q, whole, sagging, flanges_reduced, basis)
                                    : whole;
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

EffectiveValues EffectiveValuesOf(const StandardSection& q, const Basis& basis)
{
    EffectiveValues v{};
    const EffectiveSection n = EffectiveInCompression(q);
    const bool shifts = !q.DoublySymmetric();
    v.a = n.a;
    v.eny = shifts ? std::abs(n.zc) : 0;
    v.enz = shifts ? std::abs(n.yc) : 0;
    const EffectiveSection sag = EffectiveAboutY(q, true, basis);
    const EffectiveSection hog = EffectiveAboutY(q, false, basis);
    v.wy_sagging = sag.iy / std::max(q.above - sag.zc, q.below + sag.zc);
    v.wy_hogging = hog.iy / std::max(q.above - hog.zc, q.below + hog.zc);
    v.wy_compressed_sagging = sag.iy / (q.above - sag.zc);
    v.wy_compressed_hogging = hog.iy / (q.below + hog.zc);
    for (const bool sagging : {true, false}) {
        const bool upgraded = q.upgrade && ClassOfPressedFlange(q, sagging, basis) <= 2;
        (sagging ? v.wy3_sagging : v.wy3_hogging) =
            upgraded ? std::max(q.LeastWely(), UpgradedModulus(q, sagging, basis)) : q.LeastWely();
    }
    for (const bool right : {true, false}) {
        const EffectiveSection z = EffectiveAboutZ(q, right);
        const double w = EffectiveModulusZ(q, z, right, basis);
        v.wz = right ? w : std::min(v.wz, w);
    }
    return v;
}

}  // namespace kestrum::standard
