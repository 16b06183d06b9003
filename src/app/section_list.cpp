#include "app/section_list.h"

#include "app/field_hint.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "sections/family_table.h"
#include "standard/standard.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace kestrum {

namespace {

RatedSection Rate(const Library& library, ProjectState s, Table table, i16 row)
{
    RatedSection rated{.row = row, .name = RowName(library, table, row)};
    s.row[static_cast<std::size_t>(table)] = row;
    const bool well = Calculate(library, s);
    Outcome outcome = OutcomeOf(s, well);
    rated.mass = s.weight;
    rated.height = s.h;
    rated.verdict = outcome.verdict;
    rated.ir = outcome.ir;
    rated.control = std::move(outcome.control);
    return rated;
}

// Whether a ratio ranks the row.
bool Rated(const RatedSection& section)
{
    return section.verdict == Verdict::within || section.verdict == Verdict::above ||
           section.verdict == Verdict::unstable || section.verdict == Verdict::loads_dropped;
}

bool Before(const RatedSection& a, const RatedSection& b, SectionOrder order)
{
    switch (order) {
    case SectionOrder::table:
        return a.row < b.row;
    case SectionOrder::mass:
        return a.mass < b.mass;
    case SectionOrder::height:
        return a.height < b.height;
    case SectionOrder::ratio:
        // Unstable is worse than any ratio of a resistance.
        return std::tuple(a.verdict == Verdict::unstable, a.ir) <
               std::tuple(b.verdict == Verdict::unstable, b.ir);
    case SectionOrder::standard:
        return a.standard.ir < b.standard.ir;
    case SectionOrder::control:
        return a.control < b.control;
    }
    return false;
}

std::string Letters(std::string_view text)
{
    std::string letters;
    for (const char c : text) {
        if (c != ' ') {
            letters += Small(c);
        }
    }
    return letters;
}

}  // namespace

std::string RatioText(const RatedSection& section)
{
    switch (section.verdict) {
    case Verdict::within:
        return FormatNum(section.ir, "0.00");
    case Verdict::loads_dropped:  // the ratio of what is left
        return FormatNum(section.ir, "0.00") + " dropped";
    case Verdict::above:
        return FormatNum(section.ir, "0.00") + " > limit";
    default:
        return std::string(VerdictWord(section.verdict));
    }
}

std::string StandardRatioText(const RatedSection& section)
{
    const StandardRating& standard = section.standard;
    if (!standard.known) {
        return {};
    }
    if (!standard.rated) {
        return "not covered";
    }
    constexpr double kMost = 100;  // larger ones say nothing more
    return (!std::isfinite(standard.ir) ? "infinite"
            : standard.ir >= kMost      ? "100+"
                                        : FormatNum(standard.ir, "0.00")) +
           (standard.above ? " > limit" : "");
}

StandardRating RateByStandard(const Library& library, HeldState given, i16 row)
{
    ProjectInputs& in = InputsOf(given);
    in.row[static_cast<std::size_t>(TableOf(in))] = row;
    const standard::StandardResult result = standard::CalculateStandard(library, given);
    return {true, result.rated, result.above, result.ir};
}

std::vector<RatedSection> RateSections(const Library& library, const ProjectState& s)
{
    std::vector<RatedSection> sections;
    if (HasTable(s.family)) {
        const Table table = TableOf(s);
        for (int row = 0; row < RowCount(table); ++row) {
            sections.push_back(Rate(library, s, table, static_cast<i16>(row)));
        }
    }
    return sections;
}

bool Finds(std::string_view typed, std::string_view name)
{
    const std::string letters = Letters(name);
    while (!typed.empty()) {
        const std::string_view word = typed.substr(0, typed.find(' '));
        if (letters.find(Letters(word)) == std::string::npos) {
            return false;
        }
        typed.remove_prefix(std::min(typed.size(), word.size() + 1));
    }
    return true;
}

void SortSections(std::vector<RatedSection>& sections, SectionOrder order, bool descending)
{
    std::stable_sort(
        sections.begin(), sections.end(), [&](const RatedSection& a, const RatedSection& b) {
            const bool ranks = order == SectionOrder::ratio || order == SectionOrder::control;
            if (ranks && Rated(a) != Rated(b)) {
                return Rated(a);
            }
            if (order == SectionOrder::standard && a.standard.rated != b.standard.rated) {
                return a.standard.rated;
            }
            return descending ? Before(b, a, order) : Before(a, b, order);
        });
}

}  // namespace kestrum
