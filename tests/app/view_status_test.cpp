#include "app/view_status.h"

#include "app/file_commands.h"
#include "app/load_commands.h"
#include "app/member_commands.h"
#include "app/section_commands.h"
#include "app/session_fixture.h"
#include "app/view_section.h"
#include "core/project_file.h"
#include "report/panel_text.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace kestrum {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

// 5 m of HEA under its own weight and nothing that a note is about.
struct Member : Program {
    StatusView Status() const { return StatusOf(session); }
    std::vector<std::string> Lines() const { return Status().lines; }
    std::string Head() const { return Status().head; }
};

// --- The verdict ---------------------------------------------------------------------------------

TEST(Status, BeginsWithTheVerdictAndWhatGoverns)
{
    Member program;
    const Outcome& outcome = program.session.outcome();
    ASSERT_EQ(outcome.verdict, Verdict::within);
    EXPECT_THAT(program.Head(), StartsWith(VerdictText(outcome) + ":  IR 0."));
    EXPECT_THAT(program.Head(), HasSubstr(outcome.control + "  (Ch " + outcome.clause + ")"));
}

// q L2/8 of 400 kN/m over 5 m is 1250 kNm, far above any HEA 300 of S355: Wpl fy is about 450 kNm.
// Of the tables: HEA 200 has 42.3 kg/m, so that 6 m weigh 253.8 kg.
TEST(Status, SaysWhatIsBeingLookedAt)
{
    Member program;
    ChooseRow(program.session, Table::hea, 5);
    program.Type("kestrum", "il", "6");
    ChooseLoadCombination(program.session, 3);
    EXPECT_EQ(program.Status().facts, "HEA 200,  42.3 kg/m,  254 kg,  EN 1990 Eq 6.10a/b");
    OpenEndForcesFromMenu(program.session);
    EXPECT_THAT(program.Status().facts, HasSubstr("given end forces"));
    ChooseFamily(program.session, 21);
    EXPECT_THAT(program.Status().facts, StartsWith(SectionName(Delivered(), program.state())));
}

TEST(Status, CopiesVerdictAndPanel)
{
    Member program;
    const std::string text = ResultsAsText(program.session);
    EXPECT_THAT(text, StartsWith("Kestrum EC3: New File\n" + program.Status().facts));
    EXPECT_THAT(text, HasSubstr(program.Head()));
    EXPECT_THAT(text, ::testing::EndsWith(PanelText(program.session.shown())));
    Member comma;
    Session german(Delivered(), comma.desk, true);
    german.Calculate();
    EXPECT_THAT(ResultsAsText(german), HasSubstr("88,3 kg/m"));
}

TEST(Status, SaysInWordsThatALimitIsExceeded)
{
    Member program;
    program.Type("Loading", "iq", "400");
    EXPECT_THAT(program.Head(), StartsWith("above limit:  IR "));
    EXPECT_EQ(program.Status().kind, StatusKind::bad);
}

TEST(Status, NamesCauseAndNumbersOfAFailure)
{
    Member program;
    program.Type("Loading", "inn", "100000");
    ASSERT_TRUE(program.session.failed());
    const StatusView status = program.Status();
    EXPECT_EQ(status.kind, StatusKind::bad);
    EXPECT_THAT(status.head, StartsWith("unstable:  IR "));
    ASSERT_FALSE(status.lines.empty());
    EXPECT_THAT(status.lines[0], StartsWith(FailureText(program.state().failure)));
    EXPECT_THAT(status.lines[0], HasSubstr("NEd "));
    EXPECT_THAT(status.lines[0], HasSubstr("those of the last calculation that ended"));
    program.Type("Loading", "inn", "50");
    EXPECT_THAT(program.Head(), StartsWith("within limits"));
}

TEST(Status, SaysThatNothingActs)
{
    Member program;
    program.Type("Loading", "inn", "0");
    program.Type("Loading", "iq", "0");
    EXPECT_EQ(program.Head(), "nothing acts");
    EXPECT_EQ(program.Status().kind, StatusKind::caution);
    EXPECT_FALSE(program.Lines().empty());
}

TEST(Status, NamesEveryLoadThatWasDropped)
{
    Member program;
    ChooseFamily(program.session, 27);  // takes no axial load
    EXPECT_THAT(program.Head(), StartsWith("loads dropped"));
    EXPECT_THAT(program.Lines(), Contains(StartsWith("Load dropped: nload[1]: ")));
    EXPECT_EQ(program.Status().kind, StatusKind::caution);
}

// --- Lateral torsional buckling ------------------------------------------------------------------

