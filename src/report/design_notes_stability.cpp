#include "core/annexes.h"
#include "core/load_combination.h"
#include "core/member_choices.h"
#include "report/design_note_facts.h"
#include "report/design_note_trial.h"
#include "report/design_notes.h"
#include "report/stages.h"
#include "sections/families.h"
#include "stability/buckling_resistance.h"
#include "stability/buckling_rows.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kestrum {

namespace {

bool HasMoment(const ProjectState& s)
{
    return s.mydesign != 0 || s.mzdesign != 0;
}

// A stage with interaction factors has run: compression with a moment, or both moments alone.
bool Interacts(const ProjectState& s)
{
    return StagesOf(s).interaction;
}

// The flexural curves of 6.3.1 are in use, and at least one was chosen by the table.
bool AutomaticCurve(const ProjectState& s)
{
    return s.ned > 0 && !s.checklist.row(ResultRow::buckling_y).empty() &&
           (s.bcy == 0 || s.bcz == 0);
}

double FlexuralMinimum(const ProjectState& s)
{
    return Is(s, Kind::angle) ? std::min(s.ncrv, s.ncru) : std::min(s.ncry, s.ncrz);
}

bool TorsionWouldGovern(const ProjectState& s)
{
    if (s.openprofile != kTrue || Is(s, Kind::plate) || !(s.ned > 0) ||
        s.checklist.row(ResultRow::buckling_y).empty()) {
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
    return StrengthFactors(s, s, StrengthCombination(s)) != ServiceFactors(s, s.loadcomb) &&
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

// Ncr,TF of the single-symmetric I coupled with buckling about its axis of symmetry.
double CoupledAboutZ(const ProjectState& s)
{
    ProjectState copy = s;
    copy.ncry = s.ncrz;
    return OwnTorsionalForces(copy).ncrtf;
}

// Table A.2 with the deflection of the strength combination.
bool StrengthDeflectionIsWorse(const ProjectState& s)
{
    const LoadFactors strength = StrengthFactors(s, s, StrengthCombination(s));
    return TryFactors(s, strength, strength).RaisesBuckling();
}

// A cantilever in compression with a buckling length below twice its own.
bool CantileverLengthIsShort(const ProjectState& s)
{
    const bool y = BucklesAboutY(s) && s.ly < 2, z = BucklesAboutZ(s) && s.lz < 2;
    return s.supportcase == SupportCase::cantilever && s.loadmode == 1 && s.ned > 0 &&
           StagesOf(s).axial && (y || z);
}

// The elastic or plastic column by the worst class of all actions.
bool ColumnOfTheSectionIsWorse(const ProjectState& s)
{
    const i16 worst = WorstClass(s);
    const auto one = [worst](ProjectState& copy) {
        copy.classmy = copy.classmytop = copy.classmybot = worst;
        copy.classmz = worst;
    };
    return Try(s, one, ControlledRatios).RaisesBuckling();
}

// alpha_h and alpha_s of Table B.3 with the larger end moment.
bool LargerEndMomentIsWorse(const ProjectState& s)
{
    const auto larger = [](double first, double last) {
        return std::abs(first) > std::abs(last) ? first : last;
    };
    const double y = larger(s.my0, s.myl), z = larger(s.mz0, s.mzl);
    const auto take = [y, z](ProjectState& copy) {
        copy.myendratio = copy.mymid == 0 ? 0 : y / copy.mymid;
        copy.mypeakratio = y == 0 ? 0 : copy.mymid / y;
        copy.mzendratio = copy.mzmid == 0 ? 0 : z / copy.mzmid;
        copy.mzpeakratio = z == 0 ? 0 : copy.mzmid / z;
    };
    return Try(s, take, ControlledRatios).RaisesBuckling();
}

// kzz of Table B.1 for I sections of class 1 and 2.
double PlasticKzz(const ProjectState& s)
{
    const double n = s.ned / s.nbzrd;
    return s.cmz * (1 + std::min(2 * s.lamz - 0.6, 1.4) * n);
}

constexpr NoteRule kStability[] = {
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
                s.ned > 0 && !s.checklist.row(ResultRow::buckling_y).empty() &&
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
         return Interacts(s) && s.method == Method::annex_a && s.openprofile == kTrue &&
                s.ned > 0 && own.ncrtf == kNeverGoverns && s.mydesign != 0 &&
                TorsionRaisesAnnexA(s, own.ncrt);
     },
     "The interaction factors of Annex A leave the torsional critical force of the section out and "
     "come out too low."},
    {"D209",
     [](const ProjectState& s) {
         return Interacts(s) && Is(s, Kind::i_single) && s.method == Method::annex_a && s.ned > 0 &&
                s.mydesign != 0 && TorsionRaisesAnnexA(s, CoupledAboutZ(s));
     },
     "The torsional-flexural critical force couples with buckling about y instead of z and is too "
     "high in the factors of Annex A."},
    {"D217",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == Method::annex_a && s.loadmode == 1 && s.ned > 0 &&
                DeflectionOfOtherLoads(s) && StrengthDeflectionIsWorse(s);
     },
     "The moment factor of Annex A combines the serviceability deflection with the strength moment "
     "and comes out too low."},
    {"D218",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == Method::annex_a && s.ned > 0 && WorstClass(s) > 2 &&
                ((s.mydesign != 0 && s.classmy <= 2) || (s.mzdesign != 0 && s.classmz <= 2)) &&
                ColumnOfTheSectionIsWorse(s);
     },
     "Annex A takes the plastic column for a moment of class 1 or 2 although another action puts "
     "the section into class 3 or 4."},
    {"D221",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == Method::annex_b && s.loadmode == 1 &&
                (EndMomentsDiffer(s.mydesign, s.my0, s.myl, s.mylinear) ||
                 EndMomentsDiffer(s.mzdesign, s.mz0, s.mzl, s.mzlinear)) &&
                LargerEndMomentIsWorse(s);
     },
     "The moment factors of Annex B rest on the smaller end moment; Table B.3 takes the larger and "
     "gives more."},
    {"D222",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == Method::annex_b && s.loadmode != 1 &&
                ((s.mydesign != 0 && s.psiy > 0) || (s.mzdesign != 0 && s.psiz > 0));
     },
     "The moment factors of Annex B are 0.6 for any end moments; Table B.3 gives up to 1.0."},
    {"D223",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == Method::annex_b && s.classmy <= 2 &&
                WorstClass(s) > 2 && ColumnOfTheSectionIsWorse(s);
     },
     "Annex B takes the plastic column by the class of My although another action puts the section "
     "into class 3 or 4."},
    {"D224",
     [](const ProjectState& s) {
         return Interacts(s) && Is(s, Kind::i_single) && s.method == Method::annex_b &&
                s.classmy <= 2 && s.mzdesign != 0 && s.kzz < (1 - 1e-6) * PlasticKzz(s);
     },
     "The factors of Mz, kyz and kzz, are not set anew for this section in class 1 and 2 and are "
     "below those of Table B.1; choose Annex A."},
    {"D226", [](const ProjectState& s) { return Is(s, Kind::angle) && HasMoment(s); },
     "Lateral torsional buckling of angles is not checked."},
    {"D228",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == Method::annex_a && s.ned > 0 && s.ltb != 1 &&
                TorsionRaisesAnnexA(s, OwnTorsionalForces(s).ncrtf);
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
         return shifts && s.classn == 4 && s.ned > 0 &&
                !s.checklist.row(ResultRow::buckling_y).empty();
     },
     "The buckling check has no additional moment from the shift of the centroid in class 4."},
    {"D231", [](const ProjectState& s) { return Is(s, Kind::tee) && s.ned > 0 && s.mydesign != 0; },
     "The moment of the self-weight is not combined with the axial force in the buckling check."},
    {"D236",
     [](const ProjectState& s) {
         return s.ned > 0 && s.mydesign != 0 && LateralControlled(s) && s.xlt < 1 &&
                !(BucklesAboutY(s) && BucklesAboutZ(s));
     },
     "An axis without buckling has no row of 6.3.3, although the axial force and lateral torsional "
     "buckling still act together."},
    {"D241",
     [](const ProjectState& s) {
         const bool y = s.ly > 1 && s.mydesign != 0 && s.cmy < 0.9F;
         const bool z = s.lz > 1 && s.mzdesign != 0 && s.cmz < 0.9F;
         return Interacts(s) && s.method == Method::annex_b && (y || z);
     },
     "The moment factors of Annex B follow the moments where the buckling length is longer than "
     "the "
     "member; Table B.3 has 0.9 for the sway mode."},
    {"D240",
     [](const ProjectState& s) {
         return Interacts(s) && s.ned > 0 && Is(s, Kind::channel, Kind::i_single);
     },
     "Axial force and bending of a section that is not doubly symmetric follow Eq (6.61) and "
     "(6.62); EN 1993-1-1, 6.3.3 (1) does not cover it, and the sum of the ratios stands instead."},
    {"D237", CantileverLengthIsShort,
     "The buckling length factor of the cantilever is below 2.0; a tip that nothing holds buckles "
     "with twice the length. Choose 2.0 for the axes about which the tip is free."},
};

}  // namespace

std::span<const NoteRule> StabilityNoteRules()
{
    return kStability;
}

}  // namespace kestrum
