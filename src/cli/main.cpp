#include "app/platform.h"
#include "cli/commands.h"
#include "cli/usage.h"

#include <algorithm>
#include <csignal>
#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace kestrum::cli;

const Formats kTextAndJson{{"text", Format::text}, {"json", Format::json}};
const Formats kAllFormats{{"text", Format::text}, {"json", Format::json}, {"csv", Format::csv}};
const Formats kTableFormats{{"csv", Format::csv}, {"json", Format::json}, {"ndjson", Format::json}};

void AddFrame(CLI::App& command, FrameArguments& frame)
{
    command.add_option("--key", frame.key, "column of the members' keys");
    command.add_option("--map", frame.map, "THEIRS=OURS: what a column of the forces is")
        ->delimiter(',');
    AddSign(command, frame.tensionpositive);
    command.add_flag("--swap-axes", frame.swap_axes,
                     "y of the forces is z of the members, and the other way round");
    command.add_option("--memory", frame.memory, "MB of memory to sort forces in")
        ->check(CLI::Range(1, 1 << 20));
    command.add_option("--base", frame.base, "project whose values hold where a table is silent");
    command.add_flag("--raw", frame.raw, "stores the values unchecked");
}

void AddOptimize(CLI::App& app, Options& options, OptimizeArguments& search, int& exit)
{
    CLI::App& optimize = *app.add_subcommand(
        "optimize", "the lightest section that passes, for a project, a table or a frame");
    optimize
        .add_option("file", search.members,
                    "project file, or a table of members as for batch; with FORCES as for envelope")
        ->required()
        ->type_name("FILE");
    optimize
        .add_option("forces", search.forces, "table of forces of these members, as for envelope")
        ->type_name("FORCES");
    AddOutput(optimize, search.out,
              "file to write: the project or the table of members with the sections chosen");
    optimize
        .add_option("--pool", search.pool,
                    "families, series, sections, all, or a .csv of them with prices; of a project "
                    "its family without it")
        ->delimiter(',');
    optimize.add_option("--range", search.range,
                        "FIELD=FROM:TO:STEP, FIELD=SIZE,SIZE or FIELD=plates: sizes of a dimension "
                        "of sections of plates");
    optimize.add_option("--keep", search.keep, "dimension that stays as the member has it")
        ->delimiter(',');
    optimize.add_option("--steel", search.steel, "grades to choose from; the member's own without")
        ->delimiter(',');
    optimize.add_option("--by", search.by, "what shall be smallest: mass, depth, price or surface")
        ->check(CLI::IsMember({"mass", "depth", "price", "surface"}));
    optimize.add_option("--max-ir", search.max_ir, "largest ratio, below the limit of the project");
    optimize.add_option("--max-h", search.max_h, "largest height, mm");
    optimize.add_option("--max-b", search.max_b, "largest width, mm");
    optimize.add_option("--top", search.top, "so many sections that pass, the lightest first")
        ->check(CLI::Range(1, 1000));
    optimize
        .add_option("--basis", search.basis, "program, standard or both: in which it has to pass")
        ->check(CLI::IsMember({"program", "standard", "both"}));
    optimize.add_option("--group", search.group,
                        "column of the table; members with one text there get one section");
    AddFrame(optimize, search);
    optimize.add_option("--jobs", search.jobs, "threads; one for each core without it")
        ->check(CLI::Range(1, 256));
    optimize.add_flag("--notes", search.notes,
                      "of a table: measures which deviations act in each section chosen");
    optimize.add_flag("--exit-zero", search.exit_zero, "exit 0 whatever the verdicts");
    AddFormat(optimize, options, kAllFormats);
    AddCsv(optimize, options);
    optimize.callback([&] { exit = Optimize(options, search); });
}

