#include "app/view_standard.h"

#include "app/view_panel.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "report/design_notes.h"
#include "report/standard_text.h"
#include "standard/cases.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kestrum {

namespace {

using standard::StandardResult;

constexpr std::size_t kSection = 0, kBuckling = 1, kDeflection = 2;

std::size_t GroupOf(std::size_t check)
{
    return standard::IsDeflection(static_cast<standard::CheckId>(check)) ? kDeflection
           : check < standard::kSectionChecks                            ? kSection
                                                                         : kBuckling;
}

bool DeflectionAsked(const ProjectState& s)
{
    return s.checksls != kFalse && s.loadmode == 1;
}

// A block of the program with the bars of its lines, or the head of one that it does not have.
PanelGroup GroupWith(const ProjectState& s, PanelBlock block, StandardGroup standard)
{
    PanelGroup group{std::move(block), {}, std::move(standard)};
    for (const PanelLine& line : group.block) {
        group.utilisation.push_back(UtilisationOf(s, line));
    }
    return group;
}

PanelBlock HeadAlone(std::string_view head, double& y)
{
    constexpr double kAbove = 0.2, kBelow = 1.3;
    PanelBlock block{{.y = y + kAbove,
                      .left = {{.text = std::string(head), .bold = true, .underline = true},
                               {.text = " no check by the program's rules"}}}};
    y += kBelow;
    return block;
}

void AddNotes(std::vector<DeviationRow>& rows, const ProjectState& program)
{
    for (const DesignNote& note : DesignNotes(program)) {
        const bool known = std::any_of(rows.begin(), rows.end(),
                                       [&](const DeviationRow& row) { return row.id == note.id; });
        if (!known) {
            rows.push_back({std::string(note.id), {}, std::string(note.text)});
        }
    }
}

std::string RatioOf(const standard::Check& check)
{
    return check.present ? RatioFigure(check.ir, false) : "-";
}

}  // namespace

std::array<StandardGroup, kStandardGroups> StandardGroups(const ProjectState& s,
                                                          const StandardResult& result)
{
    std::array<StandardGroup, kStandardGroups> groups;
    std::array<double, kStandardGroups> largest{-1, -1, -1};
    for (std::size_t i = 0; result.rated && i < standard::kCheckIds; ++i) {
        const auto id = static_cast<standard::CheckId>(i);
        const standard::Check& check = result.checks[id];
        const std::size_t at = GroupOf(i);
        if (!check.present || check.ir <= largest[at] ||
            (at == kDeflection && !DeflectionAsked(s))) {
            continue;
        }
        largest[at] = check.ir;
        const bool above = check.ir > s.irlimit;
        groups[at] = {true, above, s.irlimit > 0 ? check.ir / s.irlimit : 0,
                      RatioFigure(check.ir, false) + (above ? "  ABOVE" : ""), SourceOf(id, check)};
    }
    return groups;
}

std::vector<PanelGroup> PanelGroups(const ProjectState& s, const StandardResult& result)
{
    const auto standard = StandardGroups(s, result);
    std::vector<PanelGroup> groups;
    double y = kPanelTop;
    const auto add = [&](PanelBlock block, std::size_t group, std::string_view head) {
        if (!block.empty()) {
            groups.push_back(GroupWith(s, std::move(block), standard[group]));
        } else if (standard[group].present) {
            groups.push_back(GroupWith(s, HeadAlone(head, y), standard[group]));
        }
    };
    add(DrawSectionBlock(s, y, false), kSection, "SECTION CONTROL:");
    add(HasBuckleBlock(s.family) ? DrawBuckleBlock(s, y) : PanelBlock{}, kBuckling,
        "BUCKLING CONTROL:");
    add(s.checksls != kFalse ? DrawDeflectionBlock(s, y) : PanelBlock{}, kDeflection,
        "DEFLECTION CONTROL:");
    return groups;
}

std::string GroupText(const StandardGroup& group)
{
    return group.present ? "EN 1993-1-1: " + group.ratio + ", " + group.source : "";
}

