#include "ui/picture.h"

#include "render/painter.h"
#include "ui/theme.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionToolButton>
#include <QStylePainter>

#include <algorithm>

namespace kestrum {

namespace {

InkColours ColoursOf(const QPalette& palette)
{
    return IsDark(palette) ? DarkColours() : PaperColours();
}

double FittingScale(const Drawing& drawing, QSizeF room)
{
    if (drawing.width <= 0 || drawing.height <= 0) {
        return 0;
    }
    return std::min(room.width() / drawing.width, room.height() / drawing.height);
}

// The drawing in its middle; painted at the resolution of the screen, since the painter maps
// coordinates and fonts itself.
QPixmap Render(const Drawing& drawing, QSize size, double ratio, const QPalette& palette)
{
    QPixmap pixmap(QSize(std::max(1, qRound(size.width() * ratio)),
                         std::max(1, qRound(size.height() * ratio))));
    pixmap.fill(Qt::transparent);
    const double scale = FittingScale(drawing, QSizeF(pixmap.size()));
    if (scale > 0) {
        QPainter painter(&pixmap);
        const QPointF origin((pixmap.width() - drawing.width * scale) / 2,
                             (pixmap.height() - drawing.height * scale) / 2);
        Paint(painter, drawing, scale, origin, ColoursOf(palette));
    }
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

}  // namespace

Picture::Picture(const QString& name, QWidget* parent) : QWidget(parent)
{
    setObjectName(name);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(60, 40);
}

QSize Picture::sizeHint() const
{
    return {160, 100};
}

void Picture::Show(Drawing drawing)
{
    drawing_ = std::move(drawing);
    cache_ = {};
    update();
}

double Picture::Scale() const
{
    return FittingScale(drawing_, QSizeF(size()));
}

QPointF Picture::Origin() const
{
    return {(width() - drawing_.width * Scale()) / 2, (height() - drawing_.height * Scale()) / 2};
}

void Picture::paintEvent(QPaintEvent*)
{
    if (cache_.isNull() || cache_.devicePixelRatio() != devicePixelRatioF()) {
        cache_ = Render(drawing_, size(), devicePixelRatioF(), palette());
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasFocus() ? palette().color(QPalette::Highlight)
                              : palette().color(QPalette::Mid));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter.drawPixmap(0, 0, cache_);
}

void Picture::mouseMoveEvent(QMouseEvent* event)
{
    if (hovered && Scale() > 0) {
        const QPointF p = (event->position() - Origin()) / Scale();
        hovered({p.x(), p.y()});
    }
}

void Picture::mouseReleaseEvent(QMouseEvent* event)
{
    if (clicked && event->button() == Qt::LeftButton && rect().contains(event->pos())) {
        clicked();
    }
}

void Picture::leaveEvent(QEvent*)
{
    if (left) {
        left();
    }
}

void Picture::keyPressEvent(QKeyEvent* event)
{
    const bool press = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
                       event->key() == Qt::Key_Enter;
    if (clicked && press) {
        clicked();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void Picture::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange) {
        cache_ = {};
    }
    QWidget::changeEvent(event);
}

void Picture::resizeEvent(QResizeEvent* event)
{
    cache_ = {};
    QWidget::resizeEvent(event);
}

PictureButton::PictureButton(const QString& name, const QString& caption, QWidget* parent)
    : QToolButton(parent)
{
    setObjectName(name);
    setText(caption);
    setAutoRaise(true);
    setFocusPolicy(Qt::StrongFocus);
}

void PictureButton::Show(Drawing drawing)
{
    drawing_ = std::move(drawing);
    update();
}

QSize PictureButton::sizeHint() const
{
    const int line = text().isEmpty() ? 0 : fontMetrics().height() + 2;
    const int words = text().isEmpty() ? 0 : fontMetrics().horizontalAdvance(text());
    return {std::max(picture_.width(), words) + 10, picture_.height() + line + 8};
}

void PictureButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
    const int line = text().isEmpty() ? 0 : fontMetrics().height() + 2;
    const QRect room = rect().adjusted(5, 4, -5, -4 - line);
    QPalette shown = palette();
    if (!isEnabled()) {
        painter.setOpacity(0.4);
    }
    painter.drawPixmap(room.topLeft(), Render(drawing_, room.size(), devicePixelRatioF(), shown));
    painter.setOpacity(1);
    painter.drawItemText(QRect(0, height() - line - 3, width(), line), Qt::AlignCenter, shown,
                         isEnabled(), text(), QPalette::ButtonText);
}

}  // namespace kestrum
