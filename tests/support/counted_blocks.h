// Counts the blocks of memory that a program asks operator new for. Included by one source of a test program only: the
// operators are defined here.
#pragma once
#include <cstdlib>
#include <new>

namespace ostreltest {

inline long blocksAsked = 0;

}  // namespace ostreltest

// The library and the C++ runtime bind to these, because a program's definitions come before those of its libraries.
void* operator new(std::size_t size) {
    ++ostreltest::blocksAsked;
    void* block = std::malloc(size);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    ++ostreltest::blocksAsked;
    return std::malloc(size);
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
