#include "cli/commands.h"

#include "cli/renderer.h"
#include "engine/calculate.h"
#include "engine/family_routines.h"
#include "report/pages.h"
#include "service/vortex.h"

#include <array>
#include <charconv>
#include <ctime>
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

}  // namespace

int Report(const Options& options, const ReportArguments& arguments)
{
    CheckDrawingName(arguments.out);
    SpareInput(arguments.out, arguments.file);
    const Library library = LoadTables(options);
    ProjectState s = OpenProject(library, arguments.file);
    if (FindRoutines(s.family) == nullptr) {
        throw BadInput(arguments.file + ": no section control for this family");
    }
    const bool vortex = arguments.kind == "vortex";
    if (vortex) {
        RequireVortexFamily(s, arguments.file);
    }
    if (!Calculate(library, s) || (vortex && !ControlVortices(s))) {
        Complain(arguments.file + ": " + std::string(kCalculationError));
        return kFailedPass;
    }
    const PrintedReport report = vortex                        ? PrintVortex(library, s, Now())
                                 : arguments.kind == "section" ? PrintProperties(library, s, Now())
                                                               : PrintControl(library, s, Now());
    WriteDrawings(report.pages, kScale, arguments.out);
    for (const std::string& what : report.missing) {
        Complain(arguments.out + ": no room on the page for: " + what);
    }
    return kAllWithin;
}

}  // namespace kestrum::cli
