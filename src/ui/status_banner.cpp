#include "ui/status_banner.h"

#include "app/locale_text.h"
#include "ui/picture.h"
#include "ui/text.h"
#include "ui/theme.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QTextBrowser>
#include <QtMath>

#include <algorithm>
#include <utility>

namespace kestrum {

namespace {

constexpr int kMostLines = 4;  // in sight; the rest is scrolled
constexpr int kStripe = 4;     // pixels at the left edge, in the colour of the sign
constexpr int kSign = 16;      // pixels, beside small letters
int SignSize()
{
    return std::max(kSign, qRound(SystemFontSize()));
}

constexpr QRgb kAmber = 0xffb26a00, kLightAmber = 0xffffb74d;

QColor ColourOf(StatusKind kind, const QPalette& palette)
{
    switch (kind) {
    case StatusKind::good:
        return ColoursOf(palette)(Ink::good);
    case StatusKind::caution:
        return QColor::fromRgb(IsDark(palette) ? kLightAmber : kAmber);
    case StatusKind::bad:
        return ColoursOf(palette)(Ink::bad);
    }
    return {};
}

// A tick in a disc, a mark in a triangle, a cross in a square; 16 units wide.
void PaintSign(QPainter& painter, StatusKind kind, const QPalette& palette)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(ColourOf(kind, palette));
    painter.setPen(Qt::NoPen);
    const QPen stroke(palette.color(QPalette::Base), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    switch (kind) {
    case StatusKind::good:
        painter.drawEllipse(QRectF(1, 1, 14, 14));
        painter.setPen(stroke);
        painter.setBrush(Qt::NoBrush);
        painter.drawPolyline(QPolygonF({{4.5, 8.5}, {7, 11}, {11.5, 5.5}}));
        break;
    case StatusKind::caution:
        painter.drawPolygon(QPolygonF({{8, 1}, {15.5, 15}, {0.5, 15}}));
        painter.setPen(stroke);
        painter.drawLine(QPointF(8, 6), QPointF(8, 9.5));
        painter.drawPoint(QPointF(8, 12.7));
        break;
    case StatusKind::bad:
        painter.drawRoundedRect(QRectF(1, 1, 14, 14), 2, 2);
        painter.setPen(stroke);
        painter.drawLine(QPointF(5, 5), QPointF(11, 11));
        painter.drawLine(QPointF(11, 5), QPointF(5, 11));
        break;
    }
}

// Broken only between facts: "x/L = 0.49" and "ULS/SLS" stay whole.
QString Unbroken(QString text)
{
    constexpr char16_t kNoBreak = 0x00a0, kJoin = 0x2060;
    text.replace(QStringLiteral(" = "), QString(kNoBreak) + QLatin1Char('=') + kNoBreak);
    return text.replace(QLatin1Char('/'), QLatin1Char('/') + QString(kJoin));
}

QTextBrowser* LineBox()
{
    auto* const box = new QTextBrowser;
    box->setObjectName(QStringLiteral("statuslines"));
    box->setFrameShape(QFrame::NoFrame);
    box->setFocusPolicy(Qt::ClickFocus);  // Tab goes through the inputs
    box->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    box->document()->setDocumentMargin(0);
    box->viewport()->setAutoFillBackground(false);
    return box;
}

}  // namespace

StatusBanner::StatusBanner(QWidget* parent)
    : QFrame(parent), sign_(new QLabel), head_(new QLabel), standardsign_(new QLabel),
      standard_(new QLabel), facts_(new QLabel), lines_(LineBox())
{
    setObjectName(QStringLiteral("status"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    head_->setObjectName(QStringLiteral("statushead"));
    head_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    head_->setTextFormat(Qt::PlainText);
    head_->setWordWrap(true);
    QFont bold = head_->font();
    bold.setBold(true);
    head_->setFont(bold);
    standard_->setObjectName(QStringLiteral("statusstandard"));
    standard_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    standard_->setTextFormat(Qt::PlainText);
    standard_->setWordWrap(true);
    facts_->setObjectName(QStringLiteral("statusfacts"));
    facts_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    facts_->setTextFormat(Qt::PlainText);
    facts_->setWordWrap(true);
    facts_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // however long a name is
    grid_ = new QGridLayout(this);
    QGridLayout* const grid = grid_;
    grid->setContentsMargins(kStripe + kGap, kGap, kGap, kGap);
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(2);
    grid->addWidget(sign_, 0, 0, Qt::AlignTop);
    grid->addWidget(head_, 0, 1);
    grid->addWidget(standardsign_, 1, 0, Qt::AlignTop);
    grid->addWidget(standard_, 1, 1, 1, 2);
    grid->addWidget(lines_, 3, 1, 1, 2);
    PlaceFacts();
    connect(lines_->document()->documentLayout(), &QAbstractTextDocumentLayout::documentSizeChanged,
            this, &StatusBanner::FitHeight);
}

void StatusBanner::Show(const StatusView& view, bool decimalcomma)
{
    const QString head = ToQt(ForLocale(view.head, decimalcomma));
    QStringList lines;
    for (const std::string& line : view.lines) {
        lines << ToQt(ForLocale(line, decimalcomma));
    }
    const QString text = lines.join(QLatin1Char('\n'));
    kind_ = view.kind;
    standardkind_ = view.standardkind;
    ShowSigns();
    const QString standard = ToQt(ForLocale(view.standard, decimalcomma));
    standard_->setText(Unbroken(standard));
    standard_->setToolTip(standard);
    standard_->setVisible(!view.standard.empty());
    standardsign_->setVisible(!view.standard.empty());
    head_->setText(head);
    const QString facts = ToQt(ForLocale(view.facts, decimalcomma));
    facts_->setText(Unbroken(facts));
    facts_->setToolTip(facts);
    PlaceFacts();
    if (lines_->toPlainText() != text) {
        lines_->setPlainText(text);
    }
    lines_->setVisible(!lines.isEmpty());
    setAccessibleName(tr("Verdict: ") + head +
                      (view.standard.empty() ? QString() : QStringLiteral(". ") + standard));
    setAccessibleDescription(text);
    lines_->setToolTip(text);
    update();
}

void StatusBanner::ShowSigns()
{
    const double ratio = devicePixelRatioF();
    for (const auto& [label, kind] : {std::pair(sign_, kind_), {standardsign_, standardkind_}}) {
        QPixmap sign(QSize(SignSize(), SignSize()) * ratio);
        sign.setDevicePixelRatio(ratio);
        sign.fill(Qt::transparent);
        QPainter painter(&sign);
        painter.scale(1.0 * SignSize() / kSign, 1.0 * SignSize() / kSign);
        PaintSign(painter, kind, palette());
        painter.end();
        label->setPixmap(sign);
    }
}

// At the right of the head where both fit side by side, else below in a line of their own.
void StatusBanner::PlaceFacts()
{
    constexpr int kBetween = 4 * kGap;
    const auto width = [](const QLabel* label) {
        return label->fontMetrics().size(Qt::TextSingleLine, label->text()).width();
    };
    const int room = this->width() - 2 * kGap - kStripe - SignSize() - 2 * kGap;
    const bool beside = width(head_) + kBetween + width(facts_) <= room;
    grid_->removeWidget(facts_);
    facts_->setAlignment((beside ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignTop);
    if (beside) {
        grid_->addWidget(facts_, 0, 2);
    } else {
        grid_->addWidget(facts_, 2, 1, 1, 2);
    }
    grid_->setColumnStretch(1, width(head_));  // so that neither is broken
    grid_->setColumnStretch(2, beside ? width(facts_) : 0);
}

void StatusBanner::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    PlaceFacts();
}

// As many lines as there are, up to a few.
void StatusBanner::FitHeight()
{
    const int line = lines_->fontMetrics().lineSpacing();
    const int height = qCeil(lines_->document()->size().height());
    lines_->setFixedHeight(std::clamp(height, line, kMostLines * line));
}

void StatusBanner::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        ShowSigns();
    }
}

void StatusBanner::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter.fillRect(QRectF(1, 3, kStripe, height() - 6), ColourOf(kind_, palette()));
}

}  // namespace kestrum
