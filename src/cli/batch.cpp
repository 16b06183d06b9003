// Many members at once: streams in, streams out, all cores.

#include "app/ordered_run.h"
#include "cli/batch_input.h"
#include "cli/batch_output.h"
#include "cli/commands.h"
#include "cli/many.h"
#include "cli/progress.h"
#include "core/file_target.h"
#include "core/utf8_path.h"
#include "core/utf8_text.h"

#include <iostream>
#include <memory>
#include <unordered_set>

namespace kestrum::cli {

namespace {

constexpr std::string_view kNotMeasured =
    "; deviations on the unsafe side not looked for (--fields notes)";

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
BatchOrigin OriginOf(const Options& options, const BatchArguments& arguments, const CsvForm& csv)
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
        if (!arguments.shard.empty()) {
            sources.push_back({kShardSource + arguments.shard, ""});
        }
        how += arguments.raw ? " --raw" : "";
        how += arguments.tensionpositive ? " --sign tension+" : "";
        how += arguments.keep_columns ? " --keep-columns" : "";
        how += " --fields ";
        for (const std::string& field : arguments.fields) {
            how += field + ",";
        }
        how += " --data " + options.data + CsvOptions(csv);
    }
    return {sources, how};
}

}  // namespace

int Batch(const Options& options, const BatchArguments& arguments)
{
    RequireAnswerName(options, arguments.out);
    const Library library = LoadTables(options);
    AnswerForm form;
    const CsvForm csv = CsvFormFor(options, arguments.out, arguments.csv_safe);
    const std::string refusal =
        form.Choose(FormOf(options, arguments.out), arguments.fields, &library, csv);
    form.SetTensionPositive(arguments.tensionpositive);
    if (!refusal.empty()) {
        throw BadInput("--fields " + refusal);
    }
    if (arguments.resume && (arguments.out.empty() || arguments.out == "-")) {
        throw BadInput("--resume needs -o with the file of the earlier run");
    }
    const Shard shard = ShardOf(arguments.shard, arguments.out);
    const HeldState base = BaseOf(library, arguments.base);

    const Interrupt interrupt;
    BatchInput input(arguments.inputs, form, arguments.keep_columns, interrupt);
    SpareInputs(input, arguments);
    if (arguments.keep_columns) {
        form.KeepOthers(input.OtherColumns());
    }
    BatchOutput output(arguments.out, arguments.resume);
    const BatchOrigin origin = OriginOf(options, arguments, csv);
    Tally tally;
    const std::size_t earlier = arguments.resume ? output.TakeUp(form, tally, origin) : 0;
    input.Skip(shard.Behind(earlier));
    output.Begin(form, origin);

    const Manner manner(arguments.raw ? Assignment::raw : Assignment::checked,
                        arguments.tensionpositive);
    std::vector<OrderedRun<BatchChunk>::Work> work;
    for (unsigned i = 0; i < Threads(arguments.jobs); ++i) {
        work.emplace_back(
            [worker = std::make_shared<BatchWorker>(library, base, form, manner, shard)](
                BatchChunk& chunk) { worker->Work(chunk); });
    }
    {
        Progress progress("members");
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
    ShardOrder order;
    for (std::size_t i = 0; i < tally.Members(); ++i) {
        order.Add(shard.index + i * shard.count);
    }
    output.Finish(arguments.shard.empty() ? nullptr : &order);
    if (!options.quiet) {
        const bool unmeasured = !form.asks_costs() && tally.Count(Verdict::within) > 0;
        std::cerr << PrintableLines(tally.Summary(unmeasured ? kNotMeasured : ""));
    }
    if (arguments.exit_zero) {
        return input.faulty() ? kBadInput : kAllWithin;
    }
    return ExitOf(tally, input.faulty());
}

}  // namespace kestrum::cli
