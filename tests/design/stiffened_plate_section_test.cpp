#include "design/stiffened_plate_section.h"

#include "core/project_state.h"
#include "design/effective_welded.h"
#include "support/rows.h"
#include "support/welded.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace kestrum;

// 600 x 10 plate, flat bar 200 x 10, S355, by hand. Plate compressed: 290/10 = 29 > 14 eps, class
// 4, lambda 1.914, rho 0.4712, A1 = 8000 - 2*0.5288*290*10 = 4933, z1 = z2 = (31.25*8000 -
// 0.5288*290*100)/4933 = 47.57, Ieff 1.980e7, W = Ieff/(210 - 47.57) = 1.219e5.
TEST(FlatBarPlate, PlateCompressed)
{
    const Member s = welded::Default(51).Designed();
    EXPECT_EQ(s.classmytop, 4);
    EXPECT_NEAR(s.weffytop1, 1.980e7 / 47.57, 0.001e6);
    EXPECT_NEAR(s.weffytop2, 1.219e5, 60);
    EXPECT_NEAR(s.mytoprd, 43.28, 0.02);
}

// The bar compressed: psi = -21.25/178.75, k 0.5960, limit 21*0.8136*sqrt(0.596) = 13.19 below
// d/tw 19: class 4, lambda 1.065, rho 0.7731; the tip loses 40.55, z2 = 187.2 from it,
// Ieff 1.247e7, W 6.661e4.
TEST(FlatBarPlate, BarCompressed)
{
    const Member s = welded::Default(51).Designed();
    EXPECT_EQ(s.classmybot, 4);
    EXPECT_NEAR(s.weffybot1, 6.661e4, 40);
    EXPECT_NEAR(s.weffybot2, 1.247e7 / (210 - 187.2), 1e3);
    EXPECT_NEAR(s.mybotrd, 23.65, 0.02);
}

TEST(FlatBarPlate, BarInTensionKeepsItsArea)
{
    Member s = welded::Default(51);
    s.p51 = {400, 300, 6, 20};  // plate (300 - 6 - 8)/2/20 = 7.15 whole
    Design(s);
    EXPECT_EQ(s.classmytop, 1);
    EXPECT_NEAR(s.weffytop2, s.wyelbot, 1e-5 * s.wyelbot);
    EXPECT_LT(s.weffybot1, s.wyelbot);
}

// Class of the bar's tip, eps = 1, by hand: plate 300 x 20, alpha 1 (plastic axis in the plate).
TEST(FlatBarPlate, ClassOfTheTipIncludesItsLimits)
{
    const auto cls = [](double d) {
        Member s = welded::Default(51);
        s.p51 = {d + 10, 300, 10, 20};  // weld legs of 5
        s.Steel(235);
        Design(s);
        return s.classmybot;
    };
    EXPECT_EQ(cls(90), 1);
    EXPECT_EQ(cls(90.1), 2);
    EXPECT_EQ(cls(100), 2);
    EXPECT_EQ(cls(100.1), 3);
    EXPECT_EQ(cls(170), 4);
}

// A bar larger than its plate, 200 x 10 below 100 x 5, S355: the plastic axis lies 75 mm in the
// bar, alpha = 125/200; the elastic one (500*2.5 + 2000*105)/2500 = 84.5 below the top, psi =
// -79.5/120.5, k = 0.57 - 0.21 psi + 0.07 psi^2. The straight part as given.
TEST(FlatBarPlate, ClassOfTheTipWithTheAxisInTheBar)
{
    Member s = welded::Default(51);
    s.p51 = {200, 100, 10, 5};
    Design(s);
    const double eps = std::sqrt(235.0 / 355), alpha = 0.625, psi = -79.5 / 120.5;
    const double limits[] = {9 * eps / alpha, 10 * eps / alpha,
                             21 * eps * std::sqrt(0.57 - 0.21 * psi + 0.07 * psi * psi)};
    for (int i = 0; i < 3; ++i) {
        s.d = static_cast<float>(10 * limits[i] * 0.998);
        EXPECT_EQ(ClassPlate(s, s, false), i + 1) << limits[i];
        s.d = static_cast<float>(10 * limits[i] * 1.002);
        EXPECT_EQ(ClassPlate(s, s, false), i + 2) << limits[i];
    }
}

