// --sign: tables and commands whose axial forces are positive in tension.

#include "cli/run.h"

#include <gmock/gmock.h>

#include <string>

namespace kestrum {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

class Sign : public CommandLine {};

TEST_F(Sign, OfATableIsThatOfItsAnswer)
{
    Write("c.csv", "l,nload[1]\n3,40\n3,-40\n");
    Write("t.csv", "l,nload[1]\n3,-40\n3,40\n");
    const std::string fields = " --fields nload[1],ned --base b.kst";
    ASSERT_EQ(Kestrum("new -o b.kst --set loadcomb=5").exit, 0);
    const std::string compression = Kestrum("batch -q c.csv" + fields).out,
                      tension = Kestrum("batch -q t.csv --sign tension+" + fields).out;
    EXPECT_THAT(compression, HasSubstr(",40,40\n2,"));
    EXPECT_THAT(compression, EndsWith(",-40,-40\n"));
    EXPECT_THAT(tension, HasSubstr(",-40,-40\n2,"));
    EXPECT_THAT(tension, EndsWith(",40,40\n"));
    // The members are the same, so are their ratios: ned stands behind them alike but for its sign.
    std::string exchanged = compression;
    for (std::size_t at = 0; (at = exchanged.find("40", at)) != std::string::npos; ++at) {
        const bool minus = exchanged[at - 1] == '-';
        exchanged.replace(minus ? at - 1 : at, minus ? 1 : 0, minus ? "" : "-");
        at += minus ? 0 : 1;
    }
    EXPECT_EQ(exchanged, tension);
    EXPECT_EQ(Kestrum("batch -q c.csv --sign compression+" + fields).out, compression);
}

TEST_F(Sign, HoldsForNdjsonAndEndForces)
{
    Write("t.ndjson", "{\"l\":3,\"ne\":25,\"my1\":4}\n{\"l\":3,\"nload\":[-5,0]}\n");
    const std::string out =
        Kestrum("batch -q --json t.ndjson --sign tension+ --fields ne,my1,nload[1],nload[2]").out;
    EXPECT_THAT(out, HasSubstr("\"ne\":25,\"my1\":4,"));
    EXPECT_THAT(out, HasSubstr("\"nload[1]\":-5,\"nload[2]\":0}"));
}

TEST_F(Sign, OfCommandsLeavesTheProjectAsItIs)
{
    ASSERT_EQ(Kestrum("new -o a.kst --sign tension+ --set 'nload[1]=-30'").exit, 0);
    EXPECT_THAT(Kestrum("dump --inputs a.kst").out, HasSubstr("\"nload\": [30, 0, 0]"));
    EXPECT_EQ(Kestrum("set a.kst --sign tension+ 'nload[1]=-12.5' --dry-run").out,
              "nload[1]: -30 -> -12.5\n");
    ASSERT_EQ(Kestrum("set a.kst --sign tension+ 'nload[2]=7'").exit, 0);
    EXPECT_THAT(Kestrum("dump --inputs a.kst").out, HasSubstr("\"nload\": [30, -7, 0]"));
}

TEST_F(Sign, IsNotThatOfADoubtAboutTheUnit)
{
    const Said said = Kestrum("new --sign tension+ --set 'nload[1]=123456'");
    EXPECT_THAT(said.err, HasSubstr("nload[1]: is 123456 kN meant? The unit is kN"));
}

TEST_F(Sign, HasTwoWords)
{
    const Said said = Kestrum("batch --sign plus t.csv");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("plus is none of compression+|tension+"));
    for (const char* command : {"batch", "set", "new"}) {
        EXPECT_THAT(Kestrum(std::string(command) + " --help").out, HasSubstr("nload, ne and ned"));
    }
}

}  // namespace
}  // namespace kestrum
