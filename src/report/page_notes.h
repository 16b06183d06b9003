#pragma once

// Notes on the printed pages: the deviations on the unsafe side that act in the result.

#include "report/design_notes.h"
#include "report/page_writer.h"

#include <string>
#include <vector>

namespace kestrum {

// The notes as lines of small text, as wide as the page: number and sentence.
struct NoteLine {
    std::string id;  // on the first line of a note
    std::string text;
};
std::vector<NoteLine> NoteLines(const std::vector<DesignNote>& notes);

// Writes the lines from `first` on as far as the page reaches, under a heading; moves below.
// Returns the first line that is left.
std::size_t PrintNotes(PageWriter& page, const std::vector<NoteLine>& lines, std::size_t first);

// "Notes on the unsafe side: D20, D104".
std::string NoteNumbers(const std::vector<DesignNote>& notes);

}  // namespace kestrum