// A bar partly compressed beside a compressed plate, so thin that a web would buckle: the gross
// section stands.
TEST(FlatBarPlate, CompressedPartOfABarBesideThePlateDoesNotBuckle)
{
    Member s = welded::Default(51);
    s.p51 = {400, 50, 2, 5};
    Design(s);
    ASSERT_EQ(FlangeLoss(s, s, TopFlange(s, s)), 0);
    ASSERT_GT(TopSide(s, s).webin, 140);
    EXPECT_NEAR(s.weffytop1, s.wyeltop, 1e-5 * s.wyeltop);
    EXPECT_NEAR(s.weffytop2, s.wyelbot, 1e-5 * s.wyelbot);
}

// EN 1993-1-5, 4.4 (2), uniform compression: outstands of plate, flat bar and flange, and the web.
TEST(PlateArea, IsTheGrossOneLessEveryLoss)
{
    const double eps = std::sqrt(235.0 / 355);
    const auto lost = [eps](double c, double t, double k, double less) {
        const double lambda = c / t / (28.4 * eps * std::sqrt(k));
        return (1 - (lambda - less) / (lambda * lambda)) * c * t;
    };
    const Member bar = welded::Default(51).Designed();
    EXPECT_NEAR(bar.aeff, 8000 - 2 * lost(bar.ctop, 10, 0.43, 0.188) - lost(bar.d, 10, 0.43, 0.188),
                0.01);
    Member tee = welded::Default(56);
    tee.p56 = {980, 700, 500, 6, 10, 12};
    Design(tee);
    EXPECT_NEAR(tee.aeff,
                tee.a - 2 * lost(tee.ctop, 10, 0.43, 0.188) - 2 * lost(tee.cbot, 12, 0.43, 0.188) -
                    lost(tee.d, 6, 4, 0.22),
                0.02);
}

// 600 x 10 plate with the angle 300x100x11.5x16: plate 28.85 class 4; stiffener: plastic axis in
// the plate, alpha 1: 33 eps = 26.85 above d/tw 23.70, flange 82.75/16 = 5.17; class 1.
TEST(AnglePlate, DefaultClasses)
{
    for (const int family : {52, 53}) {
        const Member s = welded::Default(family).Designed();
        EXPECT_EQ(s.classmytop, 4) << family;
        EXPECT_EQ(s.classmybot, 1) << family;
        EXPECT_FLOAT_EQ(s.wybot, s.wply) << family;
        EXPECT_EQ(s.wytop, std::min(s.weffytop1, s.weffytop2)) << family;
    }
}

// Defaults of a plate 300 x 20 with the T 580: class 1 for either sign.
TEST(TPlate, DefaultIsTheDoubleSymmetricI)
{
    const Member s = welded::Default(56).Designed();
    EXPECT_EQ(s.classmytop, 1);
    EXPECT_EQ(s.classmybot, 1);
    EXPECT_NEAR(s.myrd, 4.4208 * 355, 0.01);
    // Iy = 2*(300*20^3/12 + 6000*290^2) + 12*560^3/12 = 1185216000
    EXPECT_NEAR(s.mfrd, (1185216000 / 300.0 - 560 * 560 * 12 / 6.0) * 355e-6, 0.01);
    EXPECT_NEAR(s.avz, 1.2 * 6720, 1e-3);
    EXPECT_NEAR(s.avy, 12000, 1e-3);
}

TEST(TPlate, EqualFlangesGiveEqualSigns)
{
    Member s = welded::Default(56);
    s.p56 = {985, 300, 300, 6, 15, 15};
    Design(s);
    ASSERT_EQ(s.classmytop, 4);
    EXPECT_NEAR(s.weffytop1, s.weffybot1, 1e-5 * s.weffytop1);
    EXPECT_NEAR(s.weffytop2, s.weffybot2, 1e-5 * s.weffytop2);
}

