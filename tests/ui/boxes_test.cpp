// Every numeric box, typed into as a user does: what is stored, said and shown, and where the focus
// goes, is what the table of boxes tells.

#include "core/project_state.h"
#include "ui/desktop.h"

#include "app/box_help.h"
#include "app/locale_text.h"
#include "app/setup_commands.h"
#include "app/view_member.h"
#include "core/annexes.h"
#include "core/field_table.h"
#include "sections/family_table.h"
#include "ui/text.h"

#include <QApplication>
#include <QMessageBox>

namespace kestrum {

namespace {

QString Number(double value, bool comma)
{
    QString text = QString::number(value, 'g', 9);
    return comma ? text.replace(QLatin1Char('.'), QLatin1Char(',')) : text;
}

// Texts beyond the limits of a box, and some that are none; with a decimal comma those that have
// it. The limits themselves are asked of Commit() (app/input_boxes).
QStringList TextsFor(const Box& box, bool comma)
{
    const Field& field = *FindField(box.field);
    QStringList texts{QStringLiteral("abc"), QString(), Number(12.5, comma),
                      QStringLiteral("40000")};
    const auto add = [&](const Bound& bound, double sign) {
        if (bound.kind != Bound::Kind::none) {
            const double step = std::max(0.01 * std::abs(bound.value), 0.001);
            texts << Number(bound.value + sign * (field.kind == FieldKind::integer ? 1 : step),
                            comma);
        }
    };
    add(field.limits.lower, -1);
    add(field.limits.upper, 1);
    return comma ? texts.filter(QStringLiteral(",")) : texts;
}

}  // namespace

class Boxes : public Desktop, public testing::WithParamInterface<bool> {
public:
    Boxes() : Desktop(GetParam()) {}

    // Everything that a box may need to be there and open.
    void OpenEverything()
    {
        ProjectState& s = session.edit();
        s.fykindex = static_cast<i16>(Delivered().materials.size() - 1);
        s.annexindex = kAnnexUd;
        s.annexcode = "UD";
        s.loadcomb = 4;
        s.loadmode = 1;
        s.bucklingcasey = s.bucklingcasez = 5;
        s.supportcase = 3;
        s.spring = 50;
        s.cpmode = 1;
        s.cpcount = 3;
        s.webstiff = 1;
        s.webstiffa = 1000;
        s.ltb = 1;
        s.restraints = 0;
        s.cmanual = kTrue;
        s.loadlevel = 4;
        session.Calculate();
    }

    QWidget* WindowOf(const Box& box)
    {
        if (box.form == "kestrum") {
            return window.get();
        }
        for (const FamilyTraits& family : Families()) {
            if (family.form == box.form) {
                session.edit().family = static_cast<i16>(family.id);
            }
        }
        if (box.form == "frmVortex") {
            session.edit().family = 6;
        }
        session.edit().loadmode = box.form == "endforce" ? 0 : 1;
        session.Calculate();
        return window->OpenForm(box.form);
    }

