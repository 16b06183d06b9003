#include "report/design_note_facts.h"

#include "analysis/extremes.h"
#include "core/annexes.h"
#include "core/arithmetic_trap.h"
#include "core/member_choices.h"
#include "core/project_state.h"
#include "report/stages.h"
#include "sections/families.h"
#include "service/vortex.h"
#include "stability/buckling_resistance.h"
#include "stability/buckling_rows.h"
#include "stability/interaction_annex_a.h"
#include "stability/lt_factors.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kestrum {

namespace {

bool LateralControlled(const ProjectState& s)
{
    return s.ltb == 1 && !s.checklist.row(ResultRow::lateral).empty();
}

bool ListedGrade(const ProjectState& s)
{
    constexpr i16 kOwnStrength = 26;  // last row of the delivered material list
    return s.fykindex >= 0 && s.fykindex < kOwnStrength;
}

// EN 10025 and EN 10210 lower the strength beyond 16 mm and, but for S235, beyond 63 mm, where
// Table 3.1 does not. The general profile has no thickness (D56).
bool ProductStrengthIsLower(const ProjectState& s)
{
    constexpr float kS235Over40Mm = 215;
    const bool medium = s.tmax > 16 && s.tmax <= 40;
    const bool thick = s.tmax > 63 && s.tmax <= 80 && s.fyk != kS235Over40Mm;
    return s.annexindex == kAnnexUk && ListedGrade(s) && !Is(s, Kind::general) && (medium || thick);
}

// A moment on a spring support: the member takes (1 - s) M of it, and |1 - 2 s| M is shown there.
bool MomentOnASpring(const ProjectState& s)
{
    constexpr double kSafeFrom = 200.0 / 3;  // percent
    if (s.loadmode != 1 || s.supportcase != SupportCase::springs || s.spring >= kSafeFrom) {
        return false;
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        if (s.pmkind[k] == 1 && s.pm[k] != 0 && s.spring > 0 &&
            (s.pmx[k] == 0 || s.pmx[k] == s.l)) {
            return true;
        }
    }
    return false;
}

bool CurvedOnTheLeftOnly(const std::array<float, kDiagramPoints>& m, double largest)
{
    return largest != 0 && CurvedHalf(m, Half::left) && !CurvedHalf(m, Half::right);
}

// The factors C1 and Cm of a point load are the lower ones for pinned ends.
bool CurvedLineCountsAsPointed(const ProjectState& s)
{
    const bool y = CurvedOnTheLeftOnly(s.mydiag, s.mymaxabs);
    const bool z = CurvedOnTheLeftOnly(s.mzdiag, s.mzmaxabs);
    return s.loadmode == 1 && s.supportcase == SupportCase::pinned &&
           ((y && LateralControlled(s)) || ((y || z) && StagesOf(s).interaction));
}

// The C factor of k = 1 is below that of the longer length.
bool FactorRunsOnBeyondOne(const ProjectState& s)
{
    if (!LateralControlled(s) || s.loadmode != 1 || s.restraints != 0 || s.cmanual != kFalse ||
        s.supportcase == SupportCase::cantilever || !(s.ltbk > 1)) {
        return false;
    }
    ProjectState single = s;
    single.ltbk = 1;
    return LtCFactors(single, single).c1 < s.ltc1;
}

bool SegmentFactorSteps(const ProjectState& s)
{
    const bool segment = s.loadmode != 1 || s.restraints > 0;
    return LateralControlled(s) && Is(s, Kind::i_single) && s.beampart > 0 && segment &&
           (s.ltc3 > 1.02 || s.ltc3 < 0);
}

// kzz of Table B.1 for I sections of class 1 and 2 is above the one in use.
bool PlasticKzzIsMissing(const ProjectState& s)
{
    const double n = s.ned / s.nbzrd;
    const double kzz = s.cmz * (1 + std::min(2 * s.lamz - 0.6, 1.4) * n);
    return StagesOf(s).interaction && Is(s, Kind::i_single) && s.method == Method::annex_b &&
           s.classmy <= 2 && s.mzdesign != 0 && s.kzz < (1 - 1e-6) * kzz;
}

// Annex A takes the torsional length of the last lateral torsional calculation. The factors would
// be higher with that of the member, which is not controlled.
bool TorsionRaisesAnnexA(const ProjectState& s)
{
    if (!StagesOf(s).interaction || s.method != Method::annex_a || !(s.ned > 0) || s.ltb == 1) {
        return false;
    }
    ProjectState own = s;
    own.ncrtf = OwnTorsionalForces(s, s, s).ncrtf;
    if (s.ned >= own.ncrtf) {
        return true;
    }
    KFactorsAnnexA(own, own, own, own, own, own, own);
    ArmTrap();  // its flags are nobody else's
    const auto above = [](double a, double b) { return a > b * (1 + 1e-5); };
    return above(own.kyy, s.kyy) || above(own.kzy, s.kzy) || above(own.kyz, s.kyz) ||
           above(own.kzz, s.kzz);
}

// A cantilever in compression with a buckling length below twice its own.
bool CantileverLengthIsShort(const ProjectState& s)
{
    const bool y = BucklesAboutY(s) && s.ly < 2, z = BucklesAboutZ(s) && s.lz < 2;
    return s.supportcase == SupportCase::cantilever && s.loadmode == 1 && s.ned > 0 &&
           StagesOf(s).axial && (y || z);
}

bool ModalMassIsIncomplete(const ProjectState& s)
{
    if (s.modal != 1 || s.modalmass == 0 || s.supportcase == SupportCase::springs ||
        s.supportcase >= SupportCase::pinned_spring) {
        return false;
    }
    const bool uplift =
        std::any_of(s.qload.begin() + 1, s.qload.end(), [](float q) { return q < 0; });
    const auto loaded = [](float q) { return q != 0; };
    bool other = std::any_of(s.qt1.begin() + 1, s.qt1.end(), loaded) ||
                 std::any_of(s.qt2.begin() + 1, s.qt2.end(), loaded);
    for (std::size_t k = 1; k <= 8; ++k) {
        other = other || (s.pm[k] != 0 && s.pmkind[k] == 0);
    }
    return uplift || other;
}

// A vortex control has been made.
bool VortexChecked(const ProjectState& s)
{
    return VortexFamily(s.family) && s.vcrit != 0;
}

constexpr NoteFact kMember[] = {
    {Dev::d37, ProductStrengthIsLower},
    {Dev::d56, [](const ProjectState& s) { return Is(s, Kind::general) && ListedGrade(s); }},
    {Dev::d104, MomentOnASpring},
    {Dev::d107, CurvedLineCountsAsPointed},
    {Dev::d185,
     [](const ProjectState& s) {
         return Is(s, Kind::hat) && s.hsqopt == 0 && s.qsum != 0 && s.flangefactor != 0;
     }},
    {Dev::d196,
     [](const ProjectState& s) {
         return Is(s, Kind::plate) && LateralControlled(s) && s.mydesignf < 0;
     }},
    {Dev::d197,
     [](const ProjectState& s) {
         return !Is(s, Kind::none) && Traits(s).shape.lower == LowerFlange::one_side &&
                s.mymaxabs != 0;
     }},
    {Dev::d211, FactorRunsOnBeyondOne},
    {Dev::d212, SegmentFactorSteps},
    {Dev::d224, PlasticKzzIsMissing},
    {Dev::d228, TorsionRaisesAnnexA},
    {Dev::d237, CantileverLengthIsShort},
    {Dev::d251, ModalMassIsIncomplete},
};

constexpr NoteFact kVortex[] = {
    {Dev::d254,
     [](const ProjectState& s) {
         constexpr int kCategoryThree = 3;
         return VortexChecked(s) && s.terrain == kCategoryThree;
     }},
    {Dev::d255,
     [](const ProjectState& s) {
         constexpr int kFixedPinned = 1, kCantilever = 3;
         return VortexChecked(s) && (s.vortexcase == kFixedPinned || s.vortexcase == kCantilever);
     }},
    {Dev::d256,
     [](const ProjectState& s) {
         return VortexChecked(s) &&
                std::any_of(s.qload.begin() + 1, s.qload.end(), [](float q) { return q > 0; });
     }},
    {Dev::d259,
     [](const ProjectState& s) { return VortexChecked(s) && VortexSupportIsStiffer(s); }},
};

}  // namespace

std::span<const NoteFact> MemberFacts()
{
    return kMember;
}

std::span<const NoteFact> VortexFacts()
{
    return kVortex;
}

}  // namespace kestrum
