#include "sections/family_table.h"

#include "core/arithmetic_trap.h"
#include "sections/families.h"
#include "sections/read_profiles.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace kestrum {

namespace {

std::string Number(float value)
{
    std::array<char, 64> text;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
    return {text.data(), end};
}

}  // namespace

bool HasTable(int family)
{
    return !TraitsOf(family).tables.empty();
}

Table TableOf(const Inputs& in)
{
    const FamilyTraits& family = Traits(in);
    if (family.tables.empty()) {
        throw CalculationStop{{.cause = Cause::index, .quantity = "family"}};
    }
    const int series = family.series != nullptr ? in.*family.series : 1;
    const bool known = series >= 1 && series <= static_cast<int>(family.tables.size());
    return family.tables[known ? static_cast<std::size_t>(series - 1) : 0];
}

int RowCount(Table table)
{
    return ShapeOf(table).rows;
}

std::string RowKey(const Library& library, Table table, int row)
{
    const TableShape& shape = ShapeOf(table);
    const ProfileTable& values = library.tables[static_cast<std::size_t>(table)];
    std::string key;
    if (row < 0 || row >= std::min(shape.rows, values.reserved)) {
        return key;
    }
    for (const int column : shape.key) {
        if (column != 0) {
            key += (key.empty() ? "" : "x") + Number(values.At(row, column));
        }
    }
    return key;
}

std::string RowName(const Library& library, Table table, int row)
{
    std::string key = RowKey(library, table, row);
    if (!key.empty()) {
        key.insert(0, std::string(ShapeOf(table).prefix) + " ");
    }
    return key;
}

}  // namespace kestrum
