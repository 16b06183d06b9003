#pragma once

// Figures of single table rows that no other publication supports, and what the others give
// (data/second_source.csv; data/SOURCES.md names the publications). The program's own rules keep
// the figures of the tables; the standard basis takes the corrected ones.

#include "core/file_notation.h"
#include "core/library.h"
#include "core/state/inputs.h"

#include <optional>
#include <string_view>
#include <vector>

namespace kestrum {

constexpr std::string_view kSecondSourceFile = "second_source.csv";

// A CSV: table, size key, figure with its unit as the tables head it, the table's value, the
// corrected value, source. Rows that the library's tables do not have are left out; so is what is
// no row.
std::vector<CorrectedFigure> ReadSecondSource(const Library& library, std::string_view bytes);

// Whether the list is whole: its header, rows of a known table and figure with two values above 0
// and a source, and a line end behind the last.
std::optional<FileFault> CheckSecondSource(std::string_view bytes);

// The corrected figure of the chosen row; `ours` where there is none, and where the row is the
// user's own and does not hold the delivered figure. Units of the record, mm.
double SecondSource(const Library& library, const Inputs& in, SectionFigure figure, float ours);

}  // namespace kestrum
