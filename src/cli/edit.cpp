// New projects and changes of fields.

#include "app/assign_run.h"
#include "app/without_effect.h"
#include "cli/commands.h"
#include "core/printable.h"
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
constexpr std::array<std::string_view, 9> kBrought = {
    "bucklingcasey", "ly",        "bucklingcasez", "lz",      "ltbk",
    "restraints",    "webstiffa", "endstiff",      "p27.istc"};

void TellBrought(const Options& options, const ProjectState& before, const ProjectState& s,
                 const std::vector<Change>& changes)
{
    for (const std::string_view name : kBrought) {
        const Field& field = *FindField(name);
        const bool named = std::any_of(changes.begin(), changes.end(),
                                       [name](const Change& c) { return c.name == name; });
        if (!named && NumberOf(s, field) != NumberOf(before, field)) {
            const auto value = static_cast<float>(NumberOf(s, field));
            Hint(options, std::string(name) + ": set to " + JsonNumber(value) + " as well");
        }
    }
}

void Apply(const Options& options, const Library& library, ProjectState& s,
           const std::vector<Change>& changes, bool raw)
{
    const ProjectState before = s;
    AssignRun run(library, s, raw ? Assignment::raw : Assignment::checked);
    for (const Change& change : changes) {
        AssignTarget target;
        std::string refusal = FindTarget(change.name, target);
        if (refusal.empty()) {
            refusal = run.Assign(target, change.value);
        }
        if (!refusal.empty()) {
            throw BadInput(change.name + "=" + change.value + ": " + refusal);
        }
    }
    if (const Refused refused = run.Finish(); !refused.empty()) {
        throw BadInput(refused.name.empty()
                           ? refused.what
                           : refused.name + "=" + refused.text + ": " + refused.what);
    }
    TellBrought(options, before, s, changes);
    for (const Change& change : changes) {
        const std::string other = WithoutEffect(library, s, change.name);
        if (!other.empty()) {
            Hint(options, change.name + ": without effect, " + other);
        }
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

std::string ValueOf(const ProjectState& s, const Field& field, int index)
{
    if (field.kind == FieldKind::text || field.kind == FieldKind::literal) {
        return std::string(TextOf(s, field));
    }
    const double value = NumberOf(s, field, index);
    return field.kind == FieldKind::single ? JsonNumber(static_cast<float>(value))
                                           : JsonNumber(value);
}

// A line for each input that differs: "l: 6 -> 7.2".
std::string Differences(const ProjectState& before, const ProjectState& s)
{
    std::string text;
    for (const Field& field : AllFields()) {
        if (field.role != FieldRole::input) {
            continue;
        }
        const bool list = field.shape != FieldShape::scalar;
        for (int i = list ? field.first : 0; i <= (list ? field.last : 0); ++i) {
            const std::string was = ValueOf(before, field, i), is = ValueOf(s, field, i);
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
    ProjectState s = StartState(library);
    std::vector<Change> changes = SplitAll(arguments.set);
    if (!arguments.family.empty()) {
        changes.insert(changes.begin(), {"family", arguments.family});
    }
    Apply(options, library, s, changes, arguments.raw);
    SaveProject(s, arguments.out);
    return kAllWithin;
}

int Set(const Options& options, const SetArguments& arguments)
{
    const Library library = LoadTables(options);
    const std::string out = arguments.out.empty() ? arguments.file : arguments.out;
    const bool file = out != "-" && !arguments.dry_run;
    FileLock lock;
    ProjectState s = file ? OpenToChange(library, arguments.file, out, lock)
                          : OpenProject(library, arguments.file);
    const ProjectState before = s;
    Apply(options, library, s, SplitAll(arguments.set), arguments.raw);
    if (arguments.dry_run) {
        Print(Differences(before, s));
    } else if (file) {
        SaveChanged(s, out, lock);
    } else {
        SaveProject(s, out);
    }
    return kAllWithin;
}

}  // namespace kestrum::cli
