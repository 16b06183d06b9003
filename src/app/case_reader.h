#pragma once

// The rows of a table of forces put together: whole cases, one member after the other.

#include "app/force_table.h"
#include "app/member_cases.h"
#include "app/member_list.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kestrum {

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

// Takes the cases off pieces. Rows that cannot be read and members that nobody knows are faults of
// the piece.
class CaseReader {
public:
    CaseReader(const MemberList& members, ForceColumns columns, std::string table);
    virtual ~CaseReader() = default;

    void Read(ForcePiece& piece);

protected:
    CaseReader(const CaseReader&) = default;
    CaseReader(CaseReader&&) = default;
    CaseReader& operator=(const CaseReader&) = delete;

    // A member of the table begins; its cases follow, then its end. A piece may end within a
    // member.
    virtual void Open(std::size_t member) = 0;
    virtual void Take(ForcePiece& piece, CaseRows& rows) = 0;
    virtual void Close(ForcePiece& piece) = 0;

    std::size_t member() const { return member_; }  // at work
    // Stations of a case that do not run from end to end.
    void Fault(ForcePiece& piece, const CaseRows& rows, const CaseFault& fault) const;

private:
    void Fault(ForcePiece& piece, std::size_t line, const std::string& what) const;
    void Record(ForcePiece& piece, std::string_view record, std::size_t line);
    void OpenMember(ForcePiece& piece, std::string_view key, std::size_t line);
    void CloseCase(ForcePiece& piece);
    void CloseMember(ForcePiece& piece);

    const MemberList& members_;
    ForceColumns columns_;
    std::string table_;
    ForceRow row_;
    std::size_t member_ = MemberList::kNone;
    bool open_ = false;  // a member of the table is at work, known or not
    std::string key_;
    CaseRows case_;
};

}  // namespace kestrum
