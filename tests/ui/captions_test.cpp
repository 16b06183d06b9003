// Captions that are used as they stand, blanks and spelling included, and where they stand.

#include "ui/desktop.h"

#include "engine/calculate.h"
#include "sections/family_table.h"
#include "ui/text.h"

#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>

#include <algorithm>
#include <map>

namespace kestrum {

class Captions : public Desktop {
public:
    // Text of a button without the mark of its letter.
    std::string Button(const char* name, QWidget* in = nullptr)
    {
        return FromQt(
            Find<QAbstractButton>(QLatin1String(name), in).text().remove(QLatin1Char('&')));
    }

    std::string Title(const char* name)
    {
        return FromQt(Find<QGroupBox>(QLatin1String(name)).title());
    }

    static bool Shows(const QWidget& in, const QString& text)
    {
        const auto labels = in.findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) {
            return label->text() == text && label->isVisible();
        });
    }
};

TEST_F(Captions, OfTheMainWindow)
{
    const std::pair<const char*, const char*> frames[] = {
        {"fr1", "Input"},
        {"columnframe", "Column data"},
        {"Frame4", "Material"},
        {"fr11", "Member data (m)"},
        {"Frame1", "Lateral Torsional Buckling"},
        {"Frame2", "End supports"},
        {"fr14", "Support"},
        {"frLc", "Load Combinations (LC)"},
        {"fr5", "Calculation data"},
        {"fr4", "Results "},
        {"fr2", "Loading/Moment/Shear/Deflection - Z-axis  "},
        {"fr3", "Loading/Moment/Shear/Deflection - Y-axis  "}};
    for (const auto& [name, title] : frames) {
        EXPECT_EQ(Title(name), title);
    }
    EXPECT_EQ(Button("CheckSLS"), "Incl Deflection control (SLS)");
    EXPECT_EQ(Button("ch_modal"), "Modal Analysis ");
    EXPECT_EQ(Button("cmd_modresult"), "Modeshape 1-3");
    EXPECT_EQ(Button("CmdResult"), "More Results");
    EXPECT_EQ(Find<QLabel>(QStringLiteral("txtError")).text(), ToQt(kCalculationError));
    const auto& column = Find<QGroupBox>(QStringLiteral("columnframe"));
    EXPECT_TRUE(Shows(column, QStringLiteral("Buckling length factor:")));
    EXPECT_TRUE(Shows(column, QStringLiteral("Buckling curve:")));
    for (const char* const name : {"cbobcy", "cbobcz"}) {
        const auto& list = Find<QComboBox>(QLatin1String(name));
        EXPECT_EQ(list.itemText(0), QStringLiteral("Auto"));
        EXPECT_EQ(list.itemData(0, Qt::ToolTipRole).toString(),
                  QStringLiteral("Automatic choosen according to BSK Table 6:233"));
    }
    EXPECT_EQ(Find<QAction>(QStringLiteral("mnup23")).text(), QStringLiteral("Box "));
}

TEST_F(Captions, OfTheSetup)
{
    Form* const form = window->OpenForm("setup");
    Settle();
    EXPECT_EQ(Button("CheckElastic", form), "Cross Section Class 1-2:  Elastic design");
    EXPECT_EQ(Button("CheckConserControl", form), "Conservative control for N+My-Mz ");
    EXPECT_EQ(Button("CheckFlangebuck", form), "Flange buckling not taken into account");
    EXPECT_EQ(Button("CheckWebbuck", form), "Web buckling not taken into account");
    EXPECT_EQ(Button("Command2", form), "Save as default");
    EXPECT_TRUE(Shows(*form, QStringLiteral(" Valid for Double Symmetric Profiles ")));
    EXPECT_TRUE(Shows(
        *form, QStringLiteral("Parameters can only be changed when using EC3 - User defined")));
    EXPECT_TRUE(Shows(*form, QStringLiteral("Exclude Axial Force (N) and Moment (M) in interaction "
                                            "formula if  N/N and/or  M/M  is less than  ")));
}

TEST_F(Captions, OfSectionValues)
{
    Click(QStringLiteral("p10i"));
    const auto& form = Find<Form>(QStringLiteral("p10"));
    EXPECT_TRUE(Shows(form, QStringLiteral("Ix =")));
    for (const char* const unit : {" kg/m", " m2/m", " mm3 (min)", " deg"}) {
        EXPECT_TRUE(Shows(form, QLatin1String(unit))) << unit;
    }
    Click(QStringLiteral("p52i"));
    EXPECT_TRUE(Shows(Find<Form>(QStringLiteral("p52")), QStringLiteral(" mm4 (profile)")));
}

