#include "ostrel/image.h"

#include <sys/stat.h>

#include <SDL_image.h>

#include <csignal>
#include <memory>
#include <string>
#include <vector>

#include "ostrel/screen.h"
#include "ostrel/surface.h"
#include "support/fake_host.h"
#include "support/image_files.h"
#include "support/log_capture.h"
#include "support/picture.h"
#include "support/screen_test.h"
#include "support/sdl_spy.h"

namespace {

using ostreltest::Canvas;
using ostreltest::Colour;
using ostreltest::host;
using ostreltest::kBlack;
using ostreltest::kBlue;
using ostreltest::kGreen;
using ostreltest::kRed;
using ostreltest::LogCapture;
using ostreltest::Picture;
using ostreltest::picturesMatch;
using ostreltest::pngBytes;
using ostreltest::PngColours;
using ostreltest::ScreenTest;
using ostreltest::SdlSpy;
using ostreltest::writeBmp24;
using ostreltest::writeJpeg;

using Lines = std::vector<std::string>;
using Surface = std::unique_ptr<SDL2OstrelSurface>;

// Red on the left, blue on the right.
Picture twoColours(int width, int height) {
    Picture picture(width, height, kBlue);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width / 2; ++x) picture.set(x, y, kRed);
    }
    return picture;
}

std::string littleEndian(uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
}

struct Masks {
    uint32_t red, green, blue, alpha;
};

// A BMP file of 4 x 4 equal pixels of 32 bits, whose channels lie where the masks say.
std::string bmpOfMasks(const Masks& masks, uint32_t pixel) {
    constexpr uint32_t kHeaderBytes = 56;  // up to the alpha mask
    constexpr uint32_t kStart = 14 + kHeaderBytes;
    constexpr uint32_t kBitFields = 3;
    std::string file = "BM" + littleEndian(kStart + 64, 4) + littleEndian(0, 4) + littleEndian(kStart, 4);
    file += littleEndian(kHeaderBytes, 4) + littleEndian(4, 4) + littleEndian(4, 4) + littleEndian(1, 2);
    file += littleEndian(32, 2) + littleEndian(kBitFields, 4) + littleEndian(64, 4);
    file += littleEndian(0, 4) + littleEndian(0, 4) + littleEndian(0, 4) + littleEndian(0, 4);
    for (const uint32_t mask : {masks.red, masks.green, masks.blue, masks.alpha}) file += littleEndian(mask, 4);
    for (int i = 0; i < 16; ++i) file += littleEndian(pixel, 4);
    return file;
}

class ImageTest : public ScreenTest {
protected:
    ImageTest() : ScreenTest(64, 48) {}

    // A directory of the theme's kind: absolute, with a "/" at the end.
    std::string theme() const { return themeRoot() + "/theme/"; }
    std::string themeRoot() { return device().root(); }
    std::string themeRoot() const { return const_cast<ImageTest*>(this)->device().root(); }

    void writePng(const std::string& name, const Picture& picture, PngColours colours = PngColours::Rgba) {
        device().write(name, pngBytes(picture, colours));
    }

    static Surface own(OstrelSurface* surface) { return Surface(static_cast<SDL2OstrelSurface*>(surface)); }
    static Surface load(const char* themeDir, const char* fallbackDir, const char* name) {
        return own(LoadOstrelSurface(themeDir, fallbackDir, name));
    }
    Surface loadFile(const std::string& name) { return load(nullptr, nullptr, device().path(name).c_str()); }
};

// --- From the theme -------------------------------------------------------------------------------------------------

using ThemeImage = ImageTest;

TEST_F(ThemeImage, ComesFromTheTheme) {
    writePng("/theme/skin/bg.png", Picture(5, 3, kRed));
    writePng("skin/bg.png", Picture(5, 3, kBlue));
    LogCapture log;
    const Surface image = load(theme().c_str(), "./", "skin/bg.png");
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(Picture::ofSurface(image->mSurface).at(0, 0), kRed);
    EXPECT_EQ(log.text(), "");
}

