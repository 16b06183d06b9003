// Unsaved work survives the end of its program, whatever that is.

#include "app/aside.h"
#include "app/file_commands.h"
#include "app/load_commands.h"
#include "app/member_commands.h"
#include "app/section_commands.h"
#include "app/session_fixture.h"
#include "app/state_text.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace kestrum {
namespace {

// The inputs that a file may not hold: of the other mode of loading, of other families.
void Fill(Session& session)
{
    ProjectState& s = session.edit();
    s.projname = "Hall 2: 100 %\n\"axis C\" ä";
    s.l = 7.123456F;
    s.p22.isth = 555;
    s.loadmode = 0;
    s.ne = 0.1F;
    s.nload[2] = 33;
    session.Calculate();
}

// --- Text of a record ----------------------------------------------------------------------------

TEST(StateText, ReadsBackToTheSameRecord)
{
    Program program;
    Fill(program.session);
    program.session.Calculate();
    ProjectState read = program.state();
    read.l = 1;
    read.projname = "";
    read.p22.isth = 1;
    read.mydiag[20] = 4;
    EXPECT_EQ(ReadStateText(read, StateText(program.state())), "");
    EXPECT_TRUE(read == program.state());
}

TEST(StateText, NamesALineThatItCannotRead)
{
    ProjectState s{};
    EXPECT_EQ(ReadStateText(s, "l 5\nunheard-of 7\nqload[2] 1.5\n"), "");  // of another version
    EXPECT_EQ(s.l, 5);
    EXPECT_EQ(s.qload[2], 1.5F);
    for (const std::string line : {"l", "l 5x", "l ", "family 70000", "l 5 6", "nload[1] 1,5"}) {
        EXPECT_EQ(ReadStateText(s, "ne 1\n" + line + "\nne 2\n"), line);
    }
    EXPECT_EQ(ReadStateText(s, "projname 100%25 %zz%"), "");
    EXPECT_EQ(s.projname, "100% %zz%");
}

// --- A window and the next one -------------------------------------------------------------------

// A program that sets its work aside.
struct Window : Program {
    Aside aside;
    explicit Window(const TemporaryFolder& folder) : aside(folder.File("state"))
    {
        session.aside = &aside;
    }
};

std::vector<LeftWork> Left(const TemporaryFolder& folder)
{
    return FindLeftWork(folder.File("state"));
}

TEST(UnsavedWork, IsOfferedAfterClosingWithoutSaving)
{
    const TemporaryFolder folder;
    ProjectState stood;
    {
        Window window(folder);
        Fill(window.session);
        stood = window.state();
    }
    Window next(folder);
    std::vector<LeftWork> left = Left(folder);
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].project, "New File");
    EXPECT_EQ(left[0].when.size(), std::string_view("2024-05-17 14:05").size());
    ASSERT_TRUE(TakeUp(next.session, left[0]));
    EXPECT_TRUE(static_cast<const Inputs&>(next.state()) == static_cast<const Inputs&>(stood));
    EXPECT_EQ(StateText(next.state()), StateText(stood));  // all numbers, results too
    EXPECT_TRUE(next.session.modified());
    EXPECT_EQ(next.session.history().UndoText(), "unsaved work");
    EXPECT_TRUE(Left(folder).empty());  // it is this window's now
    next.session.Undo();
    EXPECT_EQ(next.state().l, 5);
}

TEST(UnsavedWork, IsNoneOnceItIsSavedOrTakenBack)
{
    const TemporaryFolder folder;
    {
        Window window(folder);
        window.Type("kestrum", "il", "6");
        window.aside.Settle();
        window.desk.saves = {folder.File("a.kst")};
        ASSERT_TRUE(SaveFile(window.session, window.store));
    }
    EXPECT_TRUE(Left(folder).empty());
    {
        Window window(folder);
        window.Type("kestrum", "il", "6");
        window.session.Undo();
    }
    EXPECT_TRUE(Left(folder).empty());
    EXPECT_TRUE(std::filesystem::is_empty(folder.File("state")));
}

