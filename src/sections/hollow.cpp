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

void ReadHollow(const Library& library, const Inputs& in, SectionRecord& section)
{
    const Table table = TableOf(in);
    const TableRow row = ChosenRow(library, in, table);
    const bool square = table == Table::shs || table == Table::cfshs;
    // The hot finished squares name one side only, so that all their columns stand one to the left.
    const int t = table == Table::shs ? 2 : 3;
    section.h = row(1);
    section.b = row(t - 1);
    section.tw = row(t);
    section.tf = section.tw;
    section.a = row(t + 1, 1e2);
    section.iy = row(t + 2, 1e4);
    if (square) {
        section.iz = section.iy;
        section.wply = row(t + 3, 1e3);
        section.wplz = section.wply;
        section.it = row(t + 4, 1e4);
        return;
    }
    section.iz = row(6, 1e4);
    section.wply = row(7, 1e3);
    section.wplz = row(8, 1e3);
    section.it = row(9, 1e4);
    if (in.rectaxis != 1) {  // bent about the weak axis
        std::swap(section.h, section.b);
        std::swap(section.iy, section.iz);
        std::swap(section.wply, section.wplz);
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
void PropertiesHollow(const Library& library, const Inputs& in, SectionRecord& section)
{
    ClearSection(section);
    ReadHollow(library, in, section);

    const bool cold = Traits(in).shape.make == Make::cold;
    const double h = section.h, b = section.b, t = section.tw;
    section.r = F32(CornerRadius(cold, t));
    section.rin = cold ? F32(section.r - t) : section.tw;
    section.d = F32(h - 2 * (t + section.rin));
    section.cflange = F32(b - 2 * (t + section.rin));
    section.hw = F32(h - 2 * t);
    section.bw = F32(b - 2 * t);
    section.iw = F32(BoxWarping(b - t, h - t, t, t));
    section.surface = F32((2 * (b - 5 * t) + 2 * (h - 5 * t) + 5 * pi * t) / 1000);
    SetPartAreas(section);
    SetSymmetricModuli(section);
    SetThickness(section);
    SetWeight(in, section);
}

// Welded box of four plates, the flanges reaching `bo` beyond the webs; the welds only shorten the
// webs.
//   in   p23 [mm]; density [kg/m3]
//   out  geometry [mm], properties [mm], weight [kg/m], surface [m2/m]
void PropertiesBox(const Library&, const Inputs& in, SectionRecord& section)
{
    ClearSection(section);
    section.h = in.p23.isth;
    section.b = in.p23.istb1;
    section.tw = in.p23.isttw;
    section.tf = in.p23.isttf;
    section.bo = in.p23.ista;
    section.r = F32(std::max(0.5 * section.tw, 4.0));  // weld leg

    const double h = section.h, b = section.b, tw = section.tw, tf = section.tf, bo = section.bo;
    section.hw = F32(h - 2 * tf);
    section.d = F32(h - 2 * (1.0 * section.r + tf));
    section.cflange = F32(b - 2 * (bo + tw));
    section.bw = section.cflange;
    SetPartAreas(section);

    const double hw = section.hw;
    const double bb = b - 2 * bo - tw;  // centre distances of webs and of flanges
    const double hh = h - tf;
    section.ey = F32(b / 2);
    section.ez = F32(h / 2);
    section.a = F32(2 * b * tf + 2 * hw * tw);
    section.iy = F32(2 * (b * std::pow(tf, 3) / 12 + b * tf * (hh / 2) * (hh / 2)) +
                     2 * tw * std::pow(hw, 3) / 12);
    section.iz = F32(2 * tf * std::pow(b, 3) / 12 +
                     2 * (hw * std::pow(tw, 3) / 12 + hw * tw * (bb / 2) * (bb / 2)));
    section.it = F32(2 * bb * bb * hh * hh / (bb / tf + hh / tw) + 4 * std::pow(tf, 3) * bo / 3);
    section.iw = F32(BoxWarping(bb, hh, tw, tf));
    section.wply = F32(hw * hw * tw / 2 + hh * tf * b);
    section.wplz = F32(b * b * tf / 2 + bb * hw * tw);
    SetSymmetricModuli(section);
    section.surface = F32((4 * tf + 2 * b + 4 * bo + 2 * (h - 2 * tf)) / 1000);
    SetThickness(section);
    SetWeight(in, section);
}

}  // namespace kestrum
