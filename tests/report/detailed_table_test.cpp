#include "report/detailed_table.h"

#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "support/members.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace kestrum {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// An I section under N, My and Mz, Annex A, with lateral torsional buckling.
Member Column()
{
    Member s = Member::Bare();
    s.method = 1;
    s.ltb = 1;
    s.ned = 100;
    s.mydesign = 30;
    s.mzdesign = 3;
    return s;
}

std::vector<std::string> Parameters(const std::vector<DetailedRow>& rows)
{
    std::vector<std::string> names;
    for (const DetailedRow& row : rows) {
        names.push_back(row.parameter);
    }
    return names;
}

DetailedRow Find(const std::vector<DetailedRow>& rows, std::string_view parameter)
{
    const auto at = std::find_if(rows.begin(), rows.end(), [&](const DetailedRow& row) {
        return row.parameter == parameter;
    });
    return at != rows.end() ? *at : DetailedRow{};
}

TEST(DetailedTable, HasAllRowsOfMethodOneInOrder)
{
    EXPECT_THAT(Parameters(FillDetailedResult(Column())),
                ElementsAre(" Moment shape", " My", " My", " Lateral Buckling Factors", " Mcr",
                            " C1", " lamdaLt", " Mcr0", " lamda0", " XLt", " XLtmod", " kc", " f",
                            "  ", " Buckling Factors", " Ncr,y", " lamday", " Xy", " Ncr,z",
                            " lamdaz", " Xz", " NcrT", " NcrTF", " Interaction Factors", " kyy",
                            " kyz", " kzz", " kzy", " Cmy", " Cmy0", " Cmz", " CmLt", " Cyy",
                            " Cyz", " Czy", " Czz", " aLt", " bLt", " cLt", " dLt", " eLt", " npl",
                            " uy", " uz", " wy", " wz", " ey", " Shear area", " Az", " Ay",
                            " Other"));
    EXPECT_THAT(kDetailedColumns, ElementsAre(" Parameter", "Value", "unit", " Reference"));
}

TEST(DetailedTable, MethodTwoLeavesOutTheTermsOfAnnexA)
{
    Member s = Column();
    s.method = 2;
    const std::vector<DetailedRow> rows = FillDetailedResult(s);
    const std::vector<std::string> names = Parameters(rows);
    const auto factors = std::find(names.begin(), names.end(), " kyy");
    ASSERT_NE(factors, names.end());
    EXPECT_THAT(std::vector<std::string>(factors, names.end()),
                ElementsAre(" kyy", " kyz", " kzz", " kzy", " Cmy", " Cmy0", " Cmz", " CmLt",
                            " Shear area", " Az", " Ay", " Other"));
    for (const std::string_view name : {" kyy", " kzy", " Cmy", " CmLt"}) {
        EXPECT_EQ(Find(rows, name).reference, " Method 2");
    }
    // Annex B has neither Cmy,0 nor the slenderness of the uniform moment.
    EXPECT_EQ(Find(rows, " Cmy0").value, "N/A");
    EXPECT_EQ(Find(rows, " Mcr0").value, "N/A");
    EXPECT_EQ(Find(rows, " lamda0").value, "N/A");
}

