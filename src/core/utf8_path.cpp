#include "core/utf8_path.h"

#include <cerrno>

namespace kestrum {

std::filesystem::path Utf8Path(std::string_view name)
{
    return std::u8string(name.begin(), name.end());
}

std::string Utf8Name(const std::filesystem::path& path)
{
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

std::FILE* OpenFile(const std::filesystem::path& path, const char* mode)
{
    errno = 0;
#ifdef _WIN32
    const std::string_view text = mode;
    return _wfopen(path.c_str(), std::wstring(text.begin(), text.end()).c_str());
#else
    return std::fopen(path.c_str(), mode);
#endif
}

}  // namespace kestrum
