#include "design/resistance_welded.h"

#include "core/arithmetic_trap.h"
#include "design/i_section.h"
#include "design/resistance.h"
#include "design/section_control.h"
#include "design/shear.h"
#include "design/welded_side.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

// Resistance in kN of an area of buckling webs in mm2, EN 1993-1-5, 5.2.
double BucklingShear(const Inputs& in, double area)
{
    return area * ShearStrength(in) / in.gammam1 / 1000;
}

double WebArea(const Inputs& in, const SectionRecord& section)
{
    return Webs(in) * 1.0 * section.hw * section.tw;
}

// Class 4 takes the sign's own effective modulus, class 3 the weaker fibre for either sign.
double ModulusOfSign(const Inputs& in, const SectionRecord& section, i16 cls, bool top)
{
    if (cls == kUpgraded) {
        return top ? section.wplplus : section.wplminus;
    }
    const float weff = top ? std::min(section.weffytop1, section.weffytop2)
                           : std::min(section.weffybot1, section.weffybot2);
    return ModulusByClass(in, cls, section.wply, section.wely, weff);
}

// The flange with the smaller b t^2 resists the tension field, EN 1993-1-5, 5.4 (1). A plate with a
// flat bar has no second flange.
//
// Deviation D199: the entered stiffener spacing counts also where no stiffeners are; the standard
// then has the distance of the supports. The same in the single symmetric I.
double WeakerFlangeShear(const Inputs& in, const SectionRecord& section,
                         const Resistances& resistances, const SectionChecks& checks)
{
    const double tw = 1.0 * Webs(in) * section.tw;
    const double top = 1.0 * section.btop * section.ttop * section.ttop;
    const double bottom = 1.0 * section.bbot * section.tbot * section.tbot;
    if (bottom == 0) {
        return 0;
    }
    return top < bottom
               ? FlangeShear(in, resistances, checks, section.hw, tw, section.btop, section.ttop)
               : FlangeShear(in, resistances, checks, section.hw, tw, section.bbot, section.tbot);
}

// My against the resistance of its sign.
void ControlMoment(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                   SectionChecks& checks, double x, double factor)
{
    checks.myrdv = ReducedMoment(in, section, resistances, checks,
                                 checks.mysigned > 0 ? section.classmytop : section.classmybot) *
                   factor;
    if (Check* const check = TakeCheck(in, checks, CheckId::my, checks.myed / checks.myrdv)) {
        const bool reduced = checks.vzed > 0.5 * resistances.vzrd;
        FillAtSection(*check, reduced ? CheckForm::my_shear : CheckForm::my,
                      {checks.myed, checks.myrdv}, x);
    }
}

}  // namespace

void StoreSigns(const Inputs& in, SectionRecord& section, Resistances& resistances, double factor)
{
    section.wytop = F32(ModulusOfSign(in, section, section.classmytop, true));
    section.wybot = F32(ModulusOfSign(in, section, section.classmybot, false));
    resistances.wyused = std::min(section.wytop, section.wybot);
    resistances.myrd = MomentResistance(in, resistances.wyused) * factor;
    const double change = factor * in.gammam0 / in.gammam1;
    resistances.mytoprd = MomentResistance(in, section.wytop) * change;
    resistances.mybotrd = MomentResistance(in, section.wybot) * change;
    resistances.myrdm1 = std::min(resistances.mytoprd, resistances.mybotrd);
}

// EN 1993-1-1, 6.2.3 to 6.2.5.
//   in   section record and classes; fyk [MPa]; gammam0, gammam1 [-]
//   out  nplrd, ncrd, nrdm1 [kN]; mplyrd .. mzrd, mzrdm1 and those of StoreSigns [kNm]
void StoreResistances(const Inputs& in, SectionRecord& section, Resistances& resistances)
{
    section.classmy = std::max(section.classmytop, section.classmybot);
    section.classflange = section.classweb = section.classn;
    SetMomentResistances(in, section, resistances);
    resistances.nplrd = AxialResistance(in, section.a);
    resistances.ncrd = AxialResistance(in, section.classn == 4 ? section.aeff : section.a);
    resistances.nrdm1 = resistances.ncrd * in.gammam0 / in.gammam1;
    resistances.wzused =
        ModulusByClass(in, section.classmz, section.wplz, section.welz, section.weffz);
    resistances.mzrd = MomentResistance(in, resistances.wzused);
    resistances.mzrdm1 = resistances.mzrd * in.gammam0 / in.gammam1;
    StoreSigns(in, section, resistances, 1.0);
}

