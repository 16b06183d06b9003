// Notes on lateral torsional buckling.

#include "core/annexes.h"
#include "core/member_choices.h"
#include "core/project_state.h"
#include "report/design_note_facts.h"
#include "report/design_note_trial.h"
#include "report/design_note_welded.h"
#include "report/design_notes.h"
#include "sections/families.h"
#include "stability/constants.h"
#include "stability/lateral_torsional.h"
#include "stability/lt_factors.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

bool WholeMember(const ProjectState& s)
{
    return s.loadmode == 1 && s.restraints == 0;
}

// The transverse load in all, kN. The shear of a cantilever has the opposite sign.
double DownwardLoad(const ProjectState& s)
{
    const double first = s.vzdiag.front();
    return s.supportcase == SupportCase::cantilever ? -first : first - s.vzdiag.back();
}

// The point of the diagram at the end of the given one of the equal parts.
std::size_t DiagramPoint(int part, int parts)
{
    return static_cast<std::size_t>(std::nearbyint((kDiagramPoints - 1.0) * part / parts));
}

// The reduction would be lower under uniform moment, C1 = kc = 1; else C1 is of no effect.
bool ShapeOfMomentsCounts(const ProjectState& s)
{
    const double mcr = s.mcr / s.ltc1;
    const bool top = s.mydesignf > 0;
    const LtReduction uniform = s.ltbcurve == LtbCurve::rolled
                                    ? LtCurveRolled(s, s, s, s, mcr, 1.0F, top)
                                    : LtCurveGeneral(s, s, s, mcr, top);
    return uniform.xlt < (1 - 1e-6) * s.xlt;
}

// A load inside the governing segment lowers its critical moment: the moment line is fuller than
// the straight one between its ends, or the load acts above the shear centre.
bool LoadLowersTheSegment(const ProjectState& s)
{
    constexpr double kStraight = 1e-3;
    const int parts = s.restraints + 1;
    if (s.beampart < 1 || s.beampart > parts) {
        return false;
    }
    const std::size_t from = DiagramPoint(s.beampart - 1, parts);
    const std::size_t to = DiagramPoint(s.beampart, parts);
    const double rise = static_cast<double>(s.mydiag[to]) - s.mydiag[from];
    for (std::size_t j = from + 1; j < to; ++j) {
        const double share = static_cast<double>(j - from) / static_cast<double>(to - from);
        const double excess = (s.mydiag[j] - s.mydiag[from] - share * rise) / s.mydesignf;
        if (excess > kStraight || (s.zg > 0 && excess < -kStraight)) {
            return true;
        }
    }
    return false;
}

// A moment on an end of a pinned member that bends like the largest one and so fills the line.
bool MomentsOnPinnedEnds(const ProjectState& s)
{
    return s.supportcase == SupportCase::pinned &&
           (s.my0 * s.mydesign > 0 || s.myl * s.mydesign > 0);
}

// chi_LT,mod with kc = 0.90, Table 6.6 for fixed ends under uniform load, lies below ours.
bool TableOfKcGivesLess(const ProjectState& s)
{
    constexpr double kFixedEnds = 0.90;
    const double bow = (s.lamlt - 0.8) * (s.lamlt - 0.8);
    const double f = std::min(1.0, 1.0 - 0.5 * (1.0 - kFixedEnds) * (1.0 - 2.0 * bow));
    return s.kc < kFixedEnds && s.xlt0 / f < (1 - 1e-6) * s.xlt;
}

bool RolledCurveInUse(const ProjectState& s)
{
    return LateralControlled(s) && s.ltbcurve == LtbCurve::rolled && !Is(s, Kind::flat) &&
           !Is(s, Kind::plate);
}

// The C factors of k = 1 on the same length.
bool FactorsOfUniformLengthAreWorse(const ProjectState& s)
{
    ProjectState single = s;
    single.ltbk = 1;
    const CFactors c = LtCFactors(single, single);
    const auto entered = [&c](ProjectState& copy) {
        copy.cmanual = kTrue;
        copy.c1 = c.c1;
        copy.c2 = c.c2;
        copy.c3 = c.c3;
    };
    return Try(s, entered, ControlledRatios).RaisesBuckling();
}

bool WeldedParametersGiveLess(const ProjectState& s)
{
    ProjectState welded = s;
    welded.lamdalt0 = s.lamdalt0w;
    welded.beta = s.betaw;
    return LtCurveRolled(welded, welded, welded, welded, s.mcr, s.kc, s.mydesignf > 0).xlt <
           (1 - 1e-6) * s.xlt;
}

