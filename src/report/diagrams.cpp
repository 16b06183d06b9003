#include "report/diagrams.h"

#include "analysis/step_points.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "report/figure_tools.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace kestrum {

namespace {

using Curve = std::array<float, kDiagramPoints>;

constexpr double kIntervals = kDiagramPoints - 1;
constexpr double kTitle = 6;                   // height of the title line
constexpr double kBandHeight = 27;             // of one curve with its labels
constexpr double kBandAxis = kBandHeight / 2;  // from the top of the band
constexpr double kHeadingLine = 3.4;           // from the top of the band
constexpr double kCurveWidth = 0.35;

// A value worth a figure, at a part of the length. The figure comes with it: values in single
// precision are rounded as such.
struct Label {
    double value, at;
    std::string figure;
};

template <class T> Label LabelOf(T value, double at)
{
    return {value, at, FormatNum(value, "#0.0")};
}

// A point of a drawn line: x/L and value.
struct LinePoint {
    double at, value;
};
using Steps = std::vector<LinePoint>;

// One curve, without its figures.
struct Band {
    const Curve& values;
    Steps steps;       // besides the values, where the line jumps or bends
    double reference;  // largest size, 10 units
    double axis;       // height in the picture
    std::string heading;
    double headingline;
};

double XOf(double relative)
{
    return kMemberStart + relative * kMemberWidth;
}

double Ordinate(const Band& band, double value)
{
    return band.reference == 0 ? 0 : kOrdinate * value / band.reference;
}

double Larger(double most, double least)
{
    return most > -least ? most : -least;
}

// The extremes are searched at the values and at the check sections; a load between those can have
// a higher peak, which has to stay in its band.
double ReferenceOf(double most, double least, const Steps& steps)
{
    constexpr double kHighest = 1.2;  // of the reference
    double reference = Larger(most, least);
    if (reference != 0) {
        for (const LinePoint& step : steps) {
            reference = std::max(reference, std::abs(step.value) / kHighest);
        }
    }
    return reference;
}

std::vector<Point> CurveOf(const Band& band)
{
    std::vector<LinePoint> line;
    for (int j = 0; j < kDiagramPoints; ++j) {
        line.push_back({j / kIntervals, band.values[static_cast<std::size_t>(j)]});
    }
    const auto middle = static_cast<std::ptrdiff_t>(line.size());
    line.insert(line.end(), band.steps.begin(), band.steps.end());
    std::inplace_merge(line.begin(), line.begin() + middle, line.end(),
                       [](const LinePoint& a, const LinePoint& b) { return a.at < b.at; });

    std::vector<Point> points{{XOf(0), band.axis}};
    for (const LinePoint& point : line) {
        points.push_back({XOf(point.at), band.axis + Ordinate(band, point.value)});
    }
    points.push_back({XOf(1), band.axis});
    return points;
}

void AddCurveOf(Drawing& d, const Band& band)
{
    std::vector<Point> points = CurveOf(band);
    if (band.reference != 0) {
        AddFilled(d, points, Ink::shade);
    }
    AddLine(d, {XOf(0), band.axis}, {XOf(1), band.axis}, Ink::member, 0.25);
    AddCurve(d, std::move(points), Ink::moment, kCurveWidth);
    TextMark heading{{1, band.headingline}, band.heading, kHeadingSize};
    heading.bold = true;
    AddText(d, std::move(heading));
}

std::string PositionText(const ProjectState& s, double at)
{
    return "x=" + FormatNum(1.0 * s.l * at, "#0.000 m");
}

TextMark Figure(double x, double y, std::string text)
{
    TextMark mark{{0, y}, std::move(text), kLabelSize};
    mark.align = Align::centre;
    const double half = TextWidth(mark.text, mark.size) / 2 + 0.3;
    mark.at.x = std::clamp(x, half, kPictureWidth - half);
    return mark;
}

// The figure of an extreme, beyond the curve. What is a rounding residue beside the reference has
// none.
void AddExtreme(TextPlacer& placer, const ProjectState& s, const Band& band, const Label& label,
                bool position)
{
    constexpr double kResidue = 1e-4;
    if (std::abs(label.value) <= kResidue * band.reference) {
        return;
    }
    const bool below = label.value > 0;
    std::string text = label.figure;
    if (position) {
        text += "  " + PositionText(s, label.at);
    }
    const double tip = band.axis + Ordinate(band, label.value);
    const double y = below ? tip + 1.0 * kLabelSize : tip - 0.4 * kLabelSize;
    placer.Add(Figure(XOf(label.at), y, std::move(text)), below ? 1 : -1);
}

// A zero crossing: a mark on the axis and its position.
void AddCrossing(Drawing& d, TextPlacer& placer, const ProjectState& s, const Band& band, float at)
{
    if (at == 0) {
        return;
    }
    d.marks.push_back(CircleMark{{XOf(at), band.axis}, 0.5, Ink::moment, kThin, true});
    placer.Add(Figure(XOf(at), band.axis - 0.6 * kLabelSize, PositionText(s, at)), -1);
}

// What the two axes call the same.
struct AxisResults {
    const Curve &m, &v, &d;
    double mmax, mmin, xmmax, xmmin, vmax, vmin, xvmax, xvmin, dmaxabs;
    float crossing1, crossing2;
    std::string mname, vname;
};

AxisResults ResultsOf(const ProjectState& s, LoadAxis axis)
{
    if (axis == LoadAxis::z) {
        return {s.mydiag, s.vzdiag, s.dzdiag, s.mymax,    s.mymin, s.xmymax, s.xmymin, s.vzmax,
                s.vzmin,  s.xvzmax, s.xvzmin, s.dzmaxabs, s.x0my1, s.x0my2,  "My",     "Vz"};
    }
    return {s.mzdiag, s.vydiag, s.dydiag, s.mzmax,    s.mzmin, s.xmzmax, s.xmzmin, s.vymax,
            s.vymin,  s.xvymax, s.xvymin, s.dymaxabs, s.x0mz1, s.x0mz2,  "Mz",     "Vy"};
}

struct AxisSteps {
    Steps m, v;
};

AxisSteps StepsOf(const ProjectState& s, LoadAxis axis)
{
    AxisSteps steps;
    for (const StepPoint& point :
         StepPoints(s, s, s, s, axis == LoadAxis::z ? BendingAxis::y : BendingAxis::z)) {
        steps.m.push_back({point.at, point.m});
        steps.v.push_back({point.at, point.v});
    }
    return steps;
}

Drawing Picture(double height, const AxisResults& r)
{
    Drawing d;
    d.width = kPictureWidth;
    d.height = height;
    d.title = r.mname + ", " + r.vname;
    return d;
}

Drawing WithLoads(const ProjectState& s, LoadAxis axis)
{
    const AxisResults r = ResultsOf(s, axis);
    Drawing d = Picture(kTitle + 3 * kBandHeight + 4, r);
    TextMark title{{kPictureWidth / 2, 3.8},
                   r.mname + "/" + r.vname + "/Deflection (kNm/kN/mm)",
                   kHeadingSize};
    title.align = Align::centre;
    title.bold = true;
    AddText(d, std::move(title));

    const auto band = [](int index, const Curve& curve, Steps at, double reference,
                         const char* heading) {
        const double top = kTitle + index * kBandHeight;
        return Band{curve, std::move(at), reference, top + kBandAxis, heading, top + kHeadingLine};
    };
    AxisSteps steps = StepsOf(s, axis);
    const double mreference = ReferenceOf(r.mmax, r.mmin, steps.m);
    const double vreference = ReferenceOf(r.vmax, r.vmin, steps.v);
    const Band m = band(0, r.m, std::move(steps.m), mreference, "M");
    const Band v = band(1, r.v, std::move(steps.v), vreference, "V");
    const Band w = band(2, r.d, {}, r.dmaxabs, "d");
    AddCurveOf(d, m);
    AddCurveOf(d, v);
    AddCurveOf(d, w);

    TextPlacer placer(d);
    placer.AvoidAll();
    const std::string deflection = DeflectionText(s, r.dmaxabs);
    if (!deflection.empty()) {
        placer.Add(Figure(kPictureWidth / 2, d.height - 1.6, deflection), -1);
    }
    AddExtreme(placer, s, m, LabelOf(r.mmax, r.xmmax), true);
    AddExtreme(placer, s, m, LabelOf(r.mmin, r.xmmin), true);
    AddExtreme(placer, s, v, LabelOf(r.vmax, r.xvmax), true);
    AddExtreme(placer, s, v, LabelOf(r.vmin, r.xvmin), true);
    AddCrossing(d, placer, s, m, r.crossing1);
    AddCrossing(d, placer, s, m, r.crossing2);
    return d;
}

Drawing WithEndForces(const ProjectState& s, LoadAxis axis)
{
    const AxisResults r = ResultsOf(s, axis);
    constexpr double kPitch = kTitle + kBandHeight;  // the headings are too long for the side
    Drawing d = Picture(2 * kPitch, r);
    const auto band = [](int index, const Curve& curve, std::string heading) {
        const double reference =
            std::max(std::abs(1.0 * curve.front()), std::abs(1.0 * curve.back()));
        const double top = index * kPitch;
        return Band{
            curve, {}, reference, top + kTitle + kBandAxis, std::move(heading), top + kHeadingLine};
    };
    const Band m = band(0, r.m, "Bending moment (" + r.mname + ", kNm)");
    const Band v = band(1, r.v, "Shear (" + r.vname + ", kN)");
    AddCurveOf(d, m);
    AddCurveOf(d, v);

    TextPlacer placer(d);
    placer.AvoidAll();
    for (const Band* one : {&m, &v}) {
        AddExtreme(placer, s, *one, LabelOf(one->values.front(), 0), false);
        AddExtreme(placer, s, *one, LabelOf(one->values.back(), 1), false);
    }
    AddCrossing(d, placer, s, m, r.crossing1);
    AddCrossing(d, placer, s, m, r.crossing2);
    return d;
}

}  // namespace

