// The banner above the diagrams, and results that are not those of the project.

#include "ui/desktop.h"

#include "core/project_file.h"
#include "ui/result_panel.h"
#include "ui/standard_desk.h"
#include "ui/status_banner.h"
#include "ui/text.h"

#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QTableWidget>
#include <QTextBrowser>

namespace kestrum {

namespace {

// The strongest colour that a widget shows: of a red or green letter, of a faded one.
int Strongest(QWidget& widget)
{
    const QImage image = widget.grab().toImage();
    int most = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor at = image.pixelColor(x, y);
            most = std::max(most, 255 - at.lightness());
        }
    }
    return most;
}

}  // namespace

class Status : public Desktop {
public:
    QString Head() { return Find<QLabel>(QStringLiteral("statushead")).text(); }
    QString Lines() { return Find<QTextBrowser>(QStringLiteral("statuslines")).toPlainText(); }

    // A file of which only the first half is there.
    void OpenHalf()
    {
        QFile broken(folder.filePath(QStringLiteral("broken.kst")));
        ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
        broken.write(QByteArray::fromStdString(WriteProject(session.edit())).left(300));
        broken.close();
        script.openpath = FromQt(broken.fileName());
        Menu(QStringLiteral("mnuopen"));
        ASSERT_TRUE(session.halfread());
    }
};

TEST_F(Status, ShowsTheVerdictFromTheStart)
{
    EXPECT_TRUE(Head().startsWith(QStringLiteral("within limits")));
    EXPECT_TRUE(Find<QWidget>(QStringLiteral("status")).isVisible());
    session.edit().qload[1] = 400;
    session.Calculate();
    EXPECT_TRUE(Head().startsWith(QStringLiteral("above limit:  IR ")));
    EXPECT_THAT(FromQt(Find<ResultPanel>(QStringLiteral("pic_result")).accessibleDescription()),
                testing::HasSubstr("  ABOVE < 1.0"));
}

TEST_F(Status, ShowsCauseAndDroppedLoadsInSight)
{
    session.edit().nload[1] = 1e6F;
    session.Calculate();
    EXPECT_TRUE(Head().startsWith(QStringLiteral("unstable")));
    EXPECT_TRUE(Lines().contains(QStringLiteral("NEd 1000000 kN")));
    session.edit().nload[1] = 100;
    Click(QStringLiteral("p27i"));
    auto& lines = Find<QTextBrowser>(QStringLiteral("statuslines"));
    EXPECT_TRUE(Lines().contains(QStringLiteral("Load dropped: nload[1]")));
    EXPECT_TRUE(lines.isVisible());
    EXPECT_GE(lines.height(), lines.fontMetrics().height());
    EXPECT_EQ(FromQt(Find<QWidget>(QStringLiteral("status")).accessibleDescription()),
              FromQt(Lines()));
}

// --- EN 1993-1-1 as written
// ------------------------------------------------------------------------

TEST_F(Status, ShowsTheStandardsVerdictBelowTheProgramsAndFollows)
{
    auto& line = Find<QLabel>(QStringLiteral("statusstandard"));
    EXPECT_TRUE(line.isVisible());
    const QString before = line.text();
    EXPECT_TRUE(before.startsWith(QStringLiteral("EN 1993-1-1 as written: within limits:  IR ")));
    session.edit().checksls = kTrue;
    session.edit().qload[1] = 400;
    session.Calculate();
    EXPECT_TRUE(
        line.text().startsWith(QStringLiteral("EN 1993-1-1 as written: above limit:  IR ")));
    EXPECT_TRUE(line.text().contains(QStringLiteral(" ABOVE, ")));
    EXPECT_TRUE(Find<QWidget>(QStringLiteral("status")).accessibleName().contains(line.toolTip()));
    auto& panel = Find<ResultPanel>(QStringLiteral("pic_result"));
    EXPECT_EQ(panel.accessibleDescription().count(QStringLiteral("EN 1993-1-1: ")), 3);
}

// The costs come behind the result; what they were for a project before is dropped.
TEST_F(Status, DeviationsGetTheirCostsAndAreExplained)
{
    Choose(QStringLiteral("CboLoadComb"), 0);
    session.edit().nload[1] = 300;
    session.edit().qload[1] = 5;
    session.edit().qdir[1] = 0;
    session.edit().ltb = 1;
    session.Calculate();
    QTRY_VERIFY(desk.standard->costed());
    auto& list = Find<QListWidget>(QStringLiteral("lstNotes"));
    ASSERT_FALSE(desk.standard->result().deviations.empty());
    ASSERT_GT(list.count(), 0);
    const auto rows = DeviationRows(desk.standard->result(), true, desk.standard->program());
    ASSERT_EQ(list.count(), static_cast<int>(rows.size()));
    EXPECT_TRUE(list.item(0)->text().startsWith(ToQt(rows[0].id)));
    list.setFocus();
    list.setCurrentRow(0);
    QTest::keyClick(&list, Qt::Key_Return);
    auto& table = Find<QTableWidget>(QStringLiteral("deviationchecks"));
    EXPECT_TRUE(table.isVisible());
    EXPECT_GT(table.rowCount(), 1);
    session.edit().l = 3;
    session.Calculate();
    EXPECT_FALSE(desk.standard->costed());
    QTRY_VERIFY(desk.standard->costed());
}

