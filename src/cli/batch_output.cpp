#include "cli/batch_output.h"

#include "cli/context.h"
#include "core/file_io.h"
#include "core/file_target.h"
#include "core/utf8_path.h"

#include <cerrno>
#include <system_error>
#include <utility>
#include <vector>

namespace kestrum::cli {

namespace {

namespace fs = std::filesystem;

// Reads answers line by line and counts them.
class Reader {
public:
    Reader(std::string name, const AnswerLines& form, Tally& tally)
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
        if (text.size() > kLongestLine) {
            throw BadInput(name_ + ": not the answers of such a run; cannot be resumed");
        }
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
        throw BadInput(name_ + ": not the answers of such a run; cannot be resumed");
    }

    const std::string name_;
    const AnswerLines& form_;
    const std::string header_;
    Tally& tally_;
    bool headed_ = false;
    std::size_t members_ = 0;
    std::uintmax_t bytes_ = 0;  // of whole lines
};

}  // namespace

BatchOutput::BatchOutput(const std::string& name, bool resume, bool kept) : name_(name), kept_(kept)
{
    if (name.empty() || name == "-") {
        name_ = "standard output";
        device_ = stdout;
        return;
    }
    target_ = TargetOf(name);
    written_ = target_;
    std::error_code fault;
    const fs::file_type type = fs::status(target_, fault).type();
    regular_ = type == fs::file_type::regular || type == fs::file_type::not_found;
    if (regular_) {
        OpenPart(resume);
        return;
    }
    device_ = OpenFile(target_, "wb");
    if (device_ == nullptr) {
        Fail(std::generic_category().message(errno));
    }
}

void BatchOutput::OpenPart(bool resume)
{
    std::error_code fault;
    const fs::file_status before = fs::status(target_, fault);
    const bool there = before.type() == fs::file_type::regular;
    if (there && (before.permissions() & fs::perms::owner_write) == fs::perms::none) {
        throw BadInput(name_ + ": is write-protected");  // a rename would not mind
    }
    written_ += ".part";
    if (resume && there && !fs::exists(fs::symlink_status(written_, fault))) {
        written_ = target_;  // answers that have their name already
    } else if (there && lock_.Take(name_, std::chrono::milliseconds(0)) == kBusy) {
        throw BadInput(name_ + ": " + kRunning);
    }
    const std::string problem = part_.Open(written_, target_);
    if (!problem.empty()) {
        throw BadInput(Utf8Name(written_) + ": " + problem);
    }
}

BatchOutput::~BatchOutput()
{
    if (device_ != nullptr && device_ != stdout) {
        std::fclose(device_);
    }
    if (part_.stream() != nullptr && !answers_ && written_ != target_) {
        part_.Remove();
        std::error_code ignored;
        fs::remove(Utf8Path(OriginName()), ignored);
    }
}

std::string BatchOutput::OriginName() const
{
    return Utf8Name(target_) + ".part.inputs";
}

void BatchOutput::Fail(const std::string& fault) const
{
    std::string what = name_ + ": " + fault;
    if (regular_ && answers_) {
        what += "; " + Utf8Name(written_) + " keeps the answers so far for --resume";
    }
    throw BadInput(what);
}

std::size_t BatchOutput::TakeUp(const AnswerLines& form, Tally& tally, const BatchOrigin& origin)
{
    origin_ = origin.text();
    const std::string name = Utf8Name(written_);
    answers_ = true;  // whatever it is, it stays
    Reader reader(name, form, tally);
    std::string text;
    std::vector<char> block(std::size_t{1} << 16);
    std::rewind(part_.stream());
    while (const std::size_t got = std::fread(block.data(), 1, block.size(), part_.stream())) {
        text.append(block.data(), got);
        reader.Take(text);
    }
    if (std::ferror(part_.stream()) != 0) {
        throw BadInput(name + ": " + std::generic_category().message(errno));
    }
    taken_up_ = answers_ = reader.members() > 0;
    if (!taken_up_) {
        return 0;
    }
    std::string stored;
    if (written_ == target_) {
        strange_ = true;
    } else if (!ReadWholeFile(OriginName(), stored).empty()) {
        throw BadInput(name + ": nothing says what its answers belong to (" + OriginName() +
                       "); delete it to start again");
    } else if (const std::string other = origin.Differs(stored); !other.empty()) {
        throw BadInput(name + ": cannot be resumed: " + other + "; delete it to start again");
    }
    if (!part_.Cut(reader.bytes())) {
        throw BadInput(name + ": " + std::generic_category().message(errno));
    }
    return reader.members();
}

void BatchOutput::Begin(const AnswerLines& form, const BatchOrigin& origin)
{
    origin_ = origin.text();
    if (taken_up_) {
        return;
    }
    if (regular_) {
        if (!part_.Cut(0)) {
            Fail(std::generic_category().message(errno));
        }
        const std::string fault =
            written_ == target_ ? "" : WriteWholeFile(OriginName(), origin.text());
        if (!fault.empty()) {
            Fail(OriginName() + ": " + fault);
        }
    }
    // Several runs may write to one file: each answer goes there whole.
    std::setvbuf(Stream(), nullptr, _IONBF, 0);
    Put(form.Header());
}

void BatchOutput::Write(std::string_view text)
{
    if (strange_ && !text.empty()) {
        Complain(name_ + ": continues after its answers; nothing says what they belong to");
        strange_ = false;
    }
    answers_ = answers_ || (kept_ && !text.empty());
    Put(text);
}

void BatchOutput::Put(std::string_view text)
{
    errno = 0;
    if (std::fwrite(text.data(), 1, text.size(), Stream()) != text.size() ||
        std::fflush(Stream()) != 0) {
        Fail(std::generic_category().message(errno));
    }
}

std::string BatchOutput::Suspend(std::size_t members)
{
    answers_ = answers_ || members > 0;
    const std::string told = "stopped: " + std::to_string(members) + " members answered";
    if (!regular_) {
        return told + "; -o FILE keeps the answers for --resume";
    }
    return told + (members == 0 ? ""
                                : ", kept in " + Utf8Name(written_) +
                                      "; the same command with --resume continues");
}

std::string ShardName(const std::string& answers)
{
    return Utf8Name(TargetOf(answers)) + ".shard";
}

void BatchOutput::Finish(const ShardOrder* order)
{
    answers_ = true;
    if (!regular_) {
        errno = 0;
        if (std::fflush(device_) != 0) {
            Fail(std::generic_category().message(errno));
        }
        return;
    }
    std::string fault = part_.Finish();
    std::error_code ignored;
    const std::string shard = ShardName(name_);
    if (order == nullptr) {
        fs::remove(Utf8Path(shard), ignored);  // of answers that are no more
    } else if (fault.empty()) {
        fault = WriteWholeFile(shard, origin_ + kOrderHead + order->Text());
    }
    if (!fault.empty()) {
        Fail(fault);
    }
    fs::remove(Utf8Path(OriginName()), ignored);
}

}  // namespace kestrum::cli
