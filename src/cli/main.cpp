#include "app/field_hint.h"
#include "app/platform.h"
#include "cli/commands.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <csignal>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace kestrum::cli;

using Formats = std::vector<std::pair<std::string, Format>>;
const Formats kTextAndJson{{"text", Format::text}, {"json", Format::json}};
const Formats kAllFormats{{"text", Format::text}, {"json", Format::json}, {"csv", Format::csv}};
const Formats kTableFormats{{"csv", Format::csv}, {"json", Format::json}, {"ndjson", Format::json}};

void AddFormat(CLI::App& command, Options& options, const Formats& formats)
{
    std::string names;
    for (const auto& [name, format] : formats) {
        names += (names.empty() ? "" : "|") + name;
    }
    const auto choose = [&options, &formats, names](const std::string& wanted) {
        const auto at = std::find_if(formats.begin(), formats.end(),
                                     [&](const auto& form) { return form.first == wanted; });
        if (at == formats.end()) {
            throw CLI::ValidationError("--format", wanted + " is none of " + names);
        }
        options.format = at->second;
    };
    command.add_option_function<std::string>("--format", choose, "form of the answer")
        ->type_name(names);
    command.add_flag_callback(
        "--json", [&options] { options.format = Format::json; }, "short for --format json");
}

// A name of a file: an empty one is that of a shell variable without a value.
CLI::Option* AddOutput(CLI::App& command, std::string& file, const std::string& meaning)
{
    return command.add_option("-o,--output", file, meaning)
        ->type_name("FILE")
        ->check(CLI::Validator(
            [](const std::string& name) {
                return name.empty() ? std::string("the name of the file is empty") : std::string();
            },
            ""));
}

// What CLI11 says of a wrong command line, and the command that may have been meant.
std::string Failure(const CLI::App* app, const CLI::Error& error)
{
    constexpr std::array<std::string_view, 10> kCommands = {
        "check", "dump", "new", "set", "sections", "vortex", "diagram", "table", "report", "batch"};
    std::string what = error.what();
    if (app->get_parent() == nullptr && app->get_subcommands().empty()) {
        const std::vector<std::string> rest = app->remaining();
        const auto word = std::find_if(rest.begin(), rest.end(),
                                       [](const std::string& each) { return each[0] != '-'; });
        if (word != rest.end()) {
            const std::string_view near = kestrum::Nearest(*word, kCommands);
            what = *word + ": no such command" +
                   (near.empty() ? std::string() : "; did you mean " + std::string(near) + "?");
        }
    }
    return "kestrum: " + what + "\nRun with --help for more information.\n";
}