    void TryText(const Box& box, BoxEdit& edit, int row, const QString& text)
    {
        SCOPED_TRACE(std::string(box.form) + "." + std::string(box.id) + " \"" + FromQt(text) +
                     "\"");
        const ProjectState before = session.state();
        ProjectState expected = before;
        const BoxOutcome outcome = Commit(expected, box, row, FromQt(text), GetParam());
        script.warnings.clear();
        Type(edit, text);
        std::vector<std::string> said;
        if (!outcome.message.empty()) {
            said.emplace_back(outcome.message);
        }
        ASSERT_FALSE(script.warnings.empty() && !said.empty()) << "nothing was said";
        if (!said.empty()) {
            EXPECT_EQ(script.warnings.front(), said.front());
        }
        EXPECT_EQ(QApplication::focusWidget() == &edit, !outcome.taken);
        EXPECT_EQ(edit.refused(), !outcome.taken);
        const Field& field = *FindField(box.field);
        EXPECT_FLOAT_EQ(static_cast<float>(NumberOf(session.state(), field, row)),
                        static_cast<float>(NumberOf(expected, field, row)));
        if (outcome.message == kMismatch) {
            EXPECT_EQ(edit.text(), text);
        } else if (box.rule != BoxRule::boxtop) {
            EXPECT_EQ(FromQt(edit.text()),
                      ForLocale(BoxText(session.state(), box, row), GetParam()));
        }
        session.edit() = before;
        session.Calculate();
    }
};

TEST_P(Boxes, StoreSayAndKeepTheFocusAsTheirTableTells)
{
    OpenEverything();
    for (const Box& box : InputBoxes()) {
        QWidget* const host = WindowOf(box);
        ASSERT_NE(host, nullptr) << box.form;
        Settle();
        const Field& field = *FindField(box.field);
        const int row = field.shape == FieldShape::array ? field.last : 0;
        QString name = ToQt(box.id);
        if (row > 0) {
            name += QLatin1Char('_') + QString::number(row);
        }
        BoxEdit& edit = Find<BoxEdit>(name, host);
        ASSERT_TRUE(edit.isVisible() && edit.isEnabled()) << box.form << "." << box.id;
        for (const QString& text : TextsFor(box, GetParam())) {
            TryText(box, edit, row, text);
        }
        if (host != window.get()) {
            host->hide();
        }
    }
    EXPECT_EQ(TakeComplaints(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(PointAndComma, Boxes, testing::Bool());

class OneBox : public Desktop {};

TEST_F(OneBox, IsGreenAndSelectedWithTheFocusAndPlainWithout)
{
    auto& box = Find<BoxEdit>(QStringLiteral("il"));
    box.setFocus(Qt::TabFocusReason);
    Settle();
    EXPECT_EQ(box.palette().color(QPalette::Base), QColor(0, 255, 0));
    EXPECT_EQ(box.selectedText(), box.text());
    Find<QWidget>(QStringLiteral("iproj")).setFocus();
    Settle();
    EXPECT_EQ(box.palette().color(QPalette::Base), QApplication::palette().color(QPalette::Base));
}

TEST_F(OneBox, EnterGoesToTheNextBox)
{
    window->OpenForm("Loading");
    Settle();
    auto& first = Find<BoxEdit>(QStringLiteral("inn_1"));
    first.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&first, Qt::Key_Return);
    Settle();
    EXPECT_EQ(QApplication::focusWidget(), &Find<BoxEdit>(QStringLiteral("inn_2")));
}

TEST_F(OneBox, UntouchedChangesNothing)
{
    session.edit().l = 5.12345F;
    session.Calculate();
    auto& box = Find<BoxEdit>(QStringLiteral("il"));
    box.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&box, Qt::Key_Tab);
    Settle();
    EXPECT_EQ(state().l, 5.12345F);
}

TEST_F(OneBox, RefusedStaysUntilCorrected)
{
    auto& box = Find<BoxEdit>(QStringLiteral("il"));
    Type(box, QStringLiteral("0.0499"));
    EXPECT_THAT(script.warnings, testing::ElementsAre(" L >= 0.050 "));
    EXPECT_EQ(box.text(), QStringLiteral("0.050"));  // the value rounds to the limit in its format
    EXPECT_EQ(QApplication::focusWidget(), &box);
    QTest::keyClick(&box, Qt::Key_Tab);  // untouched: refused again, as its text now reads 0.050
    Settle();
    EXPECT_FALSE(box.refused());
    Type(box, QStringLiteral("4"));
    EXPECT_EQ(state().l, 4.0F);
    EXPECT_NE(QApplication::focusWidget(), &box);
}

TEST_F(OneBox, RefusedKeepsItsFormOpen)
{
    Form* const form = window->OpenForm("endstiff");
    Click(QStringLiteral("cwebstiff1"), form);
    auto& box = Find<BoxEdit>(QStringLiteral("iweba"), form);
    EXPECT_EQ(QApplication::focusWidget(), &box);
    Type(box, QStringLiteral("5000"));
    EXPECT_THAT(script.warnings, testing::ElementsAre(" 100 < a < l "));
    Click(QStringLiteral("ok"), form);
    EXPECT_TRUE(form->isVisible());
    Type(box, QStringLiteral("4999"));
    Click(QStringLiteral("ok"), form);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(state().webstiffa, 4999.0F);
}

TEST_F(OneBox, ClosingAFormTakesWhatIsBeingTyped)
{
    Form* const form = window->OpenForm("Loading");
    Settle();
    auto& box = Find<BoxEdit>(QStringLiteral("iq_1"), form);
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, QStringLiteral("17.5"));
    form->close();
    Settle();
    EXPECT_EQ(state().qload[1], 17.5F);
}

TEST_F(OneBox, HasTooltipUnitAndAccessibleName)
{
    for (const Box& box : InputBoxes()) {
        const BoxHelp& help = HelpOf(box);
        EXPECT_FALSE(help.meaning.empty()) << box.form << "." << box.id;
        EXPECT_FALSE(help.label.empty()) << box.form << "." << box.id;
    }
    const auto& box = Find<BoxEdit>(QStringLiteral("il"));
    EXPECT_EQ(box.toolTip(), QStringLiteral("Length of the member [m]\nL >= 0.050"));
    EXPECT_EQ(box.accessibleName(), QStringLiteral("Length of the member [m]"));
}

}  // namespace kestrum
