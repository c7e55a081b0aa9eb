/// @file  skin.h: the fonts, colours and images of the current theme, and a cache of further icons.
/// Threads: UI thread only; the skin changes while nothing draws.  Owner: everything here is the library's own; nobody
/// else closes, deletes or keeps it beyond uninit_shared_skin.  Failures: what could not be opened is null, and what is
/// drawn with it is then left out.
///
/// Fonts come from regular.ttf in the working directory, whatever the theme. Images come from gThemePath, those that it
/// lacks from the working directory, with one log line each. A size stands in points.
#pragma once
#include <SDL.h>
#include <SDL_ttf.h>

#include "ostrel/export.h"
#include "ostrel/lru_cache.h"

class OstrelSurface;

extern OSTREL_API TTF_Font* gNavFont;         ///< 32: the navigation bar
extern OSTREL_API TTF_Font* gNavFontIcon;     ///< 24: the labels of the navigation bar's icons
extern OSTREL_API TTF_Font* gListFontTxt;     ///< 36: list items
extern OSTREL_API TTF_Font* gListFontSubtxt;  ///< 24: their second lines
extern OSTREL_API TTF_Font* gStatFont;        ///< 24: the status bar
extern OSTREL_API TTF_Font* gMenuFont;        ///< 36: menus
extern OSTREL_API TTF_Font* gPopupFontTitle;  ///< 44: titles of popups and dialogs
extern OSTREL_API TTF_Font* gPopupFontTxt;    ///< 36: their text
extern OSTREL_API TTF_Font* gPopupFontBtn;    ///< 36: their buttons

extern OSTREL_API SDL_Color gNavColorTxt;      ///< white: the navigation bar
extern OSTREL_API SDL_Color gNavColorIcon;     ///< white: the labels of its icons
extern OSTREL_API SDL_Color gListColorTxt;     ///< white: list items
extern OSTREL_API SDL_Color gListColorSubtxt;  ///< white: their second lines
extern OSTREL_API SDL_Color gListColorSeq;     ///< white: their numbers
extern OSTREL_API SDL_Color gStatColorTxt;     ///< white: the status bar
extern OSTREL_API SDL_Color gPopupColorTxt;    ///< white: the text of popups and dialogs
extern OSTREL_API SDL_Color gPopupColorBtn;    ///< white: their buttons
extern OSTREL_API SDL_Color
    gHighlightColor;  ///< green (54, 255, 160) with alpha 0, which text draws opaque: search hits
extern OSTREL_API SDL_Color gPopupColorTitle;  ///< the same green: titles of popups and dialogs

extern OSTREL_API OstrelSurface* gIconVideo;        ///< skin/ic-video.png: a game
extern OSTREL_API OstrelSurface* gIconFolder;       ///< skin/ic-folder.png: a directory
extern OSTREL_API OstrelSurface* gBackground;       ///< skin/bg.png: behind every window
extern OSTREL_API OstrelSurface* gIconBack;         ///< skin/icon-back.png: the arrow of a way back
extern OSTREL_API OstrelSurface* gIconMenu;         ///< skin/tips-MENU2.png: the MENU button
extern OSTREL_API OstrelSurface* gIconA;            ///< skin/tips-A.png: the A button
extern OSTREL_API OstrelSurface* gIconB;            ///< skin/tips-B.png: the B button
extern OSTREL_API OstrelSurface* gBackgroundFloat;  ///< skin/float-win-mask.png: the shade below dialogs

/// The icons of getIconFromCache under the names they were asked for: at most 101, which the cache deletes. It outlives
/// uninit_shared_skin, so clear it when the theme changes; ScreenUninit empties it.
extern OSTREL_API LRUCache gIconCache;

/// Sets the colours, opens the fonts and loads the images, in the order above; starts SDL_ttf when nobody did. Call it
/// after ScreenInit and after setting gThemePath, once before each uninit_shared_skin: a second call in a row leaves
/// the first set of fonts and images to whoever still uses it, and frees it never. Each font logs one line, and so does
/// each image that comes from the working directory or is copied to 32 bits, and a missing background.
OSTREL_API void init_shared_skin();

/// Closes the fonts, deletes the images, sets all of them to null and empties the cache of rendered texts; colours and
/// icons stay. While SDL_ttf is not running, the fonts are only forgotten. That it was ended and started again goes
/// unnoticed: a host that does so calls this first. Call it before ScreenUninit or after; calling it again changes
/// nothing.
OSTREL_API void uninit_shared_skin();

/// Finds an icon by its path relative to the theme, or by an absolute one; a file is read only the first time it is
/// found.
/// @return the cache's surface, good for this draw only: the next icon may push it out. Null when @p name is null or
///         there is no such image, which is tried again the next time.
OSTREL_API OstrelSurface* getIconFromCache(const char* name);
