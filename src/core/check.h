#pragma once

// What was checked: the list of a pass, from which every answer is made. A check holds numbers and
// the form in which it is written, no text; core/check_text.h writes it. Taking one costs nothing
// but the store.

#include "core/literal.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace kestrum {

// `none` stands for a row where nothing was checked.
enum class CheckId : std::uint8_t {
    none,
#define CHECK(id, ...) id,
#include "core/check_list.inc"
#undef CHECK
    count
};
constexpr std::size_t kChecks = static_cast<std::size_t>(CheckId::count);

enum class CheckForm : std::uint8_t {
    none,
#define FORM(form, id, ...) form,
#include "core/check_list.inc"
#undef FORM
    count
};

// The rows of the answer. Each shows one check: in the section control the one with the largest
// ratio of its row, else the last one taken.
enum class ResultRow : std::uint8_t {
    single,      // section: N, My, Mz alone
    combined,    // section: their combinations
    shear,       // section
    buckling_y,  // member
    buckling_z,
    lateral,  // lateral torsional buckling; of an angle, buckling about v
    deflection_z,
    deflection_y
};
constexpr std::size_t kResultRows = 8;
constexpr ResultRow kSectionRows[] = {ResultRow::single, ResultRow::combined, ResultRow::shear};
constexpr ResultRow kBucklingRows[] = {ResultRow::buckling_y, ResultRow::buckling_z,
                                       ResultRow::lateral};
constexpr ResultRow kDeflectionRows[] = {ResultRow::deflection_z, ResultRow::deflection_y};

constexpr std::array<ResultRow, kChecks> kRowOfCheck{
    ResultRow{},
#define CHECK(id, row, ...) ResultRow::row,
#include "core/check_list.inc"
#undef CHECK
};
constexpr ResultRow RowOf(CheckId id)
{
    return kRowOfCheck[static_cast<std::size_t>(id)];
}

// Where on the member a check holds.
struct CheckPlace {
    enum class Kind : std::uint8_t { member, section, point, segment };
    Kind kind = Kind::member;
    std::int16_t number = 0;  // of the point of a section, of the segment; from 1
    std::int16_t parts = 0;   // number of segments
    double x = 0;             // x/L of a section

    bool operator==(const CheckPlace&) const = default;
};

constexpr std::int8_t kWithin = 2;
constexpr std::int8_t kAbove = 4;

struct Check {
    CheckForm form = CheckForm::none;
    bool shear_z = false, shear_y = false;  // Vz reduces My,Rd, Vy reduces Mz,Rd
    std::int8_t status = kWithin;           // or kAbove the limit
    float limit = 1;                        // of the ratio
    CheckPlace place{};
    double ratio = 0;
    std::array<double, 9> terms{};  // of the calculation; behind them signs, see ShownTextOf
    Literal note{};                 // what the limit says behind the clause, with its bracket

    bool operator==(const Check&) const = default;
    bool empty() const { return form == CheckForm::none; }
    void Judge(double found, float most)
    {
        ratio = found;
        limit = most;
        status = found <= most ? kWithin : kAbove;
    }
};

// Checks stand in the order of their rows, so that the checks of some rows are a range.
constexpr std::size_t FirstCheckOf(std::size_t row)
{
    std::size_t id = 1;
    while (id < kChecks && static_cast<std::size_t>(kRowOfCheck[id]) < row) {
        ++id;
    }
    return id;
}
static_assert(std::is_sorted(kRowOfCheck.begin() + 1, kRowOfCheck.end()));

struct CheckList {
    std::array<Check, kChecks> checks{};           // that of `none` stays empty
    std::array<CheckId, kResultRows> governing{};  // of each row

    bool operator==(const CheckList&) const = default;

    Check& operator[](CheckId id) { return checks[static_cast<std::size_t>(id)]; }
    const Check& operator[](CheckId id) const { return checks[static_cast<std::size_t>(id)]; }
    CheckId governs(ResultRow row) const { return governing[static_cast<std::size_t>(row)]; }
    // The check that the row shows; an empty one where nothing was checked.
    const Check& row(ResultRow row) const { return (*this)[governs(row)]; }
    // One of the rows shows something.
    bool any(std::span<const ResultRow> rows) const
    {
        return std::any_of(rows.begin(), rows.end(), [&](ResultRow r) { return !row(r).empty(); });
    }

    // The row of the check shows it from now on.
    Check& Govern(CheckId id)
    {
        governing[static_cast<std::size_t>(RowOf(id))] = id;
        return (*this)[id];
    }
    // Takes the checks of the rows out of the list.
    template <ResultRow kFirst, ResultRow kLast = kFirst> void Clear()
    {
        constexpr auto kFrom = static_cast<std::size_t>(kFirst);
        constexpr auto kTo = static_cast<std::size_t>(kLast) + 1;
        std::fill(&checks[FirstCheckOf(kFrom)], checks.data() + FirstCheckOf(kTo), Check{});
        std::fill(&governing[kFrom], governing.data() + kTo, CheckId::none);
    }
};

}  // namespace kestrum
