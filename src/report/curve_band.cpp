#include "report/curve_band.h"

#include "analysis/step_points.h"
#include "core/number_format.h"
#include "core/project_state.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace kestrum {

namespace {

constexpr double kIntervals = kDiagramPoints - 1;
constexpr double kCurveWidth = 0.35;

std::vector<Point> PointsOf(const CurveBand& band)
{
    CurveSteps line;
    for (int j = 0; j < kDiagramPoints; ++j) {
        line.push_back({j / kIntervals, band.values[static_cast<std::size_t>(j)]});
    }
    const auto middle = static_cast<std::ptrdiff_t>(line.size());
    line.insert(line.end(), band.steps.begin(), band.steps.end());
    std::inplace_merge(line.begin(), line.begin() + middle, line.end(),
                       [](const CurvePoint& a, const CurvePoint& b) { return a.at < b.at; });

    std::vector<Point> points{{band.X(0), band.axis}};
    for (const CurvePoint& point : line) {
        points.push_back({band.X(point.at), band.Height(point.value)});
    }
    points.push_back({band.X(1), band.axis});
    return points;
}

std::string PositionText(const ProjectState& s, double at)
{
    return "x=" + FormatNum(1.0 * s.l * at, "#0.000 m");
}

}  // namespace

AxisResults ResultsOf(const ProjectState& s, LoadAxis axis)
{
    if (axis == LoadAxis::z) {
        return {s.mydiag, s.vzdiag, s.dzdiag, s.mymax,    s.mymin, s.xmymax, s.xmymin, s.vzmax,
                s.vzmin,  s.xvzmax, s.xvzmin, s.dzmaxabs, s.x0my1, s.x0my2,  "My",     "Vz"};
    }
    return {s.mzdiag, s.vydiag, s.dydiag, s.mzmax,    s.mzmin, s.xmzmax, s.xmzmin, s.vymax,
            s.vymin,  s.xvymax, s.xvymin, s.dymaxabs, s.x0mz1, s.x0mz2,  "Mz",     "Vy"};
}

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

void AddBandCurve(Drawing& d, const CurveBand& band, const std::string& heading, double headingline)
{
    std::vector<Point> points = PointsOf(band);
    if (band.reference != 0) {
        AddFilled(d, points, Ink::shade);
    }
    AddLine(d, {band.X(0), band.axis}, {band.X(1), band.axis}, Ink::member, 0.25);
    AddCurve(d, std::move(points), Ink::moment, kCurveWidth);
    TextMark text{{1, headingline}, heading, kHeadingSize};
    text.bold = true;
    AddText(d, std::move(text));
}

CurveLabel LabelOf(float value, double at)
{
    return {value, at, FormatNum(value, "#0.0")};
}

CurveLabel LabelOf(double value, double at)
{
    return {value, at, FormatNum(value, "#0.0")};
}

TextMark FigureAt(const MemberSpan& span, double x, double y, std::string text)
{
    TextMark mark{{0, y}, std::move(text), kLabelSize};
    mark.align = Align::centre;
    const double half = TextWidth(mark.text, mark.size) / 2 + 0.3;
    mark.at.x = std::clamp(x, half, span.Picture() - half);
    return mark;
}

void AddExtreme(TextPlacer& placer, const ProjectState& s, const CurveBand& band,
                const CurveLabel& label, bool position)
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
    const double tip = band.Height(label.value);
    const double y = below ? tip + 1.0 * kLabelSize : tip - 0.4 * kLabelSize;
    placer.Add(FigureAt(band.span, band.X(label.at), y, std::move(text)), below ? 1 : -1);
}

void AddCrossing(Drawing& d, TextPlacer& placer, const ProjectState& s, const CurveBand& band,
                 float at)
{
    if (at == 0) {
        return;
    }
    d.marks.push_back(CircleMark{{band.X(at), band.axis}, 0.5, Ink::moment, kThin, true});
    placer.Add(FigureAt(band.span, band.X(at), band.axis - 0.6 * kLabelSize, PositionText(s, at)),
               -1);
}

}  // namespace kestrum
