// Notes on load factors and on what the member carries.

#include "core/annexes.h"
#include "core/load_combination.h"
#include "core/project_state.h"
#include "report/design_note_facts.h"
#include "report/design_note_trial.h"
#include "report/design_notes.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kestrum {

namespace {

constexpr std::size_t kG = 0, kQ1 = 1, kQ2 = 2, kCategories = 3;

// Which way the loads of each category act, of one kind and direction.
struct Senses {
    std::array<bool, kCategories> down{}, up{};

    void Count(double load, double category)
    {
        if (category != kG && category != kQ1 && category != kQ2) {
            return;
        }
        const auto at = static_cast<std::size_t>(category);
        down[at] = down[at] || load > 0;
        up[at] = up[at] || load < 0;
    }
    bool Has(std::size_t category) const { return down[category] || up[category]; }

    // A load of this category acts against one of another.
    bool Opposed(std::size_t category) const
    {
        for (std::size_t other = 0; other < kCategories; ++other) {
            if (other != category &&
                ((down[category] && up[other]) || (up[category] && down[other]))) {
                return true;
            }
        }
        return false;
    }
};

// All loads on the member; of the transverse ones, forces and moments by direction.
struct LoadSenses {
    Senses axial;
    std::array<Senses, 2> forces, moments;

    explicit LoadSenses(const ProjectState& s)
    {
        const auto of = [](std::array<Senses, 2>& senses, double direction) -> Senses& {
            return senses[direction == 0 ? 0 : 1];
        };
        for (std::size_t k = 1; k <= 3; ++k) {
            axial.Count(s.nload[k], s.ntype[k]);
            of(forces, s.qtdir[k]).Count(s.qt1[k], s.qttype[k]);
            of(forces, s.qtdir[k]).Count(s.qt2[k], s.qttype[k]);
        }
        for (std::size_t k = 0; k <= 4; ++k) {
            if (k > 0 || s.selfweight == 1) {
                of(forces, s.qdir[k]).Count(s.qload[k], s.qtype[k]);
            }
        }
        for (std::size_t k = 1; k <= 8; ++k) {
            of(s.pmkind[k] == 0 ? forces : moments, s.pmdir[k]).Count(s.pm[k], s.pmtype[k]);
        }
    }

    bool Has(std::size_t category) const
    {
        return axial.Has(category) || forces[0].Has(category) || forces[1].Has(category) ||
               moments[0].Has(category) || moments[1].Has(category);
    }

