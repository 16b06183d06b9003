#pragma once

// What the windows tell about a numeric box: its label, its unit, what it means and where the
// standard speaks of it. One table for labels, tooltips and screen readers.

#include "app/input_boxes.h"

#include <string>
#include <string_view>

namespace kestrum {

struct BoxHelp {
    std::string_view form;  // empty: every section form
    std::string_view id;
    std::string_view label;    // in front of the box
    std::string_view unit;     // behind it
    std::string_view meaning;  // a sentence without its point
    std::string_view clause = {};
};

// Every box has an entry.
const BoxHelp& HelpOf(const Box& box);

// Tooltip: meaning with unit, limits, clause, one below the other.
std::string TooltipOf(const Box& box);

// What the box takes, with the unit: "Allowed: at least 0.05 m"; "Allowed: a number, kN"
// without limits.
std::string AllowedText(const ProjectState& s, const Box& box);

// For screen readers: meaning and unit.
std::string AccessibleNameOf(const Box& box);

}  // namespace kestrum
