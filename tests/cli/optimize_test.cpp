// The lightest section that passes: projects, tables, frames, bad input.

#include "run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace kestrum {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class OptimizeCommand : public CommandLine {
protected:
    // 54 kNm without lateral torsional buckling: see Optimize.TakesTheFirstModulusThatIsEnough.
    OptimizeCommand()
    {
        Kestrum("new -q -o beam.kst --family IPE --set l=6 --set 'qload[1]=12' --set ltb=0 "
                "--set loadcomb=5 --set steel=S355");
    }
};

TEST_F(OptimizeCommand, WritesTheProjectWithItsSection)
{
    const Said said = Kestrum("optimize beam.kst --top 2 -o chosen.kst");
    EXPECT_EQ(said.exit, 0);
    EXPECT_THAT(said.out, HasSubstr("\n1. IPE 180 "));
    EXPECT_THAT(said.out, HasSubstr("\n2. IPE 200 "));
    EXPECT_THAT(said.out, HasSubstr("\nnext lighter: IPE 160 "));
    EXPECT_THAT(said.out, HasSubstr("\nnow: IPE 300 "));
    EXPECT_THAT(Kestrum("check chosen.kst --format csv --exit-zero").out,
                HasSubstr("within limits"));
    EXPECT_THAT(Kestrum("set chosen.kst --dry-run section='IPE 180'").out, StartsWith("nothing"));
}

// A hollow section switches lateral torsional buckling off; an I section needs it.
TEST_F(OptimizeCommand, TellsThatLateralBucklingIsOff)
{
    EXPECT_THAT(Kestrum("optimize beam.kst --pool IPE").err, Not(HasSubstr("lateral")));
    ASSERT_EQ(Kestrum("set beam.kst family=SHS").exit, 0);
    EXPECT_THAT(Kestrum("optimize beam.kst --pool IPE").err, HasSubstr("ltb=1 has it checked"));
    EXPECT_THAT(Kestrum("optimize beam.kst").err, Not(HasSubstr("lateral")));
}

TEST_F(OptimizeCommand, SaysWhichComesNearestWhereNonePasses)
{
    const Said said = Kestrum("optimize beam.kst --max-h 150 -o chosen.kst");
    EXPECT_EQ(said.exit, 1);
    EXPECT_THAT(said.err, HasSubstr("no section passes; IPE 140 comes nearest: ratio 1."));
    EXPECT_EQ(Read("chosen.kst"), "");
}

// Flanges of HEM are over 16 mm thick, where EN 10025-2 has 345 MPa and Table 3.1 has 355 (D37).
TEST_F(OptimizeCommand, MeasuresTheNotesOfATableWhereTheyAreAskedFor)
{
    Kestrum("new -q -o uk.kst --family HEM --set annex=UK --set ltb=0 --set steel=S355");
    Write("m.csv", "l,\"qload[1]\",section\n8,60,HEM 300\n");
    const std::string search = "optimize m.csv --base uk.kst --pool HEM --basis program";
    const Said measured = Kestrum(search + " --notes"), quick = Kestrum(search);
    EXPECT_THAT(measured.out, HasSubstr("D37"));
    EXPECT_THAT(measured.err, Not(HasSubstr("not looked for")));
    EXPECT_THAT(quick.out, Not(HasSubstr("D37")));
    EXPECT_THAT(quick.err, HasSubstr("deviations on the unsafe side not looked for (--notes)\n"));
}

// What is read back are the sections that were chosen, with their ratios.
TEST_F(OptimizeCommand, WritesTheTableWithItsSections)
{
    Write("m.csv", "mark,l,\"qload[1]\",steel,section,row.ipe\n"
                   "\"a \"\"1\"\"\",6,12,S355,HEA 300,\nb,4,9,S235,,3\nc,5,0,S235,IPE 300,\n");
    const Said said = Kestrum("optimize m.csv --pool IPE,22 --range p22.isth=200,250 --range "
                              "p22.istb1=100 --range p22.istb2=100 --range p22.isttw=5 --range "
                              "p22.isttf1=5:8:1 --range p22.isttf2=8 --basis program -o out.csv");
    EXPECT_EQ(said.exit, 2);  // nothing acts on the third
    const std::string table = Read("out.csv");
    EXPECT_THAT(table, StartsWith("mark,l,qload[1],steel,section,row.ipe,family,p22.isth,"));
    EXPECT_THAT(table, HasSubstr("\nc,5,0,S235,IPE 300,,,,,,,,\n"));
    const Said again = Kestrum("batch out.csv --keep-columns -q --fields section");
    std::size_t at = said.out.find('\n');
    for (const char* member : {"1", "2"}) {
        const std::string line = said.out.substr(at + 1, said.out.find('\n', at + 1) - at);
        const std::string ratio = line.substr(0, line.find(",\""));
        EXPECT_THAT(ratio, StartsWith(std::string(member) + ",within limits,0."));
        EXPECT_THAT(again.out, HasSubstr("\n" + ratio + ","));
        at = said.out.find('\n', at + 1);
    }
}

