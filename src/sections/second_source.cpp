#include "sections/second_source.h"

#include "core/arithmetic_trap.h"
#include "sections/family_table.h"
#include "sections/read_profiles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <span>

namespace kestrum {

namespace {

constexpr std::string_view kHeader = "table,size,figure,table value,corrected,source";

struct FigureName {
    std::string_view name;
    SectionFigure figure;
    double unit;  // of the record
};

constexpr std::array<FigureName, 7> kFigures = {{{"A [cm2]", SectionFigure::a, 1e2},
                                                 {"Iy [cm4]", SectionFigure::iy, 1e4},
                                                 {"Iz [cm4]", SectionFigure::iz, 1e4},
                                                 {"Wpl y [cm3]", SectionFigure::wply, 1e3},
                                                 {"Wpl z [cm3]", SectionFigure::wplz, 1e3},
                                                 {"It [cm4]", SectionFigure::it, 1e4},
                                                 {"Iw [1e9 mm6]", SectionFigure::iw, 1e9}}};

// One row of the list, not yet matched with a row of a table.
struct Line {
    Table table;
    std::string_view size;
    FigureName figure;
    float ours, corrected;  // in the unit of the figure
};

std::string_view Next(std::string_view& text, char separator)
{
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

std::string_view NextLine(std::string_view& bytes)
{
    std::string_view line = Next(bytes, '\n');
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

std::optional<Table> TableNamed(std::string_view name)
{
    for (std::size_t i = 0; i < kTables; ++i) {
        const auto table = static_cast<Table>(i);
        const std::string_view file = ShapeOf(table).file;  // "ub.dat"
        if (file.substr(0, file.find('.')) == name) {
            return table;
        }
    }
    return {};
}

std::optional<float> Positive(std::string_view text)
{
    float value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, value);
    const bool good = fault == std::errc{} && stop == end && std::isfinite(value) && value > 0;
    return good ? std::optional(value) : std::nullopt;
}

// The row, or what was expected of it.
struct Parsed {
    std::optional<Line> line;
    std::string_view expected;
};

Parsed Parse(std::string_view text)
{
    const auto table = TableNamed(Next(text, ','));
    if (!table) {
        return {{}, "expected the name of a profile table in field 1"};
    }
    const std::string_view size = Next(text, ',');
    const std::string_view name = Next(text, ',');
    const auto figure = std::find_if(kFigures.begin(), kFigures.end(),
                                     [name](const FigureName& f) { return f.name == name; });
    if (size.empty() || figure == kFigures.end()) {
        return {{}, "expected a size and a figure with its unit in fields 2 and 3"};
    }
    const auto ours = Positive(Next(text, ','));
    const auto corrected = Positive(Next(text, ','));
    if (!ours || !corrected) {
        return {{}, "expected numbers above 0 in fields 4 and 5"};
    }
    if (text.empty()) {
        return {{}, "expected a source in field 6"};
    }
    return {Line{*table, size, *figure, *ours, *corrected}, {}};
}

// Whether a row has the size: "127x76x13" are the numbers in the columns of its key.
bool HasSize(const ProfileTable& values, const std::array<int, 3>& columns, int row,
             std::span<const float> numbers)
{
    std::size_t matched = 0;
    for (const int column : columns) {
        if (column != 0 &&
            (matched == numbers.size() || values.At(row, column) != numbers[matched++])) {
            return false;
        }
    }
    return matched == numbers.size();
}

std::optional<i16> RowOfSize(const Library& library, Table table, std::string_view size)
{
    // Numbers first: few rows have to be written as texts.
    std::array<float, 3> numbers{};
    std::size_t count = 0;
    for (std::string_view rest = size; !rest.empty();) {
        const auto number = Positive(Next(rest, 'x'));
        if (!number || count == numbers.size()) {
            return {};
        }
        numbers[count++] = *number;
    }
    const ProfileTable& values = library.tables[static_cast<std::size_t>(table)];
    for (int row = 0; row < std::min(RowCount(table), values.reserved); ++row) {
        if (HasSize(values, ShapeOf(table).key, row, {numbers.data(), count}) &&
            RowKey(library, table, row) == size) {
            return static_cast<i16>(row);
        }
    }
    return {};
}

}  // namespace

std::vector<CorrectedFigure> ReadSecondSource(const Library& library, std::string_view bytes)
{
    std::vector<CorrectedFigure> figures;
    std::optional<Line> before;
    std::optional<i16> row;
    while (!bytes.empty()) {
        const auto line = Parse(NextLine(bytes)).line;
        const bool same =  // the figures of a row stand together
            line && before && line->table == before->table && line->size == before->size;
        if (!same) {
            row = line ? RowOfSize(library, line->table, line->size) : std::nullopt;
        }
        before = line;
        if (row) {
            const FigureName& f = line->figure;
            figures.push_back({line->table, *row, f.figure, F32(f.unit * line->ours),
                               F32(f.unit * line->corrected)});
        }
    }
    return figures;
}

std::optional<FileFault> CheckSecondSource(std::string_view bytes)
{
    if (!bytes.ends_with('\n')) {
        return FileFault{static_cast<int>(std::count(bytes.begin(), bytes.end(), '\n')) + 1,
                         "expected a line end"};
    }
    if (NextLine(bytes) != kHeader) {
        return FileFault{1, "expected \"" + std::string(kHeader) + '"'};
    }
    for (int number = 2; !bytes.empty(); ++number) {
        if (const Parsed parsed = Parse(NextLine(bytes)); !parsed.line) {
            return FileFault{number, std::string(parsed.expected)};
        }
    }
    return {};
}

double SecondSource(const Library& library, const Inputs& in, SectionFigure figure, float ours)
{
    if (library.corrected.empty() || !HasTable(in.family)) {
        return ours;
    }
    const Table table = TableOf(in);
    const i16 row = in.row[static_cast<std::size_t>(table)];
    const auto found = std::find_if(
        library.corrected.begin(), library.corrected.end(), [&](const CorrectedFigure& c) {
            return c.table == table && c.row == row && c.figure == figure && c.ours == ours;
        });
    return found != library.corrected.end() ? found->corrected : ours;
}

}  // namespace kestrum
