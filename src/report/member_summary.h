#pragma once

// Many answered members as an engineer looks at them: those without a ratio first, those above the
// limit next, by ratio; counts, masses, notes, and how the ratios are spread. Tables, workbooks and
// pages show it.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace kestrum {

// Of a mass or place that the answers do not hold.
constexpr double kUnknown = std::numeric_limits<double>::quiet_NaN();

// Without a ratio is worse than every ratio: such a member is never within limits.
enum class Standing : std::uint8_t { unrated, above, within };
constexpr std::size_t kStandings = 3;

// What one basis says of a member.
struct SummaryResult {
    Standing standing = Standing::unrated;
    double ir = 0;          // governing ratio, unless unrated
    std::string verdict{};  // as answered; of a basis that gives none "no ratio"
    std::string check{}, clause{}, load_case{};
    double x = kUnknown;  // m
};

// By standing, then by ratio; without a ratio all are equal.
bool Worse(const SummaryResult& one, const SummaryResult& other);

struct SummaryMember {
    std::string name;
    SummaryResult result;    // the basis asked for, or the program's of both
    SummaryResult standard;  // EN 1993-1-1 as written, where both are answered
    std::string section{}, section_before{};
    double length = kUnknown;                            // m
    double weight = kUnknown, weight_before = kUnknown;  // kg/m

    double Mass() const { return weight * length; }  // kg
    double MassBefore() const { return weight_before * length; }
    std::string notes{}, message{};
};

// So many members whose ratio is above `from` and no more than `to`. The last interval has no end.
struct RatioBin {
    double from, to;
    std::size_t within, above;  // their limits
};

struct NoteCount {
    std::string note;
    std::size_t members;
};

struct MemberSummary {
    std::vector<SummaryMember> members;
    bool both = false;      // bases
    bool has_case = false;  // what the answers hold
    bool has_place = false;
    bool has_section = false;
    bool has_mass = false;
    bool has_before = false;  // sections and masses before an optimisation
    std::size_t top = 0;      // so many are listed; 0: all

    std::size_t Listed() const { return top > 0 ? std::min(top, members.size()) : members.size(); }

    // The worse of the bases, the first of equal ones.
    const SummaryResult& GoverningOf(const SummaryMember& member) const;

    // Into their order; equal ones keep theirs.
    void Sort();
};

// Of the results of one basis.
using ResultOf = const SummaryResult SummaryMember::*;
std::array<std::size_t, kStandings> CountStandings(const MemberSummary& summary, ResultOf basis);
std::vector<RatioBin> Histogram(const MemberSummary& summary, ResultOf basis);
double LargestRatio(const MemberSummary& summary, ResultOf basis);  // 0 without any

// The sum of the masses in kg of those members of which they are known, before and after where
// there was an optimisation.
struct MassSum {
    double mass = 0, before = 0;
    std::size_t members = 0;
};
MassSum SumOfMasses(const MemberSummary& summary);

// The notes of all members, the most frequent first. Numbers of deviations come with their sentence
// from NoteSentence.
std::vector<NoteCount> CountNotes(const MemberSummary& summary);
std::string NoteSentence(const std::string& note);

}  // namespace kestrum
