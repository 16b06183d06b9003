#include "cli/workbooks.h"

#ifdef KESTRUM_SPREADSHEET

#include "cli/modules.h"
#include "spreadsheet/module.h"

namespace kestrum::cli {

namespace {

constexpr Module kSpreadsheet{"kestrum-spreadsheet", "workbooks need the module",
                              ".csv needs nothing more"};

}  // namespace

std::string WriteBook(const std::vector<BookSheet>& book, const std::string& path)
{
    using Write = decltype(KestrumWriteBook);
    return reinterpret_cast<Write*>(FunctionOf(kSpreadsheet, "KestrumWriteBook"))(&book, &path);
}

std::string WriteBook(const MemberSummary& summary, const std::string& path)
{
    using Write = decltype(KestrumWriteSummary);
    return reinterpret_cast<Write*>(FunctionOf(kSpreadsheet, "KestrumWriteSummary"))(&summary,
                                                                                     &path);
}

}  // namespace kestrum::cli

#else

namespace kestrum::cli {

namespace {
constexpr const char* kWithout = "built without libxlsxwriter; .csv needs nothing more";
}

std::string WriteBook(const std::vector<BookSheet>&, const std::string&)
{
    return kWithout;
}

std::string WriteBook(const MemberSummary&, const std::string&)
{
    return kWithout;
}

}  // namespace kestrum::cli

#endif