Drawing DrawMyVz(const ProjectState& s)
{
    return WithLoads(s, LoadAxis::z);
}

Drawing DrawMzVy(const ProjectState& s)
{
    return WithLoads(s, LoadAxis::y);
}

Drawing DrawEndMyVz(const ProjectState& s)
{
    return WithEndForces(s, LoadAxis::z);
}

Drawing DrawEndMzVy(const ProjectState& s)
{
    return WithEndForces(s, LoadAxis::y);
}

AxisPictures DrawAll(const ProjectState& s, LoadAxis axis)
{
    const bool z = axis == LoadAxis::z;
    return {z ? DrawLoadZ(s) : DrawLoadY(s),
            s.loadmode == 1 ? WithLoads(s, axis) : WithEndForces(s, axis)};
}

Drawing DrawSheet(const ProjectState& s, LoadAxis axis)
{
    constexpr double kTop = 7;
    const AxisPictures pictures = DrawAll(s, axis);
    Drawing sheet;
    sheet.width = kPictureWidth;
    sheet.height = kTop + pictures.load.height + pictures.moment.height;
    sheet.title = std::string(s.loadmode == 1 ? "Loading/Moment/Shear/Deflection"
                                              : "Endforces/Moment/Shear") +
                  (axis == LoadAxis::z ? " - Z-axis" : " - Y-axis");
    TextMark title{{1, 4.6}, sheet.title, 3.6};
    title.bold = true;
    AddText(sheet, std::move(title));
    AddLine(sheet, {1, 6}, {kPictureWidth - 1, 6}, Ink::faint);
    Place(sheet, pictures.load, {0, kTop});
    Place(sheet, pictures.moment, {0, kTop + pictures.load.height});
    return sheet;
}

std::string DeflectionText(const ProjectState& s, double largest)
{
    if (largest == 0) {
        return {};
    }
    return "Deflection: " + FormatNum(largest, "#0.0") + " mm  = l/" +
           FormatNum(s.l * 1000.0 / largest, "#0");
}

std::string HoverText(const ProjectState& s, LoadAxis axis, double x)
{
    const double part = (x - kMemberStart) / kMemberWidth;
    if (!(part >= 0 && part < 1)) {
        return {};
    }
    const double position = part * kIntervals;
    double whole = std::floor(position);
    const double rest = position - whole;
    if (rest > 0.5 || (rest == 0.5 && std::fmod(whole, 2) != 0)) {
        whole += 1;  // halves go to the even point
    }
    const auto j = static_cast<std::size_t>(whole);
    const AxisResults r = ResultsOf(s, axis);
    // The shear force carries the unit of the moment as well.
    return " x = " + FormatNum(part * s.l, "0.000 m") + "  " + r.mname + " = " +
           FormatNum(r.m[j], "0.0 kNm") + "  " + r.vname + " = " + FormatNum(r.v[j], "0.0 kNm") +
           " ";
}

}  // namespace kestrum
