// Members of a frame under tables of forces: files, streams, order, resuming.

#include "run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>
#include <vector>

namespace kestrum {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using Lines = std::vector<std::string>;

Lines LinesOf(const std::string& text)
{
    Lines lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::string Joined(const Lines& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\n";
    }
    return text;
}

class EnvelopeCommand : public CommandLine {
protected:
    static constexpr const char* kHeader = "member,case,x,N,Vy,Vz,My,Mz";

    EnvelopeCommand() { Write("m.csv", Members(3)); }

    static std::string Members(int count)
    {
        std::string text = "id,section,steel,l\n";
        for (int i = 0; i < count; ++i) {
            text += "B" + std::to_string(i) + ",IPE 300,S235,4\n";
        }
        return text;
    }

    // Beams with end moments that rise with the case; the last case of each is the worst.
    static Lines Rows(int members, int cases)
    {
        Lines lines;
        for (int i = 0; i < members; ++i) {
            for (int k = 0; k < cases; ++k) {
                for (int j = 0; j <= 4; ++j) {
                    const double m = (k + 1.0) * (i + 1) * (1 - 0.25 * j);
                    lines.push_back("B" + std::to_string(i) + ",U" + std::to_string(100 + k) + "," +
                                    std::to_string(j) + ",5,0,-1," + std::to_string(m) + ",0");
                }
            }
        }
        return lines;
    }

    void Forces(const std::string& name, const Lines& rows) const
    {
        Write(name, std::string(kHeader) + "\n" + Joined(rows));
    }

