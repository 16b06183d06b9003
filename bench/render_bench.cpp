// Times of a page of a report as PDF and PNG, drawn by the renderer without a display. The bytes go
// nowhere, so that no disk is in the time.

#include "core/project_state.h"
#include "members.h"
#include "render/export.h"
#include "report/pages.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>

namespace {

using namespace kestrum;

constexpr double kPixelsPerMm = 150 / 25.4;

const std::vector<Drawing>& ControlPage()
{
    static const std::vector<Drawing> kPages = [] {
        ProjectState s = AllRows();
        Calculate(Delivered(), s);
        return PrintControl(Delivered(), s, {"2024-05-17", "14:05"}).pages;
    }();
    return kPages;
}

void PageAsPdf(benchmark::State& run)
{
    const std::vector<Drawing>& pages = ControlPage();
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(WritePdf(pages, 1, "/dev/null"));
    }
}
BENCHMARK(PageAsPdf)->Unit(benchmark::kMillisecond);

void PageAsPng(benchmark::State& run)
{
    const std::vector<Drawing>& pages = ControlPage();
    for ([[maybe_unused]] auto _ : run) {
        benchmark::DoNotOptimize(WritePng(pages.front(), kPixelsPerMm, "/dev/null"));
    }
}
BENCHMARK(PageAsPng)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
