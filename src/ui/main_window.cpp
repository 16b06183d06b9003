#include "ui/main_window.h"

#include "app/file_commands.h"
#include "sections/family_table.h"
#include "ui/form_dock.h"
#include "ui/forms.h"
#include "ui/main_panels.h"
#include "ui/members_window.h"
#include "ui/standard_desk.h"
#include "ui/status_banner.h"
#include "ui/text.h"
#include "ui/theme.h"
#include "ui/undo_keys.h"
#include "ui/workspace.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>
#include <QtMath>

#include <algorithm>
#include <utility>

namespace kestrum {

namespace {

constexpr int kDiagramShare = 63;  // percent of the height, above the results
constexpr char kGeometryKey[] = "Window/Geometry";
constexpr double kStartWidth = 1024, kStartHeight = 768 * 0.965;  // at the resolution below
constexpr double kStartDpi = 96;
constexpr QSize kComfortable(1280, 770);  // if the screen has room for it
constexpr double kScreenShare = 0.965;    // of its height, without the frame of the window

// All of the window below its menus. With large letters on a small screen it is scrolled; elsewhere
// the window is never smaller than what it holds.
class WholeWindow final : public QScrollArea {
public:
    explicit WholeWindow(QWidget* content)
    {
        setObjectName(QStringLiteral("wholewindow"));
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        setWidget(content);
        FollowFocus(this);
    }

    QSize minimumSizeHint() const override
    {
        constexpr int kMenuLines = 2;  // menu and title of the window
        QSize least = widget()->minimumSizeHint();
        const QSize screen = this->screen()->availableSize();
        const QSize room(screen.width(), qFloor(screen.height() * kScreenShare) -
                                             kMenuLines * fontMetrics().height());
        if (least.height() > room.height()) {
            least.rwidth() += verticalScrollBar()->sizeHint().width();
        }
        return least.boundedTo(room);
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QScrollArea::resizeEvent(event);
        Fit();
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == widget() && event->type() == QEvent::LayoutRequest) {
            updateGeometry();
            Fit();
        }
        return QScrollArea::eventFilter(watched, event);
    }

private:
    // Not left to the area, which asks anew on every resize: lines that break need more height in
    // less width, so that bar and content would push each other to and fro.
    void Fit()
    {
        const QSize least = widget()->minimumSizeHint();
        QSize room = maximumViewportSize();
        if (least.height() > room.height()) {
            room.rwidth() -= verticalScrollBar()->sizeHint().width();
        }
        if (least.width() > room.width()) {
            room.rheight() -= horizontalScrollBar()->sizeHint().height();
        }
        widget()->resize(room.expandedTo(least));
    }
};

QString DroppedPath(const QMimeData* data)
{
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile() &&
            url.toLocalFile().endsWith(QLatin1String(".kst"), Qt::CaseInsensitive)) {
            return url.toLocalFile();
        }
    }
    return {};
}

}  // namespace

MainWindow::MainWindow(Desk& desk, QWidget* parent)
    : QMainWindow(parent), desk_(desk), standard_(std::make_unique<StandardDesk>(desk.session)),
      bind_(desk.session, "kestrum")
{
    setObjectName(QStringLiteral("kestrum"));
    setAcceptDrops(true);
    desk_.open = [this](std::string_view form) { OpenForm(form); };
    desk_.standard = standard_.get();
    desk_.taketable = [this](LeftWork& work) { return OpenMembers().TakeUp(work); };
    desk_.manual = [this](const std::string& file) { OpenManual(ToQt(file)); };

    auto* const host = new QWidget;
    auto* const column = new QVBoxLayout(host);
    column->setContentsMargins(kGap, 0, kGap, kGap);
    column->setSpacing(kGap);
    QWidget* const input = InputPanel(bind_, desk_);
    auto* const right = new QSplitter(Qt::Vertical);
    right->setObjectName(QStringLiteral("splitter"));
    right->addWidget(DiagramPanel(bind_, desk_));
    right->addWidget(ResultGroup(bind_, desk_));
    right->setStretchFactor(0, kDiagramShare);
    right->setStretchFactor(1, 100 - kDiagramShare);
    right->setSizes({kDiagramShare * 10, (100 - kDiagramShare) * 10});
    right->setChildrenCollapsible(false);
    auto* const status = new StatusBanner;
    const auto show = [this, status] {
        status->Show(StatusOf(desk_.session, &standard_->result()), desk_.session.decimalcomma());
    };
    bind_.Follow([show](const ProjectState&) { show(); });
    standard_->costs.emplace_back(show);
    auto* const resulthost = new QWidget;
    auto* const results = new QVBoxLayout(resulthost);
    results->setContentsMargins(0, 0, 0, 0);
    results->setSpacing(kGap);
    results->addWidget(status);
    results->addWidget(right, 1);
    dock_ = new FormDock(desk_.store.settings());
    dock_->freed = [this](Form* form) { ShowFree(form); };
    workspace_ = new Workspace(input, dock_, resulthost);
    column->addWidget(workspace_, 1);
    column->insertWidget(0, FamilyTabs(bind_, desk_));  // last, so that Tab begins with the inputs
    recovery_ = new RecoveryBar(desk_);
    column->insertWidget(0, recovery_);
    setCentralWidget(new WholeWindow(host));
    qApp->installEventFilter(new UndoKeys(this));

    BuildMenus();
    RestoreSize();
    connect(qApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState now) {
                if (now == Qt::ApplicationActive) {
                    LookAtDisk();  // also when a form is in front
                }
            });
    desk_.session.changed = [this] { Refresh(); };
    desk_.session.showrow = [this](std::string_view box, int at) { ShowLoadRow(box, at); };
}

