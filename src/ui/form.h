#pragma once

// A form over the main window: modeless, follows every pass, closes only when no box is refused.

#include "ui/binder.h"
#include "ui/desk.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <string_view>

class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QVBoxLayout;

namespace kestrum {

class Form : public QDialog {
    Q_OBJECT

public:
    Form(Desk& desk, std::string_view name, const QString& title, QWidget* parent);

    Desk& desk() { return desk_; }
    Session& session() { return desk_.session; }
    Binder& bind() { return bind_; }
    QVBoxLayout* body() { return body_; }

    // Shows the project; a form that does not belong to it any more closes.
    void Refresh();

    // Whether the form has something to tell about this project.
    std::function<bool(const ProjectState&)> belongs = [](const ProjectState&) { return true; };

    // Asked before the form closes.
    std::function<bool()> mayclose = [] { return true; };

    // Closing it runs a pass: a form of inputs does, one that only shows does not.
    bool recalculates = false;

    void done(int result) override;

    // The last row, always in sight: what the form adds, then its button that closes it.
    QHBoxLayout* AddButtons(const QString& okname = QStringLiteral("ok"));

protected:
    void hideEvent(QHideEvent* event) override;

private:
    Desk& desk_;
    Binder bind_;
    QVBoxLayout* body_;
};

// Layouts with the common distances.
QGroupBox* Group(const QString& name, const QString& title);
QGridLayout* GridOf(QWidget* host);
QHBoxLayout* RowOf(QWidget* host);
QVBoxLayout* ColumnOf(QWidget* host);

}  // namespace kestrum
