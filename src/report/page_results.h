#pragma once

// The rows of the checks on the control page, and the modal analysis.

namespace kestrum {

class PageWriter;
struct Library;
struct ProjectState;

void PrintResults(PageWriter& page, const ProjectState& s);
void PrintModal(PageWriter& page, const ProjectState& s);

}  // namespace kestrum
