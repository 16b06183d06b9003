#pragma once

// The section families: number, menu entry, form and kind of input of each, and the names of table
// rows as lists and headings show them.

#include "core/library.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kestrum {

enum class MenuGroup : std::uint8_t { profiles, welded, plates, other, british, none };

enum class SectionInput : std::uint8_t {
    table,       // a row of the family's one table
    series,      // a row of the table of the chosen series
    dimensions,  // dimensions or properties as entered
    stiffener,   // dimensions of a plate and a row of the stiffener's table
    none
};

struct FamilyInfo {
    int id;
    std::string_view menu;     // menu entry
    std::string_view caption;  // of the menu entry, with its blanks
    std::string_view text;     // short name for titles and headings
    std::string_view form;
    MenuGroup group;
    SectionInput input;
    std::span<const Table> tables;  // one, or one per series in the order of the series numbers
};

// The families in menu order. Number 55 is reserved and not among them.
std::span<const FamilyInfo> Families();

// Null for a number without a family; 55 is known, with no input.
const FamilyInfo* FindFamily(int id);

// True where TableOf has an answer.
bool HasTable(int family);

// Table of the chosen family and series; an unknown series is UB or CH. Stops the pass for a family
// without tables.
Table TableOf(const ProjectState& s);

// Rows offered for choice.
int RowCount(Table table);

// Size key of a row: "200", "200x100x8", "838x292x176".
std::string RowKey(const Library& library, Table table, int row);

// Series name and size key: "HEA 200", "UB 838x292x176". Empty beyond the rows offered.
std::string RowName(const Library& library, Table table, int row);

}  // namespace kestrum
