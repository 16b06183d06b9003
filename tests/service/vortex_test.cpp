#include "service/vortex.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kestrum {
namespace {

// Tube 300x10, 12 m, fixed-pinned, vb 25 m/s, z 10 m, category II. A = pi 290 10 = 9110.6 mm2.
Member Tube()
{
    Member s = Member::Bare().Section(FormP31{300, 10}).Length(12);
    s.h = s.b = 300;
    s.tw = s.tf = 10;
    s.iy = 9.589e7F;
    s.weight = 71.52F;
    s.vortexcase = 1;
    s.terrain = 2;
    s.vb = 25;
    s.zh = 10;
    return s;
}

Member Box(float h, float b)
{
    Member s = Tube().Family(7);
    s.h = h;
    s.b = b;
    return s;
}

ProjectState Calculated(ProjectState s)
{
    CalcVortexFrequency(s, s, s);
    CalcVortex(s, s, s);
    return s;
}

// f = 3.93^2 sqrt(9.589e7*0.21/71.52)/(6.2832*144) = 15.445*530.6/904.8 = 9.058;
// vcrit = 0.3*9.058/0.18 = 15.10; vm = 25*0.19*ln(200) = 25.17.
TEST(Vortex, TubeWorkedByHand)
{
    const ProjectState s = Calculated(Tube());
    EXPECT_NEAR(s.freq[1], 9.058, 1e-3);
    EXPECT_EQ(s.stb, 0.3F);
    EXPECT_EQ(s.st, 0.18F);
    EXPECT_NEAR(s.vcrit, 15.10, 5e-3);
    EXPECT_NEAR(s.vm, 25.17, 5e-3);
    EXPECT_FALSE(VortexAccepted(s));
}

// D255: the exact roots are 3.1416, 3.9266, 4.7300, 1.8751.
TEST(Vortex, FrequencyFollowsTheSupportD255)
{
    const double exact[] = {3.1416, 3.9266, 4.7300, 1.8751};
    for (std::size_t i = 0; i < 4; ++i) {
        Member s = Tube();
        s.vortexcase = static_cast<i16>(i);
        CalcVortexFrequency(s, s, s);
        const double theory = exact[i] * exact[i] * 530.60 / (2 * 3.14159265 * 144);
        EXPECT_NEAR(s.freq[1], theory, 0.006 * theory) << i;
    }
    Member truss = Tube();
    truss.vortexcase = 4;
    CalcVortexFrequency(truss, truss, truss);
    EXPECT_NEAR(truss.freq[1], 4.23 * 4.23 * 530.60 / 904.78, 2e-3);
    Member cantilever = Tube();
    cantilever.vortexcase = 3;
    CalcVortexFrequency(cantilever, cantilever, cantilever);
    EXPECT_NEAR(cantilever.freq[1], 1.88 * 1.88 * 530.60 / 904.78, 1e-3);
}

// D256: loads on the member change nothing.
TEST(Vortex, MassIsThatOfTheSectionD256)
{
    Member loaded = Tube();
    loaded.qload.fill(20);
    EXPECT_EQ(Calculated(loaded).freq[1], Calculated(Tube()).freq[1]);
}

// Values of EN 1991-1-4, Table E.1 and the middle of each interval.
TEST(Vortex, StrouhalNumberOfRectangles)
{
    const std::pair<double, double> table[] = {{0.5, 0.12},  {1, 0.12}, {1.5, 0.09},   {2, 0.06},
                                               {2.5, 0.06},  {3, 0.06}, {3.25, 0.105}, {3.5, 0.15},
                                               {4.25, 0.13}, {5, 0.11}, {7.5, 0.10},   {10, 0.09}};
    for (const auto& [r, st] : table) {
        EXPECT_NEAR(StrouhalOfRectangle(r), st, 1e-12) << r;
    }
}

// On both sides of the peak at 3.5: 0.06 + 0.48 0.18 and 0.15 - 0.02 0.04/1.5.
TEST(Vortex, StrouhalNumberTurnsAtThreeAndAHalf)
{
    EXPECT_NEAR(StrouhalOfRectangle(3.48), 0.1464, 1e-12);
    EXPECT_NEAR(StrouhalOfRectangle(3.52), 0.15 - 0.02 * 0.04 / 1.5, 1e-12);
}

TEST(Vortex, StrouhalNumberBeyondTheTableTakesItsEndsD257)
{
    EXPECT_EQ(StrouhalOfRectangle(0.2), 0.12);
    EXPECT_EQ(StrouhalOfRectangle(11), 0.09);
}

TEST(Vortex, BoxesTakeHeightAcrossAndWidthAlongTheWind)
{
    const ProjectState s = Calculated(Box(200, 300));
    EXPECT_EQ(s.stb, 0.2F);
    EXPECT_EQ(s.st, 0.09F);
    EXPECT_NEAR(s.vcrit, 0.2 * s.freq[1] / 0.09, 1e-4);
    EXPECT_EQ(Calculated(Box(200, 200)).st, 0.12F);
    EXPECT_EQ(Calculated(Box(100, 1100)).st, 0.09F);
}

double MeanSpeed(int terrain, float z)
{
    Member s = Tube();
    s.terrain = static_cast<i16>(terrain);
    s.zh = z;
    s.freq[1] = 1;
    CalcVortex(s, s, s);
    return s.vm;
}

// EN 1991-1-4, 4.3 with vb 25 m/s at 10 m, as printed in design guides: 31.64, 29.32, 25.17 and
// 13.49 m/s.
TEST(Vortex, MeanWindSpeedOfTheTerrainCategories)
{
    EXPECT_NEAR(MeanSpeed(0, 10), 31.64, 5e-3);
    EXPECT_NEAR(MeanSpeed(1, 10), 29.32, 5e-3);
    EXPECT_NEAR(MeanSpeed(2, 10), 25.17, 5e-3);
    EXPECT_NEAR(MeanSpeed(4, 10), 13.49, 5e-3);
}

// D254: kr = 0.19 (0.6)^0.07 = 0.1833, times ln(10/0.03) = 5.809; the standard gives 18.88 m/s.
TEST(Vortex, CategoryThreeHasASmallRoughnessD254)
{
    EXPECT_NEAR(MeanSpeed(3, 10), 26.62, 5e-3);
}

TEST(Vortex, BelowTheLeastHeightTheSpeedIsLevel)
{
    EXPECT_EQ(MeanSpeed(4, 1), MeanSpeed(4, 10));
    EXPECT_GT(MeanSpeed(4, 10.5F), MeanSpeed(4, 10));
    for (std::size_t i = 0; i < kTerrains.size(); ++i) {
        const auto zmin = static_cast<float>(kTerrains[i].zmin);
        const auto terrain = static_cast<int>(i);
        EXPECT_EQ(MeanSpeed(terrain, zmin), MeanSpeed(terrain, zmin / 2));
        EXPECT_NEAR(MeanSpeed(terrain, std::nextafter(zmin, 99.0F)), MeanSpeed(terrain, zmin),
                    1e-4);
    }
}

TEST(Vortex, EqualityIsNotEnough)
{
    ProjectState s{};
    s.vm = 8;
    s.vcrit = 10;
    EXPECT_EQ(VortexVerdict(s), " NOK ");
    s.vcrit = std::nextafter(10.0F, 11.0F);
    EXPECT_EQ(VortexVerdict(s), " OK ");
}

TEST(Vortex, CoversBoxesAndTubes)
{
    for (int family = -1; family <= 210; ++family) {
        const bool covered = (family >= 6 && family <= 9) || family == 23 || family == 31;
        const bool refused = family >= 1 && family <= 200 && !covered;
        EXPECT_EQ(VortexFamily(family), covered) << family;
        EXPECT_EQ(VortexRefusal(family), refused ? "Only valid for boxes and tubes" : "") << family;
    }
}

TEST(Vortex, ACaseOutsideItsListStopsThePass)
{
    for (const i16 index : {i16{-1}, i16{5}}) {
        Member s = Tube();
        s.vortexcase = index;
        EXPECT_THROW(CalcVortexFrequency(s, s, s), CalculationStop);
        s = Tube();
        s.terrain = index;
        EXPECT_THROW(CalcVortex(s, s, s), CalculationStop);
    }
}

TEST(Vortex, Texts)
{
    const ProjectState s = Calculated(Tube());
    EXPECT_EQ(VortexMeanText(s), "25.2 m/s");
    EXPECT_EQ(VortexCriticalText(s), "15.1 m/s");
    EXPECT_EQ(VortexFrequencyText(s), "9.1 Hz");
}

TEST(Vortex, D259TakesASupportOfItsOwn)
{
    ProjectState s{};
    s.vortexcase = 1;
    s.supportcase = 0;
    EXPECT_EQ(VortexRestraint(s), "fixed-pinned");
    EXPECT_EQ(MemberSupport(s), "pinned-pinned");
    EXPECT_TRUE(VortexSupportDiffers(s));
    EXPECT_TRUE(VortexSupportIsStiffer(s));  // 3.93 above 3.14
    const int same[][2] = {{0, 0}, {1, 1}, {2, 2}, {4, 3}};
    for (const auto& [support, restraint] : same) {
        s.supportcase = static_cast<i16>(support);
        s.vortexcase = static_cast<i16>(restraint);
        EXPECT_FALSE(VortexSupportDiffers(s)) << support;
        EXPECT_FALSE(VortexSupportIsStiffer(s)) << support;
    }
    s.supportcase = 5;  // a spring has no match, and may be as soft as a pin
    s.vortexcase = 0;
    EXPECT_TRUE(VortexSupportDiffers(s));
    EXPECT_FALSE(VortexSupportIsStiffer(s));
    s.supportcase = 4;  // 3.14 above 1.88
    EXPECT_TRUE(VortexSupportIsStiffer(s));
    for (const int none : {-1, 5}) {
        s.vortexcase = static_cast<i16>(none);
        EXPECT_FALSE(VortexSupportIsStiffer(s)) << none;
        EXPECT_EQ(VortexRestraint(s), "") << none;
    }
    s.supportcase = 6;
    EXPECT_EQ(MemberSupport(s), "");
    for (const int any : {0, 1}) {
        s.vortexcase = static_cast<i16>(any);
        EXPECT_FALSE(VortexSupportDiffers(s)) << any;
        EXPECT_FALSE(VortexSupportIsStiffer(s)) << any;
    }
    s.vortexcase = 9;
    s.supportcase = 9;
    EXPECT_FALSE(VortexSupportDiffers(s));
    EXPECT_FALSE(VortexSupportIsStiffer(s));
    EXPECT_EQ(VortexRestraint(s), "");
    EXPECT_EQ(MemberSupport(s), "");
}

TEST(Vortex, GridShowsTheSection)
{
    const std::vector<VortexRow> grid = [&] {
        ProjectState s = Calculated(Tube());
        return VortexGrid(s, s, s);
    }();
    const VortexRow expected[] = {{" E = ", "2.100E+5", " MPa"},
                                  {" Profile", "Tube 300.0x10.0", ""},
                                  {" Profile height b = ", "300.0", " mm"},
                                  {" Mass", "71.5 ", " kg/m"},
                                  {" Iy =", "9.589E+7", " mm4"},
                                  {" Strouhal number", "0.18 ", ""},
                                  {" Length L =", "12.000", " m"}};
    ASSERT_EQ(grid.size(), std::size(expected));
    for (std::size_t i = 0; i < grid.size(); ++i) {
        EXPECT_EQ(grid[i].parameter, expected[i].parameter);
        EXPECT_EQ(grid[i].value, expected[i].value);
        EXPECT_EQ(grid[i].unit, expected[i].unit);
    }
}

TEST(Vortex, GridNamesTheFamily)
{
    const std::pair<int, const char*> names[] = {{6, "RHS 200x100x6.3"},
                                                 {7, "RHS 200x100x6.3"},
                                                 {8, "CFRHS 200x100x6.3"},
                                                 {9, "CFRHS 200x100x6.3"},
                                                 {23, "Box 200x100x6.3x12.0"}};
    for (const auto& [family, name] : names) {
        Member s = Box(200, 100);
        s.family = static_cast<i16>(family);
        s.tw = 6.3F;
        s.tf = 12;
        EXPECT_EQ(VortexGrid(s, s, s)[1].value, name);
    }
}

}  // namespace
}  // namespace kestrum
