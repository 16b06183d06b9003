#include "app/file_commands.h"

#include "app/load_commands.h"
#include "app/member_commands.h"
#include "app/session_fixture.h"
#include "app/setup_commands.h"
#include "core/annexes.h"
#include "core/project_file.h"
#include "support/temporary_folder.h"

#include <filesystem>

namespace kestrum {
namespace {

// A saved project of 7.25 m.
std::string SaveProject(const TemporaryFolder& folder, std::string_view name, float length = 7.25F)
{
    Program program;
    program.edit().l = length;
    program.edit().projname = "Hall, \"north\"";
    const std::string path = folder.File(name);
    WriteBytes(path, WriteProject(program.edit()));
    return path;
}

// The same file without its last lines.
std::string SaveHalfProject(const TemporaryFolder& folder, std::string_view name)
{
    const std::string path = SaveProject(folder, name);
    const std::string bytes = ReadBytes(path);
    WriteBytes(path, bytes.substr(0, bytes.size() / 2));
    return path;
}

Texts RecentPaths(const MemoryStore& store)
{
    Texts paths;
    for (const std::string& caption : ReadRecentFiles(store)) {
        paths.push_back(PathOfCaption(caption));
    }
    return paths;
}

// New

TEST(NewFile, AsksNothingAboutAProjectThatWasNeverSaved)
{
    Program program;
    program.edit().l = 9;
    EXPECT_TRUE(program.Calculates([&] { NewFile(program.session, program.store); }));
    EXPECT_TRUE(program.desk.questions.empty());
    EXPECT_EQ(program.state().l, 5);
    EXPECT_EQ(program.session.title(), "Kestrum EC3: New File");
}

TEST(NewFile, YesSavesTheProjectFirst)
{
    const TemporaryFolder folder;
    Program program;
    const std::string path = SaveProject(folder, "a.kst");
    ASSERT_TRUE(OpenPath(program.session, program.store, path));
    program.edit().l = 8;
    program.desk.answers = {Answer::yes};
    NewFile(program.session, program.store);
    EXPECT_EQ(program.desk.questions, Texts{"Do you want to save the actual project?"});
    EXPECT_EQ(program.state().filename, "New File");
    EXPECT_EQ(program.state().l, 5);
    ASSERT_TRUE(OpenPath(program.session, program.store, path));
    EXPECT_EQ(program.state().l, 8);
}

TEST(NewFile, NoDropsItAndCancelChangesNothing)
{
    const TemporaryFolder folder;
    Program program;
    const std::string path = SaveProject(folder, "a.kst");
    ASSERT_TRUE(OpenPath(program.session, program.store, path));
    const std::string bytes = ReadBytes(path);
    program.edit().l = 8;
    program.desk.answers = {Answer::cancel};
    EXPECT_FALSE(program.Calculates([&] { NewFile(program.session, program.store); }));
    EXPECT_EQ(program.state().l, 8);
    EXPECT_EQ(program.state().filename, path);
    program.desk.answers = {Answer::no};
    NewFile(program.session, program.store);
    EXPECT_EQ(program.state().filename, "New File");
    EXPECT_EQ(ReadBytes(path), bytes);
}

TEST(NewFile, AFailedSaveKeepsTheProject)
{
    const TemporaryFolder folder;
    Program program;
    const std::string path = SaveProject(folder, "a.kst");
    ASSERT_TRUE(OpenPath(program.session, program.store, path));
    program.edit().filename = folder.File("nowhere/a.kst");
    program.edit().l = 8;
    program.desk.answers = {Answer::yes};
    NewFile(program.session, program.store);
    EXPECT_EQ(program.state().l, 8);
    EXPECT_EQ(program.Told().size(), 1U);
}

TEST(NewFile, KeepsTheDesignSettings)
{
    Program program;
    ChooseAnnex(program.session, 3);
    NewFile(program.session, program.store);
    EXPECT_EQ(program.state().gammam1, 1.2F);
    EXPECT_EQ(program.session.title(), "Kestrum EC3 + NA/Denmark: New File");
}

// Open

TEST(OpenFile, ReadsCalculatesAndNamesTheProject)
{
    const TemporaryFolder folder;
    Program program;
    const std::string path = SaveProject(folder, "a.kst");
    program.session.curdir = "/projects";
    program.desk.opens = {path};
    EXPECT_TRUE(program.Calculates([&] { EXPECT_TRUE(OpenFile(program.session, program.store)); }));
    EXPECT_EQ(program.desk.dialogs[0].first, "/projects");
    EXPECT_EQ(program.state().l, 7.25F);
    EXPECT_EQ(program.state().projname, "Hall, \"north\"");
    EXPECT_EQ(program.state().filename, path);
    EXPECT_EQ(program.session.title(), "Kestrum EC3: " + path);
    EXPECT_EQ(program.session.curdir, folder.path().string());
    EXPECT_EQ(RecentPaths(program.store), Texts{path});
    EXPECT_EQ(program.session.shown().l, 7.25F);
    EXPECT_TRUE(program.Told().empty());
}

TEST(OpenFile, CancelLeavesEverythingUntouched)
{
    Program program;
    program.edit().l = 9;
    EXPECT_FALSE(
        program.Calculates([&] { EXPECT_FALSE(OpenFile(program.session, program.store)); }));
    EXPECT_EQ(program.state().l, 9);
    EXPECT_TRUE(RecentPaths(program.store).empty());
}

TEST(OpenFile, TheSameFileIsReadAgainWithoutTouchingTheRecentList)
{
    const TemporaryFolder folder;
    Program program;
    const std::string first = SaveProject(folder, "a.kst");
    const std::string second = SaveProject(folder, "b.kst");
    ASSERT_TRUE(OpenPath(program.session, program.store, second));
    PushRecentFile(program.store, first);  // another window has opened it since
    program.edit().l = 9;
    ASSERT_TRUE(OpenPath(program.session, program.store, second));
    EXPECT_EQ(program.state().l, 7.25F);
    EXPECT_EQ(RecentPaths(program.store), (Texts{first, second}));
}

TEST(OpenFile, OfAnAnnexTitlesTheWindowWithIt)
{
    const TemporaryFolder folder;
    Program norway;
    ChooseAnnex(norway.session, 1);
    const std::string path = folder.File("no.kst");
    norway.desk.saves = {path};
    ASSERT_TRUE(SaveFileAs(norway.session, norway.store));
    Program program;
    ASSERT_TRUE(OpenPath(program.session, program.store, path));
    EXPECT_EQ(program.session.title(), "Kestrum EC3 + NA/Norway: " + path);
    EXPECT_EQ(program.state().gammam0, 1.05);
}

TEST(OpenFile, AMissingFileIsToldAndLosesNothing)
{
    const TemporaryFolder folder;
    Program program;
    program.edit().l = 9;
    const std::string path = folder.File("missing.kst");
    EXPECT_FALSE(OpenPath(program.session, program.store, path));
    const Texts told = program.Told();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].starts_with(path + ": ")) << told[0];
    EXPECT_EQ(program.state().l, 9);
    EXPECT_EQ(program.state().filename, "New File");
    EXPECT_EQ(program.session.title(), "Kestrum EC3: New File");
    EXPECT_TRUE(RecentPaths(program.store).empty());
    EXPECT_FALSE(program.session.halfread());
}

