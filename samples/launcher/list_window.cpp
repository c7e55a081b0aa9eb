#include "list_window.h"

#include <SDL.h>

#include "file_row.h"
#include "host.h"
#include "icons.h"
#include "ostrel/input.h"
#include "ostrel/language.h"
#include "ostrel/skin.h"
#include "ostrel/text.h"
#include "texts.h"

namespace launcher {
namespace {

// Five rows of 108, the height of the theme's row images that have room for a second line, and a gap that leaves the
// hint row below some air.
constexpr int kRowsPerPage = 5;
constexpr int kRowGap = 8;
constexpr SDL_Rect kListPlace{0, 80, 1280, 572};
constexpr SDL_Rect kEmptyText{0, 80, 1280, 570};
constexpr int kHintLeft = 30;
constexpr int kAlignCentre = 1;

}  // namespace

const std::string& ListView::word() const {
    static const std::string kNone;
    return searchWord == 0 ? kNone : searchWords[searchWord - 1];
}

void ListView::nextWord() { searchWord = (searchWord + 1) % (searchWords.size() + 1); }

ListView& listView() {
    static ListView view;
    return view;
}

ListWindow::ListWindow(const std::string& folder, const std::string& heading, Level level)
    : LauncherWindow(kListWindow),
      mMenu("skin/bg-tall-f.png", "skin/bg-tall-n.png", kRowsPerPage, kRowGap),
      mHeading(fittingTitle(heading)),
      mLevel(level) {
    SDL_Rect place = kListPlace;
    mMenu.updateRectAndNum(place, kRowsPerPage);
    for (TextMenuItem* item : readDirectory(folder)) mMenu.insertItemSorted(item, compareRows);
    goToFound(0);
}

const char* ListWindow::getTitle() { return mHeading.c_str(); }

// The menu reads one event, moves the cursor and runs the action of a chosen row. What it has no use for comes back.
int ListWindow::eventHandling() {
    if (quitRequested()) return WIN_QUIT;
    return handleKey(mMenu.eventHandling());
}

int ListWindow::handleKey(int key) {
    if (key == backKey()) return mLevel == Level::First ? WIN_CLOSE : WIN_BACK;
    switch (key) {
        case KEY_LEFT:
            mMenu.pageUp();
            return KEY_NONE;
        case KEY_RIGHT:
            if (mMenu.getListNum() > 0) mMenu.pageDown();
            return KEY_NONE;
        case KEY_SELECT:
            listView().numbers = !listView().numbers;
            return WIN_REDRAW;
        case KEY_Y:
            listView().nextWord();
            goToFound(0);
            return WIN_REDRAW;
        case KEY_HOTKEY1:
            goToFound(-1);
            return WIN_REDRAW;
        case KEY_HOTKEY2:
            goToFound(1);
            return WIN_REDRAW;
        default:
            return key;
    }
}

FileRow* ListWindow::row(int index) { return static_cast<FileRow*>(mMenu.getItemByIndex(index)); }

// Moves the cursor to the nearest row that the search finds, from the current one on (0), the next (1) or the previous
// (-1) on, round the ends of the list. Without one it stays.
void ListWindow::goToFound(int step) {
    const int count = mMenu.getListNum();
    const int direction = step < 0 ? -1 : 1;
    for (int tries = 0; tries < count; ++tries) {
        const int index = ((mMenu.mCurIndex + step + direction * tries) % count + count) % count;
        if (!row(index)->matches(listView().word())) continue;
        mMenu.mCurIndex = index;
        return;
    }
}

int ListWindow::countFound() {
    int found = 0;
    for (int i = 0; i < mMenu.getListNum(); ++i) found += row(i)->matches(listView().word()) ? 1 : 0;
    return found;
}

std::string ListWindow::searchNote() {
    const std::string& word = listView().word();
    return word.empty() ? std::string() : word + " · " + textWithNumber(kTextFound, countFound());
}

// A list below this one may have changed the view, so it is taken over before each frame; rows are searched only when
// the word is a new one.
void ListWindow::preDraw() {
    mMenu.showListNum = listView().numbers;
    mMenu.mName = listView().word();
    if (mNotedWord == mMenu.mName) return;
    mNotedWord = mMenu.mName;
    mSearchNote = searchNote();
}

void ListWindow::draw() {
    drawBackground();
    drawHeading(mSearchNote.c_str());
    const bool empty = mMenu.getListNum() == 0;
    if (empty) {
        DrawString(gListFontTxt, kEmptyText, getLangStr(kTextEmpty), gListColorTxt, kAlignCentre, /*shadow=*/false,
                   /*measureOnly=*/false);
    }
    mMenu.draw();
    drawHints(empty);
}

void ListWindow::drawHints(bool empty) {
    const char* leave = getLangStr(mLevel == Level::First ? kTextQuit : kTextBack);
    if (empty) {
        drawHint(backButton(), leave, kHintLeft);
        return;
    }
    int x = drawHint(confirmButton(), getLangStr(kTextOpen), kHintLeft);
    x = drawHint(backButton(), leave, x);
    x = drawHint(icons().buttonX.get(), getLangStr(kTextDetails), x);
    x = drawHint(icons().buttonY.get(), getLangStr(kTextSearch), x);
    drawHint(icons().buttonSelect.get(), getLangStr(listView().numbers ? kTextIcons : kTextNumbers), x);
}

}  // namespace launcher
