// The vector path of the bilinear scaler, one for each processor family. A pixel's four channels lie side by side in
// four lanes, and every lane does exactly the operations of the portable path, the fused ones fused.
#include "graphics/bilinear.h"

#if defined(__aarch64__)
#include <arm_neon.h>
#elif defined(__x86_64__)
#include <immintrin.h>
#endif

namespace ostrel {

#if defined(__aarch64__)

namespace {

struct Weights {
    float32x4_t dx, restX, dxdy;  // of four columns
    float32x4_t dy, restY;        // the same in every lane
};

struct PixelPair {
    float32x4_t left, right;
};

PixelPair loadPair(const unsigned* pixels) {
    const uint16x8_t wide = vmovl_u8(vld1_u8(reinterpret_cast<const uint8_t*>(pixels)));
    return {vcvtq_f32_u32(vmovl_u16(vget_low_u16(wide))), vcvtq_f32_u32(vmovl_high_u16(wide))};
}

template <int Lane>
uint32x4_t blend(const BilinearRow& row, int x, const Weights& w) {
    const PixelPair above = loadPair(row.above + x);
    const PixelPair below = loadPair(row.below + x);
    float32x4_t sum = vmulq_f32(vmulq_laneq_f32(above.right, w.dx, Lane), w.restY);
    sum = vfmaq_f32(sum, vmulq_laneq_f32(above.left, w.restX, Lane), w.restY);
    sum = vfmaq_laneq_f32(sum, vmulq_f32(below.left, w.dy), w.restX, Lane);
    sum = vfmaq_laneq_f32(sum, below.right, w.dxdy, Lane);
    return vcvtq_u32_f32(sum);
}

// The low byte of each of the sixteen lanes, in order.
uint8x16_t packBytes(uint32x4_t p0, uint32x4_t p1, uint32x4_t p2, uint32x4_t p3) {
    const uint16x8_t low = vuzp1q_u16(vreinterpretq_u16_u32(p0), vreinterpretq_u16_u32(p1));
    const uint16x8_t high = vuzp1q_u16(vreinterpretq_u16_u32(p2), vreinterpretq_u16_u32(p3));
    return vuzp1q_u8(vreinterpretq_u8_u16(low), vreinterpretq_u8_u16(high));
}

}  // namespace

bool hasVectorPath() { return true; }

int scaleRowVector(const BilinearStrip& strip, const BilinearRow& row, ChannelOrder order) {
    static constexpr uint8_t kKept[16] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    static constexpr uint8_t kSwapped[16] = {2, 1, 0, 3, 6, 5, 4, 7, 10, 9, 8, 11, 14, 13, 12, 15};
    const uint8x16_t byteOrder = vld1q_u8(order == ChannelOrder::Kept ? kKept : kSwapped);
    Weights w{};
    w.dy = vdupq_n_f32(row.dy);
    w.restY = vdupq_n_f32(row.restY);
    int j = 0;
    for (; j + 4 <= strip.inner; j += 4) {
        const int* x = strip.x + j;
        w.dx = vld1q_f32(strip.dx + j);
        w.restX = vld1q_f32(strip.restX + j);
        w.dxdy = vmulq_f32(w.dx, w.dy);
        const uint8x16_t pixels =
            packBytes(blend<0>(row, x[0], w), blend<1>(row, x[1], w), blend<2>(row, x[2], w), blend<3>(row, x[3], w));
        vst1q_u8(reinterpret_cast<uint8_t*>(row.dst + j), vqtbl1q_u8(pixels, byteOrder));
    }
    return j;
}

#elif defined(__x86_64__)

// The library is built for every x86-64 processor; these functions alone ask for more, and run only where it is there.
#define OSTREL_AVX2 __attribute__((target("avx2,fma")))

namespace {

struct Weights {
    __m256 dx, restX;  // of two columns, each in the four lanes of one pixel
    __m256 dy, restY;  // the same in every lane
};

struct PixelPairs {
    __m256 left, right;  // of two columns
};

// A pixel and its right-hand neighbour, one in each half.
OSTREL_AVX2 inline __m256 loadPair(const unsigned* pixels) {
    const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(pixels));
    return _mm256_cvtepi32_ps(_mm256_cvtepu8_epi32(bytes));
}

OSTREL_AVX2 inline PixelPairs loadPairs(const unsigned* row, const int* x) {
    const __m256 first = loadPair(row + x[0]);
    const __m256 second = loadPair(row + x[1]);
    return {_mm256_insertf128_ps(first, _mm256_castps256_ps128(second), 1),
            _mm256_permute2f128_ps(first, second, 0x31)};
}

OSTREL_AVX2 inline __m256i blend(const BilinearRow& row, const int* x, Weights w) {
    const PixelPairs above = loadPairs(row.above, x);
    const PixelPairs below = loadPairs(row.below, x);
    __m256 sum = _mm256_mul_ps(_mm256_mul_ps(above.right, w.dx), w.restY);
    sum = _mm256_fmadd_ps(_mm256_mul_ps(above.left, w.restX), w.restY, sum);
    sum = _mm256_fmadd_ps(_mm256_mul_ps(below.left, w.dy), w.restX, sum);
    sum = _mm256_fmadd_ps(below.right, _mm256_mul_ps(w.dx, w.dy), sum);
    return _mm256_cvttps_epi32(sum);
}

// Two of the four weights in each half of `four`, each in the four lanes of one pixel.
template <int First>
OSTREL_AVX2 inline __m256 spread(__m256 four) {
    constexpr int kSecond = First + 1;
    return _mm256_permutevar_ps(four,
                                _mm256_setr_epi32(First, First, First, First, kSecond, kSecond, kSecond, kSecond));
}

// The low byte of each of the sixteen lanes, in the order of the columns: packing works on each half alone.
OSTREL_AVX2 inline __m128i packBytes(__m256i p01, __m256i p23) {
    const __m256i words = _mm256_packus_epi32(p01, p23);      // p0 p2 | p1 p3
    const __m256i bytes = _mm256_packus_epi16(words, words);  // p0 p2 p0 p2 | p1 p3 p1 p3
    return _mm_unpacklo_epi32(_mm256_castsi256_si128(bytes), _mm256_extracti128_si256(bytes, 1));
}

OSTREL_AVX2 int scaleRowAvx2(const BilinearStrip& strip, const BilinearRow& row, ChannelOrder order) {
    const __m128i kept = _mm_setr_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    const __m128i swapped = _mm_setr_epi8(2, 1, 0, 3, 6, 5, 4, 7, 10, 9, 8, 11, 14, 13, 12, 15);
    const __m128i byteOrder = order == ChannelOrder::Kept ? kept : swapped;
    const __m256 dy = _mm256_set1_ps(row.dy);
    const __m256 restY = _mm256_set1_ps(row.restY);
    int j = 0;
    for (; j + 4 <= strip.inner; j += 4) {
        const int* x = strip.x + j;
        const __m256 dx = _mm256_broadcast_ps(reinterpret_cast<const __m128*>(strip.dx + j));
        const __m256 restX = _mm256_broadcast_ps(reinterpret_cast<const __m128*>(strip.restX + j));
        const __m256i first = blend(row, x, {spread<0>(dx), spread<0>(restX), dy, restY});
        const __m256i second = blend(row, x + 2, {spread<2>(dx), spread<2>(restX), dy, restY});
        const __m128i pixels = _mm_shuffle_epi8(packBytes(first, second), byteOrder);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(row.dst + j), pixels);
    }
    return j;
}

}  // namespace

bool hasVectorPath() {
    static const bool kAvailable = __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0;
    return kAvailable;
}

int scaleRowVector(const BilinearStrip& strip, const BilinearRow& row, ChannelOrder order) {
    return scaleRowAvx2(strip, row, order);
}

#else

bool hasVectorPath() { return false; }

int scaleRowVector(const BilinearStrip&, const BilinearRow&, ChannelOrder) { return 0; }

#endif

}  // namespace ostrel
