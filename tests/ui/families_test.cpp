// Every family in turn: its button and menu entry, its form, every input of it.

#include "core/project_state.h"
#include "ui/desktop.h"

#include "app/view_section.h"
#include "sections/family_table.h"
#include "sections/read_profiles.h"
#include "ui/text.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableView>

namespace kestrum {

class FamilyForms : public Desktop {
public:
    // The widgets of a kind that the user can reach.
    template <class T> static std::vector<T*> Reachable(QWidget* in)
    {
        std::vector<T*> found;
        for (T* const widget : in->findChildren<T*>()) {
            if (widget->isVisible() && widget->isEnabled() && !widget->objectName().isEmpty()) {
                found.push_back(widget);
            }
        }
        return found;
    }
};

TEST_F(FamilyForms, ButtonAndMenuEntryChooseTheFamilyAndShowItsForm)
{
    for (const FamilyTraits& family : Families()) {
        SCOPED_TRACE(family.id);
        Click(ToQt(family.form) + QLatin1Char('i'));
        EXPECT_EQ(state().family, family.id);
        auto& form = Find<Form>(ToQt(family.form));
        EXPECT_TRUE(form.isVisible());
        EXPECT_TRUE(Find<QAbstractButton>(ToQt(family.form) + QLatin1Char('i')).isChecked());
        form.close();
        EXPECT_EQ(state().family, family.id);  // stays chosen

        session.edit().family = 1;
        Menu(ToQt(family.menu));
        EXPECT_EQ(state().family, family.id);
        EXPECT_TRUE(form.isVisible());
        form.close();
    }
    EXPECT_EQ(TakeComplaints(), QStringList());
}

// The tab shows the button of the family, however it was chosen; looking through the tabs changes
// nothing, and no pass turns them back.
TEST_F(FamilyForms, TabFollowsTheProject)
{
    auto& tabs = Find<QTabWidget>(QStringLiteral("ProfTab"));
    for (const FamilyTraits& family : Families()) {
        SCOPED_TRACE(family.id);
        session.edit().family = static_cast<i16>(family.id);
        session.Calculate();
        EXPECT_TRUE(Find<QAbstractButton>(ToQt(family.form) + QLatin1Char('i')).isVisible());
    }
    session.edit().family = 22;
    session.Calculate();
    tabs.setCurrentIndex(0);
    session.Calculate();
    EXPECT_EQ(tabs.currentIndex(), 0);
    EXPECT_EQ(state().family, 22);
}

TEST_F(FamilyForms, EveryInputOfEveryFormCanBeChanged)
{
    session.edit().nload[1] = 1;  // kN: no section is too slender for it
    for (const FamilyTraits& family : Families()) {
        SCOPED_TRACE(family.id);
        Click(ToQt(family.form) + QLatin1Char('i'));
        auto& form = Find<Form>(ToQt(family.form));
        for (BoxEdit* const box : Reachable<BoxEdit>(&form)) {
            const ProjectState before = state();
            const QString typed = QString::number(box->text().toDouble() * 1.05, 'g', 6);
            script.warnings.clear();
            Type(*box, typed);
            EXPECT_FALSE(state() == before) << box->objectName().toStdString();
            EXPECT_TRUE(script.warnings.empty()) << script.warnings.front();
        }
        for (QTableView* const list : Reachable<QTableView>(&form)) {
            const int count = list->model()->rowCount();
            for (const int row : {0, count - 1, count / 2}) {
                list->setCurrentIndex(list->model()->index(row, 0));
                const Table table = TableOf(state());
                EXPECT_EQ(state().row[static_cast<std::size_t>(table)], row);
                EXPECT_EQ(FromQt(list->currentIndex().data().toString()),
                          RowName(Delivered(), table, row));
            }
        }
        for (QRadioButton* const option : Reachable<QRadioButton>(&form)) {
            option->click();
            EXPECT_TRUE(option->isChecked()) << option->objectName().toStdString();
        }
        EXPECT_FALSE(session.failed());
        for (const ShownValue& value : SectionProperties(state())) {
            EXPECT_EQ(FromQt(Find<QLabel>(ToQt(value.id), &form).text()), value.value);
        }
        for (const ShownValue& value : SectionCapacities(state())) {
            EXPECT_EQ(FromQt(Find<QLabel>(ToQt(value.id), &form).text()), value.value);
        }
        EXPECT_EQ(FromQt(Find<QLabel>(QStringLiteral("osectionclass"), &form).text()),
                  SectionClassText(state()));
        form.close();
    }
    EXPECT_EQ(TakeComplaints(), QStringList());
}

TEST_F(FamilyForms, SeriesChangesTheListOfBritishProfiles)
{
    Click(QStringLiteral("p101i"));
    const QAbstractItemModel& list = *Find<QTableView>(QStringLiteral("lstp101")).model();
    EXPECT_EQ(list.rowCount(), ShapeOf(Table::ub).rows);
    Click(QStringLiteral("prof2"), &Find<Form>(QStringLiteral("p101")));
    EXPECT_EQ(state().series101, 2);
    EXPECT_EQ(list.rowCount(), ShapeOf(Table::uc).rows);
    EXPECT_TRUE(list.index(0, 0).data().toString().startsWith(QStringLiteral("UC ")));
}

// A section is found by a part of its name; the row in hand stays what it is until one is chosen.
TEST_F(FamilyForms, SectionsAreSearchedAndSorted)
{
    Click(QStringLiteral("p04i"));
    auto& form = Find<Form>(QStringLiteral("p04"));
    auto& view = Find<QTableView>(QStringLiteral("lstp04"));
    auto& search = Find<QLineEdit>(QStringLiteral("sectionsearch"), &form);
    const QAbstractItemModel& list = *view.model();
    const i16 before = state().row[static_cast<std::size_t>(Table::ipe)];
    const int all = list.rowCount();
    QTest::keyClicks(&search, QStringLiteral("45"));
    ASSERT_EQ(list.rowCount(), 1);
    EXPECT_EQ(list.index(0, 0).data().toString(), QStringLiteral("IPE 450"));
    EXPECT_EQ(state().row[static_cast<std::size_t>(Table::ipe)], before);
    QTest::keyClick(&search, Qt::Key_Return);
    Settle();
    EXPECT_TRUE(view.hasFocus());
    EXPECT_EQ(FromQt(list.index(0, 0).data().toString()),
              RowName(Delivered(), Table::ipe, state().row[static_cast<std::size_t>(Table::ipe)]));
    search.clear();
    EXPECT_EQ(list.rowCount(), all);
    EXPECT_EQ(view.currentIndex().data().toString(), QStringLiteral("IPE 450"));
    view.sortByColumn(1, Qt::DescendingOrder);
    Settle();
    EXPECT_EQ(FromQt(list.index(0, 0).data().toString()),
              RowName(Delivered(), Table::ipe, RowCount(Table::ipe) - 1));  // the heaviest
    EXPECT_EQ(view.currentIndex().data().toString(), QStringLiteral("IPE 450"));
}

// The list is that of the member as it stands.
TEST_F(FamilyForms, SectionsAreRatedWithEveryChange)
{
    Click(QStringLiteral("p04i"));
    const QAbstractItemModel& list = *Find<QTableView>(QStringLiteral("lstp04")).model();
    const QString before = list.index(list.rowCount() - 1, 3).data().toString();
    // The standard's ratings follow without the window waiting for them.
    const auto rated = [&list](int row) { return !list.index(row, 4).data().toString().isEmpty(); };
    QTRY_VERIFY(rated(0) && rated(list.rowCount() - 1));
    const QString written = list.index(list.rowCount() - 1, 4).data().toString();
    Type(Find<BoxEdit>(QStringLiteral("il")), QStringLiteral("12"));
    QTRY_VERIFY(rated(list.rowCount() - 1) &&
                list.index(list.rowCount() - 1, 4).data().toString() != written);
    EXPECT_NE(list.index(list.rowCount() - 1, 3).data().toString(), before);
}

// The answer names the next lighter one and holds until the member changes.
TEST_F(FamilyForms, TheLightestSectionIsTakenFromTheTables)
{
    Click(QStringLiteral("p04i"));
    Form& form = Find<Form>(QStringLiteral("p04"));
    Type(Find<BoxEdit>(QStringLiteral("il")), QStringLiteral("8"));
    ASSERT_GT(session.outcome().ir, 1.0);
    const auto& answer = Find<QLabel>(QStringLiteral("lightestanswer"), &form);
    Click(QStringLiteral("lightest"), &form);
    QTRY_VERIFY(answer.text().contains(QStringLiteral("fails: ratio 1.")));
    EXPECT_LE(session.outcome().ir, 1.0);
    EXPECT_TRUE(answer.text().startsWith(ToQt(SectionName(session.library(), state()))));
    EXPECT_TRUE(script.warnings.empty());
    Type(Find<BoxEdit>(QStringLiteral("il")), QStringLiteral("9"));
    EXPECT_TRUE(answer.text().isEmpty());
}

// Sizes are tried as they are typed; what cannot be read is told by the name of its box.
TEST_F(FamilyForms, TheLightestPlatesAreFoundOverTheirSizes)
{
    Click(QStringLiteral("p21i"));
    Form& form = Find<Form>(QStringLiteral("p21"));
    const float before = state().weight;
    auto& heights = Find<QLineEdit>(QStringLiteral("tryisth"), &form);
    heights.setText(QStringLiteral("many"));
    Click(QStringLiteral("lightest"), &form);
    QTRY_VERIFY(!script.warnings.empty());
    EXPECT_NE(script.warnings.back().find("h=many: expected FROM:TO:STEP"), std::string::npos);
    heights.setText(QStringLiteral("160:400:20"));
    QTest::keyClick(&heights, Qt::Key_Return);
    QTRY_VERIFY(state().weight < before);
    EXPECT_LE(session.outcome().ir, 1.0);
    EXPECT_FALSE(Find<QLabel>(QStringLiteral("lightestanswer"), &form).text().isEmpty());
    session.Undo();
    EXPECT_EQ(state().weight, before);
}

TEST_F(FamilyForms, AxesOfRectangularSectionsAreExchanged)
{
    Click(QStringLiteral("p07i"));
    const float h = state().h, b = state().b;
    ASSERT_NE(h, b);
    Click(QStringLiteral("cbuttbucklingy"), &Find<Form>(QStringLiteral("p07")));
    EXPECT_EQ(state().h, b);
    EXPECT_EQ(state().b, h);
}

// The tables give no radius; EN 10210-2 and EN 10219-2 do.
TEST_F(FamilyForms, HollowSectionsTellTheirCorners)
{
    const auto tells = [&](std::string_view form, const QString& note) {
        const auto labels = window->OpenForm(form)->findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(),
                           [&](const QLabel* label) { return label->text() == note; });
    };
    session.edit().family = 6;
    session.Calculate();
    EXPECT_TRUE(tells("p06", QStringLiteral(" r = 1.5*t ")));
    session.edit().family = 9;
    session.Calculate();
    EXPECT_TRUE(tells("p09", QStringLiteral(" r = 2.5*t ; 6<t<=10 ")));
}

