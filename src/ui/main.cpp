// The desktop program `kestrum-ec3`.

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
#include <functional>

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

}  // namespace

int main(int argc, char** argv)
{
    using namespace kestrum;
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);  // a file that must not grow is a failed save, told as such
#endif
    const std::string commandline = RawCommandLine(argc, argv);
    Application application(argc, argv);
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
    Desk desk{session, settings, ManualFolder(FromQt(QCoreApplication::applicationDirPath()))};
    MainWindow window(desk);
    surroundings.SetWindow(&window);
    application.open_file = [&window](const QString& path) { window.OpenProject(path); };
    window.Start(commandline);
    window.show();
    if (const std::string faults = session.DataFaults(); !faults.empty()) {
        surroundings.Warn(faults);
    }
    return QApplication::exec();
}
