#include "ostrel/file_utils.h"

#include <cerrno>
#include <cstdint>
#include <cstring>

#include "ostrel/log.h"
#include "platform/handles.h"

using ostrel::FilePtr;

namespace {

constexpr uint32_t kLargestContent = 0x1FFFF;
constexpr int kMostReads = 10;
constexpr unsigned char kNoDigit = 255;

FilePtr open(const char* path, const char* mode) { return FilePtr{path == nullptr ? nullptr : std::fopen(path, mode)}; }

long measure(FILE* file) {
    std::fseek(file, 0, SEEK_END);
    const long size = std::ftell(file);
    std::rewind(file);
    return size;
}

// Asks again after a short read: a device may hand its text over in pieces. Pipes have no size and are refused before.
int readInPieces(FILE* file, char* buffer, int size) {
    int total = 0;
    for (int reads = 0; total < size && reads < kMostReads; ++reads) {
        total += static_cast<int>(std::fread(buffer + total, 1, static_cast<std::size_t>(size - total), file));
    }
    return total;
}

}  // namespace

int loadContent(const char* name, FILE* f, char** out) {
    if (f == nullptr || out == nullptr) return -1;
    const auto size = static_cast<int32_t>(measure(f));
    // Unsigned, so that an empty file wraps round and is refused by the same comparison.
    if (static_cast<uint32_t>(size) - 1 > kLargestContent - 1) {
        tprintf("%s invalid size %d\n", name, size);
        return -1;
    }
    *out = static_cast<char*>(std::malloc(static_cast<std::size_t>(size) + 1));
    if (*out == nullptr) return -1;
    const int total = readInPieces(f, *out, size);
    if (total != size) {
        tprintf("read %s (%d vs %d)error : %d:%s\n", name, total, size, errno, std::strerror(errno));
        return -1;
    }
    (*out)[total] = '\0';
    return 0;
}

int fileToMem(const char* path, void* buf) {
    const FilePtr file = open(path, "r");
    if (!file || buf == nullptr) return 0;
    const long size = measure(file.get());
    return size <= 0 ? 0 : static_cast<int>(std::fread(buf, 1, static_cast<std::size_t>(size), file.get()));
}

void dumpToFile(const char* path, const void* buf, int n) {
    const FilePtr file = open(path, "wb");
    if (!file) {
        // Past the log on purpose: whoever tries a path by hand sees it on the terminal even when the log is the
        // system's. (UnwritableFileIsToldOnStandardOutputInSyslogModeToo)
        std::printf("can not open %s\n", path);
        return;
    }
    if (buf != nullptr && n > 0) std::fwrite(buf, 1, static_cast<std::size_t>(n), file.get());
}

void fileWriteInt(const char* path, int v) {
    char text[128] = {};
    std::snprintf(text, sizeof text, "%d", v);
    dumpToFile(path, text, static_cast<int>(std::strlen(text)));
}

void fileWriteString(const char* path, const char* s) {
    if (s == nullptr) return;
    dumpToFile(path, s, static_cast<int>(std::strlen(s)));
}

unsigned char HexToChar(unsigned char v) {
    if (v < 10) return static_cast<unsigned char>('0' + v);
    return v < 16 ? static_cast<unsigned char>('A' + v - 10) : kNoDigit;
}

unsigned char CharToHex(unsigned char c) {
    if (c >= '0' && c <= '9') return static_cast<unsigned char>(c - '0');
    if (c >= 'A' && c <= 'F') return static_cast<unsigned char>(c - 'A' + 10);
    if (c >= 'a' && c <= 'f') return static_cast<unsigned char>(c - 'a' + 10);
    return kNoDigit;
}
