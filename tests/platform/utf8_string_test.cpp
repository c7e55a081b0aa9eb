#include "ostrel/utf8_string.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::size_t kAll = std::numeric_limits<std::size_t>::max();
const std::string kForty(40, 'x');  // pushes what stands behind it to the heap

Utf8String of(const std::string& bytes) { return {bytes.data(), bytes.size()}; }

std::string bytesOf(const Utf8String& text) { return {text.c_str(), text.size()}; }

std::vector<uint32_t> walk(const Utf8String& text) {
    std::vector<uint32_t> codePoints;
    for (const uint32_t codePoint : text) codePoints.push_back(codePoint);
    return codePoints;
}

template <typename Call>
std::string outOfRangeText(Call call) {
    try {
        call();
    } catch (const std::out_of_range& error) {
        return error.what();
    }
    return "nothing was thrown";
}

constexpr char kAtText[] = "utf8_string::(raw_)at: byte_index >= size";
constexpr char kSubstrText[] = "utf8_string::(raw_)substr: index > data_len";

TEST(Utf8StringTest, DefaultIsEmpty) {
    const Utf8String text;
    EXPECT_EQ(text.length(), 0U);
    EXPECT_EQ(text.size(), 0U);
    EXPECT_STREQ(text.c_str(), "");
}

TEST(Utf8StringTest, NullMakesTheEmptyText) {
    EXPECT_EQ(Utf8String(nullptr).size(), 0U);
    EXPECT_EQ(Utf8String(nullptr, 5).size(), 0U);
    EXPECT_STREQ(Utf8String(nullptr).c_str(), "");
}

TEST(Utf8StringTest, AsciiHasALengthOfItsBytes) {
    const Utf8String text("abc");
    EXPECT_EQ(text.length(), 3U);
    EXPECT_EQ(text.size(), 3U);
    EXPECT_STREQ(text.c_str(), "abc");
}

TEST(Utf8StringTest, TwoChineseCharactersAreTwoCodePointsInSixBytes) {
    const Utf8String text("中文");
    EXPECT_EQ(text.length(), 2U);
    EXPECT_EQ(text.size(), 6U);
}

TEST(Utf8StringTest, MixedTextIsIndexedByCodePoint) {
    const Utf8String text("a中b");
    EXPECT_EQ(text.codePointAt(0), 'a');
    EXPECT_EQ(text.codePointAt(1), 0x4E2DU);
    EXPECT_EQ(text.codePointAt(2), 'b');
    EXPECT_EQ(text.byteIndex(0), 0U);
    EXPECT_EQ(text.byteIndex(1), 1U);
    EXPECT_EQ(text.byteIndex(2), 4U);
}

TEST(Utf8StringTest, MixedTextOnTheHeapIsIndexedByCodePoint) {
    const Utf8String text((kForty + "a中bé😀").c_str());
    EXPECT_EQ(text.length(), 45U);
    EXPECT_EQ(text.size(), 51U);
    EXPECT_EQ(text.codePointAt(40), 'a');
    EXPECT_EQ(text.codePointAt(41), 0x4E2DU);
    EXPECT_EQ(text.codePointAt(42), 'b');
    EXPECT_EQ(text.codePointAt(43), 0xE9U);
    EXPECT_EQ(text.codePointAt(44), 0x1F600U);
    EXPECT_EQ(text.byteIndex(42), 44U);
    EXPECT_EQ(text.byteIndex(43), 45U);
    EXPECT_EQ(text.byteIndex(44), 47U);
}

TEST(Utf8StringTest, FortyAsciiBytesAreIndexedByByte) {
    const Utf8String text(kForty.c_str());
    EXPECT_EQ(text.length(), 40U);
    EXPECT_EQ(text.byteIndex(39), 39U);
    EXPECT_EQ(text.byteCount(3, 30), 30U);
    EXPECT_EQ(text.codePointAt(39), 'x');
}

