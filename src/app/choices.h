#pragma once

// The inputs that are chosen from a list or an option instead of typed: which values each can have,
// and their names. The lists are those of core/field_list.

#include "core/field_table.h"
#include "core/library.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct ProjectState;

// A value and what it is called; the first name is the one that is written.
struct NamedValue {
    i16 value;
    std::vector<std::string_view> names;
};

struct Choice {
    std::string_view field;
    std::string_view values;  // as in the list of fields
    i16 lowest = 0, highest = 0;
    bool truth = false;               // kept as 0 and -1, written #TRUE# and #FALSE#
    std::vector<NamedValue> named{};  // by value; empty for ranges, families, steels and rows
    std::optional<Table> table{};     // whose rows are the values
};

// The list of values of a field, or null when it is typed.
const Choice* FindChoice(std::string_view field);
const Choice* ChoiceOf(const Field& field);

// Whether the list offers this value; families, table rows and materials as far as the library has
// them.
bool Offers(const Library& library, const Choice& choice, int value);

// The profile table whose rows a field such as "row.ipe" picks; nothing for other fields.
std::optional<Table> TableOfField(std::string_view field);

// The values of the list in words, behind "not in the list": "(0 to 9)", "(1 A, 2 B)".
std::string Offered(const Library& library, const Choice& choice);

// The value of a name such as "IPE 400", "S355" or "cantilever"; blanks, hyphens and capitals do
// not count. Nothing for unknown names and for names of several values.
std::optional<i16> ValueOfName(const Library& library, const Choice& choice, std::string_view name);

// The steel of this name. Returns "no such name in the list ..", or nothing.
std::string FindSteel(const Library& library, std::string_view name, i16& steel);

// The name of a value: "cantilever"; empty where it has none.
std::string NameOfValue(const Library& library, const Choice& choice, int value);

// What may be meant by a name that the list does not have, as the end of a sentence: "; did you
// mean S355?". Empty when nothing comes near.
std::string NameHint(const Library& library, const Choice& choice, std::string_view name);

}  // namespace kestrum
