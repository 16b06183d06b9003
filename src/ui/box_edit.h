#pragma once

// A numeric input box of the program's table. Green while it has the focus, its text selected;
// Enter goes to the next box; leaving it stores the value. A refused value keeps the focus. Escape
// takes back what was typed and brings back the last good value.

#include "app/session.h"

#include <QLineEdit>

#include <functional>

namespace kestrum {

class BoxEdit final : public QLineEdit {
    Q_OBJECT

public:
    // `row` counts the rows of an array from 1. The object is named as the box, rows with their
    // number: "il", "inn_2".
    BoxEdit(Session& session, const Box& box, int row, QWidget* parent = nullptr);

    const Box& box() const { return box_; }

    // Shows the value of the record, unless the user is typing.
    void Refresh();

    // What leaving the box does; false when the value was refused. The focus then comes back.
    bool Leave();

    // Leave() if the user has typed something.
    bool Finish() { return !isModified() || Leave(); }

    bool refused() const { return refused_; }

    // The last good value, in place of what was typed or refused.
    void TakeBack();

    // Brings the focus here, also out of another window or from behind a message.
    void TakeFocus();

    // The colour of the focus, after a change of all colours.
    void ShowFocus();

    // Where Enter goes; the next box of the window when not set.
    std::function<QWidget*()> next;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString ValueText() const;
    void ShowValue();
    QWidget* NextBox() const;

    Session& session_;
    const Box& box_;
    int row_;
    bool refused_ = false;
    QString unread_;  // value behind a text that is no number and stays to be corrected
    bool leaving_ = false;
};

// The box that the user is typing in, or null.
BoxEdit* BoxWithFocus();

// A box that is in sight in there holds a value that was refused.
bool HasRefused(const QWidget& host);

}  // namespace kestrum
