// Eq 6.10a/b through the whole pass: both combinations are designed, and the worse one stays.

#include "core/load_combination.h"
#include "core/project_state.h"
#include "sections/families.h"
#include "support/members.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>

namespace kestrum {
namespace {

constexpr i16 kPermanent = 0;
constexpr i16 kVariable1 = 1;

// The default member with all loads of one category.
ProjectState OfCategory(i16 category)
{
    Member s;
    s.ntype[1] = category;
    s.qtype[1] = category;
    return s;
}

ProjectState With(ProjectState s, i16 loadcomb)
{
    s.loadcomb = loadcomb;
    EXPECT_TRUE(EndsWell(s)) << loadcomb;
    return s;
}

// What the pass with both combinations leaves is the pass with the worse one alone.
void ExpectSameResult(const ProjectState& s, const ProjectState& alone)
{
    EXPECT_EQ(s.ned, alone.ned);
    EXPECT_EQ(s.mydesign, alone.mydesign);
    EXPECT_EQ(s.mydiag, alone.mydiag);
    EXPECT_EQ(s.dzdiag, alone.dzdiag);
    EXPECT_EQ(s.checklist, alone.checklist);
    EXPECT_EQ(RowY(s), RowY(alone));
    EXPECT_EQ(RowZ(s), RowZ(alone));
    EXPECT_EQ(LateralRow(s), LateralRow(alone));
    EXPECT_EQ(s.irsection, alone.irsection);
    EXPECT_EQ(s.maxirbuckling, alone.maxirbuckling);
}

double Utilisation(const ProjectState& s)
{
    return std::max(s.irsection, s.maxirbuckling);
}

TEST(Eq610ab, PermanentLoadsAreGovernedByEq610a)
{
    const ProjectState loads = OfCategory(kPermanent);  // 1.35 against 0.85*1.35
    const ProjectState s = With(loads, kEq610ab);
    EXPECT_EQ(s.governing, 1);
    EXPECT_DOUBLE_EQ(s.ned, 100.0 * 1.35f);
    ExpectSameResult(s, With(loads, kEq610a));
}

TEST(Eq610ab, VariableLoadsAreGovernedByEq610b)
{
    const ProjectState loads = OfCategory(kVariable1);  // 1.5*0.7 against 1.5
    const ProjectState s = With(loads, kEq610ab);
    EXPECT_EQ(s.governing, 2);
    EXPECT_DOUBLE_EQ(s.ned, 150);
    ExpectSameResult(s, With(loads, kEq610b));
}

TEST(Eq610ab, EqualUtilisationIsNamedEq610b)
{
    ProjectState loads = OfCategory(kVariable1);
    loads.psi1 = 1;  // 1.5 in both
    const ProjectState s = With(loads, kEq610ab);
    EXPECT_EQ(Utilisation(With(loads, kEq610a)), Utilisation(With(loads, kEq610b)));
    EXPECT_GT(Utilisation(s), 0);
    EXPECT_EQ(s.governing, 2);
    EXPECT_NE(GoverningText(s).find("6.10b"), std::string::npos);
}

// The section is used more by the variable moment of 6.10b, the slender column by the permanent
// axial force of 6.10a.
TEST(Eq610ab, BucklingDecidesAgainstTheSection)
{
    Member loads;
    loads.l = 10;
    loads.ntype[1] = kPermanent;
    loads.nload[1] = 500;
    loads.qtype[1] = kVariable1;
    loads.qload[1] = 3;
    const ProjectState a = With(loads, kEq610a), b = With(loads, kEq610b);
    EXPECT_GT(b.irsection, a.irsection);
    EXPECT_GT(a.maxirbuckling, b.maxirbuckling);
    const ProjectState s = With(loads, kEq610ab);
    EXPECT_EQ(s.governing, 1);
    ExpectSameResult(s, a);
}

TEST(Eq610ab, LeavesTheWorseOfBothInEveryFamily)
{
    for (const int family : FamilyNumbers()) {
        for (const i16 category : {kPermanent, kVariable1}) {
            SCOPED_TRACE(family);
            ProjectState loads = OfCategory(category);
            loads.family = static_cast<i16>(family);
            loads.l = 2;
            loads.nload[1] = 1;
            loads.qload[1] = 0.5f;
            loads.checkconsercontrol = family == 28 ? kTrue : kFalse;
            const ProjectState a = With(loads, kEq610a), b = With(loads, kEq610b);
            const ProjectState s = With(loads, kEq610ab);
            EXPECT_EQ(Utilisation(s), std::max(Utilisation(a), Utilisation(b)));
            EXPECT_EQ(s.governing, category == kPermanent ? 1 : 2);
            ExpectSameResult(s, category == kPermanent ? a : b);
        }
    }
}

// A one-sided hat beam, bottom flange 15 mm in S355: it carries q up to 1.75*355*15^2/6/60 = 388.3
// kN/m. Whichever combination is beyond, the loading leaves the resistance of both.
TEST(Eq610ab, FlangeOverloadInOneOfThemRemovesTheLoadingFromBoth)
{
    Member loads;
    loads.family = 25;
    loads.qload[1] = 141;
    loads.qtype[1] = kPermanent;
    loads.qload[2] = 152.5F;
    loads.qtype[2] = kVariable1;
    // 6.10a: 1.35*141 + 1.05*152.5 = 350.5; 6.10b: 0.85*1.35*141 + 1.5*152.5 = 390.5.
    const ProjectState b = With(loads, kEq610b);
    EXPECT_NEAR(b.qsum, 390.5, 0.1);
    EXPECT_TRUE(b.flangeoverload);
    EXPECT_FALSE(With(loads, kEq610a).flangeoverload);
    const ProjectState s = With(loads, kEq610ab);
    EXPECT_TRUE(s.flangeoverload);
    EXPECT_EQ(s.hsqopt, 1);
    EXPECT_EQ(s.governing, 2);
    ExpectSameResult(s, b);
    ExpectSameResult(With(s, kEq610ab), s);  // a second pass, with the option off, agrees

    loads.qload[1] = 290;  // 391.5 and 332.8
    loads.qload[2] = 0;
    const ProjectState a = With(loads, kEq610a);
    EXPECT_TRUE(a.flangeoverload);
    EXPECT_FALSE(With(loads, kEq610b).flangeoverload);
    const ProjectState first = With(loads, kEq610ab);
    EXPECT_TRUE(first.flangeoverload);
    EXPECT_EQ(first.governing, 1);
    ExpectSameResult(first, a);
}

// A column whose axial force is above the critical force in one of the combinations only.
TEST(Eq610ab, AxialOverloadInOneOfThemStopsThePass)
{
    for (const i16 category : {kPermanent, kVariable1}) {
        SCOPED_TRACE(category);
        ProjectState s = OfCategory(category);
        s.l = 10;
        const i16 light = category == kPermanent ? i16{kEq610b} : i16{kEq610a};
        const i16 heavy = category == kPermanent ? i16{kEq610a} : i16{kEq610b};
        const double ncrz = With(s, kEq610b).ncrz;
        const double lightfactor = category == kPermanent ? 0.85 * 1.35 : 1.5 * 0.7;
        s.nload[1] = static_cast<float>(0.95 * ncrz / lightfactor);

        ProjectState alone = s;
        alone.loadcomb = light;
        EXPECT_TRUE(EndsWell(alone));
        EXPECT_LT(alone.ned, alone.ncrz);
        alone.loadcomb = heavy;
        EXPECT_FALSE(EndsWell(alone));
        EXPECT_EQ(alone.errorflag, -1);

        s.loadcomb = kEq610ab;
        s.governing = 7;
        EXPECT_FALSE(EndsWell(s));
        EXPECT_EQ(s.errorflag, -1);
        EXPECT_TRUE(s.calculationerror);
        EXPECT_EQ(s.governing, 7);
        EXPECT_EQ(s.failure.stage, Stage::buckling_control);
        EXPECT_GT(s.ned, s.ncrz);  // left at the combination that failed

        s.method = 2;  // which has no such limit
        EXPECT_TRUE(EndsWell(s));
        EXPECT_EQ(s.governing, category == kPermanent ? 1 : 2);
    }
}

}  // namespace
}  // namespace kestrum
