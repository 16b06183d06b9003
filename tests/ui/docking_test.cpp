// Forms beside the results: what stays in sight, how the keyboard leads, and what is remembered.

#include "ui/desktop.h"

#include "ui/form_dock.h"
#include "ui/text.h"

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QToolButton>

#include <algorithm>

namespace kestrum {

class Docking : public Desktop {
public:
    Docking()
    {
        store.settings().setValue(QStringLiteral("Forms/Docked"), true);
        window->resize(kWide);
        Settle();
    }

    bool Seen(const char* name) { return Find<QWidget>(QLatin1String(name)).isVisible(); }
    QTabBar& Tabs() { return Find<QTabBar>(QStringLiteral("formtabs")); }
    bool Beside(Form& form) { return !form.isWindow() && form.isVisible(); }

    static constexpr QSize kWide{1800, 900}, kNarrow{1280, 800};
};

TEST_F(Docking, LeavesInputsDiagramsAndResultsInSight)
{
    session.edit().qload[2] = 3;
    session.edit().qdir[2] = 0;
    session.Calculate();
    Form& form = Open("Loading");
    ASSERT_TRUE(Beside(form));
    for (const char* const name : {"il", "PicMy", "PicMz", "CmdResult", "iq_1"}) {
        EXPECT_TRUE(Seen(name)) << name;
    }
    EXPECT_EQ(form.window(), window.get());
    EXPECT_GE(Tabs().height(), Tabs().fontMetrics().height());
    EXPECT_TRUE(Tabs().rect().contains(Tabs().tabRect(0)));
    Type(Find<BoxEdit>(QStringLiteral("iq_1"), &form), QStringLiteral("12"));
    EXPECT_EQ(state().qload[1], 12.0F);
    Click(QStringLiteral("ok"), &form);
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(Seen("formdock"));
}

// The diagrams keep their width; the inputs come back with the focus where it was.
TEST_F(Docking, TakesThePlaceOfTheInputsInANarrowWindow)
{
    window->resize(kNarrow);
    Settle();
    auto& length = Find<BoxEdit>(QStringLiteral("il"));
    length.setFocus();
    Form& form = Open("Loading");
    ASSERT_TRUE(Beside(form));
    EXPECT_EQ(window->size(), kNarrow);
    EXPECT_FALSE(length.isVisible());
    EXPECT_TRUE(Seen("PicMy"));
    EXPECT_EQ(QApplication::focusWidget(), &Find<QWidget>(QStringLiteral("inn_1"), &form));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    Settle();
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(length.isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &length);
}

// Not for a moment, either: a window manager takes each size that the window asks for.
TEST_F(Docking, NeverWidensTheWindow)
{
    class Widths final : public QObject {
    public:
        explicit Widths(QWidget& watched) : watched_(watched) { watched.installEventFilter(this); }
        int widest = 0, most = 0;  // that the window had, that it needs at least

    protected:
        bool eventFilter(QObject* object, QEvent* event) override
        {
            if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) {
                widest = std::max(widest, watched_.width());
                most = std::max(most, watched_.minimumSizeHint().width());
            }
            return QObject::eventFilter(object, event);
        }

    private:
        QWidget& watched_;
    };
    int docked = 0;
    for (const int width : {window->minimumSizeHint().width() + 40, 1280, 1366}) {
        window->resize(width, kNarrow.height());
        Settle();
        ASSERT_EQ(window->width(), width);
        Widths widths(*window);
        for (const char* const name : {"Loading", "endstiff", "bucklingy", "vipping", "p01"}) {
            const Form& form = Open(name);
            docked += form.isWindow() ? 0 : 1;
            Settle();
            EXPECT_LE(window->minimumSizeHint().width(), width) << name;
            window->CloseForms();
            Settle();
        }
        EXPECT_LE(widths.widest, width);
        EXPECT_LE(widths.most, width);
    }
    EXPECT_GE(docked, 8);
}

TEST_F(Docking, NeedsRoomOrIsAWindowOfItsOwn)
{
    window->resize(window->minimumSizeHint());
    Settle();
    EXPECT_TRUE(Open("p01").isWindow());
    EXPECT_TRUE(Open("about").isWindow());  // nothing to fill in
}

// Enter stays in the form, also at its last box.
TEST_F(Docking, EnterLeadsThroughTheForm)
{
    Form& form = Open("Loading");
    int boxes = 0;
    for (const auto* const box : form.findChildren<BoxEdit*>()) {
        boxes += static_cast<int>(box->isVisible() && box->isEnabled() && !box->isReadOnly());
    }
    ASSERT_GT(boxes, 20);
    const QWidget* const first = QApplication::focusWidget();
    for (int i = 0; i < boxes; ++i) {
        ASSERT_TRUE(form.isAncestorOf(QApplication::focusWidget())) << i;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QApplication::processEvents();
    }
    EXPECT_EQ(QApplication::focusWidget(), first);
}

