#pragma once

// What the targets share.

#include "core/field_table.h"
#include "core/library.h"
#include "core/project_state.h"
#include "engine/new_project.h"
#include "sections/families.h"
#include "sections/load_library.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

namespace kestrum::fuzz {

inline void Require(bool holds, const char* what)
{
    if (!holds) {
        std::fputs(what, stderr);
        std::fputs("\n", stderr);
        std::abort();
    }
}

inline const Library& Delivered()
{
    static const Library kLibrary = LoadLibrary(KESTRUM_SHARE);
    return kLibrary;
}

inline const ProjectState& Default()
{
    static const ProjectState kDefault = [] {
        ProjectState s{};
        StartUp(Delivered(), s);
        return s;
    }();
    return kDefault;
}

// Takes numbers off the bytes; zeros behind the end.
class Source {
public:
    explicit Source(std::string_view bytes) : rest_(bytes) {}

    bool empty() const { return rest_.empty(); }

    std::uint8_t Byte()
    {
        const std::uint8_t byte = rest_.empty() ? 0 : static_cast<std::uint8_t>(rest_.front());
        rest_.remove_prefix(rest_.empty() ? 0 : 1);
        return byte;
    }

    // Often one that tells, else any pattern of bits that is a number.
    double Number()
    {
        constexpr std::array<double, 24> kTelling = {
            0,    1,     -1,    0.5,    2,    3,     4,     5,     10,      100,   300,   1000,
            1e-3, 1e-20, 1e-45, 3.4e38, 1e25, -1e25, 32767, 32768, -100000, 12.75, 0.002, 355};
        const std::uint8_t kind = Byte();
        if (kind < kTelling.size()) {
            return kTelling[kind];
        }
        if (kind < 160) {
            return kind - 60;
        }
        std::uint32_t bits = 0;
        for (int i = 0; i < 4; ++i) {
            bits = bits << 8 | Byte();
        }
        float value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return std::isfinite(value) ? value : 0;
    }

private:
    std::string_view rest_;
};

inline std::vector<const Field*> Inputs()
{
    std::vector<const Field*> fields;
    for (const Field& field : AllFields()) {
        if (field.role == FieldRole::input && field.kind != FieldKind::text) {
            fields.push_back(&field);
        }
    }
    return fields;
}

// A member of any family with fields set by number, until the bytes end.
inline ProjectState MemberOf(Source& source)
{
    static const std::vector<const Field*> kInputs = Inputs();
    static const std::vector<int> kFamilies = FamilyNumbers();
    ProjectState s = Default();
    s.family = static_cast<i16>(kFamilies[source.Byte() % kFamilies.size()]);
    while (!source.empty()) {
        const std::size_t number = source.Byte() * std::size_t{256} + source.Byte();
        const Field& field = *kInputs[number % kInputs.size()];
        const int rows = field.last - field.first + 1;
        const int index = field.first + (rows > 1 ? source.Byte() % rows : 0);
        if (!PutNumber(s, field, index, source.Number())) {
            PutNumber(s, field, index, 0);
        }
    }
    return s;
}

}  // namespace kestrum::fuzz
