#include "ui/result_panel.h"

#include "app/locale_text.h"
#include "core/check.h"
#include "report/panel_text.h"
#include "ui/panel_layout.h"
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

constexpr double kBlockGap = 0.35;  // lines between blocks
constexpr double kLastLine = 1.6;   // lines from the top of the last one to the end
constexpr int kEdge = 4;            // pixels above and below in all
constexpr float kChosen = 0.15F;    // opacity of what marks the line

// Height of the panel in lines.
double LinesOf(const std::vector<PanelGroup>& groups)
{
    return groups.empty() || groups.back().block.empty()
               ? 1
               : groups.back().block.back().y + kLastLine +
                     kBlockGap * static_cast<double>(groups.size() - 1);
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
    const PanelLayout layout(width() - 2.0 * kMargin, logicalDpiY());
    const double corner = width() - 2.0 * kMargin - corner_->sizeHint().width();
    const double high =
        corner_->sizeHint().height() / (kPanelText * SystemFontSize() * kPanelLineStep);
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
            qCeil(LinesOf(groups_) * kPanelLineStep * size) + kEdge +
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

    const PanelLayout layout(width() - 2.0 * kMargin, logicalDpiY());
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
    const PanelLayout layout(width() - 2.0 * kMargin, logicalDpiY());
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
