#include "sections/rolled_i.h"

#include "core/arithmetic_trap.h"
#include "sections/family_table.h"
#include "sections/section_record.h"
#include "sections/table_row.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrum {

namespace {

using std::numbers::pi;

// Web height and its straight part; r is the root radius, of welded sections the weld leg.
void SetWeb(ProjectState& s)
{
    s.hw = F32(s.h - 2.0 * s.tf);
    s.d = F32(s.h - 2.0 * (1.0 * s.r + s.tf));
}

// Outstand of a flange beyond the root, EN 1993-1-1, Table 5.2, sheet 2.
void SetOutstand(ProjectState& s)
{
    s.cflange = F32((1.0 * s.b - s.tw - 2.0 * s.r) / 2.0);
}

// The series INP, UB, UC, UBP and J.
//
// Deviation D51: half the flange width; the standard takes the outstand beyond the root,
// (b - tw - 2 r)/2 (EN 1993-1-1, Table 5.2).
void SetHalfFlange(ProjectState& s)
{
    s.cflange = F32(s.b / 2.0);
}

// Surface of an I section with root fillets; `taper` is what the slope of the inner flange faces
// takes off each side of the web, mm. Result m2/m.
double Surface(const ProjectState& s, double taper)
{
    const double h = s.h, b = s.b, tw = s.tw, tf = s.tf, r = s.r;  // mm
    const double line =
        2 * (b - tw - 2 * r) + 4 * tf + 2 * b + 2 * (h - 2 * tf - 2 * r - taper) + 2 * pi * r;
    return line / 1000;
}

// Plastic moduli of flanges, web and the four root fillets, whose centroids lie 0.2234 r from the
// two faces.
void SetPlasticModuli(ProjectState& s)
{
    const double h = s.h, b = s.b, tw = s.tw, tf = s.tf, r = s.r, hw = s.hw;
    const double fillets = 4 * r * r * (1 - pi / 4);  // mm2
    s.wply = F32(tf * b * (h - tf) + hw * hw * tw / 4 + fillets * (hw / 2 - 0.2234 * r));
    s.wplz = F32(4 * (b / 2) * (b / 2) * tf / 2 + (tw / 2) * (tw / 2) * 2 * hw / 2 +
                 fillets * (tw / 2 + 0.2234 * r));
}

// Columns of HEA, HEB and HEM behind the size key; IPE has the same without a key of its own, so
// that its height is column 1.
void ReadEuropeanI(const TableRow& row, int h, ProjectState& s)
{
    s.h = row(h);
    s.b = row(h + 1);
    s.tf = row(h + 2);
    s.tw = row(h + 3);
    s.r = row(h + 4);
    s.a = row(h + 5);
    s.iy = row(h + 6, 1e6);
    s.iz = row(h + 7, 1e6);
    s.it = row(h + 8, 1e6);
    s.iw = row(h + 9, 1e9);
}

}  // namespace

// Parallel flange sections, EN 10365.
//   in   table row; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesRolledI(const Library& library, ProjectState& s)
{
    const TableRow row = ChosenRow(library, s, TableOf(s));
    ClearSection(s);
    ReadEuropeanI(row, TableOf(s) == Table::ipe ? 1 : 2, s);
    SetWeb(s);
    SetOutstand(s);
    SetPartAreas(s);
    SetPlasticModuli(s);
    SetSymmetricModuli(s);
    s.surface = F32(Surface(s, 0));
    SetThickness(s);
    SetWeight(s);
}

// Normal I sections with tapered flanges, DIN 1025-1; the root radius is the web thickness.
//   in   table row; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
// Deviation D51 (cflange).
void PropertiesInp(const Library& library, ProjectState& s)
{
    constexpr double kSlope = 87.9646 / 360;  // 14 degrees in radians

    const TableRow row = ChosenRow(library, s, Table::inp);
    ClearSection(s);
    s.h = row(1);
    s.b = row(2);
    s.tf = row(3);
    s.tw = row(4);
    s.r = s.tw;
    s.a = row(5, 1e3);
    s.iy = row(6, 1e6);
    s.wply = row(7, 1e3);
    s.iz = row(8, 1e6);
    s.wplz = row(9, 1e3);
    s.it = row(10, 1e3);
    s.iw = row(11, 1e9);
    SetWeb(s);
    SetHalfFlange(s);
    SetPartAreas(s);
    SetSymmetricModuli(s);
    s.surface = F32(Surface(s, s.b / 2.0 * std::sin(kSlope)));
    SetThickness(s);
    SetWeight(s);
}

// British beams, columns, bearing piles and joists, BS 4-1. Mass, surface and all moduli are the
// table's.
//   in   table row
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
// Deviation D51 (cflange).
void PropertiesBritishI(const Library& library, ProjectState& s)
{
    const TableRow row = ChosenRow(library, s, TableOf(s));
    ClearSection(s);
    s.weight = row(4);
    s.h = row(5);
    s.b = row(6);
    s.tw = row(7);
    s.tf = row(8);
    s.r = row(9);
    s.a = row(10, 1e2);
    s.surface = row(11);
    s.iy = row(12, 1e4);
    s.wely = row(13, 1e3);
    s.wply = row(14, 1e3);
    s.iz = row(15, 1e4);
    s.welz = row(16, 1e3);
    s.wplz = row(17, 1e3);
    s.it = row(18, 1e4);
    s.iw = row(19, 1e9);
    SetWeb(s);
    SetHalfFlange(s);
    SetPartAreas(s);
    SetThickness(s);
}

// Welded I of three plates; the welds carry nothing and only shorten web and outstand.
//   in   p21 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesWeldedI(const Library&, ProjectState& s)
{
    ClearSection(s);
    s.h = s.p21.isth;
    s.b = s.p21.istb1;
    s.tw = s.p21.isttw;
    s.tf = s.p21.isttf;
    s.r = F32(std::max(0.5 * s.tw, 4.0));  // weld leg
    SetWeb(s);
    SetOutstand(s);
    SetPartAreas(s);

    const double h = s.h, b = s.b, tw = s.tw, tf = s.tf, hw = s.hw;
    const double arm = (h - tf) / 2;  // flange centre from the axis, mm
    s.ey = F32(b / 2);
    s.ez = F32(h / 2);
    s.a = F32(2 * b * tf + hw * tw);
    s.iy = F32(2 * (b * std::pow(tf, 3) / 12 + b * tf * arm * arm) + tw * std::pow(hw, 3) / 12);
    s.iz = F32(2 * tf * std::pow(b, 3) / 12 + hw * std::pow(tw, 3) / 12);
    s.it = F32((2 * b * std::pow(tf, 3) + hw * std::pow(tw, 3)) / 3);
    s.iw = F32(std::pow(b, 3) * tf / 24 * (h - tf) * (h - tf));
    s.wply = F32((h - tf) * tf * b + hw * hw * tw / 4);
    s.wplz = F32(4 * (b / 2) * (b / 2) * tf / 2 + (tw / 2) * (tw / 2) * 2 * hw / 2);
    SetSymmetricModuli(s);
    s.surface = F32((4 * tf + 2 * b + 2 * (b - tw) + 2 * (h - 2 * tf)) / 1000);
    SetThickness(s);
    SetWeight(s);
}

}  // namespace kestrum
