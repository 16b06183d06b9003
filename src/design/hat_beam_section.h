#pragma once

// Cross-section design of the hat beams (families 24, 25), EN 1993-1-1, 6.2 and EN 1993-1-5, for My
// and Vz. The control also serves the box with unequal flanges (27).

#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/pass_outcome.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

#include <string_view>

namespace kestrum {

// What the user reads when a pass has set flangeoverload.
inline constexpr std::string_view kFlangeOverload =
    " Flange overloaded! Program removes flangeloading ";

// The upgrade of a class 3 web works with a web that buckles: the switch against web buckling is
// then off, for the other sign too.
bool UpgradeNeedsWebBuckling(const Inputs& in, const SectionRecord& section);

void CalcEffectiveHsq(const Inputs& in, SectionRecord& section);

// Class in bending that compresses the top, or the bottom; 23 for a class 3 web that
// 6.2.2.4 replaces by an effective class 2 web.
i16 ClassHsq(const Inputs& in, const SectionRecord& section, bool top);

void CalcResistanceHsq(const Inputs& in, SectionRecord& section, Resistances& resistances,
                       SectionChecks& checks);

// Reduction of My,Rd by the load `qsum` on the bottom flange, at most 1; a flange too weak for it
// switches the option off.
double FlangeFactor(const Inputs& in, const SectionRecord& section, const Forces& forces,
                    PassOutcome& outcome);

void ControlHsq(const Inputs& in, SectionRecord& section, Resistances& resistances,
                const Forces& forces, SectionChecks& checks, PassOutcome& outcome);

}  // namespace kestrum
