#include "report/kept_values.h"

#include "core/annexes.h"
#include "core/member_choices.h"
#include "core/project_state.h"
#include "report/stages.h"
#include "sections/families.h"
#include "stability/buckling_resistance.h"

#include <cmath>

namespace kestrum {

namespace {

// Ncr,T and Ncr,TF of another length than the member's own (D228).
bool TorsionOfAnotherLength(const ProjectState& s)
{
    if (!StagesOf(s).axial || !(s.ned > 0) || s.openprofile != kTrue || s.ncrt == 0) {
        return false;
    }
    return std::abs(OwnTorsionalForces(s, s, s).ncrt - s.ncrt) > 1e-6 * s.ncrt;
}

// The automatic curve of British channels (D205); after a start there is none.
bool CurveOfAnotherSection(const ProjectState& s)
{
    const bool automatic = (s.bcy == 0 && s.alphay != 0) || (s.bcz == 0 && s.alphaz != 0);
    const bool none = Traits(s).design.curves == FlexuralCurves::none;
    return Is(s, Kind::channel) && none && StagesOf(s).axial && s.ned > 0 && automatic;
}

// kzz and kyz of the single-symmetric I in class 1 and 2 (D224); after a start they are 0.
bool FactorOfAnotherMember(const ProjectState& s)
{
    return Is(s, Kind::i_single) && StagesOf(s).interaction && s.method == Method::annex_b &&
           s.classmy <= 2 && s.mzdesign != 0 && s.kzz != 0;
}

// The factor follows a strength when annex or steel is chosen, not when it is typed (D20).
bool ShearFactorOfAnotherStrength(const ProjectState& s)
{
    ProjectState chosen = s;
    ApplyAnnexMaterial(chosen, chosen.annexindex);
    return chosen.neta != s.neta;
}

// End forces have no deflection; the block keeps that of the last loaded member.
bool DeflectionOfAnotherMember(const ProjectState& s)
{
    return s.loadmode != 1 && s.checksls != kFalse && s.checklist.any(kDeflectionRows);
}

struct Rule {
    bool (*keeps)(const ProjectState& s);
    KeptValue value;
};

constexpr Rule kRules[] = {
    {TorsionOfAnotherLength,
     {"ncrtf",
      "The torsional critical forces rest on the torsional length of an earlier calculation."}},
    {CurveOfAnotherSection, {"curvez", "The buckling curve is that of the section before."}},
    {FactorOfAnotherMember,
     {"kzz", "The factors kyz and kzz of Mz are those of an earlier calculation."}},
    {ShearFactorOfAnotherStrength,
     {"neta", "The shear area factor is that of the strength before; choose the annex again."}},
    {DeflectionOfAnotherMember,
     {"deflinez", "The deflections are those of the last loaded member."}},
};

}  // namespace

std::vector<KeptValue> KeptValues(const ProjectState& s)
{
    std::vector<KeptValue> values;
    if (s.calculationerror) {
        return values;
    }
    for (const Rule& rule : kRules) {
        if (rule.keeps(s)) {
            values.push_back(rule.value);
        }
    }
    return values;
}

}  // namespace kestrum
