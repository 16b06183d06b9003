#pragma once

// The long table of forces that frame programs write: a line for each station of each case of each
// member, under a line of column names in any order.

#include "analysis/stations.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestrum {

// How the table says things.
struct ForceManner {
    std::vector<std::pair<std::string, std::string>> names;  // column of the table, ours
    bool tensionpositive = false;                            // N
    bool swapaxes = false;                                   // its y is our z
};

struct ForceRow {
    std::string_view member, load_case;
    Station at;
};

class ForceColumns {
public:
    // Names: member, case, x, N, Vy, Vz, My, Mz, Mx, whatever their capitals, by `manner` or as
    // frame programs call them ("Section at [m]", "Load combination"), with the unit in brackets or
    // parentheses; m, kN, kNm without one. Other columns are left out. Of a table
    // ResultInternalForce1D of the Structural Analysis Format N is positive in tension. Returns why
    // the line is no such line, or nothing.
    std::string TakeHeader(std::string_view line, const ForceManner& manner);

    // One record. Returns why it cannot be taken, or nothing; member and case stand in the row all
    // the same, as far as they are there. Texts last until the next call and as long as the record.
    std::string_view Parse(std::string_view record, ForceRow& row);

    // Member and case alone.
    void Keys(std::string_view record, std::string_view& member, std::string_view& load_case);

    std::string_view separator() const { return {&separator_, 1}; }
    bool saf() const { return saf_; }
    // What the table does not say, and what is not read of it, for a word to the user.
    const std::vector<std::string>& missing() const { return missing_; }
    const std::vector<std::string>& unused() const { return unused_; }

private:
    enum class Role : std::uint8_t { none, member, load_case, second_case, x, number };
    struct Column {
        std::string name;
        Role role = Role::none;
        double Station::*force = nullptr;
        double scale = 1;
    };
    std::string Name(Column& column, const ForceManner& manner) const;
    std::string_view Take(const Column& column, std::string_view cell, ForceRow& row);
    std::string_view Number(const Column& column, std::string_view cell, double& value);

    std::vector<Column> columns_;
    std::size_t last_ = 0;  // column in use
    char separator_ = ',';
    bool saf_ = false;
    std::vector<std::string> missing_, unused_;
    std::array<std::string, 3> texts_;  // of quoted keys
    std::string fault_;
};

}  // namespace kestrum
