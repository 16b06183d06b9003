#include "cli/commands.h"

#include "app/project_origin.h"
#include "calculation/calculation_report.h"
#include "cli/print_stamp.h"
#include "cli/renderer.h"
#include "cli/report_office.h"
#include "core/file_io.h"
#include "document/document_head.h"
#include "document/html_writer.h"
#include "document/markdown_writer.h"
#include "document/odt_writer.h"
#include "document/page_layout.h"
#include "render/pdf_extras.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace kestrum::cli {

namespace {

constexpr DrawingScale kScale{.mm = 1, .svg_pixels = 96 / 25.4, .png_pixels = 150 / 25.4};

void WriteText(const std::string& text, const std::string& path)
{
    const std::string fault = WriteWholeFile(path, text);
    if (!fault.empty()) {
        throw BadInput(path + ": " + fault);
    }
}

void RequireEnding(const std::string& path)
{
    constexpr std::string_view kEndings[] = {".html", ".md", ".odt", ".pdf", ".svg", ".png"};
    const std::string ending = EndingOf(path);
    if (std::find(std::begin(kEndings), std::end(kEndings), ending) == std::end(kEndings)) {
        throw BadInput(path + ": the name has to end in .pdf, .html, .odt, .md, .svg or .png");
    }
}

DocumentHead HeadOf(const ReportArguments& arguments)
{
    DocumentHead head;
    Require(kestrum::HeadOf(OfficeOf(arguments), head));
    if (head.date.empty() && !arguments.reproducible) {
        head.date = StampOfNow().date;
    }
    return head;
}

ReportedMember MemberOf(const Library& library, const std::string& file)
{
    ReportedMember member{.project = OpenProject(library, file)};
    ProjectOrigin origin = OriginOf(file);
    member.file = std::move(origin.file);
    member.digest = std::move(origin.digest);
    return member;
}

// Bookmarks of cover, members and chapters, and the links of the contents.
PdfExtras ExtrasOf(const LaidOut& laid, const Document& document, bool reproducible)
{
    PdfExtras extras{.author = document.head.author, .reproducible = reproducible};
    std::vector<std::size_t> members;
    for (const PlacedHeading& heading : laid.headings) {
        if (heading.level > 2) {
            continue;
        }
        if (heading.level == 1) {
            members.push_back(extras.marks.size());
        }
        const int depth = heading.level == 2 && !members.empty() ? 1 : 0;
        extras.marks.push_back({depth, heading.text, heading.page, heading.y});
    }
    for (const PlacedLink& link : laid.links) {
        if (link.member <= members.size()) {
            extras.links.push_back({link.page, link.at.left, link.at.top, link.at.right,
                                    link.at.bottom, members[link.member - 1]});
        }
    }
    return extras;
}

}  // namespace

int ReportFull(const Options& options, const ReportArguments& arguments)
{
    RequireEnding(arguments.out);
    for (const std::string& file : arguments.files) {
        SpareInput(arguments.out, file);
    }
    const DocumentHead head = HeadOf(arguments);
    const Library library = LoadTables(options);
    std::vector<ReportedMember> members;
    for (const std::string& file : arguments.files) {
        members.push_back(MemberOf(library, file));
        members.back().vortex = arguments.vortex;
    }
    const Document document = CalculationReport(library, members, head);
    const std::string ending = EndingOf(arguments.out);
    if (ending == ".html") {
        WriteText(WriteHtml(document), arguments.out);
    } else if (ending == ".md") {
        WriteText(WriteMarkdown(document), arguments.out);
    } else if (ending == ".odt") {
        WriteText(WriteOdt(document), arguments.out);
    } else {
        const LaidOut laid = LayOut(document);
        const PdfExtras extras = ExtrasOf(laid, document, arguments.reproducible);
        WriteDrawings(laid.pages, kScale, arguments.out, &extras);
    }
    return kAllWithin;
}

}  // namespace kestrum::cli
