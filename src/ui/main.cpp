// The desktop program `kestrum-ec3`.

#include "app/aside.h"
#include "app/platform.h"
#include "core/version.h"
#include "sections/load_library.h"
#include "ui/main_window.h"
#include "ui/qt_surroundings.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QApplication>
#include <QDir>
#include <QFileOpenEvent>
#include <QIcon>
#include <QLocale>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

// macOS sends the file that the user has opened as an event.
class Application final : public QApplication {
public:
    using QApplication::QApplication;

    std::function<void(const QString&)> open_file;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::FileOpen && open_file) {
            open_file(static_cast<QFileOpenEvent*>(event)->file());
            return true;
        }
        return QApplication::event(event);
    }
};

constexpr int kBadInput = 2;

constexpr const char* kHelp =
    "Usage: kestrum-ec3 [FILE]\n"
    "Opens the window of Kestrum EC3, with the project FILE (.kst) in it.\n\n"
    "  -h, --help     prints this and ends\n"
    "  -V, --version  prints the version and ends\n\n"
    "`kestrum` does the same calculation without a window.\n";

// Help and version need no display. Empty when neither is asked for.
std::string Asked(const std::vector<std::string>& arguments)
{
    const std::string first = arguments.size() == 2 ? arguments[1] : "";
    if (first == "--version" || first == "-V") {
        return "kestrum-ec3 " + std::string(kestrum::kVersion) + "\n";
    }
    return first == "--help" || first == "-h" ? kHelp : "";
}

// Qt would abort, which looks like a crash, when there is no display to open.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtFatalMsg) {
        return;
    }
    const std::string reason = text.simplified().toStdString();
    std::fprintf(stderr,
                 "kestrum-ec3: no display to open a window on; `kestrum` works without one\n"
                 "(%s)\n",
                 reason.c_str());
    std::_Exit(kBadInput);
}

}  // namespace

int main(int argc, char** argv)
{
    using namespace kestrum;
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);  // a file that must not grow is a failed save, told as such
#endif
    if (const std::string answer = Asked(Arguments(argc, argv)); !answer.empty()) {
        return std::fputs(answer.c_str(), stdout) < 0 || std::fflush(stdout) != 0 ? kBadInput : 0;
    }
    const std::string commandline = RawCommandLine(argc, argv);
    const QtMessageHandler usual = qInstallMessageHandler(EndWithoutDisplay);
    Application application(argc, argv);
    qInstallMessageHandler(usual);
    QCoreApplication::setApplicationName(QStringLiteral("Kestrum EC3"));
    QCoreApplication::setApplicationVersion(ToQt(kVersion));
    // The desktop entry and the icon that the package installs under this name.
    QGuiApplication::setDesktopFileName(QStringLiteral("kestrum-ec3"));
    QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("kestrum-ec3")));
    QtSettings settings;
    UseTheme(application, StartsDark(settings.settings()));

    const Library library = LoadUsualLibrary();
    QtSurroundings surroundings;
    Session session(library, surroundings, DecimalComma(QLocale()));
    session.curdir = FromQt(QDir::currentPath());
    const std::string state = StateFolder();
    std::optional<Aside> aside;
    if (!state.empty()) {
        session.aside = &aside.emplace(state + "/unsaved");
    }
    Desk desk{session, settings, ManualFolder(FromQt(QCoreApplication::applicationDirPath()))};
    MainWindow window(desk);
    surroundings.SetWindow(&window);
    application.open_file = [&window](const QString& path) { window.OpenProject(path); };
    window.Start(commandline);
    window.show();
    if (aside) {
        window.OfferWork(FindLeftWork(aside->folder()));
    }
    if (const std::string faults = session.DataFaults(); !faults.empty()) {
        surroundings.Warn(faults);
    }
    return QApplication::exec();
}
