// Undo and redo over whole projects: every action of the program, in any order, is taken back to
// the record that was there, bit for bit.

#include "app/file_commands.h"
#include "app/load_commands.h"
#include "app/member_commands.h"
#include "app/section_commands.h"
#include "app/session_fixture.h"
#include "app/setup_commands.h"
#include "core/project_file.h"
#include "report/state_json.h"
#include "sections/family_table.h"
#include "support/temporary_folder.h"

#include <random>

namespace kestrum {
namespace {

// Names of what a program shows of its project.
void ExpectSame(const Program& program, const ProjectState& state, const ProjectState& shown)
{
    EXPECT_TRUE(program.session.state() == state);
    EXPECT_TRUE(program.session.shown() == shown);
    EXPECT_EQ(StateJson(program.session.state()), StateJson(state));
}

// Actions as a user takes them, each with its share of chance.
class Hand {
public:
    Hand(Program& program, const TemporaryFolder& folder, unsigned seed)
        : program_(program), random_(seed)
    {
        for (const char* const name : {"a.kst", "b.kst"}) {
            Program other;
            other.edit().l = name[0] == 'a' ? 7.5F : 3.25F;
            other.edit().family = name[0] == 'a' ? i16{4} : i16{21};
            files_.push_back(folder.File(name));
            WriteBytes(files_.back(), WriteProject(other.edit()));
        }
        files_.push_back(folder.File("half.kst"));
        WriteBytes(files_.back(), ReadBytes(files_.front()).substr(0, 400));
    }

    void Act()
    {
        Session& session = program_.session;
        switch (Below(16)) {
        case 0:
            ChooseFamily(session, Families()[static_cast<std::size_t>(Below(30))].id);
            break;
        case 1:
            ChooseRow(session, static_cast<Table>(Below(static_cast<int>(kTables))), Below(20));
            break;
        case 2:
            ChooseSupport(session, Below(6));
            break;
        case 3:
            ChooseMaterial(session, Below(5));
            break;
        case 4:
            ChooseAnnex(session, Below(9));
            break;
        case 5:
            OpenEndForcesFromMenu(session);  // F4
            OpenEndForces(session);
            break;
        case 6:
            OpenLoading(session);  // F3
            break;
        case 7:
            OpenPath(session, program_.store, files_[static_cast<std::size_t>(Below(3))]);
            break;
        case 8:
            program_.desk.answers.push_back(Answer::no);
            NewFile(session, program_.store);
            program_.desk.answers.clear();
            break;
        case 9:
            TickLateralBuckling(session, Below(2) == 1);
            break;
        case 10:
            ChooseLoadCombination(session, Below(6));
            break;
        case 11:
            SetProjectName(session, std::string(static_cast<std::size_t>(Below(9)), 'x'));
            break;
        default:
            TypeInto(InputBoxes()[static_cast<std::size_t>(Below(Boxes()))]);
        }
    }

private:
    static int Boxes() { return static_cast<int>(InputBoxes().size()); }
    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

    // A value that may be refused; a user then brings back the one before.
    void TypeInto(const Box& box)
    {
        const Field& field = *FindField(box.field);
        const int row = field.first + Below(field.last - field.first + 1);
        const char* const texts[] = {"0", "1", "2.5", "12", "60", "300", "-4", "abc", "1000"};
        if (!program_.session.CommitBox(box, row, texts[Below(9)]).taken) {
            program_.session.TakeBack(box, row);
        }
    }

