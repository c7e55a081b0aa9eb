#include <string>

#include "bars_test.h"
#include "script_window.h"
#include "support/sdl_spy.h"

namespace {

using namespace ostreltest;

class NavBarTest : public BarsTest {
protected:
    template <typename Draw>
    static Picture drawn(Draw draw) {
        const Canvas canvas(1280, 100, kNothing);
        draw();
        return canvas.picture();
    }
    static void expectTitle(const char* text, int x, int y) {
        DrawString(gNavFont, {x, y, 0, 0}, text, gNavColorTxt, 0, false, false);
    }
    static void expectHalfFullBattery() {
        expectBackground({1256, 19, 24, 32});
        expectIcon("ic-batery-75%", 1235, 31);
        DrawString(gNavFontIcon, {1166, 19, 45, 32}, "50%", gNavColorIcon, 3, false, false);
    }
};

TEST_F(NavBarTest, ShowsBackIconTitleAndStatusItemsFromRightToLeft) {
    plugAudioIn();
    connect(-75);
    connectHeadphone();
    host().shm.values[SHM_VOL] = 3;
    TitledWindow window("Games");
    const Picture picture = drawn([&] { EXPECT_EQ(window.drawNavBar(0), 99 + 42 + 42 + 42 + 42); });
    EXPECT_TRUE(picturesMatch(picture, drawn([] {
                                  expectTitle("Games", 110, 22);
                                  expectIcon("icon-back", 20, 12);
                                  expectHalfFullBattery();
                                  const std::pair<int, const char*> slots[] = {
                                      {1124, "ic-sound-n"},
                                      {1082, "icon-bluetooth-headphone"},
                                      {1040, "ic-wifi-02"},
                                      {998, "icon-bluetooth-headphone"},
                                  };
                                  for (const auto& [x, icon] : slots) {
                                      expectBackground({x, 19, 33, 32});
                                      expectIcon(icon, x + 12, 31);
                                  }
                              })));
}

TEST_F(NavBarTest, ItemsThatShowNothingLeaveTheirPlaceToTheNext) {
    run("wpa_supplicant");  // not connected
    connectHeadphone();
    TitledWindow window("");
    const Picture picture = drawn([&] { EXPECT_EQ(window.drawNavBar(0), 99 + 42 + 42); });
    EXPECT_TRUE(picturesMatch(picture, drawn([] {
                                  expectIcon("icon-back", 20, 12);
                                  expectHalfFullBattery();
                                  expectBackground({1124, 19, 33, 32});
                                  expectIcon("ic-sound-mute", 1136, 31);
                                  expectBackground({1082, 19, 33, 32});
                                  expectIcon("icon-bluetooth-headphone", 1094, 31);
                              })));
}

TEST_F(NavBarTest, ChargingMovesTheSoundIconLeft) {
    battery("Charging\n", "0\n", "50\n");
    TitledWindow window("");
    const Picture picture = drawn([&] { EXPECT_EQ(window.drawNavBar(0), 117 + 42); });
    EXPECT_EQ(picture.at(1106 + 12, 31), iconColours().at("ic-sound-mute"));
}

TEST_F(NavBarTest, YMovesTheWholeBar) {
    TitledWindow window("Games");
    const Picture picture = drawn([&] { EXPECT_EQ(window.drawNavBar(8), 99 + 42); });
    EXPECT_TRUE(picturesMatch(picture, drawn([] {
                                  expectTitle("Games", 110, 30);
                                  expectIcon("icon-back", 20, 20);
                                  expectBackground({1256, 27, 24, 32});
                                  expectIcon("ic-batery-75%", 1235, 39);
                                  DrawString(gNavFontIcon, {1166, 27, 45, 32}, "50%", gNavColorIcon, 3, false, false);
                                  expectBackground({1124, 27, 33, 32});
                                  expectIcon("ic-sound-mute", 1136, 39);
                                  expectBackground({1082, 27, 33, 32});
                              })));
}

TEST_F(NavBarTest, TitleAndIconTextHaveColoursOfTheirOwn) {
    gNavColorTxt = {255, 0, 0, 255};
    gNavColorIcon = {0, 0, 255, 255};
    std::filesystem::remove(iconPath("bg"));
    std::filesystem::remove(iconPath("ic-batery-75%"));
    loadSkin();
    gNavColorTxt = {255, 0, 0, 255};
    gNavColorIcon = {0, 0, 255, 255};
    TitledWindow window("Games");
    const LogCapture quiet;
    const Picture picture = drawn([&] { window.drawNavBar(0); });
    EXPECT_TRUE(
        picturesMatch(picture, drawn([] {
                          expectIcon("icon-back", 20, 12);
                          expectIcon("ic-sound-mute", 1136, 31);
                          DrawString(gNavFont, {110, 22, 0, 0}, "Games", {255, 0, 0, 255}, 0, false, false);
                          DrawString(gNavFontIcon, {1166, 19, 45, 32}, "50%", {0, 0, 255, 255}, 3, false, false);
                      })));
}

TEST_F(NavBarTest, TheTitleIsAskedOfTheWindow) {
    Diary diary;
    ScriptWindow window(diary, "window", /*titleIndex=*/7);
    const Picture picture = drawn([&] { window.drawNavBar(0); });
    TitledWindow sameText("MENU");
    EXPECT_TRUE(picturesMatch(picture, drawn([&] { sameText.drawNavBar(0); })));
}

TEST_F(NavBarTest, AWindowMayHaveNoTitle) {
    TitledWindow none(nullptr);
    TitledWindow empty("");
    EXPECT_TRUE(picturesMatch(drawn([&] { none.drawNavBar(0); }), drawn([&] { empty.drawNavBar(0); })));
}

TEST_F(NavBarTest, WithoutASkinNothingIsDrawnAndTheWidthStays) {
    host().setTheme("no-theme/");
    loadSkin();
    uninit_shared_skin();
    connectHeadphone();
    TitledWindow window("Games");
    const LogCapture quiet;
    const Picture picture = drawn([&] { EXPECT_EQ(window.drawNavBar(0), 99 + 42 + 42); });
    EXPECT_EQ(picture.count(kNothing), 1280 * 100);
}

TEST_F(NavBarTest, DrawsOnTheScreenToo) {
    TitledWindow window("Games");
    EXPECT_EQ(window.drawNavBar(0), 99 + 42);
    EXPECT_EQ(Picture::ofWindow().at(20, 12), iconColours().at("icon-back"));
}

TEST_F(NavBarTest, AWarmFrameOpensNoImageAndRendersNoGlyph) {
    plugAudioIn();
    connect(-75);
    connectHeadphone();
    TitledWindow window("Games");
    const SdlSpy spy;
    LogCapture log;
    window.drawNavBar(0);
    window.drawStatBar(0);
    const std::size_t images = spy.decodedImages.size();
    const std::size_t texts = spy.renderedTexts.size();
    EXPECT_EQ(images, 4U);
    EXPECT_EQ(texts, 5U);
    for (int frame = 0; frame < 3; ++frame) {
        window.drawNavBar(0);
        window.drawStatBar(0);
    }
    EXPECT_EQ(spy.decodedImages.size(), images);
    EXPECT_EQ(spy.renderedTexts.size(), texts);
    EXPECT_EQ(log.text(), "");
}

}  // namespace
