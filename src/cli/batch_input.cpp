#include "cli/batch_input.h"

#include "core/utf8_path.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace kestrum::cli {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kFilesInChunk = 16;

bool IsTable(const std::string& name)
{
    const std::string ending = EndingOf(name);
    return name == "-" || ending == ".csv" || ending == ".tsv" || ending == ".ndjson" ||
           ending == ".jsonl" || ending == ".json";
}

bool IsSpreadsheet(const std::string& name)
{
    const std::string ending = EndingOf(name);
    return ending == ".xlsx" || ending == ".xlsm" || ending == ".xls" || ending == ".ods";
}

}  // namespace

BatchInput::BatchInput(const std::vector<std::string>& inputs, const AnswerForm& form,
                       bool keepothers, const Interrupt& interrupt)
    : interrupt_(interrupt), form_(form), keepothers_(keepothers)
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
    if (IsSpreadsheet(name)) {
        throw BadInput(name + ": is a spreadsheet; save its sheet as CSV");
    }
    if (name == "-" || !fs::is_directory(path, fault)) {
        inputs_.push_back({name, IsTable(name)});
        return;
    }
    std::vector<std::string> files;
    fs::directory_iterator entries(path, fault);
    for (; !fault && entries != fs::directory_iterator(); entries.increment(fault)) {
        if (EndingOf(Utf8Name(entries->path())) == ".kst") {
            files.push_back(Utf8Name(entries->path()));
        }
    }
    if (fault) {
        throw BadInput(name + ": " + fault.message());
    }
    if (files.empty()) {
        Fault(name, "the folder holds no project (.kst)");
    }
    std::sort(files.begin(), files.end());
    for (const std::string& file : files) {
        inputs_.push_back({file, false});
    }
}

std::unique_ptr<TableReader> BatchInput::Reader(const std::string& name)
{
    return std::make_unique<TableReader>(name, columns_, interrupt_, keepothers_);
}

std::vector<std::string> BatchInput::OtherColumns()
{
    const auto table = std::find_if(inputs_.begin(), inputs_.end(),
                                    [](const Input& input) { return input.table; });
    if (table == inputs_.end()) {
        return {};
    }
    first_ = Reader(table->name);
    const MemberColumns* const columns = first_->ReadColumns();
    return columns != nullptr ? columns->Others() : std::vector<std::string>{};
}

void BatchInput::Spare(const std::string& out) const
{
    for (const Input& input : inputs_) {
        SpareInput(out, input.name);
    }
}

void BatchInput::Fault(const std::string& name, const std::string& what)
{
    Complain(name + ": " + what);
    faulty_ = true;
}

// Leaves out what an earlier run has answered; true when nothing of the chunk remains.
bool BatchInput::Skipped(BatchChunk& chunk)
{
    const std::size_t members = chunk.files.empty() ? chunk.members : chunk.files.size();
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
    for (std::size_t count = 0; count < left_out;) {
        count += NextMember(chunk, lines).empty() ? 0 : 1;
    }
    const std::size_t answered = chunk.lines.size() - lines.size();
    const auto first = chunk.lines.begin();
    if (chunk.line > 0) {
        chunk.line += static_cast<std::size_t>(
            std::count(first, first + static_cast<std::ptrdiff_t>(answered), '\n'));
    }
    chunk.row += left_out;
    chunk.lines.erase(0, answered);
    return chunk.lines.empty();
}

bool BatchInput::NextLines(BatchChunk& chunk)
{
    if (!reader_) {
        return false;
    }
    const bool more = reader_->Next(chunk);
    taken_ += reader_->TakeBytes();
    const std::string refusal = more ? form_.NoPlace(chunk.columns) : std::string{};
    if (!refusal.empty()) {
        Fault(chunk.table, refusal);
        reader_.reset();
        return false;
    }
    if (more) {
        chunk.prefix = several_ ? chunk.table + ":" : std::string{};
        chunk.files.clear();
        chunk.place = place_;
        return true;
    }
    if (!reader_->fault().empty()) {
        Complain(reader_->fault());
        faulty_ = true;
    }
    reader_.reset();
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
        if (inputs_.empty() || interrupt_.raised()) {
            return false;
        }
        if (!inputs_.front().table) {
            if (NextFiles(chunk) && !Skipped(chunk)) {
                return true;
            }
            continue;
        }
        reader_ = first_ ? std::move(first_) : Reader(inputs_.front().name);
        inputs_.pop_front();
    }
}

}  // namespace kestrum::cli
