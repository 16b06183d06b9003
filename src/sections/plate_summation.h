#pragma once

// Section properties of a list of rectangular plates: sums, plastic axis and plastic modulus about
// y. Plates stand upright, z counts upwards from the section's origin, y to the side.

#include <span>

namespace kestrum {

// Rectangle of one plate, mm.
struct Plate {
    double width, height;
    double z0;  // lower edge
    double y;   // centre
};

struct PlateSums {
    double a;         // mm2
    double ey, zcog;  // centroid from the origin, mm
    double iy, iz;    // about the centroid, mm4
    double it;        // sum of long side x short side^3/3, mm4
    double ymax;      // outermost edge from the centroid, mm
    double height;    // upper edge of the highest plate above the origin, mm
};

PlateSums SumPlates(std::span<const Plate> plates);

// Plastic axis in steps of 0.1 mm from 2.0 mm on: the first level with at least half the area below
// it, held in single precision. Stops the pass when the search has left the section or the step no
// longer changes the level (2^21 mm).
float SteppedPlasticAxis(std::span<const Plate> plates);

// Level with exactly half the area below it, of plates that stand on one another in the order of
// the list.
double ExactPlasticAxis(std::span<const Plate> plates);

// Plastic modulus about the level zpl, mm3.
double PlasticModulus(std::span<const Plate> plates, double zpl);

}  // namespace kestrum
