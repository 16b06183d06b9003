// When a pass runs: on closing a form of inputs and when the main window comes to the front, and
// when it does not.

#include "core/project_state.h"
#include "ui/desktop.h"

#include "core/project_file.h"
#include "ui/text.h"

#include <QFile>
#include <QLineEdit>

namespace kestrum {

class Passes : public Desktop {
public:
    // Whether the action runs a pass: every pass writes the area of the section anew.
    template <class Action> bool Run(Action action)
    {
        const float area = session.edit().a;
        session.edit().a = -1;
        action();
        Settle();
        const bool ran = session.edit().a != -1;
        session.edit().a = area;
        return ran;
    }

    bool ClosingCalculates(std::string_view name)
    {
        Form* const form = window->OpenForm(name);
        Settle();
        // Its own pass, without the main window coming to the front behind it.
        const bool ran =
            Run([&] { form->recalculates ? static_cast<void>(form->close()) : form->hide(); });
        return form->recalculates && ran;
    }
};

TEST_F(Passes, ClosingAFormOfInputsCalculates)
{
    for (const char* const name : {"setup", "endforce", "endstiff", "bucklingy", "bucklingz",
                                   "chpoints", "vipping", "p01", "p21"}) {
        session.edit().family = std::string_view(name) == "p21" ? 21 : 1;
        EXPECT_TRUE(ClosingCalculates(name)) << name;
    }
    for (const char* const name : {"detailedresult", "about", "InfoPsi", "sectionpicture"}) {
        EXPECT_FALSE(ClosingCalculates(name)) << name;
    }
}

// EN 1993-1-5, 5.1 (2): the factor of the shear area is 1.2 up to S460, else 1.0. It follows the
// material in the pass after the choice, so the section control of a stocky web then changes.
TEST_F(Passes, ClosingTheSetupCatchesUpWithTheMaterial)
{
    ProjectState& s = session.edit();
    s.fykindex = static_cast<i16>(Delivered().materials.size() - 1);
    s.fyk = 500;
    s.neta = 1.0F;
    session.Calculate();
    Form* const setup = window->OpenForm("setup");
    Settle();
    Choose(QStringLiteral("cbofyk"), 0, setup);
    EXPECT_EQ(state().neta, 1.2F);
    const float before = session.shown().neta;
    EXPECT_EQ(before, 1.0F);
    setup->close();
    Settle();
    EXPECT_EQ(session.shown().neta, 1.2F);
}

TEST_F(Passes, ComingToTheFrontCalculates)
{
    Form* const about = window->OpenForm("about");
    Settle();
    EXPECT_TRUE(Run([&] { window->activateWindow(); }));
    about->hide();
}

TEST_F(Passes, ComingToTheFrontCalculatesNothingThatWasRefused)
{
    Form* const about = window->OpenForm("about");
    Settle();
    auto& box = Find<BoxEdit>(QStringLiteral("il"));
    Type(box, QStringLiteral("0.01"));
    ASSERT_TRUE(box.refused());
    about->activateWindow();
    Settle();
    EXPECT_FALSE(Run([&] { window->activateWindow(); }));
    EXPECT_EQ(session.shown().l, 5.0F);
}

// Half a project stays uncalculated until another one is read.
TEST_F(Passes, ComingToTheFrontCalculatesNoHalfProject)
{
    QFile broken(folder.filePath(QStringLiteral("broken.kst")));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write(QByteArray::fromStdString(WriteProject(session.edit())).left(300));
    broken.close();
    script.openpath = FromQt(broken.fileName());
    Form* const about = window->OpenForm("about");
    Menu(QStringLiteral("mnuopen"));
    ASSERT_TRUE(session.halfread());
    about->activateWindow();
    Settle();
    EXPECT_FALSE(Run([&] { window->activateWindow(); }));
}

}  // namespace kestrum
