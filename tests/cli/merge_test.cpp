// Runs in parts: shards of batch and envelope, and their answers put together.

#include "app/shard.h"
#include "run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace kestrum {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(Shards, EachMemberIsOfOneShardAlone)
{
    for (std::size_t count = 1; count < 9; ++count) {
        for (std::size_t member = 0; member < 100; ++member) {
            int owners = 0;
            for (std::size_t i = 0; i < count; ++i) {
                owners += Shard{i, count}.Has(member) ? 1 : 0;
            }
            EXPECT_EQ(owners, 1);
        }
        // Behind so many of its members the next is the first of its own.
        for (std::size_t i = 0; i < count; ++i) {
            const Shard shard{i, count};
            std::size_t mine = 0;
            for (std::size_t member = 0; member < 50; ++member) {
                if (shard.Has(member)) {
                    EXPECT_EQ(shard.Behind(++mine), member + 1);
                }
            }
        }
    }
}

TEST(Shards, AreWrittenAsPartOfWhole)
{
    Shard shard;
    EXPECT_TRUE(ReadShard("2/8", shard));
    EXPECT_EQ(shard.index, 1U);
    EXPECT_EQ(shard.count, 8U);
    for (const char* text : {"", "0/4", "5/4", "1", "1/", "/4", "1/4/2", "1 /4", "-1/4", "1/4x",
                             "1.5/4", "1/99999999999999999999"}) {
        EXPECT_FALSE(ReadShard(text, shard)) << text;
    }
}

TEST(Shards, AnOrderIsReadAsItWasWritten)
{
    // Places with the numbers of their lines: even steps, uneven ones, several lines.
    const std::vector<std::pair<std::size_t, std::size_t>> members = {
        {1, 1}, {5, 1}, {9, 1}, {13, 1}, {14, 1}, {15, 3}, {19, 3}, {20, 1}, {1000000, 2}};
    ShardOrder written, read;
    for (const auto& [place, lines] : members) {
        for (std::size_t i = 0; i < lines; ++i) {
            written.Add(place);
        }
    }
    EXPECT_EQ(written.Text().substr(0, 8), "1 4 4 1\n");
    ASSERT_TRUE(read.Read(written.Text()));
    std::vector<std::pair<std::size_t, std::size_t>> found;
    for (ShardOrder::Member member{}; read.Next(member);) {
        found.emplace_back(member.place, member.lines);
    }
    EXPECT_EQ(found, members);
    EXPECT_TRUE(read.Read(""));
    for (const char* text : {"1 1 1\n", "1 1 1 0\n", "1 0 1 1\n", "1 1 0 1\n", "5 1 1 1\n5 1 1 1\n",
                             "5 1 2 1\n6 1 1 1\n", "x\n", "1 1 1 1 1\n",
                             "1 2 18446744073709551615 1\n", "99999999999999999999 1 1 1\n"}) {
        EXPECT_FALSE(read.Read(text)) << text;
    }
}

class Merging : public CommandLine {
protected:
    // The run in parts and put together, in another order than they were made.
    void ExpectTheSame(const std::string& command, const std::string& ending) const
    {
        SCOPED_TRACE(command);
        const Said whole = Kestrum(command + " --quiet -o whole" + ending);
        for (const char* part : {"1", "2", "3"}) {
            Kestrum(command + " --quiet --shard " + part + "/3 -o part" + part + ending);
        }
        const Said said = Kestrum("merge part3" + ending + " part1" + ending + " part2" + ending +
                                  " -o merged" + ending);
        EXPECT_EQ(said.exit, 0) << said.err;
        EXPECT_THAT(Read("whole" + ending), ::testing::Not(IsEmpty()));
        EXPECT_EQ(Read("merged" + ending), Read("whole" + ending));
    }

    void WriteMembers(int count) const
    {
        std::string table = "id,section,steel,l\n";
        for (int i = 0; i < count; ++i) {
            table += "B" + std::to_string(i) + ",IPE 300,S235,4\n";
        }
        Write("m.csv", table);
    }

    // Members in another order than in their table, the last without forces.
    void WriteForces(int count, bool sorted) const
    {
        std::vector<std::string> rows;
        for (int i = count - 1; i-- > 0;) {
            for (int k = 0; k < 3; ++k) {
                for (int x = 0; x <= 4; x += 4) {
                    rows.push_back("B" + std::to_string(i) + ",U" + std::to_string(k) + "," +
                                   std::to_string(x) + "," + std::to_string(i * 30 + k) + "\n");
                }
            }
        }
        if (!sorted) {
            std::reverse(rows.begin(), rows.end());
            std::rotate(rows.begin(), rows.begin() + 7, rows.end());
        }
        std::string table = "member,case,x,N\nnobody,U1,0,1\nB3,,0,1\n";
        for (const std::string& row : rows) {
            table += row.starts_with("B3,") && sorted ? "" : row;
        }
        Write("f.csv", table);
    }

    void WriteBatch(int count) const
    {
        std::string table = "ident,section,l,nload[1]\n";
        for (int i = 0; i < count; ++i) {
            table += "\"B\n" + std::to_string(i) + "\",IPE 300," + (i == 5 ? "x" : "4") + "," +
                     std::to_string(i * 40) + "\n" + (i == 4 ? "\n" : "");
        }
        Write("t.csv", table);
    }
};

TEST_F(Merging, ABatchHasTheSameBytes)
{
    WriteBatch(11);
    WriteGood("p.kst");
    ExpectTheSame("batch t.csv", ".csv");
    ExpectTheSame("batch p.kst t.csv p.kst t.csv --fields ident,clause", ".ndjson");
}

