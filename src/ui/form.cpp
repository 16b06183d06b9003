#include "ui/form.h"

#include "ui/text.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace kestrum {

Form::Form(Desk& desk, std::string_view name, const QString& title, QWidget* parent)
    : QDialog(parent), desk_(desk), bind_(desk.session, name), body_(new QVBoxLayout(this))
{
    setObjectName(ToQt(name));
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose, false);
    body_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    body_->setSpacing(kGap);
}

void Form::Refresh()
{
    if (belongs(session().state())) {
        bind_.Refresh();
    } else {
        hide();
    }
}

void Form::done(int result)
{
    if (BoxEdit* const box = BoxWithFocus(); box != nullptr && box->window() == this) {
        box->Finish();
    }
    const auto boxes = findChildren<BoxEdit*>();
    const bool refused = std::any_of(boxes.begin(), boxes.end(), [](const BoxEdit* box) {
        return box->refused() && box->isVisible();
    });
    if (!refused && mayclose()) {
        QDialog::done(result);
        if (recalculates) {
            session().Calculate();
        }
    }
}

// The window below takes over.
void Form::hideEvent(QHideEvent* event)
{
    QDialog::hideEvent(event);
    if (parentWidget() != nullptr && parentWidget()->isVisible()) {
        parentWidget()->activateWindow();
    }
}

QHBoxLayout* Form::AddButtons(const QString& okname)
{
    auto* const row = new QHBoxLayout;
    QPushButton* const ok = bind_.Button(okname, tr("&OK"), [this] { accept(); });
    ok->setMinimumWidth(90);
    row->addStretch(1);
    row->addWidget(ok);
    body_->addLayout(row);
    return row;
}

QGroupBox* Group(const QString& name, const QString& title)
{
    auto* const group = new QGroupBox(title);
    group->setObjectName(name);
    return group;
}

QGridLayout* GridOf(QWidget* host)
{
    auto* const grid = new QGridLayout(host);
    grid->setContentsMargins(kMargin, kGap, kMargin, kGap);
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(kGap - 2);
    return grid;
}

QHBoxLayout* RowOf(QWidget* host)
{
    auto* const row = new QHBoxLayout(host);
    row->setContentsMargins(kMargin, kGap, kMargin, kGap);
    row->setSpacing(kGap);
    return row;
}

QVBoxLayout* ColumnOf(QWidget* host)
{
    auto* const column = new QVBoxLayout(host);
    column->setContentsMargins(kMargin, kGap, kMargin, kGap);
    column->setSpacing(kGap);
    return column;
}

}  // namespace kestrum
