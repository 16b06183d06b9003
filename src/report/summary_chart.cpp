#include "report/summary_chart.h"

#include "core/number_format.h"
#include "report/figure_tools.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr double kTitle = 3.1, kText = 2.2;

// Of no more than four characters, so that neighbours keep clear of each other.
std::string CountText(std::size_t count)
{
    constexpr std::size_t kMost = 10000, kThousand = 1000, kMillion = 1000000;
    return count < kMost      ? std::to_string(count)
           : count < kMillion ? std::to_string(count / kThousand) + "k"
                              : std::to_string(count / kMillion) + "M";
}

}  // namespace

double AxisEnd(const MemberSummary& summary)
{
    constexpr double kLeast = 1.2, kMost = 2, kStep = 5;  // steps of 0.2
    const double largest = std::max(LargestRatio(summary, &SummaryMember::result),
                                    LargestRatio(summary, &SummaryMember::standard));
    return std::clamp(std::ceil(std::min(largest, kMost) * kStep) / kStep, kLeast, kMost);
}

void DrawBar(Drawing& d, Point corner, double length, double height, Ink ink, bool goes_on)
{
    const double right = corner.x + length, bottom = corner.y + height;
    const double shoulder = goes_on ? right - height : right;
    AddFilled(d,
              {corner,
               {shoulder, corner.y},
               {right, goes_on ? corner.y + height / 2 : corner.y},
               {right, goes_on ? corner.y + height / 2 : bottom},
               {shoulder, bottom},
               {corner.x, bottom}},
              ink);
}

Drawing DrawHistogram(const std::vector<RatioBin>& bins, std::size_t unrated,
                      const std::string& title, Ink ink, double width, double height)
{
    Drawing d{.width = width, .height = height, .title = title, .marks = {}};
    AddText(d, {.at = {0, kTitle}, .text = title, .size = kTitle, .bold = true});
    constexpr double kHead = 8, kFoot = 5, kShare = 0.8;  // of a bar in its place
    const double base = height - kFoot, room = base - kHead;
    const double pitch = width / (static_cast<double>(bins.size()) + 1.6);
    std::size_t most = std::max<std::size_t>(unrated, 1);
    for (const RatioBin& bin : bins) {
        most = std::max(most, bin.within + bin.above);
    }
    const auto column = [&](double left, std::size_t within, std::size_t above) {
        const double scale = room / static_cast<double>(most);
        const double low = scale * static_cast<double>(within);
        const double high = scale * static_cast<double>(above);
        const double x = left + pitch * (1 - kShare) / 2, bar = pitch * kShare;
        const auto box = [&](double bottom, double rise, Ink fill) {
            if (rise > 0) {
                AddFilled(
                    d,
                    {{x, bottom - rise}, {x + bar, bottom - rise}, {x + bar, bottom}, {x, bottom}},
                    fill);
            }
        };
        box(base, low, ink);
        box(base - low, high, Ink::bad);
        if (within + above > 0) {
            AddText(d, {.at = {left + pitch / 2, base - low - high - 0.8},
                        .text = CountText(within + above),
                        .size = kText,
                        .align = Align::centre});
        }
    };
    const auto label = [&](double x, std::string text) {
        AddText(d, {.at = {x, base + kText + 0.9},
                    .text = std::move(text),
                    .size = kText,
                    .align = Align::centre});
    };
    double left = 0;
    for (const RatioBin& bin : bins) {
        column(left, bin.within, bin.above);
        if (bin.from > 0) {
            label(left, FormatNum(bin.from, "0.0"));
        }
        left += pitch;
    }
    AddLine(d, {0, base}, {left, base}, Ink::faint);
    label(left, "...");
    const double apart = left + 0.4 * pitch;
    column(apart, 0, unrated);
    AddLine(d, {apart, base}, {apart + pitch, base}, Ink::faint);
    AddText(
        d,
        {.at = {width, base + kText + 0.9}, .text = "none", .size = kText, .align = Align::right});
    return d;
}

}  // namespace kestrum
