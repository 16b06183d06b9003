#include "sections/family_table.h"

#include "core/arithmetic_trap.h"
#include "sections/readprofiles.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace kestrum {

namespace {

using enum MenuGroup;
using Input = SectionInput;

// One table of its own per family.
template <Table kTable> constexpr std::array<Table, 1> kOne = {kTable};

constexpr std::array<Table, 3> kSeries101 = {Table::ub, Table::uc, Table::ubp};
constexpr std::array<Table, 2> kSeries103 = {Table::ch, Table::pfc};

constexpr std::array<FamilyInfo, 31> kFamilies = {{
    {1, "mnup01", "HEA", "HEA", "p01", profiles, Input::table, kOne<Table::hea>},
    {2, "mnup02", "HEB", "HEB", "p02", profiles, Input::table, kOne<Table::heb>},
    {3, "mnup03", "HEM", "HEM", "p03", profiles, Input::table, kOne<Table::hem>},
    {4, "mnup04", "IPE", "IPE", "p04", profiles, Input::table, kOne<Table::ipe>},
    {15, "mnup15", "INP", "INP", "p15", profiles, Input::table, kOne<Table::inp>},
    {5, "mnup05", "UPE", "UPE", "p05", profiles, Input::table, kOne<Table::upe>},
    {16, "mnup16", "UNP", "UNP", "p16", profiles, Input::table, kOne<Table::unp>},
    {6, "mnup06", "RHS - Square (Hotformed)", "RHS", "p06", profiles, Input::table,
     kOne<Table::shs>},
    {7, "mnup07", "RHS - Rect (Hotformed)", "RHS", "p07", profiles, Input::table, kOne<Table::rhs>},
    {8, "mnup08", "CFRHS - Square (Coldformed)", "CFRHS", "p08", profiles, Input::table,
     kOne<Table::cfshs>},
    {9, "mnup09", "CFRHS - Rect (Coldformed)", "CFRHS", "p09", profiles, Input::table,
     kOne<Table::cfrhs>},
    {10, "mnup10", "L-equal", "L", "p10", profiles, Input::table, kOne<Table::l1>},
    {11, "mnup11", "L-unequal", "L", "p11", profiles, Input::table, kOne<Table::l2>},
    {21, "mnup21", "I - double symmetric", "I", "p21", welded, Input::dimensions, {}},
    {22, "mnup22", "I - single symmetric", "I", "p22", welded, Input::dimensions, {}},
    {23, "mnup23", "Box ", "Box", "p23", welded, Input::dimensions, {}},
    {27, "mnup27", "Box - Non symmetric flanges", "Box", "p27", welded, Input::dimensions, {}},
    {24, "mnup24", "HSQ - Symmetric flange ", "HSQ", "p24", welded, Input::dimensions, {}},
    {25, "mnup25", "HSQ - Non symmetric flange ", "HSQ", "p25", welded, Input::dimensions, {}},
    {26, "mnu26", "T", "T", "p26", welded, Input::dimensions, {}},
    {28, "mnup28", "Flatbar", "Fb", "p28", other, Input::dimensions, {}},
    {31, "mnup31", "&Tube", "Tube", "p31", other, Input::dimensions, {}},
    {41, "mnup41", "&General Profile ", "General Profile", "p41", other, Input::dimensions, {}},
    {51, "mnuplateFb", "Plates + Fb", "Plate + Flatbar", "p51", plates, Input::dimensions, {}},
    {52, "mnuplateLr", "Plate + Lroll", "Plate + L", "p52", plates, Input::stiffener,
     kOne<Table::l3>},
    {53,
     "mnuplateLweld",
     "Plate +  L weld",
     "Plate + L-weld",
     "p53",
     plates,
     Input::dimensions,
     {}},
    {54, "mnuplateBf", "Plate + Bf", "Plate + Bulb Flat", "p54", plates, Input::stiffener,
     kOne<Table::hp>},
    {56,
     "mnuplateTg",
     "Plate + T-girder",
     "Plate + T-girder",
     "p56",
     plates,
     Input::dimensions,
     {}},
    {101, "mnuU", "U", "U", "p101", british, Input::series, kSeries101},
    {102, "mnuj", "J", "J", "p102", british, Input::table, kOne<Table::j>},
    {103, "mnuc", "C", "C", "p103", british, Input::series, kSeries103},
}};

constexpr FamilyInfo kReserved = {55, "", "", "", "", MenuGroup::none, Input::none, {}};

std::string Number(float value)
{
    std::array<char, 64> text;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
    return {text.data(), end};
}

}  // namespace

std::span<const FamilyInfo> Families()
{
    return kFamilies;
}

const FamilyInfo* FindFamily(int id)
{
    if (id == kReserved.id) {
        return &kReserved;
    }
    const auto found = std::ranges::find(kFamilies, id, &FamilyInfo::id);
    return found == kFamilies.end() ? nullptr : &*found;
}

bool HasTable(int family)
{
    const FamilyInfo* info = FindFamily(family);
    return info != nullptr && !info->tables.empty();
}

Table TableOf(const ProjectState& s)
{
    const FamilyInfo* info = FindFamily(s.family);
    if (info == nullptr || info->tables.empty()) {
        throw CalculationStop{{.cause = Cause::index, .quantity = "family"}};
    }
    int series = 1;
    if (info->input == Input::series) {
        series = info->id == 101 ? s.series101 : s.series103;
    }
    const bool known = series >= 1 && series <= static_cast<int>(info->tables.size());
    return info->tables[known ? static_cast<std::size_t>(series - 1) : 0];
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
    const std::string key = RowKey(library, table, row);
    return key.empty() ? key : std::string(ShapeOf(table).prefix) + " " + key;
}

}  // namespace kestrum
