// Formulas, the numbers they are printed with, and what they give.

#include "document/document.h"
#include "document/equation_layout.h"
#include "document/html_writer.h"
#include "document/markdown_writer.h"
#include "document/math_layout.h"
#include "document/mathml.h"
#include "document/notation.h"
#include "document/starmath.h"
#include "support/printed_formula.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace kestrum {
namespace {

TEST(NumberText, KeepsSoManySignificantDigits)
{
    EXPECT_EQ(NumberText(0.730512, 4), "0.7305");
    EXPECT_EQ(NumberText(355, 5), "355");
    EXPECT_EQ(NumberText(9.5F, 5), "9.5");
    EXPECT_EQ(NumberText(-12.3456, 4), "-12.35");
    EXPECT_EQ(NumberText(0, 5), "0");
    EXPECT_EQ(NumberText(99999.6, 5), "100000");
    EXPECT_EQ(NumberText(285406.0, 4), "285406") << "no digit before the point is lost";
}

TEST(NumberText, LargeAndSmallNumbersHavePowersOfAThousand)
{
    EXPECT_EQ(NumberText(36920000, 5), "36.92e6");
    EXPECT_EQ(NumberText(999999.9, 5), "1e6");
    EXPECT_EQ(NumberText(0.00041412, 5), "414.12e-6");
    EXPECT_EQ(NumberText(-487e9, 5), "-487e9");
    EXPECT_EQ(NumberText(0.0051824, 5), "0.0051824");
}

TEST(NumberText, ResultsKeepTheirZeros)
{
    EXPECT_EQ(ResultText(0.5, 4), "0.5000");
    EXPECT_EQ(ResultText(1.0, 5), "1.0000");
}

TEST(NumberText, OfNoNumberIsEmpty)
{
    EXPECT_EQ(NumberText(std::numeric_limits<double>::infinity(), 5), "");
    EXPECT_EQ(NumberText(std::numeric_limits<double>::quiet_NaN(), 5), "");
}

TEST(LastDigitOf, FollowsDecimalsAndPower)
{
    EXPECT_DOUBLE_EQ(LastDigitOf("0.7305"), 1e-4);
    EXPECT_DOUBLE_EQ(LastDigitOf("355"), 1);
    EXPECT_DOUBLE_EQ(LastDigitOf("36.92e6"), 1e4);
}

// 1/3 + 1/3 = 2/3 = 0.66667; 0.33333 twice is 0.66666, one off, 0.333333 twice 0.666666.
TEST(Equation, NumbersHaveFewDigitsWhereTheseGiveTheResult)
{
    const Equation equation =
        EquationOf("c", Sym("a", 1.0 / 3) + Sym("b", 1.0 / 3), 2.0 / 3, "", "");
    ASSERT_NE(equation.formula, nullptr);
    EXPECT_EQ(equation.value, "0.66667");
    EXPECT_EQ(equation.digits, 6);
    EXPECT_EQ(EquationOf("c", Sym("a", 1.5) * Sym("b", 2), 3, "", "").digits, 5);
}

// 1.0001234 - 1 = 0.0001234: five digits of the first number would leave 0.0001.
TEST(Equation, ADifferenceTakesMoreDigits)
{
    const Equation equation = EquationOf("c", Sym("a", 1.0001234) - Sym("b", 1), 0.0001234, "", "");
    ASSERT_NE(equation.formula, nullptr);
    EXPECT_GE(equation.digits, 8);
    EXPECT_EQ(CalculationInLine(equation.formula, equation.digits, '.'), "1.0001234 - 1");
}

TEST(Equation, AFormulaThatDoesNotGiveTheValueIsNotPrinted)
{
    EXPECT_EQ(EquationOf("c", Sym("a", 2) * Sym("b", 3), 6.01, "", "").formula, nullptr);
    EXPECT_NE(EquationOf("c", Sym("a", 2) * Sym("b", 3), 6.0, "", "").formula, nullptr);
}

TEST(Notation, BracketsFollowTheOperators)
{
    const Expr a = Sym("a", 2), b = Sym("b", 3), c = Sym("c", 4);
    EXPECT_EQ(FormulaInLine(a * (b + c), '.'), "a·(b + c)");
    EXPECT_EQ(FormulaInLine(a - (b - c), '.'), "a - (b - c)");
    EXPECT_EQ(FormulaInLine(a / (b * c), '.'), "a/(b·c)");
    EXPECT_EQ(FormulaInLine(a / b / c, '.'), "(a/b)/c");
    EXPECT_EQ(FormulaInLine(a / b * c, '.'), "(a/b)·c");
    EXPECT_EQ(FormulaInLine(a + b / c, '.'), "a + b/c");
    EXPECT_EQ(FormulaInLine(Power(a * b, c), '.'), "(a·b)^c");
    EXPECT_EQ(FormulaInLine(a + b * c, '.'), "a + b·c");
    EXPECT_EQ(CalculationInLine(a - Sym("n", -3), 5, '.'), "2 - (-3)");
    EXPECT_EQ(CalculationInLine(a / Sym("I", 2e6), 5, '.'), "2/(2·10^6)");
}

TEST(Notation, UnitsScaleTheNumbersOnly)
{
    const Expr force = Sym("A", 5383) * Sym("f_y", 355) * Ten(-3);
    EXPECT_EQ(FormulaInLine(force, '.'), "A·f_y");
    EXPECT_EQ(CalculationInLine(force, 5, '.'), "5383·355·10^-3");
    EXPECT_DOUBLE_EQ(Evaluate(force), 1910.965);
}

// Every kind of operation: the printed text gives what the tree gives.
TEST(Notation, TheTextGivesTheValueOfTheTree)
{
    const Expr a = Sym("a", -2.25), b = Sym("b", 3.5e7), c = Sym("c", 0.125);
    const Expr all[] = {Size(a) + Root(c) * Num(2),
                        Least({a, c, b}) - Largest({a, c}),
                        Square(a) / b * Ten(9),
                        Power(c, Num(3)) / (a * c),
                        Cosine(Sym("α", 30)) - Sine(Sym("α", 30)),
                        Square(b) / Square(a),
                        Pi() * (c - (a - b))};
    for (const Expr& expr : all) {
        const std::string text = CalculationInLine(expr, 15, '.');
        const double value = Evaluate(expr);
        EXPECT_NEAR(PocketCalculator(text).Value(), value, 1e-12 * std::abs(value)) << text;
    }
}

// 2 over (3 over (1 - (4/5)·6)).
Expr NestedFractions()
{
    return Sym("a", 2) / (Sym("b", 3) / (1 - Sym("c", 4) / Sym("d", 5) * Sym("e", 6)));
}

std::size_t CountOf(std::string_view text, std::string_view word)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos;
         at = text.find(word, at + word.size())) {
        ++count;
    }
    return count;
}

