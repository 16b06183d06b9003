#include "standard/plates.h"

#include "clauses/shear.h"
#include "core/project_state.h"

#include <algorithm>
#include <cmath>

namespace kestrum::standard {

namespace {

void Add(StandardSection& q, const Strip& strip)
{
    q.strips[q.strip_count++] = strip;
}

void Add(StandardSection& q, const Wall& wall)
{
    q.walls[q.wall_count++] = wall;
}

// To the right or to the left of its root, if it reaches beyond.
void AddOutstand(StandardSection& q, double root, double tip, double z, double t)
{
    constexpr double kRounding = 1e-6;  // mm
    if (root < 0 ? tip < root - kRounding : tip > root + kRounding) {
        Add(q, Wall{root, z, tip, z, t, true});
    }
}

// --- Geometry: y from the middle of the web or between both, z from the lower edge ---------------

void AddTwoWebs(const ProjectState& s, StandardSection& q, double spacing, double lower)
{
    const double half = spacing / 2;
    const double up = q.bottom.t + q.hw;
    Add(q, Strip{lower - q.bottom.b / 2, 0, lower + q.bottom.b / 2, q.bottom.t, false});
    Add(q, Strip{-q.top.b / 2, up, q.top.b / 2, up + q.top.t, false});
    const double face = half - q.tw / 2;  // inner
    const double outer = half + q.tw / 2;
    const double z_top = up + q.top.t / 2;
    const double z_bottom = q.bottom.t / 2;
    Add(q, Wall{-face, z_top, face, z_top, q.top.t, false});
    Add(q, Wall{-face, z_bottom, face, z_bottom, q.bottom.t, false});
    for (const double side : {-1.0, 1.0}) {
        const double y = side * half;
        Add(q, Strip{y - q.tw / 2, q.bottom.t, y + q.tw / 2, up, true});
        Add(q, Wall{y, q.bottom.t + s.r, y, up - s.r, q.tw, false});
        AddOutstand(q, side * outer, lower + side * q.bottom.b / 2, z_bottom, q.bottom.t);
        AddOutstand(q, side * outer, side * q.top.b / 2, z_top, q.top.t);
    }
}

void AddHat(const ProjectState& s, StandardSection& q)
{
    const bool one_side = Traits(s).shape.lower == LowerFlange::one_side;
    const double closed = s.p25.istc;  // overhang at the closed side, on the left
    const double lower = one_side ? (q.bottom.b - q.top.b) / 2 - closed : 0;
    AddTwoWebs(s, q, q.top.b - q.tw, lower);
}

// One web below the plate, or below the flange of a T.
void AddOneWeb(const ProjectState& s, StandardSection& q, const Basis& basis)
{
    const double up = q.bottom.t + q.hw;
    const double root = q.tw / 2 + s.r;
    const double z_top = up + q.top.t / 2;
    Add(q, Strip{-q.top.b / 2, up, q.top.b / 2, q.h, false});
    Add(q, Strip{-q.tw / 2, q.bottom.t, q.tw / 2, up, true});
    AddOutstand(q, root, q.top.b / 2, z_top, q.top.t);
    AddOutstand(q, -root, -q.top.b / 2, z_top, q.top.t);
    if (q.bottom.t == 0) {  // D38, D39: the program has a weld at the tip of the bar, none of the T
        const bool tee = q.kind == Kind::tee;
        const double weld = s.r;
        const double from = tee ? basis.pick(Dev::d39, 0.0, weld) : weld;
        const double tip = tee ? 0 : basis.pick(Dev::d38, weld, 0.0);
        Add(q, Wall{0, up - from, 0, tip, q.tw, true});
        return;
    }
    Add(q, Wall{0, q.bottom.t + s.r, 0, up - s.r, q.tw, false});
    const bool one_side = Traits(s).shape.lower == LowerFlange::one_side;
    const double left = one_side ? -q.tw / 2 : -q.bottom.b / 2;
    const double right = left + q.bottom.b;
    const double z_bottom = q.bottom.t / 2;
    Add(q, Strip{left, 0, right, q.bottom.t, false});
    if (Traits(s).shape.stiffener == Stiffener::bulb_flat) {
        return;  // a bulb does not buckle by itself
    }
    AddOutstand(q, root, right, z_bottom, q.bottom.t);
    AddOutstand(q, -root, left, z_bottom, q.bottom.t);
}

struct Centroid {
    double y, z;
};

Centroid CentroidOf(const StandardSection& q)
{
    double a = 0, sy = 0, sz = 0;
    for (std::size_t i = 0; i < q.strip_count; ++i) {
        const Strip& strip = q.strips[i];
        a += strip.Area();
        sy += strip.Area() * (strip.y0 + strip.y1) / 2;
        sz += strip.Area() * (strip.z0 + strip.z1) / 2;
    }
    return {sy / a, sz / a};
}

void Shift(StandardSection& q, const Centroid& c)
{
    for (std::size_t i = 0; i < q.strip_count; ++i) {
        Strip& strip = q.strips[i];
        strip = {strip.y0 - c.y, strip.z0 - c.z, strip.y1 - c.y, strip.z1 - c.z, strip.web};
    }
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        Wall& wall = q.walls[i];
        wall = {wall.y0 - c.y, wall.z0 - c.z, wall.y1 - c.y, wall.z1 - c.z, wall.t, wall.outstand};
    }
}

void SetEdges(StandardSection& q)
{
    q.above = q.below = q.left = q.right = 0;
    for (std::size_t i = 0; i < q.strip_count; ++i) {
        const Strip& strip = q.strips[i];
        q.above = std::max(q.above, strip.z1);
        q.below = std::max(q.below, -strip.z0);
        q.right = std::max(q.right, strip.y1);
        q.left = std::max(q.left, -strip.y0);
    }
}

// --- Moduli --------------------------------------------------------------------------------------

// Extent of a strip along the direction of bending, with the part of its strength that counts.
struct Span {
    double from, to, area;

