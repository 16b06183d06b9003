#include "app/member_line.h"

#include "app/file_commands.h"
#include "core/held_state.h"
#include "core/project_inputs.h"
#include "engine/new_project.h"

namespace kestrum {

bool MemberLine::Open(Session& session, const MembersSheet& sheet, std::size_t row,
                      const ProjectState& base, const std::string& table)
{
    HeldState member = base;
    const std::string refusal = sheet.Member(session.library(), row, member);
    const std::string name = sheet.NameOf(row);
    if (!refusal.empty()) {
        session.surroundings().Warn(table + ": member " + name + ": " + refusal);
        return false;
    }
    session.BeginDocument("member " + name);
    session.Replace(member);
    InputsOf(session.edit()).filename = kNewFile;
    session.BeginProject();
    session.disk.Forget();
    session.SetTitle(session.TitleStem() + ": member " + name + " of " + table);
    session.Calculate();
    line_ = sheet.At(row).id;
    name_ = name;
    title_ = session.title();
    return true;
}

// The line itself, or, edited since, the one line of its name.
bool MemberLine::Find(const MembersSheet& sheet, std::size_t& row) const
{
    std::size_t found = 0;
    for (std::size_t at = 0; at < sheet.rows(); ++at) {
        if (sheet.At(at).id == line_) {
            row = at;
            return true;
        }
        if (sheet.NameOf(at) == name_) {
            row = at;
            ++found;
        }
    }
    return found == 1;
}

bool MemberLine::Write(Session& session, MembersSheet& sheet, const ProjectState& base)
{
    std::size_t row = 0;
    if (line_ == 0) {
        session.surroundings().Warn("Open a line as the project first");
        return false;
    }
    if (!Find(sheet, row)) {
        session.surroundings().Warn("Member " + name_ + " is no longer in the table");
        return false;
    }
    if (session.title() != title_ &&
        session.surroundings().Ask("The project is not the one of member " + name_ +
                                   ". Write it into that line?") != Answer::yes) {
        return false;
    }
    const std::string left = sheet.Write(session.library(), row, base, session.state());
    if (!left.empty()) {
        session.surroundings().Warn("Member " + name_ + ": the line does not give " + left);
    }
    line_ = sheet.At(row).id;
    return true;
}

}  // namespace kestrum
