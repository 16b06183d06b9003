#pragma once

// The outcome of one member, for every face alike: command line, batch, pages, window. Whoever
// writes a verdict takes it from here and decides nothing again.

#include "report/design_notes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct ProjectState;
enum class CheckId : std::uint8_t;

enum class Verdict : std::uint8_t {
    within,         // every ratio is within the limit
    above,          // one is above it
    unstable,       // NEd exceeds an elastic critical force
    failed,         // the calculation stopped for another reason
    not_checked,    // inputs that cannot be calculated, no section control
    loads_dropped,  // the result is one of fewer loads than were given
    nothing_acts,   // no load, nothing to check
    bad             // no member: unreadable file, refused line
};
constexpr std::size_t kVerdicts = 8;

std::string_view VerdictWord(Verdict verdict);

// The verdict behind its written text, with or without a count of notes.
std::optional<Verdict> VerdictOf(std::string_view written);

// Exit code of a program that ends with the verdict: 0 within, 1 above, 3 unstable or failed, 2 for
// all that was not checked as it was given.
int ExitCode(Verdict verdict);

// The exit code of many: 2 before 3 before 1 before 0.
int GraverExit(int one, int other);

struct Outcome {
    Verdict verdict = Verdict::bad;
    double ir = 0;                       // governing ratio; NEd/Ncr of an unstable member
    std::string control{};               // formula of the check that governs: "NEd/NRd"
    std::string clause{};                // of EN 1993-1-1: "6.2.4"
    std::string message{};               // why there is no ratio; empty within and above
    std::vector<DesignNote> notes{};     // on the unsafe side; none where nobody measured them
    std::vector<std::string> dropped{};  // a text for each dropped load

    // The result rows hold a result.
    bool designed() const
    {
        return verdict == Verdict::within || verdict == Verdict::above ||
               verdict == Verdict::loads_dropped;
    }
    // `ir` ranks the member among others.
    bool rated() const
    {
        return verdict == Verdict::within || verdict == Verdict::above ||
               verdict == Verdict::unstable;
    }
};

// The deflection control is part of the result: asked for, and of the loads that act.
bool DeflectionCounts(const ProjectState& s);

// The larger ratio of the deflection control; 0 where it is no part of the result.
double DeflectionRatio(const ProjectState& s);

// What was checked and has a ratio, in the order of the list; checks of a deflection that is no
// part of the result are left out.
std::vector<CheckId> RatedChecks(const ProjectState& s);

// After a pass; `well` as Calculate returned it.
Outcome OutcomeOf(const ProjectState& s, bool well);

// The verdict as it is written: "within limits, 2 notes on the unsafe side".
std::string VerdictText(const Outcome& outcome);

}  // namespace kestrum