MainWindow::~MainWindow()
{
    desk_.session.changed = [] {};
    desk_.session.showrow = [](std::string_view, int) {};
    desk_.open = [](std::string_view) {};
    desk_.standard = nullptr;
    desk_.manual = [](const std::string&) {};
    desk_.taketable = [](LeftWork&) { return false; };
    desk_.rowchanged = [] {};
}

void MainWindow::Start(std::string_view commandline)
{
    desk_.session.Calculate();
    OpenCommandLine(desk_.session, desk_.store, commandline);
    Refresh();
}

Form* MainWindow::OpenForm(std::string_view name)
{
    const auto known = forms_.find(name);
    Form* form = known != forms_.end() ? known->second : nullptr;
    const FormMaker* const maker = FindForm(name);
    if (maker != nullptr && !maker->open(desk_.session)) {
        return nullptr;
    }
    if (form == nullptr && maker != nullptr) {
        form = maker->make(desk_, this);
        form->recalculates = maker->recalculates;
    }
    if (form == nullptr) {
        const auto families = Families();
        const auto family =
            std::find_if(families.begin(), families.end(),
                         [&](const FamilyTraits& info) { return info.form == name; });
        if (family == families.end()) {
            return nullptr;
        }
        form = MakeSection(desk_, this, family->id);
        form->recalculates = true;
    }
    if (forms_.try_emplace(std::string(name), form).second && (maker == nullptr || maker->docks)) {
        form->OfferDock([this, form] {
            dock_->Want(*form, true);
            ShowForm(form);
        });
    }
    form->Refresh();
    ShowForm(form);
    return form;
}

// Beside the results, if the user wants it there and the window has the room. A refused value stays
// in sight.
void MainWindow::ShowForm(Form* form)
{
    const bool docks = form->findChild<QWidget*>(QStringLiteral("dock")) != nullptr;
    const bool stays =
        dock_->Holds(form) || (docks && dock_->Wants(*form) && !HasRefused(*workspace_) &&
                               workspace_->HasRoomFor(dock_->WidthFor(*form)));
    if (stays) {
        dock_->Take(form);
    } else {
        ShowFree(form);
    }
}

void MainWindow::ShowFree(Form* form)
{
    if (form->docked()) {
        form->SetDocked(false, this);
    }
    form->Place();
    form->show();
    form->activateWindow();
    form->FocusFirst();
}

MembersWindow& MainWindow::OpenMembers()
{
    if (members_ == nullptr) {
        members_ = new MembersWindow(desk_, this);
    }
    members_->show();
    members_->activateWindow();
    return *members_;
}

void MainWindow::CloseForms()
{
    dock_->Clear();
    for (const auto& [name, form] : forms_) {
        form->hide();
    }
}

std::vector<std::string_view> MainWindow::FormNames()
{
    std::vector<std::string_view> names;
    for (const FormMaker& form : AllForms()) {
        names.push_back(form.name);
    }
    for (const FamilyTraits& family : Families()) {
        names.push_back(family.form);
    }
    return names;
}

