#pragma once

// The summary of many members as printed pages: counts, masses, histograms of the ratios, then the
// members with a bar each, and the notes. A long name or message is shortened; the tables have it
// whole.

#include "report/member_summary.h"
#include "report/pages.h"

#include <string>

namespace kestrum {

// `file` names the answers.
PrintedReport PrintSummary(const MemberSummary& summary, const PrintStamp& stamp,
                           const std::string& file);

// A ratio as it is shown: three decimals, or with an exponent where it is very large.
std::string RatioText(double ratio);

}  // namespace kestrum
