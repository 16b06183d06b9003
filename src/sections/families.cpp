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

constexpr FamilyTraits kFamilies[] = {
#include "sections/family_rows.inc"
};

// clang-format off
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
