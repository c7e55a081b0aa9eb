// The scalers against what a program would use instead: SDL's own linear stretch, and a plain loop over the channels.
// Arguments: source width and height, target width and height.  Items are destination pixels.
#include <SDL.h>
#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "ostrel/scaler.h"

namespace {

struct Sizes {
    explicit Sizes(const benchmark::State& state)
        : srcW(static_cast<int>(state.range(0))),
          srcH(static_cast<int>(state.range(1))),
          dstW(static_cast<int>(state.range(2))),
          dstH(static_cast<int>(state.range(3))) {}
    std::size_t srcArea() const { return static_cast<std::size_t>(srcW) * static_cast<std::size_t>(srcH); }
    std::size_t dstArea() const { return static_cast<std::size_t>(dstW) * static_cast<std::size_t>(dstH); }

    int srcW, srcH, dstW, dstH;
};

template <typename Pixel = unsigned>
std::vector<Pixel> noise(std::size_t count) {
    std::vector<Pixel> result(count);
    uint32_t value = 1;
    for (Pixel& pixel : result) pixel = static_cast<Pixel>(value = value * 1664525U + 1013904223U);
    return result;
}

void countPixels(benchmark::State& state, const Sizes& sizes) {
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * sizes.dstArea()));
}

void bilinear(benchmark::State& state) {
    const Sizes s(state);
    const auto src = noise(s.srcArea());
    std::vector<unsigned> dst(s.dstArea());
    for (auto _ : state) {
        resizeBilinear_cpu(src.data(), dst.data(), s.srcW, s.srcH, s.dstW, s.dstH, 0);
        benchmark::DoNotOptimize(dst.data());
    }
    countPixels(state, s);
}

// What one writes first: each pixel from its four neighbours, channel by channel, with weights computed anew.
void bilinearPlainLoop(benchmark::State& state) {
    const Sizes s(state);
    const auto src = noise(s.srcArea());
    std::vector<unsigned> dst(s.dstArea());
    for (auto _ : state) {
        const float rx = static_cast<float>(s.srcW - 1) / static_cast<float>(s.dstW);
        const float ry = static_cast<float>(s.srcH - 1) / static_cast<float>(s.dstH);
        unsigned* out = dst.data();
        for (int i = 0; i < s.dstH; ++i) {
            for (int j = 0; j < s.dstW; ++j) {
                const auto x = static_cast<int>(rx * static_cast<float>(j));
                const auto y = static_cast<int>(ry * static_cast<float>(i));
                const float dx = rx * static_cast<float>(j) - static_cast<float>(x);
                const float dy = ry * static_cast<float>(i) - static_cast<float>(y);
                const unsigned* a = src.data() + y * s.srcW + x;
                unsigned pixel = 0;
                for (int shift = 0; shift < 32; shift += 8) {
                    const auto channel = [&](int at) { return static_cast<float>(a[at] >> shift & 0xFFU); };
                    const float value = channel(0) * (1 - dx) * (1 - dy) + channel(1) * dx * (1 - dy) +
                                        channel(s.srcW) * dy * (1 - dx) + channel(s.srcW + 1) * dx * dy;
                    pixel |= static_cast<unsigned>(value) << shift;
                }
                *out++ = pixel;
            }
        }
        benchmark::DoNotOptimize(dst.data());
    }
    countPixels(state, s);
}

using SurfacePtr = std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)>;

SurfacePtr surfaceOver(std::vector<unsigned>& pixels, int width, int height) {
    return {SDL_CreateRGBSurfaceWithFormatFrom(pixels.data(), width, height, 32, width * 4, SDL_PIXELFORMAT_ARGB8888),
            &SDL_FreeSurface};
}

void bilinearBySdl(benchmark::State& state) {
    const Sizes s(state);
    auto src = noise(s.srcArea());
    std::vector<unsigned> dst(s.dstArea());
    const SurfacePtr from = surfaceOver(src, s.srcW, s.srcH);
    const SurfacePtr to = surfaceOver(dst, s.dstW, s.dstH);
    for (auto _ : state) {
        SDL_SoftStretchLinear(from.get(), nullptr, to.get(), nullptr);
        benchmark::DoNotOptimize(dst.data());
    }
    countPixels(state, s);
}

void nearest(benchmark::State& state) {
    const Sizes s(state);
    auto src = noise(s.srcArea());
    std::vector<unsigned> dst(s.dstArea());
    for (auto _ : state) {
        bitmap_scale(0, 0, static_cast<unsigned short>(s.srcW), static_cast<unsigned short>(s.srcH),
                     static_cast<unsigned>(s.dstW), static_cast<unsigned>(s.dstH), static_cast<unsigned>(s.srcW), 0,
                     src.data(), dst.data());
        benchmark::DoNotOptimize(dst.data());
    }
    countPixels(state, s);
}

void nearestBySdl(benchmark::State& state) {
    const Sizes s(state);
    auto src = noise(s.srcArea());
    std::vector<unsigned> dst(s.dstArea());
    const SurfacePtr from = surfaceOver(src, s.srcW, s.srcH);
    const SurfacePtr to = surfaceOver(dst, s.dstW, s.dstH);
    for (auto _ : state) {
        SDL_SoftStretch(from.get(), nullptr, to.get(), nullptr);
        benchmark::DoNotOptimize(dst.data());
    }
    countPixels(state, s);
}

void lines32(benchmark::State& state) {
    const Sizes s(state);
    auto src = noise(s.srcArea());
    std::vector<unsigned> dst(s.dstArea());
    for (auto _ : state) {
        sdl_rs90_scale_frame32_bresenham_horz(dst.data(), static_cast<unsigned>(s.dstW), static_cast<unsigned>(s.dstH),
                                              static_cast<unsigned>(s.dstW) * 4, src.data(),
                                              static_cast<unsigned>(s.srcW), static_cast<unsigned>(s.srcH),
                                              static_cast<unsigned>(s.srcW) * 4);
        benchmark::DoNotOptimize(dst.data());
    }
    countPixels(state, s);
}

void lines16(benchmark::State& state) {
    const Sizes s(state);
    auto src = noise<unsigned short>(s.srcArea());
    std::vector<unsigned short> dst(s.dstArea());
    for (auto _ : state) {
        sdl_rs90_scale_frame16_bresenham_horz(dst.data(), static_cast<unsigned>(s.dstW), static_cast<unsigned>(s.dstH),
                                              static_cast<unsigned>(s.dstW) * 2, src.data(),
                                              static_cast<unsigned>(s.srcW), static_cast<unsigned>(s.srcH),
                                              static_cast<unsigned>(s.srcW) * 2);
        benchmark::DoNotOptimize(dst.data());
    }
    countPixels(state, s);
}

// A box picture made into a thumbnail, and the frame of a game made as large as the screen.
void thumbnailAndFrame(benchmark::internal::Benchmark* bench) {
    bench->Args({640, 480, 320, 240})->Args({256, 224, 1280, 720});
}

BENCHMARK(bilinear)->Apply(thumbnailAndFrame);
BENCHMARK(bilinearPlainLoop)->Apply(thumbnailAndFrame);
BENCHMARK(bilinearBySdl)->Apply(thumbnailAndFrame);
BENCHMARK(nearest)->Apply(thumbnailAndFrame);
BENCHMARK(nearestBySdl)->Apply(thumbnailAndFrame);
BENCHMARK(lines32)->Apply(thumbnailAndFrame);
BENCHMARK(lines16)->Apply(thumbnailAndFrame);

}  // namespace
