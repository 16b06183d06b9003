// Nothing is cut off: in every form, with system fonts of ordinary, large and very large size, each
// text has the room that it needs and no control reaches out of the one that holds it.

#include "ui/desktop.h"

#include "sections/family_table.h"
#include "ui/result_panel.h"
#include "ui/text.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace kestrum {

namespace {

QString NameOf(const QWidget& widget)
{
    return QString::fromLatin1(widget.metaObject()->className()) + QLatin1Char(' ') +
           widget.objectName();
}

bool Scrolled(const QWidget& widget, const QWidget& top)
{
    for (const QWidget* at = &widget; at != &top && at != nullptr; at = at->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(at) != nullptr) {
            return true;
        }
    }
    return false;
}

// The room that the text of a widget needs at least; a text of several lines needs its height in
// the width that it has.
QSize NeedOf(const QWidget& widget)
{
    const QFontMetrics metrics = widget.fontMetrics();
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
        const bool gives = label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
        if (label->text().isEmpty()) {
            return {};
        }
        return label->wordWrap() ? QSize(0, label->heightForWidth(label->width()))
                                 : QSize(gives ? 0 : metrics.size(0, label->text()).width(),
                                         label->sizeHint().height());
    }
    if (qobject_cast<const QToolButton*>(&widget) != nullptr) {
        return widget.sizeHint();
    }
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
        const bool fixed = button->minimumWidth() == button->maximumWidth();  // "..."
        return {fixed ? metrics.size(Qt::TextShowMnemonic, button->text()).width()
                      : button->sizeHint().width(),
                button->sizeHint().height()};
    }
    if (const auto* const box = qobject_cast<const BoxEdit*>(&widget)) {
        constexpr int kFrame = 4;  // the frame and the cursor's margin
        return {metrics.horizontalAdvance(box->text()) + kFrame, metrics.height() + kFrame};
    }
    if (const auto* const list = qobject_cast<const QComboBox*>(&widget)) {
        return {0, list->sizeHint().height()};
    }
    if (const auto* const group = qobject_cast<const QGroupBox*>(&widget)) {
        return {metrics.size(Qt::TextShowMnemonic, group->title().trimmed()).width(), 0};
    }
    return {};
}

// What does not fit in a window, by name.
std::string Misfits(QWidget& top)
{
    QStringList misfits;
    for (const QWidget* const widget : top.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->window() != &top) {
            continue;
        }
        if (const QSize need = NeedOf(*widget);
            need.width() > widget->width() || need.height() > widget->height()) {
            misfits << QStringLiteral("%1 has %2x%3 for %4x%5")
                           .arg(NameOf(*widget))
                           .arg(widget->width())
                           .arg(widget->height())
                           .arg(need.width())
                           .arg(need.height());
        }
        if (!Scrolled(*widget, top) &&
            !widget->parentWidget()->rect().contains(widget->geometry())) {
            misfits << NameOf(*widget) + QStringLiteral(" reaches out of ") +
                           NameOf(*widget->parentWidget());
        }
    }
    return FromQt(misfits.join(QLatin1Char('\n')));
}

}  // namespace

class Layout : public testing::TestWithParam<double> {
public:
    Layout() : before_(QApplication::font())
    {
        QFont font = before_;
        font.setPointSizeF(GetParam());
        QApplication::setFont(font);
    }
    ~Layout() override { QApplication::setFont(before_); }

private:
    QFont before_;
};

class LayoutDesktop : public Desktop {};

class PlainDesktop final : public LayoutDesktop {
    void TestBody() override {}
};

TEST_P(Layout, HasRoomForEveryText)
{
    PlainDesktop desktop;
    MainWindow& window = *desktop.window;
    desktop.session.edit().modal = 1;
    for (const std::string_view name : MainWindow::FormNames()) {
        SCOPED_TRACE(std::string(name));
        desktop.session.edit().family = 6;  // has a vortex form
        for (const FamilyTraits& family : Families()) {
            if (family.form == name) {
                desktop.session.edit().family = static_cast<i16>(family.id);
            }
        }
        desktop.session.Calculate();
        Form* const form = window.OpenForm(name);
        ASSERT_NE(form, nullptr);
        Desktop::Settle();
        EXPECT_EQ(Misfits(*form), "");
        EXPECT_LE(form->height(), form->screen()->availableSize().height());
        form->close();
    }
}

// On a screen that is too low the inputs of a form are scrolled, its buttons stay in sight.
TEST_F(LayoutDesktop, ScrollsFormsThatAreTallerThanTheScreen)
{
    const int room = window->screen()->availableSize().height();
    Form form(desk, "tall", QStringLiteral("Tall"), window.get());
    auto* const content = new QWidget;
    content->setFixedSize(200, 2 * room);
    form.body()->addWidget(content);
    form.AddButtons();
    form.show();
    Settle();
    EXPECT_LE(form.height(), room);
    auto& scroll = Find<QScrollArea>({}, &form);
    EXPECT_GT(scroll.verticalScrollBar()->maximum(), 0);
    EXPECT_GE(scroll.viewport()->width(), 200);
    auto& ok = Find<QPushButton>(QStringLiteral("ok"), &form);
    EXPECT_TRUE(form.rect().contains(ok.geometry()));
    EXPECT_GE(ok.y(), scroll.geometry().bottom());
}

