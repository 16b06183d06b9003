#pragma once

// Load combinations of EN 1990, 6.4.3.2 and 6.5.3, in the national annexes: factors, class factors
// and the texts that name a combination.
//
// Deviation D23: Eq 6.10 takes G with 1.1 in Denmark and Finland; EN 1990, Table A1.2(B)
// gives 1.35. Deviation D26: in the user-defined annex Eq 6.10a takes G with 1.1, while its text
// says 1.35; EN 1990, Table A1.2(B) gives 1.35. Deviation D27: a permanent load has one factor
// whether it acts favourably or not; EN 1990, Table A1.2(B) takes favourable permanent actions
// with 1.0. Deviation D28: Eq 6.10 multiplies Q2 by psi1, the value listed for Q1; EN 1990, Eq
// (6.10) takes the combination value of Q2 itself. Deviation D35: a variable load has its one
// factor also where it acts favourably; EN 1990, Table A1.2(B) leaves it out there. Deviation D36:
// Q1 alone leads, in the strength and the serviceability combination, and Q2 has its psi value; EN
// 1990, 6.4.3.2 and 6.5.3 take each variable action in turn as the leading one.

#include "core/state/annex_factors.h"
#include "core/state/inputs.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

struct ProjectState;

// Values of loadcomb.
constexpr i16 kEq610 = 0, kEq610a = 1, kEq610b = 2, kEq610ab = 3, kUserFactors = 4, kBasicLoads = 5;

// Entries of the selector list; empty outside it.
std::string_view LoadCombinationName(int loadcomb);

// psi1 and psi2 from their list indexes.
void SetPsi(Settings& settings);

// Sets g610g .. kfiq for an annex from safetyclass and loadcomb. To be called after every change of
// the annex, safetyclass or loadcomb. An index outside the list changes nothing.
void ApplyAnnexLoads(const Settings& settings, AnnexFactors& factors, int annexindex);

struct LoadFactors {
    double g, q1, q2;
    bool operator==(const LoadFactors&) const = default;
};

// The strength combination in force; of Eq 6.10a/b the one that `governing` names.
int StrengthCombination(const Inputs& in, int governing);

// Factors on G, Q1, Q2 of the strength combination 0, 1, 2, 4 or 5; any other combines nothing.
LoadFactors StrengthFactors(const Inputs& in, const AnnexFactors& annex, int loadcomb);

// Factors of the serviceability combination that goes with the selector 0 to 5.
LoadFactors ServiceFactors(const Inputs& in, int loadcomb);

std::string CombText610(const ProjectState& s);
std::string CombText610a(const ProjectState& s);
std::string CombText610b(const ProjectState& s);
std::string CombText614(const ProjectState& s);
std::string CombTextUls(const ProjectState& s);
std::string CombTextSls(const ProjectState& s);
std::string CombTextBasic();

// The texts that belong to the selector in force, in the order of the list.
std::vector<std::string> ShowCombination(const ProjectState& s);

// "Governing Loadcase: EN1990 ULS: Eq 6.10: .. / EN1990 SLS: .."; the second half only with
// checksls.
std::string GoverningText(const ProjectState& s);

}  // namespace kestrum
