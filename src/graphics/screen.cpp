#include "ostrel/screen.h"

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <vector>

#include "graphics/screen_internal.h"
#include "graphics/sdl_handles.h"
#include "graphics/surface_internal.h"
#include "ostrel/log.h"
#include "ostrel/lru_cache.h"
#include "ostrel/surface.h"
#include "platform/ui_thread.h"

SDL_Renderer* gRenderer = nullptr;

namespace {

constexpr const char* kWindowTitle = "Main";
constexpr Sint64 kMostPixels = SDL_MAX_SINT32 / 4;  // SDL counts the bytes of a surface in int
constexpr double kTurnToPanel = 270.0;              // degrees, from the logical picture to the panel as it is mounted

SDL_Window* sWindow = nullptr;
SDL_Texture* sRotatedTexture = nullptr;
SDL_Texture* sTargetTexture = nullptr;
OstrelSurface* sCurrentTarget = nullptr;
int sScreenRotate = 0;
int sScreenWidth = 0;
int sScreenHeight = 0;
Uint32 sWindowId = 0;  // 0 without a screen; tells whether SDL still knows sWindow, which a host's own SDL_Quit frees

// Never destroyed: caches of other files may still leave it while the program ends.
std::vector<LRUCache*>& boundCaches() {
    static auto* caches = new std::vector<LRUCache*>;
    return *caches;
}

void openScreen(int windowWidth, int windowHeight) {
    sWindow = SDL_CreateWindow(kWindowTitle, SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, windowWidth,
                               windowHeight, SDL_WINDOW_SHOWN);
    sWindowId = sWindow == nullptr ? 0 : SDL_GetWindowID(sWindow);
    gRenderer = SDL_CreateRenderer(sWindow, -1, SDL_RENDERER_ACCELERATED | SDL_RENDERER_PRESENTVSYNC);
    sScreenWidth = windowWidth;
    sScreenHeight = windowHeight;
}

bool isWindowAlive() { return sWindowId != 0 && SDL_GetWindowFromID(sWindowId) == sWindow; }

// The caches go first, while their textures can still be destroyed. After a host's own SDL_Quit the window is freed and
// its renderer can no longer be destroyed safely: it is left alone. A second call finds no window.
void releaseScreen() {
    for (LRUCache* cache : boundCaches()) cache->clear();
    ostrel::dropAllTextures();
    ostrel::releaseUiThread();
    const bool hasWindow = isWindowAlive();
    sWindowId = 0;
    if (!hasWindow) return;
    const ostrel::WindowPtr window{sWindow};
    const ostrel::RendererPtr renderer{gRenderer};
    const ostrel::TexturePtr rotated{sRotatedTexture};
}

// The panel is mounted turned: the logical picture lies centred on the window and is turned there. One pixel further to
// the left than the exact centre is meant. (TurnsThePictureOnePixelToTheLeft)
void copyTurned(SDL_Renderer* renderer) {
    int width = 0;
    int height = 0;
    SDL_QueryTexture(sRotatedTexture, nullptr, nullptr, &width, &height);
    const SDL_Rect destination{(height - width) / 2 - 1, (width - height) / 2, width, height};
    SDL_RenderCopyEx(renderer, sRotatedTexture, nullptr, &destination, kTurnToPanel, nullptr, SDL_FLIP_NONE);
}

}  // namespace

int ScreenInit(int width, int height, int depth, int rotate) {
    tprintf("ScreenInit %dx%d %d, rotate=%d\n", width, height, depth, rotate);
    releaseScreen();
    ostrel::bindUiThread();
    sScreenRotate = rotate;
    sTargetTexture = nullptr;
    sRotatedTexture = nullptr;
    sCurrentTarget = nullptr;
    if (SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "1") == SDL_FALSE) {
        std::printf("[Warning]: Linear texture filtering not enabled!");
    }
    if (rotate != 0) {
        openScreen(height, width);
        sRotatedTexture = SDL_CreateTexture(gRenderer, ostrel::kPixelFormat, SDL_TEXTUREACCESS_TARGET, width, height);
        sTargetTexture = sRotatedTexture;
    } else {
        openScreen(width, height);
    }
    tprintf("window=%p, renderer=%p\n", static_cast<void*>(sWindow), static_cast<void*>(gRenderer));
    return sWindow != nullptr && gRenderer != nullptr ? 1 : 0;
}

int ScreenUninit() {
    releaseScreen();
    return 0;
}

int ScreenUpdateAndFlip() {
    SDL_Renderer* renderer = ostrel::liveRenderer();
    if (renderer == nullptr) return 0;
    if (sScreenRotate != 0) copyTurned(renderer);
    SDL_RenderPresent(renderer);
    return 0;
}

SDL_Surface* create_surface(int w, int h) {
    if (w < 0 || h < 0 || static_cast<Sint64>(w) * h > kMostPixels) return nullptr;
    return SDL_CreateRGBSurface(0, w, h, 32, 0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000);
}

OstrelSurface* GetRenderTarget() { return sCurrentTarget; }

int SetRenderTarget(OstrelSurface* s) {
    if (s != nullptr) {
        sTargetTexture = ostrel::textureOf(s);
    } else {
        sTargetTexture = sScreenRotate != 0 ? sRotatedTexture : nullptr;
    }
    sCurrentTarget = s;
    return 0;
}

OstrelSurface* ScreenSnapshot() {
    SDL_Renderer* renderer = ostrel::liveRenderer();
    if (renderer == nullptr) return nullptr;
    ostrel::SurfacePtr pixels{
        SDL_CreateRGBSurface(0, sScreenWidth, sScreenHeight, 32, 0x000000FF, 0x0000FF00, 0x00FF0000, 0xFF000000)};
    if (pixels != nullptr) ostrel::readTargetInto(*pixels);
    ostrel::TexturePtr texture{SDL_CreateTextureFromSurface(renderer, pixels.get())};
    return new SDL2OstrelSurface(texture.release(), pixels.release());
}

namespace ostrel {

SDL_Renderer* liveRenderer() {
    assert(isUiThread());
    return isWindowAlive() ? gRenderer : nullptr;
}

SDL_Texture* targetTexture() { return sTargetTexture; }

SDL_Point windowSize() { return {sScreenWidth, sScreenHeight}; }

void quitSdl() {
    releaseScreen();
    gRenderer = nullptr;
    SDL_Quit();
}

int readTargetInto(SDL_Surface& surface) {
    SDL_Renderer* renderer = liveRenderer();
    SDL_Rect common{0, 0, 0, 0};
    if (renderer == nullptr || SDL_GetRendererOutputSize(renderer, &common.w, &common.h) != 0) return -1;
    const bool sizesAgree = common.w == surface.w && common.h == surface.h;
    common.w = std::min(common.w, surface.w);
    common.h = std::min(common.h, surface.h);
    return SDL_RenderReadPixels(renderer, sizesAgree ? nullptr : &common, kPixelFormat, surface.pixels, surface.pitch);
}

ScreenBoundCache::ScreenBoundCache(LRUCache& cache) : mCache(cache) { boundCaches().push_back(&cache); }

ScreenBoundCache::~ScreenBoundCache() {
    std::vector<LRUCache*>& caches = boundCaches();
    caches.erase(std::remove(caches.begin(), caches.end(), &mCache), caches.end());
}

}  // namespace ostrel
