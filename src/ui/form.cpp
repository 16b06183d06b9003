#include "ui/form.h"

#include "ui/text.h"
#include "ui/theme.h"

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace kestrum {

namespace {

// Of the screen: the frame of the window, and the row of buttons below the scrolled part.
constexpr QSize kAround(16, 120);

// What the form holds, whole where the screen has room for it, else scrolled; scrolled in any
// height where the form is docked.
class FormScroll final : public QScrollArea {
public:
    FormScroll(QWidget* content, const Form* form) : form_(form)
    {
        setWidget(content);
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);  // Tab goes through the inputs, which scroll into sight
        FollowFocus(this);
    }

    QSize sizeHint() const override { return Fit(widget()->sizeHint()); }
    QSize minimumSizeHint() const override
    {
        const QSize fit = Fit(widget()->minimumSizeHint());
        return form_->docked() ? QSize(fit.width(), kLowest) : fit;
    }

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
        if (form_->docked() || wanted.height() > room.height()) {
            wanted.rwidth() += verticalScrollBar()->sizeHint().width();
        }
        return wanted.boundedTo(room);
    }

    static constexpr int kLowest = 120;
    const Form* form_;
};

QString GeometryKey(const QString& form)
{
    return QStringLiteral("Forms/Geometry/") + form;
}

bool TakesInput(const QWidget& widget)
{
    const auto* const edit = qobject_cast<const QLineEdit*>(&widget);
    return edit != nullptr && !edit->isReadOnly();
}

constexpr char kLettered[] = "lettered";  // the text with its letter, while that is hidden

template <class T> void ShowLetter(T* widget, QString (T::*text)() const, bool shown)
{
    const QVariant kept = widget->property(kLettered);
    if (shown && kept.isValid()) {
        widget->setProperty(kLettered, {});
        widget->setText(kept.toString());
    } else if (!shown && (widget->*text)().contains(QLatin1Char('&'))) {
        widget->setProperty(kLettered, (widget->*text)());
        widget->setText((widget->*text)().remove(QLatin1Char('&')));
    }
}

}  // namespace

// A grid as it is laid out in a window of its own.
struct Form::Folded {
    struct Cell {
        int row = 0, column = 0, rows = 1, columns = 1;
    };
    QGridLayout* grid;
    std::vector<Cell> cells;
    std::vector<int> stretches;
};

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
    column->addWidget(new FormScroll(content, this), 1);
}

Form::~Form() = default;

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
    if (BoxEdit* const box = BoxWithFocus(); box != nullptr && isAncestorOf(box)) {
        box->Finish();
    }
    if (!refused() && mayclose()) {
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
    if (docked_) {
        return;
    }
    desk_.store.settings().setValue(GeometryKey(objectName()), saveGeometry());
    if (parentWidget() != nullptr && parentWidget()->isVisible()) {
        parentWidget()->activateWindow();
    }
}

void Form::Place()
{
    if (placed_) {
        return;
    }
    placed_ = true;
    const QByteArray last = desk_.store.settings().value(GeometryKey(objectName())).toByteArray();
    resize(restoreGeometry(last) ? size().expandedTo(minimumSizeHint()) : sizeHint());
}

void Form::SetDocked(bool docked, QWidget* parent)
{
    setParent(parent, docked ? Qt::Widget : Qt::Dialog);
    placed_ = placed_ && !docked;
    setAttribute(Qt::WA_Moved, docked);  // a dialog would go to the middle of its parent
    ShowLetters(!docked);
    if (docker_ != nullptr) {
        docker_->setVisible(!docked);
    }
    LayOut(docked);
}

int Form::DockedWidth()
{
    const bool docked = docked_;
    LayOut(true);
    const int width = minimumSizeHint().width();
    LayOut(docked);
    return width;
}

