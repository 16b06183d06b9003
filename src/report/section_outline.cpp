#include "report/section_outline.h"

#include "report/outline_ring.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

using Side = SectionDimension::Side;

// Where upright parts are measured, as a part of the height: away from the centroid, where the axis
// runs, and from the ends.
double LevelOf(const SectionOutline& o)
{
    const double centroid = CentroidOf(o).y / o.height;
    return centroid < 0.4 ? 0.58 : centroid < 0.55 ? 0.7 : 0.32;
}

// Slope of the inner flange faces and the distance from the toe at which tf is measured: DIN 1025-1
// and 1026-1, BS 4-1.
struct Taper {
    double slope = 0, at = 0;
};

Taper TaperOf(const SectionShape& s)
{
    if (!s.tapered) {
        return {};
    }
    switch (TraitsOf(s.family).shape.faces) {
    case FlangeFaces::inp:
        return {0.14, s.b / 4};
    case FlangeFaces::unp:
        return s.h > 300 ? Taper{0.05, (s.b - s.tw) / 2} : Taper{0.08, s.b / 2};
    case FlangeFaces::joist:
        return {std::tan(8 * std::numbers::pi / 180), (s.b - s.tw) / 4};
    default:
        return {0.08, s.b / 2};
    }
}

void RolledI(const SectionShape& s, SectionOutline& o)
{
    const Taper taper = TaperOf(s);
    const double left = (s.b - s.tw) / 2, right = (s.b + s.tw) / 2;
    const double toe = s.tf - taper.slope * taper.at;
    const double root = s.tf + taper.slope * (left - taper.at);
    o.rings = {Rounded({{0, 0},
                        {s.b, 0},
                        {s.b, toe, s.r2},
                        {right, root, s.r},
                        {right, s.h - root, s.r},
                        {s.b, s.h - toe, s.r2},
                        {s.b, s.h},
                        {0, s.h},
                        {0, s.h - toe, s.r2},
                        {left, s.h - root, s.r},
                        {left, root, s.r},
                        {0, toe, s.r2}})};
    o.dimensions = {{"h", Side::left, {0, 0}, {0, s.h}},
                    {"b", Side::bottom, {0, s.h}, {s.b, s.h}},
                    {"tw", Side::across, {left, 0}, {right, 0}},
                    {"tf", Side::right, {s.b - taper.at, 0}, {s.b - taper.at, s.tf}}};
}

void Channel(const SectionShape& s, SectionOutline& o)
{
    const Taper taper = TaperOf(s);
    const double toe = s.tf - taper.slope * taper.at;
    const double root = s.tf + taper.slope * (s.b - s.tw - taper.at);
    o.rings = {Rounded({{0, 0},
                        {s.b, 0},
                        {s.b, toe, s.r2},
                        {s.tw, root, s.r},
                        {s.tw, s.h - root, s.r},
                        {s.b, s.h - toe, s.r2},
                        {s.b, s.h},
                        {0, s.h}})};
    o.dimensions = {{"h", Side::left, {0, 0}, {0, s.h}},
                    {"b", Side::bottom, {0, s.h}, {s.b, s.h}},
                    {"tw", Side::across, {0, 0}, {s.tw, 0}},
                    {"tf", Side::right, {s.b - taper.at, 0}, {s.b - taper.at, s.tf}}};
}

void Hollow(const SectionShape& s, SectionOutline& o)
{
    const double t = s.tw;
    o.rings = {Rectangle(0, 0, s.b, s.h, s.r), Rectangle(t, t, s.b - t, s.h - t, s.rin)};
    o.dimensions = {{"h", Side::left, {0, 0}, {0, s.h}},
                    {"b", Side::bottom, {0, s.h}, {s.b, s.h}},
                    {"t", Side::across, {s.b - t, 0}, {s.b, 0}}};
}

// Two webs with their outer faces at web1 and web2 between a top and a bottom flange.
struct TwoWebs {
    double top1, top2, web1, web2, bottom1, bottom2;
};

