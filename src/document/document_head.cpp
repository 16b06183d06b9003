#include "document/document_head.h"

namespace kestrum {

std::string HeadOf(const Office& office, DocumentHead& head)
{
    head.company = office.company;
    head.projectnumber = office.projectnumber;
    head.author = office.author;
    head.checker = office.checker;
    head.revision = office.revision;
    head.date = office.date;
    head.decimal = office.decimal == "comma" ? ',' : '.';
    return ReadOfficeLogo(office, head.logo);
}

}  // namespace kestrum
