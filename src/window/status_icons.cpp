// The status items of the navigation bar. They are drawn on every frame and ask the device each time, so each asks for
// no more than its picture needs.
#include <unistd.h>

#include <climits>
#include <cstdio>

#include "graphics/text_internal.h"
#include "ostrel/bars.h"
#include "ostrel/host.h"
#include "ostrel/power.h"
#include "ostrel/skin.h"
#include "ostrel/surface.h"
#include "ostrel/text.h"
#include "ostrel/wifi.h"
#include "platform/device_paths.h"

using ostrel::DevicePath;

namespace {

constexpr int kSlotWidth = 33;
constexpr int kSlotHeight = 32;
constexpr int kSlotTop = 19;     // below the top of the bar
constexpr int kSlotLeft = 1223;  // of the item at the end of the row
constexpr int kItemWidth = 42;   // the slot, and 9 pixels to the next

constexpr int kBatteryRight = 1256;
constexpr int kBoltShift = 16;             // from the end of the row to the bolt
constexpr int kBatteryShift = 33;          // from the end of the row to the battery's picture
constexpr int kBatteryShiftFromBolt = 35;  // ... or from the bolt
constexpr int kPercentGap = 12;            // between the text's box and the battery's picture
constexpr int kBatteryWidth = 54;          // picture and gaps; the text's box comes on top
constexpr int kChargingBatteryWidth = 72;  // the same with the bolt

constexpr char kHeadphoneIcon[] = "skin/icon-bluetooth-headphone.png";  // of both ways to plug audio in

struct BatteryImage {
    int fromPercent;
    const char* file;
};
constexpr BatteryImage kBatteryImages[] = {
    {80, "skin/ic-batery-100%.png"}, {50, "skin/ic-batery-75%.png"},     {25, "skin/ic-batery-50%.png"},
    {5, "skin/ic-batery-25%.png"},   {INT_MIN, "skin/ic-batery-0%.png"},
};

const char* batteryImage(int percent) {
    const BatteryImage* image = kBatteryImages;
    while (percent < image->fromPercent) ++image;
    return image->file;
}

int percentBoxWidth(int percent) {
    if (percent < 10) return 30;
    return percent < 100 ? 45 : 60;
}

SDL_Rect slotAt(int x, int y) { return {x, y + kSlotTop, kSlotWidth, kSlotHeight}; }

SDL_Rect itemSlot(int offset, int y) { return slotAt(kSlotLeft - offset, y); }

// Copies pixel for pixel: where the background ends, a slot that sticks out of it must not stretch what is left.
void repaintFromBackground(const SDL_Rect& slot) {
    if (gBackground == nullptr) return;
    const SDL_Rect background{0, 0, gBackground->getWidth(), gBackground->getHeight()};
    SDL_Rect part;
    if (SDL_IntersectRect(&slot, &background, &part) == SDL_FALSE) return;
    gBackground->render(&part, &part, /*keepSize=*/false, nullptr);
}

int drawItem(int offset, int y, const char* icon) {
    const SDL_Rect slot = itemSlot(offset, y);
    repaintFromBackground(slot);
    drawIconInSlot(slot, icon);
    return kItemWidth;
}

void drawPercent(int percent, const SDL_Rect& picture) {
    char text[16];
    std::snprintf(text, sizeof text, "%d%%", percent);
    const int width = percentBoxWidth(percent);
    const SDL_Rect box{picture.x - kPercentGap - width, picture.y, width, picture.h};
    DrawString(gNavFontIcon, box, text, gNavColorIcon, ostrel::kAlignLeft, /*shadow=*/false, /*measureOnly=*/false);
}

const char* signalIcon(int rssi) {
    const int level = rssi2Level(rssi);
    if (level >= 3) return "skin/ic-wifi-03.png";
    return level == 2 ? "skin/ic-wifi-02.png" : "skin/ic-wifi-01.png";
}

}  // namespace

void drawIconInSlot(const SDL_Rect& slot, const char* name) {
    OstrelSurface* icon = getIconFromCache(name);
    if (icon == nullptr) return;
    SDL_Rect place{slot.x + (kSlotWidth - icon->getWidth()) / 2, slot.y + (kSlotHeight - icon->getHeight()) / 2, 0, 0};
    icon->render(nullptr, &place, /*keepSize=*/true, nullptr);
}

int draw_battery_icon(bool /*enabled*/, int offset, int y) {
    const int percent = readBatteryADC();
    int x = kBatteryRight - offset;
    repaintFromBackground(slotAt(x, y));
    const bool charging = ischarging() || isUsbOnline();
    if (charging) {
        x -= kBoltShift;
        drawIconInSlot(slotAt(x, y), "skin/ic-charging.png");
        x -= kBatteryShiftFromBolt;
    } else {
        x -= kBatteryShift;
    }
    drawIconInSlot(slotAt(x, y), batteryImage(percent));
    drawPercent(percent, slotAt(x, y));
    return percentBoxWidth(percent) + (charging ? kChargingBatteryWidth : kBatteryWidth);
}

int draw_sound_icon(bool /*enabled*/, int offset, int y) {
    const bool audible = GetKeyShm(gShmInfo, SHM_VOL) > 0;
    return drawItem(offset, y, audible ? "skin/ic-sound-n.png" : "skin/ic-sound-mute.png");
}

int draw_hotplug(bool /*enabled*/, int offset, int y) {
    if (access(ostrel::devicePath(DevicePath::SecondSoundDevice), R_OK) != 0) return 0;
    return drawItem(offset, y, kHeadphoneIcon);
}

int draw_wifi_icon(bool /*enabled*/, int offset, int y) {
    const int mode = getWifiMode();
    if (mode == WIFI_MODE_HOTSPOT) return drawItem(offset, y, "skin/icon-hotspot.png");
    if (mode != WIFI_MODE_STATION) return 0;
    const WpaMsg* status = rx_wifi_status();
    if (status == nullptr || status->state != WIFI_STATE_COMPLETED) return 0;
    return drawItem(offset, y, signalIcon(status->rssi));
}

int draw_bluetooth_icon(bool /*enabled*/, int offset, int y) {
    if (ostrel::deviceFileExists(DevicePath::BluetoothAddress) &&
        ostrel::deviceFileExists(DevicePath::BluetoothReady)) {
        return drawItem(offset, y, kHeadphoneIcon);
    }
    repaintFromBackground(itemSlot(offset, y));
    return 0;
}
