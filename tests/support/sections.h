#pragma once

// Sections for tests: the delivered tables, and a state with one row of them chosen.

#include "core/project_state.h"
#include "sections/family_table.h"
#include "sections/read_profiles.h"

#include <gtest/gtest.h>

#include <string_view>

namespace kestrum {

// The tables as built from data/, without material list and setup.
inline const Library& Delivered()
{
    static const Library library = [] {
        Library l;
        l.tables = ReadProfiles(KESTRUM_SHARE);
        return l;
    }();
    return library;
}

// A state with family, steel density and strong axis chosen; series counts for 101 and 103.
inline ProjectState OfFamily(int family, int series = 1)
{
    ProjectState s{};
    s.family = static_cast<i16>(family);
    s.series101 = s.series103 = static_cast<i16>(series);
    s.rectaxis = 1;
    s.density = 7850;
    return s;
}

inline void ChooseRow(ProjectState& s, int row)
{
    s.row[static_cast<std::size_t>(TableOf(s))] = static_cast<i16>(row);
}

// Index of the row with this size key.
inline int RowOf(Table table, std::string_view key)
{
    for (int row = 0; row < RowCount(table); ++row) {
        if (RowKey(Delivered(), table, row) == key) {
            return row;
        }
    }
    ADD_FAILURE() << "no row " << key;
    return 0;
}

// The same with the row of a size key chosen: Chosen(1, "200") is HEA 200.
inline ProjectState Chosen(int family, std::string_view key, int series = 1)
{
    ProjectState s = OfFamily(family, series);
    ChooseRow(s, RowOf(TableOf(s), key));
    return s;
}

// Equal in the digits of an expectation worked to five digits.
inline void ExpectWorked(double value, double expected, const char* what, double relative = 1e-4)
{
    EXPECT_NEAR(value, expected, relative * std::abs(expected)) << what;
}

}  // namespace kestrum
