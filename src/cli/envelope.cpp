// Members of a frame under the forces of another program: the worst case of each.

#include "app/envelope.h"

#include "app/ordered_run.h"
#include "cli/batch_output.h"
#include "cli/commands.h"
#include "cli/force_reader.h"
#include "cli/frame_input.h"
#include "cli/interrupt.h"
#include "cli/many.h"
#include "cli/progress.h"
#include "core/utf8_text.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <utility>

namespace kestrum::cli {

namespace {

void RequireInputs(const EnvelopeArguments& arguments)
{
    RequireTables(arguments);
    SpareTables(arguments, WrittenFor(arguments.out));
    if (arguments.all && arguments.top > 0) {
        throw BadInput("--all and --top exclude each other");
    }
    if (arguments.resume && (arguments.out.empty() || arguments.out == "-")) {
        throw BadInput("--resume needs -o with the file of the earlier run");
    }
}

BatchOrigin OriginOf(const Options& options, const EnvelopeArguments& arguments, const CsvForm& csv)
{
    std::vector<BatchSource> sources;
    std::string how = std::string(KESTRUM_VERSION) + " envelope";
    if (IsFile(arguments.out)) {
        for (const auto& [name, file] :
             {std::pair("", &arguments.members), std::pair("", &arguments.forces),
              std::pair("--base ", &arguments.base), std::pair("--setup ", &options.setup)}) {
            if (!file->empty()) {
                sources.push_back({name + *file, *file});
            }
        }
        how += " --basis " + arguments.basis + " --key " + arguments.key;
        how += arguments.raw ? " --raw" : "";
        how += arguments.tensionpositive ? " --sign tension+" : "";
        how += arguments.swap_axes ? " --swap-axes" : "";
        how += arguments.all ? " --all" : "";
        how += " --top " + std::to_string(arguments.top);
        for (const std::string& pair : arguments.map) {
            how += " --map " + pair;
        }
        how += " --data " + options.data + CsvOptions(csv);
        if (!arguments.shard.empty()) {
            sources.push_back({kShardSource + arguments.shard, ""});
        }
    }
    return {sources, how};
}

// Puts the parts of a member together and writes its line when it is whole.
class Emitter {
public:
    Emitter(const EnvelopePlan& plan, const EnvelopeForm& form, std::size_t earlier,
            const ForceReader& forces, Shard shard)
        : plan_(plan), form_(form), earlier_(earlier), forces_(forces), shard_(shard),
          seen_(plan.members.size())
    {
    }

    void Take(MemberAnswer answer)
    {
        if (!held_.empty() && held_.front().member != answer.member) {
            Close();
        }
        seen_[answer.member] = true;
        if (plan_.all) {
            return Write(answer, forces_.PlaceOf(answer.member));
        }
        if (held_.empty() || plan_.top > 0) {
            held_.push_back(std::move(answer));
            if (plan_.top > 0 && held_.size() >= 2 * plan_.top + 64) {
                Cut();
            }
            return;
        }
        held_.front().Add(std::move(answer));
    }

    void Close()
    {
        if (plan_.top > 0) {
            Cut();
        }
        for (const MemberAnswer& answer : held_) {
            Write(answer, forces_.PlaceOf(answer.member));
        }
        held_.clear();
    }

    // Those that the forces do not name.
    void Rest(EnvelopeWorker& worker)
    {
        for (std::size_t member = 0; member < seen_.size(); ++member) {
            if (seen_[member] || !shard_.Has(member)) {
                continue;
            }
            MemberAnswer answer;
            answer.member = member;
            answer.refusal = worker.RefusalOf(member);
            answer.refused = answer.refusal.empty() ? Verdict::not_checked : Verdict::bad;
            answer.refusal = answer.refusal.empty() ? "no forces" : answer.refusal;
            Write(answer, seen_.size() + member);  // behind all that have rows
        }
    }

    std::string TakeText() { return std::exchange(text_, {}); }
    const Tally& tally() const { return tally_; }
    std::size_t written() const { return place_; }
    const ShardOrder& order() const { return order_; }
    void Count(const Tally& earlier) { tally_.Add(earlier); }

private:
    // `in_run` is the place of the member in the whole run.
    void Write(const MemberAnswer& answer, std::size_t in_run)
    {
        const std::size_t place = place_++;
        order_.Add(in_run);
        if (place < earlier_) {
            return;
        }
        const std::string& key = plan_.members.Key(answer.member);
        form_.AppendLine(text_, key, answer);
        tally_.Add(place, Printable(key), answer.VerdictIn(form_.bases()),
                   answer.RatioIn(form_.bases()));
    }

    // By the larger ratio of the bases asked, failed cases first.
    static std::pair<bool, double> RankOf(const MemberAnswer& answer)
    {
        return {answer.program.failed || answer.standard.failed,
                std::max(answer.program.ir, answer.standard.ir)};
    }
    void Cut()
    {
        std::stable_sort(
            held_.begin(), held_.end(),
            [](const MemberAnswer& a, const MemberAnswer& b) { return RankOf(a) > RankOf(b); });
        held_.resize(std::min(held_.size(), plan_.top));
    }

