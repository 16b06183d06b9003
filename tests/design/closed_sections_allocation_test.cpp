// A calculation pass takes no memory: the routines of closed sections, tube, flat bar, general
// profile and angles run between two readings of an allocation counter.

#include "core/project_state.h"
#include "design/angle_section.h"
#include "design/flat_bar_section.h"
#include "design/general_section.h"
#include "design/hollow_section.h"
#include "design/tube_section.h"
#include "sections/angles.h"
#include "sections/hollow.h"
#include "sections/simple.h"
#include "support/members.h"

#include <cstdlib>
#include <new>

namespace {

long g_allocations = 0;

}  // namespace

void* operator new(std::size_t size)
{
    ++g_allocations;
    if (void* memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace kestrum {
namespace {

struct Family {
    int family;
    void (*properties)(const Library&, const Inputs& in, SectionRecord& section);
    void (*effective)(const Inputs& in, SectionRecord& section);
    void (*resistance)(const Inputs& in, SectionRecord& section, Resistances& resistances,
                       SectionChecks& checks);
    void (*control)(const Inputs& in, SectionRecord& section, Resistances& resistances,
                    const Forces& forces, SectionChecks& checks, PassOutcome& outcome);
};

const Family kFamilies[] = {
    {6, PropertiesHollow, CalcEffectiveHollow, CalcResistanceHollow, ControlHollow},
    {7, PropertiesHollow, CalcEffectiveHollow, CalcResistanceHollow, ControlHollow},
    {8, PropertiesHollow, CalcEffectiveHollow, CalcResistanceHollow, ControlHollow},
    {9, PropertiesHollow, CalcEffectiveHollow, CalcResistanceHollow, ControlHollow},
    {23, PropertiesBox, CalcEffectiveHollow, CalcResistanceHollow, ControlHollow},
    {10, PropertiesAngle, nullptr, CalcResistanceAngle, ControlAngle},
    {11, PropertiesAngle, nullptr, CalcResistanceAngle, ControlAngle},
    {28, PropertiesFlatBar, nullptr, CalcResistanceFlatBar, ControlFlatBar},
    {31, PropertiesTube, nullptr, CalcResistanceTube, ControlTube},
    {41, PropertiesGeneral, nullptr, CalcResistanceGeneral, ControlGeneral},
};

TEST(ClosedSections, TakeNoMemory)
{
    const Library& library = Delivered();
    for (const Family& f : kFamilies) {
        Member s = Member::Bare(f.family).Steel(355);
        s.p23 = {.isth = 600, .istb1 = 600, .isttw = 10, .isttf = 20, .ista = 50};
        s.p28 = {.isth = 150, .isttw = 12};
        s.p31 = {.istd = 300, .isttw = 10};
        s.p41 = {.opn = 1,
                 .opmy = 1,
                 .opmz = 1,
                 .istax = 18720,
                 .istay = 12000,
                 .istaz = 6720,
                 .istix = 2e6f,
                 .istiy = 1e9f,
                 .istiz = 9e7f,
                 .istiw = 7e12f,
                 .istwely = 4e6f,
                 .istwelz = 6e5f,
                 .istwply = 4.4e6f,
                 .istwplz = 9e5f};
        SetForces(s, {-20, 1, 0.5, 5, 3});

        const long before = g_allocations;
        f.properties(library, s, s);
        if (f.effective != nullptr) {
            f.effective(s, s);
        }
        f.resistance(s, s, s, s);
        f.control(s, s, s, s, s, s);
        EXPECT_EQ(g_allocations, before) << f.family;
        EXPECT_GT(s.irsection, 0) << f.family;
    }
}

}  // namespace
}  // namespace kestrum
