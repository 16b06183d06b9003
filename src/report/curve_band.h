#pragma once

// One result along the member as a band of a picture: the curve over its axis, with the figures of
// its extremes and of its zero crossings. Positive values lie below the axis.

#include "core/state/types.h"
#include "report/figure_tools.h"
#include "report/load_drawing.h"

#include <array>
#include <string>
#include <vector>

namespace kestrum {

using ResultCurve = std::array<float, kDiagramPoints>;

// A point of a drawn line: x/L and value.
struct CurvePoint {
    double at, value;
};
using CurveSteps = std::vector<CurvePoint>;

// What the two axes call the same.
struct AxisResults {
    const ResultCurve &m, &v, &d;
    double mmax, mmin, xmmax, xmmin, vmax, vmin, xvmax, xvmin, dmaxabs;
    float crossing1, crossing2;
    std::string mname, vname;
};
AxisResults ResultsOf(const ProjectState& s, LoadAxis axis);

// Where the lines jump or bend between the stored values.
struct AxisSteps {
    CurveSteps m, v;
};
AxisSteps StepsOf(const ProjectState& s, LoadAxis axis);

struct CurveBand {
    const ResultCurve& values;
    CurveSteps steps;
    double reference;  // the size that is drawn with `ordinate` units; 0: all of it is flat
    double ordinate;
    double axis;  // height in the picture
    MemberSpan span{};

    double X(double relative) const { return span.At(relative); }
    double Height(double value) const
    {
        return reference == 0 ? axis : axis + ordinate * value / reference;
    }
};

// Heading in bold at the left of the band.
void AddBandCurve(Drawing& d, const CurveBand& band, const std::string& heading,
                  double headingline);

// A value worth a figure, at a part of the length. The figure comes with it: values in single
// precision are rounded as such.
struct CurveLabel {
    double value, at;
    std::string figure;
};
CurveLabel LabelOf(float value, double at);
CurveLabel LabelOf(double value, double at);

// A figure with its middle at x, kept within the picture.
TextMark FigureAt(const MemberSpan& span, double x, double y, std::string text);

// The figure of an extreme, beyond the curve. What is a rounding residue beside the reference has
// none.
void AddExtreme(TextPlacer& placer, const ProjectState& s, const CurveBand& band,
                const CurveLabel& label, bool position);

// A zero crossing: a mark on the axis and its position.
void AddCrossing(Drawing& d, TextPlacer& placer, const ProjectState& s, const CurveBand& band,
                 float at);

}  // namespace kestrum
