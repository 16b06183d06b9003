#include "calculation/chapters.h"

#include "report/design_notes.h"

#include <cmath>
#include <map>
#include <set>
#include <utility>

namespace kestrum {

namespace {

std::string CostText(double cost)
{
    if (!std::isfinite(cost)) {
        return std::isnan(cost) ? "no value" : cost > 0 ? "+infinite" : "-infinite";
    }
    const std::string size = NumberText(std::abs(std::round(cost * 1000) / 1000), 4);
    return size == "0" ? "0" : (cost < 0 ? "-" : "+") + size;
}

}  // namespace

void AddNotes(const CalculatedMember& m, Document& d)
{
    const std::vector<DesignNote> notes =
        m.outcome.designed() ? DesignNotes(m.s) : std::vector<DesignNote>();
    d.Chapter("Notes");
    d.Part("Departures of the program on the unsafe side that act in this result");
    if (notes.empty()) {
        d.Say("None.");
    }
    for (const DesignNote& note : notes) {
        d.Say(Strong(std::string(note.id) + "  ") + Line(note.text));
    }
    d.Part("What each departure costs");
    d.Say("The largest ratio of the standard, less the one that it has with this one rule of the "
          "program. A departure that costs nothing touches a check that does not govern.",
          Paragraph::Kind::remark);
    if (m.standard.deviations.empty()) {
        d.Say(m.standard.rated ? "No departure alone changes the result."
                               : "The second set of rules gives no result to compare with.");
        return;
    }
    TextTable table{.columns = {{"Number"}, {"Cost", true}, {"Departure"}}};
    for (const standard::DeviationCost& cost : m.standard.deviations) {
        table.rows.push_back(
            {NameOf(cost.deviation), WithNumbers(CostText(cost.cost)), TextOf(cost.deviation)});
    }
    d.Add(std::move(table));
}

// Clauses in the order of their numbers, each with the symbols that were found by it.
void AddClauses(Document& d)
{
    struct Found {
        std::set<std::string> names;
        Line symbols;
    };
    std::map<std::string, Found> clauses;
    for (const Block& block : d.blocks) {
        const auto* const equation = std::get_if<Equation>(&block);
        if (equation == nullptr || equation->clause.empty()) {
            continue;
        }
        Found& found = clauses[equation->clause];
        if (found.names.insert(PlainText(Line(equation->symbol))).second) {
            found.symbols += Line(found.symbols.Empty() ? "" : ", ") + Line(equation->symbol);
        }
    }
    if (clauses.empty()) {
        return;
    }
    d.Chapter("Clauses used");
    d.Say("EN 1993-1-1 unless another standard is named.", Paragraph::Kind::remark);
    const TextTable empty{.columns = {{"Clause"}, {"for"}}};
    TextTable table = empty;
    constexpr std::size_t kFew = 12;  // rows of one table; more stand in two side by side
    const std::size_t half = clauses.size() <= kFew ? clauses.size() : (clauses.size() + 1) / 2;
    for (auto& [clause, found] : clauses) {
        if (table.rows.size() == half) {
            d.Add(std::exchange(table, empty));
        }
        table.rows.push_back({clause, std::move(found.symbols)});
    }
    d.Add(std::move(table));
}

}  // namespace kestrum
