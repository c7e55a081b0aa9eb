// The readings of Chinese characters, one a character. The rows stand in ascending order of code points but for the
// last.
#pragma once
#include <cstddef>
#include <cstdint>

namespace ostrel {

constexpr std::size_t kPinyinSyllableCount = 1332;
constexpr std::size_t kPinyinSyllableBytes = 8;  // "zhuang1", the longest, and its zero byte
constexpr std::size_t kPinyinRowCount = 25360;

// A syllable is named by its position: 4 bytes a row and nothing for the loader to relocate, where a pointer would make
// them 16 bytes and a relocation of 24.
struct PinyinRow {
    uint32_t codePoint : 20;
    uint32_t syllable : 12;
};

// Lower-case letters without diacritics (v stands for u-umlaut) and a tone digit, 5 for the neutral tone.
extern const char kPinyinSyllables[kPinyinSyllableCount][kPinyinSyllableBytes];
extern const PinyinRow kPinyinRows[kPinyinRowCount];

}  // namespace ostrel
