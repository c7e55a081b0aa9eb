#include "ostrel/surface.h"

#include <dlfcn.h>

#include <memory>
#include <string>

#include "ostrel/screen.h"
#include "support/abi.h"
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
using ostreltest::kGreen;
using ostreltest::kRed;
using ostreltest::LogCapture;
using ostreltest::offsetIn;
using ostreltest::Picture;
using ostreltest::picturesMatch;
using ostreltest::plainSurface;
using ostreltest::ScreenTest;
using ostreltest::SdlSpy;
using ostreltest::slotOf;
using ostreltest::slotOfObject;

class SurfaceTest : public ScreenTest {
protected:
    SurfaceTest() : ScreenTest(128, 96) {}
};

std::string functionAt(const void* object, int slot) {
    Dl_info info{};
    const bool known = dladdr(slotOfObject(object, slot), &info) != 0 && info.dli_sname != nullptr;
    return known ? info.dli_sname : "";
}

void expectBounds(const SDL_Rect& actual, int x, int y, int w, int h) {
    EXPECT_EQ(actual.x, x);
    EXPECT_EQ(actual.y, y);
    EXPECT_EQ(actual.w, w);
    EXPECT_EQ(actual.h, h);
}

// --- Binary interface -----------------------------------------------------------------------------------------------

TEST_F(SurfaceTest, OperationsHaveTheirSlots) {
    EXPECT_EQ(slotOf(&OstrelSurface::setBlendMode), 3);
    EXPECT_EQ(slotOf(&OstrelSurface::setAlpha), 4);
    EXPECT_EQ(slotOf(&OstrelSurface::getBlendMode), 5);
    EXPECT_EQ(slotOf(&OstrelSurface::getAlpha), 6);
    EXPECT_EQ(slotOf(&OstrelSurface::render), 7);
    EXPECT_EQ(slotOf(&OstrelSurface::getWidth), 8);
    EXPECT_EQ(slotOf(&OstrelSurface::getHeight), 9);
    EXPECT_EQ(slotOf(&OstrelSurface::getPixels), 10);
}

TEST_F(SurfaceTest, TheImplementationFillsTheSlots) {
    const SDL2OstrelSurface surface(nullptr, nullptr);
    EXPECT_THAT(functionAt(&surface, 1), ::testing::MatchesRegex("_ZN17SDL2OstrelSurfaceD[12]Ev"));  // one function
    EXPECT_EQ(functionAt(&surface, 2), "_ZN17SDL2OstrelSurfaceD0Ev");
    EXPECT_EQ(functionAt(&surface, 3), "_ZN17SDL2OstrelSurface12setBlendModeE13SDL_BlendMode");
    EXPECT_EQ(functionAt(&surface, 4), "_ZN17SDL2OstrelSurface8setAlphaEh");
    EXPECT_EQ(functionAt(&surface, 5), "_ZN17SDL2OstrelSurface12getBlendModeEP13SDL_BlendMode");
    EXPECT_EQ(functionAt(&surface, 6), "_ZN17SDL2OstrelSurface8getAlphaEPh");
    EXPECT_EQ(functionAt(&surface, 7), "_ZN17SDL2OstrelSurface6renderEP8SDL_RectS1_bPKc");
    EXPECT_EQ(functionAt(&surface, 8), "_ZN17SDL2OstrelSurface8getWidthEv");
    EXPECT_EQ(functionAt(&surface, 9), "_ZN17SDL2OstrelSurface9getHeightEv");
    EXPECT_EQ(functionAt(&surface, 10), "_ZN17SDL2OstrelSurface9getPixelsEPiS0_S0_S0_");
}

TEST_F(SurfaceTest, FieldsLieInTheirOrder) {
    const SDL2OstrelSurface surface(nullptr, nullptr);
    EXPECT_EQ(offsetIn(surface, surface.mTexture), 8);
    EXPECT_EQ(offsetIn(surface, surface.mSurface), 16);
    EXPECT_EQ(offsetIn(surface, surface.mWidth), 24);
    EXPECT_EQ(offsetIn(surface, surface.mHeight), 28);
    EXPECT_EQ(sizeof surface, 32U);
}

// --- The class ------------------------------------------------------------------------------------------------------

TEST_F(SurfaceTest, TakesItsSizeFromTheTexture) {
    SDL2OstrelSurface surface(SDL_CreateTexture(gRenderer, SDL_PIXELFORMAT_ABGR8888, SDL_TEXTUREACCESS_TARGET, 64, 32),
                              create_surface(5, 7));
    EXPECT_EQ(surface.getWidth(), 64);
    EXPECT_EQ(surface.getHeight(), 32);
    EXPECT_EQ(surface.mWidth, 64);
    EXPECT_EQ(surface.mHeight, 32);
    EXPECT_EQ(surface.mSurface->w, 5);
}

