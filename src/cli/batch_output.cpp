#include "cli/batch_output.h"

#include "cli/context.h"
#include "core/file_io.h"
#include "core/utf8_path.h"

#include <cerrno>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

namespace kestrum::cli {

namespace {

namespace fs = std::filesystem;

// Reads answers line by line and counts them.
class Reader {
public:
    Reader(std::string name, const AnswerForm& form, Tally& tally)
        : name_(std::move(name)), form_(form), header_(form.Header()), tally_(tally)
    {
    }

    // Takes the whole lines off the front of the text.
    void Take(std::string& text)
    {
        std::string_view lines = std::string_view(text).substr(0, text.rfind('\n') + 1);
        const std::size_t taken = lines.size();
        while (!lines.empty()) {
            Line(TakeLine(lines));
        }
        bytes_ += taken;
        text.erase(0, taken);
    }

    std::size_t members() const { return members_; }
    std::uintmax_t bytes() const { return bytes_; }

private:
    void Line(std::string_view line)
    {
        if (!headed_ && !header_.empty()) {
            headed_ = std::string(line) + "\n" == header_;
            if (headed_) {
                return;
            }
        } else {
            std::string member;
            Verdict verdict{};
            double ir = 0;
            if (form_.ReadBack(line, member, verdict, ir)) {
                tally_.Add(members_++, member, verdict, ir);
                return;
            }
        }
        throw BadInput(name_ + ": no answers of such a run; cannot be taken up");
    }

    const std::string name_;
    const AnswerForm& form_;
    const std::string header_;
    Tally& tally_;
    bool headed_ = false;
    std::size_t members_ = 0;
    std::uintmax_t bytes_ = 0;  // of whole lines
};

}  // namespace

BatchOutput::BatchOutput(const std::string& name) : name_(name)
{
    if (name.empty() || name == "-") {
        name_ = "standard output";
        return;
    }
    std::error_code fault;
    const fs::path whole =
        fs::canonical(Utf8Path(name), fault);  // a link keeps pointing to its file
    target_ = fault ? Utf8Path(name) : whole;
    written_ = target_;
    const fs::file_type type = fs::status(target_, fault).type();
    regular_ = type == fs::file_type::regular || type == fs::file_type::not_found;
    if (regular_) {
        written_ += ".part";
    }
}

BatchOutput::~BatchOutput()
{
    const bool begun = file_ != nullptr;
    Close();
    if (begun && regular_ && !answers_) {
        std::error_code ignored;
        fs::remove(written_, ignored);
    }
}

bool BatchOutput::Close()
{
    std::FILE* const file = std::exchange(file_, nullptr);
    return file == nullptr || file == stdout || std::fclose(file) == 0;
}

void BatchOutput::Fail(int fault) const
{
    std::string what = name_ + ": " + std::generic_category().message(fault);
    if (regular_ && answers_) {
        what += "; " + Utf8Name(written_) + " keeps the answers so far for --resume";
    }
    throw BadInput(what);
}

std::size_t BatchOutput::TakeUp(const AnswerForm& form, Tally& tally)
{
    append_ = true;
    std::error_code fault;
    if (!fs::exists(written_, fault)) {
        if (!fs::exists(target_, fault)) {
            return 0;
        }
        written_ = target_;  // answers that have their name already
    }
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(OpenFile(written_, "rb"),
                                                               std::fclose);
    if (!file) {
        throw BadInput(Utf8Name(written_) + ": " + std::generic_category().message(errno));
    }
    Reader reader(Utf8Name(written_), form, tally);
    std::string text;
    std::vector<char> block(std::size_t{1} << 16);
    while (const std::size_t got = std::fread(block.data(), 1, block.size(), file.get())) {
        text.append(block.data(), got);
        reader.Take(text);
    }
    fs::resize_file(written_, reader.bytes(), fault);
    if (fault) {
        throw BadInput(Utf8Name(written_) + ": " + fault.message());
    }
    answers_ = reader.members() > 0;
    return reader.members();
}

void BatchOutput::Open(const AnswerForm& form)
{
    std::error_code ignored;
    if (target_.empty()) {
        file_ = stdout;
    } else {
        const fs::file_status before = fs::status(target_, ignored);
        if (before.type() == fs::file_type::regular &&
            (before.permissions() & fs::perms::owner_write) == fs::perms::none) {
            throw BadInput(name_ + ": is write-protected");  // a rename would not mind
        }
        file_ = OpenFile(written_, append_ ? "ab" : "wb");
        if (file_ == nullptr) {
            Fail(errno);
        }
    }
    const bool begun = append_ && fs::file_size(written_, ignored) > 0;
    if (!begun) {
        Put(form.Header());
    }
}

void BatchOutput::Write(std::string_view text)
{
    answers_ = answers_ || !text.empty();
    Put(text);
}

void BatchOutput::Put(std::string_view text)
{
    errno = 0;
    if (std::fwrite(text.data(), 1, text.size(), file_) != text.size() || std::fflush(file_) != 0) {
        Fail(errno);
    }
}

void BatchOutput::Finish()
{
    answers_ = true;
    errno = 0;
    if ((regular_ && !FlushToDisk(file_)) || !Close()) {
        Fail(errno);
    }
    if (!regular_ || written_ == target_) {
        return;
    }
    std::error_code fault;
    const fs::file_status before = fs::status(target_, fault);
    if (before.type() == fs::file_type::regular) {
        fs::permissions(written_, before.permissions(), fault);
    }
    fs::rename(written_, target_, fault);
    if (fault) {
        Fail(fault.value());
    }
}

}  // namespace kestrum::cli