    // All but the order of members and lines.
    static Lines Sorted(const std::string& text)
    {
        Lines lines = LinesOf(text);
        std::sort(lines.begin(), lines.end());
        return lines;
    }
};

TEST_F(EnvelopeCommand, AnswersALineForEachMember)
{
    Forces("f.csv", Rows(3, 4));
    const Said said = Kestrum("envelope m.csv f.csv -o a.csv");
    EXPECT_EQ(said.exit, 0) << said.err;
    EXPECT_THAT(said.err, HasSubstr("60 rows, 12 cases, 3 members: 3 within limits"));
    const Lines lines = LinesOf(Read("a.csv"));
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_THAT(lines[0], StartsWith("member,verdict,ir,control,clause,case,x,verdict_standard,"));
    EXPECT_THAT(lines[1], StartsWith("B0,within limits,0."));
    EXPECT_THAT(lines[1], HasSubstr(",U103,"));
    EXPECT_THAT(lines[1], HasSubstr(",4,0,0,0,0,"));  // cases, above, failed
}

TEST_F(EnvelopeCommand, TheOrderOfRowsChangesNothing)
{
    Lines rows = Rows(3, 6);
    Forces("f.csv", rows);
    ASSERT_EQ(Kestrum("envelope m.csv f.csv -o a.csv").exit, 0);
    // By case, members in another order each time.
    Lines turned;
    for (int k = 0; k < 6; ++k) {
        for (int i : {2, 0, 1}) {
            for (std::size_t j = 0; j < 5; ++j) {
                turned.push_back(rows[static_cast<std::size_t>(30 * i + 5 * k) + j]);
            }
        }
    }
    Forces("t.csv", turned);
    const Said said = Kestrum("envelope m.csv t.csv -o t_a.csv");
    EXPECT_EQ(said.exit, 0);
    EXPECT_THAT(said.err, HasSubstr("are not together: sorted with 256 MB"));
    EXPECT_EQ(Read("t_a.csv"), Read("a.csv"));
    // In no order at all.
    std::shuffle(rows.begin(), rows.end(), std::mt19937(5));
    Forces("s.csv", rows);
    ASSERT_EQ(Kestrum("envelope m.csv s.csv -o s_a.csv --jobs 3").exit, 0);
    EXPECT_EQ(Read("s_a.csv"), Read("a.csv"));
    // Of a stream.
    ASSERT_EQ(Shell("cat s.csv | '" KESTRUM_BIN "/kestrum' envelope m.csv - -o p.csv").exit, 0);
    EXPECT_EQ(Read("p.csv"), Read("a.csv"));
    ASSERT_EQ(Shell("cat f.csv | '" KESTRUM_BIN "/kestrum' envelope m.csv - -o q.csv").exit, 0);
    EXPECT_EQ(Read("q.csv"), Read("a.csv"));
    ASSERT_EQ(Shell("cat m.csv | '" KESTRUM_BIN "/kestrum' envelope - f.csv -o r.csv").exit, 0);
    EXPECT_EQ(Read("r.csv"), Read("a.csv"));
}

// 60,000 rows in 1 MB: several runs on disk.
TEST_F(EnvelopeCommand, WhatDoesNotFitIntoMemoryIsSortedOnDisk)
{
    Write("m.csv", Members(20));
    Lines rows = Rows(20, 600);
    Forces("f.csv", rows);
    const std::string how = " --basis program --exit-zero -o ";
    ASSERT_EQ(Kestrum("envelope m.csv f.csv" + how + "a.csv").exit, 0);
    std::shuffle(rows.begin(), rows.end(), std::mt19937(7));
    Forces("s.csv", rows);
    const Said said = Kestrum("envelope m.csv s.csv --memory 1" + how + "s_a.csv");
    EXPECT_EQ(said.exit, 0) << said.err;
    EXPECT_THAT(said.err, HasSubstr("sorted with 1 MB, "));
    EXPECT_THAT(said.err, HasSubstr("parts on disk"));
    EXPECT_EQ(Read("s_a.csv"), Read("a.csv"));
}

TEST_F(EnvelopeCommand, AllAndTopGiveLinesOfCases)
{
    Forces("f.csv", Rows(2, 5));
    ASSERT_EQ(Kestrum("envelope m.csv f.csv --all -o all.csv").exit, 2);  // B2 has no forces
    const Lines all = LinesOf(Read("all.csv"));
    EXPECT_EQ(all.size(), 1U + 10U + 1U);
    EXPECT_THAT(all[3], HasSubstr(",U102,"));
    ASSERT_EQ(Kestrum("envelope m.csv f.csv --top 2 -o top.csv").exit, 2);
    const Lines top = LinesOf(Read("top.csv"));
    ASSERT_EQ(top.size(), 1U + 4U + 1U);
    EXPECT_EQ(top[1], all[5]);
    EXPECT_EQ(top[2], all[4]);
    EXPECT_THAT(Kestrum("envelope m.csv f.csv --top 2 --all").err, HasSubstr("exclude"));
}

TEST_F(EnvelopeCommand, WhatIsMissingIsNamedAndTheRestAnswered)
{
    Lines rows = Rows(2, 2);
    rows.push_back("X9,U1,0,1,0,0,0,0");
    rows.push_back("B2,U1,0,1,0,0,nan,0");
    Forces("f.csv", rows);
    const Said said = Kestrum("envelope m.csv f.csv -o a.csv");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("kestrum: f.csv:22: member \"X9\" is not in the table"));
    EXPECT_THAT(said.err, HasSubstr("kestrum: f.csv:23: My: \"nan\" is no number"));
    const Lines lines = LinesOf(Read("a.csv"));
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_THAT(lines[1], StartsWith("B0,within limits,"));
    EXPECT_THAT(lines[3], StartsWith("B2,bad input,,"));
    Forces("f.csv", Rows(1, 1));
    EXPECT_EQ(Kestrum("envelope m.csv f.csv -o a.csv").exit, 2);
    EXPECT_THAT(Read("a.csv"), HasSubstr("B1,not checked,,"));
    EXPECT_THAT(Read("a.csv"), HasSubstr("no forces"));
}

// The whole set twice: the same case is repeated.
TEST_F(EnvelopeCommand, RepeatedCasesAreNamed)
{
    Lines rows = Rows(1, 2);
    const Lines again = rows;
    rows.insert(rows.end(), again.begin(), again.begin() + 5);
    Forces("f.csv", rows);
    Write("m.csv", Members(1));
    const Said said = Kestrum("envelope m.csv f.csv");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("case \"U100\": the station x 0 m is repeated"));
    EXPECT_THAT(said.out, HasSubstr("B0,bad input,"));
}

