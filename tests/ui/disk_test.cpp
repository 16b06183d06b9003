// The window and a project file that changes on the disk behind it.

#include "ui/desktop.h"

#include "app/file_commands.h"
#include "core/project_file.h"
#include "ui/qt_surroundings.h"
#include "ui/text.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace kestrum {

class Disk : public Desktop {
public:
    Disk() : path(folder.filePath(QStringLiteral("a.kst")))
    {
        Write(7.25F);
        EXPECT_TRUE(OpenPath(session, store, FromQt(path)));
    }

    // As another program does.
    void Write(float length)
    {
        Script other;
        Session project(Delivered(), other, false);
        project.edit().l = length;
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray::fromStdString(WriteProject(project.edit())));
    }

    // Away from the window and back to it.
    void ComeBack()
    {
        Form* const about = window->OpenForm("about");
        Settle();
        about->hide();
        window->activateWindow();
        Settle();
    }

    QString path;
};

TEST_F(Disk, AsksWhenItComesToTheFront)
{
    ComeBack();
    EXPECT_TRUE(script.questions.empty());
    Write(11);
    script.diskanswer = DiskAnswer::reload;
    ComeBack();
    ASSERT_EQ(script.questions.size(), 1U);
    EXPECT_THAT(script.questions.front(), testing::StartsWith(FromQt(path)));
    EXPECT_EQ(Find<BoxEdit>(QStringLiteral("il")).text(), QStringLiteral("11.000"));
    ComeBack();
    EXPECT_EQ(script.questions.size(), 1U);
}

TEST_F(Disk, AsksBeforeItSaves)
{
    Write(11);
    Menu(QStringLiteral("mnusave"));
    EXPECT_EQ(script.questions.size(), 1U);
    EXPECT_EQ(state().l, 7.25F);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("\r\n11\r\n"));  // the other program's
}

// Closing asks nothing, whatever the file holds.
TEST_F(Disk, ClosingAsksNothing)
{
    Write(11);
    window->close();
    Settle();
    EXPECT_TRUE(script.questions.empty());
}

// Unsaved work of an earlier window: offered above the window, one after the other.
TEST_F(Disk, OffersWorkThatWasNotSaved)
{
    const std::string state = FromQt(folder.filePath(QStringLiteral("state")));
    for (const float length : {8.0F, 9.0F, 10.0F}) {
        Script other;
        Session before(Delivered(), other, false);
        Aside aside(state);
        before.aside = &aside;
        before.edit().l = length;
        before.Calculate();
        before.aside = nullptr;
    }
    auto& bar = Find<QWidget>(QStringLiteral("recovery"));
    EXPECT_FALSE(bar.isVisible());
    window->OfferWork(FindLeftWork(state));
    EXPECT_TRUE(bar.isVisible());
    EXPECT_TRUE(Find<QLabel>(QStringLiteral("recoverytext"))
                    .text()
                    .startsWith(QStringLiteral("Work that was not saved: a project without")));
    EXPECT_EQ(session.state().l, 7.25F);
    Click(QStringLiteral("recoverylater"));
    Click(QStringLiteral("recoverydiscard"));
    Click(QStringLiteral("recoveryrestore"));
    EXPECT_FALSE(bar.isVisible());
    EXPECT_NE(session.state().l, 7.25F);
    EXPECT_TRUE(window->isWindowModified());
    Menu(QStringLiteral("mnuundo"));
    EXPECT_EQ(session.state().l, 7.25F);
    EXPECT_FALSE(window->isWindowModified());
    window->OfferWork({});
    EXPECT_EQ(FindLeftWork(state).size(), 1U);  // for later
}

// The real box: every button gives its answer, Escape decides later.
TEST_F(Disk, QuestionHasAButtonForEveryAnswer)
{
    QtSurroundings platform;
    platform.SetWindow(window.get());
    const auto answer = [&](const std::function<void(QMessageBox&)>& press) {
        QTimer::singleShot(0, window.get(), [&] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            press(*box);
        });
        return platform.AskAboutDisk("/a/b.kst has changed");
    };
    const auto button = [](const char* text) {
        return [text](QMessageBox& box) {
            for (QAbstractButton* const at : box.buttons()) {
                if (at->text().remove(QLatin1Char('&')) == QLatin1String(text)) {
                    at->click();
                    return;
                }
            }
            FAIL() << text;
        };
    };
    EXPECT_EQ(answer(button("Reload")), DiskAnswer::reload);
    EXPECT_EQ(answer(button("Keep mine")), DiskAnswer::keep);
    EXPECT_EQ(answer(button("Save as...")), DiskAnswer::saveas);
    EXPECT_EQ(answer(button("Decide later")), DiskAnswer::later);
    EXPECT_EQ(answer([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              DiskAnswer::later);
    // Enter alone drops nothing.
    EXPECT_EQ(answer([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }),
              DiskAnswer::saveas);
}

}  // namespace kestrum
