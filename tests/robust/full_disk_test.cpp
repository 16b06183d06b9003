// The program on a disk that is full: what is saved stays as it was, the user is told, and the
// project in hand keeps its name and its values.

#include "app/file_commands.h"
#include "app/session_fixture.h"
#include "core/project_file.h"
#include "support/small_disk.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace kestrum {
namespace {

using ::testing::ElementsAre;

TEST(FullDisk, SaveKeepsTheFileAndTellsSo)
{
    const SmallDisk disk;
    if (!disk.refusal().empty()) {
        GTEST_SKIP() << disk.refusal();
    }
    const std::string path = disk.File("a.kst");
    Program program;
    program.desk.saves = {path};
    ASSERT_TRUE(SaveFile(program.session, program.store));
    const std::string old = ReadBytes(path);
    program.edit().l = 7.5;
    disk.FillBut(0);
    EXPECT_FALSE(SaveFile(program.session, program.store));
    EXPECT_THAT(program.Told(), ElementsAre(path + ": No space left on device"));
    EXPECT_EQ(ReadBytes(path), old);
    EXPECT_EQ(disk.FilesThere(), 1U);
    EXPECT_EQ(program.state().l, 7.5F);
    disk.Empty();
    EXPECT_TRUE(SaveFile(program.session, program.store));
    EXPECT_EQ(ReadBytes(path), WriteProject(program.edit()));
    EXPECT_EQ(disk.FilesThere(), 1U);
}

TEST(FullDisk, SaveAsKeepsNameAndBothFiles)
{
    const SmallDisk disk;
    if (!disk.refusal().empty()) {
        GTEST_SKIP() << disk.refusal();
    }
    const std::string path = disk.File("a.kst"), other = disk.File("b.kst");
    Program program;
    program.desk.saves = {path, other, other, other};
    ASSERT_TRUE(SaveFile(program.session, program.store));
    WriteBytes(other, "another project");
    const std::string title = program.session.title();
    disk.FillBut(0);
    EXPECT_FALSE(SaveFileAs(program.session, program.store));
    EXPECT_THAT(program.Told(), ElementsAre(other + ": No space left on device"));
    EXPECT_EQ(ReadBytes(other), "another project");
    EXPECT_EQ(program.state().filename, path);
    EXPECT_EQ(program.session.title(), title);
    EXPECT_EQ(disk.FilesThere(), 2U);
    disk.Empty();
    EXPECT_TRUE(SaveFileAs(program.session, program.store));
    EXPECT_EQ(ReadBytes(other), ReadBytes(path));
    EXPECT_EQ(program.state().filename, other);
}

// New with Yes saves first; when that fails nothing is dropped.
TEST(FullDisk, NewKeepsTheProjectThatCouldNotBeSaved)
{
    const SmallDisk disk;
    if (!disk.refusal().empty()) {
        GTEST_SKIP() << disk.refusal();
    }
    Program program;
    program.desk.saves = {disk.File("a.kst")};
    ASSERT_TRUE(SaveFile(program.session, program.store));
    program.edit().l = 7.5;
    program.desk.answers = {Answer::yes};
    disk.FillBut(0);
    NewFile(program.session, program.store);
    EXPECT_EQ(program.Told().size(), 1U);
    EXPECT_EQ(program.state().l, 7.5F);
    EXPECT_EQ(program.state().filename, disk.File("a.kst"));
}

}  // namespace
}  // namespace kestrum
