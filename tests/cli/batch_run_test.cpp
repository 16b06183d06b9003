// kestrum batch as a long run: what it shows on a terminal, what a killed run leaves behind, how it
// is taken up again, and what the summary tells.

#include "run.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kestrum {
namespace {

using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using BatchRun = CommandLine;

const std::string kProgram = "'" KESTRUM_BIN "/kestrum' ";

// Beams of several lengths, every eleventh with a length that is none.
std::string ManyLines(int count)
{
    std::string table = "l,family\n";
    for (int i = 0; i < count; ++i) {
        table += (i % 11 == 5 ? "none" : std::to_string(2 + i % 9)) + "," +
                 std::to_string(1 + i % 4) + "\n";
    }
    return table;
}

// The run stands still for a second on its way, so that it lasts long enough on any machine.
const std::string kHalted = "p=$!; sleep 0.05; kill -STOP $p; sleep 1; kill -CONT $p; wait $p";

TEST_F(BatchRun, ShowsItsProgressOnATerminalOnly)
{
    if (Shell("command -v script").exit != 0) {
        GTEST_SKIP() << "no program script to give it a terminal";
    }
    Write("t.csv", ManyLines(40000));
    Write("run.sh", kProgram + "batch t.csv --jobs 1 --quiet -o $1.csv 2>$2 & " + kHalted + "\n");
    const Said on = Shell("SHELL=/bin/sh script -qec 'sh run.sh shown /dev/tty' /dev/null");
    EXPECT_EQ(on.exit, 2);
    EXPECT_THAT(on.out, ContainsRegex("\r\\[#*\\.*\\] [0-9]+ %, [0-9]+ s left, [0-9]+ members, "
                                      "[0-9]+/s"));
    // It fits a terminal of 80 columns and is wiped out behind the last time.
    const std::size_t wiped = on.out.rfind("\r" + std::string(79, ' ') + "\r");
    ASSERT_NE(wiped, std::string::npos);
    EXPECT_GT(wiped, on.out.rfind("\r["));
    // What is told of bad lines begins a line of its own.
    for (std::size_t at = 0; (at = on.out.find("kestrum: ", at)) != std::string::npos; ++at) {
        ASSERT_TRUE(at == 0 || on.out[at - 1] == '\n' || on.out[at - 1] == '\r') << at;
    }

    const Said off = Shell("sh run.sh unseen told");
    EXPECT_EQ(off.exit, 2);
    EXPECT_THAT(Read("told"), Not(HasSubstr("\r")));
    EXPECT_THAT(Read("told"), Not(HasSubstr("members")));
    EXPECT_EQ(Read("shown.csv"), Read("unseen.csv"));
}

// How much there is to come is not known of a pipe; the count and the rate are.
TEST_F(BatchRun, ShowsItsProgressThroughAPipe)
{
    if (Shell("command -v script").exit != 0) {
        GTEST_SKIP() << "no program script to give it a terminal";
    }
    Write("run.sh",
          "{ printf 'l,nload[1],qload[1]\\n5,100,10\\n'; sleep 1; printf '6,100,10\\n'; } | " +
              kProgram + "batch - --quiet >out.csv\n");
    const Said on = Shell("SHELL=/bin/sh script -qec 'sh run.sh' /dev/null");
    EXPECT_EQ(on.exit, 0);
    EXPECT_THAT(on.out, ContainsRegex("\r2 members, [0-9]+/s"));
    EXPECT_THAT(on.out, Not(HasSubstr("left")));
    EXPECT_THAT(Read("out.csv"),
                StartsWith("member,verdict,ir,control,clause,message,dropped\n1,within limits,"));
}

// Three times the run gets a part of its input, to the middle of a line, waits for the rest and is
// killed when it has answered at least half of what it got.
class KilledRun : public CommandLine, public ::testing::WithParamInterface<const char*> {};

TEST_P(KilledRun, EndsWithTheBytesOfAnUndisturbedOne)
{
    const std::string ending = GetParam(), out = "o" + ending;
    const std::string table = ManyLines(20000);
    Write("t.csv", table);
    const Said whole = Kestrum("batch - --jobs 2 -o whole" + ending + " <t.csv");
    EXPECT_EQ(whole.exit, 2);
    const std::string expected = Read("whole" + ending);

    Write(out, "answers of last week");
    Write("kill.sh", R"sh(mkfifo feed
exec 3<>feed
head -c $1 t.csv >&3 &
")sh" KESTRUM_BIN R"sh(/kestrum" batch - --jobs 2 -o $3 $4 <feed 3>&- & p=$!
while kill -0 $p && [ "$(stat -c %s $3.part || echo 0)" -lt $2 ]; do sleep 0.01; done
kill -9 $p
wait $p; exit=$?
rm feed
exit $exit
)sh");
    const auto part = [](double of, const std::string& text) {
        return std::to_string(static_cast<std::size_t>(of * static_cast<double>(text.size())));
    };
    for (const double of : {0.11, 0.43, 0.87}) {
        SCOPED_TRACE(of);
        const Said killed = Shell("sh kill.sh " + part(of, table) + " " + part(of / 2, expected) +
                                  " " + out + (of > 0.2 ? " --resume" : ""));
        EXPECT_EQ(killed.exit, 128 + 9);
        EXPECT_EQ(Read(out), "answers of last week");  // until the run is done
        EXPECT_TRUE(expected.starts_with(Read(out + ".part")));
    }
    const Said last = Kestrum("batch - --jobs 2 --resume -o " + out + " <t.csv");
    EXPECT_EQ(last.exit, 2);
    EXPECT_TRUE(Read(out) == expected);
    EXPECT_FALSE(std::filesystem::exists(Path(out + ".part")));
    EXPECT_TRUE(last.err.ends_with(whole.err.substr(whole.err.find("20000 members")))) << last.err;
}

INSTANTIATE_TEST_SUITE_P(Forms, KilledRun, ::testing::Values(".csv", ".ndjson"),
                         [](const auto& form) { return std::string(form.param).substr(1); });

TEST_F(BatchRun, NamesTheTenWorstInTheirOrder)
{
    // The longer the beam under its load, the higher its ratio; the eleventh and twelfth are best.
    std::string table = "ident,l,qload[1]\n";
    for (int i = 1; i <= 12; ++i) {
        table += "B," + std::to_string(i) + ",10\n";
    }
    Write("t.csv", table);
    const Said said = Kestrum("batch t.csv");
    std::vector<std::string> names;
    double last = 1e9;
    std::string rest = said.err.substr(said.err.find('\n') + 1);
    for (std::size_t end = 0; (end = rest.find('\n')) != std::string::npos;
         rest.erase(0, end + 1)) {
        double ir = 0;
        char name[16] = "";
        ASSERT_EQ(std::sscanf(rest.c_str(), " %lf %15s", &ir, name), 2) << rest;
        EXPECT_LE(ir, last);
        last = ir;
        names.emplace_back(name);
    }
    EXPECT_EQ(names,
              (std::vector<std::string>{"12", "11", "10", "9", "8", "7", "6", "5", "4", "3"}));
}

TEST_F(BatchRun, TakesUpMembersOfAnyName)
{
    const std::vector<std::string> names = {"a,above limit,1.kst", "b\",within limits,\".kst",
                                            "c\\,\"verdict\":\".kst", "d.kst"};
    std::filesystem::create_directory(Path("in"));
    for (const std::string& name : names) {
        ASSERT_EQ(
            Kestrum("new -o 'in/" + name + "' --set l=" + (name == "d.kst" ? "20" : "4")).exit, 0);
    }
    std::filesystem::copy(Path("in/d.kst"), Path("in/two\nlines.kst"));
    for (const std::string out : {"o.csv", "o.ndjson"}) {
        SCOPED_TRACE(out);
        const Said whole = Kestrum("batch in --fields message,filename -o " + out);
        const Said again = Kestrum("batch in --fields message,filename --resume -o " + out);
        EXPECT_EQ(whole.exit, again.exit);
        EXPECT_EQ(whole.err, again.err);
        EXPECT_THAT(whole.err, HasSubstr("5 members: "));
    }
}

// A key may hold a line end, which a message quotes: the answer stays on its line.
TEST_F(BatchRun, AnswersOnOneLineWhateverTheInputHolds)
{
    Write("t.ndjson", R"({"5e\n4": 3}
{"l\r\n": 3}
{"l": "3\n"}
{"ident": "a\nb"}
{"l": 5}
)");
    for (const std::string out : {"o.csv", "o.ndjson"}) {
        SCOPED_TRACE(out);
        const Said whole = Kestrum("batch t.ndjson --fields message,ident -o " + out);
        EXPECT_EQ(whole.exit, 2);
        const std::string answers = Read(out);
        EXPECT_EQ(std::count(answers.begin(), answers.end(), '\n'), out == "o.csv" ? 6 : 5);
        EXPECT_THAT(whole.err, HasSubstr("t.ndjson:1: member 1: 5e?4: no such field"));
        const Said again = Kestrum("batch t.ndjson --fields message,ident --resume -o " + out);
        EXPECT_EQ(again.exit, 2);
        EXPECT_EQ(again.err, whole.err.substr(whole.err.find("5 members: ")));
        EXPECT_EQ(Read(out), answers);
    }
}

TEST_F(BatchRun, LeavesAloneWhatIsNoAnswer)
{
    Write("t.csv", "l,nload[1],qload[1]\n5,100,10\n");
    Write("o.csv", "answers of last week");
    Write("o.csv.part", "a letter\n");
    const Said said = Kestrum("batch t.csv --resume -o o.csv");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("o.csv.part: not the answers of such a run"));
    EXPECT_EQ(Read("o.csv.part"), "a letter\n");
    EXPECT_EQ(Read("o.csv"), "answers of last week");
}