void MainWindow::Refresh()
{
    standard_->Follow();
    bind_.Refresh();
    for (const auto& [name, form] : forms_) {
        if (form->isVisible()) {
            form->Refresh();
        }
    }
    dock_->DropForeign();
    RefreshTitle();
    RefreshRecentFiles();
}

// With the mark that the platform has for unsaved work, where there is some.
void MainWindow::RefreshTitle()
{
    const bool modified = desk_.session.modified();
    const auto mark = QStringLiteral("[*]");
    if (!modified) {
        setWindowModified(false);
    }
    setWindowTitle(ToQt(desk_.session.title()).replace(mark, mark + mark) +
                   (modified ? mark : QString()));
    if (modified) {
        setWindowModified(true);
    }
}

void MainWindow::OfferWork(std::vector<LeftWork> works)
{
    recovery_->Offer(std::move(works));
}

// The size of the last session; the first time by the screen's resolution.
void MainWindow::RestoreSize()
{
    if (restoreGeometry(desk_.store.settings().value(QLatin1String(kGeometryKey)).toByteArray())) {
        return;
    }
    const QScreen* const screen = QGuiApplication::primaryScreen();
    resize(StartSize(screen->availableSize(), screen->logicalDotsPerInchX(),
                     screen->logicalDotsPerInchY()));
}

QSize MainWindow::StartSize(QSize screen, double dpix, double dpiy)
{
    const QSize told(qRound(dpix / kStartDpi * kStartWidth),
                     qRound(dpiy / kStartDpi * kStartHeight));
    const QSize room(screen.width(), qFloor(screen.height() * kScreenShare));
    return told.expandedTo(kComfortable).boundedTo(room);
}

bool MainWindow::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        ComeToFront();
        LookAtDisk();
    }
    return QMainWindow::event(event);
}

// What a material of a form has left for the next pass, such as the factor of the shear area, then
// shows. Nothing that was refused, or read in part, is calculated by looking at it.
void MainWindow::ComeToFront()
{
    if (HasRefused(*this) || desk_.session.halfread() ||
        QApplication::activeModalWidget() != nullptr) {
        Refresh();
    } else {
        desk_.session.Calculate();
    }
}

// Queued: a question may follow, which no event of a window should wait for. Not under a message or
// a dialog, whose question comes first; the window comes to the front again behind it.
void MainWindow::LookAtDisk()
{
    QTimer::singleShot(0, this, [this] {
        if (!looking_ && QApplication::activeModalWidget() == nullptr) {
            looking_ = true;
            const bool gone = desk_.session.disk.gone();
            ReviewDisk(desk_.session, desk_.store);
            looking_ = false;
            if (gone != desk_.session.disk.gone()) {
                Refresh();
            }
        }
    });
}

// A box wherever it stands; its form opens.
void MainWindow::ShowBox(const Box& box, int row)
{
    QWidget* host = this;
    if (box.form != objectName().toStdString()) {
        host = OpenForm(box.form);
    }
    const QString name =
        row == 0 ? ToQt(box.id) : ToQt(box.id) + QLatin1Char('_') + QString::number(row);
    BoxEdit* const edit = host != nullptr ? host->findChild<BoxEdit*>(name) : nullptr;
    if (edit != nullptr) {
        edit->TakeFocus();
    }
}

// The box of a load row, while the loads are being edited.
void MainWindow::ShowLoadRow(std::string_view box, int row)
{
    const auto form = forms_.find("Loading");
    if (form != forms_.end() && form->second->isVisible()) {
        const QString name = ToQt(box) + QLatin1Char('_') + QString::number(row);
        if (auto* const edit = form->second->findChild<BoxEdit*>(name)) {
            edit->TakeFocus();
        }
    }
}

// Nothing is asked about the project, whose unsaved work the next start offers; about an edited
// table of members it is.
void MainWindow::closeEvent(QCloseEvent* event)
{
    if (members_ != nullptr && members_->isVisible() && !members_->close()) {
        event->ignore();
        return;
    }
    CloseForms();
    desk_.store.settings().setValue(QLatin1String(kGeometryKey), saveGeometry());
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!DroppedPath(event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event)
{
    const QString path = DroppedPath(event->mimeData());
    if (!path.isEmpty()) {
        event->acceptProposedAction();
        OpenProject(path);
    }
}

void MainWindow::OpenProject(const QString& path)
{
    if (OpenPath(desk_.session, desk_.store, FromQt(path))) {
        CloseForms();
    }
}

}  // namespace kestrum
