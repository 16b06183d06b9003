#include "ui/panel_layout.h"

#include "ui/picture.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace kestrum {

namespace {

constexpr double kBarWidth = 4;     // font sizes
constexpr double kBarGap = 0.8;     // font sizes between bar and text
constexpr double kUnderline = 0.2;  // font sizes below the baseline
constexpr double kBarEnd = 1.25;    // utilisation at the end of a bar
constexpr double kPointsPerInch = 72;
constexpr double kStandardColumn = 0.44;  // of the width: where the standard's ratios begin

QFont FontOf(const TextRun& run, QFont font)
{
    font.setBold(run.bold);
    return font;
}

double WidthOf(const std::vector<TextRun>& runs, const QFont& font)
{
    double width = 0;
    for (const TextRun& run : runs) {
        width += QFontMetricsF(FontOf(run, font)).horizontalAdvance(ToQt(run.text));
    }
    return width;
}

QFont PanelFont(double size, int dpi)
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);  // widths grow with the size
    font.setPointSizeF(size * kPointsPerInch / dpi);
    return font;
}

}  // namespace

PanelLayout::PanelLayout(double width, int dpi)
    : size_(kPanelText * SystemFontSize()), font_(PanelFont(size_, dpi)),
      start_(size_ * (kBarWidth + kBarGap)), room_(width)
{
}

PanelLayout::Columns PanelLayout::ColumnsOf(const PanelBlock& block) const
{
    double left = size_ * kLeastColumn / 2, right = 0;
    for (const PanelLine& line : block) {
        if (!line.result.empty()) {
            left = std::max(left, WidthOf(line.left, font_));
            right = std::max(right, WidthOf(line.result, font_));
        }
    }
    return {start_ + left + size_, right};
}

double PanelLayout::ResultColumn(const Columns& columns) const
{
    return std::max(start_, std::min(columns.result, room_ - columns.results));
}

std::vector<TextRun> PanelLayout::StandardRuns(const StandardGroup& standard)
{
    return {{.text = "EN 1993-1-1: "},
            {.text = standard.ratio, .bold = true, .colour = standard.above ? kAbove : kWithin}};
}

// Behind the head of the block, which gives way where there is no room for bar and ratio.
double PanelLayout::StandardColumn(const PanelGroup& group) const
{
    const double behind =
        std::max(room_ * kStandardColumn, WidthOf(group.block.front().left, font_) + size_);
    return std::min(behind, room_ - start_ - WidthOf(StandardRuns(group.standard), font_));
}

double PanelLayout::Baseline(const PanelLine& line, double down) const
{
    return (line.y + 1 + down) * size_ * kPanelLineStep;
}

bool PanelLayout::IsAbove(const PanelLine& line)
{
    const auto above = [](const TextRun& run) { return run.colour == kAbove; };
    return std::any_of(line.left.begin(), line.left.end(), above) ||
           std::any_of(line.result.begin(), line.result.end(), above);
}

double PanelLayout::WidthOfBlock(const PanelBlock& block) const
{
    const Columns columns = ColumnsOf(block);
    double width = columns.result + columns.results;
    for (const PanelLine& line : block) {
        width = std::max(width, start_ + WidthOf(line.left, font_));
    }
    return width;
}

// Whether a line of the block would stand where the corner is, if that were in its height.
bool PanelLayout::Reaches(const PanelGroup& group, const PanelLine& line, double corner) const
{
    const Columns columns = ColumnsOf(group.block);
    const bool beside = group.standard.present && &line == &group.block.front();
    return beside || corner < (line.result.empty() ? start_ + WidthOf(line.left, font_)
                                                   : ResultColumn(columns) + columns.results);
}

// Where a line of the block lies.
QRectF PanelLayout::LineRect(const PanelLine& line, double down) const
{
    return {0, Baseline(line, down) - size_, room_, size_ * kPanelLineStep};
}

