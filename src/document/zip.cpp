#include "document/zip.h"

#include <array>

namespace kestrum {

namespace {

constexpr std::array<std::uint32_t, 256> Table()
{
    constexpr std::uint32_t kPolynomial = 0xEDB88320U;
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit) {
            value = (value & 1U) != 0 ? kPolynomial ^ (value >> 1U) : value >> 1U;
        }
        table[i] = value;
    }
    return table;
}

constexpr std::array<std::uint32_t, 256> kTable = Table();

// Little-endian.
void Put(std::string& out, std::uint32_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i) {
        out += static_cast<char>(value & 0xFFU);
        value >>= 8U;
    }
}

// What both headers of a file have in common, from the version on.
void PutFacts(std::string& out, std::uint32_t crc, std::uint32_t size, std::size_t name)
{
    constexpr std::uint32_t kVersion = 20, kUtf8 = 0x0800;
    constexpr std::uint32_t kTime = 0, kDate = (20U << 9U) | (1U << 5U) | 1U;  // 1 January 2000
    Put(out, kVersion, 2);
    Put(out, kUtf8, 2);
    Put(out, 0, 2);  // stored
    Put(out, kTime, 2);
    Put(out, kDate, 2);
    Put(out, crc, 4);
    Put(out, size, 4);
    Put(out, size, 4);
    Put(out, static_cast<std::uint32_t>(name), 2);
    Put(out, 0, 2);
}

}  // namespace

std::uint32_t Crc32(std::string_view bytes)
{
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char c : bytes) {
        crc = kTable[(crc ^ static_cast<unsigned char>(c)) & 0xFFU] ^ (crc >> 8U);
    }
    return ~crc;
}

void ZipWriter::Add(std::string_view name, std::string_view bytes)
{
    const std::uint32_t crc = Crc32(bytes);
    const auto size = static_cast<std::uint32_t>(bytes.size());
    const auto offset = static_cast<std::uint32_t>(files_.size());
    Put(files_, 0x04034B50U, 4);
    PutFacts(files_, crc, size, name.size());
    files_.append(name).append(bytes);
    Put(directory_, 0x02014B50U, 4);
    Put(directory_, 20, 2);
    PutFacts(directory_, crc, size, name.size());
    Put(directory_, 0, 2);  // comment
    Put(directory_, 0, 2);  // disk
    Put(directory_, 0, 2);
    Put(directory_, 0, 4);
    Put(directory_, offset, 4);
    directory_.append(name);
    ++count_;
}

std::string ZipWriter::Take()
{
    const auto start = static_cast<std::uint32_t>(files_.size());
    std::string out = std::move(files_);
    out += directory_;
    Put(out, 0x06054B50U, 4);
    Put(out, 0, 4);  // disks
    Put(out, count_, 2);
    Put(out, count_, 2);
    Put(out, static_cast<std::uint32_t>(directory_.size()), 4);
    Put(out, start, 4);
    Put(out, 0, 2);
    return out;
}

}  // namespace kestrum
