#include "cli/run.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace kestrum {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class Commands : public CommandLine {};

TEST_F(Commands, HelpAndVersion)
{
    EXPECT_EQ(Kestrum("--version").out, "kestrum 1.3.1\n");
    EXPECT_EQ(Kestrum("--help").exit, 0);
    for (const char* command : {"check", "dump", "new", "set", "sections", "vortex"}) {
        const Said said = Kestrum(std::string(command) + " --help");
        EXPECT_EQ(said.exit, 0) << command;
        EXPECT_THAT(said.out, HasSubstr("Usage")) << command;
    }
}

TEST_F(Commands, BadUsageIsBadInput)
{
    for (const char* arguments :
         {"", "nothing", "check", "dump", "set", "check --nothing x", "sections x", "vortex",
          "check --format xml x", "vortex --format csv x"}) {
        const Said said = Kestrum(arguments);
        EXPECT_EQ(said.exit, 2) << arguments;
        EXPECT_THAT(said.out, IsEmpty()) << arguments;
        EXPECT_THAT(said.err, Not(IsEmpty())) << arguments;
    }
}

TEST_F(Commands, AMistypedCommandIsNamed)
{
    EXPECT_THAT(Kestrum("chek a.kst").err,
                StartsWith("kestrum: chek: no such command; did you mean check?\n"));
    EXPECT_THAT(Kestrum("beam.kst").err, StartsWith("kestrum: beam.kst: no such command\n"));
    EXPECT_THAT(Kestrum("check --format xml a.kst").err,
                StartsWith("kestrum: check: --format: xml is none of text|json|csv\n"));
}

TEST_F(Commands, CheckPrintsThePanel)
{
    WriteGood("a.kst");
    const Said said = Kestrum("check a.kst");
    EXPECT_EQ(said.exit, 0);
    EXPECT_THAT(said.out, StartsWith("a.kst\nSECTION CONTROL:\nIR = "));
    EXPECT_THAT(said.out, HasSubstr("BUCKLING CONTROL: (incl Lateral Torsional Buckling)\n"));
    EXPECT_THAT(said.out, Not(HasSubstr("DEFLECTION")));
    EXPECT_THAT(said.out, Not(HasSubstr("Governing")));
    EXPECT_THAT(said.err, IsEmpty());
    EXPECT_THAT(Kestrum("check --loadcase a.kst").out,
                HasSubstr("Governing Loadcase: ULS: 1.00*G"));
}

TEST_F(Commands, CheckTellsTheVerdictByItsExit)
{
    WriteGood("good.kst");
    ASSERT_EQ(Kestrum("set good.kst -o above.kst qload[1]=1000").exit, 0);
    ASSERT_EQ(Kestrum("set good.kst -o failed.kst nload[1]=100000 method=1 --raw").exit, 0);
    Write("bad.kst", "131\r\nabc");
    EXPECT_EQ(Kestrum("check good.kst").exit, 0);
    EXPECT_EQ(Kestrum("check above.kst").exit, 1);
    EXPECT_EQ(Kestrum("check bad.kst").exit, 2);
    EXPECT_EQ(Kestrum("check failed.kst").exit, 3);
    EXPECT_EQ(Kestrum("check good.kst above.kst").exit, 1);
    EXPECT_EQ(Kestrum("check above.kst failed.kst good.kst").exit, 3);
    const Said all = Kestrum("check bad.kst failed.kst above.kst good.kst");
    EXPECT_EQ(all.exit, 2);
    EXPECT_THAT(all.out,
                HasSubstr("4 files: 1 within limits, 1 above limit, 1 unstable, 1 bad input\n"));
    EXPECT_THAT(all.err, HasSubstr("kestrum: bad.kst:"));
    EXPECT_THAT(all.out, HasSubstr("failed.kst\n Calculation Error. Axial load too big."));
}

