#pragma once

// Unsaved work is set aside while it is being done, in a folder of its own, so that a crash, a loss
// of power or a closing without saving loses nothing. Every project of a window has its file there,
// written whole, as soon as it holds work that its own file does not, and deleted when it no longer
// does; so has the table of members. The window holds the locks of its files as long as it lives:
// what nobody holds has been left behind, and the next start offers it.

#include "core/file_lock.h"
#include "core/held_state.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace kestrum {

class Session;

// What is set aside of a project: all inputs, also those of other families and of the other mode of
// loading, which its file does not hold.
struct UnsavedWork {
    HeldState state{};
    std::string digest;  // of its file as this program knows it, DiskFile::Digest
    bool halfread = false;
};

// The same of the table of members.
struct UnsavedTable {
    std::string path;    // of its file; empty for one that was never saved
    std::string digest;  // as above
    std::string text;    // as its file would be
};

class Aside {
public:
    // Between two writings; a change is on the disk within this time and that of a writing.
    static constexpr std::chrono::milliseconds kPause{200};

    // The folder is made when something is written.
    explicit Aside(std::string folder);
    // Finishes what waits, then lets go of the locks.
    ~Aside();
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;

    const std::string& folder() const { return folder_; }

    // Writes the work of a project of this window, soon and by a thread of its own. Only the newest
    // of what waits is written; a step that is there already is not written again.
    void Keep(std::size_t document, std::size_t step, UnsavedWork work);
    // The same of the table of members; `table` is called on that thread.
    void KeepTable(std::size_t step, std::function<UnsavedTable()> table);
    // Its file holds all of it, or the user has dropped it.
    void Drop(std::size_t document);
    void DropTable();

    // Waits until nothing waits.
    void Settle();

    // Why the last writing failed; empty when all is well.
    std::string problem() const;

private:
    struct File {
        std::string path;
        FileLock lock;
    };
    void Run();
    using Writer = std::function<std::string()>;
    void Keep(std::size_t document, std::size_t step, Writer writer);
    void Do(std::size_t document, const std::optional<Writer>& writer);

    const std::string folder_, stem_;
    mutable std::mutex mutex_;
    std::condition_variable wake_, settled_;
    std::map<std::size_t, std::optional<Writer>> waiting_;  // nothing: to be dropped
    std::map<std::size_t, std::size_t> kept_;               // document, step
    std::string problem_;
    bool ending_ = false, busy_ = false;
    std::map<std::size_t, std::unique_ptr<File>> files_;  // of the thread
    std::thread thread_;
};

// Work that a window has left behind. Its lock is held, so that no other window offers it.
struct LeftWork {
    std::string path;     // of the file that holds it
    std::string project;  // its own file, or "New File"; of a table its file, or nothing
    bool table = false;   // of members
    std::string when;     // it was set aside, "2024-05-17 14:05"
    std::unique_ptr<FileLock> lock;
};

// All that nobody holds in the folder, the newest first.
std::vector<LeftWork> FindLeftWork(const std::string& folder);

// Makes it the project in hand, as a step that Undo takes back, and deletes its file once this
// window has set it aside for itself. False when it cannot be read, which is told.
bool TakeUp(Session& session, LeftWork& work);
void Discard(LeftWork& work);

// What was left of a table of members. Returns why it cannot be read, or nothing.
std::string ReadTable(const LeftWork& work, UnsavedTable& table);

}  // namespace kestrum
