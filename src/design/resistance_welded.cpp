#include "design/resistance_welded.h"

#include "core/arithmetic_trap.h"
#include "design/p01bas_rolled_i.h"
#include "design/resistance.h"
#include "design/section_control.h"
#include "design/shear.h"
#include "design/welded_side.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr i16 kUpgraded = 23;  // class 3 web, class 1 or 2 flange, 6.2.2.4

// Resistance in kN of an area of buckling webs in mm2, EN 1993-1-5, 5.2.
double BucklingShear(const ProjectState& s, double area)
{
    return area * ShearStrength(s) / s.gammam1 / 1000;
}

double WebArea(const ProjectState& s)
{
    return Webs(s) * 1.0 * s.hw * s.tw;
}

// Class 4 takes the sign's own effective modulus, class 3 the weaker fibre for either sign.
double ModulusOfSign(const ProjectState& s, i16 cls, bool top)
{
    if (cls == kUpgraded) {
        return top ? s.wplplus : s.wplminus;
    }
    const float weff =
        top ? std::min(s.weffytop1, s.weffytop2) : std::min(s.weffybot1, s.weffybot2);
    return ModulusByClass(s, cls, s.wply, s.wely, weff);
}

// The flange with the smaller b t^2 resists the tension field, EN 1993-1-5, 5.4 (1). A plate with a
// flat bar has no second flange.
//
// Deviation D199: the entered stiffener spacing counts also where no stiffeners are; the standard
// then has the distance of the supports. The same in the single symmetric I.
double WeakerFlangeShear(const ProjectState& s)
{
    const double tw = 1.0 * Webs(s) * s.tw;
    const double top = 1.0 * s.btop * s.ttop * s.ttop;
    const double bottom = 1.0 * s.bbot * s.tbot * s.tbot;
    if (bottom == 0) {
        return 0;
    }
    return top < bottom ? FlangeShear(s, s.hw, tw, s.btop, s.ttop)
                        : FlangeShear(s, s.hw, tw, s.bbot, s.tbot);
}

// My against the resistance of its sign.
void ControlMoment(ProjectState& s, double x, double factor)
{
    s.myrdv = ReducedMoment(s, s.mysigned > 0 ? s.classmytop : s.classmybot) * factor;
    const double ir = s.myed / s.myrdv;
    if (!(ir > s.irrow1)) {
        return;
    }
    const bool reduced = s.vzed > 0.5 * s.vzrd;
    ResultRow& row = TakeRow(s, 1, ir);
    row.label[0] = reduced ? Literal("IR = My,Ed/MV,y,Rd = ") : Literal("IR = My,Ed/My,Rd = ");
    row.calculation[0] = "{F}/{F} = ";
    row.number[0] = s.myed;
    row.number[1] = s.myrdv;
    row.limit[0] = reduced ? Literal(" ({r}L; Ch 6.2.8)") : Literal(" ({r}L; Ch 6.2.5)");
    row.place[0] = x;
}

}  // namespace

void StoreSigns(ProjectState& s, double factor)
{
    s.wytop = F32(ModulusOfSign(s, s.classmytop, true));
    s.wybot = F32(ModulusOfSign(s, s.classmybot, false));
    s.wyused = std::min(s.wytop, s.wybot);
    s.myrd = MomentResistance(s, s.wyused) * factor;
    const double change = factor * s.gammam0 / s.gammam1;
    s.mytoprd = MomentResistance(s, s.wytop) * change;
    s.mybotrd = MomentResistance(s, s.wybot) * change;
    s.myrdm1 = std::min(s.mytoprd, s.mybotrd);
}

// EN 1993-1-1, 6.2.3 to 6.2.5.
//   in   section record and classes; fyk [MPa]; gammam0, gammam1 [-]
//   out  nplrd, ncrd, nrdm1 [kN]; mplyrd .. mzrd, mzrdm1 and those of StoreSigns [kNm]
void StoreResistances(ProjectState& s)
{
    s.classmy = std::max(s.classmytop, s.classmybot);
    s.classflange = s.classweb = s.classn;
    s.mplyrd = MomentResistance(s, s.wply);
    s.melyrd = MomentResistance(s, s.wely);
    s.meffyrd = MomentResistance(s, s.weffy);
    s.mplzrd = MomentResistance(s, s.wplz);
    s.melzrd = MomentResistance(s, s.welz);
    s.meffzrd = MomentResistance(s, s.weffz);
    s.nplrd = AxialResistance(s, s.a);
    s.ncrd = AxialResistance(s, s.classn == 4 ? s.aeff : s.a);
    s.nrdm1 = s.ncrd * s.gammam0 / s.gammam1;
    s.wzused = ModulusByClass(s, s.classmz, s.wplz, s.welz, s.weffz);
    s.mzrd = MomentResistance(s, s.wzused);
    s.mzrdm1 = s.mzrd * s.gammam0 / s.gammam1;
    StoreSigns(s, 1.0);
}

