#include "ostrel/text.h"

#include <climits>
#include <cstdio>
#include <memory>

#include "ostrel/screen.h"
#include "ostrel/surface.h"
#include "support/log_capture.h"
#include "support/screen_test.h"
#include "support/sdl_spy.h"

namespace {

using ostreltest::Canvas;
using ostreltest::Colour;
using ostreltest::kBlack;
using ostreltest::kBlue;
using ostreltest::kRed;
using ostreltest::kWhite;
using ostreltest::LogCapture;
using ostreltest::matchesReference;
using ostreltest::Picture;
using ostreltest::picturesMatch;
using ostreltest::ScreenTest;
using ostreltest::SdlSpy;

constexpr const char* kNoWidth = "\u200B";  // a character that SDL_ttf refuses to render

::testing::AssertionResult covers(const SDL_Rect& r, int x, int y, int w, int h) {
    if (r.x == x && r.y == y && r.w == w && r.h == h) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << r.x << ", " << r.y << ", " << r.w << " x " << r.h;
}

class TextTest : public ScreenTest {
protected:
    TextTest() {
        device().linkFont();
        TTF_Init();
        mSmall = TTF_OpenFont("./regular.ttf", 24);
        mFont = TTF_OpenFont("./regular.ttf", 36);
    }
    ~TextTest() override {
        gTextSurfaceCache.clear();
        TTF_CloseFont(mFont);
        TTF_CloseFont(mSmall);
        TTF_Quit();
    }

    // The key under which a text is kept, written out from its parts.
    std::string key(const std::string& text, const std::string& colourAndShadow) const {
        char font[32];
        std::snprintf(font, sizeof font, "%p", static_cast<void*>(mFont));
        return text + "_" + font + "_" + colourAndShadow;
    }

    // Puts a plain rectangle where the picture of a white text is looked for.
    void pretend(const std::string& text, int width, int height, Colour colour, int shadow = 0) {
        gTextSurfaceCache.put(key(text, "FF_FF_FF_FF_shadow" + std::to_string(shadow)),
                              ostreltest::plainSurface(width, height, colour).release());
    }

    // What a draw of a pretended text covers on a canvas of 400 x 200.
    SDL_Rect drawn(SDL_Rect rect, int align, bool shadow = false, bool measureOnly = false) {
        const Canvas canvas(400, 200);
        DrawString(mFont, rect, "probe", kWhite, align, shadow, measureOnly);
        return canvas.picture().boundsOfAllBut(kBlack);
    }

    Picture pictureOf(const char* text, SDL_Color colour) {
        const Canvas canvas(200, 60);
        DrawString(mFont, {0, 0, 200, 60}, text, colour, 1, false, false);
        return canvas.picture();
    }

    std::size_t rendered() const { return mSpy.renderedTexts.size(); }

