#pragma once

// A sheet of a workbook as data, whoever writes the file.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kestrum {

struct BookCell {
    std::string text{};
    std::optional<double> number{};  // in place of the text
    std::string format{};            // of the number, "#0.000"; empty: as it comes
    bool strong = false;
};

struct BookColumn {
    std::string head;
    double width;  // characters
    bool right = false;
};

// A name for a cell, for formulas of other sheets: "ir_program".
struct BookName {
    std::string name;
    std::size_t row, column;
};

struct BookSheet {
    std::string name;
    std::vector<BookColumn> columns;
    std::vector<std::vector<BookCell>> rows{};
    std::vector<BookName> names{};
};

}  // namespace kestrum
