#include "sections/simple.h"

#include "core/arithmetic_trap.h"
#include "sections/section_record.h"

#include <cmath>
#include <numbers>

namespace kestrum {

namespace {

using std::numbers::pi;

// Sections without effective widths.
void SetGross(ProjectState& s)
{
    s.aeff = s.a;
    s.weffy = s.wely;
    s.weffz = s.welz;
}

}  // namespace

// Flat bar on edge.
//   in   p28 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesFlatBar(const Library&, ProjectState& s)
{
    ClearSection(s);
    s.h = s.p28.isth;
    s.tw = s.p28.isttw;
    s.b = s.tw;
    s.hw = s.h;
    s.d = s.h;

    const double h = s.h, t = s.tw;
    s.a = F32(t * h);
    s.iy = F32(std::pow(h, 3) * t / 12);
    s.iz = F32(std::pow(t, 3) * h / 12);
    s.it = F32(std::pow(t, 3) * h / 3);
    s.wely = F32(s.iy / (h / 2));
    s.welz = F32(s.iz / (t / 2));
    s.wply = F32(h * h * t / 4);
    s.wplz = F32(t * t * h / 4);
    s.surface = F32((2 * t + 2 * h) / 1000);
    SetGross(s);
    SetThickness(s);
    SetWeight(s);
}

// Circular tube. Outer diameter as height, width and d, inner diameter as hw and bw.
//   in   p31 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesTube(const Library&, ProjectState& s)
{
    ClearSection(s);
    s.d = s.p31.istd;
    s.tw = s.p31.isttw;
    s.h = s.b = s.d;
    s.tf = s.tw;

    const double d = s.d, t = s.tw;
    const double di = d - 2 * t;
    s.hw = s.bw = F32(di);
    s.a = F32(pi / 4 * (d * d - di * di));
    s.iy = s.iz = F32(pi / 64 * (std::pow(d, 4) - std::pow(di, 4)));
    s.wely = s.welz = F32(s.iy / (d / 2));
    s.wply = s.wplz = F32((std::pow(d, 3) - std::pow(di, 3)) / 6);
    s.it = F32(((d - t) / 2 * ((d - t) / 2) + t * t / 4) * (d - t) * pi * t);
    s.surface = F32(2 * pi * d / 2 / 1000);
    SetGross(s);
    SetThickness(s);
    SetWeight(s);
}

// General profile: the properties are entered. Height and width are those of the figure; the web is
// as thick as its area asks for.
//   in   p41 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], classes as chosen, weight [kg/m]
//
// Deviation D56: tmax is 40 mm, so that a listed grade always has its strength up to 40 mm;
// EN 1993-1-1, Table 3.1 lowers it for thicker parts.
void PropertiesGeneral(const Library&, ProjectState& s)
{
    ClearSection(s);
    s.a = s.p41.istax;
    s.aflange = s.p41.istay;
    s.aweb = s.p41.istaz;
    s.it = s.p41.istix;
    s.iy = s.p41.istiy;
    s.iz = s.p41.istiz;
    s.iw = s.p41.istiw;
    s.wely = s.p41.istwely;
    s.welz = s.p41.istwelz;
    s.wply = s.p41.istwply;
    s.wplz = s.p41.istwplz;
    s.classn = s.p41.opn;
    s.classmy = s.p41.opmy;
    s.classmz = s.p41.opmz;

    s.h = 1000;
    s.b = 300;
    s.hw = s.h;
    s.d = s.h;
    s.tw = F32(1.0 * s.aweb / s.hw);
    s.cflange = F32(s.b / 2.0);
    s.tmax = 40;
    SetGross(s);
    SetWeight(s);
}

}  // namespace kestrum
