#include "analysis/load_model.h"
#include "core/project_state.h"
#include "design/class_welded.h"
#include "design/local_buckling.h"
#include "design/shear.h"
#include "design/welded_side.h"
#include "report/design_note_facts.h"
#include "report/design_note_trial.h"
#include "report/design_note_welded.h"
#include "report/design_notes.h"
#include "sections/families.h"
#include "sections/family_table.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace kestrum {

namespace {

bool IsIOrChannel(const ProjectState& s)
{
    return IsDoublySymmetricI(s) || Is(s, Kind::channel);
}

// Some action that meets class 4, of the class of each action alone.
bool ClassFourActs(const ProjectState& s)
{
    return (s.ned > 0 && s.classn == 4) || (BendsAboutY(s) && s.classmy == 4) ||
           (BendsAboutZ(s) && s.classmz == 4);
}

bool CompressedOrBent(const ProjectState& s)
{
    return s.ned > 0 || BendsAboutY(s) || BendsAboutZ(s);
}

// The axial force meets a moment in a plastic interaction formula, 6.2.9.1.
bool PlasticNMy(const ProjectState& s)
{
    return s.checkconsercontrol != kTrue && s.ned != 0 && BendsAboutY(s) && s.classmy <= 2;
}

bool PlasticNMz(const ProjectState& s)
{
    return s.checkconsercontrol != kTrue && s.ned != 0 && BendsAboutZ(s) && s.classmz <= 2;
}

bool PlasticMyMz(const ProjectState& s)
{
    return s.checkconsercontrol != kTrue && BendsAboutY(s) && BendsAboutZ(s) && s.classmy <= 2 &&
           s.classmz <= 2;
}

// Channels: Mz may compress a web that then is no longer of class 2.
bool WebCompressedByMzIsSlender(const ProjectState& s)
{
    return Is(s, Kind::channel) && BendsAboutZ(s) && !(s.ned > 0) && s.classmz <= 2 &&
           s.checkelastic != kTrue && 1.0 * s.d / s.tw >= 38 * s.eps;
}

// The flange part of the shear buckling resistance takes the entered spacing of absent stiffeners.
bool SpacingWithoutStiffeners(const ProjectState& s)
{
    return WebBucklesInShear(s) && s.webstiff == 0 && s.mfrd > 0 && LengthInMm(s) > s.webstiffa;
}

// Stresses of a part at its compressed and at its other edge; compression positive.
struct EdgeStresses {
    double compressed, other;
    double Ratio() const { return other / compressed; }
};

EdgeStresses Stresses(const ProjectState& s, double moment, double z, double inertia)
{
    const double bending = std::abs(moment) * 1e6 * z / inertia;
    const double axial = s.ned * 1000 / s.a;
    return {axial + bending, axial - bending};
}

bool WebClassThreeByOneFormula(const ProjectState& s)
{
    if (!IsIOrChannel(s) || !(s.ned < 0)) {
        return false;
    }
    const double eps = s.eps, slenderness = 1.0 * s.d / s.tw;
    const double yielding = -s.ned * 1000 / (1.0 * s.hw * s.tw * s.fyk);
    const double alpha = 0.5 * (1 - yielding);
    for (int k = 0; k <= s.npts; ++k) {
        const double moment = s.mysec[static_cast<std::size_t>(k)];
        const EdgeStresses edge = Stresses(s, moment, s.h / 2.0 - s.tf, s.iy);
        if (moment == 0 || !(edge.compressed > 0) || slenderness <= 41.5 * eps / alpha) {
            continue;
        }
        const double psi = edge.Ratio(), divisor = 0.67 + 0.33 * psi;
        if (psi < -1 && divisor > 0 && slenderness <= 42 * eps / divisor &&
            slenderness > 62 * eps * (1 - psi) * std::sqrt(-psi)) {
            return true;
        }
    }
    return false;
}

bool FlangeClassThreeOfWholeFlange(const ProjectState& s)
{
    if (s.ned == 0) {
        return false;
    }
    if (Is(s, Kind::i_single)) {
        return ClassThreeOfWholeFlange(s, s.btop, s.ctop, s.ttop) ||
               ClassThreeOfWholeFlange(s, s.bbot, s.cbot, s.tbot);
    }
    return IsIOrChannel(s) && ClassThreeOfWholeFlange(s, s.b, s.cflange, s.tf);
}

// The compressed share decides between plastic and elastic resistance: classes 1 and 2 are alike.
bool WebClassOfClearHeight(const ProjectState& s)
{
    if (!IsIOrChannel(s)) {
        return PlasticByClearHeight(s);
    }
    if (!(s.ned > 0) || !BendsAboutY(s)) {
        return false;
    }
    const auto plastic = [&](double height) {
        const double alpha = 0.5 * (1 + std::min(1.0, s.ned * 1000 / (height * s.tw * s.fyk)));
        return 1.0 * s.d / s.tw <= 456 * s.eps / (13 * alpha - 1);
    };
    return plastic(s.hw) != plastic(s.d);
}

bool TensionOnOneWeb(const ProjectState& s)
{
    const bool flange = 1.0 * s.cflange / s.tf < 38 * s.eps;  // of class 2 or better
    if (!IsHollowOrBox(s) || !(s.ned < 0) || !BendsAboutY(s) || !flange) {
        return false;
    }
    const double yielding = -s.ned * 1000 / (1.0 * s.hw * s.tw * s.fyk);
    const auto plastic = [&](double share) {
        return share >= 1 || 1.0 * s.d / s.tw <= 41.5 * s.eps / (0.5 * (1 - share));
    };
    return plastic(yielding) != plastic(yielding / 2);
}

bool OverhangWorseThanItsClass(const ProjectState& s)
{
    if (!Is(s, Kind::box) || s.bo == 0) {
        return false;
    }
    const i16 cls = ClassOutstand(s, s.bo, s.tf);
    const auto worse = [cls](bool acts, i16 used) {
        return acts && (cls > std::max(used, i16{2}) || cls == 4);
    };
    return worse(s.ned > 0, s.classn) || worse(BendsAboutY(s), s.classmy) ||
           worse(BendsAboutZ(s), s.classmz);
}

bool FlangesCountTooLittle(const ProjectState& s)
{
    const auto share = [&](double t) { return std::min((s.a - 2.0 * s.b * t) / s.a, 0.5); };
    return Is(s, Kind::box) && PlasticNMy(s) && share(s.tw) > share(s.tf);
}

bool BottomOutstandWorse(const ProjectState& s)
{
    if (!Is(s, Kind::hat) || !(s.mymin < 0)) {
        return false;
    }
    const Flange flange = BottomFlange(s, s);
    const i16 cls =
        std::max(ClassOutstand(s, flange.left, flange.t), ClassOutstand(s, flange.right, flange.t));
    return cls > 2 && (s.classmybot == kUpgraded || cls > s.classmybot);
}

bool SlenderWebBends(const ProjectState& s)
{
    if (!Is(s, Kind::i_single) || s.checkwebbuck == kTrue) {
        return false;
    }
    return (s.mymax > 0 && s.classmytop == 4 && ClassWebBent(s, TopSide(s, s)) == 4) ||
           (s.mymin < 0 && s.classmybot == 4 && ClassWebBent(s, BottomSide(s, s)) == 4);
}

// The web lies between the class 3 limit of the standard and the one used.
bool BetweenElasticLimits(const ProjectState& s, const WeldedSide& side)
{
    if (!(side.webin > 0) || ClassWebBent(s, side) != 3) {
        return false;
    }
    const double psi = StressRatio(-side.webout / side.webin);
    return psi > -1 && 1.0 * s.d / s.tw > 42 * s.eps / (0.67 + 0.33 * psi);
}

bool WebElasticLimitIsHigh(const ProjectState& s)
{
    return HasTwoPlatedFlanges(s) && ((s.mymax > 0 && BetweenElasticLimits(s, TopSide(s, s))) ||
                                      (s.mymin < 0 && BetweenElasticLimits(s, BottomSide(s, s))));
}

// The axial end force stands in its box and is not taken; rows of loads are emptied.
bool AxialForceLeftAside(const ProjectState& s)
{
    return !Traits(s).carries.loads.n && s.loadmode == 0 && s.ne != 0;
}

// The limits 11 and 15 eps let pass what 10 and 14 eps do not.
bool PassesByTheT(const ProjectState& s, double slenderness)
{
    const double eps = s.eps;
    return (slenderness > 10 * eps && slenderness <= 11 * eps) ||
           (slenderness > 14 * eps && slenderness <= 15 * eps);
}

bool LimitsOfTheTAct(const ProjectState& s)
{
    const bool flange = PassesByTheT(s, 1.0 * s.cflange / s.tf);
    const bool web = PassesByTheT(s, 1.0 * s.hw / s.tw);
    return Is(s, Kind::tee) && ((s.mymax > 0 && flange) || (s.mymin < 0 && web) ||
                                (s.ned > 0 && s.classn == 3 && (flange || web)));
}

bool HighShear(const ProjectState& s)
{
    return (BendsAboutY(s) && LargestVz(s) > 0.5 * s.vzrd) ||
           (BendsAboutZ(s) && LargestVy(s) > 0.5 * s.vyrd);
}

// El Darwish and Johnston, for parallel flanges: 1 % below the table's It, and lateral torsional
// buckling is checked.
bool TorsionConstantIsHigh(const ProjectState& s)
{
    if (!HasTable(s.family) || !LateralControlled(s)) {
        return false;
    }
    const Table table = TableOf(s);
    if (table != Table::ub && table != Table::uc && table != Table::ubp) {
        return false;
    }
    const double h = s.h, b = s.b, tw = s.tw, tf = s.tf, r = s.r;
    const double alpha = -0.042 + 0.2204 * tw / tf + 0.1355 * r / tf - 0.0865 * tw * r / (tf * tf) -
                         0.0725 * tw * tw / (tf * tf);
    const double circle = (std::pow(tf + r, 2) + (r + tw / 4) * tw) / (2 * r + tf);
    const double it = 2.0 / 3 * b * std::pow(tf, 3) + (h - 2 * tf) * std::pow(tw, 3) / 3 +
                      2 * alpha * std::pow(circle, 4) - 0.420 * std::pow(tf, 4);
    return s.it > 1.01 * it;
}

constexpr NoteRule kSections[] = {
    {"D30", FlangeOfShearIsWide},
    {"D31", FlangeMomentIsHigh},
    {"D32", ShearAreaOfOneFlange},
    {"D33", UpgradeIsHigh},
    {"D34", WebCompressedByMzIsSlender},
    {"D53",
     [](const ProjectState& s) {
         const bool whole = s.checkflangebuck == kTrue && s.checkwebbuck == kTrue;
         return Is(s, Kind::hollow) && ClassFourActs(s) && !whole;
     }},
    {"D55",
     [](const ProjectState& s) {
         return Is(s, Kind::angle) && (BendsAboutY(s) || BendsAboutZ(s));
     }},
    {"D56",
     [](const ProjectState& s) {
         constexpr i16 kOwnStrength = 26;  // last row of the delivered material list
         return Is(s, Kind::general) && s.fykindex < kOwnStrength;
     }},
    {"D58",
     [](const ProjectState& s) {
         constexpr float kIt = 340e3F;  // mm4
         return HasTable(s.family) && TableOf(s) == Table::upe && s.it == kIt &&
                LateralControlled(s);
     }},
    {"D59", TorsionConstantIsHigh},
    {"D60",
     [](const ProjectState& s) {
         return HasTable(s.family) && TableOf(s) == Table::ch && LateralControlled(s);
     }},
    {"D62",
     [](const ProjectState& s) {
         constexpr float kArea = 6593;  // mm2
         return HasTable(s.family) && TableOf(s) == Table::j && s.a == kArea &&
                (s.ned > 0 || BendsAboutZ(s));
     }},
    {"D154",
     [](const ProjectState& s) {
         return (IsIOrChannel(s) || Is(s, Kind::i_single)) && s.ned != 0 && s.mfrd > 0 &&
                WebBucklesInShear(s);
     }},
    {"D155", WebClassThreeByOneFormula},
    {"D157", FlangeClassThreeOfWholeFlange},
    {"D159", [](const ProjectState& s) { return IsIOrChannel(s) && SpacingWithoutStiffeners(s); }},
    {"D160",
     [](const ProjectState& s) {
         return IsDoublySymmetricI(s) && s.classmz == 4 && BendsAboutZ(s) && s.weffz < s.welz;
     }},
    {"D161",
     [](const ProjectState& s) {
         return (IsIOrChannel(s) || Is(s, Kind::i_single)) && BendsAboutZ(s) &&
                LargestVy(s) > 0.5 * s.vyrd;
     }},
    {"D162",
     [](const ProjectState& s) {
         return Is(s, Kind::channel) && s.classmz == 4 && BendsAboutZ(s) &&
                s.checkflangebuck != kTrue;
     }},
    {"D163",
     [](const ProjectState& s) {
         const auto linear = [](ProjectState& copy) { copy.checkconsercontrol = kTrue; };
         return Is(s, Kind::channel) && (PlasticNMy(s) || PlasticNMz(s) || PlasticMyMz(s)) &&
                Try(s, linear, ControlledRatios).RaisesSection();
     }},
    {"D164",
     [](const ProjectState& s) { return Is(s, Kind::channel) && s.classn == 4 && s.ned > 0; }},
    {"D165", WebClassOfClearHeight},
    {"D168", TensionOnOneWeb},
    {"D169", OverhangWorseThanItsClass},
    {"D170", FlangesCountTooLittle},
    {"D172",
     [](const ProjectState& s) {
         return IsHollowOrBox(s) && s.gammam1 > s.gammam0 && LargestVy(s) != 0 &&
                !StockyInShear(s, s, s.bw, s.tf);
     }},
    {"D173",
     [](const ProjectState& s) {
         return Is(s, Kind::general) && s.ned > 0 && s.classn > 2 &&
                (PlasticNMy(s) || PlasticNMz(s));
     }},
    {"D175",
     [](const ProjectState& s) {
         return Is(s, Kind::tube) && s.classn > 3 && CompressedOrBent(s);
     }},
    {"D176",
     [](const ProjectState& s) {
         return Is(s, Kind::tube) && LargestVz(s) != 0 && LargestVy(s) != 0;
     }},
    {"D177", [](const ProjectState& s) { return Is(s, Kind::flat) && s.ned < 0 && PlasticNMy(s); }},
    {"D178",
     [](const ProjectState& s) {
         const std::vector<DroppedLoad> loads = DroppedNow(s, s.dropped);
         return Is(s, Kind::flat) &&
                std::any_of(loads.begin(), loads.end(),
                            [](const DroppedLoad& load) { return load.direction == 0; });
     }},
    {"D179",
     [](const ProjectState& s) {
         return (Is(s, Kind::angle) || Is(s, Kind::general)) && HighShear(s);
     }},
    {"D180",
     [](const ProjectState& s) {
         return Is(s, Kind::general) && PlasticNMy(s) && s.aweb > 0.5 * s.a;
     }},
    {"D181",
     [](const ProjectState& s) {
         const bool slender = s.classn == 4 || s.h > 15 * s.eps * s.tw;
         return Is(s, Kind::angle) && slender && CompressedOrBent(s);
     }},
    {"D183", SlenderWebBends},
    {"D184", BottomOutstandWorse},
    {"D185",
     [](const ProjectState& s) {
         return Is(s, Kind::hat) && s.hsqopt == 0 && s.qsum != 0 && s.flangefactor != 0;
     }},
    {"D188", WebElasticLimitIsHigh},
    {"D189", AxialForceLeftAside},
    {"D190", TakenAsDoublySymmetric},
    {"D191",
     [](const ProjectState& s) {
         return Is(s, Kind::hat) && s.flangefactor > 0 && s.flangefactor < 1;
     }},
    {"D192", LimitsOfTheTAct},
    {"D38",
     [](const ProjectState& s) {
         return Traits(s).shape.stiffener == Stiffener::flat_bar && s.classmybot > 1 &&
                (s.mymin < 0 || s.ned > 0);
     }},
    {"D196",
     [](const ProjectState& s) {
         return Is(s, Kind::plate) && s.ltb == 1 && !s.checklist.row(ResultRow::lateral).empty() &&
                s.mydesignf < 0;
     }},
    {"D197",
     [](const ProjectState& s) {
         return Traits(s).shape.lower == LowerFlange::one_side && BendsAboutY(s);
     }},
    {"D198",
     [](const ProjectState& s) {
         return Is(s, Kind::i_single, Kind::tee) && s.classn == 4 && s.ned > 0;
     }},
    {"D199",
     [](const ProjectState& s) { return HasTwoPlatedFlanges(s) && SpacingWithoutStiffeners(s); }},
};

}  // namespace

std::span<const NoteRule> SectionNoteRules()
{
    return kSections;
}

}  // namespace kestrum
