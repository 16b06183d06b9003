#pragma once

// The sections of a table with what each would give for the member in hand: every row is calculated
// with the loads, lengths and settings as they stand. For choosing a section with the answer in
// view.

#include "core/held_state.h"
#include "core/library.h"
#include "report/outcome.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

// The result by EN 1993-1-1 as written, which takes longer than that of the program.
struct StandardRating {
    bool known = false;  // calculated yet
    bool rated = false, above = false;
    double ir = 0;

    bool passes() const { return rated && !above; }
};

struct RatedSection {
    i16 row = 0;         // of the table
    std::string name{};  // "HEA 200"
    double mass = 0;     // kg/m
    double height = 0;   // mm
    Verdict verdict = Verdict::bad;
    double ir = 0;          // as the outcome has it
    std::string control{};  // that governs: "NEd/NRd"
    StandardRating standard{};

    bool passes() const { return verdict == Verdict::within; }
};

// "0.63"; "1.24 > limit", for those who do not see a colour; "0.11 dropped" where the section
// cannot take all loads; the verdict of a row without a ratio.
std::string RatioText(const RatedSection& section);

// The same of the standard's result; empty as long as it is not known.
std::string StandardRatioText(const RatedSection& section);

// The row of the table by EN 1993-1-1 as written; `given` as a pass was given the project.
StandardRating RateByStandard(const Library& library, HeldState given, i16 row);

// All rows of the table of the family and series in hand; none for a family without tables.
std::vector<RatedSection> RateSections(const Library& library, const ProjectState& s);

// Whether the name has all that was typed, capitals and blanks aside: "45" finds HEA 450, "ipe 2"
// finds IPE 220.
bool Finds(std::string_view typed, std::string_view name);

enum class SectionOrder : std::uint8_t { table, mass, height, ratio, standard, control };

// Rows of one value stay in the order of the table; rows without a ratio come last.
void SortSections(std::vector<RatedSection>& sections, SectionOrder order, bool descending);

}  // namespace kestrum