TEST_F(SurfaceTest, HasNoSizeWithoutATexture) {
    LogCapture log;
    SDL2OstrelSurface surface(nullptr, nullptr);
    EXPECT_EQ(surface.getWidth(), 0);
    EXPECT_EQ(surface.getHeight(), 0);
    EXPECT_EQ(log.text(), "");
}

TEST_F(SurfaceTest, FreesItsPixels) {
    SDL_Surface* pixels = create_surface(4, 4);
    pixels->refcount = 2;
    delete new SDL2OstrelSurface(nullptr, pixels);
    EXPECT_EQ(pixels->refcount, 1);
    SDL_FreeSurface(pixels);
}

TEST_F(SurfaceTest, DestroysItsTexture) {
    OstrelSurface* surface = CreateSurface(8, 8);
    const void* texture = static_cast<SDL2OstrelSurface*>(surface)->mTexture;
    SdlSpy spy;
    delete surface;
    EXPECT_EQ(spy.destroyed, std::vector<const void*>{texture});
}

TEST_F(SurfaceTest, IsDeletedThroughAVoidPointer) {
    SDL_Surface* pixels = create_surface(4, 4);
    pixels->refcount = 2;
    OstrelSurface* surface = new SDL2OstrelSurface(nullptr, pixels);
    deleteSurface(surface);
    EXPECT_EQ(pixels->refcount, 1);
    SDL_FreeSurface(pixels);
}

TEST_F(SurfaceTest, DeletesNoNull) { deleteSurface(nullptr); }

TEST_F(SurfaceTest, BlendModeIsTheTextures) {
    const std::unique_ptr<OstrelSurface> surface(CreateSurface(8, 8));
    EXPECT_EQ(surface->setBlendMode(SDL_BLENDMODE_ADD), 0);
    SDL_BlendMode mode = SDL_BLENDMODE_NONE;
    SDL_GetTextureBlendMode(inside(surface)->mTexture, &mode);
    EXPECT_EQ(mode, SDL_BLENDMODE_ADD);
    SDL_SetTextureBlendMode(inside(surface)->mTexture, SDL_BLENDMODE_MOD);
    EXPECT_EQ(surface->getBlendMode(&mode), 0);
    EXPECT_EQ(mode, SDL_BLENDMODE_MOD);
}

TEST_F(SurfaceTest, AlphaIsTheTextures) {
    const std::unique_ptr<OstrelSurface> surface(CreateSurface(8, 8));
    EXPECT_EQ(surface->setAlpha(77), 0);
    Uint8 alpha = 0;
    SDL_GetTextureAlphaMod(inside(surface)->mTexture, &alpha);
    EXPECT_EQ(alpha, 77);
    SDL_SetTextureAlphaMod(inside(surface)->mTexture, 99);
    EXPECT_EQ(surface->getAlpha(&alpha), 0);
    EXPECT_EQ(alpha, 99);
}

TEST_F(SurfaceTest, AnswersMinusOneWithoutATexture) {
    SDL2OstrelSurface surface(nullptr, nullptr);
    SDL_BlendMode mode = SDL_BLENDMODE_NONE;
    Uint8 alpha = 0;
    EXPECT_EQ(surface.setBlendMode(SDL_BLENDMODE_ADD), -1);
    EXPECT_EQ(surface.setAlpha(1), -1);
    EXPECT_EQ(surface.getBlendMode(&mode), -1);
    EXPECT_EQ(surface.getAlpha(&alpha), -1);
}

// --- Drawing --------------------------------------------------------------------------------------------------------

using SurfaceRender = SurfaceTest;

TEST_F(SurfaceRender, FillsTheTargetWithoutADestination) {
    const Canvas canvas(128, 96, kBlack);
    EXPECT_EQ(plainSurface(8, 8, kRed)->render(nullptr, nullptr, false, nullptr), 0);
    EXPECT_EQ(canvas.picture().count(kRed), 128 * 96);
}

TEST_F(SurfaceRender, FillsTheTargetWithoutADestinationWhateverKeepSizeSays) {
    const Canvas canvas(128, 96, kBlack);
    plainSurface(8, 8, kRed)->render(nullptr, nullptr, true, nullptr);
    EXPECT_EQ(canvas.picture().count(kRed), 128 * 96);
}

