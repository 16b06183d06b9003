#pragma once

// Cross-section design of the welded I with unequal flanges (family 22), EN 1993-1-1, 6.2 and
// EN 1993-1-5. As that of doubly symmetric I sections, but with class, effective section
// and resistance of My once for each sign.

#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/pass_outcome.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

namespace kestrum {

// Effective section of class 4: aeff, weffytop1 .. weffybot2, weffy, weffz.
void CalcEffectiveSingleI(const Inputs& in, SectionRecord& section);

// Class with n [kN], positive in compression, and My [kNm], positive when it compresses the top.
i16 ClassWelded(const Inputs& in, const SectionRecord& section, float n, float m);

// Classes of the control: with n and the size of My, whose sign the checks hold, and with n and Mz,
// the worse of the two flanges, which is also the one that classflange tells of.
i16 ClassSingleIY(const Inputs& in, SectionRecord& section, const SectionChecks& checks, float n,
                  float m);
i16 ClassSingleIZ(const Inputs& in, SectionRecord& section, const SectionChecks& checks, float n,
                  float m);

void CalcResistanceSingleI(const Inputs& in, SectionRecord& section, Resistances& resistances,
                           SectionChecks& checks);
void ControlSingleI(const Inputs& in, SectionRecord& section, Resistances& resistances,
                    const Forces& forces, SectionChecks& checks, PassOutcome& outcome);

}  // namespace kestrum
