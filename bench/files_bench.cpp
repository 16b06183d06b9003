// Reading and writing.

#include "core/file_notation.h"
#include "core/parse_num.h"
#include "core/project_file.h"
#include "core/project_state.h"
#include "core/setup_file.h"
#include "members.h"

#include <benchmark/benchmark.h>

namespace {

using namespace kestrum;

void ProjectParsed(benchmark::State& run)
{
    ProjectState s = AllRows();
    const std::string bytes = WriteProject(s);
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(ReadProject(s, bytes));
    }
    run.SetBytesProcessed(static_cast<std::int64_t>(bytes.size()) * run.iterations());
}
BENCHMARK(ProjectParsed);

void ProjectWritten(benchmark::State& run)
{
    ProjectState s = AllRows();
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(WriteProject(s));
    }
}
BENCHMARK(ProjectWritten);

void SetupParsed(benchmark::State& run)
{
    ProjectState s = Default();
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(ReadSetup(s, Delivered().setup));
    }
}
BENCHMARK(SetupParsed);

void LibraryLoaded(benchmark::State& run)
{
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(LoadLibrary(KESTRUM_SHARE));
    }
}
BENCHMARK(LibraryLoaded);

void NumberParsed(benchmark::State& run)
{
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(ParseNum("-1234.567", false));
    }
}
BENCHMARK(NumberParsed);

}  // namespace
