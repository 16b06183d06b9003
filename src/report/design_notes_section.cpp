#include "analysis/load_model.h"
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
    {"D30", FlangeOfShearIsWide,
     "The flange part of the shear buckling resistance counts the whole width of the flange; EN "
     "1993-1-5, 5.4 (1) takes at most 15 eps tf on each side of the web."},
    {"D31", FlangeMomentIsHigh,
     "The moment of the flanges in the shear buckling resistance is above that of the weaker "
     "flange, which EN 1993-1-5, 5.4 (2) takes."},
    {"D32", ShearAreaOfOneFlange,
     "The shear area takes the factor eta, although the web has a flange at one end only; EN "
     "1993-1-1, 6.2.6 (3) takes tw (h - tf/2)."},
    {"D33", UpgradeIsHigh,
     "The plastic axis beside the class 3 web lies in the other flange, and the plastic modulus is "
     "above that of EN 1993-1-1, 6.2.2.4, by up to 3.5 %."},
    {"D34", WebCompressedByMzIsSlender,
     "Where Mz compresses the web of the channel, EN 1993-1-1, Table 5.2 gives it class 3 or worse "
     "and the elastic modulus; the plastic one is used."},
    {"D53",
     [](const ProjectState& s) {
         const bool whole = s.checkflangebuck == kTrue && s.checkwebbuck == kTrue;
         return Is(s, Kind::hollow) && ClassFourActs(s) && !whole;
     },
     "Effective widths of the hollow section are based on the flat between the corners; EN "
     "1993-1-5, 4.4 (2) takes the wider b - 3t."},
    {"D55",
     [](const ProjectState& s) { return Is(s, Kind::angle) && (BendsAboutY(s) || BendsAboutZ(s)); },
     "Stresses about the principal axes are found at mid-thickness of the leg tips; the outermost "
     "corner of a tip can be stressed higher."},
    {"D56",
     [](const ProjectState& s) {
         constexpr i16 kOwnStrength = 26;  // last row of the delivered material list
         return Is(s, Kind::general) && s.fykindex < kOwnStrength;
     },
     "The yield strength is that for thickness up to 40 mm; with thicker parts enter the lower "
     "value of EN 1993-1-1, Table 3.1 as own value."},
    {"D58",
     [](const ProjectState& s) {
         constexpr float kIt = 340e3F;  // mm4
         return HasTable(s.family) && TableOf(s) == Table::upe && s.it == kIt &&
                LateralControlled(s);
     },
     "It of UPE 300 is 34.0 cm4 in the table; other publications and finite elements give 31.5."},
    {"D59", TorsionConstantIsHigh,
     "It of this row is that of the table, which other publications and finite elements do not "
     "support; mostly they give a lower one."},
    {"D60",
     [](const ProjectState& s) {
         return HasTable(s.family) && TableOf(s) == Table::ch && LateralControlled(s);
     },
     "It and Iw of the tapered channel are those of its catalogue; finite elements of the outline "
     "give lower ones."},
    {"D62",
     [](const ProjectState& s) {
         constexpr float kArea = 6593;  // mm2
         return HasTable(s.family) && TableOf(s) == Table::j && s.a == kArea &&
                (s.ned > 0 || BendsAboutZ(s));
     },
     "The figures of J 203x152x52 contradict its mass and outline; about z they are up to 2 % too "
     "high."},
    {"D154",
     [](const ProjectState& s) {
         return (IsIOrChannel(s) || Is(s, Kind::i_single)) && s.ned != 0 && s.mfrd > 0 &&
                WebBucklesInShear(s);
     },
     "The flange part of the shear buckling resistance is hardly reduced for the axial force (EN "
     "1993-1-5, 5.4 (2))."},
    {"D155", WebClassThreeByOneFormula,
     "Class 3 of the web is found with one formula for all stress ratios; under tension with "
     "bending EN 1993-1-1, Table 5.2 gives class 4."},
    {"D157", FlangeClassThreeOfWholeFlange,
     "Class 3 of the flanges under N and Mz is found with the stress ratio of the whole flange; EN "
     "1993-1-5, Table 4.2 gives class 4."},
    {"D159", [](const ProjectState& s) { return IsIOrChannel(s) && SpacingWithoutStiffeners(s); },
     "The flange part of the shear buckling resistance rests on the entered stiffener spacing, "
     "although there are no stiffeners and the supports are further apart."},
    {"D160",
     [](const ProjectState& s) {
         return IsDoublySymmetricI(s) && s.classmz == 4 && BendsAboutZ(s) && s.weffz < s.welz;
     },
     "The effective modulus about z is that of the tension edge; EN 1993-1-5 takes the compressed "
     "edge, which gives a smaller one."},
    {"D161",
     [](const ProjectState& s) {
         return (IsIOrChannel(s) || Is(s, Kind::i_single)) && BendsAboutZ(s) &&
                LargestVy(s) > 0.5 * s.vyrd;
     },
     "The moment resistance about z is reduced for shear by half of what EN 1993-1-1, 6.2.8 (3) "
     "gives."},
    {"D162",
     [](const ProjectState& s) {
         return Is(s, Kind::channel) && s.classmz == 4 && BendsAboutZ(s) &&
                s.checkflangebuck != kTrue;
     },
     "The flanges' local buckling is not taken into account in bending about z."},
    {"D163",
     [](const ProjectState& s) {
         const auto linear = [](ProjectState& copy) { copy.checkconsercontrol = kTrue; };
         return Is(s, Kind::channel) && (PlasticNMy(s) || PlasticNMz(s) || PlasticMyMz(s)) &&
                Try(s, linear, ControlledRatios).RaisesSection();
     },
     "Combined forces are checked with the formulas of doubly symmetric I sections; choose the "
     "conservative control for EN 1993-1-1, 6.2.1 (7)."},
    {"D164",
     [](const ProjectState& s) { return Is(s, Kind::channel) && s.classn == 4 && s.ned > 0; },
     "The shift of the centroid of the effective section in compression is not taken into account "
     "(EN 1993-1-1, 6.2.9.3 (2))."},
    {"D165", WebClassOfClearHeight,
     "The compressed share of the web refers to its clear height; EN 1993-1-1, Table 5.2 takes "
     "the straight part, which gives a worse class."},
    {"D168", TensionOnOneWeb,
     "The class of the webs under tension and My counts the tension against one web; EN "
     "1993-1-1, Table 5.2 gives a worse class."},
    {"D169", OverhangWorseThanItsClass,
     "The flange of the box beyond its webs is neither classed nor reduced for local buckling; as "
     "an outstand it has a worse class than the section."},
    {"D170", FlangesCountTooLittle,
     "The moment resistance beside the axial force counts the flanges of the box with the "
     "thickness of the webs, which is above EN 1993-1-1, 6.2.9.1 (5)."},
    {"D172",
     [](const ProjectState& s) {
         return IsHollowOrBox(s) && s.gammam1 > s.gammam0 && LargestVy(s) != 0 &&
                !StockyInShear(s, s, s.bw, s.tf);
     },
     "The resistance of slender flanges to Vy rests on gammaM0; EN 1993-1-5, 5.2 takes gammaM1."},
    {"D173",
     [](const ProjectState& s) {
         return Is(s, Kind::general) && s.ned > 0 && s.classn > 2 &&
                (PlasticNMy(s) || PlasticNMz(s));
     },
     "The class entered for N is not read where N acts with moments; the plastic interaction is "
     "used by the class of the moment."},
    {"D175",
     [](const ProjectState& s) { return Is(s, Kind::tube) && s.classn > 3 && CompressedOrBent(s); },
     "The tube is of section class 4, and local buckling is not taken into account."},
    {"D176",
     [](const ProjectState& s) {
         return Is(s, Kind::tube) && LargestVz(s) != 0 && LargestVy(s) != 0;
     },
     "Vz and Vy of the tube are controlled one by one and not as their resultant."},
    {"D177", [](const ProjectState& s) { return Is(s, Kind::flat) && s.ned < 0 && PlasticNMy(s); },
     "The tension does not reduce the moment resistance of the flat bar; EN 1993-1-1, 6.2.9.1 (3) "
     "does."},
    {"D178",
     [](const ProjectState& s) {
         const std::vector<DroppedLoad> loads = DroppedNow(s, s);
         return Is(s, Kind::flat) &&
                std::any_of(loads.begin(), loads.end(),
                            [](const DroppedLoad& load) { return load.direction == 0; });
     },
     "Bending and shear across the thickness of the flat bar are not controlled."},
    {"D179",
     [](const ProjectState& s) {
         return (Is(s, Kind::angle) || Is(s, Kind::general)) && HighShear(s);
     },
     "Shear exceeds half the resistance and does not reduce the moment resistance; EN 1993-1-1, "
     "6.2.8 does."},
    {"D180",
     [](const ProjectState& s) {
         return Is(s, Kind::general) && PlasticNMy(s) && s.aweb > 0.5 * s.a;
     },
     "The web is more than half of the area; its share in the moment resistance beside the axial "
     "force is not held at 0.5 as in EN 1993-1-1, 6.2.9.1 (5)."},
    {"D181",
     [](const ProjectState& s) {
         const bool slender = s.classn == 4 || s.h > 15 * s.eps * s.tw;
         return Is(s, Kind::angle) && slender && CompressedOrBent(s);
     },
     "The legs of the angle are slender; its moment resistance is not reduced for local buckling, "
     "and its area by the straight parts of the legs only."},
    {"D183", SlenderWebBends,
     "The effective modulus of the class 4 web rests on a centroid too near to the compressed "
     "edge and may exceed the plastic modulus; EN 1993-1-5, 4.4 gives a lower moment resistance, "
     "for very slender webs less than half."},
    {"D184", BottomOutstandWorse,
     "The outstands of the compressed bottom flange are not classified; EN 1993-1-1, Table 5.2 "
     "gives a worse class."},
    {"D185",
     [](const ProjectState& s) {
         return Is(s, Kind::hat) && s.hsqopt == 0 && s.qsum != 0 && s.flangefactor != 0;
     },
     "The load on the bottom flange is taken to act 60 mm from the web."},
    {"D188", WebElasticLimitIsHigh,
     "The class 3 limit of the web is up to 2 % above that of EN 1993-1-1, Table 5.2, which gives "
     "class 4."},
    {"D189", AxialForceLeftAside,
     "This section is controlled for My and Vz only; axial force, Mz and Vy are not taken into "
     "account."},
    {"D190", TakenAsDoublySymmetric,
     "N with a moment and the flanges in shear are taken as in a doubly symmetric I with mean "
     "flanges; the moment resistance beside N can be lower by up to a quarter. There the "
     "conservative control is safe."},
    {"D191",
     [](const ProjectState& s) {
         return Is(s, Kind::hat) && s.flangefactor > 0 && s.flangefactor < 1;
     },
     "The bottom flange is taken to resist 1.75 times its elastic plate moment, and My,Rd is "
     "lowered by half of the rest only."},
    {"D192", LimitsOfTheTAct,
     "Web and flange of the T are classified with 10, 11 and 15 eps; EN 1993-1-1, Table 5.2 has 9, "
     "10 and 14 eps."},
    {"D38",
     [](const ProjectState& s) {
         return Traits(s).shape.stiffener == Stiffener::flat_bar && s.classmybot > 1 &&
                (s.mymin < 0 || s.ned > 0);
     },
     "The flat bar below the plate counts between two welds; EN 1993-1-1, Table 5.2 counts it from "
     "the weld to the tip."},
    {"D196",
     [](const ProjectState& s) {
         return Is(s, Kind::plate) && s.ltb == 1 && !s.checklist.row(ResultRow::lateral).empty() &&
                s.mydesignf < 0;
     },
     "The critical moment is that of a stiffener tripping about a root that the plate holds in "
     "place."},
    {"D197",
     [](const ProjectState& s) {
         return Traits(s).shape.lower == LowerFlange::one_side && BendsAboutY(s);
     },
     "Bending is taken about y; the section has no symmetry about z and must be held sideways."},
    {"D198",
     [](const ProjectState& s) {
         return Is(s, Kind::i_single, Kind::tee) && s.classn == 4 && s.ned > 0;
     },
     "The shift of the centroid of the effective section in compression is not taken into account "
     "(EN 1993-1-1, 6.2.9.3 (2))."},
    {"D199",
     [](const ProjectState& s) { return HasTwoPlatedFlanges(s) && SpacingWithoutStiffeners(s); },
     "The flange part of the shear buckling resistance rests on the entered stiffener spacing, "
     "although there are no stiffeners and the supports are further apart."},
};

}  // namespace

std::span<const NoteRule> SectionNoteRules()
{
    return kSections;
}

}  // namespace kestrum