int Run(int argc, char** argv)
{
    CLI::App app{"Kestrum EC3: designs one steel member to EN 1993-1-1."};
    app.name("kestrum");
    app.failure_message(UsageFailure);
    app.footer("Exit codes: 0 all ratios within their limits, 1 some ratio above, 2 bad input,\n"
               "not checked, loads dropped or nothing acts, 3 calculation error or unstable.\n"
               "`kestrum help COMMAND` lists the options of a command; the options above "
               "go with each.\n"
               "`kestrum fields` explains the fields with units, values and limits. Compression, "
               "sagging and\n"
               "downward are positive (--sign of new, set, batch). Units: m, kN, kN/m, kNm; "
               "sections mm;\n"
               "strengths MPa. `kestrum dump --inputs FILE` prints the fields of a project.");
    app.require_subcommand(1);
    app.fallthrough();

    Options options;
    app.add_option("--data", options.data, "folder with the profile tables and the material list");
    app.set_version_flag(
        "-V,--version", [&options] { return VersionText(options); },
        "prints the version, and with --data which files there are not the delivered ones");
    app.add_option("--setup", options.setup, "stored setup in place of the delivered one");
    AddColor(app, options);
    app.add_flag("-q,--quiet", options.quiet,
                 "no hints, no summary; check answers by its exit code alone");

    int exit = kAllWithin;
    std::vector<std::string> files;
    std::string file;
    bool inputs = false;
    CheckArguments checked;
    NewArguments fresh;
    SetArguments change;
    std::string family, field;
    DiagramArguments picture;
    TableArguments table;
    ReportArguments report;
    BatchArguments many;
    EnvelopeArguments frame;
    OptimizeArguments search;
    SummaryArguments summed;
    MergeArguments merged;

    CLI::App& check =
        *app.add_subcommand("check", "calculates and prints the result panel of each file");
    check.add_option("FILE", checked.files, "project files, - for standard input")->required();
    check.add_flag("--loadcase", checked.loadcase, "with the governing load case");
    bool ignored = false;
    check.add_flag("--notes", ignored,
                   "with a note for each deviation from the standard on the unsafe side that acts "
                   "in the result; so it is without this option too");
    check.add_flag("--no-notes", checked.no_notes, "without these notes in the text");
    check.add_flag("--exit-zero", checked.exit_zero, "exit 0 whatever the verdicts");
    check.add_flag("--csv-safe", checked.csv_safe,
                   "texts of a CSV that a spreadsheet would run get an apostrophe in front");
    check
        .add_option("--basis", checked.basis,
                    "program: its own rules; standard: EN 1993-1-1 as written; both, the default. "
                    "The exit code "
                    "follows the program's ratio unless it is standard")
        ->check(CLI::IsMember({"program", "standard", "both"}));
    AddFormat(check, options, kAllFormats);
    AddCsv(check, options);
    check.callback([&] { exit = Check(options, checked); });

    CLI::App& dump = *app.add_subcommand("dump", "calculates and prints the whole state as JSON");
    dump.add_option("FILE", files, "project files, - for standard input; several give a list")
        ->required();
    dump.add_flag("--inputs", inputs, "what the project file keeps, not calculated");
    dump.callback([&] { exit = Dump(options, files, inputs); });

    CLI::App& create = *app.add_subcommand("new", "writes a default project");
    AddOutput(create, fresh.out, "file to write; standard output without it");
    create.add_option("--family", fresh.family, "section family, as `kestrum sections` lists them");
    create.add_option("--set", fresh.set, "NAME=VALUE, through the limits of the input boxes");
    create.add_flag("--raw", fresh.raw, "stores the values unchecked");
    AddSign(create, fresh.tensionpositive);
    create.callback([&] { exit = New(options, fresh); });

    CLI::App& set = *app.add_subcommand("set", "changes fields of a project");
    set.add_option("FILE", change.file, "project file, - for standard input")->required();
    set.add_option("ASSIGNMENT", change.set,
                   "NAME=VALUE, fields by their canonical names: qload[2]=12.5")
        ->required();
    AddOutput(set, change.out, "file to write; the file itself without it");
    set.add_flag("--raw", change.raw, "stores the values unchecked");
    set.add_flag("--dry-run", change.dry_run, "prints what would change and writes nothing");
    AddSign(set, change.tensionpositive);
    set.callback([&] { exit = Set(options, change); });

    CLI::App& sections =
        *app.add_subcommand("sections", "lists the families, or the table rows of one");
    sections.add_option("FAMILY", family, "family number");
    AddFormat(sections, options, kAllFormats);
    AddCsv(sections, options);
    sections.callback([&] { exit = Sections(options, family); });

    CLI::App& fields = *app.add_subcommand(
        "fields", "explains the fields, or one: meaning, unit, values with their names, limits");
    fields.add_option("NAME", field, "canonical name, as `kestrum set` takes it");
    AddFormat(fields, options, kAllFormats);
    AddCsv(fields, options);
    fields.callback([&] { exit = Fields(options, field); });

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
    AddCsv(detailed, options);
    detailed.callback([&] { exit = DetailedTable(options, table); });

    CLI::App& printed = *app.add_subcommand("report", "writes a printed report, A4");
    printed.add_option("KIND", report.kind, "control, section, vortex or full")
        ->required()
        ->check(CLI::IsMember({"control", "section", "vortex", "full"}));
    printed
        .add_option("FILE", report.files,
                    "project files, - for standard input; several go into one .pdf")
        ->required();
    AddOutput(printed, report.out,
              "file to write: .pdf, .svg or .png; full: .html, .odt and .md too")
        ->required();
    for (const auto& [name, what] :
         {std::pair{"company", "company"}, std::pair{"logo", "PNG or SVG file of its logo"},
          std::pair{"projectnumber", "number of the project"}, std::pair{"author", "author"},
          std::pair{"checker", "checker"}, std::pair{"revision", "revision"},
          std::pair{"date", "date in place of today"},
          std::pair{"decimal", "decimal sign of the numbers: point or comma"}}) {
        printed.add_option("--" + std::string(name), report.head[name], what);
    }
    printed.add_option("--office", report.office, "file with lines name = text for these options");
    printed.add_flag("--vortex", report.vortex, "full: with the control of vortex shedding");
    printed.add_flag("--reproducible", report.reproducible,
                     "no date but a given one, the same bytes each time");
    printed.callback([&] {
        exit = report.kind == "full" ? ReportFull(options, report) : Report(options, report);
    });

    CLI::App& batch = *app.add_subcommand(
        "batch", "calculates many members and writes one line for each: CSV or NDJSON");
    batch
        .add_option(
            "INPUT", many.inputs,
            "project files, folders of them, tables (.csv, .ndjson, .json; one member a line, "
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
    batch.add_option("--shard", many.shard, "I/N: part I of N of the members, for `kestrum merge`");
    batch.add_option("--jobs", many.jobs, "threads; one for each core without it")
        ->check(CLI::Range(1, 256));
    batch.add_flag("--resume", many.resume, "continues after the answers already in -o");
    batch.add_flag("--raw", many.raw, "stores the values unchecked");
    AddSign(batch, many.tensionpositive);
    batch.add_flag("--keep-columns", many.keep_columns,
                   "columns that are not fields are passed through to the answer");
    batch.add_flag("--exit-zero", many.exit_zero,
                   "exit 0 when each member has its answer, whatever the verdicts");
    batch.add_flag_callback(
        "--csv-safe", [&many] { many.csv_safe = true; },
        "texts of a CSV that a spreadsheet would run get an apostrophe in front; a file has it "
        "anyway");
    batch.add_flag_callback(
        "--no-csv-safe", [&many] { many.csv_safe = false; }, "texts as they are, also in a file");
    AddFormat(batch, options, kTableFormats);
    AddCsv(batch, options);
    batch.callback([&] { exit = Batch(options, many); });

    CLI::App& envelope = *app.add_subcommand(
        "envelope", "members under forces of another program: the worst case of each");
    envelope.add_option("members", frame.members, "table of members: CSV, one a line, with a key")
        ->required()
        ->type_name("MEMBERS");
    envelope
        .add_option("forces", frame.forces,
                    "table of forces: CSV with member, case, x, N, Vy, Vz, My, Mz; - is standard "
                    "input")
        ->required()
        ->type_name("FORCES");
    AddOutput(envelope, frame.out, "file to write; standard output without it");
    envelope.add_option("--basis", frame.basis, "program, standard or both")
        ->check(CLI::IsMember({"program", "standard", "both"}));
    AddFrame(envelope, frame);
    envelope.add_flag("--all", frame.all, "a line for each member and case");
    envelope.add_option("--top", frame.top, "this many worst cases of each member")
        ->check(CLI::Range(1, 1000000));
    envelope.add_option("--shard", frame.shard,
                        "I/N: part I of N of the members, for `kestrum merge`");
    envelope.add_option("--jobs", frame.jobs, "threads; one for each core without it")
        ->check(CLI::Range(1, 256));
    envelope.add_flag("--resume", frame.resume, "continues after the answers already in -o");
    envelope.add_flag("--exit-zero", frame.exit_zero, "exit 0 whatever the verdicts");
    envelope.add_flag_callback(
        "--csv-safe", [&] { frame.csv_safe = true; },
        "marks texts that a spreadsheet would take for formulas");
    envelope.add_flag_callback(
        "--no-csv-safe", [&] { frame.csv_safe = false; }, "leaves them as they are");
    AddFormat(envelope, options, kTableFormats);
    AddCsv(envelope, options);
    envelope.callback([&] { exit = Envelope(options, frame); });

    AddOptimize(app, options, search, exit);

    CLI::App& merge = *app.add_subcommand(
        "merge", "joins the answers of all shards of a run of batch or envelope");
    merge.add_option("parts", merged.parts, "answers written with --shard, in any order")
        ->required()
        ->type_name("PARTS");
    AddOutput(merge, merged.out, "file to write; standard output without it");
    merge.callback([&] { exit = Merge(options, merged); });

    CLI::App& summary = *app.add_subcommand(
        "summary",
        "sorts the answers of batch, envelope or optimize by ratio: table, workbook or pages");
    summary.add_option("answers", summed.answers, "answers as CSV; - is standard input")
        ->required()
        ->type_name("ANSWERS");
    AddOutput(summary, summed.out,
              "file to write: .csv, .xlsx, .pdf, .svg or .png; CSV on standard output without it");
    summary.add_option("--members", summed.members,
                       "table of the members, for their names, sections and masses");
    summary.add_option("--key", summed.key, "column of the members' keys");
    summary.add_option("--base", summed.base,
                       "project whose values hold where that table is silent");
    summary.add_flag("--raw", summed.raw, "takes the values of that table unchecked");
    summary.add_option("--top", summed.top, "lists so many members; all are counted")
        ->check(CLI::Range(1, 1000000000));
    AddCsv(summary, options);
    summary.callback([&] { exit = Summary(options, summed); });

    CLI::App& help = *app.add_subcommand("help", "prints the help of a command");
    help.add_option("COMMAND", file, "the command; that of the program without it");
    help.callback([&] { Print(HelpOf(app, file)); });

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
