#include "app/table_text.h"

#include "core/utf8_text.h"

#include <algorithm>
#include <utility>

namespace kestrum {

namespace {

constexpr unsigned kReplacement = 0xFFFD;  // for what is no character: no number has it

struct Foreign {
    std::string_view start, what;
};

using namespace std::string_view_literals;
constexpr Foreign kForeign[] = {
    {"PK\x03\x04", "a spreadsheet or archive (XLSX, ODS, ZIP), not a table; save its sheet as CSV"},
    {"\xD0\xCF\x11\xE0", "a spreadsheet (XLS), not a table; save its sheet as CSV"},
    {"\x1F\x8B", "compressed, not a table; unpack it first"},
    {"\xFF\xFE\0\0"sv, "UTF-32, not a readable table; save it as UTF-8"},
    {"\0\0\xFE\xFF"sv, "UTF-32, not a readable table; save it as UTF-8"},
};

constexpr std::string_view kMarks[] = {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"};

bool BeginsLike(std::string_view head, std::string_view start)
{
    return start.starts_with(head) && head.size() < start.size();
}

}  // namespace

// Nothing while too little is there to say.
std::string TableDecoder::Recognise(bool whole)
{
    const auto open = [this](std::string_view start) { return BeginsLike(head_, start); };
    const bool undecided =
        std::any_of(std::begin(kMarks), std::end(kMarks), open) ||
        std::any_of(std::begin(kForeign), std::end(kForeign),
                    [&](const Foreign& foreign) { return open(foreign.start); }) ||
        head_.size() < 2;  // a zero byte beside an ASCII character is UTF-16 without its mark
    if (undecided && !whole) {
        return {};
    }
    for (const Foreign& foreign : kForeign) {
        if (head_.starts_with(foreign.start)) {
            return "is " + std::string(foreign.what);
        }
    }
    const auto mark = [this](std::string_view bytes, Encoding encoding, std::size_t length) {
        if (encoding_ == Encoding::unknown && head_.starts_with(bytes)) {
            encoding_ = encoding;
            head_.erase(0, length);
        }
    };
    mark("\xEF\xBB\xBF", Encoding::bytes, 3);
    mark("\xFF\xFE", Encoding::utf16le, 2);
    mark("\xFE\xFF", Encoding::utf16be, 2);
    const bool pair = head_.size() >= 2;
    if (encoding_ == Encoding::unknown) {
        encoding_ = pair && head_[0] != 0 && head_[1] == 0   ? Encoding::utf16le
                    : pair && head_[0] == 0 && head_[1] != 0 ? Encoding::utf16be
                                                             : Encoding::bytes;
    }
    return {};
}

std::string TableDecoder::Add(std::string_view bytes, std::string& text)
{
    if (encoding_ != Encoding::unknown) {
        Take(bytes, text);
        return {};
    }
    head_.append(bytes);
    const std::string refusal = Recognise(false);
    if (refusal.empty() && encoding_ != Encoding::unknown) {
        Take(std::exchange(head_, {}), text);
    }
    return refusal;
}

std::string TableDecoder::End(std::string& text)
{
    if (encoding_ == Encoding::unknown) {
        const std::string refusal = Recognise(true);
        if (!refusal.empty()) {
            return refusal;
        }
        Take(std::exchange(head_, {}), text);
    }
    if (odd_ || high_ != 0) {
        AppendUtf8(text, kReplacement);  // a value that was cut must not be taken for a whole one
    }
    if (std::exchange(carriage_, false)) {
        text.push_back('\n');
    }
    return {};
}

std::string DecodeTable(std::string_view bytes, std::string& text)
{
    TableDecoder decoder;
    const std::string refusal = decoder.Add(bytes, text);
    return refusal.empty() ? decoder.End(text) : refusal;
}

void TableDecoder::Take(std::string_view bytes, std::string& text)
{
    if (encoding_ == Encoding::bytes) {
        TakeBytes(bytes, text);
        return;
    }
    decoded_.clear();
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (!std::exchange(odd_, !odd_)) {
            half_ = byte;
            continue;
        }
        const unsigned low = encoding_ == Encoding::utf16le ? half_ : byte;
        const unsigned high = encoding_ == Encoding::utf16le ? byte : half_;
        TakeUnit(high * 256 + low, decoded_);
    }
    TakeBytes(decoded_, text);
}

// UTF-16: a unit of the high and one of the low surrogates make one character beyond U+FFFF.
void TableDecoder::TakeUnit(unsigned unit, std::string& text)
{
    const bool second = unit >= 0xDC00 && unit < 0xE000;
    const unsigned high = std::exchange(high_, 0U);
    if (high != 0 && second) {
        AppendUtf8(text, 0x10000 + ((high - 0xD800) << 10U) + (unit - 0xDC00));
        return;
    }
    if (high != 0) {
        AppendUtf8(text, kReplacement);
    }
    if (unit >= 0xD800 && unit < 0xDC00) {
        high_ = unit;
    } else {
        AppendUtf8(text, second ? kReplacement : unit);
    }
}

// The first line end says what ends the lines.
void TableDecoder::TakeBytes(std::string_view bytes, std::string& text)
{
    if (line_end_ == LineEnd::unknown && carriage_ && !bytes.empty()) {
        carriage_ = false;
        line_end_ = bytes[0] == '\n' ? LineEnd::feed : LineEnd::carriage;
        text.push_back(line_end_ == LineEnd::feed ? '\r' : '\n');
    }
    if (line_end_ == LineEnd::unknown) {
        const std::size_t at = bytes.find_first_of("\r\n");
        if (at != std::string_view::npos && bytes[at] == '\r' && at + 1 == bytes.size()) {
            carriage_ = true;
            bytes.remove_suffix(1);
        } else if (at != std::string_view::npos) {
            const bool feed = bytes[at] == '\n' || bytes[at + 1] == '\n';
            line_end_ = feed ? LineEnd::feed : LineEnd::carriage;
        }
    }
    const std::size_t from = text.size();
    text.append(bytes);
    if (line_end_ == LineEnd::carriage) {
        std::replace(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), '\r', '\n');
    }
}

}  // namespace kestrum
