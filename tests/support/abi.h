// Reads the binary interface of a class: which slot a virtual operation has (Itanium C++ ABI, as GCC and Clang use it).
#pragma once
#include <cstddef>
#include <cstring>

namespace ostreltest {

// The slot of a virtual operation in the published count: the two destructors are slots 1 and 2.
template <typename Member>
int slotOf(Member operation) {
    struct {
        std::ptrdiff_t function, adjustment;
    } words{};
    static_assert(sizeof operation == sizeof words);
    std::memcpy(&words, &operation, sizeof words);
#if defined(__aarch64__)
    const std::ptrdiff_t offset = words.function;  // the mark of a virtual operation is kept in the other word
#else
    const std::ptrdiff_t offset = words.function - 1;
#endif
    return static_cast<int>(offset / static_cast<std::ptrdiff_t>(sizeof(void*))) + 1;
}

// The function that an object's table holds in a slot, counted as above.
inline const void* slotOfObject(const void* object, int slot) {
    const void* const* table = nullptr;
    std::memcpy(&table, object, sizeof table);
    return table[slot - 1];
}

// The distance of a field from the start of its object.
template <typename Object, typename Field>
std::ptrdiff_t offsetIn(const Object& object, const Field& field) {
    return reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(&object);
}

}  // namespace ostreltest
