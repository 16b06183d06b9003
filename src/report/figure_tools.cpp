#include "report/figure_tools.h"

#include "core/member_choices.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrum {

namespace {

constexpr double kClearance = 0.25;  // between a text and what it keeps clear of, in text heights

// Does the straight line touch the box? Clipping after Liang and Barsky.
bool Crosses(Point from, Point to, const Bounds& box)
{
    double enter = 0, leave = 1;
    const double dx = to.x - from.x, dy = to.y - from.y;
    const double step[] = {-dx, dx, -dy, dy};
    const double room[] = {from.x - box.left, box.right - from.x, from.y - box.top,
                           box.bottom - from.y};
    for (int side = 0; side < 4; ++side) {
        if (step[side] == 0) {
            if (room[side] < 0) {
                return false;
            }
            continue;
        }
        const double at = room[side] / step[side];
        if (step[side] < 0) {
            enter = std::max(enter, at);
        } else {
            leave = std::min(leave, at);
        }
    }
    return enter <= leave;
}

struct Touches {
    const Bounds& box;
    bool operator()(const LineMark& line) const { return Crosses(line.from, line.to, box); }
    bool operator()(const PolylineMark& line) const
    {
        for (std::size_t i = 1; i < line.points.size(); ++i) {
            if (Crosses(line.points[i - 1], line.points[i], box)) {
                return true;
            }
        }
        return false;
    }
    // The outline cut or, by the number of edges to the right of its corner, all of the box inside.
    bool operator()(const PolygonMark& mark) const
    {
        bool inside = false;
        for (const auto& ring : mark.rings) {
            for (std::size_t i = 0; i < ring.size(); ++i) {
                const Point a = ring[i], b = ring[(i + 1) % ring.size()];
                if (Crosses(a, b, box)) {
                    return true;
                }
                if ((a.y > box.top) != (b.y > box.top) &&
                    box.left < a.x + (box.top - a.y) / (b.y - a.y) * (b.x - a.x)) {
                    inside = !inside;
                }
            }
        }
        return inside && mark.filled;
    }
    bool operator()(const CircleMark& mark) const { return BoundsOf(Mark(mark)).Overlaps(box); }
    bool operator()(const TextMark& mark) const { return BoundsOf(mark).Overlaps(box); }
};

void AddHatch(Drawing& d, Point from, Point to, Point lean, int strokes)
{
    for (int i = 0; i <= strokes; ++i) {
        const double t = static_cast<double>(i) / strokes;
        const Point at{from.x + t * (to.x - from.x), from.y + t * (to.y - from.y)};
        AddLine(d, at, {at.x + lean.x, at.y + lean.y}, Ink::member);
    }
}

void AddTriangle(Drawing& d, Point at, double size)
{
    const double half = 0.6 * size;
    AddCurve(d, {at, {at.x - half, at.y + size}, {at.x + half, at.y + size}, at}, Ink::member);
}

void AddGround(Drawing& d, Point at, double size)
{
    const double half = 0.8 * size;
    AddLine(d, {at.x - half, at.y}, {at.x + half, at.y}, Ink::member);
    AddHatch(d, {at.x - half + 0.3 * size, at.y}, {at.x + half, at.y}, {-0.3 * size, 0.35 * size},
             4);
}

// Rotational spring around the pin.
void AddSpiral(Drawing& d, Point at, double size, double side)
{
    std::vector<Point> spiral;
    for (int i = 0; i <= 40; ++i) {
        const double turn = i / 40.0 * 3.5 * std::numbers::pi;
        const double radius = 0.08 * size + 0.5 * size * i / 40.0;
        spiral.push_back({at.x + side * radius * std::cos(turn), at.y - radius * std::sin(turn)});
    }
    AddCurve(d, std::move(spiral), Ink::member);
}

}  // namespace

void AddLine(Drawing& d, Point from, Point to, Ink ink, double width, bool dashed)
{
    d.marks.push_back(LineMark{from, to, ink, width, dashed});
}

void AddCurve(Drawing& d, std::vector<Point> points, Ink ink, double width)
{
    d.marks.push_back(PolylineMark{std::move(points), ink, width});
}

void AddFilled(Drawing& d, std::vector<Point> points, Ink ink)
{
    d.marks.push_back(PolygonMark{{std::move(points)}, ink, true, ink, kThin / 4});
}

void AddText(Drawing& d, TextMark text)
{
    d.marks.push_back(std::move(text));
}

