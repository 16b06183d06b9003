#pragma once

// A table of members as `batch` takes it, open for editing: its cells, the steps of the user, and
// the way between a line and a project. Holds no result; app/members_rating.h has those.

#include "app/member_table.h"
#include "core/library.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestrum {

struct ProjectState;

class MembersSheet {
public:
    // A line. Lines never change: an edit makes another one, so that results can be kept by `id`,
    // also across undo.
    struct Row {
        std::uint64_t id = 0;
        std::vector<std::string> cells{};
        std::string record{};  // as it was read; empty for an edited one
        bool sound = true;  // false: the quotes of the record cannot be meant; it is the one cell
    };

    // Cells of some columns of lines, in the order in which the user sees these.
    struct Range {
        std::vector<std::size_t> rows{};
        std::size_t column = 0, columns = 1;
    };

    // An empty table has the columns of a simple member.
    MembersSheet();

    // Takes the bytes of a file in place of what is there. Returns "members.csv:1: what", or
    // nothing.
    std::string Take(std::string_view bytes, const std::string& name);

    // The file. Lines that were not edited are written as they were read.
    std::string Text() const;

    std::size_t rows() const { return now_.rows.size(); }
    const std::vector<std::string>& columns() const { return *now_.columns; }
    const Row& At(std::size_t row) const { return *now_.rows[row]; }
    std::string_view Cell(std::size_t row, std::size_t column) const;
    // What the line is called: its key, or its number from 1.
    std::string NameOf(std::size_t row) const;

    // Edits, each one step of Undo. Text of a spreadsheet has tabs and line ends. A single cell of
    // it fills the whole range, some lines as often as they go into it; more go on `below`, and
    // behind the last line. Returns why the text does not fit in, or nothing.
    std::string Paste(const Range& at, std::string_view text,
                      std::span<const std::size_t> below = {});
    void Set(std::size_t row, std::size_t column, std::string text);
    // The first line of the range in all others.
    void FillDown(const Range& range);
    void Clear(const Range& range);
    void Insert(std::size_t before, std::size_t count);
    void Remove(std::vector<std::size_t> rows);
    // Returns why there is no such column, or it is there already; or nothing.
    std::string AddColumn(const std::string& name);
    // The texts in the column of this name, which is added where it is missing.
    void SetColumn(const std::string& name,
                   std::span<const std::pair<std::size_t, std::string>> texts);
    // The cells as text for a spreadsheet.
    std::string Copy(const Range& range) const;

    bool CanUndo() const { return !undo_.empty(); }
    bool CanRedo() const { return !redo_.empty(); }
    void Undo();
    void Redo();

    bool modified() const { return now_.step != saved_; }
    void MarkSaved() { saved_ = now_.step; }
    void MarkUnsaved() { saved_ = kNever; }
    // Of the user, counted through all tables that this one has held.
    std::uint64_t step() const { return now_.step; }
    // The table as it is, without its steps, to be kept or written elsewhere.
    MembersSheet Alone() const;

    // How lines are read, and the line itself; both for another thread.
    std::shared_ptr<const MemberColumns> reader() const { return now_.reader; }
    std::string Record(std::size_t row) const;

    // The member of a line upon `s`. Returns the reason of a refusal, or nothing.
    std::string Member(const Library& library, std::size_t row, ProjectState& s) const;

    // Writes into the line what makes it the member that is wanted, a project behind its pass; what
    // a cell gives already stays as it is written. Columns are added for what has none. Returns the
    // names of fields that the line cannot give, or nothing.
    std::string Write(const Library& library, std::size_t row, const ProjectState& base,
                      const ProjectState& wanted);

private:
    struct Table {
        std::shared_ptr<const std::vector<std::string>> columns;
        std::shared_ptr<const MemberColumns> reader;
        std::vector<std::shared_ptr<const Row>> rows;
        std::uint64_t step = 0;
    };
    void Begin();
    void Begin(Table before);
    bool HasColumn(std::string_view name) const;
    Row& Edited(std::size_t row);
    std::string SetColumns(std::vector<std::string> columns);
    std::string Joined(const std::vector<std::string>& cells, std::size_t least) const;
    std::size_t ColumnFor(const std::string& name);

    static constexpr std::uint64_t kNever = static_cast<std::uint64_t>(-1);

    Table now_;
    std::vector<Table> undo_, redo_;
    std::uint64_t saved_ = 0, steps_ = 0, ids_ = 0;
    char separator_ = ',';
    bool crlf_ = false, mark_ = false;  // how the file ends its lines, and whether it has a mark
};

}  // namespace kestrum
