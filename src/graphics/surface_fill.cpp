#include "graphics/screen_internal.h"
#include "graphics/surface_internal.h"
#include "ostrel/surface.h"

namespace {

// Draws with one colour and blend mode, and leaves the renderer's own as they were.
class DrawColourScope {
public:
    DrawColourScope(SDL_Renderer* renderer, SDL_Color colour, SDL_BlendMode mode) : mRenderer(renderer) {
        SDL_GetRenderDrawBlendMode(renderer, &mMode);
        SDL_GetRenderDrawColor(renderer, &mColour.r, &mColour.g, &mColour.b, &mColour.a);
        SDL_SetRenderDrawColor(renderer, colour.r, colour.g, colour.b, colour.a);
        SDL_SetRenderDrawBlendMode(renderer, mode);
    }
    ~DrawColourScope() {
        SDL_SetRenderDrawColor(mRenderer, mColour.r, mColour.g, mColour.b, mColour.a);
        SDL_SetRenderDrawBlendMode(mRenderer, mMode);
    }
    DrawColourScope(const DrawColourScope&) = delete;
    DrawColourScope& operator=(const DrawColourScope&) = delete;

private:
    SDL_Renderer* mRenderer;
    SDL_BlendMode mMode = SDL_BLENDMODE_NONE;
    SDL_Color mColour{};
};

int fill(SDL_Renderer* renderer, const SDL_Rect* r, SDL_Color colour, SDL_BlendMode mode) {
    const DrawColourScope scope(renderer, colour, mode);
    return SDL_RenderFillRect(renderer, r);
}

}  // namespace

int FillRect(OstrelSurface* s, SDL_Rect* r, unsigned char r8, unsigned char g8, unsigned char b8, unsigned char a8) {
    return FillRectInternal(s, r, r8, g8, b8, a8, SDL_BLENDMODE_BLEND);
}

int ClearRect(OstrelSurface* s, SDL_Rect* r, unsigned char r8, unsigned char g8, unsigned char b8, unsigned char a8) {
    return FillRectInternal(s, r, r8, g8, b8, a8, SDL_BLENDMODE_NONE);
}

int FillRectInternal(OstrelSurface* s, SDL_Rect* r, unsigned char r8, unsigned char g8, unsigned char b8,
                     unsigned char a8, SDL_BlendMode mode) {
    SDL_Renderer* renderer = ostrel::liveRenderer();
    if (renderer == nullptr) return -1;
    const SDL_Color colour{r8, g8, b8, a8};
    SDL_Texture* texture = s != nullptr ? ostrel::textureOf(s) : ostrel::targetTexture();
    if (texture == nullptr) return fill(renderer, r, colour, mode);
    // A loaded image cannot be drawn on: filling all the same would paint the screen.
    // (OfAnImageLeavesTheScreenAlone)
    const ostrel::RenderTargetScope target(renderer, texture);
    return target.isSet() ? fill(renderer, r, colour, mode) : -1;
}
