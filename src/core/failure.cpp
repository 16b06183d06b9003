#include "core/failure.h"

#include <array>
#include <charconv>
#include <cmath>

namespace kestrum {

namespace {

std::string Named(const Failure& failure)
{
    std::string text(failure.quantity);
    return failure.row < 0 ? text : text + "[" + std::to_string(failure.row) + "]";
}

std::string WithUnit(double value, std::string_view unit)
{
    std::string text = ShortNumber(value);
    return unit.empty() || !std::isfinite(value) ? text : text + " " + std::string(unit);
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
        return std::string(CauseName(failure.cause)) +
               (failure.quantity.empty() ? "" : ", " + Named(failure));
    }
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
    const std::string_view stage = StageName(failure.stage);
    return (stage.empty() ? "" : std::string(stage) + ": ") + What(failure);
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
