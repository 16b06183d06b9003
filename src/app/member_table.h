#pragma once

// Many members as a table: one member a line, as CSV under a line of column names or as NDJSON with
// the names in each object. Names are the canonical ones ("l", "qload[2]", "p22.isttw"); what a
// line does not name keeps its value.

#include "app/assign.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

// The next line of a text without its line end, taken off the front.
std::string_view TakeLine(std::string_view& text);

// Columns of a CSV, read from its first line. Cells are separated by commas, or by semicolons or
// tabs when the first line has no comma; quoted as in RFC 4180, but never over several lines, since
// no field holds a line end.
class MemberColumns {
public:
    // Returns why the line is no line of column names, or nothing.
    std::string TakeHeader(std::string_view line);

    // Sets the fields of one line, from left to right; an empty cell leaves its field. Returns the
    // reason of a refusal, or nothing; the record is then half set.
    std::string Apply(const Library& library, ProjectState& s, std::string_view line,
                      Assignment how) const;

    // Columns whose values do not stand in this record, with the reason.
    std::vector<std::string> Overruled(const Library& library, const ProjectState& s) const;

private:
    struct Column {
        std::string name;
        AssignTarget target;
    };
    std::vector<Column> columns_;
    char separator_ = ',';
};

// The same for one flat JSON object. Numbers, true and false, texts; null leaves the field; a list
// sets the rows of an array in turn.
std::string ApplyJsonLine(const Library& library, ProjectState& s, std::string_view line,
                          Assignment how);

// A text as a cell of a CSV with commas; a line end becomes a blank, so that a record is one line.
void AppendCell(std::string& out, std::string_view text);

}  // namespace kestrum