TEST(Utf8StringTest, TextOfThirtyOneAndOfThirtyTwoBytesAreTheSameInUse) {
    for (const std::size_t ascii : {28U, 29U}) {
        const Utf8String text((std::string(ascii, 'x') + "中").c_str());
        EXPECT_EQ(text.size(), ascii + 3);
        EXPECT_EQ(text.length(), ascii + 1);
        EXPECT_EQ(text.codePointAt(ascii), 0x4E2DU);
        EXPECT_EQ(text.c_str()[text.size()], '\0');
    }
}

TEST(Utf8StringTest, ByteIndexAtAndPastTheEndIsTheSize) {
    for (const Utf8String& text : {Utf8String("a中"), Utf8String((kForty + "中").c_str())}) {
        EXPECT_EQ(text.byteIndex(text.length()), text.size());
        EXPECT_EQ(text.byteIndex(text.length() + 1), text.size());
        EXPECT_EQ(text.byteIndex(text.size() + 1), text.size());
        EXPECT_EQ(text.byteIndex(kAll), text.size());
    }
    EXPECT_EQ(Utf8String().byteIndex(3), 0U);
}

TEST(Utf8StringTest, ByteCountOfARangeCountsWholeCodePoints) {
    const std::string start = "é中";
    for (const Utf8String& text : {of(start + "a文"), of(start + "a文" + kForty)}) {
        EXPECT_EQ(text.byteCount(0, 0), 0U);
        EXPECT_EQ(text.byteCount(0, 1), 2U);
        EXPECT_EQ(text.byteCount(0, 2), 5U);
        EXPECT_EQ(text.byteCount(1, 2), 4U);
        EXPECT_EQ(text.byteCount(2, 2), 4U);
        EXPECT_EQ(text.byteCount(0, 4), 9U);
    }
}

TEST(Utf8StringTest, ByteCountIsClippedAtTheEnd) {
    for (const std::string& prefix : {std::string(), kForty}) {
        const Utf8String text = of(prefix + "é中");
        const std::size_t i = prefix.size();
        EXPECT_EQ(text.byteCount(i + 1, 2), 3U);
        EXPECT_EQ(text.byteCount(i + 1, kAll), 3U);
        EXPECT_EQ(text.byteCount(i, kAll), 5U);
        EXPECT_EQ(text.byteCount(i + 2, 1), 0U);
        EXPECT_EQ(text.byteCount(i + 3, 1), 0U);
        EXPECT_EQ(text.byteCount(kAll, kAll), 0U);
    }
}

TEST(Utf8StringTest, SubstringIsCutByCodePoints) {
    const Utf8String text("a中b文c");
    EXPECT_EQ(bytesOf(text.substr(1, 3)), "中b文");
    EXPECT_EQ(bytesOf(text.substr(0, 0)), "");
    EXPECT_EQ(bytesOf(text.substr(3, 99)), "文c");
    EXPECT_EQ(bytesOf(text.substr(3, kAll)), "文c");
}

TEST(Utf8StringTest, SubstringOfAHeapTextKnowsItsOwnCodePoints) {
    const Utf8String text = of("中" + kForty + "文" + kForty + "字").substr(1, 45);
    EXPECT_EQ(bytesOf(text), kForty + "文xxxx");
    EXPECT_EQ(text.length(), 45U);
    EXPECT_EQ(text.codePointAt(40), 0x6587U);
    EXPECT_EQ(bytesOf(text.substr(39, 3)), "x文x");
}

TEST(Utf8StringTest, SubstringAtTheEndIsEmpty) {
    EXPECT_EQ(Utf8String("a中").substr(2, 1).size(), 0U);
    EXPECT_EQ(of(kForty + "中").substr(41, kAll).size(), 0U);
    EXPECT_EQ(Utf8String().substr(0, 1).size(), 0U);
}