TEST_F(SurfaceRender, StretchesOverTheDestination) {
    const Canvas canvas(128, 96, kBlack);
    SDL_Rect place{10, 20, 30, 5};
    plainSurface(8, 8, kRed)->render(nullptr, &place, false, nullptr);
    expectBounds(canvas.picture().boundsOfAllBut(kBlack), 10, 20, 30, 5);
}

TEST_F(SurfaceRender, KeepsItsSizeWhenAsked) {
    const Canvas canvas(128, 96, kBlack);
    SDL_Rect place{10, 20, 1, 1};
    plainSurface(64, 32, kRed)->render(nullptr, &place, true, nullptr);
    expectBounds(canvas.picture().boundsOfAllBut(kBlack), 10, 20, 64, 32);
    expectBounds(place, 10, 20, 1, 1);
}

TEST_F(SurfaceRender, KeepsItsSizeInTheWindowToo) {
    ClearRect(nullptr, nullptr, 0, 0, 0, 255);
    SDL_Rect place{10, 20, 1, 1};
    EXPECT_EQ(plainSurface(64, 32, kRed)->render(nullptr, &place, true, nullptr), 0);
    expectBounds(Picture::ofWindow().boundsOfAllBut(kBlack), 10, 20, 64, 32);
}

TEST_F(SurfaceRender, DrawsThePartOfTheSource) {
    const std::unique_ptr<OstrelSurface> surface(CreateSurface(16, 16));
    SDL_Rect right{8, 0, 8, 16};
    ClearRect(surface.get(), nullptr, 255, 0, 0, 255);
    ClearRect(surface.get(), &right, 0, 255, 0, 255);
    const Canvas canvas(128, 96, kBlack);
    SDL_Rect place{4, 4, 8, 16};
    surface->render(&right, &place, false, nullptr);
    EXPECT_EQ(canvas.picture().count(kGreen), 8 * 16);
    EXPECT_EQ(canvas.picture().count(kRed), 0);
}

TEST_F(SurfaceRender, LeavesTheWindowAsTheRenderersTargetAfterATexture) {
    const Canvas canvas(128, 96, kBlack);
    const std::unique_ptr<OstrelSurface> other(CreateSurface(8, 8));
    SDL_SetRenderTarget(gRenderer, inside(other)->mTexture);
    plainSurface(8, 8, kRed)->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), nullptr);
}

TEST_F(SurfaceRender, LeavesTheRenderersTargetAloneWithoutATargetTexture) {
    const std::unique_ptr<OstrelSurface> other(CreateSurface(8, 8));
    SDL_SetRenderTarget(gRenderer, inside(other)->mTexture);
    plainSurface(8, 8, kRed)->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), inside(other)->mTexture);
    SDL_SetRenderTarget(gRenderer, nullptr);
    EXPECT_EQ(Picture::ofTexture(inside(other)->mTexture).count(kRed), 64);
}

TEST_F(SurfaceRender, DumpsTheTargetWithRedAndBlueSwapped) {
    const Canvas canvas(128, 96, kGreen);
    SDL_Rect place{10, 20, 1, 1};
    plainSurface(30, 40, kRed)->render(nullptr, &place, true, device().path("dump.bmp").c_str());
    const Picture dump = Picture::load(device().path("dump.bmp"));
    Picture expected(128, 96, kGreen);
    for (int y = 20; y < 60; ++y) {
        for (int x = 10; x < 40; ++x) expected.set(x, y, kBlue);
    }
    EXPECT_TRUE(picturesMatch(dump, expected));
}

TEST_F(SurfaceRender, DumpsTheCornerOfALargerTarget) {
    const Canvas canvas(300, 200, kGreen);
    SDL_Rect place{120, 0, 100, 10};
    plainSurface(8, 8, kRed)->render(nullptr, &place, false, device().path("dump.bmp").c_str());
    const Picture dump = Picture::load(device().path("dump.bmp"));
    ASSERT_EQ(dump.width(), 128);
    ASSERT_EQ(dump.height(), 96);
    EXPECT_EQ(dump.count(kBlue), 8 * 10);
    EXPECT_EQ(dump.count(kGreen), 128 * 96 - 8 * 10);
}

TEST_F(SurfaceRender, DumpsASmallerTargetInATransparentPicture) {
    const Canvas canvas(20, 10, kGreen);
    plainSurface(8, 8, kRed)->render(nullptr, nullptr, false, device().path("dump.bmp").c_str());
    const Picture dump = Picture::load(device().path("dump.bmp"));
    ASSERT_EQ(dump.width(), 128);
    EXPECT_EQ(dump.count(kBlue), 20 * 10);
    EXPECT_EQ(dump.count({0, 0, 0, 0}), 128 * 96 - 20 * 10);
}

