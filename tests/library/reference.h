#pragma once

// What the calculation itself says of a project, in plain types: its names and those of the
// interface are of one namespace and never meet in one source.

#include <cstddef>
#include <string>

struct Reference {
    double ir = 0;
    std::string control, verdict, json, project;
    std::size_t notes = 0;
    bool rated_by_standard = false;
    double ir_standard = 0;
};

Reference ReferenceOf(const std::string& project);