// The smallest window that the system lets the user make.
TEST_P(Layout, OfTheMainWindowHoldsAtItsSmallest)
{
    PlainDesktop desktop;
    desktop.session.edit().qload[2] = 3;  // about both axes, side by side
    desktop.session.edit().qdir[2] = 0;
    desktop.session.Calculate();
    desktop.window->resize(desktop.window->minimumSizeHint());
    Desktop::Settle();
    EXPECT_EQ(Misfits(*desktop.window), "");
    desktop.session.edit().nload[1] = 1e6F;  // a calculation that fails tells so in some lines
    desktop.session.Calculate();
    Desktop::Settle();
    ASSERT_TRUE(desktop.session.failed());
    EXPECT_EQ(Misfits(*desktop.window), "");
}

// Very large letters on a small screen: the window stays within it, and what has the focus is
// scrolled to.
TEST_P(Layout, OfTheMainWindowStaysWithinTheScreen)
{
    PlainDesktop desktop;
    MainWindow& window = *desktop.window;
    const QSize screen = window.screen()->availableSize();
    EXPECT_LE(window.minimumSizeHint().width(), screen.width());
    EXPECT_LE(window.minimumSizeHint().height(), screen.height());
    window.resize(screen);
    Desktop::Settle();
    for (const char* const name : {"iproj", "il", "CmdResult", "pic_result"}) {
        auto& widget = desktop.Find<QWidget>(QLatin1String(name));
        widget.setFocus(Qt::TabFocusReason);
        Desktop::Settle();
        EXPECT_FALSE(widget.visibleRegion().isEmpty()) << name;
    }
}

// With an ordinary font all inputs stand side by side with their results from the start.
TEST_F(LayoutDesktop, ShowsAllInputsInTheFirstWindow)
{
    window->resize(1280, 770);
    Settle();
    auto* const inputs = window->findChild<QScrollArea*>(QStringLiteral("inputscroll"));
    ASSERT_NE(inputs, nullptr);
    EXPECT_EQ(inputs->verticalScrollBar()->maximum(), 0);
}

// Beside a scroll bar the inputs keep their width, from the first picture on.
TEST_F(LayoutDesktop, ScrollsItsInputsWithoutCuttingThem)
{
    MainWindow other(desk);
    other.resize(1024, 741);
    other.show();
    Settle();
    auto* const inputs = other.findChild<QScrollArea*>(QStringLiteral("inputscroll"));
    ASSERT_GT(inputs->verticalScrollBar()->maximum(), 0);
    EXPECT_GE(inputs->viewport()->width(), inputs->widget()->minimumSizeHint().width());
}

// 1024 x 0.965 * 768 at 96 dpi, more where the screen has room, never more than the screen.
TEST(StartSize, FollowsTheScreen)
{
    EXPECT_EQ(MainWindow::StartSize({1920, 1080}, 96, 96), QSize(1280, 770));
    EXPECT_EQ(MainWindow::StartSize({1024, 768}, 96, 96), QSize(1024, 741));
    EXPECT_EQ(MainWindow::StartSize({1280, 720}, 96, 96), QSize(1280, 694));
    EXPECT_EQ(MainWindow::StartSize({2880, 1800}, 144, 144), QSize(1536, 1112));
}

// A low and narrow panel: the button in its corner hides no ratio.
TEST_F(LayoutDesktop, ResultsStayClearOfTheButtonInTheirCorner)
{
    session.edit().qload[2] = 3;
    session.edit().qdir[2] = 0;
    session.Calculate();
    ResultPanel panel;
    auto* const corner = new QPushButton(QStringLiteral("More Results"));
    panel.SetCorner(corner);
    panel.Show(session.shown(), {}, false);
    panel.show();
    corner->hide();
    for (const int width : {360, 430, 520, 700}) {
        panel.resize(width, panel.minimumSizeHint().height());
        Settle();
        const QRect place = corner->geometry().adjusted(1, 1, -1, -1);
        const QImage image = panel.grab(place).toImage();
        const QColor ground = panel.palette().color(QPalette::Base);
        bool clear = true;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                clear = clear && image.pixelColor(x, y) == ground;
            }
        }
        EXPECT_TRUE(clear) << width;
    }
}

TEST_F(LayoutDesktop, ShortenedResultsAreTheirOwnTooltip)
{
    session.edit().qload[2] = 3;
    session.edit().qdir[2] = 0;
    session.Calculate();
    ResultPanel panel;
    panel.Show(session.shown(), {}, false);
    panel.resize(360, 200);
    panel.grab();
    EXPECT_TRUE(panel.toolTip().contains(QStringLiteral("kyz*Mz,Ed/Mz,Rd")));
    panel.resize(1600, 200);
    panel.grab();
    EXPECT_TRUE(panel.toolTip().isEmpty());
}

// However long the name of a profile is, the window stays as wide as it was.
TEST_F(LayoutDesktop, LongNamesDoNotWidenTheWindow)
{
    session.edit().family = 41;
    session.Calculate();
    Settle();
    const int before = window->minimumSizeHint().width();
    session.edit().p41ident = std::string(120, 'W');
    session.edit().projname = std::string(300, 'W');
    session.Calculate();
    Settle();
    EXPECT_EQ(window->minimumSizeHint().width(), before);
}

INSTANTIATE_TEST_SUITE_P(FontSizes, Layout, testing::Values(9.0, 12.0, 16.0, 20.0));

}  // namespace kestrum
