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
void SetWeb(SectionRecord& section)
{
    section.hw = F32(section.h - 2.0 * section.tf);
    section.d = F32(section.h - 2.0 * (1.0 * section.r + section.tf));
}

// Outstand of a flange beyond the root, EN 1993-1-1, Table 5.2, sheet 2.
void SetOutstand(SectionRecord& section)
{
    section.cflange = F32((1.0 * section.b - section.tw - 2.0 * section.r) / 2.0);
}

// The series INP, UB, UC, UBP and J.
//
// Deviation D51: half the flange width; the standard takes the outstand beyond the root,
// (b - tw - 2 r)/2 (EN 1993-1-1, Table 5.2).
void SetHalfFlange(SectionRecord& section)
{
    section.cflange = F32(section.b / 2.0);
}

// Surface of an I section with root fillets; `taper` is what the slope of the inner flange faces
// takes off each side of the web, mm. Result m2/m.
double Surface(const SectionRecord& section, double taper)
{
    const double h = section.h, b = section.b, tw = section.tw, tf = section.tf,
                 r = section.r;  // mm
    const double line =
        2 * (b - tw - 2 * r) + 4 * tf + 2 * b + 2 * (h - 2 * tf - 2 * r - taper) + 2 * pi * r;
    return line / 1000;
}

// Plastic moduli of flanges, web and the four root fillets, whose centroids lie 0.2234 r from the
// two faces.
void SetPlasticModuli(SectionRecord& section)
{
    const double h = section.h, b = section.b, tw = section.tw, tf = section.tf, r = section.r,
                 hw = section.hw;
    const double fillets = 4 * r * r * (1 - pi / 4);  // mm2
    section.wply = F32(tf * b * (h - tf) + hw * hw * tw / 4 + fillets * (hw / 2 - 0.2234 * r));
    section.wplz = F32(4 * (b / 2) * (b / 2) * tf / 2 + (tw / 2) * (tw / 2) * 2 * hw / 2 +
                       fillets * (tw / 2 + 0.2234 * r));
}

// Columns of HEA, HEB and HEM behind the size key; IPE has the same without a key of its own, so
// that its height is column 1.
void ReadEuropeanI(const TableRow& row, int h, SectionRecord& section)
{
    section.h = row(h);
    section.b = row(h + 1);
    section.tf = row(h + 2);
    section.tw = row(h + 3);
    section.r = row(h + 4);
    section.a = row(h + 5);
    section.iy = row(h + 6, 1e6);
    section.iz = row(h + 7, 1e6);
    section.it = row(h + 8, 1e6);
    section.iw = row(h + 9, 1e9);
}

}  // namespace

// Parallel flange sections, EN 10365.
//   in   table row; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesRolledI(const Library& library, const Inputs& in, SectionRecord& section)
{
    const TableRow row = ChosenRow(library, in, TableOf(in));
    ClearSection(section);
    ReadEuropeanI(row, TableOf(in) == Table::ipe ? 1 : 2, section);
    SetWeb(section);
    SetOutstand(section);
    SetPartAreas(section);
    SetPlasticModuli(section);
    SetSymmetricModuli(section);
    section.surface = F32(Surface(section, 0));
    SetThickness(section);
    SetWeight(in, section);
}

// Normal I sections with tapered flanges, DIN 1025-1; the root radius is the web thickness.
//   in   table row; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
// Deviation D51 (cflange).
void PropertiesInp(const Library& library, const Inputs& in, SectionRecord& section)
{
    constexpr double kSlope = 87.9646 / 360;  // 14 degrees in radians

    const TableRow row = ChosenRow(library, in, Table::inp);
    ClearSection(section);
    section.h = row(1);
    section.b = row(2);
    section.tf = row(3);
    section.tw = row(4);
    section.r = section.tw;
    section.a = row(5, 1e3);
    section.iy = row(6, 1e6);
    section.wply = row(7, 1e3);
    section.iz = row(8, 1e6);
    section.wplz = row(9, 1e3);
    section.it = row(10, 1e3);
    section.iw = row(11, 1e9);
    SetWeb(section);
    SetHalfFlange(section);
    SetPartAreas(section);
    SetSymmetricModuli(section);
    section.surface = F32(Surface(section, section.b / 2.0 * std::sin(kSlope)));
    SetThickness(section);
    SetWeight(in, section);
}

// British beams, columns, bearing piles and joists, BS 4-1. Mass, surface and all moduli are the
// table's.
//   in   table row
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
// Deviation D51 (cflange).
void PropertiesBritishI(const Library& library, const Inputs& in, SectionRecord& section)
{
    const TableRow row = ChosenRow(library, in, TableOf(in));
    ClearSection(section);
    section.weight = row(4);
    section.h = row(5);
    section.b = row(6);
    section.tw = row(7);
    section.tf = row(8);
    section.r = row(9);
    section.a = row(10, 1e2);
    section.surface = row(11);
    section.iy = row(12, 1e4);
    section.wely = row(13, 1e3);
    section.wply = row(14, 1e3);
    section.iz = row(15, 1e4);
    section.welz = row(16, 1e3);
    section.wplz = row(17, 1e3);
    section.it = row(18, 1e4);
    section.iw = row(19, 1e9);
    SetWeb(section);
    SetHalfFlange(section);
    SetPartAreas(section);
    SetThickness(section);
}

// Welded I of three plates; the welds carry nothing and only shorten web and outstand.
//   in   p21 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesWeldedI(const Library&, const Inputs& in, SectionRecord& section)
{
    ClearSection(section);
    section.h = in.p21.isth;
    section.b = in.p21.istb1;
    section.tw = in.p21.isttw;
    section.tf = in.p21.isttf;
    section.r = F32(std::max(0.5 * section.tw, 4.0));  // weld leg
    SetWeb(section);
    SetOutstand(section);
    SetPartAreas(section);

    const double h = section.h, b = section.b, tw = section.tw, tf = section.tf, hw = section.hw;
    const double arm = (h - tf) / 2;  // flange centre from the axis, mm
    section.ey = F32(b / 2);
    section.ez = F32(h / 2);
    section.a = F32(2 * b * tf + hw * tw);
    section.iy =
        F32(2 * (b * std::pow(tf, 3) / 12 + b * tf * arm * arm) + tw * std::pow(hw, 3) / 12);
    section.iz = F32(2 * tf * std::pow(b, 3) / 12 + hw * std::pow(tw, 3) / 12);
    section.it = F32((2 * b * std::pow(tf, 3) + hw * std::pow(tw, 3)) / 3);
    section.iw = F32(std::pow(b, 3) * tf / 24 * (h - tf) * (h - tf));
    section.wply = F32((h - tf) * tf * b + hw * hw * tw / 4);
    section.wplz = F32(4 * (b / 2) * (b / 2) * tf / 2 + (tw / 2) * (tw / 2) * 2 * hw / 2);
    SetSymmetricModuli(section);
    section.surface = F32((4 * tf + 2 * b + 2 * (b - tw) + 2 * (h - 2 * tf)) / 1000);
    SetThickness(section);
    SetWeight(in, section);
}

}  // namespace kestrum
