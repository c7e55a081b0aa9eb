/// @file  utf8_string.h: UTF-8 text indexed by code point.
/// Threads: a value type; one object belongs to one thread at a time.
/// Bytes: nothing is refused. A code point is as long as its first byte has leading one bits (none counts as 1, 0xFF
/// has 8); where fewer bytes remain, or a continuation byte stands at its start, it is that one byte. Bytes that should
/// be continuation bytes are not checked, so any text can be walked from end to end. Errors: byteAt, codePointAt and
/// substr throw std::out_of_range for an index past the end; valid ones are the caller's duty, and nothing in the
/// library catches it.
#pragma once
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "ostrel/export.h"

/// A copy of some bytes, with the positions of its multibyte code points, so that mostly-ASCII text is cheap to index.
/// To look at every code point, walk it (for (uint32_t codePoint : text)): an index is counted from the start each
/// time.
class OSTREL_API Utf8String {
public:
    class Iterator;

    static constexpr std::size_t kInlineCapacity = 31;  ///< texts of up to this many bytes need no heap

    /// The empty text.
    Utf8String() noexcept;
    /// A copy of @p text up to its zero byte; null makes the empty text.
    Utf8String(const char* text);  // NOLINT(google-explicit-constructor): reads as a string
    /// A copy of @p byteCount bytes, zero bytes included; null makes the empty text.
    Utf8String(const char* bytes, std::size_t byteCount);
    Utf8String(const Utf8String& other);
    /// Takes the text over; @p other is empty afterwards.
    Utf8String(Utf8String&& other) noexcept;
    Utf8String& operator=(const Utf8String& other);
    Utf8String& operator=(Utf8String&& other) noexcept;
    ~Utf8String();

    /// @return the number of code points.
    std::size_t length() const;
    /// @return the number of bytes.
    std::size_t size() const { return mSize; }
    /// @return the value of the code point at index @p i: the bits of the first byte below its length mark, then six
    ///         bits of each further byte, kept to 32 bits (forms of 7 and 8 bytes lose their highest ones). A single
    ///         byte is its own value. Throws for i >= length().
    uint32_t codePointAt(std::size_t i) const;
    /// @return where the code point at index @p i begins, in bytes; size() for i >= length().
    std::size_t byteIndex(std::size_t i) const;
    /// @return how many bytes the @p n code points from index @p i on take; fewer code points count where the text
    /// ends.
    std::size_t byteCount(std::size_t i, std::size_t n) const;
    /// @return the @p n code points from index @p i on, or as many as there are; the empty text for i == length().
    ///         Throws for i > length().
    Utf8String substr(std::size_t i, std::size_t n) const;
    /// @return the byte at offset @p i. Throws for i >= size().
    char byteAt(std::size_t i) const;
    /// @return the bytes and a zero byte behind them; valid until the text is changed or dies.
    const char* c_str() const { return mSize > kInlineCapacity ? mHeap.buffer : mInline; }

    /// @return the first code point, for a walk over all of them; the text must stay as it is meanwhile.
    Iterator begin() const;
    /// @return the end of such a walk.
    Iterator end() const;

private:
    struct Heap {
        char* buffer;        // the bytes, a zero byte, the number of multibyte code points and the offset of each
        std::size_t length;  // in code points
    };

    OSTREL_HIDDEN static Heap makeHeap(const char* bytes, std::size_t byteCount);
    OSTREL_HIDDEN void takeFrom(Utf8String& other) noexcept;
    OSTREL_HIDDEN void reset() noexcept;

    std::size_t mSize = 0;  // in bytes; the heap form holds what is longer than kInlineCapacity
    union {
        char mInline[kInlineCapacity + 1];
        Heap mHeap;
    };
};

/// One step of a walk over a text: a code point and the bytes that it stands in.
class OSTREL_API Utf8String::Iterator {
public:
    /// What * gives is made anew each time, so this is no more than an input iterator.
    using iterator_category = std::input_iterator_tag;
    /// A code point.
    using value_type = uint32_t;
    /// Steps from one iterator to another.
    using difference_type = std::ptrdiff_t;
    /// Not used: no decoded code point stands in memory.
    using pointer = const uint32_t*;
    /// What * gives.
    using reference = uint32_t;

    /// A walk over the bytes from @p position up to @p end, neither of them null.
    Iterator(const char* position, const char* end) : mPosition(position), mEnd(end) {}
    /// @return the value of the code point, as codePointAt gives it. Not for the end of the text.
    uint32_t operator*() const;
    /// Goes on to the next code point. Not for the end of the text.
    Iterator& operator++();
    /// @return whether both stand at the same byte. Both belong to the same text.
    bool operator==(const Iterator& other) const { return mPosition == other.mPosition; }
    /// @return whether they stand at different bytes.
    bool operator!=(const Iterator& other) const { return mPosition != other.mPosition; }
    /// @return the first byte of the code point.
    const char* position() const { return mPosition; }

private:
    const char* mPosition;
    const char* mEnd;
};

inline Utf8String::Iterator Utf8String::begin() const { return {c_str(), c_str() + mSize}; }
inline Utf8String::Iterator Utf8String::end() const { return {c_str() + mSize, c_str() + mSize}; }
