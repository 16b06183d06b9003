// The program from its start to a saved project: title, files, recent files, reports, manuals.

#include "core/project_state.h"
#include "ui/desktop.h"

#include "app/file_commands.h"
#include "core/project_file.h"
#include "render/export.h"
#include "report/diagrams.h"
#include "sections/family_table.h"
#include "ui/box_edit.h"
#include "ui/office_dialog.h"
#include "ui/result_panel.h"
#include "ui/text.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QRadioButton>
#include <QUrl>

#include <string>
#include <string_view>

namespace kestrum {

namespace {

// A project file with a member of 7.5 m, IPE.
QString WriteSample(const QTemporaryDir& folder)
{
    Script script;
    Session session(Delivered(), script, false);
    session.edit().l = 7.5F;
    session.edit().family = 4;
    session.edit().projname = "Sample";
    const QString path = folder.filePath(QStringLiteral("a b.kst"));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(QByteArray::fromStdString(WriteProject(session.edit())));
    }
    return path;
}

}  // namespace

class Program : public Desktop {
public:
    QString Path(const QString& name) { return folder.filePath(name); }
};

TEST_F(Program, StartsWithACalculatedDefaultMember)
{
    EXPECT_EQ(state().family, 1);
    EXPECT_EQ(Find<QLineEdit>(QStringLiteral("il")).text(), QStringLiteral("5.000"));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Kestrum EC3: New File"));
    EXPECT_FALSE(Find<QLabel>(QStringLiteral("txtError")).isVisible());
    EXPECT_TRUE(Find<ResultPanel>(QStringLiteral("pic_result"))
                    .accessibleDescription()
                    .contains(QStringLiteral("SECTION CONTROL:")));
    EXPECT_EQ(TakeComplaints(), QStringList());
}

TEST_F(Program, QuotedPathOfTheCommandLineIsOpened)
{
    const QString path = WriteSample(folder);
    MainWindow other(desk);
    other.Start('"' + FromQt(path) + '"');
    EXPECT_EQ(state().l, 7.5F);
    EXPECT_EQ(state().family, 4);
    EXPECT_EQ(other.windowTitle(), QStringLiteral("Kestrum EC3: ") + path);
    EXPECT_EQ(other.findChild<QAction*>(QStringLiteral("mnurecentfile1"))->text(),
              QStringLiteral("&1. ") + path);
    EXPECT_FALSE(session.failed());
}

TEST_F(Program, MissingFileOfTheCommandLineLeavesTheDefaults)
{
    MainWindow other(desk);
    other.Start("\"" + FromQt(Path(QStringLiteral("none.kst"))) + "\"");
    EXPECT_EQ(state().l, 5.0F);
    EXPECT_EQ(script.warnings.size(), 1U);
}

TEST_F(Program, RecentFilesAreListedAndOpenAgain)
{
    const QString path = WriteSample(folder);
    script.openpath = FromQt(path);
    window->OpenForm("Loading");
    Menu(QStringLiteral("mnuopen"));
    EXPECT_FALSE(Find<Form>(QStringLiteral("Loading")).isVisible());  // forms close
    EXPECT_EQ(store.Get("RecentFile1"), FromQt(path));
    Menu(QStringLiteral("mnunew"));
    EXPECT_EQ(script.questions, std::vector<std::string>{std::string(kAskToSave)});
    EXPECT_EQ(state().l, 5.0F);
    auto& recent = Find<QAction>(QStringLiteral("mnurecentfile1"));
    EXPECT_TRUE(recent.isVisible());
    EXPECT_FALSE(Find<QAction>(QStringLiteral("mnurecentfile2")).isVisible());
    recent.trigger();
    EXPECT_EQ(state().l, 7.5F);
    ASSERT_TRUE(QFile::remove(path));
    window->OpenForm("Loading");
    recent.trigger();
    EXPECT_EQ(script.warnings.size(), 1U);
    EXPECT_TRUE(Find<Form>(QStringLiteral("Loading")).isVisible());  // nothing was opened
}

TEST_F(Program, DroppedProjectIsOpened)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(WriteSample(folder))});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
    EXPECT_EQ(state().l, 7.5F);
}