// A project that is left for another one keeps its unsaved work.
TEST(UnsavedWork, OfEveryProjectOfAWindow)
{
    const TemporaryFolder folder;
    {
        Window window(folder);
        window.desk.saves = {folder.File("a.kst")};
        ASSERT_TRUE(SaveFile(window.session, window.store));
        window.Type("kestrum", "il", "6");
        window.desk.answers.push_back(Answer::no);
        NewFile(window.session, window.store);
        window.Type("kestrum", "il", "7");
        ASSERT_TRUE(OpenPath(window.session, window.store, folder.File("a.kst")));
    }
    Window next(folder);
    std::vector<LeftWork> left = Left(folder);
    ASSERT_EQ(left.size(), 2U);
    const std::size_t a = left[0].project == "New File" ? 1 : 0;
    EXPECT_EQ(left[a].project, folder.File("a.kst"));
    ASSERT_TRUE(TakeUp(next.session, left[a]));
    EXPECT_EQ(next.state().l, 6);
    EXPECT_TRUE(next.session.title().ends_with(": " + folder.File("a.kst")));
    EXPECT_EQ(next.session.disk.Compare(folder.File("a.kst")), DiskState::same);
    ASSERT_TRUE(SaveFile(next.session, next.store));
    Discard(left[1 - a]);
    EXPECT_TRUE(Left(folder).empty());
}

// The file has changed since the work on it was left: saving asks first.
TEST(UnsavedWork, KnowsAFileThatHasChangedSince)
{
    const TemporaryFolder folder;
    {
        Window window(folder);
        window.desk.saves = {folder.File("a.kst")};
        ASSERT_TRUE(SaveFile(window.session, window.store));
        window.Type("kestrum", "il", "6");
    }
    WriteBytes(folder.File("a.kst"), "another program's");
    Window next(folder);
    std::vector<LeftWork> left = Left(folder);
    ASSERT_EQ(left.size(), 1U);
    ASSERT_TRUE(TakeUp(next.session, left[0]));
    EXPECT_FALSE(SaveFile(next.session, next.store));
    EXPECT_EQ(next.desk.questions.size(), 1U);
    EXPECT_EQ(ReadBytes(folder.File("a.kst")), "another program's");
}

TEST(UnsavedWork, OfAFileReadInPartDoesNotOverwriteIt)
{
    const TemporaryFolder folder;
    {
        Window window(folder);
        window.desk.saves = {folder.File("a.kst")};
        ASSERT_TRUE(SaveFile(window.session, window.store));
        WriteBytes(folder.File("a.kst"), ReadBytes(folder.File("a.kst")).substr(0, 400));
        EXPECT_FALSE(OpenPath(window.session, window.store, folder.File("a.kst")));
        window.Type("kestrum", "il", "6");
    }
    Window next(folder);
    std::vector<LeftWork> left = Left(folder);
    ASSERT_EQ(left.size(), 1U);
    ASSERT_TRUE(TakeUp(next.session, left[0]));
    EXPECT_EQ(next.state().filename, "New File");
}

TEST(UnsavedWork, OfAnotherWindowIsLeftAlone)
{
    const TemporaryFolder folder;
    Window first(folder), second(folder);
    first.Type("kestrum", "il", "6");
    second.Type("kestrum", "il", "7");
    first.aside.Settle();
    second.aside.Settle();
    EXPECT_TRUE(Left(folder).empty());
    first.Type("kestrum", "il", "8");  // the lock goes on to the next file
    first.aside.Settle();
    EXPECT_TRUE(Left(folder).empty());
}

// What one window offers, no other does.
TEST(UnsavedWork, IsOfferedByOneWindow)
{
    const TemporaryFolder folder;
    {
        Window window(folder);
        window.Type("kestrum", "il", "6");
    }
    const std::vector<LeftWork> offered = Left(folder);
    EXPECT_EQ(offered.size(), 1U);
    EXPECT_TRUE(Left(folder).empty());
}

TEST(UnsavedWork, ThatIsDamagedIsNotOfferedAndNotDeleted)
{
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.File("state"));
    WriteBytes(folder.File("state/1.unsaved"), "anything");
    WriteBytes(folder.File("state/2.unsaved"), "");
    WriteBytes(folder.File("state/3.unsaved"), "kestrum-ec3 unsaved work 1\n\nwhole\nl x\n");
    EXPECT_TRUE(Left(folder).empty());
    EXPECT_TRUE(std::filesystem::exists(folder.File("state/1.unsaved")));
    EXPECT_TRUE(FindLeftWork(folder.File("nowhere")).empty());
}

TEST(UnsavedWork, ThatCannotBeWrittenIsAProblemThatIsTold)
{
    const TemporaryFolder folder;
    WriteBytes(folder.File("state"), "a file in place of the folder");
    Window window(folder);
    window.Type("kestrum", "il", "6");
    window.aside.Settle();
    EXPECT_NE(window.aside.problem(), "");
}

