#include "report/pane_diagrams.h"

#include "core/project_state.h"
#include "report/curve_band.h"
#include "report/diagrams.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace kestrum {

namespace {

constexpr double kShortest = 34;      // member
constexpr double kTitle = 5.6;        // height of the title line
constexpr double kLowest = 2.5;       // curve
constexpr double kGap = 1.6;          // between bands
constexpr double kFigure = 3.5;       // height of a figure beyond a curve
constexpr double kBesideAxis = 1.4;   // of a band where the curve has nothing on this side
constexpr double kHeadingLine = 3.2;  // from the top of the band
constexpr double kSignAside = 2.6;

// What a band shows, and how far it reaches on either side of the axis.
struct Curve {
    const ResultCurve& values;
    CurveSteps steps;
    std::string heading, unit;  // a heading that names its unit itself has a line of its own
    double most = 0, least = 0;

    double All() const { return most - least; }
    double Above() const
    {
        return unit.empty() ? kTitle + kFigure : least < 0 ? kFigure : kBesideAxis;
    }
    double Below() const { return most > 0 ? kFigure : kBesideAxis; }
};

// `most` and `least` hold the extremes, which can lie between the stored values. A rounding residue
// beside the other side is nothing.
Curve WithRange(Curve curve)
{
    constexpr double kResidue = 1e-4;
    const auto take = [&curve](double value) {
        curve.most = std::max(curve.most, value);
        curve.least = std::min(curve.least, value);
    };
    std::for_each(curve.values.begin(), curve.values.end(), take);
    for (const CurvePoint& step : curve.steps) {
        take(step.value);
    }
    curve.most = curve.most > -kResidue * curve.least ? curve.most : 0;
    curve.least = -curve.least > kResidue * curve.most ? curve.least : 0;
    return curve;
}

std::vector<Curve> CurvesOf(const ProjectState& s, LoadAxis axis)
{
    const AxisResults r = ResultsOf(s, axis);
    if (s.loadmode != 1) {
        return {WithRange({r.m, {}, "Bending moment (" + r.mname + ", kNm)", ""}),
                WithRange({r.v, {}, "Shear (" + r.vname + ", kN)", ""})};
    }
    AxisSteps steps = StepsOf(s, axis);
    return {WithRange({r.m, std::move(steps.m), "M", "kNm", r.mmax, r.mmin}),
            WithRange({r.v, std::move(steps.v), "V", "kN", r.vmax, r.vmin}),
            WithRange({r.d, {}, "d", "mm"})};
}

// "M" in bold, "kNm" behind it, and which side of the axis is which.
void AddScale(Drawing& d, const CurveBand& band, double top, const std::string& heading,
              const std::string& unit)
{
    if (!unit.empty()) {
        const double behind = 1 + TextWidth(heading, kHeadingSize, true) + 1;
        AddText(d, {{behind, top + kHeadingLine}, unit, kLabelSize});
    }
    const double x = band.X(0) - kSignAside;
    if (band.reference != 0) {
        AddText(d, {{x, band.axis - 0.3 * kLabelSize}, "\u2212", kLabelSize});
        AddText(d, {{x, band.axis + 0.95 * kLabelSize}, "+", kLabelSize});
    }
}

// The axis where the curve has room on the side, or sides, that it needs.
CurveBand AddBand(Drawing& d, Curve curve, double top, double ordinate, const MemberSpan& span)
{
    const double all = curve.All();
    const double up = all > 0 ? ordinate * -curve.least / all : ordinate / 2;
    CurveBand band{curve.values, std::move(curve.steps),   all,
                   ordinate,     top + curve.Above() + up, span};
    AddBandCurve(d, band, curve.heading, top + kHeadingLine);
    AddScale(d, band, top, curve.heading, curve.unit);
    return band;
}

void AddDeflection(TextPlacer& placer, const ProjectState& s, const CurveBand& band, double largest)
{
    const std::string text = DeflectionText(s, largest);
    if (text.empty()) {
        return;
    }
    const auto peak = std::max_element(band.values.begin(), band.values.end(),
                                       [](float a, float b) { return std::abs(a) < std::abs(b); });
    const double at = static_cast<double>(peak - band.values.begin()) / (kDiagramPoints - 1);
    const bool below = *peak > 0;
    const double tip = band.Height(*peak);
    placer.Add(FigureAt(band.span, band.X(at),
                        below ? tip + 1.0 * kLabelSize : tip - 0.4 * kLabelSize, text),
               below ? 1 : -1);
}

void AddTitle(Drawing& d, const AxisResults& r)
{
    TextMark title{
        {d.width / 2, 3.6}, r.mname + "/" + r.vname + "/Deflection (kNm/kN/mm)", kHeadingSize};
    title.align = Align::centre;
    title.bold = true;
    AddText(d, std::move(title));
}

bool AnyOf(const ResultCurve& curve)
{
    return std::any_of(curve.begin(), curve.end(), [](float value) { return value != 0; });
}

template <class Values, class Directions>
bool AnyAlong(const Values& values, const Directions& directions, i16 direction)
{
    for (std::size_t k = 0; k < values.size(); ++k) {
        if (values[k] != 0 && directions[k] == direction) {
            return true;
        }
    }
    return false;
}

}  // namespace

