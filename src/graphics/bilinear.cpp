#include "graphics/bilinear.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace ostrel {

namespace {

constexpr int kChannelBits = 8;
constexpr unsigned kChannelMask = 0xFF;

// A position between two source pixels: the first one and the weight of the second.
struct Sample {
    int index;
    float weight;
};

// Single precision and a rounded product, so that every processor picks the same neighbours. The rounding of sizes
// beyond 2^23 can reach the last pixel, and the 1-pixel source has no other.
Sample sampleAt(int position, float ratio, int sourceSize) {
    const float exact = static_cast<float>(position) * ratio;
    const auto index = static_cast<int64_t>(exact);
    return {static_cast<int>(std::min<int64_t>(index, sourceSize - 1)), exact - static_cast<float>(index)};
}

float sourceStep(int sourceSize, int targetSize) {
    return static_cast<float>(sourceSize - 1) / static_cast<float>(targetSize);
}

const unsigned* rowAt(const unsigned* pixels, int row, int width) {
    return pixels + static_cast<std::ptrdiff_t>(row) * width;
}

struct Neighbours {
    unsigned a, b;  // above: left, right
    unsigned c, d;  // below
};

// The order of the operations, and which of them are fused, decide the last bit: they are part of the result.
unsigned blendChannel(const Neighbours& n, int shift, float dx, float restX, const BilinearRow& row) {
    const auto channel = [shift](unsigned pixel) { return static_cast<float>(pixel >> shift & kChannelMask); };
    float sum = channel(n.b) * dx * row.restY;
    sum = std::fmaf(channel(n.a) * restX, row.restY, sum);
    sum = std::fmaf(channel(n.c) * row.dy, restX, sum);
    sum = std::fmaf(channel(n.d), dx * row.dy, sum);
    return static_cast<unsigned>(sum);
}

void scaleRowPortable(const BilinearStrip& strip, const BilinearRow& row, ChannelOrder order, int first) {
    const bool swapped = order == ChannelOrder::RedBlueSwapped;
    for (int j = first; j < strip.count; ++j) {
        const int left = strip.x[j];
        const int right = j < strip.inner ? left + 1 : left;
        const Neighbours n{row.above[left], row.above[right], row.below[left], row.below[right]};
        unsigned pixel = 0;
        for (int shift = 0; shift < 4 * kChannelBits; shift += kChannelBits) {
            const bool redOrBlue = shift == 0 || shift == 2 * kChannelBits;
            const int target = swapped && redOrBlue ? 2 * kChannelBits - shift : shift;
            pixel |= blendChannel(n, shift, strip.dx[j], strip.restX[j], row) << target;
        }
        row.dst[j] = pixel;
    }
}

}  // namespace

void fillStrip(BilinearStrip& strip, int first, int srcW, int dstW) {
    const float step = sourceStep(srcW, dstW);
    strip.count = std::min(BilinearStrip::kColumns, dstW - first);
    strip.inner = 0;
    for (int j = 0; j < strip.count; ++j) {
        const Sample sample = sampleAt(first + j, step, srcW);
        strip.x[j] = sample.index;
        strip.dx[j] = sample.weight;
        strip.restX[j] = 1.0F - sample.weight;
        if (sample.index < srcW - 1) strip.inner = j + 1;
    }
}

void scaleBilinear(BilinearPath path, const unsigned* src, SDL_Point from, unsigned* dst, SDL_Point to,
                   ChannelOrder order) {
    const float stepY = sourceStep(from.y, to.y);
    BilinearStrip strip;
    for (int first = 0; first < to.x; first += strip.count) {
        fillStrip(strip, first, from.x, to.x);
        for (int i = 0; i < to.y; ++i) {
            const Sample sample = sampleAt(i, stepY, from.y);
            const int next = std::min(sample.index + 1, from.y - 1);
            const BilinearRow row{rowAt(src, sample.index, from.x), rowAt(src, next, from.x), sample.weight,
                                  1.0F - sample.weight, dst + static_cast<std::ptrdiff_t>(i) * to.x + first};
            const int done = path == BilinearPath::Vector ? scaleRowVector(strip, row, order) : 0;
            scaleRowPortable(strip, row, order, done);
        }
    }
}

}  // namespace ostrel
