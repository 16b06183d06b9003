#pragma once

// The effective section of class 4 told in full: its values and the parts that do not count.

#include "core/library.h"
#include "standard/angle.h"
#include "standard/effective.h"

#include <optional>

namespace kestrum::standard {

struct EffectiveStudy {
    StandardSection section;
    EffectiveValues values;
    EffectiveSection compressed;
    std::vector<LostPart> compression{}, sagging{}, hogging{};
    EffectiveSection sagged, hogged;
    AngleSection angle;  // of angles, in compression

    bool Shifts() const { return !section.DoublySymmetric(); }
};

// `project` as read. Nothing for what the standard basis does not cover.
std::optional<EffectiveStudy> EffectiveStudyOf(const Library& library, const ProjectState& project);

}  // namespace kestrum::standard
