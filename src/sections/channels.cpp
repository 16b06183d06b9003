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
void SetChannelGeometry(ProjectState& s)
{
    s.hw = F32(s.h - 2.0 * s.tf);
    s.d = F32(s.hw - 2.0 * s.r);
    s.cflange = F32(1.0 * s.b - s.tw - s.r);
    SetPartAreas(s);
    SetThickness(s);
}

// About z the toes are the far fibre.
void SetChannelModuli(ProjectState& s)
{
    s.wely = F32(s.iy / (s.h / 2.0));
    s.welz = F32(s.iz / (1.0 * s.b - s.ecg));
}

}  // namespace

// Parallel flange channels, EN 10365.
//   in   table row; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
//
// Deviation D54: ys is counted from the middle line of the web, so that ecg + ys, the distance from
// centroid to shear centre of EN 1993-1-1, 6.3.1.4, comes out tw/2 too long.
void PropertiesUpe(const Library& library, ProjectState& s)
{
    const TableRow row = ChosenRow(library, s, Table::upe);
    ClearSection(s);
    s.h = row(1);
    s.b = row(2);
    s.tw = row(3);
    s.tf = row(4);
    s.r = row(5);
    s.r1 = s.r;
    s.ecg = row(6);
    s.ys = row(7);
    s.a = row(8);
    s.iy = row(9, 1e4);
    s.iz = row(10, 1e4);
    s.wply = row(11, 1e3);
    s.wplz = row(12, 1e3);
    s.it = row(13, 1e3);
    s.iw = row(14, 1e9);
    SetChannelGeometry(s);
    SetChannelModuli(s);
    SetWeight(s);

    const double h = s.h, b = s.b, tw = s.tw, tf = s.tf, r = s.r;
    s.surface = F32((2 * b + h + 2 * tf + 2 * (b - tw - r) + h - 2 * tf - 2 * r + pi * r) / 1000);
}

// Channels with tapered flanges, DIN 1026-1.
//   in   table row; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
// Deviation D52 (surface).
void PropertiesUnp(const Library& library, ProjectState& s)
{
    constexpr double kSlope = 50.2655 / 360;  // 8 degrees in radians

    const TableRow row = ChosenRow(library, s, Table::unp);
    ClearSection(s);
    s.h = row(1);
    s.b = row(2);
    s.tw = row(3);
    s.tf = row(4);
    s.r1 = row(5);
    s.r = s.r1;
    s.r2 = row(6);
    s.ecg = row(7);
    s.ys = F32(1.0 * row(8) - s.ecg);
    s.a = row(9);
    s.iy = row(10, 1e4);
    s.iz = row(11, 1e4);
    s.it = row(12, 1e6);
    s.iw = row(13, 1e9);
    s.wply = row(14, 1e3);
    s.wplz = row(15, 1e3);
    SetChannelGeometry(s);
    SetChannelModuli(s);
    SetWeight(s);

    // Only one side of the web carries the slope, and each toe loses r2 - pi r2/4.
    const double h = s.h, b = s.b, tw = s.tw, tf = s.tf, r1 = s.r1, r2 = s.r2;
    const double inside = h - 2 * tf - 2 * r1 - b * std::sin(kSlope);
    s.surface =
        F32((2 * b + h + 2 * tf + 2 * (b - tw - r1) + inside + pi * r1 - 2 * (r2 - pi * r2 / 4)) /
            1000);
}

// British channels, BS 4-1: CH with tapered, PFC with parallel flanges. Mass, surface and all
// moduli are the table's; PFC has no toe radius, so that its columns from 10 on stand one to the
// left.
//   in   series103; table row
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesBritishChannel(const Library& library, ProjectState& s)
{
    const Table table = TableOf(s);
    const TableRow row = ChosenRow(library, s, table);
    ClearSection(s);
    s.weight = row(4);
    s.h = row(5);
    s.b = row(6);
    s.tw = row(7);
    s.tf = row(8);
    s.r = row(9);
    s.r1 = s.r;
    s.r2 = table == Table::ch ? row(10) : 0.0F;
    const int a = table == Table::ch ? 11 : 10;
    s.a = row(a, 1e2);
    s.surface = row(a + 1);
    s.iy = row(a + 2, 1e4);
    s.wely = row(a + 3, 1e3);
    s.wply = row(a + 4, 1e3);
    s.iz = row(a + 5, 1e4);
    s.welz = row(a + 6, 1e3);
    s.wplz = row(a + 7, 1e3);
    s.it = row(a + 8, 1e4);
    s.iw = row(a + 9, 1e9);
    s.ecg = row(a + 10, 10);
    s.ys = F32(1.0 * row(a + 11, 10) - s.ecg);
    SetChannelGeometry(s);
}

}  // namespace kestrum
