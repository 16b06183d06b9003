#include "sections/section_record.h"

#include "core/arithmetic_trap.h"

namespace kestrum {

void ClearSection(ProjectState& s)
{
    s.h = s.b = s.tw = s.tf = s.r = s.r1 = s.r2 = 0;
    s.hw = s.d = s.cflange = s.bw = s.rin = s.bo = 0;
    s.ecg = s.ys = s.ey = s.ez = s.tmax = 0;
    s.a = s.iy = s.iz = s.it = s.iw = 0;
    s.wely = s.welz = s.wply = s.wplz = 0;
    s.aeff = s.weffy = s.weffz = 0;
    s.weight = s.surface = s.aflange = s.aweb = 0;
    s.alfa = s.iu = s.iv = 0;
    s.u1 = s.u2 = s.v1 = s.v2 = s.v3 = s.cu = s.cb = s.ch = 0;
    s.wy1 = s.wy2 = s.wz1 = s.wz2 = 0;
    s.wu.fill(0);
    s.wv.fill(0);
    s.btop = s.ttop = s.bbot = s.tbot = 0;
    s.ctop = s.cbot = s.ctopin = s.cbotin = s.ctopout = s.cbotout = 0;
    s.zcog = 0;
    s.zpl = 0;
    s.wyeltop = s.wyelbot = 0;
    s.weffytop1 = s.weffytop2 = s.weffybot1 = s.weffybot2 = 0;
    s.wytop = s.wybot = 0;
    s.betaf = s.zshear = s.zjtop = s.zjbot = s.psiftop = s.psifbot = 0;
    s.flangefactor = s.wplplus = s.wplminus = 0;
}

void SetThickness(ProjectState& s)
{
    s.tmax = s.tf > s.tw ? s.tf : s.tw;
}

void SetPartAreas(ProjectState& s)
{
    s.aflange = F32(2.0 * s.b * s.tf);
    s.aweb = F32(1.0 * s.hw * s.tw);
}

void SetWeight(ProjectState& s)
{
    constexpr double kSquareMetre = 1e-6;  // mm2 to m2
    s.weight = F32(kSquareMetre * s.density * s.a);
}

void SetSymmetricModuli(ProjectState& s)
{
    s.wely = F32(s.iy / (s.h / 2.0));
    s.welz = F32(s.iz / (s.b / 2.0));
}

}  // namespace kestrum
