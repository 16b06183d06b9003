#include "core/annexes.h"
#include "core/load_combination.h"
#include "report/design_note_facts.h"
#include "report/design_notes.h"
#include "report/stages.h"
#include "sections/families.h"
#include "stability/buckling_resistance.h"
#include "stability/buckling_rows.h"
#include "stability/cvipping.h"
#include "stability/lt_factors.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kestrum {

namespace {

constexpr i16 kRolledCurve = 3;
constexpr i16 kAnnexA = 1, kAnnexB = 2;

bool HasMoment(const ProjectState& s)
{
    return s.mydesign != 0 || s.mzdesign != 0;
}

// A stage with interaction factors has run: compression with a moment, or both moments alone.
bool Interacts(const ProjectState& s)
{
    return StagesOf(s).interaction;
}

bool LateralControlled(const ProjectState& s)
{
    return s.ltb == 1 && !s.ltline.empty();
}

bool WholeMember(const ProjectState& s)
{
    return s.loadmode == 1 && s.restraints == 0;
}

// The transverse load in all, kN. The shear of a cantilever has the opposite sign.
double DownwardLoad(const ProjectState& s)
{
    constexpr i16 kCantilever = 4;
    const double first = s.vzdiag.front();
    return s.supportcase == kCantilever ? -first : first - s.vzdiag.back();
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
    const LtReduction uniform =
        s.ltbcurve == kRolledCurve ? LtCurveRolled(s, mcr, 1.0F, top) : LtCurveGeneral(s, mcr, top);
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
    return s.supportcase == 0 && (s.my0 * s.mydesign > 0 || s.myl * s.mydesign > 0);
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
    return LateralControlled(s) && s.ltbcurve == kRolledCurve && !Is(s, Kind::flat) &&
           !Is(s, Kind::plate);
}

// The flexural curves of 6.3.1 are in use, and at least one was chosen by the table.
bool AutomaticCurve(const ProjectState& s)
{
    return s.ned > 0 && !s.yline.empty() && (s.bcy == 0 || s.bcz == 0);
}

double FlexuralMinimum(const ProjectState& s)
{
    return Is(s, Kind::angle) ? std::min(s.ncrv, s.ncru) : std::min(s.ncry, s.ncrz);
}

bool TorsionWouldGovern(const ProjectState& s)
{
    if (s.openprofile != kTrue || Is(s, Kind::plate) || !(s.ned > 0) || s.yline.empty()) {
        return false;
    }
    const TorsionalForces own = OwnTorsionalForces(s);
    return std::min(own.ncrt, own.ncrtf) < FlexuralMinimum(s);
}

// Loads give the deflection of one combination and the moment of another to Table A.2.
bool DeflectionOfOtherLoads(const ProjectState& s)
{
    const auto bowed = [](double design, double first, double last, i16 linear) {
        return design != 0 && (first != 0 || last != 0) && linear == kFalse;
    };
    return StrengthFactors(s, StrengthCombination(s)) != ServiceFactors(s, s.loadcomb) &&
           (bowed(s.mydesign, s.my0, s.myl, s.mylinear) ||
            bowed(s.mzdesign, s.mz0, s.mzl, s.mzlinear));
}

bool EndMomentsDiffer(double design, double first, double last, i16 linear)
{
    const double larger = std::max(std::abs(first), std::abs(last));
    return design != 0 && linear == kFalse &&
           std::abs(std::abs(first) - std::abs(last)) > 1e-6 * larger;
}

i16 WorstClass(const ProjectState& s)
{
    return std::max({s.ned > 0 ? s.classn : i16{1}, s.mydesign != 0 ? s.classmy : i16{1},
                     s.mzdesign != 0 ? s.classmz : i16{1}});
}

bool Table62HighStrength(const ProjectState& s)
{
    const FlexuralCurves curves = Traits(s).design.curves;
    return curves == FlexuralCurves::rolled_i || curves == FlexuralCurves::hot_hollow ||
           (curves == FlexuralCurves::tube && s.tubehot == 1);
}

constexpr NoteRule kStability[] = {
    {"D201",
     [](const ProjectState& s) {
         return LateralControlled(s) && s.loadmode == 1 && s.restraints > 0 &&
                std::abs(s.mydesignf) < (1 - 1e-6) * std::abs(s.mydesign);
     },
     "Lateral torsional buckling is checked for the moments at the restraints; the larger moment "
     "between them is not seen."},
    {"D203",
     [](const ProjectState& s) {
         return AutomaticCurve(s) && s.fyk > 440 && s.fyk < 460 && Table62HighStrength(s);
     },
     "The buckling curves of S460 are used for a strength below 460 MPa; Table 6.2 gives lower "
     "ones."},
    {"D204",
     [](const ProjectState& s) {
         return AutomaticCurve(s) && Is(s, Kind::box) && s.weldopt == 1 && s.b < 30 * s.tf &&
                s.h < 30 * s.tw;
     },
     "Curve b is used for a box with thick welds and stocky plates; Table 6.2 gives c."},
    {"D205",
     [](const ProjectState& s) {
         constexpr double kCurveC = 0.49;
         return Is(s, Kind::channel) && Traits(s).design.curves == FlexuralCurves::none &&
                s.ned > 0 && !s.yline.empty() &&
                ((s.bcy == 0 && s.alphay < kCurveC) || (s.bcz == 0 && s.alphaz < 0.49f));
     },
     "The automatic buckling curve of British channels is not set anew; choose curve c for both "
     "axes."},
    {"D207", TorsionWouldGovern,
     "Torsional or torsional-flexural buckling has a lower critical force than flexural buckling "
     "and is not checked (6.3.1.4)."},
    {"D208",
     [](const ProjectState& s) {
         const TorsionalForces own = OwnTorsionalForces(s);
         return Interacts(s) && s.method == kAnnexA && s.openprofile == kTrue && s.ned > 0 &&
                own.ncrtf == kNeverGoverns && s.mydesign != 0 && (s.ned > own.ncrt || s.cmlt > 1);
     },
     "The interaction factors of Annex A leave the torsional critical force of the section out and "
     "come out too low."},
    {"D209",
     [](const ProjectState& s) {
         return Interacts(s) && Is(s, Kind::i_single) && s.method == kAnnexA && s.ned > 0 &&
                s.mydesign != 0 && s.ncrz < s.ncry;
     },
     "The torsional-flexural critical force couples with buckling about y instead of z and may be "
     "too high in the factors of Annex A."},
    {"D211",
     [](const ProjectState& s) {
         constexpr i16 kCantilever = 4;
         return LateralControlled(s) && WholeMember(s) && s.cmanual == kFalse &&
                s.supportcase != kCantilever && s.ltbk > 1;
     },
     "The C factors of lateral torsional buckling are extrapolated beyond k = 1; check them, or "
     "enter them by hand."},
    {"D212",
     [](const ProjectState& s) {
         return LateralControlled(s) && Is(s, Kind::i_single) && s.beampart > 0 &&
                !WholeMember(s) && (s.ltc3 > 1.02 || s.ltc3 < 0);
     },
     "The factor C3 of the governing segment lies in a range where the table used here is not "
     "continuous; compare the critical moment by other means."},
    {"D213",
     [](const ProjectState& s) {
         return LateralControlled(s) && WholeMember(s) && s.zg < 0 && s.ltc2 > 0 &&
                DownwardLoad(s) < 0;
     },
     "A load below the shear centre is taken as stabilising; an upward load there destabilises."},
    {"D215",
     [](const ProjectState& s) {
         return RolledCurveInUse(s) && Is(s, Kind::i_welded, Kind::general) &&
                (s.lamdalt0w < s.lamdalt0 || s.betaw > s.beta) && s.xlt < 1;
     },
     "Lateral torsional buckling of the welded section uses the parameters of rolled sections."},
    {"D216", [](const ProjectState& s) { return RolledCurveInUse(s) && s.kc > 1 && s.ffactor < 1; },
     "The reduction factor of lateral torsional buckling is divided by a factor f below 1 although "
     "kc is above 1; ratios with it are too low and may even be negative. Choose the general "
     "case."},
    {"D217",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == kAnnexA && s.loadmode == 1 && s.ned > 0 &&
                DeflectionOfOtherLoads(s);
     },
     "The moment factor of Annex A combines the serviceability deflection with the strength moment "
     "and comes out too low."},
    {"D218",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == kAnnexA && s.ned > 0 && WorstClass(s) > 2 &&
                ((s.mydesign != 0 && s.classmy <= 2) || (s.mzdesign != 0 && s.classmz <= 2));
     },
     "Annex A takes the plastic column for a moment of class 1 or 2 although another action puts "
     "the section into class 3 or 4."},
    {"D221",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == kAnnexB && s.loadmode == 1 &&
                (EndMomentsDiffer(s.mydesign, s.my0, s.myl, s.mylinear) ||
                 EndMomentsDiffer(s.mzdesign, s.mz0, s.mzl, s.mzlinear));
     },
     "The moment factors of Annex B rest on the smaller end moment; Table B.3 takes the larger and "
     "may give more."},
    {"D222",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == kAnnexB && s.loadmode != 1 &&
                ((s.mydesign != 0 && s.psiy > 0) || (s.mzdesign != 0 && s.psiz > 0));
     },
     "The moment factors of Annex B are 0.6 for any end moments; Table B.3 gives up to 1.0."},
    {"D223",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == kAnnexB && s.classmy <= 2 && WorstClass(s) > 2;
     },
     "Annex B takes the plastic column by the class of My although another action puts the section "
     "into class 3 or 4."},
    {"D224",
     [](const ProjectState& s) {
         return Interacts(s) && Is(s, Kind::i_single) && s.method == kAnnexB && s.classmy <= 2 &&
                s.mzdesign != 0;
     },
     "The factors of Mz, kyz and kzz, are not set anew for this section in class 1 and 2; choose "
     "Annex A."},
    {"D226", [](const ProjectState& s) { return Is(s, Kind::angle) && HasMoment(s); },
     "Lateral torsional buckling of angles is not checked."},
    {"D228",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == kAnnexA && s.ned > 0 && s.ltb != 1 &&
                OwnTorsionalForces(s).ncrtf < (1 - 1e-6) * s.ncrtf;
     },
     "Without a control of lateral torsional buckling the calculation does not know the torsional "
     "length of the member, and the interaction factors of Annex A come out too low; switch the "
     "control on."},
    {"D229",
     [](const ProjectState& s) {
         return Is(s, Kind::flat) && s.ltb == 1 && !(s.ned > 0) && s.mydesign != 0;
     },
     "Lateral torsional buckling of a flat bar is checked beside an axial compression only."},
    {"D230",
     [](const ProjectState& s) {
         const bool shifts = Is(s, Kind::channel, Kind::angle, Kind::i_single, Kind::tee);
         return shifts && s.classn == 4 && s.ned > 0 && !s.yline.empty();
     },
     "The buckling check has no additional moment from the shift of the centroid in class 4."},
    {"D231", [](const ProjectState& s) { return Is(s, Kind::tee) && s.ned > 0 && s.mydesign != 0; },
     "The moment of the self-weight is not combined with the axial force in the buckling check."},
    {"D233",
     [](const ProjectState& s) {
         return LateralControlled(s) && s.loadmode == 1 && s.restraints > 0 &&
                !Is(s, Kind::plate) && LoadLowersTheSegment(s) &&
                (ShapeOfMomentsCounts(s) || (s.zg > 0 && s.xlt < 1));
     },
     "The critical moment between lateral restraints takes a straight moment line and no load "
     "level; the loads there lower it."},
    {"D234",
     [](const ProjectState& s) {
         return LateralControlled(s) && WholeMember(s) && !Is(s, Kind::plate) &&
                s.cmanual == kFalse && s.c1alt == kFalse && MomentsOnPinnedEnds(s) &&
                LtAlternativeC1(s) < (1 - 1e-3) * s.ltc1 && ShapeOfMomentsCounts(s);
     },
     "C1 does not see the moments on pinned ends and is too high; choose the alternative "
     "calculation of C1."},
    {"D235",
     [](const ProjectState& s) {
         return RolledCurveInUse(s) && WholeMember(s) && s.mycurved == kTrue &&
                s.supportcase != 0 && s.supportcase != 4 && s.cmanual == kFalse &&
                s.annexindex != kAnnexUk && TableOfKcGivesLess(s);
     },
     "kc of the reduction for lateral torsional buckling is 1/sqrt(C1); Table 6.6 gives a higher "
     "one for fixed ends under uniform load."},
    {"D236",
     [](const ProjectState& s) {
         return s.ned > 0 && s.mydesign != 0 && LateralControlled(s) && s.xlt < 1 &&
                !(BucklesAboutY(s) && BucklesAboutZ(s));
     },
     "An axis without buckling has no row of 6.3.3, although the axial force and lateral torsional "
     "buckling still act together."},
};

}  // namespace

std::span<const NoteRule> StabilityNoteRules()
{
    return kStability;
}

}  // namespace kestrum
