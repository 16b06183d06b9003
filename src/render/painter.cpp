#include "render/painter.h"

#include "report/svg_writer.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>
#include <QString>

#include <algorithm>
#include <cmath>

namespace kestrum {

namespace {

constexpr double kHairline =
    1.0;  // device pixels on screen; printers get the hair of their resolution
constexpr double kScreenDpi = 96.0;

// An SVG in as many pixels as the box has on the device, within reason.
QImage ReadPicture(const PlacedPicture& picture, const QSizeF& box)
{
    constexpr double kMost = 2400;  // pixels
    QByteArray bytes = QByteArray::fromStdString(*picture.bytes);
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, picture.svg ? "svg" : "png");
    if (picture.svg) {
        const QSizeF most(std::min(box.width(), kMost), std::min(box.height(), kMost));
        const QSize own = reader.size();
        reader.setScaledSize(QSizeF(own.isEmpty() ? QSize(1, 1) : own)
                                 .scaled(most, Qt::KeepAspectRatio)
                                 .toSize()
                                 .expandedTo(QSize(1, 1)));
    }
    return reader.read();
}

class MarkPainter {
public:
    MarkPainter(QPainter& painter, double scale, QPointF origin, const InkColours& colours)
        : painter_(painter), scale_(scale), origin_(origin), colours_(colours),
          hairline_(std::max(kHairline, painter.device()->logicalDpiX() / kScreenDpi / 2.0))
    {
    }

    void operator()(const LineMark& line) const
    {
        QPen pen = Pen(line.ink, line.width);
        if (line.dashed) {
            pen.setStyle(Qt::DashLine);
        }
        painter_.setPen(pen);
        painter_.drawLine(Map(line.from), Map(line.to));
    }

    void operator()(const PolygonMark& polygon) const
    {
        QPainterPath path;
        path.setFillRule(Qt::OddEvenFill);
        for (const auto& ring : polygon.rings) {
            AddRing(path, ring);
            path.closeSubpath();
        }
        painter_.setPen(Pen(polygon.outline, polygon.width));
        painter_.setBrush(polygon.filled ? QBrush(colours_(polygon.fill)) : QBrush(Qt::NoBrush));
        painter_.drawPath(path);
    }

    void operator()(const PolylineMark& line) const
    {
        QPainterPath path;
        AddRing(path, line.points);
        painter_.setPen(Pen(line.ink, line.width));
        painter_.setBrush(Qt::NoBrush);
        painter_.drawPath(path);
    }

    void operator()(const CircleMark& circle) const
    {
        painter_.setPen(Pen(circle.ink, circle.width));
        painter_.setBrush(circle.filled ? QBrush(colours_(circle.ink)) : QBrush(Qt::NoBrush));
        painter_.drawEllipse(Map(circle.centre), circle.radius * scale_, circle.radius * scale_);
    }

    void operator()(const TextMark& text) const
    {
        QFont font(QStringLiteral("Liberation Sans"));
        font.setStyleHint(QFont::SansSerif);
        font.setHintingPreference(QFont::PreferNoHinting);
        font.setPixelSize(std::max(1, static_cast<int>(std::lround(text.size * scale_))));
        font.setBold(text.bold);
        font.setItalic(text.italic);
        font.setUnderline(text.underline);
        const QString shown = QString::fromStdString(text.text);
        KeepWidth(font, shown, TextWidth(text.text, text.size, text.bold) * scale_);
        const double width = QFontMetricsF(font, painter_.device()).horizontalAdvance(shown);
        const double shift = text.align == Align::left     ? 0.0
                             : text.align == Align::centre ? -width / 2.0
                                                           : -width;
        painter_.setFont(font);
        painter_.setPen(colours_(text.ink));
        if (text.angle == 0) {
            painter_.drawText(Map(text.at) + QPointF(shift, 0), shown);
            return;
        }
        painter_.save();
        painter_.translate(Map(text.at));
        painter_.rotate(-text.angle);
        painter_.drawText(QPointF(shift, 0), shown);
        painter_.restore();
    }

