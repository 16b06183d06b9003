#include "cli/run.h"

#include <gmock/gmock.h>

namespace kestrum {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class DiagramCommand : public CommandLine {
protected:
    void SetUp() override { ASSERT_EQ(Kestrum("new -o a.dat").exit, 0); }
};

TEST_F(DiagramCommand, WritesBothAxesAsSvg)
{
    const Said said = Kestrum("diagram a.dat --axis z -o z.svg");
    EXPECT_EQ(said.exit, 0) << said.err;
    EXPECT_THAT(said.out, IsEmpty());
    EXPECT_THAT(Read("z.svg"), StartsWith("<?xml"));
    EXPECT_THAT(Read("z.svg"), HasSubstr("My/Vz/Deflection (kNm/kN/mm)"));
    EXPECT_EQ(Kestrum("diagram a.dat --axis y -o y.SVG").exit, 0);
    EXPECT_THAT(Read("y.SVG"), HasSubstr("Mz/Vy/Deflection (kNm/kN/mm)"));
}

TEST_F(DiagramCommand, RefusesWhatItCannotWrite)
{
    for (const char* arguments :
         {"diagram a.dat -o a.txt", "diagram a.dat -o a", "diagram a.dat --axis x -o a.svg",
          "diagram a.dat", "diagram none.dat -o a.svg", "diagram a.dat -o none/a.svg"}) {
        EXPECT_EQ(Kestrum(arguments).exit, 2) << arguments;
    }
    EXPECT_THAT(Kestrum("diagram a.dat -o a.txt").err,
                HasSubstr("a.txt: the name has to end in .svg, .png or .pdf"));
}

TEST_F(DiagramCommand, TellsAFailedCalculation)
{
    ASSERT_EQ(Kestrum("new -o b.dat --set nload[1]=1000000 qload[1]=10").exit, 0);
    const Said said = Kestrum("diagram b.dat -o b.svg");
    EXPECT_EQ(said.exit, 3);
    EXPECT_THAT(said.err, HasSubstr("Calculation Error"));
    EXPECT_FALSE(std::filesystem::exists(Path("b.svg")));
}

// A copy of the program has no renderer beside it.
TEST_F(DiagramCommand, TellsThatTheRendererIsMissing)
{
    std::filesystem::create_directory(Path("bin"));
    std::filesystem::copy_file(KESTRUM_BIN "/kestrum", Path("bin/kestrum"));
    const std::string command = "'" + Path("bin/kestrum") +
                                "' --data '" KESTRUM_SHARE "' diagram '" + Path("a.dat") +
                                "' -o '" + Path("a.pdf") + "' 2>'" + Path("err") + "'";
    const int status = std::system(command.c_str());
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 2);
    EXPECT_THAT(Read("err"), HasSubstr("need the renderer kestrum-render.so"));

    Write("bin/kestrum-render.so", "no library");
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 2);
    EXPECT_THAT(Read("err"), HasSubstr("cannot be loaded"));
}

TEST_F(DiagramCommand, WritesPdfAndPngWithTheRenderer)
{
    if (!std::filesystem::exists(KESTRUM_BIN "/kestrum-render.so")) {
        GTEST_SKIP() << "built without the desktop";
    }
    EXPECT_EQ(Kestrum("diagram a.dat -o a.pdf").exit, 0);
    EXPECT_THAT(Read("a.pdf"), StartsWith("%PDF"));
    EXPECT_EQ(Kestrum("diagram a.dat -o a.png").exit, 0);
    EXPECT_THAT(Read("a.png"), StartsWith("\x89PNG"));
}

}  // namespace
}  // namespace kestrum
