#include "app/without_effect.h"

#include "app/assign.h"
#include "app/field_owner.h"
#include "app/member_commands.h"
#include "app/setup_commands.h"
#include "core/field_table.h"
#include "core/load_combination.h"
#include "core/project_inputs.h"

#include <algorithm>
#include <iterator>

namespace kestrum {

namespace {

using Test = bool (*)(const ProjectState&);

struct Rule {
    std::string_view fields;  // each between blanks
    Test idle;
    std::string_view why;
};

// clang-format off
constexpr Rule kRules[] = {
    {" nload qload qt1 qt2 pm selfweight ", [](const ProjectState& s) { return InputsOf(s).loadmode == 0; },
     "the member has given end forces (loadmode 0)"},
    {" ne my1 my2 mz1 mz2 vy1 vy2 vz1 vz2 ", [](const ProjectState& s) { return InputsOf(s).loadmode == 1; },
     "the member has loads (loadmode 1)"},
    {" spring ", [](const ProjectState& s) { return !SpringShown(s); },
     "no support has springs (supportcase 3 or 5)"},
    {" modal ", SpringShown, "spring supports have no modal analysis (supportcase 3 and 5)"},
    {" lfulsg lfulsq1 lfulsq2 lfslsg lfslsq1 lfslsq2 ",
     [](const ProjectState& s) { return !UserFactorsShown(s); },
     "own load factors go with loadcomb 4"},
    {" psi1index psi2index ", [](const ProjectState& s) { return !PsiShown(s); },
     "the combination has no psi (loadcomb 4 and 5)"},
    {" safetyclass ", [](const ProjectState& s) { return ShownClassFrame(s) == ClassFrame::none; },
     "the annex or the combination has no classes"},
    {" ltbcase ltbk restraints ltbcurve loadlevel za cmanual c1alt c1 c2 c3 ",
     [](const ProjectState& s) { return InputsOf(s).ltb == 0; },
     "lateral torsional buckling is off (ltb 0)"},
    {" cmanual c1 c2 c3 ", [](const ProjectState& s) { return !ManualFactorsOffered(s); },
     "own C factors go with loads and without restraints in the program's rules; the standard takes them"},
    {" c1 c2 c3 ", [](const ProjectState& s) { return InputsOf(s).cmanual == kFalse; },
     "own C factors go with cmanual"},
    {" za ", [](const ProjectState& s) { return InputsOf(s).loadlevel != 4; }, "za goes with loadlevel 4"},
    {" cpcount cp ", [](const ProjectState& s) { return InputsOf(s).cpmode != 1; },
     "own check points go with cpmode 1"},
    {" p24.hsqc ", [](const ProjectState&) { return true; }, "the file keeps p25.istc in its place"},
    {" beampart ", [](const ProjectState&) { return true; }, "the calculation sets it"},
    {" uflimit ", [](const ProjectState&) { return true; }, "no check uses it"},
};

// clang-format on

bool Names(std::string_view fields, std::string_view field)
{
    for (std::size_t at = fields.find(field); at != fields.npos; at = fields.find(field, at + 1)) {
        if (fields[at - 1] == ' ' && fields[at + field.size()] == ' ') {
            return true;
        }
    }
    return false;
}

// Basic loads are those of the ticked rows.
std::string Unticked(const ProjectState& s, const FieldRef& ref)
{
    struct Ticks {
        std::string_view loads, tick;
    };
    constexpr Ticks kTicks[] = {{" nload ", "nchecked"},
                                {" qload ", "qchecked"},
                                {" qt1 qt2 ", "qtchecked"},
                                {" pm ", "pmchecked"}};
    for (const Ticks& ticks : kTicks) {
        if (InputsOf(s).loadcomb == kBasicLoads && Names(ticks.loads, ref.field->name) &&
            NumberOf(s, *FindField(ticks.tick), ref.index) == 0) {
            return "basic loads (loadcomb 5) are those of ticked rows (" + std::string(ticks.tick) +
                   ")";
        }
    }
    return {};
}

// Bits behind those of kRules.
constexpr unsigned kOverruled = 1U << std::size(kRules), kOwned = kOverruled << 1U,
                   kTicked = kOwned << 1U, kLoad = kTicked << 1U;
static_assert(std::size(kRules) < 28);

constexpr std::string_view kOverruledFields = " gammam0 gammam1 neta loadcomb fyk ";

}  // namespace

unsigned IdleRulesOf(const Field& field)
{
    unsigned rules = 0;
    for (std::size_t i = 0; i < std::size(kRules); ++i) {
        rules |= Names(kRules[i].fields, field.name) ? 1U << i : 0U;
    }
    const bool load = LoadKindOf(field) != LoadKind::none;
    rules |= Names(kOverruledFields, field.name) ? kOverruled : 0U;
    rules |= OwnerOf(field).any() ? kOwned : 0U;
    rules |= Names(" nload qload qt1 qt2 pm ", field.name) ? kTicked : 0U;
    return rules | (load ? kLoad : 0U);
}

std::string WhyIdle(const Library& library, const ProjectState& s, const FieldRef& ref,
                    unsigned rules)
{
    if ((rules & kOverruled) != 0) {
        std::string other = OverruledBy(library, s, ref.field->name);
        if (!other.empty()) {
            return other;
        }
    }
    if ((rules & kLoad) != 0 && NumberOf(s, *ref.field, ref.index) == 0) {
        return {};
    }
    if ((rules & kOwned) != 0 && !OwnerOf(*ref.field).Has(s)) {
        return "the family is " + std::to_string(InputsOf(s).family);
    }
    for (std::size_t i = 0; i < std::size(kRules); ++i) {
        if ((rules & (1U << i)) != 0 && kRules[i].idle(s)) {
            return std::string(kRules[i].why);
        }
    }
    return (rules & kTicked) != 0 ? Unticked(s, ref) : std::string{};
}

std::string WithoutEffect(const Library& library, const ProjectState& s, std::string_view name)
{
    const std::optional<FieldRef> ref = ResolveField(name);
    return ref ? WhyIdle(library, s, *ref, IdleRulesOf(*ref->field)) : std::string{};
}

}  // namespace kestrum
