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
using State = SectionForms;

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

constexpr auto kRows = [] {
    std::array<const FamilyTraits*, 256> rows{};
    rows.fill(&kUnknown);
    rows.at(static_cast<std::size_t>(kReserved.id)) = &kReserved;
    for (const FamilyTraits& family : kFamilies) {
        rows.at(static_cast<std::size_t>(family.id)) = &family;
    }
    return rows;
}();

// A number serves one family only, and a series has its field. (That properties are there is left
// to the tests: with sanitizers g++ does not take the address of a function for a constant.)
constexpr bool Complete()
{
    for (const FamilyTraits& f : kFamilies) {
        if (kRows[static_cast<std::size_t>(f.id)] != &f || f.kind == Kind::none ||
            (f.tables.size() > 1) != (f.series != nullptr) ||
            (f.input == Input::dimensions) != f.tables.empty()) {
            return false;
        }
    }
    return true;
}
static_assert(Complete());

}  // namespace

constinit const std::array<const FamilyTraits*, 256> kRowOf = kRows;

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

const FamilyTraits* FindFamily(int id)
{
    const FamilyTraits& traits = TraitsOf(id);
    return &traits == &kUnknown ? nullptr : &traits;
}

}  // namespace kestrum
