#include "sections/load_library.h"

#include "core/file_io.h"
#include "core/held_state.h"
#include "core/material.h"
#include "core/program_path.h"
#include "core/setup_file.h"
#include "core/sha256.h"
#include "core/utf8_path.h"
#include "sections/delivered_data.h"
#include "sections/read_profiles.h"
#include "sections/second_source.h"

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <sstream>
#include <string_view>

namespace kestrum {

namespace {

namespace fs = std::filesystem;

#ifndef _WIN32

constexpr const char* kFolder = "kestrum-ec3";

std::string Environment(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

// prefix/share/kestrum-ec3 of a program in prefix/bin, installed or not.
std::string FolderBesideProgram()
{
    const fs::path program = ProgramPath();
    if (program.empty()) {
        return {};
    }
    return (program.parent_path().parent_path() / "share" / kFolder).string();
}

// What a folder that was named on purpose lacks.
std::string FolderFault(const std::string& folder)
{
    std::error_code ignored;
    if (!fs::is_directory(Utf8Path(folder), ignored)) {
        return folder + ": no such folder; the other data folders are used";
    }
    std::string missing;
    std::size_t count = 0;
    for (std::size_t i = 0; i < kTables; ++i) {
        const std::string_view name = ShapeOf(static_cast<Table>(i)).file;
        if (!fs::is_regular_file(Utf8Path(folder) / name, ignored)) {
            missing += (missing.empty() ? "" : ", ") + std::string(name);
            ++count;
        }
    }
    if (count == 0) {
        return {};
    }
    if (count == kTables) {
        missing = "profile tables";
    }
    return folder + " has no " + missing + "; those of the other data folders are used";
}

#endif

// Path of the file when the folder has it.
std::string FileIn(const std::string& folder, std::string_view name)
{
    const fs::path path = Utf8Path(folder) / name;
    std::error_code ignored;
    return fs::is_regular_file(path, ignored) ? Utf8Name(path) : std::string();
}

// One file of the data as the folders have it.
struct Found {
    std::string path;  // empty when no folder has it
    std::string bytes;
    bool whole = false;
    bool shared = false;  // in a folder that is not the user's
};

// What is wrong with the bytes of a file, as a message begins; empty when it is whole.
using Check = std::function<std::string(const std::string& path, const std::string& bytes)>;

Found ReadAndCheck(const std::string& path, bool shared, const Check& check, std::string& fault)
{
    Found found{path, {}, false, shared};
    const std::string problem = ReadWholeFile(path, found.bytes);
    if (problem.empty()) {
        fault = check(path, found.bytes);
    } else {
        fault = path + ": " + problem;
    }
    found.whole = fault.empty();
    return found;
}

// The first whole file of the name; where there is none, the first.
Found Find(const std::vector<std::string>& folders, std::string_view name, const Check& check,
           std::vector<std::string>& faults)
{
    std::vector<std::string> passed;
    Found best;
    for (std::size_t i = 0; i < folders.size() && !best.whole; ++i) {
        const std::string path = FileIn(folders[i], name);
        if (path.empty()) {
            continue;
        }
        std::string fault;
        Found found = ReadAndCheck(path, i > 0, check, fault);
        if (!found.whole) {
            passed.push_back(fault);
        }
        if (found.whole || best.path.empty()) {
            best = std::move(found);
        }
    }
    for (const std::string& fault : passed) {
        std::string& text = faults.emplace_back(fault);
        if (best.whole) {
            text += "; " + best.path + " is used instead";
        }
    }
    return best;
}

// Names what is not the delivered file.
void NoteOwn(Library& library, const Found& found, std::string_view name, std::string_view bytes)
{
    if (found.path.empty() || IsDelivered(name, bytes)) {
        return;
    }
    library.own.push_back({std::string(name), found.path, Sha256(bytes)});
    if (found.shared && found.whole) {
        library.faults.push_back(found.path + ": is not the file as delivered");
    }
}

void LoadTables(const std::vector<std::string>& folders, Library& library)
{
    std::string missing;
    library.tables = EmptyTables();
    for (std::size_t i = 0; i < kTables; ++i) {
        const TableShape& shape = ShapeOf(static_cast<Table>(i));
        const auto check = [&](const std::string& path, const std::string& bytes) {
            std::string fault = CheckProfile(bytes, shape);
            if (!fault.empty()) {
                fault.insert(0, path + ": ");
            }
            return fault;
        };
        const Found found = Find(folders, shape.file, check, library.faults);
        if (found.path.empty()) {
            missing += (missing.empty() ? "" : ", ") + std::string(shape.file);
        }
        FillProfile(found.bytes, shape, library.tables.at(i));
        NoteOwn(library, found, shape.file, RowsOf(found.bytes, shape));
    }
    if (!missing.empty()) {
        library.faults.push_back("in none of the data folders: " + missing +
                                 "; their sections cannot be calculated");
    }
}

void LoadMaterials(const std::vector<std::string>& folders, Library& library)
{
    const auto check = [](const std::string& path, const std::string& bytes) {
        const auto fault = CheckMaterialList(bytes);
        return fault ? FaultText(path, *fault) : std::string();
    };
    const Found found = Find(folders, kMaterialFile, check, library.faults);
    library.materials = ReadMaterialList(found.bytes);
    NoteOwn(library, found, kMaterialFile, found.bytes);
    if (!library.materials.empty() && library.materials.back().fy40 != 0) {
        library.faults.push_back(found.path + ": the last row, " + library.materials.back().name +
                                 ", is the user's own value; its strengths are not used");
    }
}

void LoadSecondSource(const std::vector<std::string>& folders, Library& library)
{
    const auto check = [](const std::string& path, const std::string& bytes) {
        const auto fault = CheckSecondSource(bytes);
        return fault ? FaultText(path, *fault) : std::string();
    };
    const Found found = Find(folders, kSecondSourceFile, check, library.faults);
    if (found.path.empty()) {
        library.faults.push_back("in none of the data folders: " + std::string(kSecondSourceFile) +
                                 "; the standard basis takes every figure of the profile tables");
    }
    library.corrected = ReadSecondSource(library, found.bytes);
    NoteOwn(library, found, kSecondSourceFile, found.bytes);
}

void LoadStoredSetup(const std::vector<std::string>& folders, Library& library)
{
    const auto check = [](const std::string& path, const std::string& bytes) {
        HeldState scratch;
        const auto fault = ReadSetup(scratch, bytes);
        return fault ? FaultText(path, *fault) : std::string();
    };
    Found found = Find(folders, kSetupFile, check, library.faults);
    if (!found.path.empty() && !found.whole) {
        found.bytes = DeliveredSetup();
        library.faults.back() += "; the delivered values are used instead";
    }
    library.setup = std::move(found.bytes);
}

}  // namespace

#ifdef _WIN32

std::string UserDataFolder()
{
    return "C:\\ProgramData\\Dorvane 2020\\Kestrum EC3\\";
}

std::vector<std::string> DataFolders()
{
    return {UserDataFolder()};
}

#else

std::string UserDataFolder()
{
    if (std::string own = Environment("KESTRUM_DATA"); !own.empty()) {
        return own;
    }
    std::string base = Environment("XDG_DATA_HOME");
    if (base.empty()) {
        base = Environment("HOME") + "/.local/share";
    }
    return (fs::path(base) / kFolder).string();
}

std::vector<std::string> DataFolders()
{
    std::vector<std::string> folders(1, UserDataFolder());
    if (const std::string beside = FolderBesideProgram(); !beside.empty()) {
        folders.push_back(beside);
    }
    std::string shared = Environment("XDG_DATA_DIRS");
    if (shared.empty()) {
        shared = "/usr/local/share:/usr/share";  // what the XDG base directories say for unset
    }
    std::istringstream list(shared);
    for (std::string base; std::getline(list, base, ':');) {
        if (!base.empty()) {
            folders.push_back((fs::path(base) / kFolder).string());
        }
    }
    return folders;
}

#endif

Library LoadLibrary(const std::vector<std::string>& folders)
{
    Library library;
    LoadTables(folders, library);
    LoadSecondSource(folders, library);
    LoadMaterials(folders, library);
    LoadStoredSetup(folders, library);
    return library;
}

Library LoadLibrary(const std::string& folder)
{
    return LoadLibrary(std::vector<std::string>(1, folder));
}

Library LoadUsualLibrary()
{
    Library library = LoadLibrary(DataFolders());
#ifndef _WIN32
    if (const std::string own = Environment("KESTRUM_DATA"); !own.empty()) {
        if (std::string fault = FolderFault(own); !fault.empty()) {
            library.faults.push_back("KESTRUM_DATA: " + fault);
        }
    }
#endif
    return library;
}

std::string OwnDataText(const Library& library)
{
    constexpr std::size_t kShort = 16;  // digits that tell files apart
    std::string text;
    for (const OwnFile& file : library.own) {
        text += (text.empty() ? "own data: " : ", ") + file.name + " (SHA-256 " +
                file.sha256.substr(0, kShort) + ")";
    }
    return text;
}

}  // namespace kestrum
