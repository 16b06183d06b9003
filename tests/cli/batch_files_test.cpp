// Where batch writes: who may write there, what a run that was stopped leaves, and with what it
// goes on.

#include "cli/run.h"

#include <gmock/gmock.h>

#include <string>

#include <unistd.h>

namespace kestrum {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string kProgram = "'" KESTRUM_BIN "/kestrum' ";

class BatchFiles : public CommandLine {
protected:
    // A run that has answered one member of three and waits for the rest: $p is its number, `end`
    // lets it go on, `answered` waits until the first is written.
    static std::string Begun(const std::string& arguments)
    {
        // A shell without job control starts what runs behind it deaf to Ctrl-C.
        return "mkfifo feed; exec 3<>feed; printf 'l,qload[1]\\n5,9\\n' >&3\nenv "
               "--default-signal=INT " +
               kProgram + "batch -q - --jobs 1 " + arguments +
               " <feed 3>&- & p=$!\n"
               "answered() { while [ \"$(grep -c , $1 2>/dev/null)\" != 2 ]; do sleep 0.01; done; "
               "}\n"
               "end() { printf '6,9\\n7,9\\n' >feed & exec 3>&-; wait $p; }\n";
    }
};

TEST_F(BatchFiles, ASecondRunOnTheSameFileIsRefused)
{
    Write("t.csv", "l,qload[1]\n8,9\n9,9\n");
    const Said said =
        Shell(Begun("-o o.csv") + "answered o.csv.part\n" + kProgram +
              "batch -q t.csv -o o.csv; echo second $?\n" + kProgram +
              "batch -q t.csv -o ./o.csv --resume; echo third $?\nend; echo first $?");
    EXPECT_EQ(said.out, "second 2\nthird 2\nfirst 0\n") << said.err;
    EXPECT_THAT(said.err, HasSubstr("o.csv.part: is being written by another run\n"));
    const std::string whole = Read("o.csv");
    EXPECT_EQ(std::count(whole.begin(), whole.end(), '\n'), 4);
    EXPECT_FALSE(fs::exists(Path("o.csv.part")));
    EXPECT_FALSE(fs::exists(Path("o.csv.part.inputs")));
}

// Ctrl-C: what is answered stays, and the message says how to go on.
TEST_F(BatchFiles, AStoppedRunSaysHowToGoOn)
{
    const Said said = Shell(Begun("-o o.csv") + "answered o.csv.part; kill -INT $p; wait $p");
    EXPECT_EQ(said.exit, 130);
    EXPECT_THAT(said.err, HasSubstr("stopped: 1 members answered, kept in "));
    EXPECT_THAT(said.err, HasSubstr("o.csv.part; the same command with --resume continues\n"));
    EXPECT_FALSE(fs::exists(Path("o.csv")));
    const std::string all =
        "printf 'l,qload[1]\\n5,9\\n6,9\\n7,9\\n' | " + kProgram + "batch -q - ";
    EXPECT_EQ(Shell(all + "--resume -o o.csv").exit, 0);
    EXPECT_EQ(Shell(all + "-o whole.csv").exit, 0);
    EXPECT_EQ(Read("o.csv"), Read("whole.csv"));
    fs::remove(Path("feed"));
    const Said stream = Shell(Begun(">o.txt") + "answered o.txt; kill -INT $p; wait $p");
    EXPECT_EQ(stream.exit, 130);
    EXPECT_THAT(stream.err, HasSubstr("stopped: 1 members answered; -o FILE keeps"));
}

TEST_F(BatchFiles, ARunGoesOnWithItsOwnInputsOnly)
{
    Write("t.csv", "l\n5\n6\n");
    Write("base.kst", "");
    ASSERT_EQ(Kestrum("new -o base.kst").exit, 0);
    // Killed behind the first answer.
    const std::string stopped = "batch -q t.csv --base base.kst -o o.csv";
    ASSERT_EQ(Kestrum(stopped).exit, 0);
    const std::string whole = Read("o.csv");
    const auto stop = [&](const std::string& arguments) {
        EXPECT_EQ(Shell("cp o.csv keep.csv; rm -f feed; cat t.csv >copy.csv; mkfifo feed; "
                        "exec 3<>feed; printf 'l\\n5\\n' >&3; " +
                        kProgram + "batch -q t.csv - " + arguments +
                        " -o o.csv <feed 3>&- & p=$!; while [ \"$(grep -c , o.csv.part)\" != 4 ]; "
                        "do sleep 0.01; done; kill -9 $p; wait $p")
                      .exit,
                  137);
    };
    const auto resumed = [this](const std::string& arguments) {
        return Shell("printf 'l\\n5\\n6\\n' | " + kProgram + "batch -q t.csv - " + arguments +
                     " --resume -o o.csv");
    };
    stop("--base base.kst");
    const std::string part = Read("o.csv.part");
    const std::string refusal = "o.csv.part: cannot be resumed: ";
    // Another length of the same size.
    Write("t.csv", "l\n5\n7\n");
    Said said = resumed("--base base.kst");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr(refusal + "t.csv is not what the earlier run read"));
    Write("t.csv", "l\n5\n6\n");
    ASSERT_EQ(Kestrum("set base.kst l=7").exit, 0);
    said = resumed("--base base.kst");
    EXPECT_THAT(said.err, HasSubstr(refusal + "--base base.kst is not what the earlier run read"));
    EXPECT_THAT(resumed("").err, HasSubstr(refusal + "the earlier run read --base base.kst"));
    EXPECT_THAT(resumed("--base base.kst --raw").err,
                HasSubstr(refusal + "the earlier run had other options or columns"));
    EXPECT_EQ(Read("o.csv.part"), part);
    EXPECT_EQ(Read("o.csv"), whole);
    ASSERT_EQ(Kestrum("set base.kst l=5").exit, 0);
    said = resumed("--base base.kst");
    EXPECT_EQ(said.exit, 0) << said.err;
    EXPECT_THAT(Read("o.csv"), HasSubstr("\nstandard input:2,"));
    // What it belongs to has gone.
    stop("--base base.kst");
    fs::remove(Path("o.csv.part.inputs"));
    EXPECT_THAT(resumed("--base base.kst").err,
                HasSubstr("nothing says what its answers belong to"));
    EXPECT_TRUE(fs::exists(Path("o.csv.part")));
}

