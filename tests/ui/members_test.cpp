// The table of members as a user works with it: open, type, paste, sort, a line as the project and
// back, forces, lightest sections, cancel, save.

#include "ui/desktop.h"

#include "app/aside.h"
#include "core/file_io.h"
#include "core/project_state.h"
#include "ui/members_window.h"
#include "ui/text.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QTableView>

namespace kestrum {

class Members : public Desktop {
public:
    Members() : members(window->OpenMembers()), view(Find<QTableView>("membertable", &members))
    {
        members.choosefile = [this](const QString&, bool) { return chosen; };
        path = FromQt(folder.filePath(QStringLiteral("frame.csv")));
        EXPECT_EQ(WriteWholeFile(path, kTable), "");
        EXPECT_TRUE(members.OpenTable(path));
        EXPECT_TRUE(QTest::qWaitForWindowActive(&members));
        Wait();
    }
    ~Members() override { script.answer = Answer::no; }

    template <class T> T& Find(const char* name, QWidget* in)
    {
        return Desktop::Find<T>(QLatin1String(name), in);
    }
    void Wait()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !members.busy(); }));
        Settle();
    }
    QString Shown(int line, int column)
    {
        return view.model()->index(line, column).data().toString();
    }
    // Column of an input.
    int Of(const char* name)
    {
        const auto& columns = members.model().sheet().columns();
        return MembersModel::kFirst +
               static_cast<int>(std::find(columns.begin(), columns.end(), name) - columns.begin());
    }
    void Select(int line, int column, int lines = 1)
    {
        const QAbstractItemModel& model = *view.model();
        view.setFocus();
        view.setCurrentIndex(model.index(line, column));
        view.selectionModel()->select(
            QItemSelection(model.index(line, column), model.index(line + lines - 1, column)),
            QItemSelectionModel::ClearAndSelect);
    }
    void Press(int key, Qt::KeyboardModifiers with = Qt::NoModifier)
    {
        QTest::keyClick(&view, static_cast<Qt::Key>(key), with);
        Settle();
        Wait();
    }
    std::string Text() { return members.model().sheet().Text(); }

    static constexpr const char* kTable =
        "id,section,steel,l,qload[1]\nB1,IPE 300,S355,6,10\nB2,IPE 160,S355,6,10\n"
        "B3,IPE 400,S355,6,10\n";
    MembersWindow& members;
    QTableView& view;
    std::string path;
    std::optional<std::string> chosen;
};

TEST_F(Members, RatesEveryLineAndSortsByRatio)
{
    EXPECT_EQ(Shown(1, Of("id")), QStringLiteral("B2"));
    EXPECT_TRUE(Shown(1, MembersModel::kRatio).endsWith(QStringLiteral("> limit")));
    EXPECT_FALSE(Shown(0, MembersModel::kStandard).isEmpty());
    view.sortByColumn(MembersModel::kRatio, Qt::DescendingOrder);
    EXPECT_EQ(Shown(0, Of("id")), QStringLiteral("B2"));
    EXPECT_EQ(Shown(1, Of("id")), QStringLiteral("B1"));
    Find<QLineEdit>("membersearch", &members).setText(QStringLiteral("ipe 4"));
    EXPECT_EQ(view.model()->rowCount(), 1);
    EXPECT_EQ(Shown(0, Of("id")), QStringLiteral("B3"));
}

TEST_F(Members, FollowsWhatIsTyped)
{
    const QString before = Shown(0, MembersModel::kRatio);
    Select(0, Of("qload[1]"));
    QTest::keyClicks(&view, QStringLiteral("20"));
    auto* const editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    QTest::keyClick(editor, Qt::Key_Return);
    Wait();
    EXPECT_NE(Shown(0, MembersModel::kRatio), before);
    EXPECT_TRUE(members.isWindowModified());
    // The keys are those of the table, not of the project.
    const std::size_t step = session.history().now().step;
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Shown(0, MembersModel::kRatio), before);
    EXPECT_EQ(Text(), kTable);
    EXPECT_FALSE(members.isWindowModified());
    EXPECT_EQ(session.history().now().step, step);
}

