#include "report/utilisation_figure.h"

#include "core/number_format.h"
#include "report/figure_tools.h"
#include "report/member_drawing.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace kestrum {

namespace {

constexpr double kTextLine = 3.2;  // base line of the legend, from the top
constexpr double kFoot = 1;        // below the axis
constexpr double kWidth = 0.35;
constexpr Ink kProgramCurve = Ink::member, kStandardCurve = Ink::load;

double LargestOf(const std::optional<AlongMember>& along)
{
    return along ? *std::max_element(along->begin(), along->end()) : 0;
}

// A ratio without end is drawn as the largest that has one.
double Finite(double ratio, double most)
{
    return std::min(ratio, most);
}

double LargestFinite(const Utilisation& along)
{
    double largest = along.limit;
    for (const auto* const line : {&along.program, &along.standard}) {
        if (*line) {
            for (const double ratio : **line) {
                largest = std::isfinite(ratio) ? std::max(largest, ratio) : largest;
            }
        }
    }
    return largest;
}

std::string FigureText(double ratio)
{
    return std::isfinite(ratio) ? FormatNum(ratio, "0.00") : "infinite";
}

std::string LegendText(std::string name, const std::string& of,
                       const std::optional<AlongMember>& along, double limit)
{
    name += of.empty() ? ": " : " (" + of + "): ";
    if (!along) {
        return name + "none";
    }
    const double largest = LargestOf(along);
    return name + FigureText(largest) + (largest > limit ? " ABOVE" : "");
}

constexpr double kStroke = 4, kBeside = 1, kBehind = 3;  // of an entry of the legend

double LegendWidth(const std::string& words)
{
    return kStroke + kBeside + TextWidth(words, kLabelSize) + kBehind;
}

// A stroke of the curve's colour and the words behind it.
void AddLegend(Drawing& d, double x, double y, Ink ink, const std::string& words)
{
    AddLine(d, {x, y - kLabelSize / 3}, {x + kStroke, y - kLabelSize / 3}, ink, kWidth);
    AddText(d, {{x + kStroke + kBeside, y}, words, kLabelSize});
}

struct Legend {
    std::string program, standard;
    bool twolines;
};

constexpr double kLegendStart = 8;

// Both entries side by side, or one below the other where there is no room for that. Without what
// they are of where a line has no room for it either.
Legend LegendOf(const Utilisation& along, double width)
{
    const auto words = [&](bool whole) {
        return Legend{
            LegendText("program", whole ? along.programof : "", along.program, along.limit),
            LegendText("EN 1993-1-1", whole ? along.standardof : "", along.standard, along.limit),
            false};
    };
    const double room = width - kLegendStart + kBehind;
    Legend legend = words(true);
    const double first = LegendWidth(legend.program), second = LegendWidth(legend.standard);
    if (first + second < room) {
        return legend;
    }
    legend.twolines = true;
    const bool named = !along.programof.empty() || !along.standardof.empty();
    return named && std::max(first, second) < room ? legend : words(false);
}

void AddLegends(Drawing& d, const Legend& legend, double y)
{
    AddLegend(d, kLegendStart, y, kProgramCurve, legend.program);
    const Point second = legend.twolines ? Point{kLegendStart, y + kTextLine}
                                         : Point{kLegendStart + LegendWidth(legend.program), y};
    AddLegend(d, second.x, second.y, kStandardCurve, legend.standard);
}

}  // namespace

double UtilisationAround(const Utilisation& along, const MemberSpan& span)
{
    constexpr double kOneLine = 6.4;
    return kOneLine + (LegendOf(along, span.Picture()).twolines ? kTextLine : 0);
}

void AddUtilisation(Drawing& d, const Utilisation& along, const MemberSpan& span, double top,
                    double height)
{
    const double axis = top + height - kFoot;
    const double curve = std::max(1.0, height - UtilisationAround(along, span));
    const double most = LargestFinite(along);
    const auto y = [&](double ratio) {
        return most > 0 ? axis - curve * Finite(ratio, most) / most : axis;
    };
    TextMark heading{{1, top + kTextLine}, "IR", kHeadingSize};
    heading.bold = true;
    AddText(d, std::move(heading));
    AddLine(d, {span.At(0), axis}, {span.At(1), axis}, Ink::member, kThin);
    AddLine(d, {span.At(0), y(along.limit)}, {span.At(1), y(along.limit)}, Ink::bad, kThin, true);
    AddText(d, {{span.At(1) + 1, y(along.limit) + kLabelSize / 3},
                FormatNum(along.limit, "0.00"),
                kLabelSize});
    const auto draw = [&](const std::optional<AlongMember>& line, Ink ink) {
        if (!line) {
            return;
        }
        std::vector<Point> points;
        for (std::size_t j = 0; j < line->size(); ++j) {
            points.push_back(
                {span.At(static_cast<double>(j) / (kDiagramPoints - 1)), y((*line)[j])});
        }
        AddCurve(d, std::move(points), ink, kWidth);
    };
    draw(along.program, kProgramCurve);
    draw(along.standard, kStandardCurve);
    AddLegends(d, LegendOf(along, span.Picture()), top + kTextLine);
}

std::string UtilisationText(const Utilisation& along, std::size_t point)
{
    std::string text;
    if (along.program) {
        text = "IR = " + FigureText(along.program->at(point));
    }
    if (along.standard) {
        text += (text.empty() ? "" : ", ") + std::string("EN 1993-1-1: ") +
                FigureText(along.standard->at(point));
    }
    return text;
}

}  // namespace kestrum
