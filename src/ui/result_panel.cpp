#include "ui/result_panel.h"

#include "app/view_panel.h"
#include "render/painter.h"
#include "report/panel_text.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QPainter>

#include <algorithm>

namespace kestrum {

namespace {

constexpr double kLineStep = 1.4;  // font sizes from line to line
constexpr double kBarEnd = 1.25;   // utilisation at the end of a bar
constexpr double kSizeStep = 0.25;
constexpr double kPointsPerInch = 72;
constexpr double kBlockGap = 0.35;              // lines between blocks
constexpr double kSmallest = 7, kLargest = 17;  // font size, pixels

QFont FontOf(const TextRun& run, QFont font)
{
    font.setBold(run.bold);
    font.setUnderline(run.underline);
    return font;
}

// Lays the lines out at one font size, and paints them when there is a painter.
class Layout {
public:
    Layout(const QFont& font, double size, const QPalette& palette, QPainter* painter)
        : font_(font), size_(size), palette_(palette), painter_(painter),
          colours_(IsDark(palette) ? DarkColours() : PaperColours())
    {
    }

    // Width that the block takes.
    double Block(const PanelBlock& block, const std::optional<double>* utilisation, double down)
    {
        double column = size() * kLeastColumn / 2;
        for (const PanelLine& line : block) {
            if (!line.result.empty()) {
                column = std::max(column, Runs(0, -1, line.left, {}, false));
            }
        }
        column += size();
        double width = 0;
        for (const PanelLine& line : block) {
            const double y = (line.y + 1 + down) * size() * kLineStep;
            const double left = Runs(0, y, line.left, *utilisation, true);
            const double right =
                line.result.empty() ? left : Runs(column, y, line.result, *utilisation, true);
            width = std::max(width, right);
            ++utilisation;
        }
        return width;
    }

private:
    double size() const { return size_; }

    // Where the text ends.
    double Runs(double x, double y, const std::vector<TextRun>& runs,
                const std::optional<double>& utilisation, bool shown)
    {
        for (const TextRun& run : runs) {
            const QFont font = FontOf(run, font_);
            const QString text = ToQt(run.text);
            if (painter_ != nullptr && shown) {
                painter_->setFont(font);
                painter_->setPen(run.colour == kWithin  ? colours_(Ink::good)
                                 : run.colour == kAbove ? colours_(Ink::bad)
                                                        : palette_.color(QPalette::Text));
                painter_->drawText(QPointF(x, y), text);
            }
            x += QFontMetricsF(font).horizontalAdvance(text);
            if (run.colour != 0 && utilisation) {
                x = Bar(x + size() * 0.6, y, *utilisation, run.colour == kAbove, shown);
            }
        }
        return x;
    }

    // The ratio against its limit, which the small line marks.
    double Bar(double x, double y, double utilisation, bool above, bool shown)
    {
        const double width = size() * 4.5;
        if (painter_ != nullptr && shown) {
            const QRectF track(x, y - size() * 0.68, width, size() * 0.6);
            const double part = std::clamp(utilisation, 0.0, kBarEnd) / kBarEnd;
            painter_->setPen(Qt::NoPen);
            painter_->setBrush(palette_.color(QPalette::Button));
            painter_->drawRect(track);
            painter_->setBrush(colours_(above ? Ink::bad : Ink::good));
            painter_->drawRect(QRectF(track.topLeft(), QSizeF(width * part, track.height())));
            painter_->setPen(QPen(palette_.color(QPalette::Text), 1));
            const double limit = x + width / kBarEnd;
            painter_->drawLine(QPointF(limit, track.top() - 2), QPointF(limit, track.bottom() + 2));
        }
        return x + width;
    }

    QFont font_;
    double size_;  // pixels
    const QPalette& palette_;
    QPainter* painter_;
    InkColours colours_;
};

}  // namespace

ResultPanel::ResultPanel(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("pic_result"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(300, 120);
}

void ResultPanel::Show(const ProjectState& s)
{
    blocks_ = ShowResults(s);
    utilisation_ = PanelUtilisation(s);
    setAccessibleName(tr("Results"));
    setAccessibleDescription(ToQt(PanelText(s)));
    update();
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

    const double inner = width() - 2.0 * kMargin;
    QFont font(QStringLiteral("Liberation Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);  // widths grow with the size
    const auto run = [&](double size, QPainter* target) {
        font.setPointSizeF(size * kPointsPerInch / logicalDpiY());
        Layout layout(font, size, palette(), target);
        double widest = 0;
        const std::optional<double>* line = utilisation_.data();
        double down = 0;
        for (const PanelBlock& block : blocks_) {
            widest = std::max(widest, layout.Block(block, line, down));
            line += block.size();
            down += kBlockGap;
        }
        return widest;
    };
    const double lowest = blocks_.empty() || blocks_.back().empty()
                              ? 1
                              : blocks_.back().back().y + 1.6 + 2 * kBlockGap;
    double size =
        std::floor(std::clamp((height() - 4.0) / (lowest * kLineStep), kSmallest, kLargest));
    // Widths grow with the size: one estimate, then small steps.
    if (const double widest = run(size, nullptr); widest > inner) {
        size = std::max(kSmallest, size * inner / widest);
        while (size > kSmallest && run(size, nullptr) > inner) {
            size -= kSizeStep;
        }
    }
    painter.translate(kMargin, 2);
    run(size, &painter);
}

}  // namespace kestrum