TEST_F(Members, RefusedLinesSayWhy)
{
    Select(0, Of("l"));
    QApplication::clipboard()->setText(QStringLiteral("-1"));
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Shown(0, MembersModel::kRatio), QStringLiteral("not checked"));
    EXPECT_TRUE(Shown(0, MembersModel::kGoverns).startsWith(QStringLiteral("l: L >= 0.050")));
}

// In the order that is seen, whatever the order of the file.
TEST_F(Members, PastesAndFillsAsSorted)
{
    view.sortByColumn(Of("section"), Qt::DescendingOrder);  // 400, 300, 160
    Select(0, Of("l"));
    QApplication::clipboard()->setText(QStringLiteral("7\t1\n8\t2\n"));
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Text(), "id,section,steel,l,qload[1]\nB1,IPE 300,S355,8,2\nB2,IPE 160,S355,6,10\n"
                      "B3,IPE 400,S355,7,1\n");
    Select(0, Of("l"), 3);
    Press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(Text(), "id,section,steel,l,qload[1]\nB1,IPE 300,S355,7,2\nB2,IPE 160,S355,7,10\n"
                      "B3,IPE 400,S355,7,1\n");
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("7\n7\n7\n"));
}

TEST_F(Members, LineIsTheProjectAndComesBack)
{
    Select(1, Of("id"));
    Click(QStringLiteral("memberproject"), &members);
    EXPECT_EQ(state().l, 6.0F);
    EXPECT_EQ(state().qload[1], 10.0F);
    EXPECT_TRUE(ToQt(session.title()).endsWith(QStringLiteral("member B2 of frame.csv")));
    Type(Desktop::Find<BoxEdit>(QStringLiteral("il")), QStringLiteral("6.5"));
    Click(QStringLiteral("memberwrite"), &members);
    Wait();
    EXPECT_EQ(Text(), "id,section,steel,l,qload[1]\nB1,IPE 300,S355,6,10\nB2,IPE 160,S355,6.5,10\n"
                      "B3,IPE 400,S355,6,10\n");
    // Another project is not written without a word.
    Menu(QStringLiteral("mnunew"));
    Click(QStringLiteral("memberwrite"), &members);
    ASSERT_EQ(script.questions.size(), 1U);
    EXPECT_THAT(script.questions[0], testing::HasSubstr("not the one of member B2"));
    session.Undo();
    session.Undo();
    EXPECT_EQ(state().l, 6.0F);
}

TEST_F(Members, LightestSectionsComeInOneStep)
{
    QString proposed;
    members.choosepool = [&](const QString& proposal) {
        proposed = proposal;
        return std::optional(proposal);
    };
    Select(0, Of("section"), 3);
    Click(QStringLiteral("memberlightest"), &members);
    Wait();
    Wait();
    EXPECT_EQ(proposed, QStringLiteral("IPE"));
    const QString section = Shown(0, Of("section"));
    for (int line = 0; line < 3; ++line) {
        EXPECT_EQ(Shown(line, Of("section")), section) << line;  // they carry the same
        EXPECT_FALSE(Shown(line, MembersModel::kRatio).contains(QLatin1Char('>')));
    }
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Text(), kTable);
}

TEST_F(Members, ForcesGiveTheWorstCase)
{
    chosen = FromQt(folder.filePath(QStringLiteral("forces.csv")));
    ASSERT_EQ(WriteWholeFile(*chosen, "member,case,x,N\nB1,A,0,-100\nB1,A,6,-100\nB1,B,0,-300\n"
                                      "B1,B,6,-300\n"),
              "");
    Click(QStringLiteral("memberforces"), &members);
    Wait();
    EXPECT_TRUE(Shown(0, MembersModel::kGoverns).endsWith(QStringLiteral("case B")));
    EXPECT_TRUE(Shown(1, MembersModel::kGoverns).contains(QStringLiteral("has no forces")));
    Click(QStringLiteral("memberloads"), &members);
    Wait();
    EXPECT_FALSE(Shown(1, MembersModel::kGoverns).contains(QStringLiteral("forces")));
}

