// Draws one row of a list.
#pragma once
#include <SDL.h>
#include <SDL_ttf.h>

#include <string>

#include "menu/search_highlight.h"

class TextMenuDrawer;

namespace ostrel {

// How a text is drawn; the last three as DrawString takes them.
struct TextStyle {
    TTF_Font* font;
    SDL_Rect rect;
    SDL_Color colour;
    int align;  // kAlignTopLeft or kAlignCentre
    bool shadow;
};

// Draws text, and the highlighted run of it in gHighlightColor. The text is changed meanwhile, and put back.
void drawListText(const TextStyle& style, std::string& text, ByteRun highlighted);

// Cuts a text that getTruncateLen finds too wide, and puts "..." at its end.
void cutToWidth(std::string& text, TTF_Font* font, int width);

// Draws the row of a menu into its rectangle. item is null for a row that is not there yet.
void drawRow(TextMenuDrawer& menu, int index, TextMenuItemProvider* item, const SDL_Rect& row);

}  // namespace ostrel
