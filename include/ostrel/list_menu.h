/// @file  list_menu.h: the cursor and visible range of a list, and the keys that move them.
/// Threads: UI thread only.
#pragma once
#include <SDL.h>

#include <cstdint>
#include <string>
#include <vector>

#include "ostrel/export.h"

class ListItem;

/// Up was pressed on the first row of a list that does not wrap upwards.
constexpr int LIST_AT_TOP = 1008;

class OSTREL_API ListMenu {
public:
    explicit ListMenu(bool unused);
    ListMenu(const ListMenu&) = delete;
    ListMenu& operator=(const ListMenu&) = delete;
    virtual ~ListMenu();
    virtual void restorePos(int cur, int first, int last);
    virtual int eventHandling();
    virtual int select() = 0;
    virtual ListItem* getItemByIndex(int index) = 0;
    virtual const char* getItemThemePath(int index);
    virtual void draw() = 0;
    virtual int getListNum() = 0;
    virtual int moveForward();
    virtual int moveBackward();
    virtual int xselect();
    virtual void refresh();
    virtual void removeItem(int index);
    virtual void clearItemList();
    virtual void onShow();
    virtual void onHide();
    virtual int pageUp();
    virtual int pageDown();

    void setFocus(bool focus);
    void setRect(SDL_Rect& rect);
    void checkRepeatKey();
    int handleEvent(int key);
    void addToPressedKeys(int key);
    bool pressedForAWhile();

    bool mShowFlag;
    bool mWrapUp;
    int mCurIndex;
    int mFirstIndex;
    int mLastIndex;
    std::string mName;
    SDL_Rect mRect;
    uint64_t mLastKeyTime;
    std::vector<int> mPressedKeys;
    bool mFocus;
};
