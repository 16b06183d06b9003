#pragma once

#include <cstddef>
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

}  // namespace kestrum