TEST_F(SurfaceRender, DumpsNothingFromTheWindow) {
    EXPECT_EQ(plainSurface(8, 8, kRed)->render(nullptr, nullptr, false, device().path("dump.bmp").c_str()), 0);
    EXPECT_FALSE(device().exists("dump.bmp"));
}

TEST_F(SurfaceRender, DrawsAllTheSameWhenTheDumpCannotBeWritten) {
    const Canvas canvas(128, 96, kBlack);
    LogCapture log;
    EXPECT_EQ(plainSurface(8, 8, kRed)->render(nullptr, nullptr, false, device().path("no/folder.bmp").c_str()), 0);
    EXPECT_EQ(log.text(), "");
    EXPECT_EQ(canvas.picture().count(kRed), 128 * 96);
}

TEST_F(SurfaceRender, DumpsTheTargetAlsoAfterAFailedCopy) {
    const Canvas canvas(128, 96, kGreen);
    SDL2OstrelSurface empty(nullptr, nullptr);
    EXPECT_EQ(empty.render(nullptr, nullptr, false, device().path("dump.bmp").c_str()), -1);
    ASSERT_TRUE(device().exists("dump.bmp"));
    EXPECT_TRUE(picturesMatch(Picture::load(device().path("dump.bmp")), Picture(128, 96, kGreen)));
}

TEST_F(SurfaceRender, LogsAFailedCopyIntoATexture) {
    const Canvas canvas(128, 96, kBlack);
    SDL2OstrelSurface empty(nullptr, nullptr);
    LogCapture log;
    EXPECT_EQ(empty.render(nullptr, nullptr, false, nullptr), -1);
    EXPECT_EQ(log.lines(), std::vector<std::string>{"SDL_RenderCopy fail : Parameter 'texture' is invalid"});
}

TEST_F(SurfaceRender, IsSilentOnAFailedCopyIntoTheWindow) {
    SDL2OstrelSurface empty(nullptr, nullptr);
    LogCapture log;
    EXPECT_EQ(empty.render(nullptr, nullptr, false, nullptr), -1);
    EXPECT_EQ(log.text(), "");
}

// --- Making surfaces ------------------------------------------------------------------------------------------------

using SurfaceCreation = SurfaceTest;

TEST_F(SurfaceCreation, OfAPictureLeavesThePictureToTheCaller) {
    SDL_Surface* picture = create_surface(12, 6);
    SDL_FillRect(picture, nullptr, SDL_MapRGBA(picture->format, 255, 0, 0, 255));
    const std::unique_ptr<OstrelSurface> surface(CreateSurface(picture));
    SDL_FreeSurface(picture);
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(inside(surface)->mSurface, nullptr);
    EXPECT_EQ(surface->getWidth(), 12);
    EXPECT_EQ(surface->getHeight(), 6);
    const Canvas canvas(12, 6, kBlack);
    surface->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(canvas.picture().count(kRed), 72);
}

TEST_F(SurfaceCreation, OfAPictureFailsInSilence) {
    SDL_Surface* empty = create_surface(0, 0);
    LogCapture log;
    EXPECT_EQ(CreateSurface(empty), nullptr);
    EXPECT_EQ(CreateSurface(nullptr), nullptr);
    EXPECT_EQ(log.text(), "");
    SDL_FreeSurface(empty);
}

TEST_F(SurfaceCreation, OfASizeIsATargetOfAbgrPixels) {
    SdlSpy spy;
    const std::unique_ptr<OstrelSurface> surface(CreateSurface(64, 32));
    ASSERT_EQ(spy.textures.size(), 1U);
    EXPECT_EQ(spy.textures[0].format, 0x16762004U);
    EXPECT_EQ(spy.textures[0].access, 2);
    EXPECT_EQ(surface->getWidth(), 64);
    EXPECT_EQ(surface->getHeight(), 32);
    EXPECT_EQ(inside(surface)->mSurface, nullptr);
}

TEST_F(SurfaceCreation, OfNoSizeLogsTheReason) {
    LogCapture log;
    EXPECT_EQ(CreateSurface(0, 32), nullptr);
    EXPECT_EQ(CreateSurface(32, -1), nullptr);
    const std::string line = "Unable to create texture: Texture dimensions can't be 0";
    EXPECT_EQ(log.lines(), (std::vector<std::string>{line, line}));
}

