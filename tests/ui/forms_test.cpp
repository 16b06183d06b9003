// The forms over the main window: what each control does, what is shown and when a form closes.

#include "core/project_state.h"
#include "ui/desktop.h"

#include "app/load_commands.h"
#include "core/annexes.h"
#include "report/detailed_table.h"
#include "sections/family_table.h"
#include "ui/text.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QTableWidget>

namespace kestrum {

class Forms : public Desktop {
public:
    QString Caption(const QString& button, QWidget& in)
    {
        return Find<QAbstractButton>(button, &in).text();
    }

    bool Shown(const QString& name, QWidget& in) { return Find<QWidget>(name, &in).isVisible(); }
};

TEST_F(Forms, AllOpenCloseAndFollowEveryPass)
{
    session.edit().family = 6;
    session.edit().modal = 1;
    for (const std::string_view name : MainWindow::FormNames()) {
        SCOPED_TRACE(std::string(name));
        for (const FamilyTraits& family : Families()) {
            if (family.form == name) {
                session.edit().family = static_cast<i16>(family.id);
            }
        }
        session.Calculate();
        Form& form = Open(name);
        EXPECT_TRUE(form.isVisible());
        EXPECT_FALSE(form.isModal());
        session.edit().l = session.state().l == 5 ? 4.0F : 5.0F;
        session.Calculate();
        form.close();
        EXPECT_FALSE(form.isVisible());
        session.edit().family = 6;
    }
    EXPECT_TRUE(script.warnings.empty());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(TakeComplaints(), QStringList());
}

TEST_F(Forms, LoadingRotatesAndTogglesItsRows)
{
    Form& form = Open("Loading");
    const auto category = QStringLiteral("iq_gq_1");
    EXPECT_EQ(Caption(category, form), QStringLiteral("G"));
    for (const char* const text : {"Q1", "Q2", "G"}) {
        Click(category, &form);
        EXPECT_EQ(Caption(category, form), QLatin1String(text));
    }
    Click(QStringLiteral("iq_yz_1"), &form);
    EXPECT_EQ(Caption(QStringLiteral("iq_yz_1"), form), QStringLiteral("Y"));
    EXPECT_EQ(state().qdir[1], 0);
    Click(QStringLiteral("ipm_pm_8"), &form);
    EXPECT_EQ(Caption(QStringLiteral("ipm_pm_8"), form), QStringLiteral("M"));
    EXPECT_EQ(Caption(QStringLiteral("ipm_yz_8"), form), QStringLiteral("My"));
    Click(QStringLiteral("ipm_yz_8"), &form);
    EXPECT_EQ(Caption(QStringLiteral("ipm_yz_8"), form), QStringLiteral("Mz"));
}

// The mouse goes to the choice under it in one step of Undo.
TEST_F(Forms, ChoicesOfALoadAreSeenAndPointedAt)
{
    Form& form = Open("Loading");
    auto& category = Find<QPushButton>(QStringLiteral("iq_gq_1"), &form);
    const QPoint last(category.width() - 8, category.height() / 2);
    QTest::mouseClick(&category, Qt::LeftButton, Qt::NoModifier, last);
    Settle();
    EXPECT_EQ(category.text(), QStringLiteral("Q2"));
    session.Undo();
    EXPECT_EQ(category.text(), QStringLiteral("G"));
    QTest::mouseClick(&category, Qt::LeftButton, Qt::NoModifier, QPoint(8, last.y()));
    Settle();
    EXPECT_EQ(category.text(), QStringLiteral("Q1"));  // as by the key
}

TEST_F(Forms, LoadingShowsWhatGoesWithTheCombination)
{
    Form& form = Open("Loading");
    for (int i = 0; i < 6; ++i) {
        SCOPED_TRACE(i);
        Choose(QStringLiteral("CboLoadComb"), i, &form);
        EXPECT_EQ(Shown(QStringLiteral("frPsi"), form), i < 4);
        EXPECT_EQ(Shown(QStringLiteral("ch_q_1"), form), i == 5);
        EXPECT_EQ(Shown(QStringLiteral("CmdRemove"), form), i == 5);
        EXPECT_EQ(state().loadcomb, i);
        const auto lists = window->findChildren<QComboBox*>(QStringLiteral("CboLoadComb"));
        for (const QComboBox* const list : lists) {
            EXPECT_EQ(list->currentIndex(), i);
        }
    }
}

TEST_F(Forms, LoadingStaysOpenUntilItsTrapezoidsAreRight)
{
    Form& form = Open("Loading");
    Type(Find<BoxEdit>(QStringLiteral("iqtx2_2"), &form), QStringLiteral("4"));
    Type(Find<BoxEdit>(QStringLiteral("iqt1_2"), &form), QStringLiteral("5"));
    script.warnings.clear();
    Type(Find<BoxEdit>(QStringLiteral("iqt2_2"), &form), QStringLiteral("-5"));
    EXPECT_THAT(script.warnings,
                testing::Contains(" Trapezoidal load: One positive and one negative value "));
    script.warnings.clear();
    Click(QStringLiteral("ok"), &form);
    EXPECT_TRUE(form.isVisible());
    EXPECT_THAT(script.warnings,
                testing::ElementsAre(" Trapezoidal load: One positive and one negative value "));
    auto* const focus = QApplication::focusWidget();
    ASSERT_NE(focus, nullptr);
    EXPECT_TRUE(focus->objectName().endsWith(QStringLiteral("_2")));
    Type(Find<BoxEdit>(QStringLiteral("iqt2_2"), &form), QStringLiteral("5"));
    Click(QStringLiteral("ok"), &form);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(Forms, LoadingShowsRelativePositions)
{
    session.edit().l = 6;
    session.Calculate();
    Form& form = Open("Loading");
    Type(Find<BoxEdit>(QStringLiteral("ipm_1"), &form), QStringLiteral("10"));
    Click(QStringLiteral("pmxrelative"), &form);
    EXPECT_EQ(Find<QLabel>(QStringLiteral("pmxhead"), &form).text(), QStringLiteral("x/L"));
    auto& x = Find<BoxEdit>(QStringLiteral("ipmx_1"), &form);
    Type(x, QStringLiteral("0.5"));
    EXPECT_EQ(state().pmx[1], 3.0F);
    EXPECT_EQ(x.text(), QStringLiteral("0.500"));
    Type(x, QStringLiteral("1.2"));
    EXPECT_THAT(script.warnings, testing::ElementsAre(" 0 < x <= 1 "));
    EXPECT_EQ(state().pmx[1], 0.0F);
    EXPECT_EQ(QApplication::focusWidget(), &x);
    Type(x, QStringLiteral("0.5"));
    Click(QStringLiteral("pmxabsolute"), &form);
    EXPECT_EQ(x.text(), QStringLiteral("3.000"));
}

TEST_F(Forms, RemoveEmptiesTickedRows)
{
    Form& form = Open("Loading");
    Choose(QStringLiteral("CboLoadComb"), 5, &form);
    auto& tick = Find<QCheckBox>(QStringLiteral("ch_q_1"), &form);
    if (!tick.isChecked()) {
        tick.click();
    }
    ASSERT_NE(state().qload[1], 0.0F);
    Click(QStringLiteral("CmdRemove"), &form);
    EXPECT_EQ(state().qload[1], 0.0F);
    EXPECT_EQ(Find<BoxEdit>(QStringLiteral("iq_1"), &form).text(), QStringLiteral("0.0"));
}

TEST_F(Forms, EndForcesShowWhatTheFamilyCarries)
{
    const auto shown = [this](int family) {
        session.edit().family = static_cast<i16>(family);
        session.Calculate();
        Form& form = Open("endforce");
        std::string fields;
        fields += Shown(QStringLiteral("ine"), form) ? "N" : "";
        fields += Shown(QStringLiteral("imy1"), form) ? "y" : "";
        fields += Shown(QStringLiteral("ivy2"), form) ? "z" : "";
        form.close();
        return fields;
    };
    EXPECT_EQ(shown(1), "Nyz");
    EXPECT_EQ(shown(26), "N");
    EXPECT_EQ(shown(24), "y");
    EXPECT_EQ(shown(56), "y");
    EXPECT_EQ(state().loadmode, 0);
}

TEST_F(Forms, MenuOfTheEndForcesPinsTheEndsAndLoadingKeepsItsLoads)
{
    Click(QStringLiteral("cbutt2"));
    const ProjectState before = state();
    Menu(QStringLiteral("mnuendforces"));
    EXPECT_EQ(state().loadmode, 0);
    EXPECT_EQ(state().supportcase, 0);
    EXPECT_FALSE(Shown(QStringLiteral("frLc"), *window));
    Menu(QStringLiteral("mnuload1"));
    EXPECT_EQ(state().loadmode, 1);
    EXPECT_EQ(state().qload[1], before.qload[1]);
    EXPECT_TRUE(Shown(QStringLiteral("frLc"), *window));
}

TEST_F(Forms, BucklingCaseFiveOpensTheFactor)
{
    Form& form = Open("bucklingy");
    auto& factor = Find<BoxEdit>(QStringLiteral("ibly"));
    for (const auto& [choice, text] :
         {std::pair{1, "2.00"}, {2, "1.00"}, {3, "0.70"}, {4, "0.50"}, {5, "0.00"}}) {
        Click(QStringLiteral("bucklingy%1").arg(choice), &form);
        EXPECT_EQ(state().bucklingcasey, choice);
        EXPECT_EQ(factor.text(), QLatin1String(text));
        EXPECT_EQ(factor.isEnabled(), choice == 5);
    }
    Type(factor, QStringLiteral("0.19"));
    EXPECT_THAT(script.warnings, testing::ElementsAre(" Buckling length factor Y-axis >= 0.2 "));
    Type(factor, QStringLiteral("0.2"));
    EXPECT_EQ(state().ly, 0.2F);
}

TEST_F(Forms, CheckPointsLeadEnterToTheNextActiveBoxThenToTheButton)
{
    Form& form = Open("chpoints");
    EXPECT_FALSE(Find<BoxEdit>(QStringLiteral("icp_1"), &form).isEnabled());
    Click(QStringLiteral("cp_1"), &form);
    Click(QStringLiteral("no_cp2"), &form);
    EXPECT_EQ(state().cpcount, 2);
    auto& first = Find<BoxEdit>(QStringLiteral("icp_1"), &form);
    auto& second = Find<BoxEdit>(QStringLiteral("icp_2"), &form);
    auto& third = Find<BoxEdit>(QStringLiteral("icp_3"), &form);
    EXPECT_FALSE(third.isEnabled());
    first.setFocus();
    QTest::keyClick(&first, Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &second);
    QTest::keyClick(&second, Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &Find<QWidget>(QStringLiteral("ok"), &form));
    Click(QStringLiteral("no_cp3"), &form);
    third.setFocus();
    QTest::keyClick(&third, Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &first);
    EXPECT_EQ(state().npts, 2);
}

TEST_F(Forms, WebStiffenersMakeARigidEndPost)
{
    Form& form = Open("endstiff");
    EXPECT_FALSE(Shown(QStringLiteral("iweba"), form));
    EXPECT_EQ(Find<QLabel>(QStringLiteral("ia")).text(), QStringLiteral("Non-rigid"));
    Click(QStringLiteral("cwebstiff1"), &form);
    EXPECT_TRUE(Shown(QStringLiteral("iweba"), form));
    EXPECT_TRUE(Shown(QStringLiteral("web_a"), form));
    EXPECT_TRUE(Find<QRadioButton>(QStringLiteral("oendstiff1"), &form).isChecked());
    EXPECT_EQ(Find<QLabel>(QStringLiteral("ia")).text(), QStringLiteral("Rigid"));
    EXPECT_FALSE(Find<QLabel>(QStringLiteral("a_text")).text().isEmpty());
    Click(QStringLiteral("cwebstiff0"), &form);
    EXPECT_EQ(state().webstiffa, state().l * 1000);
    EXPECT_FALSE(Shown(QStringLiteral("iweba"), form));
}

TEST_F(Forms, SetupOpensParametersForTheUserAnnexAlone)
{
    Form& form = Open("setup");
    auto& gamma = Find<BoxEdit>(QStringLiteral("igammam1"), &form);
    for (int annex = 0; annex < kAnnexes; ++annex) {
        Choose(QStringLiteral("Cbo1993"), annex, &form);
        EXPECT_EQ(state().annexindex, annex);
        EXPECT_EQ(gamma.isEnabled(), annex == kAnnexUd);
    }
    // EN 1993-1-1, DK NA: gammaM1 is 1.2
    Choose(QStringLiteral("Cbo1993"), 3, &form);
    EXPECT_EQ(gamma.text(), QStringLiteral("1.20"));
    EXPECT_TRUE(window->windowTitle().startsWith(QStringLiteral("Kestrum EC3 + NA/Denmark: ")));
    Choose(QStringLiteral("Cbo1993"), kAnnexUd, &form);  // keeps what Denmark left
    EXPECT_EQ(gamma.text(), QStringLiteral("1.20"));
    Type(gamma, QStringLiteral("1.05"));
    EXPECT_EQ(state().gammam1, 1.05F);
}

TEST_F(Forms, SetupShowsTheClassesOfTheAnnex)
{
    Form& form = Open("setup");
    struct Row {
        int annex;
        bool norway, three;
        const char* caption;
    };
    for (const Row& row :
         {Row{0, false, false, ""}, Row{1, true, false, "Reliability Class"},
          Row{2, false, true, "Safety Class"}, Row{3, false, true, "Consequences Class"},
          Row{5, false, true, "Reliability Class"}, Row{8, false, false, ""}}) {
        SCOPED_TRACE(row.annex);
        Choose(QStringLiteral("Cbo1993"), row.annex, &form);
        Choose(QStringLiteral("CboLoadComb"), 2, &form);
        EXPECT_EQ(Shown(QStringLiteral("frameSclassNorway"), form), row.norway);
        EXPECT_EQ(Shown(QStringLiteral("frameSclass"), form), row.three);
        if (row.norway || row.three) {
            const auto name =
                row.norway ? QStringLiteral("frameSclassNorway") : QStringLiteral("frameSclass");
            EXPECT_EQ(Find<QGroupBox>(name, &form).title(), QLatin1String(row.caption));
        }
        Choose(QStringLiteral("CboLoadComb"), 4, &form);
        EXPECT_FALSE(Shown(QStringLiteral("frameSclass"), form));
        EXPECT_TRUE(Shown(QStringLiteral("frULS"), form));
    }
}

TEST_F(Forms, SetupAndMainWindowShowOneMaterial)
{
    Form& form = Open("setup");
    Choose(QStringLiteral("cbofyk"), 0, &form);
    auto& main =
        Find<QComboBox>(QStringLiteral("cbofyk"), &Find<QWidget>(QStringLiteral("Frame4")));
    EXPECT_EQ(main.currentIndex(), 0);
    auto& strength =
        Find<BoxEdit>(QStringLiteral("ifyk"), &Find<QWidget>(QStringLiteral("Frame4")));
    EXPECT_EQ(strength.text(), QStringLiteral("235"));
    EXPECT_FALSE(strength.isEnabled());
    main.setCurrentIndex(main.count() - 1);
    EXPECT_TRUE(strength.isEnabled());
    EXPECT_TRUE(Find<BoxEdit>(QStringLiteral("ifyk"), &form).isEnabled());
    EXPECT_EQ(strength.text(), QStringLiteral("235"));  // as it was
}

TEST_F(Forms, VippingForcesTheGeneralCurveWhereItMust)
{
    session.edit().family = 5;
    session.Calculate();
    Form& form = Open("vipping");
    EXPECT_TRUE(Find<QRadioButton>(QStringLiteral("Curve2"), &form).isChecked());
    EXPECT_FALSE(Find<QRadioButton>(QStringLiteral("Curve3"), &form).isEnabled());
}

// Its parameters can be looked at, and set, before the control is switched on.
TEST_F(Forms, VippingOpensWithoutItsControl)
{
    Find<QCheckBox>(QStringLiteral("ch_vipp")).click();
    ASSERT_EQ(state().ltb, 0);
    Click(QStringLiteral("cbuttlateral"));
    EXPECT_TRUE(Find<Form>(QStringLiteral("vipping")).isVisible());
}

TEST_F(Forms, VippingOffersManualFactorsForLoadedMembersWithoutRestraints)
{
    Form& form = Open("vipping");
    auto& manual = Find<QCheckBox>(QStringLiteral("Cfactor"), &form);
    EXPECT_TRUE(manual.isEnabled());
    manual.click();
    EXPECT_TRUE(Find<BoxEdit>(QStringLiteral("ic1"), &form).isEnabled());
    Choose(QStringLiteral("cbo"), 2, &form);
    EXPECT_EQ(state().restraints, 2);
    EXPECT_FALSE(manual.isEnabled());
    EXPECT_FALSE(Find<BoxEdit>(QStringLiteral("ic1"), &form).isEnabled());
}

TEST_F(Forms, VippingTakesTheLoadDistance)
{
    Form& form = Open("vipping");
    Click(QStringLiteral("loadl4"), &form);
    Type(Find<BoxEdit>(QStringLiteral("iza"), &form), QStringLiteral("-75"));
    EXPECT_EQ(state().za, -75.0);
    EXPECT_EQ(Find<QLabel>(QStringLiteral("zaa")).text(), QStringLiteral("Za = -75.0 mm"));
}

TEST_F(Forms, VortexIsForHollowSectionsOnly)
{
    Click(QStringLiteral("btnVortex"));
    EXPECT_THAT(script.warnings, testing::ElementsAre("Only valid for boxes and tubes"));
    EXPECT_EQ(window->findChild<Form*>(QStringLiteral("frmVortex")), nullptr);
    session.edit().family = 31;
    session.Calculate();
    Click(QStringLiteral("btnVortex"));
    auto& form = Find<Form>(QStringLiteral("frmVortex"));
    EXPECT_TRUE(form.isVisible());
    Type(Find<BoxEdit>(QStringLiteral("ivb"), &form), QStringLiteral("4.9"));
    EXPECT_THAT(script.warnings, testing::Contains(" vb >= 5 m/s "));
    Type(Find<BoxEdit>(QStringLiteral("ivb"), &form), QStringLiteral("500"));
    EXPECT_EQ(Find<QLabel>(QStringLiteral("lblOK"), &form).text(), QStringLiteral(" NOK "));
    Type(Find<BoxEdit>(QStringLiteral("ivb"), &form), QStringLiteral("5"));
    EXPECT_EQ(Find<QLabel>(QStringLiteral("lblOK"), &form).text(), QStringLiteral(" OK "));
}

// E I and mass belong to the section and the length: the frequency goes with 1/L2.
TEST_F(Forms, VortexFollowsTheMemberAndClosesWithAnotherFamily)
{
    session.edit().family = 31;
    session.edit().l = 4;
    session.Calculate();
    Form& form = Open("frmVortex");
    auto& frequency = Find<QLabel>(QStringLiteral("lblfreq"), &form);
    const auto hertz = [&] { return frequency.text().section(QLatin1Char(' '), 0, 0).toDouble(); };
    const double before = hertz();
    session.edit().l = 2;
    session.Calculate();
    EXPECT_NEAR(hertz(), 4 * before, 4 * 0.05 + 0.05);  // shown to 0.1 Hz
    Click(QStringLiteral("p04i"));
    EXPECT_FALSE(form.isVisible());
}

// Both forms keep their frequency in one field of the record.
TEST_F(Forms, ModeShapesKeepTheirFrequenciesBesideTheVortexForm)
{
    session.edit().family = 31;
    session.edit().modal = 1;
    session.Calculate();
    Form& modal = Open("Modal_ns");
    const QString first = Find<QLabel>(QStringLiteral("mod1"), &modal).text();
    Form& vortex = Open("frmVortex");
    Click(QStringLiteral("btnVortex4"), &vortex);
    EXPECT_EQ(Find<QLabel>(QStringLiteral("mod1"), &modal).text(), first);
    Find<QCheckBox>(QStringLiteral("ch_modal")).click();
    EXPECT_FALSE(modal.isVisible());
    EXPECT_FALSE(Find<QAction>(QStringLiteral("mnumodal")).isEnabled());
    EXPECT_EQ(window->OpenForm("Modal_ns"), nullptr);
}

TEST_F(Forms, ModalIsRefusedForSprings)
{
    Click(QStringLiteral("cbutt3"));
    EXPECT_TRUE(Shown(QStringLiteral("ispring"), *window));
    auto& tick = Find<QCheckBox>(QStringLiteral("ch_modal"));
    tick.click();
    EXPECT_THAT(script.warnings,
                testing::ElementsAre(" Modal analysis not possible for spring supports "));
    EXPECT_FALSE(tick.isChecked());
    EXPECT_FALSE(Find<QWidget>(QStringLiteral("cmd_modresult")).isEnabled());
    Click(QStringLiteral("cbutt0"));
    EXPECT_FALSE(Shown(QStringLiteral("ispring"), *window));
    tick.click();
    EXPECT_TRUE(tick.isChecked());
    Click(QStringLiteral("cmd_modresult"));
    auto& form = Find<Form>(QStringLiteral("Modal_ns"));
    EXPECT_TRUE(Find<QLabel>(QStringLiteral("mod3"), &form).text().startsWith("Mode 3: "));
    Click(QStringLiteral("cbutt3"));
    EXPECT_TRUE(tick.isChecked());  // the message comes from ticking alone
}

TEST_F(Forms, DetailedResultsFillTheirTableAndGoToASpreadsheet)
{
    Click(QStringLiteral("CmdResult"));
    auto& form = Find<Form>(QStringLiteral("detailedresult"));
    auto& table = Find<QTableWidget>(QStringLiteral("MSFlexGrid1"), &form);
    const auto rows = FillDetailedResult(session.shown());
    ASSERT_EQ(table.rowCount(), static_cast<int>(rows.size()));
    EXPECT_EQ(FromQt(table.item(3, 0)->text()), rows[3].parameter);
    EXPECT_EQ(FromQt(table.item(4, 1)->text()), rows[4].value);
    Click(QStringLiteral("cmdDetailedResult"), &form);
    Click(QStringLiteral("cmdDetailedResult"), &form);
    ASSERT_EQ(script.opened.size(), 2U);
    EXPECT_NE(script.opened[0], script.opened[1]);  // the first may still be open there
    for (const std::string& path : script.opened) {
        EXPECT_TRUE(QFile::exists(ToQt(path)));
        EXPECT_TRUE(QFile::remove(ToQt(path)));
    }
    script.opens = false;
    Click(QStringLiteral("cmdDetailedResult"), &form);
    EXPECT_FALSE(QFile::exists(ToQt(script.opened.back())));
    EXPECT_THAT(script.warnings, testing::ElementsAre(" Error on tranfere data to Excel "));
    EXPECT_TRUE(form.isVisible());
}

TEST_F(Forms, FormsOfInformationOpenFromTheirButtons)
{
    Form& setup = Open("setup");
    Choose(QStringLiteral("CboLoadComb"), 0, &setup);
    Click(QStringLiteral("Command3"), &setup);
    EXPECT_TRUE(Find<Form>(QStringLiteral("InfoPsi")).isVisible());
    Choose(QStringLiteral("CboLoadComb"), 4, &setup);
    Click(QStringLiteral("Command1"), &setup);
    EXPECT_TRUE(Find<Form>(QStringLiteral("InfoULS")).isVisible());
    Menu(QStringLiteral("mnuabout"));
    EXPECT_EQ(Find<QLabel>(QStringLiteral("lblversion")).text(), QStringLiteral("Version 1.3.1 "));
}

}  // namespace kestrum
