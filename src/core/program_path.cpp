#include "core/program_path.h"

#include <system_error>

#ifdef _WIN32
#ifndef NOMINMAX  // the standard library of MinGW defines it
#define NOMINMAX
#endif
#include <windows.h>

#include <string>
#elif defined(__linux__)
#include <sys/auxv.h>
#elif defined(__APPLE__)
#include <array>
#include <cstdint>

#include <mach-o/dyld.h>
#endif

namespace kestrum {

namespace fs = std::filesystem;

fs::path ProgramPath()
{
    std::error_code fault;
    fs::path path;
#ifdef _WIN32
    wchar_t name[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, name, MAX_PATH);
    path = std::wstring(name, length);
#elif defined(__linux__)
    path = fs::read_symlink("/proc/self/exe", fault);
    if (fault) {  // /proc is not everywhere; the kernel also hands over the name that it was given
        const auto* const name = reinterpret_cast<const char*>(getauxval(AT_EXECFN));
        path = name == nullptr ? fs::path() : fs::canonical(name, fault);
    }
#elif defined(__APPLE__)
    std::array<char, 4096> name{};
    std::uint32_t size = name.size();
    if (_NSGetExecutablePath(name.data(), &size) == 0) {
        path = fs::canonical(name.data(), fault);
    }
#endif
    return path.is_absolute() ? path : fs::path();
}

}  // namespace kestrum
