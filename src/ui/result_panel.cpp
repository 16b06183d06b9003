#include "ui/result_panel.h"

#include "app/locale_text.h"
#include "app/view_panel.h"
#include "core/project_state.h"
#include "report/panel_text.h"
#include "ui/picture.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QPainter>
#include <QtMath>

#include <algorithm>

namespace kestrum {

namespace {

constexpr double kLineStep = 1.4;   // font sizes from line to line
constexpr double kBlockGap = 0.35;  // lines between blocks
constexpr double kLastLine = 1.6;   // lines from the top of the last one to the end
constexpr double kBarWidth = 4;     // font sizes
constexpr double kBarGap = 0.8;     // font sizes between bar and text
constexpr double kUnderline = 0.2;  // font sizes below the baseline
constexpr double kBarEnd = 1.25;    // utilisation at the end of a bar
constexpr double kSizeStep = 0.25;
constexpr double kSmallest = 0.72, kLargest = 1.4;  // font size over that of the system
constexpr double kPointsPerInch = 72;
constexpr int kEdge = 4;  // pixels above and below in all

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

// The lines of a panel at one font size: the bars in a column of their own, then the text, then the
// results in the column of their block.
class Layout {
public:
    // The font has the size in pixels.
    Layout(const QFont& font, double size, double room)
        : font_(font), size_(size), start_(size * (kBarWidth + kBarGap)), room_(room)
    {
    }

    double WidthOfBlock(const PanelBlock& block) const
    {
        const Columns columns = ColumnsOf(block);
        double width = columns.result + columns.results;
        for (const PanelLine& line : block) {
            width = std::max(width, start_ + WidthOf(line.left, font_));
        }
        return width;
    }

    // `utilisation` holds a value for each line.
    void PaintBlock(QPainter& painter, const QPalette& palette, const PanelBlock& block,
                    const std::optional<double>* utilisation, double down) const
    {
        const Columns columns = ColumnsOf(block);
        const double column = ResultColumn(columns);
        for (const PanelLine& line : block) {
            const double y = Baseline(line, down);
            if (*utilisation) {
                PaintBar(painter, palette, y, **utilisation, IsAbove(line));
            }
            const bool head = !line.left.empty() && line.left.front().underline;
            const double from = head ? 0 : start_;
            const double room = line.result.empty() ? room_ - from : column - size_ - from;
            PaintRuns(painter, palette, {from, y}, room, line.left);
            PaintRuns(painter, palette, {column, y}, columns.results, line.result);
            ++utilisation;
        }
    }

    // Whether a line of the block runs into the lower right corner.
    bool Reaches(const PanelBlock& block, double down, QPointF corner) const
    {
        const Columns columns = ColumnsOf(block);
        return std::any_of(block.begin(), block.end(), [&](const PanelLine& line) {
            const double right = line.result.empty()
                                     ? start_ + WidthOf(line.left, font_)
                                     : ResultColumn(columns) + WidthOf(line.result, font_);
            return Baseline(line, down) + size_ * kUnderline > corner.y() && right > corner.x();
        });
    }

private:
    struct Columns {
        double result;   // where the results would begin, beyond the longest calculation
        double results;  // their width
    };

    Columns ColumnsOf(const PanelBlock& block) const
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

    double ResultColumn(const Columns& columns) const
    {
        return std::max(start_, std::min(columns.result, room_ - columns.results));
    }

    double Baseline(const PanelLine& line, double down) const
    {
        return (line.y + 1 + down) * size_ * kLineStep;
    }

    static bool IsAbove(const PanelLine& line)
    {
        const auto above = [](const TextRun& run) { return run.colour == kAbove; };
        return std::any_of(line.left.begin(), line.left.end(), above) ||
               std::any_of(line.result.begin(), line.result.end(), above);
    }

