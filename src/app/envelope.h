#pragma once

// Members of a frame under all cases of a table of forces: the worst case of each. Reads and writes
// texts only; the command line brings files, threads and the order of the rows.

#include "app/batch.h"
#include "app/force_table.h"
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
    EnvelopeForm(TableForm form, Bases bases, CsvTexts texts)
        : AnswerLines(form), bases_(bases), texts_(texts)
    {
    }
    std::string Header() const override;
    void AppendLine(std::string& out, std::string_view member, const MemberAnswer& answer) const;
    Bases bases() const { return bases_; }

private:
    Bases bases_;
    CsvTexts texts_;
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

// Whole cases of some members, in their order, as they follow each other in the table.
struct ForcePiece {
    std::string lines = {};
    std::size_t line = 1;                   // number of the first record in the table
    std::vector<std::size_t> numbers = {};  // of each record, where they do not follow each other
    std::size_t place = 0;                  // of the first answer in the whole run

    // The answers, one for each member and where `all` one for each case; of top the worst ones.
    std::vector<MemberAnswer> answers = {};
    std::string fault = {};  // messages, a line each
    std::size_t faults = 0;
    std::size_t rows = 0, cases = 0;
};

// Calculates pieces; one for each thread.
class EnvelopeWorker {
public:
    EnvelopeWorker(const EnvelopePlan& plan, ForceColumns columns, std::string table);

    void Work(ForcePiece& piece);

    // The member of an answer when no case of it could run, or it has none: why.
    std::string RefusalOf(std::size_t member);

private:
    void Record(ForcePiece& piece, std::string_view record, std::size_t line);
    void OpenMember(ForcePiece& piece, std::string_view key, std::size_t line);
    void CloseCase(ForcePiece& piece);
    void CloseMember(ForcePiece& piece);
    void Prepare(std::size_t member);
    void Keep(MemberAnswer answer);
    void Fault(ForcePiece& piece, std::size_t line, const std::string& what) const;

    const EnvelopePlan& plan_;
    ForceColumns columns_;
    std::string table_;
    MemberCases cases_;
    std::size_t prepared_ = MemberList::kNone;  // the member that they are of
    ForceRow row_;
    std::size_t member_ = MemberList::kNone;
    bool open_ = false;  // a member of the table is at work, known or not
    std::string key_;
    CaseRows case_;
    std::vector<MemberAnswer> kept_;  // of the member at work
};

}  // namespace kestrum
