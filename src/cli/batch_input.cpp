#include "cli/batch_input.h"

#include "core/utf8_path.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace kestrum::cli {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBlock = std::size_t{1} << 16;
constexpr std::size_t kFilesInChunk = 16;

bool EndsIn(const std::string& name, std::string_view ending)
{
    return name.size() > ending.size() && name.ends_with(ending);
}

bool IsTable(const std::string& name)
{
    return name == "-" || EndsIn(name, ".csv") || EndsIn(name, ".ndjson") || EndsIn(name, ".jsonl");
}

// What is there already; a pipe is not waited for until it is full.
std::size_t ReadSome(std::FILE* file, char* at, std::size_t count)
{
#ifdef _WIN32
    return std::fread(at, 1, count, file);
#else
    ssize_t got = 0;
    do {
        got = ::read(fileno(file), at, count);
    } while (got < 0 && errno == EINTR);
    return got > 0 ? static_cast<std::size_t>(got) : 0;
#endif
}

// Lines with something in them.
std::size_t MembersOf(std::string_view lines)
{
    std::size_t count = 0;
    while (!lines.empty()) {
        count += TakeLine(lines).empty() ? 0 : 1;
    }
    return count;
}

}  // namespace

BatchInput::BatchInput(const std::vector<std::string>& inputs, std::size_t skip) : skip_(skip)
{
    for (const std::string& name : inputs) {
        AddInput(name);
    }
    const auto tables = std::count_if(inputs_.begin(), inputs_.end(),
                                      [](const Input& input) { return input.table; });
    several_ = inputs_.size() > 1;
    for (const Input& input : inputs_) {
        std::error_code fault;
        const fs::path path = Utf8Path(input.name);
        const bool counts = !input.table || fs::is_regular_file(path, fault);
        const std::uintmax_t size = input.table && counts ? fs::file_size(path, fault) : 1;
        if (!counts || fault || (tables > 0 && !input.table)) {
            whole_ = 0;
            return;
        }
        whole_ += size;
    }
}

void BatchInput::AddInput(const std::string& name)
{
    std::error_code fault;
    const fs::path path = Utf8Path(name);
    if (name != "-" && !fs::exists(path, fault)) {
        throw BadInput(name + ": no such file");
    }
    if (name == "-" || !fs::is_directory(path, fault)) {
        inputs_.push_back({name, IsTable(name)});
        return;
    }
    std::vector<std::string> files;
    fs::directory_iterator entries(path, fault);
    for (; !fault && entries != fs::directory_iterator(); entries.increment(fault)) {
        if (entries->path().extension() == ".kst") {
            files.push_back(Utf8Name(entries->path()));
        }
    }
    if (fault) {
        throw BadInput(name + ": " + fault.message());
    }
    std::sort(files.begin(), files.end());
    for (const std::string& file : files) {
        inputs_.push_back({file, false});
    }
}

void BatchInput::Spare(const std::string& out) const
{
    std::error_code ignored;
    if (!fs::exists(Utf8Path(out), ignored)) {
        return;
    }
    for (const Input& input : inputs_) {
        SpareInput(out, input.name);
    }
}

void BatchInput::Fault(const std::string& name, const std::string& what)
{
    Complain(name + ": " + what);
    faulty_ = true;
}

bool BatchInput::OpenTable(const std::string& name)
{
    table_ = name == "-" ? "standard input" : name;
    file_.reset(name == "-" ? stdin : OpenFile(Utf8Path(name), "rb"));
    if (!file_) {
        Fault(name, std::generic_category().message(errno));
        return false;
    }
    ended_ = false;
    known_ = false;
    dropping_ = false;
    rest_.clear();
    row_ = 1;
    line_ = 1;
    return true;
}

// Appends what the table has next; a line beyond all measure is kept only so far that it is still
// too long.
bool BatchInput::ReadBlock()
{
    const std::size_t before = rest_.size();
    rest_.resize(before + kBlock);
    const std::size_t got = ReadSome(file_.get(), rest_.data() + before, kBlock);
    rest_.resize(before + got);
    taken_ += got;
    if (got == 0) {
        ended_ = true;
        return false;
    }
    if (dropping_) {
        const std::size_t end = rest_.find('\n', before);
        rest_.erase(before, std::min(end, rest_.size()) - before);
        dropping_ = end == std::string::npos;
    } else if (rest_.size() > kLongestLine + kBlock && rest_.find('\n') == std::string::npos) {
        dropping_ = true;
    }
    return true;
}