TEST_F(EnvelopeCommand, ExitsAsCheckDoes)
{
    Write("m.csv", Members(1));
    Forces("f.csv", Rows(1, 300));
    EXPECT_EQ(Kestrum("envelope m.csv f.csv").exit, 1);
    EXPECT_EQ(Kestrum("envelope m.csv f.csv --exit-zero").exit, 0);
    Forces("u.csv", {"B0,a,0,90000,0,0,1,0", "B0,a,4,90000,0,0,1,0"});
    Write("m.csv", "id,section,steel,l,method\nB0,IPE 300,S235,4,A\n");
    const Said said = Kestrum("envelope m.csv u.csv");
    EXPECT_EQ(said.exit, 3);
    EXPECT_THAT(said.out, HasSubstr("B0,unstable,"));
}

TEST_F(EnvelopeCommand, GoesOnWhereItWasStopped)
{
    Write("m.csv", Members(9));
    Forces("f.csv", Rows(9, 3));
    // What a stopped run leaves: some answers, the last cut short.
    for (const char* how : {"", " --all", " --top 2"}) {
        ASSERT_EQ(Kestrum(std::string("envelope m.csv f.csv -o w.csv") + how).exit, 0);
        const std::string all = Read("w.csv");
        const Lines part = LinesOf(all);
        Write("w.csv", Joined(Lines(part.begin(), part.begin() + 4)) + "B3,wi");
        // Answers under their name are taken up as well.
        ASSERT_EQ(Kestrum(std::string("envelope m.csv f.csv -o w.csv --resume") + how).exit, 0);
        EXPECT_EQ(Read("w.csv"), all) << how;
    }
}

// Wherever the run is, in the first reading of the table, among the members or at its end.
TEST_F(EnvelopeCommand, AnInterruptedRunGoesOnToTheSameAnswers)
{
    Write("m.csv", Members(60));
    Forces("f.csv", Rows(60, 60));
    const std::string command = "'" KESTRUM_BIN "/kestrum' envelope m.csv f.csv --all --jobs 1 -o ";
    Shell(command + "whole.csv");
    const std::string whole = Read("whole.csv");
    ASSERT_EQ(LinesOf(whole).size(), 3601U);
    for (const char* after : {"0.02", "0.1", "0.2", "0.4"}) {
        const Said stopped = Shell(command + "w.csv & sleep " + after +
                                   "; kill -TERM $! 2>/dev/null; wait $!; echo ended $?");
        EXPECT_THAT(stopped.err, Not(HasSubstr("last station"))) << "a case was cut";
        if (std::filesystem::exists(Path("w.csv.part"))) {
            EXPECT_THAT(stopped.err, HasSubstr("stopped: "));
            Shell(command + "w.csv --resume");
        } else if (!std::filesystem::exists(Path("w.csv"))) {
            Shell(command + "w.csv");  // stopped before it began
        }
        EXPECT_EQ(Read("w.csv"), whole) << after;
        EXPECT_FALSE(std::filesystem::exists(Path("w.csv.part")));
        std::filesystem::remove(Path("w.csv"));
    }
}

TEST_F(EnvelopeCommand, TablesOfOthersAreRead)
{
    Write("m.csv", Members(1));
    Forces("f.csv", {"B0,U1,0,-50,1,2,3,4", "B0,U1,4,-50,1,2,-3,-4"});
    ASSERT_EQ(Kestrum("envelope m.csv f.csv -o a.csv").exit, 0);
    Write("g.csv", "Stab;Fall;Ort [cm];N [kN];Vy;Vz;My [kNm];Mz\n"
                   "B0;U1;0;50;2;1;4;3\nB0;U1;400;50;2;1;-4;-3\n");
    const Said said = Kestrum("envelope m.csv g.csv -o b.csv --sign tension+ --swap-axes "
                              "--map Stab=member --map Fall=case,Ort=x");
    EXPECT_EQ(said.exit, 0) << said.err;
    EXPECT_EQ(Read("b.csv"), Read("a.csv"));
    Write("s.csv", "Result on,Member,Member Rib,Result for,Load case,Load combination,Combination "
                   "key,Section at [m],Index,N [kN],Vy [kN],Vz [kN],Mx [kNm],My [kNm],Mz [kNm]\n"
                   "On beam,B0,,Load combination,,U1,1*G,0,1,50,1,2,0,3,4\n"
                   "On beam,B0,,Load combination,,U1,1*G,4,2,50,1,2,0,-3,-4\n");
    const Said saf = Kestrum("envelope m.csv s.csv -o c.csv");
    EXPECT_THAT(saf.err, HasSubstr("N is positive in tension"));
    EXPECT_EQ(Read("c.csv"), Read("a.csv"));
    ASSERT_EQ(Kestrum("envelope m.csv f.csv -o a.ndjson").exit, 0);
    EXPECT_THAT(Read("a.ndjson"), StartsWith("{\"member\":\"B0\",\"verdict\":\"within limits\","));
}

