// Start-up and shut-down in every order. AddressSanitizer does not see into SDL, valgrind does: scripts/valgrind.sh.
#include <memory>

#include "ostrel/lru_cache.h"
#include "ostrel/screen.h"
#include "ostrel/skin.h"
#include "ostrel/surface.h"
#include "ostrel/text.h"
#include "support/log_capture.h"
#include "support/picture.h"
#include "support/screen_test.h"
#include "support/sdl_spy.h"

namespace {

using ostreltest::DeviceTest;
using ostreltest::kRed;
using ostreltest::LogCapture;
using ostreltest::Picture;
using ostreltest::plainSurface;
using ostreltest::SdlSpy;

class ScreenLifecycle : public DeviceTest {
protected:
    ~ScreenLifecycle() override { ScreenUninit(); }
};

// What a host may still call when there is no screen: nothing happens.
void expectNothingIsDrawn(OstrelSurface& survivor) {
    LogCapture log;
    SDL_Rect place{0, 0, 4, 4};
    EXPECT_EQ(FillRect(nullptr, &place, 1, 2, 3, 4), -1);
    EXPECT_EQ(ClearRect(&survivor, &place, 1, 2, 3, 4), -1);
    EXPECT_EQ(survivor.render(nullptr, &place, true, "dump.bmp"), -1);
    EXPECT_EQ(ScreenUpdateAndFlip(), 0);
    EXPECT_EQ(ScreenSnapshot(), nullptr);
    EXPECT_EQ(log.text(), "");
}

TEST_F(ScreenLifecycle, SurfacesMayOutliveTheScreen) {
    ScreenInit(64, 48, 32, 0);
    const std::unique_ptr<OstrelSurface> blank(CreateSurface(8, 8));
    const std::unique_ptr<OstrelSurface> filled = plainSurface(8, 8, kRed);
    const std::unique_ptr<OstrelSurface> snapshot(ScreenSnapshot());
    SetRenderTarget(blank.get());
    EXPECT_EQ(ScreenUninit(), 0);
    const auto* kept = static_cast<SDL2OstrelSurface*>(filled.get());
    EXPECT_EQ(kept->mTexture, nullptr);
    EXPECT_EQ(Picture::ofSurface(kept->mSurface).count(kRed), 64);
    EXPECT_EQ(filled->getWidth(), 8);
}

TEST_F(ScreenLifecycle, NothingIsDrawnAfterTheEnd) {
    ScreenInit(64, 48, 32, 1);
    const auto survivor = plainSurface(8, 8, kRed);
    ScreenUninit();
    expectNothingIsDrawn(*survivor);
    EXPECT_EQ(CreateSurface(8, 8), nullptr);
}

TEST_F(ScreenLifecycle, AHostsOwnWindowIsNotTakenForTheScreen) {
    ScreenInit(64, 48, 32, 0);
    ScreenUninit();
    SDL_Quit();
    SDL_Window* window = SDL_CreateWindow("host", 0, 0, 64, 48, 0);  // SDL counts its windows from 1 again
    EXPECT_EQ(FillRect(nullptr, nullptr, 1, 2, 3, 4), -1);
    SDL_DestroyWindow(window);
}

TEST_F(ScreenLifecycle, AFailedStartIsEndedToo) {
    Uint32 window = 0;
    {
        SdlSpy spy;
        spy.failRenderers = true;
        EXPECT_EQ(ScreenInit(64, 48, 32, 1), 0);
        window = SDL_GetWindowID(spy.windows.at(0).window);
    }
    ASSERT_NE(SDL_GetWindowFromID(window), nullptr);
    FillRect(nullptr, nullptr, 1, 2, 3, 4);
    ScreenUpdateAndFlip();
    ScreenUninit();
    EXPECT_EQ(SDL_GetWindowFromID(window), nullptr);
}

TEST_F(ScreenLifecycle, AnUprightScreenMayFollowATurnedOne) {
    ScreenInit(64, 48, 32, 1);
    FillRect(nullptr, nullptr, 1, 2, 3, 255);
    const std::unique_ptr<OstrelSurface> target(CreateSurface(8, 8));
    SetRenderTarget(target.get());
    ScreenUninit();
    ScreenInit(64, 48, 32, 0);
    EXPECT_EQ(GetRenderTarget(), nullptr);
    plainSurface(64, 48, kRed)->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 64 * 48);
    EXPECT_EQ(target->render(nullptr, nullptr, false, nullptr), -1);
}

TEST_F(ScreenLifecycle, AStartWithoutAnEndLetsTheFirstScreenGo) {
    ScreenInit(64, 48, 32, 0);
    const Uint32 first = SDL_GetWindowID(SDL_RenderGetWindow(gRenderer));
    const auto survivor = plainSurface(8, 8, kRed);
    EXPECT_EQ(ScreenInit(32, 24, 32, 0), 1);
    EXPECT_EQ(SDL_GetWindowFromID(first), nullptr);
    EXPECT_EQ(static_cast<SDL2OstrelSurface*>(survivor.get())->mTexture, nullptr);
}

TEST_F(ScreenLifecycle, CachesOfTextAndIconsAreEmptied) {
    ScreenInit(64, 48, 32, 0);
    gTextSurfaceCache.put("text", CreateSurface(8, 8));
    gIconCache.put("icon", CreateSurface(8, 8));
    ScreenUninit();
    EXPECT_EQ(gTextSurfaceCache.get("text"), nullptr);
    EXPECT_EQ(gIconCache.get("icon"), nullptr);
}

TEST_F(ScreenLifecycle, AHostMayEndSdlItself) {
    static SDL_Renderer* sAbandoned = nullptr;  // SDL_Quit forgets the renderer; its memory stays
    ScreenInit(64, 48, 32, 0);
    sAbandoned = gRenderer;
    const auto survivor = plainSurface(8, 8, kRed);
    SDL_Quit();
    expectNothingIsDrawn(*survivor);
    EXPECT_EQ(ScreenUninit(), 0);
    EXPECT_EQ(ScreenInit(64, 48, 32, 0), 1);
    plainSurface(64, 48, kRed)->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 64 * 48);
    EXPECT_NE(sAbandoned, nullptr);
}

// --- The end, where no memory checker is needed ---------------------------------------------------------------------

class ScreenEnd : public DeviceTest {
protected:
    ~ScreenEnd() override { ScreenUninit(); }
};

TEST_F(ScreenEnd, ComesOnceInTheOrderTextureRendererWindow) {
    SdlSpy spy;
    ScreenInit(64, 48, 32, 1);
    const std::vector<const void*> expected{spy.textures.at(0).texture, gRenderer, spy.windows.at(0).window};
    EXPECT_EQ(ScreenUninit(), 0);
    EXPECT_EQ(ScreenUninit(), 0);
    EXPECT_EQ(spy.destroyed, expected);
}

TEST_F(ScreenEnd, OfAnUprightScreenDestroysNoTexture) {
    SdlSpy spy;
    ScreenInit(64, 48, 32, 0);
    const std::vector<const void*> expected{gRenderer, spy.windows.at(0).window};
    ScreenUninit();
    EXPECT_EQ(spy.destroyed, expected);
}

TEST_F(ScreenEnd, DoesNotResetTheRenderersName) {
    ScreenInit(64, 48, 32, 0);
    const SDL_Renderer* renderer = gRenderer;
    ScreenUninit();
    EXPECT_EQ(gRenderer, renderer);
}

TEST_F(ScreenEnd, WithoutAStartLeavesNothingToDrawOn) {
    SDL2OstrelSurface empty(nullptr, nullptr);
    expectNothingIsDrawn(empty);
}

}  // namespace
