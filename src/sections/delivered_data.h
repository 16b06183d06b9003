#pragma once

// What the delivered data is: the build writes the fingerprint of every table and of the material
// list into the program, and how many rows each table has.

#include <cstdint>
#include <string_view>

namespace kestrum {

struct DeliveredFile {
    std::string_view name;
    std::uint64_t fingerprint;
    int rows;  // of a table; 0 of other files
};

inline constexpr DeliveredFile kDeliveredFiles[] = {
#include "sections/delivered_data.inc"
};

// Rows of the delivered table; 0 for a name that is none.
constexpr int DeliveredRows(std::string_view name)
{
    for (const DeliveredFile& file : kDeliveredFiles) {
        if (file.name == name) {
            return file.rows;
        }
    }
    return 0;
}

// Whether a file of this name is delivered with these bytes.
bool IsDelivered(std::string_view name, std::string_view bytes);

}  // namespace kestrum
