#include "support/log_capture.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>

namespace ostreltest {

LogCapture::LogCapture(Stream stream) : mDescriptor(stream == Stream::Output ? STDOUT_FILENO : STDERR_FILENO) {
    std::fflush(nullptr);
    mSaved = dup(mDescriptor);
    mFile = memfd_create("captured-log", 0);
    if (mSaved < 0 || mFile < 0 || dup2(mFile, mDescriptor) < 0) throw std::runtime_error("cannot catch the log");
}

LogCapture::~LogCapture() {
    std::fflush(nullptr);
    dup2(mSaved, mDescriptor);
    close(mSaved);
    close(mFile);
}

std::string LogCapture::text() {
    std::fflush(nullptr);
    std::string content;
    char chunk[4096];
    off_t offset = 0;
    for (;;) {
        const ssize_t n = pread(mFile, chunk, sizeof chunk, offset);
        if (n <= 0) return content;
        content.append(chunk, static_cast<std::size_t>(n));
        offset += n;
    }
}

std::vector<std::string> LogCapture::lines() {
    std::vector<std::string> result;
    const std::string content = text();
    std::size_t start = 0;
    while (start < content.size()) {
        const std::size_t end = content.find('\n', start);
        result.push_back(content.substr(start, end == std::string::npos ? end : end - start));
        if (end == std::string::npos) break;
        start = end + 1;
    }
    return result;
}

void LogCapture::clear() {
    std::fflush(nullptr);
    if (ftruncate(mFile, 0) == 0) lseek(mFile, 0, SEEK_SET);
}

}  // namespace ostreltest
