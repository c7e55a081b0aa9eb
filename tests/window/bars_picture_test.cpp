// Whole screens with both bars and the counter, in the dark theme.
#include "bars_test.h"
#include "ostrel/surface.h"

namespace {

using namespace ostreltest;

void drawScreen(const char* title) {
    gBackground->render(nullptr, nullptr, /*keepSize=*/false, nullptr);
    TitledWindow window(title);
    window.drawNavBar(0);
    window.drawStatBar(0);
}

class BarsPictureTest : public BarsTest {
protected:
    BarsPictureTest() {
        host().setTheme(OSTREL_SOURCE_DIR "/theme/dark/");
        loadSkin();
    }
};

TEST_F(BarsPictureTest, ConnectedConsoleOnBattery) {
    battery("Discharging\n", "0\n", "76\n");
    connect(-55);
    host().shm.values[SHM_VOL] = 9;
    const Canvas canvas(1280, 720);
    drawScreen("Recently played");
    drawListNumAtStatBar(3, 128);
    EXPECT_TRUE(matchesReference(canvas.picture(), "window/bars_on_battery", kBlendingTolerance));
}

TEST_F(BarsPictureTest, ChargingConsoleWithEveryStatusItem) {
    battery("Charging\n", "1\n", "100\n");
    run("hostapd");
    plugAudioIn();
    connectHeadphone();
    host().shm.values[SHM_BCONFIRM] = 1;
    const Canvas canvas(1280, 720);
    drawScreen("最近游玩 · Récents · 最近");
    drawListNumAtStatBar(128, 128);
    EXPECT_TRUE(matchesReference(canvas.picture(), "window/bars_charging", kBlendingTolerance));
}

TEST_F(BarsPictureTest, NearlyEmptyConsoleWithAWeakSignal) {
    battery("Discharging\n", "0\n", "4\n");
    connect(-85);
    connectHeadphone();
    host().shm.values[SHM_VOL] = 1;
    const Canvas canvas(1280, 720);
    drawScreen("Settings");
    EXPECT_TRUE(matchesReference(canvas.picture(), "window/bars_nearly_empty", kBlendingTolerance));
}

}  // namespace
