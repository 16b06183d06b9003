// Turns a readable profile table into the binary one that the program reads.
//
//   kestrum-tables IN.csv OUT.dat
//   kestrum-tables --digests OUT.inc TABLE.csv... --lists FILE...
//   kestrum-tables --embed OUT.inc TABLE.csv... --lists FILE...
//
// The first line of the CSV names the columns and is skipped; every further line holds one row of
// as many numbers. The output is the numbers as 32-bit little-endian IEEE 754 floats, row after
// row, with nothing around them. A fault is reported as FILE:LINE: field N, and no output is
// written.
//
// The second form writes for each file its delivered name, the SHA-256 of what is delivered, the
// binary table of a CSV or, behind --lists, the file as it stands, and the number of rows of a
// table, as lines of a C++ array. The third form writes the bytes themselves instead, as a literal.

#include "core/fingerprint.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

std::vector<std::string_view> Split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

void Append(std::string& bytes, float value)
{
    const auto bits = std::bit_cast<std::uint32_t>(value);
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<char>((bits >> shift) & 0xFFU));
    }
}

float Number(std::string_view field, const std::string& place)
{
    float value = 0;
    const char* const end = field.data() + field.size();
    const auto [stop, fault] = std::from_chars(field.data(), end, value);
    if (fault != std::errc{} || stop != end || !std::isfinite(value)) {
        throw std::runtime_error(place + "expected a number, found \"" + std::string(field) + "\"");
    }
    return value;
}

std::string Compile(const std::string& name, std::string_view text)
{
    std::string bytes;
    std::size_t columns = 0;
    std::size_t line_number = 0;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, length);
        text.remove_prefix(std::min(length + 1, text.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        const std::string place = name + ":" + std::to_string(++line_number) + ": ";
        const std::vector<std::string_view> fields = Split(line, ',');
        if (line_number == 1) {
            columns = fields.size();
            continue;
        }
        if (fields.size() != columns) {
            throw std::runtime_error(place + "expected " + std::to_string(columns) +
                                     " fields, found " + std::to_string(fields.size()));
        }
        for (std::size_t i = 0; i < columns; ++i) {
            Append(bytes, Number(fields[i], place + "field " + std::to_string(i + 1) + ": "));
        }
    }
    if (bytes.empty()) {
        throw std::runtime_error(name + ":1: expected a header line and at least one row");
    }
    return bytes;
}

std::string ReadFile(const std::string& name)
{
    std::ifstream in(name, std::ios::binary);
    std::ostringstream text;
    if (in) {
        text << in.rdbuf();  // an empty file leaves only the fail bit
    }
    if (!in || text.bad()) {
        throw std::runtime_error(name + ": cannot be read");
    }
    return text.str();
}

// Beside the target first, then renamed over it, so that a table is never half written.
void WriteFile(const std::string& name, const std::string& bytes)
{
    const std::string draft = name + ".tmp";
    std::ofstream out(draft, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    std::error_code fault;
    if (out) {
        std::filesystem::rename(draft, name, fault);
    }
    if (!out || fault) {
        std::error_code ignored;
        std::filesystem::remove(draft, ignored);
        throw std::runtime_error(name + ": cannot be written");
    }
}

struct Delivered {
    std::string name, bytes;
    std::size_t rows;  // of a table; 0 of others
};

Delivered TableOf(const std::filesystem::path& csv)
{
    const std::string text = ReadFile(csv.string());
    const auto columns = std::ranges::count(text.substr(0, text.find('\n')), ',') + 1;
    std::string bytes = Compile(csv.string(), text);
    const std::size_t rows = bytes.size() / sizeof(float) / static_cast<std::size_t>(columns);
    return {csv.stem().string() + ".dat", std::move(bytes), rows};
}

std::vector<Delivered> DeliveredFiles(std::span<const std::string> words)
{
    std::vector<Delivered> files;
    bool lists = false;
    for (const std::string& word : words) {
        const std::filesystem::path path = word;
        if (word == "--lists") {
            lists = true;
        } else if (lists) {
            files.push_back({path.filename().string(), ReadFile(word), 0});
        } else {
            files.push_back(TableOf(path));
        }
    }
    return files;
}

std::string DigestLine(const Delivered& delivered)
{
    return "{\"" + delivered.name + "\", " + std::to_string(kestrum::Fingerprint(delivered.bytes)) +
           "U, " + std::to_string(delivered.rows) + "},\n";
}

// Each byte as three octal digits, so that none runs into the next.
std::string LiteralLine(const Delivered& delivered)
{
    constexpr std::size_t kBytesOnALine = 24;
    std::string text = "{\"" + delivered.name + "\", std::string_view(";
    for (std::size_t i = 0; i < delivered.bytes.size(); ++i) {
        text += i % kBytesOnALine == 0 ? (i == 0 ? "\"" : "\"\n\"") : "";
        const auto byte = static_cast<unsigned char>(delivered.bytes[i]);
        for (int shift = 6; shift >= 0; shift -= 3) {
            text += shift == 6 ? "\\" : "";
            text += static_cast<char>('0' + ((byte >> shift) & 7));
        }
    }
    return text + (delivered.bytes.empty() ? "\"" : "") + "\", " +
           std::to_string(delivered.bytes.size()) + ")},\n";
}

std::string Lines(const std::vector<Delivered>& files, std::string (*line)(const Delivered&))
{
    std::string text;
    for (const Delivered& file : files) {
        text += line(file);
    }
    return text;
}

}  // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> words(argv, argv + argc);
    const bool digests = words.size() > 3 && words[1] == "--digests";
    const bool embed = words.size() > 3 && words[1] == "--embed";
    if (!digests && !embed && words.size() != 3) {
        std::cerr
            << "usage: kestrum-tables IN.csv OUT.dat\n"
               "       kestrum-tables --digests|--embed OUT.inc TABLE.csv... --lists FILE...\n";
        return 2;
    }
    try {
        if (digests || embed) {
            WriteFile(words[2], Lines(DeliveredFiles(std::span(words).subspan(3)),
                                      digests ? DigestLine : LiteralLine));
        } else {
            WriteFile(words[2], Compile(words[1], ReadFile(words[1])));
        }
    } catch (const std::exception& fault) {
        std::cerr << "kestrum-tables: " << fault.what() << '\n';
        return 1;
    }
    return 0;
}
