#pragma once

// The chapters of the calculation report. Each adds itself to the document, or nothing where it
// does not concern the member. They read what the passes left and calculate nothing anew: a formula
// stands where its numbers give the value of the record, else the value alone with its clause.

#include "core/library.h"
#include "core/project_state.h"
#include "document/document.h"
#include "report/outcome.h"
#include "report/stages.h"
#include "standard/standard.h"

namespace kestrum {

// A member after the passes of both sets of rules.
struct CalculatedMember {
    const Library& library;
    ProjectState input;  // as read
    ProjectState s;      // after the program's pass
    Outcome outcome;
    standard::StandardResult standard;
    StagesRun stages;
    bool vortex;  // the control of vortex shedding is asked for

    // Class, forces and resistances stand: a critical force stops the pass behind them.
    bool HasSection() const { return outcome.designed() || outcome.verdict == Verdict::unstable; }
    bool Within() const { return outcome.verdict == Verdict::within; }
};

// "lateral torsional buckling": the check of the program with the largest ratio.
std::string GoverningName(const CalculatedMember& m);

// "HEA 200".
std::string ProfileOf(const CalculatedMember& m);

// The combination of the program's checks, short: "6.10b", "end forces"; `service`: of deflections.
std::string CombinationOf(const ProjectState& s, bool service);

void AddVerdict(const CalculatedMember& m, Document& d);
void AddInputs(const CalculatedMember& m, Document& d);
void AddSection(const CalculatedMember& m, Document& d);
void AddClasses(const CalculatedMember& m, Document& d);
void AddEffectiveSection(const CalculatedMember& m, Document& d);
// Loads as given and the combination of the program.
void AddLoading(const CalculatedMember& m, Document& d);
void AddActions(const CalculatedMember& m, Document& d);
void AddForces(const CalculatedMember& m, Document& d);
void AddResistances(const CalculatedMember& m, Document& d);
void AddSectionChecks(const CalculatedMember& m, Document& d);
void AddLateralBuckling(const CalculatedMember& m, Document& d);
void AddFlexuralBuckling(const CalculatedMember& m, Document& d);
void AddInteraction(const CalculatedMember& m, Document& d);
void AddMemberChecks(const CalculatedMember& m, Document& d);
void AddServiceability(const CalculatedMember& m, Document& d);
void AddVortexShedding(const CalculatedMember& m, Document& d);
void AddReactions(const CalculatedMember& m, Document& d);
void AddNotes(const CalculatedMember& m, Document& d);
// All clauses that the equations so far cite.
void AddClauses(Document& d);

}  // namespace kestrum