TEST_F(BatchFiles, AnInputIsRecognisedThroughTheShell)
{
    Write("t.csv", "l,qload[1]\n5,9\n");
    Write("o.csv.part", "l,qload[1]\n5,9\n");
    fs::create_hard_link(Path("t.csv"), Path("same.csv"));
    fs::create_symlink("t.csv", Path("link.csv"));
    for (const char* arguments :
         {"- -o t.csv <t.csv", "- -o same.csv <t.csv", "- -o link.csv <t.csv",
          "- -o o.csv <o.csv.part", "t.csv >>t.csv", "- <t.csv >>t.csv", "t.csv >>link.csv"}) {
        const Said said = Kestrum(std::string("batch -q ") + arguments);
        EXPECT_EQ(said.exit, 2) << arguments;
        EXPECT_THAT(said.err, HasSubstr("would overwrite the input")) << arguments;
        EXPECT_EQ(Read("t.csv"), "l,qload[1]\n5,9\n") << arguments;
        EXPECT_EQ(Read("o.csv.part"), "l,qload[1]\n5,9\n") << arguments;
    }
    WriteGood("a.svg");
    EXPECT_THAT(Kestrum("diagram - -o a.svg <a.svg").err, HasSubstr("would overwrite the input"));
}

TEST_F(BatchFiles, AnswersGoThroughNoLinkThatSomebodyPlanted)
{
    Write("t.csv", "l,qload[1]\n5,9\n");
    Write("precious", "mine");
    fs::create_symlink("precious", Path("o.csv.part"));
    Said said = Kestrum("batch -q t.csv -o o.csv");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("o.csv.part: is a link\n"));
    fs::remove(Path("o.csv.part"));
    fs::create_hard_link(Path("precious"), Path("o.csv.part"));
    said = Kestrum("batch -q t.csv -o o.csv");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("o.csv.part: has another name besides (hard link)\n"));
    EXPECT_EQ(Read("precious"), "mine");
    fs::remove(Path("o.csv.part"));
    // The record of the inputs replaces a link, it does not follow it.
    ASSERT_EQ(Shell("mkfifo o.csv.part").exit, 0);
    said = Kestrum("batch -q t.csv -o o.csv");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("o.csv.part: is no file\n"));
}

