// Two records are the same where every one of their fields is: undo, unsaved work and the caches of
// the pages ask for nothing else.

#include "core/project_state.h"

#include "core/field_table.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace kestrum {
namespace {

// Another value in the field, and back.
template <class T> void Exchange(void* at, const T& other, const std::function<void()>& between)
{
    T& value = *static_cast<T*>(at);
    const T before = value;
    value = other;
    between();
    value = before;
}

void ExchangeAny(const Field& field, ProjectState& s, int index,
                 const std::function<void()>& between)
{
    void* const at = field.locate(s, index);
    switch (field.kind) {
    case FieldKind::single:
        return Exchange<float>(at, 7, between);
    case FieldKind::real:
        return Exchange<double>(at, 7, between);
    case FieldKind::integer:
        return Exchange<i16>(at, 7, between);
    case FieldKind::truth:
        return Exchange<bool>(at, true, between);
    case FieldKind::text:
        return Exchange<std::string>(at, "other", between);
    case FieldKind::literal:
        return Exchange<Literal>(at, Literal("other"), between);
    }
}

TEST(ProjectStates, DifferInEveryField)
{
    const ProjectState same{};
    ProjectState s{};
    for (const Field& field : AllFields()) {
        for (int index = field.first; index <= field.last; ++index) {
            ExchangeAny(field, s, index,
                        [&] { EXPECT_FALSE(s == same) << IndexedName(field, index); });
            EXPECT_TRUE(s == same) << IndexedName(field, index);
        }
    }
}

// What no field tells of: how the pass ended, which checks it made, the loads that it dropped.
template <class T> void ExpectDiffer(const std::vector<std::function<void(T&)>>& changes)
{
    const T same{};
    for (std::size_t i = 0; i < changes.size(); ++i) {
        T other{};
        EXPECT_TRUE(other == same);
        changes[i](other);
        EXPECT_FALSE(other == same) << i;
    }
}

TEST(ProjectStates, DifferInTheWayThePassEnded)
{
    ExpectDiffer<Failure>(
        {[](Failure& f) { f.stage = Stage::forces; }, [](Failure& f) { f.cause = Cause::overflow; },
         [](Failure& f) { f.quantity = "hw"; }, [](Failure& f) { f.row = 0; },
         [](Failure& f) { f.value = 1; }, [](Failure& f) { f.limit = 1; },
         [](Failure& f) { f.unit = "kN"; }, [](Failure& f) { f.allowed = "0 to 5"; }});
    ExpectDiffer<ProjectState>({[](ProjectState& s) { s.failure.row = 0; },
                                [](ProjectState& s) { s.acting.emplace(); },
                                [](ProjectState& s) { s.checklist.checks[1].ratio = 1; },
                                [](ProjectState& s) { s.checklist.governing[7] = CheckId{1}; },
                                [](ProjectState& s) { s.dropped.load[27].row = 1; }});
}

TEST(ProjectStates, DifferInEveryPartOfACheck)
{
    ExpectDiffer<Check>({[](Check& c) { c.form = CheckForm{1}; },
                         [](Check& c) { c.shear_z = true; }, [](Check& c) { c.shear_y = true; },
                         [](Check& c) { c.status = kAbove; }, [](Check& c) { c.limit = 2; },
                         [](Check& c) { c.place.number = 1; }, [](Check& c) { c.ratio = 1; },
                         [](Check& c) { c.terms[8] = 1; }, [](Check& c) { c.note = "A"; }});
    ExpectDiffer<CheckPlace>({[](CheckPlace& p) { p.kind = CheckPlace::Kind::segment; },
                              [](CheckPlace& p) { p.number = 1; },
                              [](CheckPlace& p) { p.parts = 1; }, [](CheckPlace& p) { p.x = 1; }});
}

TEST(ProjectStates, DifferInEveryPartOfADroppedLoad)
{
    ExpectDiffer<DroppedLoad>(
        {[](DroppedLoad& l) { l.field = "nload"; }, [](DroppedLoad& l) { l.row = 1; },
         [](DroppedLoad& l) { l.reason = DropReason::position; },
         [](DroppedLoad& l) { l.value = 1; }, [](DroppedLoad& l) { l.value2 = 1; },
         [](DroppedLoad& l) { l.x1 = 1; }, [](DroppedLoad& l) { l.x2 = 1; },
         [](DroppedLoad& l) { l.category = 0; }, [](DroppedLoad& l) { l.direction = 0; },
         [](DroppedLoad& l) { l.moment = true; }});
    ExpectDiffer<DroppedLoads>({[](DroppedLoads& d) { d.load[0].row = 1; },
                                [](DroppedLoads& d) { d.count = 1; },
                                [](DroppedLoads& d) { d.table = 1; }});
}

}  // namespace
}  // namespace kestrum
