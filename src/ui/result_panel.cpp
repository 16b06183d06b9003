#include "ui/result_panel.h"

#include "app/locale_text.h"
#include "core/check.h"
#include "report/panel_text.h"
#include "ui/picture.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <array>
#include <utility>

namespace kestrum {

namespace {

constexpr double kLineStep = 1.4;   // font sizes from line to line
constexpr double kBlockGap = 0.35;  // lines between blocks
constexpr double kLastLine = 1.6;   // lines from the top of the last one to the end
constexpr double kBarWidth = 4;     // font sizes
constexpr double kBarGap = 0.8;     // font sizes between bar and text
constexpr double kUnderline = 0.2;  // font sizes below the baseline
constexpr double kBarEnd = 1.25;    // utilisation at the end of a bar
constexpr double kPointsPerInch = 72;
constexpr int kEdge = 4;                  // pixels above and below in all
constexpr double kStandardColumn = 0.44;  // of the width: where the standard's ratios begin
constexpr float kChosen = 0.15F;          // opacity of what marks the line

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

    void PaintBlock(QPainter& painter, const QPalette& palette, const PanelGroup& group,
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

    double room() const { return room_; }

    // Whether a line of the block would stand where the corner is, if that were in its height.
    bool Reaches(const PanelGroup& group, const PanelLine& line, double corner) const
    {
        const Columns columns = ColumnsOf(group.block);
        const bool beside = group.standard.present && &line == &group.block.front();
        return beside || corner < (line.result.empty() ? start_ + WidthOf(line.left, font_)
                                                       : ResultColumn(columns) + columns.results);
    }

    // Where a line of the block lies.
    QRectF LineRect(const PanelLine& line, double down) const
    {
        return {0, Baseline(line, down) - size_, room_, size_ * kLineStep};
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

    // Behind the head of the block, which gives way where there is no room for bar and ratio.
    double StandardColumn(const PanelGroup& group) const
    {
        const double behind =
            std::max(room_ * kStandardColumn, WidthOf(group.block.front().left, font_) + size_);
        return std::min(behind, room_ - start_ - WidthOf(StandardRuns(group.standard), font_));
    }

    static std::vector<TextRun> StandardRuns(const StandardGroup& standard)
    {
        return {
            {.text = "EN 1993-1-1: "},
            {.text = standard.ratio, .bold = true, .colour = standard.above ? kAbove : kWithin}};
    }

    void PaintStandard(QPainter& painter, const QPalette& palette, QPointF at,
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
            painter.drawText(at, QFontMetricsF(font_).elidedText(ToQt(standard.source),
                                                                 Qt::ElideRight, room_ - at.x()));
        }
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

    // A calculation that is too long loses its middle, never its end; a head its last words.
    void PaintRuns(QPainter& painter, const QPalette& palette, QPointF at, double room,
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
    void PaintBar(QPainter& painter, const QPalette& palette, QPointF at, double utilisation,
                  bool above) const
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

    QFont font_;
    double size_;   // pixels
    double start_;  // of the text, beyond the bars
    double room_;   // width in all
};

// Height of the panel in lines.
double LinesOf(const std::vector<PanelGroup>& groups)
{
    return groups.empty() || groups.back().block.empty()
               ? 1
               : groups.back().block.back().y + kLastLine +
                     kBlockGap * static_cast<double>(groups.size() - 1);
}

// The lines as they stand in a width: their letters have one size, whatever there is to tell.
Layout LayoutIn(double width, int dpi)
{
    const double size = kPanelText * SystemFontSize();
    QFont font(QStringLiteral("Liberation Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);  // widths grow with the size
    font.setPointSizeF(size * kPointsPerInch / dpi);
    return {font, size, width};
}

// A ratio above the limit says so also to those who do not see its colour.
void SetInWords(PanelBlock& block)
{
    for (PanelLine& line : block) {
        for (std::vector<TextRun>* const runs : {&line.left, &line.result}) {
            for (TextRun& run : *runs) {
                run.text += AboveWord(run.colour);
            }
        }
    }
}

std::string Joined(const PanelGroup& group, std::size_t line)
{
    std::string text;
    for (const std::vector<TextRun>* const runs :
         {&group.block[line].left, &group.block[line].result}) {
        for (const TextRun& run : *runs) {
            text += run.text;
        }
    }
    const bool beside = line == 0 && group.standard.present;
    return text + (beside ? "  " + GroupText(group.standard) : "");
}

std::string RatioOf(const PanelGroup& group, std::size_t line)
{
    for (const std::vector<TextRun>* const runs :
         {&group.block[line].left, &group.block[line].result}) {
        for (const TextRun& run : *runs) {
            if (run.colour != 0) {
                return run.text;
            }
        }
    }
    return line == 0 && group.standard.present ? group.standard.ratio : std::string();
}

}  // namespace

ResultPanel::ResultPanel(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("pic_result"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Results"));
}

void ResultPanel::Show(const ProjectState& s, const standard::StandardResult& result,
                       bool decimalcomma)
{
    groups_ = PanelGroups(s, result);
    below_.reset();
    QString description = ToQt(ForLocale(PanelText(s), decimalcomma));
    for (PanelGroup& group : groups_) {
        SetInWords(group.block);
        group.block =
            std::move(ForLocale(std::vector<PanelBlock>{std::move(group.block)}, decimalcomma)[0]);
        group.standard.ratio = ForLocale(std::move(group.standard.ratio), decimalcomma);
        group.standard.source = ForLocale(std::move(group.standard.source), decimalcomma);
        if (group.standard.present) {
            description += ToQt(group.block[0].left[0].text) + QLatin1Char(' ') +
                           ToQt(GroupText(group.standard)) + QLatin1Char('\n');
        }
    }
    setAccessibleDescription(description);
    Choose(chosen_);
    updateGeometry();
}

void ResultPanel::SetFaded(bool faded)
{
    faded_ = faded;
    update();
}

// Beside the last lines, where they leave room for it.
bool ResultPanel::CornerBelow() const
{
    if (below_ && below_->width == width()) {
        return below_->below;
    }
    const Layout layout = LayoutIn(width() - 2.0 * kMargin, logicalDpiY());
    const double corner = width() - 2.0 * kMargin - corner_->sizeHint().width();
    const double high = corner_->sizeHint().height() / (kPanelText * SystemFontSize() * kLineStep);
    const double last = groups_.empty() ? 0 : groups_.back().block.back().y;
    const bool below = std::any_of(groups_.begin(), groups_.end(), [&](const PanelGroup& group) {
        return std::any_of(group.block.begin(), group.block.end(), [&](const PanelLine& line) {
            return line.y > last - high - 1 && layout.Reaches(group, line, corner);
        });
    });
    below_ = {width(), below};
    return below;
}

// Low enough for a small screen, but no line is lost, nor hidden by the corner.
QSize ResultPanel::minimumSizeHint() const
{
    constexpr double kNarrowest = 30;  // font sizes
    const double size = kPanelText * SystemFontSize();
    return {qCeil(kNarrowest * size),
            qCeil(LinesOf(groups_) * kLineStep * size) + kEdge +
                (corner_ != nullptr && CornerBelow() ? corner_->sizeHint().height() + kGap : 0)};
}

void ResultPanel::SetCorner(QWidget* corner)
{
    corner_ = corner;
    below_.reset();
    corner_->setParent(this);
}

void ResultPanel::resizeEvent(QResizeEvent*)
{
    if (corner_ != nullptr) {
        updateGeometry();  // the lines may leave room for it now
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

    const Layout layout = LayoutIn(width() - 2.0 * kMargin, logicalDpiY());
    const bool whole = std::all_of(groups_.begin(), groups_.end(), [&](const PanelGroup& group) {
        return layout.WidthOfBlock(group.block) <= layout.room();
    });
    setToolTip(whole ? QString() : accessibleDescription());  // what was cut, whole
    painter.translate(kMargin, kEdge / 2);
    painter.setOpacity(faded_ ? kFaded : 1);
    double down = 0;
    int number = 0;
    for (const PanelGroup& group : groups_) {
        for (const PanelLine& line : group.block) {
            if (number++ == chosen_ && hasFocus()) {
                QColor mark = palette().color(QPalette::Highlight);
                mark.setAlphaF(kChosen);
                painter.fillRect(layout.LineRect(line, down), mark);
            }
        }
        layout.PaintBlock(painter, palette(), group, down);
        down += kBlockGap;
    }
}

int ResultPanel::LineAt(QPointF at) const
{
    const Layout layout = LayoutIn(width() - 2.0 * kMargin, logicalDpiY());
    double down = 0;
    int number = 0;
    for (const PanelGroup& group : groups_) {
        for (const PanelLine& line : group.block) {
            if (layout.LineRect(line, down).bottom() + kEdge / 2.0 > at.y()) {
                return number;
            }
            ++number;
        }
        down += kBlockGap;
    }
    return std::max(0, number - 1);
}

// The name follows the line, so that a reader of the screen speaks it.
void ResultPanel::Choose(int line)
{
    int lines = 0;
    for (const PanelGroup& group : groups_) {
        lines += static_cast<int>(group.block.size());
    }
    chosen_ = std::clamp(line, 0, std::max(0, lines - 1));
    setAccessibleName(hasFocus() ? tr("Results: ") + TextOf(Part::line) : tr("Results"));
    update();
}

QString ResultPanel::TextOf(Part part) const
{
    QString text;
    int number = 0;
    for (const PanelGroup& group : groups_) {
        for (std::size_t i = 0; i < group.block.size(); ++i, ++number) {
            if (part == Part::all) {
                text += ToQt(Joined(group, i)) + QLatin1Char('\n');
            } else if (number == chosen_) {
                return ToQt(part == Part::value ? RatioOf(group, i) : Joined(group, i)).trimmed();
            }
        }
    }
    return text;
}

std::optional<ResultRow> ResultPanel::ChosenRow() const
{
    int number = 0;
    for (const PanelGroup& group : groups_) {
        for (std::size_t i = 0; i < group.block.size(); ++i, ++number) {
            if (number == chosen_) {
                return group.utilisation[i] ? group.block[i].row : std::nullopt;
            }
        }
    }
    return std::nullopt;
}

void ResultPanel::Open()
{
    if (const std::optional<ResultRow> row = ChosenRow()) {
        explained(*row);
    } else {
        opened();
    }
}

// As Choose, by the user.
void ResultPanel::Pick(int line)
{
    Choose(line);
    if (const std::optional<ResultRow> row = ChosenRow()) {
        picked(*row);
    }
}

void ResultPanel::mousePressEvent(QMouseEvent* event)
{
    Pick(LineAt(event->position()));
}

void ResultPanel::mouseDoubleClickEvent(QMouseEvent*)
{
    Open();
}

void ResultPanel::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        return Pick(chosen_ - 1);
    case Qt::Key_Down:
        return Pick(chosen_ + 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Open();
    default:
        if (event->matches(QKeySequence::Copy)) {
            return QApplication::clipboard()->setText(TextOf(Part::line));
        }
        QWidget::keyPressEvent(event);
    }
}

void ResultPanel::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Mouse) {
        Choose(LineAt(event->pos()));
    }
    const QString value = TextOf(Part::value), line = TextOf(Part::line), all = TextOf(Part::all);
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("resultmenu"));
    QAction* const copyvalue = menu.addAction(tr("Copy &value"));
    copyvalue->setEnabled(!value.isEmpty());
    const QAction* const copyline = menu.addAction(tr("Copy &row"));
    const QAction* const copyall = menu.addAction(tr("Copy &all"));
    menu.addSeparator();
    QAction* const equations = menu.addAction(tr("&Equations..."));
    equations->setEnabled(ChosenRow().has_value());
    const QAction* const cases = menu.addAction(tr("Com&binations..."));
    const QAction* const chosen = menu.exec(event->globalPos());
    if (chosen == cases) {
        opened();
    } else if (chosen == equations) {
        Open();
    } else if (chosen != nullptr) {
        QApplication::clipboard()->setText(chosen == copyvalue  ? value
                                           : chosen == copyline ? line
                                           : chosen == copyall  ? all
                                                                : QString());
    }
}

void ResultPanel::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    Choose(chosen_);
}

void ResultPanel::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    Choose(chosen_);
}

}  // namespace kestrum
