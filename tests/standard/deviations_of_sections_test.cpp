// Deviations of section properties and resistances: the standard's value and, with one deviation
// switched back, the program's. Both by hand, from the dimensions.

#include "engine/section_dispatch.h"
#include "standard/effective.h"
#include "standard/resistance.h"
#include "standard/standard_member.h"

#include <cmath>

namespace kestrum {
namespace {

using standard::ActingForces;
using standard::CheckId;
using standard::StandardSection;

const double kRoot3 = std::sqrt(3.0);

// Welded I: h, b, tw, tf.
ProjectState WeldedI(float h, float b, float tw, float tf)
{
    ProjectState s = Unloaded(4, 235);
    s.family = 21;
    s.p21 = {h, b, tw, tf};
    EndForces(s, 0, 0, 0);
    return s;
}

// h, b, tw, tf, overhang.
ProjectState Box(float h, float b, float tw, float tf, float out = 0)
{
    ProjectState s = Unloaded(4, 235);
    s.family = 23;
    s.p23 = {h, b, tw, tf, out};
    EndForces(s, 0, 0, 0);
    return s;
}

// h, top and bottom width, tw, top and bottom thickness.
ProjectState UnequalI(float tw = 12)
{
    ProjectState s = Unloaded(4, 235);
    s.family = 22;
    s.p22 = {400, 300, 200, tw, 20, 16};
    EndForces(s, 0, 0, 0);
    return s;
}

StandardSection SectionIn(ProjectState s, const Basis& basis)
{
    CalcSection(Delivered(), s);
    return standard::SectionOf(Delivered(), s, basis);
}

int ClassIn(const ProjectState& s, const ActingForces& forces, const Basis& basis)
{
    return standard::ClassOf(SectionIn(s, basis), forces, basis);
}

void ExpectClasses(const ProjectState& s, const ActingForces& forces, Dev deviation, int standard,
                   int program)
{
    EXPECT_EQ(ClassIn(s, forces, Basis::Standard()), standard);
    EXPECT_EQ(ClassIn(s, forces, Basis::StandardBut(deviation)), program);
}

// --- Properties ----------------------------------------------------------------------------------

// INP 200: tw 7.5, r 7.5: the outstand begins 3.75 + 7.5 from the middle of the web.
TEST(DeviationsOfSections, D51OutstandBeginsAtTheRoot)
{
    const ProjectState s = Named("INP 200", 4, 235);
    EXPECT_NEAR(SectionIn(s, Basis::Standard()).walls[0].y0, 11.25, 1e-4);
    EXPECT_EQ(SectionIn(s, Basis::StandardBut(Dev::d51)).walls[0].y0, 0);
}

// UPE 200, tw 6: half of it less from centroid to shear centre.
TEST(DeviationsOfSections, D54ShearCentreOfUpe)
{
    const ProjectState s = Named("UPE 200", 4, 235);
    const double program = SectionIn(s, Basis::StandardBut(Dev::d54)).centre_y;
    EXPECT_NEAR(std::abs(SectionIn(s, Basis::Standard()).centre_y), std::abs(program) - 3, 1e-4);
}

// 500 high, flanges 300x20 and 150x15: second moments about z 45.0e6 and 4.21875e6 mm4, share of
// the upper one 0.914286, between the flange centres 482.5 mm: 0.4 (2 x 0.914286 - 1) 482.5 =
// 159.90. The exact value stands in Rules.AsymmetryOfAnUnequalI.
TEST(DeviationsOfSections, D57ApproximateAsymmetry)
{
    ProjectState s = UnequalI();
    s.p22 = {500, 300, 150, 10, 20, 15};
    EXPECT_NEAR(SectionIn(s, Basis::StandardBut(Dev::d57)).zj, 159.914, 1e-3);
    EXPECT_GT(SectionIn(s, Basis::Standard()).zj, 180);
}

// 400 high, flanges 300x20 and 200x16, web 12: half of 13568 mm2 lies 3584/12 mm up the web.
TEST(DeviationsOfSections, D186PlasticAxisHalvesTheArea)
{
    const double up = 3584.0 / 12;
    const double down = 364 - up;
    const double modulus = 3200 * (up + 8) + 12 * (up * up + down * down) / 2 + 6000 * (down + 10);
    EXPECT_NEAR(SectionIn(UnequalI(), Basis::Standard()).wply, modulus, 1e-6 * modulus);
    EXPECT_NEAR(SectionIn(UnequalI(), Basis::StandardBut(Dev::d186)).wply, modulus, 2e-5 * modulus);
}

TEST(DeviationsOfSections, D169OverhangsOfBoxesAreOutstands)
{
    const ProjectState s = Box(400, 300, 10, 10, 20);
    EXPECT_EQ(SectionIn(s, Basis::Standard()).wall_count, 8U);
    EXPECT_EQ(SectionIn(s, Basis::StandardBut(Dev::d169)).wall_count, 4U);
}

// --- Class ---------------------------------------------------------------------------------------

// PFC 430x100x64, S355: 362/11 = 32.9 lies between 38 and 42 eps, 30.9 and 34.2.
TEST(DeviationsOfSections, D34WebOfAChannelUnderMz)
{
    const ProjectState s = Named("PFC 430x100x64", 4, 355);
    ExpectClasses(s, {0, false, false, true}, Dev::d34, 3, 1);
}

// Web 1000x5, flanges 100x10, A 7000 mm2; N -1750 fy: alpha (1 - 1750/5000)/2, class 2 up to 128;
// psi -1.5, class 3 up to 62 x 2.5 sqrt(1.5) = 189.8, by the other formula 42/(0.67 - 0.495) = 240.
TEST(DeviationsOfSections, D155ElasticLimitOfAWebMostlyInTension)
{
    ExpectClasses(WeldedI(1020, 100, 5, 10), {-1750 * 235.0, true, false, false}, Dev::d155, 4, 3);
}

// Outstand of 16 t under 0.3 Npl and Mz: psi 0.3 + 0.7 y_root/y_tip, above 0.3, 21 sqrt(0.513) =
// 15.0 at most; from tip to tip psi -0.4, 21 sqrt(0.57 + 0.084 + 0.0112) = 17.1.
TEST(DeviationsOfSections, D157StressRatioOfTheOutstand)
{
    ProjectState s = WeldedI(400, 300, 12, 10);
    const double out = SectionIn(s, Basis::Standard()).walls[0].Width();
    s.p21 = {400, 300, 12, static_cast<float>(out / 16)};
    const double n = 0.3 * SectionIn(s, Basis::Standard()).a * 235;
    ExpectClasses(s, {n, false, false, true}, Dev::d157, 4, 3);
}

// Webs of 58 t, N half of what one yields with: alpha (1 + 0.25)/2, class 2 up to 456/7.125 = 64;
// against one web alpha 0.75, up to 456/8.75 = 52.
TEST(DeviationsOfSections, D168BothWebsShareTheAxialForce)
{
    ProjectState s = Box(400, 200, 6, 12);
    const double c = SectionIn(s, Basis::Standard()).walls[1].Width();
    s.p23.isttw = static_cast<float>(c / 58);
    const double n = 0.5 * c * (c / 58) * 235;
    EXPECT_EQ(ClassIn(s, {n, true, false, false}, Basis::Standard()), 2);
    EXPECT_GE(ClassIn(s, {n, true, false, false}, Basis::StandardBut(Dev::d168)), 3);
}

// --- Shear ---------------------------------------------------------------------------------------

// Box of webs 380x10: 1.2 x 7600 mm2; 7600.
TEST(DeviationsOfSections, D29ShearAreaOfBoxes)
{
    ProjectState s = Box(400, 300, 10, 10);
    s.neta = 1.2F;
    s.vz1 = s.vz2 = 500;
    EXPECT_NEAR(Ratio(s, CheckId::section_vz), 500e3 * kRoot3 / (9120 * 235), 1e-6);
    EXPECT_NEAR(Back(s, Dev::d29, CheckId::section_vz), 500e3 * kRoot3 / (7600 * 235), 1e-6);
}

// Flanges 2 x 300 x 20.
TEST(DeviationsOfSections, D152ShearResistanceOfFlanges)
{
    ProjectState s = WeldedI(400, 300, 15, 20);
    s.vy1 = s.vy2 = 500;
    const double plastic = 500e3 * kRoot3 / (12000 * 235);
    EXPECT_NEAR(Ratio(s, CheckId::section_vy), plastic, 1e-6);
    EXPECT_NEAR(Back(s, Dev::d152, CheckId::section_vy), 1.5 * plastic, 1e-6);
}

// Vy three quarters of Vpl,y: rho 0.25 of 900000 mm3 in both flanges, Wpl,z 920250; half of that.
TEST(DeviationsOfSections, D161BothFlangesCarryVy)
{
    ProjectState s = WeldedI(400, 300, 15, 20);
    EndForces(s, 0, 0, 50);
    s.vy1 = s.vy2 = static_cast<float>(0.75 * 12000 * 235 / kRoot3 / 1000);
    EXPECT_NEAR(Ratio(s, CheckId::section_mz), 50e6 / (695250 * 235), 1e-4);
    EXPECT_NEAR(Back(s, Dev::d161, CheckId::section_mz), 50e6 / (807750 * 235), 1e-4);
}

// Wide slender flanges, gammaM1 1.1.
TEST(DeviationsOfSections, D172ShearBucklingOfBoxFlanges)
{
    ProjectState s = Box(300, 1000, 20, 8);
    s.gammam1 = 1.1F;
    s.vy1 = s.vy2 = 300;
    EXPECT_NEAR(Ratio(s, CheckId::section_vy), 1.1 * Back(s, Dev::d172, CheckId::section_vy), 1e-6);
}

// Tube 200x10: shear resistance 2 x 190 x 10 fy/sqrt(3) to the resultant of 100 and 100 kN.
TEST(DeviationsOfSections, D176ShearForcesOfATubeHaveOneResultant)
{
    ProjectState s = Unloaded(4, 235);
    s.family = 31;
    s.p31 = {200, 10};
    EndForces(s, 0, 0, 0);
    s.vz1 = s.vz2 = s.vy1 = s.vy2 = 100;
    const double each = 100e3 * kRoot3 / (3800 * 235);
    EXPECT_NEAR(Ratio(s, CheckId::section_vz), std::sqrt(2.0) * each, 1e-5);
    EXPECT_NEAR(Back(s, Dev::d176, CheckId::section_vz), each, 1e-5);
}

// --- Slender webs, EN 1993-1-5 -------------------------------------------------------------------

struct Sheared {
    standard::ShearResistance standard, program;
};

Sheared ShearOf(const ProjectState& s, const standard::ShearInputs& in, Dev deviation)
{
    const auto of = [&](const Basis& basis) {
        const auto p = standard::Prepare(SectionIn(s, basis), basis);
        return standard::ShearAlongZ(p, in, 0, 0, basis);
    };
    return {of(Basis::Standard()), of(Basis::StandardBut(deviation))};
}

// Vbf,Rd = bf tf^2 fy/c, c = a (0.25 + 1.6 bf tf^2/(tw hw^2)), fy out of it, in N.
double FlangePart(double b, double t, double a, double hw, double tw)
{
    return b * t * t * 235 / (a * (0.25 + 1.6 * b * t * t / (tw * hw * hw)));
}

// Flange 600x10 of S235: 2 x 15 x 10 + 6 = 306 mm count; all 600.
TEST(DeviationsOfSections, D30WidthOfTheFlange)
{
    const auto v = ShearOf(WeldedI(1020, 600, 6, 10), {0, 4000, false, false}, Dev::d30);
    EXPECT_NEAR(v.standard.total - v.standard.web, FlangePart(306, 10, 4000, 1000, 6), 1);
    EXPECT_NEAR(v.program.total - v.program.web, FlangePart(600, 10, 4000, 1000, 6), 1);
}

// Supports 4 m apart, 1 m entered for stiffeners that are not there.
TEST(DeviationsOfSections, D159SpacingWithoutStiffeners)
{
    const auto v = ShearOf(WeldedI(1020, 200, 6, 10), {1000, 4000, false, false}, Dev::d159);
    EXPECT_NEAR(v.standard.total - v.standard.web, FlangePart(200, 10, 4000, 1000, 6), 1);
    EXPECT_NEAR(v.program.total - v.program.web, FlangePart(200, 10, 1000, 1000, 6), 1);
}

// Flanges 300x20 and 200x16: the weaker one is the lower.
TEST(DeviationsOfSections, D199SpacingWithoutStiffenersOfAnUnequalI)
{
    const auto v = ShearOf(UnequalI(4), {1000, 4000, false, false}, Dev::d199);
    EXPECT_NEAR(v.standard.total - v.standard.web, FlangePart(200, 16, 4000, 364, 4), 5);
    EXPECT_NEAR(v.program.total - v.program.web, FlangePart(200, 16, 1000, 364, 4), 5);
}

// Stiffeners as far apart as the web is high: k_tau 9.34, without them 5.34; Vbw,Rd goes with its
// root.
TEST(DeviationsOfSections, D158StiffenersCountInTheTestForHighShear)
{
    const auto v = ShearOf(WeldedI(1020, 200, 6, 10), {1000, 4000, true, false}, Dev::d158);
    EXPECT_NEAR(v.standard.web / v.program.web, std::sqrt(9.34 / 5.34), 1e-3);
}

double FlangeMomentOf(const ProjectState& s, double n, const Basis& basis)
{
    return standard::FlangeMoment(standard::Prepare(SectionIn(s, basis), basis), n, 0, basis);
}

// Flanges 200x10, 1010 mm apart: 2000 x 1010 fy, less N/(4000 fy); N in kN against N leaves 0.1 %.
TEST(DeviationsOfSections, D154AxialForceTakesFromTheFlanges)
{
    const ProjectState s = WeldedI(1020, 200, 6, 10);
    const double whole = 2000 * 1010 * 235.0;
    const double n = -0.5 * 4000 * 235;
    EXPECT_NEAR(FlangeMomentOf(s, n, Basis::Standard()), 0.5 * whole, 1e-6 * whole);
    EXPECT_NEAR(FlangeMomentOf(s, n, Basis::StandardBut(Dev::d154)), 0.9995 * whole, 1e-6 * whole);
}

// The lower flange, 3200 mm2, on the arm 382 mm; Wel,y of the smaller edge less 364^2 x 12/6.
TEST(DeviationsOfSections, D31WeakerFlangeOnItsArm)
{
    const ProjectState s = UnequalI();
    const double a = 13568;
    const double below = (3200 * 8.0 + 4368 * 198.0 + 6000 * 390.0) / a;
    const double iy = 3200 * std::pow(below - 8, 2) + 4368 * std::pow(below - 198, 2) +
                      6000 * std::pow(390 - below, 2) + 12 * std::pow(364, 3) / 12 +
                      300 * std::pow(20, 3) / 12 + 200 * std::pow(16, 3) / 12;
    const double standard = 3200 * 382 * 235.0;
    EXPECT_NEAR(FlangeMomentOf(s, 0, Basis::Standard()), standard, 1e-6 * standard);
    const double program = (iy / below - 364 * 364 * 2.0) * 235;
    EXPECT_NEAR(FlangeMomentOf(s, 0, Basis::StandardBut(Dev::d31)), program, 1e-4 * program);
}

// --- Bending and axial force ---------------------------------------------------------------------

// Vz three quarters of the resistance of 1.2 x 5400 mm2: rho 0.25 of the web, A 17400 mm2. n counts
// with 17400 - 0.25 x 5400; with the whole area.
TEST(DeviationsOfSections, D151ShearTakesFromTheAxialResistance)
{
    ProjectState s = WeldedI(400, 300, 15, 20);
    s.neta = 1.2F;
    EndForces(s, -1500, 200, 0);
    s.vz1 = s.vz2 = static_cast<float>(0.75 * 6480 * 235 / kRoot3 / 1000);
    const double mv = (2766000 - 0.25 * 486000) * 235;
    const double left = 1 - 0.5 * 5400 / 17400;
    const auto ir = [&](double area) { return 200e6 * left / (mv * (1 - 1500e3 / (area * 235))); };
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), ir(16050), 1e-4);
    EXPECT_NEAR(Back(s, Dev::d151, CheckId::section_nm), ir(17400), 1e-4);
}

