#pragma once

// The checks that the rows of the answer show, and their texts before the terms go in.

#include "core/check_text.h"
#include "core/project_state.h"

#include <string>

namespace kestrum {

inline const Check& SectionRow(const SectionChecks& s, std::size_t row)  // 1 to 3
{
    return s.checklist.row(kSectionRows[row - 1]);
}
inline const Check& RowY(const SectionChecks& s)
{
    return s.checklist.row(ResultRow::buckling_y);
}
inline const Check& RowZ(const SectionChecks& s)
{
    return s.checklist.row(ResultRow::buckling_z);
}
inline const Check& LateralRow(const SectionChecks& s)
{
    return s.checklist.row(ResultRow::lateral);
}
inline const Check& DeflectionZ(const SectionChecks& s)
{
    return s.checklist.row(ResultRow::deflection_z);
}
inline const Check& DeflectionY(const SectionChecks& s)
{
    return s.checklist.row(ResultRow::deflection_y);
}

inline std::string LabelOf(const Check& check)
{
    return TextOf(check).label;
}
inline std::string CalculationOf(const Check& check)
{
    return std::string(TextsOf(check.form).calculation);
}
// What stands behind the limit; x/L and the number of a point are written as 0.
inline std::string LimitOf(Check check)
{
    const std::string head = " < 1.0";
    check.place.x = 0;
    if (check.place.kind == CheckPlace::Kind::point) {
        check.place.number = 0;
    }
    const std::string limit = TextOf(check).limit;
    return limit.starts_with(head) ? limit.substr(head.size()) : limit;
}

}  // namespace kestrum