    double Below(double x) const { return area * std::clamp((x - from) / (to - from), 0.0, 1.0); }
    // First moment of sizes about x.
    double Moment(double x) const
    {
        const double up = to - x;
        const double down = from - x;
        return area / (to - from) * (up * std::abs(up) - down * std::abs(down)) / 2;
    }
};
using Spans = std::array<Span, kMaxStrips>;

double AreaBelow(const Spans& spans, std::size_t count, double x)
{
    double below = 0;
    for (std::size_t i = 0; i < count; ++i) {
        below += spans[i].Below(x);
    }
    return below;
}

// 6.2.5: about the axis that halves the area; it lies between two edges, where the area below grows
// evenly.
double PlasticModulus(const Spans& spans, std::size_t count)
{
    double all = 0;
    for (std::size_t i = 0; i < count; ++i) {
        all += spans[i].area;
    }
    double lo = spans[0].from;
    double hi = spans[0].to;
    for (std::size_t i = 0; i < count; ++i) {
        lo = std::min(lo, spans[i].from);
        hi = std::max(hi, spans[i].to);
    }
    for (std::size_t i = 0; i < count; ++i) {
        for (const double edge : {spans[i].from, spans[i].to}) {
            if (AreaBelow(spans, count, edge) <= all / 2) {
                lo = std::max(lo, edge);
            } else {
                hi = std::min(hi, edge);
            }
        }
    }
    const double at_lo = AreaBelow(spans, count, lo);
    const double at_hi = AreaBelow(spans, count, hi);
    const double axis = at_hi > at_lo ? lo + (hi - lo) * (all / 2 - at_lo) / (at_hi - at_lo) : lo;
    double modulus = 0;
    for (std::size_t i = 0; i < count; ++i) {
        modulus += spans[i].Moment(axis);
    }
    return modulus;
}

Spans SpansAlong(const StandardSection& q, bool z, double rho_web, double rho_flange)
{
    Spans spans{};
    for (std::size_t i = 0; i < q.strip_count; ++i) {
        const Strip& strip = q.strips[i];
        const double area = strip.Area() * (1 - (strip.web ? rho_web : rho_flange));
        spans[i] = z ? Span{strip.z0, strip.z1, area} : Span{strip.y0, strip.y1, area};
    }
    return spans;
}

// About the axis through 0, of a strip from `from` to `to`.
double SecondMoment(double from, double to, double area)
{
    return area * (from * from + from * to + to * to) / 3;
}

double SecondMomentZ(const StandardSection& q)
{
    double iz = 0;
    for (std::size_t i = 0; i < q.strip_count; ++i) {
        iz += SecondMoment(q.strips[i].y0, q.strips[i].y1, q.strips[i].Area());
    }
    return iz;
}

// --- Torsion of one web and two flanges ----------------------------------------------------------

// Shear centre and warping constant of thin plates, with the junction of upper plate and web as
// first pole: there only the lower flange warps, by the height times its distance from the web.
void SetTorsion(StandardSection& q, double junction)
{
    struct Line {
        double y0, z0, y1, z1, t;
    };
    const double top = q.above - q.top.t / 2;
    const double low = -q.below + q.bottom.t / 2;
    const Strip& lower = q.strips[2];  // none: thickness 0
    const std::array<Line, 3> lines = {{{q.strips[0].y0, top, q.strips[0].y1, top, q.top.t},
                                        {junction, top, junction, low, q.tw},
                                        {lower.y0, low, lower.y1, low, q.bottom.t}}};
    const auto warp = [&](const Line& line, double y) {
        return &line == &lines[2] ? (top - low) * (y - junction) : 0.0;
    };
    // Two Gauss points of each line: exact to the third degree.
    const auto over_all = [&](auto&& add) {
        for (const Line& line : lines) {
            const double length = std::hypot(line.y1 - line.y0, line.z1 - line.z0);
            for (const double at : {0.5 - std::sqrt(3.0) / 6, 0.5 + std::sqrt(3.0) / 6}) {
                const double y = line.y0 + at * (line.y1 - line.y0);
                add(y, line.z0 + at * (line.z1 - line.z0), warp(line, y), line.t * length / 2);
            }
        }
    };
    double a = 0, sy = 0, sz = 0;
    over_all([&](double y, double z, double, double da) {
        a += da;
        sy += y * da;
        sz += z * da;
    });
    double iy = 0, iz = 0, iyz = 0, wy = 0, wz = 0;
    over_all([&](double y, double z, double w, double da) {
        const double u = y - sy / a;  // from the centroid of the lines
        const double v = z - sz / a;
        iy += v * v * da;
        iz += u * u * da;
        iyz += u * v * da;
        wy += w * u * da;
        wz += w * v * da;
    });
    const double det = iy * iz - iyz * iyz;
    const double dy = (wz * iz - wy * iyz) / det;
    const double dz = (wz * iyz - wy * iy) / det;
    q.centre_y = junction + dy;
    q.centre_z = top + dz;
    double sum = 0, square = 0;
    over_all([&](double y, double z, double at_pole, double da) {
        const double w = at_pole - dy * z + dz * y;
        sum += w * da;
        square += w * w * da;
    });
    q.iw = std::max(0.0, square - sum * sum / a);
}

}  // namespace

