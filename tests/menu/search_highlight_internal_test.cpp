#include <gmock/gmock.h>

#include <ostream>

#include "menu/search_highlight.h"
#include "ostrel/menu_item.h"
#include "ostrel/pinyin.h"

namespace ostrel {
static bool operator==(const ByteRun& a, const ByteRun& b) {
    return a.count == b.count && (a.count == 0 || a.start == b.start);
}
static std::ostream& operator<<(std::ostream& out, const ByteRun& run) {
    return out << run.count << " bytes from " << run.start;
}
}  // namespace ostrel

using ostrel::ByteRun;

namespace {

constexpr ByteRun kNoHit{};

class SearchHighlightTest : public ::testing::Test {
protected:
    SearchHighlightTest() { InitPinYinMap(); }

    // Searches a label that is shown whole.
    ByteRun find(const std::string& keyword, const std::string& label) { return findIn(keyword, label, label); }
    ByteRun findIn(const std::string& keyword, const std::string& drawn, const std::string& label) {
        row.label = label;
        return ostrel::findKeyword(keyword, drawn, label, row);
    }

    TextMenuItem row{"", nullptr, nullptr, false};
};

TEST_F(SearchHighlightTest, NoKeywordHighlightsNothing) { EXPECT_EQ(find("", "Racing"), kNoHit); }

TEST_F(SearchHighlightTest, AnEmptyLabelHasNoHit) { EXPECT_EQ(find("a", ""), kNoHit); }

TEST_F(SearchHighlightTest, ALatinLabelIsSearchedByItsOwnLetters) {
    EXPECT_EQ(find("cin", "Racing"), (ByteRun{2, 3}));
    EXPECT_EQ(find("Racing", "Racing"), (ByteRun{0, 6}));
    EXPECT_EQ(find("g", "Racing"), (ByteRun{5, 1}));
}

TEST_F(SearchHighlightTest, CaseDoesNotCount) {
    EXPECT_EQ(find("RACING", "Super Racing"), (ByteRun{6, 6}));
    EXPECT_EQ(find("sUPER", "SUPER RACING"), (ByteRun{0, 5}));
}

TEST_F(SearchHighlightTest, TheFirstOfSeveralHitsCounts) { EXPECT_EQ(find("an", "Banana"), (ByteRun{1, 2})); }

TEST_F(SearchHighlightTest, AKeywordThatIsNotThereHasNoHit) {
    EXPECT_EQ(find("racer", "Racing"), kNoHit);
    EXPECT_EQ(find("Racing 2", "Racing"), kNoHit);
    EXPECT_EQ(find("x", "中文"), kNoHit);
}

TEST_F(SearchHighlightTest, AChineseLabelIsFoundByItsInitials) {
    EXPECT_EQ(find("zg", "中国"), (ByteRun{0, 6}));
    EXPECT_EQ(find("G", "中国"), (ByteRun{3, 3}));
}

TEST_F(SearchHighlightTest, AMixedLabelIsFoundByLettersAndInitials) {
    EXPECT_EQ(find("ZW", "Maria 中文"), (ByteRun{6, 6}));
    EXPECT_EQ(find("maria", "Maria 中文"), (ByteRun{0, 5}));
    EXPECT_EQ(find("a z", "Maria 中文"), (ByteRun{4, 5}));
}

TEST_F(SearchHighlightTest, AKeywordTypedInChineseIsFoundByItsBytes) {
    EXPECT_EQ(find("文", "Maria 中文"), (ByteRun{9, 3}));
    EXPECT_EQ(find("中文", "Maria 中文"), (ByteRun{6, 6}));
}

TEST_F(SearchHighlightTest, CaseDoesNotCountBesideChineseInAKeyword) {
    EXPECT_EQ(find("maria 中", "Maria 中文"), (ByteRun{0, 9}));
}

TEST_F(SearchHighlightTest, KanaAndAccentsAreFoundByTheirBytes) {
    EXPECT_EQ(find("メラ", "カメラ"), (ByteRun{3, 6}));
    EXPECT_EQ(find("rie", "Matériel"), (ByteRun{5, 3}));
    EXPECT_EQ(find("éri", "Matériel"), (ByteRun{3, 4}));
}

TEST_F(SearchHighlightTest, ExtraTextDOfOneByteACharacterGoesBeforeThePinyin) {
    row.textD = "cg";  // another reading of the first character
    EXPECT_EQ(find("c", "中国"), (ByteRun{0, 3}));
    EXPECT_EQ(find("cg", "中国"), (ByteRun{0, 6}));
}

TEST_F(SearchHighlightTest, ThePinyinStillHitsWhereExtraTextDDoesNot) {
    row.textD = "cg";
    EXPECT_EQ(find("z", "中国"), (ByteRun{0, 3}));
}

TEST_F(SearchHighlightTest, ExtraTextDGoesBeforeC) {
    row.textD = "ab";
    row.textC = "ba";
    EXPECT_EQ(find("a", "中国"), (ByteRun{0, 3}));
}

TEST_F(SearchHighlightTest, ExtraTextCServesWhereDDoesNotHit) {
    row.textD = "xy";
    row.textC = "ba";
    EXPECT_EQ(find("a", "中国"), (ByteRun{3, 3}));
    row.textD = "";
    EXPECT_EQ(find("b", "中国"), (ByteRun{0, 3}));
}

TEST_F(SearchHighlightTest, AnExtraTextOfAnotherLengthIsNotTheInitials) {
    row.textD = "qqq";
    row.textC = "q";
    EXPECT_EQ(find("q", "中国"), kNoHit);
}

TEST_F(SearchHighlightTest, TheLettersOfALatinLabelGoBeforeItsExtraTexts) {
    row.textD = "gnicar";
    EXPECT_EQ(find("r", "racing"), (ByteRun{0, 1}));
}

TEST_F(SearchHighlightTest, ExtraTextAIsNotSearched) {
    row.textA = "qq";
    EXPECT_EQ(find("q", "中国"), kNoHit);
}

TEST_F(SearchHighlightTest, AHitInTheShownPartOfACutLabelIsHighlighted) {
    EXPECT_EQ(findIn("cde", "abcdef...", "abcdefghijkl"), (ByteRun{2, 3}));
    EXPECT_EQ(findIn("gj", "超级国家...", "超级国家大事"), (ByteRun{6, 6}));
}

TEST_F(SearchHighlightTest, AHitThatRunsPastTheCutColoursTheDotsThatStandForIt) {
    EXPECT_EQ(findIn("efg", "abcdef...", "abcdefghijkl"), (ByteRun{4, 3}));
    EXPECT_EQ(findIn("efghijkl", "abcdef...", "abcdefghijkl"), (ByteRun{4, 5}));
    EXPECT_EQ(findIn("jds", "超级国家...", "超级国家大事"), (ByteRun{9, 5}));
}

TEST_F(SearchHighlightTest, AHitFarBeyondTheCutIsNotShown) {
    EXPECT_EQ(findIn("jkl", "abcdef...", "abcdefghijkl"), kNoHit);
    EXPECT_EQ(findIn("stuff", "abcdef...", "abcdefghijkl and stuff"), kNoHit);
}

TEST_F(SearchHighlightTest, InvalidBytesCountAsCharacters) {
    EXPECT_EQ(find("b",
                   "a\xFF\x80"
                   "b"),
              (ByteRun{3, 1}));
    EXPECT_EQ(find("b", "b\xE4"), (ByteRun{0, 1}));
}

TEST_F(SearchHighlightTest, AnInvalidKeywordHasNoHitOrItsOwnBytes) {
    EXPECT_EQ(find("\xFF", "Racing"), kNoHit);
    EXPECT_EQ(find("\xE4", "a\xE4"), (ByteRun{1, 1}));
}

}  // namespace
