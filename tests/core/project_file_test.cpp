#include "core/project_file.h"

#include "core/annexes.h"
#include "core/field_table.h"
#include "core/project_state.h"
#include "support/project_lines.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace kestrum {
namespace {

using namespace project_lines;

// Reads a file that must be good.
ProjectState Read(const std::string& bytes, ProjectState s = {})
{
    const std::optional<FileFault> fault = ReadProject(s, bytes);
    EXPECT_FALSE(fault) << FaultText("file", *fault);
    return s;
}

double ValueOf(const ProjectState& s, const std::string& name)
{
    const std::optional<FieldRef> ref = ResolveField(name);
    EXPECT_TRUE(ref) << name;
    return ref ? NumberOf(s, *ref->field, ref->index) : 0;
}

// --- layout ---

TEST(ProjectFile, KeepsTheLayoutOfALoadedMember)
{
    const std::string bytes = Joined(DefaultProject());
    ProjectState s = Read(bytes);
    EXPECT_EQ(WriteProject(s), bytes);
}

TEST(ProjectFile, KeepsTheLayoutOfGivenEndForces)
{
    const std::string bytes = Joined(Project(0, 1, {{"row.hea", "10"}}));
    ProjectState s = Read(bytes);
    EXPECT_EQ(s.ne, 100);
    EXPECT_EQ(s.vz1, 50);
    EXPECT_EQ(WriteProject(s), bytes);
}

TEST(ProjectFile, HasNoLoadBlockForAnotherLoadMode)
{
    const std::string bytes = Joined(Project(7, 1, {{"row.hea", "10"}}));
    ProjectState s = Read(bytes);
    EXPECT_EQ(s.loadmode, 7);
    EXPECT_EQ(WriteProject(s), bytes);
}

// Every line differs from its neighbours, so that exchanged fields show.
TEST(ProjectFile, PutsEachValueIntoItsField)
{
    for (const int loadmode : {0, 1}) {
        Lines lines = Project(loadmode, 1, {{"row.hea", "10"}});
        Set(lines, "annexcode", "\"UD\"");
        std::map<std::string, double> expected;
        int next = 132;
        for (Line& line : lines) {
            const std::optional<FieldRef> ref = ResolveField(line.name);
            const bool gate =
                line.name == "version" || line.name == "loadmode" || line.name == "family";
            if (gate || line.text.front() == '#' || !ref || ref->field->kind == FieldKind::text) {
                continue;
            }
            line.text = std::to_string(++next);
            expected[line.name] = next;
        }
        const ProjectState s = Read(Joined(lines));
        for (const auto& [name, value] : expected) {
            EXPECT_EQ(ValueOf(s, name), value) << name;
        }
    }
}

TEST(ProjectFile, PutsEachTruthValueIntoItsField)
{
    for (const Line& truth : DefaultProject()) {
        if (truth.text.front() != '#' || truth.name == "checkconsercontrol") {
            continue;
        }
        Lines lines = DefaultProject();
        const bool was = truth.text == "#TRUE#";
        Set(lines, truth.name, was ? "#FALSE#" : "#TRUE#");
        ProjectState s = Read(Joined(lines));
        EXPECT_EQ(ValueOf(s, truth.name), was ? kFalse : kTrue) << truth.name;
        EXPECT_EQ(WriteProject(s), Joined(lines)) << truth.name;
    }
}

TEST(ProjectFile, HoldsTheConservativeControlTwice)
{
    Lines lines = DefaultProject();
    const auto first = Find(lines, "checkconsercontrol");
    const auto second = std::find_if(
        first + 1, lines.end(), [](const Line& line) { return line.name == "checkconsercontrol"; });
    ASSERT_NE(second, lines.end());
    second->text = "#TRUE#";
    ProjectState s = Read(Joined(lines));
    EXPECT_EQ(s.checkconsercontrol, kTrue);  // the second one stays
    first->text = "#TRUE#";
    EXPECT_EQ(WriteProject(s), Joined(lines));
}

// --- section blocks ---

TEST(ProjectFile, KeepsTheBlockOfEveryFamily)
{
    std::set<int> families;
    for (const Block& block : SectionBlocks()) {
        SCOPED_TRACE(block.family);
        families.insert(block.family);
        const std::string bytes = Joined(Project(1, block.family, block.lines));
        ProjectState before{};
        before.p25.istc = 5;  // stands in for hsqc when a project of family 24 is written
        ProjectState s = Read(bytes, before);
        EXPECT_EQ(s.family, block.family);
        for (const Line& line : block.lines) {
            if (line.name == "p41ident") {
                EXPECT_EQ(s.p41ident, "General");
            } else {
                EXPECT_NEAR(ValueOf(s, line.name), std::stod(line.text),
                            1e-7 * std::stod(line.text))
                    << line.name;
            }
        }
        EXPECT_EQ(s.spare2, 1);
        EXPECT_EQ(WriteProject(s), bytes);
    }
    EXPECT_GE(families.size(), 32U);  // those that projects have had
}

TEST(ProjectFile, PutsEachSectionValueIntoItsField)
{
    for (const Block& block : SectionBlocks()) {
        SCOPED_TRACE(block.family);
        Lines lines = block.lines;
        int next = 100;
        for (Line& line : lines) {
            const bool text = line.text.front() == '"';
            const bool series = line.name.starts_with("series");
            if (!text && !series) {
                line.text = std::to_string(++next);
            }
        }
        const ProjectState s = Read(Joined(Project(1, block.family, lines)));
        for (const Line& line : lines) {
            if (line.text.front() != '"') {
                EXPECT_EQ(ValueOf(s, line.name), std::stod(line.text)) << line.name;
            }
        }
    }
}

TEST(ProjectFile, KeepsFractionsInTheirPrecision)
{
    Lines t = Project(1, 26, BlockOf(26).lines);
    Set(t, "p26.isth", "200.123456789012");  // double
    Set(t, "p26.isttf1", "10.12346");        // single
    ProjectState s = Read(Joined(t));
    EXPECT_EQ(s.p26.isth, 200.123456789012);
    EXPECT_EQ(s.p26.isttf1, 10.12346f);
    EXPECT_EQ(WriteProject(s), Joined(t));
}

TEST(ProjectFile, TakesAnEmptyBlockForFamiliesWithoutEntry)
{
    for (const int family : {-1, 0, 12, 14, 17, 20, 29, 30, 32, 40, 50, 57, 100, 104, 999, 32767}) {
        if (HasBlock(family)) {
            continue;
        }
        const std::string bytes = Joined(Project(1, family, {}));
        ProjectState s = Read(bytes);
        EXPECT_EQ(s.family, family);
        EXPECT_EQ(WriteProject(s), bytes) << family;
    }
}

TEST(ProjectFile, HasNoRowForAnUnknownSeries)
{
    for (const auto& [family, name] :
         {std::pair{101, "series101"}, {101, "series101"}, {103, "series103"}}) {
        for (const char* series : {"0", "4", "-1"}) {
            const std::string bytes = Joined(Project(1, family, {{name, series}}));
            ProjectState s = Read(bytes);
            EXPECT_EQ(WriteProject(s), bytes);
        }
    }
}

TEST(ProjectFile, ChecksNoLimits)
{
    Lines lines = DefaultProject();
    Set(lines, "row.hea", "32767");
    Set(lines, "supportcase", "-5");
    Set(lines, "loadcomb", "77");
    Set(lines, "l", "-3");
    Set(lines, "ltbk", ".001");
    ProjectState s = Read(Joined(lines));
    EXPECT_EQ(s.row[static_cast<std::size_t>(Table::hea)], 32767);
    EXPECT_EQ(s.supportcase, -5);
    EXPECT_EQ(s.loadcomb, 77);
    EXPECT_EQ(s.l, -3);
    EXPECT_EQ(s.ltbk, 0.001f);
    EXPECT_EQ(WriteProject(s), Joined(lines));
}

// What the field table calls an input is in the file for some load mode and family, and no more.
TEST(ProjectFile, HoldsExactlyTheInputs)
{
    std::set<std::string> infile;
    const auto collect = [&infile](const Lines& lines) {
        for (const Line& line : lines) {
            infile.insert(line.name);
        }
    };
    collect(Project(0, 1, {}));
    collect(Project(1, 1, {}));
    for (const Block& block : SectionBlocks()) {
        collect(block.lines);
    }
    infile.erase("version");
    std::set<std::string> inputs;
    for (const Field& field : AllFields()) {
        if (field.role != FieldRole::input) {
            continue;
        }
        if (field.shape == FieldShape::scalar) {
            inputs.insert(std::string(field.name));
        }
        for (int k = 1; field.shape == FieldShape::array && k <= field.last; ++k) {
            inputs.insert(std::string(field.name) + "[" + std::to_string(k) + "]");
        }
    }
    EXPECT_EQ(infile, inputs);
}

TEST(ProjectFile, DoesNotSaveTheSelfWeightRow)
{
    ProjectState s = Read(Joined(DefaultProject()));
    s.qload[0] = 3.5f;
    s.qdir[0] = 1;
    EXPECT_EQ(WriteProject(s), Joined(DefaultProject()));
}

// --- parts of the format that do not mirror ---

TEST(ProjectFile, ReplacesTheHsqDistanceByThatOfTheOneSidedBeam)
{
    ProjectState s = Read(Joined(Project(1, 24, BlockOf(24).lines)));
    ASSERT_EQ(s.family, 24);
    s.p24.hsqc = 5;
    s.p25.istc = 15;
    const ProjectState again = Read(WriteProject(s));
    EXPECT_EQ(again.p24.hsqc, 15);
    EXPECT_EQ(again.p25.istc, 0);  // not in a file of family 24
    EXPECT_EQ(s.p24.hsqc, 5);      // writing changes nothing
}

TEST(ProjectFile, SharesTheUpgradeChoiceOfBothHsqFamilies)
{
    for (const int family : {24, 25}) {
        Block block = BlockOf(family);
        Set(block.lines, "class23", "0");
        ProjectState before{};
        before.class23 = 1;
        EXPECT_EQ(Read(Joined(Project(1, block.family, block.lines)), before).class23, 0);
    }
}

// --- versions ---

Lines OfVersion(Lines lines, int version)
{
    Set(lines, "version", std::to_string(version));
    if (version < 131) {
        Erase(lines, "deflimitz");
    }
    const bool hsq = Find(lines, "family")->text == "24" || Find(lines, "family")->text == "25";
    if (version < 120 && hsq) {
        Erase(lines, "class23");
    }
    return lines;
}

TEST(ProjectFile, ShiftsTheCombinationOfOldVersions)
{
    struct Case {
        int version;
        i16 loadcomb;
    };
    for (const Case& c : {Case{-1, 4}, {0, 4}, {100, 4}, {118, 4}, {119, 3}, {130, 3}, {131, 3}}) {
        Lines lines = DefaultProject();
        Set(lines, "loadcomb", "3");
        EXPECT_EQ(Read(Joined(OfVersion(lines, c.version))).loadcomb, c.loadcomb) << c.version;
    }
    Lines lines = DefaultProject();
    Set(lines, "loadcomb", "32767");
    EXPECT_EQ(Read(Joined(OfVersion(lines, 118))).loadcomb, 32767);  // nothing beyond 16 bits
}

TEST(ProjectFile, GivesBothDeflectionLimitsTheOneOfOldVersions)
{
    Lines lines = DefaultProject();
    Set(lines, "deflimity", "250");
    ProjectState s = Read(Joined(OfVersion(lines, 130)));
    EXPECT_EQ(s.deflimity, 250);
    EXPECT_EQ(s.deflimitz, 250);
    Set(lines, "deflimitz", "250");
    EXPECT_EQ(WriteProject(s), Joined(lines));  // a later save writes two

    Set(lines, "deflimitz", "400");
    EXPECT_EQ(Read(Joined(OfVersion(lines, 131))).deflimitz, 400);
}

TEST(ProjectFile, SetsTheUpgradeChoiceOfOldVersions)
{
    for (const int family : {24, 25}) {
        Block block = BlockOf(family);
        Set(block.lines, "class23", "0");
        const Lines lines = Project(1, block.family, block.lines);
        EXPECT_EQ(Read(Joined(OfVersion(lines, 119))).class23, 1) << block.family;
        EXPECT_EQ(Read(Joined(OfVersion(lines, 120))).class23, 0) << block.family;
        EXPECT_EQ(Read(Joined(OfVersion(lines, 119))).spare2, 1) << block.family;
    }
}

TEST(ProjectFile, ReadsHigherVersionsAsItsOwn)
{
    for (const int version : {132, 200, 32767}) {
        Lines lines = DefaultProject();
        Set(lines, "version", std::to_string(version));
        ProjectState s = Read(Joined(lines));
        EXPECT_EQ(WriteProject(s), Joined(DefaultProject()));
    }
}

// --- what follows from the values ---

TEST(ProjectFile, SettlesPsiAndAnnexAfterReading)
{
    Lines lines = DefaultProject();
    Set(lines, "annexcode", "\"NO\"");
    Set(lines, "gammam0", "1.5");
    Set(lines, "psi1index", "4");
    Set(lines, "psi2index", "-1");
    const ProjectState s = Read(Joined(lines));
    EXPECT_EQ(s.annexindex, kAnnexNo);
    EXPECT_EQ(s.gammam0, 1.05);  // not the typed one
    EXPECT_EQ(s.gammam1, 1.05f);
    EXPECT_EQ(s.lamdalt0, 0.4f);
    EXPECT_EQ(s.psi1, 0.5f);
    EXPECT_EQ(s.psi2, 0);
    EXPECT_NE(s.g610g, 0);  // the load factors of the annex as well
}

TEST(ProjectFile, KeepsTypedFactorsOfTheUserDefinedAnnexOnly)
{
    Lines lines = DefaultProject();
    Set(lines, "annexcode", "\"UD\"");
    Set(lines, "gammam0", "1.05");
    Set(lines, "gammam1", "1.25");
    Set(lines, "neta", ".9");
    ProjectState before{};
    before.lamdalt0 = 0.3f;
    ProjectState s = Read(Joined(lines), before);
    EXPECT_EQ(s.annexindex, kAnnexUd);
    EXPECT_EQ(s.gammam0, 1.05);
    EXPECT_EQ(s.gammam1, 1.25f);
    EXPECT_EQ(s.neta, 0.9f);
    EXPECT_EQ(s.lamdalt0, 0.3f);  // in no project file: stays as the session had it
    EXPECT_EQ(WriteProject(s), Joined(lines));
}

TEST(ProjectFile, ForcesTheUserCombinationForNorsok)
{
    Lines lines = DefaultProject();
    Set(lines, "annexcode", "\"NK\"");
    Set(lines, "loadcomb", "1");
    EXPECT_EQ(Read(Joined(lines)).loadcomb, 4);
}

TEST(ProjectFile, TakesAnUnknownAnnexAsTheStandard)
{
    for (const char* code : {"\"XX\"", "\"\"", "\"no\"", "XX"}) {
        Lines lines = DefaultProject();
        Set(lines, "annexcode", code);
        EXPECT_EQ(Read(Joined(lines)).annexindex, 0) << code;
    }
}

TEST(ProjectFile, WritesTheCodeOfTheAnnexInForce)
{
    ProjectState s = Read(Joined(DefaultProject()));
    s.annexindex = kAnnexDk;
    EXPECT_NE(WriteProject(s).find("\r\n\"DK\"\r\n"), std::string::npos);
    EXPECT_EQ(s.annexcode, "DK");
    s.annexindex = kAnnexes;
    EXPECT_NE(WriteProject(s).find("Test\r\n\"\"\r\n"), std::string::npos);
}

// --- texts ---

TEST(ProjectFile, KeepsCommasAndQuotesInTheNames)
{
    Lines lines = DefaultProject();
    Set(lines, "projname", "  Hall 3, \"east\", roof  ");
    Set(lines, "ident", "\"B1\", B2");
    ProjectState s = Read(Joined(lines));
    EXPECT_EQ(s.projname, "  Hall 3, \"east\", roof  ");
    EXPECT_EQ(s.ident, "\"B1\", B2");
    EXPECT_EQ(WriteProject(s), Joined(lines));
}

// Unlike the names, which take their whole line, the code is a value among others.
TEST(ProjectFile, EndsTheAnnexCodeAtACommaOrQuote)
{
    Lines lines = DefaultProject();
    Set(lines, "annexcode", "NO,DK");
    ProjectState s{};
    const std::optional<FileFault> fault = ReadProject(s, Joined(lines));
    ASSERT_TRUE(fault);
    EXPECT_EQ(s.annexcode, "NO");
    EXPECT_TRUE(fault->what.starts_with("field gammam0: expected a number, found \"DK\""));
    Set(lines, "annexcode", "\"N\"O\"");
    EXPECT_EQ(Read(Joined(lines)).annexcode, "N");
}

TEST(ProjectFile, KeepsEmptyNames)
{
    Lines lines = DefaultProject();
    Set(lines, "projname", "");
    Set(lines, "ident", "");
    ProjectState s = Read(Joined(lines));
    EXPECT_EQ(s.projname, "");
    EXPECT_EQ(s.ident, "");
    EXPECT_EQ(WriteProject(s), Joined(lines));
}

TEST(ProjectFile, BreaksNoLineInsideAName)
{
    ProjectState s = Read(Joined(DefaultProject()));
    s.projname = "one\r\ntwo";
    const ProjectState again = Read(WriteProject(s));
    EXPECT_EQ(again.projname, "one  two");
    EXPECT_EQ(again.spare2, 1);
}

TEST(ProjectFile, CannotHoldAQuoteInTheProfileName)
{
    ProjectState s = Read(Joined(Project(1, 41, BlockOf(41).lines)));
    s.p41ident = "5\" pipe, thick";
    const ProjectState again = Read(WriteProject(s));
    EXPECT_EQ(again.p41ident, "5");
}

}  // namespace
}  // namespace kestrum
