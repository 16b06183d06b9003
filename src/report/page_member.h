#pragma once

// The member at the head of the control page: material and rules, profile, geometry and loading.

namespace kestrum {

class PageWriter;
struct Library;
struct ProjectState;

bool HasSprings(const ProjectState& s);  // at a support

void PrintGeneral(PageWriter& page, const ProjectState& s);
void PrintProfile(PageWriter& page, const Library& library, const ProjectState& s);
// `low`: saves height for the figures.
void PrintMember(PageWriter& page, const ProjectState& s, bool low);

}  // namespace kestrum
