#include "ostrel/surface.h"

#include <cstdint>
#include <cstdio>
#include <unordered_set>

#include "graphics/screen_internal.h"
#include "graphics/sdl_handles.h"
#include "graphics/surface_internal.h"
#include "ostrel/log.h"
#include "ostrel/screen.h"

using ostrel::liveRenderer;
using ostrel::SurfacePtr;
using ostrel::TexturePtr;

namespace {

// The surfaces that exist, so that none keeps a texture that went with its renderer. Their addresses are kept with
// every bit turned over: a leak checker would take the plain ones for owners and never find a surface that somebody
// lost.
class LiveSurfaces {
public:
    void add(SDL2OstrelSurface* surface) { mMasked.insert(masked(surface)); }
    void remove(SDL2OstrelSurface* surface) { mMasked.erase(masked(surface)); }
    void dropTextures() {
        for (const std::uintptr_t address : mMasked) unmasked(address)->mTexture = nullptr;
    }

private:
    static std::uintptr_t masked(SDL2OstrelSurface* surface) { return ~reinterpret_cast<std::uintptr_t>(surface); }
    static SDL2OstrelSurface* unmasked(std::uintptr_t address) {
        return reinterpret_cast<SDL2OstrelSurface*>(~address);  // NOLINT(performance-no-int-to-ptr): masked on purpose
    }

    std::unordered_set<std::uintptr_t> mMasked;
};

// Never destroyed: the caches free their surfaces while the program ends, in an order that nobody controls.
LiveSurfaces& liveSurfaces() {
    static auto* surfaces = new LiveSurfaces;
    return *surfaces;
}

// A debugging aid: the current target as a BMP. Red and blue change places, because the bytes R, G, B, A arrive in a
// surface of the order B, G, R, A.
void dumpTarget(const char* path) {
    const SDL_Point size = ostrel::windowSize();
    const SurfacePtr picture{create_surface(size.x, size.y)};
    if (picture == nullptr) return;
    ostrel::readTargetInto(*picture);
    ostrel::saveBmp(*picture, path);
}

}  // namespace

namespace ostrel {

SDL2OstrelSurface* sdlSurface(OstrelSurface* s) { return dynamic_cast<SDL2OstrelSurface*>(s); }

SDL_Texture* textureOf(OstrelSurface* s) {
    const SDL2OstrelSurface* surface = sdlSurface(s);
    return surface == nullptr ? nullptr : surface->mTexture;
}

void dropAllTextures() { liveSurfaces().dropTextures(); }

void saveBmp(SDL_Surface& surface, const char* path) {
    SDL_RWops* file = path == nullptr ? nullptr : SDL_RWFromFile(path, "wb");
    if (file != nullptr) SDL_SaveBMP_RW(&surface, file, /*freedst=*/1);
}

}  // namespace ostrel

OstrelSurface::~OstrelSurface() {
    if (GetRenderTarget() == this) SetRenderTarget(nullptr);
}

SDL2OstrelSurface::SDL2OstrelSurface(SDL_Texture* texture, SDL_Surface* surface)
    : mTexture(texture), mSurface(surface) {
    SDL_QueryTexture(texture, nullptr, nullptr, &mWidth, &mHeight);
    liveSurfaces().add(this);
}

SDL2OstrelSurface::~SDL2OstrelSurface() {
    liveSurfaces().remove(this);
    if (mTexture != nullptr && liveRenderer() != nullptr) SDL_DestroyTexture(mTexture);
    if (mSurface != nullptr) SDL_FreeSurface(mSurface);
}

int SDL2OstrelSurface::setBlendMode(SDL_BlendMode mode) { return SDL_SetTextureBlendMode(mTexture, mode); }

int SDL2OstrelSurface::setAlpha(unsigned char alpha) { return SDL_SetTextureAlphaMod(mTexture, alpha); }

int SDL2OstrelSurface::getBlendMode(SDL_BlendMode* mode) { return SDL_GetTextureBlendMode(mTexture, mode); }

int SDL2OstrelSurface::getAlpha(unsigned char* alpha) { return SDL_GetTextureAlphaMod(mTexture, alpha); }

int SDL2OstrelSurface::getWidth() { return mWidth; }

int SDL2OstrelSurface::getHeight() { return mHeight; }

// Into the window nothing but the copy happens. Into a texture the dump and the log line belong to it, and the target
// is the window afterwards, not what it was before: so the frame is presented from the window whoever drew last.
int SDL2OstrelSurface::render(SDL_Rect* src, SDL_Rect* dst, bool keepSize, const char* dumpPath) {
    SDL_Renderer* renderer = liveRenderer();
    if (renderer == nullptr) return -1;
    SDL_Rect place{};
    if (dst != nullptr) {
        place = *dst;
        if (keepSize) {
            place.w = mWidth;
            place.h = mHeight;
        }
    }
    const SDL_Rect* destination = dst == nullptr ? nullptr : &place;
    SDL_Texture* target = ostrel::targetTexture();
    if (target == nullptr) return SDL_RenderCopy(renderer, mTexture, src, destination);

    SDL_SetRenderTarget(renderer, target);
    const int result = SDL_RenderCopy(renderer, mTexture, src, destination);
    if (dumpPath != nullptr) dumpTarget(dumpPath);
    if (result != 0) tprintf("SDL_RenderCopy fail : %s\n", SDL_GetError());
    SDL_SetRenderTarget(renderer, nullptr);
    return result;
}

void deleteSurface(void* surface) { delete static_cast<OstrelSurface*>(surface); }

OstrelSurface* CreateSurface(SDL_Surface* s) {
    TexturePtr texture{SDL_CreateTextureFromSurface(liveRenderer(), s)};
    if (texture == nullptr) return nullptr;
    return new SDL2OstrelSurface(texture.release(), nullptr);
}

OstrelSurface* CreateSurface(int w, int h) {
    TexturePtr texture{SDL_CreateTexture(liveRenderer(), ostrel::kPixelFormat, SDL_TEXTUREACCESS_TARGET, w, h)};
    if (texture == nullptr) {
        tprintf("Unable to create texture: %s\n", SDL_GetError());
        return nullptr;
    }
    return new SDL2OstrelSurface(texture.release(), nullptr);
}

OstrelSurface* CreateFromPixels(void* pixels, int w, int h, int depth, int pitch, unsigned Rmask, unsigned Gmask,
                                unsigned Bmask, unsigned Amask) {
    if (pixels == nullptr) return nullptr;
    const SurfacePtr view{SDL_CreateRGBSurfaceFrom(pixels, w, h, depth, pitch, Rmask, Gmask, Bmask, Amask)};
    if (view == nullptr) {
        std::fprintf(stderr, "SDL_CreateRGBSurfaceFrom failed: %s\n", SDL_GetError());
        return nullptr;
    }
    SurfacePtr copy{SDL_ConvertSurface(view.get(), view->format, 0)};  // the caller may free its pixels now
    TexturePtr texture{SDL_CreateTextureFromSurface(liveRenderer(), copy.get())};
    if (texture == nullptr) return nullptr;
    return new SDL2OstrelSurface(texture.release(), copy.release());
}
