#include "cli/commands.h"

#include "engine/calculate.h"
#include "engine/family_routines.h"
#include "report/state_json.h"

namespace kestrum::cli {

int Dump(const Options& options, const std::string& file, bool inputs)
{
    const Library library = LoadTables(options);
    ProjectState s = OpenProject(library, file);
    if (inputs) {
        Print(InputsJson(s));
        return kAllWithin;
    }
    const bool well = Calculate(library, s);
    Print(StateJson(s));
    if (!well) {
        Complain(file + ": " + std::string(kCalculationError));
    }
    return well || FindRoutines(s.family) == nullptr ? kAllWithin : kFailedPass;
}

}  // namespace kestrum::cli
