#ifdef _WIN32

#include "cli/part_file.h"
#include "core/file_io.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include <io.h>
#include <share.h>

namespace kestrum::cli {

namespace {

std::string Fault(int number)
{
    return std::generic_category().message(number);
}

}  // namespace

// Nobody else may open it meanwhile.
std::string PartFile::Open(const std::filesystem::path& path, const std::filesystem::path& target)
{
    std::error_code ignored;
    if (std::filesystem::is_symlink(path, ignored)) {
        return "is a link";
    }
    file_ = _wfsopen(path.c_str(), L"a+b", _SH_DENYRW);
    path_ = path;
    target_ = target;
    if (file_ == nullptr) {
        return errno == EACCES && std::filesystem::exists(path, ignored) ? kRunning : Fault(errno);
    }
    return {};
}

bool PartFile::Cut(std::uintmax_t size)
{
    return _chsize_s(_fileno(file_), static_cast<long long>(size)) == 0;
}

// An open file cannot be renamed.
std::string PartFile::Finish()
{
    if (!FlushToDisk(file_) || !Close()) {
        return Fault(errno);
    }
    std::error_code fault;
    if (path_ != target_) {
        std::filesystem::rename(path_, target_, fault);
    }
    return fault ? fault.message() : std::string{};
}

void PartFile::Remove()
{
    Close();
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
}

bool PartFile::Close()
{
    std::FILE* const file = std::exchange(file_, nullptr);
    return file == nullptr || std::fclose(file) == 0;
}

}  // namespace kestrum::cli

#endif
