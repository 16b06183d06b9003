// The dimensions that an outline is drawn from: those of the section in hand, and typical ones.

#include "report/section_outline.h"

namespace kestrum {

SectionShape ShapeOf(const ProjectState& s)
{
    SectionShape shape;
    shape.family = s.family;
    shape.h = s.h;
    shape.b = s.b;
    shape.tw = s.tw;
    shape.tf = s.tf;
    shape.rin = s.rin;
    shape.btop = s.btop;
    shape.ttop = s.ttop;
    shape.bbot = s.bbot;
    shape.tbot = s.tbot;
    switch (s.family) {
    case 21:  // r is the weld leg
        break;
    case 10:
    case 11:  // EN 10056-1: toes are rounded with half the root radius
        shape.r = s.r;
        shape.r2 = s.r / 2.0;
        break;
    case 15:  // DIN 1025-1
        shape.r = s.r;
        shape.r2 = 0.6 * s.r;
        shape.tapered = true;
        break;
    case 16:
        shape.r = s.r;
        shape.r2 = s.r2;
        shape.tapered = true;
        break;
    case 102:  // BS 4-1: the toes of joists have about half the root radius
        shape.r = s.r;
        shape.r2 = 0.5 * s.r;
        shape.tapered = true;
        break;
    case 103:
        shape.r = s.r;
        shape.r2 = s.r2;
        shape.tapered = s.r2 > 0;
        break;
    case 23:
        shape.btop = shape.bbot = s.b;
        shape.ttop = shape.tbot = s.tf;
        shape.over = s.bo;
        break;
    case 25:
        shape.over = s.p25.istc;
        break;
    case 27:
        shape.over = s.ctopout;
        break;
    default:
        shape.r = s.r;
    }
    return shape;
}

SectionShape TypicalShape(int family)
{
    SectionShape s;
    s.family = family;
    s.h = 100;
    s.b = 70;
    s.tw = 8;
    s.tf = 10;
    s.btop = 60;
    s.ttop = 10;
    s.bbot = 86;
    s.tbot = 12;
    switch (family) {
    case 1:
    case 2:
    case 3:
    case 4:
    case 101:
        s.r = 9;
        break;
    case 15:
    case 102:
        s.r = 9;
        s.r2 = 5;
        s.tapered = true;
        break;
    case 16:
        s.b = 50;
        s.r = 9;
        s.r2 = 5;
        s.tapered = true;
        break;
    case 5:
    case 103:
        s.b = 50;
        s.r = 9;
        break;
    case 6:
    case 8:
        s.b = 100;
        [[fallthrough]];
    case 7:
    case 9:
        s.r = 15;
        s.rin = 7;
        break;
    case 10:
        s.b = 100;
        [[fallthrough]];
    case 11:
        s.r = 10;
        s.r2 = 5;
        s.tw = 10;
        break;
    case 23:
        s.b = s.btop = s.bbot = 90;
        s.tbot = 10;
        s.over = 16;
        break;
    case 24:
        s.h = 80;
        s.bbot = 110;
        break;
    case 25:
        s.h = 80;
        s.bbot = 110;
        s.over = 14;
        break;
    case 27:
        s.btop = 80;
        s.bbot = 100;
        s.over = 14;
        break;
    case 26:
        s.btop = 80;
        s.tbot = s.bbot = 0;
        break;
    case 28:
        s.tw = 14;
        break;
    case 51:
        s.btop = 110;
        s.tbot = s.bbot = 0;
        break;
    case 52:
    case 53:
    case 56:
        s.btop = 110;
        s.bbot = 48;
        break;
    case 54:
        s.btop = 110;
        s.bbot = 30;
        s.tbot = 18;
        break;
    default:
        break;
    }
    return s;
}

}  // namespace kestrum
