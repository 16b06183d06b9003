// The lines of a table of members as projects, and a project as its line.

#include "app/members_sheet.h"

#include "app/answer_form.h"
#include "app/change_text.h"
#include "app/choices.h"
#include "app/view_section.h"
#include "app/without_effect.h"
#include "core/field_table.h"
#include "core/held_state.h"
#include "core/project_inputs.h"
#include "engine/calculate.h"
#include "sections/family_table.h"

#include <algorithm>
#include <set>
#include <utility>

namespace kestrum {

namespace {

// The column for a field: a rolled section is named, whatever of it has changed.
std::string ColumnNameOf(const FieldRef& ref, bool table)
{
    const Field& field = *ref.field;
    const bool section =
        field.name == "family" || field.values == kRowValues || field.name.starts_with("series");
    if (section && table) {
        return std::string(kSection);
    }
    if (field.values == kSteelValues) {
        return std::string(kSteel);
    }
    return field.name == "annexcode" ? std::string(kAnnex) : IndexedName(field, ref.index);
}

// What brings other fields along comes first.
int Decides(std::string_view column)
{
    return column == kAnnex ? 3 : column == kSection || column == "family" ? 2 : column == kSteel;
}

std::string Listed(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "" : ", ") + name;
    }
    return text;
}

// The value of a column as its cell holds it.
std::string CellText(const Library& library, const ProjectState& s, const std::string& column)
{
    if (column == kSection) {
        return SectionName(library, s);
    }
    if (column == kSteel) {
        return NameOfValue(library, *FindChoice("fykindex"), InputsOf(s).fykindex);
    }
    if (column == kAnnex) {
        return std::string(TextOf(s, *FindField("annexcode")));
    }
    const FieldRef ref = *ResolveField(column);
    const Field& field = *ref.field;
    if (field.kind == FieldKind::text) {
        return std::string(TextOf(s, field));
    }
    const double value = NumberOf(s, field, ref.index);
    std::string text;
    if (field.kind == FieldKind::single) {
        AppendNumber(text, static_cast<float>(value));
    } else {
        AppendNumber(text, value);
    }
    return text;
}

}  // namespace

std::string MembersSheet::Member(const Library& library, std::size_t row, ProjectState& s) const
{
    return now_.reader->Apply(library, s, Record(row), Assignment::checked);
}

bool MembersSheet::HasColumn(std::string_view name) const
{
    return std::find(columns().begin(), columns().end(), name) != columns().end();
}

// The column of this name, added where there is none.
std::size_t MembersSheet::ColumnFor(const std::string& name)
{
    const auto at = std::find(columns().begin(), columns().end(), name);
    if (at != columns().end()) {
        return static_cast<std::size_t>(at - columns().begin());
    }
    std::vector<std::string> more = columns();
    more.push_back(name);
    SetColumns(std::move(more));
    return columns().size() - 1;
}

// Field by field: what the annex, the section or the steel brings along needs no cell of its own,
// nor does what plays no part.
std::string MembersSheet::Write(const Library& library, std::size_t row, const ProjectState& base,
                                const ProjectState& wanted)
{
    const Table before = now_;
    const FamilyTraits* const family = FindFamily(InputsOf(wanted).family);
    const bool table =
        HasTable(InputsOf(wanted).family) && family->input != SectionInput::stiffener;
    HeldState given = base;
    std::string refusal;
    const auto differing = [&] {
        HeldState now = base;
        refusal = Member(library, row, now);
        if (refusal.empty()) {
            Calculate(library, now);  // which also moves inputs, as it has moved those wanted
            given = std::move(now);
        }
        std::vector<std::string> names;
        for (const FieldRef& ref : ChangedInputs(given, wanted)) {
            const bool counts =
                WithoutEffect(library, wanted, IndexedName(*ref.field, ref.index)).empty();
            if (ref.field->role == FieldRole::input && counts) {
                names.push_back(ColumnNameOf(ref, table));
            }
        }
        std::stable_sort(names.begin(), names.end(),
                         [](const auto& x, const auto& y) { return Decides(x) > Decides(y); });
        return names;
    };
    std::set<std::string> tried;
    for (;;) {
        const std::vector<std::string> names = differing();
        const auto next = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
            return !tried.contains(name);
        });
        if (next == names.end()) {
            refusal = names.empty() ? refusal : Listed(names);
            break;
        }
        tried.insert(*next);
        if (*next == "family" && HasColumn(kSection)) {
            Edited(row).cells[ColumnFor(std::string(kSection))].clear();  // plates have no name
        }
        const std::size_t column = ColumnFor(*next);
        Edited(row).cells[column] = CellText(library, wanted, *next);
    }
    if (!tried.empty()) {
        Begin(before);
    }
    return refusal;
}

}  // namespace kestrum
