// A project gives the same result whatever was open or calculated before it.

#include "app/batch.h"
#include "app/file_commands.h"
#include "app/member_commands.h"
#include "app/session_fixture.h"
#include "app/setup_commands.h"
#include "core/project_file.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "report/state_json.h"
#include "support/members.h"
#include "support/temporary_folder.h"

namespace kestrum {
namespace {

// Members of which a pass keeps something for the next one: the torsional length of a channel
// (D228), the curve of a British channel (D205), kzz of a single-symmetric I (D224), deflections
// beside end forces, the parameters of the user-defined annex, forms and rows of other families.
const char* const kMembers[] = {
    "family=5 l=3 ltb=0 ltbk=0.001 method=1 nload[1]=100 qload[1]=5",
    "family=5 l=4 method=1 nload[1]=100 qload[1]=5",
    "family=103 nload[1]=50 qload[1]=2",
    "family=22 method=2 nload[1]=100 qload[1]=5 qload[2]=1 qdir[2]=0",
    "family=22 p22.isttw=6 p22.isth=900 method=2 nload[1]=100 qload[1]=5 qload[2]=1 qdir[2]=0",
    "loadmode=0 ne=100 my1=20 checksls=true",
    "annexcode=UD gammam0=1.1 gammam1=1.2 neta=1 family=21 qload[1]=5",
    "annexcode=UK family=4 row.ipe=12 qload[1]=12",
    "family=31 p31.istd=200 p31.isttw=8 nload[1]=80 checksls=true qload[1]=1",
};

// Every member in a file of its own.
std::vector<std::string> WriteMembers(const TemporaryFolder& folder)
{
    std::vector<std::string> paths;
    for (const char* fields : kMembers) {
        ProjectState s = Member(fields);
        paths.push_back(folder.File(std::to_string(paths.size()) + ".kst"));
        WriteBytes(paths.back(), WriteProject(s));
    }
    return paths;
}

// What the file gives in a program that has just started.
std::string Fresh(const std::string& path)
{
    ProjectState s = StartState(Delivered());
    EXPECT_FALSE(ReadProject(s, ReadBytes(path)));
    s.filename = path;
    Calculate(Delivered(), s);
    return StateJson(s);
}

TEST(History, AFileOpenedAfterOthersGivesWhatItGivesAlone)
{
    const TemporaryFolder folder;
    const std::vector<std::string> paths = WriteMembers(folder);
    for (const std::string& first : paths) {
        Program program;
        for (const std::string& second : paths) {
            ASSERT_TRUE(OpenPath(program.session, program.store, first));
            EXPECT_EQ(StateJson(program.state()), Fresh(first)) << first << " after " << second;
            ASSERT_TRUE(OpenPath(program.session, program.store, second));
            EXPECT_EQ(StateJson(program.state()), Fresh(second)) << second << " after " << first;
        }
    }
}

TEST(History, AFileReadAgainForgetsWhatWasTriedInBetween)
{
    const TemporaryFolder folder;
    const std::string path = WriteMembers(folder)[0];
    Program program;
    ASSERT_TRUE(OpenPath(program.session, program.store, path));
    TickLateralBuckling(program.session, true);
    TickLateralBuckling(program.session, false);
    ChooseAnnex(program.session, 4);
    EXPECT_NE(StateJson(program.state()), Fresh(path));
    ASSERT_TRUE(OpenPath(program.session, program.store, path));
    EXPECT_EQ(StateJson(program.state()), Fresh(path));
}

// Answers of a batch over the files in this order.
std::string BatchOf(const std::vector<std::string>& files, const ProjectState& base)
{
    AnswerForm form;
    EXPECT_EQ(form.Choose(TableForm::csv, {"irsection", "maxirbuckling", "lt", "alphay", "kzz"}),
              "");
    BatchWorker worker(Delivered(), base, form, Assignment::checked);
    BatchChunk chunk;
    chunk.files = files;
    worker.Work(chunk);
    return chunk.out;
}

TEST(History, BatchMembersDoNotSeeEachOtherNorTheBase)
{
    const TemporaryFolder folder;
    const std::vector<std::string> paths = WriteMembers(folder);
    const ProjectState start = StartState(Delivered());
    std::string alone;
    for (const std::string& path : paths) {
        alone += BatchOf({path}, start);
    }
    EXPECT_EQ(BatchOf(paths, start), alone);
    for (const std::string& base : paths) {
        ProjectState s = start;
        ASSERT_FALSE(ReadProject(s, ReadBytes(base)));
        Calculate(Delivered(), s);
        EXPECT_EQ(BatchOf(paths, s), alone) << base;
    }
}

}  // namespace
}  // namespace kestrum
