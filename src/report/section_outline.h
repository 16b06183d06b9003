#pragma once

// The outline of the section in hand, in mm: what `DrawSection` shows to scale, with the places of
// its dimensions. x runs to the right and y downwards from the upper left corner of all.

#include "report/drawing.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kestrum {

struct ProjectState;

struct SectionDimension {
    enum class Side : std::uint8_t {
        left,  // a height
        top,   // widths
        bottom,
        right,  // thickness of a horizontal part
        across  // thickness of an upright part
    };
    std::string_view letter;
    Side side;
    Point from, to;

    double Value() const;  // mm
};

struct SectionOutline {
    std::vector<std::vector<Point>> rings;  // holes by the even-odd rule
    std::vector<SectionDimension> dimensions;
    double width = 0, height = 0;  // 0 where there is nothing to draw
    bool symbolic = false;         // stands for a section without a shape of its own
};

// What the outline is drawn from, mm. Sections of plates use top and bottom, the others b and tf.
struct SectionShape {
    int family = 0;
    double h = 0, b = 0, tw = 0, tf = 0;  // h: as the family's form has it
    double r = 0, r2 = 0, rin = 0;        // root or outer corner, toe, inner corner
    double btop = 0, ttop = 0, bbot = 0, tbot = 0;
    double over = 0;  // overhang of the top flange or, of a hat beam, of the bottom flange (left)
    bool tapered = false;
};

SectionShape ShapeOf(const ProjectState& s);

// A shape of pleasant proportions, for figures not to scale.
SectionShape TypicalShape(int family);

SectionOutline OutlineOf(const SectionShape& shape);

// Area of the rings, mm2, and its centroid.
double AreaOf(const SectionOutline& outline);
Point CentroidOf(const SectionOutline& outline);

}  // namespace kestrum
