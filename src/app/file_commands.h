#pragma once

// New, Open, recent files, Save, Save As, the start with a file, "Save as default".

#include "app/session.h"
#include "core/recent_files.h"

#include <string>
#include <string_view>

namespace kestrum {

constexpr std::string_view kAskToSave = "Do you want to save the actual project?";
constexpr std::string_view kNewFile = "New File";

// A project that has a file is saved first if the user wants so.
void NewFile(Session& session, SettingsStore& store);

// False when cancelled or failed; a failure is told. A file that cannot be opened leaves the
// project in hand. One that is broken leaves what was read of it, and the next Save asks for a
// name.
bool OpenFile(Session& session, SettingsStore& store);
bool OpenPath(Session& session, SettingsStore& store, const std::string& path);
bool OpenRecentFile(Session& session, SettingsStore& store, std::string_view caption);

// False when cancelled or failed; a failure is told. A file that has changed on the disk since it
// was read or written here is overwritten only when the user says so.
bool SaveFile(Session& session, SettingsStore& store);
bool SaveFileAs(Session& session, SettingsStore& store);

// Asks what to do when the project's file has changed on the disk: read it again, keep the project
// in hand (the next save overwrites the file), or save that under another name. For whenever the
// program comes to the front; asks once for every change.
void ReviewDisk(Session& session, SettingsStore& store);

// The raw command line: one path in double quotes, whose first and last character go without a
// look. Empty: nothing.
void OpenCommandLine(Session& session, SettingsStore& store, std::string_view commandline);

}  // namespace kestrum
