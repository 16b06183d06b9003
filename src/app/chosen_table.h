#pragma once

// A table of members once more, with the sections that were chosen for them: for batch and envelope
// to read, and for the next search.

#include "app/member_list.h"
#include "app/optimize.h"
#include "core/csv_cell.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

class ChosenTable {
public:
    // `steel`: the grades were chosen too.
    ChosenTable(const MemberList& members, const SectionPool& pool, bool steel, CsvForm csv = {});

    // The columns of the table, and behind them those that the sections need and it has not.
    std::string Header() const;

    // The member's line. What said its section before is empty in it. Without a choice the cells
    // are as they were. `s` is the member with the section.
    void AppendLine(std::string& out, std::size_t member, const RatedCandidate* chosen,
                    const ProjectState& s) const;

private:
    enum class Role : std::uint8_t { other, section, steel, family, dimension };
    struct Column {
        std::string name;
        Role role = Role::other;
        const Field* field = nullptr;
        bool own = false;  // of the table
    };
    void AddColumn(std::string name, bool own);
    std::string ValueOf(const Column& column, const RatedCandidate& chosen,
                        const ProjectState& s) const;

    const MemberList& members_;
    const SectionPool& pool_;
    bool steel_;
    CsvForm csv_;
    std::vector<Column> columns_;
};

}  // namespace kestrum
