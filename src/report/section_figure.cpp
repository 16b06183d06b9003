#include "report/section_figure.h"

#include "core/number_format.h"
#include "core/project_inputs.h"
#include "report/figure_tools.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

using Side = SectionDimension::Side;

constexpr double kText = 3.2;
// Room around the section for dimension lines and axes.
constexpr double kLeft = 20, kRight = 22, kTop = 17, kBottom = 15;
constexpr double kStub = 3;     // of an axis beyond the section
constexpr double kArrow = 4.5;  // of a thickness, from outside
constexpr double kHead = 1.5;

// From mm of the outline to the picture.
struct View {
    Point corner;
    double scale;
    double left, top, right, bottom;  // of the section

    Point operator()(Point p) const { return {corner.x + scale * p.x, corner.y + scale * p.y}; }
};

View Fit(const SectionOutline& o, double left, double top, double width, double height)
{
    const double scale = std::min(width / o.width, height / o.height);
    const Point corner{left + (width - scale * o.width) / 2, top + (height - scale * o.height) / 2};
    return {
        corner, scale, corner.x, corner.y, corner.x + scale * o.width, corner.y + scale * o.height};
}

void AddOutline(Drawing& d, const SectionOutline& o, const View& view, double width)
{
    PolygonMark mark{{}, o.symbolic ? Ink::shade : Ink::steel, true, Ink::member, width};
    for (const auto& ring : o.rings) {
        std::vector<Point> points(ring.size());
        std::transform(ring.begin(), ring.end(), points.begin(), view);
        mark.rings.push_back(std::move(points));
    }
    d.marks.push_back(std::move(mark));
}

TextMark Text(double x, double y, std::string text, Align align)
{
    TextMark mark{{x, y}, std::move(text), kText};
    mark.align = align;
    return mark;
}

// Where a figure would best stand, and the direction in which it may give way.
struct Place {
    TextMark text;
    double direction;
};

// A line with a head at both ends; where it is too short the heads point in from outside.
void AddMeasure(Drawing& d, Point from, Point to)
{
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (length == 0) {
        return;
    }
    const Point along{(to.x - from.x) / length, (to.y - from.y) / length};
    if (length < 2.5 * kHead) {
        AddArrow(d, {from.x - kArrow * along.x, from.y - kArrow * along.y}, from, Ink::faint, kThin,
                 kHead);
        AddArrow(d, {to.x + kArrow * along.x, to.y + kArrow * along.y}, to, Ink::faint, kThin,
                 kHead);
        return;
    }
    const Point middle{(from.x + to.x) / 2, (from.y + to.y) / 2};
    AddArrow(d, middle, from, Ink::faint, kThin, kHead);
    AddArrow(d, middle, to, Ink::faint, kThin, kHead);
}

Place AddDimension(Drawing& d, const View& view, const SectionDimension& dimension,
                   std::string figure)
{
    const Point from = view(dimension.from), to = view(dimension.to);
    const Point middle{(from.x + to.x) / 2, (from.y + to.y) / 2};
    switch (dimension.side) {
    case Side::left: {
        const double x = view.left - 7;
        AddLine(d, {from.x - 1, from.y}, {x - 1, from.y}, Ink::faint);
        AddLine(d, {to.x - 1, to.y}, {x - 1, to.y}, Ink::faint);
        AddMeasure(d, {x, from.y}, {x, to.y});
        return {Text(x - 1, middle.y + 0.35 * kText, std::move(figure), Align::right), 1};
    }
    case Side::top: {
        const double y = view.top - 9;
        AddLine(d, {from.x, from.y - 1}, {from.x, y - 1}, Ink::faint);
        AddLine(d, {to.x, to.y - 1}, {to.x, y - 1}, Ink::faint);
        AddMeasure(d, {from.x, y}, {to.x, y});
        return {Text(middle.x, y - 0.35 * kText, std::move(figure), Align::centre), -1};
    }
    case Side::bottom: {
        const double y = view.bottom + 6;
        AddLine(d, {from.x, from.y + 1}, {from.x, y + 1}, Ink::faint);
        AddLine(d, {to.x, to.y + 1}, {to.x, y + 1}, Ink::faint);
        AddMeasure(d, {from.x, y}, {to.x, y});
        return {Text(middle.x, y + 1.05 * kText, std::move(figure), Align::centre), 1};
    }
    case Side::right: {
        const double x = view.right + 5;
        AddLine(d, {from.x + 0.7, from.y}, {x + 1, from.y}, Ink::faint);
        AddLine(d, {to.x + 0.7, to.y}, {x + 1, to.y}, Ink::faint);
        AddArrow(d, {x, from.y - kArrow}, {x, from.y}, Ink::faint, kThin, kHead);
        AddArrow(d, {x, to.y + kArrow}, {x, to.y}, Ink::faint, kThin, kHead);
        const bool upper = middle.y < (view.top + view.bottom) / 2;
        const double y = upper ? from.y - 0.5 * kText : to.y + 1.2 * kText;
        return {Text(x + 1, y, std::move(figure), Align::left), upper ? -1.0 : 1.0};
    }
    default:
        AddArrow(d, {from.x - kArrow, from.y}, from, Ink::faint, kThin, kHead);
        AddArrow(d, {to.x + kArrow, to.y}, to, Ink::faint, kThin, kHead);
        return {Text(to.x + kArrow + 1.8, to.y + 0.35 * kText, std::move(figure), Align::left), 1};
    }
}

