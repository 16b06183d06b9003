#include "calculation/chapters.h"
#include "calculation/check_names.h"
#include "calculation/named_departures.h"
#include "calculation/standard_equations.h"

#include "report/design_notes.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <utility>

namespace kestrum {

namespace {

std::string SignedCost(double cost)
{
    if (!std::isfinite(cost)) {
        return std::isnan(cost) ? "no value" : cost > 0 ? "+infinite" : "-infinite";
    }
    const std::string size = CostText(std::abs(cost));
    return size == "0" ? "0" : (cost < 0 ? "-" : "+") + size;
}

// The check that the departure changes most.
std::string CheckOf(const ProjectState& s, const standard::DeviationCost& cost)
{
    return std::isnan(cost.change) ? "whether there is a ratio"
           : cost.change == 0      ? "only together with another departure"
                                   : NameInText(s, cost.most);
}

void AddCosts(const CalculatedMember& m, Document& d)
{
    d.Part("What each departure costs");
    d.Say("Cost: the largest ratio of the standard, less the one that it has with this one rule of "
          "the program. A departure that costs little may act in a check that does not govern; the "
          "check whose own ratio it changes most stands next to it.",
          Paragraph::Kind::remark);
    if (m.standard.deviations.empty()) {
        d.Say(m.standard.rated ? "No departure alone changes the result."
                               : "EN 1993-1-1 as written gives no result to compare with.");
        return;
    }
    TextTable table{.columns = {{"Number"},
                                {"Cost", true},
                                {"Largest change", true},
                                {"of the check", false, 1.5},
                                {"Departure", false, 3}}};
    for (const standard::DeviationCost& cost : m.standard.deviations) {
        table.rows.push_back({NameOf(cost.deviation), WithNumbers(SignedCost(cost.cost)),
                              WithNumbers(SignedCost(cost.change)), CheckOf(m.s, cost),
                              Sentence(RuleOf(cost.deviation))});
    }
    d.Add(std::move(table));
}

// What an equation names by its number and neither list has.
void AddNamedOnly(std::set<Dev> named, const std::vector<DesignNote>& notes,
                  const CalculatedMember& m, Document& d)
{
    for (const DesignNote& note : notes) {
        named.erase(DeviationOf(note.id).value());
    }
    for (const standard::DeviationCost& cost : m.standard.deviations) {
        named.erase(cost.deviation);
    }
    if (named.empty()) {
        return;
    }
    d.Part(m.standard.rated ? "Departures named at equations that change no ratio here"
                            : "Departures named at equations");
    for (const Dev deviation : named) {
        d.Say(Strong(std::string(NameOf(deviation)) + "  ") + Sentence(RuleOf(deviation)));
    }
}

}  // namespace

void AddNotes(const CalculatedMember& m, Document& d)
{
    const std::vector<DesignNote> notes =
        m.outcome.designed() ? DesignNotes(m.s) : std::vector<DesignNote>();
    d.Chapter("Notes");
    d.Part("Departures of the program on the unsafe side that act in this result");
    if (!m.outcome.designed()) {
        d.Say("The program has no result here in which one could act.");
    } else if (notes.empty()) {
        d.Say("None.");
    }
    for (const DesignNote& note : notes) {
        const auto deviation = DeviationOf(note.id);
        d.Say(Strong(std::string(note.id) + "  ") +
              Sentence(deviation ? RuleOf(*deviation) : note.text));
    }
    AddCosts(m, d);
    AddNamedOnly(NamedDepartures(d), notes, m, d);
}

// Clauses in the order of their numbers, each with the symbols that were found by it.
void AddClauses(Document& d)
{
    constexpr std::size_t kSymbols = 7;  // beside each other: two tables have room on a page
    struct Found {
        std::set<std::string> names;
        std::vector<Line> rows;
    };
    std::map<std::string, Found> clauses;
    for (const Block& block : d.blocks) {
        const auto* const equation = std::get_if<Equation>(&block);
        if (equation == nullptr || equation->clause.empty()) {
            continue;
        }
        Found& found = clauses[equation->clause];
        if (found.names.insert(PlainText(Line(equation->symbol))).second) {
            if (found.names.size() % kSymbols == 1) {
                found.rows.push_back(Line(equation->symbol));
            } else {
                found.rows.back() += Line(", ") + Line(equation->symbol);
            }
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
    std::size_t rows = 0;
    for (const auto& [clause, found] : clauses) {
        rows += found.rows.size();
    }
    std::size_t left = rows <= kFew ? rows : (rows + 1) / 2;  // of the first table
    for (auto& [clause, found] : clauses) {
        if (left == 0) {
            d.Add(std::exchange(table, empty));
            left = rows;
        }
        for (Line& symbols : found.rows) {
            table.rows.push_back(
                {&symbols == &found.rows.front() ? Line(clause) : Line(), std::move(symbols)});
        }
        left -= std::min(left, found.rows.size());
    }
    d.Add(std::move(table));
}

}  // namespace kestrum
