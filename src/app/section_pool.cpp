#include "app/section_pool.h"

#include "app/answer_form.h"
#include "app/assign_run.h"
#include "app/cell_reader.h"
#include "app/choices.h"
#include "app/field_hint.h"
#include "app/input_boxes.h"
#include "app/size_list.h"
#include "app/unloaded_member.h"
#include "core/held_state.h"
#include "core/project_inputs.h"
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
        entry.sizes[0].texts = {SizeText(tube->diameter)};
        entry.sizes[1].texts = {SizeText(tube->wall)};
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
    std::string wanted = tube ? "tubes" : "plates";
    if (given != given_.end()) {
        given->used = true;
        wanted = given->wanted;
    }
    if (wanted.empty()) {
        return {};
    }
    const TubeSize size = !tube ? TubeSize::none : wall ? TubeSize::wall : TubeSize::diameter;
    if (!AddSizes(wanted, size, sizes.texts)) {
        return name + "=" + wanted +
               ": expected FROM:TO:STEP, sizes with commas between, or plates, all in mm";
    }
    if (sizes.texts.empty() || sizes.texts.size() > kMostSizes) {
        return name + "=" + wanted + (sizes.texts.empty() ? ": no sizes" : ": more than 255 sizes");
    }
    HeldState s = UnloadedMember(library);
    for (const std::string& text : sizes.texts) {
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
    ProjectInputs& in = InputsOf(s);
    in.family = entry.family;
    if (entry.series != 0) {
        in.*TraitsOf(entry.family).series = entry.series;
    }
    if (entry.table) {
        in.row[static_cast<std::size_t>(*entry.table)] = candidate.row;
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
