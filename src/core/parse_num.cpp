#include "core/parse_num.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace kestrum {

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

// Reads the longest beginning of the form sign, digits, one point, exponent (E or D); tells where
// it ends. The number is left in `digits` in the form that from_chars reads.
std::size_t NumberPrefix(std::string_view text, std::string& digits)
{
    std::size_t at = 0;
    if (text.starts_with('+') || text.starts_with('-')) {
        digits.append(text[at] == '-' ? "-" : "");
        ++at;
    }
    bool any = false;
    for (bool point = false; at < text.size(); ++at) {
        if (text[at] == '.' && !point) {
            point = true;
        } else if (IsDigit(text[at])) {
            any = true;
        } else {
            break;
        }
        digits.push_back(text[at]);
    }
    if (!any) {
        digits.clear();
        return 0;
    }
    if (at < text.size() && std::string_view("eEdD").find(text[at]) != std::string_view::npos) {
        std::size_t power = at + 1;
        std::string exponent = "e";
        if (power < text.size() && (text[power] == '+' || text[power] == '-')) {
            exponent.push_back(text[power++]);
        }
        const std::size_t first = power;
        while (power < text.size() && IsDigit(text[power])) {
            exponent.push_back(text[power++]);
        }
        if (power > first) {
            digits += exponent;
            at = power;
        }
    }
    return at;
}

// Whether a number beyond double precision is so on the small side.
bool BelowOne(std::string_view digits)
{
    const std::size_t letter = std::min(digits.find('e'), digits.size());
    const std::size_t point = std::min(digits.find('.'), letter);
    const std::size_t first = digits.find_first_of("123456789");
    long power = 0;
    if (letter < digits.size()) {
        const char* const last = digits.data() + digits.size();
        if (std::from_chars(digits.data() + letter + 1, last, power).ec != std::errc{}) {
            return digits[letter + 1] == '-';
        }
    }
    return static_cast<long>(point) - static_cast<long>(first) + power < 0;
}

// Too small a number is zero; too large a one has no single-precision value.
std::optional<float> Single(const std::string& digits)
{
    double value = 0;
    const auto [end, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (fault == std::errc::result_out_of_range) {
        return BelowOne(digits) ? std::optional(0.0F) : std::nullopt;
    }
    const float single = static_cast<float>(value);
    return std::isfinite(single) ? std::optional(single) : std::nullopt;
}

}  // namespace

std::optional<float> ParseNum(std::string_view text, bool decimalcomma)
{
    std::string plain(text);
    std::replace(plain.begin(), plain.end(), ',', '.');
    if (decimalcomma) {
        plain.erase(plain.begin(), std::find_if_not(plain.begin(), plain.end(), IsBlank));
        plain.erase(std::find_if_not(plain.rbegin(), plain.rend(), IsBlank).base(), plain.end());
    } else {
        plain.erase(std::remove_if(plain.begin(), plain.end(), IsBlank), plain.end());
    }
    if (plain.empty()) {
        return 0.0F;
    }
    std::string digits;  // as from_chars wants them
    const std::size_t read = NumberPrefix(plain, digits);
    if (read == 0) {
        return decimalcomma ? std::nullopt : std::optional(0.0F);
    }
    if (decimalcomma && read != plain.size()) {
        return std::nullopt;
    }
    return Single(digits);
}

double WidenNum(float value)
{
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    double wide = 0;
    std::from_chars(digits.data(), end.ptr, wide);
    return wide;
}

std::optional<i16> WholeNum(double value)
{
    const double whole = std::nearbyint(value);
    if (!(whole >= -32768.0 && whole <= 32767.0)) {
        return std::nullopt;
    }
    return static_cast<i16>(whole);
}

}  // namespace kestrum
