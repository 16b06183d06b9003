#include "calculation/chapters.h"
#include "calculation/check_names.h"
#include "calculation/given_loads.h"

#include "core/load_combination.h"
#include "standard/cases.h"

namespace kestrum {

namespace {

void AddFactor(Document& d, std::string_view symbol, const Expr& formula, double value,
               std::string_view clause)
{
    d.Add(symbol, formula, value, "", std::string(clause));
}

// The factors on G, Q1 and Q2 of the strength combination in force.
void AddStrength(const ProjectState& s, Document& d)
{
    const int rule = StrengthCombination(s, s.governing);
    const LoadFactors f = StrengthFactors(s, s, rule);
    const Expr kg = Sym("K_FI,G", s.kfig), kq = Sym("K_FI,Q", s.kfiq);
    const Expr psi1 = Sym("ψ_Q1", s.psi1), psi2 = Sym("ψ_Q2", s.psi2);
    switch (rule) {
    case kEq610:
        AddFactor(d, "F_G", Sym("γ_G", s.g610g) * kg, f.g, "EN 1990, Eq (6.10)");
        AddFactor(d, "F_Q1", Sym("γ_Q1", s.g610q1) * kq, f.q1, "EN 1990, Eq (6.10)");
        AddFactor(d, "F_Q2", Sym("γ_Q2", s.g610q2) * kq * psi1, f.q2, "EN 1990, Eq (6.10)");
        return;
    case kEq610a:
        AddFactor(d, "F_G", Sym("γ_G", s.g610ag) * kg, f.g, "EN 1990, Eq (6.10a)");
        AddFactor(d, "F_Q1", Sym("γ_Q1", s.g610aq1) * kq * psi1, f.q1, "EN 1990, Eq (6.10a)");
        AddFactor(d, "F_Q2", Sym("γ_Q2", s.g610aq2) * kq * psi2, f.q2, "EN 1990, Eq (6.10a)");
        return;
    case kEq610b:
        AddFactor(d, "F_G", Sym("ξ", s.xi610b) * Sym("γ_G", s.g610bg) * kg, f.g,
                  "EN 1990, Eq (6.10b)");
        AddFactor(d, "F_Q1", 1.5 * kq, f.q1, "EN 1990, Eq (6.10b)");
        AddFactor(d, "F_Q2", 1.5 * kq * psi2, f.q2, "EN 1990, Eq (6.10b)");
        return;
    default:
        for (const auto& [symbol, factor] :
             {std::pair{"F_G", f.g}, {"F_Q1", f.q1}, {"F_Q2", f.q2}}) {
            d.Add(symbol, factor, "", "", rule == kUserFactors ? "as entered" : "basic loads");
        }
    }
}

// The same of serviceability, where they are not 1.
void AddService(const ProjectState& s, Document& d)
{
    const LoadFactors f = ServiceFactors(s, s.loadcomb);
    switch (s.loadcomb) {
    case kUserFactors:
        for (const auto& [symbol, factor] :
             {std::pair{"F_G,SLS", f.g}, {"F_Q1,SLS", f.q1}, {"F_Q2,SLS", f.q2}}) {
            d.Add(symbol, factor, "", "", "as entered");
        }
        return;
    case kBasicLoads:
        return;
    default:
        d.Add("F_Q2,SLS", Sym("ψ_Q2", s.psi2), f.q2, "", "EN 1990, Eq (6.14)",
              "deflections; G and Q1 have 1");
    }
}

bool SameCase(const LoadCase& a, const LoadCase& b)
{
    return a.rule == b.rule && a.favourable == b.favourable && a.variables == b.variables &&
           a.factors == b.factors;
}

// The arrangements of EN 1990 with what each gives, and the checks that it governs.
void AddCases(const CalculatedMember& m, Document& d)
{
    const std::vector<standard::CaseResult> cases = standard::CalculateCases(m.library, m.input);
    if (cases.empty()) {
        return;
    }
    const bool loads = m.s.loadmode == 1;
    d.Part(loads ? "Combinations by EN 1990 as written" : "The case of EN 1993-1-1 as written");
    d.Say(loads ? "Every arrangement is calculated for itself; each check keeps the one with its "
                  "largest ratio, which stands at the check."
                : "Given end forces are design values: one case, without factors.",
          Paragraph::Kind::remark);
    TextTable table{.columns = {{loads ? "Combination" : "Case"}}};
    if (loads) {
        table.columns.insert(table.columns.end(), {{"G", true}, {"Q1", true}, {"Q2", true}});
    }
    table.columns.insert(
        table.columns.end(),
        {{"largest IR", true}, {"of its check", false, 1.5}, {"governs", false, 2.5}});
    for (const standard::CaseResult& one : cases) {
        std::string governs;
        for (std::size_t i = 0; i < standard::kCheckIds; ++i) {
            const standard::Check& check = m.standard.checks.best[i];
            const auto id = static_cast<standard::CheckId>(i);
            if (check.present && SameCase(check.load_case, one.load_case) &&
                IsDeflection(id) == one.service) {
                governs += (governs.empty() ? "" : "; ") + NameInText(m.s, id);
            }
        }
        const LoadFactors& f = one.load_case.factors;
        Line name = LineOf(one.load_case);
        if (one.load_case.rule == CaseRule::user) {
            name += Line(one.service ? ", SLS" : ", ULS");
        }
        std::vector<Line> row{std::move(name)};
        if (loads) {
            row.insert(row.end(), {NumberLine(f.g), NumberLine(f.q1), NumberLine(f.q2)});
        }
        row.insert(row.end(), {one.rated ? WithNumbers(ResultText(one.ir, 4)) : Line("-"),
                               one.rated ? NameInText(m.s, one.governing) : "", governs});
        table.rows.push_back(std::move(row));
    }
    d.Add(std::move(table));
}

}  // namespace

std::string CombinationOf(const ProjectState& s, bool service)
{
    if (s.loadmode != 1) {
        return "end forces";
    }
    const int rule = StrengthCombination(s, s.governing);
    if (rule == kUserFactors) {
        return service ? "SLS factors" : "ULS factors";
    }
    if (rule == kBasicLoads) {
        return "basic loads";
    }
    return service ? "6.14a" : rule == kEq610 ? "6.10" : rule == kEq610a ? "6.10a" : "6.10b";
}

void AddLoading(const CalculatedMember& m, Document& d)
{
    const ProjectState& s = m.s;
    AddGivenLoads(m, d);
    if (s.loadmode != 1) {
        return;
    }
    d.Part("Combination by the rules of the program");
    d.Say(Sentence(GoverningText(s)));
    d.Say(!m.outcome.designed() ? "The calculation of the program stops in this combination."
          : s.loadcomb == kEq610ab
              ? "Eq (6.10a) and (6.10b) were both calculated; the one with the larger ratio "
                "governs, and all ratios of the program are of it."
              : "All ratios of the program are of this combination.");
    AddStrength(s, d);
    AddService(s, d);
}

void AddActions(const CalculatedMember& m, Document& d)
{
    d.Chapter("Actions");
    AddLoading(m, d);
    AddCases(m, d);
}

}  // namespace kestrum
