#include "calculation/chapters.h"
#include "calculation/check_formula.h"
#include "calculation/check_names.h"
#include "calculation/parts.h"
#include "calculation/standard_equations.h"

#include <algorithm>

namespace kestrum {

namespace {

// All but the equations that stand in the document already.
void AddNew(Document&& leading, Document& d)
{
    for (Block& block : leading.blocks) {
        const auto* const equation = std::get_if<Equation>(&block);
        const auto stands = [&](const Block& other) {
            const auto* const old = std::get_if<Equation>(&other);
            return old != nullptr && old->value == equation->value &&
                   PlainText(Line(old->symbol)) == PlainText(Line(equation->symbol)) &&
                   (old->formula != nullptr || equation->formula == nullptr);
        };
        const bool ratio = equation != nullptr && equation->symbol.letter == "IR";
        if (equation == nullptr || ratio ||
            std::none_of(d.blocks.begin(), d.blocks.end(), stands)) {
            d.blocks.push_back(std::move(block));
        }
    }
}

// The other set of rules beside that of the program, where they differ.
void AddStandard(const CalculatedMember& m, const CheckPair& pair, const Check* check, Document& d)
{
    if (!pair.standard || !m.standard.checks[*pair.standard].present) {
        return;
    }
    if (check == nullptr || !GiveTheSame(*check, m.standard.checks[*pair.standard])) {
        Document standard;
        AddStandardCheck(m.library, m.input, m.standard, *pair.standard, standard);
        AddNew(std::move(standard), d);
    }
}

void AddPair(const CalculatedMember& m, const CheckPair& pair, Document& d)
{
    const bool designed = m.outcome.designed();
    const Check* const check = designed ? LargestOf(pair, m.s.checklist) : nullptr;
    const bool other = pair.standard && m.standard.checks[*pair.standard].present;
    if (check == nullptr && !other) {
        return;
    }
    d.Part(std::string(pair.name));
    for (const CheckId id : pair.program) {
        if (designed) {
            const Check& one = m.s.checklist[id];
            Document leading;
            AddReducedResistances(m.s, one, leading);
            AddNew(std::move(leading), d);
            AddCheck(d, one, LateralSymbol(m.s), CombinationOf(m.s, false));
        }
    }
    AddStandard(m, pair, check, d);
}

// Takes the heading back where nothing stands below it.
void EndChapter(Document& d)
{
    const auto* const heading = std::get_if<Heading>(&d.blocks.back());
    if (heading != nullptr && heading->level == 2) {
        d.blocks.pop_back();
    }
}

}  // namespace

void AddSectionChecks(const CalculatedMember& m, Document& d)
{
    d.Chapter("Checks of the sections");
    for (const CheckPair& pair : CheckPairs(m.s)) {
        if (pair.standard && static_cast<std::size_t>(*pair.standard) < standard::kSectionChecks) {
            AddPair(m, pair, d);
        }
    }
    EndChapter(d);
}

void AddMemberChecks(const CalculatedMember& m, Document& d)
{
    d.Chapter("Checks of the member");
    for (const CheckPair& pair : CheckPairs(m.s)) {
        const bool section =
            pair.standard && static_cast<std::size_t>(*pair.standard) < standard::kSectionChecks;
        const bool deflection = pair.standard && IsDeflection(*pair.standard);
        if (!section && !deflection) {
            AddPair(m, pair, d);
        }
    }
    EndChapter(d);
}

}  // namespace kestrum
