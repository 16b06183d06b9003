#include "cli/commands.h"

#include "engine/calculate.h"
#include "report/state_json.h"
#include "service/vortex.h"

namespace kestrum::cli {

namespace {

std::string TextOf(const ProjectState& s)
{
    std::string out;
    for (const VortexRow& row : VortexGrid(s)) {
        out += row.parameter + " " + row.value + row.unit + "\n";
    }
    out += " Frequency f = " + VortexFrequencyText(s) + "\n";
    out += " Critical wind speed vcrit = " + VortexCriticalText(s) + "\n";
    out += " Mean wind speed vm = " + VortexMeanText(s) + "\n";
    return out + " vcrit > 1.25 vm:" + std::string(VortexVerdict(s)) + "\n";
}

std::string JsonOf(const ProjectState& s)
{
    return "{\"freq\": " + JsonNumber(s.freq[1]) + ", \"stb\": " + JsonNumber(s.stb) +
           ", \"st\": " + JsonNumber(s.st) + ", \"vcrit\": " + JsonNumber(s.vcrit) +
           ", \"vm\": " + JsonNumber(s.vm) + ", \"ok\": " + (VortexAccepted(s) ? "true" : "false") +
           ", \"notes\": " + NotesJson(s) + "}\n";
}

}  // namespace

int Vortex(const Options& options, const std::string& file)
{
    const Library library = LoadTables(options);
    ProjectState s = OpenProject(library, file);
    RequireVortexFamily(s, file);
    if (!Calculate(library, s) || !ControlVortices(s)) {
        Complain(file + ": " + std::string(kCalculationError));
        return kFailedPass;
    }
    Print(options.format == Format::json ? JsonOf(s) : TextOf(s));
    return VortexAccepted(s) ? kAllWithin : kSomeAbove;
}

}  // namespace kestrum::cli
