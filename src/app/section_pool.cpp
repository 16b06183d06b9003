#include "app/section_pool.h"

#include "app/assign_run.h"
#include "app/batch.h"
#include "app/cell_reader.h"
#include "app/choices.h"
#include "app/commercial_sizes.h"
#include "app/field_hint.h"
#include "app/input_boxes.h"
#include "app/table_record.h"
#include "app/unloaded_member.h"
#include "sections/family_table.h"
#include "sections/section_names.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <span>
#include <utility>

namespace kestrum {

namespace {

std::string Shortest(float value)
{
    std::string text;
    AppendNumber(text, value);
    return text;
}

// A size as it is typed: a finite number above 0.
std::optional<double> SizeOf(std::string_view text)
{
    text = Trimmed(text);
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, value);
    const bool good = fault == std::errc{} && stop == end && std::isfinite(value) && value >= 0;
    return good ? std::optional(value) : std::nullopt;
}

std::vector<std::string_view> Parts(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = std::min(text.find(separator), text.size());
        parts.push_back(text.substr(0, end));
        if (end == text.size()) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

bool IsThickness(std::string_view field)
{
    const std::size_t dot = field.find('.');
    return dot != std::string_view::npos && field.substr(dot + 1).starts_with("istt");
}

// The boxes that are the dimensions of the family.
std::vector<AssignTarget> DimensionsOf(const FamilyTraits& family)
{
    std::vector<AssignTarget> dimensions;
    for (const Field& field : FieldsOfForm(family.form)) {
        AssignTarget target;
        if (FindTarget(field.name, target).empty() && target.box != nullptr) {
            dimensions.push_back(target);
        }
    }
    return dimensions;
}

bool IsOfPlates(const FamilyTraits& family)
{
    return family.kind != Kind::general &&
           (family.input == SectionInput::dimensions || family.input == SectionInput::stiffener);
}

template <class Sizes>
void AddSizes(const Sizes& sizes, double least, double most, std::vector<std::string>& texts)
{
    for (const float size : sizes) {
        if (size >= least && size <= most) {
            texts.push_back(Shortest(size));
        }
    }
}

// The sizes that a list by name has, "plates" or "plates:6:30". False for another spec.
bool AddListed(std::string_view spec, bool diameter, std::vector<std::string>& texts)
{
    const std::vector<std::string_view> parts = Parts(spec, ':');
    const auto least = parts.size() == 3 ? SizeOf(parts[1]) : std::optional(0.0);
    const auto most = parts.size() == 3 ? SizeOf(parts[2])
                                        : std::optional(std::numeric_limits<double>::infinity());
    if ((parts.size() != 1 && parts.size() != 3) || !least || !most) {
        return false;
    }
    if (parts[0] == "plates") {
        AddSizes(kPlateThicknesses, *least, *most, texts);
        return true;
    }
    if (parts[0] == "tubes" && diameter) {
        AddSizes(kTubeDiameters, *least, *most, texts);
        return true;
    }
    if (parts[0] == "tubes") {
        AddSizes(kTubeWalls, *least, *most, texts);
        return true;
    }
    return false;
}

// "300:900:50" or "6,8,10". False for another spec.
bool AddNumbers(std::string_view spec, std::vector<std::string>& texts)
{
    const std::vector<std::string_view> parts = Parts(spec, ':');
    if (parts.size() == 3) {
        const auto from = SizeOf(parts[0]), to = SizeOf(parts[1]), step = SizeOf(parts[2]);
        if (!from || !to || !step || *step <= 0 || *to < *from) {
            return false;
        }
        constexpr double kRounding = 1e-9;  // of a step
        for (std::size_t i = 0; i <= SectionPool::kMostSizes; ++i) {
            const double size = *from + static_cast<double>(i) * *step;
            if (size > *to + kRounding * *step) {
                break;
            }
            texts.push_back(Shortest(static_cast<float>(size)));
        }
        return true;
    }
    for (const std::string_view part : Parts(spec, ',')) {
        const auto size = SizeOf(part);
        if (!size || texts.size() > SectionPool::kMostSizes) {
            return false;
        }
        texts.push_back(Shortest(static_cast<float>(*size)));
    }
    return true;
}

}  // namespace

// --- Words ---------------------------------------------------------------------------------------

// Whether all sections of the other one are its own too.
bool SectionPool::Covers(const Entry& entry, const Entry& other)
{
    const bool own = entry.family == other.family && entry.table == other.table;
    if (entry.single || other.single) {
        return own && entry.single == other.single &&
               std::equal(entry.sizes.begin(), entry.sizes.end(), other.sizes.begin(),
                          other.sizes.end(),
                          [](const Sizes& a, const Sizes& b) { return a.texts == b.texts; });
    }
    return own && (!entry.row || entry.row == other.row);
}

std::string SectionPool::Find(const Library& library, std::string_view word,
                              std::vector<Entry>& found)
{
    const auto add = [&found](const FamilyTraits& family, int series) {
        if (family.tables.empty()) {
            found.push_back({.family = static_cast<i16>(family.id)});
        }
        for (std::size_t i = 0; i < family.tables.size(); ++i) {
            const bool several = family.series != nullptr;
            if (!several || series == 0 || series == static_cast<int>(i) + 1) {
                found.push_back({.family = static_cast<i16>(family.id),
                                 .series = static_cast<i16>(several ? i + 1 : 0),
                                 .table = family.tables[i]});
            }
        }
    };
    const std::string compact = CompactName(word);
    int number = 0;
    const auto [stop, fault] =
        std::from_chars(compact.data(), compact.data() + compact.size(), number);
    const bool numeric = fault == std::errc{} && stop == compact.data() + compact.size();
    if (compact == "ALL") {
        for (const FamilyTraits& family : Families()) {
            if (family.input == SectionInput::table || family.input == SectionInput::series) {
                add(family, 0);
            }
        }
    } else if (numeric) {
        const FamilyTraits* const family = FindFamily(number);
        if (family != nullptr && family->input != SectionInput::none) {
            add(*family, 0);
        }
    } else if (const auto tube = TubeOfName(word)) {
        Entry entry{.family = static_cast<i16>(tube->family), .single = true};
        entry.sizes.resize(2);
        entry.sizes[0].texts = {Shortest(tube->diameter)};
        entry.sizes[1].texts = {Shortest(tube->wall)};
        found.push_back(std::move(entry));
    } else if (const auto section = SectionOfName(library, word, 0)) {
        found.push_back({.family = static_cast<i16>(section->family),
                         .series = static_cast<i16>(section->series),
                         .table = section->table,
                         .row = section->row});
    } else {
        for (const NamedFamily& family : FamiliesOfName(compact == "CHS" ? "Tube" : word)) {
            add(TraitsOf(family.family), family.series);
        }
    }
    if (found.empty()) {
        return std::string(word) + ": no such family or section; `kestrum sections` lists them" +
               MeantHint(SectionsNear(library, word));
    }
    if (std::any_of(found.begin(), found.end(),
                    [](const Entry& e) { return TraitsOf(e.family).kind == Kind::general; })) {
        return std::string(word) + ": a general profile has no list to choose from";
    }
    return {};
}

std::string SectionPool::Add(const Library& library, std::string_view word)
{
    std::vector<Entry> found;
    std::string refusal = Find(library, Trimmed(word), found);
    for (Entry& entry : found) {
        const auto has = [&entry](const Entry& other) { return Covers(other, entry); };
        if (refusal.empty() && std::none_of(entries_.begin(), entries_.end(), has)) {
            std::erase_if(entries_, [&](const Entry& other) { return Covers(entry, other); });
            entries_.push_back(std::move(entry));
        }
    }
    return refusal;
}

// --- Prices --------------------------------------------------------------------------------------

std::string SectionPool::AddPrices(const Library& library, std::string_view text,
                                   const std::string& name)
{
    constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    std::size_t section = kNone, price = kNone, steel = kNone;
    bool per_metre = false;
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.remove_prefix(3);
    }
    std::size_t line = 1;
    const auto take = [&](std::string_view separators) {
        const char* const before = text.data();
        const std::string_view record = TakeRecord(text, separators);
        line += static_cast<std::size_t>(std::count(before, text.data(), '\n'));
        return record;
    };
    const auto at = [&name](std::size_t number, const std::string& what) {
        return name + ":" + std::to_string(number) + ": " + what;
    };
    const std::string_view header = take(kAnySeparator);
    const char separator = SeparatorOf(header);
    std::size_t count = 0;
    for (CellReader cells(header, separator); cells.Next(); ++count) {
        const std::string_view column = Trimmed(cells.cell());
        const bool per_kg = column == "price/kg";
        std::size_t* const place = column == "section"             ? &section
                                   : column == "steel"             ? &steel
                                   : per_kg || column == "price/m" ? &price
                                                                   : nullptr;
        if (place == nullptr || *place != kNone) {
            return at(1, "column \"" + std::string(column) + "\": expected section, price/kg or " +
                             "price/m, and steel, each once");
        }
        *place = count;
        per_metre = per_metre || column == "price/m";
    }
    if (section == kNone) {
        return at(1, "no column section");
    }
    while (!text.empty()) {
        const std::size_t number = line;
        const std::string_view record = take({&separator, 1});
        if (Trimmed(record).empty()) {
            continue;
        }
        std::vector<std::string> cells;
        CellReader reader(record, separator);
        while (record.size() <= kLongestLine && reader.Next()) {
            cells.emplace_back(Trimmed(reader.cell()));
        }
        if (!reader.fault().empty() || cells.size() != count) {
            return at(number, !reader.fault().empty() ? std::string(reader.fault())
                              : cells.size() < count  ? "fewer cells than columns"
                                                      : "more cells than columns");
        }
        const auto cell = [&](std::size_t column) {
            return column == kNone ? std::string{} : cells[column];
        };
        const std::string refusal = AddPriceLine(library, {cell(section), cell(price), cell(steel)},
                                                 price == kNone, per_metre);
        if (!refusal.empty()) {
            return at(number, refusal);
        }
    }
    return entries_.empty() ? at(1, "holds no sections") : std::string{};
}