TEST(OpenFile, ABrokenFileIsToldAndTheRecentListStays)
{
    const TemporaryFolder folder;
    Program program;
    const std::string path = SaveHalfProject(folder, "half.kst");
    EXPECT_FALSE(
        program.Calculates([&] { EXPECT_FALSE(OpenPath(program.session, program.store, path)); }));
    EXPECT_EQ(program.Told().size(), 1U);
    EXPECT_EQ(program.state().projname, "Hall, \"north\"");  // what was read of it
    EXPECT_EQ(program.session.title(), "Kestrum EC3: New File");
    EXPECT_TRUE(RecentPaths(program.store).empty());
    EXPECT_TRUE(program.session.halfread());
}

TEST(OpenFile, HalfAProjectNeverReplacesTheUsersFile)
{
    const TemporaryFolder folder;
    Program program;
    const std::string path = SaveHalfProject(folder, "half.kst");
    const std::string bytes = ReadBytes(path);
    EXPECT_FALSE(OpenPath(program.session, program.store, path));

    EXPECT_FALSE(SaveFile(program.session, program.store));  // asks for a name; cancelled
    EXPECT_EQ(program.desk.dialogs.size(), 1U);
    EXPECT_EQ(ReadBytes(path), bytes);

    program.desk.answers = {Answer::yes};  // New: save first? Yes, but no name
    NewFile(program.session, program.store);
    EXPECT_EQ(program.desk.dialogs.size(), 2U);
    EXPECT_EQ(ReadBytes(path), bytes);
    EXPECT_EQ(program.state().filename, path);

    const std::string other = folder.File("other.kst");
    program.desk.saves = {other};
    EXPECT_TRUE(SaveFile(program.session, program.store));
    EXPECT_EQ(ReadBytes(path), bytes);
    EXPECT_TRUE(std::filesystem::exists(other));
    EXPECT_FALSE(program.session.halfread());
    EXPECT_EQ(program.session.title(), "Kestrum EC3 - EC3: " + other);
}

