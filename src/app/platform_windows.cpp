#include "app/platform.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>

#include <windows.h>

#include <shellapi.h>

namespace kestrum {

namespace {

// A half of a surrogate pair becomes U+FFFD.
std::string Utf8(const wchar_t* text)
{
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    if (size <= 1) {
        return {};  // the final zero alone, or a failure
    }
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes.data(), size, nullptr, nullptr);
    bytes.pop_back();  // the final zero
    return bytes;
}

}  // namespace

std::vector<std::string> Arguments(int argc, char** argv)
{
    int count = 0;
    wchar_t** const list = CommandLineToArgvW(GetCommandLineW(), &count);
    if (list == nullptr) {
        return {argv, argv + argc};
    }
    std::vector<std::string> arguments;
    for (int i = 0; i < count; ++i) {
        arguments.push_back(Utf8(list[i]));
    }
    LocalFree(list);
    return arguments;
}

std::string Variable(const char* name)
{
    const std::wstring wide(name, name + std::strlen(name));  // names are ASCII
    const wchar_t* const value = _wgetenv(wide.c_str());
    return value != nullptr ? Utf8(value) : std::string{};
}

std::string RawCommandLine(int, char**)
{
    const std::string line = Utf8(GetCommandLineW());
    return std::string(BehindProgramName(line));
}

}  // namespace kestrum
