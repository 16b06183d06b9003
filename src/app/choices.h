#pragma once

// The inputs that are chosen from a list or an option instead of typed: which values each can have.

#include "core/library.h"
#include "core/project_state.h"

#include <optional>
#include <string>
#include <string_view>

namespace kestrum {

struct Choice {
    std::string_view field;
    i16 lowest, highest;
    bool truth = false;  // kept as 0 and -1, written #TRUE# and #FALSE#
};

// The list of values of a field, or null when it is typed.
const Choice* FindChoice(std::string_view field);

// Whether the list offers this value; families, table rows and materials as far as the library has
// them.
bool Offers(const Library& library, const Choice& choice, int value);

// The profile table whose rows a field such as "row.ipe" picks; nothing for other fields.
std::optional<Table> TableOfField(std::string_view field);

// The values of the list in words, behind "not in the list": "(0 to 5)".
std::string Offered(const Library& library, const Choice& choice);

// Whether the values have names: profiles and steels.
bool Named(const Choice& choice);

// The value of a profile or a steel by its name in the list, such as "IPE 400" or "S355"; blanks
// and capitals do not count. Nothing for other lists and unknown names.
std::optional<i16> ValueOfName(const Library& library, const Choice& choice, std::string_view name);

}  // namespace kestrum
