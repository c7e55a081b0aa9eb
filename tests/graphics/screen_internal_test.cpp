#include "graphics/screen_internal.h"

#include <memory>

#include "ostrel/lru_cache.h"
#include "ostrel/screen.h"
#include "ostrel/surface.h"
#include "support/picture.h"
#include "support/screen_test.h"

namespace {

using ostrel::liveRenderer;
using ostreltest::Canvas;
using ostreltest::DeviceTest;
using ostreltest::kBlue;
using ostreltest::kRed;
using ostreltest::Picture;
using ostreltest::plainSurface;
using ostreltest::ScreenTest;

class ScreenInside : public ScreenTest {
protected:
    ScreenInside() : ScreenTest(64, 48) {}
};

TEST_F(ScreenInside, KnowsTheWindowsSize) {
    EXPECT_EQ(ostrel::windowSize().x, 64);
    EXPECT_EQ(ostrel::windowSize().y, 48);
}

TEST_F(ScreenInside, TargetTextureIsNullForTheWindow) { EXPECT_EQ(ostrel::targetTexture(), nullptr); }

TEST_F(ScreenInside, TargetTextureIsTheSurfaces) {
    const Canvas canvas(8, 8);
    EXPECT_EQ(ostrel::targetTexture(), static_cast<SDL2OstrelSurface*>(canvas.surface())->mTexture);
}

TEST_F(ScreenInside, ReadsPastAViewportThatIsLargerThanTheTarget) {
    FillRect(nullptr, nullptr, 255, 0, 0, 255);
    const SDL_Rect tooLarge{0, 0, 100, 100};
    SDL_RenderSetViewport(gRenderer, &tooLarge);
    SDL_Surface* surface = create_surface(100, 100);
    EXPECT_EQ(ostrel::readTargetInto(*surface), 0);
    SDL_RenderSetViewport(gRenderer, nullptr);
    EXPECT_EQ(Picture::ofSurface(surface).count(kBlue), 64 * 48);  // red and blue change places in such a surface
    EXPECT_EQ(Picture::ofSurface(surface).count({0, 0, 0, 0}), 100 * 100 - 64 * 48);
    SDL_FreeSurface(surface);
}

TEST_F(ScreenInside, TargetScopeGoesBackToTheTargetBefore) {
    const std::unique_ptr<OstrelSurface> outer(CreateSurface(8, 8));
    const std::unique_ptr<OstrelSurface> inner(CreateSurface(8, 8));
    SDL_Texture* outerTexture = static_cast<SDL2OstrelSurface*>(outer.get())->mTexture;
    SDL_Texture* innerTexture = static_cast<SDL2OstrelSurface*>(inner.get())->mTexture;
    SDL_SetRenderTarget(gRenderer, outerTexture);
    {
        const ostrel::RenderTargetScope scope(gRenderer, innerTexture);
        EXPECT_TRUE(scope.isSet());
        EXPECT_EQ(SDL_GetRenderTarget(gRenderer), innerTexture);
    }
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), outerTexture);
    SDL_SetRenderTarget(gRenderer, nullptr);
}

TEST_F(ScreenInside, TargetScopeTellsWhenSdlRefuses) {
    const auto image = plainSurface(8, 8, kRed);
    const ostrel::RenderTargetScope scope(gRenderer, static_cast<SDL2OstrelSurface*>(image.get())->mTexture);
    EXPECT_FALSE(scope.isSet());
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), nullptr);
}

class ScreenQuitLifecycle : public DeviceTest {
protected:
    ~ScreenQuitLifecycle() override { ScreenUninit(); }
};

TEST_F(ScreenQuitLifecycle, QuitEndsScreenAndSdl) {
    ScreenInit(64, 48, 32, 1);
    const auto survivor = plainSurface(8, 8, kRed);
    ostrel::quitSdl();
    EXPECT_EQ(gRenderer, nullptr);
    EXPECT_EQ(liveRenderer(), nullptr);
    EXPECT_EQ(SDL_WasInit(0), 0U);
    EXPECT_EQ(survivor->render(nullptr, nullptr, false, nullptr), -1);
    EXPECT_EQ(FillRect(nullptr, nullptr, 0, 0, 0, 255), -1);
    EXPECT_EQ(ScreenUpdateAndFlip(), 0);
}

TEST_F(ScreenQuitLifecycle, QuitTwiceIsAsGoodAsOnce) {
    ScreenInit(64, 48, 32, 0);
    ostrel::quitSdl();
    ostrel::quitSdl();
    EXPECT_EQ(ScreenUninit(), 0);
}

TEST_F(ScreenQuitLifecycle, AScreenMayFollowAQuit) {
    ScreenInit(64, 48, 32, 1);
    const auto survivor = plainSurface(8, 8, kRed);
    SetRenderTarget(survivor.get());
    ostrel::quitSdl();
    EXPECT_EQ(ScreenInit(64, 48, 32, 0), 1);
    EXPECT_EQ(GetRenderTarget(), nullptr);
    plainSurface(64, 48, kRed)->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(Picture::ofWindow().count(kRed), 64 * 48);
}

TEST_F(ScreenQuitLifecycle, ABoundCacheIsEmptiedWhileItIsBound) {
    LRUCache cache(deleteSurface, 100);
    ScreenInit(64, 48, 32, 0);
    {
        const ostrel::ScreenBoundCache bound(cache);
        cache.put("a", CreateSurface(8, 8));
        ScreenUninit();
        EXPECT_EQ(cache.get("a"), nullptr);
    }
    ScreenInit(64, 48, 32, 0);
    cache.put("a", CreateSurface(8, 8));
    ScreenUninit();
    EXPECT_NE(cache.get("a"), nullptr);
}

}  // namespace
