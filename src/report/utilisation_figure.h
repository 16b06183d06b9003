#pragma once

// Utilisation along the member, a fourth curve below moment, shear force and deflection: the
// largest ratio of the section checks at each place, by the program's rules and by EN 1993-1-1 as
// written, with the line of the limit.

#include "engine/utilisation.h"
#include "report/drawing.h"

#include <cstddef>
#include <string>

namespace kestrum {

struct Utilisation {
    std::optional<AlongMember> program{}, standard{};
    double limit = 1;
};

// The picture of an axis (report/diagrams) with the curves below.
Drawing WithUtilisation(Drawing picture, const Utilisation& along);

// "IR = 0.23, EN 1993-1-1 0.31" at a stored point.
std::string UtilisationText(const Utilisation& along, std::size_t point);

}  // namespace kestrum
