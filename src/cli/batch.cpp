// Many members at once: streams in, streams out, all cores.

#include "app/ordered_run.h"
#include "cli/batch_input.h"
#include "cli/batch_output.h"
#include "cli/commands.h"
#include "core/printable.h"
#include "engine/new_project.h"

#include <algorithm>
#include <chrono>
#include <cmath>
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

bool EndsIn(const std::string& name, std::string_view ending)
{
    return name.ends_with(ending);
}

TableForm FormOf(const Options& options, const std::string& out)
{
    const bool json =
        options.format == Format::json || EndsIn(out, ".ndjson") || EndsIn(out, ".jsonl");
    return json ? TableForm::ndjson : TableForm::csv;
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

}  // namespace

int Batch(const Options& options, const BatchArguments& arguments)
{
    const Library library = LoadTables(options);
    AnswerForm form;
    const std::string refusal =
        form.Choose(FormOf(options, arguments.out), arguments.fields, &library);
    if (!refusal.empty()) {
        throw BadInput("--fields " + refusal);
    }
    if (arguments.resume && (arguments.out.empty() || arguments.out == "-")) {
        throw BadInput("--resume needs -o with the file of the earlier run");
    }
    const ProjectState base = BaseOf(library, arguments.base);

    Tally tally;
    BatchOutput output(arguments.out);
    const std::size_t earlier = arguments.resume ? output.TakeUp(form, tally) : 0;
    BatchInput input(arguments.inputs, earlier);
    input.Spare(arguments.out);
    SpareInput(arguments.out, arguments.base);
    output.Open(form);

    const Manner manner = arguments.raw ? Assignment::raw : Assignment::checked;
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
