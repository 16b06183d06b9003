#pragma once

// The answers of `batch`, `envelope` and `optimize` read back from their CSV, for a summary.

#include "app/member_list.h"
#include "core/csv_cell.h"
#include "core/library.h"
#include "report/member_summary.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct ProjectState;

struct AnswerTable {
    MemberSummary summary{};
    bool by_number = false;  // members are numbers of lines of their table, not keys

    // `text` is the whole table in UTF-8 with line feeds. Of several lines for one member, as of
    // its cases, the worst counts in each basis. Without a verdict of its own the ratio by the
    // standard is compared with the column `irlimit`, or 1. Weights in kg/m are the column `mass`,
    // or `weight`, lengths `l`. Of the sections that `optimize` found the first counts. Returns why
    // it holds no answers, "a.csv:1: what", or nothing.
    std::string Take(std::string_view text, const std::string& table);

    // Names, sections, weights and lengths from the table of the members; `base` is what it is
    // silent about. Returns how many of the members it does not hold.
    std::size_t AddMembers(const MemberList& list, const Library& library, const ProjectState& base,
                           Manner manner);
};

// The members as a CSV in their order, in the columns of the answers.
std::string SummaryCsv(const MemberSummary& summary, const CsvForm& csv);

}  // namespace kestrum
