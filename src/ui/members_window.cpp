#include "ui/members_window.h"

#include "app/batch.h"
#include "app/unloaded_member.h"
#include "core/file_io.h"
#include "ui/picture.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <set>
#include <utility>

namespace kestrum {

namespace {

constexpr int kPoll = 30;          // ms
constexpr int kRatioLetters = 14;  // "1.24 > limit"
constexpr QSize kStartSize(980, 560);
constexpr char kGeometry[] = "Members/Geometry";
const auto kFilter = QStringLiteral("CSV (*.csv *.txt);;* (*)");

// Ratios above the limit have their sign in the text; the colour is for those who see it.
class RatioCell final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (index.data(MembersModel::kAboveRole).toBool()) {
            option->palette.setColor(QPalette::Text, ColoursOf(option->palette)(Ink::bad));
            option->font.setBold(true);
        }
    }
};

}  // namespace

// Numbers by their value, in front of texts.
class MembersProxy final : public QSortFilterProxyModel {
public:
    explicit MembersProxy(QObject* parent) : QSortFilterProxyModel(parent)
    {
        setDynamicSortFilter(false);  // no line runs away while it is edited
        setFilterKeyColumn(-1);
        setFilterCaseSensitivity(Qt::CaseInsensitive);
    }

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override
    {
        const QVariant a = left.data(MembersModel::kSortRole),
                       b = right.data(MembersModel::kSortRole);
        const bool number = a.typeId() == QMetaType::Double,
                   other = b.typeId() == QMetaType::Double;
        return number && other   ? a.toDouble() < b.toDouble()
               : number != other ? number
                                 : QString::localeAwareCompare(a.toString(), b.toString()) < 0;
    }
};

MembersWindow::MembersWindow(Desk& desk, QWidget* parent)
    : QWidget(parent, Qt::Window), desk_(desk), model_(desk.session.decimalcomma()),
      proxy_(new MembersProxy(this)), view_(new QTableView), search_(new QLineEdit),
      state_(new QLabel), progress_(new QProgressBar), cancel_(new QPushButton(tr("Cancel"))),
      base_(std::make_shared<const ProjectState>(UnloadedMember(desk.session.library())))
{
    setObjectName(QStringLiteral("members"));
    proxy_->setSourceModel(&model_);
    view_->setObjectName(QStringLiteral("membertable"));
    view_->setAccessibleName(tr("Members of the table"));
    view_->setModel(proxy_);
    view_->setSortingEnabled(true);
    view_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    proxy_->sort(-1);
    view_->setAlternatingRowColors(true);
    view_->setWordWrap(false);
    view_->setItemDelegateForColumn(MembersModel::kRatio, new RatioCell(view_));
    view_->setItemDelegateForColumn(MembersModel::kStandard, new RatioCell(view_));
    view_->verticalHeader()->setDefaultSectionSize(view_->fontMetrics().height() + kGap);
    view_->installEventFilter(this);
    search_->setObjectName(QStringLiteral("membersearch"));
    search_->setPlaceholderText(tr("Show lines with"));
    search_->setAccessibleName(tr("Show lines with this text"));
    search_->setClearButtonEnabled(true);
    connect(search_, &QLineEdit::textChanged, proxy_, &QSortFilterProxyModel::setFilterFixedString);
    state_->setObjectName(QStringLiteral("memberstate"));
    state_->setTextFormat(Qt::PlainText);
    state_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    progress_->setObjectName(QStringLiteral("memberprogress"));
    progress_->setMaximumWidth(200);
    cancel_->setObjectName(QStringLiteral("membercancel"));
    connect(cancel_, &QPushButton::clicked, this, [this] {
        Cancel();
        RefreshState();
    });

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kGap);
    BuildCommands();
    column->addWidget(search_);
    column->addWidget(view_, 1);
    auto* const foot = new QHBoxLayout;
    foot->addWidget(state_, 1);
    foot->addWidget(progress_);
    foot->addWidget(cancel_);
    column->addLayout(foot);

    choosefile = [this](const QString& title, bool write) -> std::optional<std::string> {
        const QString folder = ToQt(desk_.session.curdir);
        if (write) {
            return AskForFile(this, {title, kFilter, QStringLiteral("csv")}, desk_.session.curdir,
                              path_);
        }
        const QString path = QFileDialog::getOpenFileName(this, title, folder, kFilter);
        return path.isEmpty() ? std::nullopt : std::optional(FromQt(path));
    };
    choosepool = [this](const QString& proposal) -> std::optional<QString> {
        bool taken = false;
        const QString words =
            QInputDialog::getText(this, tr("Lightest section"),
                                  tr("Families, series or sections, such as IPE, HEA, UB, or all:"),
                                  QLineEdit::Normal, proposal, &taken);
        return taken ? std::optional(words) : std::nullopt;
    };
    choosecolumn = [this]() -> std::optional<QString> {
        bool taken = false;
        const QString name = QInputDialog::getText(
            this, tr("Column"), tr("Name of the input, such as l, qload[2] or steel:"),
            QLineEdit::Normal, {}, &taken);
        return taken ? std::optional(name) : std::nullopt;
    };
    model_.edited = [this] { Refresh(); };
    timer_.setInterval(kPoll);
    connect(&timer_, &QTimer::timeout, this, &MembersWindow::Poll);
    if (!restoreGeometry(desk_.store.settings().value(QLatin1String(kGeometry)).toByteArray())) {
        resize(kStartSize);
    }
    Refresh();
}

