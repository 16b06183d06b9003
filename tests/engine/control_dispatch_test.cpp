#include "engine/control_dispatch.h"

#include "core/arithmetic_trap.h"
#include "support/members.h"

#include <gtest/gtest.h>

#include <string>

namespace kestrum {
namespace {

// Which resistance is missing under these forces at the last of two sections.
std::string Missing(ProjectState s, const SectionForces& f)
{
    SetForces(s, {f.n, 0, 0, 0, 0});
    s.npts = 1;
    s.xi[1] = 1;
    s.mysec[1] = f.my;
    s.mzsec[1] = static_cast<float>(f.mz);
    s.vzsec[1] = f.vz;
    s.vysec[1] = f.vy;
    ArmTrap();
    try {
        CalcSectionControl(s);
    } catch (const CalculationStop& stop) {
        EXPECT_EQ(stop.failure.cause, Cause::no_resistance);
        return std::string(stop.failure.quantity);
    }
    return {};
}

// A resistance below zero would take the check of its force away: the pass stops and names it.
// Where the force does not act it is not needed.
TEST(SectionControl, AForceWithoutResistanceStopsThePass)
{
    const Member whole = Member::Bare()
                             .Section(FormP41{.opn = 1,
                                              .opmy = 1,
                                              .opmz = 1,
                                              .istax = 10000,
                                              .istay = 5000,
                                              .istaz = 4000,
                                              .istix = 1e6F,
                                              .istiy = 1e8F,
                                              .istiz = 1e7F,
                                              .istiw = 1e11F,
                                              .istwely = 8e5F,
                                              .istwelz = 1e5F,
                                              .istwply = 9e5F,
                                              .istwplz = 2e5F})
                             .Steel(235)
                             .Designed();
    struct Case {
        const char* name;
        double Resistances::*resistance;
        SectionForces forces;
    };
    const Case cases[] = {{"Nt,Rd", &Resistances::nplrd, {-10, 0, 0, 0, 0}},
                          {"Nc,Rd", &Resistances::ncrd, {10, 0, 0, 0, 0}},
                          {"My,Rd", &Resistances::myrd, {0, 10, 0, 0, 0}},
                          {"Mz,Rd", &Resistances::mzrd, {0, 0, 10, 0, 0}},
                          {"Vz,Rd", &Resistances::vbrd, {0, 0, 0, 10, 0}},
                          {"Vy,Rd", &Resistances::vcyrd, {0, 0, 0, 0, 10}}};
    for (const Case& c : cases) {
        for (const Case& acting : cases) {
            Member s = whole;
            EXPECT_EQ(Missing(s, acting.forces), "") << acting.name;
            s.*c.resistance = -1;
            EXPECT_EQ(Missing(s, acting.forces), &c == &acting ? c.name : "") << c.name;
        }
    }
}

}  // namespace
}  // namespace kestrum
