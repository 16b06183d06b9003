#pragma once

// A drawing in a window, as large as fits or laid out for the room that there is, in the colours of
// the palette; a button with a drawing.

#include "render/painter.h"
#include "report/drawing.h"
#include "report/pane_diagrams.h"

#include <QPixmap>
#include <QToolButton>
#include <QWidget>

#include <functional>
#include <optional>

namespace kestrum {

// What is drawn has the colours of the palette around it.
InkColours ColoursOf(const QPalette& palette);

class Picture final : public QWidget {
    Q_OBJECT

public:
    explicit Picture(const QString& name, QWidget* parent = nullptr);

    void Show(Drawing drawing);

    // A drawing along the member that is laid out for the room, in every size with texts of the
    // size of kDiagramText.
    void ShowPane(std::function<Drawing(PaneRoom room)> lay);

    // A drawing of results that are not those of the project in hand.
    void SetFaded(bool faded);

    // A line across a pane at x with words at its foot; none without a value. Places on the member
    // are told in the units of report/member_drawing whatever its length in the pane.
    void SetReading(std::optional<double> x, const QString& words = {});

    // What the right mouse button and the menu key open, for the drawing in sight.
    std::function<void(const Drawing& drawing, QPoint at)> menu;

    // Point under the mouse in units of the drawing, x as for the reading.
    std::function<void(Point)> hovered;
    std::function<void()> left;
    std::function<void()> clicked;
    // Left and right arrow, the wheel: by how many steps.
    std::function<void(int)> stepped;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // How the drawing lies in the widget: pixels per unit.
    struct Fit {
        double scale = 0;
        QPointF origin;
    };
    void LayOut();
    void RenderCache();
    void PaintWords(QPainter& painter, double x) const;
    Fit FitInto(QSizeF room) const;

    Drawing drawing_;
    std::function<Drawing(PaneRoom)> lay_;
    MemberSpan span_;  // of the pane as it is laid out
    QPixmap cache_;
    bool faded_ = false;
    std::optional<double> reading_;
    QString words_;  // at the foot of the reading
};

class PictureButton final : public QToolButton {
    Q_OBJECT

public:
    PictureButton(const QString& name, const QString& caption, QWidget* parent = nullptr);

    void Show(Drawing drawing);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    void SetPictureSize(QSize size) { picture_ = size; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Drawing drawing_;
    QSize picture_{44, 36};
};

}  // namespace kestrum
