#pragma once

// What the printed pages say about the result as a whole: verdict, dropped loads, and the
// deviations on the unsafe side that act in it.

#include "report/design_notes.h"
#include "report/outcome.h"
#include "report/page_writer.h"

#include <string>
#include <vector>

namespace kestrum {

// A list of sentences as lines of small text, as wide as the page, each with its number in front.
struct NoteLine {
    std::string id;  // on the first line of a sentence
    std::string text;
};
struct NoteList {
    std::string_view head;  // may be empty
    double text;            // x where the sentences begin
    std::vector<NoteLine> lines{};

    void Add(std::string id, std::string_view sentence);
};
NoteList ListOf(const std::vector<DesignNote>& notes);

// Writes the lines from `first` on as far as the page reaches, under the heading; moves below.
// Returns the first line that is left.
std::size_t PrintNotes(PageWriter& page, const NoteList& list, std::size_t first);

// "Verdict: above limit" and each dropped load; moves below.
void PrintVerdict(PageWriter& page, const Outcome& outcome);

// Text as wide as the page, in as many rows as it takes; moves below.
void PrintWrapped(PageWriter& page, std::string_view text, TextStyle style);
std::size_t RowsOf(std::string_view text, const TextStyle& style);

// "Notes on the unsafe side: D20, D104".
std::string NoteNumbers(const std::vector<DesignNote>& notes);

}  // namespace kestrum