void Box(const SectionShape& s, TwoWebs x, double height, SectionOutline& o)
{
    const double first = std::min(x.top1, x.bottom1);
    for (double* v : {&x.top1, &x.top2, &x.web1, &x.web2, &x.bottom1, &x.bottom2}) {
        *v -= first;
    }
    const double under = s.ttop, over = height - s.tbot;
    o.rings = {{{x.top1, 0},
                {x.top2, 0},
                {x.top2, under},
                {x.web2, under},
                {x.web2, over},
                {x.bottom2, over},
                {x.bottom2, height},
                {x.bottom1, height},
                {x.bottom1, over},
                {x.web1, over},
                {x.web1, under},
                {x.top1, under}},
               {{x.web1 + s.tw, under},
                {x.web2 - s.tw, under},
                {x.web2 - s.tw, over},
                {x.web1 + s.tw, over}}};
    o.dimensions = {{"h", Side::left, {0, 0}, {0, s.h}},
                    {"tw", Side::across, {x.web2 - s.tw, 0}, {x.web2, 0}}};
    const auto add = [&o](std::string_view letter, Side side, Point from, Point to) {
        o.dimensions.push_back({letter, side, from, to});
    };
    const FamilyTraits& family = TraitsOf(s.family);
    const bool equal = family.kind == Kind::box;
    if (equal) {
        add("b", Side::bottom, {x.bottom1, height}, {x.bottom2, height});
        add("tf", Side::right, {x.top2, 0}, {x.top2, under});
    } else {
        add("b1", Side::top, {x.top1, 0}, {x.top2, 0});
        add("b2", Side::bottom, {x.bottom1, height}, {x.bottom2, height});
        add("tf1", Side::right, {x.top2, 0}, {x.top2, under});
        add("tf2", Side::right, {x.bottom2, over}, {x.bottom2, height});
    }
    if (s.over > 0 && equal) {
        add("a", Side::top, {x.top1, 0}, {x.web1, 0});
    } else if (s.over > 0 && family.kind == Kind::hat) {
        add("c", Side::top, {x.bottom1, over}, {x.top1, 0});
    } else if (s.over > 0) {
        o.dimensions.push_back({"c", Side::bottom, {x.top1, under}, {x.web1, under}});
    }
}

TwoWebs WebsOf(const SectionShape& s)
{
    const FamilyTraits& family = TraitsOf(s.family);
    if (family.shape.lower == LowerFlange::one_side) {
        // The bottom flange reaches `over` beyond the closed side.
        return {0, s.btop, 0, s.btop, -s.over, s.bbot - s.over};
    }
    const double bottom1 = (s.btop - s.bbot) / 2, bottom2 = (s.btop + s.bbot) / 2;
    if (family.kind == Kind::hat) {  // the top flange covers the webs
        return {0, s.btop, 0, s.btop, bottom1, bottom2};
    }
    return {0, s.btop, s.over, s.btop - s.over, bottom1, bottom2};
}

// One web below a plate or flange: I of plates, T, plates with stiffeners. `left` and `right` are
// the reach of the lower flange from the web's left face.
void WebBelow(const SectionShape& s, double height, double flangeleft, double flangeright,
              SectionOutline& o)
{
    const double shift = std::max({(s.btop - s.tw) / 2, flangeleft, 0.0});
    const double left = shift, right = shift + s.tw;
    const double top1 = left + s.tw / 2 - s.btop / 2, top2 = top1 + s.btop;
    const double over = height - s.tbot;
    Ring ring{{top1, 0}, {top2, 0}, {top2, s.ttop}, {right, s.ttop}};
    if (s.tbot > 0) {
        ring.insert(ring.end(), {{right, over},
                                 {left + flangeright, over},
                                 {left + flangeright, height},
                                 {left - flangeleft, height},
                                 {left - flangeleft, over},
                                 {left, over}});
    } else {
        ring.insert(ring.end(), {{right, height}, {left, height}});
    }
    ring.insert(ring.end(), {{left, s.ttop}, {top1, s.ttop}});
    o.rings = {std::move(ring)};

    o.dimensions = {{"tw", Side::across, {left, 0}, {right, 0}}};
    const Stiffener stiffener = TraitsOf(s.family).shape.stiffener;
    const bool plate = stiffener != Stiffener::none, two = s.tbot > 0;
    o.dimensions.push_back({"h", Side::left, {0, plate ? s.ttop : 0}, {0, height}});
    o.dimensions.push_back({two ? "b1" : "b", Side::top, {top1, 0}, {top2, 0}});
    const bool rolled = stiffener == Stiffener::rolled_angle;  // only the plate is entered
    o.dimensions.push_back({rolled ? "t1" : "tf1", Side::right, {top2, 0}, {top2, s.ttop}});
    if (two) {
        o.dimensions.push_back(
            {"b2", Side::bottom, {left - flangeleft, height}, {left + flangeright, height}});
        o.dimensions.push_back(
            {"tf2", Side::right, {left + flangeright, over}, {left + flangeright, height}});
    }
}