TEST_F(Commands, CheckTellsTheNotesOfTheResult)
{
    ASSERT_EQ(Kestrum("new -o a.kst --set restraints=2 --set qload[1]=1 --set nload[1]=1").exit, 0);
    const std::string note = "note D201: Lateral torsional buckling is checked for the moments at";
    EXPECT_THAT(Kestrum("check a.kst").out, HasSubstr(note));
    EXPECT_EQ(Kestrum("check --notes a.kst").out, Kestrum("check a.kst").out);
    EXPECT_THAT(Kestrum("check --no-notes a.kst").out, Not(HasSubstr("D201:")));
    const json checked = json::parse(Kestrum("check --json a.kst").out)[0]["notes"];
    const json dumped = json::parse(Kestrum("dump a.kst").out)["notes"];
    ASSERT_EQ(checked.size(), 1U);
    EXPECT_EQ(checked[0]["id"], "D201");
    EXPECT_THAT(checked[0]["text"].get<std::string>(), HasSubstr("at the restraints"));
    EXPECT_EQ(dumped, checked);
}

TEST_F(Commands, VortexTellsTheNotesOfWind)
{
    ASSERT_EQ(Kestrum("new -o a.kst --family 31 --set terrain=3 --set vortexcase=0").exit, 0);
    const json notes = json::parse(Kestrum("vortex --json a.kst").out)["notes"];
    EXPECT_THAT(notes.dump(), HasSubstr("D254"));
    EXPECT_THAT(notes.dump(), HasSubstr("D256"));
    EXPECT_THAT(notes.dump(), Not(HasSubstr("D255")));
}

TEST_F(Commands, CheckHasJsonAndCsv)
{
    WriteGood("a.kst");
    const json list = json::parse(Kestrum("check --json a.kst nothing.kst").out);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0]["exit"], 0);
    EXPECT_EQ(list[0]["rows"]["section"].size(), 3U);
    EXPECT_EQ(list[0]["checks"][0]["check"], "section");
    EXPECT_EQ(list[0]["checks"][0]["part"], "N");  // compression of 1 kN
    EXPECT_EQ(list[0]["checks"][0]["clause"], "6.2.4");
    EXPECT_EQ(list[1]["exit"], 2);
    const Said csv = Kestrum("check --format csv a.kst");
    EXPECT_THAT(csv.out, StartsWith("file,verdict,irsection,maxirbuckling,irdeflection,ir,message,"
                                    "notes,dropped\na.kst,within limits,0."));
}

TEST_F(Commands, DeflectionCountsOnlyWhenItIsPartOfTheResult)
{
    WriteGood("a.kst");
    ASSERT_EQ(Kestrum("set a.kst l=20 ltb=0 nload[1]=0 qload[1]=3 deflimitz=1500").exit, 0);
    EXPECT_EQ(Kestrum("check a.kst").exit, 0);
    ASSERT_EQ(Kestrum("set a.kst checksls=true").exit, 0);
    const Said said = Kestrum("check a.kst");
    EXPECT_EQ(said.exit, 1);
    EXPECT_THAT(said.out, HasSubstr("DEFLECTION CONTROL: (z: L/1500  y: L/300);\n"));
}

TEST_F(Commands, FlangeOverloadIsTold)
{
    ASSERT_EQ(Kestrum("new -o a.kst --family 24 --set hsqopt=0 --set qload[1]=2000").exit, 0);
    EXPECT_THAT(Kestrum("check a.kst").out,
                HasSubstr("\n Flange overloaded! Program removes flangeloading \n"));
}

TEST_F(Commands, AFamilyWithoutControlIsNotChecked)
{
    for (const char* family : {"0", "55", "999"}) {
        ASSERT_EQ(Kestrum(std::string("new -o a.kst --raw --family ") + family).exit, 0);
        const Said said = Kestrum("check a.kst");
        EXPECT_EQ(said.exit, 2) << family;
        EXPECT_THAT(said.out, HasSubstr("nothing checked")) << family;
        const Said dump = Kestrum("dump a.kst");
        EXPECT_EQ(dump.exit, 0) << family;
        EXPECT_EQ(json::parse(dump.out)["rows"]["section"][0]["label"], "") << family;
    }
}

