#include "ostrel/screen.h"

#include <cstdlib>
#include <memory>
#include <string>
#include <thread>

#include "ostrel/log.h"
#include "ostrel/surface.h"
#include "support/log_capture.h"
#include "support/picture.h"
#include "support/screen_test.h"
#include "support/sdl_spy.h"

namespace {

using ostreltest::Canvas;
using ostreltest::Colour;
using ostreltest::DeviceTest;
using ostreltest::kBlack;
using ostreltest::kBlue;
using ostreltest::kRed;
using ostreltest::LogCapture;
using ostreltest::Picture;
using ostreltest::picturesMatch;
using ostreltest::plainSurface;
using ostreltest::ScreenTest;
using ostreltest::SdlSpy;

std::string addressText(const void* address) {
    char text[32];
    std::snprintf(text, sizeof text, "%p", address);
    return text;
}

// A colour of its own for every pixel of a screen.
Colour screenMark(int x, int y) {
    return {static_cast<uint8_t>(x), static_cast<uint8_t>(y), static_cast<uint8_t>((x >> 8) * 16 + (y >> 8) + 1), 255};
}

std::unique_ptr<OstrelSurface> surfaceOfScreenMarks(int width, int height) {
    std::vector<uint8_t> bytes;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const Colour colour = screenMark(x, y);
            bytes.insert(bytes.end(), {colour.r, colour.g, colour.b, colour.a});
        }
    }
    return std::unique_ptr<OstrelSurface>(
        CreateFromPixels(bytes.data(), width, height, 32, width * 4, 0xFF, 0xFF00, 0xFF0000, 0xFF000000));
}

void expectSize(SDL_Window* window, int width, int height) {
    int actualWidth = 0;
    int actualHeight = 0;
    SDL_GetWindowSize(window, &actualWidth, &actualHeight);
    EXPECT_EQ(actualWidth, width);
    EXPECT_EQ(actualHeight, height);
}

// --- Starting -------------------------------------------------------------------------------------------------------

class ScreenStart : public DeviceTest {
protected:
    ~ScreenStart() override { ScreenUninit(); }
};

TEST_F(ScreenStart, LogsItsArgumentsAndWhatItMade) {
    LogCapture log;
    ScreenInit(640, 480, 24, 0);
    const std::vector<std::string> expected{
        "ScreenInit 640x480 24, rotate=0",
        "window=" + addressText(SDL_RenderGetWindow(gRenderer)) + ", renderer=" + addressText(gRenderer)};
    EXPECT_EQ(log.lines(), expected);
}

TEST_F(ScreenStart, LogsTheRotationAsGiven) {
    LogCapture log;
    ScreenInit(640, 480, 32, -7);
    EXPECT_EQ(log.lines().at(0), "ScreenInit 640x480 32, rotate=-7");
}

TEST_F(ScreenStart, ReturnsOneWithWindowAndRenderer) { EXPECT_EQ(ScreenInit(640, 480, 32, 0), 1); }

TEST_F(ScreenStart, OpensAWindowOfTheGivenSize) {
    SdlSpy spy;
    ScreenInit(640, 480, 32, 0);
    ASSERT_EQ(spy.windows.size(), 1U);
    EXPECT_EQ(spy.windows[0].title, "Main");
    EXPECT_EQ(spy.windows[0].x, 0x1FFF0000);
    EXPECT_EQ(spy.windows[0].y, 0x1FFF0000);
    EXPECT_EQ(spy.windows[0].width, 640);
    EXPECT_EQ(spy.windows[0].height, 480);
    EXPECT_EQ(spy.windows[0].flags, 4U);
    expectSize(spy.windows[0].window, 640, 480);
}

TEST_F(ScreenStart, AsksForAnAcceleratedRendererInStepWithTheDisplay) {
    SdlSpy spy;
    ScreenInit(640, 480, 32, 0);
    ASSERT_EQ(spy.renderers.size(), 1U);
    EXPECT_EQ(spy.renderers[0].window, spy.windows[0].window);
    EXPECT_EQ(spy.renderers[0].index, -1);
    EXPECT_EQ(spy.renderers[0].flags, 6U);
}

