#include <sys/mman.h>
#include <unistd.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

#include "graphics/bilinear.h"

namespace {

using ostrel::BilinearPath;
using ostrel::BilinearStrip;
using ostrel::ChannelOrder;
using Pixels = std::vector<unsigned>;

std::size_t area(SDL_Point size) { return static_cast<std::size_t>(size.x) * static_cast<std::size_t>(size.y); }

Pixels scattered(SDL_Point size) {
    Pixels result(area(size));
    for (std::size_t i = 0; i < result.size(); ++i) {
        const auto n = static_cast<uint32_t>(i);
        result[i] = (n * 2654435761U) ^ (n << 7) ^ 0x9E3779B9U;
    }
    return result;
}

// One channel of one pixel, straight from the rule. Volatile keeps the compiler from fusing what is not to be fused.
unsigned channelByTheRule(const Pixels& src, SDL_Point from, SDL_Point to, int i, int j, int shift) {
    const volatile float ry = static_cast<float>(from.y - 1) / static_cast<float>(to.y);
    const volatile float rx = static_cast<float>(from.x - 1) / static_cast<float>(to.x);
    const volatile float fy = static_cast<float>(i) * ry;
    const volatile float fx = static_cast<float>(j) * rx;
    const int y = static_cast<int>(fy);
    const int x = static_cast<int>(fx);
    const volatile float dy = fy - static_cast<float>(y);
    const volatile float dx = fx - static_cast<float>(x);
    const int right = x + 1 < from.x ? x + 1 : x;
    const int below = y + 1 < from.y ? y + 1 : y;
    const auto channel = [&](int row, int column) {
        const auto at = static_cast<std::size_t>(row) * static_cast<std::size_t>(from.x);
        return static_cast<float>((src[at + static_cast<std::size_t>(column)] >> shift) & 0xFFU);
    };
    const float a = channel(y, x);
    const float b = channel(y, right);
    const float c = channel(below, x);
    const float d = channel(below, right);
    const volatile float bdx = b * dx;
    const volatile float first = bdx * (1 - dy);
    const volatile float adx = a * (1 - dx);
    const volatile float cdy = c * dy;
    const volatile float dxdy = dx * dy;
    float sum = std::fma(static_cast<float>(adx), 1 - dy, static_cast<float>(first));
    sum = std::fma(static_cast<float>(cdy), 1 - dx, sum);
    sum = std::fma(d, static_cast<float>(dxdy), sum);
    return static_cast<unsigned>(sum);
}

Pixels byTheRule(const Pixels& src, SDL_Point from, SDL_Point to, ChannelOrder order) {
    Pixels result;
    for (int i = 0; i < to.y; ++i) {
        for (int j = 0; j < to.x; ++j) {
            unsigned bytes[4];
            for (int k = 0; k < 4; ++k) bytes[k] = channelByTheRule(src, from, to, i, j, 8 * k);
            if (order == ChannelOrder::RedBlueSwapped) std::swap(bytes[0], bytes[2]);
            result.push_back(bytes[0] | bytes[1] << 8 | bytes[2] << 16 | bytes[3] << 24);
        }
    }
    return result;
}

Pixels scaled(BilinearPath path, const Pixels& src, SDL_Point from, SDL_Point to, ChannelOrder order) {
    Pixels dst(area(to), 0xDEADBEEF);
    ostrel::scaleBilinear(path, src.data(), from, dst.data(), to, order);
    return dst;
}

void expectAllAgree(SDL_Point from, SDL_Point to) {
    const Pixels src = scattered(from);
    for (const ChannelOrder order : {ChannelOrder::Kept, ChannelOrder::RedBlueSwapped}) {
        const Pixels expected = byTheRule(src, from, to, order);
        const bool portable = scaled(BilinearPath::Portable, src, from, to, order) == expected;
        EXPECT_TRUE(portable) << from.x << " x " << from.y << " to " << to.x << " x " << to.y;
        if (!ostrel::hasVectorPath()) continue;
        const bool vector = scaled(BilinearPath::Vector, src, from, to, order) == expected;
        EXPECT_TRUE(vector) << from.x << " x " << from.y << " to " << to.x << " x " << to.y;
    }
}

TEST(BilinearPathsTest, AgreeForEverySmallSize) {
    for (int from = 1; from <= 9; ++from) {
        for (int to = 1; to <= 17; ++to) {
            expectAllAgree({from, 1}, {to, 1});
            expectAllAgree({from, 10 - from}, {to, 18 - to});
            expectAllAgree({1, from}, {3, to});
        }
    }
}

TEST(BilinearPathsTest, AgreeAcrossSeveralStrips) {
    expectAllAgree({640, 3}, {1003, 5});
    expectAllAgree({1000, 4}, {256, 3});
    expectAllAgree({33, 2}, {257, 3});
    expectAllAgree({2, 2}, {513, 2});
}

TEST(BilinearPathsTest, AgreeForThumbnails) {
    expectAllAgree({320, 240}, {100, 75});
    expectAllAgree({64, 48}, {171, 128});
}

// A row of one pixel, and behind it memory that nobody may read.
class LastPixel {
public:
    LastPixel() {
        void* pages = mmap(nullptr, 2 * mPage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (pages == MAP_FAILED) std::abort();
        mPages = static_cast<char*>(pages);
        mprotect(mPages + mPage, mPage, PROT_NONE);
        std::memcpy(mPages + mPage - sizeof(unsigned), &kPixel, sizeof(unsigned));
    }
    ~LastPixel() { munmap(mPages, 2 * mPage); }
    LastPixel(const LastPixel&) = delete;
    LastPixel& operator=(const LastPixel&) = delete;
    const unsigned* get() const { return reinterpret_cast<const unsigned*>(mPages + mPage) - 1; }

    static constexpr unsigned kPixel = 0x01020304;

private:
    const std::size_t mPage = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    char* mPages;
};

// The last column of a row has no right-hand neighbour.
TEST(BilinearPathsTest, NoneReadsBehindTheLastPixel) {
    const LastPixel pixel;
    const Pixels expected = byTheRule({LastPixel::kPixel}, {1, 1}, {8, 1}, ChannelOrder::Kept);
    for (const BilinearPath path : {BilinearPath::Portable, BilinearPath::Vector}) {
        if (path == BilinearPath::Vector && !ostrel::hasVectorPath()) continue;
        Pixels dst(8);
        ostrel::scaleBilinear(path, pixel.get(), {1, 1}, dst.data(), {8, 1}, ChannelOrder::Kept);
        EXPECT_EQ(dst, expected);
    }
}

TEST(BilinearStripTest, HoldsTheColumnsFromItsFirst) {
    BilinearStrip strip;
    ostrel::fillStrip(strip, 256, 11, 320);  // steps of 1/32
    EXPECT_EQ(strip.count, 64);
    EXPECT_EQ(strip.inner, 64);
    EXPECT_EQ(strip.x[0], 8);
    EXPECT_EQ(strip.dx[0], 0.0F);
    EXPECT_EQ(strip.x[33], 9);
    EXPECT_EQ(strip.dx[33], 0.03125F);
    EXPECT_EQ(strip.restX[33], 0.96875F);
}

TEST(BilinearStripTest, FillsUpBeforeTheRowEnds) {
    BilinearStrip strip;
    ostrel::fillStrip(strip, 256, 2, 1000);
    EXPECT_EQ(strip.count, 256);
}

// Single precision rounds the last positions of such a row up to the last pixel itself, which has no neighbour.
TEST(BilinearStripTest, EnormousWidthsEndOnTheLastPixel) {
    constexpr int kWidth = 13103685;
    BilinearStrip strip;
    ostrel::fillStrip(strip, kWidth - 2, 3, kWidth);
    ASSERT_EQ(strip.count, 2);
    EXPECT_EQ(strip.x[1], 2);
    EXPECT_EQ(strip.dx[1], 0.0F);
    EXPECT_LT(strip.inner, 2);
}

TEST(BilinearStripTest, NoSizeLeavesTheSource) {
    BilinearStrip strip;
    ostrel::fillStrip(strip, 2147483645, 2147483647, 2147483647);
    for (int j = 0; j < strip.count; ++j) EXPECT_LE(strip.x[j], 2147483646);
}

}  // namespace
