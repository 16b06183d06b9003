#pragma once

// Files put into one, as OpenDocument has them: a ZIP archive without compression.

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrum {

class ZipWriter {
public:
    // Less than 4 GB in all.
    void Add(std::string_view name, std::string_view bytes);
    std::string Take();

private:
    std::string files_;
    std::string directory_;
    std::uint16_t count_ = 0;
};

// CRC-32 as ZIP and PNG have it.
std::uint32_t Crc32(std::string_view bytes);

}  // namespace kestrum
