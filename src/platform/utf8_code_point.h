// How bytes make code points, and how wide the offset table of a longer text is.
#pragma once
#include <cstddef>
#include <cstdint>

namespace ostrel {

// Bytes of the code point that begins at `at`, which lies before `end`: at least 1, never past `end`.
inline std::size_t codePointBytes(const char* at, const char* end) {
    const auto lead = static_cast<unsigned char>(*at);
    if (lead < 0xC0) return 1;
    const auto leadingOnes = static_cast<std::size_t>(__builtin_clz(~(static_cast<unsigned>(lead) << 24U)));
    return leadingOnes <= static_cast<std::size_t>(end - at) ? leadingOnes : 1;
}

// The value of the code point that begins at `at`; 7- and 8-byte forms keep their low 32 bits.
inline uint32_t decodeCodePoint(const char* at, const char* end) {
    const std::size_t bytes = codePointBytes(at, end);
    const auto lead = static_cast<unsigned char>(*at);
    if (bytes == 1) return lead;
    uint32_t value = lead & (0x7FU >> bytes);
    for (std::size_t i = 1; i < bytes; ++i) value = value << 6U | (static_cast<unsigned char>(at[i]) & 0x3FU);
    return value;
}

// Bytes that one offset into a text of byteCount bytes takes.
constexpr std::size_t offsetWidth(uint64_t byteCount) {
    if (byteCount <= 1ULL << 8U) return 1;
    if (byteCount <= 1ULL << 16U) return 2;
    return byteCount <= 1ULL << 32U ? 4 : 8;
}

}  // namespace ostrel
