#pragma once

// The printed reports as the menus offer them.

#include "app/session.h"

#include <string_view>
#include <vector>

namespace kestrum {

enum class Report : std::uint8_t { properties, control, vortex };
constexpr int kReports = 3;

std::string_view ReportName(int report);

// The pages, drawn from the last good pass; empty when the family has no such report, after the
// user has been told.
std::vector<Drawing> ReportPages(Session& session, Report report);

// Print dialog and printer. Cancelled or failed: nothing is said.
void PrintReport(Session& session, Report report);

}  // namespace kestrum
