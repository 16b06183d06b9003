#pragma once

// The bytes of a table as they come, made into UTF-8 with line feeds: spreadsheets also save
// UTF-16, and old ones end their lines with a carriage return alone.

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrum {

class TableDecoder {
public:
    // Appends what can be made of the next bytes. The first few are held back until they say how
    // the text is encoded, a character or line end cut short until the rest of it comes. Returns
    // why the bytes are no table, or nothing.
    std::string Add(std::string_view bytes, std::string& text);

    // The end of the bytes.
    std::string End(std::string& text);

private:
    enum class Encoding : std::uint8_t { unknown, bytes, utf16le, utf16be };
    enum class LineEnd : std::uint8_t { unknown, feed, carriage };  // CR LF counts as feed

    std::string Recognise(bool whole);
    void Take(std::string_view bytes, std::string& text);
    void TakeUnit(unsigned unit, std::string& text);
    void TakeBytes(std::string_view bytes, std::string& text);

    Encoding encoding_ = Encoding::unknown;
    LineEnd line_end_ = LineEnd::unknown;
    std::string head_;       // held back until the encoding is known
    bool carriage_ = false;  // a carriage return held back
    bool odd_ = false;       // half a unit of UTF-16 held back
    unsigned char half_ = 0;
    unsigned high_ = 0;    // first half of a pair of units, 0 without
    std::string decoded_;  // of UTF-16, before its line ends
};

// A whole table. Returns why the bytes are none, or nothing.
std::string DecodeTable(std::string_view bytes, std::string& text);

}  // namespace kestrum
