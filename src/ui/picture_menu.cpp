#include "ui/picture_menu.h"

#include "core/file_io.h"
#include "render/export.h"
#include "render/painter.h"
#include "report/svg_writer.h"
#include "ui/qt_surroundings.h"
#include "ui/text.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

namespace kestrum {

namespace {

constexpr double kSvgScale = 6;         // pixels per unit on screen
constexpr double kPictureWidth = 1600;  // pixels

double PixelsPerUnit(const Drawing& drawing)
{
    return drawing.width > 0 ? kPictureWidth / drawing.width : 1;
}

void Save(const Drawing& drawing, const std::string& name, Session& session, QWidget* parent)
{
    const auto path = AskForFile(
        parent, {QObject::tr("Save picture"), QObject::tr("SVG (*.svg);;PNG (*.png)"), "svg"},
        session.curdir, name + ".svg");
    if (!path) {
        return;
    }
    const std::string fault = path->ends_with(".png")
                                  ? WritePng(drawing, PixelsPerUnit(drawing), *path)
                                  : WriteWholeFile(*path, WriteSvg(drawing, kSvgScale));
    if (!fault.empty()) {
        session.surroundings().Warn(fault);
    }
}

}  // namespace

std::unique_ptr<QMimeData> CopyAsPicture(const Drawing& drawing)
{
    const double scale = PixelsPerUnit(drawing);
    QImage image(QSize(qRound(drawing.width * scale), qRound(drawing.height * scale)),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    Paint(painter, drawing, scale, {0, 0}, PaperColours());
    painter.end();
    auto data = std::make_unique<QMimeData>();
    data->setImageData(image);
    return data;
}

std::unique_ptr<QMimeData> CopyAsSvg(const Drawing& drawing)
{
    const QByteArray document = QByteArray::fromStdString(WriteSvg(drawing, kSvgScale));
    auto data = std::make_unique<QMimeData>();
    data->setData(QStringLiteral("image/svg+xml"), document);
    data->setText(QString::fromUtf8(document));
    return data;
}

void PictureMenu(const Drawing& drawing, const std::string& name, Session& session, QWidget* parent,
                 QPoint at, const std::string& text)
{
    QMenu menu(parent);
    menu.setObjectName(QStringLiteral("picturemenu"));
    const QAction* const picture = menu.addAction(QObject::tr("&Copy picture"));
    const QAction* const svg = menu.addAction(QObject::tr("Copy as &SVG"));
    QAction* const words = menu.addAction(QObject::tr("Copy as &text"));
    words->setVisible(!text.empty());
    const QAction* const save = menu.addAction(QObject::tr("Sa&ve picture..."));
    const Drawing copied = drawing;  // a pass may bring another one meanwhile
    const QAction* const chosen = menu.exec(at);
    if (chosen == picture) {
        QApplication::clipboard()->setMimeData(CopyAsPicture(copied).release());
    } else if (chosen == svg) {
        QApplication::clipboard()->setMimeData(CopyAsSvg(copied).release());
    } else if (chosen == words) {
        QApplication::clipboard()->setText(ToQt(text));
    } else if (chosen == save) {
        Save(copied, name, session, parent);
    }
}

}  // namespace kestrum
