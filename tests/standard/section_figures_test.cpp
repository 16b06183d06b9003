// Figures of the profile tables that no other source supports: the standard basis takes the
// corrected ones (data/SOURCES.md), and each group can be switched back.

#include "standard/standard_member.h"

#include <cmath>
#include <numbers>

namespace kestrum {
namespace {

using standard::CheckId;
using std::numbers::pi;

constexpr double kE = 210000, kG = kE / 2.6;  // MPa

double WithTheTable(const ProjectState& s, Dev deviation, CheckId id)
{
    return Ratio(standard::CalculateStandard(Delivered(), s, Basis::StandardBut(deviation)), id);
}

// Reduction factor of 6.3.1.2 and of 6.3.2.2 without a plateau at 0.2.
double Chi(double slenderness, double alpha)
{
    const double phi = 0.5 * (1 + alpha * (slenderness - 0.2) + slenderness * slenderness);
    return 1 / (phi + std::sqrt(phi * phi - slenderness * slenderness));
}

// Channel under a uniform moment [Nmm], forks at both ends, its shear centre at mid-height:
// Mcr = pi sqrt(E Iz (G It + pi^2 E Iw/L^2))/L, curve d of the general case, 6.3.2.2. mm.
double LateralRatio(double m, double length, double wply, double fy, double iz, double it,
                    double iw)
{
    const double mcr =
        pi * std::sqrt(kE * iz * (kG * it + pi * pi * kE * iw / (length * length))) / length;
    return m / (Chi(std::sqrt(wply * fy / mcr), 0.76) * wply * fy);
}

Member Channel(std::string_view name, float length, float moment)
{
    Member s = Unloaded(length, 235).Section(name).EndForces(0, moment, 0);
    s.ltb = 1;
    return s;
}

// UPE 300: Wpl,y 613 cm3, Iz 538 cm4, Iw 75.5 10^9 mm6. It 34.0 cm4 in the table, 31.5 in the
// Orange Book and the ArcelorMittal programme.
TEST(SectionFigures, D58TorsionConstantOfUpe300)
{
    const Member s = Channel("UPE 300", 6, 40);
    const auto ratio = [](double it) {
        return LateralRatio(40e6, 6000, 613e3, 235, 538e4, it, 75.5e9);
    };
    EXPECT_NEAR(Ratio(s, CheckId::ltb), ratio(31.5e4), 5e-4);
    EXPECT_NEAR(WithTheTable(s, Dev::d58, CheckId::ltb), ratio(34e4), 5e-4);
    EXPECT_GT(ratio(31.5e4), ratio(34e4) + 5e-3);
}

// UBP 305x305x79: A 100.5 cm2, Iy 16440, Iz 5326 cm4, Iw 1105 10^9 mm6. It 51.37 cm4 in the
// table, 46.9 in Blue Book and Orange Book. Torsional buckling over 12 m, curve c, 6.3.1.4:
// Ncr,T = (G It + pi^2 E Iw/L^2) A/(Iy + Iz).
TEST(SectionFigures, D59TorsionConstantOfBritishSections)
{
    Member s = Unloaded(12, 235).Section("UBP 305x305x79");
    s.nload[1] = 400;
    s.ly = s.lz = 0.3F;
    const auto ratio = [](double it) {
        const double ncr =
            (kG * it + pi * pi * kE * 1105e9 / 12000 / 12000) * 100.5e2 / (16440e4 + 5326e4);
        return 400e3 / (Chi(std::sqrt(100.5e2 * 235 / ncr), 0.49) * 100.5e2 * 235);
    };
    EXPECT_NEAR(Ratio(s, CheckId::torsional), ratio(46.9e4), 2e-3 * ratio(46.9e4));
    EXPECT_NEAR(WithTheTable(s, Dev::d59, CheckId::torsional), ratio(51.37e4),
                2e-3 * ratio(46.9e4));
    EXPECT_GT(ratio(46.9e4), 1.02 * ratio(51.37e4));
}

// CH 305x102x46: Wpl,y 627.4 cm3, Iz 472 cm4. It 49.5 cm4 and Iw 86.3 10^9 mm6 in the table, 39.0
// and 66.7 by finite elements.
TEST(SectionFigures, D60TorsionAndWarpingOfTaperedChannels)
{
    const Member s = Channel("CH 305x102x46", 6, 40);
    const auto ratio = [](double it, double iw) {
        return LateralRatio(40e6, 6000, 627.4e3, 235, 472e4, it, iw);
    };
    EXPECT_NEAR(Ratio(s, CheckId::ltb), ratio(39.0e4, 66.7e9), 5e-4);
    EXPECT_NEAR(WithTheTable(s, Dev::d60, CheckId::ltb), ratio(49.5e4, 86.3e9), 5e-4);
    EXPECT_GT(ratio(39.0e4, 66.7e9), 1.05 * ratio(49.5e4, 86.3e9));
}

// CH 305x102x46: 59.3 cm2 of the outline, 58.1 in the table; 1000/(A fy).
TEST(SectionFigures, D61AreaOfThreeTaperedChannels)
{
    Member s = Unloaded(1, 235).Section("CH 305x102x46").EndForces(1000, 0, 0);
    EXPECT_NEAR(Ratio(s, CheckId::section_n), 1000 / (59.3 * 23.5), 1e-6);
    EXPECT_NEAR(WithTheTable(s, Dev::d61, CheckId::section_n), 1000 / (58.1 * 23.5), 1e-6);
}

// J 203x152x52: A 66.6 and 65.93 cm2, Wpl,y 541 and 534, Wpl,z 176 and 179 cm3.
TEST(SectionFigures, D62JoistThatContradictsItsMass)
{
    Member s = Unloaded(1, 235).Section("J 203x152x52").EndForces(500, 20, 10);
    EXPECT_NEAR(Ratio(s, CheckId::section_n), 500 / (66.6 * 23.5), 1e-6);
    EXPECT_NEAR(WithTheTable(s, Dev::d62, CheckId::section_n), 500 / (65.93 * 23.5), 1e-6);
    EXPECT_NEAR(Ratio(s, CheckId::section_my), 20 / (541 * 0.235), 1e-6);
    EXPECT_NEAR(WithTheTable(s, Dev::d62, CheckId::section_my), 20 / (534 * 0.235), 1e-6);
    EXPECT_NEAR(Ratio(s, CheckId::section_mz), 10 / (176 * 0.235), 1e-6);
    EXPECT_NEAR(WithTheTable(s, Dev::d62, CheckId::section_mz), 10 / (179 * 0.235), 1e-6);
}

// A row without corrected figures, and one of the user's own, meet no deviation.
TEST(SectionFigures, OtherRowsMeetNoDeviation)
{
    const auto met = [](const Library& library, const ProjectState& s) {
        const Deviations all = standard::CalculateStandard(library, s).met;
        return all[IndexOf(Dev::d58)] || all[IndexOf(Dev::d59)] || all[IndexOf(Dev::d60)] ||
               all[IndexOf(Dev::d61)] || all[IndexOf(Dev::d62)];
    };
    EXPECT_TRUE(met(Delivered(), Channel("UPE 300", 6, 40)));
    EXPECT_FALSE(met(Delivered(), Channel("UPE 330", 6, 40)));
    EXPECT_FALSE(met(Delivered(), Channel("PFC 300x90x41", 6, 40)));
    EXPECT_FALSE(met(Delivered(), Channel("UB 305x165x46", 6, 40)));
    Library own = Delivered();
    own.corrected.clear();
    EXPECT_FALSE(met(own, Channel("UPE 300", 6, 40)));
}

}  // namespace
}  // namespace kestrum