// The names by which scripts and screen readers find the controls.
TEST_F(Captions, EveryControlHasItsName)
{
    const std::pair<const char*, const char*> windows[] = {
        {"kestrum", "fr1 iproj iident columnframe ibly iblz cbobcy cbobcz cbuttbucklingy "
                    "cbuttbucklingz obcy obcz Frame4 cbofyk ifyk fr11 il Frame1 ch_vipp ik zaa "
                    "cbuttlateral Frame2 cbuttsupport ia a_text fr14 cbutt0 cbutt1 cbutt2 cbutt3 "
                    "cbutt4 cbutt5 ispring ProfTab frLc CboLoadComb CheckSLS fr5 cp btnVortex "
                    "Frame5 ch_modal cmd_modresult fr4 pic_result CmdResult txtError fr2 fr3 "
                    "PicLoadZ PicMy PicLoadY PicMz cmdpic mnufile mnusetup mnustiff mnuload1 "
                    "mnuendforces mnuprint mnuhelp mnuwelded mnuplate mnuOther mnubrtish mnunew "
                    "mnuopen mnusave mnusaveas mnuprint00 mnuprint11 mnuprint22 mnurecentfile1 "
                    "mnurecentfile4 mnuexit mnuprint0 mnuprint1 mnuprint2 mnuUpdate mnuTheory "
                    "mnuabout"},
        {"setup", "Cbo1993 framegamma framelamdabeta frameneta igammam0 igammam1 ineta ibeta "
                  "ibetaw ilamdaLT0 ilamdaLT0w cbofyk ifyk ie iuflimit idef_limity idef_limitz "
                  "iLfULS_G iLfULS_Q1 iLfULS_Q2 iLfSLS_G iLfSLS_Q1 iLfSLS_Q2 frULS frPsi "
                  "CboLoadComb Cbo_Q1_Psi1 Cbo_Q2_Psi2 lstCombination frameSclass "
                  "frameSclassNorway rbtnSafetyNorwayClass1 rbtnSafetyNorwayClass24 "
                  "rbtnSafetyClass1 rbtnSafetyClass2 rbtnSafetyClass3 CheckElastic "
                  "CheckConserControl CheckFlangebuck CheckWebbuck rbtnMethod1 rbtnMethod2 CmdOK "
                  "Command1 Command2 Command3"},
        {"Loading", "inn_1 inn_3 iq_1 iq_4 iqt1_1 iqt2_3 iqtx1_1 iqtx2_3 ipm_1 ipmx_8 inn_gq_1 "
                    "iq_gq_4 iqt_gq_3 ipm_gq_8 iq_yz_1 iqt_yz_1 ipm_yz_8 ipm_pm_1 ch_nn_1 ch_q_1 "
                    "ch_qt_1 ch_pm_8 check_selfweight pmxrelative pmxabsolute qtxrelative "
                    "qtxabsolute frN frq frqt frPM frPsi CboLoadComb Cbo_Q1_Psi1 Cbo_Q2_Psi2 "
                    "lstCombination CmdRemove ok"},
        {"endforce", "ine imy1 imy2 imz1 imz2 ivy1 ivy2 ivz1 ivz2 ok"},
        {"endstiff", "oendstiff0 oendstiff1 cwebstiff0 cwebstiff1 iweba web_a webamm ovrzd ovbrzd"},
        {"chpoints", "cp_0 cp_1 no_cp1 no_cp2 no_cp3 icp_1 icp_2 icp_3 cprelative cpabsolute ok"},
        {"vipping", "latbuckl1 latbuckl4 Curve2 Curve3 loadl1 loadl2 loadl3 loadl4 iza cbo "
                    "piclateralrestraint Cfactor C1factor ic1 ic2 ic3 ombrd"},
        {"detailedresult", "MSFlexGrid1 cmdDetailedResult ok"},
        {"compare", "comparison pin ok"},
        {"p01", "osta ostiy ostiz ostix ostiw ostwely ostwelz ostwply ostwplz ostaeff ostweffy "
                "ostweffz ostg ostf osectionclass ontd oncd omyd omzd ovzd ovyd"},
        {"p07", "cbuttbucklingy"},
        {"p10", "stez stu1 stu2 stv1 ostalfa opt_l10_1 opt_l10_2"},
        {"p23", "isth istb1 isttw isttf ista oweld0 oweld1"},
        {"p24", "iload opthsq0 opthsq1 OptClass23Y OptClass23N"},
        {"p31", "istd isttw opthot optcold LblWarning"},
        {"p41", "iident opN1 opN3 opMy1 opMy3 opMz1 opMz3 istax istwplz"},
        {"p52", "cbo istb1 istt1 ostwely ostwelyb"},
        {"p101", "prof1 prof2 prof3"},
        {"p103", "prof1 prof2"},
        {"frmVortex", "btnVortex0 btnVortex4 cboTerrain ivb iz lblvm lblvcrit lblfreq lblOK"},
        {"Modal_ns", "massa mod1 mod2 mod3"}};
    session.edit().family = 6;
    session.edit().modal = 1;
    session.Calculate();
    for (const auto& [name, controls] : windows) {
        QWidget* const host = std::string_view(name) == "kestrum"
                                  ? static_cast<QWidget*>(window.get())
                                  : window->OpenForm(name);
        ASSERT_NE(host, nullptr) << name;
        EXPECT_EQ(FromQt(host->objectName()), name);
        const QString list = QString::fromLatin1(controls);
        for (const QString& control : list.split(QLatin1Char(' '))) {
            EXPECT_NE(host->findChild<QObject*>(control), nullptr)
                << name << "." << FromQt(control);
        }
    }
}

