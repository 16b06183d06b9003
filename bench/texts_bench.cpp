// What is made of a pass: texts, tables, pictures.

#include "core/number_format.h"
#include "core/project_state.h"
#include "members.h"
#include "report/detailed_table.h"
#include "report/diagrams.h"
#include "report/pages.h"
#include "report/panel_text.h"
#include "report/state_json.h"
#include "report/svg_writer.h"
#include "service/vortex.h"

#include <benchmark/benchmark.h>

namespace {

using namespace kestrum;

ProjectState Calculated()
{
    ProjectState s = AllRows();
    Calculate(Delivered(), s);
    return s;
}

void StateAsJson(benchmark::State& run)
{
    const ProjectState s = Calculated();
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(StateJson(s));
    }
}
BENCHMARK(StateAsJson);

void PanelAsText(benchmark::State& run)
{
    const ProjectState s = Calculated();
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(PanelText(s));
    }
}
BENCHMARK(PanelAsText);

void DetailedTable(benchmark::State& run)
{
    const ProjectState s = Calculated();
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(DetailedCsv(FillDetailedResult(s)));
    }
}
BENCHMARK(DetailedTable);

void DiagramsAsSvg(benchmark::State& run)
{
    const ProjectState s = Calculated();
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(WriteSvg(DrawSheet(s, LoadAxis::z)));
    }
}
BENCHMARK(DiagramsAsSvg);

// The pages of the reports, drawn but not yet written.
void ReportDrawn(benchmark::State& run,
                 PrintedReport (*print)(const Library& library, const ProjectState& s,
                                        const PrintStamp& stamp,
                                        const standard::StandardResult* known))
{
    ProjectState s = AllRows();
    s.family = 6;  // with vortex shedding
    Calculate(Delivered(), s);
    CalcVortexFrequency(s, s, s);
    CalcVortex(s, s, s);
    const PrintStamp stamp{"2024-05-17", "14:05"};
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(print(Delivered(), s, stamp, nullptr));
    }
}
BENCHMARK_CAPTURE(ReportDrawn, properties, PrintProperties);
BENCHMARK_CAPTURE(ReportDrawn, control, PrintControl);
BENCHMARK_CAPTURE(ReportDrawn, vortex, PrintVortex);

void ReportAsSvg(benchmark::State& run)
{
    const ProjectState s = Calculated();
    const PrintedReport report = PrintControl(Delivered(), s, {"2024-05-17", "14:05"});
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(WriteSvg(report.pages.front()));
    }
}
BENCHMARK(ReportAsSvg);

void NumberFormatted(benchmark::State& run)
{
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(FormatNum(1234.565, "#0.00"));
    }
}
BENCHMARK(NumberFormatted);

}  // namespace
