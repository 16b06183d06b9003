#pragma once

// The members of a frame under the keys by which the forces name them: a table as `batch` takes it,
// one member a line, with a column of keys.

#include "app/member_table.h"
#include "core/library.h"
#include "core/project_state.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kestrum {

class MemberList {
public:
    // `text` is the whole table in UTF-8 with line feeds, `key` the column of keys; without one
    // `member`, `id`, `key`, `name` or `ident`, the first that is there. Returns why it is no such
    // table, or nothing. What is wrong with single lines stands in faults().
    std::string Take(std::string text, const std::string& table, const std::string& key);

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
    std::string ChooseKey(std::string_view header, const std::string& key);
    void TakeMember(std::string_view record, std::size_t line, std::size_t row);

    std::string text_, table_;
    MemberColumns columns_;
    std::size_t key_ = 0;  // column
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
