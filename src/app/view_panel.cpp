#include "app/view_panel.h"

#include "core/check_text.h"
#include "core/project_state.h"
#include "report/panel.h"

#include <span>

namespace kestrum {

namespace {

using Lines = std::vector<std::optional<double>>;

void AddRows(Lines& lines, const ProjectState& s, std::span<const ResultRow> rows)
{
    for (const ResultRow row : rows) {
        if (const Check& check = s.checklist.row(row); !check.empty()) {
            lines.push_back(IsJudged(check) && s.irlimit > 0
                                ? std::optional(check.ratio / s.irlimit)
                                : std::nullopt);
        }
    }
}

}  // namespace

Lines PanelUtilisation(const ProjectState& s)
{
    Lines lines{std::nullopt};
    AddRows(lines, s, kSectionRows);
    const auto add_block = [&](std::span<const ResultRow> rows) {
        if (s.checklist.any(rows)) {
            lines.push_back(std::nullopt);
            AddRows(lines, s, rows);
        }
    };
    if (HasBuckleBlock(s.family)) {
        add_block(kBucklingRows);
    }
    if (s.checksls != kFalse) {
        add_block(kDeflectionRows);
    }
    return lines;
}

std::optional<double> LargestUtilisation(const ProjectState& s)
{
    std::optional<double> largest;
    for (const std::optional<double>& line : PanelUtilisation(s)) {
        if (line && (!largest || *line > *largest)) {
            largest = line;
        }
    }
    return largest;
}

}  // namespace kestrum
