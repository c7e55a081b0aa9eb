#include "windows/game_page_window.h"

#include <SDL_ttf.h>
#include <cjson/cJSON.h>

#include "game_system.h"
#include "host.h"
#include "icons.h"
#include "ostrel/dir_browser.h"
#include "ostrel/host.h"
#include "ostrel/input.h"
#include "ostrel/language.h"
#include "ostrel/skin.h"
#include "ostrel/text.h"
#include "play.h"
#include "text_layout.h"

namespace launcher {
namespace {

constexpr int kTextLeft = 40;
constexpr int kTextRight = 1240;
constexpr int kTextRightOfPanel = 844;  // where the panel stands at the right
constexpr SDL_Point kIcon{kTextLeft, 96};
constexpr int kNameLeft = 124;  // right of the icon
constexpr int kNameTop = 88;
constexpr std::size_t kMostNameLines = 2;
constexpr int kLineHeight = 54;
constexpr int kNameLineHeight = 48;
constexpr int kKindHeight = 29;
constexpr int kRuleGap = 18;
constexpr Uint8 kRuleAlpha = 64;
constexpr int kBottom = 650;  // where the hint row begins
constexpr std::size_t kMostLines = 8;

void drawLine(TTF_Font* font, int x, int y, const std::string& text, SDL_Color colour) {
    DrawString(font, {x, y, kTextRight - x, 0}, text.c_str(), colour, kAlignTopLeft, /*shadow=*/false,
               /*measureOnly=*/false);
}

std::vector<std::string> titlesIn(const std::string& folder, TTF_Font* font, int width) {
    DirBrowser browser(&file_filter, &file_handler);
    std::vector<std::string> titles;
    for (void* row : *browser.LoadDir(folder.c_str(), nullptr)) {
        if (titles.size() == kMostLines) break;
        titles.push_back(cutToFit(font, static_cast<TextMenuItem*>(row)->getLabel(), width));
    }
    return titles;
}

}  // namespace

GamePageWindow::GamePageWindow(const std::string& path, bool isFolder)
    : LauncherWindow(kGamePageWindow, kTextDetails), mGame(nameIn(path), path, isFolder, /*action=*/nullptr) {}

void GamePageWindow::saveState(cJSON* obj) { cJSON_AddStringToObject(obj, "path", mGame.path.c_str()); }

int GamePageWindow::textWidth() { return (hasArt() ? kTextRightOfPanel : kTextRight) - kTextLeft; }

void GamePageWindow::init() {
    const int width = textWidth();
    mCanPlay = !mGame.isFolder && !systemOf(mGame.path).command.empty();
    mNameLines = wrapLines(mGame.getLabel(), gListFontTxt, width - (kNameLeft - kTextLeft), kMostNameLines);
    mLines = mGame.isFolder ? titlesIn(mGame.path, gListFontTxt, width)
                            : wrapLines(readTextStart(mGame.path), gListFontTxt, width, kMostLines);
    if (mLines.empty()) mLines.emplace_back(getLangStr(mGame.isFolder ? kTextEmptyFolder : kTextNoPreview));
}

void GamePageWindow::languageChanged() { init(); }

int GamePageWindow::handleInput() {
    const int key = wait_event(nullptr);
    if (key == backKey()) return WIN_BACK;
    if (mCanPlay && (key == KEY_A || key == KEY_B)) playGame(mGame.path);
    return key;
}

void GamePageWindow::draw() {
    const ArtFrame frame;
    LauncherWindow::draw();
    drawImage(mGame.kindIcon(), kIcon.x, kIcon.y);
    drawLines(drawName());
    if (hasArt()) mPanel.draw(mGame, /*note=*/"");
    std::vector<Hint> hints{{backButton(), kTextBack}};
    if (mCanPlay) hints.insert(hints.begin(), {confirmButton(), kTextHintPlay});
    drawHints(hints);
}

// The name, the kind below it, and a rule under both. Returns where the text may begin.
int GamePageWindow::drawName() {
    int y = kNameTop;
    for (const std::string& line : mNameLines) {
        drawLine(gListFontTxt, kNameLeft, y, line, gListColorTxt);
        y += kNameLineHeight;
    }
    drawLine(gListFontSubtxt, kNameLeft, y, mGame.kind(), gListColorSubtxt);
    SDL_Rect rule{kTextLeft, y + kKindHeight + kRuleGap, textWidth(), 2};
    fillPlace(rule, gListColorSubtxt, kRuleAlpha);
    return rule.y + kRuleGap;
}

void GamePageWindow::drawLines(int top) {
    for (const std::string& line : mLines) {
        if (top + kLineHeight > kBottom) break;
        drawLine(gListFontTxt, kTextLeft, top, line, gListColorTxt);
        top += kLineHeight;
    }
}

}  // namespace launcher
