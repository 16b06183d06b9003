#include "calculation/shape_figure.h"

#include "core/project_state.h"
#include "report/figure_tools.h"
#include "report/member_drawing.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr double kSwing = 6;

void AddShape(Drawing& d, const std::array<double, kShapePoints>& values, double y,
              const std::string& name)
{
    const double start = kMemberStart, end = kMemberStart + kMemberWidth;
    AddLine(d, {start, y}, {end, y}, Ink::faint, kThin, true);
    double largest = 0;
    for (const double value : values) {
        largest = std::max(largest, std::abs(value));
    }
    std::vector<Point> curve;
    for (std::size_t i = 0; i < kShapePoints; ++i) {
        const double share = largest > 0 ? values[i] / largest : 0;
        const double x = static_cast<double>(i) / (kShapePoints - 1);
        curve.push_back({start + x * kMemberWidth, y - kSwing * share});
    }
    AddCurve(d, std::move(curve), Ink::moment, 0.4);
    TextMark text;
    text.at = {1, y + 0.35 * kLabelSize};
    text.text = name;
    text.size = kLabelSize;
    AddText(d, std::move(text));
}

}  // namespace

Drawing DrawBucklingShape(const ProjectState& s, const BucklingShape& shape)
{
    constexpr double kFirst = 9, kSecond = 25, kHeight = 34, kMark = 1.5;
    Drawing d;
    d.width = kPictureWidth;
    d.height = kHeight;
    d.title = "Lateral torsional buckling";
    AddShape(d, shape.v, kFirst, "sideways");
    AddShape(d, shape.phi, kSecond, "twist");
    const int parts = std::max<int>(s.restraints, 0) + 1;
    for (int i = 1; i < parts; ++i) {
        const double x = kMemberStart + kMemberWidth * i / parts;
        for (const double y : {kFirst, kSecond}) {
            AddLine(d, {x, y - kMark}, {x, y + kMark}, Ink::member, 0.4);
        }
    }
    return d;
}

}  // namespace kestrum
