// What code that places text needs beside text.h. Threads: UI thread only.
#pragma once
#include <SDL.h>
#include <SDL_ttf.h>

namespace ostrel {

// Alignment codes: where a text stands in its rectangle. Every other code is top right too.
constexpr int kAlignTopLeft = 0;
constexpr int kAlignCentre = 1;  // both ways
constexpr int kAlignTopRight = 2;
constexpr int kAlignLeft = 3;   // centred from top to bottom
constexpr int kAlignRight = 4;  // likewise

// Height of a line in pixels; 0 without a font, where SDL_ttf would crash.
int fontHeight(TTF_Font* font);

// Where the top left corner of something w wide and h high goes in box. What is larger than the box sticks out of it
// on the left, at the top, or on both sides.
SDL_Point alignText(const SDL_Rect& box, int w, int h, int align);

// From one line to the next when `lines` of them, at least 1, share a height.
int sharedLinePitch(int height, int lines, int fontHeight);

// How many pieces text has between the characters of delim; empty ones do not count.
int countPieces(const char* text, const char* delim);

}  // namespace ostrel
