#include "member.h"

#include "core/arithmetic_trap.h"
#include "core/project_state.h"
#include "engine/settle_inputs.h"

#include <gtest/gtest.h>

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

TEST(CheckSections, ElevenEvenPoints)
{
    const ProjectState s = Analysed(Beam(0));
    ASSERT_EQ(s.npts, 10);
    for (std::size_t k = 0; k <= 10; ++k) {
        EXPECT_FLOAT_EQ(s.xi[k], static_cast<float>(k) / 10.0F);
    }
}

TEST(CheckSections, APointLoadAddsAPairAroundIt)
{
    Member s = Beam(0, 4);
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
    Member s = Beam(4, 4);
    AddForce(s, 1, 10, 4);
    AddMoment(s, 2, 10, 0);
    Analyse(s);
    EXPECT_EQ(s.npts, 10);
}

TEST(CheckSections, EveryPositionCountsInTheOrderOfTheRows)
{
    Member s = Beam(0, 4);
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
    Member s = Beam(0, 4);
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
    Member s = Beam(0, 4);
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
    Member s = Beam(0, 4);
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

// D101: 20 strips of a triangle from 0 to 10 kN/m over 6 m, each at its middle: the reaction at the
// lower end is the sum of 10 (i + 0.5)/20 * 0.3 (1 - (i + 0.5)/20) = 60 (1/6 + 1/4800) kN.
TEST(CalcMember, PinnedBeamWithATriangularLoad)
{
    for (const bool rising : {true, false}) {
        Member s = Beam(0, 6);
        AddTrapezoid(s, 1, rising ? 0 : 10, rising ? 10 : 0, 0, 6);
        Analyse(s);
        EXPECT_NEAR(s.vzdiag[rising ? 0 : 50], rising ? 10.0125 : -10.0125, 1e-4);
        EXPECT_NEAR(s.vzdiag[rising ? 50 : 0], rising ? -19.9875 : 19.9875, 1e-4);
    }
}

TEST(CalcMember, WithoutLoadsEverythingIsZeroAndNothingFails)
{
    for (int supportcase = 0; supportcase < kSupportCases; ++supportcase) {
        Member s = Beam(supportcase);
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

// 10 kN/m on each row in turn: 10 36/8 = 45 kNm.
TEST(CalcMember, EveryRowOfUniformLoadsCounts)
{
    for (std::size_t row = 1; row <= 4; ++row) {
        Member s = Beam(0);
        s.qload[row] = 10;
        Analyse(s);
        EXPECT_FLOAT_EQ(s.mydiag[25], 45) << row;
        EXPECT_DOUBLE_EQ(s.qsum, 10) << row;
    }
}

TEST(CalcMember, LoadsInYBendAboutZ)
{
    Member s = Beam(0);
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
    Member s = Beam(0, 4);
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
    s.nchecked = {0, kTrue, kTrue, kTrue};
    Analyse(s);
    EXPECT_EQ(s.nchecked, (Rows<i16, 3>{0, kTrue, kTrue, kTrue}));
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
        ClearInvalidLoads(s, s, s.dropped);
        ProjectState given = Loaded(0);
        given.family = s.family;
        EXPECT_EQ(s, given) << family;
    }
}

TEST(CalcMember, ASectionWithoutStiffnessFails)
{
    for (const int missing : {0, 1, 2}) {
        Member s = Beam(0);
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
        Member s = Beam(0);
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
    s.loadcomb = kEq610ab;
    const auto nocontrol = [](ProjectState&) {};
    const std::size_t before = allocations;
    CalcMember(s, nocontrol);
    s.loadmode = 0;
    CalcMember(s, nocontrol);
    EXPECT_EQ(allocations, before);
}

}  // namespace
}  // namespace kestrum::test