    // A category may relieve the member: it acts against another one, or moments stand beside
    // other loads, whose senses cannot be compared at a glance.
    bool MayRelieve(std::size_t category) const
    {
        const auto opposed = [category](const Senses& senses) { return senses.Opposed(category); };
        const auto mixed = [&](std::size_t direction) {
            const Senses &force = forces[direction], &moment = moments[direction];
            bool others = false;
            for (std::size_t other = 0; other < kCategories; ++other) {
                others = others || (other != category && (moment.Has(other) || force.Has(other)));
            }
            const bool moments_act = moment.Has(kG) || moment.Has(kQ1) || moment.Has(kQ2);
            return moments_act && others && (moment.Has(category) || force.Has(category));
        };
        return opposed(axial) || std::any_of(forces.begin(), forces.end(), opposed) ||
               std::any_of(moments.begin(), moments.end(), opposed) || mixed(0) || mixed(1);
    }
};

// The loads act along the member in a combination of EN 1990; the user's own factors are his.
bool Combined(const ProjectState& s)
{
    return s.loadmode == 1 && s.loadcomb >= kEq610 && s.loadcomb <= kEq610ab;
}

LoadFactors Strength(const ProjectState& s)
{
    return StrengthFactors(s, s, StrengthCombination(s));
}

LoadFactors Service(const ProjectState& s)
{
    return ServiceFactors(s, s.loadcomb);
}

// Whether 1.35 on the permanent loads raises a ratio.
bool PermanentFactorIsLow(const ProjectState& s)
{
    constexpr double kPermanent = 1.35;
    LoadFactors strength = Strength(s);
    strength.g = kPermanent * s.kfig;
    return LoadSenses(s).Has(kG) && TryFactors(s, strength, Service(s)).Raises();
}

bool PermanentLoadRelieves(const ProjectState& s)
{
    LoadFactors strength = Strength(s);
    if (!Combined(s) || !(strength.g > 1) || !LoadSenses(s).MayRelieve(kG)) {
        return false;
    }
    strength.g = 1;
    return TryFactors(s, strength, Service(s)).Raises();
}

bool SecondLoadIsLow(const ProjectState& s)
{
    if (s.loadmode != 1 || s.loadcomb != kEq610 || !(s.psi1 < s.psi2) || !LoadSenses(s).Has(kQ2)) {
        return false;
    }
    LoadFactors strength = Strength(s);
    strength.q2 = s.g610q2 * s.kfiq * s.psi2;
    return TryFactors(s, strength, Service(s)).Raises();
}

// Whether a ratio is higher without Q1, without Q2 or without both.
bool VariableLoadRelieves(const ProjectState& s)
{
    if (!Combined(s)) {
        return false;
    }
    const LoadSenses senses(s);
    const bool first = senses.MayRelieve(kQ1), second = senses.MayRelieve(kQ2);
    const auto without = [&s](bool q1, bool q2) {
        const auto leave = [&](LoadFactors factors) {
            factors.q1 = q1 ? 0 : factors.q1;
            factors.q2 = q2 ? 0 : factors.q2;
            return factors;
        };
        return TryFactors(s, leave(Strength(s)), leave(Service(s))).Raises();
    };
    return (first && without(true, false)) || (second && without(false, true)) ||
           ((first || second) && senses.Has(kQ1) && senses.Has(kQ2) && without(true, true));
}

// Whether Q2 as the leading load, with Q1 multiplied by its psi value, raises a ratio.
bool SecondLoadWouldLead(const ProjectState& s)
{
    if (!Combined(s) || !LoadSenses(s).Has(kQ2)) {
        return false;
    }
    LoadFactors strength = Strength(s);
    const int combination = StrengthCombination(s);
    if (combination == kEq610 || combination == kEq610b) {
        const double leading = strength.q1;
        strength.q1 = leading * s.psi1;
        strength.q2 = leading;
    }
    return TryFactors(s, strength, {1, s.psi1, 1}).Raises();
}

// The self-weight acts against another load, and with 9.81 m/s2 a ratio is higher.
bool SelfweightRelieves(const ProjectState& s)
{
    constexpr float kGravity = 0.981F;  // over 10 m/s2
    if (s.loadmode != 1 || s.selfweight != 1) {
        return false;
    }
    const LoadSenses senses(s);
    const Senses &force = senses.forces[1], &moment = senses.moments[1];
    const auto acts = [](const std::array<bool, kCategories>& sense) {
        return std::any_of(sense.begin(), sense.end(), [](bool any) { return any; });
    };
    if (!acts(force.up) && !acts(moment.up) && !acts(moment.down)) {
        return false;
    }
    const auto lighter = [](ProjectState& copy) { copy.weight *= kGravity; };
    return Try(s, lighter, AnalysedRatios).Raises();
}

constexpr NoteRule kLoads[] = {
    {"D23",
     [](const ProjectState& s) {
         return s.loadmode == 1 && s.loadcomb == kEq610 &&
                (s.annexindex == kAnnexDk || s.annexindex == kAnnexFi) && PermanentFactorIsLow(s);
     }},
    {"D26",
     [](const ProjectState& s) {
         return s.loadmode == 1 && s.annexindex == kAnnexUd && StrengthCombination(s) == kEq610a &&
                PermanentFactorIsLow(s);
     }},
    {"D27", PermanentLoadRelieves},
    {"D28", SecondLoadIsLow},
    {"D35", VariableLoadRelieves},
    {"D36", SecondLoadWouldLead},
    {"D103", SelfweightRelieves},
};

}  // namespace

std::span<const NoteRule> LoadNoteRules()
{
    return kLoads;
}

}  // namespace kestrum