TEST(Utf8StringTest, SubstringPastTheEndThrows) {
    EXPECT_EQ(outOfRangeText([] { Utf8String("a中").substr(3, 0); }), kSubstrText);
    EXPECT_EQ(outOfRangeText([] { of(kForty + "中").substr(42, 1); }), kSubstrText);
    EXPECT_EQ(outOfRangeText([] { Utf8String().substr(kAll, 1); }), kSubstrText);
}

TEST(Utf8StringTest, CodePointPastTheEndThrows) {
    EXPECT_EQ(outOfRangeText([] { Utf8String("a中").codePointAt(2); }), kAtText);
    EXPECT_EQ(outOfRangeText([] { of(kForty + "中").codePointAt(41); }), kAtText);
    EXPECT_EQ(outOfRangeText([] { Utf8String().codePointAt(0); }), kAtText);
    EXPECT_EQ(outOfRangeText([] { Utf8String("a").codePointAt(kAll); }), kAtText);
}

TEST(Utf8StringTest, ByteAtReadsBytesAndThrowsPastTheEnd) {
    const Utf8String text("a中");
    EXPECT_EQ(text.byteAt(0), 'a');
    EXPECT_EQ(text.byteAt(3), '\xAD');
    EXPECT_EQ(outOfRangeText([&] { text.byteAt(4); }), kAtText);
    EXPECT_EQ(of(kForty + "z").byteAt(40), 'z');
    EXPECT_EQ(outOfRangeText([] { of(kForty).byteAt(40); }), kAtText);
    EXPECT_EQ(outOfRangeText([] { Utf8String().byteAt(0); }), kAtText);
}

TEST(Utf8StringTest, LeadByteWithTooFewBytesBehindItIsOneCodePoint) {
    for (const std::string& prefix : {std::string("ab"), kForty}) {
        const Utf8String text = of(prefix + "\xE4");
        EXPECT_EQ(text.length(), prefix.size() + 1);
        EXPECT_EQ(text.codePointAt(prefix.size()), 0xE4U);
    }
    EXPECT_THAT(walk("\xE4\xB8"), ElementsAre(0xE4U, 0xB8U));
    EXPECT_THAT(walk("\xF0\x9F\x98"), ElementsAre(0xF0U, 0x9FU, 0x98U));
}

TEST(Utf8StringTest, StrayContinuationByteIsOneCodePoint) {
    EXPECT_THAT(walk("\x80z\xBF"), ElementsAre(0x80U, static_cast<uint32_t>('z'), 0xBFU));
}

TEST(Utf8StringTest, ContinuationBytesAreNotChecked) {
    // The two bytes behind 0xE4 belong to it, whatever they are; six bits of each count.
    const Utf8String text(
        "\xE4"
        "ab"
        "c");
    EXPECT_EQ(text.length(), 2U);
    EXPECT_EQ(text.codePointAt(0), 0x4000U + 0x21U * 64 + 0x22U);
    EXPECT_EQ(text.codePointAt(1), 'c');
}

TEST(Utf8StringTest, LeadingOneBitsTellTheLength) {
    const std::string rest(40, '\xBF');
    const std::vector<std::pair<std::string, std::size_t>> leads = {
        {"\x7F", 1}, {"\xBF", 1}, {"\xC0", 2}, {"\xDF", 2}, {"\xE0", 3}, {"\xEF", 3}, {"\xF0", 4},
        {"\xF7", 4}, {"\xF8", 5}, {"\xFB", 5}, {"\xFC", 6}, {"\xFD", 6}, {"\xFE", 7}, {"\xFF", 8}};
    for (const auto& [lead, length] : leads) {
        EXPECT_EQ(of(lead + rest).byteIndex(1), length) << "on the heap, 0x" << std::hex << int{lead[0] & 0xFF};
        EXPECT_EQ(of(lead + rest.substr(0, 10)).byteIndex(1), length)
            << "inline, 0x" << std::hex << int{lead[0] & 0xFF};
    }
}

