#pragma once

// The texts of a check: the table of core/check_list.inc and what is written by it.

#include "core/check.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace kestrum {

// One form of a check.
struct CheckText {
    CheckId id{};
    std::string_view formula{};    // "My,Ed/M{z}y,Rd"
    std::string_view end = " = ";  // of the label, behind the formula
    std::string_view calculation{};
    std::string_view clause{};  // of EN 1993-1-1
    std::optional<std::string_view> cited =
        std::nullopt;     // written in place of "Ch " and the clause
    bool sum = false;     // terms count with their size, unless signs stand behind them
    bool remark = false;  // a sentence with neither ratio nor limit
};

const CheckText& TextsOf(CheckForm form);

// Name of the check in JSON, "section_My".
std::string_view NameOf(CheckId id);

// Its title in a report, shared by checks of which the largest counts; empty for a remark.
std::string_view TitleOf(CheckId id);

// Heading of the theory manual that explains it, as its PDF names it (#nameddest=...).
std::string_view ChapterOf(CheckId id);

// A check with a ratio: not a remark, not empty.
bool IsJudged(const Check& check);

// The formula as it was applied, "My,Ed/MV,y,Rd".
std::string FormulaOf(const Check& check);

// The four texts of a row.
struct RowText {
    std::string label, calculation, result, limit;
    bool operator==(const RowText&) const = default;
};

// An empty check gives empty texts, a remark its label alone.
RowText TextOf(const Check& check);

// The same for a reader: a sum is written as it adds up, "55.0/309.8-1.2/4.3". Where terms may
// count with either sign, these stand behind the numbers of the calculation, +1 or -1; else every
// term counts with its size.
RowText ShownTextOf(const Check& check);

// The terms as they add up in that: with their signs, those of a sum without signs with their size.
std::array<double, 9> AddedTerms(const Check& check);

// How many of the terms the calculation shows.
std::size_t TermsOf(const Check& check);

}  // namespace kestrum
