#pragma once

// The material list and the yield strength by thickness, EN 1993-1-1, Table 3.1.
//
// Deviation D21: the delivered list has 355 MPa for S355 H over 40 mm, where the table has 335, and
// the full strength for the grades MH/MLH, for which it has none. Deviation D22: the strength over
// 40 mm counts for any thickness; the table ends at 80 mm.

#include "core/file_notation.h"
#include "core/library.h"
#include "core/state/section_record.h"
#include "core/state/settings.h"

#include <optional>
#include <string_view>
#include <vector>

namespace kestrum {

// Rows used of a list; further ones are ignored.
constexpr int kMaterials = 31;

// A text of one row a line, values separated by tabs: name, fy up to 40 mm, fy over 40 mm [MPa].
// What is no number counts as 0.
std::vector<Material> ReadMaterialList(std::string_view bytes);

// Whether the list is whole: a name and two strengths above 0 in every row but the last, a name in
// that, and a line end behind it, without which it may be a part of one.
std::optional<FileFault> CheckMaterialList(std::string_view bytes);

// Index of the last row, the user's own value; -1 for an empty list.
int LastMaterial(const Library& library);

// Whether the index names a grade of the list; else the strength is a typed one.
bool IsListedGrade(const Library& library, int index);

// fyk of the row for the thickness tmax (up to 40 mm inclusive, over it); the last row, and any
// index outside the list, leave fyk as typed. Then fyd = fyk/gammam0 and eps = sqrt(235/fyk).
//
// Deviation D37: the strengths are those of EN 1993-1-1, Table 3.1 in every annex; the National
// Annex of the United Kingdom, to 3.2.1 (1), takes those of the product standards, which fall by 10
// MPa and more beyond 16 and 63 mm.
void SetMaterial(const Library& library, Settings& settings, SectionRecord& section, int index);

}  // namespace kestrum
