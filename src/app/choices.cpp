#include "app/choices.h"

#include "app/field_hint.h"
#include "core/held_state.h"
#include "core/project_inputs.h"
#include "sections/family_table.h"
#include "sections/section_names.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace kestrum {

namespace {

constexpr i16 kMost = std::numeric_limits<i16>::max();
constexpr std::string_view kRow = "row.", kRange = "..";

// Takes what stands in front of the separator, and the separator, off the front.
std::string_view TakePart(std::string_view& text, char separator)
{
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

i16 TakeNumber(std::string_view& text)
{
    int value = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return static_cast<i16>(value);
}

// "0 first,second|1 third"
std::vector<NamedValue> NamedValues(std::string_view list)
{
    std::vector<NamedValue> values;
    while (!list.empty()) {
        std::string_view names = TakePart(list, '|');
        NamedValue value{TakeNumber(names), {}};
        names.remove_prefix(1);  // the blank
        while (!names.empty()) {
            value.names.push_back(TakePart(names, ','));
        }
        values.push_back(std::move(value));
    }
    return values;
}

// The table whose chosen row the field holds, by its place in the record.
Table TableOfRow(const Field& field)
{
    HeldState s;
    const i16* const row = static_cast<const i16*>(field.locate(s, 0));
    return static_cast<Table>(row - InputsOf(s).row.data());
}

Choice ChoiceFrom(const Field& field)
{
    Choice choice{field.name, field.values};
    if (choice.values == kRowValues) {
        choice.table = TableOfRow(field);
        choice.highest = static_cast<i16>(RowCount(*choice.table) - 1);
    } else if (choice.values == kFamilyValues || choice.values == kSteelValues) {
        choice.highest = kMost;
    } else if (std::string_view rest = choice.values; rest.find(kRange) != rest.npos) {
        choice.lowest = TakeNumber(rest);
        rest.remove_prefix(kRange.size());
        choice.highest = TakeNumber(rest);
    } else {
        choice.truth = choice.values == kTruthValues;
        choice.named = NamedValues(choice.values);
        choice.lowest = choice.named.front().value;
        choice.highest = choice.named.back().value;
    }
    return choice;
}

// One for each field; those of fields that are typed or no inputs have no values.
const std::vector<Choice>& AllChoices()
{
    static const std::vector<Choice> kChoices = [] {
        std::vector<Choice> choices;
        for (const Field& field : AllFields()) {
            const bool chosen = field.role == FieldRole::input && !field.values.empty();
            choices.push_back(chosen ? ChoiceFrom(field) : Choice{field.name, {}});
        }
        return choices;
    }();
    return kChoices;
}

bool IsFamily(const Choice& choice)
{
    return choice.values == kFamilyValues;
}

bool IsSteel(const Choice& choice)
{
    return choice.values == kSteelValues;
}

// Highest value that is offered; of the families the last in number.
int Highest(const Library& library, const Choice& choice)
{
    return IsSteel(choice) ? static_cast<int>(library.materials.size()) - 1 : choice.highest;
}

bool SameCompact(std::string_view compact, std::string_view name)
{
    std::size_t i = 0;
    for (const char c : name) {
        if (c == ' ' || c == '-' || c == '_' || c == '&') {
            continue;
        }
        if (i == compact.size() || Small(compact[i]) != Small(c)) {
            return false;
        }
        ++i;
    }
    return i == compact.size();
}

bool HasName(const NamedValue& value, std::string_view compact)
{
    return std::any_of(value.names.begin(), value.names.end(),
                       [compact](std::string_view name) { return SameCompact(compact, name); });
}

std::vector<std::string> AllNames(const Library& library, const Choice& choice)
{
    std::vector<std::string> names;
    if (IsFamily(choice)) {
        for (const FamilyTraits& info : Families()) {
            names.push_back(FamilyName(info.id));
        }
    } else if (IsSteel(choice)) {
        for (const Material& material : library.materials) {
            names.push_back(material.name);
        }
    }
    for (const NamedValue& value : choice.named) {
        names.insert(names.end(), value.names.begin(), value.names.end());
    }
    return names;
}

}  // namespace

const Choice* ChoiceOf(const Field& field)
{
    const Choice& choice = AllChoices()[static_cast<std::size_t>(&field - AllFields().data())];
    return choice.values.empty() ? nullptr : &choice;
}

const Choice* FindChoice(std::string_view field)
{
    const Field* const found = FindField(field);
    return found != nullptr ? ChoiceOf(*found) : nullptr;
}

bool Offers(const Library& library, const Choice& choice, int value)
{
    if (IsFamily(choice)) {
        const auto families = Families();
        return std::any_of(families.begin(), families.end(),
                           [&](const FamilyTraits& info) { return info.id == value; });
    }
    if (!choice.named.empty()) {
        return std::any_of(choice.named.begin(), choice.named.end(),
                           [value](const NamedValue& named) { return named.value == value; });
    }
    return value >= choice.lowest && value <= Highest(library, choice);
}

std::optional<Table> TableOfField(std::string_view field)
{
    const Choice* const choice = field.starts_with(kRow) ? FindChoice(field) : nullptr;
    return choice != nullptr ? choice->table : std::nullopt;
}

std::string Offered(const Library& library, const Choice& choice)
{
    if (IsFamily(choice)) {
        return "of `kestrum sections`";
    }
    if (choice.named.empty()) {
        std::string text =
            "(" + std::to_string(choice.lowest) + " to " + std::to_string(Highest(library, choice));
        if (choice.table) {
            const int family = FamilyOfTable(*choice.table).family;
            text += ", see `kestrum sections " + std::to_string(family) + "`";
        }
        return text + ")";
    }
    std::string text;
    for (const NamedValue& value : choice.named) {
        text += (text.empty() ? "(" : ", ") + std::to_string(value.value) + " " +
                std::string(value.names.front());
    }
    return text + ")";
}

std::optional<i16> ValueOfName(const Library& library, const Choice& choice, std::string_view name)
{
    const std::string compact = CompactName(name);
    if (compact.empty()) {
        return std::nullopt;
    }
    if (choice.table) {
        const auto found = SectionOfName(library, name, FamilyOfTable(*choice.table).family);
        return found && found->table == *choice.table ? std::optional(found->row) : std::nullopt;
    }
    if (IsFamily(choice)) {
        const std::vector<NamedFamily> found = FamiliesOfName(name);
        return found.size() == 1 ? std::optional(static_cast<i16>(found[0].family)) : std::nullopt;
    }
    if (IsSteel(choice)) {
        const auto& steels = library.materials;
        const auto at = std::find_if(steels.begin(), steels.end(), [&](const Material& material) {
            return SameCompact(compact, material.name);
        });
        return at != steels.end() ? std::optional(static_cast<i16>(at - steels.begin()))
                                  : std::nullopt;
    }
    const auto at = std::find_if(choice.named.begin(), choice.named.end(),
                                 [&](const NamedValue& each) { return HasName(each, compact); });
    return at != choice.named.end() ? std::optional(at->value) : std::nullopt;
}

std::string FindSteel(const Library& library, std::string_view name, i16& steel)
{
    const Choice& grades = *FindChoice("fykindex");
    const std::optional<i16> found = ValueOfName(library, grades, name);
    steel = found.value_or(-1);
    return found ? std::string{}
                 : "no such name in the list " + Offered(library, grades) +
                       NameHint(library, grades, name);
}

std::string NameOfValue(const Library& library, const Choice& choice, int value)
{
    if (!Offers(library, choice, value)) {
        return {};
    }
    if (choice.table) {
        return RowName(library, *choice.table, value);
    }
    if (IsFamily(choice)) {
        return FamilyName(value);
    }
    if (IsSteel(choice)) {
        return library.materials[static_cast<std::size_t>(value)].name;
    }
    const auto at = std::find_if(choice.named.begin(), choice.named.end(),
                                 [value](const NamedValue& each) { return each.value == value; });
    return at != choice.named.end() ? std::string(at->names.front()) : std::string{};
}

std::string NameHint(const Library& library, const Choice& choice, std::string_view name)
{
    std::vector<std::string> near;
    if (choice.table) {
        near = SectionsNear(library, name);
    } else if (IsFamily(choice) && FamiliesOfName(name).size() > 1) {
        for (const NamedFamily& each : FamiliesOfName(name)) {
            near.push_back(std::to_string(each.family) + " " + FamilyName(each.family));
        }
    } else {
        const std::vector<std::string> names = AllNames(library, choice);
        const std::string_view one = Nearest(name, names);
        near.assign(one.empty() ? 0 : 1, std::string(one));
    }
    return MeantHint(near);
}

}  // namespace kestrum
