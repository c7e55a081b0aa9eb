/// @file  text.h: drawing, measuring and cutting text.
/// Threads: UI thread only.
#pragma once
#include <SDL.h>
#include <SDL_ttf.h>

#include "ostrel/export.h"
#include "ostrel/lru_cache.h"

extern OSTREL_API LRUCache gTextSurfaceCache;

OSTREL_API int DrawString(TTF_Font* font, SDL_Rect rect, const char* text, SDL_Color colour, int align, bool shadow,
                          bool measureOnly);
OSTREL_API int DrawStringLines(TTF_Font* font, SDL_Rect& rect, const char* text, const char* delim, SDL_Color& colour,
                               int align, bool shadow);
OSTREL_API int DrawStringLinesSpacing(TTF_Font* font, SDL_Rect& rect, const char* text, const char* delim, int spacing,
                                      SDL_Color& colour, int align, bool shadow);
OSTREL_API int getTruncateLen(TTF_Font* font, const char* text, int reserved, int width);
