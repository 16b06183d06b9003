// New projects and changes of fields through the built program.

#include "cli/run.h"
#include "sections/family_table.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace kestrum {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class Edit : public CommandLine {};

TEST_F(Edit, NewWritesTheDefaultProject)
{
    ASSERT_EQ(Kestrum("new -o a.kst").exit, 0);
    const std::string bytes = Read("a.kst");
    EXPECT_THAT(bytes, StartsWith("131\r\nProject\r\n\r\n\"EU\"\r\n"));
    EXPECT_EQ(Kestrum("new").out, bytes);
    const json state = json::parse(Kestrum("dump a.kst --inputs").out);
    EXPECT_EQ(state["family"], 1);
    EXPECT_EQ(state["row.hea"], 10);
    EXPECT_EQ(state["l"], 5);
    EXPECT_EQ(state["qload"], json::parse("[0, 10, 0, 0, 0]"));
    EXPECT_FALSE(state.contains("ned"));
    EXPECT_FALSE(state.contains("lamdalt0"));
    EXPECT_FALSE(state.contains("rows"));
}

TEST_F(Edit, NewTakesFamilyAndFields)
{
    ASSERT_EQ(
        Kestrum("new -o a.kst --family 22 --set p22.isttw=11 --set projname='North, \"wing\"'")
            .exit,
        0);
    const json state = json::parse(Kestrum("dump a.kst --inputs").out);
    EXPECT_EQ(state["family"], 22);
    EXPECT_EQ(state["p22.isttw"], 11);
    EXPECT_EQ(state["projname"], "North, \"wing\"");
    EXPECT_EQ(Kestrum("new --family 999").exit, 2);
    EXPECT_EQ(Kestrum("new --family 55").exit, 2);
    EXPECT_EQ(Kestrum("new -o b.kst --family 999 --raw").exit, 0);
}

TEST_F(Edit, SetReplacesTheFile)
{
    WriteGood("a.kst");
    EXPECT_EQ(Kestrum("set a.kst qload[2]=12.5 p31.istd=200,5 family=31").exit, 0);
    const json state = json::parse(Kestrum("dump a.kst --inputs").out);
    EXPECT_EQ(state["qload"][2], 12.5);
    EXPECT_EQ(state["p31.istd"], 200.5);
    EXPECT_EQ(Kestrum("set a.kst -o b.kst l=4").exit, 0);
    EXPECT_EQ(json::parse(Kestrum("dump a.kst --inputs").out)["l"], 3);
    EXPECT_EQ(json::parse(Kestrum("dump b.kst --inputs").out)["l"], 4);
}

// Neither fails for the other, and none of their changes is lost.
TEST_F(Edit, TwoAtOnceLoseNothing)
{
    WriteGood("a.kst");
    const Said said = Shell("change() { for i in $(seq 1 $2); do '" KESTRUM_BIN
                            "/kestrum' set a.kst $1[$((i % 3 + 1))]=$i 2>/dev/null ||"
                            " echo failed; done; }\n"
                            "change qload 21 & change nload 21 & wait");
    EXPECT_EQ(said.out, "");
    const json state = json::parse(Kestrum("dump a.kst --inputs").out);
    EXPECT_EQ(state["qload"], json::parse("[0, 21, 19, 20, 0]"));
    EXPECT_EQ(state["nload"], json::parse("[21, 19, 20]"));
}

TEST_F(Edit, SetWritesThroughNoPlantedLink)
{
    WriteGood("a.kst");
    Write("victim", "precious");
    Shell("ln -s victim .a.kst.kestrum-save");
    EXPECT_EQ(Kestrum("set a.kst l=4").exit, 0);
    EXPECT_EQ(Read("victim"), "precious");
    EXPECT_EQ(json::parse(Kestrum("dump a.kst --inputs").out)["l"], 4);
}

TEST_F(Edit, SetTakesAnotherFileForItsResult)
{
    WriteGood("a.kst");
    const std::string before = Read("a.kst");
    EXPECT_EQ(Kestrum("set a.kst -o b.kst l=4").exit, 0);
    EXPECT_EQ(Read("a.kst"), before);
    EXPECT_EQ(json::parse(Kestrum("dump b.kst --inputs").out)["l"], 4);
    EXPECT_EQ(Kestrum("set a.kst -o ./a.kst l=4").exit, 0);
    EXPECT_EQ(Read("a.kst"), Read("b.kst"));
}

