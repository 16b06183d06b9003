#include "sections/hollow.h"

#include "core/arithmetic_trap.h"
#include "sections/family_table.h"
#include "sections/section_record.h"
#include "sections/table_row.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace kestrum {

namespace {

using std::numbers::pi;

// Warping constant of a closed box from the centre distances bb of the webs and hh of the flanges.
double BoxWarping(double bb, double hh, double tw, double tf)
{
    const double web = bb * bb * tw;
    const double flange = hh * bb * tf;
    const double share = (web - flange) / (web + flange);
    return hh * hh / 24 * (bb * bb * hh * tw + std::pow(bb, 3) * tf) * share * share;
}

// Outer corner radius, EN 10210-2 and EN 10219-2, 6.
double CornerRadius(bool cold, double t)
{
    if (!cold) {
        return 1.5 * t;
    }
    return t <= 6 ? 2 * t : t <= 10 ? 2.5 * t : 3 * t;
}

void ReadHollow(const Library& library, ProjectState& s)
{
    const Table table = TableOf(s);
    const TableRow row = ChosenRow(library, s, table);
    const bool square = table == Table::shs || table == Table::cfshs;
    // The hot finished squares name one side only, so that all their columns stand one to the left.
    const int t = table == Table::shs ? 2 : 3;
    s.h = row(1);
    s.b = row(t - 1);
    s.tw = row(t);
    s.tf = s.tw;
    s.a = row(t + 1, 1e2);
    s.iy = row(t + 2, 1e4);
    if (square) {
        s.iz = s.iy;
        s.wply = row(t + 3, 1e3);
        s.wplz = s.wply;
        s.it = row(t + 4, 1e4);
        return;
    }
    s.iz = row(6, 1e4);
    s.wply = row(7, 1e3);
    s.wplz = row(8, 1e3);
    s.it = row(9, 1e4);
    if (s.rectaxis != 1) {  // bent about the weak axis
        std::swap(s.h, s.b);
        std::swap(s.iy, s.iz);
        std::swap(s.wply, s.wplz);
    }
}

}  // namespace

// Hollow sections.
//   in   table row; rectaxis (7, 9); density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
//
// Deviation D52 (surface): corners of 2.5 t for all series.
// Deviation D53: d and cflange are the flats between the corners, b - 2 (t + ri); for effective
// widths EN 1993-1-5, 4.4 (2) takes b - 3 t.
void PropertiesHollow(const Library& library, ProjectState& s)
{
    ClearSection(s);
    ReadHollow(library, s);

    const bool cold = Traits(s).shape.make == Make::cold;
    const double h = s.h, b = s.b, t = s.tw;
    s.r = F32(CornerRadius(cold, t));
    s.rin = cold ? F32(s.r - t) : s.tw;
    s.d = F32(h - 2 * (t + s.rin));
    s.cflange = F32(b - 2 * (t + s.rin));
    s.hw = F32(h - 2 * t);
    s.bw = F32(b - 2 * t);
    s.iw = F32(BoxWarping(b - t, h - t, t, t));
    s.surface = F32((2 * (b - 5 * t) + 2 * (h - 5 * t) + 5 * pi * t) / 1000);
    SetPartAreas(s);
    SetSymmetricModuli(s);
    SetThickness(s);
    SetWeight(s);
}

// Welded box of four plates, the flanges reaching `bo` beyond the webs; the welds only shorten the
// webs.
//   in   p23 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesBox(const Library&, ProjectState& s)
{
    ClearSection(s);
    s.h = s.p23.isth;
    s.b = s.p23.istb1;
    s.tw = s.p23.isttw;
    s.tf = s.p23.isttf;
    s.bo = s.p23.ista;
    s.r = F32(std::max(0.5 * s.tw, 4.0));  // weld leg

    const double h = s.h, b = s.b, tw = s.tw, tf = s.tf, bo = s.bo;
    s.hw = F32(h - 2 * tf);
    s.d = F32(h - 2 * (1.0 * s.r + tf));
    s.cflange = F32(b - 2 * (bo + tw));
    s.bw = s.cflange;
    SetPartAreas(s);

    const double hw = s.hw;
    const double bb = b - 2 * bo - tw;  // centre distances of webs and of flanges
    const double hh = h - tf;
    s.ey = F32(b / 2);
    s.ez = F32(h / 2);
    s.a = F32(2 * b * tf + 2 * hw * tw);
    s.iy = F32(2 * (b * std::pow(tf, 3) / 12 + b * tf * (hh / 2) * (hh / 2)) +
               2 * tw * std::pow(hw, 3) / 12);
    s.iz = F32(2 * tf * std::pow(b, 3) / 12 +
               2 * (hw * std::pow(tw, 3) / 12 + hw * tw * (bb / 2) * (bb / 2)));
    s.it = F32(2 * bb * bb * hh * hh / (bb / tf + hh / tw) + 4 * std::pow(tf, 3) * bo / 3);
    s.iw = F32(BoxWarping(bb, hh, tw, tf));
    s.wply = F32(hw * hw * tw / 2 + hh * tf * b);
    s.wplz = F32(b * b * tf / 2 + bb * hw * tw);
    SetSymmetricModuli(s);
    s.surface = F32((4 * tf + 2 * b + 4 * bo + 2 * (h - 2 * tf)) / 1000);
    SetThickness(s);
    SetWeight(s);
}

}  // namespace kestrum
