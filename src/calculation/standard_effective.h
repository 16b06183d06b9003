#pragma once

// The effective section of class 4 by EN 1993-1-5, 4.4 as written, with its terms.

#include "document/document.h"
#include "standard/effective_study.h"

namespace kestrum {

struct EffectiveStates {
    bool compression, bending_y;  // of class 4
};

// The plates that lose a part, and what is left of the section.
void AddStandardEffective(const standard::EffectiveStudy& study, EffectiveStates states,
                          Document& d);

}  // namespace kestrum
