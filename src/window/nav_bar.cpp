#include "graphics/text_internal.h"
#include "ostrel/bars.h"
#include "ostrel/skin.h"
#include "ostrel/surface.h"
#include "ostrel/text.h"
#include "ostrel/window.h"

namespace {

constexpr SDL_Point kTitlePlace{110, 22};
constexpr SDL_Point kBackPlace{20, 12};

using StatusItem = int (*)(bool enabled, int offset, int y);
constexpr StatusItem kStatusItems[] = {
    // from the right end to the left
    draw_battery_icon, draw_sound_icon, draw_hotplug, draw_wifi_icon, draw_bluetooth_icon,
};

void drawTitle(const char* title, int y) {
    const SDL_Rect place{kTitlePlace.x, kTitlePlace.y + y, 0, 0};
    DrawString(gNavFont, place, title, gNavColorTxt, ostrel::kAlignTopLeft, /*shadow=*/false, /*measureOnly=*/false);
}

void drawBackIcon(int y) {
    if (gIconBack == nullptr) return;
    SDL_Rect place{kBackPlace.x, kBackPlace.y + y, 0, 0};
    gIconBack->render(nullptr, &place, /*keepSize=*/true, nullptr);
}

}  // namespace

int OstrelWindow::drawNavBar(int y) {
    drawTitle(getTitle(), y);
    drawBackIcon(y);
    int width = 0;
    for (const StatusItem item : kStatusItems) width += item(/*enabled=*/true, width, y);
    return width;
}
