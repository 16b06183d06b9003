#pragma once

// Inputs that the calculation does not read as the project stands.

#include "core/field_table.h"
#include "core/library.h"

#include <string>
#include <string_view>

namespace kestrum {

struct ProjectState;

// Why the value of this field, by its canonical name, plays no part: annex or material overrule it,
// or another choice would have to be made first. Empty when it counts, and for loads of 0.
std::string WithoutEffect(const Library& library, const ProjectState& s, std::string_view name);

// The two halves of it: the rules that may leave a field without effect, looked up once for many
// members, 0 for a field that always counts; and the one that does.
unsigned IdleRulesOf(const Field& field);
std::string WhyIdle(const Library& library, const ProjectState& s, const FieldRef& ref,
                    unsigned rules);

}  // namespace kestrum
