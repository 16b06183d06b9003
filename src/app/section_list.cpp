#include "app/section_list.h"

#include "app/consequences.h"
#include "app/field_hint.h"
#include "core/number_format.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "sections/family_table.h"
#include "standard/standard.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <utility>

namespace kestrum {

namespace {

struct KindName {
    Kind kind;
    std::string_view name;
};
constexpr std::array<KindName, 5> kKinds{{{Kind::i_rolled, "I and H sections"},
                                          {Kind::hollow, "hollow sections"},
                                          {Kind::channel, "channels"},
                                          {Kind::angle, "angles"},
                                          {Kind::plate, "stiffened plates"}}};

std::vector<int> FamiliesOf(Kind kind)
{
    std::vector<int> families;
    for (const FamilyTraits& family : Families()) {
        if (family.kind == kind && HasTable(family.id)) {
            families.push_back(family.id);
        }
    }
    return families;
}

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
    return (std::isfinite(standard.ir) ? FormatNum(standard.ir, "0.00") : "infinite") +
           (standard.above ? " > limit" : "");
}

StandardRating RateByStandard(const Library& library, ProjectState given, i16 row)
{
    given.row[static_cast<std::size_t>(TableOf(given))] = row;
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

std::vector<SectionGroup> SectionGroups(const ProjectState& s)
{
    std::vector<SectionGroup> groups;
    const FamilyTraits* const family = FindFamily(s.family);
    if (family == nullptr || !HasTable(s.family)) {
        return groups;
    }
    groups.push_back({std::string(family->text), {family->id}});
    const auto add = [&](bool own) {
        for (const auto& [kind, name] : kKinds) {
            if ((kind == family->kind) == own) {
                groups.push_back({std::string(name), FamiliesOf(kind)});
            }
        }
    };
    add(true);
    add(false);
    return groups;
}

namespace {

// The member in a family, with a series of it.
ProjectState MemberIn(const ProjectState& s, const FoundSection& section)
{
    ProjectState member = s;
    member.family = static_cast<i16>(section.family);
    if (section.series != 0) {
        member.*TraitsOf(section.family).series = section.series;
    }
    return member;
}

bool Lighter(const FoundSection& a, const FoundSection& b)
{
    return std::tuple(a.section.mass, a.section.ir) < std::tuple(b.section.mass, b.section.ir);
}

}  // namespace

std::optional<FoundSection> FindLightest(const Library& library, const ProjectState& s,
                                         std::span<const int> families, bool both)
{
    std::vector<FoundSection> passing;
    for (const int id : families) {
        const FamilyTraits& family = TraitsOf(id);
        for (std::size_t i = 0; i < family.tables.size(); ++i) {
            FoundSection found{id, family.series != nullptr ? static_cast<i16>(i + 1) : i16{0},
                               Table{}, RatedSection{}};
            const ProjectState member = MemberIn(s, found);
            found.table = TableOf(member);
            for (RatedSection& section : RateSections(library, member)) {
                if (section.passes()) {
                    found.section = std::move(section);
                    passing.push_back(found);
                }
            }
        }
    }
    std::stable_sort(passing.begin(), passing.end(), Lighter);
    const ProjectState given = AsGiven(s);
    const auto first = std::find_if(passing.begin(), passing.end(), [&](const FoundSection& found) {
        return !both || RateByStandard(library, MemberIn(given, found), found.section.row).passes();
    });
    return first != passing.end() ? std::optional(*first) : std::nullopt;
}

bool ChooseLightest(Session& session, const SectionGroup& group, bool both)
{
    ProjectState member = session.state();
    if (session.lateraloff() != 0) {
        member.ltb = 1;
        FollowLateralTick(member);
    }
    const std::optional<FoundSection> found =
        FindLightest(session.library(), member, group.families, both);
    if (!found) {
        session.surroundings().Warn((both ? "No section passes by both: " : "No section passes: ") +
                                    group.name);
        return false;
    }
    ProjectState& s = session.edit();
    s.family = static_cast<i16>(found->family);
    if (found->series != 0) {
        s.*TraitsOf(found->family).series = found->series;
    }
    s.row[static_cast<std::size_t>(found->table)] = found->section.row;
    if (TraitsOf(found->family).design.lateral != LateralBuckling::off) {
        s.ltb = member.ltb;
        s.ltbk = member.ltbk;
    }
    session.Calculate();
    return true;
}

}  // namespace kestrum
