#include "app/comparison.h"

#include "app/load_commands.h"
#include "app/member_commands.h"
#include "app/section_commands.h"
#include "app/session_fixture.h"

#include <algorithm>

namespace kestrum {
namespace {

ComparedRow Row(const Session& session, std::string_view what)
{
    const auto rows = Compare(Delivered(), *session.pinned(), session.history().now());
    const auto at = std::find_if(rows.begin(), rows.end(),
                                 [&](const ComparedRow& row) { return row.what == what; });
    return at != rows.end() ? *at : ComparedRow{};
}

// Of the tables: HEA 200 has 42.3 kg/m and HEA 300 88.3 kg/m.
TEST(Comparison, ShowsThePinnedDesignBesideTheOneInHand)
{
    Program program;
    Session& session = program.session;
    EXPECT_FALSE(session.pinned());
    ChooseRow(session, Table::hea, 5);
    session.Pin();
    EXPECT_EQ(Row(session, "Section").a, Row(session, "Section").b);
    ChooseRow(session, Table::hea, 10);
    EXPECT_EQ(Row(session, "Section").a, "HEA 200");
    EXPECT_EQ(Row(session, "Section").b, "HEA 300");
    EXPECT_EQ(Row(session, "kg/m").a, "42.3");
    EXPECT_EQ(Row(session, "kg/m").b, "88.3");
    // The larger section is less used in every check.
    for (const char* const what : {"Section: N, My or Mz", "Buckling y", "Buckling z"}) {
        EXPECT_GT(std::stod(Row(session, what).a), std::stod(Row(session, what).b)) << what;
    }
}

TEST(Comparison, SaysInWordsWhatIsAboveTheLimit)
{
    Program program;
    program.session.Pin();
    program.Type("Loading", "iq", "400");
    const ComparedRow bending = Row(program.session, "Section: N, My or Mz");
    EXPECT_FALSE(bending.a.ends_with(" > limit"));
    EXPECT_TRUE(bending.b.ends_with(" > limit"));
    EXPECT_EQ(Row(program.session, "Verdict").b, "above limit");
}

// What could not be calculated has no ratio, and end forces no deflection.
TEST(Comparison, LeavesOutWhatIsNone)
{
    Program program;
    Session& session = program.session;
    TickDeflections(session, true);
    session.Pin();
    EXPECT_NE(Row(session, "Deflection z").a, "-");
    OpenEndForcesFromMenu(session);
    OpenEndForces(session);
    EXPECT_EQ(Row(session, "Deflection z").b, "-");
    OpenLoading(session);
    program.Type("Loading", "inn", "100000");
    EXPECT_EQ(Row(session, "Buckling y").b, "-");
    EXPECT_NE(Row(session, "Buckling y").a, "-");
    session.Undo();
    session.Pin();
    EXPECT_EQ(Row(session, "Buckling y").a, Row(session, "Buckling y").b);
}

}  // namespace
}  // namespace kestrum