    TTF_Font* mSmall;
    TTF_Font* mFont;
    SdlSpy mSpy;
};

// ---- one line

TEST_F(TextTest, ReturnsTheWidthOfTheText) {
    EXPECT_EQ(DrawString(mFont, {0, 0, 10, 10}, "Play now", kWhite, 0, false, false), 145);
    EXPECT_EQ(DrawString(mSmall, {0, 0, 10, 10}, "Play now", kWhite, 0, false, false), 97);
    EXPECT_EQ(DrawString(mFont, {0, 0, 10, 10}, "开始游戏", kWhite, 0, false, false), 144);
}

TEST_F(TextTest, AlignsThePictureOfTheTextInTheRectangle) {
    pretend("probe", 100, 20, kRed);
    EXPECT_TRUE(covers(drawn({0, 0, 300, 40}, 0), 0, 0, 100, 20));
    EXPECT_TRUE(covers(drawn({0, 0, 300, 40}, 1), 100, 10, 100, 20));
    EXPECT_TRUE(covers(drawn({0, 0, 300, 40}, 2), 200, 0, 100, 20));
    EXPECT_TRUE(covers(drawn({0, 0, 300, 40}, 3), 0, 10, 100, 20));
    EXPECT_TRUE(covers(drawn({0, 0, 300, 40}, 4), 200, 10, 100, 20));
    EXPECT_TRUE(covers(drawn({0, 0, 300, 40}, -1), 200, 0, 100, 20));
}

TEST_F(TextTest, TextIsNeverScaledIntoItsRectangle) {
    pretend("probe", 100, 20, kRed);
    EXPECT_TRUE(covers(drawn({150, 100, 10, 10}, 1), 105, 95, 100, 20));
}

TEST_F(TextTest, ShadowLiesOneRightAndTwoDownBelowTheText) {
    pretend("probe", 100, 20, kRed, 0);
    pretend("probe", 100, 20, kBlue, 1);
    const Canvas canvas(400, 200);
    DrawString(mFont, {10, 10, 300, 40}, "probe", kWhite, 0, true, false);
    const Picture picture = canvas.picture();
    EXPECT_TRUE(covers(picture.boundsOfAllBut(kBlack), 10, 10, 101, 22));
    EXPECT_EQ(picture.count(kRed), 100 * 20);
    EXPECT_EQ(picture.at(110, 12), kBlue);
    EXPECT_EQ(picture.at(11, 31), kBlue);
    EXPECT_EQ(picture.at(10, 31), kBlack);
    EXPECT_EQ(picture.at(110, 11), kBlack);
}

TEST_F(TextTest, ShadowIsPlacedByTheTextsOwnSize) {
    pretend("probe", 100, 20, kRed, 0);
    pretend("probe", 50, 10, kBlue, 1);
    EXPECT_TRUE(covers(drawn({0, 0, 300, 40}, 4, true, true), 201, 12, 50, 10));
}

TEST_F(TextTest, MeasuringDrawsNothing) {
    pretend("probe", 100, 20, kRed);
    EXPECT_TRUE(covers(drawn({0, 0, 300, 40}, 0, false, true), 0, 0, 0, 0));
    EXPECT_EQ(DrawString(mFont, {0, 0, 300, 40}, "probe", kWhite, 0, false, true), 100);
}

TEST_F(TextTest, MeasuringDrawsTheShadow) {
    pretend("probe", 100, 20, kRed, 0);
    pretend("probe", 100, 20, kBlue, 1);
    const Canvas canvas(400, 200);
    EXPECT_EQ(DrawString(mFont, {10, 10, 300, 40}, "probe", kWhite, 0, true, true), 100);
    EXPECT_EQ(canvas.picture().count(kBlue), 100 * 20);
    EXPECT_EQ(canvas.picture().count(kRed), 0);
}

TEST_F(TextTest, DrawsIntoTheWindowWithoutATarget) {
    pretend("probe", 100, 20, kRed);
    DrawString(mFont, {0, 0, 1280, 720}, "probe", kWhite, 1, false, false);
    EXPECT_EQ(Picture::ofWindow().at(590, 350), kRed);
    EXPECT_EQ(Picture::ofWindow().at(589, 350), kBlack);
}

TEST_F(TextTest, AlphaZeroDrawsOpaque) {
    EXPECT_TRUE(picturesMatch(pictureOf("Gg中", {54, 255, 160, 0}), pictureOf("Gg中", {54, 255, 160, 255})));
    EXPECT_GT(pictureOf("Gg中", {54, 255, 160, 0}).count({54, 255, 160, 255}), 100);
}

TEST_F(TextTest, ShadowHasTheColourOfItsText) {
    const Canvas canvas(200, 60);
    DrawString(mFont, {0, 0, 200, 60}, "|", {54, 255, 160, 0}, 1, true, true);
    EXPECT_GT(canvas.picture().count({54, 255, 160, 255}), 10);
}

// ---- what cannot be drawn

TEST_F(TextTest, NothingIsDrawnWithoutFontOrText) {
    LogCapture output;
    LogCapture error(LogCapture::Stream::Error);
    EXPECT_EQ(DrawString(nullptr, {0, 0, 9, 9}, "text", kWhite, 0, true, false), 0);
    EXPECT_EQ(DrawString(mFont, {0, 0, 9, 9}, nullptr, kWhite, 0, true, false), 0);
    EXPECT_EQ(DrawString(mFont, {0, 0, 9, 9}, "", kWhite, 0, true, false), 0);
    EXPECT_EQ(output.text() + error.text(), "");
}

TEST_F(TextTest, InvalidBytesAreDrawnAsUnknownCharacters) {
    EXPECT_EQ(DrawString(mFont, {0, 0, 9, 9}, "\xFF\xFE", kWhite, 0, false, false), 72);
    EXPECT_EQ(DrawString(mFont, {0, 0, 9, 9}, "\xE4", kWhite, 0, false, false), 36);
}

TEST_F(TextTest, NothingIsDrawnWithoutAScreen) {
    ASSERT_EQ(DrawString(mFont, {0, 0, 9, 9}, "text", kWhite, 0, false, false), 61);
    ScreenUninit();
    EXPECT_EQ(DrawString(mFont, {0, 0, 9, 9}, "text", kWhite, 0, true, false), 0);
    EXPECT_EQ(rendered(), 1U);
}

TEST_F(TextTest, TheNextScreenDrawsTheSameTextAgain) {
    DrawString(mFont, {0, 0, 9, 9}, "text", kWhite, 0, false, false);
    ScreenUninit();
    DrawString(mFont, {0, 0, 9, 9}, "text", kWhite, 0, false, false);
    ScreenInit(640, 480, 32, 0);
    const Canvas canvas(200, 60);
    EXPECT_EQ(DrawString(mFont, {0, 0, 200, 60}, "text", kWhite, 0, false, false), 61);
    EXPECT_GT(canvas.picture().count({255, 255, 255, 255}), 50);
}

TEST_F(TextTest, AFailedTextureDrawsNothingAndIsTriedAgain) {
    mSpy.failTexturesFromSurfaces = true;
    EXPECT_EQ(DrawString(mFont, {0, 0, 9, 9}, "OK", kWhite, 0, false, false), 0);
    mSpy.failTexturesFromSurfaces = false;
    EXPECT_EQ(DrawString(mFont, {0, 0, 9, 9}, "OK", kWhite, 0, false, false), 47);
    EXPECT_EQ(rendered(), 2U);
}

TEST_F(TextTest, AFailedShadowLeavesTheText) {
    pretend("probe", 100, 20, kRed);
    mSpy.failTexturesFromSurfaces = true;
    EXPECT_TRUE(covers(drawn({0, 0, 300, 40}, 0, true), 0, 0, 100, 20));
}

// ---- the cache

TEST_F(TextTest, WarmDrawsRenderNothingAndOpenNothing) {
    DrawString(mFont, {0, 0, 9, 9}, "OK", kWhite, 0, true, false);
    EXPECT_EQ(rendered(), 2U);
    for (int i = 0; i < 10; ++i) DrawString(mFont, {0, i, 9, 9}, "OK", kWhite, i, true, i % 2 == 0);
    EXPECT_EQ(rendered(), 2U);
    EXPECT_EQ(mSpy.fonts.size(), 2U);  // the test's own
}

TEST_F(TextTest, TextAndShadowAreTwoEntries) {
    DrawString(mFont, {0, 0, 9, 9}, "OK", {1, 171, 0, 15}, 0, true, false);
    const void* text = gTextSurfaceCache.get(key("OK", "01_AB_00_0F_shadow0"));
    const void* shadow = gTextSurfaceCache.get(key("OK", "01_AB_00_0F_shadow1"));
    EXPECT_NE(text, nullptr);
    EXPECT_NE(shadow, nullptr);
    EXPECT_NE(text, shadow);
}

TEST_F(TextTest, NoShadowMakesNoEntryForIt) {
    DrawString(mFont, {0, 0, 9, 9}, "OK", kWhite, 0, false, false);
    EXPECT_NE(gTextSurfaceCache.get(key("OK", "FF_FF_FF_FF_shadow0")), nullptr);
    EXPECT_EQ(gTextSurfaceCache.get(key("OK", "FF_FF_FF_FF_shadow1")), nullptr);
}

TEST_F(TextTest, AnotherColourOrFontIsAnotherEntry) {
    DrawString(mFont, {0, 0, 9, 9}, "OK", kWhite, 0, false, false);
    DrawString(mFont, {0, 0, 9, 9}, "OK", {255, 255, 255, 254}, 0, false, false);
    DrawString(mSmall, {0, 0, 9, 9}, "OK", kWhite, 0, false, false);
    EXPECT_EQ(rendered(), 3U);
    EXPECT_EQ(DrawString(mFont, {0, 0, 9, 9}, "OK", kWhite, 0, false, false), 47);
    EXPECT_EQ(DrawString(mSmall, {0, 0, 9, 9}, "OK", kWhite, 0, false, false), 31);
    EXPECT_EQ(rendered(), 3U);
}

TEST_F(TextTest, ALongKeyIsCutAfter2047Bytes) {
    const std::string text(3000, 'i');
    EXPECT_EQ(DrawString(mFont, {0, 0, 9, 9}, text.c_str(), kWhite, 0, true, false), 27000);
    EXPECT_NE(gTextSurfaceCache.get(std::string(2047, 'i')), nullptr);
    EXPECT_EQ(rendered(), 1U);  // its shadow has the same key
}

TEST_F(TextTest, TextsThatDifferAfter2047BytesShareTheirPicture) {
    const std::string head(2047, 'i');
    DrawString(mFont, {0, 0, 9, 9}, (head + "first").c_str(), kWhite, 0, false, false);
    const int second = DrawString(mSmall, {0, 0, 9, 9}, (head + "second text").c_str(), kWhite, 0, false, false);
    EXPECT_EQ(second, DrawString(mFont, {0, 0, 9, 9}, (head + "first").c_str(), kWhite, 0, false, false));
    EXPECT_EQ(rendered(), 1U);
}

TEST_F(TextTest, TheCacheHoldsAHundredAndOneTexts) {
    for (int i = 0; i < 101; ++i) DrawString(mSmall, {0, 0, 9, 9}, std::to_string(i).c_str(), kWhite, 0, false, true);
    DrawString(mSmall, {0, 0, 9, 9}, "0", kWhite, 0, false, true);  // still there, and now the newest
    EXPECT_EQ(rendered(), 101U);
    DrawString(mSmall, {0, 0, 9, 9}, "new", kWhite, 0, false, true);  // pushes out the oldest, which is 1
    DrawString(mSmall, {0, 0, 9, 9}, "0", kWhite, 0, false, true);
    EXPECT_EQ(rendered(), 102U);
    DrawString(mSmall, {0, 0, 9, 9}, "1", kWhite, 0, false, true);
    EXPECT_EQ(rendered(), 103U);
}

TEST_F(TextTest, TextsThatDoNotRenderAreNotKept) {
    pretend("probe", 1, 1, kRed);
    const std::size_t before = rendered();
    for (int i = 0; i < 150; ++i) DrawString(mFont, {0, 0, 9, 9}, kNoWidth, kWhite, 0, false, false);
    EXPECT_EQ(rendered(), before + 150);
    EXPECT_NE(gTextSurfaceCache.get(key("probe", "FF_FF_FF_FF_shadow0")), nullptr);
}

TEST_F(TextTest, RectanglesBeyondAllBoundsAreSurvived) {
    for (const int extreme : {INT_MIN, INT_MAX}) {
        for (int align = 0; align <= 4; ++align) {
            DrawString(mFont, {0, 0, extreme, extreme}, "OK", kWhite, align, true, false);
            DrawString(mFont, {extreme, extreme, 9, 9}, "OK", kWhite, align, true, false);
            DrawString(mFont, {extreme, extreme, extreme, extreme}, "OK", kWhite, align, true, false);
        }
        SDL_Color colour = kWhite;
        SDL_Rect rect{extreme, extreme, extreme, extreme};
        EXPECT_EQ(DrawStringLines(mFont, rect, "one\ntwo\nthree", "\n", colour, 0, true), 0);
        EXPECT_EQ(DrawStringLinesSpacing(mFont, rect, "one\ntwo\nthree", "\n", extreme, colour, 0, true), 0);
    }
}

TEST_F(TextTest, SdlIsNotAskedToRenderAnEmptyText) {
    for (int i = 0; i < 3; ++i) EXPECT_EQ(DrawString(mFont, {0, 0, 9, 9}, "", kWhite, 0, true, false), 0);
    EXPECT_EQ(rendered(), 0U);
}

TEST_F(TextTest, FailedTexturesTakeUpPlacesInTheCache) {
    pretend("probe", 1, 1, kRed);
    mSpy.failTexturesFromSurfaces = true;
    for (int i = 0; i < 101; ++i) DrawString(mFont, {0, 0, 9, 9}, "OK", kWhite, 0, false, false);
    EXPECT_EQ(gTextSurfaceCache.get(key("probe", "FF_FF_FF_FF_shadow0")), nullptr);
}

// ---- several lines

class TextLinesTest : public TextTest {
protected:
    TextLinesTest() {
        pretend("one", 100, 20, kRed);
        pretend("two", 60, 20, kRed);
    }

