#pragma once

// The equations of one result each, by the rules of the program. A chapter puts them below its
// headings, and a single check is explained by those that lead to it.

#include "core/project_state.h"
#include "document/document.h"

#include <string_view>

namespace kestrum {

// Tension or compression, by the sign of the axial force; with neither both.
void AddAxialResistance(const ProjectState& s, Document& d);
void AddMomentResistanceY(const ProjectState& s, Document& d);
void AddMomentResistanceZ(const ProjectState& s, Document& d);
void AddShearResistanceZ(const ProjectState& s, Document& d);
void AddShearResistanceY(const ProjectState& s, Document& d);

// Resistances of a section check that shear and axial force reduce at its place, 6.2.8, 6.2.9.1.
void AddReducedResistances(const ProjectState& s, const Check& check, Document& d);

// Length, critical force, slenderness, reduction, resistance. `axis`: y, z; of angles u, v too.
void AddFlexuralBuckling(const ProjectState& s, char axis, Document& d);
void AddLateralBuckling(const ProjectState& s, Document& d);
// "χ_LT,mod" where 6.3.2.3 (2) modifies the reduction, else "χ_LT".
std::string_view LateralSymbol(const ProjectState& s);
// Of the annex in use.
void AddInteractionFactors(const ProjectState& s, Document& d);

// L/n of the axis.
void AddDeflectionLimit(const ProjectState& s, char axis, Document& d);

}  // namespace kestrum
