#include "ostrel/utf8_string.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <utility>

#include "platform/utf8_code_point.h"

using ostrel::codePointBytes;
using ostrel::decodeCodePoint;
using ostrel::offsetWidth;

namespace {

constexpr char kByteTooFar[] = "utf8_string::(raw_)at: byte_index >= size";
constexpr char kSubstringTooFar[] = "utf8_string::(raw_)substr: index > data_len";

// The numbers behind the bytes of a heap text: how many multibyte code points there are, then the offset of each, in
// ascending order. They stand right behind the terminating zero, so they are copied in and out, never pointed to.
template <typename Number, typename Byte>
class OffsetTable {
public:
    explicit OffsetTable(Byte* start) : mStart(start) {}

    std::size_t count() const { return get(0); }
    std::size_t offset(std::size_t i) const { return get(i + 1); }
    void setCount(std::size_t count) const { set(0, count); }
    void setOffset(std::size_t i, std::size_t offset) const { set(i + 1, offset); }

private:
    std::size_t get(std::size_t i) const {
        Number number;
        std::memcpy(&number, mStart + i * sizeof number, sizeof number);
        return number;
    }
    void set(std::size_t i, std::size_t value) const {
        const auto number = static_cast<Number>(value);
        std::memcpy(mStart + i * sizeof number, &number, sizeof number);
    }

    Byte* mStart;
};

// Calls use with the table of a heap text of `size` bytes, as wide as that size asks for.
template <typename Byte, typename Use>
auto withTable(Byte* text, std::size_t size, Use use) {
    Byte* start = text + size + 1;
    switch (offsetWidth(size)) {
        case 1:
            return use(OffsetTable<uint8_t, Byte>(start));
        case 2:
            return use(OffsetTable<uint16_t, Byte>(start));
        case 4:
            return use(OffsetTable<uint32_t, Byte>(start));
        default:
            return use(OffsetTable<uint64_t, Byte>(start));
    }
}

std::size_t bufferSize(std::size_t size, std::size_t multibyteCount) {
    return size + 1 + offsetWidth(size) * (multibyteCount + 1);
}

struct CodePointCounts {
    std::size_t all = 0;
    std::size_t multibyte = 0;
};

CodePointCounts countCodePoints(const char* text, std::size_t size) {
    CodePointCounts counts;
    const char* end = text + size;
    for (const char* at = text; at != end; ++counts.all) {
        const std::size_t bytes = codePointBytes(at, end);
        if (bytes > 1) ++counts.multibyte;
        at += bytes;
    }
    return counts;
}

// The bytes from `begin` up to `end`.
struct Stretch {
    std::size_t begin;
    std::size_t end;
};

// Where the n code points from index i on stand. Both forms of a text are clipped at its end and give the same answer.
Stretch stretchInline(const char* text, std::size_t size, std::size_t i, std::size_t n) {
    const char* end = text + size;
    const char* at = text;
    while (at != end && i-- > 0) at += codePointBytes(at, end);
    const char* from = at;
    while (at != end && n-- > 0) at += codePointBytes(at, end);
    return {static_cast<std::size_t>(from - text), static_cast<std::size_t>(at - text)};
}

Stretch stretchOnHeap(const char* text, std::size_t size, std::size_t i, std::size_t n) {
    return withTable(text, size, [=](auto table) {
        const std::size_t entries = table.count();
        std::size_t entry = 0;
        // A code point counts as one byte, and the table's entries on the way add what they have beyond that.
        const auto skip = [&](std::size_t from, std::size_t count) {
            std::size_t to = from + std::min(count, size - from);
            for (; entry < entries && table.offset(entry) < to; ++entry) {
                to += codePointBytes(text + table.offset(entry), text + size) - 1;
            }
            return std::min(to, size);
        };
        const std::size_t begin = skip(0, i);
        return Stretch{begin, skip(begin, n)};
    });
}

Stretch stretchOf(const Utf8String& text, std::size_t i, std::size_t n) {
    const auto find = text.size() > Utf8String::kInlineCapacity ? stretchOnHeap : stretchInline;
    return find(text.c_str(), text.size(), i, n);
}

}  // namespace