    // Rows of the canvas, 400 x 400, where the lines of red begin.
    std::vector<SDL_Rect> lines(const Picture& picture) {
        std::vector<SDL_Rect> result;
        for (int y = 0; y < picture.height(); ++y) {
            int left = 0;
            int right = 0;
            for (int x = picture.width() - 1; x >= 0; --x) {
                if (picture.at(x, y) != kRed) continue;
                if (right == 0) right = x + 1;
                left = x;
            }
            if (right == 0) continue;
            if (!result.empty() && result.back().y + result.back().h == y) {
                ++result.back().h;
            } else {
                result.push_back({left, y, right - left, 1});
            }
        }
        return result;
    }
    std::vector<SDL_Rect> drawLines(SDL_Rect rect, const char* text, const char* delim, int align) {
        const Canvas canvas(400, 400);
        SDL_Color colour = kWhite;
        EXPECT_EQ(DrawStringLines(mFont, rect, text, delim, colour, align, false), 0);
        return lines(canvas.picture());
    }
    std::vector<SDL_Rect> drawSpaced(SDL_Rect rect, const char* text, int spacing, int align) {
        const Canvas canvas(400, 400);
        SDL_Color colour = kWhite;
        EXPECT_EQ(DrawStringLinesSpacing(mFont, rect, text, "\n", spacing, colour, align, false), 0);
        return lines(canvas.picture());
    }
};

TEST_F(TextLinesTest, LinesShareTheHeight) {
    const auto found = drawLines({10, 20, 300, 200}, "one\ntwo", "\n", 1);  // 100 each
    ASSERT_EQ(found.size(), 2U);
    EXPECT_TRUE(covers(found[0], 110, 60, 100, 20));
    EXPECT_TRUE(covers(found[1], 130, 160, 60, 20));
}

TEST_F(TextLinesTest, TightLinesStandFivePixelsApart) {
    const auto found = drawLines({10, 20, 300, 94}, "one\ntwo", "\n", 0);  // 47 each is no room for 43 and 4
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].y, 20);
    EXPECT_EQ(found[1].y, 68);
}

