#include "cli/commands.h"

#include "core/printable.h"
#include "engine/calculate.h"
#include "engine/family_routines.h"
#include "report/design_notes.h"
#include "report/panel_text.h"
#include "report/state_json.h"

#include <algorithm>

namespace kestrum::cli {

namespace {

constexpr const char* kFlangeOverload = " Flange overloaded! Program removes flangeloading ";
constexpr const char* kNotChecked = "nothing checked: no section control for this family";

struct Verdict {
    std::string file;
    int exit = kAllWithin;
    std::string fault = {};  // message of a pass or file that failed
    double section = 0, buckling = 0, deflection = 0;
    bool read = false;  // the file
    ProjectState state{};
};

double LargestDeflection(const ProjectState& s)
{
    if (s.checksls == kFalse) {
        return 0;
    }
    return std::max(s.deflinez.empty() ? 0.0 : s.deflinez.ir,
                    s.defliney.empty() ? 0.0 : s.defliney.ir);
}

Verdict CheckFile(const Library& library, const std::string& file)
{
    Verdict verdict{.file = file};
    try {
        verdict.state = OpenProject(library, file);
    } catch (const BadInput& bad) {
        Complain(bad.what());
        verdict.exit = kBadInput;
        verdict.fault = bad.what();
        return verdict;
    }
    verdict.read = true;
    ProjectState& s = verdict.state;
    const bool well = Calculate(library, s);
    if (FindRoutines(s.family) == nullptr) {
        verdict.exit = kBadInput;
        verdict.fault = kNotChecked;
    } else if (!well) {
        verdict.exit = kFailedPass;
        verdict.fault = kCalculationError;
    } else {
        verdict.section = s.irsection;
        verdict.buckling = s.maxirbuckling;
        verdict.deflection = LargestDeflection(s);
        const double worst = std::max({verdict.section, verdict.buckling, verdict.deflection});
        verdict.exit = worst > s.irlimit ? kSomeAbove : kAllWithin;
    }
    return verdict;
}

bool Designed(const Verdict& verdict)
{
    return verdict.exit == kAllWithin || verdict.exit == kSomeAbove;
}

std::string Word(const Verdict& verdict)
{
    switch (verdict.exit) {
    case kAllWithin:
        return "within limits";
    case kSomeAbove:
        return "above limit";
    case kFailedPass:
        return "calculation error";
    default:
        return verdict.read ? "not checked" : "bad input";
    }
}

// One line for each deviation from the standard that acts in the result.
std::string NotesText(const ProjectState& s)
{
    std::string text;
    for (const DesignNote& note : DesignNotes(s)) {
        text += "note " + std::string(note.id) + ": " + std::string(note.text) + "\n";
    }
    return text;
}

std::string PaintedRatio(std::string_view ratio, i16 status)
{
    return Painted(ratio, status == kAbove ? Ink::bad : Ink::good, true);
}

std::string TextOf(const Verdict& verdict, const CheckArguments& parts, bool coloured)
{
    std::string text = Painted(Printable(verdict.file), Ink::heading, coloured) + "\n";
    if (Designed(verdict)) {
        text += PanelText(verdict.state, parts.loadcase, coloured ? PaintedRatio : nullptr);
        text += verdict.state.flangeoverload ? std::string(kFlangeOverload) + "\n" : "";
        text += parts.no_notes ? "" : NotesText(verdict.state);
    } else if (verdict.read) {
        text += verdict.fault + "\n";
    }
    const Ink ink = verdict.exit == kAllWithin ? Ink::good : Ink::bad;
    return text + "VERDICT: " + Painted(Word(verdict), ink, coloured) + "\n";
}

std::string JsonOf(const Verdict& verdict)
{
    std::string text = "{\"file\": " + JsonText(verdict.file) +
                       ", \"exit\": " + std::to_string(verdict.exit) +
                       ", \"verdict\": " + JsonText(Word(verdict));
    if (!verdict.fault.empty()) {
        return text + ", \"message\": " + JsonText(verdict.fault) + "}";
    }
    text += ", \"irsection\": " + JsonNumber(verdict.section) +
            ", \"maxirbuckling\": " + JsonNumber(verdict.buckling) +
            ", \"irdeflection\": " + JsonNumber(verdict.deflection) +
            ", \"flangeoverload\": " + (verdict.state.flangeoverload ? "true" : "false") +
            ", \"rows\": " + RowsJson(verdict.state) + ", \"notes\": " + NotesJson(verdict.state) +
            "}";
    return text;
}

std::string CsvField(const std::string& text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char c : text) {
        quoted += c == '"' ? "\"\"" : std::string(1, c);
    }
    return quoted + "\"";
}

std::string CsvOf(const Verdict& verdict)
{
    std::string text = CsvField(verdict.file) + "," + Word(verdict);
    if (!Designed(verdict)) {
        return text + ",,,";
    }
    return text + "," + JsonNumber(verdict.section) + "," + JsonNumber(verdict.buckling) + "," +
           JsonNumber(verdict.deflection);
}

std::string Summary(const std::vector<Verdict>& verdicts)
{
    const auto count = [&](int exit) {
        return std::to_string(std::count_if(verdicts.begin(), verdicts.end(),
                                            [exit](const Verdict& v) { return v.exit == exit; }));
    };
    return std::to_string(verdicts.size()) + " files: " + count(kAllWithin) + " within limits, " +
           count(kSomeAbove) + " above limit, " + count(kFailedPass) + " calculation errors, " +
           count(kBadInput) + " not checked\n";
}

// Bad input before a failed pass before a ratio above the limit.
int Gravest(const std::vector<Verdict>& verdicts)
{
    for (const int exit : {kBadInput, kFailedPass, kSomeAbove}) {
        if (std::any_of(verdicts.begin(), verdicts.end(),
                        [exit](const Verdict& v) { return v.exit == exit; })) {
            return exit;
        }
    }
    return kAllWithin;
}

int ExitOf(const std::vector<Verdict>& verdicts, const CheckArguments& arguments)
{
    if (!arguments.exit_zero) {
        return Gravest(verdicts);
    }
    const bool all = std::all_of(verdicts.begin(), verdicts.end(),
                                 [](const Verdict& verdict) { return verdict.read; });
    return all ? kAllWithin : kBadInput;
}

void PrintText(const std::vector<Verdict>& verdicts, const CheckArguments& parts, bool coloured)
{
    std::string out;
    for (const Verdict& verdict : verdicts) {
        out += (out.empty() ? "" : "\n") + TextOf(verdict, parts, coloured);
    }
    if (verdicts.size() > 1) {
        out += "\n" + Summary(verdicts);
    }
    Print(out);
}

void PrintJson(const std::vector<Verdict>& verdicts)
{
    std::string out;
    for (const Verdict& verdict : verdicts) {
        out += (out.empty() ? "" : ",\n") + JsonOf(verdict);
    }
    Print("[" + out + "]\n");
}

void PrintCsv(const std::vector<Verdict>& verdicts)
{
    std::string out = "file,verdict,irsection,maxirbuckling,irdeflection\n";
    for (const Verdict& verdict : verdicts) {
        out += CsvOf(verdict) + "\n";
    }
    Print(out);
}

}  // namespace

int Check(const Options& options, const CheckArguments& arguments)
{
    const Library library = LoadTables(options);
    std::vector<Verdict> verdicts;
    verdicts.reserve(arguments.files.size());
    for (const std::string& file : arguments.files) {
        verdicts.push_back(CheckFile(library, file));
    }
    if (options.quiet) {
        return ExitOf(verdicts, arguments);
    }
    switch (options.format) {
    case Format::json:
        PrintJson(verdicts);
        break;
    case Format::csv:
        PrintCsv(verdicts);
        break;
    case Format::text:
        PrintText(verdicts, arguments, Coloured(options.color));
        break;
    }
    return ExitOf(verdicts, arguments);
}

}  // namespace kestrum::cli