// What a screen reader says of each control that Tab reaches: never nothing, and never the same of
// two controls in a window.
TEST_F(Captions, ScreenReadersTellTheControlsApart)
{
    session.edit().modal = 1;
    session.edit().loadcomb = 5;
    session.edit().cpmode = 1;
    session.edit().cpcount = 3;
    std::vector<std::string_view> names = MainWindow::FormNames();
    names.emplace_back("kestrum");
    for (const std::string_view name : names) {
        session.edit().family = 6;
        for (const FamilyTraits& family : Families()) {
            session.edit().family =
                family.form == name ? static_cast<i16>(family.id) : state().family;
        }
        session.Calculate();
        QWidget* const host =
            name == "kestrum" ? static_cast<QWidget*>(window.get()) : window->OpenForm(name);
        std::map<QString, QString> said;
        for (QWidget* const widget : host->findChildren<QWidget*>()) {
            const bool reached = widget->isVisible() && widget->isEnabled() &&
                                 widget->window() == host &&
                                 (widget->focusPolicy() & Qt::TabFocus) != 0;
            // A list is announced by its choice; texts and what scrolls tell what they hold.
            if (!reached || qobject_cast<QScrollArea*>(widget) != nullptr ||
                qobject_cast<QLabel*>(widget) != nullptr ||
                qobject_cast<QComboBox*>(widget) != nullptr) {
                continue;
            }
            const QString text =
                QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
            EXPECT_FALSE(text.trimmed().isEmpty()) << name << " " << FromQt(widget->objectName());
            const auto [at, fresh] = said.try_emplace(text, widget->objectName());
            EXPECT_TRUE(fresh) << name << " " << FromQt(text) << ": " << FromQt(at->second) << ", "
                               << FromQt(widget->objectName());
        }
        if (host != window.get()) {
            host->hide();
        }
    }
}

TEST_F(Captions, PicturesOfTheInputFollowTheProject)
{
    for (const char* const name : {"picmember", "picvipping"}) {
        EXPECT_TRUE(Find<Picture>(QLatin1String(name)).isVisible());
    }
    const auto look = [this](const char* name) {
        Settle();
        return Find<Picture>(QLatin1String(name)).grab().toImage();
    };
    const QImage member = look("picmember"), restraints = look("picvipping");
    Click(QStringLiteral("cbutt4"));
    EXPECT_NE(look("picmember"), member);
    session.edit().restraints = 2;
    session.Calculate();
    EXPECT_NE(look("picvipping"), restraints);
    Find<QCheckBox>(QStringLiteral("ch_vipp")).click();
    EXPECT_FALSE(Find<Picture>(QStringLiteral("picvipping")).isVisible());
}

}  // namespace kestrum
