#pragma once

// The verdict and all that it does not cover, above the diagrams: always in sight, with a sign of a
// shape of its own in front, so that no colour has to be told from another.

#include "app/view_status.h"

#include <QFrame>

class QGridLayout;
class QLabel;
class QTextBrowser;

namespace kestrum {

class StatusBanner final : public QFrame {
    Q_OBJECT

public:
    explicit StatusBanner(QWidget* parent = nullptr);

    void Show(const StatusView& view, bool decimalcomma);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ShowSigns();
    void FitHeight();
    void PlaceFacts();

    StatusKind kind_ = StatusKind::good, standardkind_ = StatusKind::good;
    QGridLayout* grid_ = nullptr;
    QLabel* sign_;
    QLabel* head_;
    QLabel* standardsign_;
    QLabel* standard_;
    QLabel* facts_;
    QTextBrowser* lines_;
};

}  // namespace kestrum
