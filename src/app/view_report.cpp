#include "app/view_report.h"

#include "app/locale_text.h"
#include "app/member_commands.h"
#include "app/project_origin.h"
#include "core/project_state.h"
#include "report/both_bases.h"
#include "report/design_notes.h"
#include "report/pages.h"
#include "service/vortex.h"

#include <array>
#include <string>
#include <utility>

namespace kestrum {

namespace {

// A page holds what fits on it; what it leaves out is never left out in silence.
void TellMissing(Session& session, const std::vector<std::string>& missing)
{
    if (missing.empty()) {
        return;
    }
    std::string text = "The page has no room for:";
    for (const std::string& what : missing) {
        text += "\n" + what;
    }
    session.surroundings().Warn(text);
}

// The last good pass under the names that the project has now: they change without a pass.
struct PrintedProject {
    ProjectState s;
    std::optional<standard::StandardResult> known{};  // where it was calculated for the notes
};

PrintedProject Printed(const Session& session)
{
    PrintedProject printed{session.shown()};
    ProjectState& s = printed.s;
    s.filename = session.state().filename;
    s.projname = session.state().projname;
    s.ident = session.state().ident;
    if (!s.acting) {
        printed.known = MeasureStandard(session.library(), s);
    }
    return printed;
}

// Of a file that was read in part the results on the page are those of another project.
std::string HalfReadWarning(const Session& session)
{
    return session.halfread()
               ? "The file was read in part only, the results are not its own. " + session.filefault
               : std::string();
}

// A file of the office that cannot be used is told, and the page is printed without it.
PrintStamp StampOf(Session& session)
{
    PrintStamp stamp{session.surroundings().Date(), session.surroundings().Time(),
                     HalfReadWarning(session)};
    const ProjectOrigin origin = OriginOf(session.state());
    stamp.origin = OriginText(origin.file, origin.digest);
    Office office;
    std::string fault = ReadUserOffice(office);
    if (fault.empty()) {
        fault = TakeOffice(std::move(office), stamp);
    }
    if (!fault.empty()) {
        session.surroundings().Warn(fault);
    }
    return stamp;
}

PrintedReport DrawReport(Session& session, const PrintStamp& stamp, Report report)
{
    PrintedProject printed = Printed(session);
    ProjectState& s = printed.s;
    const standard::StandardResult* const known = printed.known ? &*printed.known : nullptr;
    switch (report) {
    case Report::properties:
        return PrintProperties(session.library(), s, stamp, known);
    case Report::control:
        return PrintControl(session.library(), s, stamp, known);
    case Report::vortex:
        if (!VortexFamily(s.family)) {
            TellVortexRefusal(session, s.family);
            return {};
        }
        ControlVortices(s, s, s);
        return PrintVortex(session.library(), s, stamp, known);
    }
    return {};
}

}  // namespace

std::string_view ReportName(int report)
{
    constexpr std::array<std::string_view, kReports> kNames{
        "Section property and capacity", "Section and stability control", "Vortex shedding"};
    return kNames.at(static_cast<std::size_t>(report));
}

std::vector<Drawing> ReportPages(Session& session, Report report)
{
    const PrintStamp stamp = StampOf(session);
    PrintedReport printed = DrawReport(session, stamp, report);
    TellMissing(session, printed.missing);
    for (Drawing& page : printed.pages) {
        page = ForLocale(std::move(page), stamp.office.decimal == "comma");
    }
    return std::move(printed.pages);
}

void PrintReport(Session& session, Report report)
{
    const std::vector<Drawing> pages = ReportPages(session, report);
    if (!pages.empty()) {
        session.surroundings().Print(pages);
    }
}

}  // namespace kestrum
