// Properties of a whole pass: it allocates nothing, and it gives the same whatever was calculated
// before.

#include "core/field_table.h"
#include "engine/engine_fixture.h"
#include "engine/family_routines.h"

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

template <class T> void Copy(const Field& field, int index, ProjectState& from, ProjectState& to)
{
    *static_cast<T*>(field.locate(to, index)) = *static_cast<T*>(field.locate(from, index));
}

ProjectState Loaded(i16 family)
{
    ProjectState s = Fresh();
    s.family = family;
    s.l = 3;
    s.loadcomb = 3;
    s.checksls = kTrue;
    s.selfweight = 1;
    s.modal = 1;
    s.nload[1] = 1;
    s.ne = 1;
    s.my1 = 1;
    s.vz1 = 0;
    s.qload[1] = 1;
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
    for (const FamilyRoutines& routines : AllRoutines()) {
        for (const i16 method : std::initializer_list<i16>{1, 2}) {
            for (const i16 loadmode : std::initializer_list<i16>{0, 1}) {
                ProjectState s = Loaded(static_cast<i16>(routines.family));
                s.method = method;
                s.loadmode = loadmode;
                const std::size_t before = allocations;
                const bool well = Calculate(Delivered(), s);
                EXPECT_EQ(allocations, before)
                    << "family " << routines.family << " method " << method;
                EXPECT_TRUE(well) << "family " << routines.family << " method " << method
                                  << " loadmode " << loadmode;
            }
        }
    }
}

// Puts the inputs of a project into a record that holds the results of another, as opening a file
// does. Two things are carried over on purpose and taken out here: the lateral torsional buckling
// length, and the curve of the British channels (deviation D205).
void Open(ProjectState& s, ProjectState inputs)
{
    for (const Field& field : AllFields()) {
        if (field.role != FieldRole::input) {
            continue;
        }
        for (int i = field.first; i <= field.last; ++i) {
            if (field.kind == FieldKind::single) {
                Copy<float>(field, i, inputs, s);
            } else if (field.kind == FieldKind::real) {
                Copy<double>(field, i, inputs, s);
            } else if (field.kind == FieldKind::integer) {
                Copy<i16>(field, i, inputs, s);
            } else {
                Copy<std::string>(field, i, inputs, s);
            }
        }
    }
    s.lt = 0;
    s.curvey = {};
    s.curvez = {};
    s.alphay = 0;
    s.alphaz = 0;
}

// A row that is empty shows nothing, whatever colour is left in it.
bool Same(const ResultRow& a, const ResultRow& b)
{
    return a == b || (a.empty() && b.empty());
}

TEST(Pass, GivesTheSameAfterAnyOtherProject)
{
    for (const FamilyRoutines& second : AllRoutines()) {
        const ProjectState inputs = Loaded(static_cast<i16>(second.family));
        ProjectState fresh = inputs;
        ASSERT_TRUE(EndsWell(fresh));
        for (const FamilyRoutines& first : AllRoutines()) {
            SCOPED_TRACE(std::to_string(second.family) + " after " + std::to_string(first.family));
            ProjectState s = Loaded(static_cast<i16>(first.family));
            ASSERT_TRUE(EndsWell(s));
            Open(s, inputs);
            ASSERT_TRUE(EndsWell(s));
            EXPECT_EQ(s.secline, fresh.secline);
            EXPECT_EQ(s.yline, fresh.yline);
            EXPECT_EQ(s.zline, fresh.zline);
            EXPECT_EQ(s.ltline, fresh.ltline);
            EXPECT_TRUE(Same(s.deflinez, fresh.deflinez));
            EXPECT_TRUE(Same(s.defliney, fresh.defliney));
            EXPECT_EQ(s.irsection, fresh.irsection);
            EXPECT_EQ(s.maxirbuckling, fresh.maxirbuckling);
            EXPECT_EQ(s.governing, fresh.governing);
            EXPECT_EQ(s.mydiag, fresh.mydiag);
            EXPECT_EQ(s.mzdiag, fresh.mzdiag);
            EXPECT_EQ(s.dzdiag, fresh.dzdiag);
            EXPECT_EQ(s.ncrd, fresh.ncrd);
            EXPECT_EQ(s.myrd, fresh.myrd);
            EXPECT_EQ(s.vbrd, fresh.vbrd);
            EXPECT_EQ(s.freq, fresh.freq);
        }
    }
}

}  // namespace
}  // namespace kestrum