// The compressed part of the web counts from the flange itself, without the weld leg.
TEST(TPlate, D195CompressedWebCountsFromTheFlange)
{
    Member s = welded::Default(56);
    s.p56 = {985, 300, 300, 6, 15, 15};
    Design(s);
    const EffectiveScheme between{.leg = s.r, .webbuckles = true, .netcentroid = true};
    const EffectiveScheme ours{.leg = 0, .webbuckles = true, .netcentroid = true};
    const double standard =
        EffectiveBending(s, s, TopSide(s, s), TopFlange(s, s), between).compressed;
    EXPECT_FLOAT_EQ(s.weffytop1,
                    static_cast<float>(
                        EffectiveBending(s, s, TopSide(s, s), TopFlange(s, s), ours).compressed));
    EXPECT_NE(s.weffytop1, static_cast<float>(standard));
    EXPECT_NEAR(s.weffytop1, standard, 0.005 * standard);
}

// One outstand of the angle, none of the bulb, two of the T.
TEST(StiffenerFlange, OutstandsThatBuckle)
{
    Member s = welded::Default(53);
    s.p53.istb2 = 300;
    Design(s);
    const Flange angle = BottomFlange(s, s);
    EXPECT_FLOAT_EQ(static_cast<float>(angle.left), 300 - 11.5F - 5.75F);
    EXPECT_EQ(angle.right, 0);
    EXPECT_EQ(s.classmybot, 4);  // 282.75/16 = 17.7 > 14 eps
    EXPECT_LT(s.weffybot1, s.wyelbot);
    Member bulb = welded::Default(54).Designed();
    EXPECT_EQ(FlangeLoss(bulb, bulb, BottomFlange(bulb, bulb)), 0);
    Member tee = welded::Default(56).Designed();
    EXPECT_EQ(BottomFlange(tee, tee).left, BottomFlange(tee, tee).right);
}

// Plate and stiffener flange are classified also where the elastic axis lies within them; the web
// then is class 1.
TEST(StiffenerFlange, ThickPlateIsClassifiedThoughItHoldsTheAxis)
{
    Member s = welded::Default(54);
    s.p54 = {600, 40};
    Design(s);
    ASSERT_LT(TopSide(s, s).webin, 0);
    EXPECT_EQ(s.classmytop, 1);  // 292.5/40 = 7.31 below 9 eps = 7.32
    s.p54 = {600, 30};           // 292.5/30 = 9.75: class 3
    Design(s);
    ASSERT_LT(TopSide(s, s).webin, 0);
    EXPECT_EQ(s.classmytop, 3);
}

// Deviation D196. Tripping stress of the bar, by hand: (10/210)^2 (1 + 2*(200/5000)^2) 80769 =
// 183.7.
TEST(PlateMcr, D196FlatBarTrips)
{
    const Member s = welded::Default(51).Designed();
    EXPECT_NEAR(PlateMcr(s, s, 5000) / s.wybot, 183.7, 0.1);
    // One stress for either sign, with the modulus of the compressed stiffener.
    ASSERT_NE(s.wytop, s.wybot);
}

// T 560x12 with 300x20 and L 5 m: torsion ((20/12)^2 6000 + 6720) 80769 (12/580)^2/24720 = 32.7,
// bending pi^2 210000*4.508e7/8240/5000^2 = 453.6 with the stiffener's own second moment.
TEST(PlateMcr, TStiffener)
{
    const Member s = welded::Default(56).Designed();
    EXPECT_NEAR(PlateMcr(s, s, 5000) / s.wybot, 32.7 + 453.6, 0.1);
}

// The default angle and L 5 m: 201 MPa with its own Iz. F = 1600, Aw = 3266; torsion
// ((16/11.5)^2 1600 + 3266) 80769 (11.5/300)^2/8066 = 93.6.
TEST(PlateMcr, AngleStiffener)
{
    const Member s = welded::Default(53).Designed();
    EXPECT_NEAR(PlateMcr(s, s, 5000) / s.wybot, 201, 0.5);
    const double torsion = PlateMcr(s, s, 1e9) / s.wybot;
    EXPECT_NEAR(torsion, 93.6, 0.1);
}

