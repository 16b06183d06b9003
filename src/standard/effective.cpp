#include "standard/effective.h"

#include "clauses/plate_buckling.h"
#include "standard/plates.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

using namespace clauses;

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