void SetPlates(const ProjectState& s, StandardSection& q, const Basis& basis)
{
    q.top = {s.btop, s.ttop};
    q.bottom = {s.bbot, s.tbot};
    q.b = s.btop;
    q.h = q.top.t + q.hw + q.bottom.t;
    const bool closed = q.Closed();
    q.webs = closed ? 2 : 1;
    if (q.kind == Kind::hat) {
        q.upgrade = s.class23 == 0 && !q.elastic;
        AddHat(s, q);
    } else if (closed) {
        AddTwoWebs(s, q, q.top.b - 2.0 * s.ctopout - q.tw, 0);
    } else {
        AddOneWeb(s, q, basis);
    }
    const Centroid centroid = CentroidOf(q);
    Shift(q, centroid);
    SetEdges(q);
    q.iz = SecondMomentZ(q);  // that of the record may be the stiffener's
    const StripValues plastic = PlasticBeside(q, 0, 0);
    q.wply = plastic.wy;
    q.wplz = plastic.wz;
    if (!closed) {
        SetTorsion(q, -centroid.y);
    }
}

StripValues PlasticBeside(const StandardSection& q, double rho_web, double rho_flange)
{
    const Spans z = SpansAlong(q, true, rho_web, rho_flange);
    const Spans y = SpansAlong(q, false, rho_web, rho_flange);
    StripValues values{};
    for (std::size_t i = 0; i < q.strip_count; ++i) {
        values.a += z[i].area;
    }
    values.wy = PlasticModulus(z, q.strip_count);
    values.wz = PlasticModulus(y, q.strip_count);
    return values;
}

StripValues ElasticLoss(const StandardSection& q, double rho_web, double rho_flange)
{
    StripValues loss{};
    for (std::size_t i = 0; i < q.strip_count; ++i) {
        const Strip& strip = q.strips[i];
        const double area = strip.Area() * (strip.web ? rho_web : rho_flange);
        loss.a += area;
        loss.wy += SecondMoment(strip.z0, strip.z1, area) / std::max(q.above, q.below);
        loss.wz += SecondMoment(strip.y0, strip.y1, area) / std::max(q.left, q.right);
    }
    return loss;
}