std::string SectionPool::AddPriceLine(const Library& library,
                                      const std::array<std::string, 3>& cells, bool unpriced,
                                      bool per_metre)
{
    const auto& [word, price, steel] = cells;
    PriceLine line{.word = word};
    std::string refusal = word.empty() ? std::string("no section") : Find(library, word, line.of);
    if (!refusal.empty()) {
        return refusal;
    }
    refusal = Add(library, word);
    if (!refusal.empty() || unpriced) {
        return refusal;
    }
    if (!steel.empty()) {
        const auto named = ValueOfName(library, *FindChoice("fykindex"), steel);
        if (!named) {
            return "steel: \"" + steel + "\": no such name in the list";
        }
        line.steel = *named;
    }
    std::string digits = price;
    std::replace(digits.begin(), digits.end(), ',', '.');
    const auto value = SizeOf(digits);
    if (!value) {
        return "price: \"" + price + "\" is no number of 0 and above";
    }
    line.price = {*value, per_metre};
    for (const PriceLine& other : prices_) {
        const bool same =
            other.steel == line.steel && other.of.size() == line.of.size() &&
            std::equal(other.of.begin(), other.of.end(), line.of.begin(),
                       [](const Entry& a, const Entry& b) { return Covers(a, b) && Covers(b, a); });
        if (same) {
            return word + ": has a price already";
        }
    }
    prices_.push_back(std::move(line));
    return {};
}

