#include "app/view_report.h"

#include "app/member_commands.h"
#include "app/section_commands.h"
#include "app/session_fixture.h"

#include <algorithm>

namespace kestrum {
namespace {

bool Shows(const std::vector<Drawing>& pages, std::string_view text)
{
    return std::any_of(pages.begin(), pages.end(), [&](const Drawing& page) {
        return std::any_of(page.marks.begin(), page.marks.end(), [&](const auto& item) {
            const auto* const written = std::get_if<TextMark>(&item);
            return written != nullptr && written->text.find(text) != std::string::npos;
        });
    });
}

TEST(PrintReport, SendsOnePageToTheDialogAndKeepsTheProject)
{
    for (const Report report : {Report::properties, Report::control}) {
        Program program;
        const bool ran = program.Calculates([&] { PrintReport(program.session, report); });
        EXPECT_FALSE(ran);
        ASSERT_EQ(program.desk.printed.size(), 1U);
        EXPECT_EQ(program.desk.printed[0].size(), 1U);
        EXPECT_TRUE(program.Told().empty());  // cancelled: not a word
    }
}

TEST(PrintReport, OfVortexSheddingIsForBoxesAndTubes)
{
    Program program;
    PrintReport(program.session, Report::vortex);
    EXPECT_TRUE(program.desk.printed.empty());
    EXPECT_EQ(program.Told(), Texts{"Only valid for boxes and tubes"});

    ChooseFamily(program.session, 31);
    const float frequency = program.state().freq[1];
    PrintReport(program.session, Report::vortex);
    EXPECT_EQ(program.desk.printed.size(), 1U);
    EXPECT_TRUE(program.Told().empty());
    EXPECT_EQ(program.state().freq[1], frequency);  // printing changes nothing
}

TEST(ReportPages, ShowTheTextsOfTheProjectAsTheyStandNow)
{
    Program program;
    SetProjectName(program.session, "Hall north");
    SetIdent(program.session, "Column B7");
    program.edit().filename = "hall.kst";
    const std::vector<Drawing> pages = ReportPages(program.session, Report::properties);
    EXPECT_TRUE(Shows(pages, "Hall north"));
    EXPECT_TRUE(Shows(pages, "Column B7"));
    EXPECT_TRUE(Shows(pages, "hall.kst"));
    EXPECT_TRUE(Shows(pages, "2024-05-17"));
    EXPECT_TRUE(Shows(pages, "14:05"));
}

// Support and terrain are chosen without a pass. vm = 25*0.2343*ln(10) = 13.5 m/s in category IV at
// 10 m, kr = 0.19 (1/0.05)^0.07 = 0.2343; 25.2 m/s in category II.
TEST(ReportPages, OfVortexSheddingShowSupportAndWindAsTheyStandNow)
{
    Program program;
    ChooseFamily(program.session, 31);
    ASSERT_TRUE(OpenVortex(program.session));
    EXPECT_TRUE(Shows(ReportPages(program.session, Report::vortex), "25.2"));
    ChooseVortexSupport(program.session, 3);
    ChooseTerrain(program.session, 4);
    const std::vector<Drawing> pages = ReportPages(program.session, Report::vortex);
    EXPECT_TRUE(Shows(pages, "cantilever"));
    EXPECT_TRUE(Shows(pages, "IV"));
    EXPECT_TRUE(Shows(pages, "13.5"));
    EXPECT_FALSE(Shows(pages, "25.2"));
}

TEST(ReportPages, AfterAFailedPassShowTheLastGoodResult)
{
    Program program;
    const std::vector<Drawing> before = ReportPages(program.session, Report::control);
    program.Type("Loading", "inn", "100000");
    ASSERT_TRUE(program.session.failed());
    const std::vector<Drawing> after = ReportPages(program.session, Report::control);
    EXPECT_TRUE(Shows(before, "100.0"));
    EXPECT_TRUE(Shows(after, "100.0"));
    EXPECT_FALSE(Shows(after, "100000"));
}

TEST(ReportName, TellsTheReportsApart)
{
    EXPECT_EQ(ReportName(0), "Section property and capacity");
    EXPECT_EQ(ReportName(1), "Section and stability control");
    EXPECT_EQ(ReportName(2), "Vortex shedding");
}

}  // namespace
}  // namespace kestrum