    // A calculation that is too long loses its middle, never its end.
    void PaintRuns(QPainter& painter, const QPalette& palette, QPointF at, double room,
                   const std::vector<TextRun>& runs) const
    {
        const InkColours colours = ColoursOf(palette);
        for (const TextRun& run : runs) {
            const QFont font = FontOf(run, font_);
            const QFontMetricsF metrics(font);
            QString text = ToQt(run.text);
            constexpr double kRounding = 0.5;
            if (runs.size() == 1 && metrics.horizontalAdvance(text) > room + kRounding) {
                text = metrics.elidedText(text, Qt::ElideMiddle, room);
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
    void PaintBar(QPainter& painter, const QPalette& palette, double y, double utilisation,
                  bool above) const
    {
        const double width = size_ * kBarWidth;
        const QRectF track(0, y - size_ * 0.68, width, size_ * 0.6);
        const double part = std::clamp(utilisation, 0.0, kBarEnd) / kBarEnd;
        const InkColours colours = ColoursOf(palette);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette.color(QPalette::Button));
        painter.drawRect(track);
        painter.setBrush(colours(above ? Ink::bad : Ink::good));
        painter.drawRect(QRectF(track.topLeft(), QSizeF(width * part, track.height())));
        painter.setPen(QPen(palette.color(QPalette::Text), 1));
        const double limit = width / kBarEnd;
        painter.drawLine(QPointF(limit, track.top() - 2), QPointF(limit, track.bottom() + 2));
    }

    QFont font_;
    double size_;   // pixels
    double start_;  // of the text, beyond the bars
    double room_;   // width in all
};

// Height of the panel in lines.
double LinesOf(const std::vector<PanelBlock>& blocks)
{
    return blocks.empty() || blocks.back().empty()
               ? 1
               : blocks.back().back().y + kLastLine +
                     kBlockGap * static_cast<double>(blocks.size() - 1);
}

// Which font size the lines get in the width that there is.
class Fitting {
public:
    Fitting(const std::vector<PanelBlock>& blocks, double width, int dpi)
        : blocks_(blocks), width_(width), dpi_(dpi)
    {
    }

    Layout At(double size) const
    {
        QFont font(QStringLiteral("Liberation Sans"));
        font.setStyleHint(QFont::SansSerif);
        font.setHintingPreference(QFont::PreferNoHinting);  // widths grow with the size
        font.setPointSizeF(size * kPointsPerInch / dpi_);
        return {font, size, width_};
    }

    bool Fits(double size) const
    {
        const Layout layout = At(size);
        return std::all_of(blocks_.begin(), blocks_.end(), [&](const PanelBlock& block) {
            return layout.WidthOfBlock(block) <= width_;
        });
    }

    // As large as height and width allow.
    double SizeFor(double height) const
    {
        const double smallest = kSmallest * SystemFontSize(), largest = kLargest * SystemFontSize();
        double size = std::clamp(height / (LinesOf(blocks_) * kLineStep), smallest, largest);
        while (size > smallest && !Fits(size)) {
            size = std::max(smallest, size - kSizeStep);
        }
        return size;
    }

    bool Reaches(double size, QPointF corner) const
    {
        const Layout layout = At(size);
        double down = -kBlockGap;
        return std::any_of(blocks_.begin(), blocks_.end(), [&](const PanelBlock& block) {
            down += kBlockGap;
            return layout.Reaches(block, down, corner);
        });
    }

private:
    const std::vector<PanelBlock>& blocks_;
    double width_;
    int dpi_;
};

// A ratio above the limit says so also to those who do not see its colour.
std::vector<PanelBlock> InWords(std::vector<PanelBlock> blocks)
{
    for (PanelBlock& block : blocks) {
        for (PanelLine& line : block) {
            for (std::vector<TextRun>* const runs : {&line.left, &line.result}) {
                for (TextRun& run : *runs) {
                    run.text += AboveWord(run.colour);
                }
            }
        }
    }
    return blocks;
}

}  // namespace

ResultPanel::ResultPanel(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("pic_result"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ResultPanel::Show(const ProjectState& s, bool decimalcomma)
{
    blocks_ = InWords(ForLocale(ShowResults(s), decimalcomma));
    utilisation_ = PanelUtilisation(s);
    setAccessibleName(tr("Results"));
    setAccessibleDescription(ToQt(ForLocale(PanelText(s), decimalcomma)));
    updateGeometry();
    update();
}

void ResultPanel::SetFaded(bool faded)
{
    faded_ = faded;
    update();
}

// Low enough for a small screen, but no line is lost, nor hidden by the corner.
QSize ResultPanel::minimumSizeHint() const
{
    constexpr double kNarrowest = 25;  // font sizes
    const double size = SystemFontSize();
    return {qCeil(kNarrowest * size),
            qCeil(LinesOf(blocks_) * kLineStep * kSmallest * size) + kEdge +
                (corner_ != nullptr ? corner_->sizeHint().height() + kGap : 0)};
}

void ResultPanel::SetCorner(QWidget* corner)
{
    corner_ = corner;
    corner_->setParent(this);
}

void ResultPanel::resizeEvent(QResizeEvent*)
{
    if (corner_ != nullptr) {
        corner_->adjustSize();
        corner_->move(width() - corner_->width() - kGap, height() - corner_->height() - kGap);
    }
}

void ResultPanel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);

    const Fitting fitting(blocks_, width() - 2.0 * kMargin, logicalDpiY());
    double size = fitting.SizeFor(height() - kEdge);
    if (corner_ != nullptr) {
        const QPointF corner(corner_->x() - kMargin, corner_->y() - kEdge / 2.0);
        size = fitting.Reaches(size, corner) ? fitting.SizeFor(corner.y()) : size;
    }
    setToolTip(fitting.Fits(size) ? QString() : accessibleDescription());  // what was cut, whole

    painter.translate(kMargin, kEdge / 2);
    painter.setOpacity(faded_ ? kFaded : 1);
    const std::optional<double>* utilisation = utilisation_.data();
    const Layout layout = fitting.At(size);
    double down = 0;
    for (const PanelBlock& block : blocks_) {
        layout.PaintBlock(painter, palette(), block, utilisation, down);
        utilisation += block.size();
        down += kBlockGap;
    }
}

}  // namespace kestrum
