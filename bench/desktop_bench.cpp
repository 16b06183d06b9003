// Times of the real windows, drawn offscreen: from the program's start to the first result, and
// from leaving a box to the new panel.

#include "sections/load_library.h"
#include "ui/main_window.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>

#include <optional>
#include <string>
#include <vector>

namespace kestrum {
namespace {

// Nobody is there to answer.
class Silent final : public Surroundings {
public:
    Answer Ask(std::string_view) override { return Answer::cancel; }
    DiskAnswer AskAboutDisk(std::string_view) override { return DiskAnswer::later; }
    void Warn(std::string_view) override {}
    std::optional<std::string> ChooseFileToOpen(const std::string&) override { return {}; }
    std::optional<std::string> ChooseFileToSave(const std::string&, const std::string&) override
    {
        return {};
    }
    bool Print(const std::vector<Drawing>&) override { return false; }
    bool OpenDocument(const std::string&) override { return false; }
    std::string Date() override { return {}; }
    std::string Time() override { return {}; }
};

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
    Silent silent;
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

void LeaveABoxToNewPanel(benchmark::State& state)
{
    const QTemporaryDir folder;
    Program program(folder);
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
BENCHMARK(LeaveABoxToNewPanel)->Unit(benchmark::kMillisecond);

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
