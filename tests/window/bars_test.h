// What the tests of both bars share: a screen, a theme of small plain pictures, and the state of the device.
#pragma once
#include <filesystem>
#include <map>
#include <string>

#include "ostrel/bars.h"
#include "ostrel/log.h"
#include "ostrel/skin.h"
#include "ostrel/text.h"
#include "ostrel/wifi.h"
#include "ostrel/window.h"
#include "support/fake_host.h"
#include "support/log_capture.h"
#include "support/screen_test.h"

namespace ostreltest {

constexpr Colour kNothing{0, 0, 0, 255};  // what a canvas shows where nothing was drawn

constexpr int kBackgroundWidth = 1280;
constexpr int kBackgroundHeight = 60;
// The background has another colour at each pixel, so that a part copied from or to the wrong place shows.
inline Colour backgroundAt(int x, int y) {
    return {static_cast<uint8_t>(x % 256), static_cast<uint8_t>(y), static_cast<uint8_t>(200 + x / 256), 255};
}

// The pictures of the theme, 9 x 8 pixels each.
inline const std::map<std::string, Colour>& iconColours() {
    static const std::map<std::string, Colour> colours = {
        {"ic-batery-100%", {255, 0, 0, 255}},
        {"ic-batery-75%", {0, 255, 0, 255}},
        {"ic-batery-50%", {0, 0, 255, 255}},
        {"ic-batery-25%", {255, 255, 0, 255}},
        {"ic-batery-0%", {0, 255, 255, 255}},
        {"ic-charging", {255, 0, 255, 255}},
        {"ic-sound-n", {255, 128, 0, 255}},
        {"ic-sound-mute", {128, 255, 0, 255}},
        {"ic-wifi-01", {0, 128, 255, 255}},
        {"ic-wifi-02", {0, 64, 255, 255}},
        {"ic-wifi-03", {0, 32, 255, 255}},
        {"icon-hotspot", {255, 0, 64, 255}},
        {"icon-bluetooth-headphone", {64, 0, 64, 255}},
        {"icon-back", {10, 20, 30, 255}},
        {"tips-A", {40, 50, 60, 255}},
        {"tips-B", {70, 80, 90, 255}},
        {"tips-MENU2", {100, 110, 120, 255}},
    };
    return colours;
}

class TitledWindow : public OstrelWindow {
public:
    explicit TitledWindow(const char* text) : OstrelWindow(-1, 0), mText(text) {}
    const char* getTitle() override { return mText; }
    int eventHandling() override { return -1; }
    void draw() override {}
    void quit() override {}
    void init() override {}
    void saveState(cJSON* /*obj*/) override {}
    int restoreState() override { return 0; }
    void onFrame() override {}

private:
    const char* mText;
};

class BarsTest : public ScreenTest {
protected:
    BarsTest() {
        initLogger(0);
        device().linkFont();
        for (const auto& [name, colour] : iconColours()) writePlainPng(iconPath(name), 9, 8, colour);
        writeBackground(kBackgroundWidth, kBackgroundHeight);
        host().setTheme("theme/");
        loadSkin();
        battery("Discharging\n", "0\n", "50\n");
        *rx_wifi_status() = WpaMsg{};
    }
    ~BarsTest() override {
        uninit_shared_skin();
        gIconCache.clear();
        *rx_wifi_status() = WpaMsg{};
    }

    std::string iconPath(const std::string& name) { return device().path("theme/skin/" + name + ".png"); }
    void writeBackground(int width, int height) {
        Picture background(width, height);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) background.set(x, y, backgroundAt(x, y));
        }
        background.save(iconPath("bg"));
    }
    // Loads fonts and pictures anew, after a change of the theme's files.
    void loadSkin() {
        const LogCapture quiet;
        uninit_shared_skin();
        gIconCache.clear();
        init_shared_skin();
    }
    void battery(const std::string& status, const std::string& usbOnline, const std::string& capacity) {
        device().write("/sys/class/power_supply/axp2202-battery/status", status);
        device().write("/sys/class/power_supply/axp2202-usb/online", usbOnline);
        device().write("/sys/class/power_supply/axp2202-battery/capacity", capacity);
    }
    void run(const std::string& program) { device().write("/proc/77/cmdline", program + '\0'); }
    void connect(int rssi) {
        run("wpa_supplicant");
        rx_wifi_status()->state = 4;
        rx_wifi_status()->rssi = rssi;
    }
    void connectHeadphone() {
        device().write("/tmp/btdev_addr", "");
        device().write("/tmp/bluetooth_ready", "");
    }
    void plugAudioIn() { device().write("/dev/dsp1", ""); }
};

inline int textWidth(TTF_Font* font, const char* text) {
    return DrawString(font, {0, 0, 0, 0}, text, {255, 255, 255, 255}, 0, /*shadow=*/false, /*measureOnly=*/true);
}

// Plays the part of an expected picture: what must have been drawn, put there by plain fills.
inline void expectIcon(const std::string& name, int left, int top) {
    const Colour colour = iconColours().at(name);
    SDL_Rect area{left, top, 9, 8};
    ClearRect(nullptr, &area, colour.r, colour.g, colour.b, colour.a);
}

inline void expectBackground(SDL_Rect part) {
    for (int y = part.y; y < part.y + part.h; ++y) {
        for (int x = part.x; x < part.x + part.w; ++x) {
            const Colour colour = backgroundAt(x, y);
            SDL_Rect pixel{x, y, 1, 1};
            ClearRect(nullptr, &pixel, colour.r, colour.g, colour.b, colour.a);
        }
    }
}

}  // namespace ostreltest
