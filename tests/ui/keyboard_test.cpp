// The program from the keyboard: letters and shortcuts that do not clash, Escape, and where the
// focus goes between windows.

#include "ui/desktop.h"

#include "ui/text.h"
#include "ui/theme.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>

#include <map>
#include <set>

namespace kestrum {

namespace {

// Alt and a letter, empty without one.
void AddLetter(std::map<std::string, int>& letters, const QString& text)
{
    const std::string key = FromQt(QKeySequence::mnemonic(text).toString());
    if (!key.empty()) {
        ++letters[key];
    }
}

// The letters of what can be seen in a window.
std::map<std::string, int> LettersOf(QWidget& window)
{
    std::map<std::string, int> letters;
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->window() != &window) {
            continue;
        }
        if (const auto* const button = qobject_cast<const QAbstractButton*>(widget)) {
            AddLetter(letters, button->text());
        } else if (const auto* const label = qobject_cast<const QLabel*>(widget)) {
            AddLetter(letters, label->buddy() != nullptr ? label->text() : QString());
        } else if (const auto* const group = qobject_cast<const QGroupBox*>(widget)) {
            AddLetter(letters, group->title());
        } else if (const auto* const tabs = qobject_cast<const QTabBar*>(widget)) {
            for (int i = 0; i < tabs->count(); ++i) {
                AddLetter(letters, tabs->tabText(i));
            }
        } else if (const auto* const bar = qobject_cast<const QMenuBar*>(widget)) {
            for (const QAction* const action : bar->actions()) {
                AddLetter(letters, action->text());
            }
        }
    }
    return letters;
}

MATCHER(AreUnique, "has every letter once")
{
    bool unique = true;
    for (const auto& [letter, count] : arg) {
        if (count > 1) {
            *result_listener << letter << " " << count << " times ";
            unique = false;
        }
    }
    return unique;
}

}  // namespace

class Keyboard : public Desktop {};

TEST_F(Keyboard, LettersOfAWindowAreUnique)
{
    session.edit().modal = 1;
    session.Calculate();
    const auto letters = LettersOf(*window);
    EXPECT_THAT(letters, AreUnique());
    for (const char* const letter : {"Alt+F", "Alt+P", "Alt+V", "Alt+R", "Alt+H"}) {
        EXPECT_EQ(letters.count(letter), 1U) << letter;
    }
    for (const std::string_view name : MainWindow::FormNames()) {
        for (const int loadcomb : {0, 4, 5}) {
            session.edit().loadcomb = static_cast<i16>(loadcomb);
            session.edit().family = 7;
            session.Calculate();
            Form* const form = window->OpenForm(name);
            if (form != nullptr) {
                EXPECT_THAT(LettersOf(*form), AreUnique()) << name;
                form->hide();
            }
        }
    }
}

TEST_F(Keyboard, LettersOfAMenuAreUnique)
{
    for (const QMenu* const menu : window->findChildren<QMenu*>()) {
        std::map<std::string, int> letters;
        for (const QAction* const action : menu->actions()) {
            AddLetter(letters, action->text());
        }
        EXPECT_THAT(letters, AreUnique()) << FromQt(menu->objectName());
    }
}

TEST_F(Keyboard, ShortcutsAreUniqueAndEveryCommandHasOneOrALetter)
{
    std::set<QString> keys;
    for (const QMenu* const menu : window->findChildren<QMenu*>()) {
        const bool families = menu->objectName().startsWith(QLatin1String("mnustiff")) ||
                              menu->parentWidget() != window->menuBar();
        for (const QAction* const action : menu->actions()) {
            const QString key = action->shortcut().toString();
            EXPECT_TRUE(key.isEmpty() || keys.insert(key).second) << FromQt(key);
            const bool reached = !key.isEmpty() ||
                                 !QKeySequence::mnemonic(action->text()).isEmpty() ||
                                 action->isSeparator() || !action->isVisible();
            EXPECT_TRUE(reached || families) << FromQt(action->objectName());
        }
    }
    EXPECT_GT(keys.size(), 15U);
}

TEST_F(Keyboard, TabAndEnterLeadThroughTheInputs)
{
    QTest::keyClick(window.get(), Qt::Key_Tab);
    Settle();
    for (const char* const name : {"iproj", "iident", "il"}) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        EXPECT_EQ(FromQt(QApplication::focusWidget()->objectName()), name);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        Settle();
    }
}

