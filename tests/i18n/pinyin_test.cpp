#include "ostrel/pinyin.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

struct Freed {
    void operator()(char* text) const { std::free(text); }
};
using Initials = std::unique_ptr<char, Freed>;

Initials initialsOf(const std::string& text) { return Initials(GetPinyinInitials2(text.c_str())); }

struct Match {
    int result;
    long start;  // in bytes; -1 when it was not set
    int bytes;   // -1 when they were not set
    bool operator==(const Match& o) const { return result == o.result && start == o.start && bytes == o.bytes; }
};

std::ostream& operator<<(std::ostream& out, const Match& match) {
    return out << "{" << match.result << ", start " << match.start << ", " << match.bytes << " bytes}";
}

Match searchIn(const std::string& text, const char* initials, const char* key) {
    const char* start = nullptr;
    int bytes = -1;
    const int result = PinyinStrstr(text.c_str(), initials, key, &start, &bytes);
    return {result, start == nullptr ? -1 : start - text.c_str(), bytes};
}

Match search(const std::string& text, const char* key) { return searchIn(text, initialsOf(text).get(), key); }

constexpr Match kNotFound = {-1, -1, -1};

class PinyinTest : public ::testing::Test {
protected:
    PinyinTest() { InitPinYinMap(); }

    static long countBetween(uint32_t first, uint32_t last) {
        return std::distance(gPinyinMap.lower_bound(first), gPinyinMap.upper_bound(last));
    }
    static std::string reading(uint32_t codePoint) {
        const auto found = gPinyinMap.find(codePoint);
        return found == gPinyinMap.end() ? "none" : found->second;
    }
};

TEST_F(PinyinTest, TableCoversTheseCharacters) {
    EXPECT_EQ(gPinyinMap.size(), 25360U);
    EXPECT_EQ(countBetween(0x3400, 0x4DBF), 5058);
    EXPECT_EQ(countBetween(0x4E00, 0x9FA5), 20252);
    EXPECT_EQ(countBetween(0x4E00, 0x9FFF), 20253);
    EXPECT_EQ(countBetween(0xF900, 0xFAFF), 22);
    EXPECT_EQ(countBetween(0x20000, 0x2A6DF), 27);
    EXPECT_EQ(gPinyinMap.begin()->first, 0x3400U);
    EXPECT_EQ(gPinyinMap.rbegin()->first, 0x29707U);
}

TEST_F(PinyinTest, CharactersHaveTheseReadings) {
    const std::vector<std::pair<uint32_t, const char*>> expected = {
        {0x3400, "qiu1"}, {0x4E00, "yi1"}, {0x4E2D, "zhong1"}, {0x4E86, "le5"}, {0x55EF, "en1"}, {0x56FD, "guo2"},
        {0x6587, "wen2"}, {0x7EFF, "lv4"}, {0x9FA5, "yu4"},    {0xF90E, "la4"}, {0xFA0C, "wu4"},
    };
    for (const auto& [codePoint, syllable] : expected) EXPECT_EQ(reading(codePoint), syllable) << std::hex << codePoint;
}

TEST_F(PinyinTest, EverySyllableIsLowerCaseLettersAndATone) {
    for (const auto& [codePoint, syllable] : gPinyinMap) {
        const std::size_t letters = std::strspn(syllable, "abcdefghijklmnopqrstuvwxyz");
        ASSERT_GE(letters, 1U) << std::hex << codePoint;
        ASSERT_NE(std::strchr("12345", syllable[letters]), nullptr) << syllable;
        ASSERT_EQ(std::strlen(syllable), letters + 1) << syllable;
    }
}

TEST_F(PinyinTest, CharactersShareTheirSyllables) {
    std::set<const char*> pointers;
    std::set<std::string> texts;
    for (const auto& row : gPinyinMap) {
        pointers.insert(row.second);
        texts.insert(row.second);
    }
    EXPECT_EQ(pointers.size(), 1332U);
    EXPECT_EQ(texts.size(), 1332U);
}