TEST_F(FamilyForms, TubeWarnsInClassFour)
{
    Click(QStringLiteral("p31i"));
    auto& form = Find<Form>(QStringLiteral("p31"));
    Type(Find<BoxEdit>(QStringLiteral("istd"), &form), QStringLiteral("800"));
    Type(Find<BoxEdit>(QStringLiteral("isttw"), &form), QStringLiteral("3"));
    EXPECT_EQ(Find<QLabel>(QStringLiteral("LblWarning"), &form).text(),
              QStringLiteral("Note: Local buckling not taken into account (Section Class 4)"));
}

TEST_F(FamilyForms, FormOfAnotherFamilyCloses)
{
    Click(QStringLiteral("p01i"));
    Click(QStringLiteral("p21i"));
    EXPECT_FALSE(Find<Form>(QStringLiteral("p01")).isVisible());
    EXPECT_TRUE(Find<Form>(QStringLiteral("p21")).isVisible());
}

TEST_F(FamilyForms, OverhangOfTheBoxFollowsANarrowFlange)
{
    Click(QStringLiteral("p27i"));
    auto& form = Find<Form>(QStringLiteral("p27"));
    Type(Find<BoxEdit>(QStringLiteral("istb1"), &form), QStringLiteral("20"));
    EXPECT_THAT(script.warnings, testing::Contains(" c adjusted "));
    EXPECT_LE(state().p27.istc, 10.0F);
    EXPECT_EQ(Find<BoxEdit>(QStringLiteral("istc"), &form).text().toFloat(), state().p27.istc);
}

}  // namespace kestrum