TEST_F(Program, BrokenFileAndFailedSaveAreTold)
{
    QFile broken(Path(QStringLiteral("broken.kst")));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("131\r\n\"EU\"\r\nnonsense\r\n");
    broken.close();
    script.openpath = FromQt(broken.fileName());
    Menu(QStringLiteral("mnuopen"));
    EXPECT_EQ(script.warnings.size(), 1U);
    script.savepath = FromQt(Path(QStringLiteral("no folder/x.kst")));
    Menu(QStringLiteral("mnusaveas"));
    EXPECT_EQ(script.warnings.size(), 2U);
}

TEST_F(Program, MenuTakesWhatIsBeingTyped)
{
    auto& box = Find<BoxEdit>(QStringLiteral("il"));
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, QStringLiteral("6.25"));
    script.savepath = FromQt(Path(QStringLiteral("typed.kst")));
    Menu(QStringLiteral("mnusave"));
    EXPECT_EQ(state().l, 6.25F);
    EXPECT_TRUE(QFile::exists(Path(QStringLiteral("typed.kst"))));
}

TEST_F(Program, PrintsWhatTheFamilyHas)
{
    Menu(QStringLiteral("mnuprint0"));
    Menu(QStringLiteral("mnuprint11"));
    EXPECT_EQ(script.printed.size(), 2U);
    Menu(QStringLiteral("mnuprint2"));
    EXPECT_EQ(script.printed.size(), 2U);
    EXPECT_THAT(script.warnings, testing::ElementsAre("Only valid for boxes and tubes"));
    session.edit().family = 7;
    session.Calculate();
    Menu(QStringLiteral("mnuprint22"));
    EXPECT_EQ(script.printed.size(), 3U);
}

TEST_F(Program, ManualsOpenOrAreToldMissing)
{
    Menu(QStringLiteral("mnuTheory"));
    Menu(QStringLiteral("mnuGuide"));
    EXPECT_THAT(script.opened, testing::ElementsAre("/nowhere/Kestrum EC3 Theory Manual.pdf",
                                                    "/nowhere/guide/index.html"));
    script.opens = false;
    Menu(QStringLiteral("mnuUpdate"));
    ASSERT_EQ(script.warnings.size(), 1U);
    EXPECT_THAT(script.warnings.front(), testing::EndsWith("the manual is not installed"));
}

TEST_F(Program, TheGuideOpensAtTheTopicOfTheForm)
{
    Form& form = Open("setup");
    auto& box = Find<BoxEdit>(QStringLiteral("idef_limitz"), &form);
    box.setFocus(Qt::TabFocusReason);
    Settle();
    QTest::keyClick(&box, Qt::Key_F1);
    Settle();
    EXPECT_THAT(script.opened, testing::ElementsAre("/nowhere/guide/forms.html#form-setup"));
}

