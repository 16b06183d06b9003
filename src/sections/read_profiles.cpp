#include "sections/read_profiles.h"

#include "core/utf8_path.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>

namespace kestrum {

namespace {

// In the order in which the files are read.
constexpr std::array<TableShape, kTables> kShapes = {{
    {Table::hea, "hea.dat", "HEA", 24, 29, 11, {1, 0, 0}, 24, 10},
    {Table::heb, "heb.dat", "HEB", 24, 29, 11, {1, 0, 0}, 24, 10},
    {Table::hem, "hem.dat", "HEM", 24, 29, 11, {1, 0, 0}, 24, 10},
    {Table::ipe, "ipe.dat", "IPE", 18, 20, 10, {1, 0, 0}, 18, 10},
    {Table::upe, "upe.dat", "UPE", 14, 16, 14, {1, 0, 0}, 14, 10},
    {Table::shs, "shs.dat", "RHS", 101, 116, 6, {1, 2, 0}, 101, 50},
    {Table::rhs, "rhs.dat", "RHS", 158, 166, 9, {1, 2, 3}, 158, 50},
    {Table::cfshs, "cfshs.dat", "CFRHS", 105, 116, 7, {1, 3, 0}, 105, 50},
    {Table::cfrhs, "cfrhs.dat", "CFRHS", 119, 146, 9, {1, 2, 3}, 119, 50},
    {Table::l1, "l1.dat", "L", 62, 66, 11, {1, 2, 0}, 62, 50},
    {Table::l2, "l2.dat", "L", 49, 51, 16, {1, 2, 3}, 49, 40},
    {Table::inp, "inp.dat", "INP", 21, 23, 11, {1, 0, 0}, 21, 11},
    {Table::unp, "unp.dat", "UNP", 16, 23, 15, {1, 0, 0}, 16, 10},
    {Table::l3, "l3.dat", "L", 11, 13, 6, {1, 2, 3}, 11, 5},
    {Table::hp, "hp.dat", "HP", 47, 48, 5, {1, 2, 0}, 47, 5},
    {Table::ub, "ub.dat", "UB", 81, 86, 19, {1, 2, 3}, 81, 10},
    // The loop over this file runs past the 17 rows of the series to the end of the array.
    {Table::ubp, "ubp.dat", "UBP", 17, 18, 19, {1, 2, 3}, 18, 10},
    {Table::uc, "uc.dat", "UC", 31, 31, 19, {1, 2, 3}, 31, 10},
    {Table::j, "j.dat", "J", 13, 21, 19, {1, 2, 3}, 13, 10},
    {Table::ch, "ch.dat", "CH", 17, 18, 22, {1, 2, 3}, 17, 10},
    {Table::pfc, "pfc.dat", "PFC", 16, 18, 21, {1, 2, 3}, 16, 10},
}};

constexpr bool InOrder()
{
    for (std::size_t i = 0; i < kTables; ++i) {
        const TableShape& shape = kShapes[i];
        if (static_cast<std::size_t>(shape.table) != i || shape.rows > shape.readrows ||
            shape.readrows > shape.reserved) {
            return false;
        }
    }
    return true;
}
static_assert(InOrder());

float LittleEndianFloat(const char* bytes)
{
    std::uint32_t bits = 0;
    for (int i = 3; i >= 0; --i) {
        bits = (bits << 8) | static_cast<unsigned char>(bytes[i]);
    }
    return std::bit_cast<float>(bits);
}

std::size_t Values(int rows, int columns)
{
    return static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns);
}

}  // namespace

const TableShape& ShapeOf(Table table)
{
    return kShapes[static_cast<std::size_t>(table)];
}

std::array<ProfileTable, kTables> EmptyTables()
{
    std::array<ProfileTable, kTables> tables;
    for (const TableShape& shape : kShapes) {
        ProfileTable& table = tables[static_cast<std::size_t>(shape.table)];
        table.rows = shape.rows;
        table.reserved = shape.reserved;
        table.columns = shape.columns;
        table.value.assign(Values(shape.reserved, shape.columns), 0.0F);
    }
    return tables;
}

std::string_view RowsOf(std::string_view bytes, const TableShape& shape)
{
    return bytes.substr(0, Values(shape.rows, shape.columns) * sizeof(float));
}

std::string CheckProfile(std::string_view bytes, const TableShape& shape)
{
    const std::size_t wanted = Values(shape.rows, shape.columns);
    if (bytes.size() < wanted * sizeof(float)) {
        return std::to_string(bytes.size()) + " bytes, " + std::to_string(shape.rows) +
               " rows need " + std::to_string(wanted * sizeof(float));
    }
    const auto columns = static_cast<std::size_t>(shape.columns);
    for (std::size_t i = 0; i < wanted; ++i) {
        if (!std::isfinite(LittleEndianFloat(bytes.data() + i * sizeof(float)))) {
            return "row " + std::to_string(i / columns + 1) + ", column " +
                   std::to_string(i % columns + 1) + " is no finite number";
        }
    }
    return {};
}

void FillProfile(std::string_view bytes, const TableShape& shape, ProfileTable& table)
{
    const std::size_t row = Values(1, shape.columns);
    const std::size_t whole = bytes.size() / sizeof(float) / row * row;
    const std::size_t values = std::min(Values(shape.readrows, shape.columns), whole);
    for (std::size_t i = 0; i < values; ++i) {
        table.value[i] = LittleEndianFloat(bytes.data() + i * sizeof(float));
    }
}

bool ReadProfile(const std::string& path, const TableShape& shape, ProfileTable& table)
{
    std::ifstream file(Utf8Path(path), std::ios::binary);
    if (!file) {
        return false;
    }
    std::string bytes(table.value.size() * sizeof(float), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    FillProfile(bytes, shape, table);
    return true;
}

std::array<ProfileTable, kTables> ReadProfiles(const std::string& folder)
{
    std::array<ProfileTable, kTables> tables = EmptyTables();
    for (const TableShape& shape : kShapes) {
        const std::filesystem::path path = Utf8Path(folder) / shape.file;
        ReadProfile(Utf8Name(path), shape, tables[static_cast<std::size_t>(shape.table)]);
    }
    return tables;
}

}  // namespace kestrum