// --- Killed --------------------------------------------------------------------------------------

// What the killed program has told: each state that stood, then that it is on the disk.
struct Told {
    std::size_t safe = 0;  // how many of them were set aside
    std::vector<std::string> states;
};

void Say(int pipe, char kind, const std::string& text = {})
{
    const std::string line = kind + text + '\n';
    if (write(pipe, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
        _exit(1);
    }
}

std::string InHand(const ProjectState& s)
{
    return std::to_string(s.l) + " " + std::to_string(s.family) + " " +
           std::to_string(s.supportcase) + " " + std::to_string(s.loadmode) + " " + s.ident;
}

// A user who edits without a pause until he is killed.
[[noreturn]] void Edit(const std::string& folder, int pipe, unsigned seed)
{
    ScriptedSurroundings desk;
    Session session(Delivered(), desk, false);
    Aside aside(folder);
    session.aside = &aside;
    std::mt19937 random(seed);
    for (int i = 0;; ++i) {
        SetIdent(session, "step " + std::to_string(i));
        Say(pipe, 's', InHand(session.state()));
        switch (random() % 4) {
        case 0:
            session.CommitBox(*FindBox("kestrum", "il"), 0, std::to_string(1 + random() % 20));
            break;
        case 1:
            ChooseFamily(session, 1 + static_cast<int>(random() % 4));
            break;
        case 2:
            ChooseSupport(session, static_cast<int>(random() % 6));
            break;
        default:
            OpenEndForcesFromMenu(session);
            OpenEndForces(session);
        }
        Say(pipe, 's', InHand(session.state()));
        if (i % 8 == 7) {
            aside.Settle();
            Say(pipe, 'k');
        }
    }
}

Told ReadAll(int pipe)
{
    std::string text;
    std::array<char, 4096> part{};
    for (ssize_t size = 0; (size = read(pipe, part.data(), part.size())) > 0;) {
        text.append(part.data(), static_cast<std::size_t>(size));
    }
    Told told;
    for (std::size_t end = 0; (end = text.find('\n')) != std::string::npos;
         text.erase(0, end + 1)) {
        if (text[0] == 's') {
            told.states.push_back(text.substr(1, end - 1));
        } else {
            told.safe = told.states.size();
        }
    }
    return told;
}

// Killed at any moment: one work is offered, whole, and it is none older than what was safe.
// KESTRUM_KILLS sets how often.
TEST(UnsavedWork, OutlivesAKillAtAnyMoment)
{
    const char* const wanted = std::getenv("KESTRUM_KILLS");
    const int kills = wanted != nullptr ? std::atoi(wanted) : 50;
    std::mt19937 random(20240517);
    for (int kill_ = 0; kill_ < kills; ++kill_) {
        SCOPED_TRACE(kill_);
        const TemporaryFolder folder;
        std::array<int, 2> ends{};
        ASSERT_EQ(pipe(ends.data()), 0);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            close(ends[0]);
            Edit(folder.File("state"), ends[1], static_cast<unsigned>(kill_));
        }
        close(ends[1]);
        std::thread killer([&, wait = random() % 400] {
            std::this_thread::sleep_for(std::chrono::milliseconds(20 + wait));
            kill(child, SIGKILL);
        });
        const Told told = ReadAll(ends[0]);
        killer.join();
        waitpid(child, nullptr, 0);
        close(ends[0]);
        std::vector<LeftWork> left = Left(folder);
        ASSERT_LE(left.size(), 1U);
        if (told.safe == 0) {
            continue;  // killed before anything was written
        }
        ASSERT_EQ(left.size(), 1U);
        Window next(folder);
        ASSERT_TRUE(TakeUp(next.session, left[0]));
        // Not among those that were told: the last one, set aside before that.
        const auto last = std::find(told.states.rbegin(), told.states.rend(), InHand(next.state()));
        const std::ptrdiff_t lost = last == told.states.rend() ? 0 : last - told.states.rbegin();
        EXPECT_LE(static_cast<std::size_t>(lost), told.states.size() - told.safe)
            << InHand(next.state());
    }
}

// A change waits for the pause and one writing: less than the second that may be lost.
static_assert(Aside::kPause <= std::chrono::milliseconds(500));

}  // namespace
}  // namespace kestrum
