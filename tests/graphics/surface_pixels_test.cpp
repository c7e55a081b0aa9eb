#include <memory>
#include <string>
#include <vector>

#include "ostrel/screen.h"
#include "ostrel/surface.h"
#include "support/log_capture.h"
#include "support/picture.h"
#include "support/screen_test.h"
#include "support/sdl_spy.h"

namespace {

using ostreltest::Canvas;
using ostreltest::Colour;
using ostreltest::inside;
using ostreltest::kBlack;
using ostreltest::kBlue;
using ostreltest::kRed;
using ostreltest::LogCapture;
using ostreltest::Picture;
using ostreltest::picturesMatch;
using ostreltest::plainSurface;
using ostreltest::ScreenTest;
using ostreltest::SdlSpy;

constexpr Colour kNothing{0, 0, 0, 0};

class SurfacePixels : public ScreenTest {
protected:
    SurfacePixels() : ScreenTest(128, 96) {}
};

// An opaque colour of its own for every pixel of a small picture.
Colour mark(int x, int y) { return {static_cast<uint8_t>(x), static_cast<uint8_t>(y), 7, 255}; }

// The same as it is read back into an ARGB surface.
Colour swappedMark(int x, int y) { return {7, static_cast<uint8_t>(y), static_cast<uint8_t>(x), 255}; }

Picture markedPicture(int width, int height, Colour (*colour)(int, int)) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) picture.set(x, y, colour(x, y));
    }
    return picture;
}

// A surface with a texture only.
std::unique_ptr<OstrelSurface> markedSurface(int width, int height) {
    SDL_Surface* pixels = create_surface(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const SDL_Rect dot{x, y, 1, 1};
            const Colour colour = mark(x, y);
            SDL_FillRect(pixels, &dot, SDL_MapRGBA(pixels->format, colour.r, colour.g, colour.b, colour.a));
        }
    }
    std::unique_ptr<OstrelSurface> surface(CreateSurface(pixels));
    SDL_FreeSurface(pixels);
    return surface;
}

struct Answer {
    void* pixels;
    int pitch, bytesPerPixel, width, height;
};

Answer pixelsOf(const std::unique_ptr<OstrelSurface>& surface, int boxWidth, int boxHeight) {
    Answer answer{nullptr, -1, -1, boxWidth, boxHeight};
    answer.pixels = surface->getPixels(&answer.pitch, &answer.bytesPerPixel, &answer.width, &answer.height);
    return answer;
}

// --- getPixels ------------------------------------------------------------------------------------------------------

using GetPixels = SurfacePixels;

TEST_F(GetPixels, WithoutABoxGivesTheTexturesSize) {
    const auto surface = markedSurface(20, 10);
    LogCapture log;
    int pitch = 0;
    int bytesPerPixel = 0;
    const void* pixels = surface->getPixels(&pitch, &bytesPerPixel, nullptr, nullptr);
    ASSERT_NE(pixels, nullptr);
    EXPECT_EQ(pitch, 80);
    EXPECT_EQ(bytesPerPixel, 4);
    EXPECT_EQ(pixels, inside(surface)->mSurface->pixels);
    EXPECT_EQ(log.text(), "");
}

TEST_F(GetPixels, ArriveWithRedAndBlueSwapped) {
    const auto surface = markedSurface(20, 10);
    surface->getPixels(nullptr, nullptr, nullptr, nullptr);
    EXPECT_TRUE(picturesMatch(Picture::ofSurface(inside(surface)->mSurface), markedPicture(20, 10, swappedMark)));
}

TEST_F(GetPixels, ComeAsTheBytesRedGreenBlueAlpha) {
    const auto surface = markedSurface(20, 10);
    const auto* bytes = static_cast<const uint8_t*>(surface->getPixels(nullptr, nullptr, nullptr, nullptr));
    const uint8_t* last = bytes + 9 * 80 + 19 * 4;
    EXPECT_EQ(std::vector<int>(last, last + 4), (std::vector<int>{19, 9, 7, 255}));
}

