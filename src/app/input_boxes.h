#pragma once

// Every numeric input box of the program: which field it writes, how it shows it, what it asks of
// other fields and what it says when it refuses. The limits of the value itself are the field's.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kestrum {

struct ProjectState;

// What a box does beside the limits of its field.
enum class BoxRule : std::uint8_t {
    plain,
    position,     // 0 to the member length, or 0 to 1 of it; a bad one becomes 0
    stiffeners,   // below the member length
    overhang,     // box girder: a < b/2 - tw
    hsqbottom,    // b2 >= b1 - 2 tw
    hsqtop,       // b1 < b2 - c
    hsqoverhang,  // c <= b1/2
    boxtop,       // moves c when it no longer fits
    boxbottom,    // b2 >= a + tw
};

struct Box {
    std::string_view form;    // window in which the box stands
    std::string_view id;      // its name there; two windows may use one name
    std::string_view field;   // of the record, or of each row of an array
    std::string_view format;  // empty: as entered
    std::string_view message;
    std::string_view other = {};  // instead: relative positions, the second half of a rule
    BoxRule rule = BoxRule::plain;
};

std::span<const Box> InputBoxes();

// Box of a window, or null.
const Box* FindBox(std::string_view form, std::string_view id);

// The box that writes a field, or null.
const Box* BoxOfField(std::string_view field);

struct BoxOutcome {
    bool taken = true;
    std::string_view message;  // with its blanks; may accompany a value that was taken
};

constexpr std::string_view kMismatch = "Input string mismatch ";

// What leaving the box does: reads the text, stores the value, checks it. A refused value stays in
// the record (a refused position is 0 there), except a text that is no number, or a whole number
// out of range, which leaves the record untouched. `index` is the row of an array. Does not
// calculate.
BoxOutcome Commit(ProjectState& s, const Box& box, int index, std::string_view text,
                  bool decimalcomma);

// Whether the positions of the box are edited as x/L.
bool EditsRelative(const ProjectState& s, const Box& box);

// The limits in force as numbers: "at least 0.05", "above 50 and at least 288". Empty without
// limits.
std::string LimitText(const ProjectState& s, const Box& box);

// Text of the box for the value in the record; positions as x/L when they are edited so.
std::string BoxText(const ProjectState& s, const Box& box, int index);

}  // namespace kestrum