TEST_F(Edit, SetRefusesAndLeavesTheFile)
{
    WriteGood("a.kst");
    const std::string before = Read("a.kst");
    const std::pair<const char*, const char*> refused[] = {
        {"l=0.01", " L >= 0.050 "},
        {"l=abc", "Input string mismatch "},
        {"l=", ""},
        {"ned=5", "not an input"},
        {"nothing=1", "no such field"},
        {"qload[0]=1", ""},
        {"qload[5]=1", "no such field"},
        {"qload=1", "no such field"},
        {"family=55", "not in the list"},
        {"l", "NAME=VALUE"},
        {"gammam0=1.6", " 0.5 <= gammam0 <=1.5 "},
        {"row.hea=24", "not in the list"},
        {"lamdalt0=0.3", "not an input"},
        {"annexcode=XX", "no such annex"},
    };
    for (const auto& [assignment, message] : refused) {
        const Said said = Kestrum("set a.kst l=4 '" + std::string(assignment) + "'");
        EXPECT_EQ(said.exit, 2) << assignment;
        EXPECT_THAT(said.err, StartsWith("kestrum: ")) << assignment;
        EXPECT_THAT(said.err, HasSubstr(message)) << assignment;
        EXPECT_EQ(Read("a.kst"), before) << assignment;
    }
}

TEST_F(Edit, SetTellsWhatHasNoEffect)
{
    WriteGood("a.kst");
    const Said said = Kestrum("set a.kst gammam0=1.3");
    EXPECT_EQ(said.exit, 0);
    EXPECT_THAT(said.err, HasSubstr("gammam0: without effect, set by the national annex EU"));
    EXPECT_THAT(Kestrum("set a.kst annexcode=UD gammam0=1.3").err, IsEmpty());
    EXPECT_EQ(json::parse(Kestrum("dump a.kst").out)["gammam0"], 1.3);
}

TEST_F(Edit, SetNamesWhatMayBeMeant)
{
    WriteGood("a.kst");
    EXPECT_EQ(Kestrum("set a.kst famly=4").err,
              "kestrum: famly=4: no such field; did you mean family?\n");
    EXPECT_EQ(Kestrum("set a.kst qload=4").err,
              "kestrum: qload=4: no such field; the list is qload[1] to qload[4]\n");
    EXPECT_EQ(Kestrum("set a.kst row.ipe=99").err, "kestrum: row.ipe=99: not in the list (0 to " +
                                                       std::to_string(RowCount(Table::ipe) - 1) +
                                                       ", see `kestrum sections 4`)\n");
    EXPECT_EQ(Kestrum("set a.kst l=5m").err,
              "kestrum: l=5m: Input string mismatch (a number is expected, in m)\n");
    EXPECT_EQ(Kestrum("set a.kst 'row.ipe=ipe 400' family=4").exit, 0);
    EXPECT_EQ(json::parse(Kestrum("dump a.kst --inputs").out)["row.ipe"], 13);
    EXPECT_EQ(Kestrum("set a.kst ' l = 4'").exit, 0);  // blanks around the equals sign
    EXPECT_EQ(json::parse(Kestrum("dump a.kst --inputs").out)["l"], 4);
    EXPECT_THAT(Kestrum("set a.kst ' =4'").err, HasSubstr("no such field"));
}

TEST_F(Edit, SetTellsWhatItBringsAlong)
{
    WriteGood("a.kst");
    const Said said = Kestrum("set a.kst bucklingcasez=1 webstiff=0");
    EXPECT_EQ(said.exit, 0);
    EXPECT_EQ(said.err, "kestrum: lz: set to 2 as well\nkestrum: webstiffa: set to 3000 as well\n");
    EXPECT_THAT(Kestrum("set a.kst bucklingcasez=3 lz=0.7").err, IsEmpty());
    EXPECT_EQ(Kestrum("set a.kst ne=5").err, "kestrum: loadmode: set to 0 (end forces) as well\n");
}

TEST_F(Edit, TakesNamesForNumbers)
{
    ASSERT_EQ(Kestrum("new -o a.kst --family ipe --set 'section=IPE 300' steel=S355 "
                      "supportcase=cantilever annex=UK method=B qload[1]=4 qtype[1]=Q1")
                  .exit,
              0);
    const json state = json::parse(Kestrum("dump a.kst --inputs").out);
    EXPECT_EQ(state["family"], 4);
    EXPECT_EQ(state["row.ipe"], 10);  // 80, 100 .. 300
    EXPECT_EQ(state["fykindex"], 2);
    EXPECT_EQ(state["supportcase"], 4);
    EXPECT_EQ(state["annexcode"], "UK");
    EXPECT_EQ(state["method"], 2);
    EXPECT_EQ(state["qtype"][1], 1);
    EXPECT_EQ(Kestrum("set a.kst 'section=HE 200 B'").err, "");
    EXPECT_EQ(json::parse(Kestrum("dump a.kst --inputs").out)["family"], 2);
    const Said wrong = Kestrum("set a.kst section='IPE 305'");
    EXPECT_EQ(wrong.exit, 2);
    EXPECT_THAT(wrong.err, HasSubstr("did you mean IPE 300"));
}