TEST_F(BatchRun, LeavesOutWhatCannotBeRead)
{
    Write("bad.csv", "lenght\n5\n");
    Write("good.csv", "l,nload[1],qload[1]\n5,100,10\n6,100,10\n");
    const Said said = Kestrum("batch bad.csv good.csv");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("kestrum: bad.csv:1: column \"lenght\": no such field"));
    EXPECT_THAT(said.err, HasSubstr("2 members: 2 within limits"));
    EXPECT_THAT(said.out, HasSubstr("\ngood.csv:2,within limits,"));
}

TEST_F(BatchRun, KeepsLinkPermissionsAndProtection)
{
    namespace fs = std::filesystem;
    Write("t.csv", "l,nload[1],qload[1]\n5,100,10\n");
    Write("real.csv", "old");
    fs::permissions(Path("real.csv"), fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real.csv", Path("link.csv"));
    EXPECT_EQ(Kestrum("batch t.csv --quiet -o link.csv").exit, 0);
    EXPECT_TRUE(fs::is_symlink(Path("link.csv")));
    EXPECT_THAT(Read("real.csv"), StartsWith("member,"));
    EXPECT_EQ(fs::status(Path("real.csv")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
    fs::permissions(Path("real.csv"), fs::perms::owner_read);
    const Said refused = Kestrum("batch t.csv --quiet -o real.csv");
    EXPECT_EQ(refused.exit, 2);
    EXPECT_EQ(refused.err, "kestrum: real.csv: is write-protected\n");
    EXPECT_FALSE(fs::exists(Path("real.csv.part")));
}

}  // namespace
}  // namespace kestrum
