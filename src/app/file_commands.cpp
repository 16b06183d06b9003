#include "app/file_commands.h"

#include "core/annexes.h"
#include "core/file_io.h"
#include "core/file_lock.h"
#include "core/material.h"
#include "core/project_file.h"
#include "core/project_state.h"
#include "engine/new_project.h"

#include <chrono>
#include <cstdint>
#include <utility>

namespace kestrum {

namespace {

std::string FolderOf(const std::string& path)
{
    const std::size_t end = path.find_last_of("/\\");
    if (end == std::string::npos) {
        return {};
    }
    const bool root = end == 0 || path[end - 1] == ':';  // "/" and "C:\" keep their separator
    return path.substr(0, root ? end + 1 : end);
}

std::string FileName(const std::string& path)
{
    return path.substr(path.find_last_of("/\\") + 1);
}

void FinishOpening(Session& session)
{
    session.curdir = FolderOf(session.state().filename);
    SetMaterial(session.library(), session.edit(), session.edit(), session.state().fykindex);
    session.Calculate();
}

// What was written is the project from now on; a failure is told.
bool Conclude(Session& session, const std::string& path, std::string bytes,
              const std::string& problem)
{
    if (!problem.empty()) {
        session.surroundings().Warn(path + ": " + problem);
        return false;
    }
    session.disk.Know(std::move(bytes));
    session.filefault.clear();
    session.MarkSaved();
    return true;
}

bool WriteFile(Session& session, const std::string& path)
{
    std::string bytes = WriteProject(session.edit());
    const std::string problem = WriteWholeFile(path, bytes);
    return Conclude(session, path, std::move(bytes), problem);
}

enum class Saved : std::uint8_t { done, failed, refused };

// Writes the file unless it has changed; nobody else changes it between the look and the writing.
Saved WriteUnchanged(Session& session, const std::string& path)
{
    constexpr std::chrono::milliseconds kPatience{2000};
    FileLock lock;
    std::string problem = lock.Take(path, kPatience);
    if (problem.empty() && session.disk.Compare(path) == DiskState::changed) {
        return Saved::refused;
    }
    std::string bytes = WriteProject(session.edit());
    if (problem.empty()) {
        problem = lock.Write(bytes);
    }
    return Conclude(session, path, std::move(bytes), problem) ? Saved::done : Saved::failed;
}

DiskAnswer AskAboutDisk(Session& session, std::string_view keeping)
{
    return session.surroundings().AskAboutDisk(session.state().filename +
                                               " has changed on the disk since it was opened or "
                                               "saved here.\n\nReload reads it again and drops "
                                               "what was changed here. Keep mine " +
                                               std::string(keeping) +
                                               " Save as writes the project to another file.");
}

// Keeps the project before it is dropped. Half a project goes to a file of its own, if the user
// names one.
bool SaveBeforeNew(Session& session, SettingsStore& store)
{
    if (!session.halfread()) {
        return SaveFile(session, store);
    }
    const std::optional<std::string> path =
        session.surroundings().ChooseFileToSave(session.curdir, session.state().filename);
    return path && WriteFile(session, *path);
}

}  // namespace

void NewFile(Session& session, SettingsStore& store)
{
    if (session.state().filename != kNewFile) {
        const Answer answer = session.surroundings().Ask(kAskToSave);
        if (answer == Answer::cancel) {
            return;
        }
        if (answer == Answer::yes && !SaveBeforeNew(session, store)) {
            return;  // nothing is lost: the user has read why
        }
    }
    session.BeginDocument("new project");
    NewProject(session.library(), session.edit());
    session.BeginProject();
    session.disk.Forget();
    session.SetTitle(session.TitleStem() + ": " + session.state().filename);
    session.Calculate();
}

bool OpenFile(Session& session, SettingsStore& store)
{
    const std::optional<std::string> path = session.surroundings().ChooseFileToOpen(session.curdir);
    return path && OpenPath(session, store, *path);
}

bool OpenPath(Session& session, SettingsStore& store, const std::string& path)
{
    std::string bytes;
    if (const std::string problem = ReadWholeFile(path, bytes); !problem.empty()) {
        session.surroundings().Warn(path + ": " + problem);
        return false;  // nothing was read: the project in hand stays
    }
    const bool again = path == session.state().filename && !session.halfread();
    ProjectState opened{};
    const std::optional<FileFault> fault = ReadFresh(session.library(), opened, bytes);
    session.BeginDocument("opening of " + FileName(path));
    if (fault) {
        ReadProject(session.edit(), bytes);  // what comes before the fault replaces what it can
    } else {
        session.edit() = std::move(opened);
    }
    session.edit().filename = path;
    session.disk.Know(std::move(bytes));
    if (fault) {
        session.filefault = FaultText(path, *fault);
        session.surroundings().Warn(session.filefault);
        session.Record();
        session.Publish();
        return false;
    }
    session.BeginProject();
    if (!again) {
        session.SetTitle(session.TitleStem() + ": " + path);
        PushRecentFile(store, path);
    }
    FinishOpening(session);
    return true;
}

bool OpenRecentFile(Session& session, SettingsStore& store, std::string_view caption)
{
    const std::string path = PathOfCaption(caption);
    if (!OpenPath(session, store, path)) {
        return false;
    }
    PushRecentFile(store, path);  // to the top also when it is the project in hand
    session.Publish();
    return true;
}

bool SaveFile(Session& session, SettingsStore& store)
{
    const std::string path = session.state().filename;
    if (path == kNewFile || session.halfread()) {
        return SaveFileAs(session, store);
    }
    const Saved saved = WriteUnchanged(session, path);
    if (saved != Saved::refused) {
        session.Publish();
        return saved == Saved::done;
    }
    switch (AskAboutDisk(session, "overwrites it now.")) {
    case DiskAnswer::keep:
        session.disk.Accept();
        return SaveFile(session, store);  // unless it has changed again
    case DiskAnswer::saveas:
        return SaveFileAs(session, store);
    case DiskAnswer::reload:
        OpenPath(session, store, path);
        return false;
    case DiskAnswer::later:
        return false;
    }
    return false;
}

void ReviewDisk(Session& session, SettingsStore& store)
{
    const std::string path = session.state().filename;
    if (path == kNewFile || !session.disk.HasNews(path)) {
        return;
    }
    const std::string_view keeping = session.halfread() ? "stays with what was read before."
                                                        : "lets the next save overwrite it.";
    switch (AskAboutDisk(session, keeping)) {
    case DiskAnswer::reload:
        OpenPath(session, store, path);
        break;
    case DiskAnswer::keep:
        session.disk.Accept();
        break;
    case DiskAnswer::saveas:
        SaveFileAs(session, store);
        break;
    case DiskAnswer::later:
        break;
    }
}

bool SaveFileAs(Session& session, SettingsStore& store)
{
    const std::string before = session.state().filename;
    const bool half = session.halfread();
    const std::optional<std::string> path = session.surroundings().ChooseFileToSave(
        session.curdir, before == kNewFile ? "*.kst" : before);
    if (!path || !WriteFile(session, *path)) {
        return false;
    }
    if (*path != before || half) {
        session.edit().filename = *path;
        session.SetTitle("Kestrum EC3 - " + std::string(AnnexName(session.state().annexindex)) +
                         ": " + *path);
        session.curdir = FolderOf(*path);
        PushRecentFile(store, *path);
    }
    session.Publish();
    return true;
}

void OpenCommandLine(Session& session, SettingsStore& store, std::string_view commandline)
{
    if (commandline.empty()) {
        return;
    }
    const std::string path(commandline.size() < 2 ? std::string_view{}
                                                  : commandline.substr(1, commandline.size() - 2));
    OpenPath(session, store, path);
    session.ForgetSteps();
}

}  // namespace kestrum
