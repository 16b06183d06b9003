#pragma once

// What the printed reports share: the head of the page and the name of the profile.

#include "report/pages.h"

namespace kestrum {

constexpr std::string_view kDesignTitle = "Member Design Program incl updates til Jan 2021";
constexpr std::string_view kVortexTitle = "Vortex shedding according to EN 1991-1-4";

// Six rows and a rule, a warning, the profile tables that are not the delivered ones; the page goes
// on below.
void PageHeader(PageWriter& page, const Library& library, const ProjectState& s,
                const PrintStamp& stamp, std::string_view title);

// The pages as a report. Their heads say "1/1" until it is known how many there are.
PrintedReport Bind(std::vector<PageWriter> pages);

// The path, or behind its last folder when it is longer than 40 characters.
std::string FileText(std::string_view filename);

// "HEA 200", "Box 300x200x10x12", "Pl 600x10 + L 250x90x9". `brief`, on the page of the control,
// shortens how a hollow section is made and sets some names off: "  RHS 200x100x8 (Hotf.)".
std::string ProfileText(const Library& library, const ProjectState& s, bool brief);

}  // namespace kestrum
