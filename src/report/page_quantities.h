#pragma once

// Which values of the section each family has, in the order in which the printed pages show them.

#include "core/state/types.h"
#include "report/page_writer.h"

#include <vector>

namespace kestrum {

struct ProjectState;

// Dimensions and weight.
std::vector<Quantity> DimensionsOf(const ProjectState& s);
std::vector<Quantity> WeightsOf(const ProjectState& s);

// Areas, second moments, moduli; effective ones where the class asks for them.
std::vector<Quantity> SectionPropertiesOf(const ProjectState& s);

// Class under My, the larger of both signs where they differ: after the stability control the
// record of family 22 holds the one of the sign in hand.
i16 ShownClassMy(const ProjectState& s);

// Heading of the class and the class; resistances, kN and kNm.
std::string_view ClassHeading(const ProjectState& s);
std::string ClassText(const ProjectState& s);
std::vector<Quantity> CapacitiesOf(const ProjectState& s);

// Sign and class of the two moment resistances of family 22; empty for others.
std::vector<std::string> MomentSidesText(const ProjectState& s);

}  // namespace kestrum
