#include "app/members_sheet.h"

#include "app/answer_form.h"
#include "app/cell_reader.h"
#include "app/change_text.h"
#include "app/choices.h"
#include "app/member_list.h"
#include "app/table_record.h"
#include "app/table_text.h"
#include "app/view_section.h"
#include "app/without_effect.h"
#include "core/field_table.h"
#include "core/held_state.h"
#include "core/project_inputs.h"
#include "engine/calculate.h"
#include "sections/family_table.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <set>
#include <utility>

namespace kestrum {

namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";  // of UTF-8
constexpr std::size_t kKept = 4000000;              // lines in all steps of Undo

// Blanks at the ends count in a text; a separator, quote or line end would be read as such.
std::string Quoted(std::string_view cell, char separator)
{
    const std::string_view special = "\"\r\n";
    if (cell.find(separator) == std::string_view::npos &&
        cell.find_first_of(special) == std::string_view::npos) {
        return std::string(cell);
    }
    std::string out = "\"";
    for (const char c : cell) {
        out.append(c == '"' ? 2 : 1, c);
    }
    return out + "\"";
}

// A record whose quotes cannot be meant is one cell, so that nothing of it is lost.
struct Cells {
    std::vector<std::string> cells;
    bool sound;  // could be read
};

Cells CellsOf(std::string_view record, char separator)
{
    std::vector<std::string> cells;
    CellReader reader(record, separator);
    while (reader.Next()) {
        cells.emplace_back(reader.cell());
    }
    return reader.fault().empty() ? Cells{std::move(cells), true}
                                  : Cells{{std::string(record)}, false};
}

}  // namespace

MembersSheet::MembersSheet()
{
    SetColumns({"member", "section", "steel", "l", "qload[1]"});
    now_.rows.push_back(std::make_shared<Row>(Row{++ids_, {}, {}}));
}

std::string MembersSheet::SetColumns(std::vector<std::string> columns)
{
    auto reader = std::make_shared<MemberColumns>();
    std::string refusal = reader->TakeHeader(Joined(columns, columns.size()), true);
    if (refusal.empty()) {
        now_.columns = std::make_shared<const std::vector<std::string>>(std::move(columns));
        now_.reader = std::move(reader);
    }
    return refusal;
}

std::string MembersSheet::Take(std::string_view bytes, const std::string& name)
{
    std::string text;
    std::string refusal = DecodeTable(bytes, text);
    if (!refusal.empty()) {
        return name + " " + refusal;
    }
    if (text.find('\0') != std::string::npos) {  // it would be taken for UTF-16 when written
        return name + ": holds a zero byte, it is no table";
    }
    std::string_view rest = text;
    if (rest.starts_with('{') || rest.starts_with('[')) {
        return name + ": members are read from a CSV, not from JSON";
    }
    MembersSheet taken;
    taken.ids_ = ids_;  // results of lines that were there are none of these
    const std::string_view header = TakeRecord(rest, kAnySeparator);
    taken.separator_ = SeparatorOf(header);
    std::vector<std::string> columns = CellsOf(header, taken.separator_).cells;
    for (std::string& column : columns) {
        column = Trimmed(column);
    }
    refusal = taken.SetColumns(std::move(columns));
    if (!refusal.empty()) {
        return name + ":1: " + refusal;
    }
    taken.crlf_ = text.find("\r\n") != std::string::npos;
    taken.mark_ = bytes.starts_with(kMark) || text.size() != bytes.size();  // or UTF-16
    taken.now_.rows.clear();
    while (!rest.empty()) {
        const std::string_view record = TakeRecord(rest, {&taken.separator_, 1});
        if (!Trimmed(record).empty()) {
            Cells read = CellsOf(record, taken.separator_);
            taken.now_.rows.push_back(std::make_shared<Row>(
                Row{++taken.ids_, std::move(read.cells), std::string(record), read.sound}));
        }
    }
    taken.steps_ = taken.saved_ = taken.now_.step = steps_ + 1;
    *this = std::move(taken);
    return {};
}

MembersSheet MembersSheet::Alone() const
{
    MembersSheet alone;
    alone.now_ = now_;
    alone.separator_ = separator_;
    alone.crlf_ = crlf_;
    alone.mark_ = mark_;
    return alone;
}

std::string MembersSheet::Joined(const std::vector<std::string>& cells, std::size_t least) const
{
    std::string line;
    for (std::size_t i = 0; i < std::max(cells.size(), least); ++i) {
        line.append(i > 0 ? 1 : 0, separator_);
        line += i < cells.size() ? Quoted(cells[i], separator_) : std::string{};
    }
    return line;
}

std::string MembersSheet::Record(std::size_t row) const
{
    const Row& line = At(row);
    const bool fewer = line.sound && line.cells.size() < columns().size();
    return line.record.empty() || fewer ? Joined(line.cells, columns().size()) : line.record;
}

std::string MembersSheet::Text() const
{
    const std::string_view end = crlf_ ? "\r\n" : "\n";
    std::string text(mark_ ? kMark : std::string_view{});
    text.append(Joined(columns(), columns().size())).append(end);
    for (std::size_t row = 0; row < rows(); ++row) {
        text.append(Record(row)).append(end);
    }
    return text;
}

std::string_view MembersSheet::Cell(std::size_t row, std::size_t column) const
{
    const std::vector<std::string>& cells = At(row).cells;
    return column < cells.size() ? std::string_view(cells[column]) : std::string_view{};
}