bool SectionPool::Prices(const Entry& entry, const Entry& of, i16 row)
{
    Entry one = of;
    one.row = of.table ? std::optional(row) : std::nullopt;
    return Covers(entry, one) || (!entry.single && !entry.table && entry.family == of.family);
}

std::optional<Price> SectionPool::PriceOf(const Candidate& candidate, int steel) const
{
    const Entry& entry = entries_[candidate.entry];
    const PriceLine* best = nullptr;
    std::pair<bool, bool> closest;
    for (const PriceLine& line : prices_) {
        const auto prices = [&](const Entry& of) { return Prices(of, entry, candidate.row); };
        if ((line.steel != -1 && line.steel != steel) ||
            std::none_of(line.of.begin(), line.of.end(), prices)) {
            continue;
        }
        const std::pair close(line.of.front().single || line.of.front().row, line.steel != -1);
        if (best == nullptr || close > closest) {
            best = &line;
            closest = close;
        }
    }
    return best != nullptr ? std::optional(best->price) : std::nullopt;
}

// --- Dimensions ----------------------------------------------------------------------------------

std::string SectionPool::Range(std::string_view text)
{
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos || equals == 0 || equals + 1 == text.size()) {
        return std::string(text) + ": expected FIELD=FROM:TO:STEP, FIELD=SIZE,SIZE or FIELD=plates";
    }
    const std::string field(Trimmed(text.substr(0, equals)));
    const auto same = [&field](const Given& given) { return given.field == field; };
    if (std::any_of(given_.begin(), given_.end(), same)) {
        return field + ": is given twice";
    }
    given_.push_back({field, std::string(Trimmed(text.substr(equals + 1)))});
    return {};
}

