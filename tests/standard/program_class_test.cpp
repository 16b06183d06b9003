// D42: classes of N with a moment by the stresses that act, at the limits. N and Nmm; S235.

#include "standard/program_class.h"

#include "engine/section_dispatch.h"
#include "standard/standard_member.h"

#include <cmath>

namespace kestrum {
namespace {

using standard::ProgramClassesUnder;

constexpr double kHair = 0.002;

// Web 600x10, flanges 300x20: the flange is of class 1.
Member Welded()
{
    Member s = Unloaded(4, 235).Section(FormP21{640, 300, 10, 20});
    CalcSection(Delivered(), s);
    return s;
}

int ClassY(const ProjectState& s, double n, double my)
{
    return ProgramClassesUnder(s, n, my, 0).my;
}

int ClassZ(const ProjectState& s, double n, double mz)
{
    return ProgramClassesUnder(s, n, 0, mz).mz;
}

// Limit 396/(13 alpha - 1) with alpha = (1 + N/(600 10 235))/2.
TEST(ProgramClass, AxialForceAtTheEndOfClassOne)
{
    const Member s = Welded();
    const double alpha = (396 / (s.d / 10.0) + 1) / 13;
    const double n = (2 * alpha - 1) * 600 * 10 * 235;
    ASSERT_GT(n, 0);
    EXPECT_EQ(ClassY(s, n * (1 - kHair), 100e6), 1);
    EXPECT_EQ(ClassY(s, n * (1 + kHair), 100e6), 2);
    EXPECT_EQ(ClassY(s, n * (1 + kHair), -100e6), 2);
}

// 42/(0.67 + 0.33 psi), psi of the stresses N/A -+ My 300/Iy at the edges of the web.
TEST(ProgramClass, MomentAboutYAtTheEndOfClassThree)
{
    const Member s = Welded();
    const double n = 1200e3;
    const double psi = (42 / (s.d / 10.0) - 0.67) / 0.33;
    const double iy = (300 * std::pow(640, 3) - 290 * std::pow(600, 3)) / 12;
    const double my = (1 - psi) / (1 + psi) * n / 18000 * iy / 300;
    EXPECT_EQ(ClassY(s, n, my * (1 - kHair)), 4);
    EXPECT_EQ(ClassY(s, n, my * (1 + kHair)), 3);
    EXPECT_EQ(ClassY(s, n, -my * (1 + kHair)), 3);
}

// Flanges 400x10: 21 sqrt(0.57 - 0.21 psi + 0.07 psi^2), psi of N/A -+ Mz 200/Iz at the tips; the
// web 300x12 is of class 1.
TEST(ProgramClass, MomentAboutZAtTheEndOfClassThree)
{
    Member s = Unloaded(4, 235).Section(FormP21{320, 400, 12, 10});
    CalcSection(Delivered(), s);
    const double c = s.cflange / s.tf;
    const double k = std::pow(c / 21, 2);
    const double psi = (0.21 - std::sqrt(0.21 * 0.21 - 0.28 * (0.57 - k))) / 0.14;
    ASSERT_GT(psi, -1);
    ASSERT_LT(psi, 1);
    const double n = 500e3, area = 2 * 4000 + 3600;
    const double iz = (2 * 10 * std::pow(400, 3) + 300 * std::pow(12, 3)) / 12;
    const double mz = (1 - psi) / (1 + psi) * n / area * iz / 200;
    EXPECT_EQ(ClassZ(s, n, mz * (1 - kHair)), 4);
    EXPECT_EQ(ClassZ(s, n, mz * (1 + kHair)), 3);
    EXPECT_EQ(ClassZ(s, n, -mz * (1 + kHair)), 3);
}

// Box: N over one web 570x8; 396/(13 alpha - 1) again.
TEST(ProgramClass, BoxesByTheirOwnRule)
{
    Member s = Unloaded(4, 235).Section(FormP23{600, 300, 8, 15, 0});
    CalcSection(Delivered(), s);
    const double alpha = (396 / (s.d / 8.0) + 1) / 13;
    const double n = (2 * alpha - 1) * s.hw * 8 * 235;
    ASSERT_GT(n, 0);
    EXPECT_EQ(ClassY(s, n * (1 - kHair), 300e6), 1);
    EXPECT_EQ(ClassY(s, n * (1 + kHair), 300e6), 2);
}

// Unequal flanges: a sagging moment presses 300x20 of class 1, a hogging one 340x10 of class 4.
TEST(ProgramClass, SignOfTheMomentOfUnequalFlanges)
{
    Member s = Unloaded(4, 235).Section(FormP22{430, 300, 340, 12, 20, 10});
    CalcSection(Delivered(), s);
    EXPECT_EQ(ClassY(s, 1e3, 300e6), 1);
    EXPECT_EQ(ClassY(s, 1e3, -300e6), 4);
}

TEST(ProgramClass, KindsWithAClassByStresses)
{
    for (const Kind kind :
         {Kind::i_rolled, Kind::i_welded, Kind::i_single, Kind::channel, Kind::hollow, Kind::box}) {
        standard::StandardSection q{};
        q.kind = kind;
        EXPECT_TRUE(standard::ClassedByStresses(q)) << static_cast<int>(kind);
    }
    for (const Kind kind : {Kind::angle, Kind::tube, Kind::flat, Kind::general, Kind::hat,
                            Kind::box_unequal, Kind::tee, Kind::plate}) {
        standard::StandardSection q{};
        q.kind = kind;
        EXPECT_FALSE(standard::ClassedByStresses(q)) << static_cast<int>(kind);
    }
}

}  // namespace
}  // namespace kestrum
