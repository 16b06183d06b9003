#pragma once

// The calculation report: everything that a checker needs to retrace the result, by the rules of
// the program and by EN 1993-1-1 as written. Several members make a book with a cover, a list of
// contents and a summary.

#include "core/held_state.h"
#include "core/library.h"
#include "document/document.h"

#include <span>
#include <string>

namespace kestrum {

struct ReportedMember {
    std::string file{};    // its name without folders; empty: none
    std::string digest{};  // SHA-256 of the file
    HeldState project;     // as read
    bool vortex = false;   // with the control of vortex shedding
};

// `head` without what comes from the members.
Document CalculationReport(const Library& library, std::span<const ReportedMember> members,
                           DocumentHead head = {});

}  // namespace kestrum
