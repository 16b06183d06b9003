#include "ui/finder_window.h"

#include "ui/text.h"
#include "ui/theme.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

#include <utility>

namespace kestrum {

FinderWindow::FinderWindow(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), line_(new QLineEdit), list_(new QListWidget)
{
    setObjectName(QStringLiteral("finder"));
    setWindowTitle(tr("Find"));
    setModal(true);
    line_->setObjectName(QStringLiteral("finderline"));
    line_->setAccessibleName(tr("Words to find"));
    line_->setPlaceholderText(tr("ipe 330,  k y 0.7,  line load 12,  check points"));
    line_->installEventFilter(this);
    list_->setObjectName(QStringLiteral("finderlist"));
    list_->setAccessibleName(tr("What was found"));
    list_->setFocusPolicy(Qt::NoFocus);  // the arrow keys work from the line
    list_->setUniformItemSizes(true);
    list_->setTextElideMode(Qt::ElideRight);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kGap);
    column->addWidget(line_);
    column->addWidget(list_, 1);
    column->addWidget(new QLabel(tr("Enter takes it, Escape leaves")));
    const int letter = fontMetrics().horizontalAdvance(QLatin1Char('x'));
    resize(80 * letter, 20 * fontMetrics().lineSpacing());
    connect(line_, &QLineEdit::textChanged, this, &FinderWindow::Search);
    connect(list_, &QListWidget::itemClicked, this, &FinderWindow::Run);
}

void FinderWindow::Ask(std::vector<FinderEntry> entries)
{
    entries_ = std::move(entries);
    line_->clear();
    Search();
    open();
    line_->setFocus();
}

void FinderWindow::Search()
{
    const std::string typed = FromQt(line_->text());
    shown_.clear();
    for (Finding& finding : FindByWords(session_, typed)) {
        QString text = ToQt(finding.text);
        shown_.push_back({std::move(text), [this, finding = std::move(finding)] {
                              if (finding.kind == Finding::Kind::box) {
                                  show(*finding.box, finding.row);
                              } else {
                                  Take(session_, finding);
                              }
                          }});
    }
    for (const FinderEntry& entry : entries_) {
        if (HasWords(FromQt(entry.text), typed)) {
            shown_.push_back(entry);
        }
    }
    list_->clear();
    for (const FinderEntry& entry : shown_) {
        list_->addItem(entry.text);
    }
    list_->setCurrentRow(0);
}

void FinderWindow::Run()
{
    const int row = list_->currentRow();
    if (row < 0) {
        return;
    }
    const auto run = shown_.at(static_cast<std::size_t>(row)).run;
    accept();
    run();  // behind the window, so that a message or a form comes to the front
}

bool FinderWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const int step = key == Qt::Key_Down ? 1 : key == Qt::Key_Up ? -1 : 0;
        if (step != 0 && list_->count() > 0) {
            list_->setCurrentRow((list_->currentRow() + step + list_->count()) % list_->count());
            return true;
        }
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            Run();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace kestrum
