// One pass of each kind of member.

#include "clauses/critical_moment.h"
#include "core/project_state.h"
#include "members.h"
#include "standard/standard.h"

#include <benchmark/benchmark.h>

#include <array>

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

// By the standard, without the costs of the deviations.
const bool kStandardRegistered = [] {
    for (const NamedMember& member : Members()) {
        benchmark::RegisterBenchmark(
            ("Standard/" + member.name).c_str(), [state = member.state](benchmark::State& run) {
                for ([[maybe_unused]] auto _ : run) {
                    benchmark::DoNotOptimize(standard::CalculateStandard(Delivered(), state));
                }
            });
    }
    return true;
}();

// Uniform load on the top flange of an HEA 200, 8 m, two lateral restraints.
void CriticalMoment(benchmark::State& run)
{
    const LateralSection section{2.80e12, 2.27e16, 1.70e10, 0};
    const std::array<double, 2> held = {8000.0 / 3, 16000.0 / 3};
    const std::array<MomentPiece, 1> pieces = {{{0, 8000, {0, 4e4, -5, 0}, 950, 950}}};
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(CriticalLoadFactor(
            section, {LateralEnd::fork, LateralEnd::fork, held}, {8000, pieces, {}}));
    }
}
BENCHMARK(CriticalMoment);

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