TEST(OpenFile, ARepairedFileOpensLikeANewOne)
{
    const TemporaryFolder folder;
    Program program;
    const std::string path = SaveHalfProject(folder, "a.kst");
    EXPECT_FALSE(OpenPath(program.session, program.store, path));
    SaveProject(folder, "a.kst");
    EXPECT_TRUE(OpenPath(program.session, program.store, path));
    EXPECT_FALSE(program.session.halfread());
    EXPECT_EQ(program.session.title(), "Kestrum EC3: " + path);
    EXPECT_EQ(RecentPaths(program.store), Texts{path});
}

// Recent files

TEST(RecentFile, OpensAndMovesToTheTop)
{
    const TemporaryFolder folder;
    Program program;
    Texts paths;
    for (const char* name : {"1.kst", "2.kst", "3.kst"}) {
        paths.push_back(SaveProject(folder, name));
        ASSERT_TRUE(OpenPath(program.session, program.store, paths.back()));
    }
    EXPECT_TRUE(OpenRecentFile(program.session, program.store, "3. " + paths[0]));
    EXPECT_EQ(RecentPaths(program.store), (Texts{paths[0], paths[2], paths[1]}));
    EXPECT_EQ(program.session.title(), "Kestrum EC3: " + paths[0]);
    EXPECT_EQ(program.session.curdir, folder.path().string());
}

TEST(RecentFile, OfTheProjectInHandMovesToTheTopAsWell)
{
    const TemporaryFolder folder;
    Program program;
    const std::string first = SaveProject(folder, "a.kst");
    ASSERT_TRUE(OpenPath(program.session, program.store, first));
    PushRecentFile(program.store, "other.kst");
    EXPECT_TRUE(OpenRecentFile(program.session, program.store, "2. " + first));
    EXPECT_EQ(RecentPaths(program.store), (Texts{first, "other.kst"}));
}

TEST(RecentFile, ThatIsGoneStaysInTheList)
{
    const TemporaryFolder folder;
    Program program;
    const std::string path = folder.File("gone.kst");
    PushRecentFile(program.store, path);
    PushRecentFile(program.store, "newer.kst");
    EXPECT_FALSE(OpenRecentFile(program.session, program.store, "2. " + path));
    EXPECT_EQ(program.Told().size(), 1U);
    EXPECT_EQ(RecentPaths(program.store), (Texts{"newer.kst", path}));
}