// UPE 200: A 2900 mm2, flanges 80x11, so that the web is 0.3931 of it.
TEST(DeviationsOfSections, D163ChannelsSumTheRatios)
{
    ProjectState s = Named("UPE 200", 4, 235);
    EndForces(s, -300, 20, 0);
    const double n = Ratio(s, CheckId::section_n);
    const double m = Ratio(s, CheckId::section_my);
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), n + m, 1e-9);
    EXPECT_NEAR(Back(s, Dev::d163, CheckId::section_nm), m * (1 - 0.5 * 0.3931) / (1 - n), 1e-3);
}

// Flanges 300x20 and 200x16: as a doubly symmetric section with two of 250x18, web share
// (13568 - 9000)/13568.
TEST(DeviationsOfSections, D190UnequalISumsTheRatios)
{
    ProjectState s = UnequalI();
    EndForces(s, -1000, 50, 0);
    const double n = Ratio(s, CheckId::section_n);
    const double m = Ratio(s, CheckId::section_my);
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), n + m, 1e-9);
    EXPECT_NEAR(Back(s, Dev::d190, CheckId::section_nm), m * (1 - 0.5 * 4568.0 / 13568) / (1 - n),
                1e-6);
}

// Flanges 300x16, webs 368x8, A 15488 mm2: web share 5888/15488; with 2 b tw for the flanges 0.5.
TEST(DeviationsOfSections, D170FlangesOfTheBoxCountWithTheirThickness)
{
    ProjectState s = Box(400, 300, 8, 16);
    EndForces(s, -1500, 100, 0);
    const double by_share = (1 - 0.5 * 5888 / 15488) / 0.75;
    EXPECT_NEAR(Ratio(s, CheckId::section_nm) / Back(s, Dev::d170, CheckId::section_nm), by_share,
                1e-6);
}

