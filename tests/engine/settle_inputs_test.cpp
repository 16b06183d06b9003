#include "engine/settle_inputs.h"

#include "support/members.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace kestrum {
namespace {

// Every row of loads filled, in y or in z.
Member Loaded(int family, int direction)
{
    Member s = Member::Bare(family);
    s.nload.fill(5);
    s.nchecked.fill(kTrue);
    s.qload.fill(5);
    s.qdir.fill(static_cast<i16>(direction));
    s.qt1.fill(5);
    s.qt2.fill(6);
    s.qtx2.fill(2);
    s.qtdir.fill(static_cast<float>(direction));
    s.pm.fill(5);
    s.pmx.fill(1);
    s.pmdir.fill(static_cast<i16>(direction));
    return s;
}

// D106: a hat beam is bent about y only.
TEST(SettleInputs, SectionsBentAboutYLoseEveryRowInYD106)
{
    for (const int direction : {0, 1}) {
        Member s = Loaded(24, direction);
        ClearInvalidLoads(s, s, s.dropped);
        const float left = direction == 0 ? 0 : 5;
        for (std::size_t k = 1; k <= 8; ++k) {
            EXPECT_EQ(s.pm[k], left) << k;
            EXPECT_EQ(s.pmdir[k], 1) << k;
            EXPECT_TRUE(k > 4 || (s.qload[k] == left && s.qdir[k] == 1)) << k;
            EXPECT_TRUE(k > 3 || (s.qt1[k] == left && s.qtdir[k] == 1)) << k;
        }
        EXPECT_EQ(s.qload[0], 5);  // the self-weight
    }
}

// A T keeps its axial rows with their ticks, and the self-weight.
TEST(SettleInputs, TSectionsLoseEveryTransverseRowD106)
{
    Member s = Loaded(26, 1);
    ClearInvalidLoads(s, s, s.dropped);
    for (std::size_t k = 1; k <= 8; ++k) {
        EXPECT_EQ(s.pm[k], 0) << k;
        EXPECT_TRUE(k > 4 || s.qload[k] == 0) << k;
        EXPECT_TRUE(k > 3 || (s.qt1[k] == 0 && s.nload[k] == 5 && s.nchecked[k] == kTrue)) << k;
    }
    EXPECT_EQ(s.qload[0], 5);
}

}  // namespace
}  // namespace kestrum
