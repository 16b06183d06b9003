#pragma once

// The detailed results as a spreadsheet, with libxlsxwriter. A library of its own, so that nothing
// else needs it.

#include "report/detailed_table.h"

#include <string>
#include <vector>

namespace kestrum {

// Writes a workbook of one sheet: headings in the first row, then row for row; numbers as numbers
// with their format. The file appears whole or not at all. Returns an empty text, or what went
// wrong.
std::string WriteDetailedXlsx(const std::vector<DetailedRow>& rows, const std::string& path);

}  // namespace kestrum
