// One pass of each kind of member.

#include "members.h"

#include <benchmark/benchmark.h>

namespace {

using namespace kestrum;

const bool kRegistered = [] {
    for (const NamedMember& member : Members()) {
        benchmark::RegisterBenchmark(("Calculate/" + member.name).c_str(),
                                     [state = member.state](benchmark::State& run) {
                                         ProjectState s = state;
                                         for ([[maybe_unused]] auto _ : run) {
                                             benchmark::DoNotOptimize(Calculate(Delivered(), s));
                                         }
                                     });
    }
    return true;
}();

void NewRecord(benchmark::State& run)
{
    for ([[maybe_unused]] auto _ : run) {
        ProjectState s = Default();
        benchmark::DoNotOptimize(s);
    }
}
BENCHMARK(NewRecord);

void CopyOfRecord(benchmark::State& run)
{
    const ProjectState from = Default();
    ProjectState to;
    for ([[maybe_unused]] auto _ : run) {
        to = from;
        benchmark::DoNotOptimize(to);
    }
}
BENCHMARK(CopyOfRecord);

}  // namespace