TEST_F(Merging, AnEnvelopeHasTheSameBytesInAnyOrderOfItsRows)
{
    WriteMembers(10);
    for (const bool sorted : {true, false}) {
        WriteForces(10, sorted);
        ExpectTheSame("envelope m.csv f.csv --basis program", ".csv");
        ExpectTheSame("envelope m.csv f.csv --basis program --all", ".ndjson");
    }
    ExpectTheSame("envelope m.csv f.csv --basis program --top 2", ".csv");
}

TEST_F(Merging, PartsMayHaveNoMembers)
{
    WriteMembers(2);
    WriteForces(2, true);
    ExpectTheSame("envelope m.csv f.csv --basis program", ".csv");
    WriteBatch(1);
    ExpectTheSame("batch t.csv", ".ndjson");
}

TEST_F(Merging, APartGoesOnWhereItWasStopped)
{
    WriteBatch(11);
    ExpectTheSame("batch t.csv", ".csv");
    const std::string part = Read("part2.csv");
    Kestrum("batch t.csv --quiet --shard 2/3 -o part2.csv");  // a whole one to be cut
    Shell("cp part2.csv part2.csv.part; cp part2.csv.shard part2.csv.part.inputs; "
          "sed -i '/^order$/,$d' part2.csv.part.inputs; truncate -s -20 part2.csv.part; "
          "rm part2.csv part2.csv.shard");
    const Said said = Kestrum("batch t.csv --quiet --shard 2/3 --resume -o part2.csv");
    EXPECT_EQ(Read("part2.csv"), part) << said.err;
    EXPECT_EQ(Kestrum("merge part1.csv part2.csv part3.csv -o merged.csv").exit, 0);
    EXPECT_EQ(Read("merged.csv"), Read("whole.csv"));
    // Another part of the same run is no start.
    Shell("cp part1.csv part3.csv.part; cp part1.csv.shard part3.csv.part.inputs; "
          "sed -i '/^order$/,$d' part3.csv.part.inputs");
    const Said other = Kestrum("batch t.csv --quiet --shard 3/3 --resume -o part3.csv");
    EXPECT_EQ(other.exit, 2);
    EXPECT_THAT(other.err, HasSubstr("cannot be resumed"));
}

TEST_F(Merging, WhatIsNotAllOfOneRunIsRefused)
{
    WriteBatch(11);
    ExpectTheSame("batch t.csv", ".csv");
    Shell("cp part1.csv again.csv; cp part1.csv.shard again.csv.shard; cp part1.csv.shard x; cp "
          "part1.csv y");
    const auto refused = [this](const std::string& arguments, const std::string& why) {
        const Said said = Kestrum("merge " + arguments);
        EXPECT_EQ(said.exit, 2) << arguments;
        EXPECT_THAT(said.err, HasSubstr(why)) << arguments;
        EXPECT_FALSE(std::filesystem::exists(Path("o.csv"))) << arguments;
        EXPECT_FALSE(std::filesystem::exists(Path("o.csv.part"))) << arguments;
    };
    refused("part1.csv part3.csv -o o.csv", "part 2 of 3 is missing");
    refused("part1.csv part2.csv part3.csv again.csv -o o.csv", "is the same part as part1.csv");
    refused("whole.csv -o o.csv", "a run with --shard writes it");
    refused("none.csv -o o.csv", "none.csv.shard: ");
    refused("part1.csv part2.csv part3.csv -o part1.csv", "would overwrite the input");
    refused("part1.csv part2.csv part3.csv -o o.ndjson", "the parts hold CSV");
    refused("part1.csv part2.csv part3.csv -o o.txt", "has to end in");
    const auto changed = [&](const std::string& change, const std::string& why) {
        Shell("cp y part1.csv; cp x part1.csv.shard; " + change);
        refused("part1.csv part2.csv part3.csv -o o.csv", why);
    };
    changed("truncate -s -5 part1.csv", "part1.csv: ends before its last answer");
    changed("echo more >>part1.csv", "part1.csv: goes on behind its last answer");
    changed("sed -i '2s/.*/no answer/' part1.csv", "part1.csv: holds a line that is no answer");
    changed("sed -i 's/^0 3/1 3/' part1.csv.shard", "another part answers");
    changed("echo x >>part1.csv.shard", "is not what a run with --shard writes");
    changed("sed -i '/^order$/d' part1.csv.shard", "is not what a run with --shard writes");
    changed("sed -i 's, 1/3$, 1/18446744073709551615,' part1.csv.shard", "is of another run");
    changed("echo 'B,IPE 300,4,1' >>t.csv; " KESTRUM_BIN
            "/kestrum batch t.csv -q --shard 1/3 -o part1.csv",
            "is of another run than part1.csv");
    changed("rm part1.csv", "part1.csv: No such file");
}

TEST_F(Merging, AShardNeedsAFile)
{
    WriteBatch(2);
    EXPECT_THAT(Kestrum("batch t.csv --shard 1/2").err, HasSubstr("--shard needs -o with a file"));
    EXPECT_THAT(Kestrum("batch t.csv --shard 3/2 -o o.csv").err,
                HasSubstr("--shard 3/2: expected I/N"));
    EXPECT_EQ(Kestrum("batch t.csv --quiet --shard 1/1 --exit-zero -o o.csv").exit, 0);
    EXPECT_TRUE(std::filesystem::exists(Path("o.csv.shard")));
    Kestrum("batch t.csv --quiet -o o.csv");  // a whole run has no such file
    EXPECT_FALSE(std::filesystem::exists(Path("o.csv.shard")));
}

}  // namespace
}  // namespace kestrum
