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
constexpr int kSign = 16;      // pixels
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
    facts_->setAlignment(Qt::AlignRight | Qt::AlignTop);
    facts_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // however long a name is
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(kStripe + kGap, kGap, kGap, kGap);
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(2);
    grid->addWidget(sign_, 0, 0, Qt::AlignTop);
    grid->addWidget(head_, 0, 1);
    grid->addWidget(facts_, 0, 2);
    grid->addWidget(standardsign_, 1, 0, Qt::AlignTop);
    grid->addWidget(standard_, 1, 1, 1, 2);
    grid->addWidget(lines_, 2, 1, 1, 2);
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(2, 2);
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
    standard_->setText(ToQt(ForLocale(view.standard, decimalcomma)));
    standard_->setToolTip(standard_->text());
    standard_->setVisible(!view.standard.empty());
    standardsign_->setVisible(!view.standard.empty());
    head_->setText(head);
    facts_->setText(ToQt(ForLocale(view.facts, decimalcomma)));
    facts_->setToolTip(facts_->text());
    if (lines_->toPlainText() != text) {
        lines_->setPlainText(text);
    }
    lines_->setVisible(!lines.isEmpty());
    setAccessibleName(
        tr("Verdict: ") + head +
        (view.standard.empty() ? QString() : QStringLiteral(". ") + standard_->text()));
    setAccessibleDescription(text);
    lines_->setToolTip(text);
    update();
}

void StatusBanner::ShowSigns()
{
    const double ratio = devicePixelRatioF();
    for (const auto& [label, kind] : {std::pair(sign_, kind_), {standardsign_, standardkind_}}) {
        QPixmap sign(QSize(kSign, kSign) * ratio);
        sign.setDevicePixelRatio(ratio);
        sign.fill(Qt::transparent);
        QPainter painter(&sign);
        PaintSign(painter, kind, palette());
        painter.end();
        label->setPixmap(sign);
    }
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
