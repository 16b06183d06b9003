#include "app/case_reader.h"

#include "app/table_record.h"
#include "core/utf8_text.h"

#include <algorithm>
#include <utility>

namespace kestrum {

CaseReader::CaseReader(const MemberList& members, ForceColumns columns, std::string table)
    : members_(members), columns_(std::move(columns)), table_(std::move(table))
{
}

void CaseReader::Fault(ForcePiece& piece, std::size_t line, const std::string& what) const
{
    constexpr std::size_t kMost = 1000;  // of a piece; the rest is counted
    if (++piece.faults <= kMost) {
        piece.fault += Printable(table_ + ":" + std::to_string(line) + ": " + what) + "\n";
    }
}

void CaseReader::Fault(ForcePiece& piece, const CaseRows& rows, const CaseFault& fault) const
{
    Fault(piece, fault.line, "member \"" + key_ + "\", case \"" + rows.name + "\": " + fault.what);
}

void CaseReader::Read(ForcePiece& piece)
{
    piece.fault.clear();
    piece.faults = piece.rows = piece.cases = 0;
    open_ = false;
    RecordWalk walk(piece.lines, piece.line);
    for (std::size_t i = 0; !walk.done(); ++i) {
        const std::string_view record = walk.Next(columns_.separator());
        if (!record.empty()) {
            Record(piece, record, i < piece.numbers.size() ? piece.numbers[i] : walk.line());
        }
    }
    CloseMember(piece);
}

void CaseReader::Record(ForcePiece& piece, std::string_view record, std::size_t line)
{
    ++piece.rows;
    std::string_view fault =
        record.size() > kLongestLine ? "the line is too long" : columns_.Parse(record, row_);
    if (row_.member.empty()) {
        return Fault(piece, line, std::string(fault));  // of nobody
    }
    if (!open_ || row_.member != key_) {
        OpenMember(piece, row_.member, line);
    }
    if (member_ == MemberList::kNone) {
        return;
    }
    if (row_.load_case.empty()) {
        return Fault(piece, line, std::string(fault));
    }
    if (case_.empty() || row_.load_case != case_.name) {
        CloseCase(piece);
        case_.name = row_.load_case;
        case_.line = line;
    }
    if (!fault.empty()) {
        Fault(piece, line, std::string(fault));
        if (case_.fault.empty()) {
            case_.fault = "line " + std::to_string(line) + ": " + std::string(fault);
        }
    }
    case_.stations.push_back(row_.at);
    case_.lines.push_back(line);
}

void CaseReader::OpenMember(ForcePiece& piece, std::string_view key, std::size_t line)
{
    CloseMember(piece);
    open_ = true;
    key_ = key;
    member_ = members_.Find(key_);
    if (member_ == MemberList::kNone) {
        return Fault(piece, line, "member \"" + key_ + "\" is not in the table of members");
    }
    Open(member_);
}

void CaseReader::CloseCase(ForcePiece& piece)
{
    if (!case_.empty()) {
        ++piece.cases;
        Take(piece, case_);
        case_.Clear();
    }
}

void CaseReader::CloseMember(ForcePiece& piece)
{
    if (open_ && member_ != MemberList::kNone) {
        CloseCase(piece);
        Close(piece);
    }
    case_.Clear();
    open_ = false;
}

}  // namespace kestrum
