#include "engine/family_routines.h"

#include "design/p01bas_rolled_i.h"
#include "design/p05bas_channel.h"
#include "design/p06bas_hollow.h"
#include "design/p10bas_angle.h"
#include "design/p22bas_single_symmetric_i.h"
#include "design/p24bas_hsq.h"
#include "design/p26bas_t.h"
#include "design/p27bas_box.h"
#include "design/p28bas_flat_bar.h"
#include "design/p31bas_tube.h"
#include "design/p41bas_general.h"
#include "design/p51bas_plate.h"
#include "sections/angles.h"
#include "sections/channels.h"
#include "sections/hollow.h"
#include "sections/rolled_i.h"
#include "sections/simple.h"
#include "sections/welded_hsq.h"
#include "sections/welded_plate.h"
#include "sections/welded_single_i.h"
#include "sections/welded_t.h"
#include "stability/buckling_control.h"

#include <algorithm>
#include <iterator>

namespace kestrum {

namespace {

constexpr LateralBuckling kOn = LateralBuckling::on;
constexpr LateralBuckling kGeneral = LateralBuckling::general;
constexpr LateralBuckling kOff = LateralBuckling::off;
constexpr LateralBuckling kUnchanged = LateralBuckling::unchanged;

// A family of doubly symmetric I sections or of channels.
constexpr FamilyRoutines RolledI(int family, void (*properties)(const Library&, ProjectState&),
                                 bool webshear = false)
{
    return {.family = family,
            .properties = properties,
            .effective = CalcEffectiveI,
            .resistance = CalcResistanceI,
            .control = ControlRolledI,
            .buckling = BucklingControlRolledI,
            .lateral = kOn,
            .open = true,
            .webshear = webshear};
}

constexpr FamilyRoutines Channel(int family, void (*properties)(const Library&, ProjectState&),
                                 bool webshear = false)
{
    FamilyRoutines routines = RolledI(family, properties, webshear);
    routines.effective = CalcEffectiveChannel;
    routines.lateral = kGeneral;
    return routines;
}

constexpr FamilyRoutines Hollow(int family, void (*properties)(const Library&, ProjectState&))
{
    return {.family = family,
            .properties = properties,
            .effective = CalcEffectiveHollow,
            .resistance = CalcResistanceHollow,
            .control = ControlHollow,
            .buckling = BucklingControlHollow,
            .lateral = kOff,
            .open = false};
}

constexpr FamilyRoutines Angle(int family)
{
    return {.family = family,
            .properties = PropertiesAngle,
            .resistance = CalcResistanceAngle,
            .control = ControlAngle,
            .buckling = BucklingControlAngle,
            .lateral = kOff,
            .open = true,
            .compressed_only = true};
}

constexpr FamilyRoutines Hsq(int family)
{
    return {.family = family,
            .properties = PropertiesHsq,
            .effective = CalcEffectiveHsq,
            .resistance = CalcResistanceHsq,
            .control = ControlHsq,
            .buckling = nullptr,
            .lateral = kOff,
            .open = false,
            .transverse_only = true,
            .control_without_n = true};
}

constexpr FamilyRoutines UnequalBox()
{
    FamilyRoutines routines = Hsq(27);
    routines.properties = PropertiesUnequalBox;
    routines.effective = CalcEffectiveBox;
    routines.resistance = CalcResistanceBox;
    routines.control_without_n = false;
    return routines;
}

constexpr FamilyRoutines SingleSymmetricI()
{
    FamilyRoutines routines = RolledI(22, PropertiesSingleSymmetricI);
    routines.effective = CalcEffectiveSingleI;
    routines.resistance = CalcResistanceSingleI;
    routines.control = ControlSingleI;
    routines.buckling = BucklingControlWeldedI;
    return routines;
}

constexpr FamilyRoutines TSection()
{
    FamilyRoutines routines = Angle(26);
    routines.properties = PropertiesT;
    routines.effective = CalcEffectiveT;
    routines.resistance = CalcResistanceT;
    routines.control = ControlT;
    routines.buckling = BucklingControlT;
    return routines;
}

constexpr FamilyRoutines FlatBar()
{
    FamilyRoutines routines = Angle(28);
    routines.properties = PropertiesFlatBar;
    routines.resistance = CalcResistanceFlatBar;
    routines.control = ControlFlatBar;
    routines.buckling = BucklingControlFlatBar;
    routines.lateral = kUnchanged;
    return routines;
}

constexpr FamilyRoutines TubeSection()
{
    FamilyRoutines routines = Hollow(31, PropertiesTube);
    routines.effective = nullptr;
    routines.resistance = CalcResistanceTube;
    routines.control = ControlTube;
    routines.compressed_only = true;
    return routines;
}

constexpr FamilyRoutines General()
{
    FamilyRoutines routines = RolledI(41, PropertiesGeneral);
    routines.effective = nullptr;
    routines.resistance = CalcResistanceGeneral;
    routines.control = ControlGeneral;
    return routines;
}

constexpr FamilyRoutines Plate(int family)
{
    return {.family = family,
            .properties = PropertiesPlate,
            .effective = CalcEffectivePlate,
            .resistance = CalcResistancePlate,
            .control = ControlPlate,
            .buckling = BucklingControlPlate,
            .lateral = kGeneral,
            .open = true,
            .transverse_only = true,
            .control_without_n = true};
}

constexpr FamilyRoutines kTable[] = {
    RolledI(1, PropertiesRolledI),
    RolledI(2, PropertiesRolledI),
    RolledI(3, PropertiesRolledI),
    RolledI(4, PropertiesRolledI),
    Channel(5, PropertiesUpe),
    Hollow(6, PropertiesHollow),
    Hollow(7, PropertiesHollow),
    Hollow(8, PropertiesHollow),
    Hollow(9, PropertiesHollow),
    Angle(10),
    Angle(11),
    RolledI(15, PropertiesInp),
    Channel(16, PropertiesUnp),
    RolledI(21, PropertiesWeldedI),
    SingleSymmetricI(),
    Hollow(23, PropertiesBox),
    Hsq(24),
    Hsq(25),
    TSection(),
    UnequalBox(),
    FlatBar(),
    TubeSection(),
    General(),
    Plate(51),
    Plate(52),
    Plate(53),
    Plate(54),
    Plate(56),
    RolledI(101, PropertiesBritishI),
    RolledI(102, PropertiesBritishI, true),
    Channel(103, PropertiesBritishChannel, true),
};

}  // namespace

const FamilyRoutines* FindRoutines(int family)
{
    const auto* const at = std::find_if(
        std::begin(kTable), std::end(kTable),
        [family](const FamilyRoutines& routines) { return routines.family == family; });
    return at != std::end(kTable) ? at : nullptr;
}

std::span<const FamilyRoutines> AllRoutines()
{
    return kTable;
}

}  // namespace kestrum
