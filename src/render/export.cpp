#include "render/export.h"

#include "core/file_io.h"
#include "render/painter.h"

#include <QBuffer>
#include <QImage>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QString>

#include <optional>

namespace kestrum {

namespace {

constexpr int kPdfResolution = 1200;  // fine enough for fonts given in whole device pixels
constexpr double kMmPerInch = 25.4;

std::string Save(const QByteArray& bytes, const std::string& path)
{
    const std::string fault =
        WriteWholeFile(path, {bytes.data(), static_cast<std::size_t>(bytes.size())});
    return fault.empty() ? fault : path + ": " + fault;
}

QPageLayout LayoutOf(const Drawing& page, double mm_per_unit)
{
    const QSizeF size(page.width * mm_per_unit, page.height * mm_per_unit);
    return QPageLayout(QPageSize(size, QPageSize::Millimeter, {}, QPageSize::FuzzyMatch),
                       QPageLayout::Portrait, QMarginsF(0, 0, 0, 0));
}

// While it lives, local time is that of Greenwich: the writer stores the time with its zone, and
// files of two zones would differ.
class UniversalTime {
public:
    UniversalTime() { qputenv("TZ", "UTC"); }
    ~UniversalTime() { own_.isNull() ? qunsetenv("TZ") : qputenv("TZ", own_); }
    UniversalTime(const UniversalTime&) = delete;
    UniversalTime& operator=(const UniversalTime&) = delete;

private:
    const QByteArray own_ = qgetenv("TZ");
};

}  // namespace

std::string WritePdf(const std::vector<Drawing>& pages, double mm_per_unit, const std::string& path,
                     const PdfExtras* extras)
{
    if (pages.empty()) {
        return path + ": there is no page to write";
    }
    if (const std::string fault = UnreadablePicture(pages); !fault.empty()) {
        return path + ": " + fault;
    }
    std::optional<UniversalTime> time;
    if (extras != nullptr && extras->reproducible) {
        time.emplace();
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(kPdfResolution);
        writer.setTitle(QString::fromStdString(pages.front().title));
        writer.setCreator(QStringLiteral("Kestrum EC3"));
        writer.setPageLayout(LayoutOf(pages.front(), mm_per_unit));
        QPainter painter(&writer);
        const double scale = kPdfResolution / kMmPerInch * mm_per_unit;
        for (std::size_t i = 0; i < pages.size(); ++i) {
            if (i > 0) {
                writer.setPageLayout(LayoutOf(pages[i], mm_per_unit));
                writer.newPage();
            }
            Paint(painter, pages[i], scale, {0, 0}, PaperColours());
        }
    }
    if (extras == nullptr) {
        return Save(buffer.data(), path);
    }
    return Save(QByteArray::fromStdString(WithExtras(buffer.data().toStdString(), *extras)), path);
}

std::string WritePng(const Drawing& drawing, double pixels_per_unit, const std::string& path)
{
    const QSize size(qRound(drawing.width * pixels_per_unit),
                     qRound(drawing.height * pixels_per_unit));
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull()) {
        return path + ": the picture has no size";
    }
    if (const std::string fault = UnreadablePicture({drawing}); !fault.empty()) {
        return path + ": " + fault;
    }
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        Paint(painter, drawing, pixels_per_unit, {0, 0}, PaperColours());
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG")) {
        return path + ": the picture could not be written as PNG";
    }
    return Save(bytes, path);
}

}  // namespace kestrum
