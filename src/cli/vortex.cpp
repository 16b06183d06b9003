#include "cli/commands.h"

#include "core/arithmetic_trap.h"
#include "engine/calculate.h"
#include "report/state_json.h"
#include "service/vortex.h"

namespace kestrum::cli {

namespace {

// The control after a pass; false when its arithmetic failed.
bool Shed(ProjectState& s)
{
    try {
        ArmTrap();
        CalcVortexFrequency(s);
        CalcVortex(s);
        CheckTrap();
    } catch (const CalculationStop&) {
        return false;
    }
    return true;
}

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
           "}\n";
}

}  // namespace

int Vortex(const Options& options, const std::string& file)
{
    const Library library = LoadTables(options);
    ProjectState s = OpenProject(library, file);
    if (!VortexFamily(s.family)) {
        const std::string_view refusal = VortexRefusal(s.family);
        throw BadInput(file + ": " + std::string(refusal.empty() ? "no such family" : refusal));
    }
    if (!Calculate(library, s) || !Shed(s)) {
        Complain(file + ": " + std::string(kCalculationError));
        return kFailedPass;
    }
    Print(options.format == Format::json ? JsonOf(s) : TextOf(s));
    return VortexAccepted(s) ? kAllWithin : kSomeAbove;
}

}  // namespace kestrum::cli
