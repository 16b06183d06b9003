// A family fills the whole section record: nothing in it depends on what was chosen before.

#include "core/project_state.h"
#include "sections/section_record.h"

#include "sections/angles.h"
#include "sections/channels.h"
#include "sections/hollow.h"
#include "sections/rolled_i.h"
#include "sections/simple.h"
#include "support/members.h"

namespace kestrum {
namespace {

struct Routine {
    int family, series;
    void (*properties)(const Library&, const Inputs& in, SectionRecord& section);
};

const Routine kRoutines[] = {
    {1, 1, PropertiesRolledI},
    {2, 1, PropertiesRolledI},
    {3, 1, PropertiesRolledI},
    {4, 1, PropertiesRolledI},
    {15, 1, PropertiesInp},
    {21, 1, PropertiesWeldedI},
    {101, 1, PropertiesBritishI},
    {101, 2, PropertiesBritishI},
    {101, 3, PropertiesBritishI},
    {102, 1, PropertiesBritishI},
    {5, 1, PropertiesUpe},
    {16, 1, PropertiesUnp},
    {103, 1, PropertiesBritishChannel},
    {103, 2, PropertiesBritishChannel},
    {6, 1, PropertiesHollow},
    {7, 1, PropertiesHollow},
    {8, 1, PropertiesHollow},
    {9, 1, PropertiesHollow},
    {23, 1, PropertiesBox},
    {10, 1, PropertiesAngle},
    {11, 1, PropertiesAngle},
    {28, 1, PropertiesFlatBar},
    {31, 1, PropertiesTube},
    {41, 1, PropertiesGeneral},
};

Member Inputs(const Routine& routine)
{
    Member s = Member::Bare(routine.family, routine.series);
    s.p21 = {600, 300, 12, 20};
    s.p23 = {600, 600, 10, 20, 50};
    s.p28 = {150, 12};
    s.p31 = {300, 10};
    s.p41 = {1, 1, 1, 18720, 12000, 6720, 1.9e6F, 1.2e9F, 9e7F, 7.6e12F, 4e6F, 6e5F, 4.4e6F, 9e5F};
    return s;
}

TEST(SectionRecord, DoesNotDependOnTheFamilyBefore)
{
    for (const Routine& before : kRoutines) {
        for (const Routine& routine : kRoutines) {
            ProjectState fresh = Inputs(routine);
            routine.properties(Delivered(), fresh, fresh);

            ProjectState used = Inputs(before);
            before.properties(Delivered(), used, used);
            used.family = static_cast<i16>(routine.family);
            used.series101 = used.series103 = static_cast<i16>(routine.series);
            // Welded families and plates leave these behind.
            used.zcog = used.btop = used.tbot = used.wytop = used.wplplus = used.flangefactor = 77;
            used.zpl = 77;
            routine.properties(Delivered(), used, used);
            // Classes belong to the resistance stage, except where the user chooses them.
            used.classn = fresh.classn;
            used.classmy = fresh.classmy;
            used.classmz = fresh.classmz;
            EXPECT_TRUE(used == fresh) << routine.family << " after " << before.family;
        }
    }
}

TEST(SectionRecord, ReadsNoInputAway)
{
    for (const Routine& routine : kRoutines) {
        const ProjectState inputs = Inputs(routine);
        ProjectState s = inputs;
        routine.properties(Delivered(), s, s);
        EXPECT_EQ(s.family, inputs.family);
        EXPECT_EQ(s.row, inputs.row);
        EXPECT_EQ(s.density, inputs.density);
        EXPECT_GT(s.a, 0) << routine.family;
        EXPECT_GT(s.weight, 0) << routine.family;
        EXPECT_GT(s.tmax, 0) << routine.family;
        EXPECT_GT(s.hw, 0) << routine.family;
        EXPECT_GT(s.d, 0) << routine.family;
    }
}

// The thickness of the two that selects the yield strength.
TEST(SectionRecord, ThicknessIsTheLargerOfFlangeAndWeb)
{
    ProjectState s{};
    s.tf = 40;
    s.tw = 40;
    SetThickness(s);
    EXPECT_EQ(s.tmax, 40);
    s.tw = 41;
    SetThickness(s);
    EXPECT_EQ(s.tmax, 41);
}

}  // namespace
}  // namespace kestrum
