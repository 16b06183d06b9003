// A table of members open for editing: what stays as it was read, the steps, the way between line
// and project, and what lines give.

#include "app/change_text.h"
#include "app/members_rating.h"
#include "app/members_sheet.h"
#include "app/unloaded_member.h"
#include "app/without_effect.h"
#include "engine/calculate.h"
#include "report/outcome.h"
#include "sections/family_table.h"
#include "support/members.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>

namespace kestrum {
namespace {

using ::testing::HasSubstr;

MembersSheet Sheet(std::string_view text)
{
    MembersSheet sheet;
    EXPECT_EQ(sheet.Take(text, "m.csv"), "");
    return sheet;
}

std::shared_ptr<const ProjectState> Base()
{
    return std::make_shared<const ProjectState>(UnloadedMember(Delivered()));
}

LineSource SourceOf(const MembersSheet& sheet)
{
    return {&Delivered(), Base(), sheet.reader(), nullptr};
}

constexpr std::string_view kThree = "id,section,l,qload[1]\nB1,IPE 300,6,10\nB2,IPE 200,6,10\n"
                                    "B3,HEA 200,4,\n";

// Quotes that need not be, blanks, line ends of another system, the mark: only what was edited is
// written anew.
TEST(MembersSheet, KeepsWhatWasNotEdited)
{
    const std::string text = "\xEF\xBB\xBFid;l;projname\r\n\"B1\"; 6 ;\"Hall; axis \"\"C\"\"\"\r\n"
                             "B2;7,5;\"two\nlines\"\r\n";
    MembersSheet sheet = Sheet(text);
    EXPECT_EQ(sheet.Text(), text);
    EXPECT_EQ(sheet.Cell(0, 2), "Hall; axis \"C\"");
    EXPECT_FALSE(sheet.modified());
    sheet.Set(1, 1, "8");
    EXPECT_TRUE(sheet.modified());
    EXPECT_EQ(sheet.Text(), text.substr(0, text.find("B2")) + "B2;8;\"two\nlines\"\r\n");
    ProjectState s = *Base();
    EXPECT_EQ(sheet.Member(Delivered(), 0, s), "");
    EXPECT_EQ(s.l, 6.0F);
}

TEST(MembersSheet, RefusesWhatIsNoTableOfMembers)
{
    MembersSheet sheet = Sheet(kThree);
    EXPECT_THAT(sheet.Take("l,l\n1,2\n", "x.csv"), HasSubstr("x.csv:1: l: is in two columns"));
    EXPECT_THAT(sheet.Take("PK\x03\x04...", "x.xlsx"), HasSubstr("save its sheet as CSV"));
    EXPECT_THAT(sheet.Take("{\"l\": 6}", "x.csv"), HasSubstr("not from JSON"));
    EXPECT_THAT(sheet.Take(std::string_view("l,i\0d\n1,2\n", 10), "x.csv"),
                HasSubstr("holds a zero byte"));
    EXPECT_EQ(sheet.rows(), 3U);  // what was there stays
}

constexpr std::string_view kLines = "IPE 400\t5\nIPE 450\t5.5\nIPE 500\t6\n";

// Every step back is the table that was there, with the lines that results are kept for.
TEST(MembersSheet, UndoesEveryStep)
{
    MembersSheet sheet = Sheet(kThree);
    std::vector<std::string> texts;
    std::vector<std::uint64_t> first;
    const auto step = [&](auto act) {
        texts.push_back(sheet.Text());
        first.push_back(sheet.At(0).id);
        act();
        EXPECT_NE(sheet.Text(), texts.back());
    };
    step([&] { sheet.Set(0, 2, "7"); });
    step([&] { EXPECT_EQ(sheet.Paste({{1}, 1, 1}, kLines, std::array<std::size_t, 1>{2}), ""); });
    EXPECT_EQ(sheet.rows(), 4U);
    EXPECT_EQ(sheet.Cell(3, 1), "IPE 500");
    EXPECT_EQ(sheet.Cell(3, 0), "");
    step([&] { sheet.FillDown({{0, 1, 2}, 2, 2}); });
    EXPECT_EQ(sheet.Cell(2, 2), "7");
    EXPECT_EQ(sheet.Cell(2, 3), "10");
    EXPECT_EQ(sheet.Cell(3, 2), "6");
    step([&] { sheet.Clear({{0, 1}, 3, 1}); });
    step([&] { sheet.Insert(1, 2); });
    EXPECT_EQ(sheet.Cell(3, 1), "IPE 400");
    step([&] { sheet.Remove({2, 0, 1}); });
    EXPECT_EQ(sheet.Cell(0, 1), "IPE 400");
    step([&] { EXPECT_EQ(sheet.AddColumn("steel"), ""); });
    step([&] { EXPECT_EQ(sheet.Paste({{0, 1, 2}, 2, 1}, "9"), ""); });  // one cell fills the range
    EXPECT_EQ(sheet.Cell(2, 2), "9");
    const std::string last = sheet.Text();
    for (std::size_t i = texts.size(); i-- > 0;) {
        sheet.Undo();
        EXPECT_EQ(sheet.Text(), texts[i]) << i;
        EXPECT_EQ(sheet.At(0).id, first[i]) << i;
    }
    EXPECT_FALSE(sheet.CanUndo());
    EXPECT_FALSE(sheet.modified());
    while (sheet.CanRedo()) {
        sheet.Redo();
    }
    EXPECT_EQ(sheet.Text(), last);
}

TEST(MembersSheet, SaysWhyATextDoesNotFit)
{
    MembersSheet sheet = Sheet(kThree);
    EXPECT_THAT(sheet.Paste({{0}, 3, 1}, "1\t2\n"), HasSubstr("only 1 from here on"));
    EXPECT_THAT(sheet.AddColumn("l"), HasSubstr("is in two columns"));
    EXPECT_FALSE(sheet.CanUndo());
    EXPECT_EQ(sheet.Copy({{0, 1}, 1, 2}), "IPE 300\t6\nIPE 200\t6\n");
}

// Of inputs that play a part.
bool Same(const ProjectState& one, const ProjectState& other)
{
    const std::vector<FieldRef> changed = ChangedInputs(one, other);
    return std::all_of(changed.begin(), changed.end(), [&](const FieldRef& ref) {
        return !WithoutEffect(Delivered(), other, IndexedName(*ref.field, ref.index)).empty();
    });
}

// A line is opened, the member changed as in the windows, and written back: the line then gives
// that member, for every family, and says it in one step.
TEST(MembersSheet, WrittenLineGivesTheMember)
{
    for (const FamilyTraits& family : Families()) {
        SCOPED_TRACE(family.id);
        MembersSheet sheet = Sheet(kThree);
        const std::string before = sheet.Text();
        ProjectState wanted = *Base();
        ASSERT_EQ(sheet.Member(Delivered(), 0, wanted), "");
        for (const auto& [name, text] :
             {std::pair<std::string, std::string>{"family", std::to_string(family.id)},
              {"l", "7.25"},
              {"qload[1]", "3.5"},
              {"qload[2]", "1.25"},
              {"qdir[2]", "0"},
              {"steel", "S275"},
              {"supportcase", "2"},
              {"ident", "roof, \"B1\""}}) {
            ASSERT_EQ(AssignField(Delivered(), wanted, name, text, Assignment::checked), "")
                << name;
        }
        Calculate(Delivered(), wanted);
        EXPECT_EQ(sheet.Write(Delivered(), 0, *Base(), wanted), "");
        ProjectState given = *Base();
        ASSERT_EQ(sheet.Member(Delivered(), 0, given), "");
        Calculate(Delivered(), given);
        EXPECT_EQ(given.l, 7.25F);
        EXPECT_TRUE(Same(given, wanted));
        // The file holds it, too, and the other lines are what they were.
        MembersSheet again = Sheet(sheet.Text());
        ProjectState read = *Base();
        ASSERT_EQ(again.Member(Delivered(), 0, read), "");
        Calculate(Delivered(), read);
        EXPECT_TRUE(Same(read, wanted));
        EXPECT_EQ(sheet.At(1).record, "B2,IPE 200,6,10");
        sheet.Undo();
        EXPECT_EQ(sheet.Text(), before);
    }
}

// A line with a slip of the quotes is refused by a check; in the file it stays as it was, and after
// an edit its text is in a cell.
TEST(MembersSheet, LineWhoseQuotesCannotBeMeantIsKept)
{
    const std::string text = "member,section,l\nB1,IPE 200,5\nB2,\"IPE 300\" x,6\nB3,\"HEA 200,7\n";
    MembersSheet sheet = Sheet(text);
    ASSERT_EQ(sheet.rows(), 3U);
    EXPECT_EQ(sheet.Text(), text);
    EXPECT_EQ(sheet.Cell(1, 0), "B2,\"IPE 300\" x,6");
    ProjectState s = *Base();
    EXPECT_EQ(sheet.Member(Delivered(), 1, s), "text after a closing quote");
    sheet.Set(1, 2, "8");
    EXPECT_EQ(sheet.Text(),
              "member,section,l\nB1,IPE 200,5\n\"B2,\"\"IPE 300\"\" x,6\",,8\nB3,\"HEA 200,7\n");
}

// Nothing is written that the line says already, in whatever words.
TEST(MembersSheet, WritesOnlyWhatHasChanged)
{
    MembersSheet sheet = Sheet("id,section,l,steel\nB1,ipe300,6.00,S 355\n");
    const std::string before = sheet.Text();
    ProjectState wanted = *Base();
    ASSERT_EQ(sheet.Member(Delivered(), 0, wanted), "");
    Calculate(Delivered(), wanted);
    EXPECT_EQ(sheet.Write(Delivered(), 0, *Base(), wanted), "");
    EXPECT_EQ(sheet.Text(), before);
    EXPECT_FALSE(sheet.CanUndo());
    ASSERT_EQ(AssignField(Delivered(), wanted, "section", "IPE 330", Assignment::checked), "");
    EXPECT_EQ(sheet.Write(Delivered(), 0, *Base(), wanted), "");
    EXPECT_EQ(sheet.Text(), "id,section,l,steel\nB1,IPE 330,6.00,S 355\n");
}

// The ratio of a line is that of its member calculated by itself.
TEST(MembersRating, IsThatOfTheMember)
{
    const MembersSheet sheet = Sheet(kThree);
    for (std::size_t row = 0; row < sheet.rows(); ++row) {
        const LineRating rating = RateLine(SourceOf(sheet), sheet.Record(row), sheet.NameOf(row));
        ProjectState s = *Base();
        ASSERT_EQ(sheet.Member(Delivered(), row, s), "");
        const Outcome outcome = OutcomeOf(s, Calculate(Delivered(), s));
        EXPECT_EQ(rating.answer.program.verdict, outcome.verdict) << row;
        EXPECT_EQ(rating.answer.program.ir, outcome.ir) << row;
        EXPECT_EQ(rating.rated(), outcome.rated()) << row;
    }
    const MembersSheet bad = Sheet("id,l\nB1,-1\n");
    const LineRating refused = RateLine(SourceOf(bad), bad.Record(0), "B1");
    EXPECT_THAT(GoverningText(refused), HasSubstr("l: L >= 0.050"));
    EXPECT_EQ(RatioText(refused, false), "not checked");
    EXPECT_FALSE(refused.passes());
}

// Tension on an IPE 300 of S355: A = 5381 mm2, N_Rd = 5381*355/1.0/1000 = 1910 kN of EU and so
// ratios of 0.26 and 0.52 in two cases; the worse is named. Members without forces are no members
// of the frame.
TEST(MembersRating, OfForcesIsTheWorstCase)
{
    const MembersSheet sheet = Sheet("id,section,steel,l\nB1,IPE 300,S355,6\nB2,IPE 300,S355,6\n");
    const auto forces = std::make_shared<ForceCases>();
    ASSERT_EQ(forces->Take("member,case,x,N\nB1,ULS1,0,-500\nB1,ULS2,0,-1000\nB1,ULS1,6,-500\n"
                           "B1,ULS2,6,-1000\n",
                           "f.csv"),
              "");
    EXPECT_EQ(forces->cases(), 2U);
    LineSource source = SourceOf(sheet);
    source.forces = forces;
    const LineRating rating = RateLine(source, sheet.Record(0), "B1");
    EXPECT_NEAR(rating.answer.program.ir, 1000 / 1910.0, 0.005);
    EXPECT_THAT(GoverningText(rating), HasSubstr("case ULS2"));
    EXPECT_EQ(RatioText(rating, false), "0.52");
    EXPECT_THAT(GoverningText(RateLine(source, sheet.Record(1), "B2")),
                HasSubstr("f.csv has no forces of member \"B2\""));
    ForceCases bad;
    // The second record begins on line 4: the first holds a line end.
    ASSERT_EQ(bad.Take("member,case,x,N,note\nB1,U,0,1,\"two\nlines\"\nB1,U,1,one,\n", "f.csv"),
              "");
    EXPECT_THAT(bad.Of("B1")->front().fault, ::testing::StartsWith("line 4: "));
    EXPECT_THAT(bad.Take("member,case,x,N\n,U,0,1\n", "f.csv"), HasSubstr("f.csv:2: "));
    EXPECT_THAT(bad.Take("a,b\n1,2\n", "f.csv"), HasSubstr("f.csv:1: "));
}

// The lightest passes, and each IPE below it does not.
TEST(MembersRating, LightestPassesAndNoLighterOne)
{
    MembersSheet sheet = Sheet("id,section,steel,l,qload[1]\nB1,IPE 100,S355,6,15\n");
    const LightestLine found = FindLightestLine(SourceOf(sheet), sheet.Record(0), "B1", {"IPE"});
    ASSERT_EQ(found.refusal, "");
    int lighter = 0;
    for (const char* const size : {"80", "100", "120", "140", "160", "180", "200", "220", "240",
                                   "270", "300", "330", "360", "400", "450", "500"}) {
        sheet.Set(0, 1, std::string("IPE ") + size);
        const bool passes = RateLine(SourceOf(sheet), sheet.Record(0), "B1").passes();
        EXPECT_EQ(passes, "IPE " + std::string(size) == found.section || lighter < 0) << size;
        lighter = passes ? -1 : lighter;
        if (passes) {
            break;
        }
    }
    EXPECT_EQ(lighter, -1);
    sheet.Set(0, 4, "100000");
    EXPECT_NE(FindLightestLine(SourceOf(sheet), sheet.Record(0), "B1", {"IPE"}).refusal, "");
    EXPECT_NE(FindLightestLine(SourceOf(sheet), sheet.Record(0), "B1", {"XYZ"}).refusal, "");
}

}  // namespace
}  // namespace kestrum
