#include "windows/recent_window.h"

#include <algorithm>

#include "game_row.h"
#include "game_system.h"
#include "host.h"
#include "icons.h"
#include "ostrel/input.h"
#include "ostrel/language.h"
#include "play.h"
#include "popups.h"
#include "recent_games.h"
#include "window_state.h"
#include "windows/games_window.h"

namespace launcher {
namespace {

// A game that tells how often it was played.
class RecentRow : public GameRow {
public:
    explicit RecentRow(const RecentGame& game)
        : GameRow(nameIn(game.path), game.path, /*isFolder=*/false, gameAction()), mTimesPlayed(game.timesPlayed) {}
    std::string getSubLabel() override { return textWithNumber(kTextTimesPlayed, mTimesPlayed); }

private:
    int mTimesPlayed;
};

}  // namespace

RecentWindow::RecentWindow()
    : LauncherWindow(kRecentWindow, kTextRecent), mMenu(kHalfRowFocused, kHalfRowNormal, kListRows, kListGap) {
    SDL_Rect place = kHalfListPlace;
    mMenu.updateRectAndNum(place, kListRows);
    fill();
}

void RecentWindow::saveState(cJSON* obj) { savePosition(obj, mMenu); }
void RecentWindow::restore(const cJSON* state) { restorePosition(state, mMenu); }
void RecentWindow::themeChanged() { reloadRowImages(mMenu, kHalfRowFocused, kHalfRowNormal); }

GameRow* RecentWindow::current() { return static_cast<GameRow*>(mMenu.getItemByIndex(mMenu.mCurIndex)); }

// The cursor goes along with its game, which is first after it was played; where that has gone, the cursor stays.
void RecentWindow::fill() {
    const std::string path = current() == nullptr ? "" : current()->path;
    mVersion = recentGamesVersion();
    mMenu.clearItemList();
    for (const RecentGame& game : recentGames()) {
        if (game.path == path) mMenu.mCurIndex = mMenu.getListNum();
        mMenu.insertItem(new RecentRow(game));
    }
    mMenu.mCurIndex = std::clamp(mMenu.mCurIndex, 0, std::max(mMenu.getListNum() - 1, 0));
    mMenu.mFirstIndex = 0;
    mMenu.mLastIndex = 0;
}

void RecentWindow::onFrame() {
    LauncherWindow::onFrame();
    if (mVersion != recentGamesVersion()) fill();
}

void RecentWindow::preDraw() {
    mMenu.showListNum = listView().numbers;
    mMenu.mName = listView().searchWord;
}

int RecentWindow::handleInput() {
    const int key = mMenu.eventHandling();
    if (key == backKey()) return WIN_BACK;
    switch (key) {
        case KEY_LEFT:
        case KEY_HOTKEY1:
            mMenu.pageUp();
            return KEY_NONE;
        case KEY_RIGHT:
        case KEY_HOTKEY2:
            if (mMenu.getListNum() > 0) mMenu.pageDown();
            return KEY_NONE;
        case KEY_SELECT:
            listView().numbers = !listView().numbers;
            return WIN_REDRAW;
        case KEY_Y:
            if (mMenu.getListNum() > 0) askQuestion(kTextClearTitle, kTextClearQuestion, &clearRecentGames);
            return WIN_REDRAW;
        default:
            return key;
    }
}

void RecentWindow::draw() {
    const ArtFrame frame;
    LauncherWindow::draw();
    GameRow* game = current();
    if (game == nullptr) {
        drawNotice(kListPlace, getLangStr(kTextNothingPlayed));
        drawHints({{backButton(), kTextBack}});
        return;
    }
    mMenu.draw();
    mPanel.draw(*game, game->getSubLabel());
    drawHints({{confirmButton(), kTextHintPlay},
               {backButton(), kTextBack},
               {icons().buttonX.get(), kTextHintMore},
               {icons().buttonY.get(), kTextHintClear},
               {icons().buttonSelect.get(), listView().numbers ? kTextHintIcons : kTextHintNumbers}});
}

}  // namespace launcher
