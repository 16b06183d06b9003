#pragma once

// Find by words what the program has: a section takes its name, an input takes a value or leads to
// its box. Words may be parts of words; capitals do not count.

#include "app/session.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct Finding {
    enum class Kind : std::uint8_t {
        section,  // taken for the member
        value,    // stored
        box       // to be shown
    };
    Kind kind = Kind::section;
    std::string text{};           // for the list: "IPE 330", "Length of the member: 5.000 to 6 m"
    std::string name{}, value{};  // of the section; of the field and what it gets
    const Box* box = nullptr;
    int row = 0;
};

// Sections and inputs of the project in hand, the best first. A number behind the words is the
// value that an input shall have: "k y 0.7".
std::vector<Finding> FindByWords(const Session& session, std::string_view typed);

// Takes the section or the value; a refusal is told. True when it was taken.
bool Take(Session& session, const Finding& finding);

// Whether all words are found in the text.
bool HasWords(std::string_view text, std::string_view words);

}  // namespace kestrum
