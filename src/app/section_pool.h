#pragma once

// The sections among which one is chosen: families, series and single sections of the profile
// tables, and families of plates over a grid of dimensions. Prices may come along.
//
//   SectionPool pool;
//   pool.Add(library, "IPE");  pool.Add(library, "21");
//   pool.Range("p21.isth=300:900:50");  pool.Range("p21.istb1=200,250,300");
//   pool.Keep("p21.isttw");             // the member's own; other thicknesses are those of plates
//   const std::string refusal = pool.Finish(library);

#include "app/assign.h"
#include "core/library.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct ProjectState;

// One section of a pool.
struct Candidate {
    std::uint16_t entry = 0;              // of the pool
    i16 row = 0;                          // of the entry's table
    std::array<std::uint8_t, 7> at = {};  // of each dimension, in its list
};

struct Price {
    double value = 0;
    bool per_metre = false;  // else per kg
};

class SectionPool {
public:
    // A pool may hold so many sections.
    static constexpr std::size_t kMost = 1000000;

    // A family by number, caption or short name, a series ("UB"), a section ("IPE 300",
    // "CHS 114.3x5"), or `all`: every family with a table of its own sections. Returns why there is
    // no such thing, or nothing.
    std::string Add(const Library& library, std::string_view word);

    // A CSV under the names section, price/kg or price/m, and, for a price that holds for one grade
    // only, steel. What `section` names is added as by Add; of two lines for one section the one
    // that names it closer counts (the section before its family, the steel before none). Returns
    // "prices.csv:3: what", or nothing.
    std::string AddPrices(const Library& library, std::string_view text, const std::string& name);

    // "p21.isth=300:900:50" (from, to, step), "=6,8,10", "=plates", "=plates:6:30", for tubes
    // "=tubes". Returns why not, or nothing.
    std::string Range(std::string_view text);
    // The dimension stays as the member has it.
    std::string Keep(std::string_view field);

    // Behind the last of these. Returns what is missing or beyond the limits of a box, or nothing.
    std::string Finish(const Library& library);

    // In the order in which they were named; rows as in their table.
    const std::vector<Candidate>& candidates() const { return candidates_; }
    bool priced() const { return !prices_.empty(); }

    // Sections of plates have no name that a table of members takes; it gives these fields instead,
    // `family` the first. None for a section with a name.
    bool IsNamed(const Candidate& candidate) const;
    std::vector<std::string> FieldsOf(const Candidate& candidate) const;
    // Of all candidates.
    bool HasNames() const;
    std::vector<std::string> Fields() const;

    // Gives the member the section, as `kestrum set` would. False where the dimensions do not fit
    // together, such as an overhang wider than its flange.
    bool Apply(const Library& library, ProjectState& s, const Candidate& candidate) const;
    // Whether Apply may move dimensions that the candidate does not set.
    bool LeavesTraces(const Candidate& candidate) const { return entries_[candidate.entry].tied; }

    // "IPE 300", "CHS 114.3x5", "I 600x250x8x15" in the order of the boxes.
    std::string NameOf(const Library& library, const ProjectState& s,
                       const Candidate& candidate) const;

    // Whether the figures are those of a profile table, of stiffened plates in part.
    bool HasRow(const Candidate& candidate) const
    {
        return entries_[candidate.entry].table.has_value();
    }

    // For a steel (a row of the material list).
    std::optional<Price> PriceOf(const Candidate& candidate, int steel) const;

private:
    // The sizes of one dimension.
    struct Sizes {
        AssignTarget target{};
        std::vector<std::string> texts{};  // empty: kept
        std::vector<double> values{};      // as the record holds them
    };
    // A family of the pool, one of its tables, or one section.
    struct Entry {
        i16 family = 0, series = 0;
        std::optional<Table> table{};
        std::optional<i16> row{};    // one section of the table
        std::vector<Sizes> sizes{};  // dimensions of a family of plates
        bool single = false;         // a tube by name
        bool tied = false;           // boxes whose limits depend on other dimensions
    };
    struct Given {
        std::string field, wanted;  // empty: kept
        bool used = false;
    };
    // Whose price it is: the entries that a word adds, any steel or one.
    struct PriceLine {
        std::vector<Entry> of{};
        int steel = -1;
        Price price{};
        std::string word{};
    };

    static bool IsNamed(const Entry& entry);
    static std::vector<std::string> FieldsOf(const Entry& entry);
    static std::string Find(const Library& library, std::string_view word,
                            std::vector<Entry>& found);
    static bool Covers(const Entry& entry, const Entry& other);
    static bool Prices(const Entry& entry, const Entry& of, i16 row);
    // Section, price, steel.
    std::string AddPriceLine(const Library& library, const std::array<std::string, 3>& cells,
                             bool unpriced, bool per_metre);
    std::string FillEntry(const Library& library, Entry& entry);
    std::string FillSizes(const Library& library, const Entry& entry, Sizes& sizes);
    std::string ExpandGrid(std::size_t number, i16 row);

    std::vector<Entry> entries_;
    std::vector<Given> given_;
    std::vector<PriceLine> prices_;
    std::vector<Candidate> candidates_;
};

}  // namespace kestrum
