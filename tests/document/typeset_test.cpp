// Symbols and units in running text.

#include "document/typeset.h"

#include "document/html_writer.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrum {
namespace {

// Subscripts behind "_", letters with a bar behind "~".
std::string Marked(const Line& line)
{
    std::string text;
    for (const Span& span : line.spans) {
        text += span.style == Span::Style::subscript ? "_" : "";
        text += span.style == Span::Style::bar ? "~" : "";
        text += span.text;
    }
    return text;
}

TEST(Typeset, SetsNamesOfQuantitiesAndUnits)
{
    EXPECT_EQ(Marked(Typeset("under My: 1, under Mz: 1")), "under M_y: 1, under M_z: 1");
    EXPECT_EQ(Marked(Typeset("My1, kNm")), "M_y,1, kNm");
    EXPECT_EQ(Marked(Typeset("eta hw tw, 15 eps tf")), "η h_w t_w, 15 ε t_f");
    EXPECT_EQ(Marked(Typeset("tw (h - tf/2)")), "t_w (h - t_f/2)");
    EXPECT_EQ(Marked(Typeset("above Npl,Rd, where")), "above N_pl,Rd, where");
    EXPECT_EQ(Marked(Typeset("Cmy,0 for Cmy; Cm,0")), "C_my,0 for C_my; C_m,0");
    EXPECT_EQ(Marked(Typeset("EIz v''² + GIT φ'²")), "E·I_z v''² + G·I_T φ'²");
    EXPECT_EQ(Marked(Typeset("taken with 10 m/s2, kc is 1/sqrt(C1)")),
              "taken with 10 m/s², k_c is 1/√C_1");
    EXPECT_EQ(Marked(Typeset("up to lamLT0")), "up to ~λ_LT,0");
    EXPECT_EQ(Marked(Typeset("It of UPE 300 is 34.0 cm4")), "I_t of UPE 300 is 34.0 cm⁴");
}

TEST(Typeset, LeavesWordsNamesAndNumbers)
{
    for (const char* const text :
         {"It is checked.", "pinned, epsilon, beta, theta, path", "HEA 200", "Fb 70x12", "C10, PC1",
          "flange,web", "Pl 600x10 + Fb 180x12", "Moment", "6.2.9.1, y", "EN 1993-1-1, Table 6.7",
          "Ø 42,0", "", ","}) {
        EXPECT_EQ(Marked(Typeset(text)), text);
    }
}

TEST(Typeset, KeepsTheStyleOfTheTextAroundIt)
{
    EXPECT_EQ(Typeset("z_j of the section").spans.front().text, "z");
    const Line line = Typeset(Strong("Plates under My"));
    ASSERT_EQ(line.spans.size(), 3U);
    EXPECT_EQ(line.spans[1].style, Span::Style::strong);
    EXPECT_EQ(line.spans[2].style, Span::Style::subscript);
    EXPECT_TRUE(Typeset(NumberLine(2.5)).spans.front().number);
}

// The list of the members of a book has the users' own names.
TEST(Typeset, LeavesTheNamesOfMembers)
{
    Document d;
    d.Member("My hall");
    d.Add(TextTable{
        .columns = {{"Member"}, {"My, kNm"}}, .rows = {{"My hall", "1"}}, .contents = true});
    const std::string html = WriteHtml(d);
    EXPECT_NE(html.find(">My hall</a>"), std::string::npos);
    EXPECT_NE(html.find("M<sub>y</sub>, kNm"), std::string::npos);
}

}  // namespace
}  // namespace kestrum
