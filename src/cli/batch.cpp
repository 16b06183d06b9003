// Many members at once: streams in, streams out, all cores.

#include "app/ordered_run.h"
#include "cli/batch_input.h"
#include "cli/commands.h"
#include "engine/new_project.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <system_error>
#include <thread>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace kestrum::cli {

namespace {

namespace fs = std::filesystem;
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
        line.resize(std::max(line.size(), kWidth), ' ');
        std::cerr << line << std::flush;
        shown_ = true;
    }

    ~Progress()
    {
        if (shown_) {
            std::cerr << "\r" << std::string(kWidth, ' ') << "\r" << std::flush;
        }
    }

private:
    static constexpr std::size_t kBars = 30, kWidth = 100;
#ifdef _WIN32
    bool terminal_ = false;
#else
    bool terminal_ = isatty(STDERR_FILENO) != 0;
#endif
    bool shown_ = false;
    Clock::time_point start_ = Clock::now(), next_ = start_ + std::chrono::milliseconds(500);
};

// Where the answers go.
class Output {
public:
    explicit Output(const std::string& name, bool append)
        : name_(name.empty() || name == "-" ? "standard output" : name), file_(stdout)
    {
        if (name.empty() || name == "-") {
            return;
        }
        file_ = std::fopen(name.c_str(), append ? "ab" : "wb");
        if (file_ == nullptr) {
            throw BadInput(name + ": " + std::generic_category().message(errno));
        }
    }
    ~Output()
    {
        if (file_ != stdout && file_ != nullptr) {
            std::fclose(file_);
        }
    }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    // What is written is handed over at once: a run that is stopped can be taken up again.
    void Write(const std::string& text)
    {
        errno = 0;
        if (std::fwrite(text.data(), 1, text.size(), file_) != text.size() ||
            std::fflush(file_) != 0) {
            throw BadInput(name_ + ": " + std::generic_category().message(errno));
        }
    }

private:
    std::string name_;
    std::FILE* file_;
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

// Counts what an earlier run has answered and cuts off a line that it left unfinished.
std::size_t TakeUp(const std::string& out, const AnswerForm& form, Tally& tally)
{
    std::error_code fault;
    if (!fs::exists(out, fault)) {
        return 0;
    }
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(out.c_str(), "rb"),
                                                               std::fclose);
    if (!file) {
        throw BadInput(out + ": " + std::generic_category().message(errno));
    }
    const std::string header = form.Header();
    std::string rest;
    std::vector<char> block(std::size_t{1} << 16);
    std::uintmax_t whole = 0;  // bytes of complete lines
    std::size_t members = 0;
    bool headed = header.empty();
    while (const std::size_t got = std::fread(block.data(), 1, block.size(), file.get())) {
        rest.append(block.data(), got);
        std::string_view lines = std::string_view(rest).substr(0, rest.rfind('\n') + 1);
        const std::size_t taken = lines.size();
        while (!lines.empty()) {
            const std::string_view line = TakeLine(lines);
            std::string member;
            Verdict verdict{};
            double ir = 0;
            if (!headed) {
                headed = std::string(line) + "\n" == header;
            } else if (form.ReadBack(line, member, verdict, ir)) {
                tally.Add(members++, member, verdict, ir);
                continue;
            } else {
                headed = false;
            }
            if (!headed) {
                throw BadInput(out + ": no answers of such a run; cannot be taken up");
            }
        }
        whole += taken;
        rest.erase(0, taken);
    }
    fs::resize_file(out, whole, fault);
    if (fault) {
        throw BadInput(out + ": " + fault.message());
    }
    return members;
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
    if (faulty || tally.Count(Verdict::bad) > 0) {
        return kBadInput;
    }
    if (tally.Count(Verdict::failed) > 0) {
        return kFailedPass;
    }
    return tally.Count(Verdict::above) > 0 ? kSomeAbove : kAllWithin;
}

unsigned Threads(int jobs)
{
    constexpr unsigned kMost = 256;
    const unsigned wanted =
        jobs > 0 ? static_cast<unsigned>(jobs) : std::thread::hardware_concurrency();
    return std::clamp(wanted, 1U, kMost);
}

ProjectState BaseOf(const Library& library, const std::string& file)
{
    if (!file.empty()) {
        return OpenProject(library, file);
    }
    ProjectState s{};
    StartUp(library, s);
    return s;
}

}  // namespace

int Batch(const Options& options, const BatchArguments& arguments)
{
    AnswerForm form;
    const std::string refusal = form.Choose(FormOf(options, arguments.out), arguments.fields);
    if (!refusal.empty()) {
        throw BadInput("--fields " + refusal);
    }
    if (arguments.resume && (arguments.out.empty() || arguments.out == "-")) {
        throw BadInput("--resume needs -o with the file of the earlier run");
    }
    const Library library = LoadTables(options);
    const ProjectState base = BaseOf(library, arguments.base);

    Tally tally;
    const std::size_t earlier = arguments.resume ? TakeUp(arguments.out, form, tally) : 0;
    BatchInput input(arguments.inputs, earlier);
    Output output(arguments.out, arguments.resume);
    std::error_code ignored;
    const bool begun = arguments.resume && fs::file_size(arguments.out, ignored) > 0;
    output.Write(begun ? std::string{} : form.Header());

    const Assignment how = arguments.raw ? Assignment::raw : Assignment::checked;
    std::vector<OrderedRun<BatchChunk>::Work> work;
    for (unsigned i = 0; i < Threads(arguments.jobs); ++i) {
        work.emplace_back([worker = std::make_shared<BatchWorker>(library, base, form, how)](
                              BatchChunk& chunk) { worker->Work(chunk); });
    }
    {
        Progress progress;
        OrderedRun<BatchChunk> run(std::move(work));
        run.Run([&](BatchChunk& chunk) { return input.Next(chunk); },
                [&](BatchChunk& chunk) {
                    ComplainAll(chunk.fault);
                    output.Write(chunk.out);
                    tally.Add(chunk.tally);
                    progress.Show(tally.Members() - earlier, input.taken(), input.whole());
                });
    }
    if (!arguments.quiet) {
        std::cerr << tally.Summary();
    }
    return ExitOf(tally, input.faulty());
}

}  // namespace kestrum::cli
