#include "calculation/chapters.h"

#include "report/design_notes.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

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
        table.rows.push_back({NameOf(cost.deviation), CostText(cost.cost), TextOf(cost.deviation)});
    }
    d.Add(std::move(table));
}

// Clauses in the order of their numbers, each with the symbols that were found by it.
void AddClauses(Document& d)
{
    std::map<std::string, std::vector<std::string>> clauses;
    for (const Block& block : d.blocks) {
        const auto* const equation = std::get_if<Equation>(&block);
        if (equation == nullptr || equation->clause.empty()) {
            continue;
        }
        std::vector<std::string>& symbols = clauses[equation->clause];
        const std::string symbol = PlainText(Line(equation->symbol));
        if (std::find(symbols.begin(), symbols.end(), symbol) == symbols.end()) {
            symbols.push_back(symbol);
        }
    }
    if (clauses.empty()) {
        return;
    }
    d.Chapter("Clauses used");
    d.Say("EN 1993-1-1 unless another standard is named.", Paragraph::Kind::remark);
    TextTable table{.columns = {{"Clause"}, {"for"}}};
    for (const auto& [clause, symbols] : clauses) {
        std::string list;
        for (const std::string& symbol : symbols) {
            list += (list.empty() ? "" : "; ") + symbol;
        }
        table.rows.push_back({clause, list});
    }
    d.Add(std::move(table));
}

}  // namespace kestrum
