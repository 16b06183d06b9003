#include "cli/commands.h"

#include "app/detailed_book.h"
#include "cli/print_stamp.h"
#include "cli/workbooks.h"
#include "core/file_io.h"
#include "core/project_inputs.h"
#include "engine/calculate.h"
#include "engine/family_routines.h"
#include "report/detailed_table.h"

#include <string_view>

namespace kestrum::cli {

namespace {

std::string Failure(const std::string& path, const std::string& reason)
{
    return path + ":" + std::string(kSpreadsheetFailure) + "(" + reason + ")";
}

void WriteXlsx(const std::vector<BookSheet>& book, const std::string& path)
{
    const std::string fault = WriteBook(book, path);
    if (!fault.empty()) {
        throw BadInput(Failure(path, fault));
    }
}

void WriteCsv(const std::vector<DetailedRow>& rows, const CsvForm& csv, const std::string& path)
{
    const std::string fault = WriteWholeFile(path, DetailedCsv(rows, csv));
    if (!fault.empty()) {
        throw BadInput(path + ": " + fault);
    }
}

}  // namespace

int DetailedTable(const Options& options, const TableArguments& arguments)
{
    const std::string ending = EndingOf(arguments.out);
    if (!arguments.out.empty() && ending != ".xlsx" && ending != ".csv") {
        throw BadInput(arguments.out + ": the name has to end in .xlsx or .csv");
    }
    const CsvForm csv = CsvFormOf(options, CsvTexts::plain, ending == ".csv");
    SpareInput(arguments.out, arguments.file);
    const Library library = LoadTables(options);
    HeldState s = OpenProject(library, arguments.file);
    if (FindRoutines(InputsOf(s).family) == nullptr) {
        throw BadInput(arguments.file + ": no section control for this family");
    }
    if (!Calculate(library, s)) {
        Complain(arguments.file + ": " + std::string(kCalculationError));
        return kFailedPass;
    }
    const std::vector<DetailedRow> rows = FillDetailedResult(s);
    if (ending == ".xlsx") {
        WriteXlsx(DetailedBook(library, s, OriginOf(arguments.file), StampOfNow().date),
                  arguments.out);
    } else if (ending == ".csv") {
        WriteCsv(rows, csv, arguments.out);
    } else {
        Print(DetailedText(rows));
    }
    return kAllWithin;
}

}  // namespace kestrum::cli
