#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "ostrel/scaler.h"

namespace {

// A 32-bit pixel is averaged as one number, rounded up in the three colours; the carry out of its top byte is lost,
// as the players of 24-bit frames expect. (Blend32LosesTheCarryOfTheTopByte)
uint32_t average(uint32_t p, uint32_t q) {
    constexpr uint32_t kLowBits = 0x00010101;
    return (((p & kLowBits) ^ (q & kLowBits)) + p + q) >> 1;
}

uint16_t average(uint16_t p, uint16_t q) {
    constexpr uint32_t kLowBits = 0x0821;  // of blue, green and red
    const uint32_t sum = uint32_t{p} + q + ((p & kLowBits) ^ (q & kLowBits));
    return static_cast<uint16_t>(sum >> 1);
}

// Pixels in rows, the pitch counted in pixels.
template <typename Pixel>
struct Frame {
    Pixel* pixels;
    uint32_t width, height, pitch;

    // A caller's negative size arrives as one beyond the largest int.
    static bool isSize(uint32_t size) { return size != 0 && size <= INT32_MAX; }
    bool empty() const { return pixels == nullptr || !isSize(width) || !isSize(height); }
};

// The steps through a line of `from` pixels that make `to` of it: whole ones, and one more whenever the error is full.
struct Stepper {
    uint32_t step, remainder, limit;
    uint32_t position = 0;
    uint32_t error = 0;

    Stepper(uint32_t from, uint32_t to) : step(from / to), remainder(from % to), limit(to) {}

    void advance() {
        position += step;
        error += remainder;
        if (error >= limit) {
            error -= limit;
            ++position;
        }
    }
};

// The error from which two neighbours are blended: below it the left one stands alone. Half a step, but in a row that
// shrinks by less than a third later than that, so that most of its pixels stay sharp. (The same bias of a growing row,
// half of 3 * from - 2 * to, never comes up to the half.)
uint32_t blendThreshold(uint32_t from, uint32_t to) {
    const auto half = static_cast<int32_t>(to >> 1);
    if (from < to) return static_cast<uint32_t>(half);
    return static_cast<uint32_t>(std::max(half, static_cast<int32_t>(2 * to - from)));
}

// A growing row ends with a plain copy of the pixel where the walk stops. Its blends may want the pixel behind the
// row's last one: that is `beyond`.
template <typename Pixel>
void walkRow(const Frame<const Pixel>& src, const Pixel* row, Pixel beyond, Pixel* dst, uint32_t dstWidth) {
    const uint32_t threshold = blendThreshold(src.width, dstWidth);
    const uint32_t last = src.width - 1;
    const bool growing = src.width < dstWidth;
    const uint32_t walked = growing ? dstWidth - 1 : dstWidth;
    Stepper x(src.width, dstWidth);
    uint32_t i = 0;
    for (; i < walked && x.position < last; ++i, x.advance()) {
        const Pixel blended = average(row[x.position], row[x.position + 1]);
        dst[i] = x.error < threshold ? row[x.position] : blended;
    }
    for (; i < walked; ++i, x.advance()) dst[i] = x.error < threshold ? row[last] : average(row[last], beyond);
    if (growing) dst[walked] = row[last];
}

template <typename Pixel>
void scaleFrame(const Frame<Pixel>& dst, const Frame<const Pixel>& src) {
    if (dst.empty() || src.empty()) return;
    const std::size_t rowBytes = std::size_t{dst.width} * sizeof(Pixel);
    Stepper y(src.height, dst.height);
    uint32_t previous = src.height;  // no row at first
    Pixel* target = dst.pixels;
    for (uint32_t i = 0; i < dst.height; ++i, y.advance(), target += dst.pitch) {
        const Pixel* row = src.pixels + std::size_t{y.position} * src.pitch;
        if (y.position == previous) {
            std::memmove(target, target - dst.pitch, rowBytes);
        } else if (src.width == dst.width) {
            std::memcpy(target, row, rowBytes);
        } else {
            const bool moreBelow = src.pitch != 0 && y.position < src.height - 1;
            walkRow(src, row, row[moreBelow ? src.width : src.width - 1], target, dst.width);
        }
        previous = y.position;
    }
}

template <typename Pixel>
constexpr uint32_t inPixels(uint32_t pitchBytes) {
    return pitchBytes / uint32_t{sizeof(Pixel)};
}

}  // namespace

void sdl_rs90_scale_frame32_bresenham_horz(unsigned* dst, unsigned dstW, unsigned dstH, unsigned dstPitchBytes,
                                           unsigned* src, unsigned srcW, unsigned srcH, unsigned srcPitchBytes) {
    scaleFrame<unsigned>({dst, dstW, dstH, inPixels<unsigned>(dstPitchBytes)},
                         {src, srcW, srcH, inPixels<unsigned>(srcPitchBytes)});
}

void sdl_rs90_scale_frame16_bresenham_horz(unsigned short* dst, unsigned dstW, unsigned dstH, unsigned dstPitchBytes,
                                           unsigned short* src, unsigned srcW, unsigned srcH, unsigned srcPitchBytes) {
    scaleFrame<unsigned short>({dst, dstW, dstH, inPixels<unsigned short>(dstPitchBytes)},
                               {src, srcW, srcH, inPixels<unsigned short>(srcPitchBytes)});
}
