/// @file  text_menu_drawer.h: a list menu drawn as rows of text, and the choice of a row.
/// The drawer holds no rows: it asks the class that derives from it (getItemByIndex, getListNum) and reads each row
/// through TextMenuItemProvider. What is no text row counts as a row that is not there yet.
/// Threads: UI thread only.  Units: pixels of the 1280 x 720 screen.
/// Binary interface: the order of virtual operations and fields; new ones go last.
#pragma once
#include <SDL.h>
#include <SDL_ttf.h>

#include <string>

#include "ostrel/export.h"
#include "ostrel/list_menu.h"
#include "ostrel/lru_cache.h"

class OstrelSurface;
class TextMenuItemProvider;

/// Draws the visible rows of a list: background, marker, number or icon, label and sub-label.
class OSTREL_API TextMenuDrawer : public ListMenu {
public:
    /// Makes a list in the rectangle (0, 80, 1280, 580), between the two bars, and loads its backgrounds from
    /// gThemePath, else from "./"; one that is missing stays null and is not drawn. Logs the row height.
    /// @param selBgPath, normalBgPath backgrounds of the row under the cursor and of the others, "skin/..."; null for
    /// none. @param itemsPerPage rows that share the height; with 0 the row height is 0. @param ySpace gap between
    /// rows.
    TextMenuDrawer(const char* selBgPath, const char* normalBgPath, int itemsPerPage, int ySpace);
    /// Frees both backgrounds and what is in the caches.
    ~TextMenuDrawer() override;
    /// Runs the action of the row under the cursor with the row as its argument, and logs the label. The action may
    /// delete row and menu. @return its result, or -1 without row or action and for every negative result.
    int select() override;
    /// Moves the visible range to the cursor and draws its rows into the render target. An empty list draws nothing.
    /// A row that is not there yet shows the interface text 3 as its label.
    void draw() override;
    /// Runs the second action of the row under the cursor, as select does the first. @return as select.
    int xselect() override;
    /// Loads the backgrounds again when gThemePath has changed since the last time: "skin/bg-list-f.png" and
    /// "skin/bg-list-n.png", whatever names the list was made with. A background that is null stays null.
    void refresh() override;
    /// Draws a row's number as four digits in gListColorSeq, centred in @p rect. @param num the row counted from 1;
    /// above 9999 it is drawn as 9999. @param font null draws nothing.
    virtual void drawListNum(int num, SDL_Rect& rect, _TTF_Font* font);

    /// Sets the list's rectangle and shares its height out among @p itemsPerPage rows: each gets (height - gaps) /
    /// itemsPerPage, rounded towards 0, with itemsPerPage - 1 gaps of mYSpaceInList between them; 0 rows give height 0.
    void updateRectAndNum(SDL_Rect& rect, int itemsPerPage);
    /// Frees the background of the row under the cursor for good when @p ignore is true, so that this row has none;
    /// false does nothing.
    void ignoreSelBG(bool ignore);
    /// @return the theme directory for a row: what getItemThemePath(index) gives, else the row's own; empty means
    ///         gThemePath. @param item the row, or null.
    std::string getThemePath(TextMenuItemProvider* item, int index);

    OstrelSurface* selBg;                   ///< owned; background under the cursor while the list has the focus
    OstrelSurface* normalBg;                ///< owned; background of the other rows
    OstrelSurface* selMark = nullptr;       ///< not owned; drawn at the left of the cursor's row, all rows make room
    OstrelSurface* extraSurface = nullptr;  ///< left to the program
    int mItemHeight;                        ///< height of one row
    int mYSpaceInList;                      ///< gap between two rows
    bool showListNum = true;                ///< a column of row numbers, which takes the place of the icons
    bool reservedFlag = false;              ///< left to the program
    bool showStatNum = true;                ///< cursor and row count at the bottom of the screen
    std::string reservedText;               ///< left to the program
    SDL_Color textColor;                    ///< of the labels; gListColorTxt at construction
    SDL_Color altTextColor;                 ///< left to the program; gListColorTxt at construction
    bool marquee = false;                   ///< draws the texts of the cursor's row with a shadow
    int itemsPerPage;                       ///< rows of a page
    std::string themePath;                  ///< gThemePath when the backgrounds were loaded; empty for null
    /// Images that a derived class keeps for its rows: each value put must come from an OstrelSurface*. The cache owns
    /// and deletes them, so nothing borrowed (getIconFromCache) may go in. It holds at most 101; a later put deletes
    /// the least recently used even while a row points to it.
    LRUCache iconCache;
    LRUCache thumbCache;    ///< larger ones, by the same rules
    int bgInset = 10;       ///< how far right of the row its background stands
    bool textMode = false;  ///< centres the labels in their rows
};
