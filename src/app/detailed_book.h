#pragma once

// The detailed results as a workbook: their table first, as it always was, then what they belong
// to: project, ratios by both sets of rules, inputs, properties of the section.

#include "app/project_origin.h"
#include "core/library.h"
#include "report/book_sheet.h"

#include <string>
#include <vector>

namespace kestrum {

struct ProjectState;

// Of a state after a pass that ended well. Numbers have names: detail_Ncr_y, ir_program, in_l,
// section_Iy.
std::vector<BookSheet> DetailedBook(const Library& library, const ProjectState& s,
                                    const ProjectOrigin& origin, const std::string& date);

}  // namespace kestrum
