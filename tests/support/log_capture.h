// Catches what the process writes to standard output (and, when asked, standard error) while it lives.
#pragma once
#include <string>
#include <vector>

namespace ostreltest {

class LogCapture {
public:
    enum class Stream { Output, Error };
    explicit LogCapture(Stream stream = Stream::Output);
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    std::string text();                // everything written so far
    std::vector<std::string> lines();  // the same, one entry a line, without line feeds
    bool contains(const std::string& part) { return text().find(part) != std::string::npos; }
    void clear();

private:
    int mDescriptor;
    int mSaved;
    int mFile;
};

}  // namespace ostreltest
