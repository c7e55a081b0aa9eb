// What drawing code needs of the screen beyond its public header: the renderer while it lives, the texture that drawing
// goes into, and what must hear of the screen's end. Threads: UI thread only.
#pragma once
#include <SDL.h>

class LRUCache;

namespace ostrel {

// Of every texture made blank and of every read-back: the bytes R, G, B, A in memory.
constexpr Uint32 kPixelFormat = SDL_PIXELFORMAT_ABGR8888;

// gRenderer while window and renderer exist, else null. SDL answers a null renderer with an error, so what is drawn
// with it after the screen's end, or after a host's own SDL_Quit, fails instead of reading freed memory. Everything
// that draws asks here, so this is where debug builds check that it does so on the UI thread.
SDL_Renderer* liveRenderer();

// The texture that surfaces are drawn into; null means the window.
SDL_Texture* targetTexture();

// The window's width and height; with rotation they are the logical ones swapped.
SDL_Point windowSize();

// Lets the screen go, sets gRenderer to null and ends SDL. Windows may go on drawing: nothing happens until the next
// ScreenInit.
void quitSdl();

// Reads the renderer's current target into surface as ABGR8888 bytes, whatever the surface's own masks say. When their
// sizes differ, only the rectangle that both have is read. Returns SDL's result.
int readTargetInto(SDL_Surface& surface);

// While it lives, the cache is emptied when the screen goes: a surface without its texture would be a hit that draws
// nothing for ever. Stands right after the cache, so that it goes before it.
class ScreenBoundCache {
public:
    explicit ScreenBoundCache(LRUCache& cache);
    ~ScreenBoundCache();
    ScreenBoundCache(const ScreenBoundCache&) = delete;
    ScreenBoundCache& operator=(const ScreenBoundCache&) = delete;

private:
    LRUCache& mCache;
};

// Makes a texture the renderer's target and goes back to the one before at the end of the block. The renderer lives.
class RenderTargetScope {
public:
    RenderTargetScope(SDL_Renderer* renderer, SDL_Texture* target)
        : mRenderer(renderer),
          mPrevious(SDL_GetRenderTarget(renderer)),
          mResult(SDL_SetRenderTarget(renderer, target)) {}
    ~RenderTargetScope() { SDL_SetRenderTarget(mRenderer, mPrevious); }
    RenderTargetScope(const RenderTargetScope&) = delete;
    RenderTargetScope& operator=(const RenderTargetScope&) = delete;

    // False when SDL refused the texture: the target is then still the one before.
    bool isSet() const { return mResult == 0; }

private:
    SDL_Renderer* mRenderer;
    SDL_Texture* mPrevious;
    int mResult;
};

// Puts the viewport that it found back at the end of the block. Made before a RenderTargetScope, it is the last to go,
// so that the viewport returns to the target it belongs to. The renderer lives.
class ViewportScope {
public:
    explicit ViewportScope(SDL_Renderer* renderer) : mRenderer(renderer) {
        SDL_RenderGetViewport(renderer, &mPrevious);
    }
    ~ViewportScope() { SDL_RenderSetViewport(mRenderer, &mPrevious); }
    ViewportScope(const ViewportScope&) = delete;
    ViewportScope& operator=(const ViewportScope&) = delete;

private:
    SDL_Renderer* mRenderer;
    SDL_Rect mPrevious{};
};

}  // namespace ostrel
