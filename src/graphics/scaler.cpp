#include "ostrel/scaler.h"

#include <SDL.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "graphics/bilinear.h"
#include "graphics/screen_internal.h"
#include "graphics/sdl_handles.h"
#include "graphics/surface_internal.h"
#include "ostrel/log.h"
#include "ostrel/screen.h"
#include "ostrel/surface.h"

namespace {

using ostrel::BilinearPath;
using ostrel::ChannelOrder;
using ostrel::SurfacePtr;
using ostrel::TexturePtr;

constexpr int kFractionBits = 16;
constexpr uint32_t kOnePixel = 1U << kFractionBits;
constexpr uint32_t kColumnLimit = 1U << (32 - kFractionBits);  // 16.16 positions start again at 0 from here
constexpr int kFullDepth = 32;

unsigned* pixelAt(unsigned* pixels, unsigned x, unsigned y, unsigned pitch) {
    return pixels == nullptr ? nullptr : pixels + x + std::size_t{y} * pitch;
}

uint32_t fixedStep(uint32_t sourceSize, uint32_t targetSize) {
    return targetSize == 0 ? 0 : (sourceSize << kFractionBits) / targetSize;
}

void pickNearest(const unsigned* row, uint32_t x, uint32_t step, unsigned* dst, uint32_t count) {
    const uint32_t first = x >> kFractionBits;
    if (step == kOnePixel && first + count <= kColumnLimit) {
        std::memcpy(dst, row + first, count * sizeof(unsigned));
        return;
    }
    for (uint32_t j = 0; j < count; ++j, x += step) dst[j] = row[x >> kFractionBits];
}

// The packed channel orders from XBGR on hold blue above red; the scaled copies are ARGB.
int swapFlagOf(const SDL_Surface& surface) {
    return SDL_PIXELORDER(surface.format->format) >= SDL_PACKEDORDER_XBGR ? 1 : 0;
}

void scalePixels(const SDL_Surface& from, SDL_Surface& to) {
    resizeBilinear_cpu(static_cast<const unsigned*>(from.pixels), static_cast<unsigned*>(to.pixels), from.w, from.h,
                       to.w, to.h, swapFlagOf(from));
}

// A source of any other depth is not scaled but cut at the top left corner of the new size; that is meant.
// (ScaleSurfaceCutsASourceOfAnotherDepth)
bool scaleCopy(SDL_Surface& from, SDL_Surface& to) {
    if (from.format->BitsPerPixel == kFullDepth) {
        scalePixels(from, to);
        return true;
    }
    const SurfacePtr cut{create_surface(to.w, to.h)};
    if (cut == nullptr) return false;
    SDL_BlitSurface(&from, nullptr, cut.get(), nullptr);
    scalePixels(*cut, to);
    return true;
}

}  // namespace

void resizeBilinear_cpu(const unsigned* src, unsigned* dst, int srcW, int srcH, int dstW, int dstH, int swapRB) {
    if (src == nullptr || dst == nullptr || srcW < 1 || srcH < 1 || dstW < 1 || dstH < 1) return;
    const BilinearPath path = ostrel::hasVectorPath() ? BilinearPath::Vector : BilinearPath::Portable;
    const ChannelOrder order = swapRB == 0 ? ChannelOrder::Kept : ChannelOrder::RedBlueSwapped;
    ostrel::scaleBilinear(path, src, {srcW, srcH}, dst, {dstW, dstH}, order);
}

void resizeBilinear_cpu_argb(const unsigned* src, unsigned* dst, int srcW, int srcH, int dstW, int dstH, int swapRB) {
    tprintf("resizeBilinear_cpu_argb:%dx%d->%dx%d\n", srcW, srcH, dstW, dstH);
    resizeBilinear_cpu(src, dst, srcW, srcH, dstW, dstH, swapRB);
}

void bitmap_scale_bilinear(unsigned x, unsigned y, unsigned w, unsigned h, unsigned dstW, unsigned dstH,
                           unsigned srcPitch, unsigned /*reserved*/, unsigned* src, unsigned* dst) {
    // The pitch finds the first pixel only: rows are then read w apart, as those of a packed picture.
    // (BitmapScaleBilinearReadsRowsOneWidthApart)
    resizeBilinear_cpu_argb(pixelAt(src, x, y, srcPitch), dst, static_cast<int>(w), static_cast<int>(h),
                            static_cast<int>(dstW), static_cast<int>(dstH), 0);
}

void bitmap_scale(unsigned short x, unsigned short y, unsigned short w, unsigned short h, unsigned dstW, unsigned dstH,
                  unsigned srcPitch, unsigned dstSkip, unsigned* src, unsigned* dst) {
    if (src == nullptr || dst == nullptr || dstW > INT32_MAX || dstH > INT32_MAX) return;
    const uint32_t stepX = fixedStep(w, dstW);
    const uint32_t stepY = fixedStep(h, dstH);
    const uint32_t columns = std::max(dstW, 1U);
    const std::size_t pitch = dstW + std::size_t{dstSkip};
    const unsigned* previous = nullptr;
    uint32_t sourceY = uint32_t{y} << kFractionBits;
    for (uint32_t i = 0; i < std::max(dstH, 1U); ++i, sourceY += stepY, dst += pitch) {
        const unsigned* row = pixelAt(src, 0, sourceY >> kFractionBits, srcPitch);
        if (row == previous) {
            std::memmove(dst, dst - pitch, columns * sizeof(unsigned));
        } else {
            pickNearest(row, uint32_t{x} << kFractionBits, stepX, dst, columns);
        }
        previous = row;
    }
}

void bitmap_scale_bresenham(unsigned x, unsigned y, unsigned w, unsigned h, unsigned dstW, unsigned dstH,
                            unsigned srcPitch, unsigned dstPitch, unsigned* src, unsigned* dst) {
    constexpr unsigned kPixelBytes = sizeof(unsigned);
    sdl_rs90_scale_frame32_bresenham_horz(dst, dstW, dstH, (dstPitch != 0 ? dstPitch : dstW) * kPixelBytes,
                                          pixelAt(src, x, y, srcPitch), w, h, srcPitch * kPixelBytes);
}

OstrelSurface* ScaleSurface(OstrelSurface* s, int w, int h) {
    const SDL2OstrelSurface* source = ostrel::sdlSurface(s);
    if (source == nullptr || source->mSurface == nullptr) return nullptr;
    SurfacePtr scaled{create_surface(w, h)};
    if (scaled == nullptr || !scaleCopy(*source->mSurface, *scaled)) return nullptr;
    TexturePtr texture{SDL_CreateTextureFromSurface(ostrel::liveRenderer(), scaled.get())};
    if (texture == nullptr) return nullptr;
    return new SDL2OstrelSurface(texture.release(), scaled.release());
}