TEST_F(OptimizeCommand, GivesAGroupOfAFrameOneSection)
{
    const std::string frame = KESTRUM_SOURCE "/examples/frames/";
    const std::string tables = "'" + frame + "members.csv' '" + frame + "forces.csv'";
    const Said said = Kestrum("optimize " + tables +
                              " --pool HEA,HEB --group group --basis program "
                              "-q -o chosen.csv");
    EXPECT_EQ(said.exit, 0);
    const std::string table = Read("chosen.csv");
    const std::string column = table.substr(table.find("\nC1,") + 4, 7);
    EXPECT_THAT(column, StartsWith("HE"));
    for (const char* member : {"\nC2,", "\nC3,", "\nC4,"}) {
        EXPECT_THAT(table, HasSubstr(member + column));
    }
    EXPECT_EQ(Kestrum("envelope chosen.csv '" + frame + "forces.csv' --basis program -q").exit, 0);
}

// What one of them lacks the others cannot make good.
TEST_F(OptimizeCommand, LeavesAGroupWithAMemberAtFault)
{
    Write("m.csv", "id,l,qload[1],set\na,6,12,x\nb,6,wide,x\nc,6,12,y\n");
    const Said said = Kestrum("optimize m.csv --pool IPE --group set -q");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("m.csv:3: qload[1]: "));
    EXPECT_THAT(said.out, HasSubstr("\na,not checked,,"));
    EXPECT_THAT(said.out, HasSubstr("member \"\"b\"\" of its group: qload[1]"));
    EXPECT_THAT(said.out, HasSubstr("\nc,within limits,0."));
}

TEST_F(OptimizeCommand, NamesBadInput)
{
    Write("m.csv", "l,qload[1]\n6,12\n");
    Write("p.csv", "section,price/kg\nIPE,1.2\nIPE 300,abc\n");
    Write("empty.csv", "section\n");
    struct Case {
        const char *arguments, *message;
    };
    for (const auto& [arguments, message] : {
             Case{"beam.kst --pool FOO", "--pool: FOO: no such family or section"},
             {"beam.kst --pool p.csv", "p.csv:3: price: \"abc\" is not a number of 0 or more"},
             {"beam.kst --pool empty.csv", "empty.csv:1: holds no sections"},
             {"beam.kst --pool 21", "p21.isth: its sizes are missing"},
             {"beam.kst --pool 41", "has no list to choose from"},
             {"beam.kst --range p21.isth=200", "p21.isth: no dimension of a family in the pool"},
             {"beam.kst --range p21.isth", "expected FIELD=FROM:TO:STEP"},
             {"beam.kst --steel S999", "--steel S999: no such name"},
             {"beam.kst --by price", "only from a pool with prices"},
             {"beam.kst --max-ir nan", "--max-ir: expected a number above 0"},
             {"beam.kst --group mark", "--group goes with a table of members"},
             {"beam.kst -o beam.kst", "would overwrite the input"},
             {"m.csv -o m.csv --pool IPE", "would overwrite the input"},
             {"beam.kst --pool p.csv -o p.csv", "would overwrite the input"},
             {"m.csv", "--pool is missing"},
             {"m.csv --pool IPE --group mark", "--group mark: there is no such column"},
             {"m.csv m.csv --pool IPE", "is the table of members too"},
             {"m.csv --pool IPE -o m.kst", "has a name that ends in .csv"},
             {"m.json --pool IPE", "from a CSV, not from JSON"},
             {"none.kst", "none.kst: "},
         }) {
        const Said said = Kestrum(std::string("optimize ") + arguments);
        EXPECT_EQ(said.exit, 2) << arguments;
        EXPECT_THAT(said.err, HasSubstr(message)) << arguments;
        EXPECT_EQ(said.out, "") << arguments;
    }
}

}  // namespace
}  // namespace kestrum
