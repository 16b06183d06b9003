#include "app/file_commands.h"

#include "core/annexes.h"
#include "core/file_io.h"
#include "core/material.h"
#include "core/project_file.h"
#include "engine/new_project.h"

namespace kestrum {

namespace {

std::string FolderOf(const std::string& path)
{
    const std::size_t end = path.find_last_of("/\\");
    return end == std::string::npos ? std::string{} : path.substr(0, end);
}

// Reads the file over the project in hand and recalculates.
bool ReadFile(Session& session, const std::string& path)
{
    std::string bytes;
    if (const std::string problem = ReadWholeFile(path, bytes); !problem.empty()) {
        session.surroundings().Warn(path + ": " + problem);
        return false;
    }
    if (const std::optional<FileFault> fault = ReadProject(session.edit(), bytes)) {
        session.halfread = true;
        session.surroundings().Warn(FaultText(path, *fault));
        session.changed();
        return false;
    }
    session.halfread = false;
    return true;
}

void FinishOpening(Session& session)
{
    session.curdir = FolderOf(session.state().filename);
    SetMaterial(session.library(), session.edit(), session.state().fykindex);
    session.Calculate();
}

bool WriteFile(Session& session, const std::string& path)
{
    if (const std::string problem = WriteWholeFile(path, WriteProject(session.edit()));
        !problem.empty()) {
        session.surroundings().Warn(path + ": " + problem);
        return false;
    }
    session.halfread = false;
    return true;
}

}  // namespace

void NewFile(Session& session)
{
    if (session.state().filename != kNewFile) {
        const Answer answer = session.surroundings().Ask(kAskToSave);
        if (answer == Answer::cancel) {
            return;
        }
        if (answer == Answer::yes && !WriteFile(session, session.state().filename)) {
            return;  // nothing is lost: the user has read why
        }
    }
    NewProject(session.library(), session.edit());
    session.halfread = false;
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
    const bool again = path == session.state().filename;
    session.edit().filename = path;
    if (!ReadFile(session, path)) {
        return false;
    }
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
    const bool again = path == session.state().filename;
    if (!OpenPath(session, store, path)) {
        return false;
    }
    if (again) {
        PushRecentFile(store, path);  // the entry moves to the top all the same
        session.changed();
    }
    return true;
}

bool SaveFile(Session& session, SettingsStore& store)
{
    if (session.state().filename == kNewFile || session.halfread) {
        return SaveFileAs(session, store);
    }
    return WriteFile(session, session.state().filename);
}

bool SaveFileAs(Session& session, SettingsStore& store)
{
    const std::string before = session.state().filename;
    const std::optional<std::string> path = session.surroundings().ChooseFileToSave(
        session.curdir, before == kNewFile ? "*.kst" : before);
    if (!path || !WriteFile(session, *path)) {
        return false;
    }
    if (*path != before) {
        session.edit().filename = *path;
        session.SetTitle("Kestrum EC3 - " + std::string(AnnexName(session.state().annexindex)) +
                         ": " + *path);
        session.curdir = FolderOf(*path);
        PushRecentFile(store, *path);
    }
    session.changed();
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
}

}  // namespace kestrum
