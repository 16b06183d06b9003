// Properties of a whole pass: it allocates nothing, and it gives the same whatever was calculated
// before.

#include "core/annexes.h"
#include "core/load_combination.h"
#include "core/project_file.h"
#include "core/project_state.h"
#include "sections/families.h"
#include "support/members.h"
#include "support/rows.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <initializer_list>
#include <new>
#include <string>

namespace {

std::size_t allocations = 0;

}  // namespace

[[gnu::noinline]] void* operator new(std::size_t size)
{
    ++allocations;
    if (void* const block = std::malloc(size)) {
        return block;
    }
    throw std::bad_alloc();
}

// The buffers of stable sorts.
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    ++allocations;
    return std::malloc(size);
}

[[gnu::noinline]] void operator delete(void* block) noexcept
{
    std::free(block);
}

[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

namespace kestrum {
namespace {

Member Loaded(i16 family)
{
    Member s = Member().Family(family).Length(3).Axial(1).Load(1);
    s.loadcomb = 3;
    s.checksls = kTrue;
    s.selfweight = 1;
    s.modal = 1;
    s.ne = 1;
    s.my1 = 1;
    s.vz1 = 0;
    s.qload[2] = 0.5f;
    s.qdir[2] = 0;
    s.pm[1] = 2;
    s.pmx[1] = 1;
    s.qt1[1] = 1;
    s.qt2[1] = 2;
    s.qtx1[1] = 0.5f;
    s.qtx2[1] = 2;
    s.checkconsercontrol = family == 28 ? kTrue : kFalse;
    return s;
}

TEST(Pass, AllocatesNothing)
{
    for (const int family : FamilyNumbers()) {
        for (const i16 method : std::initializer_list<i16>{1, 2}) {
            for (const i16 loadmode : std::initializer_list<i16>{0, 1}) {
                Member s = Loaded(static_cast<i16>(family));
                s.method = method;
                s.loadmode = loadmode;
                const std::size_t before = allocations;
                const bool well = Calculate(Delivered(), s);
                EXPECT_EQ(allocations, before) << "family " << family << " method " << method;
                EXPECT_TRUE(well) << "family " << family << " method " << method << " loadmode "
                                  << loadmode;
            }
        }
    }
}

// Opens a project in a record that holds the results of another. Three things are carried over on
// purpose and taken out here: the lateral torsional buckling length (deviation D228), the curve of
// the British channels (deviation D205), and the load rows, which a file of given end forces does
// not hold and whose places and mass still count.
void Open(ProjectState& s, const std::string& file)
{
    const ProjectState start = Member();
    s.pmx = start.pmx;
    s.qload = start.qload;
    ASSERT_FALSE(ReadProject(s, file));
    s.lt = 0;
    s.curvey = {};
    s.curvez = {};
    s.alphay = 0;
    s.alphaz = 0;
}

void ExpectSame(const ProjectState& s, const ProjectState& fresh)
{
    EXPECT_EQ(s.errorflag, fresh.errorflag);
    for (const auto& rows : {std::span(kSectionRows), std::span(kBucklingRows)}) {
        for (const ResultRow row : rows) {
            EXPECT_EQ(s.checklist.row(row), fresh.checklist.row(row));
        }
    }
    EXPECT_EQ(s.irsection, fresh.irsection);
    EXPECT_EQ(s.maxirbuckling, fresh.maxirbuckling);
    EXPECT_EQ(s.mydiag, fresh.mydiag);
    EXPECT_EQ(s.mzdiag, fresh.mzdiag);
    EXPECT_EQ(s.vzdiag, fresh.vzdiag);
    EXPECT_EQ(s.vydiag, fresh.vydiag);
    EXPECT_EQ(s.xi, fresh.xi);
    EXPECT_EQ(s.ned, fresh.ned);
    EXPECT_EQ(s.fyk, fresh.fyk);
    EXPECT_EQ(s.aeff, fresh.aeff);
    EXPECT_EQ(s.weffy, fresh.weffy);
    EXPECT_EQ(s.classn, fresh.classn);
    EXPECT_EQ(s.classmy, fresh.classmy);
    EXPECT_EQ(s.classmz, fresh.classmz);
    EXPECT_EQ(s.ncrd, fresh.ncrd);
    EXPECT_EQ(s.myrd, fresh.myrd);
    EXPECT_EQ(s.mzrd, fresh.mzrd);
    EXPECT_EQ(s.myrdm1, fresh.myrdm1);
    EXPECT_EQ(s.vzrd, fresh.vzrd);
    EXPECT_EQ(s.vbrd, fresh.vbrd);
    EXPECT_EQ(s.vcyrd, fresh.vcyrd);
    EXPECT_EQ(s.freq, fresh.freq);
    if (fresh.loadmode == 1) {  // given end forces keep the deflections of the last loaded member
        EXPECT_EQ(DeflectionZ(s), DeflectionZ(fresh));
        EXPECT_EQ(DeflectionY(s), DeflectionY(fresh));
        EXPECT_EQ(s.dzdiag, fresh.dzdiag);
        EXPECT_EQ(s.dydiag, fresh.dydiag);
        EXPECT_EQ(s.governing, fresh.governing);
    }
}

// Every pair of families, the first one with the other method, load mode and annex.
TEST(Pass, GivesTheSameAfterAnyOtherProject)
{
    for (const int second : FamilyNumbers()) {
        for (const i16 method : std::initializer_list<i16>{1, 2}) {
            for (const i16 loadmode : std::initializer_list<i16>{0, 1}) {
                Member inputs = Loaded(static_cast<i16>(second));
                inputs.method = method;
                inputs.loadmode = loadmode;
                const std::string file = WriteProject(inputs);
                Member fresh;
                Open(fresh, file);
                ASSERT_TRUE(EndsWell(fresh));
                for (const int first : FamilyNumbers()) {
                    SCOPED_TRACE(std::to_string(second) + " after " + std::to_string(first) +
                                 ", method " + std::to_string(method) + ", load mode " +
                                 std::to_string(loadmode));
                    Member s = Loaded(static_cast<i16>(first));
                    s.method = static_cast<i16>(3 - method);
                    s.loadmode = static_cast<i16>(1 - loadmode);
                    s.annexcode = "DK";
                    s.annexindex = AnnexIndexFromCode(s.annexcode);
                    ApplyAnnexMaterial(s, s.annexindex);
                    ApplyAnnexLoads(s, s, s.annexindex);
                    ASSERT_TRUE(EndsWell(s));
                    Open(s, file);
                    ASSERT_TRUE(EndsWell(s));
                    ExpectSame(s, fresh);
                }
            }
        }
    }
}

}  // namespace
}  // namespace kestrum
