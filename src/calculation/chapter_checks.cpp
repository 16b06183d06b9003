#include "calculation/chapters.h"
#include "calculation/check_formula.h"
#include "calculation/check_names.h"
#include "calculation/quantities.h"

#include <cmath>

namespace kestrum {

namespace {

// The ratio of the other set of rules beside that of the program, where they differ.
void AddStandardRatio(const CalculatedMember& m, const CheckPair& pair, const Check* check,
                      Document& d)
{
    constexpr double kEqual = 5e-4;
    if (!pair.standard || !m.standard.checks[*pair.standard].present) {
        return;
    }
    const standard::Check& other = m.standard.checks[*pair.standard];
    if (check != nullptr && std::abs(other.ir - check->ratio) <= kEqual * other.ir) {
        return;
    }
    std::string where = NameOf(other.load_case);
    if (!std::isnan(other.place)) {
        where += ", x/L = " + NumberText(other.place, 4);
    }
    d.Add("IR_standard", other.ir, "", std::string(other.clause),
          "EN 1993-1-1 as written, " + where);
}

// What leads to the terms of the check at its place: reductions for shear and axial force.
void AddReductions(const ProjectState& s, const Check& check, Document& d)
{
    const bool y = check.form == CheckForm::n_my_plastic;
    const bool z = check.form == CheckForm::n_mz_plastic;
    const bool both = check.form == CheckForm::n_my_mz_plastic;
    if (!y && !z && !both) {
        return;
    }
    const double n = std::abs(s.ned / s.nplrd);
    d.Add("n", Size(Sym("N_Ed", s.ned)) / Sym("N_pl,Rd", s.nplrd), n, "", "6.2.9.1 (5)");
    if (both) {
        d.Add("α", check.terms[2], "", "6.2.9.1 (6)");
        d.Add("β", check.terms[5], "", "6.2.9.1 (6)");
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
            AddReductions(m.s, one, d);
            AddCheck(d, one);
        }
    }
    AddStandardRatio(m, pair, check, d);
}

}  // namespace

void AddSectionChecks(const CalculatedMember& m, Document& d)
{
    d.Chapter("Checks of the sections");
    for (const CheckPair& pair : CheckPairs()) {
        if (pair.standard && static_cast<std::size_t>(*pair.standard) < standard::kSectionChecks) {
            AddPair(m, pair, d);
        }
    }
}

void AddMemberChecks(const CalculatedMember& m, Document& d)
{
    d.Chapter("Checks of the member");
    for (const CheckPair& pair : CheckPairs()) {
        const bool section =
            pair.standard && static_cast<std::size_t>(*pair.standard) < standard::kSectionChecks;
        const bool deflection = pair.standard && IsDeflection(*pair.standard);
        if (!section && !deflection) {
            AddPair(m, pair, d);
        }
    }
}

}  // namespace kestrum
