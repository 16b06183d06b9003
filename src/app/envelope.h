#pragma once

// Members of a frame under all cases of a table of forces: the worst case of each. Reads and writes
// texts only; the command line brings files, threads and the order of the rows.

#include "app/answer_form.h"
#include "app/case_reader.h"
#include "app/member_cases.h"
#include "app/member_list.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

// The lines of the answers.
class EnvelopeForm : public AnswerLines {
public:
    EnvelopeForm(TableForm form, Bases bases, CsvForm csv) : AnswerLines(form, csv), bases_(bases)
    {
    }
    std::string Header() const override;
    void AppendLine(std::string& out, std::string_view member, const MemberAnswer& answer) const;
    Bases bases() const { return bases_; }

private:
    Bases bases_;
};

struct EnvelopePlan {
    const Library& library;
    const ProjectState& base;  // what a member's line does not name
    const MemberList& members;
    Bases bases = Bases::both;
    Manner manner{Assignment::checked};
    bool all = false;     // a line for each case
    std::size_t top = 0;  // so many worst cases of each member
};

// Calculates pieces; one for each thread.
class EnvelopeWorker : public CaseReader {
public:
    EnvelopeWorker(const EnvelopePlan& plan, ForceColumns columns, std::string table);

    void Work(ForcePiece& piece);

    // The member of an answer when no case of it could run, or it has none: why.
    std::string RefusalOf(std::size_t member);

private:
    void Open(std::size_t member) override;
    void Take(ForcePiece& piece, CaseRows& rows) override;
    void Close(ForcePiece& piece) override;
    void Keep(MemberAnswer answer);

    const EnvelopePlan& plan_;
    MemberCases cases_;
    std::size_t prepared_ = MemberList::kNone;  // the member that they are of
    std::vector<MemberAnswer> kept_;            // of the member at work
};

}  // namespace kestrum
