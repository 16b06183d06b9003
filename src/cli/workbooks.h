#pragma once

// Workbooks, written by a module that is loaded only when one is asked for.

#include "report/book_sheet.h"
#include "report/member_summary.h"

#include <string>
#include <vector>

namespace kestrum::cli {

// Both return what went wrong, or nothing. BadInput: the module is missing or of another version.
std::string WriteBook(const std::vector<BookSheet>& book, const std::string& path);
std::string WriteBook(const MemberSummary& summary, const std::string& path);

}  // namespace kestrum::cli