// Bulb flat below a plate, EN 10067: the bulb slopes with 30 degrees and has the area that the
// record's rectangle bbot x tbot stands for.
void BulbFlat(const SectionShape& s, SectionOutline& o)
{
    const double slope = std::tan(std::numbers::pi / 6);
    const double c = s.bbot - s.tw, target = c * s.tbot;
    const double left = std::max((s.btop - s.tw) / 2, 0.0), right = left + s.tw;
    const double top1 = left + s.tw / 2 - s.btop / 2, top2 = top1 + s.btop;
    const double tip = right + c, round = 0.25 * c;
    const auto bulb = [&](double edge) {  // beyond the web
        return Rounded({{right, s.h - edge - c * slope},
                        {tip, s.h - edge, round},
                        {tip, s.h, round},
                        {right, s.h}});
    };
    double edge = s.tbot - c * slope / 2;
    edge += (target - std::abs(RingArea(bulb(edge)))) / c;
    o.rings = {Rounded({{top1, 0},
                        {top2, 0},
                        {top2, s.ttop},
                        {right, s.ttop},
                        {right, s.h - edge - c * slope},
                        {tip, s.h - edge, round},
                        {tip, s.h, round},
                        {left, s.h},
                        {left, s.ttop},
                        {top1, s.ttop}})};
    o.dimensions = {{"h", Side::left, {0, s.ttop}, {0, s.h}},
                    {"b1", Side::top, {top1, 0}, {top2, 0}},
                    {"tw", Side::across, {left, 0}, {right, 0}},
                    {"t1", Side::right, {top2, 0}, {top2, s.ttop}}};
}

void AngleOutline(const SectionShape& s, SectionOutline& o)
{
    const double t = s.tw;
    o.rings = {Rounded(
        {{0, 0}, {t, 0, s.r2}, {t, s.h - t, s.r}, {s.b, s.h - t, s.r2}, {s.b, s.h}, {0, s.h}})};
    o.dimensions = {{"h", Side::left, {0, 0}, {0, s.h}},
                    {"b", Side::bottom, {0, s.h}, {s.b, s.h}},
                    {"t", Side::across, {0, 0}, {t, 0}}};
}

void Tube(const SectionShape& s, SectionOutline& o)
{
    const double d = s.h, t = s.tw;
    o.rings = {Circle(d / 2, d / 2), Circle(d / 2, d / 2 - t)};
    o.dimensions = {{"d", Side::left, {d / 2, 0}, {d / 2, d}},
                    {"t", Side::right, {d / 2, 0}, {d / 2, t}}};
}

void FlatBar(const SectionShape& s, SectionOutline& o)
{
    o.rings = {Rectangle(0, 0, s.tw, s.h, 0)};
    o.dimensions = {{"h", Side::left, {0, 0}, {0, s.h}},
                    {"t", Side::bottom, {0, s.h}, {s.tw, s.h}}};
}

