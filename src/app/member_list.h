#pragma once

// The members of a frame under the keys by which the forces name them: a table as `batch` takes it,
// one member a line, with a column of keys.

#include "app/member_table.h"
#include "core/library.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kestrum {

struct ProjectState;

// Whether a table may do without a column of keys; its members are then numbered from 1.
enum class KeyUse : std::uint8_t { required, optional };

// The column of keys where none is named: `member`, `id`, `key`, `name` or `ident`, the first that
// is there; nothing without one.
std::optional<std::size_t> KeyColumn(const std::vector<std::string>& names);

class MemberList {
public:
    // `text` is the whole table in UTF-8 with line feeds, `key` the column of keys; without one
    // `member`, `id`, `key`, `name` or `ident`, the first that is there. Returns why it is no such
    // table, or nothing. What is wrong with single lines stands in faults().
    std::string Take(std::string text, const std::string& table, const std::string& key,
                     KeyUse use = KeyUse::required);

    const std::string& table() const { return table_; }
    std::string_view header() const { return header_; }  // line of the names
    std::string_view RecordOf(std::size_t member) const { return members_[member].record; }
    char separator() const { return columns_.separator()[0]; }
    // The text of a cell, without the blanks around it; empty where the line has fewer.
    std::string CellOf(std::size_t member, std::size_t column) const;
    // The place of a column; kNone without.
    std::size_t ColumnOf(std::string_view name) const;

    // "members.csv:12: what", of lines that are left out.
    const std::vector<std::string>& faults() const { return faults_; }

    std::size_t size() const { return members_.size(); }
    const std::string& Key(std::size_t member) const { return members_[member].key; }
    std::size_t LineOf(std::size_t member) const { return members_[member].line; }
    // Its number in the table, from 1, as `batch` counts.
    std::size_t RowOf(std::size_t member) const { return members_[member].row; }

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    std::size_t Find(std::string_view key) const;

    // Sets the member's fields upon what the record holds. Returns the reason of a refusal.
    std::string Apply(std::size_t member, const Library& library, ProjectState& s, Manner manner,
                      LineExtras* extras = nullptr) const;

private:
    struct Member {
        std::string key;
        std::size_t line, row;
        std::string_view record;  // of text_
    };
    std::string ChooseKey(std::string_view header, const std::string& key, KeyUse use);
    std::string KeyOf(std::string_view record, std::string& key) const;
    void TakeMember(std::string_view record, std::size_t line, std::size_t row);

    std::string text_, table_;
    std::string_view header_;  // of text_
    MemberColumns columns_;
    std::size_t key_ = 0;  // column; kNone: numbers
    std::vector<Member> members_;
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const
        {
            return std::hash<std::string_view>()(text);
        }
    };
    std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> places_;
    std::vector<std::string> faults_;
};

}  // namespace kestrum
