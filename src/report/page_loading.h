#pragma once

// The loading of the member on the printed page.

#include "report/pages.h"

#include <string>
#include <vector>

namespace kestrum {

struct ProjectInputs;

// One row of a table of loads; the category has a star where the load does not act.
struct LoadRow {
    std::string load, value, position, category;
};

// Loads along z (direction 1) or y (0) that are not zero.
std::vector<LoadRow> LoadRowsOf(const ProjectInputs& s, int direction);

// "N = 100.0 (G)    N = 20.0 (Q1)"
std::string AxialLoads(const ProjectInputs& s);

// Loads along the member: axial ones and a table for each direction. Only rows with a value are
// written. In the column from `left` to `right`; moves below. `low` saves height: a table of more
// than two rows goes on beside itself where its texts leave the room.
void PrintLoading(PageWriter& page, const ProjectInputs& s, double left, double right, bool low);

// Self-weight and psi factors.
void PrintLoadOptions(PageWriter& page, const ProjectInputs& s, double left, double right);

// The given end forces, two columns of values.
void PrintEndForces(PageWriter& page, const ProjectInputs& s, double left, double right);

// The load combinations in force, one a row, and the width of the longest.
double CombinationWidth(const ProjectState& s);
void PrintCombination(PageWriter& page, const ProjectState& s);

}  // namespace kestrum