TEST_F(Commands, DumpHasEveryField)
{
    WriteGood("a.kst");
    const Said said = Kestrum("dump a.kst");
    ASSERT_EQ(said.exit, 0);
    const json state = json::parse(said.out);
    EXPECT_EQ(state["gammam0"], 1);
    EXPECT_THAT(said.out, HasSubstr("\"neta\": 1.2,"));  // the shortest decimal of the float
    EXPECT_EQ(state["checksls"], 0);
    EXPECT_EQ(state["calculationerror"], false);
    EXPECT_EQ(state["mydiag"].size(), 51U);
    EXPECT_EQ(state["xi"].size(), state["npts"].get<std::size_t>() + 1);
    EXPECT_EQ(state["mysec"].size(), state["xi"].size());
    EXPECT_EQ(state["nload"].size(), 3U);
    EXPECT_EQ(state["qload"].size(), 5U);
    EXPECT_EQ(state["pm"].size(), 8U);
    EXPECT_EQ(state["freq"].size(), 3U);
    EXPECT_EQ(state["combtextuls"], "ULS: 1.00*G + 1.30*Q1 + 0.70*Q2");
    EXPECT_EQ(state["combtextbasic"], "Basic loads: G + Q1 + Q2");
    EXPECT_EQ(state["notes"], json::array());
    EXPECT_EQ(state["rows"]["buckling"].size(), 3U);
    EXPECT_EQ(state["rows"]["deflection"].size(), 2U);
    const json& row = state["rows"]["section"][0];
    EXPECT_GT(row["ir"].get<double>(), 0);
    EXPECT_EQ(row["status"], 2);
    EXPECT_THAT(row["label"].get<std::string>(), StartsWith("IR = "));
}

TEST_F(Commands, DumpOfAFailedPassHasEmptyRows)
{
    WriteGood("a.kst");
    ASSERT_EQ(Kestrum("set a.kst l=0 --raw").exit, 0);
    const Said said = Kestrum("dump a.kst");
    EXPECT_EQ(said.exit, 3);
    EXPECT_THAT(said.err, HasSubstr("kestrum: a.kst:  Calculation Error."));
    const json state = json::parse(said.out);
    EXPECT_EQ(state["calculationerror"], true);
    for (const char* block : {"section", "buckling", "deflection"}) {
        for (const json& row : state["rows"][block]) {
            EXPECT_EQ(
                row,
                json::parse(
                    R"({"label":"","calculation":"","result":"","limit":"","ir":0,"status":2})"));
        }
    }
}

TEST_F(Commands, AnOutputWithoutNameIsRefused)
{
    WriteGood("a.kst");
    const std::string before = Read("a.kst");
    for (const char* command : {"set a.kst l=4 -o ''", "new -o ''", "table a.kst -o ''",
                                "diagram a.kst -o ''", "batch a.kst -o ''"}) {
        const Said said = Kestrum(command);
        EXPECT_EQ(said.exit, 2) << command;
        EXPECT_THAT(said.out, IsEmpty()) << command;
        EXPECT_THAT(said.err, HasSubstr("the name of the file is empty")) << command;
    }
    EXPECT_EQ(Read("a.kst"), before);
}

TEST_F(Commands, AnOutputNeverReplacesTheProject)
{
    WriteGood("a.kst");
    const std::string before = Read("a.kst");
    for (const std::string name : {"a.svg", "a.csv", "a.xlsx"}) {
        std::filesystem::create_symlink("a.kst", Path(name));
        const std::string command = name == "a.svg" ? "report control" : "table";
        const Said said = Kestrum(command + " a.kst -o " + name);
        EXPECT_EQ(said.exit, 2) << name;
        EXPECT_EQ(said.err, "kestrum: " + name + ": would overwrite the input\n");
        EXPECT_EQ(Read("a.kst"), before) << name;
    }
    EXPECT_EQ(Kestrum("diagram a.kst -o a.svg").exit, 2);
    EXPECT_EQ(Read("a.kst"), before);
}

TEST_F(Commands, JsonIsUtf8WhateverTheFileIsCalled)
{
    const std::string name = "tr\xE4ger.kst";  // Windows-1252
    WriteGood(name);
    EXPECT_EQ(json::parse(Kestrum("check --json " + name).out)[0]["file"], "tr\xC3\xA4ger.kst");
    EXPECT_EQ(json::parse(Kestrum("dump " + name).out)["filename"], "tr\xC3\xA4ger.kst");
}

TEST_F(Commands, StandardInputAndOutput)
{
    WriteGood("a.kst");
    EXPECT_THAT(Kestrum("check - <a.kst").out, HasSubstr("SECTION CONTROL:"));
    EXPECT_EQ(json::parse(Kestrum("dump --inputs - <a.kst").out)["l"], 3);
    const Said said = Kestrum("set - l=4 <a.kst");
    EXPECT_EQ(said.exit, 0);
    EXPECT_THAT(said.out, StartsWith("131\r\n"));
    EXPECT_EQ(Kestrum("check - </dev/null").exit, 2);
}

