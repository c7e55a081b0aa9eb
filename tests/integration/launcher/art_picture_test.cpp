// A picture decoded and scaled in memory, without a screen.
#include "art_picture.h"

#include <gtest/gtest.h>

#include "support/image_files.h"
#include "support/picture.h"
#include "support/screen_test.h"

namespace {

using launcher::fitInto;
using launcher::loadPicture;
using ostreltest::Colour;
using ostreltest::Picture;

constexpr Colour kDarkRed{200, 30, 10, 255};

class ArtPictureTest : public ostreltest::DeviceTest {
protected:
    std::string plain(int width, int height) {
        ostreltest::writePlainPng(device().path("a.png"), width, height, kDarkRed);
        return "a.png";
    }
};

Colour pixel(const launcher::Pixels& pixels, int x, int y) {
    const auto* row = static_cast<const Uint8*>(pixels->pixels) + y * pixels->pitch;
    return {row[4 * x], row[4 * x + 1], row[4 * x + 2], row[4 * x + 3]};
}

void expectSize(SDL_Point size, int width, int height) {
    EXPECT_EQ(size.x, width);
    EXPECT_EQ(size.y, height);
}

TEST(FitIntoTest, TheLargestSizeOfTheRatioFillsOneSideOfTheBox) {
    expectSize(fitInto({64, 88}, 336, 448), 64, 85);
    expectSize(fitInto({64, 88}, 300, 900), 29, 88);
    expectSize(fitInto({336, 448}, 640, 480), 336, 252);
    expectSize(fitInto({100, 100}, 100, 100), 100, 100);
}

TEST(FitIntoTest, SmallPicturesGrow) { expectSize(fitInto({64, 88}, 8, 8), 64, 64); }

TEST(FitIntoTest, NoSideVanishes) {
    expectSize(fitInto({64, 88}, 4096, 1), 64, 1);
    expectSize(fitInto({64, 88}, 1, 4096), 1, 88);
}

TEST_F(ArtPictureTest, APictureOfTheBoxesRatioFillsIt) {
    const auto pixels = loadPicture(plain(300, 400), 66, 88);
    ASSERT_NE(pixels, nullptr);
    EXPECT_EQ(pixels->w, 66);
    EXPECT_EQ(pixels->h, 88);
    EXPECT_EQ(pixel(pixels, 0, 0), kDarkRed);
    EXPECT_EQ(pixel(pixels, 65, 87), kDarkRed);
}

TEST_F(ArtPictureTest, ANarrowPictureStandsInTheMiddleOfItsWidth) {
    const auto pixels = loadPicture(plain(10, 100), 64, 88);  // 8 x 88, with 28 columns on either side
    ASSERT_NE(pixels, nullptr);
    EXPECT_EQ(pixels->w, 64);
    EXPECT_EQ(pixels->h, 88);
    EXPECT_EQ(pixel(pixels, 27, 40), (Colour{0, 0, 0, 0}));
    EXPECT_EQ(pixel(pixels, 28, 40), kDarkRed);
    EXPECT_EQ(pixel(pixels, 35, 40), kDarkRed);
    EXPECT_EQ(pixel(pixels, 36, 40), (Colour{0, 0, 0, 0}));
}

TEST_F(ArtPictureTest, ALowPictureIsAsHighAsItsRatio) {
    const auto pixels = loadPicture(plain(100, 10), 60, 88);
    ASSERT_NE(pixels, nullptr);
    EXPECT_EQ(pixels->w, 60);
    EXPECT_EQ(pixels->h, 6);
}

TEST_F(ArtPictureTest, OnePixelGrowsToAPlainSquare) {
    const auto pixels = loadPicture(plain(1, 1), 64, 88);
    ASSERT_NE(pixels, nullptr);
    EXPECT_EQ(pixels->h, 64);
    EXPECT_EQ(pixel(pixels, 63, 63), kDarkRed);
}

TEST_F(ArtPictureTest, FineLinesBecomeTheirMeanInsteadOfVanishing) {
    Picture lines(512, 512, {0, 0, 0, 255});
    for (int y = 0; y < 512; ++y) {
        for (int x = 0; x < 512; x += 8) lines.set(x, y, {240, 240, 240, 255});
    }
    lines.save(device().path("lines.png"));
    const auto pixels = loadPicture("lines.png", 64, 64);  // each column is the mean of one white and seven black ones
    ASSERT_NE(pixels, nullptr);
    for (int x = 1; x < 63; ++x) EXPECT_NEAR(pixel(pixels, x, 32).r, 30, 8) << x;
}

TEST_F(ArtPictureTest, TranslucentPixelsStayTranslucent) {
    ostreltest::writePlainPng(device().path("glass.png"), 20, 20, {10, 200, 30, 128});
    const auto pixels = loadPicture("glass.png", 20, 20);
    ASSERT_NE(pixels, nullptr);
    EXPECT_EQ(pixel(pixels, 10, 10), (Colour{10, 200, 30, 128}));
}

TEST_F(ArtPictureTest, EveryKindOfPngIsRead) {
    const Picture grey(9, 9, {80, 80, 80, 255});
    using ostreltest::PngColours;
    for (const auto kind :
         {PngColours::Grey, PngColours::Rgb, PngColours::Palette, PngColours::GreyAlpha, PngColours::Rgba}) {
        device().write("a.png", ostreltest::pngBytes(grey, kind));
        const auto pixels = loadPicture("a.png", 9, 9);
        ASSERT_NE(pixels, nullptr) << static_cast<int>(kind);
        EXPECT_EQ(pixel(pixels, 4, 4), (Colour{80, 80, 80, 255})) << static_cast<int>(kind);
    }
}

TEST_F(ArtPictureTest, APictureThatEndsTooEarlyIsNoneWhereverItEnds) {
    const std::string whole = device().read(plain(30, 40));
    for (std::size_t bytes = 0; bytes + 12 < whole.size(); ++bytes) {  // the last twelve are the mark of the end
        device().write("cut.png", whole.substr(0, bytes));
        EXPECT_EQ(loadPicture("cut.png", 30, 40), nullptr) << bytes;
    }
}

TEST_F(ArtPictureTest, APictureThatAnnouncesAnUnreasonableSizeIsNotDecoded) {
    std::string bytes = device().read(plain(30, 40));
    bytes[18] = '\x10';  // 4096 + 30 pixels wide
    device().write("wide.png", bytes);
    EXPECT_EQ(loadPicture("wide.png", 30, 40), nullptr);
    bytes[18] = '\0';
    bytes[20] = '\x7F';  // two thousand million pixels high
    device().write("high.png", bytes);
    EXPECT_EQ(loadPicture("high.png", 30, 40), nullptr);
}

TEST_F(ArtPictureTest, APictureOfTheLargestSizeIsRead) {
    ostreltest::writePlainPng(device().path("large.png"), 4096, 3, kDarkRed);
    EXPECT_NE(loadPicture("large.png", 30, 40), nullptr);
}

}  // namespace
