// Members a second of one thread, from lines to lines.

#include "app/batch.h"
#include "core/project_state.h"
#include "members.h"

#include <benchmark/benchmark.h>

namespace {

using namespace kestrum;

constexpr int kMembers = 256;

void Run(benchmark::State& run, BatchChunk& chunk, TableForm form)
{
    AnswerForm answers;
    answers.Choose(form, {"control", "clause"});
    const ProjectState base = Default();
    BatchWorker worker(Delivered(), base, answers, Assignment::checked);
    for ([[maybe_unused]] auto _ : run) {
        worker.Work(chunk);
        benchmark::DoNotOptimize(chunk.out);
    }
    run.SetItemsProcessed(kMembers * run.iterations());
}

void BatchOfCsv(benchmark::State& run)
{
    MemberColumns columns;
    columns.TakeHeader("ident,family,row.ipe,l,nload[1],qload[1],ly,lz");
    BatchChunk chunk{.columns = &columns, .row = 1, .line = 2};
    for (int i = 0; i < kMembers; ++i) {
        chunk.lines += "B" + std::to_string(i) + ",4," + std::to_string(i % 18) + "," +
                       std::to_string(3 + i % 5) + ".5,50,12.5,1,0.5\n";
    }
    Run(run, chunk, TableForm::csv);
}
BENCHMARK(BatchOfCsv);

void BatchOfNdjson(benchmark::State& run)
{
    BatchChunk chunk{.form = TableForm::ndjson, .row = 1, .line = 1};
    for (int i = 0; i < kMembers; ++i) {
        chunk.lines += "{\"ident\":\"B" + std::to_string(i) +
                       "\",\"family\":4,\"row.ipe\":" + std::to_string(i % 18) +
                       ",\"l\":" + std::to_string(3 + i % 5) +
                       ".5,\"nload[1]\":50,\"qload[1]\":12.5}\n";
    }
    Run(run, chunk, TableForm::ndjson);
}
BENCHMARK(BatchOfNdjson);

}  // namespace
