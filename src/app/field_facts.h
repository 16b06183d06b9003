#pragma once

// What there is to say about a field: type, unit, role, values with their names, limits. One
// description for `kestrum fields`, the documents and the schema that are made from it.

#include "app/choices.h"
#include "core/field_table.h"
#include "core/library.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct FieldFacts {
    std::string name;         // "qload", without row
    std::string_view type;    // f32, f64, i16, tick, text
    int first = 0, last = 0;  // rows; both 0 for a single value
    bool rows = false;
    std::string_view unit, role, meaning;
    int since = 0;
    const Choice* choice = nullptr;  // the list of values
    std::string values;              // in words: "0 G, 1 Q1"; empty where any number goes
    std::string limits;              // "at least 0.05"; empty without
    std::vector<FilePlace> places;   // in the project file
};

FieldFacts FactsOf(const Library& library, const Field& field);

// The field that a name means: with or without its row, `steel`, `annex` and `section` (family,
// series and row in one; described as the family). Null for none.
const Field* FieldMeant(std::string_view name);

// "settings", "axial" ..
std::string_view PartName(FilePart part);

// A few lines for a reader.
std::string FactsText(const FieldFacts& facts);

// The limits of a field in words, whatever the project.
std::string LimitsOf(const Field& field);

}  // namespace kestrum
