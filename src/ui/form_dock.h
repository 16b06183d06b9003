#pragma once

// The place beside the results where forms stand while the diagrams are in sight: one tab for each,
// one of them shown. And which form stands there: the choice of the user, kept in the settings.

#include "ui/form.h"

#include <QFrame>
#include <QPointer>

#include <functional>
#include <vector>

class QSettings;
class QTabBar;
class QVBoxLayout;

namespace kestrum {

class FormDock final : public QFrame {
    Q_OBJECT

public:
    explicit FormDock(QSettings& settings, QWidget* parent = nullptr);

    // Whether the user wants this form here: one by one, else all of them.
    bool Wants(const Form& form) const;
    void Want(const Form& form, bool docked);
    bool WantsAll() const;
    void WantAll(bool docked);

    // Width that the form would take here.
    int WidthFor(Form& form) const;

    // Takes the form in and shows it, unless the one in sight holds a refused value: that stays in
    // front.
    void Take(Form* form);

    bool Holds(const Form* form) const;

    // Forms that do not belong to the project any more leave; all of them.
    void DropForeign();
    void Clear();

    // The user wants the form as a window of its own.
    std::function<void(Form*)> freed = [](Form*) {};

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Form* Current() const;
    void ShowTab(int index);
    void Drop(Form* form);

    QSettings& settings_;
    QTabBar* tabs_;
    QVBoxLayout* column_;
    std::vector<Form*> forms_;  // one for each tab
    int shown_ = -1;
    bool switching_ = false;
    QPointer<QWidget> back_;  // had the focus before the first form came
};

}  // namespace kestrum
