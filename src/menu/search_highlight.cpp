#include "menu/search_highlight.h"

#include <algorithm>
#include <cstring>

#include "ostrel/menu_item.h"
#include "ostrel/pinyin.h"
#include "platform/ascii.h"
#include "platform/handles.h"
#include "platform/utf8_code_point.h"

namespace ostrel {
namespace {

std::size_t countCharacters(const std::string& text) {
    const char* const end = text.data() + text.size();
    std::size_t count = 0;
    for (const char* at = text.data(); at < end; at += codePointBytes(at, end)) ++count;
    return count;
}

bool isAscii(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

ByteRun findInInitials(const std::string& keyword, const std::string& drawn, const char* initials) {
    const char* start = nullptr;
    int count = 0;
    if (PinyinStrstr(drawn.c_str(), initials, keyword.c_str(), &start, &count) != 0) return {};
    return {static_cast<std::size_t>(start - drawn.c_str()), static_cast<std::size_t>(count)};
}

ByteRun findBytes(const std::string& keyword, const std::string& drawn) {
    const auto sameLetter = [](char a, char b) { return asciiLower(a) == asciiLower(b); };
    const auto hit = std::search(drawn.begin(), drawn.end(), keyword.begin(), keyword.end(), sameLetter);
    if (hit == drawn.end()) return {};
    return {static_cast<std::size_t>(hit - drawn.begin()), keyword.size()};
}

}  // namespace

ByteRun findKeyword(const std::string& keyword, const std::string& drawn, const std::string& label,
                    TextMenuItemProvider& row) {
    if (keyword.empty()) return {};
    ByteRun hit;
    const bool ascii = isAscii(label);
    if (ascii) hit = findInInitials(keyword, drawn, label.c_str());
    const std::size_t characters = countCharacters(label);
    for (const auto extraText : {&TextMenuItemProvider::getTextD, &TextMenuItemProvider::getTextC}) {
        if (hit.count > 0) return hit;
        const std::string initials = (row.*extraText)();
        if (initials.size() == characters) hit = findInInitials(keyword, drawn, initials.c_str());
    }
    if (hit.count == 0 && !ascii) {
        const MallocText initials(GetPinyinInitials2(label.c_str()));
        if (initials) hit = findInInitials(keyword, drawn, initials.get());
    }
    return hit.count > 0 ? hit : findBytes(keyword, drawn);
}

}  // namespace ostrel
