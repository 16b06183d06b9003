#pragma once

// A table on paper: widths of the columns, texts broken to them, heights of the rows.

#include "document/document.h"

namespace kestrum {

struct TableLayout {
    static constexpr double kText = 2.75;  // size of the letters, mm

    std::vector<double> widths{};
    std::vector<std::vector<std::vector<Line>>> rows{};  // of lines in cells; the first: titles
    std::vector<double> heights{};
    bool whole_words = true;  // and numbers; false where they had to break

    double Width() const;
    double Height() const;  // of all rows
};

// As wide as the texts where all have room in `most`; else the widest columns give way.
TableLayout LayOutTable(const TextTable& table, double most, char decimal);

// Row `row` with its upper left corner at the point.
void PrintRow(Drawing& page, const TextTable& table, const TableLayout& layout, std::size_t row,
              Point corner, char decimal);

}  // namespace kestrum
