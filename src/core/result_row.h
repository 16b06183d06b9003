#pragma once

// One line of the answer: label, calculation, result, limit. A row holds what it needs to be
// written later and no text of its own; it refers to literals only, so that filling it costs
// nothing. report/row_text makes the four texts.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kestrum {

// A pointer to a string literal that compares by its characters.
class Literal {
public:
    constexpr Literal() = default;
    template <std::size_t N> constexpr Literal(const char (&text)[N]) : text_(text, N - 1) {}

    constexpr std::string_view text() const { return text_; }
    constexpr bool empty() const { return text_.empty(); }
    friend constexpr bool operator==(const Literal& a, const Literal& b) = default;

private:
    std::string_view text_;
};

// Templates of calculation and limit hold fields that take the numbers in order:
//   {F} a force or moment held in double precision, written "0.0";  {f} the same in single
//   precision {R} a ratio, factor or exponent in double precision, "0.00";    {r} the same in
//   single precision {i} a whole number, "0"
// An unused row (never written in the pass, or cleared) has an empty first label.
struct ResultRow {
    std::array<Literal, 3> label;        // pieces, joined as they stand
    std::array<Literal, 3> calculation;  // templates, joined
    std::array<double, 12> number;       // of the calculation
    std::array<Literal, 2> limit;        // what follows " < 1.0"; templates, joined
    std::array<double, 4> place;         // numbers of the limit: x/L, point, segment
    double ir;
    bool judged;          // false: a remark such as "No Buckling" with neither result nor limit
    std::int16_t status;  // 2 within the limit, 4 above it; 0 when never written

    bool operator==(const ResultRow&) const = default;
    bool empty() const { return label[0].empty(); }
};

constexpr std::int16_t kWithin = 2;
constexpr std::int16_t kAbove = 4;

}  // namespace kestrum
