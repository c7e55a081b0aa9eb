/// @file  text_layout.h: where text stands in its place, text cut to its width, and the start of a text file.
#pragma once
#include <SDL_ttf.h>

#include <string>
#include <vector>

namespace launcher {

/// How DrawString places a text in its rectangle.
constexpr int kAlignTopLeft = 0;
constexpr int kAlignCentre = 1;  // both ways
constexpr int kAlignLeft = 3;    // in the middle from top to bottom
constexpr int kAlignRight = 4;   // likewise

/// @p text, or its beginning and "..." when it is wider than a place of @p width pixels.
std::string cutToFit(TTF_Font* font, const std::string& text, int width);

/// The first few kilobytes of a UTF-8 text file; "" when it cannot be read or is no such text.
std::string readTextStart(const std::string& path);

/// Breaks @p text at its line feeds, and where a line is wider than @p width pixels: at a space if there is one,
/// between characters if not (Chinese has none). @return at most @p mostLines lines; an unset font gives none.
std::vector<std::string> wrapLines(const std::string& text, TTF_Font* font, int width, std::size_t mostLines);

}  // namespace launcher
