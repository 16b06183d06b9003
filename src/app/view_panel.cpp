#include "app/view_panel.h"

#include "report/panel.h"

#include <algorithm>
#include <initializer_list>

namespace kestrum {

namespace {

using Lines = std::vector<std::optional<double>>;

void AddRows(Lines& lines, std::initializer_list<const ResultRow*> rows, float limit)
{
    for (const ResultRow* const row : rows) {
        if (!row->empty()) {
            lines.push_back(row->judged && limit > 0 ? std::optional(row->ir / limit)
                                                     : std::nullopt);
        }
    }
}

}  // namespace

Lines PanelUtilisation(const ProjectState& s)
{
    Lines lines{std::nullopt};
    AddRows(lines, {&s.secline[1], &s.secline[2], &s.secline[3]}, s.irlimit);
    const auto add_block = [&](std::initializer_list<const ResultRow*> rows) {
        if (std::any_of(rows.begin(), rows.end(), [](const auto* row) { return !row->empty(); })) {
            lines.push_back(std::nullopt);
            AddRows(lines, rows, s.irlimit);
        }
    };
    if (HasBuckleBlock(s.family)) {
        add_block({&s.yline, &s.zline, &s.ltline});
    }
    if (s.checksls != kFalse) {
        add_block({&s.deflinez, &s.defliney});
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
