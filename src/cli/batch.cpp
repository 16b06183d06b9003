// Many members at once: streams in, streams out, all cores.

#include "app/ordered_run.h"
#include "cli/batch_input.h"
#include "cli/batch_output.h"
#include "cli/commands.h"
#include "core/file_target.h"
#include "core/utf8_path.h"
#include "core/utf8_text.h"
#include "engine/new_project.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <iostream>
#include <memory>
#include <thread>
#include <unordered_set>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace kestrum::cli {

namespace {

using Clock = std::chrono::steady_clock;

// Rate and time left on a terminal; silent elsewhere.
class Progress {
public:
    void Show(std::size_t members, std::uintmax_t taken, std::uintmax_t whole)
    {
        const Clock::time_point now = Clock::now();
        if (!terminal_ || now < next_) {
            return;
        }
        next_ = now + std::chrono::milliseconds(200);
        const double seconds = std::chrono::duration<double>(now - start_).count();
        const auto rate = static_cast<double>(members) / std::max(seconds, 0.001);
        std::string line = "\r";
        if (whole > 0 && taken > 0) {
            const double part =
                std::min(1.0, static_cast<double>(taken) / static_cast<double>(whole));
            const auto bars = static_cast<std::size_t>(std::lround(part * kBars));
            line += "[" + std::string(bars, '#') + std::string(kBars - bars, '.') + "] ";
            line += std::to_string(std::lround(100 * part)) + " %, " +
                    std::to_string(std::lround(seconds / part - seconds)) + " s left, ";
        }
        line += std::to_string(members) + " members, " + std::to_string(std::lround(rate)) + "/s";
        line.resize(1 + kWidth, ' ');
        std::cerr << line << std::flush;
        shown_ = true;
    }

    // Makes room for something else to be told.
    void Wipe()
    {
        if (shown_) {
            std::cerr << "\r" + std::string(kWidth, ' ') + "\r" << std::flush;
            shown_ = false;
        }
    }

    ~Progress() { Wipe(); }

private:
    static constexpr std::size_t kBars = 20, kWidth = 79;  // no line of a terminal is filled up
#ifdef _WIN32
    bool terminal_ = false;
#else
    bool terminal_ = isatty(STDERR_FILENO) != 0;
#endif
    bool shown_ = false;
    Clock::time_point start_ = Clock::now(), next_ = start_ + std::chrono::milliseconds(500);
};

bool IsJsonName(const std::string& out)
{
    const std::string ending = EndingOf(out);
    return ending == ".ndjson" || ending == ".jsonl";
}

// A file with a name, no stream and no device.
bool IsFile(const std::string& out)
{
    std::error_code fault;
    const auto type = std::filesystem::status(Utf8Path(out), fault).type();
    return !out.empty() && out != "-" &&
           (type == std::filesystem::file_type::regular ||
            type == std::filesystem::file_type::not_found);
}

// The ending of a file says what is in it.
void RequireAnswerName(const Options& options, const std::string& out)
{
    if (!IsFile(out)) {
        return;
    }
    if (!IsJsonName(out) && EndingOf(out) != ".csv") {
        throw BadInput(out + ": the name has to end in .csv, .ndjson or .jsonl");
    }
    if (options.format == Format::json && !IsJsonName(out)) {
        throw BadInput(out + ": holds CSV; JSON needs a name that ends in .ndjson or .jsonl");
    }
}

TableForm FormOf(const Options& options, const std::string& out)
{
    return options.format == Format::json || IsJsonName(out) ? TableForm::ndjson : TableForm::csv;
}

// Each line with "kestrum: " in front.
void ComplainAll(std::string_view lines)
{
    while (!lines.empty()) {
        Complain(std::string(TakeLine(lines)));
    }
}

int ExitOf(const Tally& tally, bool faulty)
{
    int exit = faulty ? kBadInput : kAllWithin;
    for (std::size_t i = 0; i < kVerdicts; ++i) {
        const auto verdict = static_cast<Verdict>(i);
        exit = tally.Count(verdict) > 0 ? GraverExit(exit, ExitCode(verdict)) : exit;
    }
    return exit;
}

unsigned Threads(int jobs)
{
    constexpr unsigned kMost = 256;
    const unsigned wanted =
        jobs > 0 ? static_cast<unsigned>(jobs) : std::thread::hardware_concurrency();
    return std::clamp(wanted, 1U, kMost);
}

// Of the two kinds of load the base has those that its file holds; a member that begins from
// nothing has neither.
ProjectState BaseOf(const Library& library, const std::string& file)
{
    if (!file.empty()) {
        ProjectState s = OpenProject(library, file);
        ClearLoads(s, s.loadmode == 1 ? LoadKind::endforce : LoadKind::load);
        return s;
    }
    ProjectState s = StartState(library);
    ClearLoads(s, LoadKind::load);
    ClearLoads(s, LoadKind::endforce);
    s.ident.clear();
    return s;
}

// Says each word once in the whole run.
class Words {
public:
    bool Take(const BatchChunk::Word& word) { return said_.insert(word.key).second; }

private:
    std::unordered_set<std::string> said_;
};

// Answers must not be written over what they are made of, nor their neighbours.
void SpareInputs(const BatchInput& input, const BatchArguments& arguments)
{
    std::vector<std::string> written{arguments.out.empty() ? "-" : arguments.out};
    if (IsFile(arguments.out)) {
        const std::string part = Utf8Name(TargetOf(arguments.out)) + ".part";
        written.insert(written.end(), {part, part + ".inputs"});
    }
    for (const std::string& out : written) {
        input.Spare(out);
        if (!arguments.base.empty()) {
            SpareInput(out, arguments.base);
        }
    }
}

// Nothing for answers that nobody can take up.
BatchOrigin OriginOf(const Options& options, const BatchArguments& arguments)
{
    std::vector<BatchSource> sources;
    std::string how = KESTRUM_VERSION;
    if (IsFile(arguments.out)) {
        for (const std::string& input : arguments.inputs) {
            sources.push_back({input, input});
        }
        for (const auto& [name, file] :
             {std::pair("--base ", &arguments.base), std::pair("--setup ", &options.setup)}) {
            if (!file->empty()) {
                sources.push_back({name + *file, *file});
            }
        }
        how += arguments.raw ? " --raw" : "";
        how += arguments.tensionpositive ? " --sign tension+" : "";
        how += arguments.keep_columns ? " --keep-columns" : "";
        how += " --fields ";
        for (const std::string& field : arguments.fields) {
            how += field + ",";
        }
        how += " --data " + options.data;
    }
    return {sources, how};
}

}  // namespace

