#include "report/load_drawing.h"

#include "core/load_combination.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "report/figure_tools.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <utility>
#include <vector>

namespace kestrum {

namespace {

constexpr double kHead = 9;                    // the two lines on top
constexpr double kFoot = kMemberBelow + 4;     // member, dimension line, axial force
constexpr double kBand = 3.4;                  // height of a line load
constexpr double kArrow = 7;                   // a point force
constexpr double kTurn = 2.2, kEndTurn = 2.6;  // radius of a moment
constexpr double kRow = 3.2;                   // of labels
constexpr double kEndZone = 14;
constexpr double kWeight = 0.25;

// Heights of a picture of loads.
struct Pitches {
    double head, second;  // both lines on top; of the second one
    double uniform;       // a line load with its label inside
    double above;         // a label above a line load
    double arrow;         // a point force
    double dimension, foot;
};
constexpr Pitches kWide{kHead, 7.2, 4.6, 2.6, kArrow, kDimension, kFoot};
constexpr Pitches kClose{7.8, 7.2, 3.9, 2.6, 4.8, 6.8, 9};

// One load to draw; the ends are relative positions. A point load has one end.
struct LineLoad {
    double q1, q2, from, to;
    std::string label;
};
struct PointLoad {
    double value, at;
    bool moment;
    std::string label;
};

// As the table of loads on the page gives it: a small load is not rounded to another one.
std::string Figure(float value)
{
    return FormatNum(value, "#0.0##");
}

std::string Value(float value, std::string_view unit, double category)
{
    return Figure(value) + std::string(unit) + CategoryText(category);
}

// Part of the length; a member without length is none that could be drawn to.
double Relative(const ProjectState& s, float x)
{
    return s.l > 0 ? 1.0 * x / s.l : 0.0;
}

// With basic loads only the checked rows act.
bool Acts(const ProjectState& s, i16 checked)
{
    return s.loadcomb != kBasicLoads || checked != 0;
}

std::vector<LineLoad> LineLoads(const ProjectState& s, i16 direction)
{
    std::vector<LineLoad> loads;
    for (std::size_t k = 0; k < s.qload.size(); ++k) {
        if (s.qload[k] != 0 && s.qdir[k] == direction && Acts(s, s.qchecked[k])) {
            const double q = s.qload[k];
            loads.push_back({q, q, 0, 1, Value(s.qload[k], " kN/m", s.qtype[k])});
        }
    }
    for (std::size_t k = 1; k < s.qt1.size(); ++k) {
        const bool any = s.qt1[k] != 0 || s.qt2[k] != 0;
        if (any && s.qtdir[k] == direction && Acts(s, s.qtchecked[k])) {
            loads.push_back({s.qt1[k], s.qt2[k], Relative(s, s.qtx1[k]), Relative(s, s.qtx2[k]),
                             Figure(s.qt1[k]) + "/" + Value(s.qt2[k], " kN/m", s.qttype[k])});
        }
    }
    return loads;
}

std::vector<PointLoad> PointLoads(const ProjectState& s, i16 direction)
{
    std::vector<PointLoad> loads;
    for (std::size_t k = 1; k < s.pm.size(); ++k) {
        if (s.pm[k] != 0 && s.pmdir[k] == direction && Acts(s, s.pmchecked[k])) {
            const bool moment = s.pmkind[k] != 0;
            loads.push_back({s.pm[k], Relative(s, s.pmx[k]), moment,
                             Value(s.pm[k], moment ? " kNm" : " kN", s.pmtype[k])});
        }
    }
    std::stable_sort(loads.begin(), loads.end(),
                     [](const PointLoad& a, const PointLoad& b) { return a.at < b.at; });
    return loads;
}

double Across(const MemberSpan& span, double relative)
{
    return span.At(std::clamp(relative, 0.0, 1.0));
}

// Centre of a label so that all of it stays in the picture.
double LabelCentre(const MemberSpan& span, double x, const std::string& label)
{
    const double half = TextWidth(label, kLabelSize) / 2 + 0.5;
    return std::clamp(x, half, span.Picture() - half);
}

void AddLabel(Drawing& d, Point at, const std::string& label)
{
    TextMark text{at, label, kLabelSize};
    text.align = Align::centre;
    text.ink = Ink::load;
    AddText(d, std::move(text));
}

bool IsUniform(const LineLoad& load)
{
    return load.q1 == load.q2 && load.from == 0 && load.to == 1;
}

// Where the label of a band has room to the right or left of it; nothing where there is none.
std::optional<double> Aside(const MemberSpan& span, const LineLoad& load)
{
    constexpr double kBetween = 1;
    const double half = TextWidth(load.label, kLabelSize) / 2;
    const double x1 = Across(span, std::min(load.from, load.to)) - kBetween - half;
    const double x2 = Across(span, std::max(load.from, load.to)) + kBetween + half;
    return x2 + half < span.Picture() ? std::optional(x2)
           : x1 - half > 0            ? std::optional(x1)
                                      : std::nullopt;
}

// The label of a band that is not uniform stands above it, in a close picture beside it.
bool HasLabelAbove(const MemberSpan& span, const LineLoad& load, LoadRows rows)
{
    return !IsUniform(load) && (rows == LoadRows::wide || !Aside(span, load));
}

// The band of a line load on the line `base`, high as its values, with arrows in their direction.
void AddBand(Drawing& d, const MemberSpan& span, const LineLoad& load, double base, LoadRows rows)
{
    constexpr double kPitch = 5;
    const double x1 = Across(span, load.from), x2 = Across(span, load.to);
    const double most = std::max(std::abs(load.q1), std::abs(load.q2));
    const auto height = [&](double t) {
        return kBand * std::abs(load.q1 + t * (load.q2 - load.q1)) / most;
    };
    const bool down = load.q1 + load.q2 > 0;
    AddCurve(d, {{x1, base}, {x1, base - height(0)}, {x2, base - height(1)}, {x2, base}},
             Ink::load);
    AddLine(d, {x1, base}, {x2, base}, Ink::load);
    const bool inside = IsUniform(load);
    const double middle = (x1 + x2) / 2;
    const double taken = inside ? TextWidth(load.label, kLabelSize) / 2 + 1.4 : 0;
    const int arrows = std::max(1, static_cast<int>(std::lround((x2 - x1) / kPitch)));
    for (int i = 0; i <= arrows; ++i) {
        const double t = static_cast<double>(i) / arrows;
        const Point high{x1 + t * (x2 - x1), base - height(t)}, low{high.x, base};
        if (std::abs(high.x - middle) >= taken) {
            AddArrow(d, down ? high : low, down ? low : high, Ink::load, kThin, 1.1);
        }
    }
    const bool above = HasLabelAbove(span, load, rows);
    const double centre = inside || above ? middle : *Aside(span, load);
    AddLabel(d, {LabelCentre(span, centre, load.label), base - (above ? kBand + 0.9 : 0.75)},
             load.label);
}

// The lowest row of labels in which each finds room, counted from 0.
std::vector<int> LabelRows(const MemberSpan& span, const std::vector<PointLoad>& loads)
{
    std::vector<double> end;  // right end of each row
    std::vector<int> rows;
    for (const PointLoad& load : loads) {
        const double half = TextWidth(load.label, kLabelSize) / 2;
        const double centre = LabelCentre(span, Across(span, load.at), load.label);
        std::size_t row = 0;
        while (row < end.size() && end[row] > centre - half) {
            ++row;
        }
        if (row == end.size()) {
            end.push_back(0);
        }
        end[row] = centre + half + 0.5;
        rows.push_back(static_cast<int>(row));
    }
    return rows;
}

void AddPoint(Drawing& d, const MemberSpan& span, const PointLoad& load, double y, double arrow)
{
    const double x = Across(span, load.at);
    if (load.moment) {
        AddTurn(d, {x, y}, kTurn, load.value > 0, Ink::load, kWeight);
        return;
    }
    const Point foot{x, y - 0.4}, top{x, y - arrow};
    AddArrow(d, load.value > 0 ? top : foot, load.value > 0 ? foot : top, Ink::load, 0.35, 2);
}

Drawing Picture(const MemberSpan& span, double height, std::string title)
{
    Drawing d;
    d.width = span.Picture();
    d.height = height;
    d.title = std::move(title);
    return d;
}

void AddHeads(Drawing& d, const std::string& heading, const std::string& below, double second)
{
    TextMark head{{1, 3.6}, heading, kHeadingSize};
    head.bold = true;
    AddText(d, std::move(head));
    if (!below.empty()) {
        AddText(d, {{1, second}, below, kLabelSize});
    }
}

// Arrow at the right end of a member at the height y; nothing without an axial force.
void AddAxialArrow(Drawing& d, const ProjectState& s, double y, const MemberSpan& span)
{
    if (s.ned == 0) {
        return;
    }
    const Point inner{span.At(1) + 3, y}, outer{inner.x + 10, y};
    const bool compression = s.ned > 0;
    AddArrow(d, compression ? outer : inner, compression ? inner : outer, Ink::load, 0.35, 2);
    TextMark name{{span.Picture() - 0.1, y - 1.4}, "Axial Load", kLabelSize};
    name.align = Align::right;
    name.ink = Ink::load;
    AddText(d, std::move(name));
}

// The design value, below the dimension line of a member at the height y.
void AddAxialForce(Drawing& d, const std::string& force, double y, const MemberSpan& span)
{
    if (!force.empty()) {
        AddText(d, {{span.At(0), y + kMemberBelow + 2}, " " + force, kLabelSize});
    }
}

std::string AxialForceText(const ProjectState& s)
{
    return s.ned == 0 ? "" : "Axial force (kN) " + FormatNum(s.ned, "#0.0");
}

Drawing WithLoads(const ProjectState& s, LoadAxis axis, const MemberSpan& span, LoadRows rows)
{
    const i16 direction = axis == LoadAxis::z ? 1 : 0;
    const std::vector<LineLoad> lines = LineLoads(s, direction);
    const std::vector<PointLoad> points = PointLoads(s, direction);
    const std::vector<int> labels = LabelRows(span, points);
    const int most = labels.empty() ? 0 : *std::max_element(labels.begin(), labels.end()) + 1;
    const Pitches& pitch = rows == LoadRows::wide ? kWide : kClose;
    const auto height = [&](const LineLoad& load) {
        return pitch.uniform + (HasLabelAbove(span, load, rows) ? pitch.above : 0);
    };
    const double bands =
        std::accumulate(lines.begin(), lines.end(), 0.0,
                        [&](double sum, const LineLoad& load) { return sum + height(load); });
    // A label beside the lowest band keeps clear of the words at the axial force.
    constexpr double kWords = 4.4;
    const bool beside =
        rows == LoadRows::close && !lines.empty() && !IsUniform(lines.front()) && s.ned != 0;
    const double pointzone = !points.empty() ? pitch.arrow + most * kRow + 1
                             : beside        ? kWords
                                             : 0.6;
    const double y = pitch.head + std::max(bands + pointzone, kMemberAbove);

    // In a close picture the axial force joins the axial loads, if the line has room for it.
    const std::string loads = AxialLoadText(s), force = AxialForceText(s);
    const std::string line = loads + "  " + force;
    const bool joined = rows == LoadRows::close && !force.empty() &&
                        TextWidth(line, kLabelSize) < span.Picture() - 2;
    const bool alone = !force.empty() && !joined;
    Drawing d = Picture(span, y + (alone ? kFoot : pitch.foot),
                        axis == LoadAxis::z ? "Loads, z-axis" : "Loads, y-axis");
    AddHeads(d, "Lateral Load", joined ? line : loads, pitch.second);
    AddMember(d, s, y, span, pitch.dimension);
    double base = y - pointzone;
    for (const LineLoad& load : lines) {
        AddBand(d, span, load, base, rows);
        base -= height(load);
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
        AddPoint(d, span, points[i], y, pitch.arrow);
        AddLabel(d,
                 {LabelCentre(span, Across(span, points[i].at), points[i].label),
                  y - pitch.arrow - 0.9 - labels[i] * kRow},
                 points[i].label);
    }
    AddAxialArrow(d, s, y, span);
    if (alone) {
        AddAxialForce(d, force, y, span);
    }
    return d;
}

struct EndForces {
    float m1, m2, v1, v2;
    std::string m, v;  // "My", "Vz"
};

void AddEnd(Drawing& d, double x, double y, bool left, float m, float v, const std::string& mtext,
            const std::string& vtext)
{
    const double side = left ? 1 : -1;
    if (m != 0) {  // a sagging moment turns the left end clockwise
        AddTurn(d, {x, y}, kEndTurn, (m > 0) != left, Ink::moment, kWeight);
    }
    if (v != 0) {  // a positive shear force lifts the left end
        const Point foot{x, y - kEndTurn - 1.4}, top{x, foot.y - kArrow};
        const bool up = (v > 0) == left;
        AddArrow(d, up ? foot : top, up ? top : foot, Ink::load, 0.35, 2);
    }
    TextMark text{
        {x + 3 * side, y - 7.5}, vtext + " = " + FormatNum(v, "#0.0") + " kN", kLabelSize};
    text.align = left ? Align::left : Align::right;
    text.ink = Ink::load;
    AddText(d, text);
    text.at.y += kRow;
    text.text = mtext + " = " + FormatNum(m, "#0.0") + " kNm";
    text.ink = Ink::moment;
    AddText(d, std::move(text));
}

Drawing WithEndForces(const ProjectState& s, LoadAxis axis, const MemberSpan& span)
{
    const bool z = axis == LoadAxis::z;
    const EndForces ends = z ? EndForces{s.my1, s.my2, s.vz1, s.vz2, "My", "Vz"}
                             : EndForces{s.mz1, s.mz2, s.vy1, s.vy2, "Mz", "Vy"};
    const double y = kHead + kEndZone;
    Drawing d = Picture(span, y + kFoot, z ? "End forces, z-axis" : "End forces, y-axis");
    AddHeads(d, "Endforces", {}, 0);
    AddMember(d, s, y, span);
    AddEnd(d, span.At(0), y, true, ends.m1, ends.v1, ends.m + "1", ends.v + "1");
    AddEnd(d, span.At(1), y, false, ends.m2, ends.v2, ends.m + "2", ends.v + "2");
    AddAxialArrow(d, s, y, span);
    AddAxialForce(d, AxialForceText(s), y, span);
    return d;
}

}  // namespace

std::string CategoryText(double category)
{
    return category == 0 ? " (G) " : category == 1 ? " (Q1) " : " (Q2) ";
}

std::string AxialLoadText(const ProjectState& s)
{
    std::string text;
    for (std::size_t k = 1; k < s.nload.size(); ++k) {
        if (s.nload[k] != 0 && Acts(s, s.nchecked[k])) {
            const bool plus = !text.empty() && s.nload[k] > 0;  // a negative one has its own sign
            text += text.empty() ? "Axial Load: " : plus ? "+" : "";
            text += FormatNum(s.nload[k], "#0.0") + CategoryText(s.ntype[k]);
        }
    }
    return text;
}

Drawing DrawLoads(const ProjectState& s, LoadAxis axis, const MemberSpan& span, LoadRows rows)
{
    return s.loadmode == 1 ? WithLoads(s, axis, span, rows) : WithEndForces(s, axis, span);
}

Drawing DrawLoadZ(const ProjectState& s)
{
    return DrawLoads(s, LoadAxis::z);
}

Drawing DrawLoadY(const ProjectState& s)
{
    return DrawLoads(s, LoadAxis::y);
}

}  // namespace kestrum