TEST_F(Docking, ScrollsToTheBoxWithTheFocus)
{
    window->resize(kWide.width(), window->minimumSizeHint().height());
    Settle();
    Form& form = Open("Loading");
    auto& scroll = Find<QScrollArea>({}, &form);
    ASSERT_GT(scroll.verticalScrollBar()->maximum(), 0);
    auto& last = Find<BoxEdit>(QStringLiteral("ipmx_8"), &form);
    last.setFocus(Qt::OtherFocusReason);
    Settle();
    EXPECT_FALSE(last.visibleRegion().isEmpty());
    EXPECT_EQ(scroll.horizontalScrollBar()->maximum(), 0);
}

TEST_F(Docking, SeveralFormsHaveTabs)
{
    Form& loading = Open("Loading");
    Form& supports = Open("endstiff");
    EXPECT_EQ(Tabs().count(), 2);
    EXPECT_FALSE(loading.isVisible());
    EXPECT_TRUE(supports.isVisible());
    Tabs().setCurrentIndex(0);
    Settle();
    EXPECT_TRUE(loading.isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &Find<QWidget>(QStringLiteral("inn_1"), &loading));
    loading.reject();
    Settle();
    EXPECT_EQ(Tabs().count(), 1);
    EXPECT_TRUE(supports.isVisible());
    // A form of another family goes with its family, also from behind another tab.
    Open("p01");
    Open("Loading");
    Click(QStringLiteral("p04i"));
    EXPECT_EQ(FromQt(Tabs().tabText(Tabs().currentIndex())), "IPE");
    for (int i = 0; i < Tabs().count(); ++i) {
        EXPECT_NE(FromQt(Tabs().tabText(i)), "HEA");
    }
    window->CloseForms();
    EXPECT_FALSE(Seen("formdock"));
    EXPECT_EQ(Tabs().count(), 0);
}

// The user cannot leave a refused value by way of a tab or another form.
TEST_F(Docking, RefusedValueStaysInSight)
{
    Open("Loading");
    Form& form = Open("endstiff");
    Click(QStringLiteral("cwebstiff1"), &form);
    auto& box = Find<BoxEdit>(QStringLiteral("iweba"), &form);
    Type(box, QStringLiteral("5000"));
    EXPECT_THAT(script.warnings, testing::ElementsAre(" 100 < a < l "));
    Tabs().setCurrentIndex(0);
    Settle();
    EXPECT_TRUE(box.isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &box);
    window->OpenForm("chpoints");
    Settle();
    EXPECT_TRUE(box.isVisible());
    form.reject();
    EXPECT_TRUE(form.isVisible());
    QTest::keyClick(&box, Qt::Key_Escape);
    form.reject();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(Docking, FormsAreFreedAndDockedAgain)
{
    Form& form = Open("Loading");
    Click(QStringLiteral("formfree"));
    EXPECT_TRUE(form.isWindow() && form.isVisible());
    EXPECT_FALSE(Seen("formdock"));
    form.close();
    EXPECT_TRUE(Open("Loading").isWindow());    // remembered
    EXPECT_FALSE(Open("endstiff").isWindow());  // of this form alone
    Click(QStringLiteral("dock"), &form);
    EXPECT_TRUE(Beside(form));
    auto& all = Find<QAction>(QStringLiteral("mnudocked"));
    all.setChecked(false);
    window->CloseForms();
    EXPECT_TRUE(Open("Loading").isWindow());
}

TEST_F(Docking, FreeFormsReopenWhereTheyWere)
{
    Find<QAction>(QStringLiteral("mnudocked")).setChecked(false);
    Form& form = Open("endstiff");
    form.setGeometry(50, 60, 380, 400);
    form.close();
    MainWindow other(desk);
    other.show();
    Form* const again = other.OpenForm("endstiff");
    Settle();
    EXPECT_EQ(again->geometry(), QRect(50, 60, 380, 400));
}

// No letter means two things: those of the main window hold, and come back to a form of its own.
TEST_F(Docking, LettersAreThoseOfTheMainWindow)
{
    Form& form = Open("setup");
    const auto& ok = Find<QAbstractButton>(QStringLiteral("CmdOK"), &form);
    EXPECT_EQ(ok.text(), QStringLiteral("OK"));
    Click(QStringLiteral("formfree"));
    EXPECT_EQ(ok.text(), QStringLiteral("&OK"));
}

}  // namespace kestrum
