#include "calculation/check_equations.h"

#include "calculation/check_formula.h"
#include "calculation/check_names.h"
#include "calculation/parts.h"
#include "calculation/standard_equations.h"

#include "core/check_text.h"
#include "document/equation_layout.h"
#include "document/notation.h"
#include "report/stages.h"
#include "sections/families.h"

#include <algorithm>

namespace kestrum {

namespace {

// Bolts in one leg make the slenderness about u and v; both are asked for with v.
void AddColumn(const ProjectState& s, CheckId check, Document& d)
{
    if (StagesOf(s).axial && s.ned > 0) {
        AddFlexuralBuckling(s,
                            check == CheckId::flexural_v || check == CheckId::interaction_v ? 'v'
                            : check == CheckId::flexural_y || check == CheckId::eq661       ? 'y'
                                                                                            : 'z',
                            d);
    }
}

void AddInteractionOf(const ProjectState& s, CheckId check, Document& d)
{
    AddColumn(s, check, d);
    const StagesRun stages = StagesOf(s);
    if (stages.lateral && s.mydesignf != 0) {
        AddLateralBuckling(s, d);
    }
    if (stages.interaction) {
        AddInteractionFactors(s, d);
    }
}

void AddLeading(const ProjectState& s, CheckId check, Document& d)
{
    switch (check) {
    case CheckId::n:
        AddAxialResistance(s, d);
        return;
    case CheckId::my:
        AddMomentResistanceY(s, d);
        break;
    case CheckId::mz:
        AddMomentResistanceZ(s, d);
        break;
    case CheckId::leg_axes:
    case CheckId::principal_axes:
        AddAxialResistance(s, d);
        break;
    case CheckId::my_mz:
    case CheckId::n_my:
    case CheckId::n_mz:
    case CheckId::n_my_mz:
        AddAxialResistance(s, d);
        if (check != CheckId::n_mz) {
            AddMomentResistanceY(s, d);
        }
        if (check != CheckId::n_my) {
            AddMomentResistanceZ(s, d);
        }
        break;
    case CheckId::vz:
        AddShearResistanceZ(s, d);
        return;
    case CheckId::vy:
        AddShearResistanceY(s, d);
        return;
    case CheckId::flexural_y:
    case CheckId::flexural_z:
    case CheckId::flexural_v:
        AddAxialResistance(s, d);
        AddColumn(s, check, d);
        return;
    case CheckId::eq661:
    case CheckId::eq662:
    case CheckId::interaction_v:
        AddInteractionOf(s, check, d);
        return;
    case CheckId::ltb:
        AddLateralBuckling(s, d);
        return;
    case CheckId::deflection_z:
        AddDeflectionLimit(s, 'z', d);
        return;
    case CheckId::deflection_y:
        AddDeflectionLimit(s, 'y', d);
        return;
    default:
        return;
    }
    AddReducedResistances(s, s.checklist[check], d);
}

std::vector<Equation> EquationsIn(Document&& d)
{
    std::vector<Equation> equations;
    for (Block& block : d.blocks) {
        if (auto* const equation = std::get_if<Equation>(&block)) {
            equations.push_back(std::move(*equation));
        }
    }
    return equations;
}

const CheckPair* PairOf(const ProjectState& s, CheckId check)
{
    for (const CheckPair& pair : CheckPairs(s)) {
        if (std::find(pair.program.begin(), pair.program.end(), check) != pair.program.end()) {
            return &pair;
        }
    }
    return nullptr;
}

std::string RichLine(const Line& line, char decimal)
{
    std::string text;
    for (const Span& span : line.spans) {
        const std::string content = span.number ? RichNumber(span.text, decimal) : span.text;
        switch (span.style) {
        case Span::Style::subscript:
            text += "<sub>" + content + "</sub>";
            break;
        case Span::Style::strong:
        case Span::Style::good:
        case Span::Style::bad:
            text += "<b>" + content + "</b>";
            break;
        default:
            text += span.number ? content : PlainText(Line().Add(content, span.style));
        }
    }
    return text;
}

}  // namespace

CheckNode EquationsOf(const ProjectState& s, CheckId id)
{
    CheckNode node;
    const Check& check = s.checklist[id];
    if (!IsJudged(check)) {
        return node;
    }
    const CheckPair* const pair = PairOf(s, id);
    node.name = pair == nullptr ? std::string(NameOf(id)) : std::string(pair->name);
    node.anchor = ChapterOf(id);
    Document d;
    AddLeading(s, id, d);
    AddCheck(d, check, LateralSymbol(s));
    node.equations = EquationsIn(std::move(d));
    return node;
}

CheckNode EquationsOf(const Library& library, const ProjectState& input, const ProjectState& s,
                      const standard::StandardResult& result, CheckId id)
{
    CheckNode node = EquationsOf(s, id);
    const CheckPair* const pair = PairOf(s, id);
    if (pair != nullptr && pair->standard && result.checks[*pair->standard].present) {
        Document d;
        AddStandardCheck(library, input, result, *pair->standard, d);
        node.standard = EquationsIn(std::move(d));
    }
    return node;
}

std::string RichText(std::span<const Equation> equations, char decimal)
{
    std::string text;
    for (const Equation& equation : equations) {
        text += "<p>" + RichSymbol(equation.symbol) + " = ";
        if (equation.formula != nullptr) {
            text += RichFormula(equation.formula, decimal) + " = ";
            if (HasSymbols(equation.formula)) {
                text += RichCalculation(equation.formula, equation.digits, decimal) + " = ";
            }
        }
        text += "<b>" + RichNumber(equation.value, decimal) + "</b>";
        text += equation.unit.empty() ? "" : " " + UnitText(equation.unit);
        text += equation.clause.empty() ? "" : " [" + equation.clause + "]";
        text += equation.remark.Empty() ? "" : " " + RichLine(equation.remark, decimal);
        text += "</p>\n";
    }
    return text;
}

Drawing DrawEquations(std::span<const Equation> equations, double width, char decimal)
{
    Drawing drawing;
    drawing.width = width;
    for (const Equation& equation : equations) {
        const EquationLayout layout(equation, width, decimal);
        layout.Place(drawing, {0, drawing.height});
        drawing.height += layout.Height();
    }
    return drawing;
}

}  // namespace kestrum
