#include "app/choices.h"

#include "app/field_hint.h"
#include "core/annexes.h"
#include "core/field_table.h"
#include "sections/family_table.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>

namespace kestrum {

namespace {

constexpr i16 kMost = std::numeric_limits<i16>::max();

constexpr Choice kChoices[] = {
    {"method", 1, 2},
    {"fykindex", 0, kMost},
    {"checkelastic", -1, 0, true},
    {"checkconsercontrol", -1, 0, true},
    {"checkflangebuck", -1, 0, true},
    {"checkwebbuck", -1, 0, true},
    {"loadcomb", 0, 5},
    {"safetyclass", 1, 3},
    {"psi1index", 0, 9},
    {"psi2index", 0, 9},
    {"checksls", -1, 0, true},
    {"supportcase", 0, 5},
    {"endstiff", 0, 1},
    {"webstiff", 0, 1},
    {"bcy", 0, 5},
    {"bcz", 0, 5},
    {"bucklingcasey", 1, 5},
    {"bucklingcasez", 1, 5},
    {"modal", 0, 1},
    {"ltb", 0, 1},
    {"ltbcase", 1, 4},
    {"restraints", 0, 5},
    {"beampart", 0, kSegments - 1},
    {"cmanual", -1, 0, true},
    {"c1alt", -1, 0, true},
    {"ltbcurve", 2, 3},
    {"loadlevel", 1, 4},
    {"loadmode", 0, 1},
    {"selfweight", 0, 1},
    {"ntype", 0, 2},
    {"nchecked", -1, 0, true},
    {"qtype", 0, 2},
    {"qdir", 0, 1},
    {"qchecked", -1, 0, true},
    {"qttype", 0, 2},
    {"qtdir", 0, 1},
    {"qtchecked", -1, 0, true},
    {"pmkind", 0, 1},
    {"pmtype", 0, 2},
    {"pmdir", 0, 1},
    {"pmchecked", -1, 0, true},
    {"cpmode", 0, 1},
    {"cpcount", 1, 3},
    {"terrain", 0, 4},
    {"vortexcase", 0, 4},
    {"family", 1, kMost},
    {"series101", 1, 3},
    {"series103", 1, 2},
    {"rectaxis", 1, 2},
    {"hsqopt", 0, 1},
    {"lopt", 1, 2},
    {"weldopt", 0, 1},
    {"tubehot", 1, 2},
    {"class23", 0, 1},
    {"p41.opn", 1, 3},
    {"p41.opmy", 1, 3},
    {"p41.opmz", 1, 3},
};

constexpr std::string_view kRow = "row.";
constexpr std::string_view kGrade = "fykindex", kFamily = "family";
constexpr std::string_view kClass = "p41.";

// The rows of each profile table, in the order of the tables.
const std::array<Choice, kTables>& RowChoices()
{
    static const std::array<Choice, kTables> kRows = [] {
        std::array<Choice, kTables> rows{};
        std::size_t i = 0;
        for (const Field& field : AllFields()) {
            if (field.name.starts_with(kRow)) {
                rows.at(i++) = {field.name, 0, kMost};
            }
        }
        return rows;
    }();
    return kRows;
}

Table TableOfRows(const Choice& choice)
{
    return static_cast<Table>(&choice - RowChoices().data());
}

template <class List> const Choice* FindIn(const List& list, std::string_view field)
{
    const auto at = std::find_if(std::begin(list), std::end(list),
                                 [&](const Choice& choice) { return choice.field == field; });
    return at != std::end(list) ? &*at : nullptr;
}

// Highest value that is offered; of the families the last in number.
int Highest(const Library& library, const Choice& choice)
{
    if (choice.field == kGrade) {
        return static_cast<int>(library.materials.size()) - 1;
    }
    return choice.field.starts_with(kRow) ? RowCount(TableOfRows(choice)) - 1 : choice.highest;
}

// The first family whose rows stand in this table.
std::string FamilyOf(Table table)
{
    const auto families = Families();
    const auto at = std::find_if(families.begin(), families.end(), [table](const auto& info) {
        return std::find(info.tables.begin(), info.tables.end(), table) != info.tables.end();
    });
    return at != families.end() ? std::to_string(at->id) : std::string{};
}

// Alike but for blanks and capitals.
bool SameName(std::string_view a, std::string_view b)
{
    std::size_t i = 0, j = 0;
    for (;; ++i, ++j) {
        i = std::min(a.find_first_not_of(' ', i), a.size());
        j = std::min(b.find_first_not_of(' ', j), b.size());
        if (i == a.size() || j == b.size()) {
            return i == a.size() && j == b.size();
        }
        if (Small(a[i]) != Small(b[j])) {
            return false;
        }
    }
}

}  // namespace

const Choice* FindChoice(std::string_view field)
{
    return field.starts_with(kRow) ? FindIn(RowChoices(), field) : FindIn(kChoices, field);
}

bool Offers(const Library& library, const Choice& choice, int value)
{
    if (value < choice.lowest || value > choice.highest) {
        return false;
    }
    if (choice.field == kFamily) {
        const auto families = Families();
        return std::any_of(families.begin(), families.end(),
                           [&](const FamilyTraits& info) { return info.id == value; });
    }
    if (value > Highest(library, choice)) {
        return false;
    }
    return !choice.field.starts_with(kClass) || value != 2;  // class 1-2 or class 3
}

std::optional<Table> TableOfField(std::string_view field)
{
    const Choice* const choice = field.starts_with(kRow) ? FindChoice(field) : nullptr;
    return choice != nullptr ? std::optional(TableOfRows(*choice)) : std::nullopt;
}

std::string Offered(const Library& library, const Choice& choice)
{
    if (choice.field == kFamily) {
        return "of `kestrum sections`";
    }
    if (choice.field.starts_with(kClass)) {
        return "(1 or 3)";
    }
    std::string text =
        "(" + std::to_string(choice.lowest) + " to " + std::to_string(Highest(library, choice));
    if (choice.field.starts_with(kRow)) {
        text += ", see `kestrum sections " + FamilyOf(TableOfRows(choice)) + "`";
    }
    return text + ")";
}

bool Named(const Choice& choice)
{
    return choice.field.starts_with(kRow) || choice.field == kGrade;
}

std::optional<i16> ValueOfName(const Library& library, const Choice& choice, std::string_view name)
{
    if (!Named(choice)) {
        return std::nullopt;
    }
    const bool row = choice.field.starts_with(kRow);
    for (int value = 0; value <= Highest(library, choice); ++value) {
        const std::string listed = row ? RowName(library, TableOfRows(choice), value)
                                       : library.materials[static_cast<std::size_t>(value)].name;
        if (!listed.empty() && SameName(listed, name)) {
            return static_cast<i16>(value);
        }
    }
    return std::nullopt;
}

}  // namespace kestrum
