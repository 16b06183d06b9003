// The module that the command line loads when it is asked for a workbook. It keeps libxlsxwriter
// and the libraries behind it, which take longer to link than a member takes to calculate, out of
// `kestrum`.

#include "spreadsheet/module.h"

#include "spreadsheet/book_xlsx.h"
#include "spreadsheet/summary_xlsx.h"

namespace {

const char* Kept(std::string problem)
{
    static std::string kept;
    kept = std::move(problem);
    return kept.c_str();
}

}  // namespace

extern "C" const char* KestrumWriteBook(const std::vector<kestrum::BookSheet>* book,
                                        const std::string* path)
{
    return Kept(kestrum::WriteBookXlsx(*book, *path));
}

extern "C" const char* KestrumWriteSummary(const kestrum::MemberSummary* summary,
                                           const std::string* path)
{
    return Kept(kestrum::WriteSummaryXlsx(*summary, *path));
}
