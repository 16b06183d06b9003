#pragma once

// The constant tables that a calculation reads: material list, profile tables, stored setup. Loaded
// once (sections/load_library), never changed, shared by all threads.

#include "core/state/types.h"

#include <array>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace kestrum {

// One row of the material list. The last row of the list stands for the user's own value.
struct Material {
    std::string name;
    float fy40;    // MPa, thickness up to 40 mm
    float fyover;  // MPa, thickness over 40 mm
};

// Rows and columns of one binary profile table; rows that the file did not hold are zero.
struct ProfileTable {
    int rows = 0;      // rows read and offered
    int reserved = 0;  // rows of the array; an index at or beyond it stops the pass
    int columns = 0;
    std::vector<float> value;  // reserved * columns

    // Column counted from 1, as the tables are documented.
    float At(int row, int column) const
    {
        return value[static_cast<std::size_t>(row * columns + column - 1)];
    }
};

// A row of a profile table under one of its names, as sections/section_names compares them.
struct NamedRow {
    std::string name;
    Table table;
    i16 row;
};

// The names of all rows, sorted. They are made when the first is looked for, in whatever thread.
struct NamedRows {
    std::once_flag made;
    std::vector<NamedRow> rows;
};

// A profile table or list that is not the delivered one.
struct OwnFile {
    std::string name;    // "hea.dat"
    std::string path;    // where it was found
    std::string sha256;  // of the rows that are read, of a whole list
};

// What a row of a table holds in single precision and units of the record, mm.
enum class SectionFigure : std::uint8_t { a, iy, iz, wply, wplz, it, iw };

// A figure of one row that no other publication supports (sections/second_source).
struct CorrectedFigure {
    Table table;
    i16 row;
    SectionFigure figure;
    float ours, corrected;
};

struct Library {
    std::vector<Material> materials;
    std::array<ProfileTable, kTables> tables;
    std::vector<CorrectedFigure> corrected;
    std::shared_ptr<NamedRows> rownames = std::make_shared<NamedRows>();
    std::string setup;  // bytes of the stored setup; empty when there is none

    std::vector<OwnFile> own;
    std::vector<std::string> faults;  // what the user is to know of files the program found itself
};

}  // namespace kestrum