// Save

TEST(SaveFile, WritesToItsFileWithoutAWord)
{
    const TemporaryFolder folder;
    Program program;
    const std::string path = SaveProject(folder, "a.kst");
    ASSERT_TRUE(OpenPath(program.session, program.store, path));
    SetProjectName(program.session, "Bridge");
    program.edit().l = 6;
    EXPECT_FALSE(
        program.Calculates([&] { EXPECT_TRUE(SaveFile(program.session, program.store)); }));
    EXPECT_TRUE(program.desk.dialogs.empty());
    EXPECT_TRUE(program.Told().empty());
    EXPECT_EQ(ReadBytes(path), WriteProject(program.edit()));
    EXPECT_NE(ReadBytes(path).find("Bridge\r\n"), std::string::npos);
}

TEST(SaveFile, OfANewProjectAsksForAName)
{
    const TemporaryFolder folder;
    Program program;
    const std::string path = folder.File("new.kst");
    program.desk.saves = {path};
    EXPECT_TRUE(SaveFile(program.session, program.store));
    EXPECT_EQ(program.desk.dialogs[0].second, "*.kst");
    EXPECT_EQ(program.state().filename, path);
    EXPECT_EQ(program.session.title(), "Kestrum EC3 - EC3: " + path);
    EXPECT_EQ(program.session.curdir, folder.path().string());
    EXPECT_EQ(RecentPaths(program.store), Texts{path});
}

TEST(SaveFileAs, TitlesTheWindowWithTheAnnexInFull)
{
    const TemporaryFolder folder;
    Program program;
    ChooseAnnex(program.session, 1);
    const std::string path = folder.File("a.kst");
    program.desk.saves = {path};
    EXPECT_TRUE(SaveFileAs(program.session, program.store));
    EXPECT_EQ(program.session.title(), "Kestrum EC3 - EC3 + NA/Norway: " + path);
}

TEST(SaveFileAs, ToTheSamePathKeepsTitleAndRecentList)
{
    const TemporaryFolder folder;
    Program program;
    const std::string path = SaveProject(folder, "a.kst");
    ASSERT_TRUE(OpenPath(program.session, program.store, path));
    PushRecentFile(program.store, "newer.kst");
    program.edit().l = 6;
    program.desk.saves = {path};
    EXPECT_TRUE(SaveFileAs(program.session, program.store));
    EXPECT_EQ(program.desk.dialogs[0].second, path);
    EXPECT_EQ(program.session.title(), "Kestrum EC3: " + path);
    EXPECT_EQ(RecentPaths(program.store), (Texts{"newer.kst", path}));
    EXPECT_EQ(ReadBytes(path), WriteProject(program.edit()));
}

TEST(SaveFileAs, CancelledOrFailedKeepsTheName)
{
    const TemporaryFolder folder;
    Program program;
    EXPECT_FALSE(SaveFileAs(program.session, program.store));
    EXPECT_TRUE(program.Told().empty());
    program.desk.saves = {folder.File("nowhere/a.kst")};
    EXPECT_FALSE(SaveFileAs(program.session, program.store));
    EXPECT_EQ(program.Told().size(), 1U);
    EXPECT_EQ(program.state().filename, "New File");
    EXPECT_EQ(program.session.title(), "Kestrum EC3: New File");
    EXPECT_TRUE(RecentPaths(program.store).empty());
}

TEST(SaveFile, KeepsAValueThatItsBoxRefused)
{
    const TemporaryFolder folder;
    Program program;
    program.Type("kestrum", "ibly", "0.1");
    const std::string path = folder.File("a.kst");
    program.desk.saves = {path};
    ASSERT_TRUE(SaveFile(program.session, program.store));
    Program again;
    ASSERT_TRUE(OpenPath(again.session, again.store, path));
    EXPECT_EQ(again.state().ly, 0.1F);
    EXPECT_EQ(again.Told(), Texts{});  // files are not checked
}

