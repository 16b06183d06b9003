#pragma once

// The detailed results: every intermediate value of the stability control in one table of four
// columns, as data. The window, the terminal, the CSV file and the spreadsheet show the same rows.

#include "core/csv_cell.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct ProjectState;

struct DetailedRow {
    std::string parameter;
    std::string value;  // as shown
    std::string unit;
    std::string reference;
    std::optional<double> number = {};  // behind the value, where it is one
    std::string format = {};            // of the number
    bool heading = false;               // text in the first column only
    bool operator==(const DetailedRow&) const = default;
};

constexpr std::array<std::string_view, 4> kDetailedColumns{" Parameter", "Value", "unit",
                                                           " Reference"};

// What is told when the transfer to a spreadsheet fails.
constexpr std::string_view kSpreadsheetFailure = " Error on tranfere data to Excel ";

// All rows in their order. A value whose step did not run reads "N/A".
std::vector<DetailedRow> FillDetailedResult(const ProjectState& s);

// Heading line and rows as plain text of fixed pitch.
std::string DetailedText(const std::vector<DetailedRow>& rows);

// The same as RFC 4180 asks: lines end in CR LF, fields with a comma or a quote stand in quotes.
// Numbers carry no blanks.
std::string DetailedCsv(const std::vector<DetailedRow>& rows, const CsvForm& csv = {});

}  // namespace kestrum
