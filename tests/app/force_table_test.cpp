#include "app/force_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace kestrum {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

std::string Refusal(const std::string& header, const ForceManner& manner = {})
{
    return ForceColumns().TakeHeader(header, manner);
}

struct Read {
    std::string fault, member, load_case;
    Station at;
};

Read Row(const std::string& header, const std::string& record, const ForceManner& manner = {})
{
    ForceColumns columns;
    EXPECT_EQ(columns.TakeHeader(header, manner), "");
    ForceRow row;
    Read read;
    read.fault = columns.Parse(record, row);
    read.member = row.member;
    read.load_case = row.load_case;
    read.at = row.at;
    std::string_view member, load_case;
    columns.Keys(record, member, load_case);
    EXPECT_EQ(member, read.member);
    EXPECT_EQ(load_case, read.load_case);
    return read;
}

constexpr const char* kPlain = "member,case,x,N,Vy,Vz,My,Mz";

TEST(ForceTable, TakesColumnsInAnyOrderWhateverTheirCapitals)
{
    const Read plain = Row(kPlain, "B1,U1,0.5,1,2,3,4,5");
    EXPECT_EQ(plain.fault, "");
    EXPECT_EQ(plain.member, "B1");
    EXPECT_EQ(plain.load_case, "U1");
    EXPECT_EQ(plain.at.x, 0.5);
    EXPECT_EQ(plain.at.n, 1);
    EXPECT_EQ(plain.at.vy, 2);
    EXPECT_EQ(plain.at.vz, 3);
    EXPECT_EQ(plain.at.my, 4);
    EXPECT_EQ(plain.at.mz, 5);
    const Read mixed = Row("MY;mz;foo;X;Case;n;Member;Vz;Vy;Mx", "4;-5;?;0,5;U1;1;B1;3;2;6e-1");
    EXPECT_EQ(mixed.fault, "");
    EXPECT_EQ(mixed.at.x, 0.5);
    EXPECT_EQ(mixed.at.mz, -5);
    EXPECT_EQ(mixed.at.mx, 0.6);
    EXPECT_EQ(mixed.member, "B1");
}

TEST(ForceTable, TakesUnitsFromTheHeads)
{
    const Read read = Row("member,case,x [mm],N (N),Vy [MN],Vz [kN],My [kN*m],Mz [Nmm]",
                          "a,b,1500,2500,0.001,4,5,6000000");
    EXPECT_DOUBLE_EQ(read.at.x, 1.5);
    EXPECT_DOUBLE_EQ(read.at.n, 2.5);
    EXPECT_DOUBLE_EQ(read.at.vy, 1);
    EXPECT_DOUBLE_EQ(read.at.vz, 4);
    EXPECT_DOUBLE_EQ(read.at.my, 5);
    EXPECT_DOUBLE_EQ(read.at.mz, 6);
    EXPECT_EQ(Refusal("member,case,x,N [kip]"),
              "column \"N [kip]\": the unit \"kip\" is not known (kN, N, MN)");
    EXPECT_THAT(Refusal("member,case,x [ft],N"), HasSubstr("\"ft\""));
    EXPECT_THAT(Refusal("member,case,x,My [kN]"), HasSubstr("\"kN\" is not known"));
}

TEST(ForceTable, TakesSignsAndAxesOfOthers)
{
    ForceManner manner;
    manner.tensionpositive = true;
    manner.swapaxes = true;
    const Read read = Row(kPlain, "a,b,0,1,2,3,4,5", manner);
    EXPECT_EQ(read.at.n, -1);
    EXPECT_EQ(read.at.vz, 2);
    EXPECT_EQ(read.at.vy, 3);
    EXPECT_EQ(read.at.mz, 4);
    EXPECT_EQ(read.at.my, 5);
}

TEST(ForceTable, MapsNamesOfOthers)
{
    ForceManner manner;
    manner.names = {{"Stab", "member"}, {"LF", "case"}, {"P", "N"}};
    const Read read = Row("Stab,LF,x,P [kN],N", "s,l,1,7,9", manner);
    EXPECT_EQ(read.member, "s");
    EXPECT_EQ(read.at.n, 7);  // the mapped one, not the other
    manner.names.emplace_back("Q", "Vz");
    EXPECT_EQ(Refusal("Stab,LF,x,P", manner), "--map Q=Vz: there is no such column");
    manner.names.back() = {"x", "force"};
    EXPECT_THAT(Refusal("Stab,LF,x,P", manner), HasSubstr("ours are member, case, x, N"));
}