TEST_F(GetPixels, WithABoxThatIsNotPositiveGivesTheTexturesSize) {
    const auto surface = markedSurface(20, 10);
    const int boxes[][2] = {{0, 5}, {5, 0}, {-5, 5}, {5, -5}};
    LogCapture log;
    for (const auto& box : boxes) {
        const Answer answer = pixelsOf(surface, box[0], box[1]);
        EXPECT_EQ(answer.width, 20);
        EXPECT_EQ(answer.height, 10);
    }
    EXPECT_EQ(log.text(), "");
}

TEST_F(GetPixels, WithHalfABoxGivesTheTexturesSize) {
    const auto surface = markedSurface(20, 10);
    int size = 5;
    surface->getPixels(nullptr, nullptr, &size, nullptr);
    EXPECT_EQ(size, 20);
    size = 5;
    surface->getPixels(nullptr, nullptr, nullptr, &size);
    EXPECT_EQ(size, 10);
}

TEST_F(GetPixels, FitIntoTheBox) {
    const auto surface = markedSurface(20, 10);
    LogCapture log;
    const Answer answer = pixelsOf(surface, 10, 10);
    EXPECT_EQ(answer.width, 10);
    EXPECT_EQ(answer.height, 5);
    EXPECT_EQ(answer.pitch, 40);
    EXPECT_EQ(answer.bytesPerPixel, 4);
    EXPECT_EQ(answer.pixels, inside(surface)->mSurface->pixels);
    EXPECT_EQ(inside(surface)->mSurface->w, 10);
    EXPECT_EQ(inside(surface)->mSurface->h, 5);
    EXPECT_EQ(log.lines(), std::vector<std::string>{"getPixels 20x10 -> 10x5 max(10x10)"});
}

TEST_F(GetPixels, GrowToTheBox) {
    const auto surface = markedSurface(20, 10);
    LogCapture log;
    const Answer answer = pixelsOf(surface, 60, 40);
    EXPECT_EQ(answer.width, 60);
    EXPECT_EQ(answer.height, 30);
    EXPECT_EQ(log.lines(), std::vector<std::string>{"getPixels 20x10 -> 60x30 max(60x40)"});
}

TEST_F(GetPixels, OfTheBoxesExactSizeAreGivenAsTheyAre) {
    std::vector<uint8_t> bytes(20 * 10 * 4, 99);
    const std::unique_ptr<OstrelSurface> surface(
        CreateFromPixels(bytes.data(), 20, 10, 32, 80, 0xFF, 0xFF00, 0xFF0000, 0xFF000000));
    const void* kept = inside(surface)->mSurface->pixels;
    LogCapture log;
    SdlSpy spy;
    const Answer answer = pixelsOf(surface, 20, 10);
    EXPECT_EQ(answer.pixels, kept);
    EXPECT_EQ(answer.pitch, 80);
    EXPECT_EQ(answer.bytesPerPixel, 4);
    EXPECT_TRUE(spy.textures.empty());
    EXPECT_EQ(log.text(), "");
}

TEST_F(GetPixels, AreTheSameTheSecondTime) {
    const auto surface = markedSurface(20, 10);
    const Answer first = pixelsOf(surface, 10, 5);
    LogCapture log;
    const Answer second = pixelsOf(surface, 10, 5);
    EXPECT_EQ(second.pixels, first.pixels);
    EXPECT_EQ(second.pitch, 40);
    EXPECT_EQ(log.text(), "");
}

TEST_F(GetPixels, OfTheExactSizeNeedNoAnswers) {
    const auto surface = markedSurface(20, 10);
    int width = 10;
    int height = 5;
    const void* first = surface->getPixels(nullptr, nullptr, &width, &height);
    EXPECT_EQ(surface->getPixels(nullptr, nullptr, &width, &height), first);
}