    const EnvelopePlan& plan_;
    const EnvelopeForm& form_;
    std::size_t earlier_;  // answers of an earlier run
    const ForceReader& forces_;
    const Shard shard_;
    ShardOrder order_;
    std::vector<bool> seen_;
    std::vector<MemberAnswer> held_;
    std::string text_;
    Tally tally_;
    std::size_t place_ = 0;
};

std::string Amount(std::size_t count, std::string_view what)
{
    return std::to_string(count) + " " + std::string(what);
}

}  // namespace

int Envelope(const Options& options, const EnvelopeArguments& arguments)
{
    RequireAnswerName(options, arguments.out);
    RequireInputs(arguments);
    const ForceManner manner = MannerOf(arguments);
    const Library library = LoadTables(options);
    const CsvForm csv = CsvFormFor(options, arguments.out, arguments.csv_safe);
    const EnvelopeForm form(FormOf(options, arguments.out), BasesOf(arguments.basis), csv);
    const Shard shard = ShardOf(arguments.shard, arguments.out);
    const HeldState base = BaseOf(library, arguments.base);

    const Interrupt interrupt;
    bool faulty = false;
    const MemberList members = ReadMembers(arguments.members, arguments.key, interrupt, faulty);
    constexpr std::size_t kMega = std::size_t{1} << 20;
    ForceReader forces(arguments.forces, manner, members,
                       kMega * static_cast<std::size_t>(arguments.memory), interrupt);
    forces.SetShard(shard);
    Tell(options, forces);

    BatchOutput output(arguments.out, arguments.resume);
    const BatchOrigin origin = OriginOf(options, arguments, csv);
    Tally before;
    const std::size_t earlier = arguments.resume ? output.TakeUp(form, before, origin) : 0;

    EnvelopePlan plan{library, base, members, form.bases()};
    plan.manner = Manner(arguments.raw ? Assignment::raw : Assignment::checked);
    plan.all = arguments.all;
    plan.top = static_cast<std::size_t>(arguments.top);
    Emitter emitter(plan, form, earlier, forces, shard);
    emitter.Count(before);

    Progress scanned("rows looked through");
    const bool ready = forces.Prepare(
        [&](std::uintmax_t taken, std::uintmax_t whole) { scanned.Show(0, taken, whole); });
    scanned.Wipe();
    if (!ready) {
        Complain(output.Suspend(earlier));
        interrupt.End();
    }
    if (!forces.sorted()) {
        Hint(options, forces.name() +
                          ": the rows of a member or case are not together: sorted with " +
                          std::to_string(arguments.memory) + " MB" +
                          (forces.runs() > 0 ? ", " + Amount(forces.runs(), "parts on disk") : ""));
    }
    output.Begin(form, origin);

    std::size_t rows = 0, cases = 0, untold = 0;
    {
        std::vector<OrderedRun<ForcePiece>::Work> work;
        for (unsigned i = 0; i < Threads(arguments.jobs); ++i) {
            work.emplace_back(
                [worker = std::make_shared<EnvelopeWorker>(plan, forces.columns(), forces.name())](
                    ForcePiece& piece) { worker->Work(piece); });
        }
        Progress progress("cases");
        OrderedRun<ForcePiece> run(std::move(work));
        run.Run([&](ForcePiece& piece) { return forces.Next(piece); },
                [&](ForcePiece& piece) {
                    if (!piece.fault.empty()) {
                        constexpr std::size_t kTold = 1000;
                        faulty = true;
                        progress.Wipe();
                        if (untold < kTold) {
                            ComplainAll(piece.fault);
                        }
                        untold += piece.faults;
                    }
                    for (MemberAnswer& answer : piece.answers) {
                        emitter.Take(std::move(answer));
                    }
                    rows += piece.rows;
                    cases += piece.cases;
                    output.Write(emitter.TakeText());
                    progress.Show(cases, forces.taken(), forces.whole());
                });
    }
    if (interrupt.raised()) {
        Complain(output.Suspend(std::max(earlier, emitter.written())));
        interrupt.End();
    }
    emitter.Close();
    EnvelopeWorker last(plan, forces.columns(), forces.name());
    emitter.Rest(last);
    output.Write(emitter.TakeText());
    output.Finish(arguments.shard.empty() ? nullptr : &emitter.order());
    if (!options.quiet) {
        std::cerr << Amount(rows, "rows, ") << Amount(cases, "cases, ")
                  << PrintableLines(emitter.tally().Summary());
    }
    if (arguments.exit_zero) {
        return faulty ? kBadInput : kAllWithin;
    }
    return ExitOf(emitter.tally(), faulty);
}

}  // namespace kestrum::cli
