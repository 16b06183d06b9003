#pragma once

// What the office writes on a report of the command line.

#include "cli/commands.h"
#include "report/office.h"

namespace kestrum::cli {

// The file given, else that of the user where there is one; then what the options say. Throws
// BadInput.
Office OfficeOf(const ReportArguments& arguments);

}  // namespace kestrum::cli
