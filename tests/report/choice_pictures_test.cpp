#include "core/project_state.h"
#include "report/choice_pictures.h"
#include "report/mode_shapes.h"

#include "report/drawing_checks.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <numbers>

namespace kestrum {
namespace {

TEST(ChoicePictures, AreInsideTheirExtent)
{
    std::vector<Drawing> all;
    for (int i = -1; i <= 6; ++i) {
        all.push_back(SupportPicture(i));
        all.push_back(BucklingPicture(i));
        all.push_back(LateralBucklingPicture(i));
        all.push_back(LateralRestraintPicture(i));
        all.push_back(VortexSupportPicture(i));
    }
    for (const Drawing& d : all) {
        EXPECT_TRUE(BoundsOf(d).Inside({0, 0, d.width, d.height})) << d.title;
    }
}

// Sagging at both ends turns them against each other; the shear forces of the inside point up on
// end 1 and down on end 2; compression points at the member from both sides.
TEST(EndForcePicture, ShowsThePositiveSigns)
{
    const Drawing d = EndForcePicture("My", "Vz");
    std::vector<std::string> texts;
    double up = 0, down = 0, inward = 0;
    for (const Mark& mark : d.marks) {
        if (const auto* const text = std::get_if<TextMark>(&mark)) {
            texts.push_back(text->text);
        }
        const auto* const line = std::get_if<LineMark>(&mark);
        if (line == nullptr || line->ink != Ink::load) {
            continue;
        }
        const bool left = line->from.x < d.width / 2;
        up += left && line->to.y < line->from.y;
        down += !left && line->to.y > line->from.y;
        inward += line->to.y == line->from.y &&
                  (left ? line->to.x > line->from.x : line->to.x < line->from.x);
    }
    EXPECT_EQ(up, 1);
    EXPECT_EQ(down, 1);
    EXPECT_EQ(inward, 2);
    EXPECT_THAT(texts, ::testing::UnorderedElementsAre("My1", "My2", "Vz1", "Vz2", "N", "N"));
}

TEST(BucklingPicture, TellsTheLengthFactor)
{
    const char* const factors[] = {"2.0", "1.0", "0.7", "0.5", "0"};
    for (int choice = 1; choice <= 5; ++choice) {
        EXPECT_TRUE(HasText(BucklingPicture(choice), factors[choice - 1])) << choice;
    }
}

// The ends of each case, the largest ordinate, and by Euler's cases how the shape leaves its foot.
TEST(BuckledShape, FulfilsTheSupports)
{
    constexpr double kStep = 1e-6;
    for (int choice = 1; choice <= 4; ++choice) {
        EXPECT_NEAR(BuckledShape(choice, 0), 0, 1e-9);
        EXPECT_NEAR(BuckledShape(choice, 1), choice == 1 ? 1 : 0, 1e-5);
        const double slope = BuckledShape(choice, kStep) / kStep;
        EXPECT_NEAR(slope, choice == 2 ? std::numbers::pi : 0, 1e-4);
        double most = 0;
        for (int i = 0; i <= 1000; ++i) {
            most = std::max(most, BuckledShape(choice, i / 1000.0));
        }
        EXPECT_NEAR(most, 1, 1e-5);
    }
    EXPECT_EQ(BuckledShape(5, 0.5), 0);
}

int ZerosInside(int supportcase, int mode)
{
    int zeros = 0;
    for (int i = 2; i < 998; ++i) {
        const double a = ModeShape(supportcase, mode, i / 1000.0);
        const double b = ModeShape(supportcase, mode, (i + 1) / 1000.0);
        zeros += (a > 0) != (b > 0);
    }
    return zeros;
}

// Mode n of a beam has n - 1 nodes between its ends.
TEST(ModeShape, HasOneNodeMoreEachModeAndFulfilsTheSupports)
{
    for (const int supportcase : {0, 1, 2, 4}) {
        for (int mode = 1; mode <= 3; ++mode) {
            EXPECT_EQ(ZerosInside(supportcase, mode), mode - 1) << supportcase << " " << mode;
            EXPECT_NEAR(ModeShape(supportcase, mode, 0), 0, 1e-4);
            if (supportcase != 4) {
                EXPECT_NEAR(ModeShape(supportcase, mode, 1), 0, 1e-4);
            } else {
                EXPECT_NEAR(std::abs(ModeShape(4, mode, 1)), 1, 1e-9);  // the free end
            }
        }
    }
    EXPECT_EQ(ModeShape(3, 1, 0.5), 0);
    EXPECT_EQ(ModeShape(0, 4, 0.5), 0);
}

// Pinned at x = 0, fixed at x = 1: flat at the fixed end only.
TEST(ModeShape, OfPinnedAndFixedEndsIsFixedAtTheFarEnd)
{
    EXPECT_GT(std::abs(ModeShape(1, 1, 0.01)), 0.02);
    EXPECT_LT(std::abs(ModeShape(1, 1, 0.99)), 0.002);
}

// A pinned beam swings in n half waves.
TEST(DrawModeShape, DrawsTheWavesOfItsModeBetweenTheSupports)
{
    const ProjectState s{};
    for (int mode = 1; mode <= 3; ++mode) {
        const Drawing d = DrawModeShape(s, mode);
        EXPECT_TRUE(BoundsOf(d).Inside({0, 0, d.width, d.height})) << "mode " << mode;
        // Beside the signs of the supports, the last line drawn.
        const std::vector<PolylineMark> lines = MarksOf<PolylineMark>(d);
        ASSERT_FALSE(lines.empty()) << "mode " << mode;
        const std::vector<Point>& curve = lines.back().points;
        const double axis = d.height / 2;
        EXPECT_NEAR(curve.front().y, axis, 1e-9);
        EXPECT_NEAR(curve.back().y, axis, 1e-9);
        // The crest of the first half wave, upwards, at 1/(2n) of the length.
        const double crest = curve.front().x + (curve.back().x - curve.front().x) / (2.0 * mode);
        double highest = axis;
        for (const Point& p : curve) {
            highest = std::min(highest, p.y);
        }
        const auto at = std::find_if(curve.begin(), curve.end(),
                                     [&](const Point& p) { return p.x >= crest - 1e-9; });
        EXPECT_NEAR(at->y, highest, 1e-9) << "mode " << mode;
        EXPECT_LT(highest, axis - 5);
    }
}

}  // namespace
}  // namespace kestrum