// Lines of a table behind its heading.
std::ptrdiff_t RowsOf(const std::string& table)
{
    std::ifstream file(KESTRUM_SOURCE "/data/" + table + ".csv");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    return std::count(text.begin(), text.end(), '\n') - 1;
}

TEST_F(Commands, SectionsListsFamiliesAndRows)
{
    const Said families = Kestrum("sections");
    EXPECT_EQ(families.exit, 0);
    EXPECT_EQ(std::count(families.out.begin(), families.out.end(), '\n'), 31);
    EXPECT_THAT(families.out, Not(HasSubstr("  55  ")));
    for (const char* name :
         {"   6  RHS - Square (Hotformed)\n", "   7  RHS - Rect (Hotformed)\n",
          "   8  CFRHS - Square (Coldformed)\n", "   9  CFRHS - Rect (Coldformed)\n",
          "  10  L-equal\n", " 101  U (UB, UC, UBP)\n", " 103  C (CH, PFC)\n"}) {
        EXPECT_THAT(families.out, HasSubstr(name));
    }
    EXPECT_THAT(Kestrum("sections --format csv").out,
                HasSubstr("\n9,p09,\"CFRHS\",\"CFRHS - Rect (Coldformed)\"\n"));
    EXPECT_EQ(json::parse(Kestrum("sections --json").out)[7]["name"], "RHS - Square (Hotformed)");
    const Said rows = Kestrum("sections 1");
    EXPECT_EQ(std::count(rows.out.begin(), rows.out.end(), '\n'), RowsOf("hea"));
    EXPECT_THAT(rows.out, HasSubstr("  10  HEA 300\n"));
    EXPECT_EQ(json::parse(Kestrum("sections --json").out).size(), 31U);
    const json british = json::parse(Kestrum("sections 101 --json").out);
    EXPECT_EQ(std::ssize(british), RowsOf("ub") + RowsOf("uc") + RowsOf("ubp"));
    EXPECT_EQ(british[0]["text"], "UB 127x76x13");
    EXPECT_THAT(Kestrum("sections 1 --format csv").out,
                StartsWith("row,series,text\n0,1,\"HEA 100\"\n"));
    EXPECT_EQ(Kestrum("sections 21").out, "");  // entered by its dimensions
    for (const char* family : {"55", "999", "0", "x", "1x"}) {
        EXPECT_EQ(Kestrum(std::string("sections ") + family).exit, 2) << family;
    }
}

TEST_F(Commands, VortexControl)
{
    ASSERT_EQ(Kestrum("new -o stiff.kst --family 31 --set l=3").exit, 0);
    EXPECT_EQ(Kestrum("vortex stiff.kst").exit, 0);
    EXPECT_THAT(Kestrum("vortex stiff.kst").out, HasSubstr(" OK "));
    const std::string other = Kestrum("vortex stiff.kst").out;  // fixed-pinned, as delivered
    EXPECT_THAT(other, HasSubstr(" Member Restraint: fixed-pinned, but the member itself: "
                                 "pinned-pinned"));
    EXPECT_THAT(other, HasSubstr("note D259: "));
    ASSERT_EQ(Kestrum("set stiff.kst vortexcase=0").exit, 0);
    const std::string same = Kestrum("vortex stiff.kst").out;
    EXPECT_THAT(same, HasSubstr(" Member Restraint: pinned-pinned\n"));
    EXPECT_THAT(same, Not(HasSubstr("D259")));
    EXPECT_EQ(json::parse(Kestrum("vortex --json stiff.kst").out)["differs"], false);
    ASSERT_EQ(Kestrum("new -o slender.kst --family 31 --set l=40 --set p31.istd=100 --set "
                      "nload[1]=0 --set qload[1]=0")
                  .exit,
              0);
    EXPECT_EQ(Kestrum("vortex slender.kst").exit, 1);
    EXPECT_EQ(json::parse(Kestrum("vortex --json slender.kst").out)["ok"], false);
    ASSERT_EQ(Kestrum("new -o hea.kst").exit, 0);
    const Said said = Kestrum("vortex hea.kst");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("Only valid for boxes and tubes"));
    ASSERT_EQ(Kestrum("set stiff.kst l=0 --raw").exit, 0);
    EXPECT_EQ(Kestrum("vortex stiff.kst").exit, 3);
}

