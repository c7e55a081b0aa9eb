#include "ostrel/list_menu.h"

#include <algorithm>

#include "ostrel/host.h"
#include "ostrel/input.h"
#include "ostrel/log.h"
#include "ostrel/window.h"

namespace {

constexpr int kPageRows = 6;  // a page of the held key, however many rows are visible
constexpr int kBoostMs = 3000;
constexpr uint64_t kChainGapMs = 200;
constexpr std::size_t kHeldChainLength = 10;
constexpr int kBoostedOnlyKey = 42;  // does nothing but keep the list at the fast rate

bool isDirection(int key) { return key >= KEY_UP && key <= KEY_RIGHT; }

bool hasMeaning(int key) {
    return key == KEY_A || key == KEY_B || key == KEY_X || (key >= KEY_UP && key <= KEY_MENU) || key == kBoostedOnlyKey;
}

}  // namespace

ListMenu::ListMenu(bool) {}

ListMenu::~ListMenu() = default;

void ListMenu::restorePos(int cur, int first, int last) {
    const int count = getListNum();
    const auto namesRow = [count](int index) { return index >= 0 && index < count; };
    if (namesRow(cur)) mCurIndex = cur;
    if (!namesRow(first) || !namesRow(last)) return;
    mFirstIndex = first;
    mLastIndex = last;
}

int ListMenu::eventHandling() {
    SDL_Event event;
    return handleEvent(wait_event(&event));
}

const char* ListMenu::getItemThemePath(int) { return nullptr; }

// Down wraps even when Up may not: a thumb that keeps scrolling always finds the top again. (DownWrapsWithWrapUpOff)
int ListMenu::moveForward() {
    mCurIndex = mCurIndex >= getListNum() - 1 ? 0 : mCurIndex + 1;
    return 0;
}

int ListMenu::moveBackward() {
    if (mCurIndex > 0) {
        --mCurIndex;
        return -1;
    }
    if (!mWrapUp) return LIST_AT_TOP;
    mCurIndex = getListNum() - 1;
    return -1;
}

int ListMenu::xselect() { return 0; }
void ListMenu::refresh() {}
void ListMenu::removeItem(int) {}
void ListMenu::clearItemList() {}
void ListMenu::onShow() {}
void ListMenu::onHide() {}

int ListMenu::pageUp() {
    mCurIndex = std::max(mCurIndex - kPageRows, 0);
    return 0;
}

int ListMenu::pageDown() {
    mCurIndex = std::min(mCurIndex + kPageRows, getListNum() - 1);
    return 0;
}

void ListMenu::setFocus(bool focus) { mFocus = focus; }
void ListMenu::setRect(SDL_Rect& rect) { mRect = rect; }
void ListMenu::checkRepeatKey() {}

int ListMenu::handleEvent(int key) {
    addToPressedKeys(key);
    if (!hasMeaning(key)) return key;
    touchBoostFps(kBoostMs);
    switch (key) {
        case KEY_DOWN:
            pressedForAWhile() ? pageDown() : moveForward();
            return key;
        case KEY_UP: {
            if (pressedForAWhile()) {
                pageUp();
                return key;
            }
            const int result = moveBackward();
            return result > 0 ? result : key;
        }
        case KEY_A:
            return GetKeyShm(gShmInfo, SHM_BCONFIRM) == 0 ? select() : key;
        case KEY_B:
            return GetKeyShm(gShmInfo, SHM_BCONFIRM) != 0 ? select() : key;
        case KEY_X:
            tprintf("key_x\n");
            return xselect();
        default:
            return key;
    }
}

void ListMenu::addToPressedKeys(int key) {
    if (!isDirection(key)) return;
    const uint64_t now = systemms();
    // Unsigned, so a clock that went backwards counts as a pause.
    if (now - mLastKeyTime >= kChainGapMs) {
        mPressedKeys.clear();
        mLastKeyTime = now;
        return;
    }
    // Another direction leaves even the time alone, so it cannot keep a chain alive. (AnotherDirectionChangesNothing)
    if (!mPressedKeys.empty() && mPressedKeys.back() != key) return;
    mPressedKeys.push_back(key);
    mLastKeyTime = now;
}

bool ListMenu::pressedForAWhile() {
    tprintf("pressedForAWhile %d\n", static_cast<int>(mPressedKeys.size()));
    return mPressedKeys.size() > kHeldChainLength;
}
