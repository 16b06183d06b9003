// Loads that were taken from their rows: noted once, named, and put back as they were.

#include "core/dropped_loads.h"

#include "core/project_state.h"

#include <gtest/gtest.h>

#include <memory>

namespace kestrum {
namespace {

class Dropped : public ::testing::Test {
protected:
    std::unique_ptr<ProjectState> s_ = std::make_unique<ProjectState>();
    DroppedLoads dropped_{};

    std::string Text(int place) const
    {
        return DroppedText(dropped_.load[static_cast<std::size_t>(place)]);
    }
};

TEST_F(Dropped, ARowIsNotedOnceAsItIsNow)
{
    s_->pm[2] = 10;
    s_->pmx[2] = 7;
    s_->pmdir[2] = 1;
    NoteDroppedPoint(*s_, dropped_, 2, DropReason::position);
    s_->pm[2] = 12.5;
    s_->pmtype[2] = 2;
    NoteDroppedPoint(*s_, dropped_, 2, DropReason::position);
    NoteDroppedPoint(*s_, dropped_, 3, DropReason::position);  // an empty row
    ASSERT_EQ(dropped_.count, 1);
    EXPECT_EQ(Text(0),
              "pm[2]: point force z 12.5 kN, x = 7 m (Q2), beyond the member or on a support");
}

TEST_F(Dropped, EachKindHasItsWords)
{
    s_->nload[1] = 3000;
    s_->qload[2] = 4;
    s_->qtype[2] = 1;
    s_->qt1[3] = 1;
    s_->qt2[3] = 2.5;
    s_->qtx2[3] = 6;
    s_->pm[8] = -3;
    s_->pmkind[8] = 1;
    s_->pmdir[8] = 1;
    s_->vz2 = 8;
    s_->my1 = 9;
    s_->ne = -7;
    NoteDroppedLoads(*s_, dropped_, true, true, true);
    NoteDroppedEndForces(*s_, dropped_, true, true, true);
    ASSERT_EQ(dropped_.count, 7);
    const std::string end = ", not taken by this section family";
    EXPECT_EQ(Text(0), "nload[1]: axial force 3000 kN (G)" + end);
    EXPECT_EQ(Text(1), "qload[2]: line load y 4 kN/m (Q1)" + end);
    EXPECT_EQ(Text(2), "qt1[3]: line load y 1 to 2.5 kN/m, x = 0 to 6 m (G)" + end);
    EXPECT_EQ(Text(3), "pm[8]: moment My -3 kNm, x = 0 m (G)" + end);
    EXPECT_EQ(Text(4), "ne: axial force -7 kN" + end);
    EXPECT_EQ(Text(5), "my1: moment My 9 kNm" + end);
    EXPECT_EQ(Text(6), "vz2: shear force z 8 kN" + end);
    EXPECT_EQ(DroppedUnit(dropped_.load[1]), "kN/m");
}

// A category that is none of the list, from an old file, has no name; the row keeps it.
TEST_F(Dropped, PuttingBackLeavesWhatIsNoneOfTheList)
{
    s_->nload[3] = 50;
    s_->ntype[3] = 7;
    s_->qt1[1] = 5;
    s_->qtdir[1] = 0;
    s_->qttype[1] = 2;
    s_->pm[1] = 6;
    s_->pmx[1] = 1.5;
    s_->mz2 = 11;
    const LoadInputs before = *s_;
    NoteDroppedLoads(*s_, dropped_, true, true, true);
    NoteDroppedEndForces(*s_, dropped_, true, true, true);
    ASSERT_EQ(dropped_.count, 4);
    EXPECT_EQ(Text(0), "nload[3]: axial force 50 kN, not taken by this section family");
    s_->nload[3] = s_->qt1[1] = s_->pm[1] = s_->pmx[1] = s_->mz2 = 0;
    s_->qttype[1] = 0;
    PutDroppedBack(*s_, dropped_);
    EXPECT_TRUE(static_cast<const LoadInputs&>(*s_) == before);
}

// Only sideways loads are refused: what acts in z stays.
TEST_F(Dropped, ADirectionThatIsTakenIsNotNoted)
{
    s_->qload[1] = s_->qload[2] = 3;
    s_->qdir[1] = 1;
    s_->vz1 = s_->vy1 = 2;
    NoteDroppedLoads(*s_, dropped_, false, false, true);
    NoteDroppedEndForces(*s_, dropped_, false, false, true);
    ASSERT_EQ(dropped_.count, 2);
    EXPECT_EQ(Text(0), "qload[2]: line load y 3 kN/m (G), not taken by this section family");
    EXPECT_EQ(Text(1), "vy1: shear force y 2 kN, not taken by this section family");
    s_->loadmode = 1;
    ASSERT_EQ(DroppedNow(*s_, dropped_).size(), 1U);
    EXPECT_EQ(DroppedNow(*s_, dropped_)[0].field, "qload");
    s_->loadmode = 2;
    EXPECT_EQ(DroppedNow(*s_, dropped_)[0].field, "vy1");
}

// Loads that the user changed since make the record void; an end force that stands again is no
// dropped one.
TEST_F(Dropped, TheRecordEndsWithTheLoadsThatItWasMadeOf)
{
    s_->qload[1] = 3;
    s_->vy1 = 2;
    NoteDroppedLoads(*s_, dropped_, true, true, true);
    NoteDroppedEndForces(*s_, dropped_, true, true, true);
    s_->qload[1] = s_->vy1 = 0;
    CloseDropped(*s_, dropped_);
    OpenDropped(*s_, dropped_);
    EXPECT_EQ(dropped_.count, 2);
    s_->vy1 = 2;
    CloseDropped(*s_, dropped_);
    OpenDropped(*s_, dropped_);
    ASSERT_EQ(dropped_.count, 1);
    EXPECT_EQ(dropped_.load[0].field, "qload");
    EXPECT_EQ(dropped_.load[1], DroppedLoad{});
    CloseDropped(*s_, dropped_);
    s_->qload[4] = 1;
    OpenDropped(*s_, dropped_);
    EXPECT_EQ(dropped_.count, 0);
    CloseDropped(*s_, dropped_);
    EXPECT_EQ(dropped_.table, 0U);
}

}  // namespace
}  // namespace kestrum
