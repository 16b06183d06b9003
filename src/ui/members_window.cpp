#include "ui/members_window.h"

#include "app/batch.h"
#include "app/unloaded_member.h"
#include "core/file_io.h"
#include "core/project_state.h"
#include "ui/members_proxy.h"
#include "ui/picture.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
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
