#pragma once

// The section families as data: one row for each, with all that the rest of the program asks about
// a family. Nothing else compares the family's number but the layout of the project file; the
// routines that design a kind of section are chosen in engine/family_routines.
//
// The members have no defaults: a row that leaves one out does not compile
// (-Werror=missing-field-initializers).

#include "core/library.h"
#include "core/state/inputs.h"
#include "core/state/section_record.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace kestrum {

enum class Kind : std::uint8_t {
    none,         // a number without a section
    i_rolled,     // rolled I and H sections
    i_welded,     // of plates, doubly symmetric
    i_single,     // of plates, unequal flanges
    channel,      // rolled
    hollow,       // rectangular, of the tables
    box,          // of plates, equal flanges
    angle,        // rolled
    tube,         // circular
    flat,         // flat bar on edge
    general,      // entered properties
    hat,          // HSQ beams: two webs on a wide bottom flange
    box_unequal,  // of plates, unequal flanges
    tee,          // of plates
    plate         // strip of plate with one stiffener
};

// --- Choice and entry ----------------------------------------------------------------------------

enum class MenuGroup : std::uint8_t { profiles, welded, plates, other, british, none };

enum class SectionInput : std::uint8_t {
    table,       // a row of the family's one table
    series,      // a row of the table of the chosen series
    dimensions,  // dimensions or properties as entered
    stiffener,   // dimensions of a plate and a row of the stiffener's table
    none
};

// Choices that only some families have.
enum class SectionOption : std::uint8_t {
    rectaxis,  // bent about the weak axis
    bolts,     // lopt
    weld,      // weldopt
    tube,      // tubehot
    hsqload,   // hsqopt
    upgrade    // class23
};

// --- Shape ---------------------------------------------------------------------------------------

// How a hollow section is made, EN 10210 or EN 10219.
enum class Make : std::uint8_t { none, hot, cold, chosen };

// Inner faces of rolled flanges.
enum class FlangeFaces : std::uint8_t {
    parallel,
    inp,             // sloped, DIN 1025-1
    unp,             // sloped, DIN 1026-1
    joist,           // sloped, BS 4-1
    british_channel  // sloped where the row has a toe radius
};

// The flange away from the first one, of sections of plates with unequal flanges.
enum class LowerFlange : std::uint8_t { none, both_sides, one_side };

enum class Stiffener : std::uint8_t { none, flat_bar, rolled_angle, welded_angle, bulb_flat, tee };

struct SectionForm {
    Make make;
    FlangeFaces faces;
    LowerFlange lower;
    Stiffener stiffener;
    bool equal;  // legs of an angle, sides of a hollow section
};

// --- What forms and pages list -------------------------------------------------------------------

enum class DimensionList : std::uint8_t {
    none,
    rolled_i,
    british_i,
    welded_i,
    channel,
    tapered_channel,
    british_channel,  // one of the two by the toe radius
    hollow,
    box,
    angle,
    single_i,
    hsq,
    tee,
    unequal_box,
    flat_bar,
    tube,
    plate,
    plate_flat_bar
};

struct ListedValues {
    DimensionList dimensions;
    bool sides;         // top and bottom differ: a value for each
    bool effective;     // effective section
    bool stiffener_iz;  // values about z are those of the stiffener alone
};

// --- What the section carries --------------------------------------------------------------------

struct Actions {
    bool n;  // axial force
    bool y;  // My and Vz
    bool z;  // Mz and Vy
};

// Deviation D106: see analysis/member_forces.cpp.
struct CarriedActions {
    Actions loads;    // rows of the load table; others are emptied
    Actions ends;     // end forces that the analysis takes over
    Actions offered;  // end forces that the form offers
};

// --- Design --------------------------------------------------------------------------------------

// EN 1993-1-1, 6.2.6 (3).
enum class ShearArea : std::uint8_t {
    rolled_i,  // a
    channel,   // b
    web,       // d and e: webs of welded sections
    hollow,    // f
    own        // of the kind's own module
};

// What the family does to lateral torsional buckling, EN 1993-1-1, 6.3.2.
enum class LateralBuckling : std::uint8_t {
    on,         // can have it; the switch stays as the user left it
    general,    // the same, always with the general curve of 6.3.2.2
    off,        // cannot have it: switch and restraints are cleared
    unchanged,  // flat bar: general curve, the rest as the family before left it
};

// Rows of EN 1993-1-1, Table 6.2.
enum class FlexuralCurves : std::uint8_t {
    none,  // the axis keeps the curve of the run before
    rolled_i,
    welded_i,
    box,
    hot_hollow,
    tube,  // by its make
    b,
    c
};

// Rows of EN 1993-1-1, Table 6.4.
enum class LateralCurves : std::uint8_t { rolled, welded, other };

// Columns of EN 1993-1-1, Annex A and Table B.1.
enum class InteractionColumn : std::uint8_t { none, i_section, hollow };

struct DesignRules {
    bool open;                // torsional buckling matters
    bool shear_centre_apart;  // from the centroid: torsion couples with flexure, 6.3.1.4
    ShearArea shear_area;
    FlexuralCurves curves;
    LateralBuckling lateral;
    LateralCurves lateral_curves;
    bool rolled_case;  // 6.3.2.3 applies
    InteractionColumn interaction;
};

// EN 1991-1-4, E.1.3.2.
enum class Strouhal : std::uint8_t { none, rectangle, circle };

// --- The row -------------------------------------------------------------------------------------

struct FamilyTraits {
    int id;
    Kind kind;
    std::string_view menu;     // menu entry
    std::string_view caption;  // of the menu entry, with its blanks
    std::string_view text;     // short name for titles and headings
    std::string_view title;    // of the section form
    std::string_view button;   // below the picture button
    std::string_view form;     // name of the section form; its fields begin with it
    MenuGroup group;
    SectionInput input;
    std::span<const Table> tables;  // one, or one per series in the order of the series numbers
    i16 SectionForms::*series;      // chosen one of the tables, from 1; null without series
    std::span<const SectionOption> options;
    void (*properties)(const Library& library, const Inputs& in, SectionRecord& section);
    SectionForm shape;
    ListedValues lists;
    CarriedActions carries;
    DesignRules design;
    Strouhal strouhal;
};

// The families in menu order. Number 55 is reserved and not among them.
std::span<const FamilyTraits> Families();

// Their numbers, ascending.
std::vector<int> FamilyNumbers();

// Null for a number without a family; 55 is known, with no input.
const FamilyTraits* FindFamily(int id);

// Rows by number; every pass asks many times.
extern const std::array<const FamilyTraits*, 256> kRowOf;

// The row of the number; one of kind `none` for a number without a family.
inline const FamilyTraits& TraitsOf(int family)
{
    const auto at = static_cast<std::size_t>(family);  // negative ones lie beyond
    return *kRowOf[at < kRowOf.size() ? at : 0];
}

inline const FamilyTraits& Traits(const Inputs& in)
{
    return TraitsOf(in.family);
}

// Whether the section is of one of the kinds.
template <class... Kinds> bool Is(const Inputs& in, Kinds... kinds)
{
    const Kind kind = Traits(in).kind;
    return (... || (kind == kinds));
}

// A number that families are given from, taken or not.
constexpr bool MayBeFamily(int number)
{
    return number >= 1 && number <= 200;
}

}  // namespace kestrum
