#pragma once

// Sheets of data as a workbook, with libxlsxwriter. A library of its own, so that nothing else
// needs it.

#include "report/book_sheet.h"

#include <string>
#include <vector>

namespace kestrum {

// Headings in the first row, which stays in view and is repeated on each printed page; then row for
// row, numbers as numbers. Landscape, as wide as a page. The file appears whole or not at all.
// Returns an empty text, or what went wrong.
std::string WriteBookXlsx(const std::vector<BookSheet>& book, const std::string& path);

}  // namespace kestrum