TEST(ForceTable, KnowsTheResultsOfTheStructuralAnalysisFormat)
{
    const std::string header = "Result on,Member,Member Rib,Result for,Load case,Load combination,"
                               "Combination key,Section at [m],Index,N [kN],Vy [kN],Vz [kN],"
                               "Mx [kNm],My [kNm],Mz [kNm]";
    const Read combined =
        Row(header, "On beam,B1,,Load combination,,ULS1,1.35*G,0.6,2,-5,1,2,3,4,5");
    EXPECT_EQ(combined.fault, "");
    EXPECT_EQ(combined.member, "B1");
    EXPECT_EQ(combined.load_case, "ULS1");
    EXPECT_EQ(combined.at.x, 0.6);
    EXPECT_EQ(combined.at.n, 5);  // tension positive there
    EXPECT_EQ(combined.at.mx, 3);
    EXPECT_EQ(Row(header, "On beam,B1,,Load case,LC1,,,0,1,0,0,0,0,0,0").load_case, "LC1");
    EXPECT_EQ(Row(header, "On beam,\"B\"\"1\",,x,LC1,,,0,1,0,0,0,0,0,0").member, "B\"1");
}

TEST(ForceTable, RefusesHeadersThatSayTooLittleOrTooMuch)
{
    EXPECT_EQ(Refusal(""), "expected the names of the columns");
    EXPECT_THAT(Refusal("case,x,N"), HasSubstr("no column member"));
    EXPECT_THAT(Refusal("member,x,N"), HasSubstr("no column case"));
    EXPECT_THAT(Refusal("member,case,N"), HasSubstr("no column x"));
    EXPECT_THAT(Refusal("member,case,x"), HasSubstr("no column of forces"));
    EXPECT_EQ(Refusal("member,case,x,N,Nx"),
              "columns \"N\" and \"Nx\" say the same; --map THEIRS=OURS chooses");
    ForceColumns columns;
    EXPECT_EQ(columns.TakeHeader("member,case,x,My,weather", {}), "");
    EXPECT_THAT(columns.missing(), ElementsAre("N", "Vy", "Vz", "Mz"));
    EXPECT_THAT(columns.unused(), ElementsAre("weather"));
}

TEST(ForceTable, RefusesCellsThatAreNoNumbers)
{
    EXPECT_EQ(Row(kPlain, "a,b,0,1,2,x,4,5").fault, "Vz: \"x\" is no number");
    EXPECT_EQ(Row(kPlain, "a,b,0,1,2,,4,5").fault, "Vz: \"\" is empty");
    EXPECT_EQ(Row(kPlain, "a,b,0,1,2,nan,4,5").fault, "Vz: \"nan\" is no number");
    EXPECT_EQ(Row(kPlain, "a,b,0,1,2,inf,4,5").fault, "Vz: \"inf\" is no number");
    EXPECT_EQ(Row(kPlain, "a,b,0,1,2,1e999,4,5").fault, "Vz: \"1e999\" is no number");
    EXPECT_EQ(Row(kPlain, "a,b,0,1,2,3 kN,4,5").fault, "Vz: \"3 kN\" is no number");
    EXPECT_EQ(Row(kPlain, "a,b,0,1,2,a text of some length,x,5").fault,
              "Vz: \"a text of some length\" is no number");  // the first of several
    EXPECT_EQ(Row(kPlain, "a,b,0,1,2,3,4").fault, "fewer cells than columns");
    EXPECT_EQ(Row(kPlain, "a,b,0,1,2,3,4,5,6").fault, "more cells than columns");
    EXPECT_EQ(Row(kPlain, "a,,0,1,2,3,4,5").fault, "no case");
    EXPECT_EQ(Row(kPlain, ",b,0,1,2,3,4,5").fault, "no member");
    EXPECT_EQ(Row(kPlain, "a,b,0,1,2,\"3,4,5").fault, "a quote is not closed");
    EXPECT_EQ(Row(kPlain, "a,b,+0.5,1,2, 3 ,4,5").fault, "");
}

TEST(ForceTable, KeysMayHoldQuotesAndLineEnds)
{
    const Read read = Row(kPlain, "\"a \"\"1\"\"\nb\",\"c,d\",0,1,2,3,4,5");
    EXPECT_EQ(read.member, "a \"1\"\nb");
    EXPECT_EQ(read.load_case, "c,d");
    EXPECT_EQ(read.at.mz, 5);
}

}  // namespace
}  // namespace kestrum