TEST_F(ScreenStart, MakesNoTextureWithoutRotation) {
    SdlSpy spy;
    ScreenInit(640, 480, 32, 0);
    EXPECT_TRUE(spy.textures.empty());
}

TEST_F(ScreenStart, OpensAWindowWithSwappedSidesForATurnedPanel) {
    SdlSpy spy;
    ScreenInit(640, 480, 32, 1);
    ASSERT_EQ(spy.windows.size(), 1U);
    EXPECT_EQ(spy.windows[0].title, "Main");
    EXPECT_EQ(spy.windows[0].x, 0x1FFF0000);
    EXPECT_EQ(spy.windows[0].y, 0x1FFF0000);
    EXPECT_EQ(spy.windows[0].flags, 4U);
    expectSize(spy.windows[0].window, 480, 640);
    ASSERT_EQ(spy.renderers.size(), 1U);
    EXPECT_EQ(spy.renderers[0].index, -1);
    EXPECT_EQ(spy.renderers[0].flags, 6U);
}

TEST_F(ScreenStart, MakesATextureOfTheLogicalSizeForATurnedPanel) {
    SdlSpy spy;
    ScreenInit(640, 480, 32, 1);
    ASSERT_EQ(spy.textures.size(), 1U);
    EXPECT_EQ(spy.textures[0].width, 640);
    EXPECT_EQ(spy.textures[0].height, 480);
    EXPECT_EQ(spy.textures[0].format, 0x16762004U);
    EXPECT_EQ(spy.textures[0].access, 2);
}

TEST_F(ScreenStart, AsksForLinearFiltering) {
    SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "0");
    ScreenInit(640, 480, 32, 0);
    EXPECT_STREQ(SDL_GetHint(SDL_HINT_RENDER_SCALE_QUALITY), "1");
}

TEST_F(ScreenStart, WarnsWithoutALineFeedWhenFilteringIsRefused) {
    SDL_ResetHint(SDL_HINT_RENDER_SCALE_QUALITY);
    setenv("SDL_RENDER_SCALE_QUALITY", "0", 1);
    LogCapture log;
    EXPECT_EQ(ScreenInit(640, 480, 32, 0), 1);
    unsetenv("SDL_RENDER_SCALE_QUALITY");
    EXPECT_EQ(log.lines().at(1).find("[Warning]: Linear texture filtering not enabled!window=0x"), 0U);
}

TEST_F(ScreenStart, WarnsOnStandardOutputInSyslogModeToo) {
    SDL_ResetHint(SDL_HINT_RENDER_SCALE_QUALITY);
    setenv("SDL_RENDER_SCALE_QUALITY", "0", 1);
    LogCapture log;
    initLogger(1);
    ScreenInit(640, 480, 32, 0);
    initLogger(0);
    unsetenv("SDL_RENDER_SCALE_QUALITY");
    EXPECT_EQ(log.text(), "[Warning]: Linear texture filtering not enabled!");
}

TEST_F(ScreenStart, TurnedPictureIsFilteredFromTheFirstFrame) {
    SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "0");
    SdlSpy spy;
    ScreenInit(640, 480, 32, 1);
    ASSERT_EQ(spy.textures.size(), 1U);
    SDL_ScaleMode mode = SDL_ScaleModeNearest;
    SDL_GetTextureScaleMode(spy.textures[0].texture, &mode);
    EXPECT_EQ(mode, SDL_ScaleModeLinear);
}

TEST_F(ScreenStart, ReturnsZeroWithoutAWindow) {
    SdlSpy spy;
    spy.failWindows = true;
    LogCapture log;
    EXPECT_EQ(ScreenInit(640, 480, 32, 0), 0);
    EXPECT_EQ(log.lines(),
              (std::vector<std::string>{"ScreenInit 640x480 32, rotate=0", "window=(nil), renderer=(nil)"}));
}

TEST_F(ScreenStart, ReturnsZeroWithoutARenderer) {
    SdlSpy spy;
    spy.failRenderers = true;
    LogCapture log;
    EXPECT_EQ(ScreenInit(640, 480, 32, 1), 0);
    EXPECT_EQ(log.lines().at(1), "window=" + addressText(spy.windows[0].window) + ", renderer=(nil)");
    EXPECT_EQ(log.lines().size(), 2U);
}