// Loads to look at are no loads of the engineer's member.
TEST_F(Edit, ExampleLoadsGoWhenLoadsAreGiven)
{
    const Said loads = Kestrum("new -o a.kst --set qload[2]=7");
    EXPECT_THAT(loads.err, HasSubstr("the example loads are left out, since loads are given"));
    json state = json::parse(Kestrum("dump a.kst --inputs").out);
    EXPECT_EQ(state["qload"], json::parse("[0, 0, 7, 0, 0]"));
    EXPECT_EQ(state["nload"], json::parse("[0, 0, 0]"));
    EXPECT_EQ(state["ident"], "");

    const Said forces = Kestrum("new -o b.kst --set my2=9");
    EXPECT_THAT(forces.err, HasSubstr("the example end forces are left out"));
    EXPECT_THAT(forces.err, HasSubstr("loadmode: set to 0 (end forces) as well"));
    state = json::parse(Kestrum("dump b.kst --inputs").out);
    EXPECT_EQ(state["loadmode"], 0);
    EXPECT_EQ(state["my2"], 9);
    EXPECT_EQ(state["my1"], 0);
    EXPECT_EQ(state["ne"], 0);

    // The file of a loaded member has no end forces; none appear out of nothing.
    ASSERT_EQ(Kestrum("set a.kst ne=3").exit, 0);
    state = json::parse(Kestrum("dump a.kst --inputs").out);
    EXPECT_EQ(state["ne"], 3);
    EXPECT_EQ(state["my1"], 0);
    EXPECT_EQ(Kestrum("new").err, "");
}

// The control that was switched off is the same when it is switched on again.
TEST_F(Edit, LateralBucklingComesBackWhole)
{
    ASSERT_EQ(Kestrum("new -o a.kst --family 4 --set row.ipe=12 l=6").exit, 0);
    const json before = json::parse(Kestrum("dump a.kst").out);
    ASSERT_LT(before["xlt"], 0.9);
    ASSERT_EQ(Kestrum("set a.kst ltb=0").exit, 0);
    EXPECT_EQ(json::parse(Kestrum("dump a.kst").out)["xlt"], 1);
    ASSERT_EQ(Kestrum("set a.kst ltb=1").exit, 0);
    EXPECT_EQ(json::parse(Kestrum("dump a.kst").out)["xlt"], before["xlt"]);
}

TEST_F(Edit, SetRawStoresUnchecked)
{
    WriteGood("a.kst");
    EXPECT_EQ(Kestrum("set a.kst --raw l=0.01 row.hea=32767").exit, 0);
    EXPECT_EQ(json::parse(Kestrum("dump a.kst --inputs").out)["l"], 0.01);
    EXPECT_EQ(Kestrum("check a.kst").exit, 2);
    EXPECT_EQ(Kestrum("set a.kst --raw spring=40000").exit, 2);
}

// A grade brings its strength into the file, as its choice in the window does; the reader takes the
// shear area factor (EN 1993-1-5, 5.1 (2)) from it: 1.2 up to S460, 1.0 above.
TEST_F(Edit, AGradeReplacesTheUsersStrength)
{
    ASSERT_EQ(Kestrum("new -o own.kst --set fykindex=26 fyk=690").exit, 0);
    EXPECT_THAT(Kestrum("dump own.kst --inputs").out, HasSubstr("\"neta\": 1,"));
    ASSERT_EQ(Kestrum("set own.kst fykindex=2").exit, 0);
    const Said said = Kestrum("dump own.kst --inputs");
    EXPECT_THAT(said.out, HasSubstr("\"fyk\": 355,"));
    EXPECT_THAT(said.out, HasSubstr("\"neta\": 1.2,"));
}

TEST_F(Edit, LoadsStayOnTheMember)
{
    ASSERT_EQ(Kestrum("new -o a.kst --set pm[1]=10 pmx[1]=4").exit, 0);
    const std::string before = Read("a.kst");
    const Said said = Kestrum("set a.kst l=3");
    EXPECT_EQ(said.exit, 2);
    EXPECT_EQ(said.err, "kestrum: pmx[1]: beyond the member\n");
    EXPECT_EQ(Read("a.kst"), before);
    EXPECT_EQ(Kestrum("set a.kst l=3 pmx[1]=1.5").exit, 0);
    EXPECT_EQ(Kestrum("set a.kst l=1 --raw").exit, 0);  // as a file may hold it
}

}  // namespace
}  // namespace kestrum
