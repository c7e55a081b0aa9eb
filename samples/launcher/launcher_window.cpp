#include "launcher_window.h"

#include "ostrel/bars.h"
#include "ostrel/host.h"
#include "ostrel/skin.h"
#include "ostrel/text.h"
#include "preview.h"

namespace launcher {
namespace {

constexpr int kTitleWidth = 620;
constexpr int kStatusRight = 1256;
constexpr int kNoteGap = 20;
constexpr SDL_Rect kNote{640, 19, 0, 32};  // in line with the status items
constexpr int kHintTop = 650;
constexpr int kHintGap = 40;
constexpr int kAlignRightMiddle = 4;

bool bConfirms() { return GetKeyShm(gShmInfo, SHM_BCONFIRM) != 0; }

}  // namespace

LauncherWindow::LauncherWindow(WindowType windowType) : OstrelWindow(/*titleIndex=*/-1, windowType) {}

void LauncherWindow::quit() {}
void LauncherWindow::init() {}
void LauncherWindow::saveState(cJSON* obj) { OstrelWindow::saveState(obj); }
int LauncherWindow::restoreState() { return OstrelWindow::restoreState(); }
void LauncherWindow::onFrame() { OstrelWindow::onFrame(); }

void LauncherWindow::drawBackground() {
    if (gBackground != nullptr) {
        gBackground->render(nullptr, nullptr, /*keepSize=*/false, nullptr);
    } else {
        ClearRect(nullptr, nullptr, 0, 0, 0, 255);
    }
}

void LauncherWindow::drawImage(OstrelSurface* image, int x, int y) {
    if (image == nullptr) return;
    SDL_Rect place{x, y, 0, 0};
    image->render(nullptr, &place, /*keepSize=*/true, nullptr);
}

std::string LauncherWindow::fittingTitle(const std::string& title) { return cutToFit(gNavFont, title, kTitleWidth); }

void LauncherWindow::drawHeading(const char* note) {
    const int noteRight = kStatusRight - drawNavBar(0) - kNoteGap;
    SDL_Rect place = kNote;
    place.w = noteRight - place.x;
    DrawString(gNavFontIcon, place, note, gHighlightColor, kAlignRightMiddle, /*shadow=*/false, /*measureOnly=*/false);
}

int LauncherWindow::drawHint(OstrelSurface* button, const char* label, int x) {
    const int width = draw_stat_icon_item_left(button, x, kHintTop, label);
    return width == 0 ? x : x + width + kHintGap;
}

OstrelSurface* LauncherWindow::confirmButton() { return bConfirms() ? gIconB : gIconA; }
OstrelSurface* LauncherWindow::backButton() { return bConfirms() ? gIconA : gIconB; }

}  // namespace launcher
