#include "core/load_cases.h"

#include "core/annexes.h"
#include "core/project_inputs.h"

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

// What one equation takes: factors on G, on a leading and on an accompanying variable action.
struct Equation {
    CaseRule rule;
    double upper, lower;
    double q1_leads, q1_follows;
    double q2_leads, q2_follows;
};

constexpr double kUpper = 1.35;  // Table A1.2(B), every annex in Eq 6.10
constexpr double kVariable = 1.5;

void Add(LoadCases& cases, const LoadCase& added)
{
    const auto begin = cases.at.begin();
    const auto end = begin + static_cast<std::ptrdiff_t>(cases.count);
    const bool known = std::any_of(begin, end, [&](const LoadCase& other) {
        return other.rule == added.rule && other.factors == added.factors;
    });
    if (!known && cases.count < kMaxLoadCases) {
        cases.at[cases.count++] = added;
    }
}

// D35: the program leaves no variable action out. D36: with it Q1 alone leads.
void AddArrangements(LoadCases& cases, const Equation& eq, bool favourable,
                     const ActionsPresent& present, const Basis& basis)
{
    const double g = favourable ? std::min(eq.lower, eq.upper) : eq.upper;
    const auto add = [&](CaseVariables variables, double q1, double q2) {
        Add(cases, {eq.rule, favourable, variables, {g, q1, q2}});
    };
    const bool both = present.q1 && present.q2;
    const bool absent = (present.q1 || present.q2) && basis.departs(Dev::d35);
    if (absent || !(present.q1 || present.q2)) {
        add(CaseVariables::none, 0, 0);
    }
    if (present.q1 && (absent || !both)) {
        add(CaseVariables::q1, eq.q1_leads, 0);
    }
    if (present.q2 && (absent || !both)) {
        add(CaseVariables::q2, 0, basis.pick(Dev::d36, eq.q2_follows, eq.q2_leads));
    }
    if (both) {
        add(CaseVariables::q1_leads, eq.q1_leads, eq.q2_follows);
        if (basis.departs(Dev::d36)) {
            add(CaseVariables::q2_leads, eq.q1_follows, eq.q2_leads);
        }
    }
}

void AddEquation(LoadCases& cases, const Equation& eq, const ActionsPresent& present,
                 const Basis& basis)
{
    AddArrangements(cases, eq, false, present, basis);
    if (present.g && eq.lower != eq.upper && basis.departs(Dev::d27)) {
        AddArrangements(cases, eq, true, present, basis);
    }
}

// A factor as the tables write it, with two decimals; the record keeps it in single precision.
double AsWritten(double factor)
{
    return std::round(factor * 100.0) / 100.0;
}

LoadCases OneCase(CaseRule rule, const LoadFactors& factors)
{
    LoadCases cases;
    Add(cases, {rule, false, CaseVariables::all, factors});
    return cases;
}

}  // namespace

LoadCases StrengthCases(const ProjectInputs& s, const ActionsPresent& present, const Basis& basis)
{
    if (s.loadmode != 1) {
        return OneCase(CaseRule::end_forces, {1, 1, 1});
    }
    if (s.loadcomb == kUserFactors || s.loadcomb == kBasicLoads) {
        return OneCase(s.loadcomb == kUserFactors ? CaseRule::user : CaseRule::basic,
                       StrengthFactors(s, s, s.loadcomb));
    }
    const Annex& annex = AnnexAt(s.annexindex);
    const bool low = !annex.low_class_in_610 && s.safetyclass == 1;
    const double kg = low ? basis.pick(Dev::d25, AsWritten(s.kfig), annex.of_class[0].g) : s.kfig;
    const double kq = low ? basis.pick(Dev::d25, AsWritten(s.kfiq), annex.of_class[0].q)
                          : static_cast<double>(s.kfiq);
    const double lower = annex.favourable;
    const double psi1 = s.psi1;
    const double psi2 = s.psi2;
    LoadCases cases;
    if (s.loadcomb == kEq610) {
        const double q1 = s.g610q1 * kq;
        const double q2 = s.g610q2 * kq;
        const double upper = basis.pick(Dev::d23, AsWritten(s.g610g), kUpper);
        const double follows = q2 * basis.pick(Dev::d28, psi1, psi2);
        AddEquation(cases, {CaseRule::eq610, upper * kg, lower, q1, q1 * psi1, q2, follows},
                    present, basis);
    }
    if (s.loadcomb == kEq610a || s.loadcomb == kEq610ab) {
        const double permanent = annex.basis == AnnexBasis::user
                                     ? basis.pick(Dev::d26, AsWritten(s.g610ag), annex.stated610ag)
                                     : static_cast<double>(s.g610ag);
        const double q1 = s.g610aq1 * kq * psi1;
        const double q2 = s.g610aq2 * kq * psi2;
        AddEquation(cases, {CaseRule::eq610a, permanent * kg, lower, q1, q1, q2, q2}, present,
                    basis);
    }
    if (s.loadcomb == kEq610b || s.loadcomb == kEq610ab) {
        const double permanent = static_cast<double>(s.xi610b) * s.g610bg * kg;
        const double q = kVariable * kq;
        AddEquation(cases, {CaseRule::eq610b, permanent, lower, q, q * psi1, q, q * psi2}, present,
                    basis);
    }
    return cases;
}

LoadCases ServiceCases(const ProjectInputs& s, const ActionsPresent& present, const Basis& basis)
{
    if (s.loadcomb == kUserFactors || s.loadcomb == kBasicLoads) {
        return OneCase(s.loadcomb == kUserFactors ? CaseRule::user : CaseRule::basic,
                       ServiceFactors(s, s.loadcomb));
    }
    LoadCases cases;
    AddArrangements(cases, {CaseRule::characteristic, 1, 1, 1, s.psi1, 1, s.psi2}, false, present,
                    basis);
    return cases;
}

std::string NameOf(const LoadCase& load_case)
{
    switch (load_case.rule) {
    case CaseRule::user:
        return "user factors";
    case CaseRule::basic:
        return "basic loads";
    case CaseRule::end_forces:
        return "end forces";
    default:
        break;
    }
    const bool serviceable = load_case.rule == CaseRule::characteristic;
    const bool a = load_case.rule == CaseRule::eq610a;
    std::string text = load_case.rule == CaseRule::eq610    ? "6.10"
                       : a                                  ? "6.10a"
                       : load_case.rule == CaseRule::eq610b ? "6.10b"
                                                            : "6.14b";
    text += serviceable ? " G" : load_case.favourable ? " G inf" : " G sup";
    const std::string q1 = a ? " + psi0 Q1" : " + Q1";
    const std::string q2 = a ? " + psi0 Q2" : " + Q2";
    switch (load_case.variables) {
    case CaseVariables::q1:
        return text + q1;
    case CaseVariables::q2:
        return text + q2;
    case CaseVariables::q1_leads:
        return text + q1 + " + psi0 Q2";
    case CaseVariables::q2_leads:
        return text + q2 + " + psi0 Q1";
    default:
        return text;
    }
}

}  // namespace kestrum
