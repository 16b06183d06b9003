// New projects and changes of fields.

#include "app/assign_run.h"
#include "app/choices.h"
#include "cli/commands.h"
#include "core/project_inputs.h"
#include "core/utf8_text.h"
#include "engine/new_project.h"
#include "report/state_json.h"

#include <algorithm>
#include <array>

namespace kestrum::cli {

namespace {

struct Change {
    std::string name, value;
};

Change Split(const std::string& text)
{
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) {
        throw BadInput(text + ": expected NAME=VALUE");
    }
    const std::size_t first = std::min(text.find_first_not_of(' '), equals);
    const std::size_t end = text.find_last_not_of(' ', equals == 0 ? 0 : equals - 1) + 1;
    return {text.substr(first, std::max(first, end) - first), text.substr(equals + 1)};
}

// Fields that may change with others.
constexpr std::array<std::string_view, 13> kBrought = {
    "family", "series101", "series103",  "loadmode",  "bucklingcasey", "ly",      "bucklingcasez",
    "lz",     "ltbk",      "restraints", "webstiffa", "endstiff",      "p27.istc"};

// A section by its name brings family and series: that is what it says.
bool Says(const Change& change, std::string_view name)
{
    const bool section = change.name == kSection;
    return change.name == name || (section && (name == "family" || name.starts_with("series")));
}

void TellBrought(const Options& options, const Library& library, const ProjectState& before,
                 const ProjectState& s, const std::vector<Change>& changes)
{
    for (const std::string_view name : kBrought) {
        const Field& field = *FindField(name);
        const bool said = std::any_of(changes.begin(), changes.end(),
                                      [name](const Change& c) { return Says(c, name); });
        const double value = NumberOf(s, field);
        if (!said && value != NumberOf(before, field)) {
            const Choice* const choice = ChoiceOf(field);
            const std::string word =
                choice != nullptr ? NameOfValue(library, *choice, static_cast<int>(value)) : "";
            Hint(options, std::string(name) + ": set to " + JsonNumber(static_cast<float>(value)) +
                              (word.empty() ? "" : " (" + word + ")") + " as well");
        }
    }
}

void Apply(const Options& options, const Library& library, ProjectState& s,
           const std::vector<Change>& changes, Manner manner)
{
    const HeldState before = s;
    AssignRun run(library, s, manner);
    std::vector<AssignTarget> targets(changes.size());
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const Change& change = changes[i];
        std::string refusal = FindTarget(change.name, targets[i]);
        if (refusal.empty()) {
            refusal = run.Assign(targets[i], change.value);
        }
        if (!refusal.empty()) {
            throw BadInput(change.name + "=" + change.value + ": " + refusal);
        }
    }
    if (const Refused refused = run.Finish(); !refused.empty()) {
        throw BadInput(refused.Text());
    }
    TellBrought(options, library, before, s, changes);
    for (const Remark& remark : run.Remarks()) {
        Hint(options, remark.name + ": " + remark.what);
    }
}

std::vector<Change> SplitAll(const std::vector<std::string>& texts)
{
    std::vector<Change> changes;
    changes.reserve(texts.size());
    for (const std::string& text : texts) {
        changes.push_back(Split(text));
    }
    return changes;
}

// Whether a load of this kind is among the changes.
bool Gives(const std::vector<Change>& changes, bool endforces)
{
    return std::any_of(changes.begin(), changes.end(), [endforces](const Change& change) {
        AssignTarget target;
        const bool load = FindTarget(change.name, target).empty() && target.load != LoadKind::none;
        return load && (target.load == LoadKind::endforce) == endforces;
    });
}

// A delivered project has loads to look at; they go when a load is given.
void DropExamples(const Options& options, ProjectState& s, const std::vector<Change>& changes)
{
    if (Gives(changes, false)) {
        ClearLoads(s, LoadKind::load);
        Hint(options, "the example loads are left out, since loads are given: nload[1] 100 kN, "
                      "qload[1] 10 kN/m");
    }
    if (Gives(changes, true)) {
        ClearLoads(s, LoadKind::endforce);
        Hint(options, "the example end forces are left out, since end forces are given: ne 100 kN, "
                      "my1 100 kNm, vz1 50 kN");
    }
}

// As it is given: axial forces with the sign of the command.
std::string ValueOf(const ProjectState& s, const Field& field, int index, bool tensionpositive)
{
    if (field.kind == FieldKind::text || field.kind == FieldKind::literal) {
        return std::string(TextOf(s, field));
    }
    const double value = InSignOf(field, NumberOf(s, field, index), tensionpositive);
    return field.kind == FieldKind::single ? JsonNumber(static_cast<float>(value))
                                           : JsonNumber(value);
}

// A line for each input that differs: "l: 6 -> 7.2".
std::string Differences(const ProjectState& before, const ProjectState& s, bool tensionpositive)
{
    std::string text;
    for (const Field& field : AllFields()) {
        if (field.role != FieldRole::input) {
            continue;
        }
        const bool list = field.shape != FieldShape::scalar;
        for (int i = list ? field.first : 0; i <= (list ? field.last : 0); ++i) {
            const std::string was = ValueOf(before, field, i, tensionpositive),
                              is = ValueOf(s, field, i, tensionpositive);
            if (was != is) {
                text += std::string(field.name) + (list ? "[" + std::to_string(i) + "]" : "");
                text += ": " + Printable(was) + " -> " + Printable(is) + "\n";
            }
        }
    }
    return text.empty() ? "nothing changes\n" : text;
}

}  // namespace

int New(const Options& options, const NewArguments& arguments)
{
    const Library library = LoadTables(options);
    HeldState s = StartState(library);
    std::vector<Change> changes = SplitAll(arguments.set);
    if (!arguments.family.empty()) {
        changes.insert(changes.begin(), {"family", arguments.family});
    }
    InputsOf(s).ident.clear();
    DropExamples(options, s, changes);
    Apply(options, library, s, changes,
          Manner(arguments.raw ? Assignment::raw : Assignment::checked, arguments.tensionpositive));
    SaveProject(s, arguments.out);
    return kAllWithin;
}

int Set(const Options& options, const SetArguments& arguments)
{
    const Library library = LoadTables(options);
    const std::string out = arguments.out.empty() ? arguments.file : arguments.out;
    const bool file = out != "-" && !arguments.dry_run;
    FileLock lock;
    HeldState s = file ? OpenToChange(library, arguments.file, out, lock)
                       : OpenProject(library, arguments.file);
    // The file has the loads of its mode; those of the other one are examples.
    ClearLoads(s, InputsOf(s).loadmode == 1 ? LoadKind::endforce : LoadKind::load);
    const HeldState before = s;
    Apply(options, library, s, SplitAll(arguments.set),
          Manner(arguments.raw ? Assignment::raw : Assignment::checked, arguments.tensionpositive));
    if (arguments.dry_run) {
        Print(Differences(before, s, arguments.tensionpositive));
    } else if (file) {
        SaveChanged(s, out, lock);
    } else {
        SaveProject(s, out);
    }
    return kAllWithin;
}

}  // namespace kestrum::cli
