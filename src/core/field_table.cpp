#include "core/field_table.h"

#include "core/project_state.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <functional>
#include <limits>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace kestrum {

namespace {

// What keeps a field.
struct Kept {
    FieldRole role;
    std::array<FilePlace, 2> file;
};

constexpr Kept kOut{FieldRole::derived, {}};

using enum FilePart;

constexpr Kept At(FilePart part, int line)
{
    return {FieldRole::input, {{{part, line}}}};
}

constexpr Kept SetupOnly(int line)
{
    return {FieldRole::setup, {{{settings, line}}}};
}

// Lines of the block of a family: the series, the row of a table, the boxes of the form, the rest.
constexpr int front = 1, kRowLine = 2, kFormLine = 3, behind = 4;

constexpr Kept Of(int number, int line, int choice = 0)
{
    return {FieldRole::input, {{{section, line, number, choice}}}};
}

constexpr Kept Twice(const Kept& first, const Kept& second)
{
    return {first.role, {first.file[0], second.file[0]}};
}

constexpr Limits AtLeast(double low)
{
    return {{Bound::Kind::inclusive, low}, {}};
}

constexpr Limits Above(double low)
{
    return {{Bound::Kind::strict, low}, {}};
}

constexpr Limits Within(double low, double high)
{
    return {{Bound::Kind::inclusive, low}, {Bound::Kind::inclusive, high}};
}

constexpr Limits Between(double low, double high)
{
    return {{Bound::Kind::strict, low}, {Bound::Kind::strict, high}};
}

template <class T> constexpr FieldKind KindOf()
{
    if constexpr (std::is_same_v<T, float>) {
        return FieldKind::single;
    } else if constexpr (std::is_same_v<T, double>) {
        return FieldKind::real;
    } else if constexpr (std::is_same_v<T, i16>) {
        return FieldKind::integer;
    } else if constexpr (std::is_same_v<T, bool>) {
        return FieldKind::truth;
    } else if constexpr (std::is_same_v<T, std::string>) {
        return FieldKind::text;
    } else {
        static_assert(std::is_same_v<T, Literal>);
        return FieldKind::literal;
    }
}

// Types as the record declares them; an array's element type.
template <auto Member>
using Declared = std::remove_cvref_t<decltype(std::declval<ProjectState&>().*Member)>;

// What the list says of a field beside its type.
struct Described {
    std::string_view unit, meaning, values = {};
    Limits limits = {};
};

constexpr Field Single(std::string_view name, FieldKind kind, const Kept& kept,
                       void* (*locate)(ProjectState&, int), const Described& described)
{
    return {.name = name,
            .kind = kind,
            .role = kept.role,
            .shape = FieldShape::scalar,
            .first = 0,
            .last = 0,
            .locate = locate,
            .unit = described.unit,
            .meaning = described.meaning,
            .values = described.values,
            .limits = described.limits,
            .file = kept.file};
}

template <auto Member>
constexpr Field Scalar(std::string_view name, const Kept& kept, const Described& described)
{
    return Single(
        name, KindOf<Declared<Member>>(), kept,
        [](ProjectState& s, int) -> void* { return &(s.*Member); }, described);
}

// A box of a section form, "p22.isth" of family 22.
template <auto Form, auto Member>
constexpr Field OfForm(std::string_view name, const Described& described)
{
    using Value = std::remove_cvref_t<decltype(std::declval<ProjectState&>().*Form.*Member)>;
    const int number = (name[1] - '0') * 10 + (name[2] - '0');
    return Single(
        name, KindOf<Value>(), Of(number, kFormLine),
        [](ProjectState& s, int) -> void* { return &(s.*Form.*Member); }, described);
}

template <Table Of>
constexpr Field OfTable(std::string_view name, std::string_view meaning, const Kept& kept)
{
    return Single(
        name, FieldKind::integer, kept,
        [](ProjectState& s, int) -> void* { return &s.row[static_cast<std::size_t>(Of)]; },
        {"", meaning, kRowValues});
}

template <auto Member>
constexpr Field Array(std::string_view name, const Kept& kept, FieldShape shape, int first,
                      const Described& described)
{
    using Store = Declared<Member>;
    Field field = Single(
        name, KindOf<typename Store::value_type>(), kept,
        [](ProjectState& s, int index) -> void* {
            return &(s.*Member)[static_cast<std::size_t>(index)];
        },
        described);
    field.shape = shape;
    field.first = first;
    field.last = static_cast<int>(std::tuple_size_v<Store>) - 1;
    return field;
}

using Older = void (*)(ProjectState& s);

constexpr Field Since(int version, Older older, Field field)
{
    field.since = version;
    field.older = older;
    return field;
}

constexpr Field Changed(int version, Older older, Field field)
{
    field.changed = version;
    field.older = older;
    return field;
}

// A list of choices that got a new first one.
template <auto Member> constexpr void Next(ProjectState& s)
{
    if (s.*Member < std::numeric_limits<i16>::max()) {
        ++(s.*Member);
    }
}

constexpr FieldShape kRows = FieldShape::array;

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

std::span<const FileField> FiledBetween(FilePart part, int number)
{
    const auto at = [](const FileField& each) {
        return std::pair(each.place.part, each.place.block);
    };
    const auto [begin, end] =
        std::ranges::equal_range(kFiled, std::pair(part, number), std::less{}, at);
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
    return FiledBetween(part, 0);
}

std::span<const FileField> BlockOfFamily(int family)
{
    return FiledBetween(section, family);
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
    return field.shape == FieldShape::scalar ? name : name + "[" + std::to_string(index) + "]";
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
