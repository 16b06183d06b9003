#pragma once

// The main window `kestrum` and the forms that open over it.

#include "ui/binder.h"
#include "ui/desk.h"
#include "ui/finder_window.h"
#include "ui/form.h"
#include "ui/recovery_bar.h"

#include <QMainWindow>

#include <map>
#include <memory>
#include <string>
#include <string_view>

class QMenu;
class QAction;

namespace kestrum {

class FormDock;
class MembersWindow;
class Workspace;

class MainWindow final : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(Desk& desk, QWidget* parent = nullptr);
    ~MainWindow() override;

    // The rest of the start, after the session has its new project and setup: shows the project,
    // calculates it, opens the file of the raw command line.
    void Start(std::string_view commandline);

    // Shows the form of this name, "Loading", "p21"; null for a name that is none.
    Form* OpenForm(std::string_view name);
    void CloseForms();

    // Work that an earlier window has left unsaved.
    void OfferWork(std::vector<LeftWork> works);

    // A file from outside: dropped, or opened by the platform.
    void OpenProject(const QString& path);

    // The table of members; shown, made when it is asked for first.
    MembersWindow& OpenMembers();

    // Every form by its name.
    static std::vector<std::string_view> FormNames();

    // Size at the first start on a screen of this size and resolution.
    static QSize StartSize(QSize screen, double dpix, double dpiy);

    // Window, open forms, title and menus after a change.
    void Refresh();

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void BuildMenus();
    void BuildFileMenu(QMenu* menu);
    void BuildEditMenu(QMenu* menu);
    void OpenFinder();
    void ShowBox(const Box& box, int row);
    void BuildProfileMenu(QMenu* menu);
    void BuildPrintMenu(QMenu* menu);
    void BuildHelpMenu(QMenu* menu);
    QAction* AddAction(QMenu* menu, const QString& name, const QString& text,
                       const QKeySequence& key, std::function<void()> run);
    void RefreshRecentFiles();
    void RefreshTitle();
    void OpenManual(const QString& file);
    void ExportReport(int report);
    void UseDark(bool dark);
    void RestoreSize();
    void ComeToFront();
    void LookAtDisk();
    void ShowLoadRow(std::string_view box, int row);
    void ShowForm(Form* form);
    void ShowFree(Form* form);

    Desk& desk_;
    std::unique_ptr<StandardDesk> standard_;
    Binder bind_;
    QMenu* filemenu_ = nullptr;
    QAction* recentend_ = nullptr;
    RecoveryBar* recovery_ = nullptr;
    FinderWindow* finder_ = nullptr;
    Workspace* workspace_ = nullptr;
    FormDock* dock_ = nullptr;
    MembersWindow* members_ = nullptr;
    bool looking_ = false;  // at the file on the disk
    std::vector<QAction*> recent_;
    std::map<std::string, Form*, std::less<>> forms_;
};

}  // namespace kestrum
