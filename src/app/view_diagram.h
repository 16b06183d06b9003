#pragma once

// Reading along the member: a place that all diagrams share, moved by the pointer, the wheel and
// the arrow keys. Places are in units of the pictures (report/member_drawing).

#include "report/load_drawing.h"
#include "report/utilisation_figure.h"

#include <optional>
#include <string>

namespace kestrum {

struct ProjectState;

// The stored point that lies `steps` of a fiftieth of the length from the place, kept on the
// member; without a place the one in the middle.
double StepReading(std::optional<double> x, int steps);

// Deflection at the place, "dz = 3.2 mm", beside what HoverText tells of moment and shear force;
// empty outside the member, and with given end forces, which have none.
std::string DeflectionReading(const ProjectState& s, LoadAxis axis, double x);

// What the curves are of: the program's of the combination that is chosen, the standard's of the
// worst of all combinations, EN 1990, 6.4.3.2; nothing is said where both are of the same one.
void NameCombinations(const ProjectState& s, Utilisation& along);

// The diagrams of an axis as a table of 51 places, columns apart by tabs: "x m", "My kNm", "Vz kN",
// "dz mm", "IR", "EN 1993-1-1". What is not known has no column.
std::string DiagramTable(const ProjectState& s, LoadAxis axis, const Utilisation& along);

// Utilisation at the place by both bases, "IR = 0.23, EN 1993-1-1: 0.31"; empty outside the member.
std::string UtilisationReading(const Utilisation& along, double x);

}  // namespace kestrum