TEST_F(Commands, SetupAndDataCanBeReplaced)
{
    WriteGood("a.kst");
    EXPECT_EQ(Kestrum("check --data nothing a.kst").exit, 2);
    EXPECT_EQ(Kestrum("check --setup nothing a.kst").exit, 2);
    EXPECT_EQ(Kestrum(std::string("check --data '") + KESTRUM_SHARE + "' a.kst").exit, 0);
    std::string setup;
    {
        std::ifstream file(std::string(KESTRUM_SHARE) + "/KestrumEC3Setup.dat", std::ios::binary);
        setup = {std::istreambuf_iterator<char>(file), {}};
    }
    const std::size_t at = setup.find("\"EU\"");
    ASSERT_NE(at, std::string::npos);
    setup.replace(at, 4, "\"UD\"");
    Write("own.dat", setup);
    const json state =
        json::parse(Kestrum("new --setup own.dat | '" KESTRUM_BIN "/kestrum' dump --inputs -").out);
    EXPECT_EQ(state["annexcode"], "UD");
}

TEST_F(Commands, BadFilesEndWithAMessageAndNothingElse)
{
    WriteGood("a.kst");
    const std::string good = Read("a.kst");
    Write("empty.kst", "");
    Write("cut.kst", good.substr(0, good.size() / 2));
    Write("abc.kst", "abc");
    std::string returns = good;
    std::erase(returns, '\n');
    Write("cr.kst", returns);
    std::string wide = "\xff\xfe";
    for (const char c : good) {
        wide += c;
        wide += '\0';
    }
    Write("utf16.kst", wide);
    std::string wrong = good;
    wrong.replace(wrong.find("\r\n1.2\r\n") + 2, 3, "abc");
    Write("token.kst", wrong);
    std::filesystem::create_directory(Path("folder.kst"));
    for (const char* name : {"missing.kst", "folder.kst", "empty.kst", "cut.kst", "abc.kst",
                             "utf16.kst", "token.kst"}) {
        for (const char* command : {"check ", "dump ", "dump --inputs ", "vortex "}) {
            const Said said = Kestrum(std::string(command) + name);
            EXPECT_EQ(said.exit, 2) << command << name;
            EXPECT_THAT(said.err, StartsWith(std::string("kestrum: ") + name)) << command;
        }
        EXPECT_EQ(Kestrum(std::string("set ") + name + " l=4").exit, 2) << name;
    }
    EXPECT_THAT(Kestrum("check token.kst").err, HasSubstr("kestrum: token.kst:7:"));
    const Said lines =
        Kestrum("check cr.kst");  // classic line ends: read or refused, never a crash
    EXPECT_TRUE(lines.exit == 0 || lines.exit == 2);
}

TEST_F(Commands, OddValuesInFilesDoNotCrash)
{
    WriteGood("a.kst");
    const std::pair<const char*, int> cases[] = {
        {"row.hea=32767", 2},
        {"row.hea=-32768", 2},
        {"row.hea=28", 2},
        {"l=0", 2},
        {"l=-5", 2},
        {"supportcase=99", 2},
        {"loadcomb=99", 2},
        {"cpmode=1 cpcount=99", -1},
        {"restraints=99", 2},
        {"restraints=-3", -1},
        {"ltbcase=77", -1},
        {"fykindex=-9", 0},
        {"method=9", 2},
        {"loadmode=7", 2},
        {"psi1index=-1", 0},
        {"safetyclass=-1", 0},
        {"bcy=50 bcz=-50", -1},
        {"loadlevel=9", -1},
        {"family=103 series103=9", -1},
        {"family=101 series101=9", -1},
        {"e=0", -1},
        {"fyk=0 fykindex=26", 2},
        {"qload[1]=3E38 pm[1]=3E38", -1},
    };
    for (const auto& [assignments, exit] : cases) {
        ASSERT_EQ(Kestrum(std::string("set a.kst -o odd.kst --raw ") + assignments).exit, 0)
            << assignments;
        const Said said = Kestrum("check odd.kst");
        EXPECT_GE(said.exit, 0) << assignments;
        EXPECT_LE(said.exit, 3) << assignments;
        if (exit >= 0) {
            EXPECT_EQ(said.exit, exit) << assignments;
        }
    }
}

}  // namespace
}  // namespace kestrum
