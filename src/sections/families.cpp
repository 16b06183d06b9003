#include "sections/families.h"

#include "sections/angles.h"
#include "sections/channels.h"
#include "sections/family_rules.h"
#include "sections/hollow.h"
#include "sections/rolled_i.h"
#include "sections/simple.h"
#include "sections/welded_hsq.h"
#include "sections/welded_plate.h"
#include "sections/welded_single_i.h"
#include "sections/welded_t.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace kestrum {

namespace {

using enum MenuGroup;
using Input = SectionInput;
using State = ProjectState;

// One table of its own per family.
template <Table kTable> constexpr std::array<Table, 1> kOne = {kTable};
constexpr std::array kUniversal = {Table::ub, Table::uc, Table::ubp};
constexpr std::array kBritishChannels = {Table::ch, Table::pfc};

template <SectionOption... kOptions>
constexpr std::array<SectionOption, sizeof...(kOptions)> kWith = {kOptions...};

// clang-format off
constexpr FamilyTraits kFamilies[] = {
    {.id = 1, .kind = Kind::i_rolled, .menu = "mnup01", .caption = "HEA", .text = "HEA",
     .title = "HEA", .button = "HEA", .form = "p01", .group = profiles,
     .input = Input::table, .tables = kOne<Table::hea>, .series = nullptr, .options = {},
     .properties = PropertiesRolledI, .shape = kParallel, .lists = kRolledILists, .carries = kAllActions,
     .design = kRolledI, .strouhal = Strouhal::none},
    {.id = 2, .kind = Kind::i_rolled, .menu = "mnup02", .caption = "HEB", .text = "HEB",
     .title = "HEB", .button = "HEB", .form = "p02", .group = profiles,
     .input = Input::table, .tables = kOne<Table::heb>, .series = nullptr, .options = {},
     .properties = PropertiesRolledI, .shape = kParallel, .lists = kRolledILists, .carries = kAllActions,
     .design = kRolledI, .strouhal = Strouhal::none},
    {.id = 3, .kind = Kind::i_rolled, .menu = "mnup03", .caption = "HEM", .text = "HEM",
     .title = "HEM", .button = "HEM", .form = "p03", .group = profiles,
     .input = Input::table, .tables = kOne<Table::hem>, .series = nullptr, .options = {},
     .properties = PropertiesRolledI, .shape = kParallel, .lists = kRolledILists, .carries = kAllActions,
     .design = kRolledI, .strouhal = Strouhal::none},
    {.id = 4, .kind = Kind::i_rolled, .menu = "mnup04", .caption = "IPE", .text = "IPE",
     .title = "IPE", .button = "IPE", .form = "p04", .group = profiles,
     .input = Input::table, .tables = kOne<Table::ipe>, .series = nullptr, .options = {},
     .properties = PropertiesRolledI, .shape = kParallel, .lists = kRolledILists, .carries = kAllActions,
     .design = kRolledI, .strouhal = Strouhal::none},
    {.id = 15, .kind = Kind::i_rolled, .menu = "mnup15", .caption = "INP", .text = "INP",
     .title = "INP", .button = "INP", .form = "p15", .group = profiles,
     .input = Input::table, .tables = kOne<Table::inp>, .series = nullptr, .options = {},
     .properties = PropertiesInp, .shape = kInpFaces, .lists = kRolledILists, .carries = kAllActions,
     .design = kRolledI, .strouhal = Strouhal::none},
    {.id = 5, .kind = Kind::channel, .menu = "mnup05", .caption = "UPE", .text = "UPE",
     .title = "UPE", .button = "UPE", .form = "p05", .group = profiles,
     .input = Input::table, .tables = kOne<Table::upe>, .series = nullptr, .options = {},
     .properties = PropertiesUpe, .shape = kParallel, .lists = kChannelLists, .carries = kAllActions,
     .design = kChannel, .strouhal = Strouhal::none},
    {.id = 16, .kind = Kind::channel, .menu = "mnup16", .caption = "UNP", .text = "UNP",
     .title = "UNP", .button = "UNP", .form = "p16", .group = profiles,
     .input = Input::table, .tables = kOne<Table::unp>, .series = nullptr, .options = {},
     .properties = PropertiesUnp, .shape = kUnpFaces, .lists = kTaperedChannelLists, .carries = kAllActions,
     .design = kChannel, .strouhal = Strouhal::none},
    {.id = 6, .kind = Kind::hollow, .menu = "mnup06", .caption = "RHS - Square (Hotformed)", .text = "RHS",
     .title = "RHS - Square (Hotformed)", .button = "SHS", .form = "p06", .group = profiles,
     .input = Input::table, .tables = kOne<Table::shs>, .series = nullptr, .options = {},
     .properties = PropertiesHollow, .shape = kHotSquare, .lists = kHollowLists, .carries = kAllActions,
     .design = kHotHollow, .strouhal = Strouhal::rectangle},
    {.id = 7, .kind = Kind::hollow, .menu = "mnup07", .caption = "RHS - Rect (Hotformed)", .text = "RHS",
     .title = "RHS - Rect (Hotformed)", .button = "RHS", .form = "p07", .group = profiles,
     .input = Input::table, .tables = kOne<Table::rhs>, .series = nullptr, .options = kWith<SectionOption::rectaxis>,
     .properties = PropertiesHollow, .shape = kHotRectangle, .lists = kHollowLists, .carries = kAllActions,
     .design = kHotHollow, .strouhal = Strouhal::rectangle},
    {.id = 8, .kind = Kind::hollow, .menu = "mnup08", .caption = "CFRHS - Square (Coldformed)", .text = "CFRHS",
     .title = "CFRHS - Square (Coldformed)", .button = "CF SHS", .form = "p08", .group = profiles,
     .input = Input::table, .tables = kOne<Table::cfshs>, .series = nullptr, .options = {},
     .properties = PropertiesHollow, .shape = kColdSquare, .lists = kHollowLists, .carries = kAllActions,
     .design = kColdHollow, .strouhal = Strouhal::rectangle},
    {.id = 9, .kind = Kind::hollow, .menu = "mnup09", .caption = "CFRHS - Rect (Coldformed)", .text = "CFRHS",
     .title = "CFRHS - Rect (Coldformed)", .button = "CF RHS", .form = "p09", .group = profiles,
     .input = Input::table, .tables = kOne<Table::cfrhs>, .series = nullptr, .options = kWith<SectionOption::rectaxis>,
     .properties = PropertiesHollow, .shape = kColdRectangle, .lists = kHollowLists, .carries = kAllActions,
     .design = kColdHollow, .strouhal = Strouhal::rectangle},
    {.id = 10, .kind = Kind::angle, .menu = "mnup10", .caption = "L-equal", .text = "L",
     .title = "L-equal", .button = "L equal", .form = "p10", .group = profiles,
     .input = Input::table, .tables = kOne<Table::l1>, .series = nullptr, .options = kWith<SectionOption::bolts>,
     .properties = PropertiesAngle, .shape = kEqualLegs, .lists = kAngleLists, .carries = kAllActions,
     .design = kAngle, .strouhal = Strouhal::none},
    {.id = 11, .kind = Kind::angle, .menu = "mnup11", .caption = "L-unequal", .text = "L",
     .title = "L-unequal", .button = "L uneq.", .form = "p11", .group = profiles,
     .input = Input::table, .tables = kOne<Table::l2>, .series = nullptr, .options = kWith<SectionOption::bolts>,
     .properties = PropertiesAngle, .shape = kParallel, .lists = kAngleLists, .carries = kAllActions,
     .design = kAngle, .strouhal = Strouhal::none},
    {.id = 21, .kind = Kind::i_welded, .menu = "mnup21", .caption = "I - double symmetric", .text = "I",
     .title = "I - double symmetric", .button = "I sym.", .form = "p21", .group = welded,
     .input = Input::dimensions, .tables = {}, .series = nullptr, .options = {},
     .properties = PropertiesWeldedI, .shape = kParallel, .lists = kWeldedILists, .carries = kAllActions,
     .design = kWeldedI, .strouhal = Strouhal::none},
    {.id = 22, .kind = Kind::i_single, .menu = "mnup22", .caption = "I - single symmetric", .text = "I",
     .title = "I - single symmetric", .button = "I unsym.", .form = "p22", .group = welded,
     .input = Input::dimensions, .tables = {}, .series = nullptr, .options = {},
     .properties = PropertiesSingleSymmetricI, .shape = kTwoFlanges, .lists = kSingleILists, .carries = kAllActions,
     .design = kSingleI, .strouhal = Strouhal::none},
    {.id = 23, .kind = Kind::box, .menu = "mnup23", .caption = "Box ", .text = "Box",
     .title = "Box ", .button = "Box", .form = "p23", .group = welded,
     .input = Input::dimensions, .tables = {}, .series = nullptr, .options = kWith<SectionOption::weld>,
     .properties = PropertiesBox, .shape = kParallel, .lists = kBoxLists, .carries = kAllActions,
     .design = kBox, .strouhal = Strouhal::rectangle},
    {.id = 27, .kind = Kind::box_unequal, .menu = "mnup27", .caption = "Box - Non symmetric flanges", .text = "Box",
     .title = "Box - Non symmetric flanges", .button = "Box unsym.", .form = "p27", .group = welded,
     .input = Input::dimensions, .tables = {}, .series = nullptr, .options = {},
     .properties = PropertiesUnequalBox, .shape = kTwoFlanges, .lists = kUnequalBoxLists, .carries = kUnequalBoxActions,
     .design = kClosedBeam, .strouhal = Strouhal::none},
    {.id = 24, .kind = Kind::hat, .menu = "mnup24", .caption = "HSQ - Symmetric flange ", .text = "HSQ",
     .title = "HSQ - Symmetric flange ", .button = "HSQ sym.", .form = "p24", .group = welded,
     .input = Input::dimensions, .tables = {}, .series = nullptr, .options = kWith<SectionOption::hsqload, SectionOption::upgrade>,
     .properties = PropertiesHsq, .shape = kTwoFlanges, .lists = kHsqLists, .carries = kHatActions,
     .design = kClosedBeam, .strouhal = Strouhal::none},
    {.id = 25, .kind = Kind::hat, .menu = "mnup25", .caption = "HSQ - Non symmetric flange ", .text = "HSQ",
     .title = "HSQ - Non symmetric flange ", .button = "HSQ edge", .form = "p25", .group = welded,
     .input = Input::dimensions, .tables = {}, .series = nullptr, .options = kWith<SectionOption::hsqload, SectionOption::upgrade>,
     .properties = PropertiesHsq, .shape = kOneSidedFlange, .lists = kHsqLists, .carries = kHatActions,
     .design = kClosedBeam, .strouhal = Strouhal::none},
    {.id = 26, .kind = Kind::tee, .menu = "mnu26", .caption = "T", .text = "T",
     .title = "T", .button = "T", .form = "p26", .group = welded,
     .input = Input::dimensions, .tables = {}, .series = nullptr, .options = {},
     .properties = PropertiesT, .shape = kParallel, .lists = kTeeLists, .carries = kTeeActions,
     .design = kTee, .strouhal = Strouhal::none},
    {.id = 28, .kind = Kind::flat, .menu = "mnup28", .caption = "Flatbar", .text = "Fb",
     .title = "Flatbar", .button = "Flat bar", .form = "p28", .group = other,
     .input = Input::dimensions, .tables = {}, .series = nullptr, .options = {},
     .properties = PropertiesFlatBar, .shape = kParallel, .lists = kFlatBarLists, .carries = kFlatBarActions,
     .design = kFlatBar, .strouhal = Strouhal::none},
    {.id = 31, .kind = Kind::tube, .menu = "mnup31", .caption = "&Tube", .text = "Tube",
     .title = "Tube", .button = "Tube", .form = "p31", .group = other,
     .input = Input::dimensions, .tables = {}, .series = nullptr, .options = kWith<SectionOption::tube>,
     .properties = PropertiesTube, .shape = kTubeShape, .lists = kTubeLists, .carries = kAllActions,
     .design = kTube, .strouhal = Strouhal::circle},
    {.id = 41, .kind = Kind::general, .menu = "mnup41", .caption = "&General Profile ", .text = "General Profile",
     .title = "General Profile", .button = "General", .form = "p41", .group = other,
     .input = Input::dimensions, .tables = {}, .series = nullptr, .options = {},
     .properties = PropertiesGeneral, .shape = kParallel, .lists = kGeneralLists, .carries = kAllActions,
     .design = kGeneral, .strouhal = Strouhal::none},
    {.id = 51, .kind = Kind::plate, .menu = "mnuplateFb", .caption = "Plates + Fb", .text = "Plate + Flatbar",
     .title = "Plate + Flatbar", .button = "Pl + Fb", .form = "p51", .group = plates,
     .input = Input::dimensions, .tables = {}, .series = nullptr, .options = {},
     .properties = PropertiesPlate, .shape = kPlateFlatBar, .lists = kPlateFlatBarLists, .carries = kPlateActions,
     .design = kPlateOfOneFlange, .strouhal = Strouhal::none},
    {.id = 52, .kind = Kind::plate, .menu = "mnuplateLr", .caption = "Plate + Lroll", .text = "Plate + L",
     .title = "Plate + L", .button = "Pl + L roll.", .form = "p52", .group = plates,
     .input = Input::stiffener, .tables = kOne<Table::l3>, .series = nullptr, .options = {},
     .properties = PropertiesPlate, .shape = kPlateRolledAngle, .lists = kPlateLists, .carries = kPlateActions,
     .design = kPlate, .strouhal = Strouhal::none},
    {.id = 53, .kind = Kind::plate, .menu = "mnuplateLweld", .caption = "Plate +  L weld", .text = "Plate + L-weld",
     .title = "Plate + L-weld", .button = "Pl + L weld", .form = "p53", .group = plates,
     .input = Input::dimensions, .tables = {}, .series = nullptr, .options = {},
     .properties = PropertiesPlate, .shape = kPlateWeldedAngle, .lists = kPlateLists, .carries = kPlateActions,
     .design = kPlate, .strouhal = Strouhal::none},
    {.id = 54, .kind = Kind::plate, .menu = "mnuplateBf", .caption = "Plate + Bf", .text = "Plate + Bulb Flat",
     .title = "Plate + Bulb Flat", .button = "Pl + Bf", .form = "p54", .group = plates,
     .input = Input::stiffener, .tables = kOne<Table::hp>, .series = nullptr, .options = {},
     .properties = PropertiesPlate, .shape = kPlateBulbFlat, .lists = kPlateLists, .carries = kPlateActions,
     .design = kPlate, .strouhal = Strouhal::none},
    {.id = 56, .kind = Kind::plate, .menu = "mnuplateTg", .caption = "Plate + T-girder", .text = "Plate + T-girder",
     .title = "Plate + T-girder", .button = "Pl + T", .form = "p56", .group = plates,
     .input = Input::dimensions, .tables = {}, .series = nullptr, .options = {},
     .properties = PropertiesPlate, .shape = kPlateTee, .lists = kPlateLists, .carries = kPlateActions,
     .design = kPlate, .strouhal = Strouhal::none},
    {.id = 101, .kind = Kind::i_rolled, .menu = "mnuU", .caption = "U", .text = "U",
     .title = "British profiles: UB, UC, UBP", .button = "UB UC UBP", .form = "p101", .group = british,
     .input = Input::series, .tables = kUniversal, .series = &State::series101, .options = {},
     .properties = PropertiesBritishI, .shape = kParallel, .lists = kBritishILists, .carries = kAllActions,
     .design = kRolledI, .strouhal = Strouhal::none},
    {.id = 102, .kind = Kind::i_rolled, .menu = "mnuj", .caption = "J", .text = "J",
     .title = "British profiles: J", .button = "J", .form = "p102", .group = british,
     .input = Input::table, .tables = kOne<Table::j>, .series = nullptr, .options = {},
     .properties = PropertiesBritishI, .shape = kJoistFaces, .lists = kBritishILists, .carries = kAllActions,
     .design = kRolledI, .strouhal = Strouhal::none},
    {.id = 103, .kind = Kind::channel, .menu = "mnuc", .caption = "C", .text = "C",
     .title = "British profiles: CH, PFC", .button = "CH PFC", .form = "p103", .group = british,
     .input = Input::series, .tables = kBritishChannels, .series = &State::series103, .options = {},
     .properties = PropertiesBritishChannel, .shape = kBritishChannelFaces, .lists = kBritishChannelLists, .carries = kAllActions,
     .design = kBritishChannel, .strouhal = Strouhal::none},
};

// The reserved number: its file block is kept, and what is shown of it is that of the plates.
constexpr FamilyTraits kReserved =
    {.id = 55, .kind = Kind::none, .menu = "", .caption = "", .text = "",
     .title = "", .button = "", .form = "p55", .group = MenuGroup::none,
     .input = Input::none, .tables = {}, .series = nullptr, .options = {},
     .properties = nullptr, .shape = kPlateTee, .lists = kReservedLists,
     .carries = kReservedActions, .design = kNoRules, .strouhal = Strouhal::none};

constexpr FamilyTraits kUnknown =
    {.id = 0, .kind = Kind::none, .menu = "", .caption = "", .text = "",
     .title = "", .button = "", .form = "", .group = MenuGroup::none,
     .input = Input::none, .tables = {}, .series = nullptr, .options = {},
     .properties = nullptr, .shape = kParallel, .lists = kNoLists,
     .carries = kAllActions, .design = kNoRules, .strouhal = Strouhal::none};
// clang-format on

// Place of a number in the table from 1; 0 where it has none.
constexpr auto kPlaces = [] {
    std::array<std::uint8_t, 256> places{};
    for (std::size_t i = 0; i < std::size(kFamilies); ++i) {
        places.at(static_cast<std::size_t>(kFamilies[i].id)) = static_cast<std::uint8_t>(i + 1);
    }
    return places;
}();

// A number serves one family only, a section has its properties, and a series its field.
constexpr bool Complete()
{
    for (const FamilyTraits& f : kFamilies) {
        const FamilyTraits& found = kFamilies[kPlaces[static_cast<std::size_t>(f.id)] - 1];
        if (&found != &f || f.kind == Kind::none || f.properties == nullptr ||
            (f.tables.size() > 1) != (f.series != nullptr) ||
            (f.input == Input::dimensions) != f.tables.empty()) {
            return false;
        }
    }
    return true;
}
static_assert(Complete());

}  // namespace

std::span<const FamilyTraits> Families()
{
    return kFamilies;
}

std::vector<int> FamilyNumbers()
{
    std::vector<int> numbers;
    std::ranges::transform(kFamilies, std::back_inserter(numbers), &FamilyTraits::id);
    std::ranges::sort(numbers);
    return numbers;
}

const FamilyTraits& TraitsOf(int family)
{
    if (family == kReserved.id) {
        return kReserved;
    }
    const auto at = static_cast<std::size_t>(family);  // negative ones lie beyond
    const std::size_t place = at < kPlaces.size() ? kPlaces[at] : 0;
    return place == 0 ? kUnknown : kFamilies[place - 1];
}

const FamilyTraits* FindFamily(int id)
{
    const FamilyTraits& traits = TraitsOf(id);
    return &traits == &kUnknown ? nullptr : &traits;
}

}  // namespace kestrum
