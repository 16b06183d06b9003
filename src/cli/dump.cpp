#include "cli/commands.h"

#include "core/project_inputs.h"
#include "engine/calculate.h"
#include "engine/family_routines.h"
#include "report/design_notes.h"
#include "report/outcome.h"
#include "report/state_json.h"

namespace kestrum::cli {

namespace {

// Names the tables and the list that are not the delivered ones.
std::string WithOwnData(const Library& library, std::string object)
{
    std::string list;
    for (const OwnFile& file : library.own) {
        list += (list.empty() ? "" : ", ") + std::string("{\"file\": ") + JsonText(file.path) +
                ", \"sha256\": " + JsonText(file.sha256) + "}";
    }
    if (!list.empty()) {
        const std::size_t end = object.find_last_not_of("}\n");
        object.insert(end + 1, ",\n\"owndata\": [" + list + "]");
    }
    return object;
}

// Appends the object of a file to the list. Returns the exit code.
int DumpFile(const Library& library, const std::string& file, bool inputs,
             std::vector<std::string>& objects)
{
    HeldState s = OpenProject(library, file);
    if (inputs) {
        objects.push_back(InputsJson(s));
        return kAllWithin;
    }
    const bool well = Calculate(library, s);
    MeasureNotes(library, s);
    objects.push_back(WithOwnData(library, StateJson(s)));
    if (!well) {
        Complain(file + ": " + std::string(kCalculationError));
    }
    return well || FindRoutines(InputsOf(s).family) == nullptr ? kAllWithin : kFailedPass;
}

std::string ListOf(const std::vector<std::string>& objects)
{
    std::string text;
    for (const std::string& object : objects) {
        text += (text.empty() ? "" : ",\n") + object.substr(0, object.find_last_not_of('\n') + 1);
    }
    return "[" + text + "]\n";
}

}  // namespace

int Dump(const Options& options, const std::vector<std::string>& files, bool inputs)
{
    const Library library = LoadTables(options);
    std::vector<std::string> objects;
    int exit = kAllWithin;
    for (const std::string& file : files) {
        try {
            exit = GraverExit(exit, DumpFile(library, file, inputs, objects));
        } catch (const BadInput& bad) {
            if (files.size() == 1) {
                throw;
            }
            Complain(bad.what());
            exit = kBadInput;
        }
    }
    Print(files.size() == 1 ? objects.front() : ListOf(objects));
    return exit;
}

}  // namespace kestrum::cli
