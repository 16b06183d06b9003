#pragma once

// What rows of the family table have in common: shapes, lists, actions and design rules of a kind.
// Included by the table alone.

#include "sections/families.h"

namespace kestrum {

// --- Shapes --------------------------------------------------------------------------------------

constexpr SectionForm kParallel = {.make = Make::none,
                                   .faces = FlangeFaces::parallel,
                                   .lower = LowerFlange::none,
                                   .stiffener = Stiffener::none,
                                   .equal = false};

constexpr SectionForm WithFaces(FlangeFaces faces)
{
    SectionForm form = kParallel;
    form.faces = faces;
    return form;
}
constexpr SectionForm kInpFaces = WithFaces(FlangeFaces::inp);
constexpr SectionForm kUnpFaces = WithFaces(FlangeFaces::unp);
constexpr SectionForm kJoistFaces = WithFaces(FlangeFaces::joist);
constexpr SectionForm kBritishChannelFaces = WithFaces(FlangeFaces::british_channel);

constexpr SectionForm Made(Make make, bool square)
{
    SectionForm form = kParallel;
    form.make = make;
    form.equal = square;
    return form;
}
constexpr SectionForm kHotSquare = Made(Make::hot, true);
constexpr SectionForm kHotRectangle = Made(Make::hot, false);
constexpr SectionForm kColdSquare = Made(Make::cold, true);
constexpr SectionForm kColdRectangle = Made(Make::cold, false);
constexpr SectionForm kTubeShape = Made(Make::chosen, false);
constexpr SectionForm kEqualLegs = Made(Make::none, true);

constexpr SectionForm OfPlates(LowerFlange lower, Stiffener stiffener = Stiffener::none)
{
    SectionForm form = kParallel;
    form.lower = lower;
    form.stiffener = stiffener;
    return form;
}
constexpr SectionForm kTwoFlanges = OfPlates(LowerFlange::both_sides);
constexpr SectionForm kOneSidedFlange = OfPlates(LowerFlange::one_side);
constexpr SectionForm kPlateFlatBar = OfPlates(LowerFlange::none, Stiffener::flat_bar);
constexpr SectionForm kPlateRolledAngle = OfPlates(LowerFlange::one_side, Stiffener::rolled_angle);
constexpr SectionForm kPlateWeldedAngle = OfPlates(LowerFlange::one_side, Stiffener::welded_angle);
constexpr SectionForm kPlateBulbFlat = OfPlates(LowerFlange::one_side, Stiffener::bulb_flat);
constexpr SectionForm kPlateTee = OfPlates(LowerFlange::both_sides, Stiffener::tee);

// --- Lists ---------------------------------------------------------------------------------------

constexpr ListedValues Lists(DimensionList dimensions)
{
    return {.dimensions = dimensions, .sides = false, .effective = true, .stiffener_iz = false};
}
constexpr ListedValues kNoLists = Lists(DimensionList::none);
constexpr ListedValues kRolledILists = Lists(DimensionList::rolled_i);
constexpr ListedValues kBritishILists = Lists(DimensionList::british_i);
constexpr ListedValues kWeldedILists = Lists(DimensionList::welded_i);
constexpr ListedValues kChannelLists = Lists(DimensionList::channel);
constexpr ListedValues kTaperedChannelLists = Lists(DimensionList::tapered_channel);
constexpr ListedValues kBritishChannelLists = Lists(DimensionList::british_channel);
constexpr ListedValues kHollowLists = Lists(DimensionList::hollow);
constexpr ListedValues kBoxLists = Lists(DimensionList::box);
constexpr ListedValues kAngleLists = Lists(DimensionList::angle);

constexpr ListedValues GrossLists(DimensionList dimensions)
{
    ListedValues lists = Lists(dimensions);
    lists.effective = false;
    return lists;
}
constexpr ListedValues kFlatBarLists = GrossLists(DimensionList::flat_bar);
constexpr ListedValues kTubeLists = GrossLists(DimensionList::tube);
constexpr ListedValues kGeneralLists = GrossLists(DimensionList::none);

constexpr ListedValues TwoSidedLists(DimensionList dimensions)
{
    ListedValues lists = Lists(dimensions);
    lists.sides = true;
    return lists;
}
constexpr ListedValues kSingleILists = TwoSidedLists(DimensionList::single_i);
constexpr ListedValues kHsqLists = TwoSidedLists(DimensionList::hsq);
constexpr ListedValues kTeeLists = TwoSidedLists(DimensionList::tee);
constexpr ListedValues kUnequalBoxLists = TwoSidedLists(DimensionList::unequal_box);

constexpr ListedValues StiffenedLists(DimensionList dimensions)
{
    ListedValues lists = TwoSidedLists(dimensions);
    lists.stiffener_iz = true;
    return lists;
}
constexpr ListedValues kPlateLists = StiffenedLists(DimensionList::plate);
constexpr ListedValues kPlateFlatBarLists = StiffenedLists(DimensionList::plate_flat_bar);
constexpr ListedValues kReservedLists = StiffenedLists(DimensionList::none);

// --- Actions -------------------------------------------------------------------------------------

constexpr Actions kAny = {.n = true, .y = true, .z = true};
constexpr Actions kAxial = {.n = true, .y = false, .z = false};
constexpr Actions kAboutY = {.n = false, .y = true, .z = false};
constexpr Actions kAxialAndY = {.n = true, .y = true, .z = false};

constexpr CarriedActions kAllActions = {.loads = kAny, .ends = kAny, .offered = kAny};
constexpr CarriedActions kTeeActions = {.loads = kAxial, .ends = kAxial, .offered = kAxial};
constexpr CarriedActions kUnequalBoxActions = {
    .loads = kAboutY, .ends = kAboutY, .offered = kAboutY};
constexpr CarriedActions kHatActions = {  // the control leaves N out
    .loads = kAboutY,
    .ends = kAxialAndY,
    .offered = kAboutY};
constexpr CarriedActions kFlatBarActions = {
    .loads = kAxialAndY, .ends = kAxialAndY, .offered = kAny};
constexpr CarriedActions kPlateActions = {  // the control leaves N, Mz and Vy out
    .loads = kAboutY,
    .ends = kAny,
    .offered = kAboutY};
constexpr CarriedActions kReservedActions = {.loads = kAny, .ends = kAny, .offered = kAboutY};

// --- Design rules --------------------------------------------------------------------------------

constexpr DesignRules kRolledI = {.open = true,
                                  .shear_centre_apart = false,
                                  .shear_area = ShearArea::rolled_i,
                                  .curves = FlexuralCurves::rolled_i,
                                  .lateral = LateralBuckling::on,
                                  .lateral_curves = LateralCurves::rolled,
                                  .rolled_case = true,
                                  .interaction = InteractionColumn::i_section};
constexpr DesignRules kWeldedI = {.open = true,
                                  .shear_centre_apart = false,
                                  .shear_area = ShearArea::web,
                                  .curves = FlexuralCurves::welded_i,
                                  .lateral = LateralBuckling::on,
                                  .lateral_curves = LateralCurves::welded,
                                  .rolled_case = true,
                                  .interaction = InteractionColumn::i_section};
constexpr DesignRules kSingleI = {.open = true,
                                  .shear_centre_apart = true,
                                  .shear_area = ShearArea::own,
                                  .curves = FlexuralCurves::welded_i,
                                  .lateral = LateralBuckling::on,
                                  .lateral_curves = LateralCurves::welded,
                                  .rolled_case = true,
                                  .interaction = InteractionColumn::none};
constexpr DesignRules kGeneral = {.open = true,
                                  .shear_centre_apart = false,
                                  .shear_area = ShearArea::own,
                                  .curves = FlexuralCurves::welded_i,
                                  .lateral = LateralBuckling::on,
                                  .lateral_curves = LateralCurves::other,
                                  .rolled_case = true,
                                  .interaction = InteractionColumn::i_section};
constexpr DesignRules kChannel = {.open = true,
                                  .shear_centre_apart = true,
                                  .shear_area = ShearArea::channel,
                                  .curves = FlexuralCurves::c,
                                  .lateral = LateralBuckling::general,
                                  .lateral_curves = LateralCurves::other,
                                  .rolled_case = false,
                                  .interaction = InteractionColumn::i_section};
// Deviation D205: see stability/buckling_curves.cpp.
constexpr DesignRules kBritishChannel = {.open = true,
                                         .shear_centre_apart = true,
                                         .shear_area = ShearArea::channel,
                                         .curves = FlexuralCurves::none,
                                         .lateral = LateralBuckling::general,
                                         .lateral_curves = LateralCurves::other,
                                         .rolled_case = false,
                                         .interaction = InteractionColumn::i_section};

constexpr DesignRules Closed(ShearArea area, FlexuralCurves curves, InteractionColumn interaction)
{
    return {.open = false,
            .shear_centre_apart = false,
            .shear_area = area,
            .curves = curves,
            .lateral = LateralBuckling::off,
            .lateral_curves = LateralCurves::other,
            .rolled_case = false,
            .interaction = interaction};
}
constexpr DesignRules kHotHollow =
    Closed(ShearArea::hollow, FlexuralCurves::hot_hollow, InteractionColumn::hollow);
constexpr DesignRules kColdHollow =
    Closed(ShearArea::hollow, FlexuralCurves::c, InteractionColumn::hollow);
constexpr DesignRules kBox = Closed(ShearArea::web, FlexuralCurves::box, InteractionColumn::hollow);
constexpr DesignRules kTube =
    Closed(ShearArea::own, FlexuralCurves::tube, InteractionColumn::hollow);
constexpr DesignRules kClosedBeam =
    Closed(ShearArea::own, FlexuralCurves::none, InteractionColumn::none);
constexpr DesignRules kNoRules = kClosedBeam;

constexpr DesignRules kAngle = {.open = true,
                                .shear_centre_apart = true,
                                .shear_area = ShearArea::own,
                                .curves = FlexuralCurves::b,
                                .lateral = LateralBuckling::off,
                                .lateral_curves = LateralCurves::other,
                                .rolled_case = false,
                                .interaction = InteractionColumn::none};
constexpr DesignRules kTee = {.open = true,
                              .shear_centre_apart = true,
                              .shear_area = ShearArea::own,
                              .curves = FlexuralCurves::c,
                              .lateral = LateralBuckling::off,
                              .lateral_curves = LateralCurves::other,
                              .rolled_case = false,
                              .interaction = InteractionColumn::none};
constexpr DesignRules kFlatBar = {.open = true,
                                  .shear_centre_apart = false,
                                  .shear_area = ShearArea::own,
                                  .curves = FlexuralCurves::c,
                                  .lateral = LateralBuckling::unchanged,
                                  .lateral_curves = LateralCurves::other,
                                  .rolled_case = false,
                                  .interaction = InteractionColumn::i_section};
constexpr DesignRules kPlate = {.open = true,
                                .shear_centre_apart = false,
                                .shear_area = ShearArea::own,
                                .curves = FlexuralCurves::none,
                                .lateral = LateralBuckling::general,
                                .lateral_curves = LateralCurves::welded,
                                .rolled_case = false,
                                .interaction = InteractionColumn::none};
constexpr DesignRules kPlateOfOneFlange = {.open = true,
                                           .shear_centre_apart = false,
                                           .shear_area = ShearArea::own,
                                           .curves = FlexuralCurves::none,
                                           .lateral = LateralBuckling::general,
                                           .lateral_curves = LateralCurves::other,
                                           .rolled_case = false,
                                           .interaction = InteractionColumn::none};

}  // namespace kestrum
