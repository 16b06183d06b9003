#pragma once

// Replaces the requests for memory of the program that includes it, in one file only: they are
// counted, and the one of a given number fails. A sanitizer finds its own below them, so that the
// numbers are the same in every build.

#include <algorithm>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace counted_memory {

inline long requests = 0;
inline long failat = 0;                 // number of the request that fails; 0 none
inline std::size_t held = 0, most = 0;  // bytes

inline void* Take(std::size_t size) noexcept
{
    void* const memory = ++requests == failat ? nullptr : std::malloc(size == 0 ? 1 : size);
    held += malloc_usable_size(memory);  // 0 of none
    most = std::max(most, held);
    return memory;
}

inline void* TakeOrThrow(std::size_t size)
{
    void* const memory = Take(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

inline void GiveBack(void* memory) noexcept
{
    held -= malloc_usable_size(memory);
    std::free(memory);
}

}  // namespace counted_memory

void* operator new(std::size_t size)
{
    return counted_memory::TakeOrThrow(size);
}
void* operator new[](std::size_t size)
{
    return counted_memory::TakeOrThrow(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return counted_memory::Take(size);
}
void operator delete(void* memory) noexcept
{
    counted_memory::GiveBack(memory);
}
void operator delete[](void* memory) noexcept
{
    counted_memory::GiveBack(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    counted_memory::GiveBack(memory);
}
void operator delete[](void* memory, std::size_t) noexcept
{
    counted_memory::GiveBack(memory);
}