std::vector<DeviationRow> DeviationRows(const StandardResult& result, bool costed,
                                        const ProjectState* program)
{
    std::vector<DeviationRow> rows;
    if (costed) {
        const CostList costs = CostsOf(result);
        for (const CostLine& line : costs.lines) {
            rows.push_back({std::string(line.id), line.cost, std::string(line.text), line.deviation,
                            line.change});
        }
        for (const standard::DeviationCost& at : result.deviations) {
            const auto same = [&](const CostLine& line) { return line.deviation == at.deviation; };
            if (std::none_of(costs.lines.begin(), costs.lines.end(), same)) {
                rows.push_back({std::string(NameOf(at.deviation)),
                                {},
                                std::string(RuleOf(at.deviation)),
                                at.deviation,
                                LargestChangeText(result, at)});
            }
        }
    }
    if (program != nullptr) {
        AddNotes(rows, *program);
    }
    return rows;
}

Explanation Explain(const Library& library, const ProjectState& given, const ProjectState* program,
                    const StandardResult& result, Dev deviation)
{
    constexpr double kRounding = 1e-6;  // of a ratio
    Explanation explanation{std::string(NameOf(deviation)), std::string(RuleOf(deviation))};
    const StandardResult back =
        standard::CalculateStandard(library, given, Basis::StandardBut(deviation), program);
    std::vector<std::pair<double, ExplainedCheck>> checks;
    for (std::size_t i = 0; i < standard::kCheckIds; ++i) {
        const auto id = static_cast<standard::CheckId>(i);
        const standard::Check& written = result.checks[id];
        const standard::Check& other = back.checks[id];
        const double most =
            std::max(written.present ? written.ir : 0, other.present ? other.ir : 0);
        if (written.present == other.present &&
            std::abs(written.ir - other.ir) <= kRounding * most) {
            continue;
        }
        checks.push_back(
            {most,
             {std::string(WordsOf(id)), std::string((written.present ? written : other).clause),
              RatioOf(written), RatioOf(other)}});
    }
    std::stable_sort(checks.begin(), checks.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    explanation.checks.push_back({"Largest ratio", "",
                                  result.rated ? RatioFigure(result.ir, result.above) : "none",
                                  back.rated ? RatioFigure(back.ir, back.above) : "none"});
    for (auto& [most, check] : checks) {
        explanation.checks.push_back(std::move(check));
    }
    return explanation;
}

std::vector<CombinationRow> CombinationRows(const Library& library, const ProjectState& given)
{
    const std::vector<standard::CaseResult> cases = standard::CalculateCases(library, given);
    std::vector<CombinationRow> rows;
    const standard::CaseResult* worst = nullptr;
    for (const standard::CaseResult& at : cases) {
        if (at.rated && at.counts && (worst == nullptr || at.ir > worst->ir)) {
            worst = &at;
        }
    }
    for (const standard::CaseResult& at : cases) {
        CombinationRow row;
        row.name = NameOf(at.load_case);
        const auto factor = [](double value) { return FormatNum(value, "0.00#"); };
        row.g = factor(at.load_case.factors.g);
        row.q1 = factor(at.load_case.factors.q1);
        row.q2 = factor(at.load_case.factors.q2);
        row.ratio = "-";
        if (at.rated) {
            const standard::Check& check = at.checks[at.governing];
            row.governs = &at == worst;
            row.ratio =
                RatioFigure(at.ir, at.ir > given.irlimit) + (row.governs ? "  governs"
                                                             : at.counts ? ""
                                                                         : "  not asked for");
            row.check = WordsOf(at.governing);
            row.clause = check.clause;
            row.place = std::isfinite(check.place) ? FormatNum(check.place, "0.00") : "";
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

std::string CombinationsHead(const Outcome& outcome, const StandardResult& result)
{
    return "By the rules of the program: " + ProgramWords(outcome) +
           "\nBy EN 1993-1-1 as written: " + StandardWords(result);
}

}  // namespace kestrum
