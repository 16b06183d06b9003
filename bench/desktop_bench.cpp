// Times of the real windows, drawn offscreen: from the program's start to the first result, and
// from leaving a box to the new panel; and of what the windows do with every change.

#include "app/section_list.h"
#include "app/state_text.h"
#include "core/project_state.h"
#include "sections/families.h"
#include "sections/load_library.h"
#include "support/silent_surroundings.h"
#include "ui/main_window.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kestrum {
namespace {

// Everything from the tables on disk to the painted window.
struct Program {
    explicit Program(const QTemporaryDir& folder)
        : library(LoadLibrary(std::string(KESTRUM_SHARE))),
          store(folder.filePath(QStringLiteral("settings.ini"))),
          session(library, silent, false), desk{session, store}, window(desk)
    {
        window.Start({});
        window.resize(1280, 800);
        window.show();
        Paint();
    }
    void Paint()
    {
        QApplication::processEvents();
        window.grab();
    }

    Library library;
    SilentSurroundings silent;
    QtSettings store;
    Session session;
    Desk desk;
    MainWindow window;
};

void StartToFirstResult(benchmark::State& state)
{
    const QTemporaryDir folder;
    for (auto _ : state) {
        const Program program(folder);
    }
}
BENCHMARK(StartToFirstResult)->Unit(benchmark::kMillisecond);

// With the list of sections in sight, or without.
void LeaveABoxToNewPanel(benchmark::State& state)
{
    const QTemporaryDir folder;
    Program program(folder);
    if (state.range(0) != 0) {
        program.session.edit().family = 101;  // the longest list
        program.session.Calculate();
        program.window.OpenForm("p101");
    }
    auto* const length = program.window.findChild<QLineEdit*>(QStringLiteral("il"));
    bool longer = false;
    for (auto _ : state) {
        longer = !longer;
        length->setFocus();
        length->setText(longer ? QStringLiteral("6.5") : QStringLiteral("5"));
        length->clearFocus();
        program.Paint();
    }
}
BENCHMARK(LeaveABoxToNewPanel)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// Rows of all families of rolled and hollow sections, each calculated with its verdict.
void SectionsRated(benchmark::State& state)
{
    const Library library = LoadLibrary(std::string(KESTRUM_SHARE));
    SilentSurroundings silent;
    Session session(library, silent, false);
    session.Calculate();
    std::int64_t rows = 0;
    for (auto _ : state) {
        ProjectState s = session.state();
        for (const int family : FamilyNumbers()) {
            s.family = static_cast<i16>(family);
            rows += static_cast<std::int64_t>(RateSections(library, s).size());
        }
    }
    state.SetItemsProcessed(rows);
}
BENCHMARK(SectionsRated)->Unit(benchmark::kMillisecond);

void WorkAsText(benchmark::State& state)
{
    const Library library = LoadLibrary(std::string(KESTRUM_SHARE));
    SilentSurroundings silent;
    Session session(library, silent, false);
    session.Calculate();
    for (auto _ : state) {
        benchmark::DoNotOptimize(StateText(session.state()));
    }
}
BENCHMARK(WorkAsText)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace kestrum

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
