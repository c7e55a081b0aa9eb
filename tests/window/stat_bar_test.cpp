#include "bars_test.h"
#include "ostrel/language.h"

namespace {

using namespace ostreltest;

class StatBarTest : public BarsTest {
protected:
    template <typename Draw>
    static Picture drawn(Draw draw) {
        const Canvas canvas(1280, 720, kNothing);
        draw();
        return canvas.picture();
    }
    static int drawBar(int y = 0) { return TitledWindow(nullptr).drawStatBar(y); }
    // A button whose icon starts at x, with its label. @return where the next one starts.
    static int expectButton(const char* icon, const char* label, int x, int y = 0) {
        expectIcon(icon, x, y + 650 + 31 + 2);
        const int top = y + 650 + (70 - TTF_FontHeight(gStatFont)) / 2 + 2;
        DrawString(gStatFont, {x + 19, top, 0, 0}, label, gStatColorTxt, 0, false, false);
        return x + 19 + textWidth(gStatFont, label) + 24;
    }
};

TEST_F(StatBarTest, ShowsConfirmBackAndMenu) {
    const Picture picture = drawn([] {
        EXPECT_EQ(drawBar(), 30 + 3 * 43 + textWidth(gStatFont, "OPEN") + textWidth(gStatFont, "BACK") +
                                 textWidth(gStatFont, "MENU"));
    });
    EXPECT_TRUE(picturesMatch(picture, drawn([] {
                                  const int second = expectButton("tips-A", "OPEN", 30);
                                  const int third = expectButton("tips-B", "BACK", second);
                                  expectButton("tips-MENU2", "MENU", third);
                              })));
}

TEST_F(StatBarTest, TheConfirmKeySwapExchangesTheIconsAlone) {
    host().shm.values[SHM_BCONFIRM] = 1;
    EXPECT_TRUE(picturesMatch(drawn([] { drawBar(); }), drawn([] {
                                  const int second = expectButton("tips-B", "OPEN", 30);
                                  const int third = expectButton("tips-A", "BACK", second);
                                  expectButton("tips-MENU2", "MENU", third);
                              })));
}

TEST_F(StatBarTest, AnyValueButZeroSwaps) {
    host().shm.values[SHM_BCONFIRM] = -1;
    EXPECT_EQ(drawn([] { drawBar(); }).at(30, 683), iconColours().at("tips-B"));
}

TEST_F(StatBarTest, MissingIconsLeaveTheirButtonOut) {
    std::filesystem::remove(iconPath("tips-A"));
    loadSkin();
    EXPECT_TRUE(picturesMatch(drawn([] { drawBar(); }),
                              drawn([] { expectButton("tips-MENU2", "MENU", expectButton("tips-B", "BACK", 30)); })));
    std::filesystem::remove(iconPath("tips-B"));
    loadSkin();
    EXPECT_TRUE(picturesMatch(drawn([] { drawBar(); }), drawn([] { expectButton("tips-MENU2", "MENU", 30); })));
    std::filesystem::remove(iconPath("tips-MENU2"));
    loadSkin();
    const Picture empty = drawn([] { EXPECT_EQ(drawBar(), 30); });
    EXPECT_EQ(empty.count(kNothing), 1280 * 720);
}

TEST_F(StatBarTest, AMissingBackIconClosesTheGap) {
    std::filesystem::remove(iconPath("tips-B"));
    loadSkin();
    EXPECT_TRUE(picturesMatch(drawn([] { drawBar(); }),
                              drawn([] { expectButton("tips-MENU2", "MENU", expectButton("tips-A", "OPEN", 30)); })));
}

TEST_F(StatBarTest, YMovesTheWholeBar) {
    EXPECT_TRUE(picturesMatch(drawn([] { drawBar(-20); }), drawn([] {
                                  const int second = expectButton("tips-A", "OPEN", 30, -20);
                                  const int third = expectButton("tips-B", "BACK", second, -20);
                                  expectButton("tips-MENU2", "MENU", third, -20);
                              })));
}

TEST_F(StatBarTest, LabelsTakeTheColourOfTheBar) {
    gStatColorTxt = {255, 120, 0, 255};
    EXPECT_TRUE(picturesMatch(drawn([] { draw_stat_icon_item_left(gIconA, 200, 300, "OK"); }), drawn([] {
                                  expectIcon("tips-A", 200, 333);
                                  const int top = 300 + (70 - TTF_FontHeight(gStatFont)) / 2 + 2;
                                  DrawString(gStatFont, {219, top, 0, 0}, "OK", {255, 120, 0, 255}, 0, false, false);
                              })));
}

TEST_F(StatBarTest, LabelsAreInTheUsersLanguage) {
    gDefaultStringList[4] = "Choose";
    EXPECT_EQ(drawBar(), 30 + 3 * 43 + textWidth(gStatFont, "Choose") + textWidth(gStatFont, "BACK") +
                             textWidth(gStatFont, "MENU"));
    gDefaultStringList[4] = "OPEN";
}

TEST_F(StatBarTest, AButtonReturnsIconGapAndLabel) {
    EXPECT_EQ(draw_stat_icon_item_left(gIconA, 5, 6, "Some label"), 19 + textWidth(gStatFont, "Some label"));
}

TEST_F(StatBarTest, AButtonWithoutALabelReturnsIconAndGap) {
    EXPECT_EQ(draw_stat_icon_item_left(gIconA, 5, 6, ""), 19);
    EXPECT_EQ(draw_stat_icon_item_left(gIconA, 5, 6, nullptr), 19);
}

TEST_F(StatBarTest, AButtonWithoutAnIconIsNotDrawn) {
    const Picture picture = drawn([] { EXPECT_EQ(draw_stat_icon_item_left(nullptr, 5, 6, "label"), 0); });
    EXPECT_EQ(picture.count(kNothing), 1280 * 720);
}

TEST_F(StatBarTest, WithoutAFontAButtonShowsItsIcon) {
    const auto icon = plainSurface(20, 10, {1, 2, 3, 255});
    uninit_shared_skin();
    const Picture picture = drawn([&] { EXPECT_EQ(draw_stat_icon_item_left(icon.get(), 100, 200, "label"), 30); });
    const SDL_Rect bounds = picture.boundsOfAllBut(kNothing);
    EXPECT_EQ(bounds.x, 100);
    EXPECT_EQ(bounds.y, 200 + 30 + 2);
    EXPECT_EQ(bounds.w, 20);
    EXPECT_EQ(bounds.h, 10);
}

TEST_F(StatBarTest, AnIconTallerThanTheBarSticksOutBothWays) {
    const auto icon = plainSurface(20, 73, {1, 2, 3, 255});
    const Picture picture = drawn([&] { draw_stat_icon_item_left(icon.get(), 100, 200, ""); });
    EXPECT_EQ(picture.boundsOfAllBut(kNothing).y, 201);
    EXPECT_EQ(picture.boundsOfAllBut(kNothing).h, 73);
}

}  // namespace