MemberSpan PaneRoom::Span() const
{
    return {std::max(kShortest, width - kPictureWidth + kMemberWidth)};
}

Drawing DrawPaneLoads(const ProjectState& s, LoadAxis axis, PaneRoom room)
{
    Drawing wide = DrawLoads(s, axis, room.Span());
    const bool low = room.height > 0 && wide.height > room.height;
    return low ? DrawLoads(s, axis, room.Span(), LoadRows::close) : wide;
}

Drawing DrawPaneCurves(const ProjectState& s, LoadAxis axis, const Utilisation& along,
                       PaneRoom room)
{
    const AxisResults r = ResultsOf(s, axis);
    const bool loads = s.loadmode == 1;
    const MemberSpan span = room.Span();
    std::vector<Curve> curves = CurvesOf(s, axis);
    const double title = loads ? kTitle : 0;  // given end forces have headings that say it
    const double utilisation = UtilisationAround(along, span);
    double around = title + utilisation;
    for (const Curve& curve : curves) {
        around += curve.Above() + curve.Below() + kGap;
    }
    const auto count = static_cast<double>(curves.size() + 1);
    const double ordinate = std::max(kLowest, (room.height - around) / count);
    Drawing d;
    d.width = span.Picture();
    d.height = around + ordinate * count;
    d.title = r.mname + ", " + r.vname;
    if (loads) {
        AddTitle(d, r);
    }

    std::vector<CurveBand> bands;
    double top = title;
    for (Curve& curve : curves) {
        const double height = curve.Above() + ordinate + curve.Below() + kGap;
        bands.push_back(AddBand(d, std::move(curve), top, ordinate, span));
        top += height;
    }
    AddUtilisation(d, along, span, top, ordinate + utilisation);

    TextPlacer placer(d);
    placer.AvoidAll();
    if (loads) {
        AddDeflection(placer, s, bands[2], r.dmaxabs);
        AddExtreme(placer, s, bands[0], LabelOf(r.mmax, r.xmmax), true);
        AddExtreme(placer, s, bands[0], LabelOf(r.mmin, r.xmmin), true);
        AddExtreme(placer, s, bands[1], LabelOf(r.vmax, r.xvmax), true);
        AddExtreme(placer, s, bands[1], LabelOf(r.vmin, r.xvmin), true);
    } else {
        for (const CurveBand& band : bands) {
            AddExtreme(placer, s, band, LabelOf(band.values.front(), 0), false);
            AddExtreme(placer, s, band, LabelOf(band.values.back(), 1), false);
        }
    }
    AddCrossing(d, placer, s, bands[0], r.crossing1);
    AddCrossing(d, placer, s, bands[0], r.crossing2);
    return d;
}

bool IsAxisLoaded(const ProjectState& s, LoadAxis axis)
{
    const AxisResults r = ResultsOf(s, axis);
    const i16 direction = axis == LoadAxis::z ? 1 : 0;
    return AnyOf(r.m) || AnyOf(r.v) || (s.loadmode == 1 && AnyOf(r.d)) ||
           (s.loadmode == 1 &&
            (AnyAlong(s.qload, s.qdir, direction) || AnyAlong(s.qt1, s.qtdir, direction) ||
             AnyAlong(s.qt2, s.qtdir, direction) || AnyAlong(s.pm, s.pmdir, direction)));
}

}  // namespace kestrum
