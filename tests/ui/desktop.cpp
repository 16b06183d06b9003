#include "ui/desktop.h"

#include "support/delivered.h"
#include "ui/theme.h"

#include <QAction>
#include <QApplication>

namespace kestrum {

namespace {

QStringList& Complaints()
{
    static QStringList complaints;
    return complaints;
}

// The offscreen platform cannot raise windows and says so; that is no fault of the program.
void Collect(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support"))) {
        Complaints() << text;
    }
}

// A display takes its time; the tests begin when the window has the keyboard.
void BringToFront(QWidget& window)
{
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    Desktop::Settle();
}

}  // namespace

Desktop::Desktop(bool decimalcomma, std::string commandline)
    : store(folder.filePath(QStringLiteral("settings.ini"))),
      session(Delivered(), script, decimalcomma), desk{session, store, "/nowhere/"},
      window(std::make_unique<MainWindow>(desk))
{
    store.settings().setValue(QStringLiteral("Forms/Docked"), false);  // docking_test has them so
    window->Start(commandline);
    window->show();
    BringToFront(*window);
}

void Desktop::Settle()
{
    for (int i = 0; i < 4; ++i) {
        QApplication::processEvents();
    }
}

Form& Desktop::Open(std::string_view name)
{
    Form* const form = window->OpenForm(name);
    Settle();
    if (form == nullptr) {
        throw std::runtime_error("form does not open");
    }
    return *form;
}

void Desktop::Click(const QString& name, QWidget* in)
{
    Find<QAbstractButton>(name, in).click();
    Settle();
}

void Desktop::Choose(const QString& list, int index, QWidget* in)
{
    Find<QComboBox>(list, in).setCurrentIndex(index);
    Settle();
}

void Desktop::Type(QWidget& box, const QString& text)
{
    BringToFront(*box.window());
    box.setFocus(Qt::TabFocusReason);
    Settle();
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, text);
    QTest::keyClick(&box, Qt::Key_Tab);
    Settle();
}

void Desktop::Menu(const QString& action)
{
    Find<QAction>(action).trigger();
    Settle();
}

QStringList TakeComplaints()
{
    QStringList taken;
    taken.swap(Complaints());
    return taken;
}

}  // namespace kestrum

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    qInstallMessageHandler(kestrum::Collect);
    QApplication application(argc, argv);
    kestrum::UseTheme(application, false);
    const int result = RUN_ALL_TESTS();
    return result;
}