    Program& program_;
    std::mt19937 random_;
    std::vector<std::string> files_;
};

TEST(Undo, OfFiveHundredActionsReturnsTheFirstStateBitForBit)
{
    for (const unsigned seed : {1U, 2U, 3U}) {
        SCOPED_TRACE(seed);
        const TemporaryFolder folder;
        Program program;
        Hand hand(program, folder, seed);
        const ProjectState first = program.state(), firstshown = program.session.shown();
        const std::string title = program.session.title();
        for (int i = 0; i < 500; ++i) {
            hand.Act();
        }
        const ProjectState last = program.state(), lastshown = program.session.shown();
        int steps = 0;
        while (program.session.history().CanUndo()) {
            program.session.Undo();
            ++steps;
        }
        EXPECT_GT(steps, 200);  // some actions change nothing
        ExpectSame(program, first, firstshown);
        EXPECT_EQ(program.session.title(), title);
        EXPECT_FALSE(program.session.halfread());
        EXPECT_FALSE(program.session.modified());
        while (program.session.history().CanRedo()) {
            program.session.Redo();
        }
        ExpectSame(program, last, lastshown);
    }
}

// Every step on the way, not only the first.
TEST(Undo, GoesThroughEveryStateThatStood)
{
    const TemporaryFolder folder;
    Program program;
    Hand hand(program, folder, 7);
    std::vector<ProjectState> stood;
    while (stood.size() < 100) {
        const ProjectState before = program.state();
        const std::string_view what = program.session.history().UndoText();
        const std::size_t step = program.session.history().now().step;
        hand.Act();
        if (program.session.history().now().step != step) {
            stood.push_back(before);
            EXPECT_FALSE(program.session.history().UndoText().empty()) << what;
        }
    }
    for (; !stood.empty(); stood.pop_back()) {
        program.session.Undo();
        ASSERT_TRUE(program.state() == stood.back()) << stood.size();
    }
}

TEST(Undo, NamesWhatItTakesBack)
{
    Program program;
    Session& session = program.session;
    EXPECT_EQ(session.history().UndoText(), "");
    program.Type("kestrum", "il", "6");
    EXPECT_EQ(session.history().UndoText(), "length of the member: 5 to 6 m");
    ChooseRow(session, Table::hea, 3);
    EXPECT_EQ(session.history().UndoText(), "section HEA 160");
    ChooseFamily(session, 21);
    EXPECT_EQ(session.history().UndoText(), "section " + std::string(FindFamily(21)->text));
    ChooseSupport(session, 2);
    EXPECT_EQ(session.history().UndoText(), "supports of the ends");
    ChooseAnnex(session, 1);
    EXPECT_EQ(session.history().UndoText(), "annex EC3 + NA/Norway");
    OpenEndForcesFromMenu(session);
    OpenEndForces(session);
    EXPECT_EQ(session.history().UndoText(), "given end forces");
    program.Type("Loading", "inn", "150");
    EXPECT_EQ(session.history().UndoText(), "axial loads 1: 100 to 150 kN");
    session.Undo();
    EXPECT_EQ(session.history().RedoText(), "axial loads 1: 100 to 150 kN");
    EXPECT_EQ(session.history().UndoText(), "given end forces");
    NewFile(session, program.store);
    EXPECT_EQ(session.history().UndoText(), "new project");
    EXPECT_EQ(session.history().RedoText(), "");
}

// A text is typed letter by letter, and is one step; a box is one when it is left.
TEST(Undo, TakesBackAWholeText)
{
    Program program;
    Session& session = program.session;
    for (const char* const text : {"H", "Ha", "Hal", "Hall"}) {
        SetProjectName(session, text);
    }
    program.Type("kestrum", "il", "6");
    SetProjectName(session, "Hall 2");
    session.Undo();
    EXPECT_EQ(session.state().projname, "Hall");
    EXPECT_EQ(session.state().l, 6);
    session.Undo();
    EXPECT_EQ(session.state().l, 5);
    session.Undo();
    EXPECT_EQ(session.state().projname, "Project");
    EXPECT_FALSE(session.history().CanUndo());
}

// What a pass makes of the input is part of the step before, and no step of its own.
TEST(Undo, CountsWhatTheUserDoes)
{
    Program program;
    Session& session = program.session;
    ChooseMaterial(session, 0);  // eta follows the strength after the pass
    session.Calculate();
    session.Calculate();
    if (session.history().CanUndo()) {
        session.Undo();
    }
    EXPECT_FALSE(session.history().CanUndo());
    program.Type("kestrum", "il", "5");  // as it was
    EXPECT_FALSE(session.history().CanUndo());
}

TEST(Undo, TakesARefusedValueBackFirst)
{
    Program program;
    Session& session = program.session;
    program.Type("kestrum", "il", "6");
    const ProjectState good = program.state();
    program.Type("kestrum", "il", "0.01");
    program.Type("kestrum", "il", "0.02");
    EXPECT_EQ(program.state().l, 0.02F);
    session.Undo();
    EXPECT_TRUE(program.state() == good);
    session.Undo();
    EXPECT_EQ(program.state().l, 5);
}

// Something else may run a pass while the refused value waits to be corrected.
TEST(Undo, BringsTheValueBackThatWasGood)
{
    Program program;
    Session& session = program.session;
    program.Type("kestrum", "il", "0.01");
    session.Calculate();
    session.TakeBack(*FindBox("kestrum", "il"), 0);
    EXPECT_EQ(program.state().l, 5);
    EXPECT_EQ(session.shown().l, 5);
}

TEST(Undo, SaysWhatIsAllowedWithItsUnit)
{
    class Listening final : public Surroundings {
    public:
        std::vector<std::string> told;
        Answer Ask(std::string_view) override { return Answer::no; }
        DiskAnswer AskAboutDisk(std::string_view) override { return DiskAnswer::later; }
        void Warn(std::string_view) override {}
        void Refuse(std::string_view message, std::string_view allowed) override
        {
            told.push_back(std::string(message) + "|" + std::string(allowed));
        }
        std::optional<std::string> ChooseFileToOpen(const std::string&) override { return {}; }
        std::optional<std::string> ChooseFileToSave(const std::string&, const std::string&) override
        {
            return {};
        }
        bool Print(const std::vector<Drawing>&) override { return false; }
        bool OpenDocument(const std::string&) override { return false; }
        std::string Date() override { return {}; }
        std::string Time() override { return {}; }
    } desk;
    Session session(Delivered(), desk, true);
    session.CommitBox(*FindBox("kestrum", "il"), 0, "0,01");
    session.CommitBox(*FindBox("setup", "ifyk"), 0, "20");
    session.CommitBox(*FindBox("Loading", "inn"), 1, "abc");
    EXPECT_EQ(desk.told, (Texts{" L >= 0.050 |Allowed: at least 0,05 m",
                                " 50 <= fyk <= 2000 |Allowed: at least 50 and at most 2000 MPa",
                                "Input string mismatch |Allowed: a number, kN"}));
}

TEST(Undo, KnowsWhatTheFileHolds)
{
    const TemporaryFolder folder;
    Program program;
    Session& session = program.session;
    EXPECT_FALSE(session.modified());
    program.Type("kestrum", "il", "6");
    EXPECT_TRUE(session.modified());
    program.desk.saves = {folder.File("a.kst")};
    ASSERT_TRUE(SaveFile(session, program.store));
    EXPECT_FALSE(session.modified());
    session.Undo();
    EXPECT_TRUE(session.modified());
    EXPECT_EQ(session.state().filename, folder.File("a.kst"));  // the name that it got since
    session.Redo();
    EXPECT_FALSE(session.modified());
    session.Calculate();
    EXPECT_FALSE(session.modified());
    program.Type("kestrum", "il", "7");
    session.Undo();
    EXPECT_FALSE(session.modified());
}

// The way back over the opening of a file returns to the file before, its place on the disk and
// what is unsaved of it.
TEST(Undo, GoesBackOverAFile)
{
    const TemporaryFolder folder;
    Program program;
    Session& session = program.session;
    program.desk.saves = {folder.File("a.kst"), folder.File("b.kst")};
    ASSERT_TRUE(SaveFileAs(session, program.store));
    program.Type("kestrum", "il", "6");
    ASSERT_TRUE(SaveFileAs(session, program.store));  // b
    program.Type("kestrum", "il", "7");
    ASSERT_TRUE(OpenPath(session, program.store, folder.File("a.kst")));
    EXPECT_EQ(session.state().l, 5);
    EXPECT_FALSE(session.modified());
    EXPECT_EQ(session.history().UndoText(), "opening of a.kst");
    session.Undo();
    EXPECT_EQ(session.state().filename, folder.File("b.kst"));
    EXPECT_EQ(session.shown().filename, folder.File("b.kst"));
    EXPECT_TRUE(session.title().ends_with(": " + folder.File("b.kst")));
    EXPECT_EQ(session.state().l, 7);
    EXPECT_TRUE(session.modified());
    EXPECT_EQ(session.disk.Compare(folder.File("b.kst")), DiskState::same);
    ASSERT_TRUE(SaveFile(session, program.store));
    EXPECT_FALSE(session.modified());
    session.Redo();
    EXPECT_EQ(session.state().filename, folder.File("a.kst"));
    EXPECT_FALSE(session.modified());
    EXPECT_EQ(session.disk.Compare(folder.File("a.kst")), DiskState::same);
    session.Undo();
    EXPECT_FALSE(session.modified());  // it was saved since
}

TEST(Undo, ForgetsTheOldestOfManySteps)
{
    Program program;
    for (std::size_t i = 0; i < History::kMostSteps + 20; ++i) {
        ChooseSupport(program.session, static_cast<int>(i % 3));
    }
    std::size_t steps = 0;
    for (; program.session.history().CanUndo(); ++steps) {
        program.session.Undo();
    }
    EXPECT_EQ(steps, History::kMostSteps);
}

}  // namespace
}  // namespace kestrum