std::string SectionPool::Keep(std::string_view field)
{
    const auto same = [field](const Given& given) { return given.field == field; };
    if (std::any_of(given_.begin(), given_.end(), same)) {
        return std::string(field) + ": is given twice";
    }
    given_.push_back({std::string(field), {}});
    return {};
}

std::string SectionPool::FillSizes(const Library& library, const Entry& entry, Sizes& sizes)
{
    const std::string name = kestrum::NameOf(sizes.target.ref);
    const bool tube = TraitsOf(entry.family).kind == Kind::tube;
    const bool wall = IsThickness(name);
    const auto given =
        std::find_if(given_.begin(), given_.end(), [&](const Given& g) { return g.field == name; });
    if (given == given_.end() && !tube && !wall) {
        return name + ": its sizes are missing; --range " + name + "=FROM:TO:STEP gives them, " +
               "--keep " + name + " leaves the member's own";
    }
    std::string spec = tube ? "tubes" : "plates";
    if (given != given_.end()) {
        given->used = true;
        spec = given->spec;
    }
    if (spec.empty()) {
        return {};
    }
    if (!AddListed(spec, tube && !wall, sizes.texts) && !AddNumbers(spec, sizes.texts)) {
        return name + "=" + spec + ": expected FROM:TO:STEP, sizes with commas between, or plates";
    }
    if (sizes.texts.empty() || sizes.texts.size() > kMostSizes) {
        return name + "=" + spec + (sizes.texts.empty() ? ": no sizes" : ": more than 255 sizes");
    }
    for (const std::string& text : sizes.texts) {
        ProjectState s = UnloadedMember(library);
        // Limits that depend on other dimensions are seen with these, in Apply.
        const bool tied = sizes.target.box->rule != BoxRule::plain;
        const std::string refusal =
            AssignTo(library, s, sizes.target, text, tied ? Assignment::raw : Assignment::checked);
        if (!refusal.empty()) {
            return name + "=" + text + ": " + std::string(Trimmed(refusal));
        }
        sizes.values.push_back(NumberOf(s, *sizes.target.ref.field, sizes.target.ref.index));
    }
    return {};
}

std::string SectionPool::FillEntry(const Library& library, Entry& entry)
{
    const FamilyTraits& family = TraitsOf(entry.family);
    if (!IsOfPlates(family)) {
        return {};
    }
    const std::vector<AssignTarget> dimensions = DimensionsOf(family);
    entry.sizes.resize(dimensions.size());
    for (std::size_t i = 0; i < dimensions.size(); ++i) {
        Sizes& sizes = entry.sizes[i];
        sizes.target = dimensions[i];
        entry.tied = entry.tied || dimensions[i].box->rule != BoxRule::plain;
        if (entry.single) {
            float value = 0;
            const std::string& text = sizes.texts.front();
            std::from_chars(text.data(), text.data() + text.size(), value);
            sizes.values = {value};
        } else if (std::string refusal = FillSizes(library, entry, sizes); !refusal.empty()) {
            return refusal;
        }
    }
    return {};
}

// Every combination of the sizes; the last dimension runs fastest.
std::string SectionPool::ExpandGrid(std::size_t number, i16 row)
{
    const Entry& entry = entries_[number];
    std::size_t count = 1;
    for (const Sizes& sizes : entry.sizes) {
        count *= std::max<std::size_t>(sizes.values.size(), 1);
        if (candidates_.size() + count > kMost) {
            return "the pool holds more than " + std::to_string(kMost) +
                   " sections; --range with fewer sizes";
        }
    }
    Candidate candidate{static_cast<std::uint16_t>(number), row, {}};
    for (std::size_t i = 0; i < count; ++i) {
        candidates_.push_back(candidate);
        for (std::size_t k = entry.sizes.size(); k-- > 0;) {
            const std::size_t sizes = std::max<std::size_t>(entry.sizes[k].values.size(), 1);
            if (++candidate.at[k] < sizes) {
                break;
            }
            candidate.at[k] = 0;
        }
    }
    return {};
}

