#pragma once

// The arrangements of actions that EN 1990, 6.4.3.2 and Table A1.2(B) ask for: permanent actions
// with their upper and their lower factor, each variable action present or not, each leading once.
// Every case is calculated whole and each check keeps the worst one.

#include "core/basis.h"
#include "core/load_combination.h"

#include <array>
#include <cstddef>
#include <string>

namespace kestrum {

enum class CaseRule { eq610, eq610a, eq610b, user, basic, end_forces, characteristic };
enum class CaseVariables { none, q1, q2, q1_leads, q2_leads, all };

struct ProjectInputs;

struct LoadCase {
    CaseRule rule;
    bool favourable;  // permanent actions with their lower factor
    CaseVariables variables;
    LoadFactors factors;
};

constexpr std::size_t kMaxLoadCases = 20;

struct LoadCases {
    std::array<LoadCase, kMaxLoadCases> at;
    std::size_t count = 0;
};

// Which categories have loads; a category without any gives no cases.
struct ActionsPresent {
    bool g, q1, q2;
};

// Strength. Selectors 4 and 5 and given end forces are the user's own factors: one case.
// Deviations D23, D26, D27, D28, D35, D36.
LoadCases StrengthCases(const ProjectInputs& s, const ActionsPresent& present,
                        const Basis& basis = Basis::Standard());

// Serviceability, characteristic combination, EN 1990, Eq (6.14b).
// Deviations D35, D36.
LoadCases ServiceCases(const ProjectInputs& s, const ActionsPresent& present,
                       const Basis& basis = Basis::Standard());

// "6.10a G sup + Q1 + psi0 Q2", "6.14b G + Q2", "user factors", "basic loads", "end forces".
std::string NameOf(const LoadCase& load_case);

}  // namespace kestrum
