#include "cli/commands.h"

#include "cli/standard_output.h"
#include "core/check_text.h"
#include "core/csv_cell.h"
#include "core/project_state.h"
#include "core/utf8_text.h"
#include "engine/calculate.h"
#include "report/both_bases.h"
#include "report/check_key.h"
#include "report/design_notes.h"
#include "report/outcome.h"
#include "report/panel_text.h"
#include "report/state_json.h"
#include "standard/costs.h"

#include <algorithm>
#include <optional>

namespace kestrum::cli {

namespace {

constexpr const char* kFlangeOverload = " Flange overloaded! Program removes flangeloading ";
struct Answer {
    std::string file;
    Outcome outcome{};
    double section = 0, buckling = 0, deflection = 0;
    bool read = false;  // the file
    ProjectState state{};
    std::optional<standard::StandardResult> standard{};
};

Answer CheckFile(const Library& library, const std::string& file, const CheckArguments& arguments)
{
    Answer answer{.file = file};
    try {
        answer.state = OpenProject(library, file);
    } catch (const BadInput& bad) {
        Complain(bad.what());
        answer.outcome.message = bad.what();
        return answer;
    }
    answer.read = true;
    ProjectState& s = answer.state;
    bool well = false;
    if (arguments.basis != "program") {
        const ProjectState read = s;
        BothBases both = CalculateBoth(library, read, s);
        well = both.well;
        answer.standard = std::move(both.standard);
    } else {
        well = Calculate(library, s);
        if (!arguments.no_notes) {
            MeasureNotes(library, s);
        }
    }
    answer.outcome = OutcomeOf(s, well);
    if (answer.outcome.designed()) {
        answer.section = s.irsection;
        answer.buckling = s.maxirbuckling;
        answer.deflection = DeflectionRatio(s);
    }
    return answer;
}

// One line for each deviation from the standard that acts in the result.
std::string NotesText(const std::vector<DesignNote>& notes)
{
    std::string text;
    for (const DesignNote& note : notes) {
        text += "note " + std::string(note.id) + ": " + std::string(note.text) + "\n";
    }
    return text;
}

std::string PaintedRatio(std::string_view ratio, i16 status)
{
    return Painted(ratio, status == kAbove ? Ink::bad : Ink::good, true);
}

std::string TextOf(const Answer& answer, const CheckArguments& parts, bool coloured)
{
    const Outcome& outcome = answer.outcome;
    std::string text = Painted(Printable(answer.file), Ink::heading, coloured) + "\n";
    if (outcome.designed()) {
        text += PanelText(answer.state, parts.loadcase, coloured ? PaintedRatio : nullptr);
        text += answer.state.flangeoverload ? std::string(kFlangeOverload) + "\n" : "";
        text += parts.no_notes ? "" : NotesText(outcome.notes);
    } else if (answer.read) {
        text += outcome.message + "\n";
    }
    for (const std::string& dropped : outcome.dropped) {
        text += "dropped " + dropped + "\n";
    }
    text += answer.standard ? StandardText(*answer.standard, outcome) : "";
    const Ink ink = outcome.verdict == Verdict::within ? Ink::good : Ink::bad;
    return text + "VERDICT: " + Painted(VerdictText(outcome), ink, coloured) + "\n";
}

std::string JsonOf(const Answer& answer)
{
    const Outcome& outcome = answer.outcome;
    std::string text = "{\"file\": " + JsonText(answer.file) +
                       ", \"exit\": " + std::to_string(ExitCode(outcome.verdict)) +
                       ", \"verdict\": " + JsonText(VerdictText(outcome)) +
                       ", \"ir\": " + (outcome.rated() ? JsonNumber(outcome.ir) : "null");
    if (const auto id = GoverningCheckId(answer.state); id && outcome.designed()) {
        text += ", " + KeyJson(NameOf(*id)) + ", \"clause\": " + JsonText(outcome.clause);
    }
    text += answer.standard ? ", \"standard\": " + StandardJson(*answer.standard) : "";
    if (!outcome.message.empty()) {
        text += ", \"message\": " + JsonText(outcome.message);
    }
    text += ", \"failure\": " + FailureJson(answer.state.failure) +
            ", \"dropped\": " + DroppedJson(answer.state);
    if (!outcome.designed()) {
        return text + "}";
    }
    text += ", \"irsection\": " + JsonNumber(answer.section) +
            ", \"maxirbuckling\": " + JsonNumber(answer.buckling) +
            ", \"irdeflection\": " + JsonNumber(answer.deflection) +
            ", \"flangeoverload\": " + (answer.state.flangeoverload ? "true" : "false") +
            ", \"rows\": " + RowsJson(answer.state) + ", \"checks\": " + ChecksJson(answer.state) +
            ", \"notes\": " + NotesJson(answer.state) + "}";
    return text;
}

template <class Texts> std::string Joined(const Texts& texts, std::string_view between)
{
    std::string joined;
    for (const auto& text : texts) {
        joined.append(joined.empty() ? "" : between).append(text);
    }
    return joined;
}

std::string CsvOf(const Answer& answer, const CsvForm& csv)
{
    const Outcome& outcome = answer.outcome;
    std::string text;
    const auto number = [&](double value, bool known) {
        text += csv.delimiter;
        const std::size_t first = text.size();
        text += known ? JsonNumber(value) : "";
        SetPoint(text, first, csv);
    };
    AppendCell(text, answer.file, csv.texts);
    text += csv.delimiter;
    AppendCell(text, VerdictText(outcome), csv.texts);
    number(answer.section, outcome.designed());
    number(answer.buckling, outcome.designed());
    number(answer.deflection, outcome.designed());
    number(outcome.ir, outcome.rated());
    for (const std::string& cell :
         {outcome.message, NumbersOf(outcome.notes), Joined(outcome.dropped, "; ")}) {
        text += csv.delimiter;
        AppendCell(text, cell, csv.texts);
    }
    return text;
}

std::string Summary(const std::vector<Answer>& answers)
{
    std::string text = std::to_string(answers.size()) + " files: ";
    for (std::size_t i = 0; i < kVerdicts; ++i) {
        const auto verdict = static_cast<Verdict>(i);
        const auto count = std::count_if(answers.begin(), answers.end(), [&](const Answer& answer) {
            return answer.outcome.verdict == verdict;
        });
        if (i < 2 || count > 0) {
            text += (i > 0 ? ", " : "") + std::to_string(count) + " " +
                    std::string(VerdictWord(verdict));
        }
    }
    return text + "\n";
}

int ExitOf(const std::vector<Answer>& answers, const CheckArguments& arguments)
{
    int exit = kAllWithin;
    for (const Answer& answer : answers) {
        if (!arguments.exit_zero || !answer.read) {
            const bool standard = arguments.basis == "standard" && answer.standard;
            exit = GraverExit(exit, standard ? StandardExit(*answer.standard)
                                             : ExitCode(answer.outcome.verdict));
        }
    }
    return exit;
}

void PrintText(const std::vector<Answer>& answers, const CheckArguments& parts, bool coloured)
{
    std::string out;
    for (const Answer& answer : answers) {
        out += (out.empty() ? "" : "\n") + TextOf(answer, parts, coloured);
    }
    if (answers.size() > 1) {
        out += "\n" + Summary(answers);
    }
    Print(out);
}

void PrintJson(const std::vector<Answer>& answers)
{
    std::string out;
    for (const Answer& answer : answers) {
        out += (out.empty() ? "" : ",\n") + JsonOf(answer);
    }
    Print("[" + out + "]\n");
}

void PrintCsv(const std::vector<Answer>& answers, const CsvForm& csv)
{
    std::string out = CsvNames(
        "file,verdict,irsection,maxirbuckling,irdeflection,ir,message,notes,dropped\n", csv);
    for (const Answer& answer : answers) {
        out += CsvOf(answer, csv) + "\n";
    }
    Print(out);
}

}  // namespace

int Check(const Options& options, const CheckArguments& arguments)
{
    const CsvForm csv = CsvFormOf(options, arguments.csv_safe ? CsvTexts::safe : CsvTexts::plain,
                                  options.format == Format::csv);
    const Library library = LoadTables(options);
    std::vector<Answer> answers;
    answers.reserve(arguments.files.size());
    for (const std::string& file : arguments.files) {
        answers.push_back(CheckFile(library, file, arguments));
    }
    if (options.quiet) {
        return ExitOf(answers, arguments);
    }
    switch (options.format) {
    case Format::json:
        PrintJson(answers);
        break;
    case Format::csv:
        PrintCsv(answers, csv);
        break;
    case Format::text:
        PrintText(answers, arguments, Coloured(options.color));
        break;
    }
    return ExitOf(answers, arguments);
}

}  // namespace kestrum::cli
