// Renders the main window (sizes, palettes, decimal comma), every form and the form of every family
// to PNG files in the given folder. Runs on the offscreen platform when no other is chosen.
//
//   kestrum-screenshots [--font POINTS] FOLDER [NAME]...
//
// All, or the pictures whose names contain NAME; with a larger system font where one is given.

#include "app/load_commands.h"
#include "app/member_commands.h"
#include "app/section_commands.h"
#include "app/view_standard.h"
#include "core/project_state.h"
#include "sections/family_table.h"
#include "sections/load_library.h"
#include "ui/main_window.h"
#include "ui/members_window.h"
#include "ui/office_dialog.h"
#include "ui/qt_surroundings.h"
#include "ui/standard_desk.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QTemporaryDir>

#include <algorithm>
#include <iostream>

namespace {

using namespace kestrum;

// Nobody is there to answer.
class Silent final : public Surroundings {
public:
    Answer Ask(std::string_view) override { return Answer::no; }
    DiskAnswer AskAboutDisk(std::string_view) override { return DiskAnswer::later; }
    void Warn(std::string_view message) override { std::cerr << message << '\n'; }
    std::optional<std::string> ChooseFileToOpen(const std::string&) override { return {}; }
    std::optional<std::string> ChooseFileToSave(const std::string&, const std::string&) override
    {
        return {};
    }
    bool Print(const std::vector<Drawing>&) override { return false; }
    bool OpenDocument(const std::string&) override { return false; }
    std::string Date() override { return "2024-05-17"; }
    std::string Time() override { return "14:05"; }
};

class Photographer {
public:
    Photographer(QString folder, QStringList names)
        : folder_(std::move(folder)), names_(std::move(names))
    {
    }

    bool Wanted(const QString& name) const
    {
        return names_.isEmpty() ||
               std::any_of(names_.begin(), names_.end(),
                           [&](const QString& part) { return name.contains(part); });
    }

    static void Settle()
    {
        for (int i = 0; i < 3; ++i) {
            QApplication::processEvents();  // layouts settle in steps
        }
    }

    void Take(QWidget& window, const QString& name)
    {
        Settle();
        const QString path = QDir(folder_).filePath(name + QStringLiteral(".png"));
        constexpr int kSmallest = 0;  // file
        const QImage picture = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        if (!picture.save(path, "PNG", kSmallest)) {
            std::cerr << FromQt(path) << ": cannot be written\n";
            failed_ = true;
        }
    }