TEST(Status, SaysThatLateralTorsionalBucklingIsSwitchedOff)
{
    Member program;
    EXPECT_THAT(program.Lines(), Not(Contains(HasSubstr("Lateral torsional buckling"))));
    TickLateralBuckling(program.session, false);
    EXPECT_THAT(program.Lines(), Contains("Lateral torsional buckling is not checked: its control "
                                          "is switched off."));
    EXPECT_EQ(program.Status().kind, StatusKind::caution);
}

// A hollow section has none and switches it off; the next section could have it again.
TEST(Status, SaysWhichSectionHasSwitchedLateralTorsionalBucklingOff)
{
    Member program;
    ChooseFamily(program.session, 7);
    EXPECT_THAT(program.Lines(), Not(Contains(HasSubstr("Lateral torsional buckling"))));
    ChooseFamily(program.session, 4);
    EXPECT_EQ(program.state().ltb, 0);
    EXPECT_THAT(program.Lines(),
                Contains(HasSubstr("chosen in between, has switched its control off")));
    ChooseFamily(program.session, 1);
    EXPECT_THAT(program.Lines(), Contains(HasSubstr("chosen in between")));
    TickLateralBuckling(program.session, true);
    EXPECT_THAT(program.Lines(), Not(Contains(HasSubstr("Lateral torsional buckling"))));
    TickLateralBuckling(program.session, false);
    EXPECT_THAT(program.Lines(), Contains(HasSubstr("its control is switched off")));
}

// --- Files ---------------------------------------------------------------------------------------

struct SavedMember : Member {
    TemporaryFolder folder;
    std::string path = folder.File("a.kst");
    std::string whole;

    SavedMember()
    {
        edit().l = 7.25F;
        whole = WriteProject(edit());
    }
    bool Open(std::string_view bytes)
    {
        WriteBytes(path, bytes);
        return OpenPath(session, store, path);
    }
};

// Until a file is read whole, through every calculation in between.
TEST(Status, SaysThatTheFileWasReadInPart)
{
    SavedMember program;
    EXPECT_FALSE(program.Open(program.whole.substr(0, program.whole.size() / 2)));
    for (int i = 0; i < 2; ++i) {
        const StatusView status = program.Status();
        EXPECT_EQ(status.kind, StatusKind::bad);
        EXPECT_EQ(status.head, "not checked: the file was read in part");
        EXPECT_THAT(status.lines.at(0), StartsWith("Half-read file: " + program.path + ":"));
        program.Type("kestrum", "il", "6");
    }
    EXPECT_TRUE(program.Open(program.whole));
    EXPECT_THAT(program.Head(), Not(HasSubstr("read in part")));
    EXPECT_THAT(program.Lines(), Not(Contains(StartsWith("Half-read"))));
}

TEST(Status, ForgetsTheFamilyThatSwitchedOffWithTheProject)
{
    SavedMember program;
    program.edit().ltb = 0;
    const std::string off = WriteProject(program.edit());
    ChooseFamily(program.session, 7);
    ASSERT_TRUE(program.Open(off));
    EXPECT_THAT(program.Lines(), Contains(HasSubstr("its control is switched off")));
}

TEST(Status, SaysThatTheFileIsGone)
{
    SavedMember program;
    ASSERT_TRUE(program.Open(program.whole));
    std::filesystem::remove(program.path);
    ReviewDisk(program.session, program.store);
    EXPECT_THAT(program.Lines(), Contains(HasSubstr("no longer on the disk")));
    ASSERT_TRUE(SaveFile(program.session, program.store));
    EXPECT_THAT(program.Lines(), Not(Contains(HasSubstr("no longer on the disk"))));
}

// A damaged setup that the start has found, for as long as the program runs.
TEST(Status, SaysWhatTheStartCouldNotUse)
{
    Library library = Delivered();
    library.faults = {"/data/KestrumEC3Setup.dat: line 9: is damaged; the delivered one counts"};
    ScriptedSurroundings desk;
    Session session(library, desk, false);
    session.Calculate();
    EXPECT_THAT(StatusOf(session).lines, Contains(library.faults[0]));
    EXPECT_EQ(StatusOf(session).kind, StatusKind::caution);
}

// End forces have no deflection of their own.
TEST(Status, SaysWhatIsOlderThanTheInput)
{
    Member program;
    TickDeflections(program.session, true);
    EXPECT_THAT(program.Lines(), Not(Contains(StartsWith("Older than the input"))));
    OpenEndForces(program.session);
    EXPECT_THAT(program.Lines(), Contains(StartsWith("Older than the input: The deflections")));
}

}  // namespace
}  // namespace kestrum
