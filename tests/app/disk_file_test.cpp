// A project file that another program, or another window, changes while it is open here.

#include "app/file_commands.h"
#include "app/session_fixture.h"
#include "core/project_file.h"
#include "support/temporary_folder.h"

#include <filesystem>

namespace kestrum {
namespace {

// The bytes of a project of this length, as another program writes them.
std::string Bytes(float length)
{
    Program other;
    other.edit().l = length;
    return WriteProject(other.edit());
}

// A project of 7.25 m, saved and open.
struct OpenProject : Program {
    TemporaryFolder folder;
    std::string path = folder.File("a.kst");

    OpenProject()
    {
        WriteBytes(path, Bytes(7.25F));
        EXPECT_TRUE(OpenPath(session, store, path));
    }

    void Look() { ReviewDisk(session, store); }
    bool Save() { return SaveFile(session, store); }
    std::size_t Asked() { return std::exchange(desk.questions, {}).size(); }
};

// --- Saving --------------------------------------------------------------------------------------

TEST(ChangedFile, IsNotOverwrittenUnasked)
{
    OpenProject program;
    program.edit().l = 3;
    WriteBytes(program.path, Bytes(11));
    EXPECT_FALSE(program.Save());  // the user decides nothing
    EXPECT_EQ(program.Asked(), 1U);
    EXPECT_EQ(ReadBytes(program.path), Bytes(11));
    EXPECT_EQ(program.state().l, 3);
    EXPECT_FALSE(program.Save());  // and is asked again
    EXPECT_EQ(program.Asked(), 1U);
}

TEST(ChangedFile, IsOverwrittenWhenTheUserKeepsHis)
{
    OpenProject program;
    program.edit().l = 3;
    WriteBytes(program.path, Bytes(11));
    program.desk.diskanswers = {DiskAnswer::keep};
    EXPECT_TRUE(program.Save());
    EXPECT_EQ(ReadBytes(program.path), WriteProject(program.edit()));
    EXPECT_TRUE(program.Save());  // now it is his
    EXPECT_EQ(program.Asked(), 1U);
}

TEST(ChangedFile, IsReadAgainInsteadOfSaved)
{
    OpenProject program;
    program.edit().l = 3;
    WriteBytes(program.path, Bytes(11));
    program.desk.diskanswers = {DiskAnswer::reload};
    EXPECT_FALSE(program.Save());
    EXPECT_EQ(program.state().l, 11);
    EXPECT_EQ(program.session.shown().l, 11);
    EXPECT_EQ(ReadBytes(program.path), Bytes(11));
}

TEST(ChangedFile, StaysWhenTheProjectGoesToAnother)
{
    OpenProject program;
    program.edit().l = 3;
    WriteBytes(program.path, Bytes(11));
    program.desk.diskanswers = {DiskAnswer::saveas};
    program.desk.saves = {program.folder.File("b.kst")};
    EXPECT_TRUE(program.Save());
    EXPECT_EQ(ReadBytes(program.path), Bytes(11));
    EXPECT_EQ(program.state().filename, program.folder.File("b.kst"));
    EXPECT_EQ(ReadBytes(program.folder.File("b.kst")), WriteProject(program.edit()));
}

TEST(ChangedFile, IsAskedAboutBeforeANewProject)
{
    OpenProject program;
    program.edit().l = 3;
    WriteBytes(program.path, Bytes(11));
    program.desk.answers = {Answer::yes};
    NewFile(program.session, program.store);
    EXPECT_EQ(program.Asked(), 2U);
    EXPECT_EQ(ReadBytes(program.path), Bytes(11));
    EXPECT_EQ(program.state().l, 3);  // New is given up with the save
    EXPECT_EQ(program.state().filename, program.path);
}

TEST(UnchangedFile, IsSavedWithoutAQuestion)
{
    OpenProject program;
    program.edit().l = 3;
    EXPECT_TRUE(program.Save());
    program.edit().l = 4;
    EXPECT_TRUE(program.Save());
    EXPECT_EQ(program.Asked(), 0U);
}

// Another program has written the same again: only the time and the place on the disk differ.
TEST(UnchangedFile, MayHaveBeenWrittenAgain)
{
    OpenProject program;
    const std::string copy = program.folder.File("copy");
    WriteBytes(copy, Bytes(7.25F));
    std::filesystem::rename(copy, program.path);
    program.Look();
    EXPECT_TRUE(program.Save());
    EXPECT_EQ(program.Asked(), 0U);
}

// Size and time of the file are what they were.
TEST(ChangedFile, IsNoticedByItsContents)
{
    OpenProject program;
    const auto time = std::filesystem::last_write_time(program.path);
    std::string bytes = Bytes(7.25F);
    bytes.replace(bytes.find("7.25"), 4, "8.25");
    WriteBytes(program.path, bytes);
    std::filesystem::last_write_time(program.path, time);
    EXPECT_FALSE(program.Save());
    EXPECT_EQ(program.Asked(), 1U);
}

TEST(GoneFile, IsWrittenAgain)
{
    OpenProject program;
    std::filesystem::remove(program.path);
    program.Look();
    EXPECT_TRUE(program.session.disk.gone());
    EXPECT_TRUE(program.Save());
    EXPECT_EQ(program.Asked(), 0U);
    program.Look();
    EXPECT_FALSE(program.session.disk.gone());
    EXPECT_EQ(ReadBytes(program.path), WriteProject(program.edit()));
}

// What cannot be read any more may be anything.
TEST(ChangedFile, MayBeNoFileAtAll)
{
    OpenProject program;
    std::filesystem::remove(program.path);
    std::filesystem::create_directory(program.path);
    EXPECT_FALSE(program.Save());
    EXPECT_EQ(program.Asked() + program.Told().size(), 1U);
}

// --- Coming to the front -------------------------------------------------------------------------

TEST(ReviewDisk, AsksOnceForEveryChange)
{
    OpenProject program;
    program.Look();
    EXPECT_EQ(program.Asked(), 0U);
    WriteBytes(program.path, Bytes(11));
    program.Look();
    program.Look();
    EXPECT_EQ(program.Asked(), 1U);
    WriteBytes(program.path, Bytes(12));
    program.Look();
    EXPECT_EQ(program.Asked(), 1U);
    EXPECT_FALSE(program.Save());  // left open: asked before saving
    EXPECT_EQ(program.Asked(), 1U);
}

TEST(ReviewDisk, ReadsTheFileAgain)
{
    OpenProject program;
    WriteBytes(program.path, Bytes(11));
    program.desk.diskanswers = {DiskAnswer::reload};
    EXPECT_TRUE(program.Calculates([&] { program.Look(); }));
    EXPECT_EQ(program.state().l, 11);
    EXPECT_TRUE(program.Save());
    EXPECT_EQ(program.Asked(), 1U);
}

TEST(ReviewDisk, KeepsTheProjectAndMayThenOverwriteTheFile)
{
    OpenProject program;
    program.edit().l = 3;
    WriteBytes(program.path, Bytes(11));
    program.desk.diskanswers = {DiskAnswer::keep};
    program.Look();
    EXPECT_EQ(program.state().l, 3);
    EXPECT_EQ(ReadBytes(program.path), Bytes(11));
    EXPECT_TRUE(program.Save());
    EXPECT_EQ(program.Asked(), 1U);
    EXPECT_EQ(ReadBytes(program.path), WriteProject(program.edit()));
}

TEST(ReviewDisk, AnotherChangeAfterKeepingIsAskedAboutAgain)
{
    OpenProject program;
    WriteBytes(program.path, Bytes(11));
    program.desk.diskanswers = {DiskAnswer::keep};
    program.Look();
    WriteBytes(program.path, Bytes(12));
    EXPECT_FALSE(program.Save());
    EXPECT_EQ(program.Asked(), 2U);
    EXPECT_EQ(ReadBytes(program.path), Bytes(12));
}

TEST(ReviewDisk, SavesUnderAnotherName)
{
    OpenProject program;
    WriteBytes(program.path, Bytes(11));
    program.desk.diskanswers = {DiskAnswer::saveas};
    program.desk.saves = {program.folder.File("b.kst")};
    program.Look();
    EXPECT_EQ(program.state().filename, program.folder.File("b.kst"));
    EXPECT_EQ(ReadBytes(program.path), Bytes(11));
}

TEST(ReviewDisk, HasNothingToAskAboutAProjectWithoutAFile)
{
    OpenProject program;
    program.desk.answers = {Answer::no};
    NewFile(program.session, program.store);
    WriteBytes(program.path, Bytes(11));
    program.Asked();
    program.Look();
    EXPECT_EQ(program.Asked(), 0U);
}

// A file that was still being written when it was opened.
TEST(ReviewDisk, OffersARepairedFileAgain)
{
    OpenProject program;
    const std::string whole = Bytes(11);
    WriteBytes(program.path, whole.substr(0, whole.size() / 2));
    EXPECT_FALSE(OpenPath(program.session, program.store, program.path));
    EXPECT_TRUE(program.session.halfread());
    WriteBytes(program.path, whole);
    program.desk.diskanswers = {DiskAnswer::reload};
    program.Look();
    EXPECT_FALSE(program.session.halfread());
    EXPECT_EQ(program.state().l, 11);
}

}  // namespace
}  // namespace kestrum
