#include "report/drawing.h"
#include "report/svg_writer.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

// Liberation Sans, hmtx table: H 1479, a 1139, l 455 units of 2048 per em; bold H 1479, a 1139, l
// 569.
TEST(TextWidth, SumsTheFontsAdvanceWidths)
{
    EXPECT_NEAR(TextWidth("Hal", 2048), 1479 + 1139 + 455, 1e-9);
    EXPECT_NEAR(TextWidth("Hal", 2048, true), 1479 + 1139 + 569, 1e-9);
    EXPECT_NEAR(TextWidth("Hal", 1.0), (1479 + 1139 + 455) / 2048.0, 1e-12);
    EXPECT_EQ(TextWidth("", 10), 0);
}

TEST(TextWidth, CountsAMultiByteCharacterOnce)
{
    EXPECT_NEAR(TextWidth("\xC3\xA5", 2048), TextWidth("a", 2048),
                1e-9);                        // a with ring is as wide as a
    EXPECT_GT(TextWidth("\xFF\xC3", 10), 0);  // broken UTF-8 still has a width
}

TEST(BoundsOf, FollowsTheAlignmentOfAText)
{
    TextMark text{{100, 50}, "Hal", 10};
    const double width = TextWidth("Hal", 10);
    EXPECT_NEAR(BoundsOf(text).left, 100, 1e-9);
    text.align = Align::right;
    EXPECT_NEAR(BoundsOf(text).right, 100, 1e-9);
    text.align = Align::centre;
    EXPECT_NEAR(BoundsOf(text).left, 100 - width / 2, 1e-9);
    EXPECT_LT(BoundsOf(text).top, 50);
    EXPECT_GT(BoundsOf(text).bottom, 50);
}

TEST(BoundsOf, TurnsWithTheText)
{
    TextMark text{{0, 0}, "Hal", 10};
    text.angle = 90;  // upwards
    const Bounds box = BoundsOf(text);
    EXPECT_NEAR(box.top, -TextWidth("Hal", 10), 1e-9);
    EXPECT_NEAR(box.bottom, 0, 1e-9);
}

TEST(BoundsOf, CoversAllMarksOfADrawing)
{
    Drawing drawing{20, 10, "t", {}};
    drawing.marks.push_back(LineMark{{1, 2}, {3, 4}});
    drawing.marks.push_back(CircleMark{{10, 5}, 2});
    const Bounds box = BoundsOf(drawing);
    EXPECT_DOUBLE_EQ(box.left, 1);
    EXPECT_DOUBLE_EQ(box.right, 12);
    EXPECT_DOUBLE_EQ(box.top, 2);
    EXPECT_DOUBLE_EQ(box.bottom, 7);
    EXPECT_TRUE(BoundsOf(Drawing{}).Empty());
}

TEST(Bounds, TouchingBoxesDoNotOverlap)
{
    const Bounds a{0, 0, 1, 1};
    EXPECT_FALSE(a.Overlaps({1, 0, 2, 1}));
    EXPECT_TRUE(a.Overlaps({0.9, 0.9, 2, 2}));
    EXPECT_FALSE(a.Overlaps({}));
    EXPECT_TRUE(a.Inside({0, 0, 1, 1}));
    EXPECT_FALSE(a.Inside({0, 0, 0.9, 1}));
}

TEST(Place, ScalesCoordinatesSizesAndWidths)
{
    Drawing part{10, 10, "", {}};
    part.marks.push_back(LineMark{{1, 1}, {2, 3}, Ink::load, 0.5});
    part.marks.push_back(TextMark{{1, 1}, "x", 4});
    Drawing page{100, 100, "", {}};
    Place(page, part, {10, 20}, 2);
    const auto& line = std::get<LineMark>(page.marks.at(0));
    EXPECT_EQ(line.from, (Point{12, 22}));
    EXPECT_EQ(line.to, (Point{14, 26}));
    EXPECT_DOUBLE_EQ(line.width, 1.0);
    EXPECT_DOUBLE_EQ(std::get<TextMark>(page.marks.at(1)).size, 8);
}

TEST(WriteSvg, WritesEveryKindOfMark)
{
    Drawing drawing{20, 10, "A & B", {}};
    drawing.marks.push_back(LineMark{{0, 0}, {20, 10}, Ink::load, 0.25, true});
    drawing.marks.push_back(PolygonMark{{{{0, 0}, {1, 0}, {1, 1}}}});
    drawing.marks.push_back(PolylineMark{{{0, 0}, {2.12345, 1}}});
    drawing.marks.push_back(CircleMark{{5, 5}, 1});
    TextMark text{{3, 4}, "5 < 6", 2};
    text.bold = true;
    text.align = Align::right;
    drawing.marks.push_back(text);
    const std::string svg = WriteSvg(drawing, 10);
    for (const char* piece :
         {"width=\"200\" height=\"100\" viewBox=\"0 0 20 10\"", "<title>A &amp; B</title>",
          "<line x1=\"0\" y1=\"0\" x2=\"20\" y2=\"10\" stroke=\"#0b4fb3\" stroke-width=\"0.25\" "
          "stroke-dasharray",
          "M0 0L1 0L1 1Z", "L2.123 1", "<circle cx=\"5\" cy=\"5\" r=\"1\"", "5 &lt; 6",
          "text-anchor=\"end\"", "font-weight=\"bold\"", "</svg>\n"}) {
        EXPECT_NE(svg.find(piece), std::string::npos) << piece << "\nin\n" << svg;
    }
}

TEST(WriteSvg, KeepsControlCharactersOutOfTheDocument)
{
    Drawing drawing{1, 1, "a\x01\"b", {}};
    const std::string svg = WriteSvg(drawing);
    EXPECT_NE(svg.find("<title>a &quot;b</title>"), std::string::npos);
}

TEST(Stacked, PutsEveryPageBelowTheOneBefore)
{
    Drawing first{100, 50, "first", {TextMark{{1, 2}, "a"}}};
    Drawing second{120, 30, "second", {TextMark{{3, 4}, "b"}}};
    const Drawing stack = Stacked({first, second});
    EXPECT_EQ(stack.width, 120);
    EXPECT_EQ(stack.height, 80);
    EXPECT_EQ(stack.title, "first");
    ASSERT_EQ(stack.marks.size(), 2U);
    EXPECT_EQ(std::get<TextMark>(stack.marks[0]).at, (Point{1, 2}));
    EXPECT_EQ(std::get<TextMark>(stack.marks[1]).at, (Point{3, 54}));
}

}  // namespace
}  // namespace kestrum
