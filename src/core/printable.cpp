#include "core/printable.h"

namespace kestrum {

namespace {

constexpr char kMark = '?';

unsigned Byte(std::string_view text, std::size_t at)
{
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
}

bool Follows(unsigned byte)
{
    return byte >= 0x80 && byte < 0xC0;
}

// Bytes of the well-formed character that begins here; 0 when there is none (RFC 3629: no longer
// form than needed, no half of a pair, nothing beyond U+10FFFF).
std::size_t LengthAt(std::string_view text, std::size_t at)
{
    const unsigned first = Byte(text, at), second = Byte(text, at + 1);
    if (first < 0x80) {
        return 1;
    }
    if (first < 0xC2 || first > 0xF4 || !Follows(second)) {
        return 0;
    }
    if (first < 0xE0) {
        return 2;
    }
    if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second >= 0xA0) ||
        (first == 0xF0 && second < 0x90) || (first == 0xF4 && second >= 0x90) ||
        !Follows(Byte(text, at + 2))) {
        return 0;
    }
    if (first < 0xF0) {
        return 3;
    }
    return Follows(Byte(text, at + 3)) ? 4 : 0;
}

bool Control(std::string_view text, std::size_t at)
{
    const unsigned first = Byte(text, at);
    const bool c1 = first == 0xC2 && Byte(text, at + 1) < 0xA0;  // U+0080 to U+009F
    return first < 0x20 || first == 0x7F || c1;
}

std::string Cleaned(std::string_view text, std::string_view kept)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = LengthAt(text, at);
        const bool stays = kept.find(text[at]) != std::string_view::npos;
        if (length == 0 || (Control(text, at) && !stays)) {
            out.push_back(kMark);
        } else {
            out.append(text.substr(at, length));
        }
        at += length == 0 ? 1 : length;
    }
    return out;
}

}  // namespace

std::string Printable(std::string_view text)
{
    return Cleaned(text, {});
}

std::string PrintableLines(std::string_view text)
{
    return Cleaned(text, "\n\t");
}

}  // namespace kestrum
