// What the fields mean, from the list that the program itself goes by.

#include "app/field_facts.h"
#include "app/field_hint.h"
#include "cli/commands.h"
#include "core/csv_cell.h"
#include "report/state_json.h"

#include <algorithm>
#include <vector>

namespace kestrum::cli {

namespace {

// One line of the list of all fields.
std::string ShortText(const FieldFacts& facts)
{
    constexpr std::size_t kName = 20, kUnit = 6;
    std::string line = facts.name + (facts.rows ? "[]" : "");
    line.append(std::max(kName, line.size() + 1) - line.size(), ' ');
    line.append(facts.unit);
    line.append(std::max(kUnit, facts.unit.size() + 1) - facts.unit.size(), ' ');
    return line.append(facts.meaning) + "\n";
}

std::string TextOf(const std::vector<FieldFacts>& all, bool one)
{
    std::string text;
    for (const FieldFacts& facts : all) {
        text += one ? FactsText(facts) : ShortText(facts);
    }
    return text;
}

std::string CsvOf(const std::vector<FieldFacts>& all, const CsvForm& csv)
{
    std::string text =
        CsvNames("name,type,first,last,unit,role,values,limits,since,meaning\n", csv);
    const auto cell = [&](std::string_view what, char behind) {
        AppendCell(text, what);
        text.push_back(behind);
    };
    const char next = csv.delimiter;
    for (const FieldFacts& facts : all) {
        cell(facts.name, next);
        cell(facts.type, next);
        cell(facts.rows ? std::to_string(facts.first) : "", next);
        cell(facts.rows ? std::to_string(facts.last) : "", next);
        cell(facts.unit, next);
        cell(facts.role, next);
        cell(facts.values, next);
        cell(facts.limits, next);
        cell(facts.since != 0 ? std::to_string(facts.since) : "", next);
        cell(facts.meaning, '\n');
    }
    return text;
}

// The values that a list offers by number, [{"value": 0, "names": ["G"]}, ..]; null for others.
std::string ChoiceJson(const FieldFacts& facts)
{
    if (facts.choice == nullptr || facts.choice->named.empty()) {
        return "null";
    }
    std::string list;
    for (const NamedValue& value : facts.choice->named) {
        std::string names;
        for (const std::string_view name : value.names) {
            names += (names.empty() ? "" : ", ") + JsonText(name);
        }
        list += (list.empty() ? "" : ", ");
        list += "{\"value\": " + std::to_string(value.value) + ", \"names\": [" + names + "]}";
    }
    return "[" + list + "]";
}

// [{"part": "settings", "line": 3}]; a block of a family has its number and, for the row of a
// series, the series.
std::string PlacesJson(const std::vector<FilePlace>& places)
{
    std::string list;
    for (const FilePlace& place : places) {
        list += list.empty() ? "{\"part\": " : ", {\"part\": ";
        list += JsonText(PartName(place.part)) + ", \"line\": " + std::to_string(place.line);
        list += place.block != 0 ? ", \"family\": " + std::to_string(place.block) : "";
        list += place.choice != 0 ? ", \"choice\": " + std::to_string(place.choice) : "";
        list += "}";
    }
    return "[" + list + "]";
}

std::string JsonOf(const std::vector<FieldFacts>& all)
{
    std::string text;
    for (const FieldFacts& facts : all) {
        text += text.empty() ? "" : ",\n";
        text += "{\"name\": " + JsonText(facts.name) + ", \"type\": " + JsonText(facts.type);
        text += ", \"rows\": ";
        text += facts.rows
                    ? "[" + std::to_string(facts.first) + ", " + std::to_string(facts.last) + "]"
                    : "null";
        text += ", \"unit\": " + JsonText(facts.unit) + ", \"role\": " + JsonText(facts.role);
        text += ", \"values\": " + JsonText(facts.values) + ", \"list\": " + ChoiceJson(facts);
        text += ", \"limits\": " + JsonText(facts.limits);
        text += ", \"file\": " + PlacesJson(facts.places);
        text += ", \"since\": " + (facts.since != 0 ? std::to_string(facts.since) : "null");
        text += ", \"meaning\": " + JsonText(facts.meaning) + "}";
    }
    return "[" + text + "]\n";
}

std::vector<FieldFacts> Wanted(const Library& library, const std::string& name)
{
    std::vector<FieldFacts> facts;
    if (name.empty()) {
        for (const Field& field : AllFields()) {
            facts.push_back(FactsOf(library, field));
        }
        return facts;
    }
    const Field* const field = FieldMeant(name);
    if (field == nullptr) {
        throw BadInput(name + ": no such field" + FieldHint(name, FieldsMeant::all));
    }
    return {FactsOf(library, *field)};
}

}  // namespace

int Fields(const Options& options, const std::string& name)
{
    const CsvForm csv = CsvFormOf(options, CsvTexts::plain, options.format == Format::csv);
    const std::vector<FieldFacts> facts = Wanted(LoadTables(options), name);
    switch (options.format) {
    case Format::json:
        Print(JsonOf(facts));
        break;
    case Format::csv:
        Print(CsvOf(facts, csv));
        break;
    case Format::text:
        Print(TextOf(facts, !name.empty()));
        break;
    }
    return kAllWithin;
}

}  // namespace kestrum::cli
