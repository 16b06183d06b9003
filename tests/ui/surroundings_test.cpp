// The platform behind the program: message boxes that do not wait, and the stored settings.

#include "ui/desktop.h"

#include "ui/qt_surroundings.h"
#include "ui/text.h"

#include <QApplication>
#include <QMessageBox>

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
    Session own(Tables(), platform, false);
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

TEST_F(RealMessages, SettingsKeepRecentFilesUnderTheirNames)
{
    store.Set("RecentFile1", "/a/b.kst");
    EXPECT_EQ(store.Get("RecentFile1"), "/a/b.kst");
    EXPECT_EQ(store.settings().value(QStringLiteral("Recent Files/RecentFile1")).toString(),
              QStringLiteral("/a/b.kst"));
    EXPECT_EQ(store.Get("RecentFile2"), "");
}

}  // namespace kestrum
