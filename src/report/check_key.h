#pragma once

// How JSON names a check of either basis: the kind of check, alike in both, and the part of it
// where a kind has several: "section" and "My", "flexural_z" and "v" of an angle.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kestrum {

struct ProjectState;
enum class CheckId : std::uint8_t;

struct CheckKey {
    std::string_view check, part;  // `part` is empty where the kind is one check
};

// Of a name in the list of checks of a basis, "section_My".
CheckKey KeyOf(std::string_view name);

// Its members, "check" and, where there is one, "part".
std::string KeyJson(std::string_view name);

// The check with the largest ratio of a pass, as the outcome takes it; nothing without one.
std::optional<CheckId> GoverningCheckId(const ProjectState& s);

}  // namespace kestrum