TEST(DetailedTable, ValuesHaveFormatUnitAndReference)
{
    Member s = Column();
    s.mcr = 736.94e6;  // Nmm
    s.lamlt = 0.7794F;
    s.kyy = 1.0049;
    s.ncrt = 5000.26;
    s.avz = 3725.4;
    const std::vector<DetailedRow> rows = FillDetailedResult(s);
    EXPECT_EQ(Find(rows, " Mcr"),
              (DetailedRow{" Mcr", "736.940", " kNm", "", s.mcr / 1e6, "0.000", false}));
    EXPECT_EQ(Find(rows, " lamdaLt").value, "0.779");
    EXPECT_EQ(Find(rows, " lamdaLt").reference, " Ch 6.3.2");
    EXPECT_EQ(Find(rows, " C1").reference, " (Mcr)");
    EXPECT_EQ(Find(rows, " XLtmod").reference, " Ch 6.3.2.3");
    EXPECT_EQ(Find(rows, " Ncr,y").unit, " kN");
    EXPECT_EQ(Find(rows, " Xz").reference, " Ch 6.3.1.2");
    EXPECT_EQ(Find(rows, " kyy").value, "1.005");
    EXPECT_EQ(Find(rows, " kyy").reference, " Method 1");
    EXPECT_EQ(Find(rows, " NcrT").value, "5000.260");
    EXPECT_EQ(Find(rows, " Az").value, "3725 ");
    EXPECT_EQ(Find(rows, " Az").unit, " mm2");
    const DetailedRow heading = Find(rows, " Interaction Factors");
    EXPECT_TRUE(heading.heading);
    EXPECT_EQ(heading.value + heading.unit + heading.reference, "");
    EXPECT_EQ(rows.back().parameter, " Other");
}

TEST(DetailedTable, ReductionBeforeAndAfterTheFactorF)
{
    Member s = Column();
    s.xlt0 = 0.81;
    s.xlt = 0.84;
    const std::vector<DetailedRow> rows = FillDetailedResult(s);
    EXPECT_EQ(Find(rows, " XLt").value, "0.810");
    EXPECT_EQ(Find(rows, " XLtmod").value, "0.840");
}

TEST(DetailedTable, MomentShapeIsThatOfTheLoads)
{
    Member s = Column();
    s.mycurved = kTrue;
    std::vector<DetailedRow> rows = FillDetailedResult(s);
    EXPECT_EQ(rows[1].value, "q-load");
    EXPECT_EQ(rows[2].value, "Curve");
    s.mycurved = kFalse;
    s.mylinear = kTrue;
    rows = FillDetailedResult(s);
    EXPECT_EQ(rows[1].value, "P-load");
    EXPECT_EQ(rows[2].value, "Line");
    s.loadmode = 0;
    rows = FillDetailedResult(s);
    EXPECT_EQ(rows[1].value, "N/A");
    EXPECT_EQ(rows[2].value, "N/A");
}

TEST(DetailedTable, NoTorsionalFlexuralForceIsNotApplicable)
{
    Member s = Column();
    s.ncrtf = 0;
    EXPECT_EQ(Find(FillDetailedResult(s), " NcrTF").value, "N/A");
    s.ncrtf = 1e25;  // shear centre in the centroid
    EXPECT_EQ(Find(FillDetailedResult(s), " NcrTF").value, "N/A");
    EXPECT_FALSE(Find(FillDetailedResult(s), " NcrTF").number);
    s.ncrtf = 1234.5;
    EXPECT_EQ(Find(FillDetailedResult(s), " NcrTF").value, "1234.500");
}

struct Unused {
    const char* what;
    void (*change)(ProjectState&);
    std::vector<std::string_view> gone, kept;
};

