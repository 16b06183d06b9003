#include "report/page_results.h"

#include "core/number_format.h"
#include "core/project_state.h"
#include "report/page_member.h"
#include "report/page_quantities.h"
#include "report/page_writer.h"
#include "report/panel.h"
#include "service/modal.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kestrum {

namespace {

// On paper a ratio above its limit says so in words.
std::string Worded(const TextRun& run)
{
    return run.text + std::string(AboveWord(run.colour));
}

double WidthOf(const std::vector<TextRun>& runs, double size)
{
    double width = 0;
    for (const TextRun& run : runs) {
        width += TextWidth(Worded(run), size, run.bold);
    }
    return width;
}

void WriteRuns(PageWriter& page, double x, const std::vector<TextRun>& runs, double size)
{
    for (const TextRun& run : runs) {
        const Ink ink = run.colour == kWithin  ? Ink::good
                        : run.colour == kAbove ? Ink::bad
                                               : Ink::text;
        x = page.Write(x, Worded(run),
                       {.bold = run.bold, .underline = run.underline, .ink = ink, .size = size});
    }
}

// The ratios of a block stand in one column. A block that is too wide for the page gets smaller
// text first; then what would pass the edge moves to the left, or onto a line of its own.
void ResultBlock(PageWriter& page, const PanelBlock& block)
{
    constexpr double kColumnGap = 1.5;
    constexpr double kRight = kPageRight - 0.1;  // widths are sums; none must end beyond the edge
    constexpr double kFull = kRight - kPageLeft;
    const auto column = [&](double size) {
        double widest = kLeastColumn;
        for (const PanelLine& line : block) {
            if (!line.result.empty()) {
                widest = std::max(widest, WidthOf(line.left, size));
            }
        }
        return widest + kColumnGap;
    };
    const auto width = [&](double size) {
        double widest = 0;
        for (const PanelLine& line : block) {
            widest = std::max(widest, WidthOf(line.result, size));
        }
        return column(size) + widest;
    };
    const double size = width(kPageText) <= kFull ? kPageText : kPageSmallText;
    double before = block.front().y;
    for (const PanelLine& line : block) {
        page.Row(line.y - before);
        before = line.y;
        WriteRuns(page, kPageLeft, line.left, size);
        if (line.result.empty()) {
            continue;
        }
        const double x = std::min(kPageLeft + column(size), kRight - WidthOf(line.result, size));
        if (x < kPageLeft + WidthOf(line.left, size) + kColumnGap / 2) {
            page.Row();
        }
        WriteRuns(page, x, line.result, size);
    }
    page.Row(1.2);
}

}  // namespace

void PrintResults(PageWriter& page, const ProjectState& s)
{
    for (const PanelBlock& block : ShowResults(s, true)) {
        ResultBlock(page, block);
    }
    page.Row(kPageSpace / 2);
}

void PrintModal(PageWriter& page, const ProjectState& s)
{
    if (s.modal != 1) {
        return;
    }
    const double x = page.WriteBold(kPageLeft, "Modal analysis:");
    page.Write(x, " (Selfweigth + q-loads)");
    page.Row();
    if (HasSprings(s)) {
        page.Write(kPageLeft, " Modal analysis not possible for spring supports ");
        page.Row();
        return;
    }
    constexpr double kBetween = 6;  // mm
    double at = page.Write(kPageLeft, "Mass m = " + FormatNum(s.modalmass, "#0") + " kg/m");
    for (int mode = 1; mode <= 3; ++mode) {
        at = page.Write(at + kBetween, ModeText(s, mode));
    }
    page.Row();
}

}  // namespace kestrum
