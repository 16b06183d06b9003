#pragma once

// What the pages say of EN 1993-1-1 as written: a line with the largest ratio of both, and on the
// page of the control the deviations that act with what each of them costs.

#include "core/library.h"
#include "report/outcome.h"
#include "report/page_notes.h"

#include <cstdint>
#include <functional>
#include <string>

namespace kestrum {

struct ProjectState;

// "Program: IR 0.73, ... By EN 1993-1-1 as written: ...", of a state after a pass.
// `known`: the result of the standard; null: calculated here.
std::string RatiosText(const Library& library, const ProjectState& s, const Outcome& outcome,
                       const standard::StandardResult* known);

// Notes and a line of text below what a page shows, on further pages of `next` where it has no
// room.
PrintedReport WithNotes(PageWriter page, const std::vector<DesignNote>& notes, std::string line,
                        const std::function<PageWriter()>& next);

// How the deviations are listed: each with its sentence; numbers and costs alone; on another page.
enum class Costs : std::uint8_t { whole, brief, elsewhere };

class StandardPart {
public:
    // `s` after a pass, with its outcome. `known`: the result of the standard with its costs; null:
    // calculated here.
    StandardPart(const Library& library, const ProjectState& s, const Outcome& outcome,
                 const standard::StandardResult* known);

    // Below all else, whatever room there is.
    void Print(PageWriter& page, Costs costs);
    // The line alone, where it fits.
    void PrintLineIfRoom(PageWriter& page);
    // On a further page: what is left, as far as it reaches.
    void PrintRest(PageWriter& page);
    bool done() const { return line_.empty() && next_ == list_.lines.size(); }

private:
    void PrintLine(PageWriter& page);

    std::string line_;  // empty when it is printed
    NoteList list_, brief_;
    std::size_t next_ = 0;  // line of the list
};

}  // namespace kestrum
