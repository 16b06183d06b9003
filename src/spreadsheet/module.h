#pragma once

// What crosses the border to the module of workbooks, `kestrum-spreadsheet` beside the program or
// in the package's library folder. Both sides are built together, so that standard types may pass.

#include "report/book_sheet.h"
#include "report/member_summary.h"

#include <string>
#include <vector>

// Both return an empty text, or what went wrong. The text lives until the next call.
extern "C" const char* KestrumWriteBook(const std::vector<kestrum::BookSheet>* book,
                                        const std::string* path);
extern "C" const char* KestrumWriteSummary(const kestrum::MemberSummary* summary,
                                           const std::string* path);
