#include "sections/simple.h"

#include "core/arithmetic_trap.h"
#include "sections/section_record.h"

#include <cmath>
#include <numbers>

namespace kestrum {

namespace {

using std::numbers::pi;

// Sections without effective widths.
void SetGross(SectionRecord& section)
{
    section.aeff = section.a;
    section.weffy = section.wely;
    section.weffz = section.welz;
}

}  // namespace

// Flat bar on edge.
//   in   p28 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesFlatBar(const Library&, const Inputs& in, SectionRecord& section)
{
    ClearSection(section);
    section.h = in.p28.isth;
    section.tw = in.p28.isttw;
    section.b = section.tw;
    section.hw = section.h;
    section.d = section.h;

    const double h = section.h, t = section.tw;
    section.a = F32(t * h);
    section.iy = F32(std::pow(h, 3) * t / 12);
    section.iz = F32(std::pow(t, 3) * h / 12);
    section.it = F32(std::pow(t, 3) * h / 3);
    section.wely = F32(section.iy / (h / 2));
    section.welz = F32(section.iz / (t / 2));
    section.wply = F32(h * h * t / 4);
    section.wplz = F32(t * t * h / 4);
    section.surface = F32((2 * t + 2 * h) / 1000);
    SetGross(section);
    SetThickness(section);
    SetWeight(in, section);
}

// Circular tube. Outer diameter as height, width and d, inner diameter as hw and bw.
//   in   p31 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesTube(const Library&, const Inputs& in, SectionRecord& section)
{
    ClearSection(section);
    section.d = in.p31.istd;
    section.tw = in.p31.isttw;
    section.h = section.b = section.d;
    section.tf = section.tw;

    const double d = section.d, t = section.tw;
    const double di = d - 2 * t;
    section.hw = section.bw = F32(di);
    section.a = F32(pi / 4 * (d * d - di * di));
    section.iy = section.iz = F32(pi / 64 * (std::pow(d, 4) - std::pow(di, 4)));
    section.wely = section.welz = F32(section.iy / (d / 2));
    section.wply = section.wplz = F32((std::pow(d, 3) - std::pow(di, 3)) / 6);
    section.it = F32(((d - t) / 2 * ((d - t) / 2) + t * t / 4) * (d - t) * pi * t);
    section.surface = F32(2 * pi * d / 2 / 1000);
    SetGross(section);
    SetThickness(section);
    SetWeight(in, section);
}

// General profile: the properties are entered. Height and width are those of the figure; the web is
// as thick as its area asks for.
//   in   p41 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], classes as chosen, weight [kg/m]
//
// Deviation D56: tmax is 40 mm, so that a listed grade always has its strength up to 40 mm;
// EN 1993-1-1, Table 3.1 lowers it for thicker parts.
void PropertiesGeneral(const Library&, const Inputs& in, SectionRecord& section)
{
    ClearSection(section);
    section.a = in.p41.istax;
    section.aflange = in.p41.istay;
    section.aweb = in.p41.istaz;
    section.it = in.p41.istix;
    section.iy = in.p41.istiy;
    section.iz = in.p41.istiz;
    section.iw = in.p41.istiw;
    section.wely = in.p41.istwely;
    section.welz = in.p41.istwelz;
    section.wply = in.p41.istwply;
    section.wplz = in.p41.istwplz;
    section.classn = in.p41.opn;
    section.classmy = in.p41.opmy;
    section.classmz = in.p41.opmz;

    section.h = 1000;
    section.b = 300;
    section.hw = section.h;
    section.d = section.h;
    section.tw = F32(1.0 * section.aweb / section.hw);
    section.cflange = F32(section.b / 2.0);
    section.tmax = 40;
    SetGross(section);
    SetWeight(in, section);
}

}  // namespace kestrum
