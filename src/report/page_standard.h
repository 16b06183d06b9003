#pragma once

// What the page of the control says of EN 1993-1-1 as written: a line with the largest ratio of
// both, and the deviations that act with what each of them costs. It takes the room that the page
// has left and moves nothing; the rest goes on a further sheet.

#include "core/library.h"
#include "report/outcome.h"
#include "report/page_notes.h"

#include <string>

namespace kestrum {

struct ProjectState;

class StandardPart {
public:
    // `s` after a pass, with its outcome.
    StandardPart(const Library& library, const ProjectState& s, const Outcome& outcome);

    // Below all else: the line, and behind it the whole list unless `list` is to follow elsewhere,
    // each as far as it fits.
    void PrintIfRoom(PageWriter& page, bool list);
    // On a further sheet: what is left, as far as the page reaches.
    void PrintRest(PageWriter& page);
    bool done() const { return line_.empty() && next_ == list_.lines.size(); }

private:
    void PrintLine(PageWriter& page);

    std::string line_;  // empty when it is printed
    NoteList list_;
    std::size_t next_ = 0;  // line of the list
};

}  // namespace kestrum
