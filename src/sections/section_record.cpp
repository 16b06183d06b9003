#include "sections/section_record.h"

#include "core/arithmetic_trap.h"

namespace kestrum {

void ClearSection(SectionRecord& section)
{
    section.h = section.b = section.tw = section.tf = section.r = section.r1 = section.r2 = 0;
    section.hw = section.d = section.cflange = section.bw = section.rin = section.bo = 0;
    section.ecg = section.ys = section.ey = section.ez = section.tmax = 0;
    section.a = section.iy = section.iz = section.it = section.iw = 0;
    section.wely = section.welz = section.wply = section.wplz = 0;
    section.aeff = section.weffy = section.weffz = 0;
    section.weight = section.surface = section.aflange = section.aweb = 0;
    section.alfa = section.iu = section.iv = 0;
    section.u1 = section.u2 = section.v1 = section.v2 = section.v3 = section.cu = section.cb =
        section.ch = 0;
    section.wy1 = section.wy2 = section.wz1 = section.wz2 = 0;
    section.wu.fill(0);
    section.wv.fill(0);
    section.btop = section.ttop = section.bbot = section.tbot = 0;
    section.ctop = section.cbot = section.ctopin = section.cbotin = section.ctopout =
        section.cbotout = 0;
    section.zcog = 0;
    section.zpl = 0;
    section.wyeltop = section.wyelbot = 0;
    section.weffytop1 = section.weffytop2 = section.weffybot1 = section.weffybot2 = 0;
    section.wytop = section.wybot = 0;
    section.betaf = section.zshear = section.zjtop = section.zjbot = section.psiftop =
        section.psifbot = 0;
    section.flangefactor = section.wplplus = section.wplminus = 0;
}

void SetThickness(SectionRecord& section)
{
    section.tmax = section.tf > section.tw ? section.tf : section.tw;
}

void SetPartAreas(SectionRecord& section)
{
    section.aflange = F32(2.0 * section.b * section.tf);
    section.aweb = F32(1.0 * section.hw * section.tw);
}

void SetWeight(const Inputs& in, SectionRecord& section)
{
    constexpr double kSquareMetre = 1e-6;  // mm2 to m2
    section.weight = F32(kSquareMetre * in.density * section.a);
}

void SetSymmetricModuli(SectionRecord& section)
{
    section.wely = F32(section.iy / (section.h / 2.0));
    section.welz = F32(section.iz / (section.b / 2.0));
}

}  // namespace kestrum
