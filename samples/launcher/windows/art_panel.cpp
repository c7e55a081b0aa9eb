#include "windows/art_panel.h"

#include <SDL.h>

#include "art_loader.h"
#include "game_row.h"
#include "game_system.h"
#include "icons.h"
#include "ostrel/skin.h"
#include "ostrel/system_settings.h"
#include "ostrel/text.h"
#include "ostrel/window.h"
#include "text_layout.h"

namespace launcher {
namespace {

constexpr SDL_Rect kPanel{872, 80, 398, 572};
constexpr SDL_Rect kArt{kPanel.x + (kPanel.w - kPanelArtWidth) / 2, 100, kPanelArtWidth, kPanelArtHeight};
constexpr int kLineMargin = 20;
constexpr SDL_Rect kUpperLine{kPanel.x + kLineMargin, 564, kPanel.w - 2 * kLineMargin, 32};
constexpr SDL_Rect kLowerLine{kPanel.x + kLineMargin, 602, kPanel.w - 2 * kLineMargin, 32};
constexpr int kBoostMs = 300;  // until all pictures are there

void drawCentred(OstrelSurface& image, const SDL_Rect& box) {
    SDL_Rect place{box.x + (box.w - image.getWidth()) / 2, box.y + (box.h - image.getHeight()) / 2, 0, 0};
    image.render(nullptr, &place, /*keepSize=*/true, nullptr);
}

void drawLine(TTF_Font* font, const SDL_Rect& place, const std::string& text, SDL_Color colour) {
    DrawString(font, place, cutToFit(font, text, place.w).c_str(), colour, kAlignCentre, /*shadow=*/false,
               /*measureOnly=*/false);
}

}  // namespace

// A row's system is read once for as long as the cursor stays on it.
const std::string& ArtPanel::systemName(const GameRow& row) {
    if (row.path != mPath || mLanguage != getSystemLanguage()) {
        mPath = row.path;
        mLanguage = getSystemLanguage();
        mSystem = row.isFolder ? readSystem(row.path).name : systemOf(row.path).name;
    }
    return mSystem;
}

void ArtPanel::draw(GameRow& row, const std::string& note) {
    if (OstrelSurface* panel = icons().artPanel.get()) {
        SDL_Rect place = kPanel;
        panel->render(nullptr, &place, /*keepSize=*/true, nullptr);
    }
    OstrelSurface* picture = artLoader().get(row.art(), kArt.w, kArt.h);
    if (picture == nullptr) picture = row.kindIcon();
    if (picture != nullptr) drawCentred(*picture, kArt);
    drawLine(gListFontSubtxt, kUpperLine, systemName(row), gListColorTxt);
    drawLine(gListFontSubtxt, kLowerLine, note, gListColorSubtxt);
}

ArtFrame::ArtFrame() { artLoader().beginFrame(); }

ArtFrame::~ArtFrame() {
    if (artLoader().endFrame()) touchBoostFps(kBoostMs);
}

}  // namespace launcher
