// The commands that the documentation shows, run as they stand there.

#include "cli/run.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <regex>
#include <string>
#include <vector>

namespace kestrum {
namespace {

using ::testing::HasSubstr;

std::string Replaced(std::string text, const std::string& what, const std::string& by)
{
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
        text.replace(at, what.size(), by);
    }
    return text;
}

class Recipes : public CommandLine {
protected:
    // The shell blocks of a document.
    static std::vector<std::string> Blocks(const std::string& name)
    {
        std::ifstream file(KESTRUM_SOURCE "/" + name);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        const std::string open = "\n```sh\n", close = "\n```";
        std::vector<std::string> blocks;
        for (std::size_t at = 0; (at = text.find(open, at)) != std::string::npos;) {
            at += open.size();
            blocks.push_back(text.substr(at, text.find(close, at) - at));
        }
        return blocks;
    }

    Said Run(const std::string& block) const
    {
        return Shell("PATH='" KESTRUM_BIN "':$PATH; set -e\n" + block);
    }

    static std::ptrdiff_t Answers(const std::string& text)
    {
        return std::count(text.begin(), text.end(), '\n') -
               static_cast<std::ptrdiff_t>(
                   std::distance(std::sregex_iterator(text.begin(), text.end(), kHeader),
                                 std::sregex_iterator()));
    }