TEST_F(GetPixels, OfAnotherBoxReplaceTheCopy) {
    const auto surface = markedSurface(20, 10);
    pixelsOf(surface, 10, 5);
    const Answer answer = pixelsOf(surface, 8, 8);
    EXPECT_EQ(answer.width, 8);
    EXPECT_EQ(answer.height, 4);
    EXPECT_EQ(inside(surface)->mSurface->w, 8);
}

TEST_F(GetPixels, AreReadAgainWhenOneSideOfTheBoxDiffers) {
    const auto surface = markedSurface(20, 10);
    pixelsOf(surface, 10, 5);
    LogCapture log;
    pixelsOf(surface, 10, 10);
    EXPECT_EQ(log.lines(), std::vector<std::string>{"getPixels 20x10 -> 10x5 max(10x10)"});
    log.clear();
    pixelsOf(surface, 20, 5);
    EXPECT_EQ(log.lines(), std::vector<std::string>{"getPixels 20x10 -> 10x5 max(20x5)"});
}

TEST_F(GetPixels, RenewTheSizeFromTheTexture) {
    const auto surface = markedSurface(20, 10);
    inside(surface)->mWidth = 1;
    inside(surface)->mHeight = 2;
    pixelsOf(surface, 10, 5);
    EXPECT_EQ(surface->getWidth(), 20);
    EXPECT_EQ(surface->getHeight(), 10);
}

TEST_F(GetPixels, KeepTheSizeWhenTheCopyServes) {
    const auto surface = markedSurface(20, 10);
    pixelsOf(surface, 10, 5);
    inside(surface)->mWidth = 1;
    pixelsOf(surface, 10, 5);
    EXPECT_EQ(surface->getWidth(), 1);
}

TEST_F(GetPixels, UseAStreamingTextureOfTheSameFormat) {
    SDL2OstrelSurface surface(SDL_CreateTexture(gRenderer, SDL_PIXELFORMAT_RGB565, SDL_TEXTUREACCESS_STATIC, 20, 10),
                              nullptr);
    int width = 10;
    int height = 10;
    SdlSpy spy;
    surface.getPixels(nullptr, nullptr, &width, &height);
    ASSERT_EQ(spy.textures.size(), 1U);
    EXPECT_EQ(spy.destroyed, std::vector<const void*>{spy.textures[0].texture});
    EXPECT_EQ(spy.textures[0].format, static_cast<Uint32>(SDL_PIXELFORMAT_RGB565));
    EXPECT_EQ(spy.textures[0].access, 1);
    EXPECT_EQ(spy.textures[0].width, 10);
    EXPECT_EQ(spy.textures[0].height, 5);
}

TEST_F(GetPixels, PassThroughTheWindow) {
    ClearRect(nullptr, nullptr, 0, 0, 255, 255);
    plainSurface(20, 10, kRed)->getPixels(nullptr, nullptr, nullptr, nullptr);
    const Picture window = Picture::ofWindow();
    EXPECT_EQ(window.count(kRed), 200);
    EXPECT_EQ(window.at(19, 9), kRed);
    EXPECT_EQ(window.at(20, 9), kBlue);
}

TEST_F(GetPixels, AreBlendedWithTheWindow) {
    ClearRect(nullptr, nullptr, 0, 0, 255, 255);
    const auto surface = plainSurface(20, 10, kNothing);
    surface->getPixels(nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(Picture::ofSurface(inside(surface)->mSurface).count(kRed), 200);  // the window's blue, swapped
}

TEST_F(GetPixels, PassThroughTheRenderersTarget) {
    const Canvas canvas(40, 40, kBlue);
    SDL_Texture* target = static_cast<SDL2OstrelSurface*>(canvas.surface())->mTexture;
    SDL_SetRenderTarget(gRenderer, target);
    plainSurface(20, 10, kRed)->getPixels(nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), target);
    SDL_SetRenderTarget(gRenderer, nullptr);
    EXPECT_EQ(canvas.picture().count(kRed), 200);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 0);
}