    bool failed() const { return failed_; }

private:
    QString folder_;
    QStringList names_;
    bool failed_ = false;
};

// A member with something to see: loads of all kinds about both axes.
void FillProject(Session& session)
{
    ProjectState& s = session.edit();
    s.projname = "Storehall, axis C";
    s.ident = "Column C4";
    s.l = 6;
    s.nload[1] = 180;
    s.qload[1] = 8;
    s.qload[2] = 1.5F;
    s.qtype[2] = 1;
    s.qdir[2] = 0;
    s.qt1[1] = 4;
    s.qt2[1] = 10;
    s.qtx1[1] = 1;
    s.qtx2[1] = 4.5F;
    s.pm[1] = 12;
    s.pmx[1] = 2;
    s.pmtype[1] = 2;
    s.selfweight = 1;
    s.checksls = kTrue;
    session.Calculate();
}

void TakeMain(Photographer& camera, Desk& desk, const QString& suffix)
{
    desk.store.settings().setValue(QStringLiteral("Forms/Docked"), true);
    MainWindow window(desk);
    window.Start({});
    FillProject(desk.session);
    const QSize sizes[] = {{1024, 741}, {1280, 800}, {1366, 768}, {1920, 1080}};
    for (const QSize size : sizes) {
        const QString name =
            QStringLiteral("main-%1x%2%3").arg(size.width()).arg(size.height()).arg(suffix);
        if (camera.Wanted(name)) {
            window.resize(size);
            window.show();
            camera.Take(window, name);
        }
        for (const std::string_view form : {"Loading", "p01"}) {
            const QString docked = name + QLatin1Char('-') + ToQt(form);
            if (camera.Wanted(docked)) {
                window.resize(size);
                window.show();
                camera.Settle();  // the room is known once the window has it
                window.OpenForm(form);
                camera.Take(window, docked);
                window.CloseForms();
            }
        }
    }
}

// The members of the example of a frame, under its forces.
void TakeMembers(Photographer& camera, MainWindow& window, const QString& name)
{
    if (!camera.Wanted(name)) {
        return;
    }
    MembersWindow& members = window.OpenMembers();
    members.OpenTable(KESTRUM_SOURCE "/examples/frames/members.csv");
    members.choosefile = [](const QString&, bool) {
        return std::optional<std::string>(KESTRUM_SOURCE "/examples/frames/forces.csv");
    };
    members.findChild<QPushButton*>(QStringLiteral("memberforces"))->click();
    while (members.busy()) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    camera.Take(members, name);
    members.close();
}

// Larger than the screen of the platform, where the form wants it.
void ShowWhole(Form& form)
{
    Photographer::Settle();
    const auto* const scroll = form.findChild<QScrollArea*>({}, Qt::FindDirectChildrenOnly);
    const QSize lack = scroll->widget()->sizeHint() - scroll->viewport()->size();
    form.resize(form.size() + lack.expandedTo({0, 0}));
}

// The one that costs most; the costs come from a thread of their own.
void ChooseDeviation(StandardDesk& standard)
{
    while (!standard.costed()) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    const auto rows = DeviationRows(standard.result(), true, nullptr);
    if (!rows.empty()) {
        standard.chosen = rows.front().acts;
    }
}

void TakeForms(Photographer& camera, Desk& desk, const QString& suffix)
{
    desk.store.settings().setValue(QStringLiteral("Forms/Docked"), false);
    MainWindow window(desk);
    window.Start({});
    FillProject(desk.session);
    window.show();
    for (const std::string_view form : MainWindow::FormNames()) {
        const QString name = QStringLiteral("form-") + ToQt(form) + suffix;
        if (!camera.Wanted(name)) {
            continue;
        }
        for (const FamilyTraits& family : Families()) {
            if (family.form == form) {
                ChooseFamily(desk.session, family.id);
            }
        }
        if (form == "frmVortex") {
            ChooseFamily(desk.session, 7);
        }
        if (form == "Modal_ns") {
            TickModal(desk.session, true);
        }
        if (form == "deviation") {
            ChooseDeviation(*desk.standard);
        }
        if (Form* const shown = window.OpenForm(form)) {
            ShowWhole(*shown);
            camera.Take(*shown, name);
            if (form == "endforce") {
                camera.Take(window, QStringLiteral("main-endforce") + suffix);
                OpenLoading(desk.session);
            }
            shown->hide();
        }
        ChooseFamily(desk.session, 1);
    }
    TakeMembers(camera, window, QStringLiteral("form-members") + suffix);
    const QString office = QStringLiteral("form-office") + suffix;
    if (camera.Wanted(office)) {
        OfficeDialog dialog(desk.session, &window);
        dialog.show();
        camera.Take(dialog, office);
    }
    const QString name = QStringLiteral("form-finder") + suffix;
    if (camera.Wanted(name)) {
        window.findChild<QAction*>(QStringLiteral("mnufind"))->trigger();
        auto* const finder = window.findChild<QDialog*>(QStringLiteral("finder"));
        finder->findChild<QLineEdit*>()->setText(QStringLiteral("length 7"));
        camera.Take(*finder, name);
        finder->hide();
    }
}

}  // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() > 2 && arguments.at(1) == QLatin1String("--font")) {
        QFont font = QApplication::font();
        font.setPointSizeF(std::clamp(arguments.at(2).toDouble(), 6.0, 36.0));
        QApplication::setFont(font);
        arguments.remove(1, 2);
    }
    if (arguments.size() < 2 || !QDir().mkpath(arguments.at(1))) {
        std::cerr << "usage: kestrum-screenshots [--font POINTS] FOLDER [NAME]...\n";
        return 2;
    }
    Photographer camera(arguments.at(1), arguments.mid(2));
    const QTemporaryDir settings;
    QtSettings store(settings.filePath(QStringLiteral("settings.ini")));
    const Library library = LoadLibrary(DataFolders());
    Silent surroundings;
    for (const bool dark : {false, true}) {
        UseTheme(application, dark);
        const QString suffix = dark ? QStringLiteral("-dark") : QString();
        for (const bool comma : {false, true}) {
            Session session(library, surroundings, comma);
            Desk desk{session, store};
            TakeMain(camera, desk, suffix + (comma ? QStringLiteral("-comma") : QString()));
        }
        Session session(library, surroundings, false);
        Desk desk{session, store};
        TakeForms(camera, desk, suffix);
    }
    return camera.failed() ? 1 : 0;
}
