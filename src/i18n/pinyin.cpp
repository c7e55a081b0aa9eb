#include "ostrel/pinyin.h"

#include <cstdlib>
#include <cstring>

#include "i18n/pinyin_table.h"
#include "platform/utf8_code_point.h"

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

// @return where the character after so many begins; `end` when the text ends first.
const char* skipCharacters(const char* at, const char* end, std::size_t count) {
    for (; count > 0 && at != end; --count) at += ostrel::codePointBytes(at, end);
    return at;
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
    const char* const end = text + std::strlen(text);
    auto* initials = static_cast<char*>(std::calloc(static_cast<std::size_t>(end - text) + 1, 1));
    if (initials == nullptr) return nullptr;
    char* next = initials;
    for (const char* at = text; at != end; at += ostrel::codePointBytes(at, end)) {
        *next++ = initialOf(ostrel::decodeCodePoint(at, end));
    }
    return initials;
}

int PinyinStrstr(const char* text, const char* initials, const char* key, const char** matchStart, int* matchBytes) {
    if (text == nullptr || initials == nullptr || key == nullptr) return -1;
    const char* hit = strcasestr(initials, key);
    if (hit == nullptr) return -1;
    // One byte of the initials stands for one character, so the place in one is the index in the other.
    const char* const end = text + std::strlen(text);
    const char* const start = skipCharacters(text, end, static_cast<std::size_t>(hit - initials));
    if (start == end) return -1;
    if (matchStart != nullptr) *matchStart = start;
    if (matchBytes != nullptr) *matchBytes = static_cast<int>(skipCharacters(start, end, std::strlen(key)) - start);
    return 0;
}