TEST(Notation, AThirdFractionInAFractionHasASlash)
{
    const Equation equation =
        EquationOf("f", NestedFractions(), 2 / (3 / (1 - 4 / 5.0 * 6)), "", "");
    ASSERT_NE(equation.formula, nullptr);
    const std::string mathml = MathMlFormula(equation.formula, '.');
    EXPECT_EQ(CountOf(mathml, "<mfrac>"), 2U) << "two bars, one in the other: " << mathml;
    EXPECT_EQ(CountOf(mathml, ">/</mo>"), 1U) << mathml;
    const std::string office = StarMathParts(equation, '.')[1];
    EXPECT_EQ(CountOf(office, " over "), 2U) << office;
    EXPECT_NE(office.find("left ( {{4} / {5}} right )"), std::string::npos)
        << "a quotient with a slash has brackets in a product: " << office;
    const MathBox box = EquationBoxes(equation, 3.3, '.').front();
    const auto bars = std::count_if(box.marks.begin(), box.marks.end(), [](const Mark& mark) {
        return std::holds_alternative<LineMark>(mark);
    });
    EXPECT_EQ(bars, 2) << "bars on paper";
}

// a^(b/c): no bar in an exponent.
TEST(Notation, AFractionInAnExponentHasASlash)
{
    const Expr power = Power(Sym("a", 2), Sym("b", 3) / Sym("c", 4));
    EXPECT_EQ(MathMlFormula(power, '.').find("mfrac"), std::string::npos);
}

// 6.5 pt in print, whatever stands in what.
TEST(Notation, NoLetterOfAFormulaIsTooSmallToBeRead)
{
    constexpr double kPoint = 25.4 / 72, kFormula = 3.3, kCell = 2.75;
    const Expr nested = Power(NestedFractions(), Sym("m_y", 2) / Sym("n_z", 3e9));
    const Equation equation{.symbol = "f_y", .formula = nested, .digits = 5, .value = "1e9"};
    std::vector<MathBox> boxes = EquationBoxes(equation, kFormula, '.');
    boxes.push_back(LineBox(Line(Symbol("W_el,y")) + NumberLine(2e9), kCell, '.'));
    for (const MathBox& box : boxes) {
        for (const Mark& mark : box.marks) {
            if (const auto* const text = std::get_if<TextMark>(&mark)) {
                EXPECT_GE(text->size, 6.5 * kPoint) << text->text;
            }
        }
    }
}

