#include "app/detailed_book.h"

#include "app/choices.h"
#include "app/field_owner.h"
#include "app/view_section.h"
#include "core/check_text.h"
#include "core/load_cases.h"
#include "core/parse_num.h"
#include "core/project_state.h"
#include "core/version.h"
#include "engine/calculate.h"
#include "report/detailed_table.h"
#include "report/outcome.h"
#include "report/page_quantities.h"
#include "report/standard_text.h"
#include "standard/standard.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

BookCell Text(std::string_view text)
{
    return {std::string(text)};
}

BookCell Strong(std::string_view text)
{
    return {.text = std::string(text), .strong = true};
}

BookCell Ratio(double ratio)
{
    return std::isfinite(ratio) ? BookCell{.number = ratio, .format = "0.000"} : Text("infinite");
}

// What a spreadsheet takes as a name: letters, digits, points and underscores.
std::string NameOf(std::string_view prefix, std::string_view symbol)
{
    std::string name(prefix);
    for (const char c : symbol) {
        const bool kept =
            (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '.';
        if (kept) {
            name += c;
        } else if (name.back() != '_') {
            name += '_';
        }
    }
    name.erase(name.find_last_not_of('_') + 1);
    return name;
}

// Names the cell in the last row, unless another has the name.
void NameLast(BookSheet& sheet, std::string name, std::size_t column)
{
    const auto taken = [&](const BookName& other) { return other.name == name; };
    if (std::none_of(sheet.names.begin(), sheet.names.end(), taken)) {
        sheet.names.push_back({std::move(name), sheet.rows.size() - 1, column});
    }
}

BookSheet Details(const ProjectState& s)
{
    BookSheet sheet{"Detailed results", {}};
    constexpr double kWidths[] = {26, 16, 8, 14};
    for (std::size_t i = 0; i < kDetailedColumns.size(); ++i) {
        sheet.columns.push_back({std::string(kDetailedColumns[i]), kWidths[i], i == 1});
    }
    for (const DetailedRow& row : FillDetailedResult(s)) {
        BookCell value = Text(row.value);
        if (row.number) {
            value = {.number = row.number, .format = row.format};
        }
        sheet.rows.push_back({row.heading ? Strong(row.parameter) : Text(row.parameter),
                              std::move(value), Text(row.unit), Text(row.reference)});
        if (row.number) {
            NameLast(sheet, NameOf("detail_", row.parameter), 1);
        }
    }
    return sheet;
}

struct BothResults {
    Outcome outcome;
    standard::StandardResult standard;
};

BookSheet Project(const Library& library, const ProjectState& s, const ProjectOrigin& origin,
                  const std::string& date, const BothResults& results)
{
    BookSheet sheet{"Project", {{"Item", 30}, {"Value", 70}}};
    const auto add = [&](std::string_view item, BookCell value) {
        sheet.rows.push_back({Text(item), std::move(value)});
    };
    add("Project", Text(s.projname));
    add("Identification", Text(s.ident));
    add("Section", Text(SectionName(library, s)));
    add("Steel", Text(NameOfValue(library, *FindChoice("fykindex"), s.fykindex)));
    add("National annex", Text(TextOf(s, *FindField("annexcode"))));
    add("File", Text(origin.file));
    add("SHA-256 of the file", Text(origin.digest));
    add("Date", Text(date));
    add("Program", Text("Kestrum EC3 " + std::string(kVersion)));
    add("Verdict", Text(VerdictText(results.outcome)));
    add("Largest ratio, program", Ratio(results.outcome.ir));
    NameLast(sheet, "ir_program", 1);
    add("governed by", Text(results.outcome.control + " (" + results.outcome.clause + ")"));
    if (results.standard.rated) {
        const standard::CheckId governing = results.standard.governing;
        add("Largest ratio, EN 1993-1-1 as written", Ratio(results.standard.ir));
        NameLast(sheet, "ir_standard", 1);
        add("governed by", Text(SourceOf(governing, results.standard.checks[governing])));
    } else {
        add("EN 1993-1-1 as written", Text(StandardWords(results.standard)));
    }
    return sheet;
}

std::string PlaceText(const CheckPlace& place)
{
    switch (place.kind) {
    case CheckPlace::Kind::section:
    case CheckPlace::Kind::point:
        return "section";
    case CheckPlace::Kind::segment:
        return "segment " + std::to_string(place.number) + " of " + std::to_string(place.parts);
    case CheckPlace::Kind::member:
        break;
    }
    return "member";
}

BookSheet Ratios(const ProjectState& s, const BothResults& results)
{
    BookSheet sheet{"Ratios",
                    {{"Rules", 14},
                     {"Check", 44},
                     {"Clause", 18},
                     {"Ratio", 10, true},
                     {"Limit", 8, true},
                     {"Where", 16},
                     {"x/L", 8, true},
                     {"Combination", 24},
                     {"Governs", 10}}};
    for (const CheckId id : RatedChecks(s)) {
        const Check& check = s.checklist[id];
        const bool section = check.place.kind == CheckPlace::Kind::section ||
                             check.place.kind == CheckPlace::Kind::point;
        sheet.rows.push_back(
            {Text("Program"),
             Text(FormulaOf(check)),
             Text(TextsOf(check.form).clause),
             Ratio(check.ratio),
             {.number = s.irlimit},
             Text(PlaceText(check.place)),
             section ? BookCell{.number = check.place.x, .format = "0.00"} : BookCell{},
             {},
             Text(s.checklist.governs(RowOf(id)) == id ? "its row" : "")});
        NameLast(sheet, NameOf("ir_program_", kestrum::NameOf(id)), 3);
    }
    const standard::StandardResult& result = results.standard;
    for (std::size_t i = 0; result.rated && i < standard::kCheckIds; ++i) {
        const auto id = static_cast<standard::CheckId>(i);
        const standard::Check& check = result.checks[id];
        if (!check.present) {
            continue;
        }
        const bool section = std::isfinite(check.place);
        sheet.rows.push_back(
            {Text("EN 1993-1-1"),
             Text(WordsOf(id)),
             Text(check.clause),
             Ratio(check.ir),
             {.number = s.irlimit},
             Text(section ? "section" : "member"),
             section ? BookCell{.number = check.place, .format = "0.00"} : BookCell{},
             Text(kestrum::NameOf(check.load_case)),
             Text(id == result.governing ? "all" : "")});
        NameLast(sheet, NameOf("ir_standard_", standard::NameOf(id)), 3);
    }
    return sheet;
}

// A field of all families or of that of the project.
bool Concerns(const Field& field, const ProjectState& s)
{
    const Owner owner = OwnerOf(field);
    return field.role == FieldRole::input && (!owner.any() || owner.Has(s));
}

BookSheet InputsOf(const Library& library, const ProjectState& s)
{
    BookSheet sheet{
        "Inputs", {{"Field", 20}, {"Value", 16, true}, {"Unit", 8}, {"Name", 22}, {"Meaning", 70}}};
    for (const Field& field : AllFields()) {
        for (int index = field.first; Concerns(field, s) && index <= field.last; ++index) {
            const bool text = field.kind == FieldKind::text || field.kind == FieldKind::literal;
            const double value = text ? 0 : NumberOf(s, field, index);
            if (field.shape != FieldShape::scalar && value == 0) {
                continue;  // a row without a value
            }
            const Choice* const choice = text ? nullptr : ChoiceOf(field);
            const std::string name = IndexedName(field, index);
            const bool single = field.kind == FieldKind::single;
            sheet.rows.push_back(
                {Text(name),
                 text ? Text(TextOf(s, field))
                      : BookCell{.number = single ? WidenNum(static_cast<float>(value)) : value},
                 Text(field.unit),
                 choice == nullptr ? BookCell{}
                                   : Text(NameOfValue(library, *choice, static_cast<int>(value))),
                 Text(field.meaning)});
            if (!text) {
                NameLast(sheet, NameOf("in_", name), 1);
            }
        }
    }
    return sheet;
}

BookSheet Section(const Library& library, const ProjectState& s)
{
    BookSheet sheet{"Section", {{"Symbol", 22}, {"Value", 16, true}, {"Unit", 16}}};
    const auto block = [&](std::string_view head, const std::vector<Quantity>& quantities) {
        sheet.rows.push_back({Strong(head)});
        for (const Quantity& quantity : quantities) {
            sheet.rows.push_back(
                {Text(quantity.symbol),
                 quantity.number ? BookCell{.number = quantity.number} : Text(quantity.value),
                 Text(quantity.unit)});
            if (quantity.number) {
                NameLast(sheet, NameOf("section_", quantity.symbol), 1);
            }
        }
    };
    block(SectionName(library, s), {});
    block("Dimensions", DimensionsOf(s));
    block("Weight", WeightsOf(s));
    block("Section property", SectionPropertiesOf(s));
    block("Capacity", CapacitiesOf(s));
    sheet.rows.push_back({Text(ClassHeading(s)), Text(ClassText(s))});
    for (const std::string& line : MomentSidesText(s)) {
        sheet.rows.push_back({Text(line)});
    }
    return sheet;
}

}  // namespace

std::vector<BookSheet> DetailedBook(const Library& library, const ProjectState& s,
                                    const ProjectOrigin& origin, const std::string& date)
{
    const BothResults results{OutcomeOf(s, true), standard::CalculateStandard(library, AsGiven(s))};
    return {Details(s), Project(library, s, origin, date, results), Ratios(s, results),
            InputsOf(library, s), Section(library, s)};
}

}  // namespace kestrum