Utf8String::Utf8String() noexcept : mInline{} {}

Utf8String::Utf8String(const char* text) : Utf8String(text, text == nullptr ? 0 : std::strlen(text)) {}

Utf8String::Utf8String(const char* bytes, std::size_t byteCount) : mInline{} {
    if (bytes == nullptr || byteCount == 0) return;
    if (byteCount > kInlineCapacity) {
        mHeap = makeHeap(bytes, byteCount);
    } else {
        std::memcpy(mInline, bytes, byteCount);
    }
    mSize = byteCount;
}

Utf8String::Utf8String(const Utf8String& other) : Utf8String(other.c_str(), other.mSize) {}

Utf8String::Utf8String(Utf8String&& other) noexcept : mInline{} { takeFrom(other); }

Utf8String& Utf8String::operator=(const Utf8String& other) {
    if (this != &other) *this = Utf8String(other);
    return *this;
}

Utf8String& Utf8String::operator=(Utf8String&& other) noexcept {
    if (this == &other) return *this;
    reset();
    takeFrom(other);
    return *this;
}

Utf8String::~Utf8String() { reset(); }

std::size_t Utf8String::length() const {
    return mSize > kInlineCapacity ? mHeap.length : countCodePoints(mInline, mSize).all;
}

uint32_t Utf8String::codePointAt(std::size_t i) const {
    const std::size_t begin = byteIndex(i);
    if (begin >= mSize) throw std::out_of_range(kByteTooFar);
    return decodeCodePoint(c_str() + begin, c_str() + mSize);
}

std::size_t Utf8String::byteIndex(std::size_t i) const { return stretchOf(*this, i, 0).begin; }

std::size_t Utf8String::byteCount(std::size_t i, std::size_t n) const {
    const Stretch bytes = stretchOf(*this, i, n);
    return bytes.end - bytes.begin;
}

Utf8String Utf8String::substr(std::size_t i, std::size_t n) const {
    if (i > length()) throw std::out_of_range(kSubstringTooFar);
    const Stretch bytes = stretchOf(*this, i, n);
    return {c_str() + bytes.begin, bytes.end - bytes.begin};
}

char Utf8String::byteAt(std::size_t i) const {
    if (i >= mSize) throw std::out_of_range(kByteTooFar);
    return c_str()[i];
}

Utf8String::Heap Utf8String::makeHeap(const char* bytes, std::size_t byteCount) {
    const CodePointCounts counts = countCodePoints(bytes, byteCount);
    char* buffer = new char[bufferSize(byteCount, counts.multibyte)];
    std::memcpy(buffer, bytes, byteCount);
    buffer[byteCount] = '\0';
    withTable(buffer, byteCount, [&](auto table) {
        table.setCount(counts.multibyte);
        const char* end = buffer + byteCount;
        std::size_t entry = 0;
        for (const char* at = buffer; entry < counts.multibyte;) {
            const std::size_t length = codePointBytes(at, end);
            if (length > 1) table.setOffset(entry++, static_cast<std::size_t>(at - buffer));
            at += length;
        }
    });
    return {buffer, counts.all};
}

void Utf8String::takeFrom(Utf8String& other) noexcept {
    if (other.mSize > kInlineCapacity) {
        mHeap = other.mHeap;
    } else {
        std::memcpy(mInline, other.mInline, other.mSize + 1);
    }
    mSize = std::exchange(other.mSize, 0);
    other.mInline[0] = '\0';
}

void Utf8String::reset() noexcept {
    if (mSize > kInlineCapacity) delete[] mHeap.buffer;
    mSize = 0;
    mInline[0] = '\0';
}

uint32_t Utf8String::Iterator::operator*() const { return decodeCodePoint(mPosition, mEnd); }

Utf8String::Iterator& Utf8String::Iterator::operator++() {
    mPosition += codePointBytes(mPosition, mEnd);
    return *this;
}
