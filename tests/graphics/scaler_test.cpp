#include "ostrel/scaler.h"

#include <climits>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "ostrel/screen.h"
#include "ostrel/surface.h"
#include "support/counted_blocks.h"
#include "support/log_capture.h"
#include "support/screen_test.h"

namespace {

using ostreltest::Colour;
using ostreltest::LogCapture;
using ostreltest::ScreenTest;
using Pixels = std::vector<unsigned>;  // exactly as large as the picture: the sanitizer sees every step beyond it
using Pixels16 = std::vector<unsigned short>;

constexpr unsigned kUntouched = 0xDEADBEEF;

std::size_t area(int width, int height) { return static_cast<std::size_t>(width) * static_cast<std::size_t>(height); }

// Bytes without any order, the same on every machine.
Pixels scattered(int width, int height) {
    Pixels result(area(width, height));
    for (std::size_t i = 0; i < result.size(); ++i) {
        result[i] = static_cast<unsigned>(i) * 2654435761U + 0x9E3779B9U;
    }
    return result;
}

Pixels scaleBilinear(const Pixels& src, int srcW, int srcH, int dstW, int dstH, int swapRB = 0) {
    Pixels dst(area(dstW, dstH), kUntouched);
    resizeBilinear_cpu(src.data(), dst.data(), srcW, srcH, dstW, dstH, swapRB);
    return dst;
}

// ---- bilinear

TEST(BilinearScalerTest, TwoByTwoGrowsInQuartersOfTheWay) {
    const Pixels expected{0x00, 0x10, 0x20, 0x30,   //
                          0x20, 0x30, 0x40, 0x50,   //
                          0x40, 0x50, 0x60, 0x70,   //
                          0x60, 0x70, 0x80, 0x90};  // 64 to the right, 128 down, a quarter each step
    EXPECT_EQ(scaleBilinear({0, 64, 128, 192}, 2, 2, 4, 4), expected);
}

TEST(BilinearScalerTest, EachChannelIsBlendedAloneAndCutToWholeNumbers) {
    // 0.5625 A + 0.1875 B + 0.1875 C + 0.0625 D: 28 exactly, 17.5, 255 and 0.9375 of the four channels
    const Pixels src{0x00FF0A10, 0x00FF1420, 0x00FF1E30, 0x0FFF2840};
    EXPECT_EQ(scaleBilinear(src, 2, 2, 4, 4)[5], 0x00FF111CU);
}

TEST(BilinearScalerTest, LastColumnAndRowLieInsideTheSource) {
    // 5 pixels in a row of 8 steps of a half: the last one is half way between the fourth and the fifth.
    const Pixels row = scaleBilinear({0, 10, 20, 30, 200}, 5, 1, 8, 1);
    EXPECT_EQ(row, (Pixels{0, 5, 10, 15, 20, 25, 30, 115}));
    const Pixels column = scaleBilinear({0, 10, 20, 30, 200}, 1, 5, 1, 8);
    EXPECT_EQ(column, (Pixels{0, 5, 10, 15, 20, 25, 30, 115}));
}

TEST(BilinearScalerTest, ScalingToTheOwnSizeIsNoCopy) {
    EXPECT_EQ(scaleBilinear({0, 64, 128, 192}, 4, 1, 4, 1), (Pixels{0, 48, 96, 144}));
}

TEST(BilinearScalerTest, SwapExchangesRedAndBlue) {
    EXPECT_EQ(scaleBilinear({0x11223344, 0, 0, 0}, 2, 2, 4, 4, 1)[0], 0x11443322U);
    EXPECT_EQ(scaleBilinear({0x11223344}, 1, 1, 1, 1, -1)[0], 0x11443322U);
    EXPECT_EQ(scaleBilinear({0x11223344}, 1, 1, 1, 1, 0)[0], 0x11223344U);
}

TEST(BilinearScalerTest, SwapHoldsForEveryPixelOfALongRow) {
    const Pixels src(40, 0x11223344);
    const Pixels expected(40, 0x11443322);
    EXPECT_EQ(scaleBilinear(src, 40, 1, 40, 1, 0), src);
    EXPECT_EQ(scaleBilinear(src, 40, 1, 40, 1, 1), expected);
}

// Where products that are rounded before the addition would end one lower or higher.
TEST(BilinearScalerTest, FusedOperationsDecideTheLastBit) {
    EXPECT_EQ(scaleBilinear(scattered(7, 5), 7, 5, 23, 19)[6 * 23 + 13], 0x92806579U);
    const Pixels larger = scaleBilinear(scattered(13, 11), 13, 11, 40, 30);
    EXPECT_EQ(larger[2 * 40 + 5], 0x916A7940U);
    EXPECT_EQ(larger[4 * 40 + 35], 0xA73F8977U);
}

TEST(BilinearScalerTest, FlatColoursMayLoseOne) {
    const Pixels flat = scaleBilinear(Pixels(9, 0xFFFFFFFF), 3, 3, 5, 5);
    EXPECT_EQ(flat[2 * 5 + 2], 0xFFFFFFFFU);
    EXPECT_EQ(flat[2 * 5 + 3], 0xFEFEFEFEU);
}

TEST(BilinearScalerTest, OnePixelFillsTheWholePicture) {
    EXPECT_EQ(scaleBilinear({0x01020304}, 1, 1, 5, 3), Pixels(15, 0x01020304));
}

TEST(BilinearScalerTest, NoPixelOfTheTargetMeansNothingWritten) {
    const Pixels src(4, 1);
    for (const auto& [width, height] : {std::pair{0, 2}, {2, 0}, {0, 0}, {-1, 2}, {2, -1}}) {
        Pixels dst(4, kUntouched);
        resizeBilinear_cpu(src.data(), dst.data(), 2, 2, width, height, 0);
        EXPECT_EQ(dst, Pixels(4, kUntouched)) << width << " x " << height;
    }
}

TEST(BilinearScalerTest, NoPixelOfTheSourceMeansNothingWritten) {
    const Pixels src(4, 1);
    for (const auto& [width, height] : {std::pair{0, 2}, {2, 0}, {-2, 2}, {2, -2}}) {
        Pixels dst(4, kUntouched);
        resizeBilinear_cpu(src.data(), dst.data(), width, height, 2, 2, 0);
        EXPECT_EQ(dst, Pixels(4, kUntouched)) << width << " x " << height;
    }
}

TEST(BilinearScalerTest, NullBuffersAreLeftAlone) {
    Pixels pixels(4, kUntouched);
    resizeBilinear_cpu(nullptr, pixels.data(), 2, 2, 2, 2, 0);
    resizeBilinear_cpu(pixels.data(), nullptr, 2, 2, 2, 2, 0);
    bitmap_scale_bilinear(1, 1, 2, 2, 2, 2, 2, 0, nullptr, pixels.data());
    EXPECT_EQ(pixels, Pixels(4, kUntouched));
}

TEST(BilinearScalerTest, SilentWithoutTheLoggingName) {
    LogCapture log;
    scaleBilinear({1, 2, 3, 4}, 2, 2, 4, 4);
    EXPECT_EQ(log.text(), "");
}

TEST(BilinearScalerTest, ArgbFormLogsTheSizesFirst) {
    const Pixels src{0x11223344};
    Pixels dst(2, kUntouched);
    LogCapture log;
    resizeBilinear_cpu_argb(src.data(), dst.data(), 1, 1, 2, 1, 1);
    EXPECT_EQ(log.text(), "resizeBilinear_cpu_argb:1x1->2x1\n");
    EXPECT_EQ(dst, Pixels(2, 0x11443322));
}

TEST(BilinearScalerTest, ArgbFormLogsSizesThatCannotBeScaled) {
    LogCapture log;
    resizeBilinear_cpu_argb(nullptr, nullptr, 0, -1, 7, 0, 0);
    EXPECT_EQ(log.text(), "resizeBilinear_cpu_argb:0x-1->7x0\n");
}

TEST(BilinearScalerTest, BitmapScaleBilinearReadsRowsOneWidthApart) {
    // The rectangle begins at 6 of a picture 4 wide; its two rows are 6, 7 and, one width on, 8, 9.
    Pixels src{0, 1, 2, 3, 4, 5, 60, 70, 80, 90, 100, 110};
    Pixels dst(4, kUntouched);
    LogCapture log;
    bitmap_scale_bilinear(2, 1, 2, 2, 2, 2, 4, 99, src.data(), dst.data());
    EXPECT_EQ(dst, (Pixels{60, 65, 70, 75}));
    EXPECT_EQ(log.text(), "resizeBilinear_cpu_argb:2x2->2x2\n");
}

TEST(BilinearScalerTest, BitmapScaleBilinearDoesNotSwap) {
    Pixels src{0x11223344};
    Pixels dst(1, kUntouched);
    bitmap_scale_bilinear(0, 0, 1, 1, 1, 1, 1, 1, src.data(), dst.data());
    EXPECT_EQ(dst[0], 0x11223344U);
}

// ---- nearest

TEST(NearestScalerTest, EqualSizesCopyTheRectangle) {
    Pixels src{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    Pixels dst(4, kUntouched);
    bitmap_scale(1, 1, 2, 2, 2, 2, 4, 0, src.data(), dst.data());
    EXPECT_EQ(dst, (Pixels{5, 6, 9, 10}));
}

TEST(NearestScalerTest, GrowingRepeatsPixelsAndRows) {
    Pixels src{1, 2, 3, 4};
    Pixels dst(16, kUntouched);
    bitmap_scale(0, 0, 2, 2, 4, 4, 2, 0, src.data(), dst.data());
    EXPECT_EQ(dst, (Pixels{1, 1, 2, 2, 1, 1, 2, 2, 3, 3, 4, 4, 3, 3, 4, 4}));
}

TEST(NearestScalerTest, ShrinkingTakesThePixelAboveAndToTheLeft) {
    Pixels src{0, 1, 2, 10, 11, 12, 20, 21, 22};
    Pixels dst(4, kUntouched);
    bitmap_scale(0, 0, 3, 3, 2, 2, 3, 0, src.data(), dst.data());  // steps of one and a half
    EXPECT_EQ(dst, (Pixels{0, 1, 10, 11}));
}

TEST(NearestScalerTest, StepsAreCutToSixteenBitsBehindThePoint) {
    // 3 * 65536 / 65537 is just under 3 and cut to 2: the third pixel is reached at the very end, not after two thirds.
    Pixels src{1, 2, 3};
    Pixels dst(65537, kUntouched);
    bitmap_scale(0, 0, 3, 1, 65537, 1, 3, 0, src.data(), dst.data());
    EXPECT_EQ(dst[32767], 1U);
    EXPECT_EQ(dst[32768], 2U);
    EXPECT_EQ(dst[65535], 2U);
    EXPECT_EQ(dst[65536], 3U);
}

TEST(NearestScalerTest, SkippedPixelsAfterEachRowStayAsTheyAre) {
    Pixels src{1, 2};
    Pixels dst(8, kUntouched);
    bitmap_scale(0, 0, 1, 2, 2, 2, 1, 2, src.data(), dst.data());
    EXPECT_EQ(dst, (Pixels{1, 1, kUntouched, kUntouched, 2, 2, kUntouched, kUntouched}));
}

TEST(NearestScalerTest, OnePixelAndOneRowAreAlwaysWritten) {
    Pixels src{1, 2, 3, 4};
    Pixels dst(4, kUntouched);
    bitmap_scale(1, 1, 1, 1, 0, 0, 2, 0, src.data(), dst.data());
    EXPECT_EQ(dst, (Pixels{4, kUntouched, kUntouched, kUntouched}));
}

TEST(NearestScalerTest, NoWidthInTheTargetWritesAColumnSkipApart) {
    Pixels src{1, 2};
    Pixels dst(4, kUntouched);
    bitmap_scale(0, 0, 1, 2, 0, 2, 1, 3, src.data(), dst.data());
    EXPECT_EQ(dst, (Pixels{1, kUntouched, kUntouched, 2}));
}

TEST(NearestScalerTest, AnEmptyRectangleRepeatsItsFirstPixel) {
    Pixels src{1, 2, 3, 4};
    Pixels dst(4, kUntouched);
    bitmap_scale(1, 1, 0, 0, 2, 2, 2, 0, src.data(), dst.data());
    EXPECT_EQ(dst, Pixels(4, 4));
}

TEST(NearestScalerTest, ColumnsStartAgainAfter65535) {
    Pixels src(65536, 5);
    src.front() = 1;
    src.back() = 9;
    Pixels dst(2, kUntouched);
    bitmap_scale(65535, 0, 2, 1, 2, 1, 0, 0, src.data(), dst.data());
    EXPECT_EQ(dst, (Pixels{9, 1}));
}

TEST(NearestScalerTest, TargetSizesBelowNothingWriteNothing) {
    for (const unsigned below : {unsigned(-1), unsigned(INT_MIN)}) {
        Pixels src{1};
        Pixels dst{kUntouched};
        bitmap_scale(0, 0, 1, 1, below, 1, 1, 0, src.data(), dst.data());
        bitmap_scale(0, 0, 1, 1, 1, below, 1, 0, src.data(), dst.data());
        EXPECT_EQ(dst[0], kUntouched);
    }
}

TEST(NearestScalerTest, NullBuffersAreLeftAlone) {
    Pixels pixels(1, kUntouched);
    bitmap_scale(0, 0, 1, 1, 1, 1, 1, 0, nullptr, pixels.data());
    bitmap_scale(0, 0, 1, 1, 1, 1, 1, 0, pixels.data(), nullptr);
    EXPECT_EQ(pixels[0], kUntouched);
}

// ---- line based, 32 bits

Pixels scaleLines(Pixels src, unsigned srcW, unsigned srcH, unsigned dstW, unsigned dstH) {
    Pixels dst(std::size_t{dstW} * dstH, kUntouched);
    sdl_rs90_scale_frame32_bresenham_horz(dst.data(), dstW, dstH, dstW * 4, src.data(), srcW, srcH, srcW * 4);
    return dst;
}

TEST(LineScalerTest, EqualWidthsCopyRows) {
    EXPECT_EQ(scaleLines({1, 2, 3, 4}, 2, 2, 2, 2), (Pixels{1, 2, 3, 4}));
    EXPECT_EQ(scaleLines({1, 2, 3, 4}, 2, 2, 2, 4), (Pixels{1, 2, 1, 2, 3, 4, 3, 4}));
}

TEST(LineScalerTest, GrowingBlendsWhereTheStepIsHalfDone) {
    EXPECT_EQ(scaleLines({10, 20}, 2, 1, 4, 1), (Pixels{10, 15, 20, 20}));
    EXPECT_EQ(scaleLines({10, 20, 30}, 3, 1, 4, 1), (Pixels{10, 15, 25, 30}));
    EXPECT_EQ(scaleLines({10, 20, 30, 40, 50}, 5, 1, 6, 1), (Pixels{10, 15, 25, 35, 40, 50}));
}

TEST(LineScalerTest, ShrinkingBlendsFromTheThresholdOn) {
    EXPECT_EQ(scaleLines({10, 20, 30}, 3, 1, 2, 1), (Pixels{10, 25}));
    EXPECT_EQ(scaleLines({10, 20, 30, 40, 50, 60, 70}, 7, 1, 2, 1), (Pixels{10, 45}));
}

TEST(LineScalerTest, ShrinkingALittleBlendsLaterThanHalfWay) {
    // 5 to 4: twice 4 less 5 is 3, more than half of 4, so only an error of 3 blends.
    EXPECT_EQ(scaleLines({10, 20, 30, 40, 50}, 5, 1, 4, 1), (Pixels{10, 20, 30, 45}));
}

TEST(LineScalerTest, RowsAreTakenOrLeftOut) {
    EXPECT_EQ(scaleLines({1, 2, 3, 4, 5}, 1, 5, 1, 3), (Pixels{1, 2, 4}));
    EXPECT_EQ(scaleLines({1, 2, 3}, 1, 3, 1, 2), (Pixels{1, 2}));
    EXPECT_EQ(scaleLines({1, 2}, 1, 2, 1, 5), (Pixels{1, 1, 1, 2, 2}));
}

TEST(LineScalerTest, RepeatedRowsCopyTheScaledRow) {
    EXPECT_EQ(scaleLines({10, 20, 30, 40}, 2, 2, 4, 4),
              (Pixels{10, 15, 20, 20, 10, 15, 20, 20, 30, 35, 40, 40, 30, 35, 40, 40}));
}

TEST(LineScalerTest, BlendAtARowsEndTakesThePixelBehindIt) {
    // 1 wide to 3: the middle pixel blends with what follows in memory, and on the last row with itself.
    EXPECT_EQ(scaleLines({10, 20}, 1, 2, 3, 2), (Pixels{10, 15, 10, 20, 20, 20}));
}

TEST(LineScalerTest, BlendAtAPaddedRowsEndTakesThePadding) {
    Pixels src{10, 90, 20};
    Pixels dst(6, kUntouched);
    sdl_rs90_scale_frame32_bresenham_horz(dst.data(), 3, 2, 12, src.data(), 1, 2, 8);
    EXPECT_EQ(dst, (Pixels{10, 50, 10, 20, 20, 20}));
}

TEST(LineScalerTest, NoPitchReadsOneRowAndNothingBehindIt) {
    Pixels src{10};
    Pixels dst(6, kUntouched);
    sdl_rs90_scale_frame32_bresenham_horz(dst.data(), 3, 2, 12, src.data(), 1, 2, 0);
    EXPECT_EQ(dst, Pixels(6, 10));
}

TEST(LineScalerTest, Blend32RoundsUpInThreeColours) {
    EXPECT_EQ(scaleLines({0x00010101, 0x00020202}, 2, 1, 4, 1)[1], 0x00020202U);
    EXPECT_EQ(scaleLines({0x00010101, 0x00010101}, 2, 1, 4, 1)[1], 0x00010101U);
}

TEST(LineScalerTest, Blend32LosesTheCarryOfTheTopByte) {
    EXPECT_EQ(scaleLines({0xFF000000, 0xFF000000}, 2, 1, 4, 1),
              (Pixels{0xFF000000, 0x7F000000, 0xFF000000, 0xFF000000}));
}

// One half of the lowest bit of the top byte falls into the byte below instead of being rounded up.
TEST(LineScalerTest, Blend32DoesNotRoundTheTopByte) {
    EXPECT_EQ(scaleLines({0x01000000, 0x00000000}, 2, 1, 4, 1)[1], 0x00800000U);
}

TEST(LineScalerTest, PitchesAreBytesAndPaddingStays) {
    Pixels src{1, 2, 77, 3, 4, 77};
    Pixels dst(6, kUntouched);
    sdl_rs90_scale_frame32_bresenham_horz(dst.data(), 2, 2, 12, src.data(), 2, 2, 12);
    EXPECT_EQ(dst, (Pixels{1, 2, kUntouched, 3, 4, kUntouched}));
}

TEST(LineScalerTest, RectangleFormTakesPitchesInPixels) {
    Pixels src{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    Pixels dst(6, kUntouched);
    bitmap_scale_bresenham(1, 1, 2, 2, 2, 2, 4, 3, src.data(), dst.data());
    EXPECT_EQ(dst, (Pixels{5, 6, kUntouched, 9, 10, kUntouched}));
}

TEST(LineScalerTest, RectangleFormWithoutPitchPacksItsRows) {
    Pixels src{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    Pixels dst(5, kUntouched);
    bitmap_scale_bresenham(1, 1, 2, 2, 2, 2, 4, 0, src.data(), dst.data());
    EXPECT_EQ(dst, (Pixels{5, 6, 9, 10, kUntouched}));
}

TEST(LineScalerTest, SizesOfNothingWriteNothing) {
    const unsigned sizes[][4] = {{0, 1, 1, 1}, {1, 0, 1, 1}, {1, 1, 0, 1}, {1, 1, 1, 0}, {0, 0, 0, 0}};
    for (const auto& [dstW, dstH, srcW, srcH] : sizes) {
        Pixels src{1};
        Pixels dst{kUntouched};
        sdl_rs90_scale_frame32_bresenham_horz(dst.data(), dstW, dstH, 4, src.data(), srcW, srcH, 4);
        EXPECT_EQ(dst[0], kUntouched) << dstW << dstH << srcW << srcH;
    }
}

// A caller's size below 0 arrives as a huge one.
TEST(LineScalerTest, SizesBelowNothingWriteNothing) {
    for (const unsigned below : {unsigned(-1), unsigned(INT_MIN)}) {
        const unsigned sizes[][4] = {{below, 1, 1, 1}, {1, below, 1, 1}, {1, 1, below, 1}, {1, 1, 1, below}};
        for (const auto& [dstW, dstH, srcW, srcH] : sizes) {
            Pixels src{1};
            Pixels dst{kUntouched};
            Pixels16 src16{1};
            Pixels16 dst16{0x1234};
            sdl_rs90_scale_frame32_bresenham_horz(dst.data(), dstW, dstH, 4, src.data(), srcW, srcH, 4);
            sdl_rs90_scale_frame16_bresenham_horz(dst16.data(), dstW, dstH, 2, src16.data(), srcW, srcH, 2);
            bitmap_scale_bresenham(0, 0, srcW, srcH, dstW, dstH, 1, 1, src.data(), dst.data());
            bitmap_scale_bilinear(0, 0, srcW, srcH, dstW, dstH, 1, 0, src.data(), dst.data());
            EXPECT_EQ(dst[0], kUntouched) << dstW << dstH << srcW << srcH;
            EXPECT_EQ(dst16[0], 0x1234) << dstW << dstH << srcW << srcH;
        }
    }
}

TEST(LineScalerTest, NullBuffersAreLeftAlone) {
    Pixels pixels{kUntouched};
    Pixels16 pixels16{0x1234};
    sdl_rs90_scale_frame32_bresenham_horz(pixels.data(), 1, 1, 4, nullptr, 1, 1, 4);
    sdl_rs90_scale_frame32_bresenham_horz(nullptr, 1, 1, 4, pixels.data(), 1, 1, 4);
    sdl_rs90_scale_frame16_bresenham_horz(pixels16.data(), 1, 1, 2, nullptr, 1, 1, 2);
    sdl_rs90_scale_frame16_bresenham_horz(nullptr, 1, 1, 2, pixels16.data(), 1, 1, 2);
    bitmap_scale_bresenham(3, 3, 1, 1, 1, 1, 8, 0, nullptr, pixels.data());
    EXPECT_EQ(pixels[0], kUntouched);
    EXPECT_EQ(pixels16[0], 0x1234);
}

// Every small pair of sizes, in buffers without a pixel to spare.
TEST(LineScalerTest, NoSizeReadsOrWritesBeyondTheBuffers) {
    for (unsigned from = 1; from <= 24; ++from) {
        for (unsigned to = 1; to <= 24; ++to) {
            const Pixels row = scaleLines(Pixels(from, 0x00010203), from, 1, to, 1);
            EXPECT_EQ(row, Pixels(to, 0x00010203)) << from << " to " << to;
            const Pixels both = scaleLines(Pixels(std::size_t{from} * from, 0x00010203), from, from, to, to);
            EXPECT_EQ(both, Pixels(std::size_t{to} * to, 0x00010203)) << from << " to " << to;
        }
    }
}

// ---- line based, 16 bits

Pixels16 scaleLines16(Pixels16 src, unsigned srcW, unsigned srcH, unsigned dstW, unsigned dstH) {
    Pixels16 dst(std::size_t{dstW} * dstH, 0xBEEF);
    sdl_rs90_scale_frame16_bresenham_horz(dst.data(), dstW, dstH, dstW * 2, src.data(), srcW, srcH, srcW * 2);
    return dst;
}

TEST(LineScaler16Test, BlendsEachColourRoundingUp) {
    EXPECT_EQ(scaleLines16({0x0000, 0x0821}, 2, 1, 4, 1), (Pixels16{0x0000, 0x0821, 0x0821, 0x0821}));
    EXPECT_EQ(scaleLines16({0xF800, 0x001F}, 2, 1, 4, 1)[1], 0x8010);  // red 31 and 0, blue 0 and 31: 16 each
}

TEST(LineScaler16Test, KeepsTheCarryOfRed) {
    EXPECT_EQ(scaleLines16({0xFFFF, 0xFFFF}, 2, 1, 4, 1), Pixels16(4, 0xFFFF));
}

TEST(LineScaler16Test, WalksLikeTheOtherDepth) {
    EXPECT_EQ(scaleLines16({2, 4, 6}, 3, 1, 4, 1), (Pixels16{2, 3, 5, 6}));
    EXPECT_EQ(scaleLines16({2, 4, 6, 8, 10}, 5, 1, 4, 1), (Pixels16{2, 4, 6, 9}));
    EXPECT_EQ(scaleLines16({2, 4}, 1, 2, 3, 2), (Pixels16{2, 3, 2, 4, 4, 4}));
}

TEST(LineScaler16Test, PitchesAreHalvedIntoPixels) {
    Pixels16 src{1, 2, 77, 3, 4, 77};
    Pixels16 dst(6, 0xBEEF);
    sdl_rs90_scale_frame16_bresenham_horz(dst.data(), 2, 2, 7, src.data(), 2, 2, 6);
    EXPECT_EQ(dst, (Pixels16{1, 2, 0xBEEF, 3, 4, 0xBEEF}));
}

TEST(LineScaler16Test, NoSizeReadsOrWritesBeyondTheBuffers) {
    for (unsigned from = 1; from <= 24; ++from) {
        for (unsigned to = 1; to <= 24; ++to) {
            const Pixels16 both = scaleLines16(Pixels16(std::size_t{from} * from, 0x1234), from, from, to, to);
            EXPECT_EQ(both, Pixels16(std::size_t{to} * to, 0x1234)) << from << " to " << to;
        }
    }
}

// ---- memory

TEST(ScalerMemoryTest, NoScalerAsksForMemory) {
    Pixels src = scattered(400, 40);
    Pixels dst(area(600, 60));
    Pixels16 src16(area(400, 40), 0x1234);
    Pixels16 dst16(area(600, 60));
    const long before = ostreltest::blocksAsked;
    resizeBilinear_cpu(src.data(), dst.data(), 400, 40, 600, 60, 1);
    bitmap_scale_bilinear(0, 0, 400, 40, 600, 60, 400, 0, src.data(), dst.data());
    bitmap_scale(0, 0, 400, 40, 600, 60, 400, 0, src.data(), dst.data());
    bitmap_scale_bresenham(0, 0, 400, 40, 600, 60, 400, 0, src.data(), dst.data());
    sdl_rs90_scale_frame16_bresenham_horz(dst16.data(), 600, 60, 1200, src16.data(), 400, 40, 800);
    EXPECT_EQ(ostreltest::blocksAsked, before);
}

// ---- surfaces

// A surface of four by two pixels, red beside blue, in any pixel format.
std::unique_ptr<OstrelSurface> redBesideBlue(Uint32 format) {
    SDL_Surface* pixels = SDL_CreateRGBSurfaceWithFormat(0, 4, 2, SDL_BITSPERPIXEL(format), format);
    const SDL_Rect right{2, 0, 2, 2};
    SDL_FillRect(pixels, nullptr, SDL_MapRGBA(pixels->format, 255, 0, 0, 255));
    SDL_FillRect(pixels, &right, SDL_MapRGBA(pixels->format, 0, 0, 255, 255));
    return std::make_unique<SDL2OstrelSurface>(SDL_CreateTextureFromSurface(gRenderer, pixels), pixels);
}

class ScaleSurfaceTest : public ScreenTest {
protected:
    // Scales and hands out the CPU copy as 32-bit numbers, in ARGB.
    Pixels scaledPixels(OstrelSurface* source, int width, int height) {
        mScaled.reset(ScaleSurface(source, width, height));
        const auto* surface = static_cast<SDL2OstrelSurface*>(mScaled.get());
        if (surface == nullptr || surface->mSurface == nullptr) return {};
        EXPECT_EQ(surface->mSurface->format->format, Uint32{SDL_PIXELFORMAT_ARGB8888});
        const auto* pixels = static_cast<const unsigned*>(surface->mSurface->pixels);
        return {pixels, pixels + area(width, height)};
    }
    std::unique_ptr<OstrelSurface> mScaled;
};

constexpr unsigned kArgbRed = 0xFFFF0000;
constexpr unsigned kArgbBlue = 0xFF0000FF;

TEST_F(ScaleSurfaceTest, ScalesTheCopyOfThePixels) {
    const auto source = redBesideBlue(SDL_PIXELFORMAT_ARGB8888);
    // Steps of half a pixel: the fourth column lies between the last red one and the first blue one.
    EXPECT_EQ(scaledPixels(source.get(), 6, 1),
              (Pixels{kArgbRed, kArgbRed, kArgbRed, 0xFF7F007F, kArgbBlue, kArgbBlue}));
    EXPECT_EQ(mScaled->getWidth(), 6);
    EXPECT_EQ(mScaled->getHeight(), 1);
}

TEST_F(ScaleSurfaceTest, LeavesItsSourceAsItIs) {
    const auto source = redBesideBlue(SDL_PIXELFORMAT_ARGB8888);
    mScaled.reset(ScaleSurface(source.get(), 6, 1));
    EXPECT_EQ(source->getWidth(), 4);
    EXPECT_EQ(static_cast<SDL2OstrelSurface*>(source.get())->mSurface->w, 4);
}

TEST_F(ScaleSurfaceTest, SwapsOrdersThatBeginWithBlue) {
    const auto source = redBesideBlue(SDL_PIXELFORMAT_ABGR8888);
    EXPECT_EQ(scaledPixels(source.get(), 3, 1), (Pixels{kArgbRed, kArgbRed, kArgbBlue}));
}

TEST_F(ScaleSurfaceTest, SwapsFromTheFirstOfTheseOrdersOn) {
    EXPECT_EQ(scaledPixels(redBesideBlue(SDL_PIXELFORMAT_XBGR8888).get(), 1, 1), Pixels{0x00FF0000});
    EXPECT_EQ(scaledPixels(redBesideBlue(SDL_PIXELFORMAT_BGRA8888).get(), 1, 1), Pixels{0x00FFFF00});
}

TEST_F(ScaleSurfaceTest, DoesNotSwapOrdersThatBeginWithRed) {
    const auto source = redBesideBlue(SDL_PIXELFORMAT_RGBA8888);
    EXPECT_EQ(scaledPixels(source.get(), 1, 1), Pixels{0xFF0000FF});
}

TEST_F(ScaleSurfaceTest, ScaleSurfaceCutsASourceOfAnotherDepth) {
    const auto source = redBesideBlue(SDL_PIXELFORMAT_RGB24);
    EXPECT_EQ(scaledPixels(source.get(), 2, 2), Pixels(4, kArgbRed));  // scaled, it would show some blue
}

TEST_F(ScaleSurfaceTest, ASourceOfAnotherDepthIsTransparentBeyondItsEdge) {
    const auto source = redBesideBlue(SDL_PIXELFORMAT_RGB565);
    const Pixels pixels = scaledPixels(source.get(), 8, 4);
    EXPECT_EQ(pixels[0], kArgbRed);
    EXPECT_EQ(pixels[7], 0U);   // column 6.125 of the corner that was cut out
    EXPECT_EQ(pixels[24], 0U);  // row 2.25
}

TEST_F(ScaleSurfaceTest, TheScaledSurfaceDraws) {
    const auto source = redBesideBlue(SDL_PIXELFORMAT_ARGB8888);
    mScaled.reset(ScaleSurface(source.get(), 6, 1));
    const ostreltest::Canvas canvas(8, 2);
    SDL_Rect place{1, 1, 0, 0};
    mScaled->render(nullptr, &place, true, nullptr);
    EXPECT_EQ(canvas.picture().at(0, 1), (Colour{0, 0, 0, 255}));
    EXPECT_EQ(canvas.picture().at(1, 1), (Colour{255, 0, 0, 255}));
    EXPECT_EQ(canvas.picture().at(6, 1), (Colour{0, 0, 255, 255}));
    EXPECT_EQ(canvas.picture().at(7, 1), (Colour{0, 0, 0, 255}));
}

TEST_F(ScaleSurfaceTest, NothingComesOfNoPixels) {
    const std::unique_ptr<OstrelSurface> textureOnly(CreateSurface(4, 4));
    LogCapture log;
    EXPECT_EQ(ScaleSurface(nullptr, 4, 4), nullptr);
    EXPECT_EQ(ScaleSurface(textureOnly.get(), 4, 4), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(ScaleSurfaceTest, NothingComesOfSizesBelowOne) {
    const auto source = redBesideBlue(SDL_PIXELFORMAT_ARGB8888);
    const auto shallow = redBesideBlue(SDL_PIXELFORMAT_RGB565);
    LogCapture log;
    for (const auto& [width, height] : {std::pair{0, 4}, {4, 0}, {-4, 4}, {4, -4}}) {
        EXPECT_EQ(ScaleSurface(source.get(), width, height), nullptr) << width << " x " << height;
        EXPECT_EQ(ScaleSurface(shallow.get(), width, height), nullptr) << width << " x " << height;
    }
    EXPECT_EQ(log.text(), "");
}

TEST_F(ScaleSurfaceTest, NothingComesWithoutAScreen) {
    const auto source = redBesideBlue(SDL_PIXELFORMAT_ARGB8888);
    ScreenUninit();
    EXPECT_EQ(ScaleSurface(source.get(), 6, 1), nullptr);
}

}  // namespace
