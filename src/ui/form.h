#pragma once

// A form: modeless, follows every pass, closes only when no box is refused. It stands beside the
// results in the main window (form_dock.h), or is a window of its own over it.

#include "ui/binder.h"
#include "ui/desk.h"

#include <QDialog>

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QScrollArea;
class QVBoxLayout;

namespace kestrum {

class Form : public QDialog {
    Q_OBJECT

public:
    Form(Desk& desk, std::string_view name, const QString& title, QWidget* parent);
    ~Form() override;

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

    bool refused() const { return HasRefused(*this); }

    // Part of the main window from here on, or again a window of its own over `parent`; hidden
    // until it is shown. A narrow place has one column, and no letters that the main window has.
    void SetDocked(bool docked, QWidget* parent);
    bool docked() const { return docked_; }
    int DockedWidth();

    // Folded into one column, row by row, where the form is docked.
    void Fold(QGridLayout* grid);

    // A button that brings the form beside the results; there only in a window of its own.
    void OfferDock(std::function<void()> dock);

    // As a window of its own: before it is shown first, where and as large as it was last.
    void Place();

    // The first box that can be filled in gets the focus, else the first control.
    void FocusFirst();

    // The last row, always in sight: what the form adds, then its button that closes it.
    QHBoxLayout* AddButtons(const QString& okname = QStringLiteral("ok"));

protected:
    void hideEvent(QHideEvent* event) override;

private:
    struct Folded;
    void ShowLetters(bool shown);
    void LayOut(bool docked);

    Desk& desk_;
    Binder bind_;
    QVBoxLayout* body_;
    QHBoxLayout* buttons_ = nullptr;
    QWidget* docker_ = nullptr;
    std::vector<std::unique_ptr<Folded>> folds_;
    bool docked_ = false, placed_ = false;
};

// Keeps the control with the focus in sight, whichever key or box has led there.
void FollowFocus(QScrollArea* area);

// Layouts with the common distances.
QGroupBox* Group(const QString& name, const QString& title);
// Narrower than its title, where it must be: the title then loses its middle.
QGroupBox* NarrowGroup(const QString& name, const QString& title);
QGridLayout* GridOf(QWidget* host);
QHBoxLayout* RowOf(QWidget* host);
QVBoxLayout* ColumnOf(QWidget* host);

}  // namespace kestrum