TEST(PlateMcr, FallsWithTheLength)
{
    for (const int family : {51, 52, 53, 54, 56}) {
        const Member s = welded::Default(family).Designed();
        double before = PlateMcr(s, s, 500);
        for (double length = 1000; length <= 12000; length += 500) {
            const double mcr = PlateMcr(s, s, length);
            EXPECT_LT(mcr, before) << family << ' ' << length;
            before = mcr;
        }
    }
}

TEST(PlateControl, SignsTakeTheirOwnResistance)
{
    Member s = welded::Default(51).Designed();
    Control(s, {0, 10, 0, 5, 0});
    EXPECT_NEAR(s.irrow1, 10 / 43.28, 2e-4);
    Control(s, {0, -10, 0, 5, 0});
    EXPECT_NEAR(s.irrow1, 10 / 23.65, 5e-4);
    EXPECT_TRUE(SectionRow(s, 2).empty());
    EXPECT_NEAR(s.irrow3, 5 / s.vbrd, 1e-9);
}

// Elastic: one web, hw^2 tw rho/6, held at the resistance without shear.
TEST(PlateControl, TextOfReducedShearBeginsBeyondHalfOfIt)
{
    Member s = welded::Default(56).Designed();
    for (const double share : {0.4999, 0.503}) {
        Control(s, {0, 10, 0, share * s.vzrd, 0});
        EXPECT_EQ(LabelOf(SectionRow(s, 1)),
                  share > 0.5 ? "IR = My,Ed/MV,y,Rd = " : "IR = My,Ed/My,Rd = ");
    }
}

TEST(PlateControl, ShearReducesTheMomentByOneWeb)
{
    Member s = welded::Default(56).Designed();
    s.checkelastic = kTrue;
    Design(s);
    Control(s, {0, 10, 0, 0.9 * s.vzrd, 0});
    const double strip = 560.0 * 560 * 12 * 0.64;
    EXPECT_NEAR(s.myrdv, (s.wely - strip / 6) * 355e-6, 1e-5 * s.myrdv);
}

// A slender web over a flat bar has no second flange to add to it; the T has its weaker one,
// 200*10^2 against 600*10^2.
TEST(PlateControl, FlangePartOfShearBuckling)
{
    Member bar = welded::Default(51);
    bar.p51.isth = 700;
    Design(bar);
    Control(bar, {0, 0, 0, 10, 0});
    EXPECT_EQ(bar.vbrd, bar.vzrd);
    EXPECT_EQ(SectionRow(bar, 3).note.text(), " Support stiffener recommended)");

    Member tee = welded::Default(56);
    tee.p56 = {710, 600, 200, 8, 10, 10};
    Design(tee);
    Control(tee, {0, 0, 0, 10, 0});
    const double c = 5000 * (0.25 + 1.6 * 20000 / (700.0 * 700 * 8));
    EXPECT_NEAR(tee.vbrd - tee.vzrd, 20000 * 0.355 / c, 1e-4);
}

// Plates 20 mm thick, 300 and 298.5 wide: the narrower one resists the tension field, EN 1993-1-5,
// 5.4 (1), whichever it is; hw 690, a = 5000 mm.
TEST(PlateControl, TheWeakerFlangeResistsShearBuckling)
{
    for (const bool plate : {true, false}) {
        Member tee = welded::Default(56);
        tee.p56 = {710, plate ? 298.5F : 300, plate ? 300 : 298.5F, 8, 20, 20};
        Design(tee);
        Control(tee, {0, 0, 0, 10, 0});
        const double c = 5000 * (0.25 + 1.6 * 298.5 * 400 / (690.0 * 690 * 8));
        EXPECT_NEAR(tee.vbrd - tee.vzrd, 298.5 * 400 * 0.355 / c, 1e-4) << plate;
    }
}

// The angle's flange stands aside; bent about y it counts like a T of the same plates.
TEST(PlateControl, D197OneSidedFlangeBendsAboutY)
{
    Member angle = welded::Default(53), tee = welded::Default(56);
    angle.p53 = {316, 600, 60, 12, 20, 16};
    tee.p56 = {316, 600, 60, 12, 20, 16};
    Design(angle);
    Design(tee);
    EXPECT_EQ(angle.iy, tee.iy);
    EXPECT_EQ(angle.melyrd, tee.melyrd);
    EXPECT_NE(angle.iz, tee.iz);
}
