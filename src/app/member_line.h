#pragma once

// A line of a table of members as the project in hand, and back.

#include "app/members_sheet.h"
#include "app/session.h"

#include <cstdint>
#include <string>

namespace kestrum {

class MemberLine {
public:
    // Makes the member of the line the project in hand, a step that Undo takes back; `table` is the
    // name of the file. False where the line is no member: the user has read why.
    bool Open(Session& session, const MembersSheet& sheet, std::size_t row,
              const ProjectState& base, const std::string& table);

    // Writes the project in hand into the line that was opened last. False when there is none, or
    // the user has opened another project since and does not want that one written.
    bool Write(Session& session, MembersSheet& sheet, const ProjectState& base);

private:
    bool Find(const MembersSheet& sheet, std::size_t& row) const;

    std::uint64_t line_ = 0;    // as it is in the sheet now, if it has not been edited since
    std::string name_, title_;  // of the line; of the window with its project
};

}  // namespace kestrum
