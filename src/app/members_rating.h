#pragma once

// What the lines of a table of members give: ratios by the program's rules and by the standard as
// written, under their own loads or under the cases of a table of forces, and the lightest section
// of each. For a thread of its own: reads nothing that the user may change in between.

#include "app/member_cases.h"
#include "app/member_table.h"
#include "core/library.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kestrum {

struct ProjectState;

// The cases of a whole table of forces, by member.
class ForceCases {
public:
    // Takes the bytes of a file. Returns "forces.csv:1: what", or nothing. What is wrong with
    // single rows makes their case fail, with the reason.
    std::string Take(std::string_view bytes, const std::string& name);

    // Null for a member that the table does not name.
    const std::vector<CaseRows>* Of(std::string_view member) const;
    std::size_t members() const { return cases_.size(); }
    std::size_t cases() const;
    const std::string& name() const { return name_; }

private:
    std::string name_;
    std::unordered_map<std::string, std::vector<CaseRows>> cases_;
};

// What a line gives.
struct LineRating {
    std::string refusal{};  // the line is no member, or has no forces: why
    std::string remarks{};  // what is worth a word though the line was taken
    MemberAnswer answer{};

    // By the program's rules; the larger of both.
    bool rated() const { return refusal.empty() && answer.RatedIn(Bases::program); }
    bool passes() const;
};

// "0.63"; "1.24 > limit"; the verdict where there is no ratio.
std::string RatioText(const LineRating& rating, bool standard);
// The check that governs with its clause and case, or why there is no ratio.
std::string GoverningText(const LineRating& rating);

// All that a line needs beside its own text. The library must last.
struct LineSource {
    const Library* library = nullptr;
    std::shared_ptr<const ProjectState> base{};  // what a line does not name
    std::shared_ptr<const MemberColumns> reader{};
    std::shared_ptr<const ForceCases> forces{};  // may be none: the line's own loads
};

LineRating RateLine(const LineSource& source, std::string_view record, std::string_view name);

// The lightest section for a line.
struct LightestLine {
    std::string refusal{};         // why there is none
    std::string section, steel{};  // that passes
    double mass = 0;               // kg/m
};

// Among the sections that the words name ("IPE", "HEA", "all"; app/section_pool.h), with the steel
// of the line.
LightestLine FindLightestLine(const LineSource& source, std::string_view record,
                              std::string_view name, const std::vector<std::string>& words);

}  // namespace kestrum
