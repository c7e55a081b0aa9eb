#include "ostrel/setting_menu.h"

#include <memory>

#include "ostrel/host.h"
#include "ostrel/input.h"
#include "ostrel/log.h"
#include "ostrel/window.h"

namespace {

constexpr int kRowsPerPage = 6;
constexpr int kRowHeight = 96;
constexpr int kRowInset = 10;
constexpr int kNotHandled = -1;

}  // namespace

SettingMenu::SettingMenu() : TextMenuDrawer(nullptr, nullptr, kRowsPerPage, 0) {}

SettingMenu::~SettingMenu() {
    tprintf("SettingMenu::~SettingMenu\n");
    for (ItemDrawable* item : items) std::unique_ptr<ItemDrawable>{item}.reset();
}

void SettingMenu::insertSettingItem(ItemDrawable* item) {
    if (item != nullptr) items.push_back(item);
}

ItemDrawable* SettingMenu::getItemByIndex(int index) {
    if (index < 0 || index >= getListNum()) return nullptr;
    return items[static_cast<std::size_t>(index)];
}

int SettingMenu::getListNum() { return static_cast<int>(items.size()); }

int SettingMenu::select() {
    ItemDrawable* row = getItemByIndex(mCurIndex);
    if (row == nullptr || row->action == nullptr) return kNotHandled;
    return row->action->dowork(row);
}

// A row that takes the key keeps it; else the row's action runs. After the action nothing of this page may be touched.
int SettingMenu::confirm(int key, int handledResult) {
    ItemDrawable* row = getItemByIndex(mCurIndex);
    if (row != nullptr && row->handleEvent(key) >= 0) return handledResult;
    return select();
}

int SettingMenu::eventHandling() {
    const int key = wait_event(nullptr);
    const bool bConfirms = GetKeyShm(gShmInfo, SHM_BCONFIRM) != 0;
    switch (key) {
        case KEY_UP:
            moveBackward();
            return kNotHandled;
        case KEY_DOWN:
            moveForward();
            return kNotHandled;
        case KEY_LEFT:
        case KEY_RIGHT:
            if (ItemDrawable* row = getItemByIndex(mCurIndex)) row->handleEvent(key);
            return kNotHandled;
        case KEY_A:
            return bConfirms ? WIN_BACK : confirm(key, kNotHandled);
        // A B that a row took comes back as the menu key, unlike A and Y. (ARowThatTakesBGivesTheMenuKey)
        case KEY_B:
            return bConfirms ? confirm(key, KEY_MENU) : WIN_BACK;
        case KEY_X:
            return WIN_BACK;
        case KEY_Y:
            return confirm(key, kNotHandled);
        case KEY_MENU:
            return KEY_MENU;
        default:
            return kNotHandled;
    }
}

void SettingMenu::draw() {
    const int count = getListNum();
    if (mFirstIndex == 0 && mLastIndex == 0) mLastIndex = kRowsPerPage - 1;
    if (mCurIndex < mFirstIndex) {
        mFirstIndex = mCurIndex;
        mLastIndex = mCurIndex + kRowsPerPage - 1;
    }
    if (mCurIndex > mLastIndex) {
        mFirstIndex = mCurIndex - kRowsPerPage + 1;
        mLastIndex = mCurIndex;
    }
    if (mFirstIndex < 0) mFirstIndex = 0;
    if (mLastIndex >= count - 1) mLastIndex = count - 1;
    for (int i = mFirstIndex; i <= mLastIndex; ++i) {
        SDL_Rect row{mRect.x + kRowInset, mRect.y + kRowHeight * (i - mFirstIndex), mRect.w - 2 * kRowInset,
                     kRowHeight};
        if (ItemDrawable* item = getItemByIndex(i)) item->draw(row, i == mCurIndex);
    }
}
