// The platform behind the program: message boxes that do not wait, and the stored settings.

#include "ui/desktop.h"

#include "ui/document_program.h"
#include "ui/qt_surroundings.h"
#include "ui/text.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

#include <array>
#include <optional>
#include <vector>

namespace kestrum {

namespace {

QMessageBox* ShownBox()
{
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

}  // namespace

class RealMessages : public Desktop {};

TEST_F(RealMessages, AreShownOneAfterTheOtherWithoutWaiting)
{
    QtSurroundings platform;
    platform.SetWindow(window.get());
    platform.Warn(" first ");
    platform.Warn("second");  // the caller goes on at once
    Settle();
    ASSERT_NE(ShownBox(), nullptr);
    EXPECT_EQ(ShownBox()->text(), QStringLiteral(" first "));
    EXPECT_EQ(ShownBox()->icon(), QMessageBox::Warning);
    EXPECT_EQ(ShownBox()->standardButtons(), QMessageBox::Ok);
    ShownBox()->accept();
    Settle();
    ASSERT_NE(ShownBox(), nullptr);
    EXPECT_EQ(ShownBox()->text(), QStringLiteral("second"));
    ShownBox()->accept();
    Settle();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(RealMessages, LeaveTheFocusInARefusedBox)
{
    QtSurroundings platform;
    platform.SetWindow(window.get());
    Session own(Delivered(), platform, false);
    Desk other{own, store};
    MainWindow main(other);
    main.Start({});
    main.show();
    main.activateWindow();
    Settle();
    auto& box = Find<BoxEdit>(QStringLiteral("il"), &main);
    Type(box, QStringLiteral("0"));
    ASSERT_NE(ShownBox(), nullptr);
    EXPECT_EQ(ShownBox()->text(), QStringLiteral(" L >= 0.050 "));
    ShownBox()->accept();
    Settle();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);  // said once
    EXPECT_TRUE(box.refused());
    main.activateWindow();
    Settle();
    EXPECT_EQ(QApplication::focusWidget(), &box);
    Type(box, QStringLiteral("3"));
    EXPECT_EQ(own.state().l, 3.0F);
    EXPECT_EQ(ShownBox(), nullptr);
}

// Going to another window does not leave a refused box either.
TEST_F(RealMessages, LeadBackToTheFormOfARefusedBox)
{
    QtSurroundings platform;
    platform.SetWindow(window.get());
    Session own(Delivered(), platform, false);
    Desk other{own, store};
    MainWindow main(other);
    main.Start({});
    main.show();
    Form* const form = main.OpenForm("Loading");
    Settle();
    auto& box = Find<BoxEdit>(QStringLiteral("ipmx_1"), form);
    box.setFocus(Qt::TabFocusReason);
    box.selectAll();
    QTest::keyClicks(&box, QStringLiteral("9"));
    main.activateWindow();
    Settle();
    ASSERT_NE(ShownBox(), nullptr);
    EXPECT_EQ(ShownBox()->text(), QStringLiteral(" 0 < x <= l "));
    ShownBox()->accept();
    Settle();
    EXPECT_EQ(QApplication::activeWindow(), form);
    EXPECT_EQ(QApplication::focusWidget(), &box);
}

// What the dialog of a file to save begins with; it is then cancelled.
class SaveDialog : public Desktop {
public:
    QString Proposed(const std::function<void()>& ask)
    {
        QString name = QStringLiteral("no dialog");
        QTimer::singleShot(0, window.get(), [&name] {
            if (auto* const dialog =
                    qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
                name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
                suffix = dialog->defaultSuffix();
                dialog->reject();
            }
        });
        ask();
        return name;
    }

