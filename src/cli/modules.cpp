#include "cli/modules.h"

#include "cli/context.h"
#include "core/program_path.h"

#ifdef _WIN32
#ifndef NOMINMAX  // the standard library of MinGW defines it
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <dlfcn.h>
#endif

#include <filesystem>
#include <vector>

namespace kestrum::cli {

namespace {

namespace fs = std::filesystem;

#ifdef _WIN32

constexpr const char* kEnding = ".dll";

void* Load(const fs::path& file, const char* function, std::string& problem)
{
    const HMODULE handle = LoadLibraryW(file.c_str());
    if (handle == nullptr) {
        problem = "Windows error " + std::to_string(GetLastError());
        return nullptr;
    }
    return reinterpret_cast<void*>(GetProcAddress(handle, function));
}

#else

constexpr const char* kEnding = ".so";

void* Load(const fs::path& file, const char* function, std::string& problem)
{
    void* const handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) {
        problem = dlerror();
        return nullptr;
    }
    return dlsym(handle, function);
}

#endif

// Beside the program, then in the library folders of its prefix (lib, lib/x86_64-linux-gnu). Never
// from where the user happens to be: all are absolute.
std::vector<fs::path> Folders(const Module& module)
{
    const fs::path program = ProgramPath().parent_path();
    if (program.empty()) {
        throw BadInput(std::string(module.needed) +
                       "; this system does not say where the program lies; " + module.instead);
    }
    const fs::path libraries = program.parent_path() / "lib";
    std::vector<fs::path> folders{program, libraries / "kestrum-ec3"};
    std::error_code fault;
    for (fs::directory_iterator at(libraries, fault), end; !fault && at != end;
         at.increment(fault)) {
        const fs::path folder = at->path() / "kestrum-ec3";
        std::error_code ignored;
        if (fs::is_directory(folder, ignored)) {
            folders.push_back(folder);
        }
    }
    return folders;
}

}  // namespace

void* FunctionOf(const Module& module, const char* function)
{
    const std::vector<fs::path> folders = Folders(module);
    const std::string name = std::string(module.name) + kEnding;
    for (const fs::path& folder : folders) {
        std::error_code ignored;
        const fs::path file = folder / name;
        if (!fs::is_regular_file(file, ignored)) {
            continue;
        }
        std::string problem = "it is of another version";
        void* const found = Load(file, function, problem);
        if (found == nullptr) {
            throw BadInput(std::string(module.needed) + "; " + file.string() +
                           " cannot be loaded: " + problem);
        }
        return found;
    }
    throw BadInput(std::string(module.needed) + " " + name + ", which is neither in " +
                   folders[0].string() + " nor in " + folders[1].string() + "; " + module.instead);
}

}  // namespace kestrum::cli