TEST_F(EnvelopeCommand, KeysMayHoldQuotesAndLineEnds)
{
    Write("m.csv", "id,section,l\n\"B \"\"1\"\"\nleft\",IPE 300,4\n");
    Write("f.csv", std::string(kHeader) + "\n\"B \"\"1\"\"\nleft\",U,0,1,0,0,5,0\n"
                                          "\"B \"\"1\"\"\nleft\",U,4,1,0,0,x,0\n");
    const Said said = Kestrum("envelope m.csv f.csv --json");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("f.csv:4: My: \"x\" is no number"));
    EXPECT_THAT(said.out, StartsWith("{\"member\":\"B \\\"1\\\"\\u000aleft\","));
}

TEST_F(EnvelopeCommand, RefusesWhatCannotBeBothTables)
{
    Forces("f.csv", Rows(3, 1));
    const auto refused = [&](const std::string& arguments, const std::string& why) {
        const Said said = Kestrum("envelope " + arguments);
        EXPECT_EQ(said.exit, 2) << arguments;
        EXPECT_THAT(said.err, HasSubstr(why)) << arguments;
    };
    refused("m.csv m.csv", "is the table of members too");
    refused("- -", "standard input cannot be both");
    refused("f.csv m.csv", "the members come first");
    refused("m.csv none.csv", "none.csv: no such file");
    refused("m.csv .", "is a folder");
    refused("m.csv f.xlsx", "no such file");
    refused("m.csv f.csv -o f.csv", "f.csv");
    refused("m.csv f.csv -o m.csv", "m.csv");
    refused("m.csv f.csv --map N", "expected THEIRS=OURS");
    refused("m.csv f.csv --key mark", "there is no such column");
    refused("m.csv f.csv --resume", "--resume needs -o");
    Write("f.xlsx", "PK\x03\x04");
    refused("m.csv f.xlsx", "is a spreadsheet");
    Write("zip.csv", "PK\x03\x04 and so on");
    refused("m.csv zip.csv", "is a spreadsheet or archive");
    Write("empty.csv", "");
    refused("m.csv empty.csv", "empty.csv:1: is empty");
    Write("kip.csv", "member,case,x,N [kip]\n");
    refused("m.csv kip.csv", "\"kip\" is not known");
    Write("head.csv", std::string(kHeader) + "\n");
    refused("m.csv head.csv", "0 rows");
}

TEST_F(EnvelopeCommand, LineEndsAndEncodingsOfSpreadsheets)
{
    Write("m.csv", Members(1));
    const std::string text = std::string(kHeader) + "\n" + Joined(Rows(1, 2));
    Write("f.csv", text);
    ASSERT_EQ(Kestrum("envelope m.csv f.csv -o a.csv").exit, 0);
    std::string windows = "\xEF\xBB\xBF", wide = "\xFF\xFE";
    for (const char c : text) {
        windows += c == '\n' ? "\r\n" : std::string(1, c);
        wide += c;
        wide += '\0';
    }
    Write("w.csv", windows + "\r\n");
    ASSERT_EQ(Kestrum("envelope m.csv w.csv -o b.csv").exit, 0);
    EXPECT_EQ(Read("b.csv"), Read("a.csv"));
    Write("u.csv", wide);
    ASSERT_EQ(Kestrum("envelope m.csv u.csv -o c.csv").exit, 0);
    EXPECT_EQ(Read("c.csv"), Read("a.csv"));
}

}  // namespace
}  // namespace kestrum