// A factor below the 2.0 of the picture leaves a cantilever a critical moment above that of a load
// at its tip, whose elastic value is at least (3.8 + 3.75 K) sqrt(E Iz G It)/L through the shear
// centre and 3.5 sqrt(E Iz G It)/L half the height of the flanges above it, for K = sqrt(pi^2 E
// Iw/(G It L^2)) up to 4 (beam elements, built in against warping).
bool CantileverMomentIsHigh(const ProjectState& s)
{
    if (s.supportcase != SupportCase::cantilever || !LateralControlled(s) || !WholeMember(s) ||
        Is(s, Kind::plate) || s.cmanual != kFalse || !(s.ltbk < 2) || !(s.xlt < 1)) {
        return false;
    }
    constexpr double kPi = 3.14159265358979;
    const double length = s.l * 1000.0, e = s.e, torsion = e / kShearRatio * s.it;
    const double unit = std::sqrt(e * s.iz * torsion) / length;  // Nmm
    const double centre = 3.8 + 3.75 * kPi / length * std::sqrt(e * s.iw / torsion);
    const double half = s.iw > 0 ? std::sqrt(1.0 * s.iw / s.iz) : s.h / 2.0;  // mm
    const double height = std::max(0.0, DownwardLoad(s) < 0 ? -s.zg : s.zg) / half;
    return s.mcr > unit * centre / (1 + height * (centre / 3.5 - 1));
}

// The approximate z_j of the flange in compression is above the exact one, and a ratio with that
// would be higher.
bool AsymmetryIsHigh(const ProjectState& s)
{
    if (!Is(s, Kind::i_single) || !LateralControlled(s)) {
        return false;
    }
    const auto exact = [](ProjectState& copy) {
        copy.zjtop = static_cast<float>(ExactAsymmetry(copy, true));
        copy.zjbot = static_cast<float>(ExactAsymmetry(copy, false));
    };
    return Try(s, exact, ControlledRatios).RaisesBuckling();
}

// The National Annex of the United Kingdom, to 6.3.2.3 (1): curve d for rolled I above h/b = 3.1.
bool RolledTallBeam(const ProjectState& s)
{
    return Is(s, Kind::i_rolled) && s.annexindex == kAnnexUk && RolledCurveInUse(s) &&
           s.h > 3.1 * s.b && s.lamlt > s.lamdalt0;
}

constexpr NoteRule kLateral[] = {
    {"D57", AsymmetryIsHigh},
    {"D201",
     [](const ProjectState& s) {
         return LateralControlled(s) && s.loadmode == 1 && s.restraints > 0 &&
                std::abs(s.mydesignf) < (1 - 1e-6) * std::abs(s.mydesign);
     }},
    {"D211",
     [](const ProjectState& s) {
         return LateralControlled(s) && WholeMember(s) && s.cmanual == kFalse &&
                s.supportcase != SupportCase::cantilever && s.ltbk > 1 &&
                FactorsOfUniformLengthAreWorse(s);
     }},
    {"D212",
     [](const ProjectState& s) {
         return LateralControlled(s) && Is(s, Kind::i_single) && s.beampart > 0 &&
                !WholeMember(s) && (s.ltc3 > 1.02 || s.ltc3 < 0);
     }},
    {"D213",
     [](const ProjectState& s) {
         return LateralControlled(s) && WholeMember(s) && s.zg < 0 && s.ltc2 > 0 &&
                DownwardLoad(s) < 0;
     }},
    {"D215",
     [](const ProjectState& s) {
         return RolledCurveInUse(s) && Is(s, Kind::i_welded, Kind::general) &&
                WeldedParametersGiveLess(s);
     }},
    {"D216",
     [](const ProjectState& s) {
         return RolledCurveInUse(s) && s.kc > 1 && s.ffactor < 1 && s.xlt != s.xlt0;
     }},
    {"D233",
     [](const ProjectState& s) {
         return LateralControlled(s) && s.loadmode == 1 && s.restraints > 0 &&
                !Is(s, Kind::plate) && LoadLowersTheSegment(s) &&
                (ShapeOfMomentsCounts(s) || (s.zg > 0 && s.xlt < 1));
     }},
    {"D234",
     [](const ProjectState& s) {
         return LateralControlled(s) && WholeMember(s) && !Is(s, Kind::plate) &&
                s.cmanual == kFalse && s.c1alt == kFalse && MomentsOnPinnedEnds(s) &&
                LtAlternativeC1(s, s) < (1 - 1e-3) * s.ltc1 && ShapeOfMomentsCounts(s);
     }},
    {"D235",
     [](const ProjectState& s) {
         return RolledCurveInUse(s) && WholeMember(s) && s.mycurved == kTrue &&
                s.supportcase != SupportCase::pinned && s.supportcase != SupportCase::cantilever &&
                s.cmanual == kFalse && s.annexindex != kAnnexUk && TableOfKcGivesLess(s);
     }},
    {"D238", CantileverMomentIsHigh},
    {"D239", RolledTallBeam},
};

}  // namespace

std::span<const NoteRule> LateralNoteRules()
{
    return kLateral;
}

}  // namespace kestrum
