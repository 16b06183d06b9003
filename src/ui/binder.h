#pragma once

// Ties widgets to the project: how each shows the record, and which handler it calls. A window
// keeps one; Refresh writes the record to all of its widgets without waking their handlers.

#include "app/session.h"
#include "ui/box_edit.h"
#include "ui/picture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStringList>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

class QGridLayout;

namespace kestrum {

template <class T> using From = std::function<T(const ProjectState&)>;
template <class T> using To = std::function<void(Session&, T)>;

class Binder {
public:
    Binder(Session& session, std::string_view form) : session_(session), form_(form) {}

    Session& session() { return session_; }

    BoxEdit* Box(std::string_view id, int row = 0);
    BoxEdit* BoxOf(const kestrum::Box& box, int row = 0);

    // Label, box and unit side by side in a row of a grid; returns the box.
    BoxEdit* BoxRow(QGridLayout* grid, int row, const kestrum::Box& box, int column = 0);

    QCheckBox* Tick(const QString& name, const QString& text, From<bool> is, To<bool> set);
    QRadioButton* Option(const QString& name, const QString& text, From<bool> is,
                         std::function<void(Session&)> choose);
    // An option shown as a picture.
    PictureButton* PictureOption(const QString& name, const QString& text, Drawing drawing,
                                 From<bool> is, std::function<void(Session&)> choose);
    QComboBox* List(const QString& name, const QStringList& entries, From<int> is, To<int> choose);
    QPushButton* Button(const QString& name, const QString& text, std::function<void()> press);
    // A button with choices, such as "G", "Q1", "Q2", of which the record has one; a press goes on
    // by one, with the mouse to the one under it. `meaning` for those who do not see where it
    // stands.
    QPushButton* Rotor(const QString& name, const QString& meaning, From<QStringList> choices,
                       From<std::string> text, std::function<void(Session&, int steps)> press);

    // A text with the decimal separator of the locale; a value stands at the right and can be
    // copied.
    QLabel* Text(const QString& name, From<std::string> text);
    QLabel* Value(const QString& name, From<std::string> text);

    // Drawn from the record in hand, or from the last good pass; that one is faded while it is not
    // the file's.
    Picture* Figure(const QString& name, From<Drawing> drawing);
    Picture* ResultFigure(const QString& name, From<Drawing> drawing);

    void ShowWhen(QWidget* widget, From<bool> shown);
    void EnableWhen(QWidget* widget, From<bool> enabled);
    void Follow(std::function<void(const ProjectState&)> refresh);

    void Refresh();

    // A text of the program with the decimal separator of the locale.
    QString ForLocale(const QString& text) const;

private:
    Session& session_;
    std::string_view form_;
    std::vector<std::function<void(const ProjectState&)>> refreshers_;
};

// A button that Enter presses, too, although it is nobody's default.
class PressButton : public QPushButton {
    Q_OBJECT

public:
    using QPushButton::QPushButton;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

// All choices side by side, the one that counts set off.
class ChoiceButton final : public PressButton {
    Q_OBJECT

public:
    explicit ChoiceButton(const QString& name);

    void Show(const QStringList& choices, const QString& chosen);
    // From the one that counts to the one that was pressed.
    int steps() const { return steps_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QRect RoomOf(qsizetype choice) const;

    QStringList choices_;
    int steps_ = 1;
};

// A list that the mouse wheel changes only while it has the focus.
class ListBox final : public QComboBox {
    Q_OBJECT

public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* event) override;
};

// A faint label for units and remarks.
QLabel* FaintLabel(const QString& text);
QLabel* Caption(const QString& text, QWidget* buddy = nullptr);

}  // namespace kestrum