TEST_F(ThemeImage, ComesFromTheFallbackWithALine) {
    writePng("skin/bg.png", Picture(5, 3, kBlue));
    LogCapture log;
    const Surface image = load(theme().c_str(), "./", "skin/bg.png");
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(Picture::ofSurface(image->mSurface).at(0, 0), kBlue);
    EXPECT_EQ(log.lines(), Lines{theme() + "/skin/bg.png open fail, use .//skin/bg.png"});
}

TEST_F(ThemeImage, ComesFromTheFallbackWhenTheThemesFileIsBroken) {
    device().write("/theme/skin/bg.png", "no picture");
    writePng("skin/bg.png", Picture(5, 3, kBlue));
    LogCapture log;
    EXPECT_NE(load(theme().c_str(), "./", "skin/bg.png"), nullptr);
    EXPECT_EQ(log.lines(), Lines{theme() + "/skin/bg.png open fail, use .//skin/bg.png"});
}

// The smallest image of that kind: 3 x 2 pixels without a layer. SDL2_image reads it, and crashes on damaged ones.
TEST_F(ThemeImage, AnXcfImageCountsAsBroken) {
    using namespace std::string_literals;
    const std::string noPropertiesNoLayers(12, '\0');
    device().write("/theme/art.xcf", "gimp xcf file\0\0\0\0\3\0\0\0\2\0\0\0\0"s + noPropertiesNoLayers);
    SDL_Surface* readable = IMG_Load(device().path("/theme/art.xcf").c_str());
    EXPECT_NE(readable, nullptr) << SDL_GetError();
    SDL_FreeSurface(readable);
    LogCapture log;
    EXPECT_EQ(loadFile("/theme/art.xcf"), nullptr);
    EXPECT_EQ(load(theme().c_str(), "./", "art.xcf"), nullptr);
    EXPECT_EQ(own(LoadOstrelSurfaceSpecSized(device().path("/theme/art.xcf").c_str(), 3, 2, nullptr, false, false)),
              nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(ThemeImage, LogsTheSubstitutionWithoutATheme) {
    writePng("skin/bg.png", Picture(5, 3, kBlue));
    LogCapture log;
    EXPECT_NE(load(nullptr, "./", "skin/bg.png"), nullptr);
    EXPECT_EQ(log.lines(), Lines{"(null)/skin/bg.png open fail, use .//skin/bg.png"});
}

TEST_F(ThemeImage, IsNullInSilenceWhenNobodyHasIt) {
    LogCapture log;
    LogCapture errors(LogCapture::Stream::Error);
    EXPECT_EQ(LoadOstrelSurface(theme().c_str(), "./", "skin/bg.png"), nullptr);
    EXPECT_EQ(log.text() + errors.text(), "");
}

TEST_F(ThemeImage, JoinsDirectoryAndNameAsTheyAre) {
    writePng("skin-bg.png", Picture(5, 3, kBlue));
    EXPECT_NE(load("skin", nullptr, "-bg.png"), nullptr);
}

TEST_F(ThemeImage, WithAnAbsoluteNameIsTheFileItself) {
    writePng("/theme/bg.png", Picture(5, 3, kGreen));
    LogCapture log;
    const Surface image = load("no/", "no/", (theme() + "bg.png").c_str());
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(Picture::ofSurface(image->mSurface).at(0, 0), kGreen);
    EXPECT_EQ(log.text(), "");
}

TEST_F(ThemeImage, WithAnAbsoluteNameHasNoSubstitute) {
    writePng("theme/bg.png", Picture(5, 3, kGreen));
    LogCapture log;
    EXPECT_EQ(LoadOstrelSurface("./", "./", "/theme/bg.png"), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(ThemeImage, WithoutNamesIsNull) {
    LogCapture log;
    EXPECT_EQ(LoadOstrelSurface(theme().c_str(), "./", nullptr), nullptr);
    EXPECT_EQ(LoadOstrelSurface(nullptr, nullptr, "bg.png"), nullptr);
    EXPECT_EQ(LoadOstrelSurface(theme().c_str(), "./", ""), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(ThemeImage, WithoutATextureCountsAsMissing) {
    writePng("/theme/bg.png", Picture(5, 3, kRed));
    writePng("bg.png", Picture(5, 3, kBlue));
    SdlSpy spy;
    spy.failTexturesFromSurfaces = true;
    LogCapture log;
    EXPECT_EQ(LoadOstrelSurface(theme().c_str(), "./", "bg.png"), nullptr);
    EXPECT_EQ(spy.texturedSurfaces.size(), 2U);
    EXPECT_EQ(log.text(), "");
}

// --- Kinds of files -------------------------------------------------------------------------------------------------

using ImageFile = ImageTest;

TEST_F(ImageFile, Of32BitsIsUsedAsItIs) {
    const Picture picture = twoColours(5, 3);
    writePng("a.png", picture);
    LogCapture log;
    const Surface image = loadFile("a.png");
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getWidth(), 5);
    EXPECT_EQ(image->getHeight(), 3);
    EXPECT_EQ(image->mSurface->format->format, static_cast<Uint32>(SDL_PIXELFORMAT_ABGR8888));
    EXPECT_TRUE(picturesMatch(Picture::ofSurface(image->mSurface), picture));
    EXPECT_EQ(log.text(), "");
}

TEST_F(ImageFile, IsDrawnAsItIs) {
    const Picture picture = twoColours(5, 3);
    writePng("a.png", picture);
    const Canvas canvas(5, 3, kBlack);
    loadFile("a.png")->render(nullptr, nullptr, false, nullptr);
    EXPECT_TRUE(picturesMatch(canvas.picture(), picture));
}

TEST_F(ImageFile, Of24BitsBecomes32Bits) {
    const Picture picture = twoColours(5, 3);
    writePng("a.png", picture, PngColours::Rgb);
    LogCapture log;
    const Surface image = loadFile("a.png");
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->mSurface->format->format, static_cast<Uint32>(SDL_PIXELFORMAT_ARGB8888));
    EXPECT_TRUE(picturesMatch(Picture::ofSurface(image->mSurface), picture));
    EXPECT_EQ(log.lines(), Lines{"copy 5x3 16:3->5x3 20:4"});
}

TEST_F(ImageFile, OfAPaletteBecomes32Bits) {
    const Picture picture = twoColours(5, 3);
    writePng("a.png", picture, PngColours::Palette);
    LogCapture log;
    const Surface image = loadFile("a.png");
    ASSERT_NE(image, nullptr);
    EXPECT_TRUE(picturesMatch(Picture::ofSurface(image->mSurface), picture));
    EXPECT_EQ(log.lines(), Lines{"copy 5x3 8:1->5x3 20:4"});
}

TEST_F(ImageFile, OfGreysBecomes32Bits) {
    writePng("a.png", Picture(5, 3, {77, 77, 77, 255}), PngColours::Grey);
    LogCapture log;
    const Surface image = loadFile("a.png");
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(Picture::ofSurface(image->mSurface).count({77, 77, 77, 255}), 15);
    EXPECT_EQ(log.lines(), Lines{"copy 5x3 8:1->5x3 20:4"});
}

TEST_F(ImageFile, OfGreysWithAlphaKeepsTheAlpha) {
    writePng("a.png", Picture(5, 3, {77, 77, 77, 100}), PngColours::GreyAlpha);
    LogCapture log;
    const Surface image = loadFile("a.png");
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(Picture::ofSurface(image->mSurface).count({77, 77, 77, 100}), 15);
    EXPECT_EQ(log.text(), "");
}

TEST_F(ImageFile, MayBeAJpeg) {
    writeJpeg(device().path("a.jpg"), Picture(16, 8, {200, 200, 200, 255}));
    LogCapture log;
    const Surface image = loadFile("a.jpg");
    ASSERT_NE(image, nullptr);
    const Colour colour = Picture::ofSurface(image->mSurface).at(8, 4);
    EXPECT_NEAR(colour.r, 200, 2);
    EXPECT_NEAR(colour.g, 200, 2);
    EXPECT_NEAR(colour.b, 200, 2);
    EXPECT_EQ(log.lines(), Lines{"copy 16x8 48:3->16x8 64:4"});
}

TEST_F(ImageFile, MayBeABmp) {
    const Picture picture = twoColours(5, 3);
    writeBmp24(device().path("a.bmp"), picture);
    LogCapture log;
    const Surface image = loadFile("a.bmp");
    ASSERT_NE(image, nullptr);
    EXPECT_TRUE(picturesMatch(Picture::ofSurface(image->mSurface), picture));
    EXPECT_EQ(log.lines(), Lines{"copy 5x3 16:3->5x3 20:4"});
}

TEST_F(ImageFile, IsKnownByItsContentNotItsName) {
    writeBmp24(device().path("a.png"), twoColours(5, 3));
    EXPECT_NE(loadFile("a.png"), nullptr);
}

TEST_F(ImageFile, StaysAsLoadedWithoutMemoryForTheCopy) {
    const Picture picture = twoColours(5, 3);
    writePng("a.png", picture, PngColours::Rgb);
    SdlSpy spy;
    spy.failSurface = [](const SdlSpy::SurfaceCall& call) { return call.depth == 32; };
    LogCapture log;
    const Surface image = loadFile("a.png");
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->mSurface->format->BytesPerPixel, 3);
    EXPECT_TRUE(picturesMatch(Picture::ofSurface(image->mSurface), picture));
    EXPECT_EQ(log.text(), "");
}

TEST_F(ImageFile, CutShortIsNullOrAPicture) {
    const std::string whole = pngBytes(twoColours(20, 20), PngColours::Rgb);
    const std::size_t endOfRows = whole.size() - 12 - 8;  // the last chunk and the checksums of the rows
    LogCapture errors(LogCapture::Stream::Error);
    for (std::size_t i = 0; i < 50; ++i) {
        const std::size_t length = whole.size() * i / 50;
        device().write("cut.png", whole.substr(0, length));
        LogCapture log;
        const Surface image = loadFile("cut.png");
        const Surface thumbnail =
            own(LoadOstrelSurfaceSpecSized(device().path("cut.png").c_str(), 7, 7, nullptr, false, true));
        if (length < endOfRows) {
            EXPECT_EQ(image, nullptr) << length << " of " << whole.size() << " bytes";
            EXPECT_EQ(thumbnail, nullptr) << length << " of " << whole.size() << " bytes";
            EXPECT_EQ(log.text(), "");
        }
    }
}

TEST_F(ImageFile, ThatIsTextIsNull) {
    device().write("a.png", "This is not a picture.\n");
    LogCapture log;
    EXPECT_EQ(loadFile("a.png"), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(ImageFile, ThatIsEmptyIsNull) {
    device().write("a.png", "");
    EXPECT_EQ(loadFile("a.png"), nullptr);
}

TEST_F(ImageFile, ThatIsADirectoryIsNull) {
    ASSERT_EQ(mkdir(device().path("a.png").c_str(), 0755), 0);
    LogCapture log;
    EXPECT_EQ(loadFile("a.png"), nullptr);
    EXPECT_EQ(LoadOstrelSurfaceSpecSized(device().path("a.png").c_str(), 4, 4, nullptr, true, false), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(ImageFile, WithPercentSignsInItsNameIsLoggedAsItIs) {
    writePng("100%s%n.png", Picture(2, 2, kRed));
    LogCapture log;
    EXPECT_NE(load("no/", "./", "100%s%n.png"), nullptr);
    EXPECT_EQ(log.lines(), Lines{"no//100%s%n.png open fail, use .//100%s%n.png"});
}

// --- Thumbnails -----------------------------------------------------------------------------------------------------

class Thumbnail : public ImageTest {
protected:
    enum class Ratio { Free, Kept };

    Surface scaled(const std::string& file, int width, int height, Ratio ratio = Ratio::Free) {
        return own(LoadOstrelSurfaceSpecSized(device().path(file).c_str(), width, height, nullptr,
                                              /*fallback=*/false, ratio == Ratio::Kept));
    }
    static Surface substitute(const char* path, const char* name, bool fallback = true) {
        return own(LoadOstrelSurfaceSpecSized(path, 5, 3, name, fallback, /*keepRatio=*/false));
    }
    static Colour colourOf(const Surface& surface) { return Picture::ofSurface(surface->mSurface).at(0, 0); }
};

TEST_F(Thumbnail, OfTheRightSizeIsUsedAsItIs) {
    const Picture picture = twoColours(5, 3);
    writePng("a.png", picture);
    LogCapture log;
    const Surface image = scaled("a.png", 5, 3);
    ASSERT_NE(image, nullptr);
    EXPECT_TRUE(picturesMatch(Picture::ofSurface(image->mSurface), picture));
    EXPECT_EQ(log.text(), "");
}

TEST_F(Thumbnail, OfTheRightSizeKeepsItsBitsPerPixel) {
    writePng("a.png", twoColours(5, 3), PngColours::Rgb);
    LogCapture log;
    const Surface image = scaled("a.png", 5, 3, Ratio::Kept);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->mSurface->format->BytesPerPixel, 3);
    EXPECT_EQ(log.text(), "");
}

TEST_F(Thumbnail, IsScaledToTheSize) {
    writePng("a.png", twoColours(40, 20));
    LogCapture log;
    const Surface image = scaled("a.png", 10, 15);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getWidth(), 10);
    EXPECT_EQ(image->getHeight(), 15);
    EXPECT_EQ(image->mSurface->w, 10);
    EXPECT_EQ(image->mSurface->h, 15);
    EXPECT_EQ(image->mSurface->format->format, static_cast<Uint32>(SDL_PIXELFORMAT_ARGB8888));
    EXPECT_EQ(log.lines(), Lines{"thumb3bytes pixel 4"});
}

// Of the same width or the same height alone is not of the right size.
TEST_F(Thumbnail, IsScaledWhenOneSideDiffers) {
    writePng("a.png", twoColours(40, 20));
    EXPECT_EQ(scaled("a.png", 40, 10)->getHeight(), 10);
    EXPECT_EQ(scaled("a.png", 20, 20)->getWidth(), 20);
}

// The scaler may lose a step or two of a flat colour.
void expectRedThenBlue(const Surface& image) {
    const Picture picture = Picture::ofSurface(image->mSurface);
    const Colour left = picture.at(1, 5);
    const Colour right = picture.at(8, 5);
    EXPECT_GE(left.r, 250) << left;
    EXPECT_EQ(left.b, 0) << left;
    EXPECT_GE(left.a, 250) << left;
    EXPECT_GE(right.b, 250) << right;
    EXPECT_EQ(right.r, 0) << right;
    const Canvas canvas(10, 10, kBlack);
    image->render(nullptr, nullptr, false, nullptr);
    EXPECT_GE(canvas.picture().at(1, 5).r, 245);
    EXPECT_GE(canvas.picture().at(8, 5).b, 245);
}

TEST_F(Thumbnail, Of32BitsKeepsRedAndBlueInTheirPlaces) {
    writePng("a.png", twoColours(40, 20));
    expectRedThenBlue(scaled("a.png", 10, 10));
}

TEST_F(Thumbnail, Of24BitsKeepsRedAndBlueInTheirPlaces) {
    writePng("a.png", twoColours(40, 20), PngColours::Rgb);
    LogCapture log;
    const Surface image = scaled("a.png", 10, 10);
    EXPECT_EQ(log.lines(), (Lines{"thumb3bytes pixel 3", "copy 40x20 120:3->40x20 160:4"}));
    expectRedThenBlue(image);
}

TEST_F(Thumbnail, OfAPaletteKeepsRedAndBlueInTheirPlaces) {
    writePng("a.png", twoColours(40, 20), PngColours::Palette);
    LogCapture log;
    const Surface image = scaled("a.png", 10, 10);
    EXPECT_EQ(log.lines(), (Lines{"thumb3bytes pixel 1", "copy 40x20 40:1->40x20 160:4"}));
    expectRedThenBlue(image);
}

// The last order that is taken as it is: the red of R, G, B, A lands where the result has its alpha.
TEST_F(Thumbnail, OfTheOrderRgbaIsNotSwapped) {
    device().write("a.bmp", bmpOfMasks({0xFF000000, 0x00FF0000, 0x0000FF00, 0x000000FF}, 0xFF0000FF));
    EXPECT_EQ(scaled("a.bmp", 4, 4)->mSurface->format->format, 0x16462004U);
    const Colour colour = colourOf(scaled("a.bmp", 10, 10));
    EXPECT_EQ(colour.r, 0);
    EXPECT_GE(colour.b, 250);
    EXPECT_GE(colour.a, 250);
}

// The first order with blue above red.
TEST_F(Thumbnail, OfTheOrderXbgrIsSwapped) {
    device().write("a.bmp", bmpOfMasks({0x000000FF, 0x0000FF00, 0x00FF0000, 0}, 0x000000FF));
    EXPECT_EQ(scaled("a.bmp", 4, 4)->mSurface->format->format, 0x16561804U);
    const Colour colour = colourOf(scaled("a.bmp", 10, 10));
    EXPECT_GE(colour.r, 250);
    EXPECT_EQ(colour.b, 0);
}

TEST_F(Thumbnail, MayGrow) {
    writePng("a.png", twoColours(4, 4));
    expectRedThenBlue(scaled("a.png", 10, 10));
}

TEST_F(Thumbnail, MayBeOnePixel) {
    writePng("a.png", Picture(40, 20, kRed));
    const Surface image = scaled("a.png", 1, 1);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getWidth(), 1);
    EXPECT_GE(colourOf(image).r, 250);
}

TEST_F(Thumbnail, MayGrowFromOnePixel) {
    writePng("a.png", Picture(1, 1, kRed));
    const Surface image = scaled("a.png", 9, 7);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getHeight(), 7);
    EXPECT_GE(colourOf(image).r, 250);
}

struct FittedSize {
    int width, height, boxWidth, boxHeight, outWidth, outHeight;
};

TEST_F(Thumbnail, KeepsTheRatioWithinTheSize) {
    const FittedSize rows[] = {
        {400, 300, 200, 200, 200, 150},  // 400 * 200 / 300 = 266 is too wide: 300 * 200 / 400
        {400, 300, 300, 100, 133, 100},  // 400 * 100 / 300
        {300, 400, 200, 200, 150, 200},  // 300 * 200 / 400
        {10, 10, 40, 30, 30, 30},        // grows
        {100, 50, 200, 100, 200, 100},   // fits exactly
        {7, 3, 10, 10, 10, 4},           // 3 * 10 / 7 = 4.29
        {3, 7, 10, 10, 4, 10},           // 3 * 10 / 7
        {10, 3, 13, 4, 13, 4},           // 10 * 4 / 3 = 13.3 is not too wide
    };
    for (const FittedSize& row : rows) {
        writePng("a.png", Picture(row.width, row.height, kRed));
        const Surface image = scaled("a.png", row.boxWidth, row.boxHeight, Ratio::Kept);
        ASSERT_NE(image, nullptr);
        EXPECT_EQ(image->getWidth(), row.outWidth) << row.width << " x " << row.height;
        EXPECT_EQ(image->getHeight(), row.outHeight) << row.width << " x " << row.height;
    }
}

// Only the wanted size itself goes unscaled, not a size that the ratio leads back to.
TEST_F(Thumbnail, IsScaledEvenToItsOwnSizeWhenTheRatioLeadsThere) {
    writePng("a.png", twoColours(40, 20));
    LogCapture log;
    const Surface image = scaled("a.png", 40, 40, Ratio::Kept);
    EXPECT_EQ(image->getWidth(), 40);
    EXPECT_EQ(image->getHeight(), 20);
    EXPECT_EQ(log.lines(), Lines{"thumb3bytes pixel 4"});
}

TEST_F(Thumbnail, ThatShrinksToNothingDrawsNothing) {
    writePng("a.png", Picture(100, 1, kRed));
    LogCapture log;
    const Surface image = scaled("a.png", 10, 10, Ratio::Kept);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->mTexture, nullptr);
    EXPECT_EQ(image->mSurface->w, 10);
    EXPECT_EQ(image->mSurface->h, 0);
    EXPECT_EQ(log.lines(), Lines{"thumb3bytes pixel 4"});
}

TEST_F(Thumbnail, OfSizeZeroDrawsNothing) {
    writePng("a.png", Picture(4, 4, kRed), PngColours::Rgb);
    const int sizes[][2] = {{0, 0}, {0, 5}, {5, 0}};
    for (const auto& size : sizes) {
        for (const Ratio ratio : {Ratio::Free, Ratio::Kept}) {
            const Surface image = scaled("a.png", size[0], size[1], ratio);
            ASSERT_NE(image, nullptr);
            EXPECT_EQ(image->mTexture, nullptr);
        }
    }
}

TEST_F(Thumbnail, OfANegativeOrHugeSizeIsNull) {
    writePng("a.png", Picture(4, 4, kRed));
    constexpr int kMost = 2147483647;
    const int sizes[][2] = {{-1, 5},        {5, -1},          {-5, -5},        {-kMost - 1, -kMost - 1},
                            {kMost, kMost}, {100000, 100000}, {kMost, -kMost}, {-kMost, kMost}};
    LogCapture log;
    for (const auto& size : sizes) {
        EXPECT_EQ(scaled("a.png", size[0], size[1]), nullptr) << size[0] << " x " << size[1];
        EXPECT_EQ(scaled("a.png", size[0], size[1], Ratio::Kept), nullptr) << size[0] << " x " << size[1];
    }
    EXPECT_EQ(log.text(), "");
}

TEST_F(Thumbnail, WithoutMemoryIsNull) {
    writePng("a.png", Picture(4, 4, kRed));
    SdlSpy spy;
    spy.failSurface = [](const SdlSpy::SurfaceCall& call) { return call.width == 9; };
    LogCapture log;
    EXPECT_EQ(scaled("a.png", 9, 9), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(Thumbnail, WithoutATextureIsASurfaceAllTheSame) {
    writePng("a.png", Picture(4, 4, kRed));
    SdlSpy spy;
    spy.failTexturesFromSurfaces = true;
    LogCapture log;
    const Surface image = scaled("a.png", 4, 4);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->mTexture, nullptr);
    EXPECT_EQ(image->mSurface->w, 4);
    EXPECT_EQ(log.text(), "");
}

bool endedByATrap(int status) {
    return WIFSIGNALED(status) && (WTERMSIG(status) == SIGILL || WTERMSIG(status) == SIGTRAP);
}

TEST_F(Thumbnail, StopsTheProcessWhenItCannotBeConverted) {
    writePng("a.png", Picture(4, 4, kRed), PngColours::Rgb);
    const auto convertWithoutMemory = [this] {
        SdlSpy spy;
        spy.failSurface = [](const SdlSpy::SurfaceCall& call) { return call.width == 4 && call.depth == 32; };
        scaled("a.png", 9, 9);
    };
    EXPECT_EXIT(convertWithoutMemory(), endedByATrap, "");
}

// --- Substitutes for thumbnails -------------------------------------------------------------------------------------

TEST_F(Thumbnail, NeedsNoSubstituteWhenItsFileIsThere) {
    writePng("own.png", Picture(5, 3, kRed));
    writePng("name.png", Picture(5, 3, kBlue));
    LogCapture log;
    EXPECT_EQ(colourOf(substitute("own.png", "name.png")), kRed);
    EXPECT_EQ(log.text(), "");
}

TEST_F(Thumbnail, HasNoSubstituteUnlessAsked) {
    writePng("name.png", Picture(5, 3, kBlue));
    LogCapture log;
    EXPECT_EQ(substitute("no.png", "name.png", /*fallback=*/false), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(Thumbnail, IsReplacedFromTheThemeInSilence) {
    host().setTheme(theme());
    writePng("/theme/name.png", Picture(5, 3, kRed));
    writePng("name.png", Picture(5, 3, kBlue));
    LogCapture log;
    EXPECT_EQ(colourOf(substitute("no.png", "name.png")), kRed);
    EXPECT_EQ(log.text(), "");
}

TEST_F(Thumbnail, IsReplacedFromTheWorkingDirectoryWithALine) {
    host().setTheme(theme());
    writePng("name.png", Picture(5, 3, kBlue));
    LogCapture log;
    EXPECT_EQ(colourOf(substitute("no.png", "name.png")), kBlue);
    EXPECT_EQ(log.lines(), Lines{theme() + "/name.png open fail, use .//name.png"});
}

TEST_F(Thumbnail, IsReplacedFromTheWorkingDirectoryWithoutATheme) {
    writePng("name.png", Picture(5, 3, kBlue));
    LogCapture log;
    EXPECT_EQ(colourOf(substitute("no.png", "name.png")), kBlue);
    EXPECT_EQ(log.lines(), Lines{"(null)/name.png open fail, use .//name.png"});
}

TEST_F(Thumbnail, IsReplacedByAnAbsoluteNameInSilence) {
    host().setTheme(theme());
    writePng("/other/name.png", Picture(5, 3, kGreen));
    LogCapture log;
    EXPECT_EQ(colourOf(substitute("no.png", device().path("/other/name.png").c_str())), kGreen);
    EXPECT_EQ(log.text(), "");
}

TEST_F(Thumbnail, LooksInTheThemeForAnAbsoluteNameThatIsMissing) {
    host().setTheme(theme());
    writePng("/theme/none/name.png", Picture(5, 3, kRed));
    writePng("none/name.png", Picture(5, 3, kBlue));
    EXPECT_EQ(colourOf(substitute("no.png", "/none/name.png")), kRed);
}

TEST_F(Thumbnail, LooksInTheWorkingDirectoryForAnAbsoluteNameThatIsMissing) {
    writePng("none/name.png", Picture(5, 3, kBlue));
    LogCapture log;
    EXPECT_EQ(colourOf(substitute("no.png", "/none/name.png")), kBlue);
    EXPECT_EQ(log.lines(), Lines{"(null)//none/name.png open fail, use .///none/name.png"});
}

TEST_F(Thumbnail, IsReplacedForANullPathToo) {
    writePng("name.png", Picture(5, 3, kBlue));
    EXPECT_EQ(colourOf(substitute(nullptr, "name.png")), kBlue);
}

TEST_F(Thumbnail, WithoutAnyFileIsNullInSilence) {
    host().setTheme(theme());
    LogCapture log;
    EXPECT_EQ(substitute("no.png", "name.png"), nullptr);
    EXPECT_EQ(substitute("no.png", "/name.png"), nullptr);
    EXPECT_EQ(substitute("no.png", nullptr), nullptr);
    EXPECT_EQ(substitute("no.png", ""), nullptr);
    EXPECT_EQ(substitute(nullptr, nullptr), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(Thumbnail, OfASubstituteIsScaledToo) {
    writePng("name.png", twoColours(40, 20));
    LogCapture log;
    const Surface image = substitute("no.png", "name.png");
    EXPECT_EQ(image->getWidth(), 5);
    EXPECT_EQ(log.lines(), (Lines{"(null)/name.png open fail, use .//name.png", "thumb3bytes pixel 4"}));
}

}  // namespace
