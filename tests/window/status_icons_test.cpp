#include <string>

#include "bars_test.h"
#include "support/child_process.h"
#include "support/sdl_spy.h"

namespace {

using namespace ostreltest;

class StatusIconsTest : public BarsTest {
protected:
    template <typename Draw>
    static Picture drawn(Draw draw) {
        const Canvas canvas(1280, 100, kNothing);
        draw();
        return canvas.picture();
    }
};

// ---- slots

class IconSlotTest : public StatusIconsTest {
protected:
    SDL_Rect placeOf(int width, int height, SDL_Rect slot) {
        writePlainPng(iconPath("any"), width, height, {255, 255, 255, 255});
        gIconCache.clear();
        return drawn([&] { drawIconInSlot(slot, "skin/any.png"); }).boundsOfAllBut(kNothing);
    }
};

void expectPlace(const SDL_Rect& actual, int x, int y, int w, int h) {
    EXPECT_EQ(actual.x, x);
    EXPECT_EQ(actual.y, y);
    EXPECT_EQ(actual.w, w);
    EXPECT_EQ(actual.h, h);
}

TEST_F(IconSlotTest, IconStandsInTheMiddleOfThirtyThreeByThirtyTwo) {
    expectPlace(placeOf(9, 8, {100, 40, 33, 32}), 112, 52, 9, 8);
    expectPlace(placeOf(33, 32, {100, 40, 33, 32}), 100, 40, 33, 32);
    expectPlace(placeOf(32, 31, {100, 40, 33, 32}), 100, 40, 32, 31);
}

TEST_F(IconSlotTest, LargerIconSticksOutOnAllSides) {
    expectPlace(placeOf(43, 42, {100, 40, 33, 32}), 95, 35, 43, 42);
    expectPlace(placeOf(40, 39, {100, 40, 33, 32}), 97, 37, 40, 39);
}

TEST_F(IconSlotTest, SizeOfTheRectangleIsNotLookedAt) { expectPlace(placeOf(9, 8, {100, 40, 500, 0}), 112, 52, 9, 8); }

TEST_F(IconSlotTest, MissingIconDrawsNothing) {
    const LogCapture quiet;
    EXPECT_EQ(drawn([] { drawIconInSlot({100, 40, 33, 32}, "skin/none.png"); }).count(kNothing), 1280 * 100);
    EXPECT_EQ(drawn([] { drawIconInSlot({100, 40, 33, 32}, nullptr); }).count(kNothing), 1280 * 100);
}

TEST_F(IconSlotTest, IconIsReadOnce) {
    const SdlSpy spy;
    drawIconInSlot({0, 0, 33, 32}, "skin/ic-charging.png");
    drawIconInSlot({0, 0, 33, 32}, "skin/ic-charging.png");
    EXPECT_EQ(spy.decodedImages.size(), 1U);
}

// ---- battery

class BatteryIconTest : public StatusIconsTest {
protected:
    struct Battery {
        int width;
        Picture picture;
    };
    static Battery draw(int offset = 0, int y = 0) {
        Battery result{};
        result.picture = drawn([&] { result.width = draw_battery_icon(true, offset, y); });
        return result;
    }
    Battery drawAt(const std::string& percent) {
        battery("Discharging\n", "0\n", percent + "\n");
        return draw();
    }
    Battery chargedAt(const std::string& percent) {
        battery("Charging\n", "0\n", percent + "\n");
        return draw();
    }
    static void expectPercent(const char* text, int x, int y, int width) {
        DrawString(gNavFontIcon, {x, y, width, 32}, text, gNavColorIcon, 3, false, false);
    }
};

TEST_F(BatteryIconTest, PictureFollowsThePercentage) {
    const std::pair<const char*, const char*> expected[] = {
        {"1000", "ic-batery-100%"}, {"100", "ic-batery-100%"}, {"80", "ic-batery-100%"}, {"79", "ic-batery-75%"},
        {"50", "ic-batery-75%"},    {"49", "ic-batery-50%"},   {"25", "ic-batery-50%"},  {"24", "ic-batery-25%"},
        {"5", "ic-batery-25%"},     {"4", "ic-batery-0%"},     {"0", "ic-batery-0%"},    {"-1", "ic-batery-0%"},
        {"full", "ic-batery-0%"},
    };
    for (const auto& [percent, icon] : expected) {
        const Picture picture = drawAt(percent).picture;
        EXPECT_EQ(picture.count(iconColours().at(icon)), 9 * 8) << percent;
        EXPECT_EQ(picture.at(1235, 31), iconColours().at(icon)) << percent;
    }
}

TEST_F(BatteryIconTest, UnderTenPercentTheTextHasThirtyPixels) {
    for (const char* percent : {"4", "9"}) {
        const Battery battery = drawAt(percent);
        EXPECT_EQ(battery.width, 84);
        EXPECT_TRUE(picturesMatch(battery.picture, drawn([&] {
                                      expectBackground({1256, 19, 24, 32});
                                      expectIcon(percent[0] == '4' ? "ic-batery-0%" : "ic-batery-25%", 1235, 31);
                                      expectPercent((percent + std::string("%")).c_str(), 1181, 19, 30);
                                  })));
    }
}

TEST_F(BatteryIconTest, UnderAHundredPercentTheTextHasFortyFivePixels) {
    for (const char* percent : {"10", "25", "99"}) EXPECT_EQ(drawAt(percent).width, 99);
    const Battery battery = drawAt("80");
    EXPECT_EQ(battery.width, 99);
    EXPECT_TRUE(picturesMatch(battery.picture, drawn([] {
                                  expectBackground({1256, 19, 24, 32});
                                  expectIcon("ic-batery-100%", 1235, 31);
                                  expectPercent("80%", 1166, 19, 45);
                              })));
}

TEST_F(BatteryIconTest, FromAHundredPercentTheTextHasSixtyPixels) {
    EXPECT_EQ(drawAt("101").width, 114);
    const Battery battery = drawAt("100");
    EXPECT_EQ(battery.width, 114);
    EXPECT_TRUE(picturesMatch(battery.picture, drawn([] {
                                  expectBackground({1256, 19, 24, 32});
                                  expectIcon("ic-batery-100%", 1235, 31);
                                  expectPercent("100%", 1151, 19, 60);
                              })));
}

TEST_F(BatteryIconTest, ChargingShowsTheBoltAndMovesTheRestLeft) {
    const Battery battery = chargedAt("50");
    EXPECT_EQ(battery.width, 117);
    EXPECT_TRUE(picturesMatch(battery.picture, drawn([] {
                                  expectBackground({1256, 19, 24, 32});
                                  expectIcon("ic-charging", 1252, 31);
                                  expectIcon("ic-batery-75%", 1217, 31);
                                  expectPercent("50%", 1148, 19, 45);
                              })));
}

TEST_F(BatteryIconTest, ChargingAddsEighteenPixelsToEveryWidth) {
    EXPECT_EQ(chargedAt("4").width, 102);
    EXPECT_EQ(chargedAt("99").width, 117);
    EXPECT_EQ(chargedAt("100").width, 132);
}

TEST_F(BatteryIconTest, APluggedInUsbSupplyCountsAsCharging) {
    battery("Full\n", "1\n", "50\n");
    EXPECT_EQ(draw().width, 117);
    EXPECT_EQ(draw().picture.count(iconColours().at("ic-charging")), 9 * 8);
    battery("Charging\n", "1\n", "50\n");
    EXPECT_EQ(draw().width, 117);
}

TEST_F(BatteryIconTest, WithoutAnyFileItIsEmptyAndNotCharging) {
    device().remove("/sys");
    const Battery battery = draw();
    EXPECT_EQ(battery.width, 84);
    EXPECT_EQ(battery.picture.count(iconColours().at("ic-batery-0%")), 9 * 8);
    EXPECT_EQ(battery.picture.count(iconColours().at("ic-charging")), 0);
}

TEST_F(BatteryIconTest, OffsetMovesEverythingLeftAndYDown) {
    battery("Charging\n", "0\n", "7\n");
    const Battery battery = draw(100, 5);
    EXPECT_EQ(battery.width, 102);
    EXPECT_TRUE(picturesMatch(battery.picture, drawn([] {
                                  expectBackground({1156, 24, 33, 32});
                                  expectIcon("ic-charging", 1152, 36);
                                  expectIcon("ic-batery-25%", 1117, 36);
                                  expectPercent("7%", 1063, 24, 30);
                              })));
}

TEST_F(BatteryIconTest, TextTakesTheColourOfTheIcons) {
    gNavColorIcon = {255, 120, 0, 255};
    gNavColorTxt = {0, 0, 255, 255};
    EXPECT_TRUE(
        picturesMatch(drawAt("50").picture, drawn([] {
                          expectBackground({1256, 19, 24, 32});
                          expectIcon("ic-batery-75%", 1235, 31);
                          DrawString(gNavFontIcon, {1166, 19, 45, 32}, "50%", {255, 120, 0, 255}, 3, false, false);
                      })));
}

TEST_F(BatteryIconTest, MissingImagesAndFontsLeaveTheWidthAsItIs) {
    host().setTheme("no-theme/");
    loadSkin();
    uninit_shared_skin();
    const LogCapture quiet;
    const Battery battery = chargedAt("50");
    EXPECT_EQ(battery.width, 117);
    EXPECT_EQ(battery.picture.count(kNothing), 1280 * 100);
}

// ---- sound

class SoundIconTest : public StatusIconsTest {
protected:
    static Picture drawn() {
        return StatusIconsTest::drawn([] { EXPECT_EQ(draw_sound_icon(true, 0, 0), 42); });
    }
    static Picture expected(const char* icon) {
        return StatusIconsTest::drawn([&] {
            expectBackground({1223, 19, 33, 32});
            expectIcon(icon, 1235, 31);
        });
    }
};

TEST_F(SoundIconTest, ShowsALoudspeakerAboveVolumeZero) {
    for (const int volume : {1, 14, 20}) {
        host().shm.values[SHM_VOL] = volume;
        EXPECT_TRUE(picturesMatch(drawn(), expected("ic-sound-n")));
    }
}

TEST_F(SoundIconTest, ShowsTheMutedOneAtVolumeZeroAndBelow) {
    for (const int volume : {0, -1}) {
        host().shm.values[SHM_VOL] = volume;
        EXPECT_TRUE(picturesMatch(drawn(), expected("ic-sound-mute")));
    }
}

TEST_F(SoundIconTest, TheMuteSwitchDoesNotCount) {
    host().shm.values[SHM_VOL] = 1;
    host().shm.values[SHM_MUTE] = 1;
    EXPECT_TRUE(picturesMatch(drawn(), expected("ic-sound-n")));
}

TEST_F(SoundIconTest, OffsetMovesTheSlotLeftAndYDown) {
    const auto moved = StatusIconsTest::drawn([] { EXPECT_EQ(draw_sound_icon(true, 117, 7), 42); });
    EXPECT_TRUE(picturesMatch(moved, StatusIconsTest::drawn([] {
                                  expectBackground({1106, 26, 33, 32});
                                  expectIcon("ic-sound-mute", 1118, 38);
                              })));
}

TEST_F(SoundIconTest, TheSlotHidesTheIconDrawnBefore) {
    const auto twice = StatusIconsTest::drawn([] {
        host().shm.values[SHM_VOL] = 5;
        draw_sound_icon(true, 0, 0);
        host().shm.values[SHM_VOL] = 0;
        draw_sound_icon(true, 0, 0);
    });
    EXPECT_TRUE(picturesMatch(twice, expected("ic-sound-mute")));
}

TEST_F(SoundIconTest, MissingIconLeavesThePaintedSlot) {
    std::filesystem::remove(iconPath("ic-sound-mute"));
    const LogCapture quiet;
    EXPECT_TRUE(picturesMatch(drawn(), StatusIconsTest::drawn([] { expectBackground({1223, 19, 33, 32}); })));
}

TEST_F(SoundIconTest, WithoutABackgroundTheIconIsDrawnOverWhatIsThere) {
    std::filesystem::remove(iconPath("bg"));
    loadSkin();
    EXPECT_TRUE(picturesMatch(drawn(), StatusIconsTest::drawn([] { expectIcon("ic-sound-mute", 1235, 31); })));
}

TEST_F(SoundIconTest, WhereTheBackgroundEndsTheRestStaysUnpainted) {
    writeBackground(1230, 40);
    loadSkin();
    EXPECT_TRUE(picturesMatch(drawn(), StatusIconsTest::drawn([] {
                                  expectBackground({1223, 19, 7, 21});
                                  expectIcon("ic-sound-mute", 1235, 31);
                              })));
    writeBackground(1223, 40);
    loadSkin();
    EXPECT_TRUE(picturesMatch(drawn(), StatusIconsTest::drawn([] { expectIcon("ic-sound-mute", 1235, 31); })));
}

TEST_F(SoundIconTest, ABarSlidOutAtTheTopPaintsWhatIsLeftOfItsSlot) {
    const auto slid = StatusIconsTest::drawn([] { draw_sound_icon(true, 0, -30); });
    EXPECT_TRUE(picturesMatch(slid, StatusIconsTest::drawn([] {
                                  expectBackground({1223, 0, 33, 21});
                                  expectIcon("ic-sound-mute", 1235, 1);
                              })));
}

// ---- items that may show nothing

class OptionalIconsTest : public StatusIconsTest {
protected:
    using Item = int (*)(bool, int, int);
    static void expectItem(Item item, const char* icon) {
        const Picture picture = drawn([&] { EXPECT_EQ(item(true, 84, 2), 42); });
        EXPECT_TRUE(picturesMatch(picture, drawn([&] {
                                      expectBackground({1139, 21, 33, 32});
                                      expectIcon(icon, 1151, 33);
                                  })));
    }
    static void expectNothing(Item item) {
        const Picture picture = drawn([&] { EXPECT_EQ(item(true, 84, 2), 0); });
        EXPECT_EQ(picture.count(kNothing), 1280 * 100);
    }
    static void expectOnlyThePaintedSlot(Item item) {
        const Picture picture = drawn([&] { EXPECT_EQ(item(true, 84, 2), 0); });
        EXPECT_TRUE(picturesMatch(picture, drawn([] { expectBackground({1139, 21, 33, 32}); })));
    }
};

TEST_F(OptionalIconsTest, PluggedInAudioShowsAHeadphone) {
    plugAudioIn();
    expectItem(draw_hotplug, "icon-bluetooth-headphone");
}

TEST_F(OptionalIconsTest, WithoutPluggedInAudioTheSlotIsLeftAlone) { expectNothing(draw_hotplug); }

TEST_F(OptionalIconsTest, AnUnreadableSoundDeviceDoesNotCount) {
    plugAudioIn();
    std::filesystem::permissions(device().root(), std::filesystem::perms{0755});
    const std::filesystem::path node = device().path("/dev/dsp1");
    std::filesystem::permissions(node, std::filesystem::perms{0222});
    EXPECT_TRUE(passesInChild([] { EXPECT_EQ(draw_hotplug(true, 0, 0), 0); }, ChildUser::Unprivileged));
    std::filesystem::permissions(node, std::filesystem::perms{0444});
    EXPECT_TRUE(passesInChild([] { EXPECT_EQ(draw_hotplug(true, 0, 0), 42); }, ChildUser::Unprivileged));
}

TEST_F(OptionalIconsTest, BluetoothShowsAHeadphoneWhenBothMarkersExist) {
    connectHeadphone();
    expectItem(draw_bluetooth_icon, "icon-bluetooth-headphone");
}

TEST_F(OptionalIconsTest, WithoutBothMarkersBluetoothOnlyPaintsItsSlot) {
    expectOnlyThePaintedSlot(draw_bluetooth_icon);
    device().write("/tmp/btdev_addr", "");
    expectOnlyThePaintedSlot(draw_bluetooth_icon);
    device().remove("/tmp/btdev_addr");
    device().write("/tmp/bluetooth_ready", "");
    expectOnlyThePaintedSlot(draw_bluetooth_icon);
}

TEST_F(OptionalIconsTest, BluetoothMarkersNeedNotBeReadable) {
    connectHeadphone();
    std::filesystem::permissions(device().root(), std::filesystem::perms{0755});
    for (const char* marker : {"/tmp/btdev_addr", "/tmp/bluetooth_ready"}) {
        std::filesystem::permissions(device().path(marker), std::filesystem::perms::none);
    }
    EXPECT_TRUE(passesInChild([] { EXPECT_EQ(draw_bluetooth_icon(true, 0, 0), 42); }, ChildUser::Unprivileged));
}

TEST_F(OptionalIconsTest, TheHotspotHasAnIcon) {
    run("/usr/sbin/hostapd");
    expectItem(draw_wifi_icon, "icon-hotspot");
}

TEST_F(OptionalIconsTest, AConnectedStationShowsTheBarsOfItsSignal) {
    connect(-70);
    expectItem(draw_wifi_icon, "ic-wifi-03");
    connect(-71);
    expectItem(draw_wifi_icon, "ic-wifi-02");
    connect(-80);
    expectItem(draw_wifi_icon, "ic-wifi-02");
    connect(-81);
    expectItem(draw_wifi_icon, "ic-wifi-01");
}

TEST_F(OptionalIconsTest, AnInvalidSignalShowsOneBar) {
    connect(-127);
    expectItem(draw_wifi_icon, "ic-wifi-01");
}

TEST_F(OptionalIconsTest, AStationThatIsNotConnectedShowsNothing) {
    connect(-50);
    for (const int state : {0, 1, 2, 3, 5, 6}) {
        rx_wifi_status()->state = state;
        expectNothing(draw_wifi_icon);
    }
}

TEST_F(OptionalIconsTest, WithoutADaemonTheLastStatusShowsNothing) {
    connect(-50);
    device().remove("/proc/77");
    expectNothing(draw_wifi_icon);
}

TEST_F(OptionalIconsTest, NoItemLooksAtItsFlag) {
    plugAudioIn();
    connectHeadphone();
    connect(-50);
    for (const Item item : {draw_battery_icon, draw_sound_icon, draw_hotplug, draw_wifi_icon, draw_bluetooth_icon}) {
        EXPECT_EQ(item(false, 0, 0), item(true, 0, 0));
        EXPECT_TRUE(picturesMatch(drawn([&] { item(false, 0, 0); }), drawn([&] { item(true, 0, 0); })));
    }
}

TEST_F(OptionalIconsTest, MissingIconsLeaveTheWidthsAsTheyAre) {
    host().setTheme("no-theme/");
    loadSkin();
    plugAudioIn();
    connectHeadphone();
    connect(-50);
    const LogCapture quiet;
    for (const Item item : {draw_sound_icon, draw_hotplug, draw_wifi_icon, draw_bluetooth_icon}) {
        EXPECT_EQ(item(true, 0, 0), 42);
    }
}

}  // namespace