// NDJSON begins with a brace, a CSV with its names.
void BatchInput::SetForm()
{
    known_ = true;
    const std::size_t first = rest_.find_first_not_of(" \t\r\n");
    form_ = first != std::string::npos && rest_[first] == '{' ? TableForm::ndjson : TableForm::csv;
    if (form_ == TableForm::ndjson) {
        return;
    }
    std::string_view lines = rest_;
    columns_.push_back(std::make_unique<MemberColumns>());
    const std::string refusal = columns_.back()->TakeHeader(TakeLine(lines));
    rest_.erase(0, rest_.size() - lines.size());
    line_ = 2;
    if (!refusal.empty()) {
        Fault(table_ + ":1", refusal);
        rest_.clear();
        file_.reset();
        ended_ = true;
    }
}

// Leaves out what an earlier run has answered; true when nothing of the chunk remains.
bool BatchInput::Skipped(BatchChunk& chunk)
{
    const std::size_t members = chunk.files.empty() ? MembersOf(chunk.lines) : chunk.files.size();
    if (skip_ == 0) {
        place_ += members;
        return false;
    }
    const std::size_t left_out = std::min(skip_, members);
    skip_ -= left_out;
    place_ += members;
    chunk.place += left_out;
    if (!chunk.files.empty()) {
        chunk.files.erase(chunk.files.begin(),
                          chunk.files.begin() + static_cast<std::ptrdiff_t>(left_out));
        return chunk.files.empty();
    }
    std::string_view lines = chunk.lines;
    for (std::size_t count = 0; count < left_out; ++chunk.line) {
        count += TakeLine(lines).empty() ? 0 : 1;
    }
    chunk.row += left_out;
    chunk.lines.erase(0, chunk.lines.size() - lines.size());
    return chunk.lines.empty();
}

bool BatchInput::NextLines(BatchChunk& chunk)
{
    while (file_) {
        const bool more = ReadBlock();
        std::size_t end = ended_ ? rest_.size() : rest_.rfind('\n') + 1;
        if (more && (end == 0 || (!known_ && rest_.find_first_not_of(" \t\r\n") == rest_.npos))) {
            continue;
        }
        if (!known_) {
            const std::size_t before = rest_.size();
            SetForm();
            end -= std::min(end, before - rest_.size());
        }
        chunk.lines.assign(rest_, 0, end);
        rest_.erase(0, end);
        if (ended_) {
            file_.reset();
        }
        if (chunk.lines.empty()) {
            continue;
        }
        chunk.form = form_;
        chunk.columns = form_ == TableForm::csv ? columns_.back().get() : nullptr;
        chunk.table = table_;
        chunk.prefix = several_ ? table_ + ":" : std::string{};
        chunk.files.clear();
        chunk.row = row_;
        chunk.line = line_;
        chunk.place = place_;
        row_ += MembersOf(chunk.lines);
        line_ += static_cast<std::size_t>(std::count(chunk.lines.begin(), chunk.lines.end(), '\n'));
        return true;
    }
    return false;
}

bool BatchInput::NextFiles(BatchChunk& chunk)
{
    chunk.files.clear();
    chunk.table.clear();
    chunk.place = place_;
    while (!inputs_.empty() && !inputs_.front().table && chunk.files.size() < kFilesInChunk) {
        chunk.files.push_back(std::move(inputs_.front().name));
        inputs_.pop_front();
        ++taken_;
    }
    return !chunk.files.empty();
}

bool BatchInput::Next(BatchChunk& chunk)
{
    for (;;) {
        if (NextLines(chunk)) {
            if (Skipped(chunk)) {
                continue;
            }
            return true;
        }
        if (inputs_.empty()) {
            return false;
        }
        if (!inputs_.front().table) {
            if (NextFiles(chunk) && !Skipped(chunk)) {
                return true;
            }
            continue;
        }
        const std::string name = inputs_.front().name;
        inputs_.pop_front();
        OpenTable(name);
    }
}

}  // namespace kestrum::cli
