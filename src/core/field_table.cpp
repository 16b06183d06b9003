#include "core/field_table.h"

#include "core/field_words.h"
#include "core/parse_num.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <tuple>
#include <utility>
#include <vector>

namespace kestrum {

namespace {

using namespace field_words;

#define SCALAR(name, kept, ...) Scalar<&ProjectState::name>(#name, kept, {__VA_ARGS__})
#define FIELD(name, kept, unit, meaning, ...)                                                      \
    SCALAR(name, kept, unit, meaning, "" __VA_OPT__(, ) __VA_ARGS__)
#define PICK(name, kept, values, meaning) SCALAR(name, kept, "", meaning, values)
#define TICK(name, kept, meaning) SCALAR(name, kept, "", meaning, kTruthValues)
#define BOXED(form, box, ...)                                                                      \
    OfForm<&ProjectState::form, &decltype(ProjectState::form)::box>(#form "." #box, {__VA_ARGS__})
#define FORM(form, box, unit, meaning, ...)                                                        \
    BOXED(form, box, unit, meaning, "" __VA_OPT__(, ) __VA_ARGS__)
#define FORMPICK(form, box, values, meaning) BOXED(form, box, "", meaning, values)
#define TABLE(name, family, choice, meaning, ...)                                                  \
    OfTable<Table::name>("row." #name, "row of the table: " meaning, Of(family, kRowLine, choice)),
#define ARRAY(name, kept, first, ...)                                                              \
    Array<&ProjectState::name>(#name, kept, kRows, first, {__VA_ARGS__})
#define ROWS(name, kept, first, unit, meaning) ARRAY(name, kept, first, unit, meaning)
#define PICKROWS(name, kept, first, values, meaning) ARRAY(name, kept, first, "", meaning, values)
#define TICKROWS(name, kept, first, meaning) ARRAY(name, kept, first, "", meaning, kTruthValues)
#define SECTIONS(name, unit, meaning)                                                              \
    Array<&ProjectState::name>(#name, kOut, FieldShape::checksections, 0, {unit, meaning})

constexpr Field kFields[] = {
#include "core/field_list.inc"
};

#undef SCALAR
#undef FIELD
#undef PICK
#undef TICK
#undef BOXED
#undef FORM
#undef FORMPICK
#undef TABLE
#undef ARRAY
#undef ROWS
#undef PICKROWS
#undef TICKROWS
#undef SECTIONS

// Where the boxes of each section form stand in kFields: one after the other, behind "p22.".
struct FormRange {
    std::uint32_t form;
    std::size_t first, count;
};

// The letters of a form, for a comparison that each pass makes; 0 for none and for what is longer
// than any form.
constexpr std::uint32_t LettersOf(std::string_view form)
{
    std::uint32_t letters = 0;
    for (const char c : form) {
        letters = letters << 8U | static_cast<unsigned char>(c);
    }
    return form.size() <= sizeof letters ? letters : 0;
}

constexpr std::string_view FormOf(std::string_view name)
{
    const std::size_t dot = name.find('.');
    const bool form = dot != std::string_view::npos && name[0] == 'p';
    return form ? name.substr(0, dot) : std::string_view{};
}

constexpr auto kForms = [] {
    std::array<FormRange, 24> ranges{};
    std::size_t used = 0;
    for (std::size_t i = 0; i < std::size(kFields); ++i) {
        const std::uint32_t form = LettersOf(FormOf(kFields[i].name));
        if (form == 0) {
            continue;
        }
        if (used == 0 || ranges[used - 1].form != form) {
            ranges.at(used++) = {form, i, 0};
        }
        ++ranges[used - 1].count;
    }
    return ranges;
}();

constexpr std::size_t PlacesInFiles()
{
    std::size_t places = 0;
    for (const Field& field : kFields) {
        for (const FilePlace& place : field.file) {
            places += place.part != none ? 1U : 0U;
        }
    }
    return places;
}

constexpr bool Precedes(const FileField& a, const FileField& b)
{
    const auto key = [](const FileField& at) {
        return std::tuple(at.place.part, at.place.block, at.place.line, at.field);
    };
    return key(a) < key(b);
}

// Every place of every field, in the order of the files.
constexpr auto kFiled = [] {
    std::array<FileField, PlacesInFiles()> filed{};
    std::size_t used = 0;
    for (const Field& field : kFields) {
        for (const FilePlace& place : field.file) {
            if (place.part != none) {
                filed[used++] = {&field, place};
            }
        }
    }
    std::sort(filed.begin(), filed.end(), Precedes);
    return filed;
}();

std::span<const FileField> FiledIn(FilePart part, int number)
{
    const auto at = [](const FilePlace& place) { return std::pair(place.part, place.block); };
    const auto wanted = std::pair(part, number);
    const auto begin = std::find_if(kFiled.begin(), kFiled.end(), [&](const FileField& each) {
        return at(each.place) == wanted;
    });
    const auto end = std::find_if(begin, kFiled.end(),
                                  [&](const FileField& each) { return at(each.place) != wanted; });
    return {begin, end};
}

// Places in kFields, sorted by name.
const std::vector<std::size_t>& ByName()
{
    static const std::vector<std::size_t> kSorted = [] {
        std::vector<std::size_t> places(std::size(kFields));
        for (std::size_t i = 0; i < places.size(); ++i) {
            places[i] = i;
        }
        std::sort(places.begin(), places.end(),
                  [](std::size_t a, std::size_t b) { return kFields[a].name < kFields[b].name; });
        return places;
    }();
    return kSorted;
}

const void* Locate(const ProjectState& s, const Field& field, int index)
{
    return field.locate(const_cast<ProjectState&>(s), index);  // looked at only
}

}  // namespace

std::span<const Field> FieldsOfForm(std::string_view form)
{
    const std::uint32_t letters = LettersOf(form);
    for (const FormRange& range : kForms) {
        if (range.form == letters && range.count > 0) {
            return std::span<const Field>(kFields).subspan(range.first, range.count);
        }
    }
    return {};
}

std::span<const FileField> FieldsOfPart(FilePart part)
{
    return FiledIn(part, 0);
}

std::span<const FileField> BlockOfFamily(int family)
{
    return FiledIn(section, family);
}

std::span<const Field> AllFields()
{
    return kFields;
}

const Field* FindField(std::string_view name)
{
    const auto& places = ByName();
    const auto at = std::lower_bound(
        places.begin(), places.end(), name,
        [](std::size_t place, std::string_view wanted) { return kFields[place].name < wanted; });
    return at != places.end() && kFields[*at].name == name ? &kFields[*at] : nullptr;
}

std::string IndexedName(const Field& field, int index)
{
    std::string name(field.name);
    if (field.shape != FieldShape::scalar) {
        name += "[" + std::to_string(index) + "]";
    }
    return name;
}

int LastIndex(const Field& field, const ProjectState& s)
{
    return field.shape == FieldShape::checksections ? std::clamp<int>(s.npts, 0, field.last)
                                                    : field.last;
}

std::optional<FieldRef> ResolveField(std::string_view name)
{
    const std::size_t bracket = name.find('[');
    const Field* field = FindField(name.substr(0, bracket));
    if (field == nullptr) {
        return std::nullopt;
    }
    if (bracket == std::string_view::npos) {
        return field->shape == FieldShape::scalar ? std::optional(FieldRef{field, 0})
                                                  : std::nullopt;
    }
    const char* const begin = name.data() + bracket + 1;
    const char* const end = name.data() + name.size();
    int index = -1;
    const auto [rest, fault] = std::from_chars(begin, end, index);
    const bool closed = fault == std::errc{} && rest + 1 == end && *rest == ']';
    if (!closed || field->shape == FieldShape::scalar || index < field->first ||
        index > field->last) {
        return std::nullopt;
    }
    return FieldRef{field, index};
}

double NumberOf(const ProjectState& s, const Field& field, int index)
{
    const void* const at = Locate(s, field, index);
    switch (field.kind) {
    case FieldKind::single:
        return *static_cast<const float*>(at);
    case FieldKind::real:
        return *static_cast<const double*>(at);
    case FieldKind::integer:
        return *static_cast<const i16*>(at);
    case FieldKind::truth:
        return *static_cast<const bool*>(at) ? 1 : 0;
    default:
        return 0;
    }
}

bool PutNumber(ProjectState& s, const Field& field, int index, double value)
{
    void* const at = field.locate(s, index);
    switch (field.kind) {
    case FieldKind::single:
        *static_cast<float*>(at) = static_cast<float>(value);
        return true;
    case FieldKind::real:
        *static_cast<double*>(at) = value;
        return true;
    default: {
        const std::optional<i16> whole = WholeNum(value);
        if (whole) {
            *static_cast<i16*>(at) = *whole;
        }
        return whole.has_value();
    }
    }
}

std::string_view TextOf(const ProjectState& s, const Field& field)
{
    const void* const at = Locate(s, field, 0);
    switch (field.kind) {
    case FieldKind::text:
        return *static_cast<const std::string*>(at);
    case FieldKind::literal:
        return static_cast<const Literal*>(at)->text();
    default:
        return {};
    }
}

}  // namespace kestrum
