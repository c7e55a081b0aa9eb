/// @file  utf8_string.h: UTF-8 text indexed by code point.
/// Threads: a value type; one object belongs to one thread at a time.
#pragma once
#include <cstddef>
#include <cstdint>

#include "ostrel/export.h"

/// A copy of some bytes, with the positions of its multibyte code points, so that mostly-ASCII text is cheap to index.
class OSTREL_API Utf8String {
public:
    static constexpr std::size_t kInlineCapacity = 31;  ///< texts of up to this many bytes need no heap

    Utf8String() noexcept;
    Utf8String(const char* text);  // NOLINT(google-explicit-constructor): reads as a string
    Utf8String(const char* bytes, std::size_t byteCount);
    Utf8String(const Utf8String& other);
    Utf8String(Utf8String&& other) noexcept;
    Utf8String& operator=(const Utf8String& other);
    Utf8String& operator=(Utf8String&& other) noexcept;
    ~Utf8String();

    std::size_t length() const;
    std::size_t size() const;
    uint32_t codePointAt(std::size_t i) const;
    std::size_t byteIndex(std::size_t i) const;
    std::size_t byteCount(std::size_t i, std::size_t n) const;
    Utf8String substr(std::size_t i, std::size_t n) const;
    char byteAt(std::size_t i) const;
    const char* c_str() const;
};
