#include "app/member_list.h"

#include "app/cell_reader.h"
#include "app/table_record.h"
#include "core/utf8_text.h"

#include <algorithm>

namespace kestrum {

namespace {

constexpr std::string_view kKeyNames[] = {"member", "id", "key", "name", "ident"};

std::vector<std::string> NamesOf(std::string_view header)
{
    std::vector<std::string> names;
    for (CellReader cells(header, SeparatorOf(header)); cells.Next();) {
        names.emplace_back(Trimmed(cells.cell()));
    }
    return names;
}

bool Holds(const std::vector<std::string>& names, std::string_view wanted)
{
    return std::find(names.begin(), names.end(), wanted) != names.end();
}

}  // namespace

std::optional<std::size_t> KeyColumn(const std::vector<std::string>& names)
{
    for (const std::string_view name : kKeyNames) {
        const auto at = std::find(names.begin(), names.end(), name);
        if (at != names.end()) {
            return static_cast<std::size_t>(at - names.begin());
        }
    }
    return std::nullopt;
}

std::string MemberList::ChooseKey(std::string_view header, const std::string& key, KeyUse use)
{
    const std::vector<std::string> names = NamesOf(header);
    if (Holds(names, "x") && Holds(names, "case")) {
        return "looks like a table of forces; the members come first";
    }
    if (key.empty()) {
        const std::optional<std::size_t> column = KeyColumn(names);
        key_ = column.value_or(kNone);
        return column || use == KeyUse::optional
                   ? std::string{}
                   : "no column of keys (member, id, key, name, ident); --key says which one it is";
    }
    const auto at = std::find(names.begin(), names.end(), key);
    if (at == names.end()) {
        return "--key " + key + ": there is no such column";
    }
    key_ = static_cast<std::size_t>(at - names.begin());
    return {};
}

std::string MemberList::Take(std::string text, const std::string& table, const std::string& key,
                             KeyUse use)
{
    text_ = std::move(text);
    table_ = table;
    members_.clear();
    places_.clear();
    faults_.clear();
    const std::size_t first = text_.find_first_not_of(" \t\r\n");
    if (first != std::string::npos && (text_[first] == '{' || text_[first] == '[')) {
        return table_ + ": members are read from a CSV, not from JSON";
    }
    RecordWalk walk(text_);
    header_ = walk.Next(kAnySeparator);
    std::string refusal = ChooseKey(header_, key, use);
    refusal = refusal.empty() ? columns_.TakeHeader(header_, true) : refusal;
    if (!refusal.empty()) {
        return table_ + ":1: " + refusal;
    }
    for (std::size_t row = 0; !walk.done();) {
        const std::string_view record = walk.Next(columns_.separator());
        row += record.empty() ? 0 : 1;
        if (!Trimmed(record).empty()) {
            TakeMember(record, walk.line(), row);
        }
    }
    return members_.empty() ? table_ + ": holds no members" : std::string{};
}

std::string MemberList::KeyOf(std::string_view record, std::string& key) const
{
    CellReader cells(record, columns_.separator()[0]);
    for (std::size_t i = 0; i <= key_; ++i) {
        if (!cells.Next()) {
            return cells.fault().empty() ? "fewer cells than columns" : std::string(cells.fault());
        }
    }
    key = AsUtf8(Trimmed(cells.cell()));
    return key.empty() ? "no key" : "";
}

std::size_t MemberList::ColumnOf(std::string_view name) const
{
    const std::vector<std::string> names = NamesOf(header_);
    const auto at = std::find(names.begin(), names.end(), name);
    return at != names.end() ? static_cast<std::size_t>(at - names.begin()) : kNone;
}

std::string MemberList::CellOf(std::size_t member, std::size_t column) const
{
    CellReader cells(members_[member].record, separator());
    for (std::size_t i = 0; i <= column; ++i) {
        if (!cells.Next()) {
            return {};
        }
    }
    return AsUtf8(Trimmed(cells.cell()));
}

void MemberList::TakeMember(std::string_view record, std::size_t line, std::size_t row)
{
    const auto fault = [&](const std::string& what) {
        faults_.push_back(Printable(table_ + ":" + std::to_string(line) + ": " + what));
    };
    if (record.size() > kLongestLine) {
        return fault("the line is too long");
    }
    std::string key = std::to_string(row);
    const std::string refusal = key_ == kNone ? std::string{} : KeyOf(record, key);
    if (!refusal.empty()) {
        return fault(refusal);
    }
    const auto [at, fresh] = places_.try_emplace(key, members_.size());
    if (!fresh) {
        return fault("member \"" + key + "\" is in line " +
                     std::to_string(members_[at->second].line) + " already, which is used");
    }
    members_.push_back({std::move(key), line, row, record});
}

std::size_t MemberList::Find(std::string_view key) const
{
    const auto at = places_.find(key);
    return at != places_.end() ? at->second : kNone;
}

std::string MemberList::Apply(std::size_t member, const Library& library, ProjectState& s,
                              Manner manner, LineExtras* extras) const
{
    return columns_.Apply(library, s, members_[member].record, manner, extras);
}

}  // namespace kestrum
