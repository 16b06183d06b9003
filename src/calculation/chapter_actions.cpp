#include "calculation/chapters.h"
#include "calculation/check_names.h"

#include "core/load_combination.h"
#include "report/diagrams.h"
#include "report/page_loading.h"
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

// "Eq 6.10: LC = 1.35*G + 1.5*Q1": a number is what multiplies.
Line WithFactors(const std::string& text)
{
    Line line;
    std::size_t done = 0;
    for (std::size_t star = text.find('*'); star != std::string::npos;
         star = text.find('*', star + 1)) {
        const std::size_t before = text.find_last_not_of("0123456789.", star - 1);
        line += Line(text.substr(done, before + 1 - done));
        line += WithNumbers(std::string_view(text).substr(before + 1, star - before - 1));
        done = star;
    }
    return line + Line(text.substr(done));
}

bool SameCase(const LoadCase& a, const LoadCase& b)
{
    return a.rule == b.rule && a.favourable == b.favourable && a.variables == b.variables &&
           a.factors == b.factors;
}

void AddLoadTable(const ProjectState& s, int direction, Document& d)
{
    const std::vector<LoadRow> rows = LoadRowsOf(s, direction);
    if (rows.empty()) {
        return;
    }
    TextTable table{
        .columns = {{"Load"}, {"kN/m, kN, kNm", true}, {"x, x1/x2 (m)", true}, {"Category"}},
        .caption = direction == 1 ? "Loads along z" : "Loads along y"};
    for (const LoadRow& row : rows) {
        table.rows.push_back(
            {row.load, WithNumbers(row.value), WithNumbers(row.position), row.category});
    }
    d.Add(std::move(table));
}

void AddEndForces(const ProjectState& s, Document& d)
{
    TextTable table{.columns = {{"End"},
                                {"N, kN", true},
                                {"My, kNm", true},
                                {"Vz, kN", true},
                                {"Mz, kNm", true},
                                {"Vy, kN", true}},
                    .caption = "Given end forces, design values"};
    table.rows.push_back({"1", NumberLine(s.ne), NumberLine(s.my1), NumberLine(s.vz1),
                          NumberLine(s.mz1), NumberLine(s.vy1)});
    table.rows.push_back({"2", NumberLine(s.ne), NumberLine(s.my2), NumberLine(s.vz2),
                          NumberLine(s.mz2), NumberLine(s.vy2)});
    d.Add(std::move(table));
}

// The arrangements of EN 1990 with what each gives, and the checks that it governs.
void AddCases(const CalculatedMember& m, Document& d)
{
    const std::vector<standard::CaseResult> cases = standard::CalculateCases(m.library, m.input);
    if (cases.empty()) {
        return;
    }
    d.Part("Combinations by EN 1990 as written");
    d.Say("Every arrangement is calculated for itself; each check keeps the one with its largest "
          "ratio, which stands at the check.",
          Paragraph::Kind::remark);
    TextTable table{.columns = {{"Combination"},
                                {"G", true},
                                {"Q1", true},
                                {"Q2", true},
                                {"largest IR", true},
                                {"of its check", false, 1.5},
                                {"governs", false, 2.5}}};
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
        const bool loads = m.s.loadmode == 1;  // forces at the ends are design values
        const auto factor = [&](double value) { return loads ? NumberLine(value) : Line("-"); };
        Line name = LineOf(one.load_case);
        if (one.load_case.rule == CaseRule::user) {
            name += Line(one.service ? ", SLS" : ", ULS");
        }
        table.rows.push_back({std::move(name), factor(f.g), factor(f.q1), factor(f.q2),
                              one.rated ? WithNumbers(ResultText(one.ir, 4)) : Line("-"),
                              one.rated ? NameInText(m.s, one.governing) : "", governs});
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

void AddActions(const CalculatedMember& m, Document& d)
{
    const ProjectState& s = m.s;
    d.Chapter("Actions");
    if (s.loadmode != 1) {
        AddEndForces(s, d);
    } else {
        d.Say("G permanent, Q1 leading variable, Q2 other variable actions; characteristic values.",
              Paragraph::Kind::remark);
        const std::string axial = AxialLoads(s);
        if (!axial.empty()) {
            d.Say(WithNumbers("Axial forces, kN: " + axial));
        }
        AddLoadTable(s, 1, d);
        AddLoadTable(s, 0, d);
        d.Say(s.selfweight == 1 ? Line("Self-weight of the member is included: ") +
                                      NumberLine(s.qload[0], 4) + Line(" kN/m.")
                                : Line("Self-weight of the member is not included."));
        d.Part("Combination by the rules of the program");
        d.Say(WithFactors(GoverningText(s)));
        d.Say(s.loadcomb == kEq610ab
                  ? "Eq (6.10a) and (6.10b) were both calculated; the one with the larger ratio "
                    "governs, and all ratios of the program are of it."
                  : "All ratios of the program are of this combination.");
        AddStrength(s, d);
    }
    AddCases(m, d);
    for (const std::string& load : m.outcome.dropped) {
        d.Say(WithNumbers("Not in this result: " + load, Span::Style::bad));
    }
}

}  // namespace kestrum