TEST_F(ScreenStart, SucceedsWithoutTheTextureOfATurnedPanel) {
    SdlSpy spy;
    spy.failTextures = true;
    LogCapture log;
    EXPECT_EQ(ScreenInit(640, 480, 32, 1), 1);
    EXPECT_EQ(log.lines().size(), 2U);
    EXPECT_EQ(ScreenUpdateAndFlip(), 0);
}

// --- The target of drawing ------------------------------------------------------------------------------------------

class ScreenTarget : public ScreenTest {
protected:
    ScreenTarget() : ScreenTest(64, 48) {}
};

TEST_F(ScreenTarget, IsTheScreenAtFirst) { EXPECT_EQ(GetRenderTarget(), nullptr); }

TEST_F(ScreenTarget, IsWhatWasSet) {
    const std::unique_ptr<OstrelSurface> surface(CreateSurface(8, 8));
    EXPECT_EQ(SetRenderTarget(surface.get()), 0);
    EXPECT_EQ(GetRenderTarget(), surface.get());
    EXPECT_EQ(SetRenderTarget(nullptr), 0);
    EXPECT_EQ(GetRenderTarget(), nullptr);
}

TEST_F(ScreenTarget, LeavesTheRenderersOwnTargetAlone) {
    const std::unique_ptr<OstrelSurface> surface(CreateSurface(8, 8));
    SetRenderTarget(surface.get());
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), nullptr);
}

TEST_F(ScreenTarget, TakesTheDrawing) {
    const Canvas canvas(64, 48, kBlack);
    plainSurface(64, 48, kRed)->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(canvas.picture().count(kRed), 64 * 48);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 0);
}

TEST_F(ScreenTarget, IsTheWindowForNull) {
    SetRenderTarget(nullptr);
    plainSurface(64, 48, kRed)->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 64 * 48);
}

TEST_F(ScreenTarget, IsTheWindowForASurfaceWithoutATexture) {
    SDL2OstrelSurface empty(nullptr, nullptr);
    SetRenderTarget(&empty);
    EXPECT_EQ(GetRenderTarget(), &empty);
    plainSurface(64, 48, kRed)->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 64 * 48);
}

TEST_F(ScreenTarget, GoesBackToTheScreenWhenTheSurfaceIsDeleted) {
    OstrelSurface* surface = CreateSurface(8, 8);
    SetRenderTarget(surface);
    delete surface;
    EXPECT_EQ(GetRenderTarget(), nullptr);
    plainSurface(64, 48, kRed)->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 64 * 48);
}

TEST_F(ScreenTarget, StaysWhenAnotherSurfaceIsDeleted) {
    const std::unique_ptr<OstrelSurface> target(CreateSurface(8, 8));
    SetRenderTarget(target.get());
    delete CreateSurface(8, 8);
    EXPECT_EQ(GetRenderTarget(), target.get());
}

#ifndef NDEBUG
TEST_F(ScreenTarget, IsForTheThreadThatStartedTheScreenAlone) {
    EXPECT_DEATH(std::thread([] { FillRect(nullptr, nullptr, 1, 2, 3, 4); }).join(), "isUiThread");
}
#endif

class TurnedScreenTarget : public ScreenTest {
protected:
    TurnedScreenTarget() : ScreenTest(64, 48, 1) {}
};

TEST_F(TurnedScreenTarget, IsTheOffScreenTextureFromTheStart) {
    FillRect(nullptr, nullptr, 255, 0, 0, 255);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 0);
    ScreenUpdateAndFlip();
    EXPECT_GT(Picture::ofWindow().count(kRed), 0);
}

TEST_F(TurnedScreenTarget, IsTheOffScreenTextureForNull) {
    const std::unique_ptr<OstrelSurface> surface(CreateSurface(8, 8));
    SetRenderTarget(surface.get());
    EXPECT_EQ(GetRenderTarget(), surface.get());
    SetRenderTarget(nullptr);
    EXPECT_EQ(GetRenderTarget(), nullptr);
    FillRect(nullptr, nullptr, 255, 0, 0, 255);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 0);
    ScreenUpdateAndFlip();
    EXPECT_GT(Picture::ofWindow().count(kRed), 0);
}

// --- Presenting -----------------------------------------------------------------------------------------------------

