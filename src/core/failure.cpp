#include "core/failure.h"

#include <array>
#include <charconv>
#include <cmath>

namespace kestrum {

namespace {

std::string Named(const Failure& failure)
{
    std::string text(failure.quantity);
    if (failure.row >= 0) {
        text += "[" + std::to_string(failure.row) + "]";
    }
    return text;
}

std::string WithUnit(double value, std::string_view unit)
{
    std::string text = ShortNumber(value);
    if (!unit.empty() && std::isfinite(value)) {
        text.append(" ").append(unit);
    }
    return text;
}

std::string What(const Failure& failure)
{
    const std::string value = WithUnit(failure.value, failure.unit);
    switch (failure.cause) {
    case Cause::out_of_range:
        return Named(failure) + " = " + value + ", allowed: " + std::string(failure.allowed);
    case Cause::impossible_section:
    case Cause::no_resistance:
        return std::string(CauseName(failure.cause)) + ", " + Named(failure) + " = " + value;
    case Cause::critical_force:
        return "NEd " + value + ", " + Named(failure) + " " + WithUnit(failure.limit, failure.unit);
    default:
        break;
    }
    std::string text(CauseName(failure.cause));
    if (!failure.quantity.empty()) {
        text += ", " + Named(failure);
    }
    return text;
}

}  // namespace

std::string_view StageName(Stage stage)
{
    constexpr std::array<std::string_view, 8> kNames = {"",
                                                        "input",
                                                        "section",
                                                        "internal forces",
                                                        "section control",
                                                        "buckling control",
                                                        "deflection control",
                                                        "modal analysis"};
    return kNames[static_cast<std::size_t>(stage)];
}

std::string_view CauseName(Cause cause)
{
    constexpr std::array<std::string_view, 11> kNames = {"",
                                                         "out of range",
                                                         "impossible section",
                                                         "no resistance",
                                                         "axial force above critical force",
                                                         "division by zero",
                                                         "overflow",
                                                         "invalid operation",
                                                         "not a finite number",
                                                         "index beyond the table",
                                                         "too large for a whole number"};
    return kNames[static_cast<std::size_t>(cause)];
}

std::string FailureText(const Failure& failure)
{
    if (!failure.any()) {
        return {};
    }
    std::string text(StageName(failure.stage));
    if (!text.empty()) {
        text += ": ";
    }
    return text + What(failure);
}

std::string ShortNumber(double value)
{
    constexpr int kDigits = 4;
    if (!std::isfinite(value)) {
        return std::isnan(value) ? "not a number" : value > 0 ? "infinite" : "minus infinite";
    }
    const double size = std::abs(value);
    std::array<char, 64> text{};
    const bool whole = size >= 1e4 && size < 1e9;
    const auto end = whole ? std::to_chars(text.data(), text.data() + text.size(), value,
                                           std::chars_format::fixed, 0)
                           : std::to_chars(text.data(), text.data() + text.size(), value,
                                           std::chars_format::general, kDigits);
    return {text.data(), end.ptr};
}

}  // namespace kestrum
