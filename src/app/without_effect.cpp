#include "app/without_effect.h"

#include "app/assign.h"
#include "app/choices.h"
#include "app/member_commands.h"
#include "app/setup_commands.h"
#include "app/view_section.h"
#include "core/field_table.h"
#include "core/load_combination.h"
#include "sections/family_table.h"

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
    {" nload qload qt1 qt2 pm selfweight ", [](const ProjectState& s) { return s.loadmode == 0; },
     "the member has given end forces (loadmode 0)"},
    {" ne my1 my2 mz1 mz2 vy1 vy2 vz1 vz2 ", [](const ProjectState& s) { return s.loadmode == 1; },
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
     "annex or combination know no classes"},
    {" ltbcase ltbk restraints ltbcurve loadlevel za cmanual c1alt c1 c2 c3 ",
     [](const ProjectState& s) { return s.ltb == 0; },
     "lateral torsional buckling is off (ltb 0)"},
    {" cmanual c1 c2 c3 ", [](const ProjectState& s) { return !ManualFactorsOffered(s); },
     "own C factors go with loads and without restraints"},
    {" c1 c2 c3 ", [](const ProjectState& s) { return s.cmanual == kFalse; },
     "own C factors go with cmanual"},
    {" za ", [](const ProjectState& s) { return s.loadlevel != 4; }, "za goes with loadlevel 4"},
    {" cpcount cp ", [](const ProjectState& s) { return s.cpmode != 1; },
     "own check points go with cpmode 1"},
    {" p24.hsqc ", [](const ProjectState&) { return true; }, "the file keeps p25.istc in its place"},
    {" beampart ", [](const ProjectState&) { return true; }, "the calculation sets it"},
    {" uflimit ", [](const ProjectState&) { return true; }, "no control reads it"},
};

template <SectionOption kOption> bool Has(const FamilyTraits& family)
{
    return HasOption(family.id, kOption);
}

struct Owner {
    std::string_view fields;
    bool (*owns)(const FamilyTraits& family);
};

// Fields of some families only, besides those that begin with the name of the form.
constexpr Owner kOwners[] = {
    {" rectaxis ", Has<SectionOption::rectaxis>},
    {" lopt ", Has<SectionOption::bolts>},
    {" weldopt ", Has<SectionOption::weld>},
    {" tubehot ", Has<SectionOption::tube>},
    {" hsqopt ", Has<SectionOption::hsqload>},
    {" class23 ", Has<SectionOption::upgrade>},
    {" flangeload ", [](const FamilyTraits& family) {
         return family.kind == Kind::hat && family.shape.lower == LowerFlange::both_sides;
     }},
    {" series101 ", [](const FamilyTraits& f) { return f.series == &ProjectState::series101; }},
    {" series103 ", [](const FamilyTraits& f) { return f.series == &ProjectState::series103; }},
    {" p41ident ", [](const FamilyTraits& f) { return f.kind == Kind::general; }},
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

bool OfAnotherFamily(const ProjectState& s, const Field& field)
{
    const FamilyTraits& family = Traits(s);
    const std::string_view name = field.name, form = name.substr(0, name.find('.'));
    if (form != name && form.starts_with('p')) {
        return form != family.form;
    }
    for (const Owner& owner : kOwners) {
        if (Names(owner.fields, name)) {
            return !owner.owns(family);
        }
    }
    const std::optional<Table> table = TableOfField(name);
    return table && (!HasTable(s.family) || TableOf(s) != *table);
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
        if (s.loadcomb == kBasicLoads && Names(ticks.loads, ref.field->name) &&
            NumberOf(s, *FindField(ticks.tick), ref.index) == 0) {
            return "basic loads (loadcomb 5) are those of ticked rows (" + std::string(ticks.tick) +
                   ")";
        }
    }
    return {};
}

}  // namespace

std::string WithoutEffect(const Library& library, const ProjectState& s, std::string_view name)
{
    std::string other = OverruledBy(library, s, name);
    const std::optional<FieldRef> ref = ResolveField(name);
    if (!other.empty() || !ref || ref->field->kind == FieldKind::literal) {
        return other;
    }
    const bool load =
        Names(kRules[0].fields, ref->field->name) || Names(kRules[1].fields, ref->field->name);
    if (load && NumberOf(s, *ref->field, ref->index) == 0) {
        return {};
    }
    if (OfAnotherFamily(s, *ref->field)) {
        return "the family is " + std::to_string(s.family);
    }
    const auto* const rule =
        std::find_if(std::begin(kRules), std::end(kRules), [&](const Rule& each) {
            return Names(each.fields, ref->field->name) && each.idle(s);
        });
    return rule != std::end(kRules) ? std::string(rule->why) : Unticked(s, *ref);
}

}  // namespace kestrum
