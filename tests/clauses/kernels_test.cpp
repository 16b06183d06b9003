// Every clause once with inputs that leave no factor without effect, so that each number in it
// counts: the values are the formulas of the standard worked out from their print.

#include "clauses/annex_a.h"
#include "clauses/annex_b.h"
#include "clauses/bending.h"
#include "clauses/classify.h"
#include "clauses/flexural.h"
#include "clauses/lateral_torsional.h"
#include "clauses/plate_buckling.h"
#include "clauses/shear.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <limits>

namespace kestrum::clauses {
namespace {

constexpr double kExact = 1e-9;  // relative; rounding of the order of operations

void ExpectSame(double ours, double expected, const char* what)
{
    EXPECT_NEAR(ours, expected, kExact * std::abs(expected)) << what;
}

// --- EN 1993-1-1, Annex A

// A member of class 1 that may twist: n_y 600/5200, n_z 600/1900, N/NRk 0.25, eps_y = 90000/600 x
// 9000/900000 = 1.5, aLT = 1 - 0.8/12, w_y = 1010/900, w_z = 440/310.
AnnexAInputs Twisting()
{
    AnnexAInputs in{};
    in.plastic = in.twists = true;
    in.ned = 600;
    in.ncry = 5200;
    in.ncrz = 1900;
    in.ncrt = 4100;
    in.ncrtf = 3900;
    in.nrk = 2400;
    in.my = 90000;
    in.mz = 8000;
    in.a = in.a_epsy = 9000;
    in.it = 0.8e6;
    in.iy = 12e6;
    in.w_elastic_y = in.wely = 900e3;
    in.wply = 1010e3;
    in.welz = 310e3;
    in.wplz = 440e3;
    in.mply = 240000;
    in.mplz = 105000;
    in.cmy0 = 0.93;
    in.cmz0 = 0.82;
    in.chiy = 0.87;
    in.chiz = 0.55;
    in.chilt = 0.8;
    in.lamy = 0.48;
    in.lamz = 0.62;
    in.lam0 = 0.71;
    in.c1 = 1.3;
    return in;
}

void ExpectFactors(const InteractionFactors& k, double kyy, double kyz, double kzy, double kzz)
{
    ExpectSame(k.kyy, kyy, "kyy");
    ExpectSame(k.kyz, kyz, "kyz");
    ExpectSame(k.kzy, kzy, "kzy");
    ExpectSame(k.kzz, kzz, "kzz");
}

// Table A.1: bLT 0.0084017, cLT 0.44289, dLT 0.24085, eLT 2.20328; Cyy 1.01914, Cyz 0.95809, Czy
// 0.94522, Czz 0.89887. Table A.2: Cmy = 0.93 + 0.07 x 1.14309/2.14309, CmLT = Cmy^2 aLT/sqrt(..).
TEST(AnnexAKernel, PlasticFactorsOfAMemberThatTwists)
{
    const AnnexAFactors f = FactorsOfAnnexA(Twisting());
    ExpectSame(f.cmy, 0.9673369621817919, "Cmy");
    ExpectSame(f.cmz, 0.82, "Cmz");
    ExpectSame(f.cmlt, 1.142760899721381, "CmLT");
    ExpectFactors(f.k, 1.2057088918, 0.8299891390, 0.5840263123, 1.1040011506);
}

// At slendernesses of 1.9 and 1.4 under N = 1400 the least values of Table A.1 stand: Cyy 900/1010,
// Cyz and Czy 0.6 sqrt(w ratio) Wel/Wpl, Czz 310/440.
TEST(AnnexAKernel, LeastPlasticityOfSlenderMembers)
{
    AnnexAInputs in = Twisting();
    in.ned = 1400;
    in.lamy = 1.9;
    in.lamz = 1.4;
    ExpectFactors(FactorsOfAnnexA(in).k, 2.9065745255, 4.2205667439, 1.3476921007, 1.9569511847);
    in.lamy = 2.6;
    in.wplz = 500e3;  // w_z is 1.5 at most
    ExpectFactors(FactorsOfAnnexA(in).k, 2.9065745255, 4.7960985726, 1.3476921007, 2.2238081644);
}

// The limit of lam0 is 0.2 sqrt 1.3 (1300/1900 x 3300/3900)^(1/4) = 0.20735 x ...: 0.19891.
TEST(AnnexAKernel, TwistingCountsAboveTheLimitOfTheSlenderness)
{
    AnnexAInputs in = Twisting();
    in.lam0 = 0.1989;
    EXPECT_EQ(FactorsOfAnnexA(in).cmlt, 1);
    EXPECT_EQ(FactorsOfAnnexA(in).cmy, 0.93);
    in.lam0 = 0.1990;
    EXPECT_GT(FactorsOfAnnexA(in).cmlt, 1.14);
    in.lam0 = 0.2;
    ExpectFactors(FactorsOfAnnexA(in).k, 1.2045914717, 0.7042930624, 0.5712475272, 0.9319698258);
    in.ned = 0;  // then it is 0.2 sqrt C1
    in.c1 = 1;
    EXPECT_EQ(FactorsOfAnnexA(in).cmy, 0.93);
}

TEST(AnnexAKernel, OtherColumns)
{
    AnnexAInputs in = Twisting();
    in.twists = false;
    ExpectFactors(FactorsOfAnnexA(in).k, 1.0102696658, 0.6952186368, 0.4733223844, 0.8782987742);
    in = Twisting();
    in.plastic = false;
    ExpectFactors(FactorsOfAnnexA(in).k, 1.2287860747, 1.1784786398, 1.0347188639, 0.9923566879);
}

// Without an axial force eps_y is infinite and Cmy 1, unless the section does not twist at all.
TEST(AnnexAKernel, MomentAlone)
{
    AnnexAInputs in = Twisting();
    in.ned = 0;
    EXPECT_EQ(FactorsOfAnnexA(in).cmy, 0.93);  // eps_y taken as 0, as the program has it
    in.bends_only = true;
    EXPECT_EQ(FactorsOfAnnexA(in).cmy, 1);
    in.it = 13e6;  // above Iy
    EXPECT_EQ(FactorsOfAnnexA(in).cmy, 0.93);
    EXPECT_EQ(FactorsOfAnnexA(in).cmlt, 1);
}

// w_y is 1.5 at most: with Wpl,y = 2 Wel,y as with 1.5 Wel,y but for the least value of Cyy.
TEST(AnnexAKernel, ShapeFactorCountsUpToOneAndAHalf)
{
    AnnexAInputs in = Twisting();
    in.wply = 1800e3;
    AnnexAInputs most = Twisting();
    most.wply = 1350e3;
    EXPECT_EQ(FactorsOfAnnexA(in).k.kyy, FactorsOfAnnexA(most).k.kyy);
    EXPECT_EQ(FactorsOfAnnexA(in).k.kyz, FactorsOfAnnexA(most).k.kyz);
}

// psi -0.4, n 0.3: 0.79 - 0.084 - 0.36 x 0.73 x 0.3. 2 x 3/5 = 1.2: 1 + 0.2 x 0.3.
TEST(AnnexAKernel, EquivalentMoments)
{
    ExpectSame(CmStraight(-0.4, 0.3), 0.62716, "straight");
    ExpectSame(CmGeneral(2, -3, 5, 0.3), 1.06, "general");
}

// --- Annex B

// Table B.1, other sections: Cmy (1 + (lam - 0.2) n), Cmz (1 + (2 lam - 0.6) n), 0.6 of each.
TEST(AnnexBKernel, PlasticFactors)
{
    const AnnexBInputs in{true, false, false, 0.91, 0.57, 0.7, 0.75, 0.9, 0.28, 0.35};
    ExpectFactors(FactorsOfAnnexB(in), 0.91 * (1 + 0.55 * 0.28), 0.6 * 0.57 * (1 + 1.2 * 0.35),
                  0.6 * 0.91 * (1 + 0.55 * 0.28), 0.57 * (1 + 1.2 * 0.35));
}

TEST(AnnexBKernel, CapsOfThePlasticFactors)
{
    AnnexBInputs in{true, false, false, 0.91, 0.57, 0.7, 1.2, 1.1, 0.28, 0.35};
    EXPECT_NEAR(FactorsOfAnnexB(in).kyy, 0.91 * (1 + 0.8 * 0.28), kExact);
    EXPECT_NEAR(FactorsOfAnnexB(in).kzz, 0.57 * (1 + 1.4 * 0.35), kExact);
    in.hollow = true;
    EXPECT_NEAR(FactorsOfAnnexB(in).kzz, 0.57 * (1 + 0.8 * 0.35), kExact);
    in.lamz = 0.7;
    EXPECT_NEAR(FactorsOfAnnexB(in).kzz, 0.57 * (1 + 0.5 * 0.35), kExact);
}

TEST(AnnexBKernel, ElasticFactors)
{
    AnnexBInputs in{false, false, false, 0.91, 0.57, 0.7, 0.75, 0.9, 0.28, 0.35};
    const double kyy = 0.91 * (1 + 0.45 * 0.28), kzz = 0.57 * (1 + 0.54 * 0.35);
    ExpectFactors(FactorsOfAnnexB(in), kyy, kzz, 0.8 * kyy, kzz);
    in.lamy = 1.3;
    in.lamz = 1.7;
    EXPECT_NEAR(FactorsOfAnnexB(in).kyy, 0.91 * (1 + 0.6 * 0.28), kExact);
    EXPECT_NEAR(FactorsOfAnnexB(in).kzz, 0.57 * (1 + 0.6 * 0.35), kExact);
}

// Table B.2 with CmLT 0.7 and n_z 0.35: plastic 0.1, elastic 0.05 over 0.45; a slenderness above 1
// counts as 1, below 0.4 the plastic column has 0.6 + lam.
TEST(AnnexBKernel, TwistingMembers)
{
    AnnexBInputs in{true, false, true, 0.91, 0.57, 0.7, 0.75, 0.9, 0.28, 0.35};
    EXPECT_NEAR(FactorsOfAnnexB(in).kzy, 1 - 0.1 * 0.9 / 0.45 * 0.35, kExact);
    in.lamz = 1.6;
    EXPECT_NEAR(FactorsOfAnnexB(in).kzy, 1 - 0.1 / 0.45 * 0.35, kExact);
    in.lamz = 0.3;
    EXPECT_NEAR(FactorsOfAnnexB(in).kzy, 0.9, kExact);
    in.low_slenderness = false;
    EXPECT_NEAR(FactorsOfAnnexB(in).kzy, 1 - 0.1 * 0.3 / 0.45 * 0.35, kExact);
    in.low_slenderness = true;
    in.nz = 3;  // where the formula is the lower one: 1 - 0.1 x 0.35/0.45 x 3
    in.lamz = 0.35;
    EXPECT_NEAR(FactorsOfAnnexB(in).kzy, 1 - 0.1 * 0.35 / 0.45 * 3, kExact);
    in.plastic = false;
    EXPECT_NEAR(FactorsOfAnnexB(in).kzy, 1 - 0.05 * 0.35 / 0.45 * 3, kExact);
}

// Table B.3.
TEST(AnnexBKernel, EquivalentMoments)
{
    EXPECT_NEAR(EquivalentMomentStraight(0.35), 0.74, kExact);
    EXPECT_NEAR(EquivalentMomentOfEnds(0.45, -0.3, false), 0.56, kExact);
    EXPECT_NEAR(EquivalentMomentOfEnds(0.1, 0.5, false), 0.4, kExact);
    EXPECT_NEAR(EquivalentMomentOfEnds(0, 0.5, false), 0.4, kExact);
    EXPECT_NEAR(EquivalentMomentOfEnds(-0.7, 0.4, false), 0.66, kExact);
    EXPECT_NEAR(EquivalentMomentOfEnds(-0.7, 0.4, true), 0.56, kExact);
    EXPECT_NEAR(EquivalentMomentOfEnds(-0.7, -0.4, false), 0.14 + 0.56, kExact);
    EXPECT_NEAR(EquivalentMomentOfEnds(-0.7, -0.4, true), 0.08 + 0.56, kExact);
    EXPECT_NEAR(EquivalentMomentOfEnds(-0.7, 0, true), 0.56, kExact);
    EXPECT_NEAR(EquivalentMomentOfSpan(0.6, -0.4, false), 0.98, kExact);
    EXPECT_NEAR(EquivalentMomentOfSpan(0.6, -0.4, true), 0.96, kExact);
    EXPECT_NEAR(EquivalentMomentOfSpan(-0.6, -0.4, false), 0.95 - 0.03 * 0.2, kExact);
    EXPECT_NEAR(EquivalentMomentOfSpan(-0.6, -0.4, true), 0.90 - 0.06 * 0.2, kExact);
    EXPECT_NEAR(EquivalentMomentOfSpan(-0.6, 0.4, false), 0.92, kExact);
    // Ends of 60 and a span of 40: alpha_s 2/3; the other way round alpha_h 2/3.
    EXPECT_NEAR(EquivalentMomentLoaded(60, 40, 1, false), 0.2 + 0.8 * 2 / 3, kExact);
    EXPECT_NEAR(EquivalentMomentLoaded(40, 60, 1, true), 0.90 + 0.1 * 2 / 3, kExact);
    EXPECT_NEAR(EquivalentMomentLoaded(50, -50, 1, false), 0.1 + 0.8, kExact)
        << "ends of the same size";
    EXPECT_EQ(EquivalentMomentLoaded(0, 0, 1, false), 1);
}

// --- 6.2.9.1

TEST(BendingKernel, ReducedMoments)
{
    EXPECT_NEAR(ReducedMomentY(320, 0.45, 0.32), 320 * 0.55 / 0.84, kExact);
    EXPECT_NEAR(ReducedMomentY(320, 0.6, 0.9), 320 * 0.4 / 0.75, kExact) << "a is 0.5 at most";
    EXPECT_NEAR(ReducedMomentY(320, 0.6, -0.1), 128, kExact);
    EXPECT_EQ(ReducedMomentY(320, 0.1, 0.5), 320);
    EXPECT_NEAR(ReducedMomentZ(150, 0.6, 0.25), 150 * (1 - 0.35 * 0.35 / 0.5625), kExact);
    EXPECT_EQ(ReducedMomentZ(150, 0.24, 0.25), 150);
    EXPECT_EQ(ReducedMomentZ(150, 1.5, 0.25), 0);
    EXPECT_NEAR(ReducedMomentHollow(320, 0.45, 0.32), 320 * 0.55 / 0.84, kExact);
    EXPECT_NEAR(ReducedMomentFlat(100, 0.6), 64, kExact);
    EXPECT_EQ(ReducedMomentFlat(100, 1.1), 0);
    EXPECT_NEAR(ReducedMomentTube(100, 0.7), 45.4661, 5e-5);  // 0.7^1.7 = exp(-0.606347) = 0.545339
    EXPECT_EQ(ReducedMomentTube(100, 1.2), 0);
}

// hw 400, tw 8, fy 250, gammaM0 1.25: the web has 640 kN, half of it 320 kN.
TEST(BendingKernel, AxialForceThatReducesNothing)
{
    EXPECT_TRUE(AxialForceNegligibleY(-320e3, 2000e3, 400, 8, 250, 1.25));
    EXPECT_FALSE(AxialForceNegligibleY(-320.1e3, 2000e3, 400, 8, 250, 1.25));
    EXPECT_TRUE(AxialForceNegligibleY(250e3, 1000e3, 400, 8, 250, 1.25));
    EXPECT_FALSE(AxialForceNegligibleY(250.1e3, 1000e3, 400, 8, 250, 1.25));
    EXPECT_TRUE(AxialForceNegligibleZ(-640e3, 400, 8, 250, 1.25));
    EXPECT_FALSE(AxialForceNegligibleZ(-640.1e3, 400, 8, 250, 1.25));
}

TEST(BendingKernel, BiaxialBending)
{
    EXPECT_NEAR(ExponentsOfI(0.3).beta, 1.5, kExact);
    EXPECT_EQ(ExponentsOfI(0.3).alpha, 2);
    EXPECT_NEAR(ExponentsOfHollow(0.3).alpha, 1.66 / 0.8983, kExact);
    EXPECT_NEAR(ExponentsOfHollow(0.3).beta, 1.66 / 0.8983, kExact);
    EXPECT_EQ(ExponentsOfHollow(0.8).alpha, 1.66 / (1 - 1.13 * 0.64));  // 5.9971
    EXPECT_EQ(ExponentsOfHollow(0.81).alpha, 6);
    EXPECT_EQ(ExponentsOfHollow(0.95).beta, 6);
    EXPECT_EQ(ExponentsOfTube().alpha, 2);
    EXPECT_EQ(ExponentsOfTube().beta, 2);
    EXPECT_NEAR(BiaxialSum(-30, 80, -12, 40, {2, 1}), 0.375 * 0.375 + 0.3, kExact);
    EXPECT_EQ(BiaxialSum(0, 0, 12, 40, {2, 1}), 0.3);
}

// --- Table 5.2

// fy 355: eps 0.81362. alpha 0.7: 396/8.1 = 48.889, 456/8.1 = 56.296; alpha 0.4: 90, 103.75; psi
// 0.4: 42/0.802 = 52.369; psi -0.5: 42/0.505 = 83.168.
TEST(ClassifyKernel, PartsBetweenTheirCases)
{
    EXPECT_NEAR(Epsilon(355), 0.813617, 1e-6);
    const double e = 0.8, t = 10;
    EXPECT_EQ(ClassOfInternal(48.88 * t * e, t, e, 0.7, 0.4), 1);
    EXPECT_EQ(ClassOfInternal(48.90 * t * e, t, e, 0.7, -0.5), 2);
    EXPECT_EQ(ClassOfInternal(56.29 * t * e, t, e, 0.7, -0.5), 2);
    EXPECT_EQ(ClassOfInternal(56.31 * t * e, t, e, 0.7, -0.5), 3);
    EXPECT_EQ(ClassOfInternal(83.16 * t * e, t, e, 0.7, -0.5), 3);
    EXPECT_EQ(ClassOfInternal(83.18 * t * e, t, e, 0.7, -0.5), 4);
    EXPECT_EQ(ClassOfInternal(52.36 * t * e, t, e, 1, 0.4), 3);
    EXPECT_EQ(ClassOfInternal(52.38 * t * e, t, e, 1, 0.4), 4);
    EXPECT_EQ(ClassOfInternal(33.1 * t * e, t, e, 1.3, 1), 2) << "a share is 1 at most";
    // alpha 0.502: 396/5.526 = 71.66, 456/5.526 = 82.52; 36/alpha and 41.5/alpha would
    // be 71.71, 82.67.
    EXPECT_EQ(ClassOfInternal(71.68 * t * e, t, e, 0.502, -1), 2);
    EXPECT_EQ(ClassOfInternal(82.6 * t * e, t, e, 0.502, -1), 3);
    EXPECT_EQ(ClassOfInternal(89.9 * t * e, t, e, 0.4, -1.5), 1);
    EXPECT_EQ(ClassOfInternal(90.1 * t * e, t, e, 0.4, -1.5), 2);
    EXPECT_EQ(ClassOfInternal(103.7 * t * e, t, e, 0.4, -1.5), 2);
    EXPECT_EQ(ClassOfInternal(103.8 * t * e, t, e, 0.4, -1.5), 3);
    EXPECT_EQ(ClassOfInternal(189.8 * t * e, t, e, 0.4, -1.5), 3);  // 62 x 2.5 sqrt 1.5 = 189.84
    EXPECT_EQ(ClassOfInternal(189.9 * t * e, t, e, 0.4, -1.5), 4);
}

TEST(ClassifyKernel, OutstandsTubesAndAngles)
{
    EXPECT_EQ(ClassOfOutstand(9.01 * 10 * 0.8, 10, 0.8), 2);
    EXPECT_EQ(ClassOfOutstand(10.01 * 10 * 0.8, 10, 0.8), 3);
    EXPECT_EQ(ClassOfOutstand(15.9 * 10 * 0.8, 10, 0.8, 15.85), 4);
    EXPECT_EQ(ClassOfOutstandBent(12.9 * 8, 10, 0.8, 0.7, true, 99), 2);  // 9/0.7 = 12.857
    EXPECT_EQ(ClassOfOutstandBent(14.2 * 8, 10, 0.8, 0.7, true, 99), 2);  // 10/0.7 = 14.286
    EXPECT_EQ(ClassOfOutstandBent(14.3 * 8, 10, 0.8, 0.7, true, 99), 3);
    EXPECT_EQ(ClassOfOutstandBent(15.3 * 8, 10, 0.8, 0.7, false, 99), 1);  // 9/0.58566 = 15.367
    EXPECT_EQ(ClassOfOutstandBent(15.4 * 8, 10, 0.8, 0.7, false, 99), 2);
    EXPECT_EQ(ClassOfOutstandBent(17.1 * 8, 10, 0.8, 0.7, false, 99), 3);  // 17.075
    EXPECT_EQ(ClassOfTube(50.1 * 0.64, 1, 0.8), 2);
    EXPECT_EQ(ClassOfTube(70.1 * 0.64, 1, 0.8), 3);
    EXPECT_EQ(ClassOfTube(89.9 * 0.64, 1, 0.8), 3);
    EXPECT_EQ(ClassOfAngle(120, 50, 10, 0.8), 3);  // 12 of 12; 8.5
    EXPECT_EQ(ClassOfAngle(120.1, 50, 10, 0.8), 4);
    EXPECT_EQ(ClassOfAngle(100, 84, 10, 0.8), 3);  // 9.2 of 9.2
    EXPECT_EQ(ClassOfAngle(100, 84.1, 10, 0.8), 4);
}

// --- 6.3.1

TEST(FlexuralKernel, ImperfectionsOfTable61)
{
    EXPECT_EQ(Imperfection(BucklingCurve::a0), 0.13);
    EXPECT_EQ(Imperfection(BucklingCurve::a), 0.21);
    EXPECT_EQ(Imperfection(BucklingCurve::b), 0.34);
    EXPECT_EQ(Imperfection(BucklingCurve::c), 0.49);
    EXPECT_EQ(Imperfection(BucklingCurve::d), 0.76);
}

TEST(FlexuralKernel, PlateauEndsAtASlendernessOfOneFifth)
{
    EXPECT_EQ(BucklingReduction(0.2, 0.76), 1);
    EXPECT_LT(BucklingReduction(0.201, 0.76), 0.9995);
}

// (80769.23 x 210000 + pi^2 210000 x 1.7e11/4500^2)/9500.
TEST(FlexuralKernel, TorsionalLoad)
{
    ExpectSame(TorsionalLoad(210000, 2.1e5, 1.7e11, 9500, 4500), 3616977.4189, "Ncr,T");
    EXPECT_TRUE(std::isinf(EulerLoad(210000, 1, 0)));
}

// beta = 1 - 37^2/9300: the smaller root of beta N^2 - 2600 N + 1500 x 1100 = 0.
TEST(FlexuralKernel, TorsionalFlexuralLoad)
{
    ExpectSame(TorsionalFlexuralLoad(1500, 1100, 37, 9300), 900.7182904151, "Ncr,TF");
    EXPECT_NEAR(TorsionalFlexuralLoad({1500, 700, 1100}, {37, 0}, 9300), 900.7182904151, 1e-6)
        << "an axis of symmetry: y couples";
    EXPECT_NEAR(TorsionalFlexuralLoad({700, 1500, 1100}, {0, 37}, 9300), 900.7182904151, 1e-6);
    EXPECT_EQ(
        TorsionalFlexuralLoad({700, std::numeric_limits<double>::infinity(), 1100}, {0, 37}, 9300),
        1100);
    // The cubic with ys 31, zs 44, i0^2 9800 by halving of the printed equation.
    EXPECT_NEAR(TorsionalFlexuralLoad({1700, 950, 1200}, {31, 44}, 9800), 716.02555403, 1e-6);
}

// --- 6.3.2

TEST(LateralKernel, Curves)
{
    // 0.5 (1 + 0.34 x 0.7 + 0.81): phi 1.024.
    ExpectSame(GeneralLateralReduction(0.9, 0.34, 0.4), 0.6611821946, "general case");
    ExpectSame(RolledLateralReduction(1.1, 0.34, 0.4, 0.75), 0.6385708441, "rolled");
    ExpectSame(RolledLateralReduction(2.4, 0.1, 0.2, 0.75), 1 / (2.4 * 2.4), "at most 1/lam^2");
    EXPECT_EQ(GeneralLateralReduction(0.1, 0.34, 0.05), 1) << "the formula is above 1 here";
    EXPECT_EQ(RolledLateralReduction(0.39, 0.34, 0.4, 0.75), 1);
    EXPECT_LT(RolledLateralReduction(0.45, 0.34, 0.4, 0.75), 1);
}

// f: 1 - 0.5 x 0.14 (1 - 2 x 0.25) and 1 - 0.5 x 0.23 (1 - 2 x 0.0625).
TEST(LateralKernel, ShapeOfTheMoments)
{
    EXPECT_NEAR(MomentShapeFactor(1.3, 0.86), 0.965, kExact);
    EXPECT_NEAR(MomentShapeFactor(0.55, 0.77), 0.899375, kExact);
    EXPECT_EQ(CorrectionFactor(MomentShape::uniform_pinned, 0), 0.94);
    EXPECT_EQ(CorrectionFactor(MomentShape::uniform_fixed, 0), 0.90);
    EXPECT_EQ(CorrectionFactor(MomentShape::uniform_one_end_fixed, 0), 0.91);
    EXPECT_EQ(CorrectionFactor(MomentShape::point_pinned, 0), 0.86);
    EXPECT_EQ(CorrectionFactor(MomentShape::point_fixed, 0), 0.77);
    EXPECT_EQ(CorrectionFactor(MomentShape::point_one_end_fixed, 0), 0.82);
    EXPECT_NEAR(CorrectionFactor(MomentShape::straight, 0.4), 1 / 1.198, kExact);
    EXPECT_NEAR(CorrectionFactor(MomentShape::straight, -0.7), 1 / 1.561, kExact);
}

// --- EN 1993-1-5

TEST(PlateKernel, FactorsBetweenThoseOfTheTables)
{
    EXPECT_NEAR(BucklingFactorInternal(0.3), 8.2 / 1.35, kExact);
    EXPECT_NEAR(BucklingFactorInternal(-0.6), 7.81 + 6.29 * 0.6 + 9.78 * 0.36, kExact);
    EXPECT_NEAR(BucklingFactorInternal(-1.7), 5.98 * 7.29, kExact);
    EXPECT_NEAR(BucklingFactorInternal(-5), 5.98 * 16, kExact);
    EXPECT_NEAR(BucklingFactorInternal(1.5), 4, kExact);
    EXPECT_NEAR(BucklingFactorOutstand(1, -0.5), 0.57 + 0.21 * 0.5 + 0.07 * 0.25, kExact);
    EXPECT_NEAR(BucklingFactorOutstand(1, -5), 0.57 + 0.21 * 3 + 0.07 * 9, kExact);
    EXPECT_NEAR(BucklingFactorOutstand(0.4, 1), 0.578 / 0.74, kExact);
    EXPECT_NEAR(BucklingFactorOutstand(-0.5, 1), 1.7 + 2.5 + 17.1 * 0.25, kExact);
    EXPECT_NEAR(BucklingFactorOutstand(-3, 1), 23.8, kExact);
    EXPECT_NEAR(BucklingFactorOutstand(80, 200), 0.578 / 0.74, kExact) << "stresses in MPa";
    EXPECT_NEAR(BucklingFactorOutstand(200, -100), 0.57 + 0.21 * 0.5 + 0.07 * 0.25, kExact);
    EXPECT_NEAR(PlateSlenderness(500, 8, 0.81, 7.81), 62.5 / (28.4 * 0.81 * std::sqrt(7.81)),
                kExact);
}

// Eq (4.2) ends at 0.5 + sqrt(0.085 - 0.055 psi): 0.751 at psi 0.4, 1.0 at -3 and below.
TEST(PlateKernel, ReductionFactors)
{
    EXPECT_NEAR(RhoInternal(0.95, 0.4), (0.95 - 0.055 * 3.4) / 0.9025, kExact);
    EXPECT_EQ(RhoInternal(0.7509, 0.4), 1);
    EXPECT_LT(RhoInternal(0.7511, 0.4), 1);
    EXPECT_NEAR(RhoInternal(1.4, -4), 1 / 1.4, kExact);
    EXPECT_EQ(RhoInternal(0.9999, -4), 1);
    EXPECT_NEAR(RhoInternal(1.001, -4), 1 / 1.001, kExact);
    EXPECT_NEAR(RhoOutstand(1.2), 1.012 / 1.44, kExact);
    EXPECT_EQ(RhoOutstand(0.7481), 1) << "Eq (4.3) is 1.0008 here";
    EXPECT_NEAR(RhoOutstand(0.76), 0.572 / 0.5776, kExact);
}

// Table 4.1: be1 = 2/(5 - psi) beff; psi below 0: bc = b/(1 - psi), 0.4 and 0.6 of beff.
TEST(PlateKernel, EffectiveWidths)
{
    const EffectiveInternal pressed = EffectiveWidths(1000, 0.4, 0.7);
    EXPECT_NEAR(pressed.near, 700 * 2 / 4.6, 1e-9);
    EXPECT_NEAR(pressed.far, 700 - 700 * 2 / 4.6, 1e-9);
    EXPECT_NEAR(pressed.hole, 300, 1e-9);
    EXPECT_EQ(pressed.tension, 0);
    EXPECT_EQ(EffectiveWidths(1000, 1.2, 0.7).near, 350) << "psi is 1 at most";
    const EffectiveInternal bent = EffectiveWidths(900, -0.5, 0.7);
    EXPECT_NEAR(bent.near, 0.4 * 420, 1e-9);
    EXPECT_NEAR(bent.far, 0.6 * 420, 1e-9);
    EXPECT_NEAR(bent.tension, 300, 1e-9);
    EXPECT_NEAR(bent.hole, 180, 1e-9);
}

TEST(ShearKernel, WebsAndStiffeners)
{
    EXPECT_NEAR(PlasticShear(3000, 345, 1.05), 3000 * 345 / std::sqrt(3) / 1.05, 1e-6);
    EXPECT_NEAR(StockyWebLimit(0.81, 1.2), 48.6, kExact);
    EXPECT_NEAR(ShearBucklingFactor(800, 1000), 5.34 + 4 * 0.64, kExact);
    EXPECT_NEAR(ShearBucklingFactor(800, 500), 4 + 5.34 * 2.56, kExact);
    EXPECT_NEAR(ShearBucklingFactor(800, 800), 9.34, kExact);
    EXPECT_NEAR(WebSlenderness(1200, 9, 0.81, 7.9), 1200 / (37.4 * 9 * 0.81 * std::sqrt(7.9)),
                kExact);
    EXPECT_NEAR(WebSlenderness(1200, 9, 0.81, 5.34), 1200 / (86.4 * 9 * 0.81), kExact);
    EXPECT_EQ(WebFactor(0.69, 1.2, true), 1.2);
    EXPECT_NEAR(WebFactor(0.695, 1.2, true), 0.83 / 0.695, kExact);  // 0.83/1.2 = 0.6917
    EXPECT_NEAR(WebFactor(1.07, 1.2, true), 0.83 / 1.07, kExact);
    EXPECT_NEAR(WebFactor(1.09, 1.2, true), 1.37 / 1.79, kExact);
    EXPECT_NEAR(WebShear(0.7, 900, 7, 345, 1.1), 0.7 * 345 * 900 * 7 / (std::sqrt(3) * 1.1), 1e-6);
    EXPECT_NEAR(ShearBucklingLimit(1.2, 900, 7, 345, 1.1),
                1.2 * 345 * 900 * 7 / (std::sqrt(3) * 1.1), 1e-6);
}

// 250x15, web 900x7, a 1400, fy 345, gammaM1 1.1, at 0.6 of Mf,Rd: bf tf^2 fy = 19406250 Nmm,
// c = 1400 (0.25 + 1.6 x 56250/(7 x 810000)) = 372.22 mm; 19406250/(372.22 x 1.1) x 0.64.
TEST(ShearKernel, PartOfTheFlanges)
{
    ExpectSame(FlangeShear({250, 15}, 900, 7, 1400, 345, 1.1, 60, 100), 30333.7856174, "Vbf,Rd");
    EXPECT_EQ(FlangeShear({250, 15}, 900, 7, 0, 345, 1.1, 60, 100), 0);
    EXPECT_EQ(FlangeShear({250, 15}, 900, 7, 1400, 345, 1.1, 101, 100), 0);
}

// (2 x 0.8 - 1)^2.
TEST(ShearKernel, ReductionOfTheYieldStrength)
{
    EXPECT_NEAR(ShearReduction(80, 100), 0.36, kExact);
    EXPECT_NEAR(ShearReduction(-51, 100), 0.0004, kExact);
    EXPECT_NEAR(ShearReduction(50.2, 100), 0.000016, kExact);
    EXPECT_EQ(ShearReduction(49, 100), 0);
}

// --- Limits that belong to one side --------------------------------------------------------------

TEST(ClassifyKernel, LimitsBelongToTheBetterClass)
{
    EXPECT_EQ(ClassOfAngle(115, 115, 10, 1), 3) << "(115 + 115)/20 = 11.5";
    EXPECT_EQ(ClassOfAngle(150, 75, 10, 1), 3) << "150/10 = 15";
    EXPECT_EQ(ClassOfInternal(32.9, 1, 1, 1.3, 1), 1) << "a share is 1 at most: 396/12 = 33";
}

// psi -0.5: nothing is lost up to 0.5 + sqrt(0.085 + 0.0275) = 0.8354; at 0.9 (0.9 - 0.055 2.5)/
// 0.81.
TEST(PlateBucklingKernel, ReductionOfPlatesThatAreMostlyCompressed)
{
    EXPECT_EQ(RhoInternal(0.835, -0.5), 1);
    EXPECT_NEAR(RhoInternal(0.9, -0.5), 0.7625 / 0.81, kExact);
    EXPECT_NEAR(RhoInternal(0.84, -0.5), 0.7025 / 0.7056, kExact);
}

// EN 1993-1-5, Table 5.1: from 1.08 on a rigid end post has its own column.
TEST(ShearKernel, RigidEndPostsCountFromTheirLimitOn)
{
    EXPECT_NEAR(WebFactor(1.08, 1, true), 1.37 / 1.78, kExact);
    EXPECT_NEAR(WebFactor(1.079, 1, true), 0.83 / 1.079, kExact);
}

// What has no length does not buckle, and what warps not at all adds nothing to that.
TEST(FlexuralKernel, WithoutLengthThereIsNoBuckling)
{
    EXPECT_TRUE(std::isinf(EulerLoad(210000, 1e6, 0)));
    EXPECT_TRUE(std::isinf(EulerLoad(210000, 0, 0)));
}

// A division by zero would end a pass: what has no resistance is told without one.
TEST(BendingKernel, NoResistanceIsNoDivisionByZero)
{
    std::feclearexcept(FE_ALL_EXCEPT);
    EXPECT_TRUE(std::isinf(BiaxialSum(1, 0, 0, 1, {2, 1})));
    EXPECT_EQ(std::fetestexcept(FE_DIVBYZERO), 0);
}

// EN 1993-1-5, Table 4.1: 8.2/(1.05 + psi) from psi 0 on, printed 7.81 there.
TEST(PlateBucklingKernel, FactorOfAStressThatEndsAtTheEdge)
{
    EXPECT_NEAR(BucklingFactorInternal(0), 8.2 / 1.05, kExact);
}

// Flanges that N has used up carry no shear, with a moment or without.
TEST(ShearKernel, FlangesWithoutMomentResistanceCarryNoShear)
{
    EXPECT_EQ(FlangeShear({300, 20}, 1000, 8, 1500, 235, 1, 0, 0), 0);
    EXPECT_EQ(FlangeShear({300, 20}, 1000, 8, 1500, 235, 1, 5, 0), 0);
}

}  // namespace
}  // namespace kestrum::clauses
