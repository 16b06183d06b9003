#pragma once

// The result by EN 1993-1-1 as written in words, for every face alike: the largest ratio beside
// that of the program, the deviations that act with what each of them costs.

#include "standard/standard.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct Outcome;

// "lateral torsional buckling".
std::string_view WordsOf(standard::CheckId id);

// "0.81"; "infinite" where nothing resists; "1.18 ABOVE" beyond the limit, for those who do not see
// a colour.
std::string RatioFigure(double ir, bool above);

// What a ratio is of: "buckling about z with bending (Eq 6.62, Annex B), 6.10 G sup + Q1, x/L =
// 0.50"; without the place for a check of the whole member.
std::string SourceOf(standard::CheckId id, const standard::Check& check);

// "IR 0.81, section My (6.2.5), 6.10 G sup + Q1, x/L = 0.50"; "not covered: ..." with the reason.
std::string StandardWords(const standard::StandardResult& result);

// "IR 0.73, NEd/Nb,v,Rd (6.3.1)"; the verdict where there is no ratio.
std::string ProgramWords(const Outcome& outcome);

// Whether one is within the limit and the other above it.
bool VerdictsDiffer(const standard::StandardResult& result, const Outcome& outcome);

// "+0.075"; "+inf"; empty for a cost without a value, which decides whether there is a ratio.
std::string CostFigure(double cost);

// "section N, My, Mz +0.098": what the deviation changes most, where that is another check than the
// one that governs, or another change than the cost; else empty.
std::string LargestChangeText(const standard::StandardResult& result,
                              const standard::DeviationCost& at);

struct CostLine {
    std::string_view id;  // "D181"
    std::string cost;
    std::string_view text;  // one sentence
    Dev deviation;
    std::string change;  // as LargestChangeText
};

// Largest cost first. Deviations that touch checks which do not govern, by numbers: "D207, D103".
struct CostList {
    std::vector<CostLine> lines;
    std::string others;
};
CostList CostsOf(const standard::StandardResult& result);

// Where no deviation acts by itself: whether the two results are the same.
std::string NoCostsText(const standard::StandardResult& result, const Outcome& outcome);

// "Frequencies by EN 1990, A1.4.4: mass 75.3 kg/m with psi Q: 9.81 39.25 88.31 Hz"; empty without
// modal analysis.
std::string FrequenciesText(const standard::StandardResult& result);

}  // namespace kestrum
