#include "ui/picture.h"

#include "ui/theme.h"

#include <QContextMenuEvent>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QWheelEvent>

#include <algorithm>
#include <vector>

namespace kestrum {

namespace {

constexpr double kInset = 2;  // pixels between the frame of a picture and its drawing

double FittingScale(const Drawing& drawing, QSizeF room)
{
    if (drawing.width <= 0 || drawing.height <= 0) {
        return 0;
    }
    return std::min(room.width() / drawing.width, room.height() / drawing.height);
}

constexpr double kHalfHeight = 0.36;  // of the capitals, font sizes above the base line

// Texts of at least this size, by a factor of `most` at the most.
Drawing WithTexts(Drawing drawing, double scale, double smallest, double most)
{
    constexpr double kEdge = 0.8;
    for (Mark& mark : drawing.marks) {
        if (auto* const text = std::get_if<TextMark>(&mark)) {
            const double factor = smallest / std::max(1e-6, text->size * scale);
            const double grown = text->size * std::clamp(factor, 1.0, most);
            text->at.y += (grown - text->size) * kHalfHeight;
            text->size = grown;
            const Bounds box = BoundsOf(*text);
            const double room = drawing.width - kEdge;
            text->at.x += std::max(0.0, kEdge - box.left) - std::max(0.0, box.right - room);
        }
    }
    return drawing;
}

bool Touches(const LineMark& line, const Bounds& box)
{
    double from = 0, to = 1;  // part of the line within the box
    const auto cut = [&](double start, double way, double least, double most) {
        if (way == 0) {
            from = start < least || start > most ? 2 : from;
            return;
        }
        const double a = (least - start) / way, b = (most - start) / way;
        from = std::max(from, std::min(a, b));
        to = std::min(to, std::max(a, b));
    };
    cut(line.from.x, line.to.x - line.from.x, box.left, box.right);
    cut(line.from.y, line.to.y - line.from.y, box.top, box.bottom);
    return from < to;
}

// Where a line would strike the text out; one below or above the letters may come closer.
Bounds MiddleOf(const TextMark& text)
{
    constexpr double kBand = 0.2;  // font sizes above and below
    Bounds box = BoundsOf(text);
    const double middle = text.at.y - kHalfHeight * text.size;
    box.top = middle - kBand * text.size;
    box.bottom = middle + kBand * text.size;
    return box;
}

// Of each other, and of the lines that they kept clear of before they grew.
bool TextsAreClear(const Drawing& drawing, const Drawing& before)
{
    std::vector<Bounds> boxes;
    for (std::size_t i = 0; i < drawing.marks.size(); ++i) {
        const auto* const text = std::get_if<TextMark>(&drawing.marks[i]);
        if (text == nullptr) {
            continue;
        }
        const Bounds box = BoundsOf(*text);
        const Bounds middle = MiddleOf(*text);
        const Bounds was = MiddleOf(std::get<TextMark>(before.marks[i]));
        const auto meets = [&](const Bounds& other) { return box.Overlaps(other); };
        const auto crosses = [&](const Mark& mark) {
            const auto* const line = std::get_if<LineMark>(&mark);
            return line != nullptr && Touches(*line, middle) && !Touches(*line, was);
        };
        if (box.top < 0 || box.bottom > drawing.height ||
            std::any_of(boxes.begin(), boxes.end(), meets) ||
            std::any_of(drawing.marks.begin(), drawing.marks.end(), crosses)) {
            return false;
        }
        boxes.push_back(box);
    }
    return true;
}

// Small texts grow towards a size that can be read, as far as they keep clear of each other.
Drawing EnlargeTexts(const Drawing& drawing, double scale, double smallest)
{
    for (const double most : {2.0, 1.85, 1.7, 1.6, 1.5, 1.4}) {
        Drawing grown = WithTexts(drawing, scale, smallest, most);
        if (TextsAreClear(grown, drawing)) {
            return grown;
        }
    }
    constexpr double kAlways = 1.3;
    return WithTexts(drawing, scale, smallest, kAlways);
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

InkColours ColoursOf(const QPalette& palette)
{
    return IsDark(palette) ? DarkColours() : PaperColours();
}

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

void Picture::ShowPane(std::function<Drawing(PaneRoom)> lay)
{
    lay_ = std::move(lay);
    cache_ = {};
    update();
}

// What needs more than there is, such as many loads above each other, is drawn smaller.
void Picture::LayOut()
{
    const double unit = kDiagramText * SystemFontSize() / kLabelSize;
    PaneRoom room{(width() - 2 * kInset) / unit, (height() - 2 * kInset) / unit};
    span_ = room.Span();
    drawing_ = lay_(room);
    const double over = std::max(drawing_.width / room.width, drawing_.height / room.height);
    if (over > 1) {
        room = {room.width * over, room.height * over};
        span_ = room.Span();
        drawing_ = lay_(room);
    }
}

// Clear of the frame: letters may be wider than the drawing takes them for.
Picture::Fit Picture::FitInto(QSizeF room) const
{
    const double inset = 2 * kInset * room.width() / std::max(1, width());
    Fit fit;
    fit.scale = FittingScale(drawing_, room - QSizeF(inset, inset));
    fit.origin = QPointF((room.width() - drawing_.width * fit.scale) / 2,
                         (room.height() - drawing_.height * fit.scale) / 2);
    return fit;
}

void Picture::RenderCache()
{
    const double ratio = devicePixelRatioF();
    const QSizeF room = QSizeF(size()) * ratio;
    if (lay_) {
        LayOut();
    }
    const Fit fit = FitInto(room);
    cache_ = QPixmap(room.toSize().expandedTo({1, 1}));
    cache_.fill(Qt::transparent);
    if (fit.scale > 0) {
        const double smallest = kFigureText * SystemFontSize() * ratio;
        QPainter painter(&cache_);
        Paint(painter, lay_ ? drawing_ : EnlargeTexts(drawing_, fit.scale, smallest), fit.scale,
              fit.origin, ColoursOf(palette()));
    }
    cache_.setDevicePixelRatio(ratio);
}

void Picture::paintEvent(QPaintEvent*)
{
    if (cache_.isNull() || cache_.devicePixelRatio() != devicePixelRatioF()) {
        RenderCache();
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasFocus() ? palette().color(QPalette::Highlight)
                              : palette().color(QPalette::Mid));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter.setOpacity(faded_ ? kFaded : 1);
    painter.drawPixmap(0, 0, cache_);
    const Fit fit = FitInto(QSizeF(size()));
    if (reading_ && fit.scale > 0) {
        const double part = (*reading_ - kMemberStart) / kMemberWidth;
        const double x = fit.origin.x() + span_.At(part) * fit.scale;
        painter.setOpacity(1);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DashLine));
        painter.drawLine(QPointF(x, 2), QPointF(x, height() - 2));
        PaintWords(painter, x);
    }
}

// Beside the line, over whatever is drawn there.
void Picture::PaintWords(QPainter& painter, double x) const
{
    if (words_.isEmpty()) {
        return;
    }
    constexpr int kBeside = 4, kAround = 2;
    const QSize size = painter.fontMetrics().size(Qt::TextSingleLine, words_);
    const bool right = x + kBeside + size.width() + kAround < width();
    const QRectF box(right ? x + kBeside : x - kBeside - size.width(),
                     height() - size.height() - kBeside, size.width(), size.height());
    painter.fillRect(box.adjusted(-kAround, 0, kAround, 0), palette().color(QPalette::Base));
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(box, Qt::AlignCenter, words_);
}

void Picture::SetReading(std::optional<double> x, const QString& words)
{
    if (reading_ != x || words_ != words) {
        reading_ = x;
        words_ = words;
        update();
    }
}

void Picture::SetFaded(bool faded)
{
    faded_ = faded;
    update();
}

void Picture::mouseMoveEvent(QMouseEvent* event)
{
    const Fit fit = FitInto(QSizeF(size()));
    if (hovered && fit.scale > 0) {
        const QPointF p = (event->position() - fit.origin) / fit.scale;
        const double part = (p.x() - kMemberStart) / span_.length;
        hovered({kMemberStart + part * kMemberWidth, p.y()});
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
    const int steps = event->key() == Qt::Key_Right ? 1 : event->key() == Qt::Key_Left ? -1 : 0;
    if (clicked && press) {
        clicked();
    } else if (stepped && steps != 0) {
        stepped(steps);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void Picture::wheelEvent(QWheelEvent* event)
{
    const int turned = event->angleDelta().y();
    if (stepped && turned != 0) {
        stepped(turned < 0 ? 1 : -1);
    } else {
        event->ignore();
    }
}

void Picture::contextMenuEvent(QContextMenuEvent* event)
{
    if (menu) {
        menu(drawing_, event->globalPos());
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

// As large as a picture that is chosen by needs to be; somewhat larger beside large letters.
QSize PictureButton::sizeHint() const
{
    constexpr double kUsualLetters = 16, kMost = 1.35;
    const QSize picture = picture_ * std::clamp(SystemFontSize() / kUsualLetters, 1.0, kMost);
    const int line = text().isEmpty() ? 0 : fontMetrics().height() + 2;
    const int words = text().isEmpty() ? 0 : fontMetrics().horizontalAdvance(text());
    return {std::max(picture.width(), words) + 10, picture.height() + line + 8};
}

void PictureButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QToolButton::keyPressEvent(event);
    }
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