TEST_F(TextLinesTest, TightLinesAreCentredInTheirPitch) {
    const auto found = drawLines({0, 100, 300, 10}, "one\ntwo", "\n", 3);  // 48 each: 14 above a text of 20
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].y, 114);
    EXPECT_EQ(found[1].y, 162);
}

TEST_F(TextLinesTest, EmptyPiecesVanish) {
    const auto found = drawLines({0, 0, 300, 200}, "\n\none\n\n\ntwo\n", "\n", 0);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[1].y, 100);
}

TEST_F(TextLinesTest, EveryDelimiterSeparates) {
    EXPECT_EQ(drawLines({0, 0, 300, 300}, "one|two;one", ";|", 0).size(), 3U);
    EXPECT_EQ(drawLines({0, 0, 300, 300}, "one", "", 0).size(), 1U);
}

TEST_F(TextLinesTest, NothingToDrawIsNoLine) {
    EXPECT_EQ(drawLines({0, 0, 300, 200}, "", "\n", 0).size(), 0U);
    EXPECT_EQ(drawLines({0, 0, 300, 200}, "\n\n", "\n", 0).size(), 0U);
    EXPECT_EQ(drawLines({0, 0, 300, 200}, nullptr, "\n", 0).size(), 0U);
    EXPECT_EQ(drawLines({0, 0, 300, 200}, "one", nullptr, 0).size(), 0U);
    EXPECT_EQ(drawSpaced({0, 0, 300, 200}, nullptr, 1, 0).size(), 0U);
    EXPECT_EQ(drawSpaced({0, 0, 300, 200}, "\n", 1, 0).size(), 0U);
}

