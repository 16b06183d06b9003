// The lightest section that passes: of a project, of the members of a table, of a frame.

#include "app/optimize.h"

#include "app/choices.h"
#include "app/optimize_form.h"
#include "app/optimize_table.h"
#include "app/ordered_run.h"
#include "cli/commands.h"
#include "cli/force_reader.h"
#include "cli/frame_input.h"
#include "cli/interrupt.h"
#include "cli/many.h"
#include "cli/progress.h"
#include "core/file_io.h"
#include "core/held_state.h"
#include "core/number_format.h"
#include "core/project_inputs.h"
#include "core/utf8_text.h"
#include "sections/families.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <limits>
#include <memory>
#include <unordered_set>
#include <utility>

namespace kestrum::cli {

namespace {

Objective ObjectiveOf(const std::string& by)
{
    return by == "depth"     ? Objective::depth
           : by == "price"   ? Objective::price
           : by == "surface" ? Objective::surface
                             : Objective::mass;
}

double SizeOf(const std::string& option, const std::optional<double>& given,
              const std::string& unit = {})
{
    if (given && !(*given > 0 && std::isfinite(*given))) {
        throw BadInput(option + ": expected a number above 0" + unit);
    }
    return given.value_or(std::numeric_limits<double>::infinity());
}

bool IsTable(const std::string& name)
{
    const std::string ending = EndingOf(name);
    return ending == ".csv" || ending == ".tsv" || ending == ".txt";
}

// `family` is that of a project, which holds without a pool.
SectionPool PoolOf(const Library& library, const OptimizeArguments& arguments,
                   const std::string& family, const Interrupt& interrupt)
{
    SectionPool pool;
    if (arguments.pool.empty() && family.empty()) {
        throw BadInput("--pool is missing: the families to choose from");
    }
    for (const std::string& word :
         arguments.pool.empty() ? std::vector<std::string>{family} : arguments.pool) {
        if (IsTable(word)) {
            const std::string refusal = pool.AddPrices(library, ReadTable(word, interrupt), word);
            if (!refusal.empty()) {
                throw BadInput(refusal);
            }
        } else {
            Require("--pool", pool.Add(library, word));
        }
    }
    for (const std::string& range : arguments.range) {
        Require("--range", pool.Range(range));
    }
    for (const std::string& field : arguments.keep) {
        Require("--keep", pool.Keep(field));
    }
    Require("--pool", pool.Finish(library));
    return pool;
}

OptimizeWishes WishesOf(const Library& library, const OptimizeArguments& arguments)
{
    OptimizeWishes wishes;
    wishes.by = ObjectiveOf(arguments.by);
    wishes.bases = BasesOf(arguments.basis);
    wishes.max_ir = SizeOf("--max-ir", arguments.max_ir);
    wishes.max_h = SizeOf("--max-h", arguments.max_h, ", in mm");
    wishes.max_b = SizeOf("--max-b", arguments.max_b, ", in mm");
    wishes.top = static_cast<std::size_t>(arguments.top);
    for (const std::string& name : arguments.steel) {
        Require("--steel " + name, FindSteel(library, name, wishes.steels.emplace_back()));
    }
    return wishes;
}

std::string Unit(Objective by)
{
    return by == Objective::depth     ? "depth"
           : by == Objective::price   ? "price"
           : by == Objective::surface ? "surface"
                                      : "mass";
}

std::string FiguresText(const SectionFigures& figures)
{
    std::string text = FormatNum(figures.mass, "0.0") + " kg/m, h " + FormatNum(figures.h, "0") +
                       ", b " + FormatNum(figures.b, "0") + " mm";
    return text + (figures.price ? ", price " + FormatNum(*figures.price, "0.00") + "/m" : "");
}

std::string NameText(const RatedCandidate& rated)
{
    return rated.name + (rated.steelname.empty() ? "" : " " + rated.steelname);
}

std::string TextOf(const std::string& file, const OptimizeWishes& wishes,
                   const OptimizeAnswer& answer, const RatedCandidate& present)
{
    const auto why = [&](const RatedCandidate& rated) { return WhyText(rated, wishes.bases); };
    std::string text =
        Printable(file) + "\n" + std::to_string(answer.offered) + " sections by " + Unit(wishes.by);
    text += answer.beyond > 0 ? ", " + std::to_string(answer.beyond) + " beyond the sizes" : "";
    text += answer.impossible > 0
                ? ", " + std::to_string(answer.impossible) + " do not fit together"
                : "";
    text += "\n";
    for (std::size_t i = 0; i < answer.found.size(); ++i) {
        const RatedCandidate& rated = answer.found[i];
        text += std::to_string(i + 1) + ". " + NameText(rated) + ", " + FiguresText(rated.figures) +
                ": " + why(rated) + "\n";
    }
    if (answer.lighter) {
        text += "next lighter: " + NameText(*answer.lighter) + ", " +
                FiguresText(answer.lighter->figures) + ", fails: " + why(*answer.lighter) + "\n";
    } else if (!answer.found.empty()) {
        text += "no section of the pool is lighter\n";
    }
    text += "now: " + NameText(present) + ", " + FiguresText(present.figures) + ": " +
            why(present) + "\n";
    return text;
}

// The inputs must not be written over.
void SpareInputs(const OptimizeArguments& arguments)
{
    const std::string out = arguments.out.empty() ? "-" : arguments.out;
    SpareTables(arguments, {out});
    for (const std::string& word : arguments.pool) {
        if (IsTable(word)) {
            SpareInput(out, word);
        }
    }
}

// A section that cannot buckle laterally has switched the check off; one that can needs it.
void TellLateral(const Options& options, const ProjectState& before, const ProjectState& s)
{
    constexpr auto kOff = LateralBuckling::off;
    if (InputsOf(before).ltb == 0 && Traits(InputsOf(before)).design.lateral == kOff &&
        Traits(InputsOf(s)).design.lateral != kOff) {
        Hint(options, "lateral torsional buckling is off in the project, whose section cannot have "
                      "it, and is not checked for the section chosen either; ltb=1 has it checked");
    }
}

int OptimizeProject(const Options& options, const OptimizeArguments& arguments)
{
    for (const auto& [option, given] :
         {std::pair("--group", &arguments.group), std::pair("--key", &arguments.key),
          std::pair("--base", &arguments.base)}) {
        if (!given->empty()) {
            throw BadInput(std::string(option) + " goes with a table of members");
        }
    }
    const CsvForm csv = CsvFormOf(options, CsvTexts::plain, options.format == Format::csv);
    SpareInputs(arguments);
    const Interrupt interrupt;
    const Library library = LoadTables(options);
    const HeldState project = OpenProject(library, arguments.members);
    const SectionPool pool =
        PoolOf(library, arguments, std::to_string(InputsOf(project).family), interrupt);
    Optimizer optimizer(library, pool, WishesOf(library, arguments));
    Require("--by", optimizer.refusal());
    LoadRater member(library, project);
    SectionRater* group[] = {&member};
    const OptimizeAnswer answer = optimizer.Choose(group);
    const RatedCandidate present = optimizer.Present(member);
    if (options.format == Format::text && !options.quiet) {
        Print(TextOf(arguments.members, optimizer.wishes(), answer, present));
    } else if (!options.quiet) {
        const bool json = options.format == Format::json;
        const OptimizeForm form(json ? TableForm::ndjson : TableForm::csv, optimizer.wishes().bases,
                                csv);
        std::string lines = form.Header();
        form.AppendLines(lines,
                         {.key = arguments.members,
                          .section = present.name,
                          .steel = present.steelname,
                          .figures = present.figures},
                         &answer);
        Print(lines);
    }
    if (answer.found.empty()) {
        Complain(arguments.members + ": " + answer.message);
        return kSomeAbove;
    }
    HeldState chosen = project;
    optimizer.Give(chosen, answer.found.front());
    TellLateral(options, project, chosen);
    if (!arguments.out.empty()) {
        SaveProject(chosen, arguments.out);
    }
    return kAllWithin;
}

// --- Tables --------------------------------------------------------------------------------------

// All cases of all members. False when the user stops the program.
bool ReadForces(const Options& options, const OptimizeArguments& arguments,
                const MemberList& members, const Interrupt& interrupt,
                std::unique_ptr<CaseStore>& store, bool& faulty)
{
    constexpr std::size_t kMega = std::size_t{1} << 20;
    ForceReader forces(arguments.forces, MannerOf(arguments), members,
                       kMega * static_cast<std::size_t>(arguments.memory), interrupt);
    Tell(options, forces);
    Progress scanned("rows looked through");
    const bool ready = forces.Prepare(
        [&](std::uintmax_t taken, std::uintmax_t whole) { scanned.Show(0, taken, whole); });
    scanned.Wipe();
    store = std::make_unique<CaseStore>(members, forces.columns(), forces.name());
    Progress progress("cases");
    std::size_t cases = 0;
    for (ForcePiece piece; ready && forces.Next(piece); piece.lines.clear()) {
        store->Read(piece);
        cases += piece.cases;
        if (!piece.fault.empty()) {
            faulty = true;
            progress.Wipe();
            ComplainAll(piece.fault);
        }
        progress.Show(cases, forces.taken(), forces.whole());
    }
    return ready && !interrupt.raised();
}

// The answers of a run of tables, in the order of the members.
struct TableAnswers {
    std::vector<OptimizePiece::Answer> of;
    bool faulty = false;
};

TableAnswers RunTable(const Options& options, const OptimizeArguments& arguments,
                      const OptimizePlan& plan, const OptimizeForm& form,
                      const Interrupt& interrupt)
{
    constexpr std::size_t kGroups = 16;  // of a piece
    const std::size_t column =
        arguments.group.empty() ? MemberList::kNone : plan.members.ColumnOf(arguments.group);
    if (!arguments.group.empty() && column == MemberList::kNone) {
        throw BadInput("--group " + arguments.group + ": there is no such column");
    }
    const std::vector<MemberGroup> groups = GroupsOf(plan.members, column);
    TableAnswers answers;
    answers.of.resize(plan.members.size());
    std::vector<OrderedRun<OptimizePiece>::Work> work;
    for (unsigned i = 0; i < Threads(arguments.jobs); ++i) {
        work.emplace_back([worker = std::make_shared<OptimizeWorker>(plan, form, groups)](
                              OptimizePiece& piece) { worker->Work(piece); });
    }
    std::size_t next = 0, done = 0;
    std::unordered_set<std::string> said;
    Progress progress("members");
    OrderedRun<OptimizePiece> run(std::move(work));
    run.Run(
        [&](OptimizePiece& piece) {
            piece.first = next;
            next = std::min(next + kGroups, groups.size());
            piece.behind = next;
            return piece.first < piece.behind && !interrupt.raised();
        },
        [&](OptimizePiece& piece) {
            progress.Wipe();
            ComplainAll(piece.fault);
            answers.faulty = answers.faulty || !piece.fault.empty();
            for (const BatchChunk::Word& word : piece.words) {
                if (said.insert(word.key).second) {
                    Hint(options, word.text + " (said once)");
                }
            }
            for (OptimizePiece::Answer& answer : piece.answers) {
                answers.of[answer.member] = std::move(answer);
            }
            done += piece.answers.size();
            progress.Show(done, done, plan.members.size());
        });
    progress.Wipe();
    return answers;
}

std::string SummaryOf(const MemberList& members, const TableAnswers& answers, Tally& tally)
{
    double before = 0, after = 0;
    std::size_t found = 0;
    for (std::size_t i = 0; i < answers.of.size(); ++i) {
        const OptimizePiece::Answer& answer = answers.of[i];
        tally.Add(i, Printable(members.Key(i)), answer.verdict, answer.ir);
        before += answer.before;
        after += answer.after;
        found += answer.verdict == Verdict::within ? 1 : 0;
    }
    constexpr double kTonne = 1000;  // kg
    std::string text = "sections for " + std::to_string(found) + " of " +
                       std::to_string(answers.of.size()) + " members";
    text += found > 0 ? ", " + FormatNum(after / kTonne, "0.000") + " t in place of " +
                            FormatNum(before / kTonne, "0.000") + " t"
                      : "";
    return text + "\n" + tally.Summary();
}

int OptimizeTable(const Options& options, const OptimizeArguments& arguments)
{
    RequireTables(arguments);
    const CsvForm csv = CsvFormOf(options, CsvTexts::plain,
                                  options.format != Format::json || !arguments.out.empty());
    SpareInputs(arguments);
    if (!arguments.out.empty() && arguments.out != "-" && !IsTable(arguments.out)) {
        throw BadInput(arguments.out + ": a table of members has a name that ends in .csv");
    }
    const Interrupt interrupt;
    const Library library = LoadTables(options);
    const SectionPool pool = PoolOf(library, arguments, {}, interrupt);
    const OptimizeWishes wishes = WishesOf(library, arguments);
    Require("--by", Optimizer(library, pool, wishes).refusal());
    const HeldState base = BaseOf(library, arguments.base);

    bool faulty = false;
    const bool frame = !arguments.forces.empty();
    const MemberList members = ReadMembers(arguments.members, arguments.key, interrupt, faulty,
                                           frame ? KeyUse::required : KeyUse::optional);
    std::unique_ptr<CaseStore> forces;
    if (frame && !ReadForces(options, arguments, members, interrupt, forces, faulty)) {
        interrupt.End();
    }
    const bool json = options.format == Format::json;
    const OptimizeForm form(json ? TableForm::ndjson : TableForm::csv, wishes.bases, csv);
    const ChosenTable chosen(members, pool, !wishes.steels.empty(), csv);
    OptimizePlan plan{library, base, members, pool, wishes};
    plan.manner = Manner(arguments.raw ? Assignment::raw : Assignment::checked,
                         arguments.tensionpositive && !frame);
    plan.forces = forces.get();
    plan.notes = arguments.notes;
    plan.chosen = arguments.out.empty() ? nullptr : &chosen;
    const TableAnswers answers = RunTable(options, arguments, plan, form, interrupt);
    if (interrupt.raised()) {
        interrupt.End();
    }
    std::string lines = form.Header(), table = chosen.Header();
    for (const OptimizePiece::Answer& answer : answers.of) {
        lines += answer.lines;
        table += answer.chosen;
    }
    if (arguments.out == "-") {
        lines = table;
    } else if (!arguments.out.empty()) {
        const std::string fault = WriteWholeFile(arguments.out, table);
        if (!fault.empty()) {
            throw BadInput(arguments.out + ": " + fault);
        }
    }
    Print(lines);
    Tally tally;
    std::string summary = SummaryOf(members, answers, tally);
    if (!plan.notes) {
        summary += "deviations on the unsafe side not looked for (--notes)\n";
    }
    if (!options.quiet) {
        std::cerr << PrintableLines(summary);
    }
    faulty = faulty || answers.faulty;
    if (arguments.exit_zero) {
        return faulty ? kBadInput : kAllWithin;
    }
    return ExitOf(tally, faulty);
}

}  // namespace

int Optimize(const Options& options, const OptimizeArguments& arguments)
{
    const std::string ending = EndingOf(arguments.members);
    if (ending == ".json" || ending == ".ndjson" || ending == ".jsonl") {
        throw BadInput(arguments.members + ": members are read from a CSV, not from JSON");
    }
    return IsTable(arguments.members) || !arguments.forces.empty()
               ? OptimizeTable(options, arguments)
               : OptimizeProject(options, arguments);
}

}  // namespace kestrum::cli