namespace {

// D33: about an axis held in the web, from the compressed flange.
double UpgradedByTheProgram(const StandardSection& q, double pressed, double other)
{
    const double keep = 20 * q.eps * q.tw;
    const double tension =
        std::clamp((pressed + 4 * keep * q.tw - other) / 2 / q.tw, 0.0, std::max(0.0, q.d));
    const double hole = std::max(0.0, q.hw - tension - 2 * keep);
    return q.wply - 2 * q.tw * hole * (hole / 2 + keep);
}

double UpgradedByTheStandard(const StandardSection& q, bool sagging)
{
    const Flange& pressed = sagging ? q.top : q.bottom;
    const Flange& other = sagging ? q.bottom : q.top;
    const double keep = 20 * q.eps * q.tw;  // mm of each web
    const double web = q.webs * q.tw;
    const double pressed_area = pressed.b * pressed.t;
    const double other_area = other.b * other.t;
    const double whole = (pressed_area + other_area + web * q.hw) / 2;
    const double depth = (whole - pressed_area) / web;  // of the plastic axis without a hole
    if (depth <= 2 * keep) {
        return q.wply;
    }
    // Half of what is left lies at the compressed side: flange and 2 keep of each web; the axis is
    // in the web while the other flange is the smaller half, and at its inner face otherwise.
    const double tension = std::max(0.0, (pressed_area + 2 * keep * web - other_area) / web);
    const double axis = q.hw - std::min(tension, q.hw);  // from the compressed flange
    double w = pressed_area * (axis + pressed.t / 2) + web * keep * (axis - keep / 2) +
               web * keep * keep / 2 + web * tension * tension / 2;
    if (tension > 0) {
        return w + other_area * (tension + other.t / 2);
    }
    // The axis lies in the other flange, `part` of which is compressed.
    const double part = (other_area - pressed_area - 2 * keep * web) / 2 / other.b;
    const double compressed = pressed_area + 2 * keep * web;
    w += compressed * part + other.b * (part * part + std::pow(other.t - part, 2)) / 2;
    return w;
}

}  // namespace

double UpgradedModulus(const StandardSection& q, bool sagging, const Basis& basis)
{
    const Flange& pressed = sagging ? q.top : q.bottom;
    const Flange& other = sagging ? q.bottom : q.top;
    return basis.pick(Dev::d33, UpgradedByTheProgram(q, pressed.b * pressed.t, other.b * other.t),
                      UpgradedByTheStandard(q, sagging));
}

ShearResistance ShearOfFlanges(const StandardSection& q, const ShearInputs& in)
{
    const double plastic = clauses::PlasticShear(q.avy, q.fy, q.gammam0);
    double web = 0;
    bool slender = false;
    for (std::size_t i = 0; i < q.wall_count; ++i) {
        const Wall& wall = q.walls[i];
        if (wall.Upright() || wall.outstand) {
            continue;
        }
        const double width = wall.Width();
        const bool buckles = width / wall.t > clauses::StockyWebLimit(q.eps, q.eta);
        const double lam =
            clauses::WebSlenderness(width, wall.t, q.eps, clauses::kUnstiffenedFactor);
        const double factor =
            buckles ? clauses::WebFactor(lam, q.eta, in.rigid_end_post) : q.gammam1 / q.gammam0;
        web += clauses::WebShear(factor, width, wall.t, q.fy, q.gammam1);
        slender = slender || buckles;
    }
    const double total = slender ? std::min(web, plastic) : plastic;
    return {total, total, slender};
}

double FlangeUnderBoth(double along, double across, const Basis& basis)
{
    const double standard = std::sqrt(along * along + across * across + along * across);
    const double used = across * 1.5 / 1.75;
    const double factor =
        used <= 0.2 || used > 1 ? 1.0 : std::min(1.0, (std::sqrt(1 - used) + 1.1) / 2);
    return basis.pick(Dev::d191, along / factor, standard);
}

double FlangePlate(const StandardSection& q, double load)
{
    constexpr double kArm = 60;  // mm, D185: no input for that of the bearing
    const double plastic = q.fy / q.gammam0 * q.bottom.t * q.bottom.t / 4;
    return std::abs(load) * kArm / plastic;
}

}  // namespace kestrum::standard
