#pragma once

// The summary of many members as a workbook: a sheet of the members in their order, with bars, one
// of counts and histograms, one of notes. Texts stay texts: no cell is a formula.

#include "report/member_summary.h"

#include <string>

namespace kestrum {

// Returns what went wrong, or nothing.
std::string WriteSummaryXlsx(const MemberSummary& summary, const std::string& path);

}  // namespace kestrum