void General(SectionOutline& o)
{
    o.symbolic = true;
    o.rings = {Rounded({{0, 25, 15},
                        {35, 0, 20},
                        {90, 10, 25},
                        {75, 55, 30},
                        {95, 100, 20},
                        {30, 110, 25},
                        {15, 65, 25}})};
}

void StiffenedPlate(const SectionShape& s, Stiffener stiffener, SectionOutline& o)
{
    switch (stiffener) {
    case Stiffener::none:
    case Stiffener::flat_bar:
        return WebBelow(s, s.h, 0, s.tw, o);
    case Stiffener::rolled_angle:
    case Stiffener::welded_angle:
        return WebBelow(s, s.h, 0, s.bbot, o);
    case Stiffener::bulb_flat:
        return BulbFlat(s, o);
    case Stiffener::tee:
        return WebBelow(s, s.h, (s.bbot - s.tw) / 2, (s.bbot + s.tw) / 2, o);
    }
}

void SetRings(const SectionShape& s, SectionOutline& o)
{
    const FamilyTraits& family = TraitsOf(s.family);
    switch (family.kind) {
    case Kind::i_rolled:
    case Kind::i_welded:
        return RolledI(s, o);
    case Kind::channel:
        return Channel(s, o);
    case Kind::hollow:
        return Hollow(s, o);
    case Kind::angle:
        return AngleOutline(s, o);
    case Kind::i_single:
        return WebBelow(s, s.h, (s.bbot - s.tw) / 2, (s.bbot + s.tw) / 2, o);
    case Kind::box:
    case Kind::box_unequal:
        return Box(s, WebsOf(s), s.h, o);
    case Kind::hat:  // h is that without the bottom flange
        return Box(s, WebsOf(s), s.h + s.tbot, o);
    case Kind::tee:
        return WebBelow(s, s.h, 0, s.tw, o);
    case Kind::plate:
        return StiffenedPlate(s, family.shape.stiffener, o);
    case Kind::flat:
        return FlatBar(s, o);
    case Kind::tube:
        return Tube(s, o);
    case Kind::general:
        return General(o);
    case Kind::none:
        return;
    }
}

}  // namespace

double SectionDimension::Value() const
{
    const bool upright = side == Side::left || side == Side::right;
    return upright ? to.y - from.y : to.x - from.x;
}

SectionOutline OutlineOf(const SectionShape& shape)
{
    SectionOutline o;
    SetRings(shape, o);
    for (const Ring& ring : o.rings) {
        for (const Point& p : ring) {
            if (!std::isfinite(p.x) || !std::isfinite(p.y)) {
                return {};
            }
            o.width = std::max(o.width, p.x);
            o.height = std::max(o.height, p.y);
        }
    }
    if (!(o.width > 0) || !(o.height > 0)) {
        return {};
    }
    for (SectionDimension& dimension : o.dimensions) {
        if (dimension.side == Side::across) {
            dimension.from.y = dimension.to.y = LevelOf(o) * o.height;
        }
    }
    return o;
}

double AreaOf(const SectionOutline& outline)
{
    double area = 0;
    for (std::size_t i = 0; i < outline.rings.size(); ++i) {
        const double ring = std::abs(RingArea(outline.rings[i]));
        area += i == 0 ? ring : -ring;  // the first ring is the outer one
    }
    return area;
}

Point CentroidOf(const SectionOutline& outline)
{
    double area = 0, ax = 0, ay = 0;
    for (std::size_t i = 0; i < outline.rings.size(); ++i) {
        const Ring& ring = outline.rings[i];
        const double sign = (RingArea(ring) > 0 ? 1 : -1) * (i == 0 ? 1 : -1);
        for (std::size_t k = 0; k < ring.size(); ++k) {
            const Point a = ring[k], b = ring[(k + 1) % ring.size()];
            const double cross = sign * (a.x * b.y - b.x * a.y);
            area += cross / 2;
            ax += cross * (a.x + b.x) / 6;
            ay += cross * (a.y + b.y) / 6;
        }
    }
    return area == 0 ? Point{outline.width / 2, outline.height / 2} : Point{ax / area, ay / area};
}

}  // namespace kestrum
