#include "app/file_commands.h"
#include "app/load_commands.h"
#include "app/member_commands.h"
#include "app/section_commands.h"
#include "app/view_report.h"
#include "app/view_status.h"
#include "core/project_inputs.h"
#include "render/export.h"
#include "sections/family_table.h"
#include "ui/calculation_preview.h"
#include "ui/form_dock.h"
#include "ui/main_window.h"
#include "ui/office_dialog.h"
#include "ui/standard_desk.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>

#include <array>
#include <utility>
#include <vector>

namespace kestrum {

namespace {

struct InputEntry {
    const char* name;
    const char* text;
    std::string_view form;
    QKeyCombination key;
};

// The forms of the member, in the order of the main window.
constexpr std::array<InputEntry, 9> kMemberForms{{
    {"mnubucklingy", QT_TR_NOOP("Buckling length &Y-axis"), "bucklingy",
     QKeyCombination(Qt::Key_F5)},
    {"mnubucklingz", QT_TR_NOOP("Buckling length &Z-axis"), "bucklingz",
     QKeyCombination(Qt::Key_F6)},
    {"mnuvipping", QT_TR_NOOP("Lateral &torsional buckling"), "vipping",
     QKeyCombination(Qt::Key_F7)},
    {"mnuendstiff", QT_TR_NOOP("End s&upports"), "endstiff", QKeyCombination(Qt::Key_F8)},
    {"mnuchpoints", QT_TR_NOOP("&Check points"), "chpoints", QKeyCombination(Qt::Key_F9)},
    {"mnuvortex", QT_TR_NOOP("&Vortex shedding"), "frmVortex", QKeyCombination(Qt::Key_F11)},
    {"mnumodal", QT_TR_NOOP("&Mode shapes"), "Modal_ns", Qt::CTRL | Qt::Key_M},
    {"mnuresult", QT_TR_NOOP("More &results"), "detailedresult", QKeyCombination(Qt::Key_F12)},
    {"mnupicture", QT_TR_NOOP("E&nlarged section"), "sectionpicture", Qt::CTRL | Qt::Key_E},
}};

// Underlined letters of the reports, free in every menu that offers them.
constexpr std::string_view kPrintLetters = "pcV", kPdfLetters = "eth";

QString ReportEntry(int report, std::string_view letters)
{
    QString text = ToQt(ReportName(report));
    const QChar letter = QLatin1Char(letters[static_cast<std::size_t>(report)]);
    return text.insert(text.indexOf(letter), QLatin1Char('&'));
}

// The entry with what it does.
QString StepText(const QString& entry, QString name)
{
    constexpr int kMost = 60;  // letters
    if (name.size() > kMost) {
        name = name.left(kMost) + QStringLiteral("…");
    }
    name.replace(QLatin1Char('&'), QLatin1String("&&"));
    return name.isEmpty() ? entry : entry + QLatin1Char(' ') + name;
}

// The place of the guide that explains the form of a control; its first page for the main window.
QString GuideTopic(const QWidget* control)
{
    for (const QWidget* at = control; at != nullptr; at = at->parentWidget()) {
        const QString name = at->objectName();
        if (!name.isEmpty() && (qobject_cast<const QDialog*>(at) != nullptr || name == "members")) {
            const bool section =
                name.size() > 1 && name[0] == QLatin1Char('p') && name[1].isDigit();
            const bool result = name == "equations";
            return QStringLiteral("guide/%1.html#form-%2")
                .arg(QLatin1String(section  ? "sections"
                                   : result ? "results"
                                            : "forms"),
                     name);
        }
    }
    return QStringLiteral("guide/index.html");
}

QString Plain(QString text)
{
    return text.remove(QLatin1Char('&')).trimmed();
}

// "Input: Loading  (F3)"; empty for an action of no menu.
QString MenuPath(const QAction& action)
{
    for (const QObject* const object : action.associatedObjects()) {
        if (const auto* const menu = qobject_cast<const QMenu*>(object);
            menu != nullptr && !action.text().isEmpty()) {
            const QString key = action.shortcut().toString(QKeySequence::NativeText);
            return Plain(menu->title()) + QStringLiteral(": ") + Plain(action.text()) +
                   (key.isEmpty() ? QString() : QStringLiteral("  (") + key + QLatin1Char(')'));
        }
    }
    return {};
}

}  // namespace

QAction* MainWindow::AddAction(QMenu* menu, const QString& name, const QString& text,
                               const QKeySequence& key, std::function<void()> run)
{
    QAction* const action = menu->addAction(text);
    action->setObjectName(name);
    action->setShortcut(key);
    action->setShortcutContext(Qt::ApplicationShortcut);  // also while a form is in front
    connect(action, &QAction::triggered, this, [run] {
        BoxEdit* const box = BoxWithFocus();  // a menu does not take the focus
        if (box == nullptr || box->Finish()) {
            run();
        }
    });
    return action;
}

void MainWindow::BuildMenus()
{
    const auto add = [this](const char* name, const QString& title) {
        QMenu* const menu = menuBar()->addMenu(title);
        menu->setObjectName(QLatin1String(name));
        return menu;
    };
    BuildFileMenu(add("mnufile", tr("&File")));
    BuildEditMenu(add("mnuedit", tr("&Edit")));
    QMenu* const input = add("mnuinput", tr("&Input"));
    AddAction(input, QStringLiteral("mnusetup"), tr("&Setup"), Qt::Key_F2,
              [this] { OpenForm("setup"); });
    AddAction(input, QStringLiteral("mnuload1"), tr("&Loading"), Qt::Key_F3,
              [this] { OpenForm("Loading"); });
    AddAction(input, QStringLiteral("mnuendforces"), tr("&Endforces"), Qt::Key_F4, [this] {
        OpenEndForcesFromMenu(desk_.session);
        OpenForm("endforce");
    });
    input->addSeparator();
    for (const InputEntry& entry : kMemberForms) {
        QAction* const action =
            AddAction(input, QLatin1String(entry.name), tr(entry.text), QKeySequence(entry.key),
                      [this, &entry] { OpenForm(entry.form); });
        if (entry.form == "Modal_ns") {
            bind_.Follow(
                [action](const ProjectState& s) { action->setEnabled(ModalResultShown(s)); });
        }
    }
    BuildProfileMenu(add("mnustiff", tr("&Profiles")));
    BuildPrintMenu(add("mnuprint", tr("P&rint")));
    QMenu* const view = add("mnuview", tr("&View"));
    AddAction(view, QStringLiteral("mnucombinations"), tr("&Combinations by EN 1993-1-1"),
              Qt::CTRL | Qt::Key_L, [this] { OpenForm("combinations"); });
    QAction* const dark =
        AddAction(view, QStringLiteral("mnudark"), tr("&Dark colours"), Qt::CTRL | Qt::Key_D, {});
    dark->setCheckable(true);
    dark->setChecked(IsDark(QApplication::palette()));
    dark->disconnect(this);
    connect(dark, &QAction::toggled, this, &MainWindow::UseDark);
    QAction* const docked =
        AddAction(view, QStringLiteral("mnudocked"), tr("&Forms beside the results"), {}, {});
    docked->setCheckable(true);
    docked->setChecked(dock_->WantsAll());
    docked->disconnect(this);
    connect(docked, &QAction::toggled, this, [this](bool on) { dock_->WantAll(on); });
    BuildHelpMenu(add("mnuhelp", tr("&Help")));
}

void MainWindow::BuildFileMenu(QMenu* menu)
{
    filemenu_ = menu;
    AddAction(menu, QStringLiteral("mnunew"), tr("&New"), QKeySequence::New,
              [this] { NewFile(desk_.session, desk_.store); });
    AddAction(menu, QStringLiteral("mnuopen"), tr("&Open..."), QKeySequence::Open, [this] {
        if (OpenFile(desk_.session, desk_.store)) {
            CloseForms();
        }
    });
    AddAction(menu, QStringLiteral("mnusave"), tr("&Save"), QKeySequence::Save,
              [this] { SaveFile(desk_.session, desk_.store); });
    AddAction(menu, QStringLiteral("mnusaveas"), tr("Save &As..."),
              Qt::CTRL | Qt::SHIFT | Qt::Key_S, [this] { SaveFileAs(desk_.session, desk_.store); });
    menu->addSeparator();
    AddAction(menu, QStringLiteral("mnumembers"), tr("Table of &members"),
              Qt::CTRL | Qt::SHIFT | Qt::Key_M, [this] { OpenMembers(); });
    menu->addSeparator();
    for (int report = 0; report < kReports; ++report) {
        AddAction(menu, QStringLiteral("mnuprint%1%1").arg(report),
                  tr("Print: ") + ReportEntry(report, kPrintLetters), {},
                  [this, report] { PrintReport(desk_.session, static_cast<Report>(report)); });
    }
    recentend_ = menu->addSeparator();
    AddAction(menu, QStringLiteral("mnuexit"), tr("E&xit"), QKeySequence::Quit,
              [this] { close(); });
    for (int i = 1; i <= kRecentFiles; ++i) {
        auto* const entry = new QAction(this);
        entry->setObjectName(QStringLiteral("mnurecentfile%1").arg(i));
        entry->setVisible(false);
        connect(entry, &QAction::triggered, this, [this, entry] {
            if (OpenRecentFile(desk_.session, desk_.store, FromQt(entry->data().toString()))) {
                CloseForms();
            }
        });
        menu->insertAction(recentend_, entry);
        recent_.push_back(entry);
    }
    menu->insertSeparator(recent_.front());
}

void MainWindow::BuildEditMenu(QMenu* menu)
{
    QAction* const undo =
        AddAction(menu, QStringLiteral("mnuundo"), tr("&Undo"), QKeySequence::Undo, [this] {
            if (BoxEdit* const box = BoxWithFocus(); box != nullptr && box->refused()) {
                box->TakeBack();
            } else {
                desk_.session.Undo();
            }
        });
    QAction* const redo = AddAction(menu, QStringLiteral("mnuredo"), tr("&Redo"),
                                    QKeySequence::Redo, [this] { desk_.session.Redo(); });
    redo->setShortcuts(
        QList<QKeySequence>{Qt::CTRL | Qt::SHIFT | Qt::Key_Z, QKeySequence(Qt::CTRL | Qt::Key_Y)});
    menu->addSeparator();
    AddAction(menu, QStringLiteral("mnupin"), tr("&Pin as A"), {}, [this] { desk_.session.Pin(); });
    AddAction(menu, QStringLiteral("mnucompare"), tr("Co&mpare with A"), {},
              [this] { OpenForm("compare"); });
    menu->addSeparator();
    AddAction(menu, QStringLiteral("mnucopyresults"), tr("&Copy results"),
              Qt::CTRL | Qt::SHIFT | Qt::Key_C, [this] {
                  QApplication::clipboard()->setText(
                      ToQt(ResultsAsText(desk_.session, &standard_->result())));
              });
    AddAction(menu, QStringLiteral("mnufind"), tr("&Find..."), Qt::CTRL | Qt::Key_K,
              [this] { OpenFinder(); });
    bind_.Follow([this, undo, redo](const ProjectState&) {
        const History& history = desk_.session.history();
        const auto name = [this](std::string_view what) { return bind_.ForLocale(ToQt(what)); };
        undo->setText(StepText(tr("&Undo"), name(history.UndoText())));
        undo->setEnabled(desk_.session.CanUndo());
        redo->setText(StepText(tr("&Redo"), name(history.RedoText())));
        redo->setEnabled(history.CanRedo());
    });
}

// All commands of the menus, and the chapters of the manuals.
void MainWindow::OpenFinder()
{
    struct Chapter {
        QString text, file;
    };
    const Chapter chapters[] = {
        {tr("Guide: first steps"), QStringLiteral("guide/index.html")},
        {tr("Guide: forms, loading, setup, undo"), QStringLiteral("guide/forms.html")},
        {tr("Guide: sections, families, profiles"), QStringLiteral("guide/sections.html")},
        {tr("Guide: results, diagrams, design notes"), QStringLiteral("guide/results.html")},
        {tr("Guide: files, folders, unsaved work"), QStringLiteral("guide/files.html")},
        {tr("Guide: command line, batch"), QStringLiteral("guide/command-line.html")}};
    std::vector<FinderEntry> entries;
    for (QAction* const action : findChildren<QAction*>()) {
        const QString menu = action->menu() != nullptr ? QString() : MenuPath(*action);
        if (!menu.isEmpty() && action->isEnabled() && action->isVisible()) {
            entries.push_back({menu, [action] { action->trigger(); }});
        }
    }
    for (const Chapter& chapter : chapters) {
        entries.push_back({chapter.text, [this, file = chapter.file] { OpenManual(file); }});
    }
    if (finder_ == nullptr) {
        finder_ = new FinderWindow(desk_.session, this);
        finder_->show = [this](const Box& box, int row) { ShowBox(box, row); };
    }
    finder_->Ask(std::move(entries));
}

void MainWindow::RefreshRecentFiles()
{
    const std::vector<std::string> captions = ReadRecentFiles(desk_.store);
    for (std::size_t i = 0; i < recent_.size(); ++i) {
        const bool used = i < captions.size();
        recent_[i]->setVisible(used);
        if (used) {
            QString text = ToQt(captions[i]);
            recent_[i]->setData(text);
            recent_[i]->setText(QLatin1Char('&') +
                                text.replace(QLatin1Char('&'), QLatin1String("&&")));
        }
    }
}

void MainWindow::BuildProfileMenu(QMenu* menu)
{
    const auto submenu = [&](const char* name, const QString& title) {
        QMenu* const sub = menu->addMenu(title);
        sub->setObjectName(QLatin1String(name));
        return sub;
    };
    std::map<MenuGroup, QMenu*> menus{{MenuGroup::profiles, menu}};
    const auto add = [&](const FamilyTraits& family) {
        AddAction(menus.at(family.group), ToQt(family.menu), ToQt(family.caption), {},
                  [this, id = family.id, form = family.form] {
                      ChooseFamily(desk_.session, id);
                      OpenForm(form);
                  });
    };
    for (const FamilyTraits& family : Families()) {
        if (family.group == MenuGroup::profiles) {
            add(family);
        }
    }
    menu->addSeparator();
    menus[MenuGroup::welded] = submenu("mnuwelded", tr("&Welded"));
    menus[MenuGroup::plates] = submenu("mnuplate", tr("Stiffened &plates"));
    menus[MenuGroup::other] = submenu("mnuOther", tr("&Other"));
    menus[MenuGroup::british] = submenu("mnubrtish", tr("&British profiles"));
    for (const FamilyTraits& family : Families()) {
        if (family.group != MenuGroup::profiles && family.group != MenuGroup::none) {
            add(family);
        }
    }
}

void MainWindow::BuildPrintMenu(QMenu* menu)
{
    constexpr std::array<QKeyCombination, kReports> kKeys{
        Qt::CTRL | Qt::SHIFT | Qt::Key_P, Qt::CTRL | Qt::Key_P, Qt::CTRL | Qt::ALT | Qt::Key_P};
    for (int report = 0; report < kReports; ++report) {
        AddAction(menu, QStringLiteral("mnuprint%1").arg(report),
                  ReportEntry(report, kPrintLetters),
                  QKeySequence(kKeys[static_cast<std::size_t>(report)]),
                  [this, report] { PrintReport(desk_.session, static_cast<Report>(report)); });
    }
    AddAction(menu, QStringLiteral("mnucalculation"), tr("Calculation &report..."), {},
              [this] { PreviewCalculation(this, desk_.session); });
    AddAction(menu, QStringLiteral("mnuoffice"), tr("&Office data..."), {},
              [this] { OfficeDialog(desk_.session, this).exec(); });
    menu->addSeparator();
    for (int report = 0; report < kReports; ++report) {
        AddAction(menu, QStringLiteral("mnupdf%1").arg(report),
                  tr("PDF: ") + ReportEntry(report, kPdfLetters), {},
                  [this, report] { ExportReport(report); });
    }
}

void MainWindow::BuildHelpMenu(QMenu* menu)
{
    AddAction(menu, QStringLiteral("mnuUpdate"), tr("&Update Information"), {},
              [this] { OpenManual(QStringLiteral("Kestrum EC3 Update Information.pdf")); });
    AddAction(menu, QStringLiteral("mnuTheory"), tr("&Theory Manual"), {},
              [this] { OpenManual(QStringLiteral("Kestrum EC3 Theory Manual.pdf")); });
    AddAction(menu, QStringLiteral("mnuGuide"), tr("User &Guide"), QKeySequence::HelpContents,
              [this] { OpenManual(GuideTopic(QApplication::focusWidget())); });
    menu->addSeparator();
    AddAction(menu, QStringLiteral("mnuInfo"), tr("&Information about the program"), {},
              [this] { OpenForm("InfoKESTRUM"); });
    AddAction(menu, QStringLiteral("mnuabout"), tr("&About Kestrum - EC3"), {},
              [this] { OpenForm("about"); });
}

void MainWindow::OpenManual(const QString& file)
{
    const std::string path = desk_.helppath + FromQt(file);
    if (!desk_.session.surroundings().OpenDocument(path)) {
        const std::string document = path.substr(0, path.rfind('#'));
        desk_.session.surroundings().Warn(document + ": " +
                                          FromQt(QFileInfo::exists(ToQt(document))
                                                     ? tr("no program opens this kind of file")
                                                     : tr("the manual is not installed")));
    }
}

// Draws the report into a file that the user names.
void MainWindow::ExportReport(int report)
{
    const std::vector<Drawing> pages = ReportPages(desk_.session, static_cast<Report>(report));
    if (pages.empty()) {
        return;
    }
    const std::string& project = InputsOf(desk_.session.state()).filename;
    const std::string proposal =
        project == kNewFile ? "" : FromQt(QFileInfo(ToQt(project)).completeBaseName()) + ".pdf";
    const std::optional<std::string> path =
        AskForFile(QApplication::activeWindow(), {tr("Export as PDF"), tr("PDF (*.pdf)"), "pdf"},
                   desk_.session.curdir, proposal);
    if (!path) {
        return;
    }
    const std::string fault = WritePdf(pages, 1, *path);
    if (!fault.empty()) {
        desk_.session.surroundings().Warn(fault);  // which names the file
    }
}

void MainWindow::UseDark(bool dark)
{
    UseTheme(*qobject_cast<QApplication*>(QCoreApplication::instance()), dark);
    RememberDark(desk_.store.settings(), dark);
    if (BoxEdit* const box = BoxWithFocus()) {
        box->ShowFocus();  // its colour goes with the old palette
    }
}

}  // namespace kestrum
