#pragma once

// The profile tables of the families, and the names of table rows as lists and headings show them.

#include "sections/families.h"

#include <string>

namespace kestrum {

// True where TableOf has an answer.
bool HasTable(int family);

// Table of the chosen family and series; an unknown series is UB or CH. Stops the pass for a family
// without tables.
Table TableOf(const Inputs& in);

// Rows offered for choice.
int RowCount(Table table);

// Size key of a row: "200", "200x100x8", "838x292x176".
std::string RowKey(const Library& library, Table table, int row);

// Series name and size key: "HEA 200", "UB 838x292x176". Empty beyond the rows offered.
std::string RowName(const Library& library, Table table, int row);

}  // namespace kestrum