// Box 300x300x10, A 11600 mm2, Wpl 1262000 mm3 about both axes; N 0.96 Npl; moments half of MN,
// with web shares 5600/11600 and 0.5: exponents 6; 1.66/(1 - 1.13 x 0.96^2) = -40.1.
TEST(DeviationsOfSections, D171ExponentNearSquash)
{
    ProjectState s = Box(300, 300, 10, 10);
    const double mpl = 1262000 * 235e-6;
    const double mny = mpl * 0.04 / (1 - 0.5 * 5600 / 11600);
    const double mnz = mpl * 0.04 / 0.75;
    EndForces(s, static_cast<float>(-0.96 * 11600 * 0.235), static_cast<float>(mny / 2),
              static_cast<float>(mnz / 2));
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), 2 * std::pow(0.5, 6), 1e-4);
    const double exponent = 1.66 / (1 - 1.13 * 0.9216);
    const double program = 2 * std::pow(0.5, exponent);
    EXPECT_NEAR(Back(s, Dev::d171, CheckId::section_nm) / program, 1, 0.01);
}

// Bar 200x20: Npl 940 kN, Mpl 47 kNm; half of Npl in tension leaves 35.25; all of it.
TEST(DeviationsOfSections, D177TensionTakesFromTheMomentOfABar)
{
    ProjectState s = Unloaded(1, 235);
    s.family = 28;
    s.p28 = {200, 20};
    EndForces(s, -470, 20, 0);
    EXPECT_NEAR(Ratio(s, CheckId::section_nm), 20 / 35.25, 1e-6);
    EXPECT_NEAR(Back(s, Dev::d177, CheckId::section_nm), 20 / 47.0, 1e-6);
}