TEST(DetailedTable, ValuesOfAnEarlierMemberAreNotShown)
{
    const Unused cases[] = {
        {"without the lateral control",
         [](ProjectState& s) { s.ltb = 0; },
         {" Mcr", " C1", " lamdaLt"},
         {" XLt", " kc", " Ncr,y", " kyy", " Mcr0"}},
        {"axial force alone",
         [](ProjectState& s) { s.mydesign = s.mzdesign = 0; },
         {" kyy", " Cmy", " npl", " ey", " Mcr0", " lamda0"},
         {" Ncr,y", " Xz"}},
        {"tension",
         [](ProjectState& s) { s.ned = -10; },
         {" kyy", " kzz", " lamda0"},
         {" Mcr", " Ncr,z"}},
        {"bending about one axis",
         [](ProjectState& s) { s.ned = s.mzdesign = 0; },
         {" kyy", " Cmz"},
         {" Mcr", " XLtmod"}},
        {"no buckling about either axis",
         [](ProjectState& s) { s.ly = s.lz = 0; },
         {" kyy", " npl"},
         {" Mcr"}},
        {"a family without stability control",
         [](ProjectState& s) { s.family = 24; },
         {" Mcr", " XLt", " f", " Ncr,y", " NcrT", " kyy"},
         {" Az", " Ay"}},
        {"a flat bar in tension",
         [](ProjectState& s) {
             s.family = 28;
             s.ned = 0;
         },
         {" Mcr", " XLt", " Ncr,y", " kyy"},
         {" Az"}},
        {"a stiffened plate",
         [](ProjectState& s) { s.family = 51; },
         {" Ncr,y", " Xy", " kyy"},
         {" Mcr", " lamdaLt"}},
        {"a hollow section",
         [](ProjectState& s) { s.family = 6; },
         {" Mcr", " lamdaLt", " Mcr0"},
         {" Ncr,y", " kyy", " lamda0"}},
    };
    for (const Unused& unused : cases) {
        SCOPED_TRACE(unused.what);
        Member s = Column();
        s.mcr = s.mcr0 = 5e8;
        s.ncry = s.ncrz = s.ncrt = 500;
        unused.change(s);
        const std::vector<DetailedRow> rows = FillDetailedResult(s);
        for (const std::string_view name : unused.gone) {
            EXPECT_EQ(Find(rows, name).value, "N/A") << name;
        }
        for (const std::string_view name : unused.kept) {
            EXPECT_TRUE(Find(rows, name).number) << name;
        }
    }
}

// Ncr = pi^2 E I/L^2 of the default member, 5 m long.
TEST(DetailedTable, FollowsAPass)
{
    const Member s = Member().Calculated();
    const std::vector<DetailedRow> rows = FillDetailedResult(s);
    const double euler = 9.8696044 * 210000.0 * s.iy / (5000.0 * 5000.0) / 1000;
    ASSERT_TRUE(Find(rows, " Ncr,y").number);
    EXPECT_NEAR(*Find(rows, " Ncr,y").number, euler, 1e-5 * euler);
    EXPECT_EQ(rows[1].value, "q-load");
}

TEST(DetailedTable, CsvQuotesAndEndsLinesAsTheRuleAsks)
{
    Member s = Column();
    s.avz = 3725.4;
    const std::string csv = DetailedCsv(FillDetailedResult(s));
    EXPECT_THAT(csv, StartsWith(" Parameter,Value,unit, Reference\r\n Moment shape,,,\r\n"));
    EXPECT_THAT(csv, HasSubstr("\r\n\" Ncr,y\",0.000, kN, Ch 6.3.1.2\r\n"));
    EXPECT_THAT(csv, HasSubstr("\r\n Az,3725, mm2,\r\n"));
    EXPECT_THAT(csv, ::testing::EndsWith("\r\n Other,,,\r\n"));
    const auto lines = std::count(csv.begin(), csv.end(), '\n');
    EXPECT_EQ(lines, 52);
    DetailedRow row;
    row.parameter = "a \"b\"";
    row.value = "x,y";
    const std::string quoted = DetailedCsv({row});
    EXPECT_THAT(quoted, HasSubstr("\"a \"\"b\"\"\",\"x,y\",,\r\n"));
}

TEST(DetailedTable, TextHasItsValuesInOneColumn)
{
    const std::vector<DetailedRow> rows = FillDetailedResult(Column());
    const std::string text = DetailedText(rows);
    std::vector<std::size_t> ends;
    for (std::size_t at = text.find(" Method 1"); at != std::string::npos;
         at = text.find(" Method 1", at + 1)) {
        ends.push_back(at - text.rfind('\n', at));
    }
    ASSERT_EQ(ends.size(), 23U);
    EXPECT_THAT(ends, Each(ends.front()));
}

TEST(DetailedTable, FailureOfTheTransferHasItsText)
{
    EXPECT_EQ(kSpreadsheetFailure, " Error on tranfere data to Excel ");
}

}  // namespace
}  // namespace kestrum
