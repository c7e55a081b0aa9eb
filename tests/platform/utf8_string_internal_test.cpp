#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "ostrel/utf8_string.h"
#include "platform/utf8_code_point.h"

namespace {

using ::testing::ElementsAre;

// What stands behind the zero byte of a heap text: the count, then that many offsets.
template <typename Number>
std::vector<unsigned long> tableBehind(const Utf8String& text) {
    const char* start = text.c_str() + text.size() + 1;
    Number count;
    std::memcpy(&count, start, sizeof count);
    std::vector<unsigned long> numbers = {count};
    for (std::size_t i = 1; i <= count; ++i) {
        Number offset;
        std::memcpy(&offset, start + i * sizeof offset, sizeof offset);
        numbers.push_back(offset);
    }
    return numbers;
}

Utf8String sized(std::size_t size) { return ("é" + std::string(size - 5, 'x') + "中").c_str(); }

TEST(Utf8StringLayoutTest, OffsetsAreAsWideAsTheLargestOneNeeds) {
    EXPECT_EQ(ostrel::offsetWidth(32), 1U);
    EXPECT_EQ(ostrel::offsetWidth(256), 1U);
    EXPECT_EQ(ostrel::offsetWidth(257), 2U);
    EXPECT_EQ(ostrel::offsetWidth(65536), 2U);
    EXPECT_EQ(ostrel::offsetWidth(65537), 4U);
    EXPECT_EQ(ostrel::offsetWidth(4294967296), 4U);
    EXPECT_EQ(ostrel::offsetWidth(4294967297), 8U);
}

TEST(Utf8StringLayoutTest, TableNamesTheMultibyteCodePointsInOrder) {
    EXPECT_THAT(tableBehind<uint8_t>(sized(256)), ElementsAre(2, 0, 253));
    EXPECT_THAT(tableBehind<uint16_t>(sized(257)), ElementsAre(2, 0, 254));
    EXPECT_THAT(tableBehind<uint16_t>(sized(65536)), ElementsAre(2, 0, 65533));
    EXPECT_THAT(tableBehind<uint32_t>(sized(65537)), ElementsAre(2, 0, 65534));
}

TEST(Utf8StringLayoutTest, TableOfAsciiIsEmpty) {
    EXPECT_THAT(tableBehind<uint8_t>(std::string(40, 'x').c_str()), ElementsAre(0));
}

TEST(Utf8StringLayoutTest, SingleBytesAreNotInTheTable) {
    // A stray continuation byte and a lead byte that asks for more than there is are single bytes.
    EXPECT_THAT(tableBehind<uint8_t>(("\x80" + std::string(40, 'x') + "\xE4\xB8").c_str()), ElementsAre(0));
}

TEST(Utf8StringLayoutTest, ThirtyOneBytesStandInTheObject) {
    const auto isInside = [](const Utf8String& text) {
        const char* object = reinterpret_cast<const char*>(&text);
        return text.c_str() >= object && text.c_str() < object + sizeof text;
    };
    EXPECT_TRUE(isInside(Utf8String(std::string(31, 'x').c_str())));
    EXPECT_FALSE(isInside(Utf8String(std::string(32, 'x').c_str())));
}

}  // namespace
