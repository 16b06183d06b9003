#include "report/member_summary.h"

#include "core/deviation.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <unordered_map>

namespace kestrum {

namespace {

constexpr int kBins = 15;  // of 0.1 each, and one behind them

bool IsNumberOfDeviation(std::string_view text)
{
    return DeviationOf(text).has_value();
}

std::string_view TakeUpTo(std::string_view& rest, std::string_view end)
{
    const std::size_t at = std::min(rest.find(end), rest.size());
    const std::string_view part = rest.substr(0, at);
    rest.remove_prefix(std::min(at + end.size(), rest.size()));
    return part;
}

// Sentences are parted by semicolons, numbers of deviations by blanks or semicolons.
std::vector<std::string_view> NotesIn(std::string_view text)
{
    std::vector<std::string_view> notes;
    while (!text.empty()) {
        const std::string_view sentence = TakeUpTo(text, "; ");
        std::vector<std::string_view> words;
        for (std::string_view rest = sentence; !rest.empty();) {
            words.push_back(TakeUpTo(rest, " "));
        }
        if (std::all_of(words.begin(), words.end(), IsNumberOfDeviation)) {
            notes.insert(notes.end(), words.begin(), words.end());
        } else {
            notes.push_back(sentence);
        }
    }
    return notes;
}

}  // namespace

bool Worse(const SummaryResult& one, const SummaryResult& other)
{
    return one.standing != other.standing ? one.standing < other.standing
                                          : one.standing != Standing::unrated && one.ir > other.ir;
}

const SummaryResult& MemberSummary::GoverningOf(const SummaryMember& member) const
{
    return both && Worse(member.standard, member.result) ? member.standard : member.result;
}

void MemberSummary::Sort()
{
    std::stable_sort(members.begin(), members.end(),
                     [this](const SummaryMember& a, const SummaryMember& b) {
                         return Worse(GoverningOf(a), GoverningOf(b));
                     });
}

std::array<std::size_t, kStandings> CountStandings(const MemberSummary& summary, ResultOf basis)
{
    std::array<std::size_t, kStandings> counts{};
    for (const SummaryMember& member : summary.members) {
        ++counts[static_cast<std::size_t>((member.*basis).standing)];
    }
    return counts;
}

std::vector<RatioBin> Histogram(const MemberSummary& summary, ResultOf basis)
{
    std::vector<RatioBin> bins;
    for (int i = 0; i <= kBins; ++i) {
        const double to = i < kBins ? (i + 1) / 10.0 : std::numeric_limits<double>::infinity();
        bins.push_back({i / 10.0, to, 0, 0});
    }
    for (const SummaryMember& member : summary.members) {
        const SummaryResult& result = member.*basis;
        if (result.standing != Standing::unrated) {
            const auto bin = std::find_if(bins.begin(), bins.end() - 1,
                                          [&](const RatioBin& b) { return result.ir <= b.to; });
            ++(result.standing == Standing::above ? bin->above : bin->within);
        }
    }
    return bins;
}

double LargestRatio(const MemberSummary& summary, ResultOf basis)
{
    double largest = 0;
    for (const SummaryMember& member : summary.members) {
        const SummaryResult& result = member.*basis;
        largest = result.standing == Standing::unrated ? largest : std::max(largest, result.ir);
    }
    return largest;
}

MassSum SumOfMasses(const MemberSummary& summary)
{
    MassSum sum;
    for (const SummaryMember& member : summary.members) {
        const bool known = std::isfinite(member.Mass()) &&
                           (!summary.has_before || std::isfinite(member.MassBefore()));
        sum.mass += known ? member.Mass() : 0;
        sum.before += known && summary.has_before ? member.MassBefore() : 0;
        sum.members += known ? 1 : 0;
    }
    return sum;
}

std::vector<NoteCount> CountNotes(const MemberSummary& summary)
{
    std::vector<NoteCount> counts;
    std::unordered_map<std::string_view, std::size_t> places;
    for (const SummaryMember& member : summary.members) {
        for (const std::string_view note : NotesIn(member.notes)) {
            const auto [at, fresh] = places.try_emplace(note, counts.size());
            if (fresh) {
                counts.push_back({std::string(note), 0});
            }
            ++counts[at->second].members;
        }
    }
    std::stable_sort(counts.begin(), counts.end(),
                     [](const NoteCount& a, const NoteCount& b) { return a.members > b.members; });
    return counts;
}

std::string NoteSentence(const std::string& note)
{
    const std::optional<Dev> deviation = DeviationOf(note);
    return deviation ? std::string(TextOf(*deviation)) : std::string{};
}

}  // namespace kestrum
