#include "app/cell_reader.h"

#include "app/table_record.h"

#include <algorithm>

namespace kestrum {

std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// The first kind that stands outside of quotes.
char SeparatorOf(std::string_view header)
{
    std::string bare;
    bool quoted = false;
    for (const char c : header) {
        quoted = quoted != (c == '"');
        bare.append(quoted ? 0 : 1, c);
    }
    for (const char separator : kAnySeparator) {
        if (bare.find(separator) != std::string::npos) {
            return separator;
        }
    }
    return ',';
}

bool CellReader::Next()
{
    if (ended_ || !fault_.empty()) {
        return false;
    }
    if (rest_.starts_with('"')) {
        return Quoted();
    }
    TakePlain();
    return true;
}

void CellReader::TakePlain()
{
    const std::size_t end = std::min(rest_.find(separator_), rest_.size());
    cell_ = rest_.substr(0, end);
    ended_ = end == rest_.size();
    rest_.remove_prefix(ended_ ? end : end + 1);
}

bool CellReader::Quoted()
{
    text_.clear();
    std::size_t at = 1;
    for (;; ++at) {
        const std::size_t quote = rest_.find('"', at);
        if (quote == std::string_view::npos) {
            fault_ = kQuoteOpen;
            return false;
        }
        text_.append(rest_.substr(at, quote - at));
        at = quote + 1;
        if (at >= rest_.size() || rest_[at] != '"') {
            break;
        }
        text_.push_back('"');
    }
    rest_.remove_prefix(at);
    if (!rest_.empty() && rest_.front() != separator_) {
        fault_ = "text after a closing quote";
        return false;
    }
    ended_ = rest_.empty();
    rest_.remove_prefix(ended_ ? 0 : 1);
    cell_ = text_;
    return true;
}

}  // namespace kestrum
