#pragma once

// The result panel `pic_result`: the control blocks with a bar beside every ratio, and beside every
// block the bar and the ratio of EN 1993-1-1 as written. Arrow keys walk through its lines; the
// right button and the menu key copy them as text.

#include "app/view_standard.h"

#include <QWidget>

#include <functional>
#include <vector>

namespace kestrum {

struct ProjectState;

class ResultPanel final : public QWidget {
    Q_OBJECT

public:
    explicit ResultPanel(QWidget* parent = nullptr);

    void Show(const ProjectState& s, const standard::StandardResult& result, bool decimalcomma);
    // Results that are not those of the project in hand.
    void SetFaded(bool faded);

    QSize sizeHint() const override { return {560, 200}; }
    QSize minimumSizeHint() const override;

    // A widget in the lower right corner.
    void SetCorner(QWidget* corner);

    // Enter or a double click: the equations behind a row; on a head, the combinations behind the
    // ratio of the standard.
    std::function<void(ResultRow)> explained = [](ResultRow) {};
    std::function<void()> opened = [] {};
    // A row was chosen.
    std::function<void(ResultRow)> picked = [](ResultRow) {};

    // The ratio of a line; the line; all of it. Lines count through all blocks.
    enum class Part { value, line, all };
    QString TextOf(Part part) const;
    void Choose(int line);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    int LineAt(QPointF at) const;
    std::optional<ResultRow> ChosenRow() const;
    void Open();
    void Pick(int line);
    bool CornerBelow() const;

    // Layouts ask for the least size over and over, and measuring the lines takes long.
    struct Below {
        int width;
        bool below;
    };
    mutable std::optional<Below> below_;  // none since the lines have changed
    std::vector<PanelGroup> groups_;
    QWidget* corner_ = nullptr;
    int chosen_ = 0;  // line
    bool faded_ = false;
};

}  // namespace kestrum
