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

constexpr double kBand = 19.5;     // height of the curve with its texts
constexpr double kCurve = 12;      // of the largest ordinate, upwards
constexpr double kFoot = 17.3;     // of the axis, below the top of the band
constexpr double kTextLine = 3.2;  // base line of the legend
constexpr double kWidth = 0.35;
constexpr Ink kProgramInk = Ink::member, kStandardInk = Ink::load;

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

std::string RatioText(double ratio)
{
    return std::isfinite(ratio) ? FormatNum(ratio, "0.00") : "infinite";
}

std::string LegendText(std::string_view name, const std::optional<AlongMember>& along, double limit)
{
    if (!along) {
        return std::string(name) + ": none";
    }
    const double largest = LargestOf(along);
    return std::string(name) + " " + RatioText(largest) + (largest > limit ? " ABOVE" : "");
}

// A stroke of the curve's colour and the words behind it; the x where the next may begin.
double AddLegend(Drawing& d, double x, double y, Ink ink, const std::string& words)
{
    constexpr double kStroke = 4, kGap = 1, kBehind = 4;
    AddLine(d, {x, y - kLabelSize / 3}, {x + kStroke, y - kLabelSize / 3}, ink, kWidth);
    const double text = x + kStroke + kGap;
    AddText(d, {{text, y}, words, kLabelSize});
    return text + TextWidth(words, kLabelSize) + kBehind;
}

}  // namespace

Drawing WithUtilisation(Drawing picture, const Utilisation& along)
{
    const double top = picture.height;
    const double axis = top + kFoot, start = kMemberStart, end = kMemberStart + kMemberWidth;
    const double most = LargestFinite(along);
    const auto height = [&](double ratio) {
        return most > 0 ? axis - kCurve * Finite(ratio, most) / most : axis;
    };
    picture.height = top + kBand;
    TextMark heading{{1, top + kTextLine}, "IR", kHeadingSize};
    heading.bold = true;
    AddText(picture, std::move(heading));
    AddLine(picture, {start, axis}, {end, axis}, Ink::member, kThin);
    AddLine(picture, {start, height(along.limit)}, {end, height(along.limit)}, Ink::bad, kThin,
            true);
    AddText(picture, {{end + 1, height(along.limit) + kLabelSize / 3},
                      FormatNum(along.limit, "0.00"),
                      kLabelSize});
    const auto draw = [&](const std::optional<AlongMember>& line, Ink ink) {
        if (!line) {
            return;
        }
        std::vector<Point> points;
        for (std::size_t j = 0; j < line->size(); ++j) {
            const double x = start + kMemberWidth * static_cast<double>(j) / (kDiagramPoints - 1);
            points.push_back({x, height((*line)[j])});
        }
        AddCurve(picture, std::move(points), ink, kWidth);
    };
    draw(along.program, kProgramInk);
    draw(along.standard, kStandardInk);
    const double next = AddLegend(picture, start, top + kTextLine, kProgramInk,
                                  LegendText("program", along.program, along.limit));
    AddLegend(picture, next, top + kTextLine, kStandardInk,
              LegendText("EN 1993-1-1", along.standard, along.limit));
    return picture;
}

std::string UtilisationText(const Utilisation& along, std::size_t point)
{
    std::string text;
    if (along.program) {
        text = "IR = " + RatioText(along.program->at(point));
    }
    if (along.standard) {
        text += (text.empty() ? "" : ", ") + std::string("EN 1993-1-1 ") +
                RatioText(along.standard->at(point));
    }
    return text;
}

}  // namespace kestrum