    void Picture(const PlacedPicture& picture) const
    {
        const QSizeF box(picture.width * scale_, picture.height * scale_);
        const QImage image = ReadPicture(picture, box);
        if (image.isNull()) {
            return;  // UnreadablePicture says so before
        }
        const QSizeF size = QSizeF(image.size()).scaled(box, Qt::KeepAspectRatio);
        const QPointF corner = Map(picture.corner) + QPointF((box.width() - size.width()) / 2,
                                                             (box.height() - size.height()) / 2);
        painter_.setRenderHint(QPainter::SmoothPixmapTransform);
        painter_.drawImage(QRectF(corner, size), image);
    }

private:
    QPointF Map(Point p) const { return origin_ + QPointF(p.x * scale_, p.y * scale_); }

    // Fonts come in whole pixels; spacing gives the text the width that it was laid out with. What
    // a character missing in the font adds is left alone. Absolute spacing would depend on the
    // resolution of the device.
    void KeepWidth(QFont& font, const QString& shown, double width) const
    {
        constexpr double kLeast = 94, kMost = 106;  // percent
        const double advance = QFontMetricsF(font, painter_.device()).horizontalAdvance(shown);
        if (advance > 0) {
            font.setLetterSpacing(QFont::PercentageSpacing,
                                  std::clamp(100 * width / advance, kLeast, kMost));
        }
    }

    void AddRing(QPainterPath& path, const std::vector<Point>& points) const
    {
        for (std::size_t i = 0; i < points.size(); ++i) {
            i == 0 ? path.moveTo(Map(points[i])) : path.lineTo(Map(points[i]));
        }
    }

    QPen Pen(Ink ink, double width) const
    {
        QPen pen(colours_(ink), std::max(width * scale_, hairline_));
        pen.setCapStyle(Qt::FlatCap);
        pen.setJoinStyle(Qt::MiterJoin);
        return pen;
    }

    QPainter& painter_;
    double scale_;
    QPointF origin_;
    const InkColours& colours_;
    double hairline_;
};

}  // namespace

InkColours PaperColours()
{
    return [](Ink ink) {
        const std::string_view name = PaperColour(ink);
        return QColor(QLatin1String(name.data(), static_cast<qsizetype>(name.size())));
    };
}

InkColours DarkColours()
{
    return [](Ink ink) {
        switch (ink) {
        case Ink::text:
            return QColor(0xe8, 0xec, 0xf0);
        case Ink::member:
            return QColor(0xd2, 0xd9, 0xe0);
        case Ink::load:
            return QColor(0x7d, 0xb7, 0xff);
        case Ink::moment:
            return QColor(0xff, 0x8a, 0x80);
        case Ink::good:
            return QColor(0x5f, 0xd0, 0x7a);
        case Ink::bad:
            return QColor(0xff, 0x6b, 0x6b);
        case Ink::faint:
            return QColor(0x8a, 0x96, 0xa3);
        case Ink::steel:
            return QColor(0x4a, 0x56, 0x63);
        case Ink::shade:
            return QColor(0x2b, 0x32, 0x3a);
        case Ink::paper:
            return QColor(0x1c, 0x21, 0x27);
        }
        return QColor(Qt::white);
    };
}

std::string UnreadablePicture(const std::vector<Drawing>& pages)
{
    constexpr double kTrial = 64;  // pixels
    for (const Drawing& page : pages) {
        for (const PlacedPicture& picture : page.pictures) {
            if (ReadPicture(picture, {kTrial, kTrial}).isNull()) {
                const bool none =
                    picture.svg && !QImageReader::supportedImageFormats().contains("svg");
                return none ? "the logo is an SVG, which needs the SVG plugin of Qt 6"
                            : "the logo is no picture that can be read";
            }
        }
    }
    return {};
}

void Paint(QPainter& painter, const Drawing& drawing, double scale, QPointF origin,
           const InkColours& colours)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    const MarkPainter mark_painter(painter, scale, origin, colours);
    for (const Mark& mark : drawing.marks) {
        std::visit(mark_painter, mark);
    }
    for (const PlacedPicture& picture : drawing.pictures) {
        mark_painter.Picture(picture);
    }
}

}  // namespace kestrum
