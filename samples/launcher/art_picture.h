/// @file  art_picture.h: a picture file decoded and scaled in memory.
/// Threads: any. Nothing here touches a texture.
#pragma once
#include <SDL.h>

#include <memory>
#include <string>

namespace launcher {

struct PixelRelease {
    void operator()(SDL_Surface* pixels) const { SDL_FreeSurface(pixels); }
};
using Pixels = std::unique_ptr<SDL_Surface, PixelRelease>;

/// Decodes the PNG file @p file and scales it to the largest size of its ratio within @p width x @p height, in the
/// middle of @p width transparent columns. @return 32-bit pixels; null when it is missing, broken, no regular file, or
/// larger than 4096 x 4096 pixels.
Pixels loadPicture(const std::string& file, int width, int height);

/// The largest size of the ratio of @p width x @p height that fits @p box; no side is below 1.
SDL_Point fitInto(SDL_Point box, int width, int height);

}  // namespace launcher
