#include "sections/angles.h"

#include "core/arithmetic_trap.h"
#include "sections/family_table.h"
#include "sections/section_record.h"
#include "sections/table_row.h"

#include <cmath>
#include <numbers>

namespace kestrum {

namespace {

using std::numbers::pi;

void ReadEqual(const TableRow& row, SectionRecord& section)
{
    section.h = row(1);
    section.b = section.h;
    section.tw = row(2);
    section.r = row(3);
    section.a = row(4);
    section.ey = row(5);
    section.ez = section.ey;
    section.v1 = row(7);
    section.iy = row(9, 1e4);
    section.iz = section.iy;
    section.iu = row(10, 1e4);
    section.iv = row(11, 1e4);
    section.alfa = 45;
}

void ReadUnequal(const TableRow& row, SectionRecord& section)
{
    section.h = row(1);
    section.b = row(2);
    section.tw = row(3);
    section.r = row(4);
    section.a = row(5);
    section.ey = row(6);
    section.ez = row(7);
    section.v1 = row(10);
    section.alfa = F32(std::atan(static_cast<double>(row(12))) * 180 / pi);
    section.iy = row(13, 1e4);
    section.iz = row(14, 1e4);
    section.iu = row(15, 1e4);
    section.iv = row(16, 1e4);
}

// Distances of the points from the principal axes.
//
// Deviation D55: the tips are taken at mid-thickness; the elastic stress of EN 1993-1-1, 6.2.1 (5)
// is that of the outermost corner.
void SetPoints(const Inputs& in, SectionRecord& section)
{
    const double cosine = std::cos(section.alfa * pi / 180);
    const double sine = std::sin(section.alfa * pi / 180);
    const double h = section.h, b = section.b, t = section.tw, v1 = section.v1;
    // Heel from the u axis: none where the legs are equal, whatever the last bit of the sine says.
    const bool equal = Traits(in).shape.equal;
    const double c = equal ? 0.0 : section.ey * cosine - section.ez * sine;
    section.cu = F32(c);
    section.u1 = F32(b * sine + c - t / 2 * cosine);
    section.v3 = F32(b * cosine - v1 + t / 2 * sine);
    if (equal) {
        section.u2 = section.u1;
        section.v2 = section.v3;
    } else {
        section.u2 = F32(h * cosine - c - t / 2 * sine);
        section.v2 = F32(h * sine - v1 + t / 2 * cosine);
    }
}

void SetModuli(const Inputs& in, SectionRecord& section)
{
    const double iy = section.iy, iz = section.iz, iu = section.iu, iv = section.iv;
    section.wy1 = F32(iy / (1.0 * section.h - section.ey));
    section.wy2 = F32(iy / section.ey);
    section.wz1 = F32(iz / section.ez);
    section.wz2 = F32(iz / (1.0 * section.b - section.ez));
    section.wu[1] = F32(iu / section.u2);
    section.wu[2] = Traits(in).shape.equal
                        ? 0.0F
                        : F32(iu / section.cu);  // the heel of equal legs lies on the u axis
    section.wu[3] = F32(iu / section.u1);
    section.wv[1] = F32(iv / section.v2);
    section.wv[2] = F32(iv / section.v1);
    section.wv[3] = F32(iv / section.v3);
    // Angles are designed elastically: one modulus serves all classes.
    section.wely = section.wply = section.weffy = section.wy1;
    section.welz = section.wplz = section.weffz = section.wz2;
}

}  // namespace

// Equal and unequal angles.
//   in   table row; density [kg/m3]
//   out  geometry [mm], alfa [deg], properties [mm], weight [kg/m], surface [m2/m]
// Deviation D52 (surface): the toe radii are left out.
void PropertiesAngle(const Library& library, const Inputs& in, SectionRecord& section)
{
    const bool equal = Traits(in).shape.equal;
    const TableRow row = ChosenRow(library, in, TableOf(in));
    ClearSection(section);
    if (equal) {
        ReadEqual(row, section);
    } else {
        ReadUnequal(row, section);
    }

    const double h = section.h, b = section.b, t = section.tw, r = section.r;
    section.tf = section.tw;
    section.hw = F32(h - t);
    section.d = F32(h - t - r);
    section.cb = F32(b - t - r);
    section.ch = section.d;
    section.cflange = section.cb;
    section.aeff = section.a;
    section.aflange = F32(b * t);
    section.aweb = F32(section.hw * t);
    const double t3 = std::pow(t, 3);
    const double b3 = std::pow(b, 3);
    if (equal) {
        section.it = F32(t3 * (b - t / 2) * (2.0 / 3));
        section.iw = F32(b3 * t3 / 18);
    } else {
        section.it = F32(t3 * ((b - t / 2) + (h - t / 2)) / 3);
        section.iw = F32((std::pow(h, 3) * t3 + b3 * t3) / 9);
    }
    SetPoints(in, section);
    SetModuli(in, section);
    section.surface = F32((2 * (b + h) - 2 * r + pi * r / 2) / 1000);
    SetThickness(section);
    SetWeight(in, section);
}

}  // namespace kestrum
