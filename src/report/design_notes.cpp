#include "report/design_notes.h"

#include "analysis/extremes.h"
#include "core/annexes.h"
#include "core/basis.h"
#include "core/load_combination.h"
#include "core/member_choices.h"
#include "core/project_state.h"
#include "report/design_note_facts.h"
#include "report/design_note_trial.h"
#include "sections/families.h"
#include "service/vortex.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace kestrum {

namespace {

bool LoadsDropped(const ProjectState& s)
{
    const std::vector<DroppedLoad> loads = DroppedNow(s, s.dropped);
    return std::any_of(loads.begin(), loads.end(),
                       [](const DroppedLoad& load) { return load.reason == DropReason::family; });
}

// A moment on a spring support: the member takes (1 - s) M of it, and (1 - 2 s) M is shown there.
// Whether the moment at an end would be larger in size by elastic analysis.
bool SpringSupportHidesMoment(const ProjectState& s)
{
    if (s.loadmode != 1 || s.supportcase != SupportCase::springs) {
        return false;
    }
    const LoadFactors f = StrengthFactors(s, s, StrengthCombination(s));
    const std::array<double, 3> factors{f.g, f.q1, f.q2};
    std::array<double, 2> first{}, last{};  // missing at x = 0 and L, by direction
    for (std::size_t k = 1; k <= 8; ++k) {
        const bool counts = s.pmchecked[k] != 0 || s.loadcomb != kBasicLoads;
        const bool known = s.pmtype[k] >= 0 && s.pmtype[k] <= 2;
        if (!counts || !known || s.pmkind[k] != 1) {
            continue;
        }
        const double missing =
            s.spring / 100.0 * factors[static_cast<std::size_t>(s.pmtype[k])] * s.pm[k];
        const std::size_t direction = s.pmdir[k] == 0 ? 0 : 1;
        first[direction] += s.pmx[k] == 0 ? missing : 0;
        last[direction] -= s.pmx[k] == s.l ? missing : 0;
    }
    const auto hides = [](double missing, double shown) {
        return std::abs(shown + missing) > std::abs(shown) * (1 + 1e-5);
    };
    return hides(first[1], s.my0) || hides(last[1], s.myl) || hides(first[0], s.mz0) ||
           hides(last[0], s.mzl);
}

// The whole line of the standard against its right half.
bool CurvedOnTheLeftOnly(const std::array<float, kDiagramPoints>& m, double largest)
{
    return largest != 0 && CurvedHalf(m, Half::left) && !CurvedHalf(m, Half::right);
}

// The curved shape of a line that is curved on its left half only raises a ratio.
bool CurvedShapeIsWorse(const ProjectState& s)
{
    const bool y = CurvedOnTheLeftOnly(s.mydiag, s.mymaxabs);
    const bool z = CurvedOnTheLeftOnly(s.mzdiag, s.mzmaxabs);
    const auto curved = [y, z](ProjectState& copy) {
        copy.mycurved = y ? kTrue : copy.mycurved;
        copy.mzcurved = z ? kTrue : copy.mzcurved;
    };
    return s.loadmode == 1 && (y || z) && Try(s, curved, ControlledRatios).Raises();
}

// The largest value at the check sections falls short of the extreme of the member by over 1 %.
template <class Sections>
bool Misses(const ProjectState& s, const Sections& sections, double extreme)
{
    double found = 0;
    for (int k = 0; k <= s.npts; ++k) {
        found = std::max(found, std::abs(1.0 * sections[static_cast<std::size_t>(k)]));
    }
    return found < 0.99 * extreme;
}

bool ExtremesBetweenCheckSections(const ProjectState& s)
{
    return Misses(s, s.mysec, s.mymaxabs) || Misses(s, s.mzsec, s.mzmaxabs) ||
           Misses(s, s.vzsec, LargestVz(s)) || Misses(s, s.vysec, LargestVy(s));
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

bool HasShearAreaFactor(const ProjectState& s)
{
    return !Is(s, Kind::none, Kind::angle, Kind::tube, Kind::flat);
}

bool ShearAreaFactorOfALowerSteel(const ProjectState& s)
{
    constexpr float kOrdinarySteel = 460;  // MPa
    return s.annexindex != kAnnexUd && s.fyk > kOrdinarySteel && s.neta > 1 &&
           HasShearAreaFactor(s) && (LargestVz(s) > 0 || LargestVy(s) > 0);
}

// Grades of the delivered list whose strength over 40 mm is that up to 40 mm.
bool KeepsItsStrengthWhenThick(const ProjectState& s)
{
    struct Grade {
        i16 row;
        float fyk;
    };
    constexpr float kThick = 40;  // mm
    constexpr std::array<Grade, 5> kGrades{{{17, 355}, {22, 275}, {23, 355}, {24, 420}, {25, 460}}};
    return s.tmax > kThick && std::any_of(kGrades.begin(), kGrades.end(), [&s](const Grade& grade) {
               return grade.row == s.fykindex && grade.fyk == s.fyk;
           });
}

bool ThickerThanTheTable(const ProjectState& s)
{
    constexpr float kThickest = 80;   // mm
    constexpr i16 kOwnStrength = 26;  // last row of the delivered material list
    return s.tmax > kThickest && s.fykindex >= 0 && s.fykindex < kOwnStrength;
}

// EN 10025 and EN 10210 lower the strength beyond 16 mm and, but for S235, beyond 63 mm, where
// Table 3.1 does not. The general profile has no thickness (D56).
bool ProductStrengthIsLower(const ProjectState& s)
{
    constexpr i16 kOwnStrength = 26;  // last row of the delivered material list
    constexpr float kS235Over40Mm = 215;
    const bool medium = s.tmax > 16 && s.tmax <= 40;
    const bool thick = s.tmax > 63 && s.tmax <= 80 && s.fyk != kS235Over40Mm;
    return s.annexindex == kAnnexUk && s.fykindex >= 0 && s.fykindex < kOwnStrength &&
           !Is(s, Kind::general) && (medium || thick);
}

constexpr NoteRule kGeneral[] = {
    {"D20", ShearAreaFactorOfALowerSteel},
    {"D21", KeepsItsStrengthWhenThick},
    {"D22", ThickerThanTheTable},
    {"D24",
     [](const ProjectState& s) {
         return s.annexindex == kAnnexGe && (s.maxirbuckling > 0 || WebBucklesInShear(s));
     }},
    {"D37", ProductStrengthIsLower},
    {"D104", SpringSupportHidesMoment},
    {"D106", LoadsDropped},
    {"D107", CurvedShapeIsWorse},
    {"D109", ExtremesBetweenCheckSections},
};

constexpr NoteRule kService[] = {
    {"D251", ModalMassIsIncomplete},
    {"D254",
     [](const ProjectState& s) {
         constexpr int kCategoryThree = 3;
         return VortexChecked(s) && s.terrain == kCategoryThree;
     }},
    {"D255",
     [](const ProjectState& s) {
         constexpr int kFixedPinned = 1, kCantilever = 3;
         return VortexChecked(s) && (s.vortexcase == kFixedPinned || s.vortexcase == kCantilever);
     }},
    {"D259", [](const ProjectState& s) { return VortexChecked(s) && VortexSupportIsStiffer(s); }},
    {"D256",
     [](const ProjectState& s) {
         return VortexChecked(s) &&
                std::any_of(s.qload.begin() + 1, s.qload.end(), [](float q) { return q > 0; });
     }},
};

}  // namespace

std::string_view NoteRule::Text() const
{
    const auto deviation = DeviationOf(id);
    return deviation ? TextOf(*deviation) : std::string_view{};
}

std::span<const NoteRule> GeneralNoteRules()
{
    return kGeneral;
}

std::span<const NoteRule> ServiceNoteRules()
{
    return kService;
}

std::array<std::span<const NoteRule>, 6> NoteGroups()
{
    return {LoadNoteRules(),    GeneralNoteRules(),   SectionNoteRules(),
            LateralNoteRules(), StabilityNoteRules(), ServiceNoteRules()};
}

std::vector<DesignNote> DesignNotes(const ProjectState& s)
{
    std::vector<DesignNote> notes;
    if (s.calculationerror) {
        return notes;
    }
    for (const std::span<const NoteRule>& rules : NoteGroups()) {
        for (const NoteRule& rule : rules) {
            if (rule.acts(s)) {
                notes.push_back({rule.id, rule.Text()});
            }
        }
    }
    return notes;
}

}  // namespace kestrum
