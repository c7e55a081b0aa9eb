#include <utility>

#include "graphics/text_internal.h"
#include "ostrel/bars.h"
#include "ostrel/host.h"
#include "ostrel/language.h"
#include "ostrel/skin.h"
#include "ostrel/surface.h"
#include "ostrel/text.h"
#include "ostrel/window.h"

namespace {

constexpr int kBarTop = 650;
constexpr int kBarHeight = 70;
constexpr int kBarLeft = 30;
constexpr int kSunk = 2;  // buttons and texts stand lower than the middle of the bar
constexpr int kLabelGap = 10;
constexpr int kItemGap = 24;

// Numbers of interface strings.
constexpr int kConfirmHint = 4;
constexpr int kBackHint = 5;
constexpr int kMenuHint = 7;

int centredTop(int y, int height) { return y + (kBarHeight - height) / 2 + kSunk; }

}  // namespace

int draw_stat_icon_item_left(OstrelSurface* icon, int x, int y, const char* label) {
    if (icon == nullptr) return 0;
    SDL_Rect place{x, centredTop(y, icon->getHeight()), 0, 0};
    icon->render(nullptr, &place, /*keepSize=*/true, nullptr);
    const int labelShift = icon->getWidth() + kLabelGap;
    const SDL_Rect box{x + labelShift, centredTop(y, ostrel::fontHeight(gStatFont)), 0, 0};
    return labelShift + DrawString(gStatFont, box, label, gStatColorTxt, ostrel::kAlignTopLeft, /*shadow=*/false,
                                   /*measureOnly=*/false);
}

int OstrelWindow::drawStatBar(int y) {
    OstrelSurface* confirm = gIconA;
    OstrelSurface* back = gIconB;
    if (GetKeyShm(gShmInfo, SHM_BCONFIRM) != 0) std::swap(confirm, back);  // the texts keep their places
    const std::pair<OstrelSurface*, int> items[] = {{confirm, kConfirmHint}, {back, kBackHint}, {gIconMenu, kMenuHint}};
    int x = kBarLeft;
    for (const auto& [icon, text] : items) {
        if (icon == nullptr) continue;
        x += draw_stat_icon_item_left(icon, x, kBarTop + y, getLangStr(text)) + kItemGap;
    }
    return x;
}
