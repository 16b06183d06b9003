// Laws of hollow sections over all rows of their tables, with gammaM0 = gammaM1 = eta = 1 and fyk =
// 355 MPa.

#include "core/project_state.h"
#include "design/hollow_section.h"

#include "support/members.h"

namespace kestrum {
namespace {

TEST(HollowTables, SquareResistsTheSameAboutBothAxes)
{
    for (const int family : {6, 8}) {
        Member s = Member::Bare(family).Steel(355);
        for (int row = 0; row < RowCount(TableOf(s)); ++row) {
            s.Row(row);
            SCOPED_TRACE(RowName(Delivered(), TableOf(s), row));
            Design(s);
            EXPECT_EQ(s.classmy, s.classmz);
            EXPECT_NEAR(s.myrd, s.mzrd, 1e-6 * s.myrd);
            EXPECT_NEAR(s.vzrd, s.vyrd, 1e-6 * s.vzrd);
            EXPECT_NEAR(s.weffy, s.weffz, 1e-6 * s.weffy);
            const double m = 0.5 * s.myrd, v = 0.7 * s.vzrd;
            Control(s, {0, m, 0, v, 0});
            const double y1 = s.irrow1, y3 = s.irrow3;
            Control(s, {0, 0, m, 0, v});
            EXPECT_NEAR(s.irrow1, y1, 1e-6);
            EXPECT_NEAR(s.irrow3, y3, 1e-6);
        }
    }
}

// The one web of D168 makes no difference here: the flange, as slender as the web and compressed
// all over, never has the better class.
TEST(HollowTables, SquareUnderAxialForceResistsTheSameAboutBothAxes)
{
    for (const int family : {6, 8}) {
        Member s = Member::Bare(family).Steel(355);
        for (int row = 0; row < RowCount(TableOf(s)); ++row) {
            s.Row(row);
            SCOPED_TRACE(RowName(Delivered(), TableOf(s), row));
            Design(s);
            for (const double share : {-0.6, -0.1, 0.05, 0.2, 0.5, 0.8}) {
                const double n = share * s.nplrd, m = 0.3 * s.myrd;
                Control(s, {n, m, 0, 0, 0});
                const i16 classy = s.classmyuse;
                const double y = s.irrow2;
                Control(s, {n, 0, m, 0, 0});
                EXPECT_EQ(classy, s.classmyuse);
                EXPECT_NEAR(s.irrow2, y, 1e-5);
            }
        }
    }
}

TEST(HollowTables, ExchangedAxesExchangeTheResistances)
{
    for (const int family : {7, 9}) {
        Member s = Member::Bare(family).Steel(355);
        for (int row = 0; row < RowCount(TableOf(s)); ++row) {
            s.Row(row);
            SCOPED_TRACE(RowName(Delivered(), TableOf(s), row));
            s.rectaxis = 1;
            Design(s);
            ProjectState t = s;
            t.rectaxis = 2;
            Design(t);
            EXPECT_EQ(t.classn, s.classn);
            EXPECT_NEAR(t.myrd, s.mzrd, 1e-6 * s.mzrd);
            EXPECT_NEAR(t.mzrd, s.myrd, 1e-6 * s.myrd);
            EXPECT_NEAR(t.vzrd, s.vyrd, 1e-6 * s.vyrd);
            EXPECT_NEAR(t.ncrd, s.ncrd, 1e-6 * s.ncrd);
        }
    }
}

TEST(HollowTables, ResistancesArePositiveAndGrowWithThickness)
{
    for (const int family : {6, 7, 8, 9}) {
        ProjectState thin{};
        Member s = Member::Bare(family).Steel(355);
        for (int row = 0; row < RowCount(TableOf(s)); ++row) {
            s.Row(row);
            SCOPED_TRACE(RowName(Delivered(), TableOf(s), row));
            Design(s);
            CalcShearHollow(s, s, s, s, s);
            for (const double value : {s.nplrd, s.ncrd, s.myrd, s.mzrd, s.vzrd, s.vyrd, s.vbrd,
                                       s.vcyrd, s.nrdm1, s.myrdm1, s.mzrdm1}) {
                EXPECT_GT(value, 0);
            }
            EXPECT_LE(s.aeff, s.a);
            EXPECT_LE(s.weffy, s.wely * (1 + 1e-6));
            EXPECT_LE(s.weffz, s.welz * (1 + 1e-6));
            if (thin.h == s.h && thin.b == s.b && thin.tw < s.tw) {
                EXPECT_GT(s.nplrd, thin.nplrd);
                EXPECT_GT(s.ncrd, thin.ncrd);
                EXPECT_GT(s.myrd, thin.myrd);
                EXPECT_GT(s.mzrd, thin.mzrd);
                EXPECT_GT(s.vbrd, thin.vbrd);
                EXPECT_GT(s.vcyrd, thin.vcyrd);
            }
            thin = s;
        }
    }
}

}  // namespace
}  // namespace kestrum
