#include "graphics/text_internal.h"

#include "support/test_device.h"

namespace {

using ostrel::alignText;
using ostrel::countPieces;
using ostrel::fontHeight;
using ostrel::sharedLinePitch;
using ostreltest::DeviceTest;

::testing::AssertionResult liesAt(SDL_Point place, int x, int y) {
    if (place.x == x && place.y == y) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "(" << place.x << ", " << place.y << "), expected (" << x << ", " << y
                                         << ")";
}

constexpr SDL_Rect kBox{10, 20, 300, 40};  // for a text of 100 x 20

TEST(AlignTextTest, Code0IsTopLeft) { EXPECT_TRUE(liesAt(alignText(kBox, 100, 20, 0), 10, 20)); }

TEST(AlignTextTest, Code1IsCentredBothWays) { EXPECT_TRUE(liesAt(alignText(kBox, 100, 20, 1), 110, 30)); }

TEST(AlignTextTest, Code3IsLeftAndCentredFromTopToBottom) { EXPECT_TRUE(liesAt(alignText(kBox, 100, 20, 3), 10, 30)); }

TEST(AlignTextTest, Code4IsRightAndCentredFromTopToBottom) {
    EXPECT_TRUE(liesAt(alignText(kBox, 100, 20, 4), 210, 30));
}

TEST(AlignTextTest, EveryOtherCodeIsTopRight) {
    for (const int code : {2, 5, 6, 100, -1, -4}) EXPECT_TRUE(liesAt(alignText(kBox, 100, 20, code), 210, 20)) << code;
}

TEST(AlignTextTest, HalfPixelsAreCutTowardsZero) {
    EXPECT_TRUE(liesAt(alignText({0, 0, 103, 43}, 100, 40, 1), 1, 1));
    EXPECT_TRUE(liesAt(alignText({0, 0, 97, 37}, 100, 40, 1), -1, -1));
}

TEST(AlignTextTest, LargeTextSticksOutOnTheLeftAndAtTheTop) {
    EXPECT_TRUE(liesAt(alignText({5, 5, 10, 10}, 100, 40, 1), -40, -10));
    EXPECT_TRUE(liesAt(alignText({5, 5, 10, 10}, 100, 40, 4), -85, -10));
}

TEST(SharedLinePitchTest, LinesWithRoomShareTheHeight) {
    EXPECT_EQ(sharedLinePitch(100, 2, 20), 50);
    EXPECT_EQ(sharedLinePitch(101, 4, 20), 25);
}

TEST(SharedLinePitchTest, LinesTooTightForTheirShareKeepAGapOfFive) {
    EXPECT_EQ(sharedLinePitch(40, 2, 20), 25);
    EXPECT_EQ(sharedLinePitch(48, 2, 20), 25);  // a gap of 4 is too little
    EXPECT_EQ(sharedLinePitch(50, 2, 20), 25);  // of 5 enough
    EXPECT_EQ(sharedLinePitch(52, 2, 20), 26);
    EXPECT_EQ(sharedLinePitch(-10, 3, 20), 25);
}

TEST(CountPiecesTest, EmptyPiecesDoNotCount) {
    EXPECT_EQ(countPieces("one", "\n"), 1);
    EXPECT_EQ(countPieces("one\ntwo", "\n"), 2);
    EXPECT_EQ(countPieces("\n\none\n\ntwo\n", "\n"), 2);
    EXPECT_EQ(countPieces("", "\n"), 0);
    EXPECT_EQ(countPieces("\n\n", "\n"), 0);
}

TEST(CountPiecesTest, EachCharacterSeparates) {
    EXPECT_EQ(countPieces("one|two\nthree", "\n|"), 3);
    EXPECT_EQ(countPieces("one two", ""), 1);
}

class FontHeightTest : public DeviceTest {
protected:
    FontHeightTest() {
        device().linkFont();
        TTF_Init();
    }
    ~FontHeightTest() override { TTF_Quit(); }

    static int heightAt(int size) {
        TTF_Font* font = TTF_OpenFont("./regular.ttf", size);
        const int height = fontHeight(font);
        TTF_CloseFont(font);
        return height;
    }
};

TEST_F(FontHeightTest, IsTheLineHeightOfTheFont) {
    EXPECT_EQ(heightAt(24), 29);
    EXPECT_EQ(heightAt(36), 43);
    EXPECT_EQ(heightAt(44), 52);
}

TEST_F(FontHeightTest, IsNothingWithoutAFont) { EXPECT_EQ(fontHeight(nullptr), 0); }

}  // namespace
