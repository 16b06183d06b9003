#include "stability/buckling_control.h"

#include "core/check_text.h"
#include "core/project_state.h"
#include "stability/buckling_rows.h"
#include "stability/test_members.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfenv>
#include <cmath>

namespace kestrum {
namespace {

using members::BeamColumn;
using members::EndMoments;
using members::kFailures;
using members::kMethods;
using members::MomentZ;
using members::UniformLoad;

// By hand: IR 31.25/(0.7849 228.1) = 0.17455; 100/2066 + 0.9760 0.17455 = 0.2188; 100/1087 +
// 0.9869 0.17455 = 0.2643.
TEST(RolledI, WorksOutABeamColumnByAnnexB)
{
    ProjectState s = BeamColumn(2);
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_NEAR(s.irrow6, 31.25 / (0.7849 * 228.1), 2e-5);
    EXPECT_NEAR(s.irrow4, 0.2188, 1e-4);
    EXPECT_NEAR(s.irrow5, 0.2643, 1e-4);
    EXPECT_EQ(s.maxirbuckling, s.irrow5);
    EXPECT_EQ(RowY(s).ratio, s.irrow4);
    EXPECT_EQ(RowZ(s).ratio, s.irrow5);
    EXPECT_EQ(LateralRow(s).ratio, s.irrow6);
}

// By hand: 0.0484 + 1.048 0.1745 = 0.2314; 0.0920 + 0.5501 0.1745 = 0.1880.
TEST(RolledI, WorksOutABeamColumnByAnnexA)
{
    ProjectState s = BeamColumn(1);
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(s.errorflag, 0);
    EXPECT_NEAR(s.irrow4, 0.2314, 1e-4);
    EXPECT_NEAR(s.irrow5, 0.1880, 1e-4);
    EXPECT_EQ(s.maxirbuckling, s.irrow4);
}

TEST(RolledI, WritesTheInteractionRows)
{
    ProjectState s = BeamColumn(2);
    MomentZ(s, 5);
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(LabelOf(RowY(s)), "IR = NEd/Nb,y,Rd +kyy*My,Ed/(xLT*My,Rd) +kyz*Mz,Ed/Mz,Rd ");
    EXPECT_EQ(LabelOf(RowZ(s)), "IR = NEd/Nb,z,Rd +kzy*My,Ed/(xLT*My,Rd) +kzz*Mz,Ed/Mz,Rd ");
    EXPECT_EQ(CalculationOf(RowY(s)), "{F}/{F}+{R}*{F}/({R}*{F})+{R}*{f}/{F}");
    EXPECT_EQ(LimitOf(RowY(s)), " (Ch 6.3.3)");
    const std::array<double, 9> numbers{s.ned,    s.nbyrd, s.kyy, 31.25,   s.xlt,
                                        s.myrdm1, s.kyz,   5,     s.mzrdm1};
    EXPECT_EQ(RowY(s).terms, numbers);
    EXPECT_TRUE(IsJudged(RowY(s)));
    EXPECT_DOUBLE_EQ(s.irrow4,
                     s.ned / s.nbyrd + s.kyy * 31.25 / (s.xlt * s.myrdm1) + s.kyz * 5 / s.mzrdm1);
    EXPECT_EQ(LabelOf(LateralRow(s)), "IR = My,Ed/(xLT*My,Rd) = ");
    EXPECT_EQ(CalculationOf(LateralRow(s)), "{f}/({R}*{F}) = ");
    EXPECT_EQ(LimitOf(LateralRow(s)), " (Ch 6.3.2)");
}

TEST(RolledI, WritesOnlyTheMomentsThatAct)
{
    ProjectState s = BeamColumn(2);
    s.mydesign = 0;
    MomentZ(s, 5);
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(LabelOf(RowY(s)), "IR = NEd/Nb,y,Rd +kyz*Mz,Ed/Mz,Rd ");
    EXPECT_EQ(CalculationOf(RowY(s)), "{F}/{F}+{R}*{f}/{F}");
    EXPECT_EQ(RowY(s).terms[3], 5);
    EXPECT_TRUE(LateralRow(s).empty());
    EXPECT_EQ(s.irrow6, 0);
}

TEST(RolledI, WritesTheAxialRows)
{
    Member s = members::Heb200();
    s.ned = 500;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(LabelOf(RowY(s)), "IR = NEd/Nb,y,Rd ");
    EXPECT_EQ(LabelOf(RowZ(s)), "IR = NEd/Nb,z,Rd ");
    EXPECT_EQ(CalculationOf(RowZ(s)), "{F}/{F}");
    EXPECT_EQ(LimitOf(RowZ(s)), " (Ch 6.3.1)");
    EXPECT_DOUBLE_EQ(s.maxirbuckling, 500 / s.nbzrd);
    EXPECT_EQ(RowZ(s).status, kWithin);
}

// Steel Buildings in Europe, Multi-storey Part 4, A.5: 2000/2348 = 0.852.
TEST(RolledI, MatchesPublishedHeb300)
{
    Member s = members::Of(2, 235,
                           {300, 300, 11, 19, 14900, 2.517e8, 8.56e7, 1.85e6, 1.688e12, 1.678e6,
                            1.869e6, 570900, 870100});
    s.l = 8.0f;
    s.lz = 0.7f;
    s.ned = 2000;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_NEAR(s.maxirbuckling, 0.852, 5e-4);
}

TEST(RolledI, StatusFollowsTheUnroundedRatio)
{
    Member s = members::Heb200();
    s.ned = 1;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    s.ned = s.nbzrd;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(RowZ(s).status, kWithin);
    s.ned = s.nbzrd * 1.000001;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(RowZ(s).status, kAbove);
}

TEST(RolledI, WithoutBucklingLengthsOnlyTheRemark)
{
    ProjectState s = BeamColumn(1);
    s.ly = s.lz = 0.001f;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(LabelOf(RowY(s)), "No Buckling");
    EXPECT_FALSE(IsJudged(RowY(s)));
    EXPECT_TRUE(RowZ(s).empty());
    EXPECT_EQ(s.irrow4, 0);
    EXPECT_EQ(s.maxirbuckling, s.irrow6);
    EXPECT_GT(s.irrow6, 0);
}

// chi = 1 about both axes: n = 100/2772.6, and kzy = 1 - 0.1 lamz n/(0.95 - 0.25) is 1 at lamz 0,
// so that Eq (6.62) has 0.0361 + 0.1745 = 0.2106.
TEST(RolledI, D236AnAxisWithoutBucklingHasNoInteraction)
{
    ProjectState s = BeamColumn(2);
    s.ly = s.lz = 0.001f;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_NEAR(100 / 2772.6 + s.irrow6, 0.2106, 1e-4);
    EXPECT_NEAR(s.maxirbuckling, 0.1745, 1e-4);
}

TEST(RolledI, OneBucklingLengthGivesOneRow)
{
    ProjectState s = BeamColumn(2);
    s.ly = 0.002f;  // the limit itself means no buckling
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_TRUE(RowY(s).empty());
    EXPECT_EQ(s.irrow4, 0);
    EXPECT_EQ(LabelOf(RowZ(s)), "IR = NEd/Nb,z,Rd +kzy*My,Ed/(xLT*My,Rd) ");
    EXPECT_EQ(s.maxirbuckling, std::max(s.irrow5, s.irrow6));

    s.ly = 1.0f;
    s.lz = 0.001f;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_TRUE(RowZ(s).empty());
    EXPECT_FALSE(RowY(s).empty());
}

// N is above 0.04 Ncr, so that only the slenderness below 0.2 can leave buckling out.
TEST(RolledI, IgnoresBucklingOfAShortColumn)
{
    Member s = members::Heb200();
    s.ned = 2800;  // above Nc,Rd 2772.6
    s.iy = s.iz = 1e6f;
    s.l = 1.0f;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    ASSERT_GT(s.lamy, 0.2);
    const float scale = static_cast<float>(s.lamy / 0.199);
    s.l = 1.0f / scale;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_LT(s.lamy, 0.2);
    EXPECT_EQ(LabelOf(RowY(s)), "No Buckling, ref ch 6.3.1.2 (4);  lamdaby/lamdabz<=0.2 or "
                                "Ned/Ncry<=0.04; Ned/Ncry<=0.04");
    EXPECT_TRUE(RowZ(s).empty());
    EXPECT_FALSE(IsJudged(RowY(s)));
    EXPECT_EQ(s.maxirbuckling, 0);
    EXPECT_EQ(RowY(s).status, kAbove);  // 2800/2772.6, as judged before the rule
}

// Area, strength and second moment for which 25 fy A equals Ncr to the last bit.
TEST(RolledI, IgnoresBucklingAtTheSlenderness02Itself)
{
    Member s = members::Heb200();
    s.l = 1.0f;
    s.iy = s.iz = 1421000.0f;
    s.a = 229.139862f;
    s.fyk = 514.129456f;
    s.nrdm1 = double(s.a) * s.fyk / 1000.0;
    s.ned = 2 * s.nrdm1;  // 0.08 Ncr
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    ASSERT_EQ(s.lamy, 0.2);
    ASSERT_EQ(s.lamz, 0.2);
    EXPECT_EQ(s.chiy, 1.0);
    EXPECT_EQ(s.maxirbuckling, 0);
    s.iz = 1420999.0f;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_GT(s.maxirbuckling, 1);
}

TEST(RolledI, IgnoresBucklingUpTo4PercentOfTheCriticalForce)
{
    Member s = members::Heb200();
    s.ned = 1;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    const double limit = 0.04 * std::min(s.ncry, s.ncrz);
    s.ned = limit * (1 - 1e-12);
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(s.maxirbuckling, 0);
    s.ned = limit * (1 + 1e-9);
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_GT(s.maxirbuckling, 0);
}

// About either axis: 0.0401 of the lower critical force is too much, whichever it is. A slenderness
// of 0.201 is not below 0.2.
TEST(RolledI, IgnoresBucklingOnlyBelowBothLimitsOfBothAxes)
{
    for (const auto& [ly, lz] : {std::pair{1.0F, 0.05F}, {0.05F, 1.0F}}) {
        Member s = members::Heb200();
        s.ned = 1;
        s.ly = ly;
        s.lz = lz;
        BucklingControlRolledI(s, s, s, s, s, s, s, s);
        s.ned = 0.0401 * std::min(s.ncry, s.ncrz);
        BucklingControlRolledI(s, s, s, s, s, s, s, s);
        EXPECT_GT(s.maxirbuckling, 0) << ly;

        s.ned = 2800;  // of 2772.6, 0.0408 Ncr at 0.201
        s.l = 1;
        BucklingControlRolledI(s, s, s, s, s, s, s, s);
        s.l = static_cast<float>(0.201 / std::max(s.lamy, s.lamz));
        BucklingControlRolledI(s, s, s, s, s, s, s, s);
        ASSERT_NEAR(std::max(s.lamy, s.lamz), 0.201, 1e-5);
        EXPECT_GT(s.maxirbuckling, 0) << ly;
    }
}

// The limit of a length factor of an axis that buckles is 0.002.
TEST(RolledI, LengthFactorsUpTo0002AskForNoBuckling)
{
    for (const float factor : {0.002F, 0.00201F}) {
        Member s = members::Heb200();
        s.ned = 100;
        s.ly = s.lz = factor;
        EXPECT_EQ(BucklesAboutY(s), factor > 0.002F);
        EXPECT_EQ(BucklesAboutZ(s), factor > 0.002F);
    }
}

TEST(RolledI, D232AnyMomentKeepsBuckling)
{
    Member s = members::Heb200();
    s.ned = 10;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(s.maxirbuckling, 0);
    s.mydesign = 1e-6;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_GE(s.irrow5, 10 / s.nbzrd);
    EXPECT_EQ(LimitOf(RowZ(s)), " (Ch 6.3.3)");
}

TEST(RolledI, TensionLeavesLateralTorsionalBucklingOnly)
{
    ProjectState s = BeamColumn(1);
    s.ned = -100;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_TRUE(RowY(s).empty());
    EXPECT_TRUE(RowZ(s).empty());
    EXPECT_EQ(s.maxirbuckling, s.irrow6);
    EXPECT_GT(s.irrow6, 0);
    MomentZ(s, 5);
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_TRUE(RowY(s).empty());
    EXPECT_TRUE(RowZ(s).empty());
}

TEST(RolledI, BiaxialBendingWithoutAxialForce)
{
    ProjectState s = BeamColumn(2);
    s.ned = 0;
    s.ly = s.lz = 0.001f;  // not asked here
    MomentZ(s, 5);
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(LabelOf(RowY(s)), "IR = kyy*My,Ed/(xLT*My,Rd)  + kyz*Mz,Ed/Mz,Rd) ");
    EXPECT_EQ(LabelOf(RowZ(s)), "IR = kzy*My,Ed/(xLT*My,Rd)  + kzz*Mz,Ed/Mz,Rd ");
    EXPECT_EQ(CalculationOf(RowY(s)), "{R}*{F}/({R}*{F})+{R}*{f}/{F}");
    EXPECT_EQ(LimitOf(RowY(s)), " (Ch 6.3.1)");
    EXPECT_DOUBLE_EQ(s.irrow4, 0.95 * 31.25 / (s.xlt * s.myrdm1) + 0.6 * 0.95 * 5 / s.mzrdm1);
    EXPECT_DOUBLE_EQ(s.irrow5, 31.25 / (s.xlt * s.myrdm1) + 0.95 * 5 / s.mzrdm1);
}

TEST(RolledI, OneMomentWithoutAxialForceHasNoInteraction)
{
    ProjectState s = BeamColumn(1);
    s.ned = 0;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_TRUE(RowY(s).empty());
    EXPECT_EQ(s.maxirbuckling, s.irrow6);
}

TEST(RolledI, AxialForceAboveACriticalForceStopsAnnexAWithMoments)
{
    ProjectState s = BeamColumn(1);
    s.ned = 1700;  // Ncr,z 1661
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(s.errorflag, -1);
    EXPECT_EQ(s.maxirbuckling, 0);

    ProjectState b = BeamColumn(2);
    b.ned = 1700;
    BucklingControlRolledI(b, b, b, b, b, b, b, b);
    EXPECT_EQ(b.errorflag, 0);
    EXPECT_GT(b.maxirbuckling, 1);

    Member column = members::Heb200();
    column.method = 1;
    column.ned = 1700;
    BucklingControlRolledI(column, column, column, column, column, column, column, column);
    EXPECT_EQ(column.errorflag, 0);
    EXPECT_GT(column.maxirbuckling, 1);
}

TEST(RolledI, FinishesAtTheCriticalForceItself)
{
    ProjectState s = BeamColumn(1);
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    s.ned = s.ncrz;
    std::feclearexcept(FE_ALL_EXCEPT);
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(std::fetestexcept(kFailures), 0);
    EXPECT_EQ(s.errorflag, 0);
    EXPECT_GT(s.maxirbuckling, 1);
    EXPECT_TRUE(std::isfinite(s.maxirbuckling));
}

TEST(RolledI, WithoutTheControlNothingIsReduced)
{
    ProjectState s = BeamColumn(2);
    s.ltb = 0;
    s.xlt = 0.3;  // of a run before
    s.kc = 0.5f;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(s.xlt, 1.0);
    EXPECT_EQ(s.xlt0, 1.0);
    EXPECT_EQ(s.ffactor, 1.0f);
    EXPECT_EQ(s.kc, 1.0f);
    EXPECT_TRUE(LateralRow(s).empty());
    EXPECT_EQ(LateralRow(s).status, kWithin);
}

// "0 - L/3", "1L/3 - 2L/3", "2L/3 -  L".
TEST(RolledI, NamesTheGoverningSegment)
{
    const auto limit = [](double first, double last) {
        Member s = members::Heb200();
        s.ltb = 1;
        s.restraints = 2;
        EndMoments(s, first, last);
        BucklingControlRolledI(s, s, s, s, s, s, s, s);
        return TextOf(LateralRow(s)).limit;
    };
    EXPECT_EQ(limit(50, 0), " < 1.0 (0 - L/3;  (Ch 6.3.2))");
    EXPECT_EQ(limit(0, 50), " < 1.0 (2L/3 -  L;  (Ch 6.3.2))");

    Member s = members::Heb200();
    s.ltb = 1;
    s.l = 15.0f;
    s.restraints = 2;
    UniformLoad(s, 5);
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(TextOf(LateralRow(s)).limit, " < 1.0 (1L/3 - 2L/3;  (Ch 6.3.2))");
}

TEST(RolledI, EndForcesWithoutRestraintsNameNoSegment)
{
    Member s = members::Heb200();
    s.ltb = 1;
    EndMoments(s, 50, 0);
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    EXPECT_EQ(TextOf(LateralRow(s)).limit, " < 1.0 (Ch 6.3.2)");
}

TEST(RolledI, WritesWholeTexts)
{
    Member s = members::Heb200();
    s.ned = 500;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    const RowText z = TextOf(RowZ(s));
    EXPECT_EQ(z.label, "IR = NEd/Nb,z,Rd ");
    EXPECT_EQ(z.calculation, "500.0/1087.3");
    EXPECT_EQ(z.result, "0.46");
    EXPECT_EQ(z.limit, " < 1.0 (Ch 6.3.1)");

    ProjectState b = BeamColumn(2);
    BucklingControlRolledI(b, b, b, b, b, b, b, b);
    EXPECT_EQ(TextOf(LateralRow(b)).calculation, "31.3/(0.78*228.1) = ");
    EXPECT_EQ(TextOf(RowY(b)).calculation, "100.0/2065.6+0.98*31.3/(0.78*228.1)");

    b.ly = b.lz = 0.001f;
    BucklingControlRolledI(b, b, b, b, b, b, b, b);
    EXPECT_EQ(TextOf(RowY(b)), (RowText{"No Buckling", "", "", ""}));
}

TEST(RolledI, SwappedEndMomentsGiveTheSame)
{
    for (const i16 method : kMethods) {
        for (int n = 0; n <= 5; ++n) {
            ProjectState s = BeamColumn(method);
            s.restraints = static_cast<i16>(n);
            EndMoments(s, 45, -12);
            BucklingControlRolledI(s, s, s, s, s, s, s, s);
            ProjectState t = BeamColumn(method);
            t.restraints = static_cast<i16>(n);
            EndMoments(t, -12, 45);
            BucklingControlRolledI(t, t, t, t, t, t, t, t);
            EXPECT_NEAR(s.maxirbuckling, t.maxirbuckling, 1e-5) << method << ' ' << n;
            EXPECT_NEAR(s.irrow4, t.irrow4, 1e-5);
            EXPECT_NEAR(s.irrow5, t.irrow5, 1e-5);
        }
    }
}

TEST(RolledI, D207TorsionalBucklingIsNotPartOfTheAxialRows)
{
    Member s = members::Upe300();
    s.l = 2.0f;
    s.lt = 6.0f;  // long in torsion
    s.ned = 500;
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    ASSERT_LT(s.ncrtf, std::min(s.ncry, s.ncrz));
    EXPECT_DOUBLE_EQ(s.maxirbuckling, 500 / std::min(s.nbyrd, s.nbzrd));
}

TEST(ClearBucklingRows, LeavesNothing)
{
    ProjectState s = BeamColumn(2);
    BucklingControlRolledI(s, s, s, s, s, s, s, s);
    ClearBucklingRows(s, s);
    for (const Check* row : {&RowY(s), &RowZ(s), &LateralRow(s)}) {
        EXPECT_TRUE(row->empty());
        EXPECT_EQ(row->status, kWithin);
        EXPECT_EQ(row->ratio, 0);
    }
    EXPECT_EQ(s.maxirbuckling, 0);
    EXPECT_EQ(s.irrow4, 0);
    EXPECT_EQ(s.irrow5, 0);
    EXPECT_EQ(s.irrow6, 0);
}

}  // namespace
}  // namespace kestrum
