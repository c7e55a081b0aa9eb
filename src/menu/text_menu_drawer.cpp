#include "ostrel/text_menu_drawer.h"

#include <algorithm>
#include <cstdio>

#include "graphics/surface_internal.h"
#include "graphics/text_internal.h"
#include "menu/row_layout.h"
#include "menu/row_painter.h"
#include "ostrel/bars.h"
#include "ostrel/host.h"
#include "ostrel/image.h"
#include "ostrel/log.h"
#include "ostrel/menu_item.h"
#include "ostrel/skin.h"
#include "ostrel/surface.h"
#include "ostrel/text.h"
#include "platform/c_string.h"

namespace {

constexpr SDL_Rect kFullScreenList{0, 80, 1280, 580};  // below the bar of 80 pixels, above that of 60
constexpr int kImageCapacity = 100;
constexpr int kLargestNumber = 9999;

const char* currentTheme() { return ostrel::orEmpty(gThemePath); }

OstrelSurface* loadBackground(const char* path) {
    return path == nullptr ? nullptr : LoadOstrelSurface(gThemePath, ostrel::kWorkingDirectory, path);
}

void reloadBackground(OstrelSurface*& background, const char* path) {
    if (background == nullptr) return;
    delete background;
    background = loadBackground(path);
}

// A row of another kind, which a derived class may hold, is no text row; nothing but its type tells.
TextMenuItemProvider* textRow(ListMenu& menu, int index) {
    return dynamic_cast<TextMenuItemProvider*>(menu.getItemByIndex(index));
}

// What an action's result becomes. The action may have deleted row and menu: it is asked last, and nothing of them is
// touched after it. (AnActionMayDeleteItsMenu)
int atLeastMinusOne(int result) { return std::max(result, -1); }

}  // namespace

TextMenuDrawer::TextMenuDrawer(const char* selBgPath, const char* normalBgPath, int itemsPerPageCount, int ySpace)
    : ListMenu(true),
      selBg(loadBackground(selBgPath)),
      normalBg(loadBackground(normalBgPath)),
      mItemHeight(ostrel::rowHeight(kFullScreenList.h, itemsPerPageCount, ySpace)),
      mYSpaceInList(ySpace),
      textColor(gListColorTxt),
      altTextColor(gListColorTxt),
      itemsPerPage(itemsPerPageCount),
      themePath(currentTheme()),
      iconCache(&deleteSurface, kImageCapacity),
      thumbCache(&deleteSurface, kImageCapacity) {
    mRect = kFullScreenList;
    tprintf("mItemHeight = %d, mYSpaceInList = %d\n", mItemHeight, mYSpaceInList);
}

TextMenuDrawer::~TextMenuDrawer() {
    delete selBg;
    delete normalBg;
}

int TextMenuDrawer::select() {
    TextMenuItemProvider* item = textRow(*this, mCurIndex);
    Action* action = item == nullptr ? nullptr : item->getAction();
    if (action == nullptr) return -1;
    tprintf("%s dowork %p\n", item->getLabel().c_str(), static_cast<void*>(item));
    return atLeastMinusOne(action->dowork(item));
}

int TextMenuDrawer::xselect() {
    tprintf("TextMenuDrawer::xselect\n");
    TextMenuItemProvider* item = textRow(*this, mCurIndex);
    Action* action = item == nullptr ? nullptr : item->getAction();
    return action == nullptr ? -1 : atLeastMinusOne(action->xdowork(item));
}

void TextMenuDrawer::draw() {
    const int count = getListNum();
    if (count < 1) return;
    const ostrel::RowRange range = ostrel::fixRange({mFirstIndex, mLastIndex}, mCurIndex, count, itemsPerPage);
    mFirstIndex = range.first;
    mLastIndex = range.last;
    for (int index = range.first; index <= range.last; ++index) {
        const SDL_Rect row = ostrel::placeRow(mRect, mItemHeight, mYSpaceInList, index - range.first);
        ostrel::drawRow(*this, index, textRow(*this, index), row);
    }
    if (showStatNum) drawListNumAtStatBar(mCurIndex + 1, count);
}

void TextMenuDrawer::refresh() {
    if (themePath == currentTheme()) return;
    reloadBackground(selBg, "skin/bg-list-f.png");
    reloadBackground(normalBg, "skin/bg-list-n.png");
    themePath = currentTheme();
}

void TextMenuDrawer::drawListNum(int num, SDL_Rect& rect, _TTF_Font* font) {
    char text[16];
    std::snprintf(text, sizeof text, "%04d", std::min(num, kLargestNumber));
    DrawString(font, rect, text, gListColorSeq, ostrel::kAlignCentre, /*shadow=*/false, /*measureOnly=*/false);
}

void TextMenuDrawer::updateRectAndNum(SDL_Rect& rect, int itemsPerPageCount) {
    setRect(rect);
    itemsPerPage = itemsPerPageCount;
    mItemHeight = ostrel::rowHeight(rect.h, itemsPerPageCount, mYSpaceInList);
}

void TextMenuDrawer::ignoreSelBG(bool ignore) {
    if (!ignore) return;
    delete selBg;
    selBg = nullptr;
}

std::string TextMenuDrawer::getThemePath(TextMenuItemProvider* item, int index) {
    const char* chosen = getItemThemePath(index);
    if (chosen != nullptr && *chosen != '\0') return chosen;
    return item == nullptr ? std::string() : item->getThemePath();
}
