// The entry of libFuzzer; each program has one target.

#include "harness.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    kestrum::fuzz::KESTRUM_TARGET({reinterpret_cast<const char*>(data), size});
    return 0;
}
