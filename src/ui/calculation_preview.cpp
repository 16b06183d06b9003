#include "ui/calculation_preview.h"

#include "app/project_origin.h"
#include "app/session.h"
#include "calculation/calculation_report.h"
#include "document/document_head.h"
#include "document/page_layout.h"
#include "render/painter.h"
#include "ui/print_pages.h"

#include <QPrintPreviewDialog>
#include <QPrinter>

namespace kestrum {

namespace {

// With name and digest of the file that holds the project as it is.
ReportedMember MemberOf(const Session& session)
{
    ReportedMember member{.project = session.state()};
    ProjectOrigin origin = OriginOf(member.project);
    member.file = std::move(origin.file);
    member.digest = std::move(origin.digest);
    return member;
}

}  // namespace

void PreviewCalculation(QWidget* parent, Session& session)
{
    Office office;
    DocumentHead head;
    std::string fault = ReadUserOffice(office);
    if (fault.empty()) {
        fault = HeadOf(office, head);
    }
    if (!fault.empty()) {
        session.surroundings().Warn(fault);
        return;
    }
    if (head.date.empty()) {
        head.date = session.surroundings().Date();
    }
    const ReportedMember member = MemberOf(session);
    const LaidOut laid =
        LayOut(CalculationReport(session.library(), {&member, 1}, std::move(head)));
    if (const std::string unread = UnreadablePicture(laid.pages); !unread.empty()) {
        session.surroundings().Warn(unread);
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setFullPage(true);
    QPrintPreviewDialog preview(&printer, parent);
    preview.setObjectName(QStringLiteral("calculationpreview"));
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested,
                     [&laid](QPrinter* paper) { PrintPages(*paper, laid.pages); });
    preview.exec();
}

}  // namespace kestrum
