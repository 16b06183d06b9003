// What a crash may leave behind: unsaved work and unsaved tables of members, whole or in pieces.

#include "harness.h"
#include "harness_tools.h"

#include "app/aside.h"
#include "app/members_sheet.h"
#include "app/session.h"
#include "support/silent_surroundings.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace kestrum::fuzz {

namespace {

namespace fs = std::filesystem;

// A folder of this process, gone at its end.
class Folder {
public:
    Folder() : path_(fs::temp_directory_path() / ("kestrum-left-" + std::to_string(::getpid())))
    {
        fs::create_directories(path_);
    }
    ~Folder()
    {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string name() const { return path_.string(); }

private:
    fs::path path_;
};

// A table that was read is written as it was read, and reads back.
void RequireSheetRepeats(const std::string& text)
{
    MembersSheet sheet;
    if (!sheet.Take(text, "left").empty()) {
        return;
    }
    const std::string written = sheet.Text();
    MembersSheet again;
    Require(again.Take(written, "again").empty(), "a written table cannot be read");
    Require(again.rows() == sheet.rows() && again.columns() == sheet.columns(),
            "a table does not keep its cells");
    Require(again.Text() == written, "a table does not repeat itself");
}

}  // namespace

void LeftBehind(std::string_view bytes)
{
    static const Folder kFolder;
    const std::string path = kFolder.name() + "/left.unsaved";
    std::ofstream(path, std::ios::binary) << bytes;
    std::vector<LeftWork> found = FindLeftWork(kFolder.name());
    Require(found.size() <= 1, "one file is found twice");
    for (LeftWork& work : found) {
        UnsavedTable table;
        if (ReadTable(work, table).empty()) {
            Require(work.table, "work is taken for a table");
            RequireSheetRepeats(table.text);
            continue;
        }
        SilentSurroundings nobody;
        Session session(Delivered(), nobody, false);
        Require(TakeUp(session, work), "work is offered that cannot be read");
        Require(!fs::exists(path), "work is offered again");
        session.Calculate();
    }
}

}  // namespace kestrum::fuzz
