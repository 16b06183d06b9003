#include "cli/table_reader.h"

#include "core/utf8_path.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace kestrum::cli {

namespace {

constexpr std::size_t kBlock = std::size_t{1} << 16;
// The first chunks are short, so that a short table is spread over the cores as well.
constexpr std::size_t kFirstChunk = std::size_t{1} << 11;
constexpr std::string_view kBlank = " \t\r\n";

// What is there already; a pipe is not waited for until it is full. Nothing at the end, less than
// nothing with errno for a fault.
std::ptrdiff_t ReadSome(std::FILE* file, char* at, std::size_t count, const Interrupt& interrupt)
{
#ifdef _WIN32
    const std::size_t got = interrupt.raised() ? 0 : std::fread(at, 1, count, file);
    return got == 0 && std::ferror(file) != 0 ? -1 : static_cast<std::ptrdiff_t>(got);
#else
    ssize_t got = 0;
    do {
        if (!interrupt.WaitFor(fileno(file))) {
            return 0;
        }
        got = ::read(fileno(file), at, count);
    } while (got < 0 && (errno == EINTR || errno == EAGAIN));
    return got;
#endif
}

std::size_t LinesOf(std::string_view text)
{
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace

TableReader::TableReader(const std::string& name, Columns& columns, const Interrupt& interrupt,
                         bool keepothers)
    : name_(name == "-" ? "standard input" : name),
      file_(name == "-" ? stdin : OpenFile(Utf8Path(name), "rb")), interrupt_(interrupt),
      keepothers_(keepothers), columns_(columns), piece_(kFirstChunk)
{
    if (!file_) {
        Stop(name_ + ": " + std::generic_category().message(errno));
    }
}

void TableReader::Stop(std::string fault)
{
    fault_ = std::move(fault);
    rest_.clear();
    file_.reset();
    ended_ = true;
}

// Appends what the table has next; a line beyond all measure is kept only so far that it is still
// too long.
bool TableReader::ReadBlock()
{
    block_.resize(kBlock);
    const std::ptrdiff_t got = ReadSome(file_.get(), block_.data(), kBlock, interrupt_);
    if (got < 0) {
        Stop(name_ + ": " + std::generic_category().message(errno));
        return false;
    }
    block_.resize(static_cast<std::size_t>(got));
    bytes_ += block_.size();
    ended_ = got == 0;
    Decode(block_);
    return !ended_;
}

// What the bytes hold, behind the rest. Returns why they are no table, or nothing.
std::string TableReader::Append(std::string_view bytes)
{
    std::string decoded;
    std::string& text = array_ ? decoded : rest_;
    std::string refusal = ended_ ? decoder_.End(text) : decoder_.Add(bytes, text);
    if (array_) {
        array_->Add(decoded, rest_);
    }
    return refusal;
}

void TableReader::Decode(std::string_view bytes)
{
    const std::size_t before = rest_.size();
    const std::string refusal = Append(bytes);
    if (!refusal.empty()) {
        Stop(name_ + ": " + refusal);
    } else if (dropping_) {
        const std::size_t end = rest_.find('\n', before);
        rest_.erase(before, std::min(end, rest_.size()) - before);
        dropping_ = end == std::string::npos;
    } else if (rest_.size() > kLongestLine + kBlock && rest_.find('\n') == std::string::npos) {
        dropping_ = true;
    }
}

// NDJSON begins with a brace, an array with a bracket, a CSV with its names. False when more is
// needed to know.
bool TableReader::SetForm()
{
    const std::size_t first = rest_.find_first_not_of(kBlank);
    const char begin = first != std::string::npos ? rest_[first] : '\0';
    form_ = begin == '{' || begin == '[' ? TableForm::ndjson : TableForm::csv;
    if (begin == '[') {
        line_ = 0;
        array_.emplace().Add(std::exchange(rest_, {}), rest_);
    }
    if (form_ == TableForm::ndjson) {
        known_ = true;
        return true;
    }
    if (RecordEnd(rest_, kAnySeparator, ended_) == std::string::npos) {
        return false;
    }
    known_ = true;
    std::string_view lines = rest_;
    columns_.push_back(std::make_unique<MemberColumns>());
    const std::string refusal =
        columns_.back()->TakeHeader(TakeRecord(lines, kAnySeparator), keepothers_);
    const std::size_t taken = rest_.size() - lines.size();
    line_ += LinesOf(std::string_view(rest_).substr(0, taken));
    rest_.erase(0, taken);
    if (!refusal.empty()) {
        Stop(name_ + ":1: " + refusal);
    }
    return true;
}

// The length of the members at the front that are there to their ends.
// The end of the last whole member within so many bytes; 0 without one.
std::size_t TableReader::WholeMembers(std::size_t most) const
{
    const std::string_view text = std::string_view(rest_).substr(0, most);
    const bool last = ended_ && text.size() == rest_.size();
    if (last || form_ == TableForm::ndjson) {
        return last ? text.size() : text.rfind('\n') + 1;
    }
    const std::string_view separator = columns_.back()->separator();
    for (std::size_t whole = 0;;) {
        const std::size_t end = RecordEnd(text.substr(whole), separator, false);
        if (end == std::string_view::npos) {
            return whole;
        }
        whole += end + 1;
    }
}

// One block more. False until the form is known, and after a fault.
bool TableReader::ReadOn()
{
    ReadBlock();
    const bool blank = rest_.find_first_not_of(kBlank) == std::string::npos;
    return fault_.empty() && (known_ || ((!blank || ended_) && SetForm()));
}

const MemberColumns* TableReader::ReadColumns()
{
    while (file_ && !unseen_) {
        unseen_ = ReadOn();
    }
    return unseen_ && form_ == TableForm::csv ? columns_.back().get() : nullptr;
}

bool TableReader::Next(BatchChunk& chunk)
{
    while (file_) {
        if (!std::exchange(unseen_, false) && !ReadOn()) {
            continue;
        }
        std::size_t whole = fault_.empty() ? WholeMembers(piece_) : 0;
        if (whole == 0 && fault_.empty()) {
            whole = WholeMembers(rest_.size());
        }
        chunk.lines.assign(rest_, 0, whole);
        rest_.erase(0, whole);
        unseen_ = whole > 0 && !rest_.empty();
        piece_ = std::min(2 * piece_, kBlock);
        if (ended_ && !unseen_) {
            file_.reset();
            const bool open = array_ && !array_->closed() && fault_.empty();
            fault_ = open ? name_ + ": the array is not closed" : fault_;
        }
        if (chunk.lines.empty()) {
            continue;
        }
        chunk.form = form_;
        chunk.columns = form_ == TableForm::csv ? columns_.back().get() : nullptr;
        chunk.table = name_;
        chunk.row = row_;
        chunk.line = line_;
        chunk.members = 0;
        for (std::string_view lines = chunk.lines; !lines.empty();) {
            chunk.members += NextMember(chunk, lines).empty() ? 0 : 1;
        }
        row_ += chunk.members;
        line_ += array_ ? 0 : LinesOf(chunk.lines);
        return true;
    }
    return false;
}

}  // namespace kestrum::cli