TEST_F(TextLinesTest, AFailedLineLeavesItsPlaceEmpty) {
    const auto found = drawLines({0, 0, 300, 300}, (std::string("one\n") + kNoWidth + "\ntwo").c_str(), "\n", 0);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[1].y, 200);
}

TEST_F(TextLinesTest, WithoutAFontNothingIsDrawn) {
    const Canvas canvas(400, 400);
    SDL_Rect rect{0, 0, 400, 400};
    SDL_Color colour = kWhite;
    EXPECT_EQ(DrawStringLines(nullptr, rect, "one\ntwo", "\n", colour, 0, true), 0);
    EXPECT_EQ(DrawStringLinesSpacing(nullptr, rect, "one\ntwo", "\n", 2, colour, 0, true), 0);
    EXPECT_EQ(canvas.picture().count(kBlack), 400 * 400);
}

TEST_F(TextLinesTest, LinesHaveShadowsWhenAsked) {
    pretend("one", 100, 20, kBlue, 1);
    const Canvas canvas(400, 400);
    SDL_Rect rect{0, 0, 400, 400};
    SDL_Color colour = kWhite;
    DrawStringLines(mFont, rect, "one", "\n", colour, 0, true);
    EXPECT_EQ(canvas.picture().at(100, 5), kBlue);
    DrawStringLinesSpacing(mFont, rect, "two\none", "\n", 57, colour, 0, true);
    EXPECT_EQ(canvas.picture().at(100, 105), kBlue);
}