// The command line

TEST(CommandLine, AQuotedPathOpensTheProject)
{
    const TemporaryFolder folder;
    Program program;
    const std::string path = SaveProject(folder, "with blank.kst");
    OpenCommandLine(program.session, program.store, "\"" + path + "\"");
    EXPECT_EQ(program.state().l, 7.25F);
    EXPECT_EQ(program.session.shown().l, 7.25F);
    EXPECT_EQ(program.session.title(), "Kestrum EC3: " + path);
    EXPECT_EQ(RecentPaths(program.store), Texts{path});
    EXPECT_TRUE(program.Told().empty());
}

TEST(CommandLine, APathWithoutQuotesLosesBothEnds)
{
    const TemporaryFolder folder;
    Program program;
    const std::string path = SaveProject(folder, "a.kst");
    OpenCommandLine(program.session, program.store, path);
    EXPECT_EQ(program.state().l, 5);
    const Texts told = program.Told();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].starts_with(path.substr(1, path.size() - 2) + ": "));
}

TEST(CommandLine, OfNothingShowsTheDefaults)
{
    Program program;
    OpenCommandLine(program.session, program.store, "");
    EXPECT_TRUE(program.Told().empty());
    OpenCommandLine(program.session, program.store, "x");
    EXPECT_EQ(program.state().l, 5);
    EXPECT_EQ(program.state().filename, "New File");
    EXPECT_EQ(program.session.title(), "Kestrum EC3: New File");
}

// What a file brings with it

TEST(OpenFile, TheAnnexReplacesTheFactorsOfTheFileUnlessTheyAreTheUsers)
{
    const TemporaryFolder folder;
    using Case = std::pair<int, double>;
    for (const auto& [annex, expected] : {Case{kAnnexNo, 1.05}, Case{kAnnexUd, 1.33}}) {
        Program program;
        ChooseAnnex(program.session, annex);
        program.edit().gammam0 = 1.33;
        const std::string path = folder.File("a.kst");
        program.desk.saves = {path};
        ASSERT_TRUE(SaveFileAs(program.session, program.store));
        Program again;
        ASSERT_TRUE(OpenPath(again.session, again.store, path));
        EXPECT_EQ(again.state().gammam0, expected);
    }
}

// A file of given end forces holds no load rows. Those of the project before would add check
// sections beside its point loads and mass to the modal analysis.
TEST(OpenFile, GivesTheResultOfAFreshStart)
{
    const TemporaryFolder folder;
    Program writer;
    writer.edit().modal = 1;
    OpenEndForcesFromMenu(writer.session);
    const std::string path = folder.File("ends.kst");
    writer.desk.saves = {path};
    ASSERT_TRUE(SaveFileAs(writer.session, writer.store));

    Program fresh, used;
    used.edit().pm[1] = 5;
    used.edit().pmx[1] = 2.5F;
    used.edit().qload[1] = 80;
    used.session.Calculate();
    ASSERT_EQ(used.state().npts, 12);  // eleven points and a pair
    ASSERT_TRUE(OpenPath(fresh.session, fresh.store, path));
    ASSERT_TRUE(OpenPath(used.session, used.store, path));
    EXPECT_EQ(used.session.shown().npts, 10);
    EXPECT_EQ(used.session.shown().modalmass, fresh.session.shown().modalmass);
    EXPECT_GT(used.session.shown().freq[1], 0);
    EXPECT_EQ(used.session.shown().freq, fresh.session.shown().freq);
}

TEST(OpenFile, EndForcesAndLoadsOfTheOtherModeAreKeptInMemory)
{
    Program program;
    program.edit().qload[2] = 7;
    OpenEndForcesFromMenu(program.session);
    OpenLoading(program.session);
    EXPECT_EQ(program.state().qload[2], 7);
    EXPECT_EQ(program.state().loadmode, 1);
}

}  // namespace
}  // namespace kestrum
