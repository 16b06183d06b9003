// Where the system writes a decimal comma, no number in any window has a point.

#include "core/project_state.h"
#include "ui/desktop.h"

#include "app/locale_text.h"
#include "sections/family_table.h"
#include "ui/result_panel.h"
#include "ui/text.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace kestrum {

namespace {

// Every text that a window shows.
QStringList TextsOf(const QWidget& top)
{
    QStringList texts;
    for (const QWidget* const widget : top.findChildren<QWidget*>()) {
        if (const auto* const label = qobject_cast<const QLabel*>(widget)) {
            texts << label->text();
        } else if (const auto* const button = qobject_cast<const QAbstractButton*>(widget)) {
            texts << button->text();
        } else if (const auto* const box = qobject_cast<const QLineEdit*>(widget)) {
            texts << box->text();
        } else if (const auto* const group = qobject_cast<const QGroupBox*>(widget)) {
            texts << group->title();
        } else if (const auto* const choice = qobject_cast<const QComboBox*>(widget)) {
            for (int i = 0; i < choice->count(); ++i) {
                texts << choice->itemText(i);
            }
        } else if (const auto* const list = qobject_cast<const QAbstractItemView*>(widget)) {
            const QAbstractItemModel* const model = list->model();
            for (int i = 0; model != nullptr && i < model->rowCount(); ++i) {
                for (int j = 0; j < model->columnCount(); ++j) {
                    texts << model->index(i, j).data().toString();
                }
            }
        }
        texts << widget->toolTip();
    }
    return texts;
}

}  // namespace

class CommaWindows : public Desktop {
public:
    CommaWindows() : Desktop(true) {}

    static void ExpectCommas(const QWidget& window)
    {
        for (const QString& text : TextsOf(window)) {
            EXPECT_EQ(FromQt(text), ForLocale(FromQt(text), true));
        }
    }
};

TEST_F(CommaWindows, ShowNoPoint)
{
    ProjectState& s = session.edit();
    s.qload[2] = 2.5F;
    s.qdir[2] = 0;
    s.loadlevel = 4;
    s.za = -75.5;
    s.modal = 1;
    s.checksls = kTrue;
    for (const std::string_view name : MainWindow::FormNames()) {
        SCOPED_TRACE(std::string(name));
        s.family = 7;  // has a vortex form
        for (const FamilyTraits& family : Families()) {
            s.family = family.form == name ? static_cast<i16>(family.id) : s.family;
        }
        session.Calculate();
        Form* const form = window->OpenForm(name);
        ASSERT_NE(form, nullptr);
        Settle();
        ExpectCommas(*form);
        form->close();
        ExpectCommas(*window);
        const QString panel =
            Find<ResultPanel>(QStringLiteral("pic_result")).accessibleDescription();
        EXPECT_EQ(FromQt(panel), ForLocale(FromQt(panel), true));
        EXPECT_TRUE(panel.contains(QStringLiteral("0,")) || panel.contains(QStringLiteral("1,")));
    }
}

}  // namespace kestrum
