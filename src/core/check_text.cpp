#include "core/check_text.h"

#include "core/number_format.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace kestrum {

namespace {

constexpr std::string_view kForce = "0.0";
constexpr std::string_view kRatio = "0.00";

constexpr CheckText kTexts[] = {
    {},
#define FORM(form, check, ...) {.id = CheckId::check, __VA_ARGS__},
#include "core/check_list.inc"
#undef FORM
};

struct CheckNames {
    std::string_view name, title, chapter;
};

constexpr CheckNames kNames[] = {
    {},
#define CHECK(id, row, name, title, chapter) {name, title, chapter},
#include "core/check_list.inc"
#undef CHECK
};

// Writes one number as its field letter asks; see check_list.inc.
std::string Written(char letter, double number)
{
    switch (letter) {
    case 'F':
        return FormatNum(number, kForce);
    case 'f':
        return FormatNum(static_cast<float>(number), kForce);
    default:
        return FormatNum(number, kRatio);
    }
}

// The text with each field, `{F}` and the like, replaced by what `field` gives for its letter.
template <class Field> std::string Filled(std::string_view text, Field field)
{
    constexpr std::size_t kField = 3;
    std::string out;
    for (std::size_t at = text.find('{'); at != std::string_view::npos; at = text.find('{')) {
        out.append(text.substr(0, at)).append(field(text[at + 1]));
        text.remove_prefix(at + kField);
    }
    return out.append(text);
}

std::string Calculation(const CheckText& texts, std::span<const double> terms)
{
    std::size_t next = 0;
    return Filled(texts.calculation, [&](char letter) { return Written(letter, terms[next++]); });
}

void ReplaceAll(std::string& text, std::string_view from, std::string_view to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
        text.replace(at, from.size(), to);
        at += to.size();
    }
}

std::string Added(const Check& check)
{
    const auto terms = AddedTerms(check);
    std::string text = Calculation(TextsOf(check.form), terms);
    ReplaceAll(text, "+-", "-");
    return text;
}

// " (0 - L/3;  (Ch 6.3.2))" of the first segment, "1L/3 - 2L/3", "2L/3 -  L" of the last.
std::string SegmentText(const CheckPlace& place)
{
    const std::string parts = std::to_string(place.parts);
    if (place.number == 1) {
        return "0 - L/" + parts;
    }
    const std::string start = std::to_string(place.number - 1) + "L/" + parts + " - ";
    if (place.number == place.parts) {
        return start + " L";
    }
    return start + std::to_string(place.number) + "L/" + parts;
}

// What stands behind the limit: place and clause.
std::string Reference(const Check& check)
{
    const CheckText& texts = TextsOf(check.form);
    std::string cited("Ch ");
    if (texts.cited) {
        cited = *texts.cited;
    } else {
        cited += texts.clause;
    }
    if (cited.empty()) {
        return {};
    }
    const std::string x = FormatNum(static_cast<float>(check.place.x), kRatio) + "L";
    switch (check.place.kind) {
    case CheckPlace::Kind::section:
        return (" (" + x + "; " + cited).append(check.note.empty() ? ")" : check.note.text());
    case CheckPlace::Kind::point:
        return " (" + x + ", point: " + std::to_string(check.place.number) + ", " + cited + ")";
    case CheckPlace::Kind::segment:
        return " (" + SegmentText(check.place) + ";  (" + cited + "))";
    default:
        return " (" + cited + ")";
    }
}

}  // namespace

const CheckText& TextsOf(CheckForm form)
{
    return kTexts[static_cast<std::size_t>(form)];
}

std::string_view NameOf(CheckId id)
{
    return kNames[static_cast<std::size_t>(id)].name;
}

std::string_view TitleOf(CheckId id)
{
    return kNames[static_cast<std::size_t>(id)].title;
}

std::string_view ChapterOf(CheckId id)
{
    return kNames[static_cast<std::size_t>(id)].chapter;
}

bool IsJudged(const Check& check)
{
    return !check.empty() && !TextsOf(check.form).remark;
}

std::string FormulaOf(const Check& check)
{
    return Filled(TextsOf(check.form).formula, [&](char letter) -> std::string_view {
        const bool z = letter == 'z' || letter == 'Z';
        if (!(z ? check.shear_z : check.shear_y)) {
            return "";
        }
        return letter == 'Z' || letter == 'Y' ? "V" : "V,";
    });
}

std::size_t TermsOf(const Check& check)
{
    const std::string_view text = TextsOf(check.form).calculation;
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '{'));
}

// Terms are pairs of force and resistance. Those of a sum without signs count with their size.
std::array<double, 9> AddedTerms(const Check& check)
{
    const CheckText& texts = TextsOf(check.form);
    const std::size_t fields = TermsOf(check);
    auto terms = check.terms;
    if (texts.sum && fields < terms.size() && terms[fields] == 0) {
        std::transform(terms.begin(), terms.end(), terms.begin(),
                       [](double value) { return std::abs(value); });
    }
    for (std::size_t term = 0; 2 * term < fields && fields + term < terms.size(); ++term) {
        const double sign = check.terms[fields + term];
        if (sign != 0 && terms[2 * term] != 0) {
            terms[2 * term] *= sign;
        }
    }
    return terms;
}

RowText ShownTextOf(const Check& check)
{
    RowText text = TextOf(check);
    text.calculation = Added(check);
    return text;
}

RowText TextOf(const Check& check)
{
    RowText text;
    if (check.empty()) {
        return text;
    }
    const CheckText& texts = TextsOf(check.form);
    if (texts.remark) {
        text.label = texts.formula;
        return text;
    }
    text.label = "IR = " + FormulaOf(check) + std::string(texts.end);
    text.calculation = Calculation(texts, check.terms);
    text.result = FormatNum(check.ratio, kRatio);
    text.limit = " < " + FormatNum(check.limit, kForce) + Reference(check);
    return text;
}

}  // namespace kestrum