TEST_F(Keyboard, EnterPressesTheButtonWithTheFocus)
{
    Form& form = Open("chpoints");
    Click(QStringLiteral("cp_1"), &form);
    auto& box = Find<BoxEdit>(QStringLiteral("icp_1"), &form);
    box.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&box, Qt::Key_Return);  // the only active box
    Settle();
    ASSERT_EQ(QApplication::focusWidget(), &Find<QWidget>(QStringLiteral("ok"), &form));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    Settle();
    EXPECT_FALSE(form.isVisible());
    QTest::keyClick(&Find<QWidget>(QStringLiteral("p04i")), Qt::Key_Enter);
    Settle();
    EXPECT_EQ(state().family, 4);
    EXPECT_TRUE(Find<Form>(QStringLiteral("p04")).isVisible());
}

// A box has its own Ctrl+D, which deletes: the load under it must not go.
TEST_F(Keyboard, ShortcutsWorkInAForm)
{
    Form& form = Open("Loading");
    auto& box = Find<BoxEdit>(QStringLiteral("inn_1"), &form);
    box.setFocus(Qt::TabFocusReason);
    Settle();
    auto& dark = Find<QAction>(QStringLiteral("mnudark"));
    const bool was = dark.isChecked();
    QTest::keyClick(&box, Qt::Key_D, Qt::ControlModifier);
    Settle();
    EXPECT_NE(dark.isChecked(), was);
    EXPECT_EQ(box.text(), QStringLiteral("100.0"));
    const QColor focus = was ? QColor(0, 255, 0) : QColor(0x0b, 0x4f, 0x1b);
    EXPECT_EQ(box.palette().color(QPalette::Base), focus);  // still in focus
    QTest::keyClick(&box, Qt::Key_D, Qt::ControlModifier);
    Settle();
    EXPECT_EQ(dark.isChecked(), was);
    QTest::keyClick(&box, Qt::Key_F2);
    Settle();
    EXPECT_TRUE(Find<Form>(QStringLiteral("setup")).isVisible());
}

TEST_F(Keyboard, EscapeTakesBackWhatWasTypedThenClosesTheForm)
{
    Form& form = Open("Loading");
    auto& box = Find<BoxEdit>(QStringLiteral("iq_1"), &form);
    box.setFocus(Qt::TabFocusReason);
    box.selectAll();
    QTest::keyClicks(&box, QStringLiteral("77"));
    QTest::keyClick(&box, Qt::Key_Escape);
    Settle();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(box.text(), QStringLiteral("10.0"));
    EXPECT_EQ(box.selectedText(), box.text());
    QTest::keyClick(&box, Qt::Key_Escape);
    Settle();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(state().qload[1], 10.0F);
}

TEST_F(Keyboard, EscapeBringsBackTheLastGoodValue)
{
    auto& box = Find<BoxEdit>(QStringLiteral("il"));
    for (const char* const more : {"", "7"}) {
        Type(box, QStringLiteral("0.01"));
        ASSERT_TRUE(box.refused());
        EXPECT_EQ(state().l, 0.01F);  // until it is corrected
        QTest::keyClicks(&box, QLatin1String(more));
        QTest::keyClick(&box, Qt::Key_Escape);
        EXPECT_EQ(box.text(), QStringLiteral("5.000"));
        EXPECT_FALSE(box.refused());
        EXPECT_EQ(state().l, 5.0F);
    }
}