TEST_F(BatchFiles, ADanglingLinkGetsItsFile)
{
    Write("t.csv", "l,qload[1]\n5,9\n");
    fs::create_directory(Path("far"));
    fs::create_symlink("far/o.csv", Path("o.csv"));
    EXPECT_EQ(Kestrum("batch -q t.csv -o o.csv").exit, 0);
    EXPECT_TRUE(fs::is_symlink(Path("o.csv")));
    EXPECT_THAT(Read("far/o.csv"), StartsWith("member,"));
    fs::remove(Path("o.csv"));
    fs::create_symlink("nowhere/o.csv", Path("o.csv"));
    const Said said = Kestrum("batch -q t.csv -o o.csv");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("nowhere/o.csv.part: "));
}

TEST_F(BatchFiles, AFileWithFurtherNamesKeepsThem)
{
    Write("t.csv", "l,qload[1]\n5,9\n");
    Write("o.csv",
          "the longer answers of last week, which are all to go\n" + std::string(500, 'x'));
    fs::create_hard_link(Path("o.csv"), Path("other.csv"));
    EXPECT_EQ(Kestrum("batch -q t.csv -o o.csv").exit, 0);
    EXPECT_EQ(fs::hard_link_count(Path("o.csv")), 2U);
    EXPECT_EQ(Read("other.csv"), Kestrum("batch -q t.csv").out);
    EXPECT_FALSE(fs::exists(Path("o.csv.part")));
}

TEST_F(BatchFiles, AFolderThatTakesNothingIsNamed)
{
    Write("t.csv", "l,qload[1]\n5,9\n");
    fs::create_directory(Path("shut"));
    Write("shut/o.csv", "last week");
    fs::permissions(Path("shut"), fs::perms::owner_read | fs::perms::owner_exec);
    if (geteuid() == 0) {
        const Said said = Kestrum("batch -q t.csv -o nowhere/o.csv");
        EXPECT_EQ(said.exit, 2);
        EXPECT_THAT(said.err, HasSubstr("nowhere/o.csv.part: No such file or directory\n"));
        return;  // root may write anywhere
    }
    const Said said = Kestrum("batch -q t.csv -o shut/o.csv");
    EXPECT_EQ(said.exit, 2);
    EXPECT_THAT(said.err, HasSubstr("shut/o.csv.part: Permission denied\n"));
    EXPECT_EQ(Read("shut/o.csv"), "last week");
    fs::permissions(Path("shut"), fs::perms::owner_all);
}

// A name bound to another file system cannot be replaced, only what it holds.
TEST_F(BatchFiles, AFileOnAnotherFileSystemGetsItsBytes)
{
    Write("t.csv", "l,qload[1]\n5,9\n");
    Write("o.csv", "last week");
    std::string far = "/dev/shm/kestrum-XXXXXX";
    if (geteuid() != 0 || mkdtemp(far.data()) == nullptr) {
        GTEST_SKIP() << "only root binds a name, and needs another file system for it";
    }
    const Said said = Shell("unshare -m true || exit 77; echo >" + far +
                            "/far.csv; unshare -m sh -c 'mount --bind " + far +
                            "/far.csv o.csv || exit 77; " KESTRUM_BIN
                            "/kestrum batch -q t.csv -o o.csv; e=$?; cp o.csv seen.csv; exit $e'");
    fs::remove_all(far);
    if (said.exit == 77) {
        GTEST_SKIP() << "no right to bind a name";
    }
    EXPECT_EQ(said.exit, 0) << said.err;
    EXPECT_EQ(Read("seen.csv"), Kestrum("batch -q t.csv").out);
    EXPECT_EQ(Read("o.csv"), "last week");
    EXPECT_FALSE(fs::exists(Path("o.csv.part")));
}

// Runs that write to one file, as xargs -P starts them, must not mix their lines.
TEST_F(BatchFiles, AnswersOfSeveralRunsStayWhole)
{
    std::string table = "l,ident\n";
    for (int i = 0; i < 3000; ++i) {
        table += "5," + std::string(static_cast<std::size_t>(1 + i % 49), 'x') + "\n";
    }
    Write("t.csv", table);
    const Said said = Shell("for i in 1 2 3 4; do " + kProgram +
                            "batch -q t.csv --fields ident >>o.txt & done; wait; grep -v "
                            "'^[0-9]*,.*,[0-9.]*,x*$' o.txt | grep -vc '^member,'; wc -l <o.txt");
    EXPECT_EQ(said.out, "0\n12004\n");
}

}  // namespace
}  // namespace kestrum
