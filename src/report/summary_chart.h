#pragma once

// The pictures of a summary of many members: a bar for each ratio, a histogram of all.

#include "report/drawing.h"
#include "report/member_summary.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kestrum {

// Where the bars of all members end: the largest ratio of both bases, from 1.2 to 2.
double AxisEnd(const MemberSummary& summary);

// From its upper left corner; with a point when the value goes on behind its end.
void DrawBar(Drawing& d, Point corner, double length, double height, Ink ink, bool goes_on);

// A histogram in millimetres, members above their limits in another colour.
Drawing DrawHistogram(const std::vector<RatioBin>& bins, std::size_t unrated,
                      const std::string& title, Ink ink, double width, double height);

}  // namespace kestrum
