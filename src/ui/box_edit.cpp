#include "ui/box_edit.h"

#include "app/box_help.h"
#include "app/locale_text.h"
#include "app/view_member.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QApplication>
#include <QDialog>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>

namespace kestrum {

namespace {

constexpr QRgb kFocusGreen = 65280;  // pure green

// Black on green, what is selected white on dark green; in a dark window the other way round, which
// does not dazzle.
QPalette FocusPalette(QPalette palette)
{
    const QColor deep(0x0b, 0x4f, 0x1b);
    const bool dark = IsDark(palette);
    palette.setColor(QPalette::Base, dark ? deep : QColor::fromRgb(kFocusGreen));
    palette.setColor(QPalette::Text, dark ? Qt::white : Qt::black);
    palette.setColor(QPalette::Highlight, dark ? QColor(0x6f, 0xe0, 0x8a) : deep);
    palette.setColor(QPalette::HighlightedText, dark ? Qt::black : Qt::white);
    return palette;
}

// The form that holds a box, docked or not, or the main window.
const QWidget* FormOf(const QWidget& box)
{
    const QWidget* at = &box;
    while (!at->isWindow() && qobject_cast<const QDialog*>(at) == nullptr) {
        at = at->parentWidget();
    }
    return at;
}

QString NameOf(const Box& box, int row)
{
    const QString name = ToQt(box.id);
    return row == 0 ? name : name + QLatin1Char('_') + QString::number(row);
}

}  // namespace

BoxEdit::BoxEdit(Session& session, const Box& box, int row, QWidget* parent)
    : QLineEdit(parent), session_(session), box_(box), row_(row)
{
    setObjectName(NameOf(box, row));
    setAlignment(Qt::AlignRight);
    setToolTip(ToQt(ForLocale(TooltipOf(box), session.decimalcomma())));
    QString name = ToQt(AccessibleNameOf(box));
    if (row > 0) {
        name += QLatin1Char(' ') + QString::number(row);
    }
    setAccessibleName(name);
    ShowValue();
}

void BoxEdit::Refresh()
{
    if (!isModified() && !leaving_) {
        ShowValue();
    }
}

QString BoxEdit::ValueText() const
{
    return ToQt(ForLocale(BoxText(session_.state(), box_, row_), session_.decimalcomma()));
}

void BoxEdit::ShowValue()
{
    const QString shown = ValueText();
    if (refused_ && !leaving_ && shown == unread_) {
        return;
    }
    if (text() != shown || isUndoAvailable()) {  // the undo of the box ends with its text
        const bool selected = hasFocus();
        setText(shown);
        refused_ = refused_ && leaving_;
        if (selected) {
            selectAll();
        }
    }
    setModified(false);
}

bool BoxEdit::Leave()
{
    if (leaving_) {
        return !refused_;
    }
    const bool untouched = !isModified() && !refused_;
    if (isReadOnly() || (untouched && !ControlledUntouched(box_))) {
        return true;
    }
    leaving_ = true;
    const BoxOutcome outcome = session_.CommitBox(box_, row_, FromQt(text()));
    refused_ = !outcome.taken;
    unread_.clear();
    if (outcome.message == kMismatch) {
        unread_ = ValueText();
    } else {
        ShowValue();
    }
    setModified(false);
    leaving_ = false;
    if (refused_) {
        TakeFocus();
    }
    update();
    return !refused_;
}

void BoxEdit::TakeBack()
{
    refused_ = false;
    unread_.clear();
    session_.TakeBack(box_, row_);
    setText(ValueText());  // which is no typing
    selectAll();
    update();
}

// Queued: the focus is still on its way to where the user wanted to go. Once more behind a message,
// for the window that gets the focus then may be another one.
void BoxEdit::TakeFocus()
{
    QTimer::singleShot(0, this, [this] {
        if (!isVisible()) {
            return;
        }
        if (auto* const message = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            connect(message, &QDialog::finished, this, &BoxEdit::TakeFocus);
        } else {
            window()->activateWindow();
        }
        setFocus(Qt::OtherFocusReason);
        selectAll();
    });
}

void BoxEdit::ShowFocus()
{
    setPalette(FocusPalette(QApplication::palette(this)));
}

void BoxEdit::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    ShowFocus();
    if (event->reason() == Qt::MouseFocusReason) {
        QTimer::singleShot(0, this, &QLineEdit::selectAll);  // after the press has set the cursor
    } else if (event->reason() != Qt::ActiveWindowFocusReason || !isModified()) {
        selectAll();
    }
}

void BoxEdit::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    const bool stays =
        event->reason() == Qt::PopupFocusReason || event->reason() == Qt::MenuBarFocusReason;
    // A message box, or another program, has come to the front.
    const bool covered =
        event->reason() == Qt::ActiveWindowFocusReason &&
        (QApplication::activeModalWidget() != nullptr || QApplication::activeWindow() == nullptr);
    if (!stays && !covered) {
        Leave();
    }
    if (!stays) {
        setPalette(QPalette());
    }
}

void BoxEdit::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        QWidget* const target = next ? next() : NextBox();
        if (target == nullptr || target == this) {
            Leave();
            selectAll();
        } else {
            target->setFocus(Qt::TabFocusReason);
        }
        return;
    }
    if (event->key() == Qt::Key_Escape && (isModified() || refused_)) {
        TakeBack();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void BoxEdit::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    if (refused_) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(0xd9, 0x2d, 0x20), 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 2, 2);
    }
}

QWidget* BoxEdit::NextBox() const
{
    for (QWidget* at = nextInFocusChain(); at != this && at != nullptr;
         at = at->nextInFocusChain()) {
        const auto* const edit = qobject_cast<BoxEdit*>(at);
        if (edit != nullptr && FormOf(*edit) == FormOf(*this) && edit->isVisible() &&
            edit->isEnabled() && !edit->isReadOnly()) {
            return at;
        }
    }
    return nullptr;
}

BoxEdit* BoxWithFocus()
{
    return qobject_cast<BoxEdit*>(QApplication::focusWidget());
}

bool HasRefused(const QWidget& host)
{
    const auto boxes = host.findChildren<BoxEdit*>();
    return std::any_of(boxes.begin(), boxes.end(),
                       [](const BoxEdit* box) { return box->refused() && box->isVisible(); });
}

}  // namespace kestrum
