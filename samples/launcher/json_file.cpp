#include "json_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace launcher {
namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FilePtr = std::unique_ptr<std::FILE, FileCloser>;

// The name must not come to stand for the new text before that has reached the storage.
bool writeToStorage(const std::string& path, const std::string& text) {
    const FilePtr file(std::fopen(path.c_str(), "we"));
    if (file == nullptr) return false;
    return std::fwrite(text.data(), 1, text.size(), file.get()) == text.size() && std::fflush(file.get()) == 0 &&
           fsync(fileno(file.get())) == 0;
}

}  // namespace

JsonTree readJsonFile(const std::string& path, std::size_t mostBytes) {
    std::error_code error;
    // A pipe would keep us waiting for ever.
    if (!std::filesystem::is_regular_file(path, error)) return nullptr;
    std::ifstream file(path, std::ios::binary);
    std::string text(mostBytes + 1, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    const auto length = static_cast<std::size_t>(file.gcount());
    if (length == 0 || length > mostBytes) return nullptr;
    text.resize(length);
    return JsonTree(cJSON_ParseWithLengthOpts(text.c_str(), text.size() + 1, nullptr, /*require_null_terminated=*/1));
}

bool replaceFile(const std::string& path, const std::string& text) {
    const std::string fresh = path + ".new";
    if (writeToStorage(fresh, text) && std::rename(fresh.c_str(), path.c_str()) == 0) return true;
    std::remove(fresh.c_str());
    return false;
}

const cJSON* memberIn(const cJSON* object, const std::string& name) {
    if (cJSON_IsObject(object) == 0) return nullptr;
    const cJSON* member = nullptr;
    cJSON_ArrayForEach(member, object) {
        if (member->string != nullptr && name == member->string) return member;
    }
    return nullptr;
}

std::string textIn(const cJSON* object, const std::string& name) {
    const cJSON* member = memberIn(object, name);
    return cJSON_IsString(member) != 0 && member->valuestring != nullptr ? member->valuestring : "";
}

}  // namespace launcher
