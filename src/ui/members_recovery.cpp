// Unsaved work on the table of members, set aside as that on a project is.

#include "core/file_io.h"
#include "core/sha256.h"
#include "ui/members_window.h"

#include <utility>

namespace kestrum {

// With every edit; nothing is copied but the lines' places, the text is made on another thread.
void MembersWindow::SetAside()
{
    Aside* const aside = desk_.session.aside;
    if (aside == nullptr) {
        return;
    }
    const MembersSheet& sheet = model_.sheet();
    if (!sheet.modified()) {
        aside->DropTable();
        return;
    }
    digest_ = digest_ ? digest_ : disk_.Digest();
    aside->KeepTable(sheet.step(), [path = path_, digest = *digest_, alone = sheet.Alone()] {
        return UnsavedTable{path, digest, alone.Text()};
    });
}

bool MembersWindow::TakeUp(LeftWork& work)
{
    if (!MayLeave()) {
        return false;
    }
    UnsavedTable table;
    std::string fault = ReadTable(work, table);
    if (fault.empty()) {
        model_.Change([&](MembersSheet& sheet) {
            fault = sheet.Take(table.text, work.path);
            sheet.MarkUnsaved();
        });
    }
    if (!fault.empty()) {
        desk_.session.surroundings().Warn(work.path + ": " + fault);
        return false;
    }
    path_ = table.path;
    disk_.Forget();
    digest_.reset();
    std::string ondisk;
    if (!path_.empty() && ReadWholeFile(path_, ondisk).empty() && Sha256(ondisk) == table.digest) {
        disk_.Know(std::move(ondisk));
    }
    ShowTable();
    Aside* const aside = desk_.session.aside;
    if (aside != nullptr) {
        aside->Settle();
    }
    if (aside == nullptr || aside->problem().empty()) {
        Discard(work);  // this window has it aside for itself now
    }
    return true;
}

}  // namespace kestrum