int Batch(const Options& options, const BatchArguments& arguments)
{
    RequireAnswerName(options, arguments.out);
    const Library library = LoadTables(options);
    AnswerForm form;
    const CsvTexts texts =
        arguments.csv_safe.value_or(IsFile(arguments.out)) ? CsvTexts::safe : CsvTexts::plain;
    const std::string refusal =
        form.Choose(FormOf(options, arguments.out), arguments.fields, &library, texts);
    form.SetTensionPositive(arguments.tensionpositive);
    if (!refusal.empty()) {
        throw BadInput("--fields " + refusal);
    }
    if (arguments.resume && (arguments.out.empty() || arguments.out == "-")) {
        throw BadInput("--resume needs -o with the file of the earlier run");
    }
    const ProjectState base = BaseOf(library, arguments.base);

    const Interrupt interrupt;
    BatchInput input(arguments.inputs, form, arguments.keep_columns, interrupt);
    SpareInputs(input, arguments);
    if (arguments.keep_columns) {
        form.KeepOthers(input.OtherColumns());
    }
    BatchOutput output(arguments.out, arguments.resume);
    const BatchOrigin origin = OriginOf(options, arguments);
    Tally tally;
    const std::size_t earlier = arguments.resume ? output.TakeUp(form, tally, origin) : 0;
    input.Skip(earlier);
    output.Begin(form, origin);

    const Manner manner(arguments.raw ? Assignment::raw : Assignment::checked,
                        arguments.tensionpositive);
    std::vector<OrderedRun<BatchChunk>::Work> work;
    for (unsigned i = 0; i < Threads(arguments.jobs); ++i) {
        work.emplace_back([worker = std::make_shared<BatchWorker>(library, base, form, manner)](
                              BatchChunk& chunk) { worker->Work(chunk); });
    }
    {
        Progress progress;
        Words words;
        OrderedRun<BatchChunk> run(std::move(work));
        run.Run([&](BatchChunk& chunk) { return input.Next(chunk); },
                [&](BatchChunk& chunk) {
                    std::erase_if(chunk.words, [&](const auto& w) { return !words.Take(w); });
                    if (!chunk.fault.empty() || !chunk.words.empty()) {
                        progress.Wipe();
                        ComplainAll(chunk.fault);
                    }
                    for (const BatchChunk::Word& word : chunk.words) {
                        Hint(options, word.text + " (said once)");
                    }
                    output.Write(chunk.out);
                    tally.Add(chunk.tally);
                    progress.Show(tally.Members() - earlier, input.taken(), input.whole());
                });
    }
    if (interrupt.raised()) {
        ComplainAll(output.Suspend(tally.Members()));
        interrupt.End();
    }
    output.Finish();
    if (!options.quiet) {
        std::cerr << PrintableLines(tally.Summary());
    }
    if (arguments.exit_zero) {
        return input.faulty() ? kBadInput : kAllWithin;
    }
    return ExitOf(tally, input.faulty());
}

}  // namespace kestrum::cli
