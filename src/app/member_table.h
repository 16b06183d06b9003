#pragma once

// Many members as a table: one member a line, as CSV under a line of column names or as NDJSON with
// the names in each object. Names are the canonical ones ("l", "qload[2]", "p22.isttw"); what a
// line does not name keeps its value.

#include "app/assign.h"
#include "app/assign_run.h"
#include "app/table_record.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kestrum {

// What a line says beside the fields of its member.
struct LineExtras {
    // A value under a name that is no field; its text, or as JSON when `json` says so.
    struct Kept {
        std::string name, value;
        bool json = false;
    };
    std::vector<Remark> remarks;
    std::vector<Kept> kept;  // of a CSV one for each such column, in their order
};

// Columns of a CSV, read from its first line. Cells are separated by commas, or by semicolons or
// tabs when the first line has no comma; quoted as in RFC 4180.
class MemberColumns {
public:
    // Returns why the line is no line of column names, or nothing. A column that is no field is
    // refused, or with `keepothers` kept for the answer.
    std::string TakeHeader(std::string_view line, bool keepothers = false);

    // Sets the fields of one line, from left to right; an empty cell leaves its field. Returns the
    // reason of a refusal, or nothing; the record is then half set, but what is kept is whole.
    std::string Apply(const Library& library, ProjectState& s, std::string_view line, Manner manner,
                      LineExtras* extras = nullptr) const;

    // Names of the columns that are no fields, in their order.
    std::vector<std::string> Others() const;

    std::string_view separator() const { return {&separator_, 1}; }

private:
    struct Column {
        std::string name;
        AssignTarget target;
        bool other;        // no field
        std::string hint;  // of what is no field: what may be meant
    };
    std::vector<Column> columns_;
    char separator_ = ',';
};

// Fields of JSON objects by name, looked up once for many lines.
class JsonKeys {
public:
    struct Key {
        AssignTarget target;
        std::string refusal;  // why there is no such target
        std::string hint;     // of what is no field: what may be meant
    };
    const Key& Find(const std::string& name);

private:
    std::unordered_map<std::string, std::unique_ptr<Key>> keys_;
    std::unique_ptr<Key> unknown_;
};

// The same for one flat JSON object. Numbers, true and false, texts; null leaves the field; a list
// sets the rows of an array in turn. With `keepothers` what is no field is kept for the answer,
// also behind a value that is refused.
std::string ApplyJsonLine(const Library& library, ProjectState& s, std::string_view line,
                          Manner manner);
std::string ApplyJsonLine(const Library& library, ProjectState& s, std::string_view line,
                          Manner manner, JsonKeys& keys, bool keepothers, LineExtras& extras);

}  // namespace kestrum
