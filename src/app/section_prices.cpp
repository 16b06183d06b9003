// Prices of the sections of a pool.

#include "app/section_pool.h"

#include "app/cell_reader.h"
#include "app/choices.h"
#include "app/size_list.h"
#include "app/table_record.h"

#include <algorithm>
#include <utility>

namespace kestrum {

std::string SectionPool::AddPrices(const Library& library, std::string_view text,
                                   const std::string& name)
{
    constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    std::size_t section = kNone, price = kNone, steel = kNone;
    bool per_metre = false;
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.remove_prefix(3);
    }
    RecordWalk walk(text);
    const auto at = [&name](std::size_t number, const std::string& what) {
        return name + ":" + std::to_string(number) + ": " + what;
    };
    const std::string_view header = walk.Next(kAnySeparator);
    const char separator = SeparatorOf(header);
    std::size_t count = 0;
    for (CellReader cells(header, separator); cells.Next(); ++count) {
        const std::string_view column = Trimmed(cells.cell());
        const bool per_kg = column == "price/kg";
        std::size_t* const place = column == "section"             ? &section
                                   : column == "steel"             ? &steel
                                   : per_kg || column == "price/m" ? &price
                                                                   : nullptr;
        if (place == nullptr || *place != kNone) {
            return at(1, "column \"" + std::string(column) + "\": expected section, price/kg or " +
                             "price/m, and steel, each once");
        }
        *place = count;
        per_metre = per_metre || column == "price/m";
    }
    if (section == kNone) {
        return at(1, "no column section");
    }
    while (!walk.done()) {
        const std::string_view record = walk.Next({&separator, 1});
        const std::size_t number = walk.line();
        if (Trimmed(record).empty()) {
            continue;
        }
        std::vector<std::string> cells;
        CellReader reader(record, separator);
        while (record.size() <= kLongestLine && reader.Next()) {
            cells.emplace_back(Trimmed(reader.cell()));
        }
        if (!reader.fault().empty() || cells.size() != count) {
            return at(number, !reader.fault().empty() ? std::string(reader.fault())
                              : cells.size() < count  ? "fewer cells than columns"
                                                      : "more cells than columns");
        }
        const auto cell = [&](std::size_t column) {
            return column == kNone ? std::string{} : cells[column];
        };
        const std::string refusal = AddPriceLine(library, {cell(section), cell(price), cell(steel)},
                                                 price == kNone, per_metre);
        if (!refusal.empty()) {
            return at(number, refusal);
        }
    }
    return entries_.empty() ? at(1, "holds no sections") : std::string{};
}

std::string SectionPool::AddPriceLine(const Library& library,
                                      const std::array<std::string, 3>& cells, bool unpriced,
                                      bool per_metre)
{
    const auto& [word, price, steel] = cells;
    PriceLine line{.word = word};
    std::string refusal = word.empty() ? std::string("no section") : Find(library, word, line.of);
    if (!refusal.empty()) {
        return refusal;
    }
    refusal = Add(library, word);
    if (!refusal.empty() || unpriced) {
        return refusal;
    }
    if (!steel.empty()) {
        const auto named = ValueOfName(library, *FindChoice("fykindex"), steel);
        if (!named) {
            return "steel: \"" + steel + "\": no such name in the list";
        }
        line.steel = *named;
    }
    std::string digits = price;
    std::replace(digits.begin(), digits.end(), ',', '.');
    const auto value = SizeOfText(digits);
    if (!value) {
        return "price: \"" + price + "\" is not a number of 0 or more";
    }
    line.price = {*value, per_metre};
    for (const PriceLine& other : prices_) {
        const bool same =
            other.steel == line.steel && other.of.size() == line.of.size() &&
            std::equal(other.of.begin(), other.of.end(), line.of.begin(),
                       [](const Entry& a, const Entry& b) { return Covers(a, b) && Covers(b, a); });
        if (same) {
            return word + ": has a price already";
        }
    }
    prices_.push_back(std::move(line));
    return {};
}

bool SectionPool::Prices(const Entry& entry, const Entry& of, i16 row)
{
    Entry one = of;
    one.row = of.table ? std::optional(row) : std::nullopt;
    return Covers(entry, one) || (!entry.single && !entry.table && entry.family == of.family);
}

std::optional<Price> SectionPool::PriceOf(const Candidate& candidate, int steel) const
{
    const Entry& entry = entries_[candidate.entry];
    const PriceLine* best = nullptr;
    std::pair<bool, bool> closest;
    for (const PriceLine& line : prices_) {
        const auto prices = [&](const Entry& of) { return Prices(of, entry, candidate.row); };
        if ((line.steel != -1 && line.steel != steel) ||
            std::none_of(line.of.begin(), line.of.end(), prices)) {
            continue;
        }
        const std::pair close(line.of.front().single || line.of.front().row, line.steel != -1);
        if (best == nullptr || close > closest) {
            best = &line;
            closest = close;
        }
    }
    return best != nullptr ? std::optional(best->price) : std::nullopt;
}

}  // namespace kestrum
