#pragma once

// Ctrl+K: one line to find a section, an input, a form, a command or a chapter of the manual.

#include "app/finder.h"

#include <QDialog>

#include <functional>
#include <vector>

class QLineEdit;
class QListWidget;

namespace kestrum {

// What is found beside the inputs and sections: a command of the menus, a chapter.
struct FinderEntry {
    QString text;
    std::function<void()> run;
};

class FinderWindow final : public QDialog {
    Q_OBJECT

public:
    FinderWindow(Session& session, QWidget* parent);

    // Opens with an empty line.
    void Ask(std::vector<FinderEntry> entries);

    // Called with the box that was chosen.
    std::function<void(const Box& box, int row)> show = [](const Box&, int) {};

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Search();
    void Run();

    Session& session_;
    QLineEdit* line_;
    QListWidget* list_;
    std::vector<FinderEntry> entries_, shown_;
};

}  // namespace kestrum
