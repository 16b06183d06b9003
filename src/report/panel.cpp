#include "report/panel.h"

#include "core/check_text.h"
#include "core/load_combination.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "engine/family_routines.h"
#include "sections/families.h"

#include <algorithm>

namespace kestrum {

namespace {

constexpr double kHeadStep = 1.2, kLine = 1, kGoverningStep = 1.1;

TextRun Head(const char* text)
{
    return {.text = text, .bold = true, .underline = true};
}

TextRun Plain(std::string text)
{
    return {.text = std::move(text)};
}

// The ratio in its colour and what follows it, `blanks` between them.
std::vector<TextRun> VerdictOf(const Check& check, const RowText& text, const char* blanks = "")
{
    std::vector<TextRun> runs;
    if (!text.result.empty()) {
        runs.push_back({.text = text.result, .bold = true, .colour = check.status});
    }
    if (!text.limit.empty()) {
        runs.push_back(Plain(blanks + text.limit));
    }
    return runs;
}

std::string CheckPoints(const ProjectState& s)
{
    std::string text = " At: x= ";
    const int count = std::clamp<int>(s.cpcount, 0, 3);
    for (int i = 1; i <= count; ++i) {
        const double x = s.cp[static_cast<std::size_t>(i)];
        text += i > 1 ? "/" : "";
        text += s.cprelative != 0 ? FormatNum(x / s.l, "#0.00")
                                  : FormatNum(s.cp[static_cast<std::size_t>(i)], "#0.00");
    }
    return text + (s.cprelative != 0 ? " (L)" : " (m)");
}

// The load on the bottom flange of a hat beam lowers its moment resistance.
bool FlangeLoadingCounts(const ProjectState& s)
{
    return Is(s, Kind::hat) && s.flangefactor > 0 && s.flangefactor < 1;
}

// Label and calculation of a buckling row of y or z. The signs stand between them, unless the row
// is a remark without numbers; rows of angles bring the second sign themselves.
std::string AxisLabel(const RowText& text)
{
    constexpr std::string_view kSign = " = ";
    if (text.calculation.empty() && text.result.empty()) {
        return text.label;
    }
    const std::string joined = text.label + " =" + text.calculation;
    return joined.ends_with(kSign) ? joined : joined + std::string(kSign);
}

}  // namespace

std::string_view AboveWord(i16 status)
{
    return status == kAbove ? "  ABOVE" : "";
}

PanelBlock DrawSectionBlock(const ProjectState& s, double& y, bool page)
{
    PanelBlock block;
    if (page) {
        block.push_back({.y = y, .left = {Plain(GoverningText(s))}});
        y += kGoverningStep;
    }
    PanelLine head{.y = y, .left = {Head("SECTION CONTROL:")}};
    if (s.cpmode == 1) {
        head.left.push_back(Plain(CheckPoints(s)));
    }
    block.push_back(head);
    y += kHeadStep;
    for (const ResultRow row : kSectionRows) {
        const Check& check = s.checklist.row(row);
        if (check.empty()) {
            continue;
        }
        const RowText text = ShownTextOf(check);
        block.push_back({.y = y,
                         .left = {Plain(text.label + text.calculation)},
                         .result = VerdictOf(check, text),
                         .row = row});
        y += kLine;
    }
    if (FlangeLoadingCounts(s)) {
        block.push_back({.y = y,
                         .left = {Plain("My,Rd takes into account flange loading of " +
                                        FormatNum(s.flangefactor, "0.00"))}});
        y += kLine;
    }
    return block;
}

PanelBlock DrawBuckleBlock(const ProjectState& s, double& y)
{
    if (!s.checklist.any(kBucklingRows)) {
        return {};
    }
    PanelBlock block;
    PanelLine head{.y = y + 0.2, .left = {Head("BUCKLING CONTROL:")}};
    if (s.ltb != 0) {
        head.left.push_back(Plain(" (incl Lateral Torsional Buckling)"));
    }
    block.push_back(head);
    y += 1.3;
    for (const ResultRow row : kBucklingRows) {
        const Check& check = s.checklist.row(row);
        if (check.empty()) {
            continue;
        }
        const bool axis = row != ResultRow::lateral;
        const RowText text = ShownTextOf(check);
        block.push_back({.y = y,
                         .left = {Plain(axis ? AxisLabel(text) : text.label + text.calculation)},
                         .result = VerdictOf(check, text),
                         .row = row});
        y += kLine;
    }
    return block;
}

PanelBlock DrawDeflectionBlock(const ProjectState& s, double& y)
{
    if (!s.checklist.any(kDeflectionRows)) {
        return {};
    }
    PanelBlock block;
    block.push_back(
        {.y = y,
         .left = {Head("DEFLECTION CONTROL:"),
                  Plain(" (z: L/" + FormatNum(static_cast<float>(s.deflimitz), "#0") + "  y: L/" +
                        FormatNum(static_cast<float>(s.deflimity), "#0") + ");")}});
    if (s.loadmode != 1) {
        block.back().left.push_back(Plain(" of the last calculation with loads on the member"));
    }
    for (const ResultRow row : kDeflectionRows) {
        const Check& check = s.checklist.row(row);
        if (check.empty()) {
            continue;
        }
        y += 1.1;
        const RowText text = ShownTextOf(check);
        PanelLine line{.y = y, .left = {Plain(text.label + text.calculation)}, .row = row};
        for (TextRun& run : VerdictOf(check, text, "      ")) {
            line.left.push_back(std::move(run));
        }
        block.push_back(std::move(line));
    }
    y += kLine;
    return block;
}

bool HasBuckleBlock(int family)
{
    const FamilyRoutines* const routines = FindRoutines(family);
    return routines != nullptr && routines->buckling != nullptr;
}

std::vector<PanelBlock> ShowResults(const ProjectState& s, bool page)
{
    std::vector<PanelBlock> blocks;
    double y = kPanelTop;
    blocks.push_back(DrawSectionBlock(s, y, page));
    if (HasBuckleBlock(s.family)) {
        blocks.push_back(DrawBuckleBlock(s, y));
    }
    if (s.checksls != kFalse) {
        blocks.push_back(DrawDeflectionBlock(s, y));
    }
    std::erase_if(blocks, [](const PanelBlock& block) { return block.empty(); });
    return blocks;
}

}  // namespace kestrum
