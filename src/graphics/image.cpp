#include "ostrel/image.h"

#include <SDL.h>
#include <SDL_image.h>

#include <string>
#include <utility>

#include "graphics/screen_internal.h"
#include "graphics/sdl_handles.h"
#include "graphics/surface_internal.h"
#include "ostrel/host.h"
#include "ostrel/log.h"
#include "ostrel/scaler.h"
#include "ostrel/screen.h"
#include "ostrel/surface.h"

using ostrel::RwOpsPtr;
using ostrel::SurfacePtr;
using ostrel::TexturePtr;

namespace {

constexpr int kPixelBytes = 4;  // what surfaces keep, whatever the file holds

bool isAbsolute(const char* name) { return name[0] == '/'; }

// A paint program's own format, whose loader writes through null when a damaged file asks for more memory than there
// is. Themes and games have no such images, so they all count as broken. (AnXcfImageCountsAsBroken)
bool isXcf(const char* path) {
    const RwOpsPtr file{SDL_RWFromFile(path, "rb")};
    return file != nullptr && IMG_isXCF(file.get()) != 0;
}

SurfacePtr decode(const char* path) { return SurfacePtr{path == nullptr || isXcf(path) ? nullptr : IMG_Load(path)}; }

SurfacePtr decode(const char* directory, const char* name) {
    if (directory == nullptr) return nullptr;
    return decode((std::string(directory) + name).c_str());
}

void logSubstitution(const char* themeDir, const char* usedDir, const char* name) {
    tprintf("%s/%s open fail, use %s/%s\n", themeDir == nullptr ? "(null)" : themeDir, name, usedDir, name);
}

// A copy with 32 bits in a pixel, or null when memory is short.
SurfacePtr copyAs32Bit(SDL_Surface& source) {
    SurfacePtr copy{create_surface(source.w, source.h)};
    if (copy == nullptr) return nullptr;
    tprintf("copy %dx%d %d:%d->%dx%d %d:%d\n", source.w, source.h, source.pitch, source.format->BytesPerPixel, copy->w,
            copy->h, copy->pitch, copy->format->BytesPerPixel);
    SDL_BlitSurface(&source, nullptr, copy.get(), nullptr);
    return copy;
}

OstrelSurface* makeSurface(SurfacePtr pixels) {
    if (pixels == nullptr) return nullptr;
    if (pixels->format->BytesPerPixel != kPixelBytes) {
        SurfacePtr copy = copyAs32Bit(*pixels);
        if (copy != nullptr) pixels = std::move(copy);
    }
    TexturePtr texture{SDL_CreateTextureFromSurface(ostrel::liveRenderer(), pixels.get())};
    if (texture == nullptr) return nullptr;
    return new SDL2OstrelSurface(texture.release(), pixels.release());
}

// The image of a thumbnail: its own file, else the picture that stands in for it.
SurfacePtr decodeThumbnail(const char* path, const char* name, bool fallback) {
    SurfacePtr pixels = decode(path);
    if (pixels != nullptr || !fallback || name == nullptr) return pixels;
    if (isAbsolute(name)) pixels = decode(name);
    if (pixels == nullptr) pixels = decode(gThemePath, name);
    if (pixels != nullptr) return pixels;
    pixels = decode(ostrel::kWorkingDirectory, name);
    if (pixels != nullptr) logSubstitution(gThemePath, ostrel::kWorkingDirectory, name);
    return pixels;
}

// The largest size of the image's ratio within the wanted one, in whole pixels rounded down.
SDL_Point fitKeepingRatio(const SDL_Surface& image, int width, int height) {
    const Sint64 fitWidth = image.h == 0 ? 0 : Sint64{image.w} * height / image.h;
    if (fitWidth <= width) return {static_cast<int>(fitWidth), height};
    const Sint64 fitHeight = image.w == 0 ? 0 : Sint64{image.h} * width / image.w;
    return {width, static_cast<int>(fitHeight)};
}

// Scales into a new surface. The scaler reads rows without padding, as 32-bit surfaces have them, and its result is
// ARGB, so sources that begin with blue have red and blue swapped on the way. Null when the size cannot be had.
SurfacePtr scale(SurfacePtr source, SDL_Point size) {
    SurfacePtr scaled{create_surface(size.x, size.y)};
    if (scaled == nullptr) return nullptr;
    tprintf("thumb3bytes pixel %d\n", source->format->BytesPerPixel);
    if (source->format->BytesPerPixel != kPixelBytes) {
        source = copyAs32Bit(*source);
        // Deliberate: what cannot even be converted stops the process here, where the dump names the reason.
        if (source == nullptr) __builtin_trap();
    }
    const bool blueFirst = SDL_PIXELORDER(source->format->format) > SDL_PACKEDORDER_RGBA;
    if (source->w > 0 && source->h > 0 && size.x > 0 && size.y > 0) {
        resizeBilinear_cpu(static_cast<const unsigned*>(source->pixels), static_cast<unsigned*>(scaled->pixels),
                           source->w, source->h, size.x, size.y, blueFirst ? 1 : 0);
    }
    return scaled;
}

}  // namespace

OstrelSurface* LoadOstrelSurface(const char* themeDir, const char* fallbackDir, const char* name) {
    if (name == nullptr) return nullptr;
    if (isAbsolute(name)) return makeSurface(decode(name));
    OstrelSurface* themed = makeSurface(decode(themeDir, name));
    if (themed != nullptr) return themed;
    OstrelSurface* substitute = makeSurface(decode(fallbackDir, name));
    if (substitute != nullptr) logSubstitution(themeDir, fallbackDir, name);
    return substitute;
}

OstrelSurface* LoadOstrelSurfaceSpecSized(const char* path, int width, int height, const char* name, bool fallback,
                                          bool keepRatio) {
    SurfacePtr pixels = decodeThumbnail(path, name, fallback);
    if (pixels == nullptr) return nullptr;
    if (pixels->w != width || pixels->h != height) {
        const SDL_Point size = keepRatio ? fitKeepingRatio(*pixels, width, height) : SDL_Point{width, height};
        pixels = scale(std::move(pixels), size);
        if (pixels == nullptr) return nullptr;
    }
    TexturePtr texture{SDL_CreateTextureFromSurface(ostrel::liveRenderer(), pixels.get())};
    return new SDL2OstrelSurface(texture.release(), pixels.release());
}
