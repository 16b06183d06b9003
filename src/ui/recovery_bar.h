#pragma once

// Unsaved work that an earlier window has left behind, offered one after the other above the
// window: it asks nothing and waits for nobody.

#include "app/aside.h"
#include "ui/desk.h"

#include <QFrame>

#include <vector>

class QLabel;
class QPushButton;

namespace kestrum {

class RecoveryBar final : public QFrame {
    Q_OBJECT

public:
    explicit RecoveryBar(Desk& desk, QWidget* parent = nullptr);

    // There is a bar as long as there is work; what is neither restored nor discarded stays and is
    // offered at the next start.
    void Offer(std::vector<LeftWork> works);

private:
    QPushButton* AddButton(const char* name, const QString& text);
    void ShowFirst();
    void DropFirst();

    Desk& desk_;
    std::vector<LeftWork> works_;
    QLabel* text_;
};

}  // namespace kestrum