TEST_F(GetPixels, AreZeroBeyondTheWindow) {
    const auto surface = plainSurface(200, 100, kRed);
    const Answer answer = pixelsOf(surface, 0, 0);
    EXPECT_EQ(answer.width, 200);
    EXPECT_EQ(answer.height, 100);
    Picture expected(200, 100, kNothing);
    for (int y = 0; y < 96; ++y) {
        for (int x = 0; x < 128; ++x) expected.set(x, y, kBlue);
    }
    EXPECT_TRUE(picturesMatch(Picture::ofSurface(inside(surface)->mSurface), expected));
}

TEST_F(GetPixels, LeaveTheViewportAsItWas) {
    const SDL_Rect viewport{5, 6, 70, 80};
    SDL_RenderSetViewport(gRenderer, &viewport);
    pixelsOf(markedSurface(20, 10), 10, 5);
    SDL_Rect after{};
    SDL_RenderGetViewport(gRenderer, &after);
    EXPECT_TRUE(SDL_RectEquals(&after, &viewport));
    SDL_RenderSetViewport(gRenderer, nullptr);
}

TEST_F(GetPixels, WithoutATextureAreNull) {
    const std::unique_ptr<OstrelSurface> surface(new SDL2OstrelSurface(nullptr, create_surface(4, 4)));
    LogCapture log;
    const Answer answer = pixelsOf(surface, 4, 4);
    EXPECT_EQ(answer.pixels, nullptr);
    EXPECT_EQ(answer.pitch, -1);
    EXPECT_EQ(log.lines(), std::vector<std::string>{"SDL_QueryTexture fail : Parameter 'texture' is invalid"});
}

TEST_F(GetPixels, OfNoHeightAreNull) {
    const auto surface = plainSurface(100, 1, kRed);
    const void* before = inside(surface)->mSurface;
    LogCapture log;
    const Answer answer = pixelsOf(surface, 10, 10);
    EXPECT_EQ(answer.pixels, nullptr);
    EXPECT_EQ(answer.width, 10);
    EXPECT_EQ(inside(surface)->mSurface, before);
    EXPECT_EQ(log.lines(), (std::vector<std::string>{"getPixels 100x1 -> 10x0 max(10x10)",
                                                     "SDL_CreateTexture fail : Texture dimensions can't be 0"}));
}

TEST_F(GetPixels, WithoutMemoryAreNullAndTheCopyStays) {
    const auto surface = plainSurface(20, 10, kRed);
    const void* before = inside(surface)->mSurface;
    SdlSpy spy;
    spy.failSurface = [](const auto&) { return true; };
    EXPECT_EQ(pixelsOf(surface, 0, 0).pixels, nullptr);
    EXPECT_EQ(inside(surface)->mSurface, before);
}

// --- CropSurface ----------------------------------------------------------------------------------------------------

class CropSurfaceTest : public SurfacePixels {
protected:
    // Red, with a blue rectangle at (4, 2) of 6 x 3.
    std::unique_ptr<OstrelSurface> source() {
        auto surface = plainSurface(20, 10, kRed);
        const SDL_Rect place{4, 2, 6, 3};
        SDL_Surface* pixels = inside(surface)->mSurface;
        SDL_FillRect(pixels, &place, SDL_MapRGBA(pixels->format, 0, 0, 255, 255));
        return surface;
    }
};

TEST_F(CropSurfaceTest, CutsTheRectangleOutOfThePixels) {
    const auto whole = source();
    SDL_Rect rect{4, 2, 7, 3};
    const std::unique_ptr<OstrelSurface> cut(CropSurface(whole.get(), &rect));
    ASSERT_NE(cut, nullptr);
    EXPECT_EQ(cut->getWidth(), 7);
    EXPECT_EQ(cut->getHeight(), 3);
    const Picture pixels = Picture::ofSurface(inside(cut)->mSurface);
    EXPECT_EQ(pixels.count(kBlue), 18);
    EXPECT_EQ(pixels.at(6, 2), kRed);
    const Canvas canvas(7, 3, kBlack);
    cut->render(nullptr, nullptr, false, nullptr);
    EXPECT_TRUE(picturesMatch(canvas.picture(), pixels));
}

