#include "cli/commands.h"

#include "cli/standard_output.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "report/design_notes.h"
#include "report/state_json.h"
#include "service/vortex.h"

namespace kestrum::cli {

namespace {

// The restraint that the control takes; that of the member where it is another one.
std::string RestraintText(const ProjectState& s)
{
    std::string text = " Member Restraint: " + std::string(VortexRestraint(s));
    if (VortexSupportDiffers(s)) {
        text += ", but the member itself: " + std::string(MemberSupport(s)) +
                " (vortexcase and supportcase)";
    }
    return text + "\n";
}

// The notes on the control itself; those on the design of the member belong to `check`.
std::string NotesText(const ProjectState& s)
{
    std::string text;
    for (const DesignNote& note : VortexNotes(s)) {
        text += "note " + std::string(note.id) + ": " + std::string(note.text) + "\n";
    }
    return text;
}

std::string TextOf(const ProjectState& s)
{
    std::string out;
    for (const VortexRow& row : VortexGrid(s, s, s)) {
        out += row.parameter + " " + row.value + row.unit + "\n";
    }
    out += RestraintText(s);
    out += " Frequency f = " + VortexFrequencyText(s) + "\n";
    out += " Critical wind speed vcrit = " + VortexCriticalText(s) + "\n";
    out += " Mean wind speed vm = " + VortexMeanText(s) + "\n";
    out += " vcrit > 1.25 vm:" + std::string(VortexVerdict(s)) + "\n";
    const auto standard = standard::VortexSheddingOf(s);
    out += standard ? VortexStandardText(*standard) : "";
    return out + NotesText(s);
}

std::string StandardMember(const ProjectState& s)
{
    const auto standard = standard::VortexSheddingOf(s);
    return standard ? ", \"standard\": " + VortexStandardJson(*standard) : "";
}

std::string JsonOf(const ProjectState& s)
{
    return "{\"freq\": " + JsonNumber(s.freq[1]) + ", \"stb\": " + JsonNumber(s.stb) +
           ", \"st\": " + JsonNumber(s.st) + ", \"vcrit\": " + JsonNumber(s.vcrit) +
           ", \"vm\": " + JsonNumber(s.vm) + ", \"ok\": " + (VortexAccepted(s) ? "true" : "false") +
           ", \"restraint\": " + JsonText(VortexRestraint(s)) +
           ", \"member\": " + JsonText(MemberSupport(s)) +
           ", \"differs\": " + (VortexSupportDiffers(s) ? "true" : "false") + StandardMember(s) +
           ", \"notes\": " + NotesJson(s) + "}\n";
}

}  // namespace

int Vortex(const Options& options, const std::string& file)
{
    const Library library = LoadTables(options);
    ProjectState s = OpenProject(library, file);
    RequireVortexFamily(s, file);
    if (!Calculate(library, s) || !ControlVortices(s, s, s)) {
        Complain(file + ": " + std::string(kCalculationError));
        return kFailedPass;
    }
    if (options.format == Format::json) {
        MeasureNotes(library, s);
    }
    Print(options.format == Format::json ? JsonOf(s) : TextOf(s));
    return VortexAccepted(s) ? kAllWithin : kSomeAbove;
}

}  // namespace kestrum::cli
