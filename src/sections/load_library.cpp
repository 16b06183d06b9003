#include "sections/load_library.h"

#include "core/material.h"
#include "core/setup_file.h"
#include "core/utf8_path.h"
#include "sections/readprofiles.h"
#include "sections/section_names.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
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
    return value == nullptr ? std::string() : std::string(value);
}

// prefix/share/kestrum-ec3 of a program in prefix/bin, installed or not.
std::string FolderBesideProgram()
{
    std::error_code fault;
    const fs::path program = fs::read_symlink("/proc/self/exe", fault);
    if (fault) {
        return {};
    }
    return (program.parent_path().parent_path() / "share" / kFolder).string();
}

#endif

// Path of the file in the first folder that has it; empty when none has.
std::string FindFile(const std::vector<std::string>& folders, std::string_view name)
{
    for (const std::string& folder : folders) {
        const fs::path path = Utf8Path(folder) / name;
        std::error_code ignored;
        if (fs::is_regular_file(path, ignored)) {
            return Utf8Name(path);
        }
    }
    return {};
}

// Empty when the file is missing or cannot be read.
std::string ReadBytes(const std::string& path)
{
    std::ifstream file(Utf8Path(path), std::ios::binary);
    std::ostringstream bytes;
    if (file) {
        bytes << file.rdbuf();
    }
    return bytes.str();
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
    std::vector<std::string> folders = {UserDataFolder()};
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
    library.tables = EmptyTables();
    for (std::size_t i = 0; i < kTables; ++i) {
        const TableShape& shape = ShapeOf(static_cast<Table>(i));
        if (const std::string path = FindFile(folders, shape.file); !path.empty()) {
            ReadProfile(path, shape, library.tables[i]);
        }
    }
    NameRows(library);
    library.materials = ReadMaterialList(ReadBytes(FindFile(folders, kMaterialFile)));
    library.setup = ReadBytes(FindFile(folders, kSetupFile));
    return library;
}

Library LoadLibrary(const std::string& folder)
{
    return LoadLibrary(std::vector<std::string>{folder});
}

}  // namespace kestrum
