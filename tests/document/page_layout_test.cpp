// Documents on pages, and what offices write on them.

#include "document/document_head.h"
#include "document/notation.h"
#include "document/odt_writer.h"
#include "document/page_layout.h"
#include "document/table_layout.h"
#include "document/text_flow.h"
#include "document/zip.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <variant>

namespace kestrum {
namespace {

// A document of `members` with more rows and equations than a page holds.
Document LongDocument(int members)
{
    Document d;
    d.head.project = std::string(300, 'W');  // wider than the page
    d.head.footer = std::string(400, 'm');
    d.Cover("Book");
    TextTable contents{.columns = {{"Member"}, {"page", true}}, .contents = true};
    for (int i = 0; i < members; ++i) {
        contents.rows.push_back({"Member " + std::to_string(i), "     "});
    }
    d.Add(std::move(contents));
    for (int i = 0; i < members; ++i) {
        d.NewPage();
        d.Member("Member " + std::to_string(i));
        d.Chapter("Chapter");
        TextTable table{.columns = {{"Long"}, {"x", true}}, .caption = "Rows"};
        for (int row = 0; row < 90; ++row) {
            table.rows.push_back(
                {std::string(60, 'a') + " " + std::string(250, 'W'), NumberLine(row * 1e7)});
        }
        d.Add(std::move(table));
        const Expr a = Sym("a", 2.5), b = Sym("~λ_b,y,Rd", 3e7);
        d.Add("c", Root(a * Square(b) / (1 + a)) + Least({a / b, Size(b - a)}),
              std::sqrt(2.5 * 9e14 / 3.5) + 2.5 / 3e7, "mm2", "EN 1993-1-5, 4.4 (2)",
              "a remark behind it");
    }
    return d;
}

TEST(PageLayout, NothingLeavesThePage)
{
    const LaidOut laid = LayOut(LongDocument(2));
    ASSERT_GT(laid.pages.size(), 4U);
    const Bounds paper{15, 8, 200, 292};
    for (const Drawing& page : laid.pages) {
        for (const Mark& mark : page.marks) {
            EXPECT_TRUE(BoundsOf(mark).Inside(paper));
        }
    }
}

// `lines` of text, then a chapter whose first part begins with a formula, a table, a text, or a
// remark that leads to a formula, or to two long tables beside each other.
Document HeadingsBelow(int lines, int begins_with, double offset)
{
    Document d;
    Drawing figure;
    figure.width = figure.height = offset;
    d.Show({{figure, "", offset}});
    for (int i = 0; i < lines; ++i) {
        d.Say("A line of text.");
    }
    d.Chapter("Chapter");
    d.Part("Part");
    if (begins_with >= 3) {
        d.Say("Remark:", Paragraph::Kind::remark);
    }
    if (begins_with == 0 || begins_with == 3) {
        const Expr a = Sym("a", 2.5), b = Sym("b", 3);
        d.Add("c", Root(a / (1 + a / b)) + Least({a / b, b / a}), 1.0, "mm2", "6.3.1.2 (1)");
    } else if (begins_with == 1) {
        d.Add(TextTable{.columns = {{"Plate"}}, .rows = {{"web"}, {"flange"}}});
    } else if (begins_with == 4) {
        TextTable clauses{.columns = {{"Clause"}}};
        clauses.rows.assign(25, {"6.2.3"});
        d.Add(clauses);
        d.Add(clauses);
    } else {
        d.Say("A line of text.");
    }
    return d;
}

// What stands on a page below the last heading of it, above the foot, and is no remark that leads
// to more.
bool HasTextBelow(const LaidOut& laid, const PlacedHeading& heading)
{
    constexpr double kLetters = 4.5, kFoot = 281;
    const auto& marks = laid.pages[heading.page].marks;
    return std::any_of(marks.begin(), marks.end(), [&](const Mark& mark) {
        const auto* const text = std::get_if<TextMark>(&mark);
        return text != nullptr && text->at.y > heading.y + kLetters && text->at.y < kFoot &&
               text->text != "Remark:";
    });
}

TEST(PageLayout, NoHeadingStandsAloneAtTheFootOfAPage)
{
    for (const int begins_with : {0, 1, 2, 3, 4}) {
        constexpr int kSteps = 25;  // of 0.25 mm, more than a line
        for (int step = 0; step < 12 * kSteps; ++step) {
            const int lines = 36 + step / kSteps;
            const double offset = 1.0 + 0.25 * (step % kSteps);
            const LaidOut laid = LayOut(HeadingsBelow(lines, begins_with, offset));
            ASSERT_EQ(laid.headings.size(), 2U);
            EXPECT_EQ(laid.headings[0].page, laid.headings[1].page) << lines;
            EXPECT_TRUE(HasTextBelow(laid, laid.headings[1])) << lines << ' ' << begins_with;
        }
    }
}

// A remark that ends a chapter stands with it, though the next chapter begins on another page.
TEST(PageLayout, ARemarkThatEndsAChapterLeadsToNothing)
{
    Document d;
    d.Chapter("First");
    d.Say("A remark.", Paragraph::Kind::remark);
    d.Chapter("Second");
    Drawing tall;
    tall.width = 100;
    tall.height = 150;
    d.Show({{tall, "Tall", 170}});
    const LaidOut laid = LayOut(d);
    ASSERT_EQ(laid.headings.size(), 2U);
    EXPECT_EQ(laid.headings[0].page, 0U);
    EXPECT_EQ(laid.headings[1].page, 1U);
    EXPECT_TRUE(HasTextBelow(laid, laid.headings[0]));
}

// Rows of a long table on each page that has some.
TEST(PageLayout, NoRowOfALongTableStandsAlone)
{
    constexpr int kRows = 24;
    for (int lines = 0; lines < 62; ++lines) {
        Document d;
        for (int i = 0; i < lines; ++i) {
            d.Say("A line of text.");
        }
        TextTable table{.columns = {{"Title"}}, .caption = "Caption"};
        for (int row = 0; row < kRows; ++row) {
            table.rows.push_back({"row"});
        }
        d.Add(std::move(table));
        const LaidOut laid = LayOut(d);
        std::ptrdiff_t all = 0;
        for (const Drawing& page : laid.pages) {
            const auto rows =
                std::count_if(page.marks.begin(), page.marks.end(), [](const Mark& m) {
                    const auto* const text = std::get_if<TextMark>(&m);
                    return text != nullptr && text->text == "row";
                });
            EXPECT_NE(rows, 1) << lines;
            all += rows;
        }
        EXPECT_EQ(all, kRows);
    }
}

// A table of one text in so many words.
TextTable TableOfWords(const std::string& title, int words)
{
    std::string text;
    for (int i = 0; i < words; ++i) {
        text += "word ";
    }
    return {.columns = {{title}}, .rows = {{text}}};
}

// The second of two tables begins where the first does.
bool StandBeside(const TextTable& first, const TextTable& second)
{
    Document d;
    d.Add(first);
    d.Add(second);
    const LaidOut laid = LayOut(d);
    double heights[2] = {};
    for (const auto& mark : laid.pages.front().marks) {
        if (const auto* const text = std::get_if<TextMark>(&mark)) {
            heights[0] = text->text == "First" ? text->at.y : heights[0];
            heights[1] = text->text == "Second" ? text->at.y : heights[1];
        }
    }
    EXPECT_GT(std::min(heights[0], heights[1]), 0);
    return heights[0] == heights[1];
}

// A table that lacks some width breaks its texts to stand beside another; one that lacks much does
// not.
TEST(PageLayout, ATableGivesWayALittleToStandBesideAnother)
{
    constexpr double kPage = 176, kBetween = 6, kWide = 1000;
    const TextTable first = TableOfWords("First", 8);
    const double room = kPage - kBetween - LayOutTable(first, kWide, '.').Width();
    int narrowed = 0;
    for (int words = 1; words < 40; ++words) {
        const TextTable second = TableOfWords("Second", words);
        const double lacks = LayOutTable(second, kWide, '.').Width() / room - 1;
        EXPECT_EQ(StandBeside(first, second), lacks < 0.1 / 0.9) << words;
        narrowed += lacks > 0 && lacks < 0.1 / 0.9 ? 1 : 0;
    }
    EXPECT_GT(narrowed, 0);
}

// One long text among many short ones is broken for that; many long ones, or numbers, are not.
TEST(PageLayout, ATableBreaksOneLongTextToStandBesideAnother)
{
    const TextTable first = TableOfWords("First", 14);
    const auto second = [](int long_ones) {
        TextTable table{.columns = {{"Second"}}};
        for (int row = 0; row < 20; ++row) {
            table.rows.push_back({row < long_ones ? "a text that is broken where it has no room "
                                                    "beside what stands at the left of it"
                                                  : "short"});
        }
        return table;
    };
    EXPECT_TRUE(StandBeside(first, second(0)));
    EXPECT_TRUE(StandBeside(first, second(1)));
    EXPECT_FALSE(StandBeside(first, second(9)));
}

// 1192 over two lines would be read as 119 and 2.
TEST(PageLayout, ATableDoesNotBreakNumbersToStandBesideAnother)
{
    constexpr double kPage = 176, kBetween = 6, kWide = 1000;
    const TextTable first = TableOfWords("First", 8);
    const double room = kPage - kBetween - LayOutTable(first, kWide, '.').Width();
    TextTable numbers{.columns = {{"Second"}}};
    numbers.rows.push_back({"My"});
    while (LayOutTable(numbers, kWide, '.').Width() <= room) {
        EXPECT_TRUE(StandBeside(first, numbers));
        numbers.columns.push_back({"0.1", true});
        numbers.rows[0].push_back("1192");
    }
    EXPECT_FALSE(StandBeside(first, numbers));
}

TEST(PageLayout, EachPageHasItsNumber)
{
    const LaidOut laid = LayOut(LongDocument(1));
    for (std::size_t i = 0; i < laid.pages.size(); ++i) {
        const std::string number =
            "page " + std::to_string(i + 1) + " of " + std::to_string(laid.pages.size());
        bool found = false;
        for (const Mark& mark : laid.pages[i].marks) {
            const auto* const text = std::get_if<TextMark>(&mark);
            found = found || (text != nullptr && text->text == number);
        }
        EXPECT_TRUE(found) << number;
    }
}

TEST(PageLayout, TheContentsLeadToTheMembers)
{
    const LaidOut laid = LayOut(LongDocument(3));
    ASSERT_EQ(laid.links.size(), 3U);
    std::vector<std::size_t> pages;
    for (const PlacedHeading& heading : laid.headings) {
        if (heading.level == 1) {
            pages.push_back(heading.page);
        }
    }
    ASSERT_EQ(pages.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(laid.links[i].page, 0U);
        EXPECT_EQ(laid.links[i].member, i + 1);
        EXPECT_GT(pages[i], i == 0 ? 0 : pages[i - 1]);
        const std::string number = std::to_string(pages[i] + 1);
        bool found = false;
        for (const Mark& mark : laid.pages[0].marks) {
            const auto* const text = std::get_if<TextMark>(&mark);
            found = found ||
                    (text != nullptr && text->text == number && text->at.y > laid.links[i].at.top &&
                     text->at.y < laid.links[i].at.bottom);
        }
        EXPECT_TRUE(found) << number;
    }
}

TEST(WrapLine, DoesNotBreakBesideAnEqualsSign)
{
    for (double width = 8; width < 40; ++width) {
        for (const Line& line :
             WrapLine(Line("at x/L = ") + NumberLine(0.5) + Line(", y = 3"), 3, width, '.')) {
            const std::string text = PlainText(line);
            EXPECT_FALSE(text.starts_with('=') || text.ends_with("= ")) << text;
        }
    }
    EXPECT_EQ(WithFixedBlanks("at x/L = 0.5"), "at x/L\xC2\xA0=\xC2\xA0"
                                               "0.5");
}

TEST(WrapLine, KeepsEveryLetterAndTheWidth)
{
    const std::string text = "one two three " + std::string(80, 'M') + " four";
    std::string all;
    for (const Line& line : WrapLine(text, 3, 40, '.')) {
        EXPECT_LE(TextWidth(PlainText(line), 3), 40 + TextWidth(" ", 3));
        all += PlainText(line);
    }
    EXPECT_EQ(all, text);
}

// The check value of CRC-32 in the catalogue of parametrised CRC algorithms.
TEST(Zip, HasTheChecksumOfThePublishedExample)
{
    EXPECT_EQ(Crc32("123456789"), 0xCBF43926U);
}

// APPNOTE 4.3: headers of files, directory and its end, each with its signature.
TEST(Zip, HoldsItsFilesAsTheyAre)
{
    ZipWriter zip;
    zip.Add("mimetype", "application/x");
    zip.Add("a/b.xml", "<a/>");
    const std::string bytes = zip.Take();
    EXPECT_EQ(bytes.substr(0, 4), "PK\x03\x04");
    EXPECT_EQ(bytes.substr(30, 21), "mimetypeapplication/x");
    const std::size_t end = bytes.find("PK\x05\x06");
    ASSERT_EQ(end + 22, bytes.size());
    EXPECT_EQ(bytes[end + 10], 2);  // files
    const std::size_t directory = bytes.find("PK\x01\x02");
    EXPECT_EQ(static_cast<unsigned char>(bytes[end + 16]), directory);
}

TEST(Odt, HoldsTextFormulasAndPagesOfTheDocument)
{
    const std::string bytes = WriteOdt(LongDocument(1));
    EXPECT_EQ(bytes.substr(30, 47), "mimetypeapplication/vnd.oasis.opendocument.text");
    EXPECT_NE(bytes.find("Formula1/content.xml"), std::string::npos);
    EXPECT_NE(bytes.find("<text:page-count/>"), std::string::npos);
    EXPECT_NE(bytes.find("text:outline-level=\"2\">Chapter</text:h>"), std::string::npos);
}

// A table of a few rows stands on one page, a long one has its titles on each; no row is cut.
TEST(Odt, KeepsShortTablesWhole)
{
    Document d;
    d.Add(TextTable{.columns = {{"Short"}, {"x", true}}, .rows = {{"row", "1"}, {"row", "2"}}});
    const std::string whole = "style:may-break-between-rows=\"false\"";
    std::string bytes = WriteOdt(d);
    EXPECT_NE(bytes.find(whole), std::string::npos);
    EXPECT_NE(bytes.find("<text:p text:style-name=\"TitleRight\">x</text:p>"), std::string::npos);
    EXPECT_NE(bytes.find("<text:p text:style-name=\"Right\">1</text:p>"), std::string::npos);
    EXPECT_NE(bytes.find("<table:table-row table:style-name=\"Rows\">"), std::string::npos);
    TextTable rows{.columns = {{"Long"}}};
    rows.rows.assign(60, {"row"});
    d.blocks.clear();
    d.Add(std::move(rows));
    bytes = WriteOdt(d);
    EXPECT_EQ(bytes.find(whole), std::string::npos) << "it would leave the page";
}

TEST(Odt, KeepsATextWithWhatItLeadsTo)
{
    Document d;
    d.Say("ends", Paragraph::Kind::remark);
    d.Chapter("Chapter");
    d.Say("leads", Paragraph::Kind::remark);
    d.Say("says");
    d.Say("heads");
    d.Add("c", 1, "mm", "6.2.3");
    const std::string bytes = WriteOdt(d);
    EXPECT_NE(bytes.find("\"Remark\">ends<"), std::string::npos);
    EXPECT_NE(bytes.find("\"RemarkLeading\">leads<"), std::string::npos);
    EXPECT_NE(bytes.find("\"Standard\">says<"), std::string::npos);
    EXPECT_NE(bytes.find("\"StandardLeading\">heads<"), std::string::npos);
    EXPECT_NE(bytes.find("style:name=\"RemarkLeading\""), std::string::npos) << "no such style";
}

TEST(Office, ReadsItsLines)
{
    Office office;
    EXPECT_FALSE(
        ReadOffice("# ours\r\n\r\n company = Hansen & Co \r\ndecimal=comma\nauthor=J. H.", office));
    EXPECT_EQ(office.company, "Hansen & Co");
    EXPECT_EQ(office.author, "J. H.");
    DocumentHead head;
    EXPECT_EQ(HeadOf(office, head), "");
    EXPECT_EQ(head.decimal, ',');
    // It is written as it is read.
    EXPECT_EQ(OfficeText(office), "company = Hansen & Co\nauthor = J. H.\ndecimal = comma\n");
}

TEST(Office, AFaultNamesLineAndField)
{
    Office office;
    const auto unknown = ReadOffice("company=A\nauthro=B\n", office);
    ASSERT_TRUE(unknown);
    EXPECT_EQ(unknown->line, 2);
    EXPECT_NE(unknown->what.find("authro"), std::string::npos);
    const auto sign = ReadOffice("\n\ndecimal=;\n", office);
    ASSERT_TRUE(sign);
    EXPECT_EQ(sign->line, 3);
    EXPECT_NE(sign->what.find("decimal"), std::string::npos);
    EXPECT_EQ(ReadOffice("company\n", office)->line, 1);
}

TEST(Office, ALogoIsPngOrSvg)
{
    Logo logo;
    EXPECT_EQ(ReadLogo("GIF89a", logo), "neither PNG nor SVG");
    EXPECT_EQ(ReadLogo("\x89PNG\r\n\x1a\n", logo), "neither PNG nor SVG") << "cut off";
    EXPECT_EQ(ReadLogo("<svg xmlns='http://www.w3.org/2000/svg'/>", logo), "");
    EXPECT_TRUE(logo.svg);
    EXPECT_EQ(ReadLogo("<svg viewBox=\"0 0 60,20\"/>", logo), "");
    EXPECT_EQ(logo.width, 60);
    EXPECT_EQ(logo.height, 20);
}

TEST(Office, TheLogoIsInTheHeadOfEachPage)
{
    Document document = LongDocument(1);
    document.head.logo = {"<svg viewBox=\"0 0 60 20\"/>", true, 60, 20};
    const LaidOut laid = LayOut(document);
    for (const Drawing& page : laid.pages) {
        ASSERT_EQ(page.pictures.size(), 1U);
        EXPECT_TRUE(page.pictures.front().svg);
    }
    const std::string odt = WriteOdt(document);
    EXPECT_NE(odt.find("Pictures/logo.svg"), std::string::npos);
    EXPECT_NE(odt.find("xlink:href=\"Pictures/logo.svg\""), std::string::npos);
    EXPECT_NE(odt.find("svg:width=\"36mm\" svg:height=\"12mm\""), std::string::npos);
}

}  // namespace
}  // namespace kestrum
