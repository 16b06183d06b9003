// A document with a decimal comma has no decimal point but in clauses, combinations and names.

#include "calculation/calculation_report.h"
#include "calculation/example_report.h"
#include "core/decimal_points.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <variant>

namespace kestrum {
namespace {

namespace fs = std::filesystem;

// Combinations go by the numbers of their equations, the check of deflections by its clause.
std::string WithoutNames(std::string text)
{
    for (const std::string_view name : {"6.10", "6.14", ", 7.2)"}) {
        for (std::size_t at = 0; (at = text.find(name)) != std::string::npos;) {
            text.erase(at, name.size());
        }
    }
    return text;
}

// Texts with a point that the writers would leave as it is, each with where it was found.
class Points {
public:
    explicit Points(std::map<std::string, std::string>& found) : found_(found) {}

    void Read(const Line& line, const std::string& where)
    {
        for (const Span& span : line.spans) {
            if (!span.number && !DecimalPoints(WithoutNames(span.text)).empty()) {
                found_.emplace(span.text, where);
            }
        }
    }
    void Read(const Block& block, const std::string& where)
    {
        if (const auto* const paragraph = std::get_if<Paragraph>(&block)) {
            Read(paragraph->text, where);
        } else if (const auto* const equation = std::get_if<Equation>(&block)) {
            Read(equation->remark, where);
        } else if (const auto* const table = std::get_if<TextTable>(&block)) {
            ReadTable(*table, where);
        } else if (const auto* const heading = std::get_if<Heading>(&block)) {
            if (heading->level > 1) {  // not the name of a section
                Read(Line(heading->text), where);
            }
        }
    }

private:
    void ReadTable(const TextTable& table, const std::string& where)
    {
        Read(Line(table.caption), where);
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const std::string title = PlainText(table.columns[i].title);
            Read(table.columns[i].title, where);
            const bool named = title == "clause" || title == "Clause" || title == "combination" ||
                               title == "Combination";
            for (const auto& row : table.rows) {
                if (!named && i < row.size()) {
                    Read(row[i], where);
                }
            }
        }
    }

    std::map<std::string, std::string>& found_;
};

TEST(DecimalSign, OfADocumentIsOne)
{
    std::map<std::string, std::string> found;
    std::size_t reports = 0;
    for (const char* const folder : {"/examples", "/examples/deviations"}) {
        for (const auto& entry : fs::directory_iterator(std::string(KESTRUM_SOURCE) + folder)) {
            if (entry.path().extension() == ".kst") {
                ++reports;
                for (const Block& block : DocumentOf(ProjectOf(entry.path())).blocks) {
                    Points(found).Read(block, entry.path().stem().string());
                }
            }
        }
    }
    EXPECT_GT(reports, 100U);
    for (const auto& [text, where] : found) {
        ADD_FAILURE() << where << " keeps the decimal point in: " << text;
    }
}

// Clauses, tables and equations keep their point, also behind a standard; what a verb gives is a
// number.
TEST(DecimalSign, IsNotThatOfAClause)
{
    const auto written = [](const char* text) { return PlainText(Sentence(text), ','); };
    for (const char* const text :
         {"EN 1993-1-1, 6.2.2.4, by far", "Eq (6.61) and (6.62)", "Table 5.2 counts to",
          "EN 1993-1-5, 5.1 (2) has", "EN 1990, Table A1.2(B)", "Eq 6.10 takes", "A1.4",
          "BB.1.2 (2)"}) {
        EXPECT_EQ(written(text), text);
    }
    EXPECT_EQ(written("by up to 3.5 %."), "by up to 3,5 %.");
    EXPECT_EQ(written("EN 1991-1-4, Table 4.1 gives 0.3 m"), "EN 1991-1-4, Table 4.1 gives 0,3 m");
    EXPECT_EQ(written("EN 1990, Table A1.2(B) gives 1.35."), "EN 1990, Table A1.2(B) gives 1,35.");
    EXPECT_EQ(written("held at 0.5 as in EN 1993-1-1, 6.2.9.1 (5)"),
              "held at 0,5 as in EN 1993-1-1, 6.2.9.1 (5)");
}

}  // namespace
}  // namespace kestrum
