// The example frame: its script, its tables, and what `envelope` finds in them.

#include "run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <sstream>
#include <vector>

namespace kestrum {
namespace {

using ::testing::HasSubstr;

class FrameExample : public CommandLine {
protected:
    static constexpr const char* kFolder = KESTRUM_SOURCE "/examples/frames/";

    static std::string File(const std::string& name)
    {
        std::ifstream file(kFolder + name);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // Numbers of the rows of a member and case: x, N, Vy, Vz, My, Mz.
    static std::vector<std::vector<double>> Rows(const std::string& key)
    {
        std::vector<std::vector<double>> rows;
        std::istringstream lines(File("forces.csv"));
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with(key + ",")) {
                std::istringstream cells(line.substr(key.size() + 1));
                rows.emplace_back();
                for (std::string cell; std::getline(cells, cell, ',');) {
                    rows.back().push_back(std::stod(cell));
                }
            }
        }
        return rows;
    }

    // The first cells of each answer with the ratio of each basis: verdict aside.
    using Ratios = std::map<std::string, std::pair<double, double>>;
    static Ratios Largest(const std::string& ndjson)
    {
        Ratios found;
        const auto after = [](const std::string& line, const std::string& name) {
            return line.substr(line.find("\"" + name + "\":") + name.size() + 3);
        };
        std::istringstream lines(ndjson);
        for (std::string line; std::getline(lines, line);) {
            const std::string member = after(line, "member");
            auto& [program, standard] = found[member.substr(0, member.find(','))];
            program = std::max(program, std::stod(after(line, "ir")));
            standard = std::max(standard, std::stod(after(line, "ir_standard")));
        }
        return found;
    }
};

TEST_F(FrameExample, IsWhatItsScriptWrites)
{
    if (std::system("command -v python3 >/dev/null") != 0) {
        GTEST_SKIP() << "python3 is not here";
    }
    ASSERT_EQ(Shell(std::string("python3 ") + kFolder + "frame.py " + Path("")).exit, 0);
    EXPECT_EQ(Read("members.csv"), File("members.csv"));
    EXPECT_EQ(Read("forces.csv"), File("forces.csv"));
}

// U2: 1.35 G + 1.5 Q, 42.6 kN/m on B1 of 7 m, 12.15 kN/m on B2, 0.81 kN/m in the columns of 3.5 m.
TEST_F(FrameExample, ForcesBalanceTheirLoads)
{
    const auto beam = Rows("B1,U2");
    ASSERT_EQ(beam.size(), 11U);
    EXPECT_NEAR(beam[5][4] - (beam[0][4] + beam[10][4]) / 2, 42.6 * 49 / 8, 2e-3);
    EXPECT_NEAR(beam[0][3] - beam[10][3], 42.6 * 7, 2e-3);
    const double brace = Rows("T1,U2")[0][1] * 3.5 / std::hypot(7.0, 3.5);
    EXPECT_NEAR(Rows("C1,U2")[0][1] + Rows("C2,U2")[0][1] + brace,
                42.6 * 7 + 12.15 * 7 + 4 * 0.81 * 3.5, 2e-3);
}

TEST_F(FrameExample, TheWorstOfEachMemberIsThatOfItsCases)
{
    const std::string tables = std::string(kFolder) + "members.csv " + kFolder + "forces.csv";
    const Said worst = Kestrum("envelope --json " + tables);
    EXPECT_EQ(worst.exit, 0);
    EXPECT_THAT(worst.err, HasSubstr("7 members: 7 within limits, 0 above limit"));
    const Said all = Kestrum("envelope --json --all " + tables);
    EXPECT_EQ(std::count(all.out.begin(), all.out.end(), '\n'), 70);
    EXPECT_EQ(Largest(worst.out), Largest(all.out));
    EXPECT_EQ(Largest(worst.out).size(), 7U);
}

// A member of a project with the loads of the frame's beam: the lines are those of the stations.
// B1 in U2 has a parabola between its end moments; a parabola and its chords differ by 1 percent.
TEST_F(FrameExample, ABeamComesNearItsOwnLoads)
{
    Write("m.csv", "id,section,steel,l,ltb\nB,IPE 330,S235,7,0\n");
    std::string rows = "member,case,x,N,Vy,Vz,My,Mz\n";
    for (int i = 0; i <= 20; ++i) {
        const double x = 0.35 * i;
        rows += "B,U," + std::to_string(x) + ",0,0," + std::to_string(20 * (3.5 - x)) + "," +
                std::to_string(10 * x * (7 - x)) + ",0\n";
    }
    Write("f.csv", rows);
    Write("b.csv", "section,steel,l,ltb,loadcomb,lfulsg,qload[1]\nIPE 330,S235,7,0,4,1,20\n");
    const Said loads = Kestrum("batch b.csv --fields ir_standard --json --exit-zero");
    const Said stations = Kestrum("envelope m.csv f.csv --json --exit-zero");
    const auto ratio = [](const std::string& line, const std::string& name) {
        return std::stod(line.substr(line.find("\"" + name + "\":") + name.size() + 3));
    };
    for (const char* name : {"ir", "ir_standard"}) {
        const double own = ratio(loads.out, name);
        EXPECT_GT(own, 0.3);
        EXPECT_NEAR(ratio(stations.out, name), own, 0.0025 * own) << name;
    }
}

}  // namespace
}  // namespace kestrum
