#pragma once

// The library as built from data/: tables, materials and setup, read once for a test program; and
// the rows of its tables by their size.

#include "sections/family_table.h"
#include "sections/load_library.h"
#include "sections/read_profiles.h"

#include <gtest/gtest.h>

#include <string_view>

namespace kestrum {

inline const Library& Delivered()
{
    static const Library kLibrary = LoadLibrary(KESTRUM_SHARE);
    return kLibrary;
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

}  // namespace kestrum