TEST_F(PinyinTest, CharactersOfOtherScriptsHaveNoReading) {
    for (const uint32_t codePoint : {0x41U, 0xE9U, 0x3042U, 0xAC00U, 0x1F600U}) EXPECT_EQ(reading(codePoint), "none");
}

TEST_F(PinyinTest, InitDropsWhatTheMapHeld) {
    gPinyinMap[0x4E2D] = "other1";
    gPinyinMap[0x1F600] = "smile1";
    InitPinYinMap();
    EXPECT_EQ(gPinyinMap.size(), 25360U);
    EXPECT_EQ(reading(0x4E2D), "zhong1");
    EXPECT_EQ(reading(0x1F600), "none");
}

TEST_F(PinyinTest, InitialsOfChineseAreTheFirstLettersOfItsReadings) {
    EXPECT_STREQ(initialsOf("中国").get(), "zg");
    EXPECT_STREQ(initialsOf("超级马里奥").get(), "cjmla");
}

TEST_F(PinyinTest, AsciiStaysAsItIs) {
    EXPECT_STREQ(initialsOf("Mario 中文").get(), "Mario zw");
    EXPECT_STREQ(initialsOf("FIFA 98: (v1.0)\t~\x7F").get(), "FIFA 98: (v1.0)\t~\x7F");
}

TEST_F(PinyinTest, OtherCharactersBecomeSpacesAndKeepTheirPlace) {
    EXPECT_STREQ(initialsOf("あいう").get(), "   ");
    EXPECT_STREQ(initialsOf("é中한😀国").get(), " z  g");
}

TEST_F(PinyinTest, EmptyTextHasEmptyInitials) { EXPECT_STREQ(initialsOf("").get(), ""); }

TEST_F(PinyinTest, NullTextHasNone) { EXPECT_EQ(GetPinyinInitials2(nullptr), nullptr); }

TEST_F(PinyinTest, BytesThatAreNoUtf8CountAsThemselvesAndBecomeSpaces) {
    EXPECT_STREQ(initialsOf("a\xB8z").get(), "a z");
    EXPECT_STREQ(initialsOf("a\xE4\xB8").get(), "a  ");
}

TEST_F(PinyinTest, AsciiInALongFormIsItsByte) { EXPECT_STREQ(initialsOf("\xC1\x81z").get(), "Az"); }

TEST_F(PinyinTest, CodePointZeroIsAZeroByteAndTheRestFollows) {
    const Initials initials = initialsOf("a\xC0\x80z");
    EXPECT_EQ(std::string(initials.get(), 5), std::string("a\0z\0\0", 5));
}

TEST_F(PinyinTest, CharactersWithAnEmptyReadingBecomeSpaces) {
    gPinyinMap[0x4E2D] = "";
    gPinyinMap[0x56FD] = nullptr;
    EXPECT_STREQ(initialsOf("中国").get(), "  ");
}

TEST_F(PinyinTest, WithoutTheMapEveryCharacterIsASpace) {
    gPinyinMap.clear();
    EXPECT_STREQ(initialsOf("a中国").get(), "a  ");
}

TEST_F(PinyinTest, KeyIsFoundAtTheCharactersThatItStandsFor) {
    EXPECT_EQ(search("Mario 中文", "ZW"), (Match{0, 6, 6}));
    EXPECT_EQ(search("é中文", "w"), (Match{0, 5, 3}));
    EXPECT_EQ(search("超级马里奥兄弟超级马里奥兄弟", "axdc"), (Match{0, 12, 12}));
}

TEST_F(PinyinTest, CaseDoesNotMatter) {
    for (const char* key : {"zg", "ZG", "Zg", "zG"}) EXPECT_EQ(search("我的中国", key), (Match{0, 6, 6})) << key;
    EXPECT_EQ(search("Mario", "ARI"), (Match{0, 1, 3}));
}

