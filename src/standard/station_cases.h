#pragma once

// The standard basis under forces at stations (analysis/stations): a member prepared once, checked
// under any number of cases.
//
// The lines are those of the stations. Where a rule asks for the loads, they are found in the lines
// of My and Mz: a bend of the moment line at a jump of the shear is a point load of the size of the
// jump, the rest of the bends is spread evenly over the half intervals beside them. These loads act
// at the load level of the member (EN 1993-1-1, 6.3.2.2 (2)) and pick the column of Table B.3; a
// stretch that is straight between two jumps has none, and a moment line that is straight from end
// to end is taken as straight: within 0.2 percent of the largest moment or the last digit of tables
// (1.1 Nm, at most a thousandth of the elastic resistance). Of more than 100 stations those are
// left out that lie on the chords of the others within 0.1 percent of the largest values.

#include "analysis/stations.h"
#include "core/library.h"
#include "standard/standard.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {
struct ProjectState;
}

namespace kestrum::standard {

// A reason that is no failure: all forces are 0.
constexpr std::string_view kNoForceActs = "no force acts";

struct StationResult {
    bool rated = false;  // else `reason`
    double ir = 0;       // largest of all checks; infinite for one without resistance
    CheckId governing{};
    Check check{};  // the governing one
    std::string_view reason{};
};

class StationCases {
public:
    // `member` as read or set; its own loads are put aside. `library` must last. `program`, for a
    // basis with deviations switched back, and `solved`, which must last, as for
    // CalculateStandard.
    explicit StationCases(const Library& library, const ProjectState& member,
                          const Basis& basis = Basis::Standard(),
                          const ProjectState* program = nullptr, SolvedLines* solved = nullptr);
    ~StationCases();
    StationCases(StationCases&&) noexcept;
    StationCases& operator=(StationCases&&) noexcept;

    // Why there is no result for any case; empty where there is one.
    const std::string& reason() const { return reason_; }
    // What takes the program's rule.
    const std::vector<std::string>& outside() const { return outside_; }

    // The stations have passed CheckStations. Not for two threads at once. Below `enough` only the
    // size of the ratio is uncertain, not that it is below: a caller who looks for the worst case
    // hands in the worst ratio so far.
    StationResult Case(std::span<const Station> stations, double enough = 0);
    // All checks of a case.
    StandardResult ResultOf(std::span<const Station> stations);

private:
    bool CheckCase(std::span<const Station> stations, Checks& checks, StationResult& result);

    struct Data;
    std::unique_ptr<Data> data_;
    std::string reason_;
    std::vector<std::string> outside_;
};

}  // namespace kestrum::standard