// A sum of many terms, longer than three lines: every letter has its size, every line its width.
TEST(EquationLayout, ALongSumIsBrokenAtItsSigns)
{
    constexpr double kWidth = 176, kFormula = 3.3;
    Expr sum = Sym("a_0", 1) / Sym("b_0", 2);
    double value = 0.5;
    for (int i = 1; i < 40; ++i) {
        const std::string number = std::to_string(i);
        sum = sum + Sym("a_" + number, i) / Sym("b_" + number, 2);
        value += i / 2.0;
    }
    const Equation equation = EquationOf("c", sum, value, "", "6.2.1");
    ASSERT_NE(equation.formula, nullptr);
    Drawing paper;
    EquationLayout(equation, kWidth, '.').Place(paper, {0, 0});
    std::size_t terms = 0;
    for (const Mark& mark : paper.marks) {
        EXPECT_GE(BoundsOf(mark).left, 0);
        EXPECT_LE(BoundsOf(mark).right, kWidth + 0.1);
        if (const auto* const text = std::get_if<TextMark>(&mark)) {
            EXPECT_GE(text->size, text->text == "a" ? 0.9 * kFormula : 2.2) << text->text;
            terms += text->text == "a" ? 1 : 0;
        }
    }
    EXPECT_EQ(terms, 40U);
}

TEST(Writers, TextsOfTheUserAreNoMarkup)
{
    Document d;
    d.head.project = "<b>A & B</b> | x*y";
    d.Say("a < b & \"c\"");
    const std::string html = WriteHtml(d);
    EXPECT_EQ(html.find("<b>A"), std::string::npos);
    EXPECT_NE(html.find("&lt;b&gt;A &amp; B"), std::string::npos);
    EXPECT_NE(html.find("a &lt; b &amp; &quot;c&quot;"), std::string::npos);
    EXPECT_NE(WriteMarkdown(d).find("\\| x\\*y"), std::string::npos);
}

TEST(Writers, TheDecimalSignIsThatOfTheDocument)
{
    Document d;
    d.head.decimal = ',';
    d.Add("c", Sym("a", 1.5) * Sym("b", 2), 3, "kN", "6.2.4");
    EXPECT_NE(WriteMarkdown(d).find("1,5·2 = 3,0000 kN` \\[6.2.4\\]"), std::string::npos);
    EXPECT_NE(WriteHtml(d).find("<mn>1,5</mn>"), std::string::npos);
}

// On a telephone each row of texts stands as a card, its values below the titles of their columns;
// numbers are moved sideways in their box.
TEST(Html, CellsOfATableOfTextsCarryTheirTitles)
{
    Document d;
    TextTable texts{.columns = {{"Check"}, {Symbol("IR_y"), true}, {"where"}, {"of"}, {"governs"}}};
    texts.rows.push_back({"Bending", "0.5", "", "6.10a", "bending about y, shear along z"});
    d.Add(std::move(texts));
    TextTable numbers{.columns = {{"x"}, {"M"}, {"V"}, {"N"}, {"a"}, {"b"}}, .caption = "Forces"};
    numbers.rows.push_back({"0", "1", "2", "3", "4", "5"});
    d.Add(std::move(numbers));
    const std::string html = WriteHtml(d);
    EXPECT_EQ(CountOf(html, "<table class=\"cards\">"), 1U);
    EXPECT_NE(html.find("<td data-n=\"IR_y\" class=\"r\">0.5</td>"), std::string::npos) << html;
    EXPECT_NE(html.find("<td data-n=\"where\"></td>"), std::string::npos)
        << "an empty cell keeps its place and shows no title";
    EXPECT_NE(html.find("<td data-n=\"governs\" data-own=\"\">bending about y"), std::string::npos)
        << "a long text has a line of its own";
    EXPECT_NE(html.find("<caption><span>Forces</span></caption>"), std::string::npos)
        << "the caption stays where the numbers are moved";
    EXPECT_NE(html.find("<td>5</td>"), std::string::npos);
}

// Each part is whole to the editor: groups close, fractions are groups, nothing stands before "=".
TEST(StarMath, PartsAreWholeFormulas)
{
    const Equation equation =
        EquationOf("~λ_y", Root(Sym("A", 2) / Sym("B", 8) + Sym("C", 0.75)), 1, "", "");
    const std::vector<std::string> parts = StarMathParts(equation, '.');
    ASSERT_EQ(parts.size(), 3U);
    EXPECT_EQ(parts[1], "{} = {sqrt {{{{{2}} over {{8}}} + {0.75}}}}");
    EXPECT_TRUE(parts[0].starts_with("{{overline {ital \"λ\"}}_{\"y\"}} = "));
    for (const std::string& part : parts) {
        EXPECT_EQ(std::count(part.begin(), part.end(), '{'),
                  std::count(part.begin(), part.end(), '}'))
            << part;
    }
    EXPECT_EQ(StarMathParts(equation, ',')[2], "{} = {alignc \"1,0000\"}");
}

// "a = b = 2", not "a = b = 2 = 2".
TEST(Equation, OfOneSymbolHasItsNumberOnce)
{
    const Equation equation = EquationOf("a", Sym("b", 2), 2, "mm", "");
    EXPECT_EQ(StarMathParts(equation, '.').size(), 2U);
    EXPECT_EQ(MathMlParts(equation, '.').size(), 2U);
    EXPECT_EQ(EquationBoxes(equation, 3, '.').size(), 2U);
}

}  // namespace
}  // namespace kestrum
