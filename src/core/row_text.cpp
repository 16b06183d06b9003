#include "core/row_text.h"

#include "core/number_format.h"

#include <algorithm>
#include <cmath>
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

std::size_t FieldsOf(std::span<const Literal> templates)
{
    std::size_t count = 0;
    for (const Literal& piece : templates) {
        const std::string_view text = piece.text();
        count += static_cast<std::size_t>(std::count(text.begin(), text.end(), '{'));
    }
    return count;
}

void ReplaceAll(std::string& text, std::string_view from, std::string_view to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
        text.replace(at, from.size(), to);
        at += to.size();
    }
}

// Terms are pairs of force and resistance. Those of a sum without signs count with their size.
std::string Added(const ResultRow& row)
{
    auto number = row.number;
    const std::size_t fields = FieldsOf(row.calculation);
    const bool sum = row.label[0].text().find('+') != std::string_view::npos;
    if (sum && fields < number.size() && number[fields] == 0) {
        std::transform(number.begin(), number.end(), number.begin(),
                       [](double value) { return std::abs(value); });
    }
    for (std::size_t term = 0; 2 * term < fields && fields + term < number.size(); ++term) {
        const double sign = row.number[fields + term];
        if (sign != 0 && number[2 * term] != 0) {
            number[2 * term] *= sign;
        }
    }
    std::string text = Filled(row.calculation, number);
    ReplaceAll(text, "+-", "-");
    return text;
}

}  // namespace

RowText ShownTextOf(const ResultRow& row, float irlimit)
{
    RowText text = TextOf(row, irlimit);
    text.calculation = Added(row);
    return text;
}

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
