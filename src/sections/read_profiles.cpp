#include "sections/read_profiles.h"

#include "core/utf8_path.h"
#include "sections/delivered_data.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>

namespace kestrum {

namespace {

constexpr TableShape Shape(Table table, std::string_view file, std::string_view series, int columns,
                           std::array<int, 3> key, int reserved, i16 start, bool to_end)
{
    const int rows = DeliveredRows(file);
    const int held = std::max(rows, reserved);
    return {table, file, series, rows, held, columns, key, to_end ? held : rows, start};
}

#define KEY(...)                                                                                   \
    std::array<int, 3>                                                                             \
    {                                                                                              \
        __VA_ARGS__                                                                                \
    }
#define TABLE(name, family, choice, meaning, series, columns, key, reserved, start, to_end)        \
    Shape(Table::name, #name ".dat", series, columns, key, reserved, start, to_end),
constexpr std::array<TableShape, kTables> kShapes = {{
#include "core/profile_tables.inc"
}};
#undef TABLE
#undef KEY

constexpr bool AllDelivered()
{
    return std::all_of(kShapes.begin(), kShapes.end(),
                       [](const TableShape& shape) { return shape.rows > 0; });
}
static_assert(AllDelivered(), "a table of the list has no CSV file");

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