TEST_F(Status, PanelIsReadAndCopiedFromTheKeyboard)
{
    auto& panel = Find<ResultPanel>(QStringLiteral("pic_result"));
    panel.setFocus();
    panel.Choose(0);
    QTest::keyClick(&panel, Qt::Key_Down);
    const QString line = panel.TextOf(ResultPanel::Part::line);
    EXPECT_TRUE(line.startsWith(QStringLiteral("IR = ")));
    EXPECT_EQ(panel.accessibleName(), QStringLiteral("Results: ") + line);
    EXPECT_TRUE(line.contains(panel.TextOf(ResultPanel::Part::value)));
    EXPECT_TRUE(panel.TextOf(ResultPanel::Part::all).contains(line));
    QTest::keyClick(&panel, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), line);
    panel.Choose(0);
    QTest::keyClick(&panel, Qt::Key_Return);
    auto& table = Find<QTableWidget>(QStringLiteral("combinationtable"));
    EXPECT_TRUE(table.isVisible());
    EXPECT_GT(table.rowCount(), 0);
    EXPECT_EQ(table.selectionModel()->selectedRows().size(), 1);
}

// HEA, the default member: M = 10 5^2/8 = 31.25 kNm. The equations follow the row that is chosen
// and every pass, and name the chapter of the manual.
TEST_F(Status, ARowOpensItsEquations)
{
    auto& panel = Find<ResultPanel>(QStringLiteral("pic_result"));
    panel.setFocus();
    panel.Choose(0);
    QTest::keyClick(&panel, Qt::Key_Down);
    QTest::keyClick(&panel, Qt::Key_Return);
    Settle();
    auto& form = Find<Form>(QStringLiteral("equations"));
    EXPECT_TRUE(form.isVisible());
    const auto text = [&](const char* name) {
        return Find<QWidget>(QLatin1String(name), &form).accessibleDescription();
    };
    EXPECT_TRUE(text("equationsprogram").contains(QStringLiteral("31.2")));
    EXPECT_TRUE(text("equationsprogram").contains(QStringLiteral("[6.2.5")));
    EXPECT_TRUE(text("equationsstandard").contains(QStringLiteral("[6.2.5")));
    const QString before = form.windowTitle(), moment = text("equationsprogram");
    session.edit().qload[1] = 20;
    session.Calculate();
    EXPECT_TRUE(text("equationsprogram").contains(QStringLiteral("62.5")));
    QTest::keyClick(&panel, Qt::Key_Down);
    EXPECT_NE(form.windowTitle(), before);
    EXPECT_NE(text("equationsprogram"), moment);
    Click(QStringLiteral("equationsmanual"), &form);
    ASSERT_EQ(script.opened.size(), 1U);
    EXPECT_THAT(script.opened[0],
                testing::StartsWith("/nowhere/Kestrum EC3 Theory Manual.pdf#nameddest="));
}

// Grey until the next good file, also through calculations in between.
TEST_F(Status, FadesResultsThatAreNotThoseOfTheFile)
{
    auto& panel = Find<ResultPanel>(QStringLiteral("pic_result"));
    auto& diagram = Find<Picture>(QStringLiteral("PicMy"));
    auto& load = Find<Picture>(QStringLiteral("PicLoadZ"));
    session.edit().qload[1] = 9;
    session.Calculate();
    Settle();
    const int strong = Strongest(diagram), text = Strongest(panel), arrows = Strongest(load);
    OpenHalf();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(Head(), QStringLiteral("not checked: the file was read in part"));
        EXPECT_TRUE(Lines().startsWith(QStringLiteral("Half-read file: ")));
        EXPECT_LT(Strongest(diagram), strong * 3 / 4);
        EXPECT_LT(Strongest(load), arrows * 3 / 4);
        session.Calculate();
        Settle();
    }
    EXPECT_LE(Strongest(panel), text);
    session.edit().filename = "New File";
    Menu(QStringLiteral("mnunew"));
    EXPECT_FALSE(session.halfread());
    EXPECT_TRUE(Head().startsWith(QStringLiteral("within limits")));
    EXPECT_GE(Strongest(panel), text * 3 / 4);
}

// Many lines are scrolled, the diagrams keep their room.
TEST_F(Status, StaysLow)
{
    StatusBanner banner;
    StatusView view{StatusKind::caution, "loads dropped", {}, {}};
    for (int i = 0; i < 30; ++i) {
        view.lines.push_back("Load dropped: nload[" + std::to_string(i) + "]");
    }
    banner.resize(500, 100);
    banner.Show(view, false);
    banner.show();
    Settle();
    const auto* const lines = banner.findChild<QTextBrowser*>();
    EXPECT_LE(lines->height(), 5 * lines->fontMetrics().lineSpacing());
    EXPECT_EQ(lines->toPlainText().count(QLatin1Char('\n')), 29);
}

// The sign differs in shape: the same colours in grey are told apart.
TEST_F(Status, SignsDifferInShape)
{
    StatusBanner banner;
    banner.resize(400, 40);
    std::vector<QImage> signs;
    for (const StatusKind kind : {StatusKind::good, StatusKind::caution, StatusKind::bad}) {
        banner.Show({kind, "x", {}, {}}, false);
        const QPixmap sign = banner.findChildren<QLabel*>().front()->pixmap();
        signs.push_back(sign.toImage().convertToFormat(QImage::Format_Alpha8));
    }
    EXPECT_NE(signs[0], signs[1]);
    EXPECT_NE(signs[1], signs[2]);
    EXPECT_NE(signs[0], signs[2]);
}

}  // namespace kestrum
