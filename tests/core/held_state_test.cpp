#include "core/held_state.h"

#include "core/project_state.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace kestrum {
namespace {

TEST(HeldState, TakesARecordAlsoAfterItWasMovedFrom)
{
    HeldState one;
    one->l = 7;
    const HeldState copy = one;
    HeldState other = std::move(one);
    EXPECT_TRUE(*other == *copy);
    const auto state = std::make_unique<ProjectState>(*copy);
    one = *state;
    EXPECT_TRUE(*one == *copy);
    one->l = 8;
    EXPECT_EQ(copy->l, 7);
    other = *one;  // into the place that it has
    EXPECT_EQ(other->l, 8);
    EXPECT_EQ(InputsOf(*other).l, 8);
}

}  // namespace
}  // namespace kestrum