TEST_F(CropSurfaceTest, LeavesTheSourceAsItWas) {
    const auto whole = source();
    const void* pixels = inside(whole)->mSurface;
    SDL_Rect rect{4, 2, 7, 3};
    const std::unique_ptr<OstrelSurface> cut(CropSurface(whole.get(), &rect));
    EXPECT_EQ(inside(whole)->mSurface, pixels);
    EXPECT_EQ(Picture::ofSurface(inside(whole)->mSurface).count(kBlue), 18);
    EXPECT_EQ(rect.w, 7);
}

TEST_F(CropSurfaceTest, LogsThePixelFormat) {
    const auto whole = source();
    SDL_Rect rect{0, 0, 2, 2};
    char address[32];
    std::snprintf(address, sizeof address, "%p", static_cast<void*>(inside(whole)->mSurface->format));
    LogCapture log;
    delete CropSurface(whole.get(), &rect);
    EXPECT_EQ(log.lines(), (std::vector<std::string>{std::string("crop surface s->mSurface->format is ") + address,
                                                     "crop surface s->mSurface->format->format is 16362004"}));
}

TEST_F(CropSurfaceTest, LeavesPartsOutsideTheSourceTransparent) {
    const auto whole = source();
    SDL_Rect rect{18, 8, 4, 4};
    const std::unique_ptr<OstrelSurface> cut(CropSurface(whole.get(), &rect));
    const Picture pixels = Picture::ofSurface(inside(cut)->mSurface);
    EXPECT_EQ(pixels.count(kRed), 4);
    EXPECT_EQ(pixels.at(1, 1), kRed);
    EXPECT_EQ(pixels.count(kNothing), 12);
}

// The blit blends, so the colour of a translucent pixel is multiplied by its alpha.
TEST_F(CropSurfaceTest, BlendsTranslucentPixelsWithTransparentBlack) {
    const auto whole = plainSurface(4, 4, {200, 100, 50, 128});
    SDL_Rect rect{0, 0, 4, 4};
    const std::unique_ptr<OstrelSurface> cut(CropSurface(whole.get(), &rect));
    const Colour colour = Picture::ofSurface(inside(cut)->mSurface).at(1, 1);
    EXPECT_NEAR(colour.r, 100, 1);
    EXPECT_NEAR(colour.g, 50, 1);
    EXPECT_NEAR(colour.b, 25, 1);
    EXPECT_NEAR(colour.a, 128, 1);
}

TEST_F(CropSurfaceTest, WithoutATextureKeepsThePixels) {
    const auto whole = source();
    SDL_Rect rect{4, 2, 6, 3};
    SdlSpy spy;
    spy.failTexturesFromSurfaces = true;
    LogCapture log;
    const std::unique_ptr<OstrelSurface> cut(CropSurface(whole.get(), &rect));
    ASSERT_NE(cut, nullptr);
    EXPECT_EQ(inside(cut)->mTexture, nullptr);
    EXPECT_EQ(Picture::ofSurface(inside(cut)->mSurface).count(kBlue), 18);
    EXPECT_EQ(log.lines().at(2), "CropSurface create texture fail : no texture for a test");
    EXPECT_EQ(log.lines().size(), 3U);
}

