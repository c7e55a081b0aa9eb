#include "windows/launcher_window.h"

#include <algorithm>

#include "icons.h"
#include "ostrel/bars.h"
#include "ostrel/host.h"
#include "ostrel/image.h"
#include "ostrel/language.h"
#include "ostrel/skin.h"
#include "ostrel/surface.h"
#include "ostrel/text.h"
#include "ostrel/text_menu_drawer.h"
#include "screen_shot.h"
#include "session.h"
#include "settings_values.h"
#include "text_layout.h"

namespace launcher {
namespace {

constexpr int kTitleWidth = 620;
constexpr int kStatusRight = 1256;
constexpr int kNoteGap = 24;
constexpr SDL_Rect kNote{640, 19, 0, 32};  // in line with the status items
constexpr int kHintLeft = 30;
constexpr int kHintTop = 650;
constexpr int kHintGap = 40;

std::vector<LauncherWindow*> sWindows;

// Draws a text that ends at @p right. Returns where the next one to its left may end.
int drawNote(const std::string& text, int right, SDL_Color colour) {
    if (text.empty()) return right;
    SDL_Rect place = kNote;
    place.w = right - place.x;
    const int width = DrawString(gNavFontIcon, place, text.c_str(), colour, kAlignRight, /*shadow=*/false,
                                 /*measureOnly=*/false);
    return width == 0 ? right : right - width - kNoteGap;
}

void replaceImage(OstrelSurface*& image, const char* name) {
    delete image;
    image = LoadOstrelSurface(gThemePath, "./", name);
}

}  // namespace

void fillPlace(SDL_Rect place, SDL_Color colour, Uint8 alpha) {
    FillRect(nullptr, &place, colour.r, colour.g, colour.b, alpha);
}

LauncherWindow::LauncherWindow(WindowType windowType, Text titleText) : OstrelWindow(titleText, windowType) {
    sWindows.push_back(this);
}

LauncherWindow::~LauncherWindow() { sWindows.erase(std::find(sWindows.begin(), sWindows.end(), this)); }

const std::vector<LauncherWindow*>& LauncherWindow::all() { return sWindows; }

int LauncherWindow::eventHandling() { return leaveRequested() ? leaveLoop() : handleInput(); }

void LauncherWindow::quit() {}
void LauncherWindow::init() {}
void LauncherWindow::saveState(cJSON* obj) { OstrelWindow::saveState(obj); }
int LauncherWindow::restoreState() { return OstrelWindow::restoreState(); }
void LauncherWindow::themeChanged() {}
void LauncherWindow::languageChanged() {}
std::string LauncherWindow::headingNote() { return ""; }

void LauncherWindow::onFrame() {
    answerShotRequest();
    OstrelWindow::onFrame();
}

void LauncherWindow::draw() {
    if (gBackground != nullptr) {
        gBackground->render(nullptr, nullptr, /*keepSize=*/false, nullptr);
    } else {
        ClearRect(nullptr, nullptr, 0, 0, 0, 255);
    }
    drawHeading();
}

void LauncherWindow::drawHeading() {
    const int clockRight = kStatusRight - drawNavBar(0) - kNoteGap;
    const int noteRight = drawNote(clockText(), clockRight, gNavColorIcon);
    drawNote(headingNote(), noteRight, gHighlightColor);
}

void LauncherWindow::drawImage(OstrelSurface* image, int x, int y) {
    if (image == nullptr) return;
    SDL_Rect place{x, y, 0, 0};
    image->render(nullptr, &place, /*keepSize=*/true, nullptr);
}

void LauncherWindow::drawHints(const std::vector<Hint>& hints) {
    int x = kHintLeft;
    for (const Hint& hint : hints) {
        const int width = draw_stat_icon_item_left(hint.button, x, kHintTop, getLangStr(hint.label));
        if (width > 0) x += width + kHintGap;
    }
}

void LauncherWindow::drawNotice(const SDL_Rect& place, const std::string& text) {
    DrawString(gListFontTxt, place, text.c_str(), gListColorTxt, kAlignCentre, /*shadow=*/false,
               /*measureOnly=*/false);
}

std::string LauncherWindow::fittingTitle(const std::string& title) { return cutToFit(gNavFont, title, kTitleWidth); }

void reloadRowImages(TextMenuDrawer& menu, const char* focused, const char* normal) {
    replaceImage(menu.selBg, focused);
    replaceImage(menu.normalBg, normal);
    menu.themePath = gThemePath;
    menu.textColor = gListColorTxt;
}

}  // namespace launcher