TEST_F(TextLinesTest, RectangleAndTextStayAsTheyWere) {
    SDL_Rect rect{10, 20, 300, 94};
    SDL_Color colour = kWhite;
    const std::string text = "one\ntwo";
    DrawStringLines(mFont, rect, text.c_str(), "\n", colour, 0, false);
    DrawStringLinesSpacing(mFont, rect, text.c_str(), "\n", 3, colour, 0, false);
    EXPECT_TRUE(covers(rect, 10, 20, 300, 94));
    EXPECT_EQ(text, "one\ntwo");
}

TEST_F(TextLinesTest, FixedSpacingTakesNoNoticeOfTheHeight) {
    const auto found = drawSpaced({10, 20, 300, 9}, "one\ntwo", 17, 4);  // 43 and 17
    ASSERT_EQ(found.size(), 2U);
    EXPECT_TRUE(covers(found[0], 210, 40, 100, 20));
    EXPECT_TRUE(covers(found[1], 250, 100, 60, 20));
}

TEST_F(TextLinesTest, NegativeSpacingDrawsLinesCloser) {
    const auto found = drawSpaced({0, 0, 300, 300}, "one\ntwo", -13, 0);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[1].y, 30);
}

// ---- where to cut

class TruncateTest : public TextTest {};

TEST_F(TruncateTest, ATextThatFitsGivesZero) {
    EXPECT_EQ(getTruncateLen(mFont, "OK", 0, 300), 0);
    EXPECT_EQ(getTruncateLen(mFont, "", 0, 300), 0);
    EXPECT_EQ(getTruncateLen(mFont, nullptr, 0, 300), 0);
}

