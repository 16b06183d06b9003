#include "cli/commands.h"

#include "app/locale_text.h"
#include "app/project_origin.h"
#include "cli/print_stamp.h"
#include "cli/renderer.h"
#include "cli/report_office.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/family_routines.h"
#include "render/pdf_extras.h"
#include "report/both_bases.h"
#include "report/design_notes.h"
#include "report/outcome.h"
#include "report/pages.h"
#include "service/vortex.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace kestrum::cli {

namespace {

// Of all pages. Throws BadInput.
PrintStamp StampOf(const ReportArguments& arguments)
{
    PrintStamp stamp = arguments.reproducible ? PrintStamp{} : StampOfNow();
    const std::string fault = TakeOffice(OfficeOf(arguments), stamp);
    if (!fault.empty()) {
        throw BadInput(fault);
    }
    return stamp;
}

// Appends the pages of a file. Returns the exit code. Throws BadInput.
int PrintFile(const Library& library, const ReportArguments& arguments, const std::string& file,
              PrintStamp stamp, PrintedReport& whole)
{
    const ProjectOrigin origin = OriginOf(file);
    stamp.origin = OriginText(origin.file, origin.digest);
    HeldState held = OpenProject(library, file);
    ProjectState& s = *held;
    if (FindRoutines(s.family) == nullptr) {
        throw BadInput(file + ": no section control for this family");
    }
    const bool vortex = arguments.kind == "vortex";
    if (vortex) {
        RequireVortexFamily(s, file);
    }
    if (!Calculate(library, s) || (vortex && !ControlVortices(s, s, s))) {
        Complain(file + ": " + std::string(kCalculationError));
        return kFailedPass;
    }
    const standard::StandardResult known = MeasureStandard(library, s);
    PrintedReport report = vortex ? PrintVortex(library, s, stamp, &known)
                           : arguments.kind == "section"
                               ? PrintProperties(library, s, stamp, &known)
                               : PrintControl(library, s, stamp, &known);
    const bool comma = stamp.office.decimal == "comma";
    std::transform(report.pages.begin(), report.pages.end(), std::back_inserter(whole.pages),
                   [comma](Drawing& page) { return ForLocale(std::move(page), comma); });
    for (const std::string& what : report.missing) {
        whole.missing.push_back(arguments.out + ": no room on the page for: " + what +
                                (arguments.files.size() > 1 ? " (" + file + ")" : ""));
    }
    return kAllWithin;
}

// SVG and PNG are of one project.
void RequirePages(const ReportArguments& arguments)
{
    CheckDrawingName(arguments.out);
    if (arguments.files.size() > 1 && EndingOf(arguments.out) != ".pdf") {
        throw BadInput(arguments.out + ": several files go into one .pdf only");
    }
    for (const std::string& file : arguments.files) {
        SpareInput(arguments.out, file);
    }
}

}  // namespace

// Of several files all are printed or none: a report that lacks a member looks whole.
int Report(const Options& options, const ReportArguments& arguments)
{
    RequirePages(arguments);
    const PrintStamp stamp = StampOf(arguments);
    const Library library = LoadTables(options);
    PrintedReport whole;
    int exit = kAllWithin;
    for (const std::string& file : arguments.files) {
        try {
            exit = GraverExit(exit, PrintFile(library, arguments, file, stamp, whole));
        } catch (const BadInput& bad) {
            Complain(bad.what());
            exit = kBadInput;
        }
    }
    if (exit != kAllWithin) {
        return exit;
    }
    const PdfExtras extras{.author = stamp.office.author, .reproducible = arguments.reproducible};
    WriteDrawings(whole.pages, kPageScale, arguments.out, &extras);
    for (const std::string& what : whole.missing) {
        Complain(what);
    }
    return kAllWithin;
}

}  // namespace kestrum::cli
