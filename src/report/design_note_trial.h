#pragma once

// Trials for the conditions of design notes: the result as it would be with one thing done as the
// standard does it. A deviation lies on the unsafe side of a result only where that raises a ratio,
// so a note that asks here is right about the direction. Trials work on copies of the record; both
// ratios that are compared come from such a copy, since a control leaves its mark in the record.

#include "core/load_combination.h"
#include "core/project_state.h"

#include <array>
#include <span>

namespace kestrum {

// The ratios of the rows of each control; of the member also the largest. A control that cannot end
// has ratios above any other. The deflection counts where it is part of the result.
struct TrialRatios {
    std::array<double, 3> section;
    std::array<double, 4> buckling;
    std::array<double, 2> deflection;
};

// The controls run anew; the same behind an analysis of the member; the same with these factors on
// the loads.
TrialRatios ControlledRatios(ProjectState& copy);
TrialRatios AnalysedRatios(ProjectState& copy);
TrialRatios CombinedRatios(ProjectState copy, const LoadFactors& strength,
                           const LoadFactors& service);

// Whether a ratio lies above its like by more than rounding.
bool Above(double trial, double result);
bool AnyAbove(std::span<const double> trial, std::span<const double> result);

// The ratios of `run` after a change of the record, and without it.
struct Trial {
    TrialRatios changed, unchanged;

    bool RaisesSection() const { return AnyAbove(changed.section, unchanged.section); }
    bool RaisesBuckling() const { return AnyAbove(changed.buckling, unchanged.buckling); }
    bool Raises() const
    {
        return RaisesSection() || RaisesBuckling() ||
               AnyAbove(changed.deflection, unchanged.deflection);
    }
};

template <class Change>
Trial Try(const ProjectState& s, Change change, TrialRatios (*run)(ProjectState&))
{
    ProjectState with = s, without = s;
    change(with);
    return {run(with), run(without)};
}

// Other factors on the loads against those in force.
Trial TryFactors(const ProjectState& s, const LoadFactors& strength, const LoadFactors& service);

// Whether the factors of Annex A would be higher with this critical force of torsion, kN.
bool TorsionRaisesAnnexA(const ProjectState& s, double ncrtf);

}  // namespace kestrum