TEST_F(SurfaceCreation, OfAHugeSizeLogsTheReason) {
    LogCapture log;
    EXPECT_EQ(CreateSurface(2147483647, 2147483647), nullptr);
    EXPECT_EQ(log.lines(), std::vector<std::string>{"Unable to create texture: Out of memory"});
}

TEST_F(SurfaceCreation, OfPixelsKeepsACopyOfThem) {
    std::vector<uint8_t> bytes{1, 2, 3, 255, 4, 5, 6, 255};
    const std::unique_ptr<OstrelSurface> surface(
        CreateFromPixels(bytes.data(), 2, 1, 32, 8, 0xFF, 0xFF00, 0xFF0000, 0xFF000000));
    bytes.assign(8, 0);
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(surface->getWidth(), 2);
    const Picture copy = Picture::ofSurface(inside(surface)->mSurface);
    EXPECT_EQ(copy.at(0, 0), (Colour{1, 2, 3, 255}));
    EXPECT_EQ(copy.at(1, 0), (Colour{4, 5, 6, 255}));
    EXPECT_EQ(inside(surface)->mSurface->format->Rmask, 0xFFU);
    const Canvas canvas(2, 1, kBlack);
    surface->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(canvas.picture().at(1, 0), (Colour{4, 5, 6, 255}));
}

TEST_F(SurfaceCreation, OfPixelsTakesThePitchOfTheRows) {
    const std::vector<uint16_t> rows{0xF800, 0x0000, 0x001F, 0x0000};  // 5-6-5, one pixel and one of padding in a row
    const std::unique_ptr<OstrelSurface> surface(
        CreateFromPixels(const_cast<uint16_t*>(rows.data()), 1, 2, 16, 4, 0xF800, 0x07E0, 0x001F, 0));
    ASSERT_NE(surface, nullptr);
    const Picture copy = Picture::ofSurface(inside(surface)->mSurface);
    EXPECT_EQ(copy.at(0, 0), kRed);
    EXPECT_EQ(copy.at(0, 1), kBlue);
    EXPECT_EQ(inside(surface)->mSurface->format->BytesPerPixel, 2);
}

TEST_F(SurfaceCreation, OfPixelsWritesARefusalToStandardError) {
    uint32_t pixel = 0;
    LogCapture log;
    LogCapture errors(LogCapture::Stream::Error);
    EXPECT_EQ(CreateFromPixels(&pixel, 1, 1, 13, 4, 1, 2, 4, 8), nullptr);
    EXPECT_EQ(errors.lines(), std::vector<std::string>{"SDL_CreateRGBSurfaceFrom failed: Unknown pixel format"});
    EXPECT_EQ(log.text(), "");
}

TEST_F(SurfaceCreation, OfPixelsRefusesNegativeSizesAndShortRows) {
    uint32_t pixel = 0;
    LogCapture errors(LogCapture::Stream::Error);
    EXPECT_EQ(CreateFromPixels(&pixel, -1, 1, 32, 4, 0xFF, 0xFF00, 0xFF0000, 0), nullptr);
    EXPECT_EQ(CreateFromPixels(&pixel, 1, -1, 32, 4, 0xFF, 0xFF00, 0xFF0000, 0), nullptr);
    EXPECT_EQ(CreateFromPixels(&pixel, 2, 1, 32, 4, 0xFF, 0xFF00, 0xFF0000, 0), nullptr);
    EXPECT_EQ(errors.lines(),
              (std::vector<std::string>{"SDL_CreateRGBSurfaceFrom failed: Parameter 'width' is invalid",
                                        "SDL_CreateRGBSurfaceFrom failed: Parameter 'height' is invalid",
                                        "SDL_CreateRGBSurfaceFrom failed: Parameter 'pitch' is invalid"}));
}

TEST_F(SurfaceCreation, OfPixelsIsNullWithoutATexture) {
    uint32_t pixel = 0;
    SdlSpy spy;
    spy.failTexturesFromSurfaces = true;
    LogCapture log;
    LogCapture errors(LogCapture::Stream::Error);
    EXPECT_EQ(CreateFromPixels(&pixel, 1, 1, 32, 4, 0xFF, 0xFF00, 0xFF0000, 0), nullptr);
    EXPECT_EQ(log.text() + errors.text(), "");
}

TEST_F(SurfaceCreation, OfNullPixelsIsNull) {
    LogCapture errors(LogCapture::Stream::Error);
    EXPECT_EQ(CreateFromPixels(nullptr, 1, 1, 32, 4, 0xFF, 0xFF00, 0xFF0000, 0), nullptr);
    EXPECT_EQ(errors.text(), "");
}

}  // namespace
