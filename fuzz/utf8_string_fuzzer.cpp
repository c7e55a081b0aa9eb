// Text indexed by code point, its pinyin initials and the search in them, from arbitrary bytes.
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "fuzz_folder.h"
#include "ostrel/pinyin.h"
#include "ostrel/utf8_string.h"

namespace {

using ostrelfuzz::require;

// The walk is the yardstick: every operation by index has to agree with where it stood.
void checkIndexes(const Utf8String& text, std::size_t i, std::size_t n) {
    std::size_t steps = 0;
    std::size_t begin = text.size();
    std::size_t end = text.size();
    for (auto at = text.begin(); at != text.end(); ++at, ++steps) {
        const auto offset = static_cast<std::size_t>(at.position() - text.c_str());
        if (steps == i) begin = offset;
        if (steps == i) require(text.codePointAt(i) == *at);
        if (steps == i + n) end = offset;
    }
    require(text.length() == steps);
    require(text.byteIndex(i) == begin);
    require(text.byteCount(i, n) == end - begin);
    if (i <= steps) {
        const Utf8String part = text.substr(i, n);
        require(std::string(part.c_str(), part.size()) == std::string(text.c_str() + begin, end - begin));
    }
}

void checkSearch(const std::string& text, const std::string& key) {
    const std::unique_ptr<char, void (*)(void*)> initials(GetPinyinInitials2(text.c_str()), std::free);
    const std::size_t length = Utf8String(text.c_str()).length();
    for (std::size_t i = length; i <= std::strlen(text.c_str()); ++i) require(initials.get()[i] == '\0');
    const char* start = nullptr;
    int bytes = 0;
    if (PinyinStrstr(text.c_str(), initials.get(), key.c_str(), &start, &bytes) != 0) return;
    require(start >= text.c_str() && bytes >= 0 && start + bytes <= text.c_str() + text.size());
}

}  // namespace

// The first three bytes choose an index, a count and the length of a search key; the key and the text follow.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    static const bool ready = (InitPinYinMap(), true);
    if (!ready || size < 3) return 0;
    const std::string bytes(reinterpret_cast<const char*>(data) + 3, size - 3);
    checkIndexes({bytes.data(), bytes.size()}, data[0], data[1]);
    const std::string key = bytes.substr(0, data[2] % 4U);
    checkSearch(bytes.substr(key.size()), key);
    return 0;
}
