#include "core/number_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace kestrum {

namespace {

constexpr int kSingleDigits = 7;
constexpr int kDoubleDigits = 15;
constexpr int kTellTie = 16;  // further digits that tell a half from its neighbours

// A decimal value: 0.d1 d2 d3 .. times 10^point; no digits is zero.
struct Decimal {
    bool negative = false;
    int point = 0;
    std::array<char, 40> digit{};
    int digits = 0;

    char At(int place) const  // place 1 is the first digit
    {
        return place >= 1 && place <= digits ? digit[static_cast<std::size_t>(place - 1)] : '0';
    }
};

// The digits of the value, as many as asked for.
Decimal Digits(double value, int count)
{
    Decimal decimal;
    decimal.negative = std::signbit(value);
    if (value == 0) {
        return decimal;
    }
    std::array<char, 48> text;  // d.ddddde+xx
    const auto end = std::to_chars(text.data(), text.data() + text.size(), std::abs(value),
                                   std::chars_format::scientific, count - 1);
    const char* const exponent = std::find(text.data(), end.ptr, 'e');
    for (const char* c = text.data(); c != exponent; ++c) {
        if (*c != '.') {
            decimal.digit[static_cast<std::size_t>(decimal.digits++)] = *c;
        }
    }
    int power = 0;
    std::from_chars(exponent + (exponent[1] == '+' ? 2 : 1), end.ptr, power);
    decimal.point = power + 1;
    return decimal;
}

// Rounds to so many digits in all, halves away from zero.
void RoundDigits(Decimal& decimal, int keep)
{
    if (keep >= decimal.digits) {
        return;
    }
    const bool up = keep >= 0 && decimal.At(keep + 1) >= '5';
    decimal.digits = std::max(keep, 0);
    if (!up) {
        return;
    }
    int at = decimal.digits;
    while (at > 0 && decimal.digit[static_cast<std::size_t>(at - 1)] == '9') {
        decimal.digit[static_cast<std::size_t>(--at)] = '0';
    }
    if (at > 0) {
        ++decimal.digit[static_cast<std::size_t>(at - 1)];
        return;
    }
    std::copy_backward(decimal.digit.begin(), decimal.digit.begin() + decimal.digits,
                       decimal.digit.begin() + decimal.digits + 1);
    decimal.digit[0] = '1';
    ++decimal.digits;
    ++decimal.point;
}

// Rounds to `places` behind the point.
void RoundTo(Decimal& decimal, int places)
{
    RoundDigits(decimal, decimal.point + places);
}

bool IsZero(const Decimal& decimal)
{
    return std::all_of(decimal.digit.begin(), decimal.digit.begin() + decimal.digits,
                       [](char c) { return c == '0'; });
}

// What a pattern asks for.
struct Pattern {
    std::string_view head, tail;  // literal text
    int whole = 0;                // digits always written before the point
    bool point = false;
    int places = 0;  // digits behind the point at most
    int forced = 0;  // of them always written
    bool exponent = false;
};

Pattern ReadPattern(std::string_view text)
{
    Pattern pattern;
    std::size_t at = std::min(text.find_first_of("0#."), text.size());
    pattern.head = text.substr(0, at);
    for (; at < text.size() && (text[at] == '0' || text[at] == '#'); ++at) {
        pattern.whole += text[at] == '0' || pattern.whole > 0 ? 1 : 0;
    }
    if (at < text.size() && text[at] == '.') {
        pattern.point = true;
        for (++at; at < text.size() && (text[at] == '0' || text[at] == '#'); ++at) {
            ++pattern.places;
            pattern.forced = text[at] == '0' ? pattern.places : pattern.forced;
        }
    }
    if (text.substr(at).starts_with("E+0")) {
        pattern.exponent = true;
        at += 3;
    }
    pattern.tail = text.substr(at);
    return pattern;
}

void AppendWhole(std::string& out, const Decimal& decimal, int forced)
{
    const int digits = std::max({decimal.digits == 0 ? 0 : decimal.point, forced, 0});
    for (int place = decimal.point - digits + 1; place <= decimal.point; ++place) {
        out.push_back(decimal.At(place));
    }
}

void AppendPlaces(std::string& out, const Decimal& decimal, const Pattern& pattern)
{
    out.push_back('.');
    const std::size_t first = out.size();
    for (int place = 1; place <= pattern.places; ++place) {
        out.push_back(decimal.At(decimal.point + place));
    }
    while (out.size() > first + static_cast<std::size_t>(pattern.forced) && out.back() == '0') {
        out.pop_back();
    }
}

void AppendExponent(std::string& out, int exponent)
{
    out.append(exponent < 0 ? "E-" : "E+");
    std::array<char, 8> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), std::abs(exponent));
    out.append(text.data(), end.ptr);
}

std::string Format(double value, int significant, std::string_view text)
{
    if (!std::isfinite(value)) {
        return {};
    }
    const Pattern pattern = ReadPattern(text);
    Decimal decimal = Digits(value, significant + kTellTie);
    RoundDigits(decimal, significant);
    int exponent = 0;
    if (pattern.exponent && decimal.digits > 0) {
        exponent = decimal.point - 1;
        decimal.point = 1;
        RoundTo(decimal, pattern.places);
        exponent += decimal.point - 1;  // 9.9996 becomes 10.00, which is 1.00 times ten
        decimal.point = 1;
    } else {
        RoundTo(decimal, pattern.places);
    }
    std::string out(pattern.head);
    if (decimal.negative && !IsZero(decimal)) {
        out.push_back('-');
    }
    AppendWhole(out, decimal, pattern.whole);
    if (pattern.point) {
        AppendPlaces(out, decimal, pattern);
    }
    if (pattern.exponent) {
        AppendExponent(out, exponent);
    }
    return out.append(pattern.tail);
}

}  // namespace

std::string FormatNum(float value, std::string_view pattern)
{
    return Format(value, kSingleDigits, pattern);
}

std::string FormatNum(double value, std::string_view pattern)
{
    return Format(value, kDoubleDigits, pattern);
}

}  // namespace kestrum
