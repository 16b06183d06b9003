#pragma once

// A member prepared once, on which any number of cases of forces run: what does not depend on
// forces (limits of the inputs, section, material, resistances) is settled in Prepare, and a case
// costs its forces and the controls only.
//
//   const PreparedMember member = Prepare(library, project);   // once; shared by threads, const
//   StationRun run;                                            // one for each thread
//   if (run.Case(member, stations)) { use run.state(); }       // as after Calculate
//
// The rules are those of a member with loads (analysis/stations). N may vary along the member:
// section checks take N at the place, buckling the largest compression of the case. There is
// neither deflection control nor modal analysis: the forces say nothing of serviceability.

#include "analysis/stations.h"
#include "core/library.h"

#include <memory>
#include <span>

namespace kestrum {

struct ProjectState;

// What Prepare hands on; const behind it.
struct PreparedMember {
    std::shared_ptr<const ProjectState> state;  // behind the section step, without any loads
    bool usable = false;                        // else state->failure says why no case can run

    double Length() const;
    double Mass() const;  // kg/m
};

// The member as cases of stations see it: no loads or end forces of its own, factors of 1, neither
// deflection control nor modal analysis.
void PutLoadsAside(ProjectState& s);

// `member` as read or set; its own loads, end forces and combination are put aside.
PreparedMember Prepare(const Library& library, const ProjectState& member);

// Runs cases. Holds a record of its own; each case starts from the prepared member, so that no
// case leaves anything to the next.
class StationRun {
public:
    StationRun();
    ~StationRun();
    StationRun(StationRun&&) noexcept;
    StationRun& operator=(StationRun&&) noexcept;

    // As Calculate: false, and calculationerror set in the state, when an axial force exceeds an
    // elastic critical force or the arithmetic failed. The stations have passed CheckStations for
    // the length of the member.
    bool Case(const PreparedMember& member, std::span<const Station> stations);

    // The record behind the last case: the result rows, ratios, forces, failure. `loadmode` stands
    // for loads.
    const ProjectState& state() const { return *s_; }

    // N was not the same all along the member in the last case.
    bool NVaried() const { return nvaried_; }

private:
    void Start(const PreparedMember& member);
    void Pass(std::span<const Station> stations);
    void Sections();

    std::unique_ptr<ProjectState> s_;
    std::shared_ptr<const ProjectState> prepared_;
    StationLines lines_;
    bool nvaried_ = false;
};

// The largest ratio of a pass that ended well; deflections are no part of it.
double RatioOf(const ProjectState& s);

}  // namespace kestrum
