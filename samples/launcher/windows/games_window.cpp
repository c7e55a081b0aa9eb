#include "windows/games_window.h"

#include <cjson/cJSON.h>

#include <filesystem>

#include "game_row.h"
#include "game_system.h"
#include "host.h"
#include "icons.h"
#include "ostrel/input.h"
#include "ostrel/language.h"
#include "ostrel/log.h"
#include "window_state.h"
#include "windows/search_window.h"

namespace fs = std::filesystem;

namespace launcher {
namespace {

constexpr uint64_t kLookEveryMs = 1000;

bool canBeRead(const std::string& folder) {
    std::error_code error;
    const fs::directory_iterator entries(folder, error);
    return !error;
}

}  // namespace

ListView& listView() {
    static ListView view;
    return view;
}

GamesWindow::GamesWindow(const std::string& baseDir, const std::string& startDir)
    : LauncherWindow(kGamesWindow, kTextNone),
      mMenu(baseDir.c_str(), startDir.empty() ? nullptr : startDir.c_str(), kHalfRowFocused, kHalfRowNormal,
            /*ySpace=*/kListGap, /*rowsPerPage=*/kListRows) {
    SDL_Rect place = kHalfListPlace;
    mMenu.updateRectAndNum(place, kListRows);
    mMenu.LoadDir();
    folderChanged();
}

void GamesWindow::saveState(cJSON* obj) {
    cJSON_AddStringToObject(obj, "folder", mFolder.c_str());
    savePosition(obj, mMenu);
}

void GamesWindow::restore(const cJSON* state) { restorePosition(state, mMenu); }

const char* GamesWindow::getTitle() { return mHeading.c_str(); }

void GamesWindow::themeChanged() {
    reloadRowImages(mMenu, kHalfRowFocused, kHalfRowNormal);
    retext();
}

void GamesWindow::languageChanged() { retext(); }

void GamesWindow::retext() {
    const std::string name = mMenu.browser.isBaseDir() ? getLangStr(kTextGames) : readSystem(mFolder).name;
    mHeading = fittingTitle(titleOf(name, /*isFolder=*/true));
    mNotedWord.clear();
    mFoundNote.clear();
}

GameRow* GamesWindow::row(int index) { return static_cast<GameRow*>(mMenu.getItemByIndex(index)); }

// Takes over the folder that the menu shows. The menu opens each at its top, with one row more than fits here.
void GamesWindow::folderChanged() {
    mFolder = mMenu.getCurrentDir();
    mMenu.mCurIndex = 0;
    mMenu.mFirstIndex = 0;
    mMenu.mLastIndex = 0;
    const Text reason = canBeRead(mFolder) ? kTextEmptyFolder : kTextUnreadableFolder;
    mNotice = mMenu.getListNum() == 0 ? reason : kTextNone;
    retext();
}

void GamesWindow::standOn(const std::string& path) {
    for (int i = 0; i < mMenu.getListNum(); ++i) {
        if (row(i)->path == path) mMenu.mCurIndex = i;
    }
}

// The menu reads one event, moves the cursor, walks the folders and runs the action of a chosen row. What it has no use
// for comes back.
int GamesWindow::handleInput() {
    const int key = mMenu.eventHandling();
    if (mMenu.getCurrentDir() == mFolder) return handleKey(key);
    const std::string left = mFolder;
    folderChanged();
    standOn(left);  // a folder just entered does not hold it
    return WIN_REDRAW;
}

int GamesWindow::handleKey(int key) {
    switch (key) {
        case KEY_LEFT:
            mMenu.pageUp();
            return KEY_NONE;
        case KEY_RIGHT:
            if (mMenu.getListNum() > 0) mMenu.pageDown();
            return KEY_NONE;
        case KEY_HOTKEY1:
            return goToFound(-1) ? WIN_REDRAW : handleKey(KEY_LEFT);
        case KEY_HOTKEY2:
            return goToFound(1) ? WIN_REDRAW : handleKey(KEY_RIGHT);
        case KEY_SELECT:
            listView().numbers = !listView().numbers;
            return WIN_REDRAW;
        case KEY_Y:
            add2PopupList(new SearchWindow(mMenu.baseDir, listView().searchWord));
            return WIN_REDRAW;
        default:
            return key;
    }
}

// Moves the cursor to the next row that the search word is found in, or with -1 to the previous one, round the ends of
// the list. Returns whether there is one.
bool GamesWindow::goToFound(int step) {
    const int count = mMenu.getListNum();
    for (int tries = 1; tries <= count; ++tries) {
        const int index = ((mMenu.mCurIndex + step * tries) % count + count) % count;
        if (!row(index)->matches(listView().searchWord)) continue;
        mMenu.mCurIndex = index;
        return true;
    }
    return false;
}

int GamesWindow::countFound() {
    int found = 0;
    for (int i = 0; i < mMenu.getListNum(); ++i) found += row(i)->matches(listView().searchWord) ? 1 : 0;
    return found;
}

std::string GamesWindow::headingNote() { return mFoundNote; }

// A card may be taken out while its games are listed, and put in again. Without it there is the folder's notice, and
// the way up.
void GamesWindow::onFrame() {
    LauncherWindow::onFrame();
    if (systemms() < mNextLookMs) return;
    mNextLookMs = systemms() + kLookEveryMs;
    const bool wasReadable = mNotice != kTextUnreadableFolder;
    if (canBeRead(mFolder) != wasReadable) reload();
}

void GamesWindow::reload() {
    mMenu.startDir = mFolder;
    mMenu.LoadDir();
    folderChanged();
}

// A list above this one may have changed the view, so it is taken over before each frame; rows are searched only when
// the word or the rows are others.
void GamesWindow::preDraw() {
    mMenu.showListNum = listView().numbers;
    mMenu.mName = listView().searchWord;
    if (mNotedWord == mMenu.mName) return;
    mNotedWord = mMenu.mName;
    mFoundNote = mNotedWord.empty() ? "" : mNotedWord + " · " + textWithNumber(kTextFound, countFound());
}

void GamesWindow::draw() {
    const ArtFrame frame;
    LauncherWindow::draw();
    mMenu.draw();
    if (mNotice != kTextNone) drawNotice(kListPlace, getLangStr(mNotice));
    if (GameRow* current = row(mMenu.mCurIndex)) mPanel.draw(*current, current->kind());
    drawListHints();
}

void GamesWindow::drawListHints() {
    const GameRow* current = row(mMenu.mCurIndex);
    if (current == nullptr) {
        drawHints({{backButton(), kTextBack}, {icons().buttonY.get(), kTextHintSearch}});
        return;
    }
    drawHints({{confirmButton(), current->isFolder ? kTextHintSelect : kTextHintPlay},
               {backButton(), kTextBack},
               {icons().buttonX.get(), kTextHintMore},
               {icons().buttonY.get(), kTextHintSearch},
               {icons().buttonSelect.get(), listView().numbers ? kTextHintIcons : kTextHintNumbers}});
}

}  // namespace launcher