// A tube beyond d/t = 90 eps^2: no ratio; gross area pi 490 x 5 with N 100 kN.
TEST(DeviationsOfSections, D175TubeOfClassFour)
{
    ProjectState s = Unloaded(4, 235);
    s.family = 31;
    s.p31 = {495, 5};
    s.nload[1] = -100;
    EXPECT_FALSE(Rated(s).rated);
    EXPECT_NEAR(Back(s, Dev::d175, CheckId::section_n), 100e3 / (3.14159265 * 490 * 5 * 235), 1e-5);
}

// --- Class 4 -------------------------------------------------------------------------------------

// Flanges 500x8: both tips of one side are lost, the centroid moves to the other, and the
// compressed edge is further off than the stretched one.
TEST(DeviationsOfSections, D160CompressedEdgeIsFurtherFromTheAxis)
{
    const ProjectState s = WeldedI(400, 500, 10, 8);
    const Basis basis = Basis::Standard();
    const StandardSection q = SectionIn(s, basis);
    const auto z = standard::EffectiveAboutZ(q, true);
    const double shift = std::abs(z.yc);
    ASSERT_GT(shift, 1);
    const double standard = standard::EffectiveValuesOf(q, basis).wz;
    const double program = standard::EffectiveValuesOf(q, Basis::StandardBut(Dev::d160)).wz;
    EXPECT_NEAR(program / standard, (250 + shift) / (250 - shift), 1e-9);
}

}  // namespace
}  // namespace kestrum