// Deviation D31: of unlike flanges the standard takes the weaker one on the arm between both, EN
// 1993-1-5, 5.4 (2), which is less.
double ElasticFlangeMoment(const ProjectState& s)
{
    return s.melyrd - MomentResistance(s, Webs(s) * 1.0 * s.hw * s.hw * s.tw / 6);
}

double MeanFlangeMomentZ(const ProjectState& s)
{
    return MomentResistance(s, 1.0 * s.b * s.b * s.tf / 2);
}

// EN 1993-1-1, 6.2.6 (2) and (3), eta of EN 1993-1-5, 5.1 (2); EN 1993-1-5, 5.2 and 5.3 where the
// webs buckle. About y the ratio, not the half-resistance test, counts the parabola of the shear
// stress in a flange, as in the double symmetric sections.
//   out  avz, avy [mm2]; vzrd, vplzrd, vyrd, vcyrd [kN]
//
// Deviation D32: eta also counts for webs with a flange at one end only (26, 51), where the
// standard has tw (h - tf/2), 6.2.6 (3).
void StoreShear(ProjectState& s, double avy)
{
    if (StockyInShear(s, s.hw, s.tw)) {
        s.avz = s.neta * WebArea(s);
        s.vzrd = ShearResistance(s, s.avz);
    } else {
        s.avz = WebArea(s);
        const double chi = ChiWeb(s, WebSlenderness(s, s.hw, s.tw));
        s.vzrd = BucklingShear(s, chi * s.avz);
    }
    s.vplzrd = ShearResistance(s, s.avz);
    s.avy = avy;
    s.vyrd = ShearResistance(s, s.avy);
    s.vcyrd = s.vyrd / 1.5;
    s.vplyrd = 0;  // used by hollow sections only
}

// EN 1993-1-1, 6.2.8 (5), Eq (6.30), held at the resistance of the sign without shear.
double ReducedMoment(const ProjectState& s, i16 cls)
{
    const bool top = s.mysigned > 0;
    const double strip = WebArea(s) * s.hw * ShearReduction(s.vzed, s.vzrd);  // mm3
    const bool plastic = cls == kUpgraded || (cls <= 2 && s.checkelastic != kTrue);
    const double reduced = MomentResistance(s, ModulusOfSign(s, cls, top)) -
                           MomentResistance(s, strip / (plastic ? 4 : 6));
    return std::min(reduced, MomentResistance(s, top ? s.wytop : s.wybot));
}

void CalcShearWelded(ProjectState& s)
{
    s.vbrd = s.vzrd;
    s.shearnote = ")";
    if (!StockyInShear(s, s.hw, s.tw)) {
        s.shearnote = " Support stiffener recommended)";
        s.avz = WebArea(s);
        const double chi = ChiWebEndPost(s, WebSlendernessStiffened(s, s.hw, s.tw));
        const double web = BucklingShear(s, chi * s.avz);
        s.vbrd = std::min(web + WeakerFlangeShear(s), BucklingShear(s, s.neta * s.avz));
    }
    if (s.checkwebbuck == kTrue) {
        s.vbrd = s.vplzrd;
    }
}

// Deviation D189: N, Mz and Vy are not controlled; the standard sums all forces, 6.2.1.
void ControlBending(ProjectState& s, double factor)
{
    ClearSectionRows(s);
    s.mzed = 0;
    s.vyed = 0;
    for (int k = 0; k <= s.npts; ++k) {
        const std::size_t index = CheckedIndex(k, s.xi.size());
        s.mysigned = s.mysec[index];
        s.myed = std::abs(s.mysigned);
        s.vzed = std::abs(s.vzsec[index]);
        if (s.myed != 0) {
            ControlMoment(s, s.xi[index], factor);
        }
        CalcShearWelded(s);
        ControlShear(s, k);
    }
    CloseSectionRows(s);
}

}  // namespace kestrum
