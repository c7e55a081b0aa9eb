/// @file  list_menu.h: the cursor and visible range of a list, and the keys that move them.
/// A ListMenu draws nothing and knows of its rows only how many there are. It is no window: a window forwards
/// eventHandling and draw to it.
/// Threads: UI thread only.  Units: rows count from 0.
/// Binary interface: the order of virtual operations and fields; new ones go last.
#pragma once
#include <SDL.h>

#include <cstdint>
#include <string>
#include <vector>

#include "ostrel/export.h"

class ListItem;

/// Up was pressed on the first row of a list that does not wrap upwards; the owner may move the focus elsewhere.
constexpr int LIST_AT_TOP = 1008;

/// The root of every scrolling list.
class OSTREL_API ListMenu {
public:
    /// An empty range with the cursor on row 0. @param unused changes nothing: the list is shown and wraps upwards
    /// whatever is passed.
    explicit ListMenu(bool unused);
    ListMenu(const ListMenu&) = delete;
    ListMenu& operator=(const ListMenu&) = delete;
    /// Lists are deleted through this class.
    virtual ~ListMenu();
    /// Puts a saved position back: the cursor when it names a row, the visible range when both its ends do. Whatever
    /// does not is left out, not clamped. @param cur the cursor's row, @p first and @p last the ends of the range.
    virtual void restorePos(int cur, int first, int last);
    /// Takes one key from wait_event. @return what handleEvent makes of it.
    virtual int eventHandling();
    /// Runs the row under the cursor. @return the row's result, or negative when nothing was done.
    virtual int select() = 0;
    /// @return the row, still the list's, or null when @p index names none.
    virtual ListItem* getItemByIndex(int index) = 0;
    /// @return a theme directory for this row, ending in "/", or null (as here) for the row's own choice.
    virtual const char* getItemThemePath(int index);
    /// Draws the list into the render target.
    virtual void draw() = 0;
    /// @return the number of rows.
    virtual int getListNum() = 0;
    /// Moves the cursor one row down, from the last row to the first; mWrapUp plays no part. @return 0.
    virtual int moveForward();
    /// Moves the cursor one row up, from the first row to the last when mWrapUp is set.
    /// @return -1, or LIST_AT_TOP when the cursor stays because mWrapUp is not set.
    virtual int moveBackward();
    /// Runs the second action of the row under the cursor. @return here 0.
    virtual int xselect();
    /// Takes over a changed theme. Does nothing here.
    virtual void refresh();
    /// Removes a row. Does nothing here.
    virtual void removeItem(int index);
    /// Removes every row. Does nothing here.
    virtual void clearItemList();
    /// Left to the program, for a list that comes into view; the library never calls it. Does nothing here.
    virtual void onShow();
    /// Left to the program, for a list that goes out of view; the library never calls it. Does nothing here.
    virtual void onHide();
    /// Moves the cursor six rows up, at most to the first. @return 0.
    virtual int pageUp();
    /// Moves the cursor six rows down, at most to the last, which is -1 in an empty list. @return 0.
    virtual int pageDown();

    /// Sets mFocus.
    void setFocus(bool focus);
    /// Sets mRect.
    void setRect(SDL_Rect& rect);
    /// Does nothing; kept for classes that call it.
    void checkRepeatKey();
    /// Acts on a logical key (see KeyCode). Up and Down move the cursor, by six rows once they have been held for a
    /// while; A, or B when the status block's SHM_BCONFIRM is set, runs select; X runs xselect. Every key with a
    /// meaning asks for three seconds of the faster frame rate.
    /// @return the result of select or xselect when one ran, LIST_AT_TOP where moveBackward says so, otherwise the key.
    int handleEvent(int key);
    /// Enters a direction key (5 to 8) into the chain that tells a held key; other keys change nothing. A key within
    /// 200 ms of the last one joins the chain if it is the same; a later one empties the chain and is not entered.
    void addToPressedKeys(int key);
    /// @return whether the chain holds more than 10 keys; logs its length.
    bool pressedForAWhile();

    bool mShowFlag = true;          ///< for whoever draws the list; navigation never reads it
    bool mWrapUp = true;            ///< whether Up on the first row goes to the last
    int mCurIndex = 0;              ///< the cursor; may name no row after rows have vanished
    int mFirstIndex = 0;            ///< first visible row, kept by whoever draws
    int mLastIndex = 0;             ///< last visible row; both are 0 before the first draw
    std::string mName;              ///< the search keyword that rows highlight; empty for none
    SDL_Rect mRect{};               ///< where the list is drawn
    uint64_t mLastKeyTime = 0;      ///< systemms() of the last direction key that counted
    std::vector<int> mPressedKeys;  ///< the chain of equal direction keys in quick succession
    bool mFocus = true;             ///< whether the row under the cursor is shown as selected
};
