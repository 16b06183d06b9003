#include "app/field_owner.h"

#include "app/choices.h"
#include "app/view_section.h"
#include "core/project_inputs.h"
#include "sections/family_table.h"
#include "sections/section_names.h"

#include <algorithm>
#include <iterator>

namespace kestrum {

namespace {

template <SectionOption kOption> bool Has(const FamilyTraits& family)
{
    return HasOption(family.id, kOption);
}

// Of the form that is kept for the file's sake: no family of the menu.
constexpr Owner kNobody{{-1, -1}};

struct Owning {
    std::string_view field;
    bool (*owns)(const FamilyTraits& family);
};

// Fields of some families only, besides those that begin with the name of the form.
constexpr Owning kOwners[] = {
    {"rectaxis", Has<SectionOption::rectaxis>},
    {"lopt", Has<SectionOption::bolts>},
    {"weldopt", Has<SectionOption::weld>},
    {"tubehot", Has<SectionOption::tube>},
    {"hsqopt", Has<SectionOption::hsqload>},
    {"class23", Has<SectionOption::upgrade>},
    {"flangeload",
     [](const FamilyTraits& family) {
         return family.kind == Kind::hat && family.shape.lower == LowerFlange::both_sides;
     }},
    {"series101", [](const FamilyTraits& f) { return f.series == &SectionForms::series101; }},
    {"series103", [](const FamilyTraits& f) { return f.series == &SectionForms::series103; }},
    {"p41ident", [](const FamilyTraits& f) { return f.kind == Kind::general; }},
};

constexpr std::string_view kEndForces[] = {"ne",  "my1", "my2", "vy1", "vy2",
                                           "mz1", "mz2", "vz1", "vz2"};
constexpr std::string_view kLoads[] = {"nload", "qload", "qt1", "qt2", "pm"};

template <std::size_t N> bool Among(const std::string_view (&names)[N], std::string_view name)
{
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

// The first and the last of the families that own the field.
Owner OwnerWhere(const auto& owns)
{
    Owner owner;
    for (const FamilyTraits& family : Families()) {
        if (owns(family)) {
            const i16 id = static_cast<i16>(family.id);
            owner.families = {owner.any() ? owner.families[0] : id, id};
        }
    }
    return owner;
}

}  // namespace

bool Owner::Has(const ProjectState& s) const
{
    const i16 id = InputsOf(s).family;
    const bool family = id == families[0] || id == families[1];
    return !any() || (family && (series == 0 || series == SeriesOf(s)));
}

Owner OwnerOf(const Field& field)
{
    const std::string_view form = field.name.substr(0, field.name.find('.'));
    if (const auto table = TableOfField(field.name)) {
        Owner owner = OwnerWhere([table](const FamilyTraits& family) {
            const auto& own = family.tables;
            return std::find(own.begin(), own.end(), *table) != own.end();
        });
        owner.series = static_cast<i16>(FamilyOfTable(*table).series);
        return owner;
    }
    if (form != field.name) {
        const Owner owner =
            OwnerWhere([form](const FamilyTraits& family) { return family.form == form; });
        return owner.any() ? owner : kNobody;
    }
    const auto* const at = std::find_if(std::begin(kOwners), std::end(kOwners),
                                        [&](const Owning& o) { return o.field == field.name; });
    return at != std::end(kOwners) ? OwnerWhere(at->owns) : Owner{};
}

i16 SeriesOf(const ProjectState& s)
{
    const ProjectInputs& in = InputsOf(s);
    const bool series = Traits(in).series != nullptr;
    return static_cast<i16>(series ? FamilyOfTable(TableOf(in)).series : 0);
}

std::string OwnerName(const Owner& owner)
{
    if (owner == kNobody) {
        return "that is not offered";
    }
    std::string text = std::to_string(owner.families[0]) + " " + FamilyName(owner.families[0]);
    if (!owner.one()) {
        text += " or " + std::to_string(owner.families[1]) + " " + FamilyName(owner.families[1]);
    }
    if (owner.series != 0) {
        text += ", series " + std::to_string(owner.series);
    }
    return text;
}

LoadKind LoadKindOf(const Field& field)
{
    if (field.name == "selfweight") {
        return LoadKind::selfweight;
    }
    return Among(kEndForces, field.name) ? LoadKind::endforce
           : Among(kLoads, field.name)   ? LoadKind::load
                                         : LoadKind::none;
}

bool IsAxial(const Field& field)
{
    return field.name == "nload" || field.name == "ne" || field.name == "ned";
}

double InSignOf(const Field& field, double value, bool tensionpositive)
{
    return tensionpositive && IsAxial(field) ? 0 - value : value;  // 0 stays without a sign
}

void ClearLoads(ProjectState& member, LoadKind kind)
{
    ProjectInputs& s = InputsOf(member);
    if (kind == LoadKind::endforce) {
        s.ne = s.my1 = s.my2 = s.vy1 = s.vy2 = s.mz1 = s.mz2 = s.vz1 = s.vz2 = 0;
        return;
    }
    s.nload = {};
    s.qload = {};
    s.qt1 = s.qt2 = s.qtx1 = s.qtx2 = {};
    s.pm = s.pmx = {};
    s.selfweight = 0;
}

}  // namespace kestrum
