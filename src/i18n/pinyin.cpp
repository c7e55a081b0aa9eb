#include "ostrel/pinyin.h"

#include <cstdlib>
#include <cstring>

#include "i18n/pinyin_table.h"
#include "ostrel/utf8_string.h"

std::map<uint32_t, const char*> gPinyinMap;

namespace {

constexpr uint32_t kFirstBeyondAscii = 128;
constexpr char kNoInitial = ' ';

// What a title is searched by, one byte for each of its characters.
char initialOf(uint32_t codePoint) {
    if (codePoint < kFirstBeyondAscii) return static_cast<char>(codePoint);
    const auto found = gPinyinMap.find(codePoint);
    if (found == gPinyinMap.end() || found->second == nullptr || *found->second == '\0') return kNoInitial;
    return *found->second;
}

}  // namespace

void InitPinYinMap() {
    gPinyinMap.clear();
    // The rows ascend, so that the end is where nearly each of them goes.
    for (const ostrel::PinyinRow& row : ostrel::kPinyinRows) {
        gPinyinMap.try_emplace(gPinyinMap.end(), row.codePoint, ostrel::kPinyinSyllables[row.syllable]);
    }
}

char* GetPinyinInitials2(const char* text) {
    if (text == nullptr) return nullptr;
    const Utf8String characters(text);
    auto* initials = static_cast<char*>(std::calloc(characters.size() + 1, 1));
    if (initials == nullptr) return nullptr;
    char* next = initials;
    for (const uint32_t codePoint : characters) *next++ = initialOf(codePoint);
    return initials;
}

int PinyinStrstr(const char* text, const char* initials, const char* key, const char** matchStart, int* matchBytes) {
    if (text == nullptr || initials == nullptr || key == nullptr) return -1;
    const char* hit = strcasestr(initials, key);
    if (hit == nullptr) return -1;
    // One byte of the initials stands for one character, so the place in one is the index in the other.
    const auto index = static_cast<std::size_t>(hit - initials);
    const Utf8String characters(text);
    if (index >= characters.length()) return -1;
    if (matchStart != nullptr) *matchStart = text + characters.byteIndex(index);
    if (matchBytes != nullptr) *matchBytes = static_cast<int>(characters.byteCount(index, std::strlen(key)));
    return 0;
}
