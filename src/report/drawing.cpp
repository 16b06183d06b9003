#include "report/drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace kestrum {

namespace {

struct WideWidth {
    std::uint32_t code;
    std::uint16_t width;
};

#include "report/font_widths.inc"

constexpr double kUnitsPerEm = 2048.0;
constexpr double kAscent = 0.905;  // of Liberation Sans, in em
constexpr double kDescent = 0.212;

// The next code point of a UTF-8 text; a stray byte stands for itself.
std::uint32_t NextCode(std::string_view text, std::size_t& at)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned first = byte(at++);
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
    if (more == 0 || at + static_cast<std::size_t>(more) > text.size()) {
        return first;
    }
    std::uint32_t code = first & (0x3FU >> more);
    for (int i = 0; i < more; ++i) {
        code = (code << 6) | (byte(at++) & 0x3FU);
    }
    return code;
}

unsigned Advance(std::uint32_t code, bool bold)
{
    const auto& plain = bold ? kBoldWidths : kRegularWidths;
    if (code >= 32 && code - 32 < plain.size()) {
        return plain[code - 32];
    }
    for (const WideWidth& wide : bold ? kBoldExtra : kRegularExtra) {
        if (wide.code == code) {
            return wide.width;
        }
    }
    return plain['x' - 32];
}

void Extend(Bounds& bounds, Point p, double margin = 0)
{
    if (bounds.Empty()) {
        bounds = {p.x - margin, p.y - margin, p.x + margin, p.y + margin};
        return;
    }
    bounds.left = std::min(bounds.left, p.x - margin);
    bounds.top = std::min(bounds.top, p.y - margin);
    bounds.right = std::max(bounds.right, p.x + margin);
    bounds.bottom = std::max(bounds.bottom, p.y + margin);
}

struct BoundsVisitor {
    Bounds bounds;
    void operator()(const LineMark& line)
    {
        Extend(bounds, line.from);
        Extend(bounds, line.to);
    }
    void operator()(const PolygonMark& polygon)
    {
        for (const auto& ring : polygon.rings) {
            for (const Point& p : ring) {
                Extend(bounds, p);
            }
        }
    }
    void operator()(const PolylineMark& line)
    {
        for (const Point& p : line.points) {
            Extend(bounds, p);
        }
    }
    void operator()(const CircleMark& circle) { Extend(bounds, circle.centre, circle.radius); }
    void operator()(const TextMark& text) { bounds = BoundsOf(text); }
};

struct MoveVisitor {
    Point offset;
    double scale;
    void Move(Point& p) const { p = {offset.x + scale * p.x, offset.y + scale * p.y}; }
    void operator()(LineMark& line) const
    {
        Move(line.from);
        Move(line.to);
        line.width *= scale;
    }
    void operator()(PolygonMark& polygon) const
    {
        for (auto& ring : polygon.rings) {
            std::for_each(ring.begin(), ring.end(), [this](Point& p) { Move(p); });
        }
        polygon.width *= scale;
    }
    void operator()(PolylineMark& line) const
    {
        std::for_each(line.points.begin(), line.points.end(), [this](Point& p) { Move(p); });
        line.width *= scale;
    }
    void operator()(CircleMark& circle) const
    {
        Move(circle.centre);
        circle.radius *= scale;
        circle.width *= scale;
    }
    void operator()(TextMark& text) const
    {
        Move(text.at);
        text.size *= scale;
    }
};

}  // namespace

bool Bounds::Overlaps(const Bounds& other) const
{
    return !Empty() && !other.Empty() && left < other.right && other.left < right &&
           top < other.bottom && other.top < bottom;
}

bool Bounds::Inside(const Bounds& outer) const
{
    return Empty() || (left >= outer.left && right <= outer.right && top >= outer.top &&
                       bottom <= outer.bottom);
}

double TextWidth(std::string_view text, double size, bool bold)
{
    double units = 0;
    for (std::size_t at = 0; at < text.size();) {
        units += Advance(NextCode(text, at), bold);
    }
    return units / kUnitsPerEm * size;
}

Bounds BoundsOf(const TextMark& text)
{
    const double width = TextWidth(text.text, text.size, text.bold);
    const double start = text.align == Align::left     ? 0
                         : text.align == Align::centre ? -width / 2
                                                       : -width;
    const double turn = text.angle * std::numbers::pi / 180.0;
    Bounds bounds;
    for (const double x : {start, start + width}) {
        for (const double y : {-kAscent * text.size, kDescent * text.size}) {
            Extend(bounds, {text.at.x + x * std::cos(turn) + y * std::sin(turn),
                            text.at.y - x * std::sin(turn) + y * std::cos(turn)});
        }
    }
    return bounds;
}

Bounds BoundsOf(const Mark& mark)
{
    BoundsVisitor visitor;
    std::visit(visitor, mark);
    return visitor.bounds;
}

Bounds BoundsOf(const Drawing& drawing)
{
    Bounds all;
    for (const Mark& mark : drawing.marks) {
        const Bounds one = BoundsOf(mark);
        if (!one.Empty()) {
            Extend(all, {one.left, one.top});
            Extend(all, {one.right, one.bottom});
        }
    }
    return all;
}

void Place(Drawing& target, const Drawing& part, Point offset, double scale)
{
    for (Mark mark : part.marks) {
        std::visit(MoveVisitor{offset, scale}, mark);
        target.marks.push_back(std::move(mark));
    }
    for (PlacedPicture picture : part.pictures) {
        MoveVisitor{offset, scale}.Move(picture.corner);
        picture.width *= scale;
        picture.height *= scale;
        target.pictures.push_back(std::move(picture));
    }
}

Drawing Stacked(const std::vector<Drawing>& pages)
{
    Drawing stack;
    for (const Drawing& page : pages) {
        if (stack.title.empty()) {
            stack.title = page.title;
        }
        stack.width = std::max(stack.width, page.width);
        Place(stack, page, {0, stack.height});
        stack.height += page.height;
    }
    return stack;
}

}  // namespace kestrum