class ScreenFlip : public DeviceTest {
protected:
    ~ScreenFlip() override { ScreenUninit(); }
};

TEST_F(ScreenFlip, ReturnsZero) {
    ScreenInit(64, 48, 32, 0);
    EXPECT_EQ(ScreenUpdateAndFlip(), 0);
}

TEST_F(ScreenFlip, PresentsOnce) {
    ScreenInit(64, 48, 32, 0);
    SdlSpy spy;
    ScreenUpdateAndFlip();
    EXPECT_EQ(spy.presents, 1);
}

TEST_F(ScreenFlip, PresentsATurnedPictureOnce) {
    ScreenInit(64, 48, 32, 1);
    SdlSpy spy;
    ScreenUpdateAndFlip();
    EXPECT_EQ(spy.presents, 1);
}

TEST_F(ScreenFlip, PresentsWhatWasTurnedBefore) {
    ScreenInit(64, 48, 32, 1);
    FillRect(nullptr, nullptr, 255, 0, 0, 255);
    SdlSpy spy;
    int redWhenPresented = -1;
    spy.onPresent = [&redWhenPresented] { redWhenPresented = Picture::ofWindow().count(kRed); };
    ScreenUpdateAndFlip();
    EXPECT_EQ(redWhenPresented, 47 * 64);  // all of the window but the column that the turn leaves free
}

TEST_F(ScreenFlip, KeepsTheFrameAsItWas) {
    ScreenInit(64, 48, 32, 0);
    FillRect(nullptr, nullptr, 255, 0, 0, 255);
    ScreenUpdateAndFlip();
    EXPECT_EQ(Picture::ofWindow().count(kRed), 64 * 48);
}

// The destination (-81, 80, 640, 480), turned clockwise by 270 degrees about its centre (239, 320): the logical pixel
// (u, v) comes to (v - 1, 639 - u).
TEST_F(ScreenFlip, TurnsThePictureOnePixelToTheLeft) {
    ScreenInit(640, 480, 32, 1);
    surfaceOfScreenMarks(640, 480)->render(nullptr, nullptr, false, nullptr);
    ScreenUpdateAndFlip();
    Picture expected(480, 640, kBlack);
    for (int v = 1; v < 480; ++v) {
        for (int u = 0; u < 640; ++u) expected.set(v - 1, 639 - u, screenMark(u, v));
    }
    EXPECT_TRUE(picturesMatch(Picture::ofWindow(), expected));
}

// (1280 - 720) / 2 and (720 - 1280) / 2 are 280 and -280: centre (359, 640).
TEST_F(ScreenFlip, TurnsTheConsolesOwnSize) {
    ScreenInit(1280, 720, 32, 1);
    surfaceOfScreenMarks(1280, 720)->render(nullptr, nullptr, false, nullptr);
    ScreenUpdateAndFlip();
    const Picture window = Picture::ofWindow();
    ASSERT_EQ(window.width(), 720);
    ASSERT_EQ(window.height(), 1280);
    EXPECT_EQ(window.at(0, 1279), screenMark(0, 1));
    EXPECT_EQ(window.at(0, 0), screenMark(1279, 1));
    EXPECT_EQ(window.at(718, 1279), screenMark(0, 719));
    EXPECT_EQ(window.at(718, 0), screenMark(1279, 719));
    EXPECT_EQ(window.at(358, 639), screenMark(640, 359));
    EXPECT_EQ(window.at(719, 640), kBlack);
}

// (48 - 65) / 2 is -8 and not -9, so that the destination is (-9, 8, 65, 48).
TEST_F(ScreenFlip, TurnsAPictureWhoseSidesDifferByAnOddNumber) {
    ScreenInit(65, 48, 32, 1);
    surfaceOfScreenMarks(65, 48)->render(nullptr, nullptr, false, nullptr);
    ScreenUpdateAndFlip();
    const Picture window = Picture::ofWindow();
    EXPECT_EQ(window.at(0, 0), screenMark(63, 1));
    EXPECT_EQ(window.at(40, 56), screenMark(7, 41));
    EXPECT_EQ(window.at(46, 63), screenMark(0, 47));
}

