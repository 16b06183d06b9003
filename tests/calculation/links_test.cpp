// Links, bookmarks and parts of a book in all forms: what is referred to is there.

#include "calculation/calculation_report.h"
#include "document/html_writer.h"
#include "document/odt_writer.h"
#include "document/page_layout.h"
#include "support/members.h"

#include <gmock/gmock.h>

#include <array>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace kestrum {
namespace {

using testing::Each;
using testing::SizeIs;

// Texts between `before` and the next quotation mark.
std::vector<std::string> Quoted(const std::string& text, const std::string& before)
{
    std::vector<std::string> all;
    for (std::size_t at = 0; (at = text.find(before, at)) != std::string::npos;) {
        at += before.size();
        all.push_back(text.substr(at, text.find('"', at) - at));
    }
    return all;
}

std::set<std::string> SetOf(const std::vector<std::string>& texts)
{
    return {texts.begin(), texts.end()};
}

// A slender welded girder, a column and an angle: figures, pictures, tables, formulas of all kinds.
Document Book()
{
    const std::string steel = "annexcode=EU fykindex=2 e=210000 gammam0=1 gammam1=1 neta=1.2 "
                              "deflimity=300 deflimitz=300 loadmode=1 ";
    const std::array<ReportedMember, 3> members{
        ReportedMember{.file = "a.kst",
                       .project = Member(steel + "family=1 row.hea=6 l=5 "
                                                 "nload[1]=150 qload[1]=8 ltb=1")},
        ReportedMember{.file = "b & <c>.kst",
                       .project = Member(steel + "family=4 row.ipe=10 l=8 qload[1]=9 ltb=1")},
        ReportedMember{.file = "c.kst",
                       .project = Member(steel + "family=10 row.l1=50 l=2 nload[1]=20")}};
    return CalculationReport(Delivered(), members);
}

TEST(Links, OfHtmlLeadToTargetsThatExist)
{
    const std::string html = WriteHtml(Book());
    const std::vector<std::string> ids = Quoted(html, " id=\"");
    const std::set<std::string> targets = SetOf(ids);
    EXPECT_EQ(targets.size(), ids.size()) << "an id stands twice";
    const std::vector<std::string> links = Quoted(html, "href=\"");
    EXPECT_GT(links.size(), 20U);
    for (const std::string& link : links) {
        ASSERT_TRUE(link.starts_with('#')) << link << " leaves the file";
        EXPECT_TRUE(targets.contains(link.substr(1))) << link;
    }
    EXPECT_THAT(Quoted(html, "src=\""), Each(testing::StartsWith("data:")));
}

TEST(Links, OfPagesLeadToTheirHeadings)
{
    const LaidOut laid = LayOut(Book());
    ASSERT_FALSE(laid.headings.empty());
    std::vector<PlacedHeading> members;
    std::size_t page = 0;
    for (const PlacedHeading& heading : laid.headings) {
        EXPECT_LT(heading.page, laid.pages.size()) << heading.text;
        EXPECT_GE(heading.page, page) << heading.text << " stands before the one above it";
        EXPECT_GT(heading.y, 0);
        EXPECT_LT(heading.y, 297);
        page = heading.page;
        if (heading.level == 1) {
            members.push_back(heading);
        }
    }
    EXPECT_THAT(members, SizeIs(3));
    ASSERT_THAT(laid.links, SizeIs(3));
    std::set<std::size_t> led;
    for (const PlacedLink& link : laid.links) {
        ASSERT_GE(link.member, 1U);
        ASSERT_LE(link.member, members.size());
        EXPECT_LT(link.page, laid.pages.size());
        EXPECT_GT(link.at.right, link.at.left);
        led.insert(link.member);
        // The number that the list of contents prints is that of the page.
        const std::string number = std::to_string(members[link.member - 1].page + 1);
        bool printed = false;
        for (const Mark& mark : laid.pages[link.page].marks) {
            const auto* const text = std::get_if<TextMark>(&mark);
            printed = printed || (text != nullptr && text->at.y > link.at.top &&
                                  text->at.y < link.at.bottom + 1 && text->text == number);
        }
        EXPECT_TRUE(printed) << "page " << number << " of member " << link.member;
    }
    EXPECT_THAT(led, SizeIs(3));
}

// The archive is not compressed, so that its parts can be read in place.
TEST(Links, OfOpenDocumentLeadToBookmarksAndParts)
{
    const std::string odt = WriteOdt(Book());
    const std::set<std::string> bookmarks = SetOf(Quoted(odt, "<text:bookmark text:name=\""));
    EXPECT_THAT(bookmarks, SizeIs(3));
    EXPECT_EQ(SetOf(Quoted(odt, "text:ref-name=\"")), bookmarks);
    const std::set<std::string> parts = SetOf(Quoted(odt, "manifest:full-path=\""));
    std::size_t embedded = 0;
    for (std::string link : Quoted(odt, "xlink:href=\"")) {
        if (link.starts_with('#')) {
            EXPECT_TRUE(bookmarks.contains(link.substr(1))) << link;
            continue;
        }
        ++embedded;
        link = link.starts_with("./") ? link.substr(2) + "/" : link;
        EXPECT_TRUE(parts.contains(link)) << link;
    }
    EXPECT_GT(embedded, 50U);
}

}  // namespace
}  // namespace kestrum
