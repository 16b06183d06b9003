#include "app/member_table.h"

#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/new_project.h"
#include "support/members.h"

#include <gtest/gtest.h>

namespace kestrum {
namespace {

// The delivered list with a grade above S460 in front of the user's own value.
const Library& WithHighStrength()
{
    static const Library kLibrary = [] {
        Library library = Delivered();
        library.materials.insert(library.materials.end() - 1, {"S690", 690, 650});
        return library;
    }();
    return kLibrary;
}

constexpr int kS355 = 2, kS690 = 26, kOwn = 27;

std::string Apply(ProjectState& s, const char* header, const char* line)
{
    MemberColumns columns;
    EXPECT_EQ(columns.TakeHeader(header), "");
    return columns.Apply(WithHighStrength(), s, line, Assignment::checked);
}

ProjectState Base(int fykindex, float fyk)
{
    ProjectState s{};
    StartUp(WithHighStrength(), s);
    s.fykindex = static_cast<i16>(fykindex);
    s.fyk = fyk;
    return s;
}

// EN 1993-1-5, 5.1 (2): eta is 1.2 up to S460 and 1.0 above; that of the line's own steel counts,
// whatever the base is made of.
TEST(MemberTable, TheShearAreaFactorIsThatOfTheGradeOfTheLine)
{
    ProjectState s = Base(kOwn, 690);
    EXPECT_EQ(Apply(s, "fykindex", "2"), "");
    EXPECT_EQ(s.fyk, 355);
    EXPECT_EQ(s.neta, 1.2f);

    s = Base(kS355, 355);
    EXPECT_EQ(Apply(s, "fykindex", "26"), "");
    EXPECT_EQ(s.fyk, 690);
    EXPECT_EQ(s.neta, 1.0f);

    s = Base(kS355, 355);
    EXPECT_EQ(ApplyJsonLine(WithHighStrength(), s, R"({"fykindex": 26})", Assignment::checked), "");
    EXPECT_EQ(s.fyk, 690);
    EXPECT_EQ(s.neta, 1.0f);
}

TEST(MemberTable, TheUsersStrengthStandsInEitherOrder)
{
    for (const auto& [header, line] :
         {std::pair("fyk,fykindex", "500,27"), std::pair("fykindex,fyk", "27,500")}) {
        ProjectState s = Base(kS355, 355);
        EXPECT_EQ(Apply(s, header, line), "");
        EXPECT_EQ(s.fyk, 500) << header;
        EXPECT_EQ(s.neta, 1.0f) << header;
    }
}

TEST(MemberTable, AStrengthBesideAGradeHasNoEffect)
{
    ProjectState s = Base(kS690, 690);
    EXPECT_EQ(Apply(s, "fyk", "300"), "");
    EXPECT_EQ(s.fyk, 690);
    EXPECT_EQ(s.neta, 1.0f);
}

// A force at 4 m does not stand on a member of 3 m; beam formulas continued beyond the end would
// give a moment of the other sign.
TEST(MemberTable, RefusesALineWhoseLoadsLieOffTheMember)
{
    ProjectState s = Base(kS355, 355);
    s.pm[1] = 10;
    s.pmx[1] = 4;
    EXPECT_EQ(Apply(s, "l", "3"), "pmx[1]: beyond the member");
    EXPECT_EQ(ApplyJsonLine(WithHighStrength(), s, R"({"l": 3})", Assignment::checked),
              "pmx[1]: beyond the member");
    EXPECT_EQ(Apply(s, "l,pmx[1]", "3,3"), "");
}

}  // namespace
}  // namespace kestrum
