#include "ui/theme.h"

#include <QApplication>
#include <QColor>
#include <QFontInfo>
#include <QPainter>
#include <QProxyStyle>
#include <QSettings>
#include <QStyleOption>

#include <algorithm>

namespace kestrum {

namespace {

struct Tones {
    QRgb window, base, alternate, text, button, mid, dim, highlight, highlighted, link;
};

constexpr Tones kLight{0xfff3f5f7, 0xffffffff, 0xfff0f3f6, 0xff1c2128, 0xffe9edf1,
                       0xffb4bec8, 0xff8a94a0, 0xff1f6fb2, 0xffffffff, 0xff1f6fb2};
constexpr Tones kDark{0xff252a31, 0xff1c2127, 0xff222830, 0xffe8ecf0, 0xff323942,
                      0xff4a545f, 0xff7c8793, 0xff3f8fd8, 0xffffffff, 0xff7db7ff};

QPalette Make(const Tones& t)
{
    QPalette p;
    const auto set = [&](QPalette::ColorRole role, QRgb colour) {
        p.setColor(role, QColor(colour));
    };
    set(QPalette::Window, t.window);
    set(QPalette::WindowText, t.text);
    set(QPalette::Base, t.base);
    set(QPalette::AlternateBase, t.alternate);
    set(QPalette::Text, t.text);
    set(QPalette::PlaceholderText, t.dim);
    set(QPalette::Button, t.button);
    set(QPalette::ButtonText, t.text);
    set(QPalette::BrightText, 0xffffffff);
    set(QPalette::ToolTipBase, t.base);
    set(QPalette::ToolTipText, t.text);
    set(QPalette::Highlight, t.highlight);
    set(QPalette::HighlightedText, t.highlighted);
    set(QPalette::Link, t.link);
    set(QPalette::Mid, t.mid);
    p.setColor(QPalette::Light, QColor(t.button).lighter(115));
    p.setColor(QPalette::Midlight, QColor(t.button).lighter(107));
    p.setColor(QPalette::Dark, QColor(t.mid).darker(125));
    p.setColor(QPalette::Shadow, QColor(t.mid).darker(180));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        p.setColor(QPalette::Disabled, role, QColor(t.dim));
    }
    p.setColor(QPalette::Disabled, QPalette::Base, QColor(t.window));
    p.setColor(QPalette::Disabled, QPalette::Highlight, QColor(t.mid));
    return p;
}

// Fusion draws frames darker than the window, which in a dark one nobody sees: boxes, ticks and
// options get a lighter line there.
class Outlined final : public QProxyStyle {
public:
    Outlined() : QProxyStyle(QStringLiteral("Fusion")) {}

    // Ticks and options grow with the letters beside them.
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override
    {
        constexpr double kOfLetters = 0.9;
        const int usual = QProxyStyle::pixelMetric(metric, option, widget);
        const bool indicator = metric == PM_IndicatorWidth || metric == PM_IndicatorHeight ||
                               metric == PM_ExclusiveIndicatorWidth ||
                               metric == PM_ExclusiveIndicatorHeight;
        return indicator ? std::max(usual, qRound(kOfLetters * SystemFontSize())) : usual;
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool tick = element == PE_IndicatorCheckBox,
                   round = element == PE_IndicatorRadioButton;
        const bool box = element == PE_FrameLineEdit && !(option->state & State_HasFocus);
        if ((tick || round || box) && IsDark(option->palette)) {
            const QRectF line = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
            painter->save();
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setBrush(Qt::NoBrush);
            painter->setPen(option->palette.color(box ? QPalette::Mid : QPalette::PlaceholderText));
            round ? painter->drawEllipse(line) : painter->drawRoundedRect(line, 2, 2);
            painter->restore();
        }
    }
};

constexpr char kDarkKey[] = "Window/Dark";

constexpr auto kStyleSheet = R"(
QGroupBox { border: 1px solid palette(mid); border-radius: 5px; margin-top: 0.55em; padding: 0.25em 2px 0 2px; }
QGroupBox::title { subcontrol-origin: margin; subcontrol-position: top left; left: 8px; padding: 0 4px; }
QToolTip { border: 1px solid palette(mid); padding: 3px; }
)";

}  // namespace

QPalette LightPalette()
{
    return Make(kLight);
}

QPalette DarkPalette()
{
    return Make(kDark);
}

bool IsDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

bool StartsDark(const QSettings& settings)
{
    return settings.value(QLatin1String(kDarkKey), IsDark(QApplication::palette())).toBool();
}

void RememberDark(QSettings& settings, bool dark)
{
    settings.setValue(QLatin1String(kDarkKey), dark);
}

double SystemFontSize()
{
    return QFontInfo(QApplication::font()).pixelSize();
}

void UseTheme(QApplication& application, bool dark)
{
    if (application.styleSheet().isEmpty()) {
        QApplication::setStyle(new Outlined);  // which takes it
    }
    QApplication::setPalette(dark ? DarkPalette() : LightPalette());
    // Again after every change: windows that stand already keep the colours of their style sheet.
    application.setStyleSheet({});
    application.setStyleSheet(QLatin1String(kStyleSheet));
}

}  // namespace kestrum
