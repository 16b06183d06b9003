#include "core/annexes.h"
#include "core/load_combination.h"
#include "core/member_choices.h"
#include "core/project_state.h"
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
     }},
    {"D204",
     [](const ProjectState& s) {
         return AutomaticCurve(s) && Is(s, Kind::box) && s.weldopt == 1 && s.b < 30 * s.tf &&
                s.h < 30 * s.tw;
     }},
    {"D205",
     [](const ProjectState& s) {
         constexpr double kCurveC = 0.49;
         return Is(s, Kind::channel) && Traits(s).design.curves == FlexuralCurves::none &&
                s.ned > 0 && !s.checklist.row(ResultRow::buckling_y).empty() &&
                ((s.bcy == 0 && s.alphay < kCurveC) || (s.bcz == 0 && s.alphaz < 0.49f));
     }},
    {"D207", TorsionWouldGovern},
    {"D208",
     [](const ProjectState& s) {
         const TorsionalForces own = OwnTorsionalForces(s);
         return Interacts(s) && s.method == Method::annex_a && s.openprofile == kTrue &&
                s.ned > 0 && own.ncrtf == kNeverGoverns && s.mydesign != 0 &&
                TorsionRaisesAnnexA(s, own.ncrt);
     }},
    {"D209",
     [](const ProjectState& s) {
         return Interacts(s) && Is(s, Kind::i_single) && s.method == Method::annex_a && s.ned > 0 &&
                s.mydesign != 0 && TorsionRaisesAnnexA(s, CoupledAboutZ(s));
     }},
    {"D217",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == Method::annex_a && s.loadmode == 1 && s.ned > 0 &&
                DeflectionOfOtherLoads(s) && StrengthDeflectionIsWorse(s);
     }},
    {"D218",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == Method::annex_a && s.ned > 0 && WorstClass(s) > 2 &&
                ((s.mydesign != 0 && s.classmy <= 2) || (s.mzdesign != 0 && s.classmz <= 2)) &&
                ColumnOfTheSectionIsWorse(s);
     }},
    {"D221",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == Method::annex_b && s.loadmode == 1 &&
                (EndMomentsDiffer(s.mydesign, s.my0, s.myl, s.mylinear) ||
                 EndMomentsDiffer(s.mzdesign, s.mz0, s.mzl, s.mzlinear)) &&
                LargerEndMomentIsWorse(s);
     }},
    {"D222",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == Method::annex_b && s.loadmode != 1 &&
                ((s.mydesign != 0 && s.psiy > 0) || (s.mzdesign != 0 && s.psiz > 0));
     }},
    {"D223",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == Method::annex_b && s.classmy <= 2 &&
                WorstClass(s) > 2 && ColumnOfTheSectionIsWorse(s);
     }},
    {"D224",
     [](const ProjectState& s) {
         return Interacts(s) && Is(s, Kind::i_single) && s.method == Method::annex_b &&
                s.classmy <= 2 && s.mzdesign != 0 && s.kzz < (1 - 1e-6) * PlasticKzz(s);
     }},
    {"D226", [](const ProjectState& s) { return Is(s, Kind::angle) && HasMoment(s); }},
    {"D228",
     [](const ProjectState& s) {
         return Interacts(s) && s.method == Method::annex_a && s.ned > 0 && s.ltb != 1 &&
                TorsionRaisesAnnexA(s, OwnTorsionalForces(s).ncrtf);
     }},
    {"D229",
     [](const ProjectState& s) {
         return Is(s, Kind::flat) && s.ltb == 1 && !(s.ned > 0) && s.mydesign != 0;
     }},
    {"D230",
     [](const ProjectState& s) {
         const bool shifts = Is(s, Kind::channel, Kind::angle, Kind::i_single, Kind::tee);
         return shifts && s.classn == 4 && s.ned > 0 &&
                !s.checklist.row(ResultRow::buckling_y).empty();
     }},
    {"D231",
     [](const ProjectState& s) { return Is(s, Kind::tee) && s.ned > 0 && s.mydesign != 0; }},
    {"D236",
     [](const ProjectState& s) {
         return s.ned > 0 && s.mydesign != 0 && LateralControlled(s) && s.xlt < 1 &&
                !(BucklesAboutY(s) && BucklesAboutZ(s));
     }},
    {"D241",
     [](const ProjectState& s) {
         const bool y = s.ly > 1 && s.mydesign != 0 && s.cmy < 0.9F;
         const bool z = s.lz > 1 && s.mzdesign != 0 && s.cmz < 0.9F;
         return Interacts(s) && s.method == Method::annex_b && (y || z);
     }},
    {"D240",
     [](const ProjectState& s) {
         return Interacts(s) && s.ned > 0 && Is(s, Kind::channel, Kind::i_single);
     }},
    {"D237", CantileverLengthIsShort},
};

}  // namespace

std::span<const NoteRule> StabilityNoteRules()
{
    return kStability;
}

}  // namespace kestrum
