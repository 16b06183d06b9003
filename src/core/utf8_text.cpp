#include "core/utf8_text.h"

#include <array>
#include <cstdint>

namespace kestrum {

namespace {

// Windows-1252, in which older files were written: the characters 0x80 to 0x9F; 0 where there is
// none.
constexpr std::array<std::uint16_t, 32> kWindows1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

unsigned ByteAt(std::string_view text, std::size_t at)
{
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
}

std::string Cleaned(std::string_view text, std::string_view kept)
{
    std::string out;
    const std::string utf8 = AsUtf8(text);
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size(); ++at) {
        const unsigned byte = ByteAt(utf8, at);
        const bool c1 = byte == 0xC2 && ByteAt(utf8, at + 1) < 0xA0;  // U+0080 to U+009F
        const bool control = byte < 0x20 || byte == 0x7F || c1;
        out.push_back(control && kept.find(utf8[at]) == std::string_view::npos ? '?' : utf8[at]);
        at += c1 ? 1 : 0;
    }
    return out;
}

}  // namespace

bool IsUtf8(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        const auto first = static_cast<unsigned char>(text[at++]);
        const int more = first < 0x80                    ? 0
                         : first >= 0xC2 && first < 0xE0 ? 1
                         : first >= 0xE0 && first < 0xF0 ? 2
                         : first >= 0xF0 && first < 0xF5 ? 3
                                                         : -1;
        if (more < 0 || at + static_cast<std::size_t>(more) > text.size()) {
            return false;
        }
        // The second byte of the shortest form, of no surrogate, of no more than U+10FFFF.
        unsigned low = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
        unsigned high = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
        for (int i = 0; i < more; ++i) {
            const auto byte = static_cast<unsigned char>(text[at++]);
            if (byte < low || byte > high) {
                return false;
            }
            low = 0x80;
            high = 0xBF;
        }
    }
    return true;
}

std::string AsUtf8(std::string_view text)
{
    if (IsUtf8(text)) {
        return std::string(text);
    }
    std::string out;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const unsigned code =
            byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80U] : unsigned{byte};
        AppendUtf8(out, code == 0 ? '?' : code);
    }
    return out;
}

void AppendUtf8(std::string& out, unsigned code)
{
    const auto follow = [&out](unsigned bits) {
        out.push_back(static_cast<char>(0x80U | (bits & 0x3FU)));
    };
    if (code < 0x80) {
        out.push_back(static_cast<char>(code));
    } else if (code < 0x800) {
        out.push_back(static_cast<char>(0xC0U | (code >> 6)));
        follow(code);
    } else if (code < 0x10000) {
        out.push_back(static_cast<char>(0xE0U | (code >> 12)));
        follow(code >> 6);
        follow(code);
    } else {
        out.push_back(static_cast<char>(0xF0U | (code >> 18)));
        follow(code >> 12);
        follow(code >> 6);
        follow(code);
    }
}

std::string Printable(std::string_view text)
{
    return Cleaned(text, {});
}

std::string PrintableLines(std::string_view text)
{
    return Cleaned(text, "\n\t");
}

}  // namespace kestrum
