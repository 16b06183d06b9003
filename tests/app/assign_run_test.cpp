#include "app/assign_run.h"

#include "app/consequences.h"
#include "app/member_commands.h"
#include "app/session_fixture.h"
#include "core/project_state.h"
#include "support/members.h"

#include <functional>
#include <string>

namespace kestrum {
namespace {

// Sets fields parted by blanks as one run.
Refused SetAll(ProjectState& s, const std::string& lines, Assignment how = Assignment::checked)
{
    AssignRun run(Delivered(), s, how);
    std::istringstream stream(lines);
    for (std::string word; stream >> word;) {
        const std::size_t equals = word.find('=');
        AssignTarget target;
        EXPECT_EQ(FindTarget(word.substr(0, equals), target), "") << word;
        const std::string refusal = run.Assign(target, word.substr(equals + 1));
        if (!refusal.empty()) {
            return {word.substr(0, equals), word.substr(equals + 1), refusal};
        }
    }
    return run.Finish();
}

std::string Told(const Refused& refused)
{
    return refused.name + (refused.name.empty() ? "" : ":") + refused.what;
}

ProjectState After(const std::string& before, const std::string& lines)
{
    ProjectState s = Member(before);
    EXPECT_EQ(Told(SetAll(s, lines)), "") << lines;
    return s;
}

// The inputs that choices of the member change.
std::string Choices(const ProjectState& s)
{
    std::string text;
    for (const char* name :
         {"supportcase", "bucklingcasey", "ly", "bucklingcasez", "lz", "ltb", "ltbcase", "ltbk",
          "restraints", "webstiff", "webstiffa", "endstiff"}) {
        text += std::string(name) + "=" + std::to_string(NumberOf(s, *FindField(name))) + " ";
    }
    return text;
}

struct Made {
    const char* assignment;
    std::function<void(Session&)> made;
};

// Each choice alone, by name and in the window, from projects that differ from the default one in
// all fields that go with choices.
TEST(AssignRun, LeavesWhatTheWindowLeaves)
{
    const Made choices[] = {
        {"supportcase=4", [](Session& s) { ChooseSupport(s, 4); }},
        {"supportcase=2", [](Session& s) { ChooseSupport(s, 2); }},
        {"bucklingcasey=1", [](Session& s) { ChooseBucklingCase(s, Axis::y, 1); }},
        {"bucklingcasey=4", [](Session& s) { ChooseBucklingCase(s, Axis::y, 4); }},
        {"bucklingcasez=3", [](Session& s) { ChooseBucklingCase(s, Axis::z, 3); }},
        {"bucklingcasez=5", [](Session& s) { ChooseBucklingCase(s, Axis::z, 5); }},
        {"ltb=0", [](Session& s) { TickLateralBuckling(s, false); }},
        {"ltb=1", [](Session& s) { TickLateralBuckling(s, true); }},
        {"ltb=1 ltbcase=4",
         [](Session& s) {
             TickLateralBuckling(s, true);
             ChooseLateralCase(s, 4);
         }},
        {"webstiff=0", [](Session& s) { ChooseWebStiffeners(s, 0); }},
        {"webstiff=1", [](Session& s) { ChooseWebStiffeners(s, 1); }},
    };
    for (const char* project :
         {"supportcase=1", "bucklingcasey=3 ly=0.7 bucklingcasez=1 lz=2 restraints=2",
          "bucklingcasey=5 ly=0.9 bucklingcasez=4 lz=0.5 ltb=0 ltbk=0.001",
          "webstiffa=800 ltbcase=3 ltbk=0.7"}) {
        for (const Made& choice : choices) {
            Program program;
            program.session.edit() = Member(project);
            choice.made(program.session);
            EXPECT_EQ(Choices(After(project, choice.assignment)), Choices(program.state()))
                << project << ": " << choice.assignment;
        }
    }
}

// A member whose lateral torsional buckling was switched off has the length factor 0.001; left
// there when it is switched on, the control would find no buckling.
TEST(AssignRun, LateralBucklingSwitchedOnHasItsLengthAgain)
{
    EXPECT_FLOAT_EQ(After("ltb=0 ltbk=0.001", "ltb=1").ltbk, 1.0F);
    EXPECT_FLOAT_EQ(After("ltb=1 ltbk=0.001", "ltb=1").ltbk, 1.0F);  // as older files may have it
    EXPECT_FLOAT_EQ(After("ltb=1 ltbk=0.9", "ltb=1").ltbk, 0.9F);    // nothing new
}

TEST(AssignRun, FieldsOfTheRunStandInAnyOrder)
{
    for (const char* lines : {"ltb=0 ltbk=0.8 restraints=3", "ltbk=0.8 restraints=3 ltb=0"}) {
        const ProjectState s = After("", lines);
        EXPECT_FLOAT_EQ(s.ltbk, 0.8F) << lines;
        EXPECT_EQ(s.restraints, 3) << lines;
    }
    for (const char* lines :
         {"supportcase=4 bucklingcasey=1 lz=1.8", "lz=1.8 bucklingcasey=1 supportcase=4"}) {
        const ProjectState s = After("", lines);
        EXPECT_EQ(s.bucklingcasey, 1) << lines;
        EXPECT_EQ(s.ly, 2.0F) << lines;
        EXPECT_EQ(s.bucklingcasez, 5) << lines;  // an own factor
        EXPECT_EQ(s.lz, 1.8F) << lines;
    }
    for (const char* lines :
         {"webstiff=1 endstiff=0 webstiffa=900", "webstiffa=900 endstiff=0 webstiff=1"}) {
        const ProjectState s = After("", lines);
        EXPECT_EQ(s.endstiff, 0) << lines;
        EXPECT_EQ(s.webstiffa, 900) << lines;
    }
    EXPECT_EQ(After("", "bucklingcasey=1 ly=0.9").bucklingcasey, 1);  // both as they are given
}

TEST(AssignRun, AnOwnFactorIsThatOfACaseWhereOneHasIt)
{
    EXPECT_EQ(After("bucklingcasey=4 ly=0.5", "ly=0.5").bucklingcasey, 4);
    EXPECT_EQ(After("bucklingcasey=4 ly=0.5", "ly=0.6").bucklingcasey, 5);
    EXPECT_EQ(After("bucklingcasey=5 ly=0.9", "ly=0.6").bucklingcasey, 5);
}

// Chosen again with a factor of its own, the case does not switch buckling off.
TEST(AssignRun, TheSameCaseKeepsItsOwnFactor)
{
    EXPECT_EQ(After("bucklingcasey=5 ly=0.9", "bucklingcasey=5").ly, 0.9F);
    EXPECT_EQ(After("supportcase=4 bucklingcasey=1 ly=2", "supportcase=4").ly, 2.0F);
    EXPECT_EQ(After("webstiff=1 endstiff=0", "webstiff=1").endstiff, 0);
}

TEST(AssignRun, RawValuesBringNothingAlong)
{
    ProjectState s = Member();
    EXPECT_EQ(SetAll(s, "ltb=0 bucklingcasey=1 supportcase=3 webstiff=1", Assignment::raw).what,
              "");
    EXPECT_EQ(s.ltbk, 1.0F);
    EXPECT_EQ(s.ly, 1.0F);
    EXPECT_EQ(s.endstiff, 0);
}

// The default member is 5 m long, its hat beam 25 has b1 300 below b2 430 less c 15.
TEST(AssignRun, ValuesWaitForTheFieldsTheyDependOn)
{
    ProjectState s = After("", "pmx[1]=9 cp[2]=8 webstiffa=7000 l=10 p25.istb1=500 p25.istb2=700");
    EXPECT_EQ(s.pmx[1], 9);
    EXPECT_EQ(s.cp[2], 8);
    EXPECT_EQ(s.webstiffa, 7000);
    EXPECT_EQ(s.p25.istb1, 500);

    s = Member();
    EXPECT_EQ(Told(SetAll(s, "pmx[1]=9 l=8")), "pmx[1]: 0 < x <= l (9 m is given; 0 to 8 m)");
    EXPECT_EQ(Told(SetAll(s, "p25.istb1=800 p25.istb2=700")),
              "p25.istb1: 5 < b1 < (b2-c) (800 mm is given; above 5 and below 685 mm)");
    EXPECT_EQ(Told(SetAll(s, "l=6 pm[1]=3 pmx[1]=6")), "");
    EXPECT_EQ(Told(SetAll(s, "l=5")), "pmx[1]: beyond the member");
}

TEST(AssignRun, TellsTheUnitBesideWhatIsNoNumber)
{
    ProjectState s = Member();
    EXPECT_EQ(SetAll(s, "l=5m").what, "Input string mismatch (a number is expected, in m)");
    EXPECT_EQ(SetAll(s, "ly=x").what, "Input string mismatch (a number is expected)");
}

}  // namespace
TEST(AssignRun, CaseThatNoPictureHasBringsNothing)
{
    ProjectState s = Member();
    s.bucklingcasey = 77;
    s.ly = 0.8F;
    FollowBucklingCase(s, Axis::y);
    EXPECT_EQ(s.ly, 0.8F);
    s.ltb = 1;
    s.ltbcase = -3;
    s.ltbk = 0.6F;
    FollowLateralTick(s);
    FollowLateralCase(s);
    EXPECT_EQ(s.ltbk, 0.6F);
}

}  // namespace kestrum
