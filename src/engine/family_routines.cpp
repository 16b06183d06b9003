#include "engine/family_routines.h"

#include "design/angle_section.h"
#include "design/box_section.h"
#include "design/channel_section.h"
#include "design/flat_bar_section.h"
#include "design/general_section.h"
#include "design/hat_beam_section.h"
#include "design/hollow_section.h"
#include "design/i_section.h"
#include "design/single_symmetric_i_section.h"
#include "design/stiffened_plate_section.h"
#include "design/tee_section.h"
#include "design/tube_section.h"
#include "sections/families.h"
#include "stability/buckling_control.h"

namespace kestrum {

namespace {

constexpr FamilyRoutines kDoublySymmetricI = {.effective = CalcEffectiveI,
                                              .resistance = CalcResistanceI,
                                              .control = ControlRolledI,
                                              .buckling = BucklingControlRolledI,
                                              .control_without_n = false,
                                              .compressed_only = false};
constexpr FamilyRoutines kChannel = {.effective = CalcEffectiveChannel,
                                     .resistance = CalcResistanceI,
                                     .control = ControlRolledI,
                                     .buckling = BucklingControlRolledI,
                                     .control_without_n = false,
                                     .compressed_only = false};
constexpr FamilyRoutines kSingleI = {.effective = CalcEffectiveSingleI,
                                     .resistance = CalcResistanceSingleI,
                                     .control = ControlSingleI,
                                     .buckling = BucklingControlWeldedI,
                                     .control_without_n = false,
                                     .compressed_only = false};
constexpr FamilyRoutines kGeneral = {.effective = nullptr,
                                     .resistance = CalcResistanceGeneral,
                                     .control = ControlGeneral,
                                     .buckling = BucklingControlRolledI,
                                     .control_without_n = false,
                                     .compressed_only = false};
constexpr FamilyRoutines kHollow = {.effective = CalcEffectiveHollow,
                                    .resistance = CalcResistanceHollow,
                                    .control = ControlHollow,
                                    .buckling = BucklingControlHollow,
                                    .control_without_n = false,
                                    .compressed_only = false};
// Deviation D243: without compression tubes and angles under both moments have no interaction,
// Eq (6.61) and (6.62) with NEd = 0.
constexpr FamilyRoutines kTube = {.effective = nullptr,
                                  .resistance = CalcResistanceTube,
                                  .control = ControlTube,
                                  .buckling = BucklingControlHollow,
                                  .control_without_n = false,
                                  .compressed_only = true};
constexpr FamilyRoutines kAngle = {.effective = nullptr,
                                   .resistance = CalcResistanceAngle,
                                   .control = ControlAngle,
                                   .buckling = BucklingControlAngle,
                                   .control_without_n = false,
                                   .compressed_only = true};
constexpr FamilyRoutines kTee = {.effective = CalcEffectiveT,
                                 .resistance = CalcResistanceT,
                                 .control = ControlT,
                                 .buckling = BucklingControlT,
                                 .control_without_n = false,
                                 .compressed_only = true};
constexpr FamilyRoutines kFlat = {.effective = nullptr,
                                  .resistance = CalcResistanceFlatBar,
                                  .control = ControlFlatBar,
                                  .buckling = BucklingControlFlatBar,
                                  .control_without_n = false,
                                  .compressed_only = true};
constexpr FamilyRoutines kHat = {.effective = CalcEffectiveHsq,
                                 .resistance = CalcResistanceHsq,
                                 .control = ControlHsq,
                                 .buckling = nullptr,
                                 .control_without_n = true,
                                 .compressed_only = false};
constexpr FamilyRoutines kUnequalBox = {.effective = CalcEffectiveBox,
                                        .resistance = CalcResistanceBox,
                                        .control = ControlHsq,
                                        .buckling = nullptr,
                                        .control_without_n = false,
                                        .compressed_only = false};
constexpr FamilyRoutines kPlate = {.effective = CalcEffectivePlate,
                                   .resistance = CalcResistancePlate,
                                   .control = ControlPlate,
                                   .buckling = BucklingControlPlate,
                                   .control_without_n = true,
                                   .compressed_only = false};

}  // namespace

const FamilyRoutines* FindRoutines(int family)
{
    switch (TraitsOf(family).kind) {
    case Kind::none:
        return nullptr;
    case Kind::i_rolled:
    case Kind::i_welded:
        return &kDoublySymmetricI;
    case Kind::i_single:
        return &kSingleI;
    case Kind::channel:
        return &kChannel;
    case Kind::hollow:
    case Kind::box:
        return &kHollow;
    case Kind::angle:
        return &kAngle;
    case Kind::tube:
        return &kTube;
    case Kind::flat:
        return &kFlat;
    case Kind::general:
        return &kGeneral;
    case Kind::hat:
        return &kHat;
    case Kind::box_unequal:
        return &kUnequalBox;
    case Kind::tee:
        return &kTee;
    case Kind::plate:
        return &kPlate;
    }
    return nullptr;
}

}  // namespace kestrum
