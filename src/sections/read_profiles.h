#pragma once

// The binary profile tables: their shapes (core/profile_tables.inc), and the reader.
//
// A file is a plain sequence of 32-bit little-endian floats, row after row. How many rows it holds
// is counted in the delivered table and never asked of the file; what follows the last row is
// ignored. Reading runs with errors ignored: of a missing or short file the rows that are not whole
// stay zero, and the calculation that uses one of them ends by its division by zero. Whether a file
// is whole is asked before (CheckProfile, sections/load_library).

#include "core/library.h"

#include <array>
#include <string>
#include <string_view>

namespace kestrum {

struct TableShape {
    Table table;
    std::string_view file;    // in the data folder
    std::string_view prefix;  // series name before the size key of a row
    int rows;                 // offered for choice
    int reserved;             // held in memory
    int columns;
    std::array<int, 3> key;  // columns of the size key, counted from 1; 0 none
    int readrows;            // taken from the file
    i16 start;               // row of a new project
};

const TableShape& ShapeOf(Table table);

// All tables of the shapes' size, every value zero.
std::array<ProfileTable, kTables> EmptyTables();

// The bytes of the rows that are offered; a whole file has at least these.
std::string_view RowsOf(std::string_view bytes, const TableShape& shape);

// Whether the rows that are offered are there and hold finite numbers. Returns an empty text, or
// what is wrong: "938 bytes, 47 rows need 940".
std::string CheckProfile(std::string_view bytes, const TableShape& shape);

// Takes the whole rows of a file's bytes into a table of its shape, as far as they go.
void FillProfile(std::string_view bytes, const TableShape& shape, ProfileTable& table);

// Reads one file into a table of its shape. False when the file cannot be opened.
bool ReadProfile(const std::string& path, const TableShape& shape, ProfileTable& table);

// Reads all tables from one folder.
std::array<ProfileTable, kTables> ReadProfiles(const std::string& folder);

}  // namespace kestrum
