#pragma once

// The result panel `pic_result`: the control blocks with a bar beside every ratio.

#include "report/panel.h"

#include <QWidget>

#include <optional>
#include <vector>

namespace kestrum {

struct ProjectState;

class ResultPanel final : public QWidget {
    Q_OBJECT

public:
    explicit ResultPanel(QWidget* parent = nullptr);

    void Show(const ProjectState& s, bool decimalcomma);
    // Results that are not those of the project in hand.
    void SetFaded(bool faded);

    QSize sizeHint() const override { return {560, 200}; }
    QSize minimumSizeHint() const override;

    // A widget in the lower right corner.
    void SetCorner(QWidget* corner);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<PanelBlock> blocks_;
    std::vector<std::optional<double>> utilisation_;  // a line each
    QWidget* corner_ = nullptr;
    bool faded_ = false;
};

}  // namespace kestrum
