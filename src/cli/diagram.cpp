#include "cli/commands.h"

#include "cli/renderer.h"
#include "engine/calculate.h"
#include "report/diagrams.h"

namespace kestrum::cli {

namespace {

constexpr DrawingScale kScale{1.6, 7, 14};

}  // namespace

int Diagram(const Options& options, const DiagramArguments& arguments)
{
    CheckDrawingName(arguments.out);
    SpareInput(arguments.out, arguments.file);
    const Library library = LoadTables(options);
    HeldState s = OpenProject(library, arguments.file);
    if (!Calculate(library, s)) {
        Complain(arguments.file + ": " + std::string(kCalculationError));
        return kFailedPass;
    }
    const LoadAxis axis = arguments.axis == "z" ? LoadAxis::z : LoadAxis::y;
    WriteDrawings({DrawSheet(s, axis)}, kScale, arguments.out);
    return kAllWithin;
}

}  // namespace kestrum::cli
