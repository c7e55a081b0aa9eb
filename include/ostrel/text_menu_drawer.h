/// @file  text_menu_drawer.h: a list menu drawn as rows of text.
/// Threads: UI thread only.
#pragma once
#include <SDL.h>
#include <SDL_ttf.h>

#include <string>

#include "ostrel/export.h"
#include "ostrel/list_menu.h"
#include "ostrel/lru_cache.h"

class OstrelSurface;
class TextMenuItemProvider;

class OSTREL_API TextMenuDrawer : public ListMenu {
public:
    TextMenuDrawer(const char* selBgPath, const char* normalBgPath, int itemsPerPage, int ySpace);
    ~TextMenuDrawer() override;
    int select() override;
    void draw() override;
    int xselect() override;
    void refresh() override;
    virtual void drawListNum(int num, SDL_Rect& rect, _TTF_Font* font);

    void updateRectAndNum(SDL_Rect& rect, int itemsPerPage);
    void ignoreSelBG(bool ignore);
    std::string getThemePath(TextMenuItemProvider* item, int index);

    OstrelSurface* selBg;
    OstrelSurface* normalBg;
    OstrelSurface* selMark;
    OstrelSurface* extraSurface;
    int mItemHeight;
    int mYSpaceInList;
    bool showListNum;
    bool reservedFlag;
    bool showStatNum;
    std::string reservedText;
    SDL_Color textColor;
    SDL_Color altTextColor;
    bool marquee;
    int itemsPerPage;
    std::string themePath;
    LRUCache iconCache;
    LRUCache thumbCache;
    int bgInset;
    bool textMode;
};
