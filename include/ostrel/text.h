/// @file  text.h: drawing, measuring and cutting text.
/// Threads: UI thread only.  Units: pixels, origin top left.  Text: UTF-8; what is not is drawn as SDL_ttf draws it.
/// A text is rendered once and kept, so a frame that draws the same texts again renders no glyph. The alpha of a colour
/// counts as opaque when it is 0.  Failures: a font or text of null, an empty text and a missing screen draw nothing;
/// there are no messages.
///
/// Alignment codes, for the text's picture in its rectangle. What is larger than the rectangle sticks out of it: both
/// ways where it is centred, to the left where it ends at the right.
///   code        | from left to right  | from top to bottom
///   0           | left                | top
///   1           | centred             | centred
///   3           | left                | centred
///   4           | right               | centred
///   any other   | right               | top
#pragma once
#include <SDL.h>
#include <SDL_ttf.h>

#include "ostrel/export.h"
#include "ostrel/lru_cache.h"

/// The rendered texts: OstrelSurface pointers, at most 101, which the cache deletes. The key of a text holds its bytes,
/// the address of its font, the colour's four bytes and whether it is the shadow, cut after 2047 bytes. Texts that
/// SDL could not make a texture of stand in it as null, and are rendered again. ScreenUninit and uninit_shared_skin
/// empty it; so must a program that closes a font of its own and opens others.
extern OSTREL_API LRUCache gTextSurfaceCache;

/// Draws one line of text into the current render target.
/// @param shadow draws the text once more below itself, one pixel to the right and two down, in the same colour.
/// @param measureOnly leaves out the text, but not its shadow. @return the width of the text, or 0 when nothing could
///        be rendered.
OSTREL_API int DrawString(TTF_Font* font, SDL_Rect rect, const char* text, SDL_Color colour, int align, bool shadow,
                          bool measureOnly);

/// Draws the pieces of @p text between the characters of @p delim, empty ones left out, as lines below each other. They
/// share the height of @p rect when that leaves more than 4 pixels between them, else they stand 5 pixels apart and may
/// leave it. Each line is aligned in its own part of @p rect, which stays as it is. @return 0, always.
OSTREL_API int DrawStringLines(TTF_Font* font, SDL_Rect& rect, const char* text, const char* delim, SDL_Color& colour,
                               int align, bool shadow);

/// The same with @p spacing pixels between the lines, whatever the height of @p rect. @return 0, always.
OSTREL_API int DrawStringLinesSpacing(TTF_Font* font, SDL_Rect& rect, const char* text, const char* delim, int spacing,
                                      SDL_Color& colour, int align, bool shadow);

/// Tells where to cut a label. Of @p width, 20 pixels are kept free and nine tenths of the rest are used, cut to whole
/// pixels; characters up to U+0080 count 1.7 pixels more than their advance, those from U+10000 on as the glyph of
/// their low 16 bits.
/// @param reserved not used. @return how many code points to keep, the one that reaches the limit included; 0 when the
///         text fits, and also when @p width is 21 or less or @p text is null. Without a font, advances are 0.
OSTREL_API int getTruncateLen(TTF_Font* font, const char* text, int reserved, int width);
