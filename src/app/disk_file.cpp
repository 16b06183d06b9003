#include "app/disk_file.h"

#include "core/file_io.h"
#include "core/sha256.h"
#include "core/utf8_path.h"

#include <filesystem>
#include <system_error>

namespace kestrum {

DiskFile::Content DiskFile::Read(const std::string& path, Reader reader)
{
    Content content;
    std::error_code fault;
    const std::filesystem::file_status status = std::filesystem::status(Utf8Path(path), fault);
    content.there = status.type() != std::filesystem::file_type::not_found;
    if (status.type() == std::filesystem::file_type::regular) {
        content.problem = reader(path, content.bytes);
    } else if (content.there) {
        content.problem = "is no file";  // reading a pipe would wait
    }
    return content;
}

void DiskFile::Know(std::string bytes)
{
    known_ = Content{true, std::move(bytes), {}};
    seen_.reset();
}

void DiskFile::Forget()
{
    known_.reset();
    seen_.reset();
}

std::string DiskFile::Digest() const
{
    return known_ && known_->there ? Sha256(known_->bytes) : std::string{};
}

DiskState DiskFile::Compare(const std::string& path)
{
    seen_ = Read(path, ReadLockedFile);
    if (gone()) {
        return DiskState::gone;
    }
    return known_ == seen_ ? DiskState::same : DiskState::changed;
}

bool DiskFile::HasNews(const std::string& path)
{
    Content now = Read(path, ReadWholeFile);
    const bool news = now.there && known_ != now && seen_ != now;
    seen_ = std::move(now);
    return news;
}

void DiskFile::Accept()
{
    known_ = seen_;
}

}  // namespace kestrum