// F1 in each form leads to the section of the guide that has its picture, where its name is a
// place.
TEST_F(Program, TheGuideHasATopicForEveryForm)
{
    const auto has = [](const std::string& page, const std::string& picture) {
        QFile file(QString::fromStdString(KESTRUM_SOURCE "/docs/guide/" + page + ".md"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << page;
        return file.readAll().contains(("(pictures/" + picture + ".png)").c_str());
    };
    session.edit().modal = 1;
    for (const std::string_view name : MainWindow::FormNames()) {
        session.edit().family = 6;  // has a vortex form
        for (const FamilyTraits& family : Families()) {
            if (family.form == name) {
                session.edit().family = static_cast<i16>(family.id);
            }
        }
        session.Calculate();
        SCOPED_TRACE(std::string(name));
        Form& form = Open(name);
        form.activateWindow();
        Settle();
        script.opened.clear();
        QTest::keyClick(form.focusWidget() != nullptr ? form.focusWidget() : &form, Qt::Key_F1);
        Settle();
        const std::string topic = "form-" + std::string(name);
        ASSERT_EQ(script.opened.size(), 1U);
        const std::string place = script.opened.front();
        const std::string guide = "/nowhere/guide/";
        const std::size_t end = place.find(".html#" + topic);
        ASSERT_NE(end, std::string::npos) << place;
        EXPECT_TRUE(has(place.substr(guide.size(), end - guide.size()), topic))
            << place << " does not show the form";
        form.close();
    }
}

// What is entered stands in the user's file and is there the next time.
TEST_F(Program, OfficeDataAreKept)
{
    const QTemporaryDir own;
    const QByteArray before = qgetenv("KESTRUM_DATA");
    qputenv("KESTRUM_DATA", own.path().toUtf8());
    {
        OfficeDialog dialog(session, nullptr);
        dialog.findChild<QLineEdit*>(QStringLiteral("officecompany"))->setText("Hansen & Co");
        dialog.findChild<QLineEdit*>(QStringLiteral("officelogo"))->setText("/nowhere/logo.png");
        dialog.accept();
        ASSERT_EQ(script.warnings.size(), 1U);
        EXPECT_THAT(script.warnings.front(), testing::StartsWith("/nowhere/logo.png: "));
        dialog.findChild<QLineEdit*>(QStringLiteral("officelogo"))->clear();
        dialog.findChild<QComboBox*>(QStringLiteral("officedecimal"))->setCurrentIndex(1);
        dialog.accept();
        EXPECT_EQ(dialog.result(), QDialog::Accepted);
    }
    const OfficeDialog again(session, nullptr);
    EXPECT_EQ(again.findChild<QLineEdit*>(QStringLiteral("officecompany"))->text(), "Hansen & Co");
    EXPECT_EQ(again.findChild<QComboBox*>(QStringLiteral("officedecimal"))->currentIndex(), 1);
    before.isNull() ? qunsetenv("KESTRUM_DATA") : qputenv("KESTRUM_DATA", before);
}

TEST_F(Program, ErrorShowsOverTheLastGoodPanelAndGoes)
{
    auto& error = Find<QLabel>(QStringLiteral("txtError"));
    auto& panel = Find<ResultPanel>(QStringLiteral("pic_result"));
    const QString before = panel.accessibleDescription();
    session.edit().nload[1] = 1e6F;  // far above every critical force
    session.Calculate();
    EXPECT_TRUE(error.isVisible());
    EXPECT_EQ(panel.accessibleDescription(), before);
    session.edit().nload[1] = 50;
    session.Calculate();
    EXPECT_FALSE(error.isVisible());
    EXPECT_NE(panel.accessibleDescription(), before);
}

// Every part of a window that stands already takes the other colours, and gives them back.
TEST_F(Program, DarkColoursReachTheWholeWindow)
{
    const auto light = [&](const QString& name) {
        QWidget& widget = Find<QWidget>(name);
        const QImage image = widget.grab().toImage();
        return image.pixelColor(image.width() - 12, image.height() - 5).lightness() > 128;
    };
    const char* const parts[] = {"iproj", "il", "fr1", "fr4", "PicMy", "lstNotes", "ProfTab"};
    auto& dark = Find<QAction>(QStringLiteral("mnudark"));
    const bool was = dark.isChecked();
    for (const bool on : {true, false}) {
        dark.setChecked(on);
        Settle();
        for (const char* const part : parts) {
            EXPECT_EQ(light(QLatin1String(part)), !on) << part;
        }
    }
    dark.setChecked(was);
}

// A tick that is not set, and a box, stand out from a dark window.
TEST_F(Program, OutlinesAreSeenInTheDark)
{
    auto& dark = Find<QAction>(QStringLiteral("mnudark"));
    const bool was = dark.isChecked();
    dark.setChecked(true);
    Settle();
    const auto brightest = [this](const char* name, int width) {
        const QImage image = Find<QWidget>(QLatin1String(name)).grab().toImage();
        int most = 0;
        for (int x = 0; x < width; ++x) {
            most = std::max(most, image.pixelColor(x, image.height() / 2).lightness());
        }
        return most;
    };
    const int ground = QApplication::palette().color(QPalette::Window).lightness();
    constexpr int kIndicator = 12, kEdge = 3;  // pixels without the caption
    EXPECT_GT(brightest("ch_modal", kIndicator), 2 * ground);
    EXPECT_GT(brightest("ispring", kEdge), ground + 20);
    dark.setChecked(was);
}

// A section by its name, a value by its words, a box, a command: Ctrl+K, words, Enter.
TEST_F(Program, FindsByWords)
{
    const auto find = [this](const char* words) {
        Menu(QStringLiteral("mnufind"));
        auto& line = Find<QLineEdit>(QStringLiteral("finderline"));
        QTest::keyClicks(&line, QLatin1String(words));
        QTest::keyClick(&line, Qt::Key_Return);
        Settle();
        EXPECT_FALSE(Find<QDialog>(QStringLiteral("finder")).isVisible());
    };
    find("ipe 330");
    EXPECT_EQ(Find<QLabel>(QStringLiteral("sectionname")).text(), QStringLiteral("IPE 330"));
    find("k z 0.7");
    EXPECT_EQ(Find<BoxEdit>(QStringLiteral("iblz")).text(), QStringLiteral("0.70"));
    find("trapezoidal load at its end");
    Form& loading = Find<Form>(QStringLiteral("Loading"));
    EXPECT_TRUE(loading.isVisible());
    auto& box = Find<BoxEdit>(QStringLiteral("iqt2_1"), &loading);
    EXPECT_TRUE(QTest::qWaitFor([&] { return box.hasFocus(); }));
    find("more results");
    EXPECT_TRUE(Find<Form>(QStringLiteral("detailedresult")).isVisible());
    find("guide first steps");
    EXPECT_THAT(script.opened.back(), testing::EndsWith("guide/index.html"));
}

TEST_F(Program, DiagramReadsOutAndOpensTheLoads)
{
    auto& picture = Find<Picture>(QStringLiteral("PicMy"));
    auto& readout = Find<QLabel>(QStringLiteral("hoverz"));
    picture.hovered({16, 10});
    EXPECT_EQ(FromQt(readout.text()), HoverText(session.shown(), LoadAxis::z, 16));
    EXPECT_TRUE(readout.text().startsWith(QStringLiteral(" x = 0.000 m")));
    picture.hovered({90, 10});
    EXPECT_TRUE(readout.text().isEmpty());
    // One place for all diagrams, moved by the arrow keys as well.
    picture.hovered({51, 10});
    const auto other = [this](double x) {
        return FromQt(Find<QLabel>(QStringLiteral("hovery")).text()) ==
               HoverText(session.shown(), LoadAxis::y, x);
    };
    EXPECT_TRUE(other(51));
    EXPECT_THAT(FromQt(Find<QWidget>(QStringLiteral("PicMy")).accessibleDescription()),
                testing::ContainsRegex("IR = 0\\.[0-9]+, EN 1993-1-1: 0\\.[0-9]+"));
    EXPECT_TRUE(Find<QLabel>(QStringLiteral("readingz")).text().startsWith("dz = "));
    QTest::keyClick(&picture, Qt::Key_Right);
    EXPECT_TRUE(other(51 + 1.4));
    picture.left();
    EXPECT_TRUE(readout.text().isEmpty());
    QTest::mouseClick(&picture, Qt::LeftButton);
    EXPECT_TRUE(Find<Form>(QStringLiteral("Loading")).isVisible());
    session.edit().loadmode = 0;
    session.Calculate();
    QTest::mouseClick(&Find<Picture>(QStringLiteral("PicLoadY")), Qt::LeftButton);
    EXPECT_TRUE(Find<Form>(QStringLiteral("endforce")).isVisible());
}

TEST_F(Program, AnUnloadedAxisLeavesItsRoomToTheOther)
{
    auto &z = Find<QWidget>(QStringLiteral("fr2")), &y = Find<QWidget>(QStringLiteral("fr3"));
    EXPECT_TRUE(z.isVisible());
    EXPECT_FALSE(y.isVisible());
    const int whole = z.width();
    session.edit().qload[2] = 3;
    session.edit().qdir[2] = 0;
    session.Calculate();
    Settle();
    EXPECT_TRUE(y.isVisible());
    EXPECT_LT(z.width(), whole * 2 / 3);
    session.edit().qload = {};
    session.Calculate();
    Settle();
    EXPECT_TRUE(z.isVisible());  // the axial load has to be seen somewhere
    EXPECT_FALSE(y.isVisible());
}

TEST_F(Program, MainWindowChoicesReachTheProject)
{
    for (int i = 0; i < 6; ++i) {
        Click(QStringLiteral("cbutt%1").arg(i));
        EXPECT_EQ(state().supportcase, i);
    }
    Choose(QStringLiteral("cbobcy"), 3);
    EXPECT_EQ(state().bcy, 3);
    EXPECT_EQ(Find<QLabel>(QStringLiteral("obcy")).text(), QStringLiteral("b"));
    auto& lateral = Find<QCheckBox>(QStringLiteral("ch_vipp"));
    lateral.click();
    EXPECT_EQ(state().ltb, lateral.isChecked() ? 1 : 0);
    auto& sls = Find<QCheckBox>(QStringLiteral("CheckSLS"));
    const bool shown = sls.isChecked();
    sls.click();
    EXPECT_EQ(state().checksls, shown ? kFalse : kTrue);
    Find<QLineEdit>(QStringLiteral("iproj")).setFocus();
    Find<QLineEdit>(QStringLiteral("iproj")).selectAll();
    QTest::keyClicks(&Find<QLineEdit>(QStringLiteral("iproj")), QStringLiteral("Hall 7"));
    EXPECT_EQ(state().projname, "Hall 7");
}

TEST_F(Program, WorksThroughAWholeProject)
{
    session.edit().nload[1] = 5;
    for (const FamilyTraits& family : Families()) {
        SCOPED_TRACE(family.id);
        Click(ToQt(family.form) + QLatin1Char('i'));
        for (const char* const form : {"setup", "Loading", "endstiff", "bucklingy", "bucklingz",
                                       "chpoints", "vipping", "detailedresult"}) {
            ASSERT_NE(window->OpenForm(form), nullptr);
        }
        Type(Find<BoxEdit>(QStringLiteral("iq_1"), window->OpenForm("Loading")),
             QString::number(3 + family.id % 5));
        for (int report = 0; report < 2; ++report) {
            Menu(QStringLiteral("mnuprint%1").arg(report));
        }
        EXPECT_FALSE(session.failed());
        window->CloseForms();
    }
    ASSERT_EQ(script.printed.size(), 2 * Families().size());
    const std::string pdf = FromQt(Path(QStringLiteral("report.pdf")));
    EXPECT_EQ(WritePdf(script.printed.front(), 1, pdf), "");
    EXPECT_TRUE(QFile::exists(ToQt(pdf)));

    Click(QStringLiteral("p22i"));
    script.savepath = FromQt(Path(QStringLiteral("whole.kst")));
    Menu(QStringLiteral("mnusave"));
    const ProjectState saved = state();
    Menu(QStringLiteral("mnunew"));
    EXPECT_FALSE(state() == saved);
    script.openpath = script.savepath;
    Menu(QStringLiteral("mnuopen"));
    EXPECT_EQ(WriteProject(session.edit()), [&] {
        ProjectState copy = saved;
        return WriteProject(copy);
    }());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_THAT(script.warnings, testing::Each(testing::StartsWith("The page has no room for")));
    EXPECT_EQ(TakeComplaints(), QStringList());
}

TEST_F(Program, RemembersItsSize)
{
    window->resize(1400, 900);
    Settle();
    window->close();
    MainWindow other(desk);
    EXPECT_EQ(other.size(), QSize(1400, 900));
}

class CommaProgram : public Desktop {
public:
    CommaProgram() : Desktop(true) {}
};

TEST_F(CommaProgram, ShowsAndTakesCommasInBoxes)
{
    auto& box = Find<BoxEdit>(QStringLiteral("il"));
    EXPECT_EQ(box.text(), QStringLiteral("5,000"));
    Type(box, QStringLiteral("0,05"));
    EXPECT_EQ(state().l, 0.05F);
    Type(box, QStringLiteral("4.5"));
    EXPECT_EQ(state().l, 4.5F);
    Type(box, QStringLiteral("4,5 m"));
    EXPECT_THAT(script.warnings, testing::Contains("Input string mismatch "));
    EXPECT_EQ(QApplication::focusWidget(), &box);
    EXPECT_EQ(state().l, 4.5F);
}

}  // namespace kestrum