TEST_F(ScreenFlip, TurnsThePictureOntoTheRenderersTarget) {
    ScreenInit(64, 48, 32, 1);
    ClearRect(nullptr, nullptr, 255, 0, 0, 255);
    SDL_Texture* target = SDL_CreateTexture(gRenderer, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_TARGET, 48, 64);
    SDL_SetRenderTarget(gRenderer, target);
    ScreenUpdateAndFlip();
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), target);
    Uint32 pixel = 0;
    const SDL_Rect middle{24, 32, 1, 1};
    SDL_RenderReadPixels(gRenderer, &middle, SDL_PIXELFORMAT_ARGB8888, &pixel, sizeof pixel);
    EXPECT_EQ(pixel, 0xFFFF0000U);
    SDL_SetRenderTarget(gRenderer, nullptr);
    SDL_DestroyTexture(target);
}

TEST_F(ScreenFlip, TurnsOnceForAnyRotation) {
    ScreenInit(64, 48, 32, 3);
    SDL_Rect corner{0, 40, 8, 8};
    ClearRect(nullptr, nullptr, 0, 0, 255, 255);
    ClearRect(nullptr, &corner, 255, 0, 0, 255);
    ScreenUpdateAndFlip();
    const Picture window = Picture::ofWindow();
    EXPECT_EQ(window.at(46, 63), kRed);
    EXPECT_EQ(window.at(46, 0), kBlue);
    EXPECT_EQ(window.at(0, 63), kBlue);
}

// --- Software surfaces ----------------------------------------------------------------------------------------------

class SoftwareSurface : public DeviceTest {};

TEST_F(SoftwareSurface, IsArgb) {
    SDL_Surface* surface = create_surface(5, 3);
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(surface->w, 5);
    EXPECT_EQ(surface->h, 3);
    EXPECT_EQ(surface->format->BitsPerPixel, 32);
    EXPECT_EQ(surface->format->Rmask, 0x00FF0000U);
    EXPECT_EQ(surface->format->Gmask, 0x0000FF00U);
    EXPECT_EQ(surface->format->Bmask, 0x000000FFU);
    EXPECT_EQ(surface->format->Amask, 0xFF000000U);
    SDL_FreeSurface(surface);
}

TEST_F(SoftwareSurface, MayBeEmpty) {
    SDL_Surface* surface = create_surface(0, 0);
    EXPECT_NE(surface, nullptr);
    SDL_FreeSurface(surface);
}

TEST_F(SoftwareSurface, IsNullForASizeThatCannotBe) {
    LogCapture log;
    EXPECT_EQ(create_surface(-1, 3), nullptr);
    EXPECT_EQ(create_surface(3, -1), nullptr);
    EXPECT_EQ(create_surface(100000, 100000), nullptr);
    EXPECT_EQ(create_surface(2147483647, 2147483647), nullptr);
    EXPECT_EQ(log.text(), "");
}

// --- Snapshots ------------------------------------------------------------------------------------------------------

class Snapshot : public DeviceTest {
protected:
    ~Snapshot() override { ScreenUninit(); }

    static std::unique_ptr<SDL2OstrelSurface> take() {
        return std::unique_ptr<SDL2OstrelSurface>(static_cast<SDL2OstrelSurface*>(ScreenSnapshot()));
    }
};

TEST_F(Snapshot, ShowsTheWindowWithRedInItsPlace) {
    ScreenInit(64, 48, 32, 0);
    SDL_Rect left{0, 0, 20, 48};
    ClearRect(nullptr, nullptr, 0, 0, 255, 255);
    ClearRect(nullptr, &left, 255, 0, 0, 255);
    const auto snapshot = take();
    Picture expected(64, 48, kBlue);
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 20; ++x) expected.set(x, y, kRed);
    }
    EXPECT_TRUE(picturesMatch(Picture::ofSurface(snapshot->mSurface), expected));
    const Canvas canvas(64, 48, kBlack);
    snapshot->render(nullptr, nullptr, false, nullptr);
    EXPECT_TRUE(picturesMatch(canvas.picture(), expected));
}

