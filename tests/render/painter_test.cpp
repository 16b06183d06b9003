#include "render/export.h"
#include "render/painter.h"

#include <QDir>
#include <QFile>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestrum {
namespace {

Drawing Sample()
{
    Drawing page{210, 297, "Sample page", {}};
    page.marks.push_back(LineMark{{10, 10}, {200, 10}, Ink::text, 0.4});
    page.marks.push_back(PolygonMark{
        {{{20, 20}, {60, 20}, {60, 60}, {20, 60}}, {{30, 30}, {50, 30}, {50, 50}, {30, 50}}}});
    page.marks.push_back(CircleMark{{100, 100}, 10, Ink::load, 0.3});
    page.marks.push_back(TextMark{{20, 100}, "IR = 0.85 < 1.0", 5});
    return page;
}

// The committed width table places the text, the painter draws it: they must agree.
TEST(TextWidthTable, AgreesWithThePaintersFont)
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(2048);
    for (const bool bold : {false, true}) {
        font.setBold(bold);
        ASSERT_EQ(QFontInfo(font).family(), QStringLiteral("Liberation Sans"))
            << "package fonts-liberation2 is missing";
        const QFontMetricsF metrics(font);
        for (const char c : std::string("ABCXYZabcxyz0123456789.,/()[]+-*=<>^% :;")) {
            const double painted = metrics.horizontalAdvance(QChar::fromLatin1(c));
            EXPECT_NEAR(TextWidth(std::string(1, c), 2048, bold), painted, 2.0)
                << c << " bold " << bold;
        }
    }
}

TEST(Paint, FillsAPolygonWithAHoleByTheEvenOddRule)
{
    QImage image(210, 297, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        Paint(painter, Sample(), 1.0, {0, 0}, PaperColours());
    }
    EXPECT_NE(image.pixelColor(25, 40), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(40, 40), QColor(Qt::white));
}

// 2.8 mm at 150 dots per inch are 16.5 pixels: a line of text keeps the width that it was laid out
// with, at every resolution.
TEST(Paint, KeepsTheWidthOfATextAtAnyResolution)
{
    const TextMark text{.at = {2, 5}, .text = std::string(90, 'H'), .size = 2.8};
    Drawing line{210, 10, "", {text}};
    for (const double scale : {96 / 25.4, 150 / 25.4, 5.5, 7.3, 1200 / 25.4}) {
        QImage image(qRound(line.width * scale), qRound(line.height * scale), QImage::Format_RGB32);
        image.setDotsPerMeterX(qRound(scale * 1000));  // as a printer of that resolution
        image.setDotsPerMeterY(qRound(scale * 1000));
        image.fill(Qt::white);
        {
            QPainter painter(&image);
            Paint(painter, line, scale, {0, 0}, PaperColours());
        }
        const int y = qRound((text.at.y - 1) * scale);
        int last = 0;
        for (int x = 0; x < image.width(); ++x) {
            last = qGray(image.pixel(x, y)) < 128 ? x : last;
        }
        const double end = BoundsOf(text).right * scale;
        EXPECT_NEAR(last, end, 0.004 * end) << scale;
    }
}

TEST(WritePdf, WritesOnePageADrawingWithTitleAndCreator)
{
    const QTemporaryDir folder;
    const std::string path = folder.filePath(QStringLiteral("x.pdf")).toStdString();
    EXPECT_EQ(WritePdf({Sample(), Sample()}, 1.0, path), "");
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_TRUE(bytes.startsWith("%PDF-"));
    EXPECT_TRUE(bytes.contains("/Count 2"));
}

QByteArray PdfOf(const PdfExtras& extras)
{
    const QTemporaryDir folder;
    const std::string path = folder.filePath(QStringLiteral("x.pdf")).toStdString();
    EXPECT_EQ(WritePdf({Sample(), Sample()}, 1.0, path, &extras), "");
    QFile file(QString::fromStdString(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

// PDF 1.4, 3.4.5: the appended part points at objects by their places in the file.
TEST(WritePdf, AppendsBookmarksLinksAndTheAuthor)
{
    PdfExtras extras;
    extras.marks = {{0, "First", 0, 20}, {1, "Second \u03c7", 1, 50}};
    extras.links = {{0, 20, 30, 60, 35, 1}};
    extras.author = "J. Hansen";
    const QByteArray bytes = PdfOf(extras);
    EXPECT_TRUE(bytes.contains("/Subtype /Link"));
    EXPECT_TRUE(bytes.contains("<FEFF004A002E002000480061006E00730065006E>"));  // J. Hansen
    EXPECT_TRUE(bytes.contains("03C7>"));                                       // chi
    // Every object of the last table begins where the table says.
    const auto table = bytes.lastIndexOf("\nxref\n");
    const QList<QByteArray> lines = bytes.mid(table + 6).split('\n');
    int objects = 0;
    for (qsizetype i = 0; i + 1 < lines.size() && !lines[i].startsWith("trailer"); i += 2) {
        const QByteArray number = lines[i].split(' ').first();
        const qsizetype offset = lines[i + 1].left(10).toLongLong();
        EXPECT_EQ(bytes.mid(offset, number.size() + 6), number + " 0 obj");
        ++objects;
    }
    EXPECT_EQ(objects, 7);  // catalogue, author, list of annotations, link, outline, two bookmarks
}

TEST(WritePdf, ReproducibleFilesHoldNoTime)
{
    PdfExtras extras;
    extras.reproducible = true;
    const QByteArray bytes = PdfOf(extras);
    EXPECT_TRUE(bytes.contains("/CreationDate (D:20000101000000Z)"));
    qputenv("TZ", "Asia/Tokyo");
    EXPECT_EQ(PdfOf(extras), bytes);
    EXPECT_EQ(qgetenv("TZ"), "Asia/Tokyo");
    qunsetenv("TZ");
    extras.reproducible = false;
    EXPECT_FALSE(PdfOf(extras).contains("/CreationDate (D:20000101000000"));
}

TEST(WritePng, HasTheAskedResolution)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("x.png"));
    EXPECT_EQ(WritePng(Sample(), 2.0, path.toStdString()), "");
    EXPECT_EQ(QImage(path).size(), QSize(420, 594));
}

TEST(Export, SaysWhereItCouldNotWrite)
{
    EXPECT_NE(WritePdf({Sample()}, 1.0, "/nowhere/x.pdf").find("/nowhere/x.pdf"),
              std::string::npos);
    EXPECT_NE(WritePng(Sample(), 1.0, "/nowhere/x.png").find("/nowhere/x.png"), std::string::npos);
    EXPECT_NE(WritePdf({}, 1.0, "/tmp/x.pdf"), "");
}

}  // namespace
}  // namespace kestrum

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