TEST_F(TruncateTest, ChineseCountsItsAdvance) {
    // 120 wide leaves 90; characters of 24: the fourth reaches it.
    EXPECT_EQ(getTruncateLen(mSmall, "中中中中中", 0, 120), 4);
    EXPECT_EQ(getTruncateLen(mSmall, "中中中中", 0, 120), 0);  // the last one may reach the limit
    EXPECT_EQ(getTruncateLen(mSmall, "中中中", 0, 120), 0);
}

TEST_F(TruncateTest, ReachingTheLimitExactlyIsEnough) {
    EXPECT_EQ(getTruncateLen(mSmall, "中中中中中", 0, 100), 3);  // 72 of 72
    EXPECT_EQ(getTruncateLen(mSmall, "中中中中中", 0, 102), 4);  // 72 of 73
}

TEST_F(TruncateTest, TheLimitIsAWholeNumber) {
    EXPECT_EQ(getTruncateLen(mSmall, "中中中中中", 0, 101), 3);  // nine tenths of 81 are 72.9
}

TEST_F(TruncateTest, NarrowCharactersCountABitMore) {
    // 'a' is 13 and 1.7: three are 44.1, four 58.8, five 73.5.
    EXPECT_EQ(getTruncateLen(mSmall, "aaaaaaaa", 0, 69), 3);  // 44
    EXPECT_EQ(getTruncateLen(mSmall, "aaaaaaaa", 0, 70), 4);  // 45
    EXPECT_EQ(getTruncateLen(mSmall, "aaaaaaaa", 0, 100), 5);
}

TEST_F(TruncateTest, NarrowEndsWithU0080) {
    // Without a font only the extra counts: a limit of 1 is reached by the first that has it.
    EXPECT_EQ(getTruncateLen(nullptr, "\u0080\u0080\u0080", 0, 22), 1);
    EXPECT_EQ(getTruncateLen(nullptr, "\u0081\u0081\u0081", 0, 22), 0);
}

TEST_F(TruncateTest, WithoutAFontNoAdvanceCounts) {
    EXPECT_EQ(getTruncateLen(nullptr, "aaaaaaaaaaaaaaaa", 0, 40), 11);  // 18.7 of 18
    EXPECT_EQ(getTruncateLen(nullptr, "中中中中中中中中中中中中", 0, 40), 0);
}

TEST_F(TruncateTest, SumsInSinglePrecision) {
    const std::string text(100, 'a');
    // Ten times 1.7 are 17 in single precision, a little less in double; fifty times are a little less than 85.
    EXPECT_EQ(getTruncateLen(nullptr, text.c_str(), 0, 39), 10);
    EXPECT_EQ(getTruncateLen(nullptr, text.c_str(), 0, 115), 51);
}

TEST_F(TruncateTest, WidthsUpToTwentyFitEverything) {
    for (const int width : {20, 19, 0, -100, INT_MIN}) {
        EXPECT_EQ(getTruncateLen(mSmall, "aaaaaaaa", 0, width), 0) << width;
    }
    EXPECT_EQ(getTruncateLen(mSmall, "aaaaaaaa", 0, 21), 0);  // nine tenths of 1 are 0
    EXPECT_EQ(getTruncateLen(mSmall, "aaaaaaaa", 0, 22), 1);
    EXPECT_EQ(getTruncateLen(mSmall, "aaaaaaaa", 0, INT_MAX), 0);
}

TEST_F(TruncateTest, TheThirdArgumentIsNotUsed) {
    EXPECT_EQ(getTruncateLen(mSmall, "中中中中中", 99, 120), 4);
    EXPECT_EQ(getTruncateLen(mSmall, "中中中中中", -1, 120), 4);
}