MembersWindow::~MembersWindow() = default;

std::string MembersWindow::TableName() const
{
    return path_.empty() ? FromQt(tr("new table")) : FromQt(QFileInfo(ToQt(path_)).fileName());
}

// --- Commands ------------------------------------------------------------------------------------

QPushButton* MembersWindow::AddButton(QHBoxLayout* row, const char* name, const QString& text,
                                      const QString& tip, std::vector<QKeySequence> keys,
                                      std::function<void()> run)
{
    auto* const button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    const QString key = keys.empty() ? QString()
                                     : QStringLiteral("  (") +
                                           keys.front().toString(QKeySequence::NativeText) +
                                           QLatin1Char(')');
    button->setToolTip(tip + key);
    connect(button, &QPushButton::clicked, this, run);
    row->addWidget(button);
    commands_.push_back({button, std::move(keys), std::move(run)});
    return button;
}

void MembersWindow::AddKeys(std::vector<QKeySequence> keys, std::function<void()> run)
{
    commands_.push_back({nullptr, std::move(keys), std::move(run)});
}

void MembersWindow::BuildCommands()
{
    auto* const files = new QHBoxLayout;
    auto* const work = new QHBoxLayout;
    static_cast<QVBoxLayout*>(layout())->addLayout(files);
    static_cast<QVBoxLayout*>(layout())->addLayout(work);
    AddButton(files, "memberopen", tr("Open..."), tr("A table as kestrum batch takes it"),
              {QKeySequence::Open}, [this] { AskForTable(); });
    AddButton(files, "membersave", tr("Save"), tr("Saves the table"), {QKeySequence::Save},
              [this] { Save(false); });
    AddButton(files, "membersaveas", tr("Save as..."), tr("Saves it under another name"),
              {Qt::CTRL | Qt::SHIFT | Qt::Key_S}, [this] { Save(true); });
    undo_ = AddButton(files, "memberundo", tr("Undo"), tr("Takes the last edit of the table back"),
                      {QKeySequence::Undo},
                      [this] { model_.Change([](MembersSheet& sheet) { sheet.Undo(); }); });
    redo_ = AddButton(files, "memberredo", tr("Redo"), tr("Makes it again"),
                      {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y},
                      [this] { model_.Change([](MembersSheet& sheet) { sheet.Redo(); }); });
    AddButton(files, "memberfill", tr("Fill down"), tr("The first line of the selection in all"),
              {Qt::CTRL | Qt::Key_D}, [this] {
                  if (const auto range = Selected()) {
                      model_.Change([&](MembersSheet& sheet) { sheet.FillDown(*range); });
                  }
              });
    AddButton(files, "memberadd", tr("Add line"), tr("A line in front of this one"),
              {Qt::CTRL | Qt::Key_Plus}, [this] {
                  const auto rows = SelectedRows();
                  const std::size_t at = rows.empty() ? model_.sheet().rows() : rows.front();
                  model_.Change([&](MembersSheet& sheet) { sheet.Insert(at, 1); });
              });
    AddButton(files, "memberremove", tr("Remove lines"), tr("The lines of the selection"),
              {Qt::CTRL | Qt::Key_Minus}, [this] {
                  model_.Change(
                      [rows = SelectedRows()](MembersSheet& sheet) { sheet.Remove(rows); });
              });
    AddButton(files, "membercolumn", tr("Add column..."), tr("A column for another input"), {},
              [this] {
                  const std::optional<QString> name = choosecolumn();
                  std::string refusal;
                  if (name) {
                      model_.Change(
                          [&](MembersSheet& sheet) { refusal = sheet.AddColumn(FromQt(*name)); });
                  }
                  if (!refusal.empty()) {
                      desk_.session.surroundings().Warn(refusal);
                  }
              });
    files->addStretch(1);
    AddButton(work, "memberproject", tr("Open as project"),
              tr("The line becomes the project of the main window"), {Qt::CTRL | Qt::Key_Return},
              [this] {
                  if (const auto rows = SelectedRows(); !rows.empty()) {
                      line_.Open(desk_.session, model_.sheet(), rows.front(), *base_, TableName());
                  }
              });
    AddButton(work, "memberwrite", tr("Write back"),
              tr("The project of the main window into the line that was opened"),
              {Qt::CTRL | Qt::SHIFT | Qt::Key_Return}, [this] {
                  model_.Change(
                      [this](MembersSheet& sheet) { line_.Write(desk_.session, sheet, *base_); });
              });
    AddButton(work, "memberforces", tr("Forces..."),
              tr("The worst case of each member under a table of forces of another program"), {},
              [this] { ChooseForces(); });
    AddButton(work, "memberloads", tr("Own loads"), tr("Ratios under the loads of the lines"), {},
              [this] {
                  forces_.reset();
                  RateAll();
              });
    AddButton(work, "memberlightest", tr("Lightest section..."),
              tr("For each line of the selection the lightest section that passes"), {},
              [this] { ChooseSections(); });
    work->addStretch(1);
    AddKeys({QKeySequence::Copy}, [this] {
        if (const auto range = Selected()) {
            QApplication::clipboard()->setText(ToQt(model_.sheet().Copy(*range)));
        }
    });
    AddKeys({QKeySequence::Paste}, [this] { Paste(); });
    AddKeys({QKeySequence::Delete}, [this] {
        if (const auto range = Selected()) {
            model_.Change([&](MembersSheet& sheet) { sheet.Clear(*range); });
        }
    });
    AddKeys({QKeySequence(Qt::Key_F2)}, [this] { view_->edit(view_->currentIndex()); });
    AddKeys({QKeySequence::Find}, [this] { search_->setFocus(Qt::ShortcutFocusReason); });
}

