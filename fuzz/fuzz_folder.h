// A folder for the files that a fuzzer feeds to the library; it goes when the fuzzer ends.
#pragma once
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace ostrelfuzz {

class FuzzFolder {
public:
    FuzzFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "ostrel-fuzz-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) std::abort();
        mPath = pattern;
    }
    ~FuzzFolder() { std::filesystem::remove_all(mPath); }
    FuzzFolder(const FuzzFolder&) = delete;
    FuzzFolder& operator=(const FuzzFolder&) = delete;

    const std::string& path() const { return mPath; }

    // Replaces a file by these bytes; its folder exists.
    void write(const std::string& name, const uint8_t* bytes, std::size_t size) const {
        std::ofstream file(mPath + "/" + name, std::ios::binary | std::ios::trunc);
        file.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(size));
        if (!file) std::abort();
    }

private:
    std::string mPath;
};

// The log of millions of inputs helps nobody; libFuzzer itself reports to standard error.
inline void discardLog() {
    if (std::freopen("/dev/null", "w", stdout) == nullptr) std::abort();
}

inline void require(bool condition) {
    if (!condition) std::abort();
}

}  // namespace ostrelfuzz