// The keys are those of the project, unless letters have been typed that they take back.
TEST_F(Keyboard, UndoTakesBackLettersThenSteps)
{
    auto& box = Find<BoxEdit>(QStringLiteral("il"));
    const auto press = [&](Qt::KeyboardModifiers keys) {
        QTest::keyClick(&box, Qt::Key_Z, keys);
        Settle();
    };
    Type(box, QStringLiteral("6"));
    Type(box, QStringLiteral("7"));
    box.setFocus(Qt::TabFocusReason);
    box.selectAll();
    QTest::keyClicks(&box, QStringLiteral("8"));
    press(Qt::ControlModifier);
    EXPECT_EQ(box.text(), QStringLiteral("7.000"));
    EXPECT_EQ(state().l, 7.0F);
    press(Qt::ControlModifier);
    EXPECT_EQ(box.text(), QStringLiteral("6.000"));
    press(Qt::ControlModifier);
    EXPECT_EQ(state().l, 5.0F);
    press(Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(state().l, 6.0F);
    EXPECT_EQ(box.text(), QStringLiteral("6.000"));
}

TEST_F(Keyboard, MenuNamesWhatUndoTakesBack)
{
    auto& undo = Find<QAction>(QStringLiteral("mnuundo"));
    auto& redo = Find<QAction>(QStringLiteral("mnuredo"));
    EXPECT_FALSE(undo.isEnabled());
    EXPECT_FALSE(window->isWindowModified());
    Type(Find<BoxEdit>(QStringLiteral("il")), QStringLiteral("6.5"));
    EXPECT_EQ(undo.text(), QStringLiteral("&Undo length of the member: 5 to 6.5 m"));
    EXPECT_TRUE(window->isWindowModified());
    undo.trigger();
    EXPECT_FALSE(undo.isEnabled());
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_EQ(redo.text(), QStringLiteral("&Redo length of the member: 5 to 6.5 m"));
    redo.trigger();
    EXPECT_EQ(state().l, 6.5F);
    // A refused value is taken back before anything else.
    auto& box = Find<BoxEdit>(QStringLiteral("il"));
    Type(box, QStringLiteral("0.01"));
    undo.trigger();
    EXPECT_FALSE(box.refused());
    EXPECT_EQ(box.text(), QStringLiteral("6.500"));
}

class CommaKeyboard : public Desktop {
public:
    CommaKeyboard() : Desktop(true) {}
};

// A text that is no number was never stored: the value before it is good.
TEST_F(CommaKeyboard, EscapeTakesBackATextThatIsNoNumber)
{
    auto& box = Find<BoxEdit>(QStringLiteral("il"));
    Type(box, QStringLiteral("abc"));
    ASSERT_TRUE(box.refused());
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_EQ(box.text(), QStringLiteral("5,000"));
    EXPECT_FALSE(box.refused());
}

// The user cannot leave a refused value by going to another window.
TEST_F(Keyboard, RefusedValueCallsTheUserBackFromAnotherWindow)
{
    Form& form = Open("chpoints");
    Click(QStringLiteral("cp_1"), &form);
    auto& box = Find<BoxEdit>(QStringLiteral("icp_1"), &form);
    box.setFocus(Qt::TabFocusReason);
    box.selectAll();
    QTest::keyClicks(&box, QStringLiteral("99"));
    window->activateWindow();
    Find<QWidget>(QStringLiteral("iproj")).setFocus();
    Settle();
    EXPECT_THAT(script.warnings, testing::ElementsAre(" 0 < x <= l "));
    EXPECT_EQ(QApplication::activeWindow(), &form);
    EXPECT_EQ(QApplication::focusWidget(), &box);
}

TEST_F(Keyboard, MixedSignsOfATrapezoidLeadToItsRow)
{
    Form& form = Open("Loading");
    Type(Find<BoxEdit>(QStringLiteral("iqt1_3"), &form), QStringLiteral("5"));
    Type(Find<BoxEdit>(QStringLiteral("iqt2_3"), &form), QStringLiteral("-5"));
    EXPECT_TRUE(script.warnings.empty());  // the row has no place yet
    Type(Find<BoxEdit>(QStringLiteral("iqtx2_3"), &form), QStringLiteral("4"));
    EXPECT_THAT(script.warnings,
                testing::ElementsAre(" Trapezoidal load: One positive and one negative value "));
    const auto atrow = [&] {
        return QApplication::focusWidget() == &Find<BoxEdit>(QStringLiteral("iqt1_3"), &form);
    };
    EXPECT_TRUE(QTest::qWaitFor(atrow));
    // also from the main window, as long as the loads are open
    Type(Find<BoxEdit>(QStringLiteral("il")), QStringLiteral("6"));
    EXPECT_TRUE(QTest::qWaitFor(atrow));
    form.hide();
    Type(Find<BoxEdit>(QStringLiteral("il")), QStringLiteral("7"));
    EXPECT_EQ(script.warnings.size(), 3U);
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
}

}  // namespace kestrum
