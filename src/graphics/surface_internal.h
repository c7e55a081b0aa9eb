// What the sources of this folder share about surfaces. Threads: UI thread only.
#pragma once
#include <SDL.h>

class OstrelSurface;
class SDL2OstrelSurface;

namespace ostrel {

// Where images are looked for that the theme does not have.
constexpr const char* kWorkingDirectory = "./";

// The class that this library makes its surfaces of, or null when s is null or of a host's own class.
SDL2OstrelSurface* sdlSurface(OstrelSurface* s);

// The texture of such a surface, or null.
SDL_Texture* textureOf(OstrelSurface* s);

// Textures die with their renderer: every surface alive loses its own and keeps its pixels.
void dropAllTextures();

// Writes a BMP file; nothing happens when path is null or cannot be opened.
void saveBmp(SDL_Surface& surface, const char* path);

}  // namespace ostrel
