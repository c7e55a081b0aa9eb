#include "ostrel/bars.h"
#include "ostrel/log.h"
#include "ostrel/skin.h"
#include "ostrel/text.h"
#include "support/log_capture.h"
#include "support/screen_test.h"

using ostreltest::Canvas;
using ostreltest::LogCapture;
using ostreltest::Picture;
using ostreltest::picturesMatch;
using ostreltest::ScreenTest;

namespace {

constexpr SDL_Color kColour{255, 120, 0, 255};

class ListCounterTest : public ScreenTest {
protected:
    ListCounterTest() {
        initLogger(0);
        device().linkFont();
        const LogCapture quiet;
        init_shared_skin();
        gStatColorTxt = kColour;
    }
    ~ListCounterTest() override {
        gListNumOfStatBarOffsetY = 672;
        uninit_shared_skin();
    }

    static Picture counter(int index, int total) {
        const Canvas canvas(1280, 720);
        drawListNumAtStatBar(index, total);
        return canvas.picture();
    }
    // Two words that end at x 1256, the second one first.
    static Picture words(const char* left, const char* right, int y) {
        const Canvas canvas(1280, 720);
        const int rightWidth = DrawString(gStatFont, {0, y, 1256, 0}, right, kColour, 2, false, false);
        DrawString(gStatFont, {0, y, 1256 - rightWidth, 0}, left, kColour, 2, false, false);
        return canvas.picture();
    }
};

TEST_F(ListCounterTest, ShowsIndexAndTotalEndingAtX1256) {
    EXPECT_TRUE(picturesMatch(counter(9, 12), words("9/", "12", 672)));
    const SDL_Rect bounds = counter(9, 12).boundsOfAllBut({0, 0, 0, 255});
    EXPECT_LE(bounds.x + bounds.w, 1256);
    EXPECT_GT(bounds.x + bounds.w, 1250);
}

TEST_F(ListCounterTest, TheTotalPushesTheIndexToTheLeft) {
    EXPECT_TRUE(picturesMatch(counter(1, 1000000), words("1/", "1000000", 672)));
    EXPECT_TRUE(picturesMatch(counter(-2147483647 - 1, 0), words("-2147483648/", "0", 672)));
}

TEST_F(ListCounterTest, StandsWhereTheProgramPutsIt) {
    EXPECT_EQ(gListNumOfStatBarOffsetY, 672);
    gListNumOfStatBarOffsetY = 100;
    EXPECT_TRUE(picturesMatch(counter(3, 4), words("3/", "4", 100)));
}

TEST_F(ListCounterTest, WithoutAFontNothingIsDrawn) {
    uninit_shared_skin();
    EXPECT_EQ(counter(1, 2).count({0, 0, 0, 255}), 1280 * 720);
}

}  // namespace
