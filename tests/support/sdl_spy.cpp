#include "support/sdl_spy.h"

#include <SDL_image.h>

#include <stdexcept>

#include "support/next_function.h"

namespace {

using ostreltest::nextFunction;

ostreltest::SdlSpy* sSpy = nullptr;

}  // namespace

namespace ostreltest {

SdlSpy::SdlSpy() {
    if (sSpy != nullptr) throw std::logic_error("there is a spy already");
    sSpy = this;
}

SdlSpy::~SdlSpy() { sSpy = nullptr; }

}  // namespace ostreltest

// The library binds to these, because a program's definitions come before those of its libraries.
extern "C" {

SDL_Window* SDL_CreateWindow(const char* title, int x, int y, int w, int h, Uint32 flags) {
    static auto* create = nextFunction<decltype(SDL_CreateWindow)>("SDL_CreateWindow");
    const bool fails = sSpy != nullptr && sSpy->failWindows;
    SDL_Window* window = fails ? nullptr : create(title, x, y, w, h, flags);
    if (sSpy != nullptr) sSpy->windows.push_back({title, x, y, w, h, flags, window});
    return window;
}

SDL_Renderer* SDL_CreateRenderer(SDL_Window* window, int index, Uint32 flags) {
    static auto* create = nextFunction<decltype(SDL_CreateRenderer)>("SDL_CreateRenderer");
    if (sSpy != nullptr) sSpy->renderers.push_back({window, index, flags});
    return sSpy != nullptr && sSpy->failRenderers ? nullptr : create(window, index, flags);
}

SDL_Texture* SDL_CreateTexture(SDL_Renderer* renderer, Uint32 format, int access, int w, int h) {
    static auto* create = nextFunction<decltype(SDL_CreateTexture)>("SDL_CreateTexture");
    const bool fails = sSpy != nullptr && sSpy->failTextures;
    SDL_Texture* texture = fails ? nullptr : create(renderer, format, access, w, h);
    if (fails) SDL_SetError("no texture for a test");
    if (sSpy != nullptr) sSpy->textures.push_back({format, access, w, h, texture});
    return texture;
}

SDL_Texture* SDL_CreateTextureFromSurface(SDL_Renderer* renderer, SDL_Surface* surface) {
    static auto* create = nextFunction<decltype(SDL_CreateTextureFromSurface)>("SDL_CreateTextureFromSurface");
    if (sSpy != nullptr) sSpy->texturedSurfaces.push_back(surface);
    if (sSpy == nullptr || !sSpy->failTexturesFromSurfaces) return create(renderer, surface);
    SDL_SetError("no texture for a test");
    return nullptr;
}

SDL_Surface* SDL_CreateRGBSurface(Uint32 flags, int width, int height, int depth, Uint32 Rmask, Uint32 Gmask,
                                  Uint32 Bmask, Uint32 Amask) {
    static auto* create = nextFunction<decltype(SDL_CreateRGBSurface)>("SDL_CreateRGBSurface");
    if (sSpy != nullptr) {
        sSpy->surfaces.push_back({width, height, depth, Rmask, Gmask, Bmask, Amask});
        if (sSpy->failSurface && sSpy->failSurface(sSpy->surfaces.back())) return nullptr;
    }
    return create(flags, width, height, depth, Rmask, Gmask, Bmask, Amask);
}

SDL_Surface* TTF_RenderUTF8_Blended(TTF_Font* font, const char* text, SDL_Color fg) {
    static auto* render = nextFunction<decltype(TTF_RenderUTF8_Blended)>("TTF_RenderUTF8_Blended");
    if (sSpy != nullptr) sSpy->renderedTexts.emplace_back(text);
    return render(font, text, fg);
}

TTF_Font* TTF_OpenFont(const char* file, int ptsize) {
    static auto* open = nextFunction<decltype(TTF_OpenFont)>("TTF_OpenFont");
    TTF_Font* font = open(file, ptsize);
    if (sSpy != nullptr) sSpy->fonts.push_back({file, ptsize, font});
    return font;
}

void TTF_CloseFont(TTF_Font* font) {
    static auto* close = nextFunction<decltype(TTF_CloseFont)>("TTF_CloseFont");
    if (sSpy != nullptr) sSpy->closedFonts.push_back(font);
    close(font);
}

SDL_Surface* IMG_Load(const char* file) {
    static auto* load = nextFunction<decltype(IMG_Load)>("IMG_Load");
    if (sSpy != nullptr) sSpy->decodedImages.emplace_back(file);
    return load(file);
}

void SDL_RenderPresent(SDL_Renderer* renderer) {
    static auto* present = nextFunction<decltype(SDL_RenderPresent)>("SDL_RenderPresent");
    if (sSpy != nullptr) {
        ++sSpy->presents;
        if (sSpy->onPresent) sSpy->onPresent();
    }
    present(renderer);
}

void SDL_DestroyWindow(SDL_Window* window) {
    static auto* destroy = nextFunction<decltype(SDL_DestroyWindow)>("SDL_DestroyWindow");
    if (sSpy != nullptr) sSpy->destroyed.push_back(window);
    destroy(window);
}

void SDL_DestroyRenderer(SDL_Renderer* renderer) {
    static auto* destroy = nextFunction<decltype(SDL_DestroyRenderer)>("SDL_DestroyRenderer");
    if (sSpy != nullptr) sSpy->destroyed.push_back(renderer);
    destroy(renderer);
}

void SDL_DestroyTexture(SDL_Texture* texture) {
    static auto* destroy = nextFunction<decltype(SDL_DestroyTexture)>("SDL_DestroyTexture");
    if (sSpy != nullptr) sSpy->destroyed.push_back(texture);
    destroy(texture);
}
}
