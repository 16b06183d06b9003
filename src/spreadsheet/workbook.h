#pragma once

// What the workbooks share: a file that appears whole or not at all, and its cells.

#include <xlsxwriter.h>

#include <cstddef>
#include <functional>
#include <string>

namespace kestrum {

// Writes what `fill` puts into the workbook, of about so many rows, which are filled from the first
// to the last. Returns what went wrong, or nothing.
std::string WriteWorkbook(const std::string& path, std::size_t rows,
                          const std::function<void(lxw_workbook*)>& fill);

// Nothing for an empty text; one that is too long for a cell is cut.
void WriteText(lxw_worksheet* sheet, lxw_row_t row, lxw_col_t column, const std::string& text,
               lxw_format* format);

}  // namespace kestrum