TEST_F(TruncateTest, GlyphsAreLookedUpByTheirLow16Bits) {
    // U+10041 is measured as 'A', 15 wide, and counts no extra: six of them make 90, 'A' itself needs 5.4 of 16.7.
    const std::string high = "\U00010041\U00010041\U00010041\U00010041\U00010041\U00010041\U00010041";
    EXPECT_EQ(getTruncateLen(mSmall, high.c_str(), 0, 120), 6);
    EXPECT_EQ(getTruncateLen(mSmall, "AAAAAAAAAA", 0, 120), 6);  // 83.5 after five, 100.2 after six
    EXPECT_EQ(getTruncateLen(mSmall, high.c_str(), 0, 111), 6);  // 81: 75 after five
    EXPECT_EQ(getTruncateLen(mSmall, "AAAAAAAAAA", 0, 111), 5);  // 81: 83.5 after five
}

TEST_F(TruncateTest, StrayBytesCountAsTheirOwnValue) {
    // 0xFF claims eight bytes that are not there, 0xE4 three: both are measured as the letters U+00FF and U+00E4.
    EXPECT_EQ(getTruncateLen(mSmall, "\xFF\xFF\xFF", 0, 34), 1);   // 12 of 12
    EXPECT_EQ(getTruncateLen(mSmall, "\xFF\xFF\xFF", 0, 35), 2);   // 12 of 13
    EXPECT_EQ(getTruncateLen(mSmall, "\xBF\xE4\xE4", 0, 500), 0);  // a byte that only continues stands alone
}

// ---- whole pictures, on a dark ground with the rectangles shown

class TextPictureTest : public TextTest {
protected:
    TextPictureTest() : mCanvas(640, 360, {24, 28, 36, 255}) {}

    SDL_Rect box(int x, int y, int w, int h) {
        SDL_Rect rect{x, y, w, h};
        FillRect(mCanvas.surface(), &rect, 48, 56, 72, 255);
        return rect;
    }
    // One box for each alignment code, in two columns.
    void drawAlignments(const char* text, bool shadow, bool measureOnly) {
        const int codes[] = {0, 1, 2, 3, 4, 5};
        for (const int code : codes) {
            const SDL_Rect rect = box(10 + code % 2 * 320, 10 + code / 2 * 118, 300, 104);
            DrawString(mFont, rect, text, kWhite, code, shadow, measureOnly);
        }
    }

    Canvas mCanvas;
};

TEST_F(TextPictureTest, LatinInEveryAlignment) {
    drawAlignments("Play now", false, false);
    EXPECT_TRUE(matchesReference(mCanvas.picture(), "graphics/text/latin"));
}

TEST_F(TextPictureTest, ChineseInEveryAlignment) {
    drawAlignments("开始游戏", false, false);
    EXPECT_TRUE(matchesReference(mCanvas.picture(), "graphics/text/chinese"));
}

TEST_F(TextPictureTest, WithShadow) {
    drawAlignments("Jetzt 开始", true, false);
    EXPECT_TRUE(matchesReference(mCanvas.picture(), "graphics/text/shadow"));
}

TEST_F(TextPictureTest, MeasuredWithShadow) {
    drawAlignments("Jetzt 开始", true, true);
    EXPECT_TRUE(matchesReference(mCanvas.picture(), "graphics/text/measured_with_shadow"));
}

TEST_F(TextPictureTest, SeveralLines) {
    SDL_Color green{54, 255, 160, 0};
    SDL_Color white = kWhite;
    SDL_Rect roomy = box(10, 10, 300, 340);
    SDL_Rect tight = box(330, 10, 300, 80);
    SDL_Rect spaced = box(330, 190, 300, 160);
    DrawStringLines(mFont, roomy, "Delete this game?\n删除这个游戏吗\n¿Borrar el juego?", "\n", white, 1, false);
    DrawStringLines(mSmall, tight, "three lines\nin a box\nfor two", "\n", green, 4, true);
    DrawStringLinesSpacing(mSmall, spaced, "three lines|twelve pixels|apart", "|", 12, green, 0, false);
    EXPECT_TRUE(matchesReference(mCanvas.picture(), "graphics/text/lines"));
}

}  // namespace
