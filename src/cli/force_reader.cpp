#include "cli/force_reader.h"

#include "app/cell_reader.h"
#include "app/table_record.h"
#include "cli/context.h"
#include "core/utf8_path.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <unordered_set>
#include <utility>

namespace kestrum::cli {

namespace {

constexpr std::size_t kPiece = std::size_t{1} << 18;

std::uint32_t PlaceIn(const MemberList& members, const std::string& key)
{
    const std::size_t at = members.Find(key);
    return at != MemberList::kNone ? static_cast<std::uint32_t>(at) : kNobody;
}

std::size_t Hash(std::string_view text)
{
    return std::hash<std::string_view>()(text);
}

}  // namespace

ForceReader::ForceReader(const std::string& name, const ForceManner& manner,
                         const MemberList& members, std::size_t memory, const Interrupt& interrupt)
    : file_(name), members_(members), memory_(memory), interrupt_(interrupt),
      stream_(std::make_unique<TextStream>(name, interrupt)), places_(members.size())
{
    name_ = stream_->name();
    std::error_code fault;
    const std::filesystem::path path = Utf8Path(name);
    regular_ = name != "-" && std::filesystem::is_regular_file(path, fault);
    whole_ = regular_ ? std::filesystem::file_size(path, fault) : 0;
    std::string_view header;
    const std::string refusal =
        TakeNext(*stream_, header) ? columns_.TakeHeader(header, manner) : std::string("is empty");
    if (!refusal.empty()) {
        throw BadInput(name_ + ":1: " + refusal);
    }
}

// A record too long to be one is cut, so that it is still too long.
bool ForceReader::TakeNext(TextStream& stream, std::string_view& record)
{
    for (;;) {
        const std::string_view rest = std::string_view(text_).substr(at_);
        const std::string_view separators = line_ == 1 ? kAnySeparator : columns_.separator();
        const std::size_t end =
            rest.empty() ? std::string_view::npos : RecordEnd(rest, separators, ended_);
        if (end != std::string_view::npos) {
            record = rest.substr(0, end);
            at_ += std::min(end + 1, rest.size());
            const bool several = record.find('\n') != std::string_view::npos;
            line_ +=
                several
                    ? static_cast<std::size_t>(1 + std::count(record.begin(), record.end(), '\n'))
                    : 1;
            record.remove_suffix(record.ends_with('\r') ? 1 : 0);
            return true;
        }
        if (ended_) {
            return false;
        }
        text_.erase(0, at_);
        at_ = 0;
        if (text_.size() > 2 * kLongestLine) {
            text_.resize(kLongestLine + 1);
        }
        const std::size_t before = text_.size();
        ended_ = !stream.Read(text_);
        taken_ = stream.taken();
        if (spool_ && text_.size() > before) {
            WriteTemporary(spool_.get(), text_.data() + before, text_.size() - before);
        }
    }
}

// From the first row on again.
void ForceReader::Reopen()
{
    if (regular_) {
        stream_ = std::make_unique<TextStream>(file_, interrupt_);
    } else {
        if (std::fflush(spool_.get()) != 0) {
            WriteTemporary(spool_.get(), "", 1);  // tells why
        }
        stream_ = std::make_unique<TextStream>(std::move(spool_), name_, interrupt_);
        whole_ = taken_;
    }
    text_.clear();
    at_ = 0;
    line_ = 1;
    ended_ = false;
    std::string_view header;
    TakeNext(*stream_, header);
}

bool ForceReader::IsSorted(const std::function<void()>& show, bool& stopped)
{
    constexpr std::size_t kMostCases = 1000000;  // of a member; more are trusted to stand together
    constexpr std::size_t kNow = 4096;
    std::unordered_set<std::size_t> members, cases;
    std::string member, load_case, front;
    std::string_view record, m, c;
    bool sorted = true;
    std::size_t rows = 0;
    while (TakeNext(*stream_, record)) {
        if (++rows % kNow == 0) {
            show();
        }
        // Rows of one case begin alike.
        if ((!front.empty() && record.starts_with(front)) || record.empty() || !sorted) {
            if (!sorted && regular_) {
                break;  // the rest need not be kept
            }
            continue;
        }
        columns_.Keys(record, m, c);
        if (m != member) {
            sorted = members.insert(Hash(m)).second;
            cases.clear();
            member = m;
            load_case.clear();
        }
        if (c != load_case) {
            sorted = sorted && (cases.size() >= kMostCases || cases.insert(Hash(c)).second);
            load_case = c;
        }
        const std::string_view both[] = {m, c};
        front = std::string(both[0]) + columns_.separator()[0] + std::string(both[1]) +
                columns_.separator()[0];
        if (!record.starts_with(front)) {
            front.clear();  // other columns come first
        }
    }
    stopped = interrupt_.raised();
    return sorted;
}

void ForceReader::SortRows(const std::function<void()>& show)
{
    constexpr std::size_t kNow = 4096;
    sorter_.emplace(memory_);
    std::string_view record, member, load_case;
    std::string key;
    std::uint32_t at = kNobody;
    for (std::size_t rows = 1, line = line_; TakeNext(*stream_, record); line = line_, ++rows) {
        if (rows % kNow == 0) {
            show();
        }
        if (record.empty()) {
            continue;
        }
        columns_.Keys(record, member, load_case);
        if (member != key) {
            key = member;
            at = PlaceIn(members_, key);
        }
        const bool known = at != kNobody;
        if (known ? shard_.Has(at) : shard_.index == 0) {
            sorter_->Add({at, line, known ? load_case : std::string_view{}, record});
        }
    }
    if (!interrupt_.raised()) {
        sorter_->Close();
    }
}

bool ForceReader::Scan(const std::function<void()>& show)
{
    if (!regular_) {  // what has been read so far begins the copy
        spool_ = TemporaryFile();
        WriteTemporary(spool_.get(), text_.data(), text_.size());
    }
    bool stopped = false;
    const bool sorted = IsSorted(show, stopped);
    if (stopped) {
        return false;
    }
    Reopen();
    if (!sorted) {
        SortRows(show);
    }
    return !interrupt_.raised();
}

// The rows of another member begin.
void ForceReader::Enter(std::uint32_t member)
{
    if (member == kNobody) {
        dropping_ = shard_.index != 0;
        return;
    }
    places_[member] = sorter_ ? member : seen_++;
    dropping_ = !shard_.Has(member);
}

bool ForceReader::NextSorted(ForcePiece& piece)
{
    OrderedRow row{};
    for (;;) {
        if (waits_) {
            waits_ = false;
            piece.lines = waiting_;
            piece.numbers.push_back(waiting_line_);
        }
        if (interrupt_.raised() || !sorter_->Next(row)) {
            break;
        }
        const bool same_member = any_ && row.member == place_;
        const bool border = !same_member || row.load_case != case_;
        if (border) {
            place_ = row.member;
            case_ = row.load_case;
            any_ = true;
        }
        if (!same_member) {
            Enter(row.member);
        }
        if (dropping_) {
            continue;
        }
        if (border && piece.lines.size() >= kPiece) {
            waits_ = true;
            waiting_.assign(row.record).push_back('\n');
            waiting_line_ = row.line;
            return true;
        }
        piece.lines.append(row.record).push_back('\n');
        piece.numbers.push_back(row.line);
    }
    return !piece.lines.empty();
}

bool ForceReader::NextStreamed(ForcePiece& piece)
{
    if (waits_) {
        waits_ = false;
        piece.lines = waiting_;
        piece.line = waiting_line_;
    }
    std::string_view record, m, c;
    std::string front;
    for (;;) {
        const std::size_t line = line_;
        if (interrupt_.raised() || !TakeNext(*stream_, record)) {
            break;
        }
        const bool same = !front.empty() && record.starts_with(front);
        if (!same) {
            columns_.Keys(record, m, c);
            const bool same_member = any_ && m == member_;
            const bool border = !record.empty() && (!same_member || c != case_);
            if (border) {
                any_ = true;
                member_ = m;
                case_ = c;
            }
            if (border && !same_member) {
                Enter(PlaceIn(members_, member_));
            }
            front = member_ + columns_.separator()[0] + case_ + columns_.separator()[0];
            if (!record.starts_with(front)) {
                front.clear();  // other columns come first
            }
            if (border && !dropping_ && piece.lines.size() >= kPiece) {
                waits_ = true;
                waiting_.assign(record).push_back('\n');
                waiting_line_ = line;
                return true;
            }
        }
        if (dropping_) {
            if (!piece.lines.empty()) {  // its rows follow each other
                return true;
            }
            continue;
        }
        if (piece.lines.empty()) {
            piece.line = line;
        }
        piece.lines.append(record).push_back('\n');
    }
    return !piece.lines.empty();
}

bool ForceReader::Next(ForcePiece& piece)
{
    piece.lines.clear();
    piece.numbers.clear();
    const bool more = sorter_ ? NextSorted(piece) : NextStreamed(piece);
    // Where the user stops the program rows of the last case may be missing.
    return more && !interrupt_.raised();
}

}  // namespace kestrum::cli
