// Surfaces as pixels in memory: read back, cut out, turned and saved.
#include <cmath>

#include "graphics/screen_internal.h"
#include "graphics/sdl_handles.h"
#include "graphics/surface_internal.h"
#include "ostrel/log.h"
#include "ostrel/screen.h"
#include "ostrel/surface.h"

using ostrel::liveRenderer;
using ostrel::RenderTargetScope;
using ostrel::SurfacePtr;
using ostrel::TexturePtr;
using ostrel::ViewportScope;

namespace {

constexpr double kPi = 3.141592653589793;

// The integer part, 0 for what a division by zero leaves, the nearest int for what no int can hold.
int truncated(float value) {
    constexpr float kBeyondInt = 2147483648.0F;
    if (std::isnan(value)) return 0;
    if (value >= kBeyondInt) return SDL_MAX_SINT32;
    return value <= -kBeyondInt ? SDL_MIN_SINT32 : static_cast<int>(value);
}

bool isBox(const int* width, const int* height) {
    return width != nullptr && height != nullptr && *width > 0 && *height > 0;
}

template <typename T>
void store(T* where, T value) {
    if (where != nullptr) *where = value;
}

// The texture drawn into a corner of the current target and read from there. SDL refuses the streaming texture as a
// target; the copy passes through whatever is the target (the window, as a rule), and what does not fit there is lost.
// Callers rely on it: red and blue arrive swapped, blended with what was drawn before.
SurfacePtr readScaled(SDL_Renderer* renderer, SDL_Texture* texture, SDL_Texture* temporary, int width, int height) {
    const ViewportScope viewport(renderer);
    SurfacePtr pixels{create_surface(width, height)};
    if (pixels == nullptr) return nullptr;
    const RenderTargetScope target(renderer, temporary);
    const SDL_Rect whole{0, 0, width, height};
    SDL_RenderSetViewport(renderer, &whole);
    SDL_RenderCopy(renderer, texture, nullptr, &whole);
    ostrel::readTargetInto(*pixels);
    return pixels;
}

}  // namespace

void* SDL2OstrelSurface::getPixels(int* pitch, int* bytesPerPixel, int* width, int* height) {
    Uint32 format = 0;
    int textureWidth = 0;
    int textureHeight = 0;
    if (SDL_QueryTexture(mTexture, &format, nullptr, &textureWidth, &textureHeight) != 0) {
        tprintf("SDL_QueryTexture fail : %s\n", SDL_GetError());
        return nullptr;
    }
    int outWidth = textureWidth;
    int outHeight = textureHeight;
    if (isBox(width, height)) {
        if (mSurface != nullptr && mSurface->w == *width && mSurface->h == *height) {
            store(pitch, mSurface->pitch);
            store(bytesPerPixel, int{mSurface->format->BytesPerPixel});
            return mSurface->pixels;
        }
        getScaledSizeKeepRatio(textureWidth, textureHeight, *width, *height, outWidth, outHeight);
        tprintf("getPixels %dx%d -> %dx%d max(%dx%d)\n", textureWidth, textureHeight, outWidth, outHeight, *width,
                *height);
    }
    mWidth = textureWidth;
    mHeight = textureHeight;
    SDL_Renderer* renderer = liveRenderer();
    const TexturePtr temporary{SDL_CreateTexture(renderer, format, SDL_TEXTUREACCESS_STREAMING, outWidth, outHeight)};
    if (temporary == nullptr) {
        tprintf("SDL_CreateTexture fail : %s\n", SDL_GetError());
        return nullptr;
    }
    SurfacePtr pixels = readScaled(renderer, mTexture, temporary.get(), outWidth, outHeight);
    if (pixels == nullptr) return nullptr;
    const SurfacePtr before{mSurface};
    mSurface = pixels.release();
    store(bytesPerPixel, int{mSurface->format->BytesPerPixel});
    store(pitch, mSurface->pitch);
    store(width, outWidth);
    store(height, outHeight);
    return mSurface->pixels;
}

OstrelSurface* CropSurface(OstrelSurface* s, SDL_Rect* r) {
    const SDL2OstrelSurface* source = ostrel::sdlSurface(s);
    if (r == nullptr || source == nullptr || source->mSurface == nullptr) return nullptr;
    SDL_Surface* pixels = source->mSurface;
    tprintf("crop surface s->mSurface->format is %p\n", static_cast<void*>(pixels->format));
    tprintf("crop surface s->mSurface->format->format is %x\n", pixels->format->format);
    SurfacePtr cut{create_surface(r->w, r->h)};
    if (cut == nullptr) return nullptr;
    SDL_BlitSurface(pixels, r, cut.get(), nullptr);
    // Without its texture the result still serves whoever wants the pixels. (WithoutATextureKeepsThePixels)
    TexturePtr texture{SDL_CreateTextureFromSurface(liveRenderer(), cut.get())};
    if (texture == nullptr) tprintf("CropSurface create texture fail : %s\n", SDL_GetError());
    return new SDL2OstrelSurface(texture.release(), cut.release());
}

OstrelSurface* RotateSurface(OstrelSurface* s, int degrees) {
    SDL_Texture* source = ostrel::textureOf(s);
    int width = 0;
    int height = 0;
    if (SDL_QueryTexture(source, nullptr, nullptr, &width, &height) != 0) {
        tprintf("SDL_QueryTexture fail : %s\n", SDL_GetError());
        return nullptr;
    }
    const double angle = degrees * kPi / 180.0;
    const double sine = std::sin(angle);
    const double cosine = std::cos(angle);
    const int outWidth = static_cast<int>(std::fabs(width * cosine) + std::fabs(height * sine));
    const int outHeight = static_cast<int>(std::fabs(width * sine) + std::fabs(height * cosine));
    SDL_Renderer* renderer = liveRenderer();
    TexturePtr turned{SDL_CreateTexture(renderer, ostrel::kPixelFormat, SDL_TEXTUREACCESS_TARGET, outWidth, outHeight)};
    if (turned == nullptr) {
        tprintf("SDL_CreateTexture fail : %s\n", SDL_GetError());
        return nullptr;
    }
    const ViewportScope viewport(renderer);
    SurfacePtr pixels{create_surface(outWidth, outHeight)};
    const RenderTargetScope target(renderer, turned.get());
    const SDL_Rect whole{0, 0, outWidth, outHeight};
    const SDL_Rect from{0, 0, width, height};
    const SDL_Rect to{(outWidth - width) / 2, (outHeight - height) / 2, width, height};
    SDL_RenderSetViewport(renderer, &whole);
    SDL_RenderCopyEx(renderer, source, &from, &to, degrees, nullptr, SDL_FLIP_NONE);
    if (pixels != nullptr) ostrel::readTargetInto(*pixels);
    return new SDL2OstrelSurface(turned.release(), pixels.release());
}

void SaveSurface2BMP(OstrelSurface* s, const char* path) {
    const SDL2OstrelSurface* surface = ostrel::sdlSurface(s);
    if (surface != nullptr && surface->mSurface != nullptr) ostrel::saveBmp(*surface->mSurface, path);
}

// Single precision on purpose: layouts were made with its roundings, even where they lose a pixel.
void getScaledSizeKeepRatio(int w, int h, int maxW, int maxH, int& outW, int& outH) {
    const float ratioWidth = static_cast<float>(w) / static_cast<float>(maxW);
    const float ratioHeight = static_cast<float>(h) / static_cast<float>(maxH);
    const float ratio = ratioHeight > ratioWidth ? ratioHeight : ratioWidth;
    outW = truncated(static_cast<float>(w) / ratio);
    outH = truncated(static_cast<float>(h) / ratio);
}
