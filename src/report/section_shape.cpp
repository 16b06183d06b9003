// The dimensions that an outline is drawn from: those of the section in hand, and typical ones.

#include "core/project_state.h"
#include "report/section_outline.h"
#include "sections/families.h"

namespace kestrum {

namespace {

// Toes of the flanges: DIN 1025-1 and, about, BS 4-1; channels have theirs in the tables.
double ToeRadius(const ProjectState& s, FlangeFaces faces)
{
    switch (faces) {
    case FlangeFaces::inp:
        return 0.6 * s.r;
    case FlangeFaces::joist:
        return 0.5 * s.r;
    case FlangeFaces::unp:
    case FlangeFaces::british_channel:
        return s.r2;
    case FlangeFaces::parallel:
        break;
    }
    return 0;
}

bool Tapered(FlangeFaces faces, double toe)
{
    return faces == FlangeFaces::british_channel ? toe > 0 : faces != FlangeFaces::parallel;
}

void SetTypicalStiffener(Stiffener stiffener, SectionShape& s)
{
    switch (stiffener) {
    case Stiffener::flat_bar:
        s.tbot = s.bbot = 0;
        break;
    case Stiffener::bulb_flat:
        s.bbot = 30;
        s.tbot = 18;
        break;
    default:
        s.bbot = 48;
    }
}

}  // namespace

SectionShape ShapeOf(const ProjectState& s)
{
    const FamilyTraits& family = Traits(s);
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
    switch (family.kind) {
    case Kind::i_welded:  // r is the weld leg
        break;
    case Kind::angle:  // EN 10056-1: toes are rounded with half the root radius
        shape.r = s.r;
        shape.r2 = s.r / 2.0;
        break;
    case Kind::i_rolled:
    case Kind::channel:
        shape.r = s.r;
        shape.r2 = ToeRadius(s, family.shape.faces);
        shape.tapered = Tapered(family.shape.faces, shape.r2);
        break;
    case Kind::box:
        shape.btop = shape.bbot = s.b;
        shape.ttop = shape.tbot = s.tf;
        shape.over = s.bo;
        break;
    case Kind::hat:
        if (family.shape.lower == LowerFlange::one_side) {
            shape.over = s.p25.istc;
        } else {
            shape.r = s.r;
        }
        break;
    case Kind::box_unequal:
        shape.over = s.ctopout;
        break;
    default:
        shape.r = s.r;
    }
    return shape;
}

SectionShape TypicalShape(int family)
{
    const FamilyTraits& traits = TraitsOf(family);
    const FlangeFaces faces = traits.shape.faces;
    const bool sloped = faces != FlangeFaces::parallel && faces != FlangeFaces::british_channel;
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
    switch (traits.kind) {
    case Kind::i_rolled:
    case Kind::channel:
        s.b = traits.kind == Kind::channel ? 50 : s.b;
        s.r = 9;
        s.r2 = sloped ? 5 : 0;
        s.tapered = sloped;
        break;
    case Kind::hollow:
        s.b = traits.shape.equal ? s.h : s.b;
        s.r = 15;
        s.rin = 7;
        break;
    case Kind::angle:
        s.b = traits.shape.equal ? s.h : s.b;
        s.r = 10;
        s.r2 = 5;
        s.tw = 10;
        break;
    case Kind::box:
        s.b = s.btop = s.bbot = 90;
        s.tbot = 10;
        s.over = 16;
        break;
    case Kind::hat:
        s.h = 80;
        s.bbot = 110;
        s.over = traits.shape.lower == LowerFlange::one_side ? 14 : 0;
        break;
    case Kind::box_unequal:
        s.btop = 80;
        s.bbot = 100;
        s.over = 14;
        break;
    case Kind::tee:
        s.btop = 80;
        s.tbot = s.bbot = 0;
        break;
    case Kind::flat:
        s.tw = 14;
        break;
    case Kind::plate:
        s.btop = 110;
        SetTypicalStiffener(traits.shape.stiffener, s);
        break;
    default:
        break;
    }
    return s;
}

}  // namespace kestrum
