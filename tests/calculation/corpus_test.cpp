// Reports of members drawn at random, sensible or not, in all forms: each is written, its equations
// give their results, and nothing stands beyond the page. KESTRUM_CORPUS=500 sets their number.

#include "calculation/calculation_report.h"
#include "calculation/check_equations.h"
#include "document/html_writer.h"
#include "document/markdown_writer.h"
#include "document/odt_writer.h"
#include "document/page_layout.h"
#include "report/drawing_checks.h"
#include "support/members.h"
#include "support/printed_formula.h"
#include "support/report_lines.h"
#include "tools/random_member.h"
#include "tools/realistic_member.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

namespace kestrum {
namespace {

std::size_t CorpusSize()
{
    const char* const wanted = std::getenv("KESTRUM_CORPUS");
    return wanted == nullptr ? 60 : std::strtoul(wanted, nullptr, 10);
}

// Every opened element is closed, in order.
bool IsNested(const std::string& html)
{
    std::vector<std::string> open;
    const std::size_t start = html.find("<body>");
    const std::string body = html.substr(start, html.find("</html>") - start);
    for (std::size_t at = 0; (at = body.find('<', at)) != std::string::npos; ++at) {
        const std::size_t end = body.find('>', at);
        const std::string tag = body.substr(at + 1, end - at - 1);
        const std::string name =
            tag.substr(0, tag.find_first_of(" /", tag.starts_with('/') ? 1 : 0));
        if (tag.starts_with('/')) {
            if (open.empty() || "/" + open.back() != name) {
                return false;
            }
            open.pop_back();
        } else if (!tag.ends_with('/') && name != "img" && name != "br") {
            open.push_back(name);
        }
    }
    return open.empty();
}

void ExpectOnPaper(const LaidOut& laid)
{
    ASSERT_FALSE(laid.pages.empty());
    for (const Drawing& page : laid.pages) {
        const Bounds bounds = BoundsOf(page);
        EXPECT_GE(bounds.left, 15);
        EXPECT_LE(bounds.right, 200);
        EXPECT_GE(bounds.top, 5);
        EXPECT_LE(bounds.bottom, 292);
    }
}

// Figures are read in print: letters of 7 pt, none on another or on a curve.
void ExpectLegibleFigures(const Document& document)
{
    constexpr double kLeast = 7 * 25.4 / 72;
    for (const Block& block : document.blocks) {
        const auto* const row = std::get_if<FigureRow>(&block);
        for (const Figure& figure : row == nullptr ? std::vector<Figure>() : row->figures) {
            ExpectLegible(figure.drawing);
            for (const TextMark& text : MarksOf<TextMark>(figure.drawing)) {
                EXPECT_GE(text.size * figure.width / figure.drawing.width, kLeast)
                    << PlainText(figure.caption) << ": " << text.text;
            }
        }
    }
}

// Every third one with inputs that need not be sensible, the others as engineers design them.
ProjectState MemberOfNumber(std::size_t number)
{
    if (number % 3 == 0) {
        return RandomMember(Delivered(), number);
    }
    ProjectState s = Member("qload[1]=0 nload[1]=0");
    for (const Entry& entry : RealisticMember(Delivered(), static_cast<unsigned>(number))) {
        AssignField(Delivered(), s, entry.name, entry.value, Assignment::checked);
    }
    return s;
}

TEST(Corpus, RandomMembersAreReportedInEveryForm)
{
    std::size_t equations = 0;
    for (std::size_t number = 0; number < CorpusSize(); ++number) {
        SCOPED_TRACE(number);
        ReportedMember member{.project = MemberOfNumber(number)};
        member.vortex = number % 2 == 0;
        const Document document = CalculationReport(Delivered(), {&member, 1});
        for (const Printed& printed : PrintedOf(WriteMarkdown(document))) {
            if (printed.calculation.empty()) {
                continue;
            }
            ++equations;
            EXPECT_LE(std::abs(PocketCalculator(printed.calculation).Value() -
                               PocketCalculator(printed.value).Value()),
                      LastDigit(printed.value) * (1 + 1e-9))
                << printed.symbol << " = " << printed.calculation << " = " << printed.value;
        }
        EXPECT_TRUE(IsNested(WriteHtml(document)));
        EXPECT_TRUE(WriteOdt(document).starts_with("PK"));
        ExpectOnPaper(LayOut(document));
        ExpectLegibleFigures(document);
    }
    EXPECT_GT(equations, 20 * CorpusSize());
}

}  // namespace
}  // namespace kestrum