const MembersWindow::Command* MembersWindow::Find(const QKeyEvent& event) const
{
    const QKeySequence pressed(event.keyCombination());
    const auto at = std::find_if(commands_.begin(), commands_.end(), [&](const Command& command) {
        return std::find(command.keys.begin(), command.keys.end(), pressed) != command.keys.end();
    });
    return at != commands_.end() ? &*at : nullptr;
}

// The keys of the table are its own where the menus of the main window have the same.
bool MembersWindow::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        Find(*static_cast<const QKeyEvent*>(event)) != nullptr) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

bool MembersWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == view_ && event->type() == QEvent::KeyPress) {
        if (const Command* const command = Find(*static_cast<const QKeyEvent*>(event))) {
            command->run();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void MembersWindow::keyPressEvent(QKeyEvent* event)
{
    if (const Command* const command = Find(*event)) {
        view_->setFocus(Qt::OtherFocusReason);  // what is being typed counts
        command->run();
    } else if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

std::vector<std::size_t> MembersWindow::SelectedRows() const
{
    std::set<int> rows;
    for (const QModelIndex& index : view_->selectionModel()->selectedIndexes()) {
        rows.insert(index.row());
    }
    std::vector<std::size_t> lines;
    for (const int row : rows) {
        lines.push_back(static_cast<std::size_t>(proxy_->mapToSource(proxy_->index(row, 0)).row()));
    }
    return lines;
}

std::optional<MembersSheet::Range> MembersWindow::Selected() const
{
    int first = model_.columnCount(), last = -1;
    for (const QModelIndex& index : view_->selectionModel()->selectedIndexes()) {
        if (index.column() >= MembersModel::kFirst) {
            first = std::min(first, index.column());
            last = std::max(last, index.column());
        }
    }
    if (last < 0) {
        return std::nullopt;
    }
    return MembersSheet::Range{SelectedRows(),
                               static_cast<std::size_t>(first - MembersModel::kFirst),
                               static_cast<std::size_t>(last - first + 1)};
}

// Into the selection and the lines below it, in the order in which they are seen.
void MembersWindow::Paste()
{
    const std::optional<MembersSheet::Range> range = Selected();
    if (!range) {
        return;
    }
    std::vector<std::size_t> below;
    const QModelIndexList selected = view_->selectionModel()->selectedIndexes();
    int last = 0;
    for (const QModelIndex& index : selected) {
        last = std::max(last, index.row());
    }
    for (int row = last + 1; row < proxy_->rowCount(); ++row) {
        below.push_back(static_cast<std::size_t>(proxy_->mapToSource(proxy_->index(row, 0)).row()));
    }
    std::string refusal;
    model_.Change([&](MembersSheet& sheet) {
        refusal = sheet.Paste(*range, FromQt(QApplication::clipboard()->text()), below);
    });
    if (!refusal.empty()) {
        desk_.session.surroundings().Warn(refusal);
    }
}

// --- Files ---------------------------------------------------------------------------------------

bool MembersWindow::MayLeave()
{
    if (!model_.sheet().modified()) {
        return true;
    }
    switch (desk_.session.surroundings().Ask("Save the table " + TableName() + "?")) {
    case Answer::yes:
        return Save(false);
    case Answer::no:
        if (desk_.session.aside != nullptr) {
            desk_.session.aside->DropTable();
        }
        return true;
    default:
        return false;
    }
}

void MembersWindow::AskForTable()
{
    const std::optional<std::string> path =
        MayLeave() ? choosefile(tr("Open table of members"), false) : std::nullopt;
    if (path) {
        OpenTable(*path);
    }
}

bool MembersWindow::OpenTable(const std::string& path)
{
    std::string bytes;
    std::string fault = ReadWholeFile(path, bytes);
    fault = fault.empty() ? fault : path + ": " + fault;
    if (fault.empty()) {
        model_.Change([&](MembersSheet& sheet) { fault = sheet.Take(bytes, path); });
    }
    if (!fault.empty()) {
        desk_.session.surroundings().Warn(fault);
        return false;
    }
    path_ = path;
    disk_.Know(std::move(bytes));
    digest_.reset();
    ShowTable();
    return true;
}

// A table in place of another one.
void MembersWindow::ShowTable()
{
    Cancel();
    model_.ForgetRatings();
    Refresh();
    view_->resizeColumnsToContents();
    const int letter = view_->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    view_->setColumnWidth(MembersModel::kRatio, kRatioLetters * letter);
    view_->setColumnWidth(MembersModel::kStandard, kRatioLetters * letter);
    view_->setColumnWidth(MembersModel::kGoverns, 2 * kRatioLetters * letter);
    view_->setCurrentIndex(proxy_->index(0, MembersModel::kFirst));
}

bool MembersWindow::Save(bool elsewhere)
{
    std::string path = path_;
    if (elsewhere || path.empty()) {
        path = choosefile(tr("Save table of members"), true).value_or("");
        if (path.empty()) {
            return false;
        }
    } else if (disk_.HasNews(path) && !disk_.gone() &&
               desk_.session.surroundings().Ask(
                   path + " has changed on the disk. Write over it?") != Answer::yes) {
        return false;
    }
    std::string text = model_.sheet().Text();
    const std::string fault = WriteWholeFile(path, text);
    if (!fault.empty()) {
        desk_.session.surroundings().Warn(path + ": " + fault);
        return false;
    }
    path_ = path;
    disk_.Know(std::move(text));
    digest_.reset();
    model_.Change([](MembersSheet& sheet) { sheet.MarkSaved(); });
    return true;
}

void MembersWindow::closeEvent(QCloseEvent* event)
{
    if (MayLeave()) {
        Cancel();
        desk_.store.settings().setValue(QLatin1String(kGeometry), saveGeometry());
        event->accept();
    } else {
        event->ignore();
    }
}

// --- Calculation ---------------------------------------------------------------------------------

LineSource MembersWindow::Source() const
{
    return {&desk_.session.library(), base_, model_.sheet().reader(), forces_};
}

void MembersWindow::Cancel()
{
    jobs_.Cancel();
    pending_.clear();
}

void MembersWindow::RateAll()
{
    Cancel();
    model_.ForgetRatings();
    Rate(model_.Unrated());
}

void MembersWindow::Rate(const std::vector<std::size_t>& rows)
{
    const auto source = std::make_shared<const LineSource>(Source());
    for (const std::size_t row : rows) {
        if (!pending_.insert(model_.sheet().At(row).id).second) {
            continue;
        }
        jobs_.Add([this, source, id = model_.sheet().At(row).id,
                   record = model_.sheet().Record(row),
                   name = model_.sheet().NameOf(row)]() -> JobQueue::Taken {
            return [this, id, rating = RateLine(*source, record, name)] {
                pending_.erase(id);
                model_.Keep(id, rating);
            };
        });
    }
    timer_.start();
    RefreshState();
}

void MembersWindow::ChooseForces()
{
    const std::optional<std::string> path = choosefile(tr("Table of forces"), false);
    if (!path) {
        return;
    }
    std::string bytes;
    std::string fault = ReadWholeFile(*path, bytes);
    fault = fault.empty() ? fault : *path + ": " + fault;
    const auto forces = std::make_shared<ForceCases>();
    if (fault.empty()) {
        fault = forces->Take(bytes, FromQt(QFileInfo(ToQt(*path)).fileName()));
    }
    if (!fault.empty()) {
        desk_.session.surroundings().Warn(fault);
        return;
    }
    forces_ = forces;
    RateAll();
}

// Proposed is the series that the line has now: "IPE" of "IPE 300".
void MembersWindow::ChooseSections()
{
    const std::vector<std::size_t> rows = SelectedRows();
    if (rows.empty()) {
        return;
    }
    const auto& columns = model_.sheet().columns();
    const auto at = std::find(columns.begin(), columns.end(), kSection);
    QString proposal = QStringLiteral("all");
    if (at != columns.end()) {
        const QString now =
            ToQt(model_.sheet().Cell(rows.front(), static_cast<std::size_t>(at - columns.begin())));
        proposal = now.isEmpty() ? proposal : now.section(QLatin1Char(' '), 0, 0);
    }
    const std::optional<QString> words = choosepool(proposal);
    std::vector<std::string> wanted;
    for (const QString& word :
         words.value_or(QString()).split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        wanted.push_back(FromQt(word.trimmed()));
    }
    if (!wanted.empty()) {
        TakeLightest(rows, wanted);
    }
}

// One step of Undo when all are found.
void MembersWindow::TakeLightest(const std::vector<std::size_t>& rows,
                                 const std::vector<std::string>& words)
{
    struct Found {
        std::uint64_t id;
        LightestLine section;
    };
    const auto found = std::make_shared<std::vector<Found>>();
    const auto source = std::make_shared<const LineSource>(Source());
    refusals_.clear();
    for (const std::size_t row : rows) {
        jobs_.Add([this, source, words, found, count = rows.size(), id = model_.sheet().At(row).id,
                   record = model_.sheet().Record(row),
                   name = model_.sheet().NameOf(row)]() -> JobQueue::Taken {
            return [this, found, count, id, name,
                    section = FindLightestLine(*source, record, name, words)] {
                found->push_back({id, section});
                if (!section.refusal.empty()) {
                    refusals_.push_back(name + ": " + section.refusal);
                }
                if (found->size() < count) {
                    return;
                }
                model_.Change([&](MembersSheet& sheet) {
                    std::vector<std::pair<std::size_t, std::string>> cells;
                    for (std::size_t at = 0; at < sheet.rows(); ++at) {
                        const auto of =
                            std::find_if(found->begin(), found->end(), [&](const Found& one) {
                                return one.id == sheet.At(at).id && one.section.refusal.empty();
                            });
                        if (of != found->end()) {
                            cells.emplace_back(at, of->section.section);
                        }
                    }
                    sheet.SetColumn(std::string(kSection), cells);
                });
                if (!refusals_.empty()) {
                    std::string text;
                    for (const std::string& refusal : refusals_) {
                        text += refusal + "\n";
                    }
                    desk_.session.surroundings().Warn(text);
                }
            };
        });
    }
    timer_.start();
    RefreshState();
}

void MembersWindow::Poll()
{
    jobs_.TakeDone();
    model_.ShowRatings();
    if (!jobs_.busy()) {
        timer_.stop();
        if (proxy_->sortColumn() >= 0 && proxy_->sortColumn() < MembersModel::kFirst) {
            proxy_->sort(proxy_->sortColumn(), proxy_->sortOrder());
        }
    }
    RefreshState();
}

// After an edit: what it has changed is calculated.
void MembersWindow::Refresh()
{
    undo_->setEnabled(model_.sheet().CanUndo());
    redo_->setEnabled(model_.sheet().CanRedo());
    setWindowTitle(tr("Members: %1[*]").arg(ToQt(TableName())));
    setWindowModified(model_.sheet().modified());
    SetAside();
    Rate(model_.Unrated());
}

void MembersWindow::RefreshState()
{
    const bool busy = jobs_.busy();
    progress_->setVisible(busy);
    cancel_->setVisible(busy);
    progress_->setMaximum(static_cast<int>(jobs_.added()));
    progress_->setValue(static_cast<int>(jobs_.taken()));
    if (busy) {
        state_->setText(tr("%1 of %2").arg(jobs_.taken()).arg(jobs_.added()));
        return;
    }
    Tally tally;
    for (std::size_t row = 0; row < model_.sheet().rows(); ++row) {
        if (const LineRating* const rating = model_.RatingOf(row)) {
            const Verdict verdict =
                !rating->refusal.empty() ? Verdict::bad : rating->answer.VerdictIn(Bases::program);
            tally.Add(row, model_.sheet().NameOf(row), verdict, rating->answer.program.ir);
        }
    }
    const std::string all = tally.Summary();
    QString text = ToQt(all.substr(0, all.find('\n')));
    text += forces_ != nullptr ? tr(";  forces of %1").arg(ToQt(forces_->name())) : QString();
    state_->setText(text);
    state_->setToolTip(ToQt(all));
}

}  // namespace kestrum
