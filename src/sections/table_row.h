#pragma once

// The table row that the state has chosen, as the property routines read it.

#include "core/arithmetic_trap.h"
#include "core/library.h"
#include "core/state/inputs.h"

namespace kestrum {

struct TableRow {
    const ProfileTable& table;
    int row;

    // Column counted from 1, times the factor from the table's unit to that of the record.
    float operator()(int column, double factor = 1.0) const
    {
        return F32(factor * table.At(row, column));
    }
};

// Row `s.row` of the table. An index beyond the rows reserved stops the pass; a row that no file
// has filled is zero and stops it by its divisions.
inline TableRow ChosenRow(const Library& library, const Inputs& in, Table table)
{
    const ProfileTable& values = library.tables[static_cast<std::size_t>(table)];
    const long index = in.row[static_cast<std::size_t>(table)];
    return {values,
            static_cast<int>(CheckedIndex(index, static_cast<std::size_t>(values.reserved)))};
}

}  // namespace kestrum