void Form::LayOut(bool docked)
{
    if (docked == std::exchange(docked_, docked)) {
        return;
    }
    for (const auto& fold : folds_) {
        QGridLayout& grid = *fold->grid;
        std::vector<QLayoutItem*> items;
        while (grid.count() > 0) {
            items.push_back(grid.takeAt(0));
        }
        for (std::size_t i = 0; i < items.size(); ++i) {
            const Folded::Cell at = docked ? Folded::Cell{static_cast<int>(i), 0} : fold->cells[i];
            grid.addItem(items[i], at.row, at.column, at.rows, at.columns);
        }
        for (std::size_t i = 0; i < fold->stretches.size(); ++i) {
            grid.setColumnStretch(static_cast<int>(i),
                                  docked ? static_cast<int>(i == 0) : fold->stretches[i]);
        }
    }
    // At once: the window would otherwise grow for what the form wanted before.
    body_->activate();
    layout()->itemAt(0)->widget()->updateGeometry();
}

void Form::Fold(QGridLayout* grid)
{
    auto fold = std::make_unique<Folded>();
    fold->grid = grid;
    for (int i = 0; i < grid->count(); ++i) {
        Folded::Cell& cell = fold->cells.emplace_back();
        grid->getItemPosition(i, &cell.row, &cell.column, &cell.rows, &cell.columns);
    }
    for (int i = 0; i < grid->columnCount(); ++i) {
        fold->stretches.push_back(grid->columnStretch(i));
    }
    folds_.push_back(std::move(fold));
}

// Enter, Tab, Escape and the function keys lead through a docked form.
void Form::ShowLetters(bool shown)
{
    for (auto* const button : findChildren<QAbstractButton*>()) {
        ShowLetter(button, &QAbstractButton::text, shown);
    }
    for (auto* const label : findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) {
            ShowLetter(label, &QLabel::text, shown);
        }
    }
}

void Form::OfferDock(std::function<void()> dock)
{
    QPushButton* const button = bind_.Button(QStringLiteral("dock"), tr("Dock"), std::move(dock));
    button->setToolTip(tr("Beside the results, which stay in sight"));
    buttons_->insertWidget(0, button);
    docker_ = button;
}

void Form::FocusFirst()
{
    QWidget* first = nullptr;
    for (QWidget* at = nextInFocusChain(); at != this; at = at->nextInFocusChain()) {
        if (!isAncestorOf(at) || !at->isVisible() || !at->isEnabled() ||
            (at->focusPolicy() & Qt::TabFocus) == 0) {
            continue;
        }
        if (TakesInput(*at)) {
            first = at;
            break;
        }
        first = first != nullptr ? first : at;
    }
    if (first != nullptr) {
        first->setFocus(Qt::TabFocusReason);
    }
}

QHBoxLayout* Form::AddButtons(const QString& okname)
{
    auto* const row = new QHBoxLayout;
    QPushButton* const ok = bind_.Button(okname, tr("&OK"), [this] { accept(); });
    ok->setMinimumWidth(90);
    row->setContentsMargins(kMargin, 0, kMargin, kMargin - kGap);
    row->setSpacing(kGap);  // not that of the column
    row->addStretch(1);
    row->addWidget(ok);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);  // below what is scrolled
    buttons_ = row;
    return row;
}

void FollowFocus(QScrollArea* area)
{
    QObject::connect(qApp, &QApplication::focusChanged, area, [area](QWidget*, QWidget* now) {
        if (now != nullptr && area->isAncestorOf(now)) {
            area->ensureWidgetVisible(now, kMargin, 2 * kMargin);
        }
    });
}

QGroupBox* Group(const QString& name, const QString& title)
{
    auto* const group = new QGroupBox(title);
    group->setObjectName(name);
    return group;
}

QGroupBox* NarrowGroup(const QString& name, const QString& title)
{
    class Narrow final : public QGroupBox {
    public:
        explicit Narrow(const QString& title) : QGroupBox(title), whole_(title)
        {
            setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        }

    protected:
        void resizeEvent(QResizeEvent* event) override
        {
            QGroupBox::resizeEvent(event);
            constexpr int kEdges = 2 * (8 + 4);  // left of the title and around it
            const int room = width() - kEdges;
            const bool fits = fontMetrics().horizontalAdvance(whole_.trimmed()) <= room;
            setTitle(fits ? whole_
                          : fontMetrics().elidedText(whole_.trimmed(), Qt::ElideMiddle, room));
            setToolTip(fits ? QString() : whole_.trimmed());
        }

    private:
        QString whole_;
    };
    auto* const group = new Narrow(title);
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
