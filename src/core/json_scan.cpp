#include "core/json_scan.h"

#include <algorithm>

namespace kestrum {

namespace {

constexpr int kDeepest = 64;

class Scan {
public:
    explicit Scan(std::string_view text) : rest_(text) {}

    bool Value(int depth)
    {
        switch (Peek()) {
        case '"':
            return Text();
        case '{':
            return depth < kDeepest && Members(depth + 1);
        case '[':
            return depth < kDeepest && Elements(depth + 1);
        default:
            return Word("true") || Word("false") || Word("null") || Number();
        }
    }

    std::string_view rest() const { return rest_; }

private:
    char Peek() const { return rest_.empty() ? '\0' : rest_.front(); }

    void Blanks()
    {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t\r\n"), rest_.size()));
    }

    // The character, with the blanks around it.
    bool Mark(char c)
    {
        Blanks();
        if (Peek() != c) {
            return false;
        }
        rest_.remove_prefix(1);
        Blanks();
        return true;
    }

    bool Word(std::string_view word)
    {
        const bool here = rest_.starts_with(word);
        rest_.remove_prefix(here ? word.size() : 0);
        return here;
    }

    bool Digits()
    {
        const std::size_t count = std::min(rest_.find_first_not_of("0123456789"), rest_.size());
        rest_.remove_prefix(count);
        return count > 0;
    }

    bool Number()
    {
        Word("-");
        if (!Word("0") && !Digits()) {
            return false;
        }
        if (Word(".") && !Digits()) {
            return false;
        }
        if (!Word("e") && !Word("E")) {
            return true;
        }
        if (!Word("+")) {
            Word("-");
        }
        return Digits();
    }

    bool Text()
    {
        for (rest_.remove_prefix(1); !rest_.empty();) {
            const char c = rest_.front();
            if (c == '\\' && !Escape()) {
                return false;
            }
            if (c != '\\') {
                rest_.remove_prefix(1);
            }
            if (c == '"') {
                return true;
            }
            if (static_cast<unsigned char>(c) < 0x20) {
                return false;
            }
        }
        return false;
    }

    bool Escape()
    {
        constexpr std::string_view kLetters = "\"\\/bfnrt", kHex = "0123456789abcdefABCDEF";
        rest_.remove_prefix(1);
        if (kLetters.find(Peek()) != std::string_view::npos) {
            rest_.remove_prefix(1);
            return true;
        }
        const std::string_view digits = rest_.substr(0, 5);
        if (digits.size() < 5 || digits[0] != 'u' ||
            digits.find_first_not_of(kHex, 1) != std::string_view::npos) {
            return false;
        }
        rest_.remove_prefix(digits.size());
        return true;
    }

    bool Members(int depth)
    {
        Mark('{');
        if (Mark('}')) {
            return true;
        }
        do {
            if (Peek() != '"' || !Text() || !Mark(':') || !Value(depth)) {
                return false;
            }
        } while (Mark(','));
        return Mark('}');
    }

    bool Elements(int depth)
    {
        Mark('[');
        if (Mark(']')) {
            return true;
        }
        do {
            if (!Value(depth)) {
                return false;
            }
        } while (Mark(','));
        return Mark(']');
    }

    std::string_view rest_;
};

}  // namespace

std::size_t JsonValueLength(std::string_view text)
{
    Scan scan(text);
    return scan.Value(0) ? text.size() - scan.rest().size() : 0;
}

}  // namespace kestrum