std::string SectionPool::Finish(const Library& library)
{
    candidates_.clear();
    if (entries_.empty()) {
        return "the pool is empty";
    }
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        Entry& entry = entries_[i];
        std::string refusal = FillEntry(library, entry);
        const int first = entry.row.value_or(0);
        const int behind = entry.row ? first + 1 : entry.table ? RowCount(*entry.table) : 1;
        for (int row = first; row < behind && refusal.empty(); ++row) {
            refusal = ExpandGrid(i, static_cast<i16>(row));
        }
        if (!refusal.empty()) {
            return refusal;
        }
    }
    for (const Given& given : given_) {
        AssignTarget target;
        if (std::string refusal = FindTarget(given.field, target); !refusal.empty()) {
            return given.field + ": " + refusal;
        }
        if (!given.used) {
            return given.field + ": no dimension of a family in the pool";
        }
    }
    return {};
}

bool SectionPool::IsNamed(const Entry& entry)
{
    return !IsOfPlates(TraitsOf(entry.family)) || TraitsOf(entry.family).kind == Kind::tube;
}

std::vector<std::string> SectionPool::FieldsOf(const Entry& entry)
{
    std::vector<std::string> fields;
    if (IsNamed(entry)) {
        return fields;
    }
    fields.emplace_back("family");
    if (entry.table) {
        for (const Field& field : AllFields()) {
            if (TableOfField(field.name) == entry.table) {
                fields.emplace_back(field.name);
            }
        }
    }
    for (const Sizes& sizes : entry.sizes) {
        fields.push_back(kestrum::NameOf(sizes.target.ref));
    }
    return fields;
}

bool SectionPool::IsNamed(const Candidate& candidate) const
{
    return IsNamed(entries_[candidate.entry]);
}

std::vector<std::string> SectionPool::FieldsOf(const Candidate& candidate) const
{
    return FieldsOf(entries_[candidate.entry]);
}

bool SectionPool::HasNames() const
{
    return std::any_of(entries_.begin(), entries_.end(),
                       [](const Entry& entry) { return IsNamed(entry); });
}

std::vector<std::string> SectionPool::Fields() const
{
    std::vector<std::string> fields;
    for (const Entry& entry : entries_) {
        for (std::string& field : FieldsOf(entry)) {
            if (std::find(fields.begin(), fields.end(), field) == fields.end()) {
                fields.push_back(std::move(field));
            }
        }
    }
    return fields;
}

// --- One section ---------------------------------------------------------------------------------

bool SectionPool::Apply(const Library& library, ProjectState& s, const Candidate& candidate) const
{
    const Entry& entry = entries_[candidate.entry];
    s.family = entry.family;
    if (entry.series != 0) {
        s.*TraitsOf(entry.family).series = entry.series;
    }
    if (entry.table) {
        s.row[static_cast<std::size_t>(*entry.table)] = candidate.row;
    }
    AssignRun run(library, s, Assignment::checked);
    for (std::size_t k = 0; k < entry.sizes.size(); ++k) {
        const Sizes& sizes = entry.sizes[k];
        if (sizes.values.empty()) {
            continue;
        }
        if (entry.tied) {
            if (!run.Assign(sizes.target, sizes.texts[candidate.at[k]]).empty()) {
                return false;
            }
            continue;
        }
        const Field& field = *sizes.target.ref.field;
        const double value = sizes.values[candidate.at[k]];
        if (field.kind == FieldKind::single) {
            *static_cast<float*>(field.locate(s, 0)) = static_cast<float>(value);
        } else {
            *static_cast<double*>(field.locate(s, 0)) = value;
        }
    }
    return !entry.tied || run.Finish().empty();
}

std::string SectionPool::NameOf(const Library& library, const ProjectState& s,
                                const Candidate& candidate) const
{
    const Entry& entry = entries_[candidate.entry];
    const FamilyTraits& family = TraitsOf(entry.family);
    const std::string row =
        entry.table ? RowName(library, *entry.table, candidate.row) : std::string{};
    if (entry.sizes.empty()) {
        return row;
    }
    std::string name(family.kind == Kind::tube ? "CHS" : family.text);
    std::string_view between = " ";
    for (const Sizes& sizes : entry.sizes) {
        name += between;
        AppendNumber(
            name, static_cast<float>(NumberOf(s, *sizes.target.ref.field, sizes.target.ref.index)));
        between = "x";
    }
    return row.empty() ? name : name + ", " + row;
}

}  // namespace kestrum
