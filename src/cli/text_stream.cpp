#include "cli/text_stream.h"

#include "cli/context.h"
#include "core/file_io.h"
#include "core/utf8_path.h"

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#ifndef _WIN32
#include <cstdlib>
#include <unistd.h>
#endif

namespace kestrum::cli {

namespace {

constexpr std::size_t kTextBlock = std::size_t{1} << 18;

std::string Reason()
{
    return std::generic_category().message(errno);
}

}  // namespace

TextStream::TextStream(const std::string& name, const Interrupt& interrupt)
    : name_(name == "-" ? "standard input" : name),
      file_(name == "-" ? stdin : OpenFile(Utf8Path(name), "rb")), interrupt_(interrupt),
      decoded_(false)
{
    if (!file_) {
        throw BadInput(name_ + ": " + Reason());
    }
}

TextStream::TextStream(File spooled, std::string name, const Interrupt& interrupt)
    : name_(std::move(name)), file_(std::move(spooled)), interrupt_(interrupt), decoded_(true)
{
    std::rewind(file_.get());
}

bool TextStream::Read(std::string& text)
{
    if (ended_ || interrupt_.raised()) {
        return false;
    }
    block_.resize(kTextBlock);
    errno = 0;
    std::size_t got = 0;
    // A pipe is waited for in such a way that the user can stop the program.
#ifdef _WIN32
    got = std::fread(block_.data(), 1, kTextBlock, file_.get());
    const bool fault = got == 0 && std::ferror(file_.get()) != 0;
#else
    ssize_t some = 0;
    do {
        if (!interrupt_.WaitFor(fileno(file_.get()))) {
            return false;
        }
        some = ::read(fileno(file_.get()), block_.data(), kTextBlock);
    } while (some < 0 && (errno == EINTR || errno == EAGAIN));
    const bool fault = some < 0;
    got = fault ? 0 : static_cast<std::size_t>(some);
#endif
    if (fault) {
        throw BadInput(name_ + ": " + Reason());
    }
    taken_ += got;
    ended_ = got == 0;
    const std::string_view bytes(block_.data(), got);
    if (decoded_) {
        text.append(bytes);
        return !ended_;
    }
    const std::string refusal = ended_ ? decoder_.End(text) : decoder_.Add(bytes, text);
    if (!refusal.empty()) {
        throw BadInput(name_ + ": " + refusal);
    }
    return true;  // the end may have brought some text yet
}

File TemporaryFile()
{
    errno = 0;
#ifdef _WIN32
    File file(std::tmpfile());
#else
    std::error_code none;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(none);
    std::string name = Utf8Name((none ? std::filesystem::path("/tmp") : folder) / "kestrum-XXXXXX");
    const int descriptor = ::mkstemp(name.data());
    File file(descriptor >= 0 ? ::fdopen(descriptor, "w+b") : nullptr);
    if (descriptor >= 0) {
        ::unlink(name.c_str());
    }
#endif
    if (!file) {
        throw BadInput("no temporary file: " + Reason());
    }
    return file;
}

void WriteTemporary(std::FILE* file, const char* bytes, std::size_t count)
{
    errno = 0;
    if (std::fwrite(bytes, 1, count, file) != count) {
        throw BadInput("temporary file: " + Reason() + " (TMPDIR names another folder)");
    }
}

}  // namespace kestrum::cli
