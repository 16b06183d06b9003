#pragma once

// What the words of core/field_list.inc mean, for core/field_table.cpp alone.

#include "core/field_table.h"
#include "core/project_state.h"

#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

namespace kestrum::field_words {

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

}  // namespace kestrum::field_words