TEST(Utf8StringTest, LongFormsAreDecodedAndKeptToThirtyTwoBits) {
    EXPECT_EQ(Utf8String("\xC3\xA9").codePointAt(0), 0xE9U);
    EXPECT_EQ(Utf8String("\xF0\x9F\x98\x80").codePointAt(0), 0x1F600U);
    EXPECT_EQ(Utf8String("\xFB\xBF\xBF\xBF\xBF").codePointAt(0), 0x3FFFFFFU);
    EXPECT_EQ(Utf8String("\xFD\xBF\xBF\xBF\xBF\xBF").codePointAt(0), 0x7FFFFFFFU);
    EXPECT_EQ(Utf8String("\xFE\x83\xBF\xBF\xBF\xBF\xBF").codePointAt(0), 0xFFFFFFFFU);
    EXPECT_EQ(Utf8String("\xFE\xBF\x80\x80\x80\x80\x81").codePointAt(0), 0xC0000001U);
    EXPECT_EQ(Utf8String("\xFF\xBF\xBF\x80\x80\x80\x80\x85").codePointAt(0), 0xC0000005U);
}

TEST(Utf8StringTest, ZeroByteIsACodePoint) {
    const Utf8String text = of(std::string("a\0b", 3));
    EXPECT_EQ(text.length(), 3U);
    EXPECT_EQ(text.codePointAt(1), 0U);
    EXPECT_EQ(of(kForty + std::string("\0中", 4)).codePointAt(41), 0x4E2DU);
}

TEST(Utf8StringTest, CopyIsEqualAndIndependent) {
    for (const std::string& bytes : {std::string("a中"), kForty + "中z"}) {
        Utf8String original = of(bytes);
        const Utf8String copy = original;  // NOLINT(performance-unnecessary-copy-initialization): the copy is tested
        original = Utf8String("other");
        EXPECT_EQ(bytesOf(copy), bytes);
        EXPECT_EQ(bytesOf(original), "other");
        EXPECT_EQ(copy.codePointAt(copy.length() - 1), bytes == "a中" ? 0x4E2DU : 'z');
    }
}

TEST(Utf8StringTest, MovedFromTextIsEmpty) {
    for (const std::string& bytes : {std::string("a中"), kForty + "中"}) {
        Utf8String original = of(bytes);
        Utf8String taken = std::move(original);
        EXPECT_EQ(original.size(), 0U);  // NOLINT(bugprone-use-after-move): the state after a move is tested
        EXPECT_STREQ(original.c_str(), "");
        EXPECT_EQ(bytesOf(taken), bytes);
        Utf8String assigned = of(kForty);
        assigned = std::move(taken);
        EXPECT_EQ(taken.size(), 0U);  // NOLINT(bugprone-use-after-move): the state after a move is tested
        EXPECT_EQ(bytesOf(assigned), bytes);
        EXPECT_EQ(assigned.length(), bytes == "a中" ? 2U : 41U);
    }
}

TEST(Utf8StringTest, EveryFormIsAssignedToEveryForm) {
    const std::vector<std::string> contents = {"", "short", kForty, kForty + "中文"};
    for (const std::string& before : contents) {
        for (const std::string& after : contents) {
            Utf8String text = of(before);
            const Utf8String source = of(after);
            text = source;
            EXPECT_EQ(bytesOf(text), after);
            EXPECT_EQ(bytesOf(source), after);
        }
    }
}

TEST(Utf8StringTest, AssigningATextToItselfKeepsIt) {
    for (const std::string& bytes : {std::string("a中"), kForty + "中"}) {
        Utf8String text = of(bytes);
        Utf8String& same = text;
        text = same;
        EXPECT_EQ(bytesOf(text), bytes);
        text = std::move(same);
        EXPECT_EQ(bytesOf(text), bytes);
    }
}

TEST(Utf8StringTest, MovesNeverThrow) {
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<Utf8String>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<Utf8String>);
}