    static const std::regex kHeader;
};

const std::regex Recipes::kHeader("(^|\n)member,");

// Also where members are above their limit or cannot be read.
TEST_F(Recipes, ThoseOfBatchAnswerEachMember)
{
    const std::vector<std::string> blocks = Blocks("docs/batch.md");
    ASSERT_EQ(blocks.size(), 2U);
    std::filesystem::create_directory(Path("projects"));
    WriteGood("projects/a.kst");
    for (int i = 0; i < 30; ++i) {
        std::filesystem::copy(Path("projects/a.kst"),
                              Path("projects/" + std::to_string(i) + ".kst"));
    }
    ASSERT_EQ(Kestrum("set projects/7.kst qload[1]=4000").exit, 0);
    Write("projects/8.kst", "131\r\nno project");
    const Said files = Run(Replaced(blocks[0], "-n 200", "-n 10"));
    EXPECT_EQ(files.exit, 0) << files.err;
    EXPECT_EQ(Answers(Read("answers.csv")), 31);
    EXPECT_THAT(Read("answers.csv"), HasSubstr("projects/7.kst,above limit"));
    EXPECT_THAT(Read("answers.csv"), HasSubstr("projects/8.kst,bad input"));

    std::string table = "l,qload[1],ident\n";
    for (int i = 0; i < 25; ++i) {
        table += std::to_string(2 + i % 5) + (i == 3 ? ",4000," : i == 12 ? ",x," : ",1,") + "B\n";
    }
    Write("members.csv", table);
    const Said split = Run(Replaced(blocks[1], "100000", "10"));
    EXPECT_EQ(split.exit, 0) << split.err;
    EXPECT_EQ(Answers(Read("part.aa.csv")), 10);
    EXPECT_EQ(Answers(Read("part.ab.csv")), 10);
    EXPECT_EQ(Answers(Read("part.ac.csv")), 5);
    EXPECT_THAT(Read("part.aa.csv"), HasSubstr("\n4,above limit"));
    EXPECT_THAT(Read("part.ab.csv"), HasSubstr("\n3,bad input"));
}

TEST_F(Recipes, ThoseOfEnvelopeAnswerEachMember)
{
    std::filesystem::copy(KESTRUM_SOURCE "/examples", Path("examples"),
                          std::filesystem::copy_options::recursive);
    const std::vector<std::string> blocks = Blocks("docs/envelope.md");
    ASSERT_EQ(blocks.size(), 1U);
    const Said said = Run(blocks[0]);
    EXPECT_EQ(said.exit, 0) << said.err;
    EXPECT_EQ(Answers(Read("worst.csv")), 7);
    EXPECT_EQ(Answers(said.out), 21);
}

TEST_F(Recipes, ThoseOfOptimizeFindASection)
{
    std::filesystem::copy(KESTRUM_SOURCE "/examples", Path("examples"),
                          std::filesystem::copy_options::recursive);
    Write("members.csv", "l,qload[1]\n6,12\n4,20\n");
    ASSERT_EQ(Kestrum("new -o girder.kst --family 21 --set l=18 --set 'qload[1]=30'").exit, 0);
    const std::vector<std::string> blocks = Blocks("docs/optimize.md");
    ASSERT_EQ(blocks.size(), 2U);
    for (const std::string& block : blocks) {
        const Said said = Run(block);
        EXPECT_EQ(said.exit, 0) << said.err;
        EXPECT_THAT(said.out, HasSubstr("\n1. "));
    }
    EXPECT_THAT(Read("chosen.csv"), HasSubstr("\nC4,"));
    EXPECT_EQ(Kestrum("check lighter.kst").exit, 0);
}

// That of Slurm is run by tools/check-slurm.
TEST_F(Recipes, PartsByHandHaveTheBytesOfOneRun)
{
    for (const char* table : {"members.csv", "forces.csv"}) {
        std::filesystem::copy(std::string(KESTRUM_SOURCE "/examples/frames/") + table, Path(table));
    }
    const Said said = Run(Blocks("docs/scale.md").front());
    EXPECT_EQ(said.exit, 0) << said.err;
    ASSERT_EQ(Kestrum("envelope members.csv forces.csv -q -o whole.csv").exit, 0);
    EXPECT_EQ(Read("worst.csv"), Read("whole.csv"));
    EXPECT_EQ(Answers(Read("worst.csv")), 7);
}

TEST_F(Recipes, ThoseOfSummaryWriteEachForm)
{
    if (!std::filesystem::exists(KESTRUM_BIN "/kestrum-render.so")) {
        GTEST_SKIP() << "built without the renderer";
    }
    std::filesystem::copy(KESTRUM_SOURCE "/examples", Path("examples"),
                          std::filesystem::copy_options::recursive);
    const std::vector<std::string> blocks = Blocks("docs/summary.md");
    ASSERT_EQ(blocks.size(), 1U);
    const Said said = Run(blocks[0]);
    if (said.err.find("built without libxlsxwriter") != std::string::npos) {
        GTEST_SKIP() << "built without libxlsxwriter";
    }
    EXPECT_EQ(said.exit, 0) << said.err;
    EXPECT_TRUE(Read("worst.pdf").starts_with("%PDF"));
    EXPECT_TRUE(Read("worst.xlsx").starts_with("PK"));
    EXPECT_TRUE(Read("sorted.csv").starts_with("order,member,verdict,ir,"));
    EXPECT_EQ(std::count(said.err.begin(), said.err.end(), '\n'), 1 + 7 + 3 * 2) << said.err;
}

// The tables that the document shows are those of the example.
TEST_F(Recipes, TablesOfEnvelopeStandInTheExample)
{
    std::ifstream document(KESTRUM_SOURCE "/docs/envelope.md");
    std::ifstream members(KESTRUM_SOURCE "/examples/frames/members.csv");
    std::ifstream forces(KESTRUM_SOURCE "/examples/frames/forces.csv");
    const std::string tables = std::string(std::istreambuf_iterator<char>(members), {}) +
                               std::string(std::istreambuf_iterator<char>(forces), {});
    int shown = 0;
    for (std::string line; std::getline(document, line);) {
        if (std::regex_search(line, std::regex("^[BCT]1,"))) {
            EXPECT_THAT(tables, HasSubstr(line + "\n"));
            ++shown;
        }
    }
    EXPECT_EQ(shown, 5);
}

TEST_F(Recipes, ThoseOfTheReadmeAndTheGuideEndWell)
{
    std::filesystem::copy(KESTRUM_SOURCE "/examples", Path("examples"),
                          std::filesystem::copy_options::recursive);
    for (const char* document : {"README.md", "docs/guide/command-line.md"}) {
        for (const std::string& block : Blocks(document)) {
            if (block.find("kestrum") == std::string::npos) {
                continue;
            }
            const Said said = Run(block);
            EXPECT_EQ(said.exit, 0) << document << ":\n" << block << '\n' << said.err;
            EXPECT_FALSE(said.out.empty()) << block;
        }
    }
}

}  // namespace
}  // namespace kestrum
