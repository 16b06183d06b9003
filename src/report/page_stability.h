#pragma once

// The buckling parameters of the control page: columns 6.3.1, beams 6.3.2 of EN 1993-1-1.

namespace kestrum {

class PageWriter;
struct Library;
struct ProjectState;

void PrintStability(PageWriter& page, const ProjectState& s);

}  // namespace kestrum
