#include "calculation/chapters.h"

#include "core/load_combination.h"
#include "report/diagrams.h"
#include "report/page_loading.h"

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
        d.Add("F_G", f.g, "", "");
        d.Add("F_Q1", f.q1, "", "");
        d.Add("F_Q2", f.q2, "", "");
    }
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
        table.rows.push_back({row.load, row.value, row.position, row.category});
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

}  // namespace

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
            d.Say("Axial forces, kN: " + axial);
        }
        AddLoadTable(s, 1, d);
        AddLoadTable(s, 0, d);
        d.Say(s.selfweight == 1
                  ? "Self-weight of the member is included: " + NumberText(s.qload[0], 4) + " kN/m."
                  : "Self-weight of the member is not included.");
        d.Part("Combination of the strength checks");
        d.Say(GoverningText(s));
        AddStrength(s, d);
    }
    for (const std::string& load : m.outcome.dropped) {
        d.Say(Line().Add("Not in this result: " + load, Span::Style::bad));
    }
}

}  // namespace kestrum
