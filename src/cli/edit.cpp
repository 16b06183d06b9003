// New projects and changes of fields.

#include "app/assign.h"
#include "cli/commands.h"
#include "engine/new_project.h"

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
    return {text.substr(0, equals), text.substr(equals + 1)};
}

void Apply(const Library& library, ProjectState& s, const std::vector<Change>& changes, bool raw)
{
    const Steel before = SteelOf(s);
    for (const Change& change : changes) {
        const std::string refusal = AssignField(library, s, change.name, change.value,
                                                raw ? Assignment::raw : Assignment::checked);
        if (!refusal.empty()) {
            throw BadInput(change.name + "=" + change.value + ": " + refusal);
        }
    }
    FollowGrade(library, s, before);
    if (const std::string misplaced = MisplacedLoad(s); !raw && !misplaced.empty()) {
        throw BadInput(misplaced);
    }
    for (const Change& change : changes) {
        const std::string other = OverruledBy(library, s, change.name);
        if (!other.empty()) {
            Complain(change.name + ": without effect, " + other);
        }
    }
}

std::vector<Change> SplitAll(const std::vector<std::string>& texts)
{
    std::vector<Change> changes;
    for (const std::string& text : texts) {
        changes.push_back(Split(text));
    }
    return changes;
}

}  // namespace

int New(const Options& options, const NewArguments& arguments)
{
    const Library library = LoadTables(options);
    ProjectState s{};
    StartUp(library, s);
    std::vector<Change> changes = SplitAll(arguments.set);
    if (!arguments.family.empty()) {
        changes.insert(changes.begin(), {"family", arguments.family});
    }
    Apply(library, s, changes, arguments.raw);
    SaveProject(s, arguments.out);
    return kAllWithin;
}

int Set(const Options& options, const SetArguments& arguments)
{
    const Library library = LoadTables(options);
    ProjectState s = OpenProject(library, arguments.file);
    Apply(library, s, SplitAll(arguments.set), arguments.raw);
    SaveProject(s, arguments.out.empty() && arguments.file != "-" ? arguments.file : arguments.out);
    return kAllWithin;
}

}  // namespace kestrum::cli