TEST_F(CropSurfaceTest, IsNullWithoutARectangle) {
    LogCapture log;
    EXPECT_EQ(CropSurface(source().get(), nullptr), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(CropSurfaceTest, IsNullWithoutPixels) {
    const std::unique_ptr<OstrelSurface> blank(CreateSurface(8, 8));
    SDL_Rect rect{0, 0, 2, 2};
    LogCapture log;
    EXPECT_EQ(CropSurface(blank.get(), &rect), nullptr);
    EXPECT_EQ(CropSurface(nullptr, &rect), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(CropSurfaceTest, IsNullForANegativeOrHugeSize) {
    const auto whole = source();
    SDL_Rect negative{0, 0, -2, 2};
    SDL_Rect huge{0, 0, 2147483647, 2147483647};
    LogCapture log;
    EXPECT_EQ(CropSurface(whole.get(), &negative), nullptr);
    EXPECT_EQ(CropSurface(whole.get(), &huge), nullptr);
    EXPECT_EQ(log.lines().size(), 4U);
    EXPECT_FALSE(log.contains("fail"));
}

// --- RotateSurface --------------------------------------------------------------------------------------------------

using RotateSurfaceTest = SurfacePixels;

// Clockwise: the logical pixel (u, v) of a picture of height h comes to (h - 1 - v, u).
TEST_F(RotateSurfaceTest, TurnsClockwise) {
    const auto surface = markedSurface(40, 20);
    const std::unique_ptr<OstrelSurface> turned(RotateSurface(surface.get(), 90));
    ASSERT_NE(turned, nullptr);
    Picture expected(20, 40);
    for (int v = 0; v < 20; ++v) {
        for (int u = 0; u < 40; ++u) expected.set(19 - v, u, mark(u, v));
    }
    EXPECT_TRUE(picturesMatch(Picture::ofTexture(inside(turned)->mTexture), expected));
}

TEST_F(RotateSurfaceTest, KeepsPixelsWithRedAndBlueSwapped) {
    const auto surface = markedSurface(40, 20);
    const std::unique_ptr<OstrelSurface> turned(RotateSurface(surface.get(), 180));
    Picture expected(40, 20);
    for (int v = 0; v < 20; ++v) {
        for (int u = 0; u < 40; ++u) expected.set(39 - u, 19 - v, swappedMark(u, v));
    }
    EXPECT_TRUE(picturesMatch(Picture::ofSurface(inside(turned)->mSurface), expected));
}

TEST_F(RotateSurfaceTest, MakesATargetThatHoldsTheTurnedPicture) {
    const std::unique_ptr<OstrelSurface> surface(CreateSurface(100, 50));
    const struct {
        int degrees, width, height;
    } rows[] = {
        {0, 100, 50},
        {90, 50, 100},
        {180, 100, 50},
        {270, 50, 100},
        {-90, 50, 100},
        {360, 100, 50},
        {30, 111, 93},   // 100 * 0.8660 + 50 * 0.5 = 111.60; 100 * 0.5 + 50 * 0.8660
                         // = 93.30
        {45, 106, 106},  // 150 * 0.70711 = 106.07
        {120, 93, 111},
        {-30, 111, 93},
    };
    for (const auto& row : rows) {
        SdlSpy spy;
        const std::unique_ptr<OstrelSurface> turned(RotateSurface(surface.get(), row.degrees));
        ASSERT_NE(turned, nullptr) << row.degrees;
        EXPECT_EQ(turned->getWidth(), row.width) << row.degrees;
        EXPECT_EQ(turned->getHeight(), row.height) << row.degrees;
        EXPECT_EQ(inside(turned)->mSurface->w, row.width) << row.degrees;
        EXPECT_EQ(inside(turned)->mSurface->h, row.height) << row.degrees;
        EXPECT_EQ(spy.textures.at(0).format, 0x16762004U);
        EXPECT_EQ(spy.textures.at(0).access, 2);
    }
}

TEST_F(RotateSurfaceTest, CentresThePicture) {
    const auto surface = plainSurface(40, 40, kRed);
    const std::unique_ptr<OstrelSurface> turned(RotateSurface(surface.get(), 45));
    ASSERT_EQ(turned->getWidth(), 56);
    const Picture picture = Picture::ofTexture(inside(turned)->mTexture);
    EXPECT_EQ(picture.at(28, 28), kRed);
    EXPECT_EQ(picture.at(28, 4), kRed);
    EXPECT_EQ(picture.at(4, 28), kRed);
    EXPECT_EQ(picture.at(4, 4).a, 0);
    EXPECT_EQ(picture.at(51, 51).a, 0);
}

TEST_F(RotateSurfaceTest, PutsTargetAndViewportBack) {
    const Canvas canvas(60, 60);
    SDL_Texture* target = static_cast<SDL2OstrelSurface*>(canvas.surface())->mTexture;
    SDL_SetRenderTarget(gRenderer, target);
    const SDL_Rect viewport{5, 6, 30, 20};
    SDL_RenderSetViewport(gRenderer, &viewport);
    delete RotateSurface(markedSurface(40, 20).get(), 90);
    SDL_Rect after{};
    SDL_RenderGetViewport(gRenderer, &after);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), target);
    EXPECT_TRUE(SDL_RectEquals(&after, &viewport));
    SDL_RenderSetViewport(gRenderer, nullptr);
    SDL_SetRenderTarget(gRenderer, nullptr);
}

TEST_F(RotateSurfaceTest, IsNullWithoutATexture) {
    SDL2OstrelSurface empty(nullptr, nullptr);
    LogCapture log;
    EXPECT_EQ(RotateSurface(&empty, 90), nullptr);
    EXPECT_EQ(RotateSurface(nullptr, 90), nullptr);
    const std::string line = "SDL_QueryTexture fail : Parameter 'texture' is invalid";
    EXPECT_EQ(log.lines(), (std::vector<std::string>{line, line}));
}

TEST_F(RotateSurfaceTest, IsNullWithoutANewTexture) {
    const auto surface = markedSurface(4, 2);
    SdlSpy spy;
    spy.failTextures = true;
    LogCapture log;
    EXPECT_EQ(RotateSurface(surface.get(), 90), nullptr);
    EXPECT_EQ(log.lines(), std::vector<std::string>{"SDL_CreateTexture fail : no texture for a test"});
}

TEST_F(RotateSurfaceTest, HasNoPixelsWithoutMemory) {
    const auto surface = markedSurface(4, 2);
    SdlSpy spy;
    spy.failSurface = [](const auto&) { return true; };
    const std::unique_ptr<OstrelSurface> turned(RotateSurface(surface.get(), 90));
    ASSERT_NE(turned, nullptr);
    EXPECT_EQ(inside(turned)->mSurface, nullptr);
}

// --- SaveSurface2BMP ------------------------------------------------------------------------------------------------

using SaveSurface = SurfacePixels;

TEST_F(SaveSurface, WritesThePixels) {
    SaveSurface2BMP(plainSurface(7, 5, {10, 20, 30, 255}).get(), device().path("saved.bmp").c_str());
    EXPECT_EQ(device().read("saved.bmp").substr(0, 2), "BM");
    const Picture saved = Picture::load(device().path("saved.bmp"));
    EXPECT_TRUE(picturesMatch(saved, Picture(7, 5, {10, 20, 30, 255})));
}

TEST_F(SaveSurface, WritesNothingWithoutPixels) {
    const std::unique_ptr<OstrelSurface> blank(CreateSurface(8, 8));
    SaveSurface2BMP(blank.get(), device().path("saved.bmp").c_str());
    SaveSurface2BMP(nullptr, device().path("saved.bmp").c_str());
    EXPECT_FALSE(device().exists("saved.bmp"));
}

TEST_F(SaveSurface, IsSilentWhenTheFileCannotBeWritten) {
    LogCapture log;
    SaveSurface2BMP(plainSurface(7, 5, kRed).get(), device().path("no/folder.bmp").c_str());
    SaveSurface2BMP(plainSurface(7, 5, kRed).get(), nullptr);
    EXPECT_EQ(log.text(), "");
}

// --- Surfaces of a host's own class ---------------------------------------------------------------------------------

class HostSurface : public OstrelSurface {
public:
    int setBlendMode(SDL_BlendMode) override { return 0; }
    int setAlpha(unsigned char) override { return 0; }
    int getBlendMode(SDL_BlendMode*) override { return 0; }
    int getAlpha(unsigned char*) override { return 0; }
    int render(SDL_Rect*, SDL_Rect*, bool, const char*) override { return 0; }
    int getWidth() override { return 3; }
    int getHeight() override { return 4; }
    void* getPixels(int*, int*, int*, int*) override { return nullptr; }
};

TEST_F(SurfacePixels, OfAHostsOwnClassCountAsNone) {
    HostSurface surface;
    SDL_Rect rect{0, 0, 2, 2};
    EXPECT_EQ(CropSurface(&surface, &rect), nullptr);
    EXPECT_EQ(RotateSurface(&surface, 90), nullptr);
    SaveSurface2BMP(&surface, device().path("saved.bmp").c_str());
    EXPECT_FALSE(device().exists("saved.bmp"));
}

TEST_F(SurfacePixels, ATargetOfAHostsOwnClassMayBeDeleted) {
    {
        HostSurface surface;
        SetRenderTarget(&surface);
        EXPECT_EQ(GetRenderTarget(), &surface);
    }
    EXPECT_EQ(GetRenderTarget(), nullptr);
}

// --- getScaledSizeKeepRatio -----------------------------------------------------------------------------------------

struct ScaledSize {
    int width, height, boxWidth, boxHeight, outWidth, outHeight;
};

class ScaledSizeTest : public ::testing::TestWithParam<ScaledSize> {};

TEST_P(ScaledSizeTest, FitsTheBox) {
    const ScaledSize& row = GetParam();
    int width = -1;
    int height = -1;
    getScaledSizeKeepRatio(row.width, row.height, row.boxWidth, row.boxHeight, width, height);
    EXPECT_EQ(width, row.outWidth);
    EXPECT_EQ(height, row.outHeight);
}

constexpr int kMax = 2147483647;

INSTANTIATE_TEST_SUITE_P(Sizes, ScaledSizeTest,
                         ::testing::Values(ScaledSize{400, 300, 200, 200, 200, 150},   // smaller, as wide as the box
                                           ScaledSize{300, 400, 200, 200, 150, 200},   // as high as the box
                                           ScaledSize{100, 50, 200, 200, 200, 100},    // larger
                                           ScaledSize{64, 64, 64, 64, 64, 64},         // as it is
                                           ScaledSize{640, 480, 1280, 720, 960, 720},  //
                                           ScaledSize{1280, 720, 640, 480, 640, 360},  //
                                           ScaledSize{1000, 1, 10, 10, 10, 0},         // flat: nothing is left
                                           ScaledSize{1, 1000, 10, 10, 0, 10},         //
                                           ScaledSize{3, 2, 10, 10, 10, 6},            // 2 / 0.3 = 6.67
                                           ScaledSize{7, 5, 100, 100, 100, 71},        // 5 / 0.07 = 71.43
                                           ScaledSize{0, 0, 10, 10, 0, 0},             // 0 / 0
                                           ScaledSize{0, 5, 10, 10, 0, 10},            //
                                           ScaledSize{5, 0, 10, 10, 10, 0},            //
                                           ScaledSize{5, 5, 0, 10, 0, 0},              // an infinite ratio
                                           ScaledSize{5, 5, 10, 0, 0, 0},              //
                                           ScaledSize{0, 0, 0, 0, 0, 0},               //
                                           ScaledSize{kMax, kMax, kMax, kMax, kMax, kMax}));

// A seventh in single precision is a little more than a seventh, so one divided by it is not quite seven.
TEST(ScaledSizeRounding, LosesAPixelAsSinglePrecisionDoes) {
    int width = 0;
    int height = 0;
    getScaledSizeKeepRatio(1, 1, 7, 7, width, height);
    EXPECT_EQ(width, 6);
    EXPECT_EQ(height, 6);
}

}  // namespace
