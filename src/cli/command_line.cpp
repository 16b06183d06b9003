#include "cli/command_line.h"

#include "cli/usage.h"

#include <algorithm>
#include <utility>

namespace kestrum::cli {

namespace {

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

void AddCheck(CLI::App& command, CommandLine& line)
{
    CheckArguments& checked = line.check;
    command.add_option("FILE", checked.files, "project files, - for standard input")->required();
    command.add_flag("--loadcase", checked.loadcase, "with the governing load case");
    command.add_flag(
        "--notes", line.notes,
        "with a note for each deviation from the standard on the unsafe side that acts "
        "in the result; so it is without this option too");
    command.add_flag("--no-notes", checked.no_notes, "without these notes in the text");
    command.add_flag("--exit-zero", checked.exit_zero, "exit 0 whatever the verdicts");
    command.add_flag("--csv-safe", checked.csv_safe,
                     "texts of a CSV that a spreadsheet would run get an apostrophe in front");
    command
        .add_option("--basis", checked.basis,
                    "program: its own rules; standard: EN 1993-1-1 as written; both, the default. "
                    "The exit code "
                    "follows the program's ratio unless it is standard")
        ->check(CLI::IsMember({"program", "standard", "both"}));
    AddFormat(command, line.options, kAllFormats);
    AddCsv(command, line.options);
    command.callback([&line, &checked] { line.exit = Check(line.options, checked); });
}

void AddDump(CLI::App& command, CommandLine& line)
{
    command
        .add_option("FILE", line.files, "project files, - for standard input; several give a list")
        ->required();
    command.add_flag("--inputs", line.inputs, "what the project file keeps, not calculated");
    command.callback([&line] { line.exit = Dump(line.options, line.files, line.inputs); });
}

void AddNew(CLI::App& command, CommandLine& line)
{
    NewArguments& fresh = line.fresh;
    AddOutput(command, fresh.out, "file to write; standard output without it");
    command.add_option("--family", fresh.family,
                       "section family, as `kestrum sections` lists them");
    command.add_option("--set", fresh.set, "NAME=VALUE, through the limits of the input boxes");
    command.add_flag("--raw", fresh.raw, "stores the values unchecked");
    AddSign(command, fresh.tensionpositive);
    command.callback([&line, &fresh] { line.exit = New(line.options, fresh); });
}

void AddSet(CLI::App& command, CommandLine& line)
{
    SetArguments& change = line.set;
    command.add_option("FILE", change.file, "project file, - for standard input")->required();
    command
        .add_option("ASSIGNMENT", change.set,
                    "NAME=VALUE, fields by their canonical names: qload[2]=12.5")
        ->required();
    AddOutput(command, change.out, "file to write; the file itself without it");
    command.add_flag("--raw", change.raw, "stores the values unchecked");
    command.add_flag("--dry-run", change.dry_run, "prints what would change and writes nothing");
    AddSign(command, change.tensionpositive);
    command.callback([&line, &change] { line.exit = Set(line.options, change); });
}

void AddSections(CLI::App& command, CommandLine& line)
{
    command.add_option("FAMILY", line.family, "family number");
    AddFormat(command, line.options, kAllFormats);
    AddCsv(command, line.options);
    command.callback([&line] { line.exit = Sections(line.options, line.family); });
}

void AddFields(CLI::App& command, CommandLine& line)
{
    command.add_option("NAME", line.field, "canonical name, as `kestrum set` takes it");
    AddFormat(command, line.options, kAllFormats);
    AddCsv(command, line.options);
    command.callback([&line] { line.exit = Fields(line.options, line.field); });
}

void AddVortex(CLI::App& command, CommandLine& line)
{
    command.add_option("FILE", line.file, "project file, - for standard input")->required();
    AddFormat(command, line.options, kTextAndJson);
    command.callback([&line] { line.exit = Vortex(line.options, line.file); });
}

void AddDiagram(CLI::App& command, CommandLine& line)
{
    DiagramArguments& picture = line.diagram;
    command.add_option("FILE", picture.file, "project file, - for standard input")->required();
    command.add_option("--axis", picture.axis, "axis along which the loads act: z or y")
        ->check(CLI::IsMember({"z", "y"}))
        ->capture_default_str();
    AddOutput(command, picture.out, "file to write: .svg, .png or .pdf")->required();
    command.callback([&line, &picture] { line.exit = Diagram(line.options, picture); });
}

void AddTable(CLI::App& command, CommandLine& line)
{
    TableArguments& table = line.table;
    command.add_option("FILE", table.file, "project file, - for standard input")->required();
    AddOutput(command, table.out,
              "file to write: .xlsx or .csv; text on standard output without it");
    AddCsv(command, line.options);
    command.callback([&line, &table] { line.exit = DetailedTable(line.options, table); });
}

void AddReport(CLI::App& command, CommandLine& line)
{
    ReportArguments& report = line.report;
    command.add_option("KIND", report.kind, "control, section, vortex or full")
        ->required()
        ->check(CLI::IsMember({"control", "section", "vortex", "full"}));
    command
        .add_option("FILE", report.files,
                    "project files, - for standard input; several go into one .pdf")
        ->required();
    AddOutput(command, report.out,
              "file to write: .pdf, .svg or .png; full: .html, .odt and .md too")
        ->required();
    for (const auto& [name, what] :
         {std::pair{"company", "company"}, std::pair{"logo", "PNG or SVG file of its logo"},
          std::pair{"projectnumber", "number of the project"}, std::pair{"author", "author"},
          std::pair{"checker", "checker"}, std::pair{"revision", "revision"},
          std::pair{"date", "date in place of today"},
          std::pair{"decimal", "decimal sign of the numbers: point or comma"}}) {
        command.add_option("--" + std::string(name), report.head[name], what);
    }
    command.add_option("--office", report.office, "file with lines name = text for these options");
    command.add_flag("--vortex", report.vortex, "full: with the control of vortex shedding");
    command.add_flag("--reproducible", report.reproducible,
                     "no date but a given one, the same bytes each time");
    command.callback([&line, &report] {
        line.exit =
            report.kind == "full" ? ReportFull(line.options, report) : Report(line.options, report);
    });
}

void AddBatch(CLI::App& command, CommandLine& line)
{
    BatchArguments& many = line.batch;
    command
        .add_option(
            "INPUT", many.inputs,
            "project files, folders of them, tables (.csv, .ndjson, .json; one member a line, "
            "columns by canonical names), - for a table on standard input")
        ->required();
    AddOutput(command, many.out, "file to write; standard output without it");
    command.add_option("--base", many.base, "project whose values hold where a table is silent");
    command
        .add_option("--fields", many.fields,
                    "columns of the answer: canonical names, control, clause, message")
        ->delimiter(',')
        ->allow_extra_args(false)  // what follows are inputs
        ->capture_default_str();
    command.add_option("--shard", many.shard,
                       "I/N: part I of N of the members, for `kestrum merge`");
    command.add_option("--jobs", many.jobs, "threads; one for each core without it")
        ->check(CLI::Range(1, 256));
    command.add_flag("--resume", many.resume, "continues after the answers already in -o");
    command.add_flag("--raw", many.raw, "stores the values unchecked");
    AddSign(command, many.tensionpositive);
    command.add_flag("--keep-columns", many.keep_columns,
                     "columns that are not fields are passed through to the answer");
    command.add_flag("--exit-zero", many.exit_zero,
                     "exit 0 when each member has its answer, whatever the verdicts");
    command.add_flag_callback(
        "--csv-safe", [&many] { many.csv_safe = true; },
        "texts of a CSV that a spreadsheet would run get an apostrophe in front; a file has it "
        "anyway");
    command.add_flag_callback(
        "--no-csv-safe", [&many] { many.csv_safe = false; }, "texts as they are, also in a file");
    AddFormat(command, line.options, kTableFormats);
    AddCsv(command, line.options);
    command.callback([&line, &many] { line.exit = Batch(line.options, many); });
}

void AddEnvelope(CLI::App& command, CommandLine& line)
{
    EnvelopeArguments& frame = line.envelope;
    command.add_option("members", frame.members, "table of members: CSV, one a line, with a key")
        ->required()
        ->type_name("MEMBERS");
    command
        .add_option("forces", frame.forces,
                    "table of forces: CSV with member, case, x, N, Vy, Vz, My, Mz; - is standard "
                    "input")
        ->required()
        ->type_name("FORCES");
    AddOutput(command, frame.out, "file to write; standard output without it");
    command.add_option("--basis", frame.basis, "program, standard or both")
        ->check(CLI::IsMember({"program", "standard", "both"}));
    AddFrame(command, frame);
    command.add_flag("--all", frame.all, "a line for each member and case");
    command.add_option("--top", frame.top, "this many worst cases of each member")
        ->check(CLI::Range(1, 1000000));
    command.add_option("--shard", frame.shard,
                       "I/N: part I of N of the members, for `kestrum merge`");
    command.add_option("--jobs", frame.jobs, "threads; one for each core without it")
        ->check(CLI::Range(1, 256));
    command.add_flag("--resume", frame.resume, "continues after the answers already in -o");
    command.add_flag("--exit-zero", frame.exit_zero, "exit 0 whatever the verdicts");
    command.add_flag_callback(
        "--csv-safe", [&frame] { frame.csv_safe = true; },
        "marks texts that a spreadsheet would take for formulas");
    command.add_flag_callback(
        "--no-csv-safe", [&frame] { frame.csv_safe = false; }, "leaves them as they are");
    AddFormat(command, line.options, kTableFormats);
    AddCsv(command, line.options);
    command.callback([&line, &frame] { line.exit = Envelope(line.options, frame); });
}

void AddOptimize(CLI::App& command, CommandLine& line)
{
    OptimizeArguments& search = line.optimize;
    command
        .add_option("file", search.members,
                    "project file, or a table of members as for batch; with FORCES as for envelope")
        ->required()
        ->type_name("FILE");
    command
        .add_option("forces", search.forces, "table of forces of these members, as for envelope")
        ->type_name("FORCES");
    AddOutput(command, search.out,
              "file to write: the project or the table of members with the sections chosen");
    command
        .add_option("--pool", search.pool,
                    "families, series, sections, all, or a .csv of them with prices; of a project "
                    "its family without it")
        ->delimiter(',');
    command.add_option("--range", search.range,
                       "FIELD=FROM:TO:STEP, FIELD=SIZE,SIZE or FIELD=plates: sizes of a dimension "
                       "of sections of plates");
    command.add_option("--keep", search.keep, "dimension that stays as the member has it")
        ->delimiter(',');
    command.add_option("--steel", search.steel, "grades to choose from; the member's own without")
        ->delimiter(',');
    command.add_option("--by", search.by, "what shall be smallest: mass, depth, price or surface")
        ->check(CLI::IsMember({"mass", "depth", "price", "surface"}));
    command.add_option("--max-ir", search.max_ir, "largest ratio, below the limit of the project");
    command.add_option("--max-h", search.max_h, "largest height, mm");
    command.add_option("--max-b", search.max_b, "largest width, mm");
    command.add_option("--top", search.top, "so many sections that pass, the lightest first")
        ->check(CLI::Range(1, 1000));
    command
        .add_option("--basis", search.basis, "program, standard or both: in which it has to pass")
        ->check(CLI::IsMember({"program", "standard", "both"}));
    command.add_option("--group", search.group,
                       "column of the table; members with one text there get one section");
    AddFrame(command, search);
    command.add_option("--jobs", search.jobs, "threads; one for each core without it")
        ->check(CLI::Range(1, 256));
    command.add_flag("--notes", search.notes,
                     "of a table: measures which deviations act in each section chosen");
    command.add_flag("--exit-zero", search.exit_zero, "exit 0 whatever the verdicts");
    AddFormat(command, line.options, kAllFormats);
    AddCsv(command, line.options);
    command.callback([&line, &search] { line.exit = Optimize(line.options, search); });
}

void AddMerge(CLI::App& command, CommandLine& line)
{
    MergeArguments& merged = line.merge;
    command.add_option("parts", merged.parts, "answers written with --shard, in any order")
        ->required()
        ->type_name("PARTS");
    AddOutput(command, merged.out, "file to write; standard output without it");
    command.callback([&line, &merged] { line.exit = Merge(line.options, merged); });
}

void AddSummary(CLI::App& command, CommandLine& line)
{
    SummaryArguments& summed = line.summary;
    command.add_option("answers", summed.answers, "answers as CSV; - is standard input")
        ->required()
        ->type_name("ANSWERS");
    AddOutput(command, summed.out,
              "file to write: .csv, .xlsx, .pdf, .svg or .png; CSV on standard output without it");
    command.add_option("--members", summed.members,
                       "table of the members, for their names, sections and masses");
    command.add_option("--key", summed.key, "column of the members' keys");
    command.add_option("--base", summed.base,
                       "project whose values hold where that table is silent");
    command.add_flag("--raw", summed.raw, "takes the values of that table unchecked");
    command.add_option("--top", summed.top, "lists so many members; all are counted")
        ->check(CLI::Range(1, 1000000000));
    AddCsv(command, line.options);
    command.callback([&line, &summed] { line.exit = Summary(line.options, summed); });
}

void AddHelp(CLI::App& command, CommandLine& line)
{
    command.add_option("COMMAND", line.file, "the command; that of the program without it");
    command.callback([&command, &line] { Print(HelpOf(*command.get_parent(), line.file)); });
}

struct Command {
    const char* name;
    const char* meaning;
    void (*add_options)(CLI::App&, CommandLine&);
};

constexpr Command kCommands[] = {
    {"check", "calculates and prints the result panel of each file", AddCheck},
    {"dump", "calculates and prints the whole state as JSON", AddDump},
    {"new", "writes a default project", AddNew},
    {"set", "changes fields of a project", AddSet},
    {"sections", "lists the families, or the table rows of one", AddSections},
    {"fields", "explains the fields, or one: meaning, unit, values with their names, limits",
     AddFields},
    {"vortex", "controls vortex shedding, EN 1991-1-4, Annex E", AddVortex},
    {"diagram", "draws member, loads, moment, shear and deflection of one axis", AddDiagram},
    {"table", "prints the intermediate values of the stability control", AddTable},
    {"report", "writes a printed report, A4", AddReport},
    {"batch", "calculates many members and writes one line for each: CSV or NDJSON", AddBatch},
    {"envelope", "members under forces of another program: the worst case of each", AddEnvelope},
    {"optimize", "the lightest section that passes, for a project, a table or a frame",
     AddOptimize},
    {"merge", "joins the answers of all shards of a run of batch or envelope", AddMerge},
    {"summary",
     "sorts the answers of batch, envelope or optimize by ratio: table, workbook or pages",
     AddSummary},
    {"help", "prints the help of a command", AddHelp},
};

}  // namespace

void AddCommands(CLI::App& app, CommandLine& line, std::span<const std::string> words)
{
    for (const Command& one : kCommands) {
        CLI::App& command = *app.add_subcommand(one.name, one.meaning);
        if (std::find(words.begin(), words.end(), one.name) != words.end()) {
            one.add_options(command, line);
        }
    }
}

}  // namespace kestrum::cli
