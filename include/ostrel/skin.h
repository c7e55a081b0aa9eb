/// @file  skin.h: the fonts, colours and images of the current theme.
/// Threads: UI thread only, while nothing draws.
#pragma once
#include <SDL.h>
#include <SDL_ttf.h>

#include "ostrel/export.h"
#include "ostrel/lru_cache.h"

class OstrelSurface;

extern OSTREL_API TTF_Font* gNavFont;
extern OSTREL_API TTF_Font* gNavFontIcon;
extern OSTREL_API TTF_Font* gListFontTxt;
extern OSTREL_API TTF_Font* gListFontSubtxt;
extern OSTREL_API TTF_Font* gStatFont;
extern OSTREL_API TTF_Font* gMenuFont;
extern OSTREL_API TTF_Font* gPopupFontTitle;
extern OSTREL_API TTF_Font* gPopupFontTxt;
extern OSTREL_API TTF_Font* gPopupFontBtn;

extern OSTREL_API SDL_Color gNavColorTxt;
extern OSTREL_API SDL_Color gNavColorIcon;
extern OSTREL_API SDL_Color gListColorTxt;
extern OSTREL_API SDL_Color gListColorSubtxt;
extern OSTREL_API SDL_Color gListColorSeq;
extern OSTREL_API SDL_Color gStatColorTxt;
extern OSTREL_API SDL_Color gPopupColorTxt;
extern OSTREL_API SDL_Color gPopupColorBtn;
extern OSTREL_API SDL_Color gHighlightColor;
extern OSTREL_API SDL_Color gPopupColorTitle;

extern OSTREL_API OstrelSurface* gIconVideo;
extern OSTREL_API OstrelSurface* gIconFolder;
extern OSTREL_API OstrelSurface* gBackground;
extern OSTREL_API OstrelSurface* gIconBack;
extern OSTREL_API OstrelSurface* gIconMenu;
extern OSTREL_API OstrelSurface* gIconA;
extern OSTREL_API OstrelSurface* gIconB;
extern OSTREL_API OstrelSurface* gBackgroundFloat;

extern OSTREL_API LRUCache gIconCache;

OSTREL_API void init_shared_skin();
OSTREL_API void uninit_shared_skin();
OSTREL_API OstrelSurface* getIconFromCache(const char* name);
