#include "cli/commands.h"

#include "cli/renderer.h"
#include "core/project_state.h"
#include "engine/calculate.h"
#include "engine/family_routines.h"
#include "report/outcome.h"
#include "report/pages.h"
#include "service/vortex.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <ctime>
#include <iterator>
#include <string_view>

namespace kestrum::cli {

namespace {

constexpr DrawingScale kScale{.mm = 1, .svg_pixels = 96 / 25.4, .png_pixels = 150 / 25.4};

std::string Digits(int value, std::size_t places)
{
    std::array<char, 8> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    std::string text(buffer.data(), end);
    text.insert(0, text.size() < places ? places - text.size() : 0, '0');
    return text;
}

PrintStamp Now()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    return {Digits(local.tm_year + 1900, 4) + "-" + Digits(local.tm_mon + 1, 2) + "-" +
                Digits(local.tm_mday, 2),
            Digits(local.tm_hour, 2) + ":" + Digits(local.tm_min, 2)};
}

// Appends the pages of a file. Returns the exit code. Throws BadInput.
int PrintFile(const Library& library, const ReportArguments& arguments, const std::string& file,
              PrintedReport& whole)
{
    ProjectState s = OpenProject(library, file);
    if (FindRoutines(s.family) == nullptr) {
        throw BadInput(file + ": no section control for this family");
    }
    const bool vortex = arguments.kind == "vortex";
    if (vortex) {
        RequireVortexFamily(s, file);
    }
    if (!Calculate(library, s) || (vortex && !ControlVortices(s))) {
        Complain(file + ": " + std::string(kCalculationError));
        return kFailedPass;
    }
    PrintedReport report = vortex                        ? PrintVortex(library, s, Now())
                           : arguments.kind == "section" ? PrintProperties(library, s, Now())
                                                         : PrintControl(library, s, Now());
    std::move(report.pages.begin(), report.pages.end(), std::back_inserter(whole.pages));
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
    const Library library = LoadTables(options);
    PrintedReport whole;
    int exit = kAllWithin;
    for (const std::string& file : arguments.files) {
        try {
            exit = GraverExit(exit, PrintFile(library, arguments, file, whole));
        } catch (const BadInput& bad) {
            Complain(bad.what());
            exit = kBadInput;
        }
    }
    if (exit != kAllWithin) {
        return exit;
    }
    WriteDrawings(whole.pages, kScale, arguments.out);
    for (const std::string& what : whole.missing) {
        Complain(what);
    }
    return kAllWithin;
}

}  // namespace kestrum::cli
