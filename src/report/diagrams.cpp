#include "report/diagrams.h"

#include "core/number_format.h"
#include "core/project_inputs.h"
#include "report/curve_band.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace kestrum {

namespace {

constexpr double kTitle = 6;                   // height of the title line
constexpr double kBandHeight = 27;             // of one curve with its labels
constexpr double kBandAxis = kBandHeight / 2;  // from the top of the band
constexpr double kHeadingLine = 3.4;           // from the top of the band

double Larger(double most, double least)
{
    return most > -least ? most : -least;
}

// The extremes are searched at the values and at the check sections; a load between those can have
// a higher peak, which has to stay in its band.
double ReferenceOf(double most, double least, const CurveSteps& steps)
{
    constexpr double kHighest = 1.2;  // of the reference
    double reference = Larger(most, least);
    if (reference != 0) {
        for (const CurvePoint& step : steps) {
            reference = std::max(reference, std::abs(step.value) / kHighest);
        }
    }
    return reference;
}

Drawing Picture(double height, const AxisResults& r, const MemberSpan& span)
{
    Drawing d;
    d.width = span.Picture();
    d.height = height;
    d.title = r.mname + ", " + r.vname;
    return d;
}

Drawing WithLoads(const ProjectState& s, LoadAxis axis, const MemberSpan& span)
{
    const AxisResults r = ResultsOf(s, axis);
    Drawing d = Picture(kTitle + 3 * kBandHeight + 4, r, span);
    TextMark title{
        {d.width / 2, 3.8}, r.mname + "/" + r.vname + "/Deflection (kNm/kN/mm)", kHeadingSize};
    title.align = Align::centre;
    title.bold = true;
    AddText(d, std::move(title));

    const auto top = [](int index) { return kTitle + index * kBandHeight; };
    const auto band = [&](int index, const ResultCurve& curve, CurveSteps at, double reference) {
        return CurveBand{curve, std::move(at), reference, kOrdinate, top(index) + kBandAxis, span};
    };
    AxisSteps steps = StepsOf(s, axis);
    const double mreference = ReferenceOf(r.mmax, r.mmin, steps.m);
    const double vreference = ReferenceOf(r.vmax, r.vmin, steps.v);
    const CurveBand m = band(0, r.m, std::move(steps.m), mreference);
    const CurveBand v = band(1, r.v, std::move(steps.v), vreference);
    AddBandCurve(d, m, "M", top(0) + kHeadingLine);
    AddBandCurve(d, v, "V", top(1) + kHeadingLine);
    AddBandCurve(d, band(2, r.d, {}, r.dmaxabs), "d", top(2) + kHeadingLine);

    TextPlacer placer(d);
    placer.AvoidAll();
    const std::string deflection = DeflectionText(s, r.dmaxabs);
    if (!deflection.empty()) {
        placer.Add(FigureAt(span, d.width / 2, d.height - 1.6, deflection), -1);
    }
    AddExtreme(placer, s, m, LabelOf(r.mmax, r.xmmax), true);
    AddExtreme(placer, s, m, LabelOf(r.mmin, r.xmmin), true);
    AddExtreme(placer, s, v, LabelOf(r.vmax, r.xvmax), true);
    AddExtreme(placer, s, v, LabelOf(r.vmin, r.xvmin), true);
    AddCrossing(d, placer, s, m, r.crossing1);
    AddCrossing(d, placer, s, m, r.crossing2);
    return d;
}

Drawing WithEndForces(const ProjectState& s, LoadAxis axis, const MemberSpan& span)
{
    const AxisResults r = ResultsOf(s, axis);
    constexpr double kPitch = kTitle + kBandHeight;  // the headings are too long for the side
    Drawing d = Picture(2 * kPitch, r, span);
    const auto band = [&span](int index, const ResultCurve& curve) {
        const double reference =
            std::max(std::abs(1.0 * curve.front()), std::abs(1.0 * curve.back()));
        return CurveBand{curve, {}, reference, kOrdinate, index * kPitch + kTitle + kBandAxis,
                         span};
    };
    const CurveBand m = band(0, r.m);
    const CurveBand v = band(1, r.v);
    AddBandCurve(d, m, "Bending moment (" + r.mname + ", kNm)", kHeadingLine);
    AddBandCurve(d, v, "Shear (" + r.vname + ", kN)", kPitch + kHeadingLine);

    TextPlacer placer(d);
    placer.AvoidAll();
    for (const CurveBand* one : {&m, &v}) {
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
    return WithLoads(s, LoadAxis::z, {});
}

Drawing DrawMzVy(const ProjectState& s)
{
    return WithLoads(s, LoadAxis::y, {});
}

Drawing DrawEndMyVz(const ProjectState& s)
{
    return WithEndForces(s, LoadAxis::z, {});
}

Drawing DrawEndMzVy(const ProjectState& s)
{
    return WithEndForces(s, LoadAxis::y, {});
}

AxisPictures DrawAll(const ProjectState& s, LoadAxis axis, const MemberSpan& span)
{
    return {DrawLoads(s, axis, span),
            InputsOf(s).loadmode == 1 ? WithLoads(s, axis, span) : WithEndForces(s, axis, span)};
}

Drawing DrawSheet(const ProjectState& s, LoadAxis axis)
{
    constexpr double kTop = 7;
    const AxisPictures pictures = DrawAll(s, axis);
    Drawing sheet;
    sheet.width = kPictureWidth;
    sheet.height = kTop + pictures.load.height + pictures.moment.height;
    sheet.title = std::string(InputsOf(s).loadmode == 1 ? "Loading/Moment/Shear/Deflection"
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
           FormatNum(InputsOf(s).l * 1000.0 / largest, "#0");
}

std::string HoverText(const ProjectState& s, LoadAxis axis, double x)
{
    const double part = (x - kMemberStart) / kMemberWidth;
    if (!(part >= 0 && part < 1)) {
        return {};
    }
    const double position = part * (kDiagramPoints - 1);
    double whole = std::floor(position);
    const double rest = position - whole;
    if (rest > 0.5 || (rest == 0.5 && std::fmod(whole, 2) != 0)) {
        whole += 1;  // halves go to the even point
    }
    const auto j = static_cast<std::size_t>(whole);
    const AxisResults r = ResultsOf(s, axis);
    // The shear force carries the unit of the moment as well.
    return " x = " + FormatNum(part * InputsOf(s).l, "0.000 m") + "  " + r.mname + " = " +
           FormatNum(r.m[j], "0.0 kNm") + "  " + r.vname + " = " + FormatNum(r.v[j], "0.0 kNm") +
           " ";
}

}  // namespace kestrum
