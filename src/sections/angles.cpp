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

void ReadEqual(const TableRow& row, ProjectState& s)
{
    s.h = row(1);
    s.b = s.h;
    s.tw = row(2);
    s.r = row(3);
    s.a = row(4);
    s.ey = row(5);
    s.ez = s.ey;
    s.v1 = row(7);
    s.iy = row(9, 1e4);
    s.iz = s.iy;
    s.iu = row(10, 1e4);
    s.iv = row(11, 1e4);
    s.alfa = 45;
}

void ReadUnequal(const TableRow& row, ProjectState& s)
{
    s.h = row(1);
    s.b = row(2);
    s.tw = row(3);
    s.r = row(4);
    s.a = row(5);
    s.ey = row(6);
    s.ez = row(7);
    s.v1 = row(10);
    s.alfa = F32(std::atan(static_cast<double>(row(12))) * 180 / pi);
    s.iy = row(13, 1e4);
    s.iz = row(14, 1e4);
    s.iu = row(15, 1e4);
    s.iv = row(16, 1e4);
}

// Distances of the points from the principal axes.
//
// Deviation D55: the tips are taken at mid-thickness; the elastic stress of EN 1993-1-1, 6.2.1 (5)
// is that of the outermost corner.
void SetPoints(ProjectState& s)
{
    const double cosine = std::cos(s.alfa * pi / 180);
    const double sine = std::sin(s.alfa * pi / 180);
    const double h = s.h, b = s.b, t = s.tw, v1 = s.v1;
    // Heel from the u axis: none where the legs are equal, whatever the last bit of the sine says.
    const bool equal = Traits(s).shape.equal;
    const double c = equal ? 0.0 : s.ey * cosine - s.ez * sine;
    s.cu = F32(c);
    s.u1 = F32(b * sine + c - t / 2 * cosine);
    s.v3 = F32(b * cosine - v1 + t / 2 * sine);
    if (equal) {
        s.u2 = s.u1;
        s.v2 = s.v3;
    } else {
        s.u2 = F32(h * cosine - c - t / 2 * sine);
        s.v2 = F32(h * sine - v1 + t / 2 * cosine);
    }
}

void SetModuli(ProjectState& s)
{
    const double iy = s.iy, iz = s.iz, iu = s.iu, iv = s.iv;
    s.wy1 = F32(iy / (1.0 * s.h - s.ey));
    s.wy2 = F32(iy / s.ey);
    s.wz1 = F32(iz / s.ez);
    s.wz2 = F32(iz / (1.0 * s.b - s.ez));
    s.wu[1] = F32(iu / s.u2);
    s.wu[2] =
        Traits(s).shape.equal ? 0.0F : F32(iu / s.cu);  // the heel of equal legs lies on the u axis
    s.wu[3] = F32(iu / s.u1);
    s.wv[1] = F32(iv / s.v2);
    s.wv[2] = F32(iv / s.v1);
    s.wv[3] = F32(iv / s.v3);
    // Angles are designed elastically: one modulus serves all classes.
    s.wely = s.wply = s.weffy = s.wy1;
    s.welz = s.wplz = s.weffz = s.wz2;
}

}  // namespace

// Equal and unequal angles.
//   in   table row; density [kg/m3]
//   out  geometry [mm], alfa [deg], properties [mm], weight [kg/m], surface [m2/m]
// Deviation D52 (surface): the toe radii are left out.
void PropertiesAngle(const Library& library, ProjectState& s)
{
    const bool equal = Traits(s).shape.equal;
    const TableRow row = ChosenRow(library, s, TableOf(s));
    ClearSection(s);
    if (equal) {
        ReadEqual(row, s);
    } else {
        ReadUnequal(row, s);
    }

    const double h = s.h, b = s.b, t = s.tw, r = s.r;
    s.tf = s.tw;
    s.hw = F32(h - t);
    s.d = F32(h - t - r);
    s.cb = F32(b - t - r);
    s.ch = s.d;
    s.cflange = s.cb;
    s.aeff = s.a;
    s.aflange = F32(b * t);
    s.aweb = F32(s.hw * t);
    const double t3 = std::pow(t, 3);
    const double b3 = std::pow(b, 3);
    if (equal) {
        s.it = F32(t3 * (b - t / 2) * (2.0 / 3));
        s.iw = F32(b3 * t3 / 18);
    } else {
        s.it = F32(t3 * ((b - t / 2) + (h - t / 2)) / 3);
        s.iw = F32((std::pow(h, 3) * t3 + b3 * t3) / 9);
    }
    SetPoints(s);
    SetModuli(s);
    s.surface = F32((2 * (b + h) - 2 * r + pi * r / 2) / 1000);
    SetThickness(s);
    SetWeight(s);
}

}  // namespace kestrum
