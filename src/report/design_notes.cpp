#include "report/design_notes.h"

#include "core/deviation.h"
#include "core/project_state.h"
#include "report/both_bases.h"
#include "report/design_note_facts.h"
#include "standard/costs.h"

#include <algorithm>

namespace kestrum {

namespace {

static_assert(kDeviations <= kMostDeviations);

// Rises of a ratio that are told: more than a rounding, and of what lies between the check sections
// (D109) or points (D249) what an engineer would add a section for.
constexpr double kTold = 1e-5;
constexpr double kMissed = 0.01;

bool Speaks(const standard::DeviationCost& at)
{
    const bool between = at.deviation == Dev::d109 || at.deviation == Dev::d249;
    return at.rise > (between ? kMissed : kTold);
}

std::vector<DesignNote> NotesOf(const Deviations& acting)
{
    std::vector<DesignNote> notes;
    for (std::size_t i = 0; i < kDeviations; ++i) {
        if (acting[i]) {
            const auto deviation = static_cast<Dev>(i);
            notes.push_back({NameOf(deviation), TextOf(deviation)});
        }
    }
    return notes;
}

// Of the deviations that are not switched, those that act.
Deviations Facts(const ProjectState& s, std::span<const NoteFact> facts)
{
    Deviations acting;
    for (const NoteFact& fact : facts) {
        acting.set(IndexOf(fact.deviation), acting[IndexOf(fact.deviation)] || fact.acts(s));
    }
    return acting;
}

}  // namespace

void MeasureNotes(const Library& library, ProjectState& s)
{
    MeasureStandard(library, s);
}

void KeepNotes(const standard::StandardResult& measured, ProjectState& s)
{
    s.acting.emplace();
    for (const standard::DeviationCost& at : measured.deviations) {
        s.acting->set(IndexOf(at.deviation), Speaks(at));
    }
}

std::vector<DesignNote> DesignNotes(const ProjectState& s)
{
    if (s.calculationerror || !s.acting) {
        return {};
    }
    Deviations acting = Facts(s, MemberFacts()) | Facts(s, VortexFacts());
    for (std::size_t i = 0; i < kDeviations; ++i) {
        acting.set(i, acting[i] || (*s.acting)[i]);
    }
    return NotesOf(acting);
}

std::string NumbersOf(const std::vector<DesignNote>& notes)
{
    std::string text;
    for (const DesignNote& note : notes) {
        text.append(text.empty() ? "" : " ").append(note.id);
    }
    return text;
}

std::vector<DesignNote> VortexNotes(const ProjectState& s)
{
    return s.calculationerror ? std::vector<DesignNote>{} : NotesOf(Facts(s, VortexFacts()));
}

}  // namespace kestrum