void AddArrow(Drawing& d, Point from, Point tip, Ink ink, double width, double head)
{
    const double dx = tip.x - from.x, dy = tip.y - from.y;
    const double length = std::hypot(dx, dy);
    if (length == 0) {
        return;
    }
    const Point along{dx / length, dy / length};
    head = std::min(head, length);
    const Point neck{tip.x - head * along.x, tip.y - head * along.y};
    const double half = 0.35 * head;
    AddLine(d, from, neck, ink, width);
    AddFilled(d,
              {tip,
               {neck.x - half * along.y, neck.y + half * along.x},
               {neck.x + half * along.y, neck.y - half * along.x}},
              ink);
}

std::vector<Point> Arc(Point centre, double radius, double from, double to, int steps)
{
    std::vector<Point> points;
    for (int i = 0; i <= steps; ++i) {
        const double angle = (from + (to - from) * i / steps) * std::numbers::pi / 180;
        points.push_back(
            {centre.x + radius * std::cos(angle), centre.y - radius * std::sin(angle)});
    }
    return points;
}

void AddTurn(Drawing& d, Point centre, double radius, bool positive, Ink ink, double width)
{
    // From below right around the left to above right, or the other way.
    std::vector<Point> arc =
        positive ? Arc(centre, radius, -225, 45, 24) : Arc(centre, radius, 405, 135, 24);
    const Point tip = arc.back();
    const double lean = positive ? 135 : 45;  // direction of travel, degrees
    const double angle = lean * std::numbers::pi / 180;
    const double head = 0.55 * radius;
    AddCurve(d, std::move(arc), ink, width);
    const Point ahead{tip.x + head * std::cos(angle), tip.y - head * std::sin(angle)};
    AddArrow(d, tip, ahead, ink, width, head);
}

void AddSupport(Drawing& d, Point at, Support support, double side, double size)
{
    switch (support) {
    case Support::none:
        break;
    case Support::pinned:
    case Support::spring:
        AddTriangle(d, at, size);
        AddGround(d, {at.x, at.y + size}, size);
        if (support == Support::spring) {
            AddSpiral(d, at, size, side);
        }
        break;
    case Support::roller:
        AddTriangle(d, at, 0.8 * size);
        AddGround(d, {at.x, at.y + size}, size);
        break;
    case Support::fixed:
        AddLine(d, {at.x, at.y - size}, {at.x, at.y + size}, Ink::member, 0.15 * size);
        AddHatch(d, {at.x, at.y - size + 0.3 * size}, {at.x, at.y + size},
                 {side * 0.45 * size, -0.3 * size}, 5);
        break;
    }
    if (support != Support::none && support != Support::fixed) {
        d.marks.push_back(CircleMark{at, 0.12 * size, Ink::member, kThin, true});
    }
}

EndSupports SupportsOf(int supportcase)
{
    switch (supportcase) {
    case SupportCase::pinned_fixed:
        return {Support::pinned, Support::fixed};
    case SupportCase::fixed:
        return {Support::fixed, Support::fixed};
    case SupportCase::springs:
        return {Support::spring, Support::spring};
    case SupportCase::cantilever:
        return {Support::fixed, Support::none};
    case SupportCase::pinned_spring:
        return {Support::pinned, Support::spring};
    default:
        return {Support::pinned, Support::roller};
    }
}

void TextPlacer::AvoidAll()
{
    obstacles_ = drawing_.marks;
}

bool TextPlacer::Free(const Bounds& box) const
{
    return std::none_of(obstacles_.begin(), obstacles_.end(),
                        [&box](const Mark& mark) { return std::visit(Touches{box}, mark); });
}

void TextPlacer::Add(TextMark text, double direction)
{
    constexpr int kLevels = 24;
    const double row = 0.5 * text.size;
    const double gap = kClearance * text.size;
    const Point start = text.at;
    bool placed = false;
    const auto fits = [&](double x, double y) {
        text.at = {x, y};
        Bounds box = BoundsOf(text);
        if (!box.Inside({0, 0, drawing_.width, drawing_.height})) {
            return false;
        }
        box.left -= gap;
        box.right += gap;
        return Free(box);
    };
    // Away from the start in rings: first straight on, then ever further to the sides.
    for (int ring = 0; ring <= 2 * kLevels && !placed; ++ring) {
        for (int level = std::min(ring, kLevels); level >= 0 && !placed; --level) {
            const double y = start.y + direction * level * row;
            const double aside = (ring - level) * 2 * row;
            placed = fits(start.x + aside, y) || fits(start.x - aside, y) ||
                     (ring > 8 && fits(start.x, start.y - direction * level * row));
        }
    }
    if (!placed) {
        text.at = start;
    }
    obstacles_.push_back(text);
    AddText(drawing_, std::move(text));
}

}  // namespace kestrum
