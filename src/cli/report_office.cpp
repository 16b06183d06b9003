#include "cli/report_office.h"

namespace kestrum::cli {

Office OfficeOf(const ReportArguments& arguments)
{
    Office office;
    Require(arguments.office.empty() ? ReadUserOffice(office)
                                     : ReadOfficeFile(arguments.office, office));
    for (const auto& [name, value] : arguments.head) {
        const std::string fault = value.empty() ? std::string() : SetOffice(office, name, value);
        if (!fault.empty()) {
            throw BadInput("--" + name + ": " + fault);
        }
    }
    return office;
}

}  // namespace kestrum::cli
