#include <gtest/gtest.h>

#include <set>
#include <string>

#include "i18n/pinyin_table.h"

namespace {

using ostrel::kPinyinRows;
using ostrel::kPinyinSyllables;

TEST(PinyinTableTest, RowsAscendUpToTheLast) {
    ASSERT_EQ(std::size(kPinyinRows), 25360U);
    for (std::size_t i = 1; i < 25359; ++i) ASSERT_LT(kPinyinRows[i - 1].codePoint, kPinyinRows[i].codePoint);
    EXPECT_EQ(kPinyinRows[0].codePoint, 0x3400U);
    EXPECT_EQ(kPinyinRows[25358].codePoint, 0x29707U);
}

TEST(PinyinTableTest, LastRowIsOutOfOrder) {
    EXPECT_EQ(kPinyinRows[25359].codePoint, 0x55EFU);
    EXPECT_STREQ(kPinyinSyllables[kPinyinRows[25359].syllable], "en1");
}

TEST(PinyinTableTest, NoCodePointAndNoSyllableStandsTwice) {
    std::set<uint32_t> codePoints;
    for (const auto& row : kPinyinRows) codePoints.insert(row.codePoint);
    EXPECT_EQ(codePoints.size(), 25360U);
    std::set<std::string> syllables(std::begin(kPinyinSyllables), std::end(kPinyinSyllables));
    EXPECT_EQ(syllables.size(), 1332U);
}

}  // namespace
