#pragma once

// Lateral torsional buckling by EN 1993-1-1 as written with its terms.

#include "core/project_state.h"
#include "document/document.h"
#include "standard/lateral.h"

namespace kestrum {

// Critical moment, slenderness, reduction and Mb,Rd of lateral torsional buckling.
void AddStandardLateral(const ProjectState& input, const standard::LateralResult& r,
                        const standard::NumericalStudy* study, const standard::StandardSection& q,
                        Document& d);

// C1 of the piece that holds the largest moment, between forks.
void AddC1(const standard::PieceTerms& piece, const standard::StandardSection& q, Document& d);

}  // namespace kestrum