TEST_F(Members, IsCancelledAtOnceAndGoesOnWithTheNextEdit)
{
    std::string many = "id,section,l,qload[1]\n";
    for (int i = 0; i < 5000; ++i) {
        many += "B" + std::to_string(i) + ",IPE 300,6,10\n";
    }
    const std::string big = FromQt(folder.filePath(QStringLiteral("big.csv")));
    ASSERT_EQ(WriteWholeFile(big, many), "");
    ASSERT_TRUE(members.OpenTable(big));
    ASSERT_TRUE(members.busy());
    EXPECT_TRUE(Find<QProgressBar>("memberprogress", &members).isVisible());
    Click(QStringLiteral("membercancel"), &members);
    EXPECT_FALSE(members.busy());
    EXPECT_FALSE(Find<QProgressBar>("memberprogress", &members).isVisible());
    EXPECT_FALSE(members.model().Unrated().empty());
}

TEST_F(Members, SavesWholeAndAsksBeforeWorkIsLost)
{
    Select(0, Of("l"));
    QApplication::clipboard()->setText(QStringLiteral("5"));
    Press(Qt::Key_V, Qt::ControlModifier);
    script.answer = Answer::cancel;
    EXPECT_FALSE(members.close());
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    Press(Qt::Key_S, Qt::ControlModifier);
    std::string bytes;
    ASSERT_EQ(ReadWholeFile(path, bytes), "");
    EXPECT_EQ(bytes, Text());
    EXPECT_FALSE(members.isWindowModified());
    // Another program has written the file since.
    ASSERT_EQ(WriteWholeFile(path, kTable), "");
    Press(Qt::Key_Minus, Qt::ControlModifier);
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(script.questions.back(), testing::HasSubstr("has changed on the disk"));
    ASSERT_EQ(ReadWholeFile(path, bytes), "");
    EXPECT_EQ(bytes, kTable);
    script.answer = Answer::no;
    EXPECT_TRUE(members.close());
}

// What a killed window leaves behind: the lock of its file goes with it.
TEST_F(Members, UnsavedEditsAreOfferedAtTheNextStart)
{
    const std::string state = FromQt(folder.filePath(QStringLiteral("state")));
    std::string edited;
    {
        Aside aside(state);
        session.aside = &aside;
        Select(0, Of("l"));
        QApplication::clipboard()->setText(QStringLiteral("7.5"));
        Press(Qt::Key_V, Qt::ControlModifier);
        edited = Text();
        session.aside = nullptr;
    }
    EXPECT_THAT(edited, testing::HasSubstr("B1,IPE 300,S355,7.5,10"));
    ASSERT_TRUE(members.OpenTable(path));
    window->OfferWork(FindLeftWork(state));
    EXPECT_TRUE(Desktop::Find<QLabel>(QStringLiteral("recoverytext"))
                    .text()
                    .startsWith(QStringLiteral("Work that was not saved: frame.csv, ")));
    Click(QStringLiteral("recoveryrestore"));
    Wait();
    EXPECT_EQ(Text(), edited);
    EXPECT_TRUE(members.isWindowModified());
    EXPECT_TRUE(FindLeftWork(state).empty());
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(script.questions.empty());  // the file is the one that the edits were made upon
    std::string bytes;
    ASSERT_EQ(ReadWholeFile(path, bytes), "");
    EXPECT_EQ(bytes, edited);
}

TEST_F(Members, SavedOrDroppedEditsAreNotOffered)
{
    const std::string state = FromQt(folder.filePath(QStringLiteral("state")));
    {
        Aside aside(state);
        session.aside = &aside;
        Press(Qt::Key_Minus, Qt::ControlModifier);
        Press(Qt::Key_S, Qt::ControlModifier);
        aside.Settle();
        Press(Qt::Key_Minus, Qt::ControlModifier);
        script.answer = Answer::no;
        EXPECT_TRUE(members.close());
        session.aside = nullptr;
    }
    EXPECT_TRUE(FindLeftWork(state).empty());
}

}  // namespace kestrum
