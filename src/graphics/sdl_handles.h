// Owners of SDL's pixel, file and font handles.
#pragma once
#include <SDL.h>
#include <SDL_ttf.h>

#include <memory>

#include "platform/handles.h"

namespace ostrel {

using SurfacePtr = std::unique_ptr<SDL_Surface, Releaser<&SDL_FreeSurface>>;
using TexturePtr = std::unique_ptr<SDL_Texture, Releaser<&SDL_DestroyTexture>>;
using RendererPtr = std::unique_ptr<SDL_Renderer, Releaser<&SDL_DestroyRenderer>>;
using WindowPtr = std::unique_ptr<SDL_Window, Releaser<&SDL_DestroyWindow>>;
using RwOpsPtr = std::unique_ptr<SDL_RWops, Releaser<&SDL_RWclose>>;
using FontPtr = std::unique_ptr<TTF_Font, Releaser<&TTF_CloseFont>>;

}  // namespace ostrel
