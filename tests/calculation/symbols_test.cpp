// A symbol in a formula is found in the same report: as the result of an equation, in a table, or
// in the list of symbols. A departure that is named by its number has its sentence there.

#include "calculation/calculation_report.h"
#include "calculation/example_report.h"
#include "calculation/named_departures.h"
#include "core/deviation.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

namespace kestrum {
namespace {

namespace fs = std::filesystem;

void AddSymbols(const Expr& expression, std::set<std::string>& symbols)
{
    if (expression == nullptr) {
        return;
    }
    if (expression->op == Op::symbol) {
        symbols.insert(PlainText(Line(expression->symbol)));
    }
    for (const Expr& part : expression->parts) {
        AddSymbols(part, symbols);
    }
}

std::set<std::string> Undefined(const Document& d)
{
    std::set<std::string> used, defined{"π"};
    for (const Block& block : d.blocks) {
        if (const auto* const equation = std::get_if<Equation>(&block)) {
            defined.insert(PlainText(Line(equation->symbol)));
            AddSymbols(equation->formula, used);
        } else if (const auto* const table = std::get_if<TextTable>(&block)) {
            for (const auto& row : table->rows) {
                for (std::size_t i = 0; i < row.size() && i < 2; ++i) {
                    std::istringstream names(PlainText(row[i]));
                    for (std::string name; names >> name;) {
                        defined.insert(name.ends_with(',') ? name.substr(0, name.size() - 1)
                                                           : name);
                    }
                }
            }
            for (const TextTable::Column& column : table->columns) {
                const std::string title = PlainText(column.title);
                defined.insert(title.substr(0, title.find(',')));
            }
        }
    }
    std::set<std::string> undefined;
    std::set_difference(used.begin(), used.end(), defined.begin(), defined.end(),
                        std::inserter(undefined, undefined.begin()));
    return undefined;
}

// With frequencies and vortex shedding.
void AddMoving(std::map<std::string, Document>& reports)
{
    for (const char* const fields :
         {"family=4 row.ipe=10 l=6 qload[1]=10 qtx2[1]=3 qtx1[1]=1 qt1[1]=4 qt2[1]=6 pm[1]=20 "
          "pmx[1]=2 pmtype[1]=1 modal=1",
          "family=7 l=20 qload[1]=0.5 vortexcase=4", "family=31 l=20 qload[1]=0.5 vortexcase=0"}) {
        const ReportedMember member{.project = Member(std::string("loadcomb=0 ") + fields),
                                    .vortex = true};
        reports.emplace(fields, CalculationReport(Delivered(), {&member, 1}));
    }
}

// Of all examples, each by its name.
const std::map<std::string, Document>& Reports()
{
    static const std::map<std::string, Document> kReports = [] {
        std::map<std::string, Document> reports;
        for (const char* const folder : {"/examples", "/examples/deviations"}) {
            for (const auto& at : fs::directory_iterator(std::string(KESTRUM_SOURCE) + folder)) {
                if (at.path().extension() == ".kst") {
                    reports.emplace(at.path().stem().string(), DocumentOf(ProjectOf(at.path())));
                }
            }
        }
        AddMoving(reports);
        return reports;
    }();
    return kReports;
}

TEST(Symbols, OfFormulasAreDefinedInTheSameReport)
{
    std::map<std::string, std::string> undefined;
    for (const auto& [name, report] : Reports()) {
        for (const std::string& symbol : Undefined(report)) {
            undefined[symbol] += " " + name;
        }
    }
    for (const auto& [symbol, where] : undefined) {
        ADD_FAILURE() << symbol << " has no meaning in" << where.substr(0, 120);
    }
}

// The departures with a sentence: "D207  Torsional ..." and rows of a table that begin with it.
std::set<std::string> Explained(const Document& d)
{
    constexpr std::size_t kSentence = 30;  // letters at least
    std::set<std::string> explained;
    for (const Block& block : d.blocks) {
        if (const auto* const paragraph = std::get_if<Paragraph>(&block)) {
            const std::string text = PlainText(paragraph->text);
            if (text.starts_with('D') && text.size() > kSentence) {
                explained.insert(text.substr(0, text.find(' ')));
            }
        } else if (const auto* const table = std::get_if<TextTable>(&block)) {
            for (const auto& row : table->rows) {
                if (PlainText(row.back()).size() > kSentence) {
                    explained.insert(PlainText(row.front()));
                }
            }
        }
    }
    return explained;
}

TEST(Departures, NamedByTheirNumberHaveTheirSentence)
{
    std::size_t named = 0;
    for (const auto& [name, report] : Reports()) {
        SCOPED_TRACE(name);
        const std::set<std::string> explained = Explained(report);
        for (const Dev deviation : NamedDepartures(report)) {
            ++named;
            EXPECT_TRUE(explained.contains(std::string(NameOf(deviation))))
                << NameOf(deviation) << " stands in the report without what it is";
        }
    }
    EXPECT_GT(named, 100U);
}

}  // namespace
}  // namespace kestrum
