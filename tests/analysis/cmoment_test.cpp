#include "member.h"

#include "core/arithmetic_trap.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <new>

namespace {

std::size_t allocations = 0;

}  // namespace

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc{};
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace kestrum::test {
namespace {

// A row of each kind, about both axes, in all categories.
ProjectState Loaded(int supportcase)
{
    ProjectState s = Member(supportcase);
    s.nload = {0, 100, 20, 3};
    s.ntype = {0, 0, 1, 2};
    s.qload = {0, 4, 3, 2, 1};
    s.qtype = {0, 0, 1, 2, 1};
    s.qdir = {0, 1, 0, 1, 0};
    for (std::size_t k = 1; k <= 8; ++k) {
        const auto n = static_cast<float>(k);
        s.pmkind[k] = k % 2;
        s.pm[k] = 5 - n;
        s.pmx[k] = 0.6F * n;
        s.pmtype[k] = static_cast<i16>(k % 3);
        s.pmdir[k] = k > 4;
    }
    AddTrapezoid(s, 1, 1, 4, 0.5F, 3);
    AddTrapezoid(s, 2, 3, 0, 2.5F, 6);
    AddTrapezoid(s, 3, -2, -2, 1, 2);
    s.qttype = {0, 2, 0, 1};
    s.qtdir = {0, 1, 0, 1};
    s.selfweight = 1;
    s.weight = 40;
    return s;
}

TEST(CheckSections, ElevenEvenPoints)
{
    const ProjectState s = Analysed(Member(0));
    ASSERT_EQ(s.npts, 10);
    for (std::size_t k = 0; k <= 10; ++k) {
        EXPECT_FLOAT_EQ(s.xi[k], static_cast<float>(k) / 10.0F);
    }
}

TEST(CheckSections, APointLoadAddsAPairAroundIt)
{
    ProjectState s = Member(0, 4);
    AddForce(s, 1, 10, 2);
    Analyse(s);
    ASSERT_EQ(s.npts, 12);
    EXPECT_FLOAT_EQ(s.xi[10], 1);
    EXPECT_FLOAT_EQ(s.xi[11], 0.4995F);
    EXPECT_FLOAT_EQ(s.xi[12], 0.5005F);
    EXPECT_NEAR(s.vzsec[11], 5, 1e-6);
    EXPECT_NEAR(s.vzsec[12], -5, 1e-6);
}

TEST(CheckSections, APointLoadOnAnEndAddsNone)
{
    ProjectState s = Member(4, 4);
    AddForce(s, 1, 10, 4);
    AddMoment(s, 2, 10, 0);
    Analyse(s);
    EXPECT_EQ(s.npts, 10);
}

TEST(CheckSections, EveryPositionCountsInTheOrderOfTheRows)
{
    ProjectState s = Member(0, 4);
    AddForce(s, 3, 10, 3);
    s.pmx[5] = 1;  // a position without a load
    Analyse(s);
    ASSERT_EQ(s.npts, 14);
    EXPECT_FLOAT_EQ(s.xi[11], 0.74925F);
    EXPECT_FLOAT_EQ(s.xi[13], 0.24975F);

    for (std::size_t k = 1; k <= 8; ++k) {
        s.pmx[k] = 0.4F * static_cast<float>(k);
    }
    Analyse(s);
    EXPECT_EQ(s.npts, 26);
}

TEST(CheckSections, ChosenPointsReplaceTheEvenOnes)
{
    ProjectState s = Member(0, 4);
    AddForce(s, 1, 10, 2);
    s.cpmode = 1;
    s.cp = {0, 1, 3, 2};
    for (const auto& [count, last] : {std::pair{1, 0}, {2, 1}, {3, 2}, {7, 2}}) {
        s.cpcount = static_cast<i16>(count);
        Analyse(s);
        EXPECT_EQ(s.npts, last) << count;
        EXPECT_FLOAT_EQ(s.xi[0], 0.25F);
        EXPECT_FLOAT_EQ(s.xi[1], last >= 1 ? 0.75F : 0);
        EXPECT_FLOAT_EQ(s.xi[2], last >= 2 ? 0.5F : 0);
    }
}

// D109: what the points miss stays in the extremes of the diagram and is not controlled.
TEST(CheckSections, ChosenPointsNarrowTheSectionControlOnlyD109)
{
    ProjectState s = Member(0, 4);
    s.qload[1] = 10;
    s.cpmode = 1;
    s.cpcount = 1;
    s.cp[1] = 1;
    Analyse(s);
    EXPECT_NEAR(s.mysec[0], 15, 1e-6);  // 20*1 - 10/2
    EXPECT_DOUBLE_EQ(s.mydesign, 20);
}

// qL2/8 = 20, qL/2 = 20.
TEST(CalcMember, PinnedBeamWithUniformLoad)
{
    ProjectState s = Member(0, 4);
    s.qload[1] = 10;
    Analyse(s);
    EXPECT_DOUBLE_EQ(s.mymax, 20);
    EXPECT_DOUBLE_EQ(s.xmymax, 0.5);
    EXPECT_DOUBLE_EQ(s.vzmax, 20);
    EXPECT_DOUBLE_EQ(s.vzmin, -20);
    EXPECT_DOUBLE_EQ(s.mydesign, 20);
    EXPECT_FLOAT_EQ(s.mydesignf, 20);
    EXPECT_DOUBLE_EQ(s.qsum, 10);
}

TEST(CalcMember, WithoutLoadsEverythingIsZeroAndNothingFails)
{
    for (int supportcase = 0; supportcase < kSupportCases; ++supportcase) {
        ProjectState s = Member(supportcase);
        ArmTrap();
        Analyse(s);
        EXPECT_NO_THROW(CheckTrap());
        EXPECT_EQ(s.mydesign, 0);
        EXPECT_EQ(s.mymin, 0);
        EXPECT_EQ(s.ned, 0);
        EXPECT_EQ(Largest(s.dzdiag), 0);
        EXPECT_EQ(s.hasyloads, kFalse);
        EXPECT_EQ(s.haszloads, kFalse);
    }
}

TEST(CalcMember, LoadsInYBendAboutZ)
{
    ProjectState s = Member(0);
    s.qload[1] = 10;
    s.qdir[1] = 0;
    Analyse(s);
    EXPECT_EQ(Largest(s.mydiag), 0);
    EXPECT_FLOAT_EQ(s.mzdiag[25], 45);
    EXPECT_FLOAT_EQ(s.mzsec[5], 45);
    EXPECT_FLOAT_EQ(s.vydiag[0], 30);
    EXPECT_DOUBLE_EQ(s.vysec[0], 30);
    EXPECT_NEAR(s.dydiag[25], 4 * 10.04464, 1e-4);  // Iz is a quarter of Iy
    EXPECT_EQ(s.hasyloads, kFalse);
    EXPECT_EQ(s.haszloads, kTrue);
    EXPECT_FLOAT_EQ(s.mzdesign, 45);
}

TEST(CalcMember, AddsTheRowsUp)
{
    for (int supportcase = 0; supportcase < kSupportCases; ++supportcase) {
        const ProjectState all = Analysed(Loaded(supportcase));
        std::array<double, kDiagramPoints> my{}, vy{}, dz{};
        const auto add = [&](ProjectState single) {
            Analyse(single);
            for (std::size_t j = 0; j < my.size(); ++j) {
                my[j] += single.mydiag[j];
                vy[j] += single.vydiag[j];
                dz[j] += single.dzdiag[j];
            }
        };
        ProjectState empty = Loaded(supportcase);
        empty.qload = {};
        empty.pm = {};
        empty.qt1 = empty.qt2 = {};
        empty.selfweight = 0;
        const ProjectState loaded = Loaded(supportcase);
        for (std::size_t k = 1; k <= 8; ++k) {
            ProjectState single = empty;
            single.pm[k] = loaded.pm[k];
            if (k % 2 == 0) {
                single.qload[k / 2] = loaded.qload[k / 2];
            }
            if (k <= 3) {
                single.qt1[k] = loaded.qt1[k];
                single.qt2[k] = loaded.qt2[k];
            }
            single.selfweight = k == 8;
            add(single);
        }
        for (std::size_t j = 0; j < my.size(); ++j) {
            EXPECT_NEAR(all.mydiag[j], my[j], 2e-6 * Largest(my));
            EXPECT_NEAR(all.vydiag[j], vy[j], 2e-6 * Largest(vy));
            EXPECT_NEAR(all.dzdiag[j], dz[j], 2e-6 * Largest(dz));
        }
    }
}

TEST(CalcMember, SectionsAndDiagramAgreeWhereTheyMeet)
{
    for (int supportcase = 0; supportcase < kSupportCases; ++supportcase) {
        const ProjectState s = Analysed(Loaded(supportcase));
        for (std::size_t k = 1; k <= 9; ++k) {
            EXPECT_NEAR(s.mysec[k], s.mydiag[5 * k], 1e-5 * Largest(s.mydiag)) << supportcase;
        }
    }
}

// D103: 42 kg/m weigh 0.42 kN/m.
TEST(Selfweight, IsAUniformLoadOfCategoryGInZD103)
{
    ProjectState s = Member(0, 4);
    s.weight = 42;
    s.selfweight = 1;
    s.qtype[0] = 2;
    s.qdir[0] = 0;
    Analyse(s);
    EXPECT_FLOAT_EQ(s.qload[0], 0.42F);
    EXPECT_EQ(s.qtype[0], 0);
    EXPECT_EQ(s.qdir[0], 1);
    EXPECT_EQ(s.qchecked[0], kTrue);
    EXPECT_NEAR(s.mymax, 0.84, 1e-6);  // 0.42*16/8
    EXPECT_EQ(s.hasyloads, kTrue);

    s.selfweight = 0;
    Analyse(s);
    EXPECT_EQ(s.qload[0], 0);
    EXPECT_EQ(s.qchecked[0], kFalse);
    EXPECT_EQ(s.mymax, 0);
}

// D106
TEST(InvalidLoads, ATSectionKeepsItsAxialForceOnlyD106)
{
    ProjectState s = Loaded(0);
    s.family = 26;
    s.selfweight = 0;
    Analyse(s);
    EXPECT_DOUBLE_EQ(s.ned, 123);
    EXPECT_EQ(Largest(s.mydiag) + Largest(s.mzdiag) + Largest(s.vzdiag), 0);
    EXPECT_EQ(Largest(s.qload) + Largest(s.qt1) + Largest(s.qtx2), 0);
    EXPECT_EQ(Largest(s.pm) + Largest(s.pmx), 0);
    EXPECT_EQ(s.qdir, Loaded(0).qdir);

    s.selfweight = 1;  // its own weight still bends it: 0.4*36/8
    Analyse(s);
    EXPECT_NEAR(s.mymax, 1.8, 1e-6);
}

TEST(InvalidLoads, SectionsBentAboutYOnlyLoseTheLoadsInYD106)
{
    for (const int family : {24, 25, 27, 51, 52, 53, 54, 56, 28}) {
        SCOPED_TRACE(family);
        ProjectState s = Loaded(0);
        s.family = static_cast<i16>(family);
        Analyse(s);
        const ProjectState given = Loaded(0);
        EXPECT_EQ(s.nload, family == 28 ? given.nload : (Rows<float, 3>{}));
        EXPECT_EQ(s.ned, family == 28 ? 123 : 0);
        for (std::size_t k = 1; k <= 4; ++k) {
            EXPECT_EQ(s.qload[k], given.qdir[k] == 0 ? 0 : given.qload[k]);
            EXPECT_EQ(s.qdir[k], 1);
        }
        EXPECT_EQ(s.qt1[2], 0);
        EXPECT_EQ(s.qt2[2], 0);
        EXPECT_EQ(s.qtx2[2], given.qtx2[2]);
        EXPECT_EQ(s.qtdir[2], 1);
        EXPECT_EQ(s.qt2[1], given.qt2[1]);
        EXPECT_EQ(s.pm[4], 0);
        EXPECT_EQ(s.pmx[4], 0);
        EXPECT_EQ(s.pmtype[4], 0);
        EXPECT_EQ(s.pmdir[4], 1);
        EXPECT_EQ(s.pm[6], given.pm[6]);
        EXPECT_EQ(Largest(s.mzdiag), 0);
    }
}

TEST(InvalidLoads, OtherFamiliesKeepAllRows)
{
    for (const int family : {0, 1, 6, 10, 22, 23, 31, 41, 55, 103}) {
        ProjectState s = Loaded(0);
        s.family = static_cast<i16>(family);
        ClearInvalidLoads(s);
        ProjectState given = Loaded(0);
        given.family = s.family;
        EXPECT_EQ(s, given) << family;
    }
}

struct Selector {
    int loadcomb;
    double g, q1, q2;     // strength
    double sg, sq1, sq2;  // serviceability
};

// EN 1990 with 1.35, 1.5 and xi 0.85; psi1 0.7, psi2 0.3; class factors 1 and 0.9.
const Selector kSelectors[] = {
    {0, 1.35, 1.5 * 0.9, 1.5 * 0.9 * 0.7, 1, 1, 0.3},
    {1, 1.35, 1.5 * 0.9 * 0.7, 1.5 * 0.9 * 0.3, 1, 1, 0.3},
    {2, 0.85 * 1.35, 1.5 * 0.9, 1.5 * 0.9 * 0.3, 1, 1, 0.3},
    {4, 1.1, 1.2, 1.3, 0.9, 0.8, 0.7},
    {5, 1, 1, 1, 1, 1, 1},
    {9, 0, 0, 0, 0, 0, 0},  // nothing is combined
};

ProjectState WithFactors(ProjectState s)
{
    s.g610g = s.g610ag = s.g610bg = 1.35F;
    s.g610q1 = s.g610q2 = s.g610aq1 = s.g610aq2 = 1.5F;
    s.xi610b = 0.85F;
    s.kfig = 1;
    s.kfiq = 0.9F;
    s.psi1 = 0.7F;
    s.psi2 = 0.3F;
    s.lfulsg = 1.1F;
    s.lfulsq1 = 1.2F;
    s.lfulsq2 = 1.3F;
    s.lfslsg = 0.9F;
    s.lfslsq1 = 0.8F;
    s.lfslsq2 = 0.7F;
    return s;
}

TEST(Combination, EachKindOfLoadTakesTheFactorOfItsCategory)
{
    for (const Selector& selector : kSelectors) {
        const double strength[] = {selector.g, selector.q1, selector.q2};
        const double service[] = {selector.sg, selector.sq1, selector.sq2};
        for (const int category : {0, 1, 2}) {
            SCOPED_TRACE(testing::Message()
                         << "selector " << selector.loadcomb << ", category " << category);
            const auto c = static_cast<i16>(category);
            for (const int kind : {0, 1, 2, 3, 4}) {
                ProjectState s = WithFactors(Member(0));
                s.loadcomb = static_cast<i16>(selector.loadcomb);
                switch (kind) {
                case 0:
                    s.nload[2] = 50;
                    s.ntype[2] = c;
                    s.nchecked[2] = kTrue;
                    break;
                case 1:
                    s.qload[3] = 10;
                    s.qtype[3] = c;
                    s.qchecked[3] = kTrue;
                    break;
                case 2:
                    AddForce(s, 4, 10, 1.5F);
                    s.pmtype[4] = c;
                    s.pmchecked[4] = kTrue;
                    break;
                case 3:
                    AddMoment(s, 8, 10, 4.5F);
                    s.pmtype[8] = c;
                    s.pmchecked[8] = kTrue;
                    break;
                default:
                    AddTrapezoid(s, 2, 5, 10, 1, 5);
                    s.qttype[2] = c;
                    s.qtchecked[2] = kTrue;
                    break;
                }
                ProjectState basic = s;
                basic.loadcomb = kBasicLoads;
                Analyse(s);
                Analyse(basic);
                const double f = strength[category];
                EXPECT_NEAR(s.ned, f * basic.ned, 1e-5 * std::abs(basic.ned));
                EXPECT_NEAR(s.qsum, f * basic.qsum, 1e-5 * std::abs(basic.qsum));
                EXPECT_NEAR(s.mymax, f * basic.mymax, 1e-5 * basic.mymaxabs);
                EXPECT_NEAR(s.vzmin, f * basic.vzmin, 1e-5 * std::abs(basic.vzmin));
                EXPECT_NEAR(s.mysec[3], f * basic.mysec[3], 1e-5 * basic.mymaxabs);
                EXPECT_NEAR(s.dzmaxabs, service[category] * basic.dzmaxabs, 1e-5 * basic.dzmaxabs);
            }
        }
    }
}

TEST(Combination, BasicLoadsTakeCheckedRowsOnly)
{
    ProjectState s = Loaded(0);
    s.loadcomb = kBasicLoads;
    s.selfweight = 0;
    Analyse(s);  // no box is checked
    EXPECT_EQ(s.ned, 0);
    EXPECT_EQ(s.qsum, 0);
    EXPECT_EQ(s.mymaxabs + s.mzmaxabs + s.dzmaxabs + s.vzmax, 0);
    EXPECT_EQ(s.hasyloads, kFalse);
    EXPECT_EQ(s.haszloads, kFalse);

    s.qchecked[2] = kTrue;  // 3 kN/m in y: 3*36/8
    s.nchecked[3] = 1;      // anything but 0 is checked
    Analyse(s);
    EXPECT_EQ(s.ned, 3);
    EXPECT_EQ(s.qsum, 3);
    EXPECT_NEAR(s.mzmax, 13.5, 1e-6);
    EXPECT_EQ(s.mymaxabs, 0);
    EXPECT_EQ(s.hasyloads, kFalse);
    EXPECT_EQ(s.haszloads, kTrue);

    s.selfweight = 1;  // checked by itself: 0.4*36/8
    Analyse(s);
    EXPECT_NEAR(s.mymax, 1.8, 1e-6);
}

TEST(Combination, LeavesOddCategoriesAndDirectionsOut)
{
    ProjectState s = Member(0);
    s.nload[1] = 10;
    s.ntype[1] = 3;
    s.qload[1] = 10;
    s.qtype[1] = -1;
    AddForce(s, 1, 10, 2);
    s.pmdir[1] = 2;
    AddTrapezoid(s, 1, 3, 4, 1, 2);
    s.qttype[1] = 0.5F;
    Analyse(s);
    EXPECT_EQ(s.ned, 0);
    EXPECT_EQ(s.qsum, 0);
    EXPECT_EQ(s.mymaxabs + s.mzmaxabs + s.dzmaxabs + s.dymaxabs, 0);
}

// A control that finds what the test asks for.
struct FakeControl {
    int calls = 0;
    double irsection[2] = {0, 0}, maxirbuckling[2] = {0, 0};
    int failing = 0;  // call that sets errorflag
    double ned[2] = {0, 0}, design[2] = {0, 0}, irbefore[2] = {1, 1};
};

FakeControl fake;

void Control(ProjectState& s)
{
    const auto call = static_cast<std::size_t>(fake.calls++);
    fake.ned[call] = s.ned;
    fake.design[call] = s.mydesign;
    fake.irbefore[call] = s.irsection + s.maxirbuckling;
    s.irsection = fake.irsection[call];
    s.maxirbuckling = fake.maxirbuckling[call];
    if (fake.calls == fake.failing) {
        s.errorflag = -1;
    }
}

// G 100 kN and 10 kN/m. Eq 6.10a: 135 kN, 13.5*36/8 = 60.75; 6.10b: 114.75 kN, 51.6375.
ProjectState WorseOfTwo()
{
    ProjectState s = WithFactors(Member(0));
    s.loadcomb = kEq610ab;
    s.nload[1] = 100;
    s.qload[1] = 10;
    return s;
}

TEST(WorseOfTwoCombinations, ControlSeesBothInTurn)
{
    fake = {};
    ProjectState s = WorseOfTwo();
    s.irsection = s.maxirbuckling = 9;
    CalcMember(s, Control);
    ASSERT_EQ(fake.calls, 2);
    EXPECT_NEAR(fake.ned[0], 135, 1e-4);
    EXPECT_NEAR(fake.ned[1], 114.75, 1e-4);
    EXPECT_NEAR(fake.design[0], 60.75, 1e-4);
    EXPECT_NEAR(fake.design[1], 51.6375, 1e-4);
    EXPECT_EQ(fake.irbefore[0], 0);
    EXPECT_EQ(fake.irbefore[1], 0);
}

TEST(WorseOfTwoCombinations, TheHigherUtilisationGoverns)
{
    struct Case {
        double section[2], buckling[2];
        int governing;
        double ned;
    };
    const Case cases[] = {
        {{0.8, 0.7}, {0, 0}, 1, 135},        {{0.7, 0.8}, {0, 0}, 2, 114.75},
        {{0.1, 0.7}, {0.8, 0.1}, 1, 135},    {{0.7, 0.1}, {0.1, 0.8}, 2, 114.75},
        {{0.5, 0.5}, {0.5, 0.2}, 2, 114.75},  // a tie goes to 6.10b
        {{0, 0}, {0, 0}, 2, 114.75},
    };
    for (const Case& c : cases) {
        fake = {};
        for (const std::size_t i : {0U, 1U}) {
            fake.irsection[i] = c.section[i];
            fake.maxirbuckling[i] = c.buckling[i];
        }
        ProjectState s = WorseOfTwo();
        CalcMember(s, Control);
        EXPECT_EQ(s.governing, c.governing);
        EXPECT_NEAR(s.ned, c.ned, 1e-4);
        EXPECT_NEAR(s.mydesign, c.ned * 0.45, 1e-4);  // 36/8 kNm for 0.1 kN/m of each kN
        EXPECT_NEAR(s.dzmax, 10.04464, 1e-4);
    }
}

TEST(WorseOfTwoCombinations, AnAxialOverloadEndsTheSearch)
{
    for (const int failing : {1, 2}) {
        fake = {};
        fake.failing = failing;
        ProjectState s = WorseOfTwo();
        s.governing = 7;
        CalcMember(s, Control);
        EXPECT_EQ(fake.calls, failing);
        EXPECT_EQ(s.governing, 7);
        EXPECT_EQ(s.errorflag, -1);
        EXPECT_NEAR(s.ned, failing == 1 ? 135 : 114.75, 1e-4);
    }
}

TEST(WorseOfTwoCombinations, AFailureInTheControlStopsThePass)
{
    ProjectState s = WorseOfTwo();
    ArmTrap();
    EXPECT_THROW(CalcMember(s,
                            [](ProjectState& state) {
                                volatile double zero = 0;
                                state.irsection = 1 / zero;
                            }),
                 CalculationStop);
    ArmTrap();
}

TEST(WorseOfTwoCombinations, OtherSelectorsRunNoControlAndKeepTheOldChoice)
{
    fake = {};
    for (const int loadcomb : {0, 1, 2, 4, 5}) {
        ProjectState s = WorseOfTwo();
        s.loadcomb = static_cast<i16>(loadcomb);
        s.governing = 1;
        CalcMember(s, Control);
        EXPECT_EQ(s.governing, 1);
    }
    EXPECT_EQ(fake.calls, 0);
}

TEST(CalcMember, ASectionWithoutStiffnessFails)
{
    for (const int missing : {0, 1, 2}) {
        ProjectState s = Member(0);
        s.qload[1] = 10;
        s.e = missing == 0 ? 0 : s.e;
        s.iy = missing == 1 ? 0 : s.iy;
        s.iz = missing == 2 ? 0 : s.iz;
        ArmTrap();
        Analyse(s);
        EXPECT_THROW(CheckTrap(), CalculationStop) << missing;
        ArmTrap();
    }
}

TEST(CalcMember, WithoutASectionThereAreForcesAndNoDeflection)
{
    for (const int family : {0, 55, 77}) {
        ProjectState s = Member(0);
        s.family = static_cast<i16>(family);
        s.e = s.iy = s.iz = 0;
        s.qload[1] = 10;
        ArmTrap();
        Analyse(s);
        EXPECT_NO_THROW(CheckTrap());
        EXPECT_DOUBLE_EQ(s.mymax, 45);
        EXPECT_EQ(Largest(s.dzdiag), 0);
    }
}

TEST(CalcMember, RepeatsItself)
{
    for (int supportcase = 0; supportcase < kSupportCases; ++supportcase) {
        const ProjectState once = Analysed(Loaded(supportcase));
        EXPECT_EQ(Analysed(once), once);
        ProjectState used = Analysed(Loaded((supportcase + 1) % kSupportCases));
        used.supportcase = once.supportcase;
        EXPECT_EQ(Analysed(used), once);
    }
}

TEST(CalcMember, AllocatesNothing)
{
    ProjectState s = Loaded(3);
    fake = {};
    s.loadcomb = kEq610ab;
    const std::size_t before = allocations;
    CalcMember(s, Control);
    s.loadmode = 0;
    CalcMember(s, Control);
    EXPECT_EQ(allocations, before);
}

}  // namespace
}  // namespace kestrum::test