// A calculation that is too long loses its middle, never its end; a head its last words.
void PanelLayout::PaintRuns(QPainter& painter, const QPalette& palette, QPointF at, double room,
                            const std::vector<TextRun>& runs) const
{
    const InkColours colours = ColoursOf(palette);
    const double end = at.x() + room;
    for (const TextRun& run : runs) {
        const QFont font = FontOf(run, font_);
        const QFontMetricsF metrics(font);
        QString text = ToQt(run.text);
        constexpr double kRounding = 0.5;
        if (run.colour == 0 && at.x() + metrics.horizontalAdvance(text) > end + kRounding) {
            text = metrics.elidedText(text, runs.size() == 1 ? Qt::ElideMiddle : Qt::ElideRight,
                                      end - at.x());
        }
        painter.setFont(font);
        painter.setPen(run.colour == kWithin  ? colours(Ink::good)
                       : run.colour == kAbove ? colours(Ink::bad)
                                              : palette.color(QPalette::Text));
        painter.drawText(at, text);
        const double width = metrics.horizontalAdvance(text);
        if (run.underline) {  // below the letters, which the font's own line touches
            const double y = at.y() + size_ * kUnderline;
            painter.drawLine(QPointF(at.x(), y), QPointF(at.x() + width, y));
        }
        at.rx() += width;
    }
}

// The ratio against its limit, which the small line marks.
void PanelLayout::PaintBar(QPainter& painter, const QPalette& palette, QPointF at,
                           double utilisation, bool above) const
{
    const double width = size_ * kBarWidth;
    const QRectF track(at.x(), at.y() - size_ * 0.68, width, size_ * 0.6);
    const double part = std::clamp(utilisation, 0.0, kBarEnd) / kBarEnd;
    const InkColours colours = ColoursOf(palette);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.color(QPalette::Button));
    painter.drawRect(track);
    painter.setBrush(colours(above ? Ink::bad : Ink::good));
    painter.drawRect(QRectF(track.topLeft(), QSizeF(width * part, track.height())));
    painter.setPen(QPen(palette.color(QPalette::Text), 1));
    const double limit = at.x() + width / kBarEnd;
    painter.drawLine(QPointF(limit, track.top() - 2), QPointF(limit, track.bottom() + 2));
}

void PanelLayout::PaintStandard(QPainter& painter, const QPalette& palette, QPointF at,
                                const StandardGroup& standard) const
{
    PaintBar(painter, palette, at, standard.utilisation, standard.above);
    const std::vector<TextRun> ratio = StandardRuns(standard);
    at.rx() += start_;
    PaintRuns(painter, palette, at, room_ - at.x(), ratio);
    at.rx() += WidthOf(ratio, font_) + size_ / 2;
    if (room_ - at.x() > 4 * size_) {
        painter.setPen(palette.color(QPalette::Text));
        painter.setFont(font_);
        painter.drawText(at, QFontMetricsF(font_).elidedText(ToQt(standard.source), Qt::ElideRight,
                                                             room_ - at.x()));
    }
}

void PanelLayout::PaintBlock(QPainter& painter, const QPalette& palette, const PanelGroup& group,
                             double down) const
{
    const PanelBlock& block = group.block;
    const Columns columns = ColumnsOf(block);
    const double column = ResultColumn(columns);
    for (std::size_t i = 0; i < block.size(); ++i) {
        const PanelLine& line = block[i];
        const double y = Baseline(line, down);
        if (group.utilisation[i]) {
            PaintBar(painter, palette, {0, y}, *group.utilisation[i], IsAbove(line));
        }
        const bool head = !line.left.empty() && line.left.front().underline;
        const bool beside = i == 0 && group.standard.present;
        const double from = head ? 0 : start_;
        const double to = beside ? StandardColumn(group) - size_ : room_;
        const double room = line.result.empty() ? to - from : column - size_ - from;
        PaintRuns(painter, palette, {from, y}, room, line.left);
        PaintRuns(painter, palette, {column, y}, columns.results, line.result);
        if (beside) {
            PaintStandard(painter, palette, {StandardColumn(group), y}, group.standard);
        }
    }
}

}  // namespace kestrum
