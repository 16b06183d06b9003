// The answers of many members in order: as CSV, workbook or printed pages.

#include "app/answer_table.h"
#include "cli/commands.h"
#include "cli/many.h"
#include "cli/print_stamp.h"
#include "cli/workbooks.h"
#include "core/file_io.h"
#include "core/utf8_text.h"
#include "report/summary_pages.h"

#include <iostream>

namespace kestrum::cli {

namespace {

void RequireNames(const SummaryArguments& arguments)
{
    const std::string ending = EndingOf(arguments.out);
    if (!arguments.out.empty() && ending != ".csv" && ending != ".xlsx" && ending != ".svg" &&
        ending != ".png" && ending != ".pdf") {
        throw BadInput(arguments.out + ": the name has to end in .csv, .xlsx, .pdf, .svg or .png");
    }
    if (arguments.answers == "-" && arguments.members == "-") {
        throw BadInput("standard input cannot be both tables");
    }
    for (const std::string& input : {arguments.answers, arguments.members, arguments.base}) {
        if (!input.empty()) {
            SpareInput(arguments.out.empty() ? "-" : arguments.out, input);
        }
    }
}

void WriteSummary(const SummaryArguments& arguments, const CsvForm& csv,
                  const MemberSummary& summary)
{
    const std::string ending = EndingOf(arguments.out);
    std::string fault;
    if (arguments.out.empty()) {
        Print(SummaryCsv(summary, csv));
    } else if (ending == ".csv") {
        fault = WriteWholeFile(arguments.out, SummaryCsv(summary, csv));
    } else if (ending == ".xlsx") {
        fault = WriteBook(summary, arguments.out);
    } else {
        PrintStamp stamp = StampOfNow();
        stamp.origin = OriginText({}, {});
        fault = ReadUserOffice(stamp.office);
        if (!fault.empty()) {
            throw BadInput(fault);
        }
        const PrintedReport report = PrintSummary(
            summary, stamp, arguments.answers == "-" ? "standard input" : arguments.answers);
        WriteDrawings(report.pages, kPageScale, arguments.out);
    }
    if (!fault.empty()) {
        throw BadInput(arguments.out + ": " + fault);
    }
}

std::string CountText(const MemberSummary& summary, ResultOf basis)
{
    const auto counts = CountStandings(summary, basis);
    return std::to_string(counts[0]) + " without a ratio, " + std::to_string(counts[1]) +
           " above limit, " + std::to_string(counts[2]) + " within limits\n";
}

}  // namespace

int Summary(const Options& options, const SummaryArguments& arguments)
{
    RequireNames(arguments);
    const std::string& out = arguments.out;
    const CsvForm csv = CsvFormOf(options, out.empty() ? CsvTexts::plain : CsvTexts::safe,
                                  out.empty() || EndingOf(out) == ".csv");
    const Interrupt interrupt;
    bool faulty = false;
    AnswerTable answers;
    const std::string refusal =
        answers.Take(ReadTable(arguments.answers, interrupt),
                     arguments.answers == "-" ? "standard input" : arguments.answers);
    if (!refusal.empty()) {
        throw BadInput(refusal);
    }
    if (!arguments.members.empty()) {
        const Library library = LoadTables(options);
        const MemberList members = ReadMembers(arguments.members, arguments.key, interrupt, faulty);
        const std::size_t strangers =
            answers.AddMembers(members, library, BaseOf(library, arguments.base),
                               Manner(arguments.raw ? Assignment::raw : Assignment::checked));
        if (strangers > 0) {
            Complain(arguments.members + ": does not hold " + std::to_string(strangers) +
                     " of the " + std::to_string(answers.summary.members.size()) +
                     " members answered");
            faulty = true;
        }
    }
    answers.summary.top = static_cast<std::size_t>(arguments.top);
    WriteSummary(arguments, csv, answers.summary);
    if (!options.quiet) {
        const MemberSummary& summary = answers.summary;
        std::cerr << (summary.both ? "program: " : "")
                  << CountText(summary, &SummaryMember::result);
        if (summary.both) {
            std::cerr << "EN 1993-1-1: " << CountText(summary, &SummaryMember::standard);
        }
    }
    return faulty ? kBadInput : kAllWithin;
}

}  // namespace kestrum::cli