TEST_F(PinyinTest, FirstHitCounts) { EXPECT_EQ(search("国中国中", "z"), (Match{0, 3, 3})); }

TEST_F(PinyinTest, KeyThatIsNotThereLeavesTheOutputsAlone) {
    EXPECT_EQ(search("Mario 中文", "zg"), kNotFound);
    EXPECT_EQ(search("", "z"), kNotFound);
}

TEST_F(PinyinTest, EmptyKeyIsFoundAtTheFirstCharacterWithoutBytes) {
    EXPECT_EQ(search("中国", ""), (Match{0, 0, 0}));
    EXPECT_EQ(search("", ""), kNotFound);
}

TEST_F(PinyinTest, InitialsLongerThanTheTextAreNoHit) {
    EXPECT_EQ(searchIn("中国", "zgx", "x"), kNotFound);
    EXPECT_EQ(searchIn("中国", "zgx", "gx"), (Match{0, 3, 3}));
}

TEST_F(PinyinTest, NullTextsAreNoHit) {
    const char* start = nullptr;
    int bytes = -1;
    EXPECT_EQ(PinyinStrstr(nullptr, "z", "z", &start, &bytes), -1);
    EXPECT_EQ(PinyinStrstr("中", nullptr, "z", &start, &bytes), -1);
    EXPECT_EQ(PinyinStrstr("中", "z", nullptr, &start, &bytes), -1);
    EXPECT_EQ(start, nullptr);
    EXPECT_EQ(bytes, -1);
}

TEST_F(PinyinTest, OutputsThatNobodyWantsMayBeNull) { EXPECT_EQ(PinyinStrstr("中", "z", "z", nullptr, nullptr), 0); }

// How many characters a text has, counted by the leading one bits of each first byte.
std::size_t charactersOf(const std::string& text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count) {
        std::size_t ones = 0;
        while (ones < 8 && (static_cast<unsigned char>(text[at]) << ones & 0x80) != 0) ++ones;
        at += ones < 2 || ones > text.size() - at ? 1 : ones;
    }
    return count;
}

std::string randomText(std::mt19937& random) {
    static const std::vector<std::string> kPieces = {"a",  "Z", " ",    "中",   "国",   "é",
                                                     "あ", "😀", "\xE4", "\xB8", "\xFF", "\xC0\x80"};
    std::string text;
    for (auto pieces = random() % 30; pieces > 0; --pieces) {
        const auto number = random();
        text +=
            number % 4 == 0 ? std::string(1, static_cast<char>(number % 255 + 1)) : kPieces[number % kPieces.size()];
    }
    return text;
}

TEST_F(PinyinTest, AnyBytesGiveOneInitialACharacter) {
    std::mt19937 random(2);
    for (int round = 0; round < 500; ++round) {
        const std::string text = randomText(random);
        const Initials initials = initialsOf(text);
        const std::size_t characters = charactersOf(text);
        for (std::size_t i = 0; i <= text.size(); ++i) {
            const char initial = initials.get()[i];
            if (i >= characters) {
                ASSERT_EQ(initial, '\0');
            }
            ASSERT_GE(static_cast<signed char>(initial), 0) << "ASCII alone";
        }
    }
}

TEST_F(PinyinTest, AnyHitLiesInsideTheText) {
    std::mt19937 random(3);
    int hits = 0;
    for (int round = 0; round < 500; ++round) {
        const std::string text = randomText(random);
        const char key[] = {"az gZ"[random() % 5], "az gZ"[random() % 5], '\0'};
        const Match match = search(text, random() % 2 == 0 ? key : key + 1);
        if (match.result != 0) continue;
        ++hits;
        ASSERT_GE(match.bytes, 1);
        ASSERT_LE(static_cast<std::size_t>(match.start + match.bytes), text.size());
    }
    EXPECT_GT(hits, 100);
}

}  // namespace
