// Deviations from the standard that show in a whole pass.

#include "core/project_state.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrum {
namespace {

Member Solved(const std::string& fields)
{
    Member s = Member(kUnloaded + fields);
    EXPECT_TRUE(Calculate(Delivered(), s)) << fields;
    return s;
}

// Eq 6.10, G 5 and Q1 -3 kN/m on 8 m: (1.35 x 5 - 1.5 x 3) 8^2/8 = 18 kNm; without Q1, as EN 1990,
// Table A1.2(B) has it, 6.75 x 8 = 54 kNm. In serviceability likewise.
TEST(LoadFactors, D35VariableLoadsKeepTheirFactorWhereTheyRelieve)
{
    const Member s = Solved("loadcomb=0 l=8 qload[1]=5 qload[2]=-3 qtype[2]=1 checksls=true");
    EXPECT_NEAR(s.mymax, 18, 1e-4);
    EXPECT_NEAR(s.dzmax, 2.0 / 5 * Solved("loadcomb=0 l=8 qload[1]=5").dzmax, 1e-4);
}

// Eq 6.10b, psi 0.7 of Q1 and 0.5 of Q2, Q1 2 and Q2 8 kN/m on 8 m: 1.5 (2 + 0.5 x 8) 8 = 72 kNm;
// with Q2 leading 1.5 (0.7 x 2 + 8) 8 = 112.8 kNm.
TEST(LoadFactors, D36Q1AloneLeads)
{
    const Member s = Solved(
        "loadcomb=2 psi1index=6 psi2index=4 l=8 qload[1]=2 qtype[1]=1 qload[2]=8 qtype[2]=2");
    EXPECT_NEAR(s.mymax, 72, 1e-4);
}

// S355 in 20 mm: 355 MPa by EN 1993-1-1, Table 3.1; 345 MPa by EN 10025-2, Table 7.
TEST(SetMaterial, D37BritishAnnexKeepsTheStrengthsOfTable31)
{
    EXPECT_EQ(Solved("annexcode=UK family=21 fykindex=2 qload[1]=5").fyk, 355);
}

// Flanges 400 x 20 and 200 x 20, 580 mm apart: beta = 8/9 of the wider one. 0.4 (2 x 8/9 - 1) 580 =
// 180.4; exactly, from the integral over the three plates about the centroid at 238.0, 205.9 mm.
TEST(SingleSymmetricI, D57AsymmetryIsApproximate)
{
    EXPECT_NEAR(Solved("family=22 qload[1]=5").zjbot, 180.44, 0.01);
}

// HEA 200, 3 m, clamped at one end: pi^2 E Iz/(1.0 L)^2 = 210000 x 13.36e6 pi^2/9e6 = 3077 kN; a
// free tip leaves a quarter of it, 769 kN.
TEST(SupportCase, D237CantileverKeepsTheBucklingFactors)
{
    const Member s = Solved("row.hea=5 l=3 supportcase=4 nload[1]=100");
    EXPECT_NEAR(s.ncrz, 3077, 1);
    EXPECT_NEAR(Solved("row.hea=5 l=3 supportcase=4 nload[1]=100 lz=2").ncrz, 769, 1);
}

TEST(Box, D29ShearAreasHaveNoEta)
{
    Member s = Member(std::string(kUnloaded) + "family=23 p23.isttw=20 p23.ista=0");
    ASSERT_TRUE(Calculate(Delivered(), s));
    ASSERT_GT(s.neta, 1);
    EXPECT_NEAR(s.avz, 22400, 0.1);    // 2 x 560 x 20
    EXPECT_NEAR(s.vzrd, 4591.1, 0.1);  // 22400 x 355/sqrt(3)/1000
    EXPECT_NEAR(s.avy, 22400, 0.1);    // 2 x 560 x 20, between the webs
}

}  // namespace
}  // namespace kestrum
