#include "core/row_text.h"

#include "core/number_format.h"

#include <span>

namespace kestrum {

namespace {

constexpr std::string_view kForce = "0.0";
constexpr std::string_view kRatio = "0.00";

// Writes one number as its field letter asks; see result_row.h.
std::string Written(char letter, double number)
{
    switch (letter) {
    case 'F':
        return FormatNum(number, kForce);
    case 'f':
        return FormatNum(static_cast<float>(number), kForce);
    case 'R':
        return FormatNum(number, kRatio);
    case 'r':
        return FormatNum(static_cast<float>(number), kRatio);
    default:
        return FormatNum(number, "0");
    }
}

// Joins the templates and fills their fields, `{F}` and the like, from the numbers in order.
std::string Filled(std::span<const Literal> templates, std::span<const double> numbers)
{
    constexpr std::size_t kField = 3;
    std::string out;
    std::size_t next = 0;
    for (const Literal& piece : templates) {
        std::string_view text = piece.text();
        for (std::size_t at = text.find('{'); at != std::string_view::npos && next < numbers.size();
             at = text.find('{')) {
            out.append(text.substr(0, at)).append(Written(text[at + 1], numbers[next++]));
            text.remove_prefix(at + kField);
        }
        out.append(text);
    }
    return out;
}

}  // namespace

RowText TextOf(const ResultRow& row, float irlimit)
{
    RowText text;
    if (row.empty()) {
        return text;
    }
    for (const Literal& piece : row.label) {
        text.label.append(piece.text());
    }
    text.calculation = Filled(row.calculation, row.number);
    if (row.judged) {
        text.result = FormatNum(row.ir, kRatio);
        text.limit = " < " + FormatNum(irlimit, kForce) + Filled(row.limit, row.place);
    }
    return text;
}

}  // namespace kestrum
