// What the user does to the lines of the table: buttons, keys, the cells that are selected.

#include "ui/members_window.h"

#include "ui/members_proxy.h"
#include "ui/text.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include <algorithm>
#include <set>
#include <utility>

namespace kestrum {

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

}  // namespace kestrum