// Deviation D31: of unlike flanges the standard takes the weaker one on the arm between both, EN
// 1993-1-5, 5.4 (2), which is less.
double ElasticFlangeMoment(const Inputs& in, const SectionRecord& section,
                           const Resistances& resistances)
{
    return resistances.melyrd -
           MomentResistance(in, Webs(in) * 1.0 * section.hw * section.hw * section.tw / 6);
}

double MeanFlangeMomentZ(const Inputs& in, const SectionRecord& section)
{
    return MomentResistance(in, 1.0 * section.b * section.b * section.tf / 2);
}

// EN 1993-1-1, 6.2.6 (2) and (3), eta of EN 1993-1-5, 5.1 (2); EN 1993-1-5, 5.2 and 5.3 where the
// webs buckle. About y the ratio, not the half-resistance test, counts the parabola of the shear
// stress in a flange, as in the double symmetric sections.
//   out  avz, avy [mm2]; vzrd, vplzrd, vyrd, vcyrd [kN]
//
// Deviation D32: eta also counts for webs with a flange at one end only (26, 51), where the
// standard has tw (h - tf/2), 6.2.6 (3).
void StoreShear(const Inputs& in, const SectionRecord& section, Resistances& resistances,
                double avy)
{
    if (StockyInShear(in, section, section.hw, section.tw)) {
        resistances.avz = in.neta * WebArea(in, section);
        resistances.vzrd = ShearResistance(in, resistances.avz);
    } else {
        resistances.avz = WebArea(in, section);
        const double chi = ChiWeb(in, WebSlenderness(section, section.hw, section.tw));
        resistances.vzrd = BucklingShear(in, chi * resistances.avz);
    }
    resistances.vplzrd = ShearResistance(in, resistances.avz);
    resistances.avy = avy;
    resistances.vyrd = ShearResistance(in, resistances.avy);
    resistances.vcyrd = resistances.vyrd / 1.5;
    resistances.vplyrd = 0;  // used by hollow sections only
}

// EN 1993-1-1, 6.2.8 (5), Eq (6.30), held at the resistance of the sign without shear.
double ReducedMoment(const Inputs& in, const SectionRecord& section, const Resistances& resistances,
                     const SectionChecks& checks, i16 cls)
{
    const bool top = checks.mysigned > 0;
    const double strip =
        WebArea(in, section) * section.hw * ShearReduction(checks.vzed, resistances.vzrd);  // mm3
    const bool plastic = cls == kUpgraded || (cls <= 2 && in.checkelastic != kTrue);
    const double reduced = MomentResistance(in, ModulusOfSign(in, section, cls, top)) -
                           MomentResistance(in, strip / (plastic ? 4 : 6));
    return std::min(reduced, MomentResistance(in, top ? section.wytop : section.wybot));
}

void CalcShearWelded(const Inputs& in, const SectionRecord& section, Resistances& resistances,
                     const Forces&, SectionChecks& checks)
{
    resistances.vbrd = resistances.vzrd;
    checks.shearnote = ")";
    if (!StockyInShear(in, section, section.hw, section.tw)) {
        checks.shearnote = " Support stiffener recommended)";
        resistances.avz = WebArea(in, section);
        const double chi =
            ChiWebEndPost(in, WebSlendernessStiffened(in, section, section.hw, section.tw));
        const double web = BucklingShear(in, chi * resistances.avz);
        resistances.vbrd = std::min(web + WeakerFlangeShear(in, section, resistances, checks),
                                    BucklingShear(in, in.neta * resistances.avz));
    }
    if (in.checkwebbuck == kTrue) {
        resistances.vbrd = resistances.vplzrd;
    }
}

// Deviation D189: N, Mz and Vy are not controlled; the standard sums all forces, 6.2.1.
void ControlBending(const Inputs& in, const SectionRecord& section, Resistances& resistances,
                    const Forces& forces, SectionChecks& checks, double factor)
{
    ClearSectionRows(checks);
    checks.mzed = 0;
    checks.vyed = 0;
    for (int k = 0; k <= forces.npts; ++k) {
        const std::size_t index = CheckedIndex(k, forces.xi.size());
        checks.mysigned = forces.mysec[index];
        checks.myed = std::abs(checks.mysigned);
        checks.vzed = std::abs(forces.vzsec[index]);
        if (checks.myed != 0) {
            ControlMoment(in, section, resistances, checks, forces.xi[index], factor);
        }
        CalcShearWelded(in, section, resistances, forces, checks);
        ControlShear(in, resistances, forces, checks, k);
    }
    CloseSectionRows(checks);
}

}  // namespace kestrum
