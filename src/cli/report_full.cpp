#include "cli/commands.h"

#include "calculation/calculation_report.h"
#include "core/file_io.h"
#include "core/project_state.h"
#include "document/html_writer.h"
#include "document/markdown_writer.h"

namespace kestrum::cli {

int ReportFull(const Options& options, const ReportArguments& arguments)
{
    const std::string ending = EndingOf(arguments.out);
    if (ending != ".html" && ending != ".md") {
        throw BadInput(arguments.out + ": the name has to end in .html or .md");
    }
    if (arguments.files.size() > 1) {
        throw BadInput(arguments.out + ": the calculation report is of one project");
    }
    SpareInput(arguments.out, arguments.files.front());
    const Library library = LoadTables(options);
    const ProjectState s = OpenProject(library, arguments.files.front());
    const Document document = CalculationReport(library, s);
    const std::string fault = WriteWholeFile(
        arguments.out, ending == ".html" ? WriteHtml(document) : WriteMarkdown(document));
    if (!fault.empty()) {
        throw BadInput(arguments.out + ": " + fault);
    }
    return kAllWithin;
}

}  // namespace kestrum::cli