TEST(Utf8StringTest, WalkVisitsEveryCodePoint) {
    EXPECT_THAT(walk("a中é😀"), ElementsAre(static_cast<uint32_t>('a'), 0x4E2DU, 0xE9U, 0x1F600U));
    EXPECT_THAT(walk(""), IsEmpty());
}

TEST(Utf8StringTest, WalkKnowsWhereItStands) {
    const Utf8String text("a中b");
    std::vector<std::ptrdiff_t> offsets;
    for (auto at = text.begin(); at != text.end(); ++at) offsets.push_back(at.position() - text.c_str());
    EXPECT_THAT(offsets, ElementsAre(0, 1, 4));
}

TEST(Utf8StringTest, OffsetTablesOfEveryWidthAnswerAlike) {
    // 1, 2 and 4 bytes an entry: texts below, at and above 256 and 65536 bytes, with a character at the far end.
    for (const std::size_t size : {255U, 256U, 257U, 65535U, 65536U, 65537U, 70000U}) {
        const Utf8String text = of("é" + std::string(size - 5, 'x') + "中");
        EXPECT_EQ(text.size(), size);
        EXPECT_EQ(text.length(), size - 3);
        EXPECT_EQ(text.codePointAt(0), 0xE9U);
        EXPECT_EQ(text.codePointAt(size - 4), 0x4E2DU) << size;
        EXPECT_EQ(text.byteIndex(size - 4), size - 3) << size;
        EXPECT_EQ(text.byteCount(size - 5, 2), 4U) << size;
    }
}

// The rules once more, as plainly as possible: the bytes of each code point of a text.
std::vector<std::string> splitPlainly(const std::string& bytes) {
    std::vector<std::string> parts;
    for (std::size_t at = 0; at < bytes.size();) {
        std::size_t ones = 0;
        for (int bit = 7; bit >= 0 && (static_cast<unsigned char>(bytes[at]) >> bit & 1) != 0; --bit) ++ones;
        if (ones < 2 || ones > bytes.size() - at) ones = 1;
        parts.push_back(bytes.substr(at, ones));
        at += ones;
    }
    return parts;
}

std::string randomBytes(std::mt19937& random, std::size_t size) {
    static const std::string kLikely = std::string("a z\0", 4) + "\x80\xBF\xC3\xE4\xE4\xF0\xF8\xFE\xFF";
    std::string bytes(size, ' ');
    for (char& byte : bytes) {
        const auto number = random();
        byte = (number & 0x100U) != 0 ? kLikely[number % kLikely.size()] : static_cast<char>(number & 0xFFU);
    }
    return bytes;
}

TEST(Utf8StringTest, RandomBytesFollowTheRulesInEveryForm) {
    std::mt19937 random(1);
    for (int round = 0; round < 400; ++round) {
        const std::string bytes = randomBytes(random, random() % (round % 8 == 0 ? 600 : 70));
        const std::vector<std::string> parts = splitPlainly(bytes);
        const Utf8String text = of(bytes);
        ASSERT_EQ(text.length(), parts.size());
        ASSERT_EQ(bytesOf(text), bytes);
        std::size_t offset = 0;
        auto at = text.begin();
        for (std::size_t i = 0; i < parts.size(); ++i, ++at) {
            ASSERT_EQ(text.byteIndex(i), offset);
            ASSERT_EQ(at.position() - text.c_str(), static_cast<std::ptrdiff_t>(offset));
            ASSERT_EQ(text.codePointAt(i), *at);
            offset += parts[i].size();
        }
        ASSERT_TRUE(at == text.end());
        const std::size_t i = random() % (parts.size() + 1);
        const std::size_t n = random() % 20;
        std::string expected;
        for (std::size_t k = i; k < parts.size() && k < i + n; ++k) expected += parts[k];
        ASSERT_EQ(text.byteCount(i, n), expected.size());
        ASSERT_EQ(bytesOf(text.substr(i, n)), expected);
    }
}

}  // namespace
