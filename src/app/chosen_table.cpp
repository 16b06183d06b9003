#include "app/chosen_table.h"

#include "app/answer_form.h"
#include "app/cell_reader.h"
#include "core/project_inputs.h"

#include <algorithm>
#include <utility>

namespace kestrum {

ChosenTable::ChosenTable(const MemberList& members, const SectionPool& pool, bool steel,
                         CsvForm csv)
    : members_(members), pool_(pool), steel_(steel), csv_(csv)
{
    for (CellReader cells(members.header(), members.separator()); cells.Next();) {
        AddColumn(std::string(Trimmed(cells.cell())), true);
    }
    if (pool.HasNames()) {
        AddColumn(std::string(kSection), false);
    }
    if (steel) {
        AddColumn(std::string(kSteel), false);
    }
    for (const std::string& field : pool.Fields()) {
        AddColumn(field, false);
    }
}

void ChosenTable::AddColumn(std::string name, bool own)
{
    Column column{std::move(name), Role::other, nullptr, own};
    AssignTarget target;
    if (FindTarget(column.name, target).empty()) {
        column.field = target.ref.field;
        column.role = target.section                                         ? Role::section
                      : column.field->name == "fykindex"                     ? Role::steel
                      : (target.tie & kTieFamily) != 0                       ? Role::family
                      : target.owner.any() || (target.tie & kTieSeries) != 0 ? Role::dimension
                                                                             : Role::other;
    }
    const auto same = [&column](const Column& other) {
        return other.role == column.role && other.field == column.field;
    };
    if (own || std::none_of(columns_.begin(), columns_.end(), same)) {
        columns_.push_back(std::move(column));
    }
}

std::string ChosenTable::Header() const
{
    std::string line;
    for (const Column& column : columns_) {
        line.append(line.empty() ? 0 : 1, csv_.delimiter);
        AppendCell(line, column.name);
    }
    return line + "\n";
}

// Of a column that says which section or steel it is.
std::string ChosenTable::ValueOf(const Column& column, const RatedCandidate& chosen,
                                 const ProjectState& s) const
{
    std::string text;
    const bool named = pool_.IsNamed(chosen.candidate);
    switch (column.role) {
    case Role::section:
        return named ? chosen.name : text;
    case Role::steel:
        return chosen.steelname;
    case Role::family:
        return named ? text : std::to_string(InputsOf(s).family);
    default:
        break;
    }
    const std::vector<std::string> fields = pool_.FieldsOf(chosen.candidate);
    if (!named && std::find(fields.begin(), fields.end(), column.field->name) != fields.end()) {
        AppendNumber(text, static_cast<float>(NumberOf(s, *column.field)));
        SetPoint(text, 0, csv_);
    }
    return text;
}

void ChosenTable::AppendLine(std::string& out, std::size_t member, const RatedCandidate* chosen,
                             const ProjectState& s) const
{
    CellReader cells(members_.RecordOf(member), members_.separator());
    bool first = true;
    for (const Column& column : columns_) {
        out.append(first ? 0 : 1, csv_.delimiter);
        first = false;
        const bool given = column.own && cells.Next();
        const bool kept = chosen == nullptr || column.role == Role::other ||
                          (column.role == Role::steel && !steel_);
        if (!kept) {
            AppendCell(out, ValueOf(column, *chosen, s));
        } else if (given) {
            AppendCell(out, cells.cell());
        }
    }
    out += "\n";
}

}  // namespace kestrum
