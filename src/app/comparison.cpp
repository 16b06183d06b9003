#include "app/comparison.h"

#include "app/view_section.h"
#include "core/check_text.h"
#include "core/number_format.h"
#include "core/project_state.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace kestrum {

namespace {

constexpr std::string_view kNone = "-";
constexpr std::array<std::string_view, kResultRows> kRowNames{
    "Section: N, My or Mz", "Section: combined", "Section: shear", "Buckling y",
    "Buckling z",           "Lateral torsional", "Deflection z",   "Deflection y"};

bool Deflection(ResultRow row)
{
    return row == ResultRow::deflection_z || row == ResultRow::deflection_y;
}

std::string RatioOf(const Snapshot& design, ResultRow row)
{
    const ProjectState& s = design.state;
    const Check& check = s.checklist.row(row);
    // Given end forces have no deflection: its rows are those of the last calculation with loads.
    const bool counts = !Deflection(row) || (s.checksls != kFalse && s.loadmode == 1);
    if (design.failed || !counts || !IsJudged(check)) {
        return std::string(kNone);
    }
    return FormatNum(check.ratio, "0.00") + (check.status == kAbove ? " > limit" : "");
}

std::string Mass(const Snapshot& design, double length, std::string_view format)
{
    return design.failed ? std::string(kNone) : FormatNum(design.state->weight * length, format);
}

std::string Governs(const Snapshot& design)
{
    return design.outcome.control.empty() ? std::string(kNone) : design.outcome.control;
}

}  // namespace

std::vector<ComparedRow> Compare(const Library& library, const Snapshot& a, const Snapshot& b)
{
    std::vector<ComparedRow> rows{
        {"Section", SectionName(library, a.state), SectionName(library, b.state)},
        {"kg/m", Mass(a, 1, "#0.0"), Mass(b, 1, "#0.0")},
        {"kg", Mass(a, a.state->l, "#0"), Mass(b, b.state->l, "#0")},
        {"Length m", FormatNum(a.state->l, "0.000"), FormatNum(b.state->l, "0.000")},
        {"Verdict", VerdictText(a.outcome), VerdictText(b.outcome)},
        {"Governs", Governs(a), Governs(b)}};
    for (std::size_t i = 0; i < kResultRows; ++i) {
        const auto row = static_cast<ResultRow>(i);
        ComparedRow compared{std::string(kRowNames[i]), RatioOf(a, row), RatioOf(b, row)};
        if (compared.a != kNone || compared.b != kNone) {
            rows.push_back(std::move(compared));
        }
    }
    return rows;
}

}  // namespace kestrum
