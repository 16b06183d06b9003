#include "sections/channels.h"

#include "core/arithmetic_trap.h"
#include "sections/family_table.h"
#include "sections/section_record.h"
#include "sections/table_row.h"

#include <cmath>
#include <numbers>

namespace kestrum {

namespace {

using std::numbers::pi;

// The flange of a channel is one outstand beyond the root, EN 1993-1-1, Table 5.2, sheet 2.
void SetChannelGeometry(SectionRecord& section)
{
    section.hw = F32(section.h - 2.0 * section.tf);
    section.d = F32(section.hw - 2.0 * section.r);
    section.cflange = F32(1.0 * section.b - section.tw - section.r);
    SetPartAreas(section);
    SetThickness(section);
}

// About z the toes are the far fibre.
void SetChannelModuli(SectionRecord& section)
{
    section.wely = F32(section.iy / (section.h / 2.0));
    section.welz = F32(section.iz / (1.0 * section.b - section.ecg));
}

}  // namespace

// Parallel flange channels, EN 10365.
//   in   table row; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
//
// Deviation D54: ys is counted from the middle line of the web, so that ecg + ys, the distance from
// centroid to shear centre of EN 1993-1-1, 6.3.1.4, comes out tw/2 too long.
void PropertiesUpe(const Library& library, const Inputs& in, SectionRecord& section)
{
    const TableRow row = ChosenRow(library, in, Table::upe);
    ClearSection(section);
    section.h = row(1);
    section.b = row(2);
    section.tw = row(3);
    section.tf = row(4);
    section.r = row(5);
    section.r1 = section.r;
    section.ecg = row(6);
    section.ys = row(7);
    section.a = row(8);
    section.iy = row(9, 1e4);
    section.iz = row(10, 1e4);
    section.wply = row(11, 1e3);
    section.wplz = row(12, 1e3);
    section.it = row(13, 1e3);
    section.iw = row(14, 1e9);
    SetChannelGeometry(section);
    SetChannelModuli(section);
    SetWeight(in, section);

    const double h = section.h, b = section.b, tw = section.tw, tf = section.tf, r = section.r;
    section.surface =
        F32((2 * b + h + 2 * tf + 2 * (b - tw - r) + h - 2 * tf - 2 * r + pi * r) / 1000);
}

// Channels with tapered flanges, DIN 1026-1.
//   in   table row; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
// Deviation D52 (surface).
void PropertiesUnp(const Library& library, const Inputs& in, SectionRecord& section)
{
    constexpr double kSlope = 50.2655 / 360;  // 8 degrees in radians

    const TableRow row = ChosenRow(library, in, Table::unp);
    ClearSection(section);
    section.h = row(1);
    section.b = row(2);
    section.tw = row(3);
    section.tf = row(4);
    section.r1 = row(5);
    section.r = section.r1;
    section.r2 = row(6);
    section.ecg = row(7);
    section.ys = F32(1.0 * row(8) - section.ecg);
    section.a = row(9);
    section.iy = row(10, 1e4);
    section.iz = row(11, 1e4);
    section.it = row(12, 1e6);
    section.iw = row(13, 1e9);
    section.wply = row(14, 1e3);
    section.wplz = row(15, 1e3);
    SetChannelGeometry(section);
    SetChannelModuli(section);
    SetWeight(in, section);

    // Only one side of the web carries the slope, and each toe loses r2 - pi r2/4.
    const double h = section.h, b = section.b, tw = section.tw, tf = section.tf, r1 = section.r1,
                 r2 = section.r2;
    const double inside = h - 2 * tf - 2 * r1 - b * std::sin(kSlope);
    section.surface =
        F32((2 * b + h + 2 * tf + 2 * (b - tw - r1) + inside + pi * r1 - 2 * (r2 - pi * r2 / 4)) /
            1000);
}

// British channels, BS 4-1: CH with tapered, PFC with parallel flanges. Mass, surface and all
// moduli are the table's; PFC has no toe radius, so that its columns from 10 on stand one to the
// left.
//   in   series103; table row
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesBritishChannel(const Library& library, const Inputs& in, SectionRecord& section)
{
    const Table table = TableOf(in);
    const TableRow row = ChosenRow(library, in, table);
    ClearSection(section);
    section.weight = row(4);
    section.h = row(5);
    section.b = row(6);
    section.tw = row(7);
    section.tf = row(8);
    section.r = row(9);
    section.r1 = section.r;
    section.r2 = table == Table::ch ? row(10) : 0.0F;
    const int a = table == Table::ch ? 11 : 10;
    section.a = row(a, 1e2);
    section.surface = row(a + 1);
    section.iy = row(a + 2, 1e4);
    section.wely = row(a + 3, 1e3);
    section.wply = row(a + 4, 1e3);
    section.iz = row(a + 5, 1e4);
    section.welz = row(a + 6, 1e3);
    section.wplz = row(a + 7, 1e3);
    section.it = row(a + 8, 1e4);
    section.iw = row(a + 9, 1e9);
    section.ecg = row(a + 10, 10);
    section.ys = F32(1.0 * row(a + 11, 10) - section.ecg);
    SetChannelGeometry(section);
}

}  // namespace kestrum