TEST_F(Snapshot, KeepsItsPixelsAsTheyAreRead) {
    ScreenInit(64, 48, 32, 0);
    SdlSpy spy;
    const auto snapshot = take();
    ASSERT_EQ(spy.surfaces.size(), 1U);
    EXPECT_EQ(spy.surfaces[0].width, 64);
    EXPECT_EQ(spy.surfaces[0].height, 48);
    EXPECT_EQ(spy.surfaces[0].depth, 32);
    EXPECT_EQ(spy.surfaces[0].redMask, 0x000000FFU);
    EXPECT_EQ(spy.surfaces[0].greenMask, 0x0000FF00U);
    EXPECT_EQ(spy.surfaces[0].blueMask, 0x00FF0000U);
    EXPECT_EQ(spy.surfaces[0].alphaMask, 0xFF000000U);
    EXPECT_EQ(spy.texturedSurfaces, std::vector<SDL_Surface*>{snapshot->mSurface});
    EXPECT_EQ(snapshot->getWidth(), 64);
    EXPECT_EQ(snapshot->getHeight(), 48);
}

TEST_F(Snapshot, HasTheWindowsSizeOnATurnedPanel) {
    ScreenInit(64, 48, 32, 1);
    const auto snapshot = take();
    EXPECT_EQ(snapshot->getWidth(), 48);
    EXPECT_EQ(snapshot->getHeight(), 64);
}

TEST_F(Snapshot, ReadsWhateverTheRendererDrawsInto) {
    ScreenInit(64, 48, 32, 0);
    const Canvas canvas(64, 48, kRed);
    SDL_SetRenderTarget(gRenderer, static_cast<SDL2OstrelSurface*>(canvas.surface())->mTexture);
    EXPECT_EQ(Picture::ofSurface(take()->mSurface).count(kRed), 64 * 48);
    SDL_SetRenderTarget(gRenderer, nullptr);
}

TEST_F(Snapshot, TakesTheCornerOfALargerTarget) {
    ScreenInit(64, 48, 32, 0);
    const Canvas canvas(100, 90, kBlue);
    surfaceOfScreenMarks(100, 90)->render(nullptr, nullptr, false, nullptr);
    SDL_SetRenderTarget(gRenderer, static_cast<SDL2OstrelSurface*>(canvas.surface())->mTexture);
    const auto snapshot = take();
    SDL_SetRenderTarget(gRenderer, nullptr);
    Picture expected(64, 48);
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 64; ++x) expected.set(x, y, screenMark(x, y));
    }
    EXPECT_TRUE(picturesMatch(Picture::ofSurface(snapshot->mSurface), expected));
}

TEST_F(Snapshot, IsTransparentWhereTheTargetIsSmaller) {
    ScreenInit(64, 48, 32, 0);
    const Canvas canvas(10, 90, kRed);
    SDL_SetRenderTarget(gRenderer, static_cast<SDL2OstrelSurface*>(canvas.surface())->mTexture);
    const Picture picture = Picture::ofSurface(take()->mSurface);
    SDL_SetRenderTarget(gRenderer, nullptr);
    EXPECT_EQ(picture.count(kRed), 10 * 48);
    EXPECT_EQ(picture.count({0, 0, 0, 0}), 54 * 48);
}

TEST_F(Snapshot, WithoutMemoryIsASurfaceThatDrawsNothing) {
    ScreenInit(64, 48, 32, 0);
    SdlSpy spy;
    spy.failSurface = [](const auto&) { return true; };
    LogCapture log;
    const auto snapshot = take();
    ASSERT_NE(snapshot, nullptr);
    EXPECT_EQ(snapshot->mTexture, nullptr);
    EXPECT_EQ(snapshot->mSurface, nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(Snapshot, IsNullWithoutAScreen) { EXPECT_EQ(ScreenSnapshot(), nullptr); }

// --- The frame buffer -----------------------------------------------------------------------------------------------

class FrameBuffer : public DeviceTest {};

TEST_F(FrameBuffer, LogsItsFailureOnEveryFlip) {
    LogCapture log;
    lcd_fb_flip();
    lcd_fb_flip();
    EXPECT_EQ(log.lines(), (std::vector<std::string>{"FBIOPAN_DISPLAY fail", "FBIOPAN_DISPLAY fail"}));
}

TEST_F(FrameBuffer, WaitsForNothing) {
    LogCapture log;
    lcd_fb_wait_for_vsync();
    EXPECT_EQ(log.text(), "");
}

}  // namespace