    static inline QString suffix;
};

// A pattern taken for a name would write a file of that name.
TEST_F(SaveDialog, ProposesNoPatternAsAName)
{
    QtSurroundings platform;
    platform.SetWindow(window.get());
    const std::string here = FromQt(folder.path());
    EXPECT_EQ(Proposed([&] { platform.ChooseFileToSave(here, "*.kst"); }), QString());
    EXPECT_EQ(suffix, QStringLiteral("kst"));
    EXPECT_EQ(Proposed([&] { platform.ChooseFileToSave(here, here + "/beam.kst"); }),
              QStringLiteral("beam.kst"));
}

TEST_F(SaveDialog, OfAReportProposesTheNameOfTheProject)
{
    EXPECT_EQ(Proposed([&] { Menu(QStringLiteral("mnupdf1")); }), QString());
    EXPECT_EQ(suffix, QStringLiteral("pdf"));
    session.edit().filename = FromQt(folder.filePath(QStringLiteral("hall 7.kst")));
    EXPECT_EQ(Proposed([&] { Menu(QStringLiteral("mnupdf1")); }), QStringLiteral("hall 7.pdf"));
}

#ifdef Q_OS_LINUX
// The folder, and no other, holds the applications of the machine.
class ApplicationFolder {
public:
    explicit ApplicationFolder(const QString& folder)
    {
        for (const char* const name : kNames) {
            before_.push_back(qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name))
                                                              : std::nullopt);
            qputenv(name, QFile::encodeName(folder));
        }
    }
    ~ApplicationFolder()
    {
        for (std::size_t i = 0; i < kNames.size(); ++i) {
            before_[i] ? qputenv(kNames[i], *before_[i]) : qunsetenv(kNames[i]);
        }
    }
    ApplicationFolder(const ApplicationFolder&) = delete;
    ApplicationFolder& operator=(const ApplicationFolder&) = delete;

private:
    static constexpr std::array kNames{"XDG_DATA_DIRS", "XDG_DATA_HOME"};
    std::vector<std::optional<QByteArray>> before_;
};

// Only a program that lists the type of the file counts; xdg-open would take a browser for it.
TEST(DocumentProgram, IsOneThatOffersTheTypeOfTheFile)
{
    const QTemporaryDir data;
    const ApplicationFolder only(data.path());
    const auto install = [&](const QString& name, const QByteArray& types) {
        ASSERT_TRUE(QDir(data.path()).mkpath(QStringLiteral("applications")));
        QFile entry(data.filePath(QStringLiteral("applications/") + name));
        ASSERT_TRUE(entry.open(QIODevice::WriteOnly));
        entry.write("[Desktop Entry]\nName=Some program\nMimeType=" + types + "\n");
    };
    const QString table = data.filePath(QStringLiteral("results.csv"));
    EXPECT_FALSE(HasProgramFor(table));
    install(QStringLiteral("browser.desktop"), "text/html;application/pdf;");
    EXPECT_FALSE(HasProgramFor(table));
    EXPECT_TRUE(HasProgramFor(data.filePath(QStringLiteral("manual.pdf"))));
    install(QStringLiteral("calc.desktop"), "text/plain;text/csv;");
    EXPECT_TRUE(HasProgramFor(table));
    QtSurroundings platform;
    EXPECT_FALSE(platform.OpenDocument("/nowhere/results.csv"));
}

// On a machine without a spreadsheet program the button gives its message, and nothing else.
TEST_F(RealMessages, SayThatThereIsNoSpreadsheetProgram)
{
    const QTemporaryDir data;
    const ApplicationFolder only(data.path());
    QtSurroundings platform;
    platform.SetWindow(window.get());
    Session own(Delivered(), platform, false);
    Desk other{own, store};
    MainWindow main(other);
    main.Start({});
    main.show();
    Form* const form = main.OpenForm("detailedresult");
    Click(QStringLiteral("cmdDetailedResult"), form);
    ASSERT_NE(ShownBox(), nullptr);
    EXPECT_EQ(ShownBox()->text(), QStringLiteral(" Error on tranfere data to Excel "));
    ShownBox()->accept();
    Settle();
    EXPECT_TRUE(form->isVisible());
}
#endif

TEST_F(RealMessages, SettingsKeepRecentFilesUnderTheirNames)
{
    store.Set("RecentFile1", "/a/b.kst");
    EXPECT_EQ(store.Get("RecentFile1"), "/a/b.kst");
    EXPECT_EQ(store.settings().value(QStringLiteral("Recent Files/RecentFile1")).toString(),
              QStringLiteral("/a/b.kst"));
    EXPECT_EQ(store.Get("RecentFile2"), "");
}

}  // namespace kestrum