std::string MembersSheet::NameOf(std::size_t row) const
{
    const std::optional<std::size_t> key = KeyColumn(columns());
    const std::string name(key ? Trimmed(Cell(row, *key)) : std::string_view{});
    return name.empty() ? std::to_string(row + 1) : name;
}

// --- Steps ---------------------------------------------------------------------------------------

void MembersSheet::Begin()
{
    Begin(now_);
}

void MembersSheet::Begin(Table before)
{
    undo_.push_back(std::move(before));
    redo_.clear();
    now_.step = ++steps_;
    const std::size_t most = std::max<std::size_t>(10, kKept / (rows() + 1));
    if (undo_.size() > most) {
        undo_.erase(undo_.begin());
    }
}

void MembersSheet::Undo()
{
    if (CanUndo()) {
        redo_.push_back(std::exchange(now_, std::move(undo_.back())));
        undo_.pop_back();
    }
}

void MembersSheet::Redo()
{
    if (CanRedo()) {
        undo_.push_back(std::exchange(now_, std::move(redo_.back())));
        redo_.pop_back();
    }
}

// The line, made anew for this step, with all of its cells; a line behind the last is added.
MembersSheet::Row& MembersSheet::Edited(std::size_t row)
{
    while (rows() <= row) {
        now_.rows.push_back(std::make_shared<Row>(Row{++ids_, {}, {}}));
    }
    auto made = std::make_shared<Row>(Row{++ids_, At(row).cells, {}});
    made->cells.resize(std::max(made->cells.size(), columns().size()));
    Row& line = *made;
    now_.rows[row] = std::move(made);
    return line;
}

void MembersSheet::Set(std::size_t row, std::size_t column, std::string text)
{
    if (row < rows() && Cell(row, column) == text) {
        return;
    }
    Begin();
    Edited(row).cells[column] = std::move(text);
}

std::string MembersSheet::Paste(const Range& at, std::string_view text,
                                std::span<const std::size_t> below)
{
    std::vector<std::vector<std::string>> block;
    std::size_t width = 0;
    while (!text.empty()) {
        block.push_back(CellsOf(TakeRecord(text, "\t"), '\t').cells);
        width = std::max(width, block.back().size());
    }
    if (block.empty()) {
        return {};
    }
    const std::size_t room = columns().size() - at.column;
    if (width > room) {
        return "the text has " + std::to_string(width) + " columns, the table only " +
               std::to_string(room) + " from here on";
    }
    Begin();
    const std::size_t times = std::max(at.rows.size() / block.size(), std::size_t{1});
    const std::size_t across = width == 1 ? std::min(at.columns, room) : width;
    for (std::size_t i = 0; i < times * block.size(); ++i) {
        const std::size_t lower = i - std::min(i, at.rows.size());
        const std::size_t row = i < at.rows.size()     ? at.rows[i]
                                : lower < below.size() ? below[lower]
                                                       : rows();
        const std::vector<std::string>& from = block[i % block.size()];
        Row& line = Edited(row);
        for (std::size_t j = 0; j < across; ++j) {
            const std::size_t source = width == 1 ? 0 : j;
            line.cells[at.column + j] = source < from.size() ? from[source] : std::string{};
        }
    }
    return {};
}

void MembersSheet::FillDown(const Range& range)
{
    if (range.rows.size() < 2) {
        return;
    }
    Begin();
    for (std::size_t i = 1; i < range.rows.size(); ++i) {
        Row& line = Edited(range.rows[i]);
        for (std::size_t j = range.column; j < range.column + range.columns; ++j) {
            line.cells[j] = Cell(range.rows[0], j);
        }
    }
}

void MembersSheet::Clear(const Range& range)
{
    Begin();
    for (const std::size_t row : range.rows) {
        Row& line = Edited(row);
        for (std::size_t j = range.column; j < range.column + range.columns; ++j) {
            line.cells[j].clear();
        }
    }
}

void MembersSheet::Insert(std::size_t before, std::size_t count)
{
    Begin();
    for (std::size_t i = 0; i < count; ++i) {
        now_.rows.insert(now_.rows.begin() + static_cast<std::ptrdiff_t>(std::min(before, rows())),
                         std::make_shared<Row>(Row{++ids_, {}, {}}));
    }
}

void MembersSheet::Remove(std::vector<std::size_t> rows)
{
    Begin();
    std::sort(rows.begin(), rows.end(), std::greater<>());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    for (const std::size_t row : rows) {
        now_.rows.erase(now_.rows.begin() + static_cast<std::ptrdiff_t>(row));
    }
}

std::string MembersSheet::AddColumn(const std::string& name)
{
    const Table before = now_;
    std::vector<std::string> more = columns();
    more.emplace_back(Trimmed(name));
    std::string refusal = SetColumns(std::move(more));
    if (refusal.empty()) {
        Begin(before);
    }
    return refusal;
}

void MembersSheet::SetColumn(const std::string& name,
                             std::span<const std::pair<std::size_t, std::string>> texts)
{
    if (texts.empty()) {
        return;
    }
    Begin();
    const std::size_t column = ColumnFor(name);
    for (const auto& [row, text] : texts) {
        Edited(row).cells[column] = text;
    }
}

std::string MembersSheet::Copy(const Range& range) const
{
    std::string text;
    for (const std::size_t row : range.rows) {
        for (std::size_t j = range.column; j < range.column + range.columns; ++j) {
            text.append(j > range.column ? 1 : 0, '\t');
            text += Quoted(Cell(row, j), '\t');
        }
        text += "\n";
    }
    return text;
}

}  // namespace kestrum
