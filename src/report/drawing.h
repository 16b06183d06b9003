#pragma once

// The neutral drawing: what a figure, a diagram, the panel or a printed page shows, as data.
// `render` turns it into painter calls (screen, printer, PDF, PNG), `svg_writer` into SVG; tests
// read the marks.
//
// A drawing has its own units, told by whoever makes it (pages: millimetres; diagrams: the logical
// units of the diagram); x runs to the right, y downwards, text heights are font sizes in the same
// units.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace kestrum {

// What a mark stands for; the face that shows it chooses the colour for its palette.
enum class Ink : std::uint8_t {
    text,    // black on paper
    member,  // member line, supports, section outline
    load,    // blue
    moment,  // red: moment, shear and deflection curves
    good,    // green: within the limit
    bad,     // red: above the limit
    faint,   // rules, dimension lines, axes
    steel,   // fill of a cut section
    shade,   // light fill under curves and of table heads
    paper    // background
};

enum class Align : std::uint8_t { left, centre, right };

struct Point {
    double x = 0, y = 0;
    bool operator==(const Point&) const = default;
};

struct LineMark {
    Point from, to;
    Ink ink = Ink::text;
    double width = 0;  // 0 is a hairline
    bool dashed = false;
};

struct PolygonMark {  // closed; holes by the even-odd rule: several rings in one mark
    std::vector<std::vector<Point>> rings;
    Ink fill = Ink::steel;
    bool filled = true;
    Ink outline = Ink::member;
    double width = 0;
};

struct PolylineMark {
    std::vector<Point> points;
    Ink ink = Ink::moment;
    double width = 0;
};

struct CircleMark {
    Point centre;
    double radius = 0;
    Ink ink = Ink::member;
    double width = 0;
    bool filled = false;
};

struct TextMark {
    Point at;  // the baseline's left, centre or right point
    std::string text;
    double size = 1;  // font size
    Align align = Align::left;
    bool bold = false, underline = false, italic = false;
    Ink ink = Ink::text;
    double angle = 0;       // degrees, counterclockwise
    bool verbatim = false;  // keeps its points where numbers get a decimal comma
};

using Mark = std::variant<LineMark, PolygonMark, PolylineMark, CircleMark, TextMark>;

// A picture file, as large as its box allows, in the middle of it.
struct PlacedPicture {
    Point corner;  // upper left
    double width = 0, height = 0;
    std::shared_ptr<const std::string> bytes{};  // PNG or SVG
    bool svg = false;
};

struct Drawing {
    double width = 0, height = 0;  // extent in its own units
    std::string title;
    std::vector<Mark> marks;
    std::vector<PlacedPicture> pictures{};
};

// Box around something drawn; empty when right < left.
struct Bounds {
    double left = 0, top = 0, right = -1, bottom = -1;
    bool Empty() const { return right < left; }
    bool Overlaps(const Bounds& other) const;
    bool Inside(const Bounds& outer) const;
};

// Width of a text in Liberation Sans at the given font size, in the unit of the size. UTF-8.
double TextWidth(std::string_view text, double size, bool bold = false);

// Box of a text (from the tallest ascender to the lowest descender of the font), of a mark, of all.
Bounds BoundsOf(const TextMark& text);
Bounds BoundsOf(const Mark& mark);
Bounds BoundsOf(const Drawing& drawing);

// One drawing with all of the given below each other, as for a file that holds a single picture.
Drawing Stacked(const std::vector<Drawing>& pages);

// Appends all marks of `part`, scaled and then moved; text sizes and line widths scale with it.
void Place(Drawing& target, const Drawing& part, Point offset, double scale = 1);

}  // namespace kestrum