int Run(int argc, char** argv)
{
    CLI::App app{"Kestrum EC3: designs one steel member to EN 1993-1-1."};
    app.name("kestrum");
    app.failure_message(Failure);
    app.footer("Exit codes: 0 all ratios within their limits, 1 some ratio above, 2 bad input, 3 "
               "calculation\n"
               "error. `kestrum COMMAND --help` tells the options of a command; --data and --setup "
               "go with each.\n"
               "Names and meanings of the fields: docs/file-format.md; `kestrum dump --inputs "
               "FILE` prints them.");
    app.set_version_flag("--version", "kestrum " KESTRUM_VERSION);
    app.require_subcommand(1);
    app.fallthrough();

    Options options;
    app.add_option("--data", options.data, "folder with the profile tables and the material list");
    app.add_option("--setup", options.setup, "stored setup in place of the delivered one");

    int exit = kAllWithin;
    std::vector<std::string> files;
    std::string file;
    bool inputs = false;
    TextParts parts;
    NewArguments fresh;
    SetArguments change;
    std::string family;
    DiagramArguments picture;
    TableArguments table;
    ReportArguments report;
    BatchArguments many;

    CLI::App& check =
        *app.add_subcommand("check", "calculates and prints the result panel of each file");
    check.add_option("FILE", files, "project files, - for standard input")->required();
    check.add_flag("--loadcase", parts.loadcase, "with the governing load case");
    check.add_flag("--notes", parts.notes,
                   "with a note for each deviation from the standard that acts in the result");
    AddFormat(check, options, kAllFormats);
    check.callback([&] { exit = Check(options, files, parts); });

    CLI::App& dump = *app.add_subcommand("dump", "calculates and prints the whole state as JSON");
    dump.add_option("FILE", file, "project file, - for standard input")->required();
    dump.add_flag("--inputs", inputs, "what the project file keeps, not calculated");
    dump.callback([&] { exit = Dump(options, file, inputs); });

    CLI::App& create = *app.add_subcommand("new", "writes a default project");
    AddOutput(create, fresh.out, "file to write; standard output without it");
    create.add_option("--family", fresh.family, "section family, as `kestrum sections` lists them");
    create.add_option("--set", fresh.set, "NAME=VALUE, through the limits of the input boxes");
    create.add_flag("--raw", fresh.raw, "stores the values unchecked");
    create.callback([&] { exit = New(options, fresh); });

    CLI::App& set = *app.add_subcommand("set", "changes fields of a project");
    set.add_option("FILE", change.file, "project file, - for standard input")->required();
    set.add_option("ASSIGNMENT", change.set,
                   "NAME=VALUE, fields by their canonical names: qload[2]=12.5")
        ->required();
    AddOutput(set, change.out, "file to write; the file itself without it");
    set.add_flag("--raw", change.raw, "stores the values unchecked");
    set.callback([&] { exit = Set(options, change); });

    CLI::App& sections =
        *app.add_subcommand("sections", "lists the families, or the table rows of one");
    sections.add_option("FAMILY", family, "family number");
    AddFormat(sections, options, kAllFormats);
    sections.callback([&] { exit = Sections(options, family); });

    CLI::App& vortex =
        *app.add_subcommand("vortex", "controls vortex shedding, EN 1991-1-4, Annex E");
    vortex.add_option("FILE", file, "project file, - for standard input")->required();
    AddFormat(vortex, options, kTextAndJson);
    vortex.callback([&] { exit = Vortex(options, file); });

    CLI::App& diagram = *app.add_subcommand(
        "diagram", "draws member, loads, moment, shear and deflection of one axis");
    diagram.add_option("FILE", picture.file, "project file, - for standard input")->required();
    diagram.add_option("--axis", picture.axis, "axis along which the loads act: z or y")
        ->check(CLI::IsMember({"z", "y"}))
        ->capture_default_str();
    AddOutput(diagram, picture.out, "file to write: .svg, .png or .pdf")->required();
    diagram.callback([&] { exit = Diagram(options, picture); });

    CLI::App& detailed =
        *app.add_subcommand("table", "prints the intermediate values of the stability control");
    detailed.add_option("FILE", table.file, "project file, - for standard input")->required();
    AddOutput(detailed, table.out,
              "file to write: .xlsx or .csv; text on standard output without it");
    detailed.callback([&] { exit = DetailedTable(options, table); });

    CLI::App& printed = *app.add_subcommand("report", "writes a printed report, one page A4");
    printed.add_option("KIND", report.kind, "control, section or vortex")
        ->required()
        ->check(CLI::IsMember({"control", "section", "vortex"}));
    printed.add_option("FILE", report.file, "project file, - for standard input")->required();
    AddOutput(printed, report.out, "file to write: .pdf, .svg or .png")->required();
    printed.callback([&] { exit = Report(options, report); });

    CLI::App& batch = *app.add_subcommand(
        "batch", "calculates many members and writes one line for each: CSV or NDJSON");
    batch
        .add_option("INPUT", many.inputs,
                    "project files, folders of them, tables (.csv, .ndjson; one member a line, "
                    "columns by canonical names), - for a table on standard input")
        ->required();
    AddOutput(batch, many.out, "file to write; standard output without it");
    batch.add_option("--base", many.base, "project whose values hold where a table is silent");
    batch
        .add_option("--fields", many.fields,
                    "columns of the answer: canonical names, control, clause, message")
        ->delimiter(',')
        ->allow_extra_args(false)  // what follows are inputs
        ->capture_default_str();
    batch.add_option("--jobs", many.jobs, "threads; one for each core without it")
        ->check(CLI::Range(1, 256));
    batch.add_flag("--resume", many.resume, "goes on behind the answers that -o holds already");
    batch.add_flag("--raw", many.raw, "stores the values unchecked");
    batch.add_flag("--quiet", many.quiet, "no summary");
    AddFormat(batch, options, kTableFormats);
    batch.callback([&] { exit = Batch(options, many); });

    try {
        std::vector<std::string> words = kestrum::Arguments(argc, argv);
        std::reverse(words.begin(), words.end());  // as CLI11 wants them
        if (!words.empty()) {
            words.pop_back();  // the program
        }
        app.parse(words);
    } catch (const CLI::ParseError& error) {
        const bool asked = app.exit(error) == 0;  // for help or version, which it prints
        std::cout.flush();
        RequirePrinted();
        return asked ? kAllWithin : kBadInput;
    }
    return exit;
}

}  // namespace

int main(int argc, char** argv)
{
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);  // a file that must not grow is a failed write, told as such
#endif
    try {
        return Run(argc, argv);
    } catch (const std::exception& failure) {
        Complain(failure.what());
        return kBadInput;
    }
}
