#include "ui/form.h"

#include "ui/text.h"
#include "ui/theme.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace kestrum {

namespace {

// Of the screen: the frame of the window, and the row of buttons below the scrolled part.
constexpr QSize kAround(16, 120);

// What the form holds, whole where the screen has room for it, else scrolled.
class FormScroll final : public QScrollArea {
public:
    explicit FormScroll(QWidget* content)
    {
        setWidget(content);
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);  // Tab goes through the inputs, which scroll into sight
    }

    QSize sizeHint() const override { return Fit(widget()->sizeHint()); }
    QSize minimumSizeHint() const override { return Fit(widget()->minimumSizeHint()); }

protected:
    // The content may want more room later, with another choice or font.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == widget() && event->type() == QEvent::LayoutRequest) {
            updateGeometry();
        }
        return QScrollArea::eventFilter(watched, event);
    }

private:
    QSize Fit(QSize wanted) const
    {
        const QSize room = screen()->availableSize() - kAround;
        if (wanted.height() > room.height()) {
            wanted.rwidth() += verticalScrollBar()->sizeHint().width();
        }
        return wanted.boundedTo(room);
    }
};

}  // namespace

Form::Form(Desk& desk, std::string_view name, const QString& title, QWidget* parent)
    : QDialog(parent), desk_(desk), bind_(desk.session, name), body_(new QVBoxLayout)
{
    setObjectName(ToQt(name));
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose, false);
    auto* const content = new QWidget;
    content->setLayout(body_);
    body_->setContentsMargins(kMargin, kMargin, kMargin, kGap);
    body_->setSpacing(kGap);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, kGap);
    column->setSpacing(0);
    column->addWidget(new FormScroll(content), 1);
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
    row->setContentsMargins(kMargin, 0, kMargin, kMargin - kGap);
    row->addStretch(1);
    row->addWidget(ok);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);  // below what is scrolled
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
