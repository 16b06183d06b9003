#pragma once

// Section control, EN 1993-1-1, 6.2: walks the check sections of the member and keeps the highest
// utilisation ratio of each check, and of each of the three rows of the answer. Row 1 holds single
// actions (N, My, Mz), row 2 their combinations, row 3 shear. The walk is the same for most
// families; what differs stands in `SectionRoutines`.

#include "core/check.h"
#include "core/state/forces.h"
#include "core/state/inputs.h"
#include "core/state/resistances.h"
#include "core/state/section_checks.h"
#include "core/state/section_record.h"

#include <initializer_list>

namespace kestrum {

// Clears the section rows, irrow1..6 and irsection. Colours after it: within the limit.
void ClearSectionRows(SectionChecks& checks);

// Takes the ratio of a section check into the list when it is the largest of its check so far, and
// its row when it is the largest there: the check with ratio and status, all else cleared, for the
// caller to fill. Null when it is not.
Check* TakeCheck(const Inputs& in, SectionChecks& checks, CheckId id, double ir);

// Form and terms of a check at the section x/L.
void FillAtSection(Check& check, CheckForm form, std::initializer_list<double> terms, double x);

// irsection, the largest of the three rows.
void CloseSectionRows(SectionChecks& checks);

// Row 1 for the axial force alone, 6.2.3 (nplrd) and 6.2.4 (ncrd). `placed` writes the first check
// section into the limit, "(0.00L; Ch 6.2.4)", as closed sections, angles and T sections have it.
void ControlAxial(const Inputs& in, const Resistances& resistances, const Forces& forces,
                  SectionChecks& checks, bool placed);

// Row 3 for vzed against vbrd and vyed against vcyrd at check section k, 6.2.6.
void ControlShear(const Inputs& in, const Resistances& resistances, const Forces& forces,
                  SectionChecks& checks, int k);

struct SectionRoutines {
    // Class with N and M of the section in hand (EN 1993-1-1, 5.5); n kN, m kNm.
    i16 (*class_y)(const Inputs& in, SectionRecord& section, const SectionChecks& checks, float n,
                   float m);
    i16 (*class_z)(const Inputs& in, SectionRecord& section, const SectionChecks& checks, float n,
                   float m);
    // myrdv, mzrdv from classmyuse and the shear of the section in hand, 6.2.8.
    void (*reduce_my)(const Inputs& in, const SectionRecord& section,
                      const Resistances& resistances, const Forces& forces, SectionChecks& checks);
    void (*reduce_mz)(const Inputs& in, const SectionRecord& section,
                      const Resistances& resistances, const Forces& forces, SectionChecks& checks);
    // mnyrd, mnzrd from ned, myrdv, mzrdv, 6.2.9.
    void (*reduce_mny)(const Inputs& in, const SectionRecord& section,
                       const Resistances& resistances, const Forces& forces, SectionChecks& checks);
    void (*reduce_mnz)(const Inputs& in, const SectionRecord& section,
                       const Resistances& resistances, const Forces& forces, SectionChecks& checks);
    // vbrd, vcyrd, shearnote for the section in hand; null when they do not depend on it.
    void (*shear)(const Inputs& in, const SectionRecord& section, Resistances& resistances,
                  const Forces& forces, SectionChecks& checks);
    // alfaexp and betaexp, 6.2.9.1 (6).
    void (*exponents)(const Resistances& resistances, const Forces& forces, SectionChecks& checks);
    // Called at each section after the forces are set: sections with a resistance per sign of My
    // put the sign's classmy, myrd and moduli into the record. Null for symmetric sections.
    void (*enter)(SectionRecord& section, const SectionChecks& checks);
    bool placed_axial;    // see ControlAxial
    bool shear_labels;    // labels speak of MV where shear reduces
    bool y_only;          // no Mz, no Vy (flat bar)
    bool tube_exponents;  // exponents are written ")^2.00" and ")^2.0"
};

// For `enter`: the class of the sign of My.
void TakeClassOfSign(SectionRecord& section, const SectionChecks& checks);

// The whole control. Reads ned, npts, xi and the section forces, the record and the switches.
void ControlSection(const Inputs& in, SectionRecord& section, Resistances& resistances,
                    const Forces& forces, SectionChecks& checks, const SectionRoutines& routines);

}  // namespace kestrum
