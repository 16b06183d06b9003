#include "cli/commands.h"

#include "report/state_json.h"
#include "sections/family_table.h"
#include "sections/read_profiles.h"
#include "sections/section_names.h"

#include <charconv>

namespace kestrum::cli {

namespace {

struct Line {
    int number;  // family, or row
    std::string series;
    std::string text;
    std::string name;  // of a family, telling it from its like
};

// "RHS - Square (Hotformed)"; of a family with several series "U (UB, UC, UBP)".
std::string NameOf(const FamilyTraits& info)
{
    std::string series;
    if (info.input == SectionInput::series) {
        for (const Table table : info.tables) {
            series.append(series.empty() ? " (" : ", ").append(ShapeOf(table).prefix);
        }
        series += ")";
    }
    return FamilyName(info.id) + series;
}

std::vector<Line> FamilyLines()
{
    std::vector<Line> lines;
    for (const FamilyTraits& info : Families()) {
        lines.push_back({info.id, std::string(info.form), std::string(info.text), NameOf(info)});
    }
    return lines;
}

const FamilyTraits& Wanted(const std::string& family)
{
    int id = 0;
    const char* const end = family.data() + family.size();
    const auto [rest, fault] = std::from_chars(family.data(), end, id);
    const FamilyTraits* const info = fault == std::errc{} && rest == end ? FindFamily(id) : nullptr;
    if (info == nullptr || info->input == SectionInput::none) {
        throw BadInput(family + ": no such family; `kestrum sections` lists the numbers");
    }
    return *info;
}

std::vector<Line> RowLines(const Library& library, const FamilyTraits& info)
{
    std::vector<Line> lines;
    int series = 0;
    for (const Table table : info.tables) {
        ++series;
        for (int row = 0; row < RowCount(table); ++row) {
            lines.push_back({row, std::to_string(series), RowName(library, table, row), {}});
        }
    }
    return lines;
}

std::string TextOf(const std::vector<Line>& lines)
{
    std::string out;
    for (const Line& line : lines) {
        const std::string number = std::to_string(line.number);
        out += std::string(number.size() < 4 ? 4 - number.size() : 0, ' ') + number + "  ";
        out += (line.name.empty() ? line.text : line.name) + "\n";
    }
    return out;
}

std::string CsvOf(const std::vector<Line>& lines, bool families, const CsvForm& csv)
{
    const std::string next(1, csv.delimiter);
    std::string out = CsvNames(families ? "family,form,text,name\n" : "row,series,text\n", csv);
    for (const Line& line : lines) {
        out += std::to_string(line.number) + next + line.series + next + "\"" + line.text + "\"";
        out += (families ? next + "\"" + line.name + "\"" : "") + "\n";
    }
    return out;
}

std::string JsonOf(const std::vector<Line>& lines, bool families)
{
    std::string out;
    for (const Line& line : lines) {
        out += out.empty() ? "" : ",\n";
        out += (families ? "{\"family\": " : "{\"row\": ") + std::to_string(line.number);
        out += families ? ", \"form\": " + JsonText(line.series) : ", \"series\": " + line.series;
        out += ", \"text\": " + JsonText(line.text);
        out += (families ? ", \"name\": " + JsonText(line.name) : "") + "}";
    }
    return "[" + out + "]\n";
}

}  // namespace

int Sections(const Options& options, const std::string& family)
{
    const CsvForm csv = CsvFormOf(options, CsvTexts::plain, options.format == Format::csv);
    const bool families = family.empty();
    const std::vector<Line> lines =
        families ? FamilyLines() : RowLines(LoadTables(options), Wanted(family));
    switch (options.format) {
    case Format::json:
        Print(JsonOf(lines, families));
        break;
    case Format::csv:
        Print(CsvOf(lines, families, csv));
        break;
    case Format::text:
        Print(TextOf(lines));
        break;
    }
    return kAllWithin;
}

}  // namespace kestrum::cli
