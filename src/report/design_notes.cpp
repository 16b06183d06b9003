#include "report/design_notes.h"

#include "analysis/extremes.h"
#include "core/annexes.h"
#include "core/load_combination.h"
#include "report/design_note_facts.h"
#include "sections/families.h"
#include "service/vortex.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace kestrum {

namespace {

// Signs of permanent and of variable loads of one kind and direction.
struct Signs {
    bool permanent_down = false, permanent_up = false, variable_down = false, variable_up = false;

    void Count(double load, double category)
    {
        bool& down = category == 0 ? permanent_down : variable_down;
        bool& up = category == 0 ? permanent_up : variable_up;
        down = down || load > 0;
        up = up || load < 0;
    }
    bool Oppose() const
    {
        return (permanent_down && variable_up) || (permanent_up && variable_down);
    }
};

bool PermanentLoadRelieves(const ProjectState& s)
{
    Signs axial;
    std::array<Signs, 2> forces, moments;  // by direction
    const auto of = [](std::array<Signs, 2>& signs, double direction) -> Signs& {
        return signs[direction == 0 ? 0 : 1];
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
    const auto oppose = [](const Signs& signs) { return signs.Oppose(); };
    return axial.Oppose() || std::any_of(forces.begin(), forces.end(), oppose) ||
           std::any_of(moments.begin(), moments.end(), oppose);
}

bool HasVariableLoadOfClass2(const ProjectState& s)
{
    for (std::size_t k = 1; k <= 3; ++k) {
        if ((s.nload[k] != 0 && s.ntype[k] == 2) ||
            ((s.qt1[k] != 0 || s.qt2[k] != 0) && s.qttype[k] == 2)) {
            return true;
        }
    }
    for (std::size_t k = 1; k <= 4; ++k) {
        if (s.qload[k] != 0 && s.qtype[k] == 2) {
            return true;
        }
    }
    for (std::size_t k = 1; k <= 8; ++k) {
        if (s.pm[k] != 0 && s.pmtype[k] == 2) {
            return true;
        }
    }
    return false;
}

bool MomentOnSpringSupport(const ProjectState& s)
{
    constexpr int kSprings = 3;
    for (std::size_t k = 1; k <= 8; ++k) {
        const bool counts = s.pmchecked[k] != 0 || s.loadcomb != kBasicLoads;
        if (counts && s.pm[k] != 0 && s.pmkind[k] == 1 && (s.pmx[k] == 0 || s.pmx[k] == s.l)) {
            return s.loadmode == 1 && s.supportcase == kSprings && s.spring > 0;
        }
    }
    return false;
}

bool OnTheMember(const ProjectState& s, float x)
{
    return x >= 0 && x <= s.l;
}

bool LoadOffTheMember(const ProjectState& s)
{
    const auto acts = [&s](i16 checked) {
        return s.loadmode == 1 && (checked != 0 || s.loadcomb != kBasicLoads);
    };
    bool off = false;
    for (std::size_t k = 1; k <= 8; ++k) {  // an empty row has its check sections too
        const bool counts = s.cpmode != 1 || (s.pm[k] != 0 && acts(s.pmchecked[k]));
        off = off || (counts && !OnTheMember(s, s.pmx[k]));
    }
    for (std::size_t k = 1; k <= 3; ++k) {
        const bool loaded = (s.qt1[k] != 0 || s.qt2[k] != 0) && acts(s.qtchecked[k]);
        const bool on = OnTheMember(s, s.qtx1[k]) && OnTheMember(s, s.qtx2[k]);
        off = off || (loaded && !(on && s.qtx1[k] < s.qtx2[k]));
        const bool chosen = s.cpmode == 1 && static_cast<int>(k) <= s.npts + 1;
        off = off || (chosen && !OnTheMember(s, s.cp[k]));
    }
    return off;
}

// The whole line of the standard against its right half.
bool CurvedOnTheLeftOnly(const std::array<float, kDiagramPoints>& m, double largest)
{
    return largest != 0 && CurvedHalf(m, Half::left) && !CurvedHalf(m, Half::right);
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
    constexpr int kPinnedSpring = 5;
    if (s.modal != 1 || s.modalmass == 0 || s.supportcase == 3 || s.supportcase >= kPinnedSpring) {
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

constexpr NoteRule kGeneral[] = {
    {"D20", ShearAreaFactorOfALowerSteel,
     "The shear area factor is still 1.2 although the strength is above 460 MPa; choose the annex "
     "again to get the 1.0 of EN 1993-1-5, 5.1 (2)."},
    {"D21", KeepsItsStrengthWhenThick,
     "The grade keeps its strength over 40 mm here; EN 1993-1-1, Table 3.1 gives S355 H 335 MPa "
     "and the grades MH/MLH none."},
    {"D22", ThickerThanTheTable,
     "A part is thicker than 80 mm, where EN 1993-1-1, Table 3.1 ends; enter the strength of the "
     "product standard as own value."},
    {"D23",
     [](const ProjectState& s) {
         return s.loadmode == 1 && s.loadcomb == kEq610 &&
                (s.annexindex == kAnnexDk || s.annexindex == kAnnexFi);
     },
     "Eq 6.10 takes the permanent loads with 1.1 in this annex; EN 1990, Table A1.2(B) gives "
     "1.35."},
    {"D24",
     [](const ProjectState& s) {
         return s.annexindex == kAnnexGe && (s.maxirbuckling > 0 || WebBucklesInShear(s));
     },
     "The partial factor gammaM1 is 1.0 in this annex; DIN EN 1993-1-1/NA gives 1.1."},
    {"D26",
     [](const ProjectState& s) {
         return s.loadmode == 1 && s.annexindex == kAnnexUd && StrengthCombination(s) == kEq610a;
     },
     "Eq 6.10a takes the permanent loads with 1.1; EN 1990, Table A1.2(B) gives 1.35."},
    {"D27",
     [](const ProjectState& s) {
         const int combination = StrengthCombination(s);
         return s.loadmode == 1 && combination <= kEq610b &&
                StrengthFactors(s, combination).g > 1 && PermanentLoadRelieves(s);
     },
     "A permanent load that acts against a variable one is taken with its full factor; EN 1990, "
     "Table A1.2(B) takes it with 1.0."},
    {"D28",
     [](const ProjectState& s) {
         return s.loadmode == 1 && s.loadcomb == kEq610 && s.psi1 < s.psi2 &&
                HasVariableLoadOfClass2(s);
     },
     "Eq 6.10 multiplies the loads of class Q2 by the psi value of Q1, which is below that of Q2."},
    {"D104", MomentOnSpringSupport,
     "The moment on the spring support is mixed with the end moment of a fixed beam; elastic "
     "analysis gives a larger moment beside the support."},
    {"D107",
     [](const ProjectState& s) {
         return s.loadmode == 1 && (CurvedOnTheLeftOnly(s.mydiag, s.mymaxabs) ||
                                    CurvedOnTheLeftOnly(s.mzdiag, s.mzmaxabs));
     },
     "The moment line is curved on its left half only and is taken as that of a point load, which "
     "gives more favourable factors for buckling."},
    {"D109", ExtremesBetweenCheckSections,
     "A moment or shear force between the points of the section control is more than 1 % larger "
     "than at these points; add a check point there."},
    {"D110", LoadOffTheMember,
     "A load or check point stands off the member, or a load ends before it starts; the results "
     "are wrong. Correct its position."},
    {"D251", ModalMassIsIncomplete,
     "The mass of the modal analysis counts uniform loads only, and upward ones as negative; with "
     "the mass of the other loads the frequencies are lower."},
    {"D254",
     [](const ProjectState& s) {
         constexpr int kCategoryThree = 3;
         return VortexChecked(s) && s.terrain == kCategoryThree;
     },
     "Terrain category III has the roughness length 0.03 m here; EN 1991-1-4, Table 4.1 gives "
     "0.3 m and a lower mean wind speed."},
    {"D255",
     [](const ProjectState& s) {
         constexpr int kFixedPinned = 1, kCantilever = 3;
         return VortexChecked(s) && (s.vortexcase == kFixedPinned || s.vortexcase == kCantilever);
     },
     "The natural frequency of the vortex check is up to 0.5 % too high by a rounded constant; "
     "check the margin between 1.25 vm and vcrit."},
    {"D256",
     [](const ProjectState& s) {
         return VortexChecked(s) &&
                std::any_of(s.qload.begin() + 1, s.qload.end(), [](float q) { return q > 0; });
     },
     "The vortex check takes the mass of the section alone; other mass that the member carries "
     "lowers the frequency and the critical wind speed."},
};

}  // namespace

std::span<const NoteRule> GeneralNoteRules()
{
    return kGeneral;
}

std::vector<DesignNote> DesignNotes(const ProjectState& s)
{
    std::vector<DesignNote> notes;
    if (s.calculationerror) {
        return notes;
    }
    for (const auto& rules : {GeneralNoteRules(), SectionNoteRules(), StabilityNoteRules()}) {
        for (const NoteRule& rule : rules) {
            if (rule.acts(s)) {
                notes.push_back({rule.id, rule.text});
            }
        }
    }
    return notes;
}

}  // namespace kestrum
