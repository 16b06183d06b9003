// What the standard basis does not check is said with the result, where it is so and nowhere else.

#include "core/annexes.h"
#include "standard/cases.h"
#include "standard/standard_member.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

std::vector<std::string> OutsideOf(const ProjectState& s)
{
    const auto result = Rated(s);
    EXPECT_TRUE(result.rated);
    return result.outside;
}

// 3 m of S235, typed, under its own small load.
Member Beam(int family, float n = 0, float q = 1)
{
    Member s = Unloaded(3, 235).Family(family);
    s.nload[1] = n;
    s.qload[1] = q;
    s.hsqopt = 1;
    return s;
}

TEST(Outside, NothingOfAnIBeam)
{
    Member s = Beam(1);
    s.ltb = 1;
    s.hsqopt = 0;  // of hat beams
    EXPECT_THAT(OutsideOf(s), IsEmpty());
}

constexpr auto kUnknownWeb = "shear buckling of a general profile";
constexpr auto kListed = "general profile with a listed grade";

// The thickness of a general profile is not entered: of a listed grade the strength up to 40 mm.
TEST(Outside, OfGeneralProfiles)
{
    Member s = Beam(41);
    EXPECT_THAT(OutsideOf(s), ElementsAre(StartsWith(kUnknownWeb)));
    s.fykindex = 0;
    EXPECT_THAT(OutsideOf(s), ElementsAre(StartsWith(kUnknownWeb), StartsWith(kListed)));
}

TEST(Outside, LateralBucklingOfATeeThatBends)
{
    EXPECT_THAT(OutsideOf(Beam(26)), ElementsAre(StartsWith("lateral torsional buckling of T")));
    EXPECT_THAT(OutsideOf(Beam(26, 5, 0)), IsEmpty());
}

TEST(Outside, BearingOnTheFlangeOfAHatBeam)
{
    Member s = Beam(24);
    EXPECT_THAT(OutsideOf(s), IsEmpty());
    s.hsqopt = 0;
    EXPECT_THAT(OutsideOf(s), ElementsAre(StartsWith("the load on the flange acts 60 mm")));
}

TEST(Outside, RestraintsOfAnAngleThatBends)
{
    EXPECT_THAT(OutsideOf(Beam(10)), ElementsAre(StartsWith("lateral torsional buckling of an "
                                                            "angle")));
    EXPECT_THAT(OutsideOf(Beam(10, 5, 0)), IsEmpty());
}

// Of hat beams and stiffened plates alike.
TEST(Outside, PrincipalAxesOfOneSidedFlanges)
{
    for (const int family : {25, 52, 53, 54}) {
        EXPECT_THAT(OutsideOf(Beam(family)), ElementsAre(StartsWith("one-sided flange"))) << family;
    }
    EXPECT_THAT(OutsideOf(Beam(56)), IsEmpty());
}

TEST(Outside, TrippingOfStiffenedPlates)
{
    Member s = Beam(56);
    s.ltb = 1;
    EXPECT_THAT(OutsideOf(s), ElementsAre(StartsWith("lateral torsional buckling of a stiffened "
                                                     "plate")));
}

// Webs of 500/5 buckle under N; left out by the user in flanges, in webs or not at all. Webs of
// 500/20 do not.
TEST(Outside, BucklingOfPlatesThatTheProjectLeavesOut)
{
    for (const float web : {5.0F, 20.0F}) {
        for (const bool flanges : {false, true}) {
            for (const bool webs : {false, true}) {
                Member s = Beam(21, 5).Section(FormP21{540, 200, web, 20});
                s.checkflangebuck = flanges ? kTrue : kFalse;
                s.checkwebbuck = webs ? kTrue : kFalse;
                const bool said = web < 10 && (flanges || webs);
                EXPECT_EQ(OutsideOf(s).size(), said ? 1U : 0U) << web << flanges << webs;
            }
        }
    }
}

// HEA 200 has flanges of 10 mm, HEB 300 of 19: beyond 16 mm, a listed grade, the British annex.
TEST(Outside, StrengthsByProductStandard)
{
    const auto said = [](int annex, std::string_view section, bool listed) {
        Member s = Beam(1).Section(section);
        s.annexindex = static_cast<i16>(annex);
        if (listed) {
            s.fykindex = 0;
        }
        const auto outside = OutsideOf(s);
        EXPECT_TRUE(outside.empty() || outside[0].starts_with("strengths by product standard"));
        return !outside.empty();
    };
    EXPECT_TRUE(said(kAnnexUk, "HEB 300", true));
    EXPECT_FALSE(said(kAnnexUk, "HEB 300", false));
    EXPECT_FALSE(said(kAnnexUk, "HEA 200", true));
    EXPECT_FALSE(said(0, "HEB 300", true));
}

// EN 1993-1-1, Table 3.1: grades MH and MLH of EN 10219 are hollow sections, up to 40 mm.
TEST(NoResult, MhGradesEndAtFortyMillimetres)
{
    const auto& grades = Delivered().materials;
    const auto grade = std::find_if(grades.begin(), grades.end(),
                                    [](const auto& each) { return each.name == "S355 MH/MLH"; });
    ASSERT_NE(grade, grades.end());
    const auto reason = [&](double thick) {
        Member s = Unloaded(3, 355).Section(FormP23{
            .isth = 600, .istb1 = 600, .isttw = 20, .isttf = static_cast<float>(thick), .ista = 0});
        s.fykindex = static_cast<i16>(grade - grades.begin());
        s.nload[1] = 100;
        return Rated(s).outside;
    };
    EXPECT_THAT(reason(40), testing::Not(testing::Contains(StartsWith("MH and MLH grades"))));
    EXPECT_THAT(reason(41), testing::Contains("MH and MLH grades above 40 mm: EN 1993-1-1, Table "
                                              "3.1 has no strength"));
}

// Without the profile tables a rolled section has no properties; the input names no fault of its
// own.
TEST(NoResult, OfASectionThatNoTableHas)
{
    Member s = Unloaded(3, 235).Section("IPE 300").Load(5);
    ASSERT_TRUE(Rated(s).rated);
    Library library = Delivered();
    library.tables = {};
    const auto result = standard::CalculateStandard(library, s);
    EXPECT_FALSE(result.rated);
    EXPECT_FALSE(result.outside.empty());
    EXPECT_FALSE(standard::SectionUtilisation(library, s));
}

}  // namespace
}  // namespace kestrum
