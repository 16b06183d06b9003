#include "app/view_diagram.h"

#include "app/session_fixture.h"
#include "report/member_drawing.h"

#include <algorithm>
#include <cmath>

namespace kestrum {
namespace {

double PlaceOf(double part)
{
    return kMemberStart + part * kMemberWidth;
}

TEST(Reading, StepsFromPointToPointAndStaysOnTheMember)
{
    EXPECT_DOUBLE_EQ(StepReading(std::nullopt, 1), PlaceOf(0.5));
    EXPECT_DOUBLE_EQ(StepReading(PlaceOf(0.5), 1), PlaceOf(0.52));
    EXPECT_DOUBLE_EQ(StepReading(PlaceOf(0.513), -1), PlaceOf(0.5));
    EXPECT_DOUBLE_EQ(StepReading(PlaceOf(0), -1), PlaceOf(0));
    EXPECT_DOUBLE_EQ(StepReading(PlaceOf(1), 3), PlaceOf(1));
}

// Midspan of a simple beam: 5/384 q L4/(E I), nothing at the supports.
TEST(Reading, TellsTheDeflection)
{
    Program program;
    const ProjectState& s = program.session.shown();
    const double wanted =
        5.0 / 384.0 * 10 * std::pow(5000.0, 4) / (static_cast<double>(s.e) * s.iy);
    const std::string text = DeflectionReading(s, LoadAxis::z, PlaceOf(0.5));
    EXPECT_EQ(text.substr(0, 5), "dz = ");
    EXPECT_NEAR(std::stod(text.substr(5)), wanted, 0.06 + 0.005 * wanted);
    EXPECT_EQ(DeflectionReading(s, LoadAxis::z, PlaceOf(0)), "dz = 0.0 mm");
    EXPECT_EQ(DeflectionReading(s, LoadAxis::y, PlaceOf(0.5)), "dy = 0.0 mm");
    EXPECT_EQ(DeflectionReading(s, LoadAxis::z, PlaceOf(1.01)), "");
    program.edit().loadmode = 0;
    program.session.Calculate();
    EXPECT_EQ(DeflectionReading(program.session.shown(), LoadAxis::z, PlaceOf(0.5)), "");
}

// 10 kN/m on 5 m: V = 25 kN at the start, M = 10 2.5^2/2 = 31.25 kNm in the middle, the row behind
// 25 others and the head.
TEST(DiagramTable, HasTheValuesOfEveryPlace)
{
    Program program;
    const std::string text = DiagramTable(program.session.shown(), LoadAxis::z, {});
    EXPECT_EQ(text.substr(0, text.find('\n')), "x m\tMy kNm\tVz kN\tdz mm");
    EXPECT_NE(text.find("\n0.000\t0.00\t25.00\t0.00\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\n2.500\t31.25\t0.00\t"), std::string::npos);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 52);
    const Utilisation along{AlongMember{}, {}, 1};
    const std::string used = DiagramTable(program.session.shown(), LoadAxis::y, along);
    EXPECT_EQ(used.substr(0, used.find('\n')), "x m\tMz kNm\tVy kN\tdy mm\tIR");
}

}  // namespace
}  // namespace kestrum