// Axes through the centroid, longer than usual where a thickness is measured beside the end.
void AddAxes(Drawing& d, const SectionOutline& o, const View& view, std::vector<Place>& places)
{
    const Point c = view(CentroidOf(o));
    double end = view.right + kStub;
    for (const SectionDimension& dimension : o.dimensions) {
        const Point from = view(dimension.from), to = view(dimension.to);
        if (dimension.side == Side::right && c.y > from.y - kArrow - kText &&
            c.y < to.y + kArrow + kText) {
            end = view.right + 4 * kStub;
        }
    }
    AddLine(d, {view.left - kStub, c.y}, {end, c.y}, Ink::faint, 0.25, true);
    AddLine(d, {c.x, view.top - kStub}, {c.x, view.bottom + kStub}, Ink::faint, 0.25, true);
    TextMark y = Text(end + 1.8, c.y + 0.35 * kText, "Y", Align::left);
    TextMark z = Text(c.x, view.top - kStub - 0.7, "Z", Align::centre);
    y.bold = z.bold = true;
    places.push_back({std::move(y), 1});
    places.push_back({std::move(z), -1});
}

// Whole millimetres without decimals, others with two at most.
std::string FigureText(double value)
{
    std::string text = FormatNum(value, "#0.0#");
    if (text.ends_with(".0")) {
        text.resize(text.size() - 2);
    }
    return text;
}

Drawing Picture(double size, std::string title)
{
    Drawing d;
    d.width = d.height = size;
    d.title = std::move(title);
    return d;
}

void AddSection(Drawing& d, const SectionOutline& o, bool letters)
{
    const View view = Fit(o, kLeft, kTop, kSectionPicture - kLeft - kRight,
                          kSectionPicture - kTop - kBottom - kText);
    AddOutline(d, o, view, 0.35);
    std::vector<Place> places;
    AddAxes(d, o, view, places);
    for (const SectionDimension& dimension : o.dimensions) {
        places.push_back(
            AddDimension(d, view, dimension,
                         letters ? std::string(dimension.letter) : FigureText(dimension.Value())));
    }
    TextPlacer placer(d);
    placer.AvoidAll();
    for (Place& place : places) {
        placer.Add(std::move(place.text), place.direction);
    }
}

void AddNote(Drawing& d, std::string text)
{
    TextMark note = Text(1, kSectionPicture - 1.2, std::move(text), Align::left);
    note.italic = true;
    AddText(d, std::move(note));
}

}  // namespace

Drawing DrawSection(const ProjectState& s)
{
    Drawing d = Picture(kSectionPicture, "Section");
    const SectionOutline o = OutlineOf(ShapeOf(s));
    if (o.rings.empty()) {
        return d;
    }
    AddSection(d, o, false);
    if (o.symbolic) {
        const std::string& ident = InputsOf(s).p41ident;
        AddNote(d, ident.empty() ? "General Profile" : ident);
    }
    return d;
}

Drawing DrawSectionLetters(int family)
{
    Drawing d = Picture(kSectionPicture, "Section");
    const SectionOutline o = OutlineOf(TypicalShape(family));
    if (!o.rings.empty()) {
        AddSection(d, o, true);
        AddNote(d, "Figure not to scale");
    }
    return d;
}

Drawing SectionIcon(int family)
{
    constexpr double kMargin = 2;
    Drawing d = Picture(kIcon, "Section");
    const SectionOutline o = OutlineOf(TypicalShape(family));
    if (!o.rings.empty()) {
        AddOutline(d, o, Fit(o, kMargin, kMargin, kIcon - 2 * kMargin, kIcon - 2 * kMargin), 0.5);
    }
    return d;
}

}  // namespace kestrum
