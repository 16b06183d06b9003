#pragma once

// Utilisation along the member, a fourth curve below moment, shear force and deflection: the
// largest ratio of the section checks at each place, by the program's rules and by EN 1993-1-1 as
// written, with the line of the limit.

#include "engine/utilisation.h"
#include "report/drawing.h"
#include "report/member_drawing.h"

#include <cstddef>
#include <string>

namespace kestrum {

struct Utilisation {
    std::optional<AlongMember> program{}, standard{};
    double limit = 1;
    // What each is of: the combination in force, "EN 1990 Eq 6.10"; the worst of all of them.
    std::string programof{}, standardof{};
};

// Height of the band that is not the curves: a legend that is too long for the picture takes two
// lines.
double UtilisationAround(const Utilisation& along, const MemberSpan& span);

// The curves as a band of a picture along the member, `height` high from `top` on.
void AddUtilisation(Drawing& d, const Utilisation& along, const MemberSpan& span, double top,
                    double height);

// "IR = 0.23, EN 1993-1-1: 0.31" at a stored point.
std::string UtilisationText(const Utilisation& along, std::size_t point);

}  // namespace kestrum
